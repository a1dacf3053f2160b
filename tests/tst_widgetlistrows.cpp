#include "displaywork.h"
#include "listtesting.h"
#include "picturecomparison.h"
#include "rowparts.h"
#include "waiting.h"

#include <QLineEdit>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

#include <functional>

// What an application may ask of rows, whatever the list does to keep long lists affordable.

using Change = std::function<void(Menu &)>;
Q_DECLARE_METATYPE(Change)

namespace {

bool looksFocused(const WidgetListItem *item)
{
    return RowParts(*item).title->styleSheet() == QLatin1String("color: #1F1618");
}

/// The rows that look as if they had the focus, by their background or by their title.
QList<int> rowsThatLookFocused(const WidgetList &list)
{
    QList<int> rows;
    for (int row = 0; row < tableOf(list)->rowCount(); ++row) {
        if (tableOf(list)->isRowHidden(row))
            continue;
        const WidgetListItem *item = itemOf(list, row);
        if (selectedRows(list).contains(row) || (item && looksFocused(item)))
            rows.append(row);
    }
    return rows;
}

/// What the screen shows of \a widget.
QImage picture(QWidget *widget)
{
    return widget->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// A plain table set up as the list's is, with list items in it, as the toolkit alone would treat them.
struct PlainList
{
    explicit PlainList(int rows)
        : table(newPlainTable(rows, tableOf(WidgetList(0, nullptr, nullptr))->styleSheet(), &screen))
    {
        screen.resize(220, 176);
        for (int row = 0; row < rows; ++row) {
            WidgetListItem *item = newRow(QString("row %1").arg(row));
            table->setRowHeight(row, item->height());
            table->setCellWidget(row, 0, item);
        }
    }

    QWidget *item(int row) const
    {
        return table->cellWidget(row, 0);
    }

    void show()
    {
        screen.show();
        screen.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&screen, LongestWait));
        runEventLoop();
    }

    QWidget screen;
    QTableWidget *table;
};

}

class TestWidgetListRows : public QObject
{
    Q_OBJECT

private slots:
    void init();

    // Focus and keys of rows that go
    void keysOfARowThatGoesReachTheList_data();
    void keysOfARowThatGoesReachTheList();
    void rowThatWasHiddenComesBackWithoutTheFocus_data();
    void rowThatWasHiddenComesBackWithoutTheFocus();
    void widgetWithTheFocusInAHiddenRowLosesIt();
    void rowThatGoesOutOfViewLeavesTheFocusAlone_data();
    void rowThatGoesOutOfViewLeavesTheFocusAlone();
    void hiddenListLeavesTheFocusToNobody_data();
    void hiddenListLeavesTheFocusToNobody();
    void hiddenListHandsTheFocusOn();
    void rowHiddenInAHiddenListLosesTheFocus();
    void hiddenTableHandsTheKeysToTheList();
    void rowIsThereWhenOnePixelOfItIsSeen();
    void rowThatIsHiddenKeepsItsSize();
    void tableThatComesBackGivesTheFocusToItsRow();
    void tableThatComesBackHighlightsARowThatWasHidden();
    void tableThatComesBackLeavesTheFocusWhereItsRowIsHidden();
    void listWhoseFirstRowIsHiddenTakesTheKeys();
    void emptyRowLeavesTheKeysToTheList();
    void rowHiddenInAnInactiveWindowDoesNotGetTheFocusWithIt();
    void focusThatIsElsewhereStaysThere();

    // Rows that are deleted
    void deletedRowIsForgottenAtOnce_data();
    void deletedRowIsForgottenAtOnce();
    void rowDeletedBesideItsNewPlace_data();
    void rowDeletedBesideItsNewPlace();
    void rowDeletedInAHiddenListGivesTheFocusToNobody();
    void rowHiddenInAHiddenWindowGivesTheFocusToNobody();
    void deletedChildOfAnotherParentIsForgotten();
    void rowMovedToAnotherListIsForgottenByTheFirst();
    void firstRowMovedToAnotherListIsForgottenByTheFirst();
    void rowThatIsSomewhereElseByNowIsHiddenThereInPeace();
    void rowThatTheSystemHidesKeepsTheFocus();
    void removedRowMayOutliveItsList();
    void rowThatTheTableHasMovedIsForgottenByTheFirst();
    void rowTakenOutOfItsCellMayMoveToAnotherList();
    void rowTakenOutOfItsCellLeavesTheOthersWhenItIsDeleted();
    void rowThatIsToBeDeletedGoesFromItsListAsWell();
    void deletedRowsMakeRoomForOthers();
    void randomRowsComeAndGo();
    void rowsGoFromTheLastToTheFirst_data();
    void rowsGoFromTheLastToTheFirst();

    // What is shown
    void rowsInViewAnswerAsInAPlainTable_data();
    void rowsInViewAnswerAsInAPlainTable();
    void rowIsHiddenUntilItIsFirstInView();
    void rowOnceInViewStaysShown();
    void pictureOfARowDoesNotDependOnTheView();
    void pictureOfAListThatWasNeverShown();
    void pictureIsThatOfAPlainTable();
    void rowsWithoutItemsMoveWithTheOthers();
    void childrenOfTheViewportAreFoundWhereTheyAreSeen();
    void listInAHiddenParentIsShownWithIt();
    void rowHiddenByTheApplicationStaysHidden();
    void rowShownByTheApplicationIsRefreshed();
    void rowShownByTheApplicationOutOfViewIsNotSeen();
    void rowTakenOutByTheApplicationIsLeftAlone();
    void listMovedToAnotherParentLooksAsIfItWereBuiltThere();
    void rowHiddenInTheTableComesBackOutOfView();
    void rowHiddenInTheTableComesBackInTheHeightOfItsRow();
    void rowsOutOfViewAreLaidOutForTheHeightOfTheirRow();
    void rowsOutOfViewTakeANewHeightWithTheOthers();
    void rowThatComesIntoViewWithTheFocusIsDressedForItAtOnce();
    void rowThatComesIntoViewLooksFocusedOnlyWithTheFocus_data();
    void rowThatComesIntoViewLooksFocusedOnlyWithTheFocus();
    void partsOfARowAreShownWithEvents();
    void rowAddedIsNotHiddenAnew();
};

void TestWidgetListRows::init()
{
    RecordingPlatform::reset();
}

// --- Focus and keys of rows that go

