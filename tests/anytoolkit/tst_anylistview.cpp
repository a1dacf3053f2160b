// Settings lists over a model.

#include "anytoolkit.h"
#include "widgetlist.h"
#include "widgetlistitem.h"
#include "widgetlistview.h"

#include <QPointer>
#include <QStandardItemModel>
#include <QStringListModel>

class TestAnyListView : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void upAndDownMoveTheFocus();
    void focusStopsAtTheEnds();
    void hiddenRowsArePassed();
    void heldKeysAreReported();
    void heldKeyScrollsOn();
    void okAndEscapeAreReported();
    void okEntersWhereTheListWantsIt();
    void leftAndRightChangeTheModel();
    void refusedChangeOnlyClicks();
    void rightLeadsDeeper();
    void badgeChoosesARow();
    void lettersJump();
    void focusStaysOnItsItem();
    void listMayBeDeletedInItsSlot();
    void rejectsWhatDoesNotExist();

    void showsRowsOfStrings();
    void workedListLooksLikeANewOne_data();
    void workedListLooksLikeANewOne();
    void changedModelLooksLikeANewOne_data();
    void changedModelLooksLikeANewOne();
    void mirroredListTurnsRound();
    void isHighlightedWhileItHasTheKeys();
    void longTitleScrollsWithTheFocus();
    void looksLikeAListOfWidgets_data();
    void looksLikeAListOfWidgets();
};

/// Notes the signals of a list among the sounds.
class Notes : public QObject
{
    Q_OBJECT

public:
    void take(WidgetListView *list)
    {
        connect(list, SIGNAL(doSave()), this, SLOT(doSave()));
        connect(list, SIGNAL(finished()), this, SLOT(finished()));
        connect(list, SIGNAL(reachedBegin()), this, SLOT(reachedBegin()));
        connect(list, SIGNAL(reachedEnd()), this, SLOT(reachedEnd()));
        connect(list, SIGNAL(upKeyLongPressed()), this, SLOT(upKeyLongPressed()));
        connect(list, SIGNAL(upKeyReleased()), this, SLOT(upKeyReleased()));
        connect(list, SIGNAL(downKeyLongPressed()), this, SLOT(downKeyLongPressed()));
        connect(list, SIGNAL(downKeyReleased()), this, SLOT(downKeyReleased()));
        connect(list, SIGNAL(doEnter(int)), this, SLOT(doEnter(int)));
        connect(list, SIGNAL(doChange(int)), this, SLOT(doChange(int)));
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
    void doEnter(int row) { AnyPlatform::addEvent(QString::fromLatin1("doEnter %1").arg(row)); }
    void doChange(int row) { AnyPlatform::addEvent(QString::fromLatin1("doChange %1").arg(row)); }
};

/// A model of one column that can refuse to change.
class Rows : public QStandardItemModel
{
public:
    explicit Rows(int count) : QStandardItemModel(count, 1), m_refuses(false)
    {
        for (int row = 0; row < count; ++row) {
            set(row, WidgetListView::TitleRole, QString::fromLatin1("row %1").arg(row));
            set(row, WidgetListView::ValuesRole, QStringList() << "Low" << "Middle" << "High");
        }
    }

    void set(int row, int role, const QVariant &data) { QStandardItemModel::setData(index(row, 0), data, role); }
    int valueOf(int row) const { return index(row, 0).data(WidgetListView::ValueIndexRole).toInt(); }

    virtual bool setData(const QModelIndex &index, const QVariant &data, int role)
    {
        return !m_refuses && QStandardItemModel::setData(index, data, role);
    }

    bool m_refuses;
};

struct Menu : Screen
{
    explicit Menu(int count) : rows(count), list(new WidgetListView(this, sound()))
    {
        list->setGeometry(0, 0, 220, 176);
        list->setTitle("Menu", true);
        list->setTitleIcon("image: url(:/resource/images_l2/icon_sound.png);");
        list->setModel(&rows);
        notes.take(list);
    }

