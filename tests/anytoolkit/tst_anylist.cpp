// Settings menus whose rows are widgets, and these rows.

#include "anytoolkit.h"
#include "widgetlist.h"
#include "widgetlistitem.h"

#include <QLabel>
#include <QPointer>
#include <QTableWidget>

class TestAnyList : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void upAndDownMoveTheFocus();
    void functionKeysMoveWhereTheyAreTheDirections();
    void focusStopsAtTheEnds();
    void hiddenRowsArePassed();
    void heldKeysAreReported();
    void okAndEscapeAreReported();
    void digitKeyChoosesARow();
    void leftAndRightChangeTheValue();
    void rangeLimitsTheValues();
    void rowThatIsNotModifiableOnlyClicks();
    void rightLeadsDeeper();
    void okEntersWhereTheRowWantsIt();
    void changesAreModifications();
    void valueMayBeAWidget();
    void longTitleScrollsWithTheFocus();
    void itemMayBeDeletedInItsSlot();
    void rejectsWhatDoesNotExist();

    void workedListLooksLikeANewOne_data();
    void workedListLooksLikeANewOne();
    void rowWithoutTheFocusIsPaleAgain();
    void changedRowLooksLikeANewOne_data();
    void changedRowLooksLikeANewOne();
    void listWithoutFocusTurnsPages();
};

/// Notes the signals of a list and its rows among the sounds.
class Notes : public QObject
{
    Q_OBJECT

public:
    void take(WidgetList *list)
    {
        connect(list, SIGNAL(doSave()), this, SLOT(doSave()));
        connect(list, SIGNAL(finished()), this, SLOT(finished()));
        connect(list, SIGNAL(reachedBegin()), this, SLOT(reachedBegin()));
        connect(list, SIGNAL(reachedEnd()), this, SLOT(reachedEnd()));
        connect(list, SIGNAL(upKeyLongPressed()), this, SLOT(upKeyLongPressed()));
        connect(list, SIGNAL(upKeyReleased()), this, SLOT(upKeyReleased()));
        connect(list, SIGNAL(downKeyLongPressed()), this, SLOT(downKeyLongPressed()));
        connect(list, SIGNAL(downKeyReleased()), this, SLOT(downKeyReleased()));
    }

    void take(WidgetListItem *item)
    {
        connect(item, SIGNAL(doEnter()), this, SLOT(doEnter()));
        connect(item, SIGNAL(doChange()), this, SLOT(doChange()));
    }

public slots:
    void doSave() { AnyPlatform::addEvent("doSave"); }
    void finished() { AnyPlatform::addEvent("finished"); }
    void reachedBegin() { AnyPlatform::addEvent("reachedBegin"); }
    void reachedEnd() { AnyPlatform::addEvent("reachedEnd"); }
    void upKeyLongPressed() { AnyPlatform::addEvent("upKeyLongPressed"); }
    void upKeyReleased() { AnyPlatform::addEvent("upKeyReleased"); }
    void downKeyLongPressed() { AnyPlatform::addEvent("downKeyLongPressed"); }
    void downKeyReleased() { AnyPlatform::addEvent("downKeyReleased"); }
    void doEnter() { AnyPlatform::addEvent("doEnter"); }
    void doChange() { AnyPlatform::addEvent("doChange"); }
};

/// A menu of rows "row 0" and so on, with the values "Low", "Middle" and "High".
struct Menu : Screen
{
    explicit Menu(int count) : list(count, this, sound())
    {
        list.setGeometry(0, 0, 220, 176);
        list.setTitle("Menu", true);
        list.setTitleIcon("image: url(:/resource/images_l2/icon_sound.png);");
        notes.take(&list);
        for (int row = 0; row < count; ++row) {
            WidgetListItem *item = new WidgetListItem(&list, sound());
            item->resize(220, 46);
            item->setTitle(QString::fromLatin1("row %1").arg(row), true);
            item->addValue("Low");
            item->addValue("Middle");
            item->addValue("High");
            notes.take(item);
            items.append(item);
        }
    }

    /// Shows it with all rows that are not in it yet.
    void open()
    {
        for (int row = 0; row < int(items.size()); ++row) {
            if (!isInList(row))
                list.addListItem(items.at(row));
        }
        showInFront();
    }

    bool isInList(int row) const { return list.findChild<QTableWidget *>()->cellWidget(row, 0) == items.at(row).data(); }

    void type(int key, int repeats = 0) { strike(&list, key, repeats); }

    /// The row that has the focus; -1: none.
    int focus() const
    {
        for (int row = 0; row < int(items.size()); ++row) {
            if (items.at(row) && items.at(row).data() == QApplication::focusWidget())
                return row;
        }
        return -1;
    }

    WidgetList list;
    QList<QPointer<WidgetListItem> > items;
    Notes notes;
};