static void addWaysToGo()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("hidden") << Change([](Menu &menu) { menu.list->hideItem(1); });
    QTest::newRow("hidden by itself") << Change([](Menu &menu) { menu.item(1)->hide(); });
    QTest::newRow("hidden in its own slot") << Change([](Menu &menu) {
        QObject::connect(menu.item(1), &WidgetListItem::doChange, [&menu] { menu.list->hideItem(1); });
        menu.type(Qt::Key_6);
    });
    QTest::newRow("hidden in its own slot by itself") << Change([](Menu &menu) {
        QObject::connect(menu.item(1), &WidgetListItem::doChange, menu.item(1), &QWidget::hide);
        menu.type(Qt::Key_4);
    });
}

void TestWidgetListRows::keysOfARowThatGoesReachTheList_data()
{
    addWaysToGo();
    QTest::newRow("deleted") << Change([](Menu &menu) { delete menu.item(1); });
    QTest::newRow("deleted later") << Change([](Menu &menu) {
        menu.item(1)->deleteLater();
        runEventLoop();
    });
    QTest::newRow("deleted in its own slot") << Change([](Menu &menu) {
        WidgetListItem *item = menu.item(1);
        QObject::connect(item, &WidgetListItem::doChange, [item] { delete item; });
        menu.type(Qt::Key_6);
    });
    QTest::newRow("replaced") << Change([](Menu &menu) {
        WidgetListItem *first = menu.item(0);
        menu.list->setRowCount(4);
        menu.list->addListItem(first);
        menu.list->addListItem(newRow(QStringLiteral("new")));
        menu.list->addListItem(menu.item(2));
        menu.list->addListItem(menu.item(3));
        menu.list->setFocusAtItem(1);
        menu.list->removeAllItems();
        addRows(*menu.list, 4);
    });
    QTest::newRow("all removed") << Change([](Menu &menu) { menu.list->removeAllItems(); });
    QTest::newRow("all removed and deleted") << Change([](Menu &menu) {
        menu.list->removeAllItems();
        runEventLoop();
    });
    QTest::newRow("all removed and new ones added") << Change([](Menu &menu) {
        menu.list->removeAllItems();
        addRows(*menu.list, 4);
        runEventLoop();
    });
}

void TestWidgetListRows::keysOfARowThatGoesReachTheList()
{
    QFETCH(Change, change);
    for (int key : {Qt::Key_2, Qt::Key_8}) {
        Menu menu(4, 3);
        menu.show();
        menu.list->setFocusAtItem(1);
        QPointer<WidgetListItem> item = menu.item(1);
        change(menu);
        QVERIFY(!item || !item->hasFocus());
        QCOMPARE(QApplication::focusWidget(), menu.list.data());
        QCOMPARE(rowsThatLookFocused(*menu.list), QList<int>());

        QList<QPointer<WidgetListItem>> items;
        for (int row = 0; row < 4; ++row)
            items.append(menu.item(row));
        int changes = 0;
        for (const QPointer<WidgetListItem> &each : items) {
            if (each)
                connect(each, &WidgetListItem::doChange, [&changes] { ++changes; });
        }
        menu.type(Qt::Key_4);
        menu.type(Qt::Key_6);
        QCOMPARE(changes, 0);

        const int next = key == Qt::Key_2 ? 0 : 2;
        const bool hasItem = !menu.item(next) || menu.item(next)->isVisible();
        menu.type(key);
        if (menu.item(next) && hasItem) {
            QCOMPARE(focusedRow(*menu.list), next);
            QCOMPARE(rowsThatLookFocused(*menu.list), QList<int>{next});
        }
    }
}

void TestWidgetListRows::rowThatWasHiddenComesBackWithoutTheFocus_data()
{
    addWaysToGo();
}

void TestWidgetListRows::rowThatWasHiddenComesBackWithoutTheFocus()
{
    QFETCH(Change, change);
    Menu menu(4, 3);
    menu.show();
    menu.list->setFocusAtItem(1);
    change(menu);
    menu.list->showItem(1);
    WidgetListItem *item = menu.item(1);
    QVERIFY(item->isVisible());
    QVERIFY(!item->hasFocus());
    QCOMPARE(rowsThatLookFocused(*menu.list), QList<int>());

    QSignalSpy changes(item, &WidgetListItem::doChange);
    menu.type(Qt::Key_6);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(menu.type(Qt::Key_8), 2);
    QCOMPARE(menu.type(Qt::Key_2), 1);
    QCOMPARE(rowsThatLookFocused(*menu.list), QList<int>{1});
    menu.type(Qt::Key_6);
    QCOMPARE(changes.count(), 1);
}

void TestWidgetListRows::widgetWithTheFocusInAHiddenRowLosesIt()
{
    Menu menu(3);
    QLineEdit *edit = new QLineEdit;
    menu.list->setRowCount(3);
    WidgetListItem *row = new WidgetListItem(nullptr, sound());
    row->resize(220, 46);
    row->setTitle(QStringLiteral("name"), true);
    row->addValue(edit);
    menu.list->addListItem(row);
    addRows(*menu.list, 2);
    menu.show();
    edit->setFocus();
    QCOMPARE(QApplication::focusWidget(), edit);
    menu.list->hideItem(0);
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
}

void TestWidgetListRows::rowThatGoesOutOfViewLeavesTheFocusAlone_data()
{
    QTest::addColumn<bool>("seenBefore");
    QTest::addColumn<Change>("change");
    for (bool seenBefore : {false, true}) {
        const char *const seen = seenBefore ? "seen before, " : "never seen, ";
        QTest::addRow("%shidden", seen) << seenBefore << Change([](Menu &menu) { menu.list->hideItem(7); });
        QTest::addRow("%sdeleted", seen) << seenBefore << Change([](Menu &menu) { delete menu.item(7); });
        QTest::addRow("%shidden by itself", seen) << seenBefore << Change([](Menu &menu) { menu.item(7)->hide(); });
        QTest::addRow("%shidden and shown", seen) << seenBefore << Change([](Menu &menu) {
            menu.list->hideItem(7);
            menu.list->showItem(7);
        });
    }
}

void TestWidgetListRows::rowThatGoesOutOfViewLeavesTheFocusAlone()
{
    QFETCH(bool, seenBefore);
    QFETCH(Change, change);
    Menu menu(12);
    menu.show();
    if (seenBefore)
        menu.list->setFocusAtItem(7);
    menu.list->setFocusAtItem(1);
    change(menu);
    QCOMPARE(focusedRow(*menu.list), 1);
    QCOMPARE(rowsThatLookFocused(*menu.list), QList<int>{1});
}