    // The list goes before its model.
    ~Menu() { delete list.data(); }

    int type(int key, int repeats = 0)
    {
        strike(list, key, repeats);
        return list ? list->selectedRow() : -1;
    }

    Rows rows;
    QPointer<WidgetListView> list;
    Notes notes;
};

void TestAnyListView::init()
{
    AnyPlatform::reset();
}

void TestAnyListView::upAndDownMoveTheFocus()
{
    Menu menu(4);
    menu.showInFront();
    QVERIFY(menu.list->hasFocus());
    QCOMPARE(menu.list->selectedRow(), 0);
    const int keys[] = {Qt::Key_8, Qt::Key_8, Qt::Key_2, Qt::Key_2, Qt::Key_2, Qt::Key_8};
    const int rows[] = {1, 2, 1, 0, 3, 0};
    for (int i = 0; i < 6; ++i) {
        QCOMPARE(menu.type(keys[i]), rows[i]);
        QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901");
    }
    menu.list->m_useFunctionKeys = true;
    QCOMPARE(menu.type(Qt::Key_F2), 1);
    QCOMPARE(menu.type(Qt::Key_F1), 0);
}

void TestAnyListView::focusStopsAtTheEnds()
{
    Menu menu(2);
    menu.list->m_stopAtEnds = true;
    menu.showInFront();
    QCOMPARE(menu.type(Qt::Key_2), 0);
    QCOMPARE(menu.type(Qt::Key_8), 1);
    QCOMPARE(menu.type(Qt::Key_8), 1);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList()
        << "reachedBegin" << "sound 901" << "sound 901" << "reachedEnd" << "sound 901");
}

void TestAnyListView::hiddenRowsArePassed()
{
    Menu menu(4);
    menu.showInFront();
    menu.list->hideItem(1);
    menu.list->hideItem(2);
    QCOMPARE(menu.type(Qt::Key_8), 3);
    menu.list->showItem(2);
    QCOMPARE(menu.type(Qt::Key_2), 2);
}

void TestAnyListView::heldKeysAreReported()
{
    Menu menu(3);
    menu.showInFront();
    QCOMPARE(menu.type(Qt::Key_8, 11), 0);
    QCOMPARE(menu.type(Qt::Key_2, 15), 0);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList()
        << "sound 901" << "downKeyLongPressed" << "downKeyReleased" << "handed on 8"
        << "sound 901" << "upKeyLongPressed" << "upKeyReleased" << "handed on 2");
}

void TestAnyListView::heldKeyScrollsOn()
{
    Menu menu(100);
    menu.list->m_scrollOnHold = true;
    menu.showInFront();
    // The eleventh repeat is the long press; after it ten rows, then three rows with each.
    QCOMPARE(menu.type(Qt::Key_8, 11 + 4), 4);
    QCOMPARE(menu.type(Qt::Key_8, 11 + 10 + 2), 4 + 10 + 6);
    QCOMPARE(menu.type(Qt::Key_2, 11 + 10 + 30), 0);
}

void TestAnyListView::okAndEscapeAreReported()
{
    Menu menu(2);
    menu.showInFront();
    menu.type(Qt::Key_Menu);
    menu.type(Qt::Key_Escape);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "doSave" << "sound 901" << "finished" << "sound 901");
}

void TestAnyListView::okEntersWhereTheListWantsIt()
{
    Menu menu(2);
    menu.list->m_enterOnOK = true;
    menu.showInFront();
    menu.type(Qt::Key_8);
    menu.type(Qt::Key_Menu);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901" << "sound 901" << "doEnter 1");
}

void TestAnyListView::leftAndRightChangeTheModel()
{
    Menu menu(2);
    menu.showInFront();
    const int keys[] = {Qt::Key_6, Qt::Key_6, Qt::Key_6, Qt::Key_4};
    const int values[] = {1, 2, 0, 2};
    for (int i = 0; i < 4; ++i) {
        menu.type(keys[i]);
        QCOMPARE(menu.rows.valueOf(0), values[i]);
        QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "doChange 0" << "sound 901");
    }
    QCOMPARE(menu.rows.valueOf(1), 0);
}