void TestAnyList::init()
{
    AnyPlatform::reset();
}

void TestAnyList::upAndDownMoveTheFocus()
{
    Menu menu(4);
    menu.open();
    QCOMPARE(menu.focus(), 0);
    const int keys[] = {Qt::Key_8, Qt::Key_8, Qt::Key_2, Qt::Key_2, Qt::Key_2, Qt::Key_8};
    const int rows[] = {1, 2, 1, 0, 3, 0};
    for (int i = 0; i < 6; ++i) {
        menu.type(keys[i]);
        QCOMPARE(menu.focus(), rows[i]);
        QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901");
        const QWidget *item = menu.items.at(rows[i]);
        QVERIFY(QRect(0, 38, 220, 138).contains(QRect(item->mapTo(&menu, QPoint(0, 0)), QSize(200, 46))));
    }
}

void TestAnyList::functionKeysMoveWhereTheyAreTheDirections()
{
    Menu menu(3);
    menu.list.m_useFunctionKeys = true;
    for (int row = 0; row < 3; ++row)
        menu.items.at(row)->m_useFunctionKeys = true;
    menu.open();
    menu.type(Qt::Key_F2);
    QCOMPARE(menu.focus(), 1);
    menu.type(Qt::Key_F4);
    QCOMPARE(menu.items.at(1)->getDisplayValue(), QString("Middle"));
    menu.type(Qt::Key_F1);
    QCOMPARE(menu.focus(), 0);
    AnyPlatform::takeEvents();
    menu.type(Qt::Key_8);
    QCOMPARE(menu.focus(), 0);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "handed on 8");
}

void TestAnyList::focusStopsAtTheEnds()
{
    Menu menu(2);
    menu.list.m_stopAtEnds = true;
    menu.open();
    menu.type(Qt::Key_2);
    QCOMPARE(menu.focus(), 0);
    menu.type(Qt::Key_8);
    menu.type(Qt::Key_8);
    QCOMPARE(menu.focus(), 1);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList()
        << "reachedBegin" << "sound 901" << "sound 901" << "reachedEnd" << "sound 901");
}

void TestAnyList::hiddenRowsArePassed()
{
    Menu menu(4);
    menu.open();
    menu.list.hideItem(1);
    menu.list.hideItem(2);
    menu.type(Qt::Key_8);
    QCOMPARE(menu.focus(), 3);
    menu.list.showItem(2);
    menu.type(Qt::Key_2);
    QCOMPARE(menu.focus(), 2);
}

void TestAnyList::heldKeysAreReported()
{
    Menu menu(3);
    menu.open();
    menu.type(Qt::Key_8, 10);
    QCOMPARE(menu.focus(), 1);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901");
    menu.list.hide();
    menu.list.show();
    AnyPlatform::takeEvents();
    menu.type(Qt::Key_8, 11);
    menu.type(Qt::Key_2, 15);
    QCOMPARE(menu.focus(), 0);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList()
        << "sound 901" << "downKeyLongPressed" << "downKeyReleased" << "handed on 8"
        << "sound 901" << "upKeyLongPressed" << "upKeyReleased" << "handed on 2");
}

void TestAnyList::okAndEscapeAreReported()
{
    Menu menu(2);
    menu.open();
    menu.type(Qt::Key_Menu);
    menu.type(Qt::Key_Escape);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "doSave" << "sound 901" << "finished" << "sound 901");
}

void TestAnyList::digitKeyChoosesARow()
{
    Menu menu(3);
    menu.items.at(1)->m_noShortcut = false;
    menu.items.at(1)->setMoreDepth(true);
    menu.items.at(2)->m_noShortcut = false;
    menu.list.addListItem(menu.items.at(0));
    menu.list.addListItem(menu.items.at(1), Qt::Key_5);
    menu.list.addListItem(menu.items.at(2), Qt::Key_7);
    menu.open();
    menu.type(Qt::Key_5);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "doEnter" << "sound 901");
    AnyPlatform::takeLog();
    menu.type(Qt::Key_7);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901");
    QVERIFY(AnyPlatform::takeLog().contains("2 [selectByShortcut, 264] Not selectable by shortcut"));
    menu.type(Qt::Key_9);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "handed on 9");
    QCOMPARE(menu.focus(), 0);
}

void TestAnyList::leftAndRightChangeTheValue()
{
    Menu menu(2);
    menu.open();
    QStringList values;
    const int keys[] = {Qt::Key_6, Qt::Key_6, Qt::Key_6, Qt::Key_4};
    for (int i = 0; i < 4; ++i) {
        menu.type(keys[i]);
        values << menu.items.at(0)->getDisplayValue();
        QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "doChange" << "sound 901");
    }
    QCOMPARE(values, QStringList() << "Middle" << "High" << "Low" << "High");
    QCOMPARE(menu.items.at(1)->getDisplayValue(), QString("Low"));
}