void TestWidgetListRows::hiddenListLeavesTheFocusToNobody_data()
{
    QTest::addColumn<Change>("hide");
    QTest::addColumn<Change>("show");
    QTest::newRow("the list") << Change([](Menu &menu) { menu.list->hide(); })
                              << Change([](Menu &menu) { menu.list->show(); });
    QTest::newRow("its parent") << Change([](Menu &menu) { menu.list->parentWidget()->hide(); })
                                << Change([](Menu &menu) { menu.list->parentWidget()->show(); });
}

void TestWidgetListRows::hiddenListLeavesTheFocusToNobody()
{
    QFETCH(Change, hide);
    QFETCH(Change, show);
    Menu menu(4);
    QWidget *page = new QWidget(&menu.screen);
    page->resize(220, 176);
    menu.list->setParent(page);
    menu.list->show();
    page->show();
    menu.show();
    menu.list->setFocusAtItem(1);
    QCOMPARE(focusedRow(*menu.list), 1);
    QSignalSpy changes(menu.item(1), &WidgetListItem::doChange);
    hide(menu);
    QVERIFY(!menu.item(1)->hasFocus());
    QCOMPARE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(menu.screen.windowHandle(), Qt::Key_6);
    QCOMPARE(changes.count(), 0);

    show(menu);
    QCOMPARE(focusedRow(*menu.list), 0);
    QCOMPARE(rowsThatLookFocused(*menu.list), QList<int>{0});
}

void TestWidgetListRows::hiddenListHandsTheFocusOn()
{
    // As the toolkit does for any widget that is hidden: who takes the Tab key next gets the focus.
    Menu menu(4);
    QLineEdit edit(&menu.screen);
    QLineEdit lastEdit(&menu.screen);
    menu.show();
    QCOMPARE(focusedRow(*menu.list), 0);
    menu.list->hide();
    QCOMPARE(QApplication::focusWidget(), &edit);
}

void TestWidgetListRows::rowHiddenInAHiddenListLosesTheFocus()
{
    Menu menu(4);
    menu.list->hide();
    menu.show();
    menu.list->setFocusAtItem(2);
    QCOMPARE(QApplication::focusWidget(), menu.item(2));
    menu.list->hideItem(2);
    QCOMPARE(QApplication::focusWidget(), nullptr);
    menu.list->setFocusAtItem(1);
    menu.list->hideItem(3);
    QCOMPARE(QApplication::focusWidget(), menu.item(1));
}

void TestWidgetListRows::hiddenTableHandsTheKeysToTheList()
{
    Menu menu(4, 3);
    menu.show();
    menu.list->setFocusAtItem(1);
    QSignalSpy changes(menu.item(1), &WidgetListItem::doChange);
    menu.table()->hide();
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
    menu.type(Qt::Key_6);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(menu.type(Qt::Key_8), -1);
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
}

void TestWidgetListRows::rowIsThereWhenOnePixelOfItIsSeen()
{
    Menu menu(4);
    menu.list->setRowHeight(137);
    menu.show();
    menu.list->setFocusAtItem(3);
    QCOMPARE(menu.item(3)->y(), 1);
    QVERIFY(menu.item(2)->visibleRegion().contains(QPoint(0, 136)));
    QCOMPARE(menu.item(2)->y(), -136);
}

void TestWidgetListRows::rowThatIsHiddenKeepsItsSize()
{
    Menu menu(12);
    menu.show();
    const QSize size = menu.item(1)->size();
    menu.list->hideItem(1);
    menu.list->setFocusAtItem(11);
    menu.list->setFocusAtItem(0);
    QCOMPARE(menu.item(1)->size(), size);
}

void TestWidgetListRows::tableThatComesBackGivesTheFocusToItsRow()
{
    Menu menu(4, 3);
    menu.show();
    menu.list->setFocusAtItem(1);
    menu.table()->hide();
    menu.type(Qt::Key_8);
    menu.table()->show();
    QCOMPARE(focusedRow(*menu.list), 2);
    QCOMPARE(rowsThatLookFocused(*menu.list), QList<int>{2});

    // Not where somebody else has it by now.
    QLineEdit edit(&menu.screen);
    edit.show();
    menu.table()->hide();
    edit.setFocus();
    menu.table()->show();
    QCOMPARE(QApplication::focusWidget(), &edit);
}

void TestWidgetListRows::tableThatComesBackHighlightsARowThatWasHidden()
{
    Menu menu(4, 3);
    menu.show();
    menu.list->setFocusAtItem(1);
    menu.list->hideItem(1);
    menu.list->showItem(1);
    QCOMPARE(rowsThatLookFocused(*menu.list), QList<int>());
    menu.table()->hide();
    menu.table()->show();
    QCOMPARE(focusedRow(*menu.list), 1);
    QCOMPARE(rowsThatLookFocused(*menu.list), QList<int>{1});
}

void TestWidgetListRows::tableThatComesBackLeavesTheFocusWhereItsRowIsHidden()
{
    Menu menu(4, 3);
    menu.show();
    menu.list->setFocusAtItem(1);
    menu.list->hideItem(1);
    menu.table()->hide();
    menu.table()->show();
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
    menu.list->showItem(1);
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
}

void TestWidgetListRows::listWhoseFirstRowIsHiddenTakesTheKeys()
{
    Menu menu(4);
    menu.list->hideItem(0);
    menu.show();
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
    QTest::keyClick(menu.screen.windowHandle(), Qt::Key_8);
    QCOMPARE(focusedRow(*menu.list), 1);
}

void TestWidgetListRows::emptyRowLeavesTheKeysToTheList()
{
    Menu menu(3, 3);
    menu.show();
    delete menu.item(1);
    QSignalSpy changes(menu.item(0), &WidgetListItem::doChange);
    QCOMPARE(menu.type(Qt::Key_8), -1);
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
    QVERIFY(!looksFocused(menu.item(0)));
    menu.type(Qt::Key_6);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(menu.type(Qt::Key_8), 2);
}