void TestAnyListView::refusedChangeOnlyClicks()
{
    Menu menu(2);
    menu.rows.set(1, WidgetListView::ModifiableRole, false);
    menu.rows.m_refuses = true;
    menu.showInFront();
    menu.type(Qt::Key_6);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901");
    menu.rows.m_refuses = false;
    menu.type(Qt::Key_8);
    menu.type(Qt::Key_6);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901" << "sound 901");
    QCOMPARE(menu.rows.valueOf(0), 0);
    QCOMPARE(menu.rows.valueOf(1), 0);
}

void TestAnyListView::rightLeadsDeeper()
{
    Menu menu(1);
    menu.rows.set(0, WidgetListView::ValuesRole, QStringList());
    menu.rows.set(0, WidgetListView::MoreDepthRole, true);
    menu.showInFront();
    menu.type(Qt::Key_6);
    menu.type(Qt::Key_4);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901" << "doEnter 0" << "handed on 6" << "handed on 4");
}

void TestAnyListView::badgeChoosesARow()
{
    Menu menu(3);
    menu.rows.set(1, WidgetListView::BadgeRole, 5);
    menu.rows.set(1, WidgetListView::MoreDepthRole, true);
    menu.rows.set(2, WidgetListView::BadgeRole, 7);
    menu.showInFront();
    QCOMPARE(menu.type(Qt::Key_5), 0);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "doEnter 1" << "sound 901");
    AnyPlatform::takeLog();
    menu.type(Qt::Key_7);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901");
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "2 [ui/view/widget/widgetlistview.cpp, keyReleaseEvent] Not selectable by shortcut");
    menu.type(Qt::Key_9);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "handed on 9");
}

void TestAnyListView::lettersJump()
{
    static const char *const titles[] = {"Ada", "Bert", "Carl", "Berta", "Dora"};
    Menu menu(5);
    for (int row = 0; row < 5; ++row)
        menu.rows.set(row, WidgetListView::TitleRole, titles[row]);
    menu.list->m_useFunctionKeys = true;
    menu.list->m_jumpToLetter = true;
    menu.list->setKeyLetters(Qt::Key_2, "abc2");
    menu.showInFront();
    QCOMPARE(menu.type(Qt::Key_2), 1);
    QCOMPARE(menu.type(Qt::Key_2), 2);
    QCOMPARE(menu.type(Qt::Key_2), 0);
    QCOMPARE(menu.type(Qt::Key_2), 1);
}

void TestAnyListView::focusStaysOnItsItem()
{
    Menu menu(5);
    menu.showInFront();
    menu.type(Qt::Key_8);
    menu.rows.insertRow(0);
    QCOMPARE(menu.list->selectedRow(), 2);
    menu.rows.removeRow(0);
    QCOMPARE(menu.list->selectedRow(), 1);
    menu.rows.removeRow(1);
    QCOMPARE(menu.list->selectedRow(), 1);
    menu.rows.removeRows(0, 4);
    QCOMPARE(menu.list->selectedRow(), -1);
    QCOMPARE(menu.type(Qt::Key_8), -1);
    menu.rows.insertRow(0);
    QCOMPARE(menu.list->selectedRow(), 0);
}

/// Deletes the list that calls it.
class Deleter : public QObject
{
    Q_OBJECT

public slots:
    void deleteSender() { delete sender(); }
};

void TestAnyListView::listMayBeDeletedInItsSlot()
{
    const int keys[] = {Qt::Key_6, Qt::Key_Menu, Qt::Key_Escape};
    const char *const signalsOf[] = {SIGNAL(doChange(int)), SIGNAL(doSave()), SIGNAL(finished())};
    for (int i = 0; i < 3; ++i) {
        Menu menu(3);
        menu.showInFront();
        Deleter deleter;
        connect(menu.list.data(), signalsOf[i], &deleter, SLOT(deleteSender()));
        sendKey(menu.list, QEvent::KeyPress, keys[i]);
        sendKey(menu.list, QEvent::KeyRelease, keys[i]);
        QVERIFY(!menu.list);
        runEventLoop();
    }
}