void TestAnyList::rangeLimitsTheValues()
{
    Menu menu(1);
    menu.items.at(0)->setSelectableRange(1, 2);
    menu.items.at(0)->setDisplayValueIndex(1);
    menu.open();
    QStringList values;
    for (int i = 0; i < 3; ++i) {
        menu.type(Qt::Key_6);
        values << menu.items.at(0)->getDisplayValue();
    }
    QCOMPARE(values, QStringList() << "High" << "Middle" << "High");
}

void TestAnyList::rowThatIsNotModifiableOnlyClicks()
{
    Menu menu(1);
    menu.items.at(0)->setModifiable(false);
    menu.open();
    menu.type(Qt::Key_6);
    QCOMPARE(menu.items.at(0)->getDisplayValue(), QString("Low"));
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901");
}

void TestAnyList::rightLeadsDeeper()
{
    Menu menu(1);
    menu.items.at(0)->removeAllValue();
    menu.items.at(0)->setMoreDepth(true);
    menu.open();
    menu.type(Qt::Key_6);
    // The list and the screen get the key as well.
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901" << "doEnter" << "handed on 6");
}

void TestAnyList::okEntersWhereTheRowWantsIt()
{
    Menu menu(1);
    menu.items.at(0)->m_enterOnOK = true;
    menu.open();
    menu.type(Qt::Key_Menu);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901" << "doEnter");
}

void TestAnyList::changesAreModifications()
{
    Menu menu(2);
    menu.open();
    menu.list.backup();
    QVERIFY(!menu.list.isModified());
    menu.type(Qt::Key_6);
    QVERIFY(menu.list.isModified());
    menu.items.at(0)->m_ignoreModified = true;
    QVERIFY(!menu.list.isModified());
    menu.items.at(0)->m_ignoreModified = false;
    menu.type(Qt::Key_4);
    QVERIFY(!menu.list.isModified());
}

void TestAnyList::valueMayBeAWidget()
{
    Menu menu(1);
    QLabel *values[] = {new QLabel("on"), new QLabel("off"), new QLabel("auto")};
    WidgetListItem *item = new WidgetListItem(&menu.list, sound());
    item->resize(220, 46);
    item->setTitle("widgets", true);
    item->addValue(values[0]);
    item->addValue(values[2]);
    item->insertValue(1, values[1]);
    menu.notes.take(item);
    delete menu.items.at(0).data();
    menu.items[0] = item;
    menu.open();
    QVERIFY(values[0]->isVisible() && !values[1]->isVisible());
    menu.type(Qt::Key_6);
    QVERIFY(values[1]->isVisible() && !values[0]->isVisible());
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "doChange" << "sound 901");
}

void TestAnyList::longTitleScrollsWithTheFocus()
{
    const QString title = "A title that is far too long for a display of this width, whatever the font";
    Menu menu(2);
    menu.items.at(0)->setTitle(title, true);
    menu.open();
    QLabel *label = partsOf<QLabel>(menu.items.at(0)).at(0);
    // It goes past in full length, the second character first.
    EVENTUALLY(label->text().startsWith(title.mid(1, 10)) || label->text().startsWith(title.mid(2, 10)));
    menu.type(Qt::Key_8);
    const QString rest = label->text();
    QVERIFY(rest.startsWith(title.left(3)) && rest.size() < title.size());
    QTest::qWait(500);
    QCOMPARE(label->text(), rest);
}

/// Deletes the row that calls it.
class Deleter : public QObject
{
    Q_OBJECT

public slots:
    void deleteSender() { delete sender(); }
};

void TestAnyList::itemMayBeDeletedInItsSlot()
{
    Menu menu(2);
    menu.open();
    Deleter deleter;
    connect(menu.items.at(0), SIGNAL(doChange()), &deleter, SLOT(deleteSender()));
    menu.type(Qt::Key_6);
    QVERIFY(!menu.items.at(0));
    runEventLoop();
    menu.type(Qt::Key_8);
    QCOMPARE(menu.focus(), 1);
}

void TestAnyList::rejectsWhatDoesNotExist()
{
    Menu menu(2);
    menu.open();
    menu.list.setRowCount(-1);
    menu.list.hideItem(2);
    menu.list.addListItem(0);
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "2 [ui/view/widget/widgetlist.cpp, setRowCount] Invalid index -1"
        << "2 [ui/view/widget/widgetlist.cpp, hideItem] Invalid index 2"
        << "2 [ui/view/widget/widgetlist.cpp, addListItem] Invalid index 2");
    menu.list.setFocusAtItem(2);
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "16 [ui/view/widget/widgetlist.cpp, setFocusAtItem] sel = 2" << "2 [setFocusAtItem, 249] Invalid 2");
    QCOMPARE(menu.focus(), 0);
}