void TestWidgetListRows::rowHiddenInAnInactiveWindowDoesNotGetTheFocusWithIt()
{
    Menu menu(4);
    menu.show();
    menu.list->setFocusAtItem(1);
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other, LongestWait));
    QVERIFY(!menu.item(1)->hasFocus());
    menu.list->hideItem(1);
    menu.screen.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&menu.screen, LongestWait));
    EVENTUALLY_COMPARE(QApplication::focusWidget(), menu.list.data());
    QCOMPARE(rowsThatLookFocused(*menu.list), QList<int>());
}

void TestWidgetListRows::focusThatIsElsewhereStaysThere()
{
    Menu menu(4);
    QLineEdit edit(&menu.screen);
    menu.show();
    edit.setFocus();
    menu.list->hideItem(0);
    menu.list->showItem(0);
    delete menu.item(1);
    menu.list->removeAllItems();
    runEventLoop();
    QCOMPARE(QApplication::focusWidget(), &edit);
}

// --- Rows that are deleted

void TestWidgetListRows::deletedRowIsForgottenAtOnce_data()
{
    QTest::addColumn<Change>("before");
    QTest::newRow("in view") << Change([](Menu &menu) { menu.show(); });
    QTest::newRow("with the focus") << Change([](Menu &menu) {
        menu.show();
        menu.list->setFocusAtItem(2);
    });
    QTest::newRow("never in view") << Change([](Menu &menu) {
        menu.show();
        menu.list->hideItem(0);
        menu.list->hideItem(1);
        menu.list->setFocusAtItem(8);
    });
    QTest::newRow("out of view") << Change([](Menu &menu) {
        menu.show();
        menu.list->setFocusAtItem(8);
    });
    QTest::newRow("hidden") << Change([](Menu &menu) {
        menu.show();
        menu.list->hideItem(2);
    });
    QTest::newRow("hidden by itself") << Change([](Menu &menu) {
        menu.show();
        menu.item(2)->hide();
    });
    QTest::newRow("in a list that was never shown") << Change([](Menu &) {});
    QTest::newRow("laid out in a list that was never shown") << Change([](Menu &) { runEventLoop(); });
    QTest::newRow("while the list is hidden") << Change([](Menu &menu) {
        menu.show();
        menu.list->hide();
    });
    QTest::newRow("while the table is hidden") << Change([](Menu &menu) {
        menu.show();
        menu.table()->hide();
    });
    QTest::newRow("after rows were put before it") << Change([](Menu &menu) {
        menu.show();
        menu.table()->insertRow(0);
        menu.table()->removeRow(0);
        menu.table()->insertRow(5);
    });
}

void TestWidgetListRows::deletedRowIsForgottenAtOnce()
{
    QFETCH(Change, before);
    Menu menu(9, 3);
    before(menu);
    delete menu.item(2);
    QCOMPARE(menu.table()->cellWidget(2, 0), nullptr);
    menu.list->showItem(2);
    menu.table()->show();
    menu.list->show();
    menu.show();
    menu.list->setRowHeight(40);
    runEventLoop();

    // The place of the one may be the other's now, in memory too.
    menu.list->setRowCount(9);
    for (int row = 0; row < 3; ++row)
        menu.list->addListItem(newRow(QString("new %1").arg(row)));
    runEventLoop();
    menu.list->setRowCount(2);
    runEventLoop();
    QCOMPARE(menu.table()->rowCount(), 2);
    menu.list->setRowCount(0);
    runEventLoop();
    QCOMPARE(menu.list->findChildren<WidgetListItem *>().size(), 0);
}

void TestWidgetListRows::rowDeletedBesideItsNewPlace_data()
{
    QTest::addColumn<Change>("before");
    QTest::newRow("moved within the list") << Change([](Menu &menu) {
        QList<WidgetListItem *> items{menu.item(2), menu.item(1), menu.item(0)};
        menu.list->setRowCount(3);
        for (WidgetListItem *item : items)
            menu.list->addListItem(item);
    });
    QTest::newRow("removed and put back") << Change([](Menu &menu) {
        QList<WidgetListItem *> items{menu.item(2), menu.item(1), menu.item(0)};
        menu.list->removeAllItems();
        for (WidgetListItem *item : items)
            menu.list->addListItem(item);
    });
}

void TestWidgetListRows::rowDeletedBesideItsNewPlace()
{
    QFETCH(Change, before);
    Menu menu(3);
    menu.show();
    before(menu);
    QPointer<WidgetListItem> last = menu.item(2);
    delete menu.item(0);
    runEventLoop();
    QCOMPARE(menu.item(0), nullptr);
    QVERIFY(menu.item(1)->isVisible());
    QCOMPARE(menu.item(2), last.data());
    menu.list->setRowCount(0);
    runEventLoop();
    QVERIFY(!last);
}

void TestWidgetListRows::rowDeletedInAHiddenListGivesTheFocusToNobody()
{
    Menu menu(1);
    QWidget *other = new QWidget(&menu.screen);
    other->setFocusPolicy(Qt::StrongFocus);
    menu.show();
    menu.list->hide();
    menu.item(0)->setFocus();
    QVERIFY(menu.item(0)->hasFocus());
    delete menu.item(0);
    QCOMPARE(QApplication::focusWidget(), nullptr);
}

void TestWidgetListRows::rowHiddenInAHiddenWindowGivesTheFocusToNobody()
{
    Menu menu(2);
    QWidget *other = new QWidget(&menu.screen);
    other->setFocusPolicy(Qt::StrongFocus);
    menu.show();
    QCOMPARE(menu.screen.focusWidget(), menu.item(0));
    menu.screen.hide();
    menu.item(0)->setFocus();
    menu.list->hideItem(0);
    QCOMPARE(menu.screen.focusWidget(), nullptr);
}

void TestWidgetListRows::deletedChildOfAnotherParentIsForgotten()
{
    Menu menu(3);
    menu.show();
    QWidget *parent = new QWidget;
    menu.item(1)->setParent(parent);
    delete parent;
    QCOMPARE(menu.table()->cellWidget(1, 0), nullptr);
    runEventLoop();
    menu.list->setRowCount(0);
    runEventLoop();
    QCOMPARE(menu.table()->rowCount(), 0);
}

void TestWidgetListRows::rowMovedToAnotherListIsForgottenByTheFirst()
{
    Menu menu(3);
    menu.show();
    Menu other(0);
    other.list->setRowCount(1);
    other.show();
    QPointer<WidgetListItem> item = menu.item(1);
    other.list->addListItem(item);
    QCOMPARE(menu.table()->cellWidget(1, 0), nullptr);
    QCOMPARE(other.item(0), item.data());
    menu.list->setRowCount(0);
    runEventLoop();
    QVERIFY(item);
    QVERIFY(item->isVisible());
    delete item;
    QCOMPARE(other.table()->cellWidget(0, 0), nullptr);
}