void TestAnyListView::rejectsWhatDoesNotExist()
{
    Menu menu(2);
    menu.showInFront();
    menu.list->setFocusAtItem(2);
    menu.list->hideItem(-1);
    menu.list->setKeyLetters(Qt::Key_A, "abc");
    QCOMPARE(menu.list->selectedRow(), 0);
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "2 [ui/view/widget/widgetlistview.cpp, setFocusAtItem] Invalid index 2"
        << "2 [ui/view/widget/widgetlistview.cpp, hideItem] Invalid index -1"
        << QString::fromLatin1("2 [ui/view/widget/widgetlistview.cpp, setKeyLetters] Invalid index %1").arg(int(Qt::Key_A)));
}

// --- Pictures

void TestAnyListView::showsRowsOfStrings()
{
    Menu fresh(0);
    Rows rows(2);
    for (int row = 0; row < 2; ++row)
        rows.set(row, WidgetListView::ValuesRole, QVariant());
    fresh.list->setModel(&rows);
    const QImage expected = shownOnce(&fresh);
    fresh.list->setModel(0);

    QStringListModel strings(QStringList() << "row 0" << "row 1");
    Menu menu(1);
    menu.showInFront();
    QVERIFY(seen(&menu) != expected);
    menu.list->setModel(&strings);
    QVERIFY(looksAs(&menu, expected));
    menu.list->setModel(0);
}

void TestAnyListView::workedListLooksLikeANewOne_data()
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

void TestAnyListView::workedListLooksLikeANewOne()
{
    QFETCH(QString, keys);
    QFETCH(int, row);
    QFETCH(int, value);
    Menu fresh(6);
    fresh.rows.set(row, WidgetListView::ValueIndexRole, value);
    fresh.showInFront();
    fresh.list->setFocusAtItem(row);
    const QImage expected = drawn(&fresh);
    fresh.hide();

    Menu menu(6);
    menu.showInFront();
    QVERIFY(seen(&menu) != expected);
    for (int i = 0; i < int(keys.size()); ++i)
        menu.type(keys.at(i).unicode());
    QCOMPARE(menu.list->selectedRow(), row);
    QVERIFY(looksAs(&menu, expected));
}

static void applyToRow(const QString &change, Rows *rows)
{
    const int row = 1;
    if (change == "title")
        rows->set(row, WidgetListView::TitleRole, "Another title");
    else if (change == "title that is cut")
        rows->set(row, WidgetListView::TitleRole, "A title that is far too long for a display of this width");
    else if (change == "one value")
        rows->set(row, WidgetListView::ValuesRole, QStringList() << "On");
    else if (change == "current value")
        rows->set(row, WidgetListView::ValueIndexRole, 2);
    else if (change == "badge")
        rows->set(row, WidgetListView::BadgeRole, 3);
    else if (change == "not modifiable")
        rows->set(row, WidgetListView::ModifiableRole, false);
    else if (change == "value on the right side")
        rows->set(row, WidgetListView::ValueOnRightSideRole, true);
    else if (change == "pale title")
        rows->set(row, WidgetListView::TitleDimmedRole, true);
    else if (change == "pale value")
        rows->set(row, WidgetListView::ValueDimmedRole, true);
    else if (change == "row above")
        rows->insertRow(row);
    else if (change == "no row")
        rows->removeRow(row);
}

void TestAnyListView::changedModelLooksLikeANewOne_data()
{
    QTest::addColumn<QString>("change");
    static const char *const changes[] = {"title", "title that is cut", "one value", "current value", "badge",
                                          "not modifiable", "value on the right side", "pale title", "pale value",
                                          "row above", "no row"};
    for (int i = 0; i < 11; ++i)
        QTest::newRow(changes[i]) << changes[i];
}