// --- Pictures

void TestAnyList::workedListLooksLikeANewOne_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("value");
    QTest::newRow("down") << "8" << 1 << 0;
    QTest::newRow("down, right") << "86" << 1 << 1;
    QTest::newRow("left") << "4" << 0 << 2;
    QTest::newRow("scrolled") << "888" << 3 << 0;
    QTest::newRow("around the end, left") << "24" << 5 << 2;
    QTest::newRow("there and back") << "8882226" << 0 << 1;
}

void TestAnyList::workedListLooksLikeANewOne()
{
    QFETCH(QString, keys);
    QFETCH(int, row);
    QFETCH(int, value);
    Menu fresh(6);
    fresh.items.at(row)->setDisplayValueIndex(value);
    fresh.open();
    // The way there decides which rows are in view.
    for (int i = 0; i < int(keys.size()); ++i) {
        const int from = fresh.focus();
        if (keys.at(i) == QLatin1Char('8'))
            fresh.list.setFocusAtItem(fresh.list.findNextRow(from));
        else if (keys.at(i) == QLatin1Char('2'))
            fresh.list.setFocusAtItem(fresh.list.findPrevRow(from));
    }
    QCOMPARE(fresh.focus(), row);
    const QImage expected = drawn(&fresh);
    fresh.hide();

    Menu menu(6);
    menu.open();
    QVERIFY(seen(&menu) != expected);
    for (int i = 0; i < int(keys.size()); ++i)
        menu.type(keys.at(i).unicode());
    QVERIFY(looksAs(&menu, expected));
}

void TestAnyList::rowWithoutTheFocusIsPaleAgain()
{
    Menu menu(3);
    menu.open();
    const QRect title(0, 38 + 46, 100, 23);
    const QImage rest = seen(&menu).copy(title);
    menu.type(Qt::Key_8);
    QVERIFY(seen(&menu).copy(title) != rest);
    menu.type(Qt::Key_8);
    EVENTUALLY(seen(&menu).copy(title) == rest);
}

static void applyToRow(const QString &change, WidgetListItem *item)
{
    if (change == "title") {
        item->setTitle("Another title", true);
    } else if (change == "title that is cut") {
        item->setTitle("A title that is far too long for a display of this width", true);
    } else if (change == "value on the right side") {
        item->setValueOnRightSide(true);
        item->setTitle("Short", true);
    } else if (change == "set value") {
        item->removeAllValue();
        item->setDisplayValue(0, "Set", false);
    } else if (change == "not modifiable") {
        item->setModifiable(false);
    } else if (change == "leads deeper") {
        item->removeAllValue();
        item->setMoreDepth(true);
    } else if (change == "badge") {
        item->m_noShortcut = false;
        item->setSerialNum(true, 7);
    } else if (change == "replaced value") {
        item->replaceValue(0, "Quiet", true);
    }
}

void TestAnyList::changedRowLooksLikeANewOne_data()
{
    QTest::addColumn<QString>("change");
    static const char *const changes[] = {"title", "title that is cut", "value on the right side", "set value",
                                          "not modifiable", "leads deeper", "badge", "replaced value"};
    for (int i = 0; i < 8; ++i)
        QTest::newRow(changes[i]) << changes[i];
}

void TestAnyList::changedRowLooksLikeANewOne()
{
    // A row that has had the focus, as refresh() dresses it.
    QFETCH(QString, change);
    Menu fresh(3);
    applyToRow(change, fresh.items.at(1));
    fresh.open();
    fresh.list.setFocusAtItem(1);
    fresh.list.setFocusAtItem(0);
    fresh.items.at(1)->refresh();
    fresh.items.at(1)->refresh();
    const QImage expected = drawn(&fresh);
    fresh.hide();

    Menu menu(3);
    menu.open();
    menu.type(Qt::Key_8);
    menu.type(Qt::Key_2);
    QVERIFY(seen(&menu) != expected);
    applyToRow(change, menu.items.at(1));
    menu.items.at(1)->refresh();
    menu.items.at(1)->refresh();
    QVERIFY(looksAs(&menu, expected));
}

void TestAnyList::listWithoutFocusTurnsPages()
{
    Menu fresh(7);
    fresh.list.setNoFocusStyle(3);
    fresh.open();
    fresh.list.setFocusAtItem(5);
    const QImage expected = drawn(&fresh);
    fresh.hide();

    Menu menu(7);
    menu.list.setNoFocusStyle(3);
    menu.open();
    QVERIFY(seen(&menu) != expected);
    menu.type(Qt::Key_8);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901");
    QVERIFY(looksAs(&menu, expected));
}

ANYTOOLKIT_MAIN(TestAnyList)

#include "tst_anylist.moc"