void TestWidgetListRows::rowThatTheTableHasMovedIsForgottenByTheFirst()
{
    Menu menu(3);
    menu.show();
    Menu other(0);
    other.list->setRowCount(1);
    other.show();
    menu.table()->insertRow(0);
    const QPointer<WidgetListItem> item = menu.item(2);
    other.list->addListItem(item);
    QCOMPARE(menu.table()->cellWidget(2, 0), nullptr);
    QVERIFY(menu.item(1) && menu.item(3));
    // Up to the first row, too.
    for (int i = 0; i < 3; ++i)
        menu.table()->removeRow(0);
    WidgetListItem *first = menu.item(0);
    other.list->setRowCount(2);
    other.list->addListItem(item);
    other.list->addListItem(first);
    QCOMPARE(menu.table()->cellWidget(0, 0), nullptr);
    menu.table()->setRowCount(0);
    runEventLoop();
    QVERIFY(item && item->isVisible());
}

void TestWidgetListRows::firstRowMovedToAnotherListIsForgottenByTheFirst()
{
    Menu menu(2);
    menu.show();
    Menu other(0);
    other.list->setRowCount(1);
    WidgetListItem *item = menu.item(0);
    QVERIFY(item->hasFocus());
    other.list->addListItem(item);
    QCOMPARE(menu.table()->cellWidget(0, 0), nullptr);
    QCOMPARE(other.item(0), item);
    QVERIFY(menu.list->hasFocus());
}

void TestWidgetListRows::rowThatIsSomewhereElseByNowIsHiddenThereInPeace()
{
    Menu menu(2);
    menu.show();
    QWidget *elsewhere = new QWidget(&menu.screen);
    elsewhere->show();
    WidgetListItem *item = menu.item(1);
    item->setParent(elsewhere);
    QLineEdit *edit = new QLineEdit(item);
    item->show();
    edit->show();
    edit->setFocus();
    QVERIFY(edit->hasFocus());
    item->hide();
    QVERIFY(!menu.list->hasFocus());

    // Nor does it go with the list.
    const QPointer<WidgetListItem> watched(item);
    delete menu.list;
    QVERIFY(watched);
}

void TestWidgetListRows::rowThatTheSystemHidesKeepsTheFocus()
{
    Menu menu(2);
    menu.show();
    menu.list->setFocusAtItem(1);
    // As when the window is put away and brought back.
    QHideEvent hide;
    QSpontaneKeyEvent::setSpontaneous(&hide);
    qApp->notify(menu.item(1), &hide);
    QCOMPARE(focusedRow(*menu.list), 1);
}

void TestWidgetListRows::removedRowMayOutliveItsList()
{
    std::unique_ptr<Menu> menu(new Menu(2));
    menu->show();
    std::unique_ptr<WidgetListItem> item(menu->item(1));
    menu->list->removeAllItems();
    item->setParent(nullptr);
    QCoreApplication::removePostedEvents(item.get(), QEvent::DeferredDelete);
    menu.reset();
    item->show();
    item.reset();
}

void TestWidgetListRows::rowTakenOutOfItsCellMayMoveToAnotherList()
{
    Menu menu(3);
    menu.show();
    Menu other(0);
    other.list->setRowCount(1);
    const QPointer<WidgetListItem> item = menu.item(2);
    menu.table()->removeCellWidget(2, 0);
    other.list->addListItem(item);
    runEventLoop();
    QVERIFY(item);
    QCOMPARE(other.item(0), item.data());
    QVERIFY(menu.item(0) && menu.item(1));
}

void TestWidgetListRows::rowTakenOutOfItsCellLeavesTheOthersWhenItIsDeleted()
{
    Menu menu(3);
    menu.show();
    WidgetListItem *item = menu.item(1);
    menu.table()->removeCellWidget(1, 0);
    delete item;
    runEventLoop();
    QVERIFY(menu.item(0) && menu.item(0)->isVisible());
    QVERIFY(menu.item(2) && menu.item(2)->isVisible());
    QCOMPARE(focusedRow(*menu.list), 0);
}

void TestWidgetListRows::rowThatIsToBeDeletedGoesFromItsListAsWell()
{
    Menu menu(0);
    menu.list->setRowCount(2);
    menu.show();
    const QPointer<WidgetListItem> item = newRow(QStringLiteral("title"));
    item->deleteLater();
    menu.list->addListItem(item);
    QCOMPARE(menu.item(0), item.data());
    runEventLoop();
    QVERIFY(!item);
    QCOMPARE(menu.table()->cellWidget(0, 0), nullptr);
}

void TestWidgetListRows::deletedRowsMakeRoomForOthers()
{
    Menu menu(0);
    menu.list->setRowCount(6);
    menu.show();
    WidgetListItem *item = newRow(QStringLiteral("first"));
    menu.list->addListItem(item);
    runEventLoop();
    delete item;
    runEventLoop();
    menu.list->setRowCount(6);
    menu.list->addListItem(newRow(QStringLiteral("second")));
    runEventLoop();
    QVERIFY(menu.item(0)->isVisible());
    menu.list->setRowCount(0);
    runEventLoop();
    QCOMPARE(menu.list->findChildren<WidgetListItem *>().size(), 0);
}