void TestAnyListView::changedModelLooksLikeANewOne()
{
    QFETCH(QString, change);
    Menu fresh(4);
    applyToRow(change, &fresh.rows);
    const QImage expected = shownOnce(&fresh);

    Menu menu(4);
    menu.showInFront();
    QVERIFY(seen(&menu) != expected);
    applyToRow(change, &menu.rows);
    QVERIFY(looksAs(&menu, expected));
}

void TestAnyListView::mirroredListTurnsRound()
{
    Menu menu(3);
    const QImage expected = shownOnce(&menu);

    Menu mirrored(3);
    mirrored.list->m_mirrored = true;
    mirrored.showInFront();
    QVERIFY(seen(&mirrored) != expected);
    mirrored.type(Qt::Key_4);
    QCOMPARE(mirrored.rows.valueOf(0), 1);
    mirrored.type(Qt::Key_6);
    QCOMPARE(mirrored.rows.valueOf(0), 0);
}

void TestAnyListView::isHighlightedWhileItHasTheKeys()
{
    Menu menu(3);
    QWidget other(&menu);
    menu.showInFront();
    const QImage before = drawn(&menu);
    other.setFocus();
    QVERIFY(seen(&menu) != before);
    QCOMPARE(menu.list->selectedRow(), 0);
    menu.list->setFocus();
    QVERIFY(looksAs(&menu, before));
}

void TestAnyListView::longTitleScrollsWithTheFocus()
{
    Menu fresh(3);
    fresh.rows.set(1, WidgetListView::TitleRole, "A title that is far too long for a display of this width");
    fresh.showInFront();
    fresh.list->setFocusAtItem(2);
    const QImage expected = drawn(&fresh);
    fresh.hide();

    Menu menu(3);
    menu.rows.set(1, WidgetListView::TitleRole, "A title that is far too long for a display of this width");
    menu.showInFront();
    menu.type(Qt::Key_8);
    const QImage first = drawnAtOnce(&menu);
    EVENTUALLY(seen(&menu) != first);
    menu.type(Qt::Key_8);
    QVERIFY(looksAs(&menu, expected));
}

void TestAnyListView::looksLikeAListOfWidgets_data()
{
    QTest::addColumn<QString>("keys");
    QTest::newRow("at first") << "";
    QTest::newRow("down") << "8";
    QTest::newRow("scrolled") << "888";
    QTest::newRow("scrolled and back") << "88822";
    QTest::newRow("around the end, and another value") << "26";
}

void TestAnyListView::looksLikeAListOfWidgets()
{
    QFETCH(QString, keys);
    Screen fresh;
    WidgetList list(4, &fresh, sound());
    list.setGeometry(0, 0, 220, 176);
    list.setTitle("Menu", true);
    list.setTitleIcon("image: url(:/resource/images_l2/icon_sound.png);");
    for (int row = 0; row < 4; ++row) {
        WidgetListItem *item = new WidgetListItem(&list, sound());
        item->resize(220, 46);
        item->setTitle(QString::fromLatin1("row %1").arg(row), true);
        item->addValue("Low");
        item->addValue("Middle");
        item->addValue("High");
        list.addListItem(item);
    }
    fresh.showInFront();
    // It is rows that have had the focus which look the same.
    for (int row = 3; row >= 0; --row)
        list.setFocusAtItem(row);
    for (int i = 0; i < int(keys.size()); ++i)
        strike(&list, keys.at(i).unicode());
    const QImage expected = drawn(&fresh);
    fresh.hide();

    Menu menu(4);
    menu.showInFront();
    for (int i = 0; i < int(keys.size()); ++i)
        menu.type(keys.at(i).unicode());
    QVERIFY(looksAs(&menu, expected));
}

ANYTOOLKIT_MAIN(TestAnyListView)

#include "tst_anylistview.moc"