void TestWidgetListRows::randomRowsComeAndGo()
{
    QRandomGenerator random(7);
    for (int walk = 0; walk < 40; ++walk) {
        Menu menu(0);
        int rows = 6;
        int items = 0;
        menu.list->setRowCount(rows);
        menu.show();
        for (int step = 0; step < 120; ++step) {
            switch (random.bounded(12)) {
            case 0:
                rows = random.bounded(9);
                menu.list->setRowCount(rows);
                items = 0;
                break;
            case 1:
                menu.list->removeAllItems();
                items = 0;
                break;
            case 2:
                menu.list->setVisible(random.bounded(2));
                break;
            case 3:
                menu.table()->setVisible(random.bounded(2));
                break;
            case 4:
                if (rows > 0) {
                    const int row = random.bounded(rows);
                    if (random.bounded(2))
                        menu.list->hideItem(row);
                    else
                        menu.list->showItem(row);
                }
                break;
            case 5:
            case 6:
                if (rows > 0)
                    delete menu.item(random.bounded(rows));
                break;
            case 7:
                runEventLoop();
                break;
            case 8:
                menu.list->setFocusAtItem(random.bounded(9));
                break;
            case 9:
                menu.type(random.bounded(2) ? Qt::Key_8 : Qt::Key_2);
                break;
            default:
                menu.list->addListItem(newRow(QStringLiteral("row"), random.bounded(3)));
                if (items < rows)
                    ++items;
                break;
            }
            const QWidget *focus = QApplication::focusWidget();
            QVERIFY2(!focus || focus->isVisible() || !menu.list->isVisible(), qPrintable(QString::number(step)));
        }
        menu.list->show();
        menu.table()->show();
        menu.list->setRowCount(0);
        runEventLoop();
        QCOMPARE(menu.list->findChildren<WidgetListItem *>().size(), 0);
    }
}

void TestWidgetListRows::rowsGoFromTheLastToTheFirst_data()
{
    QTest::addColumn<Change>("clear");
    QTest::newRow("removed") << Change([](Menu &menu) { menu.list->removeAllItems(); });
    QTest::newRow("cut") << Change([](Menu &menu) { menu.list->setRowCount(0); });
    QTest::newRow("deleted with the list") << Change([](Menu &menu) { delete menu.list; });
}

void TestWidgetListRows::rowsGoFromTheLastToTheFirst()
{
    // The oldest toolkit takes long for the other order: each widget that goes is searched for among the later ones.
    QFETCH(Change, clear);
    Menu menu(5);
    menu.show();
    QList<int> gone;
    for (int row = 0; row < 5; ++row)
        connect(menu.item(row), &QObject::destroyed, [&gone, row] { gone.append(row); });
    clear(menu);
    runEventLoop();
    QCOMPARE(gone, QList<int>({4, 3, 2, 1, 0}));
}

// --- What is shown

void TestWidgetListRows::rowsInViewAnswerAsInAPlainTable_data()
{
    QTest::addColumn<int>("top");
    QTest::newRow("top") << 0;
    QTest::newRow("middle") << 100;
    QTest::newRow("bottom") << 1000;
}

void TestWidgetListRows::rowsInViewAnswerAsInAPlainTable()
{
    QFETCH(int, top);
    Menu menu(12);
    menu.show();
    PlainList plain(12);
    plain.show();
    menu.table()->verticalScrollBar()->setValue(top);
    plain.table->verticalScrollBar()->setValue(top);
    menu.screen.setFocus();
    plain.item(0)->setFocus();
    plain.table->verticalScrollBar()->setValue(top);
    plain.screen.setFocus();
    runEventLoop();
    int seen = 0;
    for (int row = 0; row < 12; ++row) {
        if (!isInView(*menu.list, row))
            continue;
        ++seen;
        const WidgetListItem *item = menu.item(row);
        const QWidget *expected = plain.item(row);
        QCOMPARE(item->geometry(), expected->geometry());
        QCOMPARE(item->isVisible(), expected->isVisible());
        QCOMPARE(item->isHidden(), expected->isHidden());
        QCOMPARE(item->visibleRegion(), expected->visibleRegion());
        QCOMPARE(item->parentWidget(), menu.table()->viewport());
        const QList<QWidget *> parts = item->findChildren<QWidget *>();
        const QList<QWidget *> expectedParts = expected->findChildren<QWidget *>();
        QCOMPARE(parts.size(), expectedParts.size());
        for (int i = 0; i < parts.size(); ++i) {
            QCOMPARE(parts.at(i)->isHidden(), expectedParts.at(i)->isHidden());
            QCOMPARE(parts.at(i)->isVisible(), expectedParts.at(i)->isVisible());
            if (parts.at(i)->isVisible()) {
                QCOMPARE(parts.at(i)->geometry(), expectedParts.at(i)->geometry());
                QCOMPARE(parts.at(i)->palette(), expectedParts.at(i)->palette());
                QCOMPARE(parts.at(i)->font(), expectedParts.at(i)->font());
            }
        }
    }
    QVERIFY(seen >= 3);
}

void TestWidgetListRows::rowIsHiddenUntilItIsFirstInView()
{
    Menu menu(12);
    menu.show();
    for (int row = 0; row < 12; ++row) {
        QCOMPARE(menu.item(row)->isHidden(), !isInView(*menu.list, row));
        QCOMPARE(menu.item(row)->isVisible(), isInView(*menu.list, row));
    }
    menu.table()->verticalScrollBar()->setValue(100);
    for (int row = 0; row < 12; ++row) {
        if (isInView(*menu.list, row))
            QVERIFY(menu.item(row)->isVisible());
    }
}

void TestWidgetListRows::rowOnceInViewStaysShown()
{
    Menu menu(12);
    menu.show();
    menu.list->setFocusAtItem(11);
    QVERIFY(!isInView(*menu.list, 0));
    QVERIFY(menu.item(0)->isVisible());
    QVERIFY(menu.item(0)->visibleRegion().isEmpty());
    menu.list->hide();
    QVERIFY(!menu.item(0)->isVisible());
    QVERIFY(!menu.item(0)->isHidden());
    menu.list->show();
    QVERIFY(menu.item(0)->isVisible());
}

void TestWidgetListRows::pictureOfARowDoesNotDependOnTheView()
{
    Menu menu(12);
    menu.list->setRowCount(12);
    for (int row = 0; row < 12; ++row) {
        WidgetListItem *item = newRow(QStringLiteral("title"), row % 3);
        item->setSerialNum(true, 7);
        item->m_noShortcut = false;
        item->setMoreDepth(row % 2);
        menu.list->addListItem(item);
    }
    menu.show();
    for (int row = 0; row < 12; ++row) {
        // A row of the same kind on its own, shown by the toolkit.
        QWidget parent;
        WidgetListItem *expected = newRow(QStringLiteral("title"), row % 3);
        expected->setParent(&parent);
        expected->setSerialNum(true, 7);
        expected->m_noShortcut = false;
        expected->setMoreDepth(row % 2);
        parent.resize(expected->size());
        expected->resize(menu.table()->columnWidth(0), 46);
        parent.show();
        if (row == 0) {
            expected->setFocus();
            parent.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&parent, LongestWait));
            QVERIFY(expected->hasFocus());
            parent.setFocus();
        }
        QCOMPARE(differingPixels(picture(menu.item(row)), picture(expected)), 0);
    }
}

void TestWidgetListRows::pictureOfAListThatWasNeverShown()
{
    Menu menu(12);
    menu.list->refreshItems();
    runEventLoop();
    PlainList plain(12);
    for (int row = 0; row < 12; ++row)
        static_cast<WidgetListItem *>(plain.item(row))->refresh();
    runEventLoop();
    QCOMPARE(differingPixels(picture(menu.table()), picture(plain.table)), 0);
}

void TestWidgetListRows::pictureIsThatOfAPlainTable()
{
    Menu menu(12);
    menu.show();
    PlainList plain(12);
    plain.show();
    for (int row : {0, 2, 3, 7, 11, 8, 0}) {
        plain.screen.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&plain.screen, LongestWait));
        plain.table->selectRow(row);
        plain.item(row)->setFocus();
        runEventLoop();
        const QImage expected = picture(plain.table);
        menu.screen.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&menu.screen, LongestWait));
        menu.list->setFocusAtItem(row);
        runEventLoop();
        QCOMPARE(differingPixels(picture(menu.table()), expected), 0);
    }
}

void TestWidgetListRows::rowsWithoutItemsMoveWithTheOthers()
{
    Menu menu(9, 2);
    // Every second row has another colour.
    menu.list->setNoFocusStyle(1);
    menu.show();
    QScrollBar *bar = menu.table()->verticalScrollBar();
    for (int value : {1, 2, 5, 3, bar->maximum(), 0}) {
        bar->setValue(value);
        const QImage seen = onScreen(menu.screen);
        menu.table()->viewport()->update();
        QCOMPARE(seen, onScreen(menu.screen));
    }
}

void TestWidgetListRows::childrenOfTheViewportAreFoundWhereTheyAreSeen()
{
    Menu menu(12);
    menu.show();
    for (int row : {0, 5, 11, 6, 0}) {
        menu.list->setFocusAtItem(row);
        QWidget *viewport = menu.table()->viewport();
        for (int y = 0; y < viewport->height(); ++y) {
            QWidget *child = viewport->childAt(100, y);
            while (child && child->parentWidget() != viewport)
                child = child->parentWidget();
            QCOMPARE(child, menu.table()->cellWidget(menu.table()->rowAt(y), 0));
        }
    }
}

void TestWidgetListRows::listInAHiddenParentIsShownWithIt()
{
    QWidget parent;
    parent.resize(220, 176);
    WidgetList *list = new WidgetList(12, &parent, sound());
    addRows(*list, 12);
    list->resize(220, 176);
    list->show();
    QVERIFY(!list->isVisible());
    QVERIFY(!list->isHidden());
    runEventLoop();
    QVERIFY(!itemOf(*list, 0)->isVisible());
    parent.show();
    parent.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&parent, LongestWait));
    for (int row = 0; row < 12; ++row)
        QCOMPARE(itemOf(*list, row)->isVisible(), isInView(*list, row));
    QCOMPARE(focusedRow(*list), 0);
}

void TestWidgetListRows::rowHiddenByTheApplicationStaysHidden()
{
    Menu menu(12);
    menu.show();
    WidgetListItem *item = menu.item(1);
    item->hide();
    QVERIFY(!menu.table()->viewport()->childAt(100, 60));
    for (int row : {2, 11, 0})
        menu.list->setFocusAtItem(row);
    QVERIFY(item->isHidden());
    menu.list->hide();
    menu.list->show();
    QVERIFY(item->isHidden());
    item->show();
    QVERIFY(item->isVisible());
    QCOMPARE(item->geometry(), menu.table()->visualRect(menu.table()->model()->index(1, 0)));
}

void TestWidgetListRows::rowShownByTheApplicationIsRefreshed()
{
    Menu menu(12);
    menu.show();
    WidgetListItem *item = menu.item(1);
    item->hide();
    menu.list->hide();
    menu.list->show();
    item->setTitle(QStringLiteral("changed"), true);
    item->show();
    QCOMPARE(RowParts(*item).title->text(), QStringLiteral("changed"));
}

void TestWidgetListRows::rowShownByTheApplicationOutOfViewIsNotSeen()
{
    Menu menu(12);
    menu.show();
    const QImage before = picture(menu.list);
    menu.item(8)->show();
    QVERIFY(menu.item(8)->isVisible());
    QVERIFY(menu.item(8)->visibleRegion().isEmpty());
    menu.list->hideItem(2);
    menu.item(2)->show();
    menu.list->showItem(2);
    QCOMPARE(picture(menu.list), before);

    // What the application hides again, it alone shows.
    menu.item(8)->hide();
    menu.list->setFocusAtItem(7);
    menu.list->setFocusAtItem(9);
    QVERIFY(isInView(*menu.list, 8));
    QVERIFY(menu.item(8)->isHidden());
}

void TestWidgetListRows::rowTakenOutByTheApplicationIsLeftAlone()
{
    Menu menu(12);
    menu.show();
    QWidget other;
    other.resize(220, 100);
    WidgetListItem *item = menu.item(1);
    item->setParent(&other);
    item->move(0, 20);
    item->show();
    other.show();
    for (int row : {2, 11, 0})
        menu.list->setFocusAtItem(row);
    runEventLoop();
    QCOMPARE(item->pos(), QPoint(0, 20));
    QVERIFY(item->isVisible());
    item->hide();
    menu.list->setFocusAtItem(2);
    menu.list->setFocusAtItem(0);
    QVERIFY(item->isHidden());
}

void TestWidgetListRows::listMovedToAnotherParentLooksAsIfItWereBuiltThere()
{
    const QString sheet = QStringLiteral("QLabel { font-style: italic; border: 1px solid #ff0000; }");
    Menu menu(12);
    menu.show();
    menu.list->setFocusAtItem(2);
    QWidget parent;
    parent.resize(220, 176);
    parent.setStyleSheet(sheet);
    menu.list->setParent(&parent);
    menu.list->show();
    parent.show();
    parent.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&parent, LongestWait));
    runEventLoop();

    QWidget fresh;
    fresh.resize(220, 176);
    fresh.setStyleSheet(sheet);
    WidgetList list(12, &fresh, sound());
    list.resize(220, 176);
    addRows(list, 12);
    fresh.show();
    runEventLoop();
    fresh.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&fresh, LongestWait));
    list.setFocusAtItem(2);
    for (int row : {0, 7}) {
        menu.list->setFocusAtItem(row);
        list.setFocusAtItem(row);
        parent.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&parent, LongestWait));
        const QImage moved = picture(menu.list);
        fresh.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&fresh, LongestWait));
        QCOMPARE(differingPixels(moved, picture(&list)), 0);
    }
}

void TestWidgetListRows::rowHiddenInTheTableComesBackOutOfView()
{
    Menu menu(12);
    menu.show();
    menu.list->hideItem(0);
    QVERIFY(!menu.item(0)->isVisible());
    menu.list->setFocusAtItem(11);
    menu.item(0)->setTitle(QStringLiteral("changed"), true);
    menu.list->showItem(0);
    QVERIFY(menu.item(0)->isVisible());
    QVERIFY(menu.item(0)->visibleRegion().isEmpty());
    QCOMPARE(RowParts(*menu.item(0)).title->text(), QStringLiteral("changed"));
    menu.list->setFocusAtItem(0);
    QVERIFY(!menu.item(0)->visibleRegion().isEmpty());
}

void TestWidgetListRows::rowHiddenInTheTableComesBackInTheHeightOfItsRow()
{
    Menu menu(3);
    menu.show();
    menu.list->hideItem(1);
    menu.list->setRowHeight(30);
    menu.list->showItem(1);
    runEventLoop();
    QCOMPARE(menu.item(1)->height(), 30);
    QCOMPARE(RowParts(*menu.item(1)).nextArrow->y(), 10);
}

void TestWidgetListRows::rowsOutOfViewAreLaidOutForTheHeightOfTheirRow()
{
    Menu menu(12);
    menu.show();
    for (int row : {3, 6, 11, 0})
        menu.list->setFocusAtItem(row);
    menu.list->hide();
    menu.list->setRowHeight(69);
    runEventLoop();
    menu.list->show();
    runEventLoop();
    for (int row = 0; row < 12; ++row) {
        QCOMPARE(menu.item(row)->height(), 69);
        QCOMPARE(RowParts(*menu.item(row)).nextArrow->y(), 29);
        QCOMPARE(menu.item(row)->visibleRegion().isEmpty(), row > 1);
    }
}

void TestWidgetListRows::rowsOutOfViewTakeANewHeightWithTheOthers()
{
    Menu menu(12);
    menu.show();
    // Row 0 has left the view, row 11 was never in it.
    menu.list->setFocusAtItem(6);
    menu.list->hideItem(4);
    menu.list->setRowHeight(60);
    runEventLoop();
    for (int row : {0, 6, 11})
        QCOMPARE(menu.item(row)->height(), 60);
    QCOMPARE(menu.item(4)->height(), 46);
    for (int row : {0, 11}) {
        QVERIFY(menu.item(row)->visibleRegion().isEmpty());
        menu.item(row)->refresh();
        menu.list->setFocusAtItem(row);
        QCOMPARE(RowParts(*menu.item(row)).nextArrow->y(), 25);
    }
}

void TestWidgetListRows::rowThatComesIntoViewWithTheFocusIsDressedForItAtOnce()
{
    Menu menu(12);
    menu.show();
    menu.list->setFocusAtItem(2);
    const RowParts parts(*menu.item(3));
    const EventRecorder recorder(parts.title);
    QCOMPARE(menu.type(Qt::Key_8), 3);
    QCOMPARE(rowsThatLookFocused(*menu.list), QList<int>{3});
    QCOMPARE(recorder.count(QEvent::Polish), 1);
    QCOMPARE(recorder.count(QEvent::StyleChange), 0);
}

void TestWidgetListRows::rowThatComesIntoViewLooksFocusedOnlyWithTheFocus_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("disabled") << Change([](Menu &menu) { menu.item(7)->setEnabled(false); });
    QTest::newRow("disabled list") << Change([](Menu &menu) { menu.list->setEnabled(false); });
    QTest::newRow("hidden table") << Change([](Menu &menu) { menu.table()->hide(); });
    QTest::newRow("hidden list") << Change([](Menu &menu) { menu.list->hide(); });
    QTest::newRow("hidden row") << Change([](Menu &menu) { menu.list->hideItem(7); });
    QTest::newRow("inactive window") << Change([](Menu &menu) {
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other, LongestWait));
        menu.list->setFocusAtItem(7);
        QVERIFY(!menu.item(7)->hasFocus());
        QVERIFY(!looksFocused(menu.item(7)));
        menu.list->setFocusAtItem(0);
    });
}

void TestWidgetListRows::rowThatComesIntoViewLooksFocusedOnlyWithTheFocus()
{
    QFETCH(Change, change);
    Menu menu(12);
    menu.show();
    change(menu);
    menu.list->setFocusAtItem(7);
    QCOMPARE(looksFocused(menu.item(7)), menu.item(7)->hasFocus());
    menu.table()->show();
    menu.list->setEnabled(true);
    menu.list->show();
    runEventLoop();
    QCOMPARE(looksFocused(menu.item(7)), menu.item(7)->hasFocus());
}

void TestWidgetListRows::partsOfARowAreShownWithEvents()
{
    // Also before anybody sees the row.
    WidgetListItem row(nullptr, sound());
    row.resize(220, 46);
    row.setTitle(QStringLiteral("title"), true);
    row.setMoreDepth(true);
    const RowParts parts(row);
    const EventRecorder recorder(&row);
    row.refresh();
    QCOMPARE(recorder.count(QEvent::ShowToParent, parts.nextArrow), 1);
    QCOMPARE(recorder.count(QEvent::HideToParent, parts.nextArrow), 0);
    QCOMPARE(recorder.count(QEvent::ShowToParent, parts.title), 1);
    row.refresh();
    QCOMPARE(recorder.count(QEvent::ShowToParent), 2);
}

void TestWidgetListRows::rowAddedIsNotHiddenAnew()
{
    WidgetList list(1, nullptr, sound());
    WidgetListItem *item = newRow(QStringLiteral("title"));
    const EventRecorder recorder(item);
    list.addListItem(item);
    QCOMPARE(recorder.count(QEvent::HideToParent, item), 0);
    QCOMPARE(recorder.count(QEvent::Hide, item), 0);
}

QTEST_MAIN(TestWidgetListRows)
#include "tst_widgetlistrows.moc"
