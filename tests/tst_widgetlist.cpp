#include "listtesting.h"
#include "rowparts.h"
#include "waiting.h"
#include "widgetmenutitle.h"

#include <QAbstractEventDispatcher>
#include <QHeaderView>
#include <QScrollBar>
#include <QProxyStyle>
#include <QtTest>

#include <climits>
#include <functional>

namespace {

const QString s_scrollBarSheet = QStringLiteral(
    "QScrollBar:vertical {background: #594b4f;width: 4px;margin: 0 0 0 0;}QScrollBar::handle:vertical {background: "
    "#343232;min-height: 5px;}QScrollBar:add-line:vertical {width: 0px;height: 0px;}QScrollBar:sub-line:vertical "
    "{width: 0px;height: 0px;}QScrollBar:add-page:vertical {background: #a8a1a2;}QScrollBar:sub-page:vertical "
    "{background: #a8a1a2;}");
const QString s_tableSheet =
    QStringLiteral("QTableWidget {background-color: #F8F7F6;alternate-background-color: #F8F7F6;color: #594B4F;}"
                   "QTableWidget::item:selected {background-color: #F7CE86;color: #1F1618;border: 0px;}"
                   "QTableWidget::item:focus {background-color: #F7CE86;color: #1F1618;}")
    + s_scrollBarSheet;
const QString s_noFocusTableSheet =
    QStringLiteral("QTableWidget {selection-background-color: transparent;alternate-background-color: #F8F7F6;}")
    + s_scrollBarSheet;

const QString s_rowTrace = QStringLiteral("log:16:[ui/view/widget/widgetlistitem.cpp,keyReleaseEvent]");
const QString s_initialFocusTrace = QStringLiteral("log:16:[ui/view/widget/widgetlist.cpp,setInitialFocus]");
const QString s_lastFocusTrace = QStringLiteral("log:16:[ui/view/widget/widgetlist.cpp,setLastFocus]");
const QString s_click = QStringLiteral("sound:901");

const QString s_focusedText = QStringLiteral("color: #1F1618");
const QString s_unfocusedTitle = QStringLiteral("color: #594B4F");

QString invalidIndex(const char *function, int index)
{
    return QString("log:2:[ui/view/widget/widgetlist.cpp, %1] Invalid index %2").arg(function).arg(index);
}

QList<QAbstractEventDispatcher::TimerInfo> timersOf(QObject *object)
{
    return QAbstractEventDispatcher::instance()->registeredTimers(object);
}

void noteSignals(WidgetList *list)
{
    NOTE_SIGNAL(list, &WidgetList::doSave, "doSave");
    NOTE_SIGNAL(list, &WidgetList::reachedBegin, "reachedBegin");
    NOTE_SIGNAL(list, &WidgetList::reachedEnd, "reachedEnd");
    NOTE_SIGNAL(list, &WidgetList::upKeyLongPressed, "upKeyLongPressed");
    NOTE_SIGNAL(list, &WidgetList::upKeyReleased, "upKeyReleased");
    NOTE_SIGNAL(list, &WidgetList::downKeyLongPressed, "downKeyLongPressed");
    NOTE_SIGNAL(list, &WidgetList::downKeyReleased, "downKeyReleased");
    NOTE_SIGNAL(list, &WidgetList::finished, "finished");
}

/// A plain table set up as the list's is, with plain widgets as rows.
struct PlainTable
{
    PlainTable(QWidget *parent, const QList<int> &heights)
        : table(newPlainTable(int(heights.size()), s_tableSheet, parent))
    {
        for (int row = 0; row < heights.size(); ++row) {
            QWidget *widget = new QWidget;
            widget->resize(220, heights.at(row));
            table->setRowHeight(row, heights.at(row));
            table->setCellWidget(row, 0, widget);
        }
    }

    QTableWidget *table;
};

}

class TestWidgetList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // Building
    void hasItsSignalsAndPrivateSlotsInOrder();
    void startsWithTitleAndTable();
    void setsItsTableUp();
    void dressesItsTable();
    void selectsRowZero_data();
    void selectsRowZero();
    void takesRowCountsThatMakeNoSense();
    void keepsItsTitleSilent();
    void logsNothingWhenBuilt();

    // Title
    void setsItsTitle_data();
    void setsItsTitle();
    void setsItsTitleIcon();
    void addsAGuide();
    void guideEndsWhereTheToolkitCanStillAddItsPlaceAndSize();

    // Rows
    void rowTakesTheHeightOfItsItem_data();
    void rowTakesTheHeightOfItsItem();
    void itemBecomesTheCellOfTheNextRow();
    void addingMoreItemsThanRowsIsRejected();
    void addingNothingIsRejected();
    void addingSwitchesTheMarquee();
    void finishedItemFinishesTheListOnce();
    void setRowHeightSetsEveryRow();
    void setRowCountKeepsTheItemsBelow();
    void setRowCountBelowZeroIsRejected();
    void setRowCountForgetsTheSelectedRow();
    void setRowCountMakesTheTableOneColumnAgain();
    void rowsLeftOverAreLeftAlone();
    void itemsReplaceThoseOfBefore();
    void removedItemsAreDeletedLater();
    void removeAllItemsKeepsTheSelectedRow();
    void removeAllItemsLeavesWhatWasThereBeforeANewRowCount();
    void itemsAddedAgainSurvive_data();
    void itemsAddedAgainSurvive();
    void itemAddedAgainIsDeletedWithTheNextRemoval();
    void itemsGoWithTheList();
    void addingWhileShownShowsTheItem();

    // All items
    void refreshesAllItems();
    void backsUpAllItemsAndFindsTheModifiedOne();
    void emptyListIsNotModified();
    void cellsOfOtherKindsAreSkipped();

    // Focus
    void firstShowFocusesRowZero();
    void everyShowStartsOnRowZero();
    void focusThatStayedOnRowZeroShowsAfterwards();
    void showKeepsARowThatIsRecorded();
    void focusSetBeforeTheShowIsThereAfterwards_data();
    void focusSetBeforeTheShowIsThereAfterwards();
    void hideForgetsTheRow();
    void setFocusAtItemMovesTheFocusInSilence();
    void setFocusAtItemIsLogged();
    void setFocusOutsideTheItemsIsRejected_data();
    void setFocusOutsideTheItemsIsRejected();
    void setInitialFocusGoesToRowZero();
    void setInitialFocusOnAnEmptyListOnlyRecords_data();
    void setInitialFocusOnAnEmptyListOnlyRecords();
    void setInitialFocusOnAnEmptyListTakesNoFocus_data();
    void setInitialFocusOnAnEmptyListTakesNoFocus();
    void rowThatIsAddedAgainInItsPlaceKeepsTheFocus();
    void setLastFocusGoesBackToTheRecordedRow();
    void setLastFocusWithoutARowIsRejected();
    void rowOfAWindowThatIsNotActiveLooksAsWithoutTheFocus();
    void focusComesForTheReasonOther();
    void focusThatComesBackGoesStraightToTheRow();
    void focusThatComesBackGoesToTheListWhoseTableIsHidden();
    void focusStaysOnItsRowWhenAHiddenOneIsSelected();
    void rowThatIsDeletedAsItIsSelectedLeavesTheFocusToTheList();
    void focusedRowLooksFocused();

    // Up and down
    void movesByUpAndDown_data();
    void movesByUpAndDown();
    void movingLogsAndPlaysExactlyThis_data();
    void movingLogsAndPlaysExactlyThis();
    void stopsAtTheEndsOnDemand_data();
    void stopsAtTheEndsOnDemand();
    void rowMinusOneGoesUpToTheLastAndDownToTheFirst();
    void rowMinusOneWithStopAtEnds();
    void hiddenRowsArePassedOver_data();
    void hiddenRowsArePassedOver();
    void hiddenRowsAreHiddenAndComeBack();
    void hiddenRowIsNotRefreshed();
    void hiddenRowThatComesBackOutOfViewHasTheHeightOfItsRow();
    void rowThatTheApplicationTookOutIsShownAsItsOwn();
    void firstRowIsRefreshedWithAListThatIsShownAtItsEnd();
    void firstRowThatWasNeverSeenIsAsItIsAtTheNextShow();
    void changedWhileHiddenIsSeenAtTheNextShow_data();
    void changedWhileHiddenIsSeenAtTheNextShow();
    void rowThatComesBackOutOfViewIsRefreshed();
    void rowThatTheApplicationShowsAgainIsRefreshed();
    void hidingARowThatDoesNotExistIsIgnored_data();
    void hidingARowThatDoesNotExistIsIgnored();
    void searchEndsWhenAllRowsAreHidden();
    void emptyListHandsUpAndDownOn();
    void oneRowMovesToItself();
    void movesWhileNotShown();
    void movesInFunctionKeyMode();
    void movesThroughARightToLeftList();

    // Keys
    void okSavesThenClicks();
    void escapeFinishesThenClicks();
    void otherKeysAreHandedOn_data();
    void otherKeysAreHandedOn();
    void pressesEndInTheList_data();
    void pressesEndInTheList();
    void keysClimbFromTheFocusedRow();
    void keysOfTheWindowSystemArrive();
    void rowKeepsWhatItUses();
    void rowHandsOnWhatItEnters();
    void keysAreSilentWithoutASoundManager();

    // Long presses
    void longPressIsReportedAtTheEleventhRepeat_data();
    void longPressIsReportedAtTheEleventhRepeat();
    void pressesThatMoveAreAccepted();
    void longPressClicksWithoutASoundManager();
    void otherKeysThatAreHeldAreNotReported();
    void repeatsOfSeveralPressesAddUp();
    void countStartsAnewAfterALongPress();
    void countStartsAnewWithAShow();
    void upAndDownCountApart();
    void keysThatAreHeldBeforeTheFirstShowCount();
    void repeatedReleasesActEachTime();
    void flagIsClearedByTheNextPressOrShow_data();
    void flagIsClearedByTheNextPressOrShow();
    void emptyListReportsLongPresses();
    void pressWithoutRepeatIsNeverLong();

    // Shortcuts
    void shortcutEntersItsRowAndClicks();
    void everyDigitMayBeAShortcut();
    void shortcutOfARowThatDoesNotLeadDeeper();
    void shortcutIsHandedOnWithoutARow_data();
    void shortcutIsHandedOnWithoutARow();
    void upAndDownComeBeforeShortcuts();
    void shortcutsOfUpAndDownInFunctionKeyMode();
    void laterShortcutReplacesTheEarlier();
    void oneItemMayHaveSeveralShortcuts();
    void shortcutsOfRemovedRowsAreDeadAtOnce_data();
    void shortcutsOfRemovedRowsAreDeadAtOnce();
    void shortcutsOfKeptRowsLive();
    void shortcutsOfOtherRowsLiveWhenARowIsReplaced();
    void shortcutOfAHiddenRowStillActs();
    void keysThatAreNoDigitsAreNoShortcuts_data();
    void keysThatAreNoDigitsAreNoShortcuts();

    // No-focus style
    void noFocusStyleDressesTheTable_data();
    void noFocusStyleDressesTheTable();
    void noFocusStyleIsNotSetAgain();
    void noFocusStyleStopsTheMarquee_data();
    void noFocusStyleStopsTheMarquee();
    void noFocusStyleStopsATitleThatScrolls();
    void turnsPages_data();
    void turnsPages();
    void pageThatBeginsWithTheFirstRowIsOneOfSeveral();
    void firstStepUpIsNotOneOfSeveral();
    void pagesAreScrolledTo();
    void pagingFlagsSurviveTheShow();
    void pagesDoNotLookAtHiddenRows();
    void pagingWithStopAtEnds();
    void pagesOfAbsurdSize_data();
    void pagesOfAbsurdSize();
    void noFocusStyleOfZeroMovesAsBefore();

    // Rows out of view
    void rowsStandWhereAPlainTablePutsThem_data();
    void rowsStandWhereAPlainTablePutsThem();
    void rowsOutOfViewAreNotInTheViewport();
    void rowOutOfViewIsNotDressed();
    void styleAroundARowOutOfViewDoesNotConcernItsParts();
    void rowOutOfViewHasItsTextsAndPlaces();
    void rowOutOfViewIsLaidOutForItsRow();
    void rowOutOfViewHasTheHeightThatItsRowGetsInAHiddenList();
    void rowOutOfViewForgetsAtTheShow();
    void rowOutOfViewIsReportedAtTheShow();
    void comingIntoViewIsNoRefresh();
    void addedRowOutOfViewIsRefreshedAtOnce();
    void itemMovedIntoViewIsRefreshed();
    void itemMovedToAnotherListIsRefreshed();
    void displayValueSetOutOfViewLastsThroughComingIntoView();
    void secondShowRefreshesRowsOutOfView();
    void rowComesIntoViewWithTheFocus();
    void scrollingThereAndBackKeepsTheTexts();
    void scrollingDressesNothing();

    // What is not done again
    void downKeyDressesTheTwoRowsOnly();
    void keyStepDressesNothing();
    void refreshOfAnUnchangedListDressesNothing();
    void secondShowDressesNothing();

    // Slots that delete
    void aSlotMayDeleteTheList_data();
    void aSlotMayDeleteTheList();
    void aSlotMayDeleteARow_data();
    void aSlotMayDeleteARow();
    void aSlotMayRemoveAllItems_data();
    void aSlotMayRemoveAllItems();
    void deletedItemLeavesAnEmptyRow();

    // Extremes
    void tenThousandRows();
    void manyRowsAddedAgain();
    void noRows();
    void rowsOfNoHeight();
    void digitsInAnyOrder();
    void longTitles();
};

void TestWidgetList::init()
{
    RecordingPlatform::reset();
}

void TestWidgetList::cleanup()
{
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

// --- Building

void TestWidgetList::hasItsSignalsAndPrivateSlotsInOrder()
{
    const QMetaObject &meta = WidgetList::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetList");
    QCOMPARE(meta.superClass(), &Widget::staticMetaObject);
    const QList<QByteArray> names{"doSave()", "reachedBegin()", "reachedEnd()", "upKeyLongPressed()", "upKeyReleased()",
                                  "downKeyLongPressed()", "downKeyReleased()", "setInitialFocus()", "setLastFocus()"};
    QCOMPARE(meta.methodCount() - meta.methodOffset(), int(names.size()));
    for (int i = 0; i < names.size(); ++i) {
        const QMetaMethod method = meta.method(meta.methodOffset() + i);
        QCOMPARE(method.methodSignature(), names.at(i));
        QCOMPARE(method.methodType(), i < 7 ? QMetaMethod::Signal : QMetaMethod::Slot);
        if (i >= 7)
            QCOMPARE(method.access(), QMetaMethod::Private);
    }
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestWidgetList::startsWithTitleAndTable()
{
    QWidget parent;
    WidgetList *list = new WidgetList(3, &parent, sound());
    QCOMPARE(list->parentWidget(), &parent);
    QCOMPARE(list->m_stopAtEnds, false);
    QCOMPARE(list->m_useFunctionKeys, false);
    const QList<QWidget *> children = list->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(children.size(), 2);
    QVERIFY(dynamic_cast<WidgetMenuTitle *>(children.at(0)));
    QVERIFY(qobject_cast<QTableWidget *>(children.at(1)));
    QCOMPARE(children.at(0)->geometry(), QRect(0, 0, 220, 38));
    QCOMPARE(children.at(1)->geometry(), QRect(0, 38, 220, 138));
}

void TestWidgetList::setsItsTableUp()
{
    WidgetList list(3, nullptr, sound());
    const QTableWidget *table = tableOf(list);
    QCOMPARE(table->rowCount(), 3);
    QCOMPARE(table->columnCount(), 1);
    QCOMPARE(table->focusPolicy(), Qt::NoFocus);
    QCOMPARE(table->frameShape(), QFrame::NoFrame);
    QVERIFY(!table->showGrid());
    QCOMPARE(table->selectionMode(), QAbstractItemView::SingleSelection);
    QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
    QVERIFY(table->horizontalHeader()->isHidden());
    QVERIFY(table->verticalHeader()->isHidden());
    QCOMPARE(table->columnWidth(0), 220);
    QVERIFY(table->alternatingRowColors());
}

void TestWidgetList::dressesItsTable()
{
    WidgetList list(3, nullptr, sound());
    QCOMPARE(tableOf(list)->styleSheet(), s_tableSheet);
    QCOMPARE(list.styleSheet(), QString());
}

void TestWidgetList::selectsRowZero_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QList<int>>("selected");
    QTest::newRow("three rows") << 3 << QList<int>({0});
    QTest::newRow("one row") << 1 << QList<int>({0});
    QTest::newRow("no row") << 0 << QList<int>();
}

void TestWidgetList::selectsRowZero()
{
    QFETCH(int, rows);
    WidgetList list(rows, nullptr, sound());
    QTEST(selectedRows(list), "selected");
}

void TestWidgetList::takesRowCountsThatMakeNoSense()
{
    WidgetList list(-3, nullptr, sound());
    QCOMPARE(tableOf(list)->rowCount(), 0);
    list.setRowHeight(20);
    list.show();
    list.refreshItems();
    QVERIFY(!list.isModified());
    releaseKey(&list, Qt::Key_8);
    WidgetListItem row(nullptr, sound());
    list.addListItem(&row);
    QVERIFY(!row.parentWidget());
}

void TestWidgetList::keepsItsTitleSilent()
{
    WidgetList list(1, nullptr, sound());
    const QList<QWidget *> children = list.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    WidgetMenuTitle *title = dynamic_cast<WidgetMenuTitle *>(children.at(0));
    title->playSound(901);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>());
}

void TestWidgetList::logsNothingWhenBuilt()
{
    WidgetList list(2, nullptr, sound());
    addRows(list, 2);
    list.setRowHeight(40);
    list.setRowCount(2);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

// --- Title

static QList<QLabel *> titleLabels(const WidgetList &list)
{
    return list.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).at(0)->findChildren<QLabel *>();
}

void TestWidgetList::setsItsTitle_data()
{
    QTest::addColumn<bool>("defaultFont");
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<int>("weight");
    QTest::newRow("font kept") << false << "padding-left: 1px;" << int(QFont::Bold);
    QTest::newRow("default font") << true << "color: rgba(255,255,255,255);" << int(QFont().weight());
}

void TestWidgetList::setsItsTitle()
{
    QFETCH(bool, defaultFont);
    WidgetList list(1, nullptr, sound());
    list.setTitle(QStringLiteral("Settings"), defaultFont);
    const QLabel *title = titleLabels(list).at(1);
    QCOMPARE(title->text(), QStringLiteral("Settings"));
    QCOMPARE(title->font().pointSize(), 14);
    QTEST(title->styleSheet(), "sheet");
    QTEST(int(title->font().weight()), "weight");
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetList::setsItsTitleIcon()
{
    WidgetList list(1, nullptr, sound());
    list.setTitleIcon(QStringLiteral("image: none;"));
    QCOMPARE(titleLabels(list).at(0)->styleSheet(), QStringLiteral("padding: 3px;image: none;"));
    QCOMPARE(RecordingPlatform::events(),
             QStringList("log:16:[setItemStyle, 93] concatStyle = padding: 3px;image: none;"));
}

void TestWidgetList::addsAGuide()
{
    WidgetList list(1, nullptr, sound());
    QLabel *info = titleLabels(list).at(2);
    QVERIFY(info->isHidden());
    list.addGuide(QStringLiteral("color: red;"), QRect(150, 3, 60, 14));
    QVERIFY(!info->isHidden());
    QCOMPARE(info->geometry(), QRect(150, 3, 60, 14));
    QCOMPARE(info->styleSheet(), QStringLiteral("color: red;"));
    QCOMPARE(RecordingPlatform::events(), QStringList("log:16:[setItemStyle, 93] concatStyle = color: red;"));
}

void TestWidgetList::guideEndsWhereTheToolkitCanStillAddItsPlaceAndSize()
{
    const int last = INT_MAX - QWIDGETSIZE_MAX;
    WidgetList list(1, nullptr, sound());
    list.addGuide(QString(), QRect(QPoint(INT_MIN, 3), QPoint(INT_MAX, 16)));
    QCOMPARE(titleLabels(list).at(2)->geometry(), QRect(-last, 3, QWIDGETSIZE_MAX, 14));
    list.addGuide(QString(), QRect(QPoint(5, INT_MAX), QPoint(14, INT_MIN)));
    QCOMPARE(titleLabels(list).at(2)->geometry(), QRect(5, last, 10, 0));
}

// --- Rows

void TestWidgetList::rowTakesTheHeightOfItsItem_data()
{
    QTest::addColumn<int>("height");
    for (int height : {46, 30, 100, 400, 25, 10, 1, 0})
        QTest::newRow(qPrintable(QString::number(height))) << height;
}

void TestWidgetList::rowTakesTheHeightOfItsItem()
{
    QFETCH(int, height);
    WidgetList list(2, nullptr, sound());
    list.addListItem(newRow(QStringLiteral("A"), 2, height));
    QWidget parent;
    // The toolkit has a smallest height of its own.
    const PlainTable plain(&parent, {height, 46});
    QCOMPARE(tableOf(list)->rowHeight(0), plain.table->rowHeight(0));
    if (height >= 30)
        QCOMPARE(tableOf(list)->rowHeight(0), height);
    QCOMPARE(tableOf(list)->rowHeight(1), QTableWidget(2, 1).rowHeight(1));
}

void TestWidgetList::itemBecomesTheCellOfTheNextRow()
{
    WidgetList list(3, nullptr, sound());
    WidgetListItem *first = newRow(QStringLiteral("A"));
    WidgetListItem *second = newRow(QStringLiteral("B"));
    list.addListItem(first, Qt::Key_1);
    list.addListItem(second);
    QCOMPARE(tableOf(list)->cellWidget(0, 0), first);
    QCOMPARE(tableOf(list)->cellWidget(1, 0), second);
    QVERIFY(!tableOf(list)->cellWidget(2, 0));
    QVERIFY(list.isAncestorOf(first));
}

void TestWidgetList::addingMoreItemsThanRowsIsRejected()
{
    WidgetList list(2, nullptr, sound());
    addRows(list, 2);
    WidgetListItem spare(nullptr, sound());
    list.addListItem(&spare, Qt::Key_3);
    QCOMPARE(RecordingPlatform::events(), QStringList(invalidIndex("addListItem", 2)));
    QVERIFY(!spare.parentWidget());
    QCOMPARE(tableOf(list)->rowCount(), 2);
}

void TestWidgetList::addingNothingIsRejected()
{
    WidgetList list(2, nullptr, sound());
    list.addListItem(nullptr);
    list.addListItem(nullptr, Qt::Key_3);
    QCOMPARE(RecordingPlatform::logTexts(2).size(), 2);
    WidgetListItem *item = newRow(QStringLiteral("A"));
    list.addListItem(item);
    QCOMPARE(itemOf(list, 0), item);
}

void TestWidgetList::addingSwitchesTheMarquee()
{
    WidgetList list(3, nullptr, sound());
    WidgetListItem *item = newRow(QStringLiteral("A"));
    item->m_marquee = false;
    list.addListItem(item);
    QCOMPARE(item->m_marquee, true);
    list.setNoFocusStyle(3);
    QCOMPARE(item->m_marquee, false);
    WidgetListItem *later = newRow(QStringLiteral("B"));
    list.addListItem(later);
    QCOMPARE(later->m_marquee, false);
}

void TestWidgetList::finishedItemFinishesTheListOnce()
{
    WidgetList list(2, nullptr, sound());
    WidgetListItem *item = newRow(QStringLiteral("A"));
    list.addListItem(item);
    list.setRowCount(2);
    list.addListItem(item);
    QSignalSpy finished(&list, SIGNAL(finished()));
    QMetaObject::invokeMethod(item, "finished");
    QCOMPARE(finished.count(), 1);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>());
}

void TestWidgetList::setRowHeightSetsEveryRow()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 2);
    list.setRowHeight(60);
    for (int row = 0; row < 3; ++row)
        QCOMPARE(tableOf(list)->rowHeight(row), 60);
    QWidget parent;
    for (int height : {5, 0}) {
        list.setRowHeight(height);
        const PlainTable plain(&parent, {height, height, height});
        for (int row = 0; row < 3; ++row)
            QCOMPARE(tableOf(list)->rowHeight(row), plain.table->rowHeight(row));
    }
    list.setRowHeight(60);
    list.setRowHeight(-7);
    const PlainTable plain(&parent, {0, 0, 0});
    for (int row = 0; row < 3; ++row)
        QCOMPARE(tableOf(list)->rowHeight(row), plain.table->rowHeight(row));
}

void TestWidgetList::setRowCountKeepsTheItemsBelow()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    QPointer<WidgetListItem> first = itemOf(list, 0);
    QPointer<WidgetListItem> third = itemOf(list, 2);
    list.setRowCount(2);
    QCOMPARE(tableOf(list)->rowCount(), 2);
    QCOMPARE(tableOf(list)->columnCount(), 1);
    QCOMPARE(itemOf(list, 0), first.data());
    runEventLoop();
    QVERIFY(first);
    QVERIFY(!third);
    // The items that stay are not counted any more.
    itemOf(list, 0)->setDisplayValueIndex(1);
    QVERIFY(!list.isModified());
    list.setFocusAtItem(0);
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList("[setFocusAtItem, 249] Invalid 0"));
}

void TestWidgetList::setRowCountBelowZeroIsRejected()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    list.setRowCount(-2);
    QCOMPARE(RecordingPlatform::events(), QStringList(invalidIndex("setRowCount", -2)));
    QCOMPARE(tableOf(list)->rowCount(), 3);
    list.setFocusAtItem(2);
    QCOMPARE(RecordingPlatform::logTexts(2).size(), 1);
}

void TestWidgetList::setRowCountForgetsTheSelectedRow()
{
    Menu menu(3);
    menu.show();
    menu.list->setFocusAtItem(1);
    const QList<WidgetListItem *> items{menu.item(0), menu.item(1), menu.item(2)};
    menu.list->setRowCount(3);
    for (WidgetListItem *item : items)
        menu.list->addListItem(item);
    // From nowhere, down goes to the first.
    RecordingPlatform::reset();
    releaseKey(menu.list, Qt::Key_8);
    QCOMPARE(focusedRow(*menu.list), 0);
    menu.list->hide();
    QVERIFY(RecordingPlatform::events().contains("log:16:[hideEvent, 429] m_selectedRow = 0"));
}

void TestWidgetList::setRowCountMakesTheTableOneColumnAgain()
{
    WidgetList list(3, nullptr, sound());
    tableOf(list)->setColumnCount(2);
    list.setRowCount(3);
    QCOMPARE(tableOf(list)->columnCount(), 1);
}

void TestWidgetList::rowsLeftOverAreLeftAlone()
{
    // Row 8 is below the last one that counts, and out of view.
    Menu menu(12);
    menu.show();
    QList<WidgetListItem *> items;
    for (int row = 0; row < 8; ++row)
        items.append(menu.item(row));
    menu.list->setRowCount(12);
    for (WidgetListItem *item : items)
        menu.list->addListItem(item);
    for (int row : {7, 8})
        menu.item(row)->setTitle(QStringLiteral("changed"), false);
    const QLabel *title = RowParts(*menu.item(8)).title;
    menu.list->refreshItems();
    menu.list->setNoFocusStyle(3);
    QCOMPARE(RowParts(*menu.item(7)).title->text(), QStringLiteral("changed"));
    QVERIFY(!menu.item(7)->m_marquee);
    QCOMPARE(title->text(), QStringLiteral("row 8"));
    QVERIFY(menu.item(8)->m_marquee);
    for (int row : {7, 8})
        menu.item(row)->setDisplayValueIndex(1);
    menu.list->backup();
    QVERIFY(!menu.item(7)->isModified());
    QVERIFY(menu.item(8)->isModified());
    menu.list->hide();
    menu.list->show();
    QCOMPARE(title->text(), QStringLiteral("row 8"));
}

void TestWidgetList::itemsReplaceThoseOfBefore()
{
    WidgetList list(2, nullptr, sound());
    addRows(list, 2);
    QPointer<WidgetListItem> first = itemOf(list, 0);
    QPointer<WidgetListItem> second = itemOf(list, 1);
    list.setRowCount(2);
    WidgetListItem *replacement = newRow(QStringLiteral("new"));
    list.addListItem(replacement);
    QCOMPARE(itemOf(list, 0), replacement);
    runEventLoop();
    QVERIFY(!first);
    QVERIFY(second);
}

void TestWidgetList::removedItemsAreDeletedLater()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 2);
    QPointer<WidgetListItem> first = itemOf(list, 0);
    QPointer<WidgetListItem> second = itemOf(list, 1);
    list.removeAllItems();
    QVERIFY(!itemOf(list, 0));
    QVERIFY(!itemOf(list, 1));
    QCOMPARE(tableOf(list)->rowCount(), 3);
    runEventLoop();
    QVERIFY(!first);
    QVERIFY(!second);
    WidgetListItem *item = newRow(QStringLiteral("new"));
    list.addListItem(item);
    QCOMPARE(itemOf(list, 0), item);
    list.removeAllItems();
    list.removeAllItems();
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetList::removeAllItemsKeepsTheSelectedRow()
{
    Menu menu(3);
    menu.show();
    menu.list->setFocusAtItem(1);
    menu.list->removeAllItems();
    addRows(*menu.list, 3);
    releaseKey(menu.list, Qt::Key_8);
    QCOMPARE(focusedRow(*menu.list), 2);
}

void TestWidgetList::removeAllItemsLeavesWhatWasThereBeforeANewRowCount()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    list.setRowCount(3);
    addRows(list, 1);
    WidgetListItem *second = itemOf(list, 1);
    WidgetListItem *third = itemOf(list, 2);
    list.removeAllItems();
    QVERIFY(!itemOf(list, 0));
    QVERIFY(second && itemOf(list, 1) == second);
    QVERIFY(third && itemOf(list, 2) == third);
}

void TestWidgetList::itemsAddedAgainSurvive_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QList<int>>("order");
    QTest::addColumn<bool>("shown");
    for (bool shown : {false, true}) {
        const QString suffix = shown ? QStringLiteral(", shown") : QString();
        const auto add = [&suffix, shown](const char *name, int rows, const QList<int> &order) {
            QTest::newRow(qPrintable(name + suffix)) << rows << order << shown;
        };
        add("in the same order", 3, {0, 1, 2});
        add("reversed", 3, {2, 1, 0});
        add("turned", 3, {1, 2, 0});
        add("turned back", 3, {2, 0, 1});
        add("one left out", 3, {0, 2});
        add("into more rows", 5, {2, 0, 1});
        add("into fewer rows", 2, {1, 0});
        add("the last into one row", 1, {2});
        add("after no rows at all", 0, {0, 1, 2});
    }
}

void TestWidgetList::itemsAddedAgainSurvive()
{
    QFETCH(int, rows);
    QFETCH(QList<int>, order);
    QFETCH(bool, shown);
    Menu menu(3);
    if (shown)
        menu.show();
    QList<QPointer<WidgetListItem>> items;
    for (int i = 0; i < 3; ++i)
        items << menu.item(i);
    menu.list->setRowCount(rows);
    if (rows == 0)
        menu.list->setRowCount(3);
    for (int i : order)
        menu.list->addListItem(items.at(i));
    runEventLoop();
    for (int row = 0; row < order.size(); ++row) {
        QVERIFY(items.at(order.at(row)));
        QCOMPARE(menu.item(row), items.at(order.at(row)).data());
        QCOMPARE(menu.item(row)->isVisible(), shown);
    }
    for (int row = int(order.size()); row < menu.table()->rowCount(); ++row) {
        if (menu.item(row))
            QVERIFY(!order.contains(int(items.indexOf(menu.item(row)))));
    }
    if (!shown)
        menu.show();
    for (int row = 0; row < order.size(); ++row) {
        QCOMPARE(menu.item(row)->geometry(), menu.table()->visualRect(menu.table()->model()->index(row, 0)));
        menu.list->setFocusAtItem(row);
        QCOMPARE(focusedRow(*menu.list), row);
    }
}

void TestWidgetList::itemAddedAgainIsDeletedWithTheNextRemoval()
{
    WidgetList list(2, nullptr, sound());
    addRows(list, 2);
    const QPointer<WidgetListItem> first = itemOf(list, 0);
    const QPointer<WidgetListItem> second = itemOf(list, 1);
    list.removeAllItems();
    list.addListItem(second);
    list.addListItem(first);
    runEventLoop();
    QVERIFY(first);
    QVERIFY(second);
    list.removeAllItems();
    runEventLoop();
    QVERIFY(!first);
    QVERIFY(!second);
}

void TestWidgetList::itemsGoWithTheList()
{
    QPointer<WidgetListItem> item;
    {
        WidgetList list(2, nullptr, sound());
        addRows(list, 2);
        item = itemOf(list, 1);
    }
    QVERIFY(!item);
}

void TestWidgetList::addingWhileShownShowsTheItem()
{
    Menu menu(0);
    menu.list->setRowCount(2);
    menu.show();
    addRows(*menu.list, 2);
    runEventLoop();
    QVERIFY(menu.item(0)->isVisible());
    QVERIFY(menu.item(1)->isVisible());
    QCOMPARE(RowParts(*menu.item(1)).title->text(), QStringLiteral("row 1"));
    QCOMPARE(menu.item(1)->geometry(), QRect(0, 46, 220, 46));
}

// --- All items

void TestWidgetList::refreshesAllItems()
{
    WidgetList list(4, nullptr, sound());
    addRows(list, 3);
    for (int row = 0; row < 3; ++row)
        itemOf(list, row)->replaceValue(0, QString("new %1").arg(row), false);
    list.refreshItems();
    for (int row = 0; row < 3; ++row)
        QCOMPARE(itemOf(list, row)->getDisplayValue(), QString("new %1").arg(row));
}

void TestWidgetList::backsUpAllItemsAndFindsTheModifiedOne()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    list.refreshItems();
    QVERIFY(list.isModified());
    list.backup();
    QVERIFY(!list.isModified());
    for (int row = 0; row < 3; ++row) {
        itemOf(list, row)->setDisplayValueIndex(1);
        QVERIFY(list.isModified());
        itemOf(list, row)->m_ignoreModified = true;
        QVERIFY(!list.isModified());
        itemOf(list, row)->m_ignoreModified = false;
        itemOf(list, row)->setDisplayValueIndex(0);
        QVERIFY(!list.isModified());
    }
}

void TestWidgetList::emptyListIsNotModified()
{
    WidgetList list(3, nullptr, sound());
    QVERIFY(!list.isModified());
    list.backup();
    list.refreshItems();
    QVERIFY(!list.isModified());
    WidgetList none(0, nullptr, sound());
    QVERIFY(!none.isModified());
}

void TestWidgetList::cellsOfOtherKindsAreSkipped()
{
    Menu menu(3);
    menu.show();
    menu.table()->setCellWidget(1, 0, new QLabel(QStringLiteral("plain")));
    runEventLoop();
    menu.list->refreshItems();
    menu.list->backup();
    QVERIFY(!menu.list->isModified());
    menu.item(2)->setDisplayValueIndex(1);
    QVERIFY(menu.list->isModified());
    menu.list->setNoFocusStyle(0);
    QCOMPARE(menu.item(2)->m_marquee, false);
}

// --- Focus

void TestWidgetList::firstShowFocusesRowZero()
{
    Menu menu(3);
    menu.screen.show();
    QCOMPARE(RecordingPlatform::events(), QStringList(s_initialFocusTrace));
    menu.screen.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&menu.screen, LongestWait));
    QCOMPARE(focusedRow(*menu.list), 0);
    QCOMPARE(selectedRows(*menu.list), QList<int>({0}));
    QCOMPARE(RowParts(*menu.item(0)).title->styleSheet(), s_focusedText);
    QCOMPARE(RowParts(*menu.item(1)).title->styleSheet(), s_unfocusedTitle);
}

void TestWidgetList::everyShowStartsOnRowZero()
{
    Menu menu(6);
    menu.show();
    for (int row : {1, 5, 3}) {
        menu.list->setFocusAtItem(row);
        QCOMPARE(focusedRow(*menu.list), row);
        menu.list->hide();
        RecordingPlatform::reset();
        menu.list->show();
        QCOMPARE(RecordingPlatform::events(), QStringList(s_initialFocusTrace));
        runEventLoop();
        QCOMPARE(focusedRow(*menu.list), 0);
        QCOMPARE(selectedRows(*menu.list), QList<int>({0}));
        QCOMPARE(menu.table()->verticalScrollBar()->value(), 0);
        QCOMPARE(RowParts(*menu.item(0)).title->styleSheet(), s_focusedText);
    }
}

void TestWidgetList::focusThatStayedOnRowZeroShowsAfterwards()
{
    Menu menu(3);
    const QString text = textWiderThan(300, RowParts(*menu.item(0)).title->font());
    menu.item(0)->setTitle(text, true);
    menu.show();
    const RowParts parts(*menu.item(0));
    QCOMPARE(timersOf(parts.title).size(), 1);
    // With nobody else to take it, the toolkit leaves the focus on the row.
    menu.list->hide();
    QCOMPARE(timersOf(parts.title).size(), 0);
    menu.list->show();
    runEventLoop();
    QCOMPARE(focusedRow(*menu.list), 0);
    QCOMPARE(parts.title->styleSheet(), s_focusedText);
    QCOMPARE(timersOf(parts.title).size(), 1);
    QCOMPARE(parts.title->m_timerId, timersOf(parts.title).at(0).timerId);
}

void TestWidgetList::showKeepsARowThatIsRecorded()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    list.setFocusAtItem(2);
    RecordingPlatform::reset();
    list.show();
    QCOMPARE(RecordingPlatform::events(), QStringList());
    QCOMPARE(selectedRows(list), QList<int>({2}));
    list.hide();
    QCOMPARE(RecordingPlatform::events(), QStringList("log:16:[hideEvent, 429] m_selectedRow = 2"));
}

void TestWidgetList::focusSetBeforeTheShowIsThereAfterwards_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("windowFirst");
    for (int row : {0, 1, 5, 9}) {
        QTest::newRow(qPrintable(QString("row %1, shown with its window").arg(row))) << row << false;
        QTest::newRow(qPrintable(QString("row %1, shown in its window").arg(row))) << row << true;
    }
}

void TestWidgetList::focusSetBeforeTheShowIsThereAfterwards()
{
    QFETCH(int, row);
    QFETCH(bool, windowFirst);
    Menu menu(10);
    if (windowFirst) {
        menu.list->hide();
        menu.show();
    }
    menu.list->setFocusAtItem(row);
    if (windowFirst) {
        menu.list->show();
        runEventLoop();
    } else {
        menu.show();
    }
    QCOMPARE(selectedRows(*menu.list), QList<int>({row}));
    QVERIFY(isInView(*menu.list, row));
    QVERIFY(menu.item(row)->isVisible());
    QCOMPARE(focusedRow(*menu.list), row);
    QCOMPARE(RowParts(*menu.item(row)).title->styleSheet(), s_focusedText);
}

void TestWidgetList::hideForgetsTheRow()
{
    Menu menu(3);
    menu.show();
    menu.list->setFocusAtItem(2);
    RecordingPlatform::reset();
    menu.list->hide();
    QCOMPARE(RecordingPlatform::events(), QStringList("log:16:[hideEvent, 429] m_selectedRow = 2"));
    RecordingPlatform::reset();
    menu.list->show();
    menu.list->hide();
    QCOMPARE(RecordingPlatform::events(),
             QStringList({s_initialFocusTrace, "log:16:[hideEvent, 429] m_selectedRow = 0"}));
}

void TestWidgetList::setFocusAtItemMovesTheFocusInSilence()
{
    Menu menu(3);
    menu.show();
    for (int row : {2, 0, 1, 1}) {
        menu.list->setFocusAtItem(row);
        QCOMPARE(focusedRow(*menu.list), row);
        QCOMPARE(selectedRows(*menu.list), QList<int>({row}));
    }
    QCOMPARE(RecordingPlatform::sounds(), QList<int>());
    QCOMPARE(menu.type(Qt::Key_8), 2);
}

void TestWidgetList::setFocusAtItemIsLogged()
{
    Menu menu(3);
    menu.show();
    menu.list->setFocusAtItem(2);
    QCOMPARE(RecordingPlatform::events(),
             QStringList("log:16:[ui/view/widget/widgetlist.cpp, setFocusAtItem] sel = 2"));
}

void TestWidgetList::setFocusOutsideTheItemsIsRejected_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("-1") << -1;
    QTest::newRow("a row without an item") << 3;
    QTest::newRow("past the rows") << 4;
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetList::setFocusOutsideTheItemsIsRejected()
{
    QFETCH(int, row);
    Menu menu(3);
    menu.list->setRowCount(4);
    addRows(*menu.list, 3);
    menu.show();
    menu.list->setFocusAtItem(1);
    RecordingPlatform::reset();
    menu.list->setFocusAtItem(row);
    QCOMPARE(RecordingPlatform::events(),
             QStringList({QString("log:16:[ui/view/widget/widgetlist.cpp, setFocusAtItem] sel = %1").arg(row),
                          QString("log:2:[setFocusAtItem, 249] Invalid %1").arg(row)}));
    QCOMPARE(focusedRow(*menu.list), 1);
    QCOMPARE(selectedRows(*menu.list), QList<int>({1}));
    QCOMPARE(menu.type(Qt::Key_8), 2);
}

void TestWidgetList::setInitialFocusGoesToRowZero()
{
    Menu menu(3);
    menu.show();
    menu.list->setFocusAtItem(2);
    RecordingPlatform::reset();
    QVERIFY(QMetaObject::invokeMethod(menu.list, "setInitialFocus"));
    QCOMPARE(RecordingPlatform::events(), QStringList(s_initialFocusTrace));
    QCOMPARE(focusedRow(*menu.list), 0);
    QCOMPARE(menu.type(Qt::Key_8), 1);
}

void TestWidgetList::setInitialFocusOnAnEmptyListOnlyRecords_data()
{
    QTest::addColumn<int>("rows");
    QTest::newRow("no rows") << 0;
    QTest::newRow("rows without items") << 3;
}

void TestWidgetList::setInitialFocusOnAnEmptyListTakesNoFocus_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("items");
    QTest::newRow("no rows") << 0 << 0;
    QTest::newRow("rows without items") << 3 << 0;
    QTest::newRow("no rows any more") << 0 << 2;
}

void TestWidgetList::setInitialFocusOnAnEmptyListTakesNoFocus()
{
    QFETCH(int, rows);
    QFETCH(int, items);
    Menu menu(items);
    menu.show();
    menu.list->setRowCount(rows);
    QWidget *other = new QWidget(&menu.screen);
    other->show();
    other->setFocus();
    QVERIFY(QMetaObject::invokeMethod(menu.list, "setInitialFocus"));
    QVERIFY(other->hasFocus());
}

void TestWidgetList::setInitialFocusOnAnEmptyListOnlyRecords()
{
    QFETCH(int, rows);
    WidgetList list(rows, nullptr, sound());
    list.show();
    QCOMPARE(RecordingPlatform::events(), QStringList(s_initialFocusTrace));
    RecordingPlatform::reset();
    list.hide();
    QCOMPARE(RecordingPlatform::events(), QStringList("log:16:[hideEvent, 429] m_selectedRow = 0"));
}

void TestWidgetList::rowThatIsAddedAgainInItsPlaceKeepsTheFocus()
{
    Menu menu(3);
    menu.show();
    WidgetListItem *item = menu.item(0);
    QVERIFY(item->hasFocus());
    EventRecorder recorder(item);
    menu.list->setRowCount(3);
    menu.list->addListItem(item);
    QVERIFY(item->hasFocus());
    QCOMPARE(recorder.count(QEvent::FocusOut), 0);
    QCOMPARE(menu.item(0), item);
}

void TestWidgetList::setLastFocusGoesBackToTheRecordedRow()
{
    Menu menu(3);
    QWidget *other = new QWidget(&menu.screen);
    menu.show();
    menu.list->setFocusAtItem(2);
    other->setFocus();
    QCOMPARE(focusedRow(*menu.list), -1);
    RecordingPlatform::reset();
    QVERIFY(QMetaObject::invokeMethod(menu.list, "setLastFocus"));
    QCOMPARE(RecordingPlatform::events(), QStringList(s_lastFocusTrace));
    QCOMPARE(focusedRow(*menu.list), 2);
    QCOMPARE(selectedRows(*menu.list), QList<int>({2}));
}

void TestWidgetList::rowOfAWindowThatIsNotActiveLooksAsWithoutTheFocus()
{
    Menu menu(3);
    menu.show();
    Menu other(1);
    other.show();
    menu.list->hide();
    menu.list->show();
    QVERIFY(!menu.item(0)->hasFocus());
    QCOMPARE(RowParts(*menu.item(0)).title->styleSheet(), s_unfocusedTitle);
    menu.screen.activateWindow();
    EVENTUALLY_COMPARE(menu.item(0)->hasFocus(), true);
    QCOMPARE(RowParts(*menu.item(0)).title->styleSheet(), s_focusedText);
}

void TestWidgetList::focusComesForTheReasonOther()
{
    Menu menu(3);
    QWidget other(&menu.screen);
    FocusReasons reasons;
    menu.list->installEventFilter(&reasons);
    for (int row = 0; row < 3; ++row)
        menu.item(row)->installEventFilter(&reasons);
    menu.show();
    menu.type(Qt::Key_8);
    menu.list->setFocusAtItem(2);
    menu.list->hideItem(2);
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
    other.setFocus();
    menu.list->setFocusAtItem(2);
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
    menu.list->setFocusAtItem(0);
    const Qt::FocusReason reason = Qt::OtherFocusReason;
    reasons.list.removeAll(Qt::ActiveWindowFocusReason);
    QCOMPARE(reasons.list, QList<Qt::FocusReason>({reason, reason, reason, reason, reason}));
}

void TestWidgetList::focusThatComesBackGoesStraightToTheRow()
{
    Menu menu(3);
    QWidget other(&menu.screen);
    menu.show();
    other.setFocus();
    const EventRecorder recorder(menu.list);
    menu.list->setFocusAtItem(1);
    QCOMPARE(focusedRow(*menu.list), 1);
    QCOMPARE(recorder.count(QEvent::FocusIn, menu.list), 0);
}

void TestWidgetList::focusThatComesBackGoesToTheListWhoseTableIsHidden()
{
    Menu menu(3);
    QWidget other(&menu.screen);
    menu.show();
    menu.table()->hide();
    other.setFocus();
    menu.list->setFocusAtItem(0);
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
}

void TestWidgetList::focusStaysOnItsRowWhenAHiddenOneIsSelected()
{
    Menu menu(3);
    menu.show();
    menu.list->hideItem(1);
    const EventRecorder recorder(menu.list);
    menu.list->setFocusAtItem(1);
    QCOMPARE(selectedRows(*menu.list), QList<int>{1});
    QCOMPARE(focusedRow(*menu.list), 0);
    QCOMPARE(recorder.count(QEvent::FocusOut), 0);
}

void TestWidgetList::rowThatIsDeletedAsItIsSelectedLeavesTheFocusToTheList()
{
    Menu menu(3);
    menu.show();
    connect(menu.table(), &QTableWidget::currentCellChanged, menu.list, [&menu](int row) { delete menu.item(row); });
    menu.list->setFocusAtItem(1);
    QVERIFY(!menu.item(1));
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
}

void TestWidgetList::setLastFocusWithoutARowIsRejected()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    QVERIFY(QMetaObject::invokeMethod(&list, "setLastFocus"));
    QCOMPARE(RecordingPlatform::events(), QStringList({s_lastFocusTrace, invalidIndex("setLastFocus", -1)}));
    QCOMPARE(selectedRows(list), QList<int>({0}));
}

void TestWidgetList::focusedRowLooksFocused()
{
    Menu menu(4);
    menu.show();
    for (int row : {2, 3, 1}) {
        menu.list->setFocusAtItem(row);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(RowParts(*menu.item(i)).title->styleSheet(), i == row ? s_focusedText : s_unfocusedTitle);
    }
}

// --- Up and down

void TestWidgetList::movesByUpAndDown_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QList<int>>("moved");
    QTest::newRow("down, around the end") << 3 << "8888" << QList<int>({1, 2, 0, 1});
    QTest::newRow("up, around the beginning") << 3 << "2222" << QList<int>({2, 1, 0, 2});
    QTest::newRow("to and fro") << 3 << "8288" << QList<int>({1, 0, 1, 2});
    QTest::newRow("through a list longer than its view") << 7 << "888888882"
                                                         << QList<int>({1, 2, 3, 4, 5, 6, 0, 1, 0});
    QTest::newRow("up through a list longer than its view") << 7 << "22222222" << QList<int>({6, 5, 4, 3, 2, 1, 0, 6});
}

void TestWidgetList::movesByUpAndDown()
{
    QFETCH(int, rows);
    QFETCH(QString, keys);
    Menu menu(rows);
    menu.show();
    QList<int> moved;
    for (const QChar key : keys) {
        moved << menu.type(key.unicode());
        QCOMPARE(selectedRows(*menu.list), QList<int>({moved.last()}));
        QVERIFY(menu.item(qMax(0, moved.last()))->isVisible());
        QVERIFY(menu.table()->viewport()->rect().contains(menu.item(qMax(0, moved.last()))->geometry().center()));
    }
    QTEST(moved, "moved");
    QCOMPARE(menu.screen.takeKeys(), QStringList());
}

void TestWidgetList::movingLogsAndPlaysExactlyThis_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("toTheRow");
    QTest::newRow("up, to the list") << int(Qt::Key_2) << false;
    QTest::newRow("down, to the list") << int(Qt::Key_8) << false;
    QTest::newRow("up, to the row") << int(Qt::Key_2) << true;
    QTest::newRow("down, to the row") << int(Qt::Key_8) << true;
}

void TestWidgetList::movingLogsAndPlaysExactlyThis()
{
    QFETCH(int, key);
    QFETCH(bool, toTheRow);
    Menu menu(3);
    menu.show();
    noteSignals(menu.list);
    QWidget *receiver = toTheRow ? QApplication::focusWidget() : menu.list.data();
    pressKey(receiver, key);
    QCOMPARE(RecordingPlatform::events(), QStringList());
    releaseKey(receiver, key);
    QCOMPARE(RecordingPlatform::events(), toTheRow ? QStringList({s_rowTrace, s_click}) : QStringList(s_click));
    QCOMPARE(focusedRow(*menu.list), key == Qt::Key_2 ? 2 : 1);
    QCOMPARE(menu.screen.takeKeys(), QStringList());
}

void TestWidgetList::stopsAtTheEndsOnDemand_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("events");
    const QStringList begin{"reachedBegin", "sound:901"};
    const QStringList end{"reachedEnd", "sound:901"};
    const QStringList move{"sound:901"};
    QTest::newRow("up on the first") << 0 << int(Qt::Key_2) << 0 << begin;
    QTest::newRow("up on the second") << 1 << int(Qt::Key_2) << 0 << move;
    QTest::newRow("up on the last") << 2 << int(Qt::Key_2) << 1 << move;
    QTest::newRow("down on the last") << 2 << int(Qt::Key_8) << 2 << end;
    QTest::newRow("down on the second") << 1 << int(Qt::Key_8) << 2 << move;
    QTest::newRow("down on the first") << 0 << int(Qt::Key_8) << 1 << move;
}

void TestWidgetList::stopsAtTheEndsOnDemand()
{
    QFETCH(int, start);
    QFETCH(int, key);
    QFETCH(int, row);
    Menu menu(3);
    menu.list->m_stopAtEnds = true;
    menu.show();
    menu.list->setFocusAtItem(start);
    RecordingPlatform::reset();
    noteSignals(menu.list);
    releaseKey(menu.list, key);
    QTEST(RecordingPlatform::events(), "events");
    QCOMPARE(focusedRow(*menu.list), row);
    QCOMPARE(selectedRows(*menu.list), QList<int>({row}));
    QCOMPARE(menu.screen.takeKeys(), QStringList());
}

void TestWidgetList::rowMinusOneGoesUpToTheLastAndDownToTheFirst()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    QCOMPARE(list.findPrevRow(-1), 2);
    QCOMPARE(list.findNextRow(-1), 0);
    releaseKey(&list, Qt::Key_2);
    QCOMPARE(selectedRows(list), QList<int>({2}));
}

void TestWidgetList::rowMinusOneWithStopAtEnds()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    list.m_stopAtEnds = true;
    noteSignals(&list);
    releaseKey(&list, Qt::Key_2);
    QCOMPARE(RecordingPlatform::events(), QStringList({"reachedBegin", s_click}));
    RecordingPlatform::reset();
    releaseKey(&list, Qt::Key_8);
    QCOMPARE(RecordingPlatform::events(), QStringList(s_click));
    QCOMPARE(selectedRows(list), QList<int>({0}));
}

void TestWidgetList::hiddenRowsArePassedOver_data()
{
    QTest::addColumn<QList<int>>("hidden");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("up");
    QTest::addColumn<int>("down");
    QTest::newRow("the middle one, from the first") << QList<int>({1}) << 0 << 2 << 2;
    QTest::newRow("the middle one, from the last") << QList<int>({1}) << 2 << 0 << 0;
    QTest::newRow("the first, around the ends") << QList<int>({0}) << 1 << 2 << 2;
    QTest::newRow("the last, around the ends") << QList<int>({2}) << 0 << 1 << 1;
    QTest::newRow("all but the one it is on") << QList<int>({0, 2}) << 1 << 1 << 1;
    QTest::newRow("all but another") << QList<int>({0, 1}) << 0 << 2 << 2;
    QTest::newRow("the one it is on") << QList<int>({1}) << 1 << 0 << 2;
    QTest::newRow("all") << QList<int>({0, 1, 2}) << 1 << 1 << 1;
}

void TestWidgetList::hiddenRowsArePassedOver()
{
    QFETCH(QList<int>, hidden);
    QFETCH(int, start);
    QFETCH(int, up);
    QFETCH(int, down);
    Menu menu(3);
    menu.show();
    menu.list->setFocusAtItem(start);
    for (int row : hidden)
        menu.list->hideItem(row);
    runEventLoop();
    QCOMPARE(menu.list->findPrevRow(start), up);
    QCOMPARE(menu.list->findNextRow(start), down);
    RecordingPlatform::reset();
    releaseKey(menu.list, Qt::Key_8);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>({901}));
    if (!hidden.contains(down)) {
        QCOMPARE(focusedRow(*menu.list), down);
        QCOMPARE(selectedRows(*menu.list), QList<int>({down}));
    }
}

void TestWidgetList::hiddenRowsAreHiddenAndComeBack()
{
    Menu menu(3);
    menu.show();
    menu.list->hideItem(1);
    runEventLoop();
    QVERIFY(menu.table()->isRowHidden(1));
    QVERIFY(!menu.item(1)->isVisible());
    QCOMPARE(menu.item(2)->geometry(), QRect(0, 46, 220, 46));
    QCOMPARE(RecordingPlatform::events(), QStringList());
    menu.list->showItem(1);
    runEventLoop();
    QVERIFY(!menu.table()->isRowHidden(1));
    QVERIFY(menu.item(1)->isVisible());
    QCOMPARE(menu.item(1)->geometry(), QRect(0, 46, 220, 46));
    QCOMPARE(menu.item(2)->geometry(), QRect(0, 92, 220, 46));
    QCOMPARE(RecordingPlatform::events(), QStringList());
    QCOMPARE(menu.type(Qt::Key_8), 1);
}

void TestWidgetList::hidingARowThatDoesNotExistIsIgnored_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("-1") << -1;
    QTest::newRow("3") << 3;
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("smallest") << INT_MIN;
}

void TestWidgetList::hidingARowThatDoesNotExistIsIgnored()
{
    QFETCH(int, row);
    WidgetList list(3, nullptr, sound());
    addRows(list, 2);
    list.hideItem(row);
    list.showItem(row);
    QCOMPARE(RecordingPlatform::events(), QStringList({invalidIndex("hideItem", row), invalidIndex("showItem", row)}));
    list.hideItem(2);
    QVERIFY(tableOf(list)->isRowHidden(2));
    QCOMPARE(RecordingPlatform::events().size(), 2);
}

void TestWidgetList::hiddenRowIsNotRefreshed()
{
    Menu menu(12);
    const QList<int> rows{0, 9};
    for (int row : rows)
        menu.list->hideItem(row);
    menu.list->showItem(9);
    menu.list->hideItem(9);
    menu.show();
    for (int row : rows)
        QCOMPARE(RowParts(*menu.item(row)).title->text(), QString());
    for (int row : rows)
        menu.list->showItem(row);
    for (int row : rows)
        QCOMPARE(RowParts(*menu.item(row)).title->text(), QString("row %1").arg(row));
}

void TestWidgetList::hiddenRowThatComesBackOutOfViewHasTheHeightOfItsRow()
{
    Menu menu(12);
    menu.list->hideItem(9);
    menu.list->setRowHeight(60);
    menu.show();
    menu.list->showItem(9);
    QCOMPARE(menu.item(9)->size(), QSize(220, 60));
    QCOMPARE(RowParts(*menu.item(9)).prevArrow->geometry(), QRect(185, 25, 6, 10));
}

void TestWidgetList::rowThatTheApplicationTookOutIsShownAsItsOwn()
{
    Menu menu(3);
    menu.show();
    const QScopedPointer<WidgetListItem> item(menu.item(1));
    item->setParent(nullptr);
    QVERIFY(item->isHidden());
    menu.list->showItem(1);
    QVERIFY(item->isVisible());
}

void TestWidgetList::firstRowIsRefreshedWithAListThatIsShownAtItsEnd()
{
    Menu menu(12);
    menu.list->hideItem(0);
    menu.show();
    menu.list->hide();
    menu.list->showItem(0);
    menu.list->setFocusAtItem(11);
    menu.list->show();
    QVERIFY(!isInView(*menu.list, 0));
    QCOMPARE(RowParts(*menu.item(0)).title->text(), QStringLiteral("row 0"));
}

void TestWidgetList::firstRowThatWasNeverSeenIsAsItIsAtTheNextShow()
{
    Menu menu(12);
    menu.list->hideItem(0);
    menu.show();
    menu.list->setFocusAtItem(11);
    menu.list->showItem(0);
    menu.list->hide();
    menu.list->setFocusAtItem(0);
    menu.item(0)->setTitle(QStringLiteral("changed"), false);
    menu.list->show();
    QCOMPARE(RowParts(*menu.item(0)).title->text(), QString("changed"));
}

void TestWidgetList::changedWhileHiddenIsSeenAtTheNextShow_data()
{
    QTest::addColumn<int>("shown");
    QTest::addColumn<int>("hidden");
    QTest::addColumn<int>("height");
    QTest::addColumn<QList<int>>("tops");
    QTest::newRow("a row shown again") << 1 << -1 << -1 << QList<int>({0, 46, 92});
    QTest::newRow("a row hidden") << -1 << 0 << -1 << QList<int>({-1, -1, 0, 46, 92});
    QTest::newRow("another height") << -1 << -1 << 30 << QList<int>({0, -1, 30, 60, 90});
}

void TestWidgetList::changedWhileHiddenIsSeenAtTheNextShow()
{
    QFETCH(int, shown);
    QFETCH(int, hidden);
    QFETCH(int, height);
    QFETCH(QList<int>, tops);
    Menu menu(5);
    menu.list->hideItem(1);
    menu.show();
    menu.list->hide();
    if (shown >= 0)
        menu.list->showItem(shown);
    if (hidden >= 0)
        menu.list->hideItem(hidden);
    if (height >= 0)
        menu.list->setRowHeight(height);
    runEventLoop();
    menu.list->show();
    runEventLoop();
    for (int row = 0; row < tops.size(); ++row) {
        QCOMPARE(menu.item(row)->isVisible(), tops.at(row) >= 0);
        if (tops.at(row) >= 0)
            QCOMPARE(menu.item(row)->y(), tops.at(row));
    }
    const int rowHeight = height >= 0 ? height : 46;
    QCOMPARE(menu.item(2)->height(), rowHeight);
    QCOMPARE(RowParts(*menu.item(2)).prevArrow->y(), rowHeight / 2 - 5);
}

void TestWidgetList::rowThatTheApplicationShowsAgainIsRefreshed()
{
    Menu menu(12);
    menu.show();
    menu.list->setFocusAtItem(9);
    menu.item(9)->hide();
    menu.item(9)->setTitle(QStringLiteral("changed"), false);
    menu.item(9)->show();
    QCOMPARE(RowParts(*menu.item(9)).title->text(), QString("changed"));
}

void TestWidgetList::rowThatComesBackOutOfViewIsRefreshed()
{
    Menu menu(6);
    menu.list->hideItem(5);
    menu.show();
    menu.list->showItem(5);
    menu.list->backup();
    QVERIFY(!menu.item(5)->getDisplayValue().isEmpty());
    menu.list->setFocusAtItem(5);
    runEventLoop();
    QVERIFY(menu.item(5)->isVisible());
    QVERIFY(!menu.list->isModified());
}

void TestWidgetList::searchEndsWhenAllRowsAreHidden()
{
    Menu menu(3);
    for (int row = 0; row < 3; ++row)
        menu.list->hideItem(row);
    menu.show();
    for (int row : {-1, 0, 1, 2, 3, 100}) {
        QCOMPARE(menu.list->findPrevRow(row), row);
        QCOMPARE(menu.list->findNextRow(row), row);
    }
    releaseKey(menu.list, Qt::Key_2);
    releaseKey(menu.list, Qt::Key_8);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>({901, 901}));
    menu.list->m_stopAtEnds = true;
    RecordingPlatform::reset();
    noteSignals(menu.list);
    releaseKey(menu.list, Qt::Key_2);
    releaseKey(menu.list, Qt::Key_8);
    QCOMPARE(RecordingPlatform::events(), QStringList({"reachedBegin", s_click, "reachedEnd", s_click}));
    menu.list->showItem(1);
    runEventLoop();
    menu.list->m_stopAtEnds = false;
    releaseKey(menu.list, Qt::Key_8);
    QCOMPARE(focusedRow(*menu.list), 1);
}

void TestWidgetList::emptyListHandsUpAndDownOn()
{
    Menu menu(0);
    menu.list->setRowCount(3);
    menu.show();
    noteSignals(menu.list);
    releaseKey(menu.list, Qt::Key_2);
    releaseKey(menu.list, Qt::Key_8);
    QCOMPARE(menu.screen.takeKeys(), QStringList({"release 2", "release 8"}));
    QCOMPARE(RecordingPlatform::events(), QStringList());
    QCOMPARE(menu.list->findPrevRow(0), 0);
    QCOMPARE(menu.list->findNextRow(0), 0);
}

void TestWidgetList::oneRowMovesToItself()
{
    Menu menu(1);
    menu.show();
    QCOMPARE(menu.type(Qt::Key_8), 0);
    QCOMPARE(menu.type(Qt::Key_2), 0);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>({901, 901}));
    menu.list->m_stopAtEnds = true;
    RecordingPlatform::reset();
    noteSignals(menu.list);
    releaseKey(menu.list, Qt::Key_8);
    QCOMPARE(RecordingPlatform::events(), QStringList({"reachedEnd", s_click}));
}

void TestWidgetList::movesWhileNotShown()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    list.setFocusAtItem(0);
    releaseKey(&list, Qt::Key_8);
    QCOMPARE(selectedRows(list), QList<int>({1}));
    QCOMPARE(RecordingPlatform::sounds(), QList<int>({901}));
}

void TestWidgetList::movesInFunctionKeyMode()
{
    Menu menu(3);
    menu.list->m_useFunctionKeys = true;
    menu.show();
    for (int row = 0; row < 3; ++row)
        menu.item(row)->m_useFunctionKeys = true;
    QCOMPARE(menu.type(Qt::Key_F2), 1);
    QCOMPARE(menu.type(Qt::Key_F2), 2);
    QCOMPARE(menu.type(Qt::Key_F1), 1);
    QCOMPARE(menu.type(Qt::Key_8), 1);
    QCOMPARE(menu.screen.takeKeys(), QStringList("release 8"));
}

void TestWidgetList::movesThroughARightToLeftList()
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    Menu menu(7);
    menu.show();
    for (int row : {1, 2, 3, 4, 5, 6, 0}) {
        QCOMPARE(menu.type(Qt::Key_8), row);
        QVERIFY(isInView(*menu.list, row));
    }
    QCOMPARE(menu.type(Qt::Key_2), 6);
    menu.list->setFocusAtItem(3);
    QCOMPARE(focusedRow(*menu.list), 3);
}

// --- Keys

void TestWidgetList::okSavesThenClicks()
{
    Menu menu(2);
    menu.show();
    noteSignals(menu.list);
    releaseKey(menu.list, Qt::Key_Menu);
    QCOMPARE(RecordingPlatform::events(), QStringList({"doSave", s_click}));
    RecordingPlatform::reset();
    releaseKey(QApplication::focusWidget(), Qt::Key_Menu);
    QCOMPARE(RecordingPlatform::events(), QStringList({s_rowTrace, "doSave", s_click}));
    QCOMPARE(menu.screen.takeKeys(), QStringList());
    RecordingPlatform::reset();
    menu.item(0)->m_enterOnOK = true;
    releaseKey(QApplication::focusWidget(), Qt::Key_Menu);
    QCOMPARE(RecordingPlatform::events(), QStringList({s_rowTrace, s_click}));
}

void TestWidgetList::escapeFinishesThenClicks()
{
    Menu menu(2);
    menu.show();
    noteSignals(menu.list);
    releaseKey(menu.list, Qt::Key_Escape);
    QCOMPARE(RecordingPlatform::events(), QStringList({"finished", s_click}));
    RecordingPlatform::reset();
    releaseKey(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(RecordingPlatform::events(), QStringList({s_rowTrace, "finished", s_click}));
    QCOMPARE(menu.screen.takeKeys(), QStringList());
}

void TestWidgetList::otherKeysAreHandedOn_data()
{
    QTest::addColumn<int>("key");
    for (int key : {int(Qt::Key_Asterisk), int(Qt::Key_NumberSign), int(Qt::Key_F1), int(Qt::Key_F2), int(Qt::Key_F3),
                    int(Qt::Key_F4), int(Qt::Key_Return), int(Qt::Key_Enter), int(Qt::Key_Up), int(Qt::Key_Down),
                    int(Qt::Key_Left), int(Qt::Key_Right), int(Qt::Key_PageDown), int(Qt::Key_Home), int(Qt::Key_A),
                    int(Qt::Key_Space), int(Qt::Key_0), int(Qt::Key_1), int(Qt::Key_4), int(Qt::Key_6), int(Qt::Key_9)})
        QTest::newRow(qPrintable(QKeySequence(key).toString())) << key;
}

void TestWidgetList::otherKeysAreHandedOn()
{
    QFETCH(int, key);
    Menu menu(3, 1);
    menu.show();
    noteSignals(menu.list);
    const QStringList handedOn("release " + QKeySequence(key).toString(QKeySequence::PortableText));
    releaseKey(menu.list, key);
    QCOMPARE(menu.screen.takeKeys(), handedOn);
    QCOMPARE(RecordingPlatform::events(), QStringList());
    releaseKey(QApplication::focusWidget(), key);
    QCOMPARE(menu.screen.takeKeys(), handedOn);
    QCOMPARE(RecordingPlatform::events(), QStringList(s_rowTrace));
    QCOMPARE(focusedRow(*menu.list), 0);
}

void TestWidgetList::pressesEndInTheList_data()
{
    otherKeysAreHandedOn_data();
    QTest::newRow("2") << int(Qt::Key_2);
    QTest::newRow("8") << int(Qt::Key_8);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("OK") << int(Qt::Key_Menu);
}

void TestWidgetList::pressesEndInTheList()
{
    QFETCH(int, key);
    for (Qt::FocusPolicy policy : {Qt::NoFocus, Qt::StrongFocus}) {
        Menu menu(3, 1);
        menu.show();
        for (int row = 0; row < 3; ++row)
            menu.item(row)->setFocusPolicy(policy);
        noteSignals(menu.list);
        QVERIFY(pressKey(menu.list, key));
        QVERIFY(pressKey(QApplication::focusWidget(), key));
        repeatKey(QApplication::focusWidget(), key);
        QCOMPARE(menu.screen.takeKeys(), QStringList());
        QCOMPARE(RecordingPlatform::events(), QStringList());
        QCOMPARE(focusedRow(*menu.list), 0);
        QCOMPARE(selectedRows(*menu.list), QList<int>({0}));
    }
}

void TestWidgetList::keysClimbFromTheFocusedRow()
{
    Menu menu(3);
    menu.show();
    // Title letters and digits as a table's keyboard search would find them.
    menu.list->setFocusAtItem(1);
    RecordingPlatform::reset();
    noteSignals(menu.list);
    QCOMPARE(menu.type(Qt::Key_8), 2);
    QCOMPARE(menu.type(Qt::Key_2), 1);
    QCOMPARE(menu.type(Qt::Key_0), 1);
    QCOMPARE(menu.type(Qt::Key_Menu), 1);
    QCOMPARE(menu.type(Qt::Key_Escape), 1);
    QCOMPARE(RecordingPlatform::events(),
             QStringList({s_rowTrace, s_click, s_rowTrace, s_click, s_rowTrace, s_rowTrace, "doSave", s_click,
                          s_rowTrace, "finished", s_click}));
    QCOMPARE(menu.screen.takeKeys(), QStringList("release 0"));
}

void TestWidgetList::keysOfTheWindowSystemArrive()
{
    Menu menu(3);
    menu.show();
    noteSignals(menu.list);
    QWindow *window = menu.screen.windowHandle();
    QTest::keyClick(window, Qt::Key_8);
    EVENTUALLY_COMPARE(focusedRow(*menu.list), 1);
    QTest::keyClick(window, Qt::Key_6);
    EVENTUALLY_COMPARE(menu.item(1)->getDisplayValue(), QStringLiteral("value 1"));
    QTest::keyClick(window, Qt::Key_2);
    EVENTUALLY_COMPARE(focusedRow(*menu.list), 0);
    QTest::keyClick(window, Qt::Key_Escape);
    EVENTUALLY(RecordingPlatform::events().contains("finished"));
    QTest::keyClick(window, Qt::Key_0);
    runEventLoop();
    QCOMPARE(menu.screen.takeKeys(), QStringList("release 0"));
}

void TestWidgetList::rowKeepsWhatItUses()
{
    Menu menu(3, 3);
    menu.show();
    noteSignals(menu.list);
    menu.item(0)->m_noShortcut = false;
    QCOMPARE(menu.type(Qt::Key_6), 0);
    QCOMPARE(menu.item(0)->getDisplayValue(), QStringLiteral("value 1"));
    QCOMPARE(menu.type(Qt::Key_4), 0);
    QCOMPARE(RecordingPlatform::events(), QStringList({s_rowTrace, s_click, s_rowTrace, s_click}));
    menu.item(0)->setModifiable(false);
    menu.type(Qt::Key_6);
    QCOMPARE(menu.screen.takeKeys(), QStringList());
}

void TestWidgetList::rowHandsOnWhatItEnters()
{
    Menu menu(1, 0);
    menu.item(0)->setMoreDepth(true);
    menu.show();
    NOTE_SIGNAL(menu.item(0), &WidgetListItem::doEnter, "doEnter");
    menu.type(Qt::Key_6);
    QCOMPARE(RecordingPlatform::events(), QStringList({s_rowTrace, s_click, "doEnter"}));
    QCOMPARE(menu.screen.takeKeys(), QStringList("release 6"));
    RecordingPlatform::reset();
    menu.item(0)->m_enterOnOK = true;
    menu.type(Qt::Key_Menu);
    QCOMPARE(RecordingPlatform::events(), QStringList({s_rowTrace, s_click, "doEnter"}));
    QCOMPARE(menu.screen.takeKeys(), QStringList());
}

void TestWidgetList::keysAreSilentWithoutASoundManager()
{
    WidgetList list(3, nullptr, nullptr);
    addRows(list, 3);
    list.show();
    for (int key : {int(Qt::Key_2), int(Qt::Key_8), int(Qt::Key_Menu), int(Qt::Key_Escape)})
        releaseKey(&list, key);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>());
}

// --- Long presses

void TestWidgetList::longPressIsReportedAtTheEleventhRepeat_data()
{
    QTest::addColumn<bool>("functionKeys");
    QTest::addColumn<bool>("up");
    QTest::addColumn<bool>("toTheRow");
    QTest::addColumn<int>("focusPolicy");
    for (bool functionKeys : {false, true}) {
        for (bool up : {true, false}) {
            for (bool toTheRow : {true, false}) {
                for (int policy : {int(Qt::NoFocus), int(Qt::StrongFocus)}) {
                    const QString name = QString("%1, %2, to the %3, rows take %4 focus by policy")
                                             .arg(functionKeys ? "function keys" : "digits", up ? "up" : "down",
                                                  toTheRow ? "row" : "list", policy == Qt::NoFocus ? "no" : "the");
                    QTest::newRow(qPrintable(name)) << functionKeys << up << toTheRow << policy;
                }
            }
        }
    }
}

void TestWidgetList::longPressIsReportedAtTheEleventhRepeat()
{
    QFETCH(bool, functionKeys);
    QFETCH(bool, up);
    QFETCH(bool, toTheRow);
    QFETCH(int, focusPolicy);
    Menu menu(3);
    menu.show();
    menu.list->m_useFunctionKeys = functionKeys;
    for (int row = 0; row < 3; ++row) {
        menu.item(row)->m_useFunctionKeys = functionKeys;
        menu.item(row)->setFocusPolicy(Qt::FocusPolicy(focusPolicy));
    }
    noteSignals(menu.list);
    const int key = functionKeys ? (up ? Qt::Key_F1 : Qt::Key_F2) : (up ? Qt::Key_2 : Qt::Key_8);
    const QString name = up ? QStringLiteral("up") : QStringLiteral("down");
    QCOMPARE(focusedRow(*menu.list), 0);
    QWidget *receiver = toTheRow ? QApplication::focusWidget() : menu.list.data();

    pressKey(receiver, key);
    repeatKey(receiver, key, 10);
    QCOMPARE(RecordingPlatform::events(), QStringList());
    repeatKey(receiver, key);
    const QString pressed = QString("log:16:[keyPressEvent, %1] %2KeyLongPressed").arg(up ? 276 : 295).arg(name);
    QCOMPARE(RecordingPlatform::events(), QStringList({s_click, name + "KeyLongPressed", pressed}));
    repeatKey(receiver, key, 30);
    QCOMPARE(RecordingPlatform::events().size(), 3);
    QCOMPARE(menu.screen.takeKeys(), QStringList());

    RecordingPlatform::reset();
    releaseKey(receiver, key);
    const QString released = QString("log:16:[keyReleaseEvent, %1] %2KeyLongReleased").arg(up ? 318 : 349).arg(name);
    QStringList expected{name + "KeyReleased", released};
    if (toTheRow)
        expected.prepend(s_rowTrace);
    QCOMPARE(RecordingPlatform::events(), expected);
    QCOMPARE(focusedRow(*menu.list), 0);
    QCOMPARE(menu.screen.takeKeys(),
             QStringList("release " + QKeySequence(key).toString(QKeySequence::PortableText)));

    // The next short press moves again.
    pressKey(receiver, key);
    releaseKey(receiver, key);
    QCOMPARE(focusedRow(*menu.list), up ? 2 : 1);
}

void TestWidgetList::pressesThatMoveAreAccepted()
{
    // Also by somebody who sends them as ignored.
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    for (int key : {int(Qt::Key_2), int(Qt::Key_8)}) {
        for (bool repeated : {false, true}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeated);
            press.ignore();
            QCoreApplication::sendEvent(&list, &press);
            QVERIFY(press.isAccepted());
        }
    }
}

void TestWidgetList::longPressClicksWithoutASoundManager()
{
    WidgetList list(3, nullptr, nullptr);
    addRows(list, 3);
    repeatKey(&list, Qt::Key_2, 11);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>({901}));
    repeatKey(&list, Qt::Key_8, 11);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>({901, 901}));
    releaseKey(&list, Qt::Key_2);
    releaseKey(&list, Qt::Key_8);
    QCOMPARE(RecordingPlatform::sounds(), QList<int>({901, 901}));
}

void TestWidgetList::otherKeysThatAreHeldAreNotReported()
{
    WidgetList list(3, nullptr, nullptr);
    addRows(list, 3);
    noteSignals(&list);
    RecordingPlatform::reset();
    for (int key : {int(Qt::Key_5), int(Qt::Key_6), int(Qt::Key_F1), int(Qt::Key_Menu), int(Qt::Key_Escape)})
        repeatKey(&list, key, 20);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetList::repeatsOfSeveralPressesAddUp()
{
    Menu menu(3);
    menu.show();
    QSignalSpy pressed(menu.list.data(), &WidgetList::upKeyLongPressed);
    pressKey(menu.list, Qt::Key_2);
    repeatKey(menu.list, Qt::Key_2, 6);
    releaseKey(menu.list, Qt::Key_2);
    QCOMPARE(focusedRow(*menu.list), 2);
    pressKey(menu.list, Qt::Key_2);
    repeatKey(menu.list, Qt::Key_2, 4);
    QCOMPARE(pressed.count(), 0);
    repeatKey(menu.list, Qt::Key_2);
    QCOMPARE(pressed.count(), 1);
}

void TestWidgetList::countStartsAnewAfterALongPress()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    list.show();
    QSignalSpy pressed(&list, &WidgetList::downKeyLongPressed);
    for (int i = 1; i <= 3; ++i) {
        pressKey(&list, Qt::Key_8);
        repeatKey(&list, Qt::Key_8, 10);
        QCOMPARE(pressed.count(), i - 1);
        repeatKey(&list, Qt::Key_8, 5);
        QCOMPARE(pressed.count(), i);
        releaseKey(&list, Qt::Key_8);
    }
}

void TestWidgetList::countStartsAnewWithAShow()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    list.show();
    QSignalSpy up(&list, &WidgetList::upKeyLongPressed);
    QSignalSpy down(&list, &WidgetList::downKeyLongPressed);
    repeatKey(&list, Qt::Key_2, 10);
    repeatKey(&list, Qt::Key_8, 10);
    list.hide();
    list.show();
    repeatKey(&list, Qt::Key_2, 10);
    repeatKey(&list, Qt::Key_8, 10);
    QCOMPARE(up.count() + down.count(), 0);
    repeatKey(&list, Qt::Key_2);
    repeatKey(&list, Qt::Key_8);
    QCOMPARE(up.count(), 1);
    QCOMPARE(down.count(), 1);
}

void TestWidgetList::upAndDownCountApart()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    list.show();
    noteSignals(&list);
    RecordingPlatform::reset();
    for (int i = 0; i < 10; ++i) {
        repeatKey(&list, Qt::Key_2);
        repeatKey(&list, Qt::Key_8);
    }
    QCOMPARE(RecordingPlatform::events(), QStringList());
    repeatKey(&list, Qt::Key_2);
    QCOMPARE(RecordingPlatform::events().size(), 3);
    // Up is long, down is not.
    RecordingPlatform::reset();
    releaseKey(&list, Qt::Key_8);
    QCOMPARE(RecordingPlatform::events(), QStringList(s_click));
}

void TestWidgetList::keysThatAreHeldBeforeTheFirstShowCount()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    QSignalSpy up(&list, &WidgetList::upKeyLongPressed);
    QSignalSpy down(&list, &WidgetList::downKeyLongPressed);
    repeatKey(&list, Qt::Key_2, 10);
    repeatKey(&list, Qt::Key_8, 10);
    QCOMPARE(up.count() + down.count(), 0);
    repeatKey(&list, Qt::Key_2);
    repeatKey(&list, Qt::Key_8);
    QCOMPARE(up.count(), 1);
    QCOMPARE(down.count(), 1);
}

void TestWidgetList::repeatedReleasesActEachTime()
{
    Menu menu(4);
    menu.show();
    releaseKey(menu.list, Qt::Key_8);
    releaseKey(menu.list, Qt::Key_8);
    releaseKey(menu.list, Qt::Key_8);
    QCOMPARE(focusedRow(*menu.list), 3);
    repeatKey(menu.list, Qt::Key_8, 11);
    QSignalSpy released(menu.list.data(), &WidgetList::downKeyReleased);
    releaseKey(menu.list, Qt::Key_8);
    releaseKey(menu.list, Qt::Key_8);
    QCOMPARE(released.count(), 2);
    QCOMPARE(focusedRow(*menu.list), 3);
}

void TestWidgetList::flagIsClearedByTheNextPressOrShow_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("otherKey");
    QTest::addColumn<int>("row");
    QTest::newRow("up") << int(Qt::Key_2) << int(Qt::Key_8) << 3;
    QTest::newRow("down") << int(Qt::Key_8) << int(Qt::Key_2) << 1;
}

void TestWidgetList::flagIsClearedByTheNextPressOrShow()
{
    QFETCH(int, key);
    QFETCH(int, otherKey);
    QFETCH(int, row);
    Menu menu(4);
    menu.show();
    QSignalSpy released(menu.list.data(), key == Qt::Key_2 ? &WidgetList::upKeyReleased : &WidgetList::downKeyReleased);
    repeatKey(menu.list, key, 11);
    pressKey(menu.list, otherKey);
    releaseKey(menu.list, key);
    QCOMPARE(released.count(), 1);
    pressKey(menu.list, key);
    releaseKey(menu.list, key);
    QCOMPARE(released.count(), 1);
    QCOMPARE(focusedRow(*menu.list), row);
    repeatKey(menu.list, key, 11);
    menu.list->hide();
    menu.list->show();
    runEventLoop();
    releaseKey(menu.list, key);
    QCOMPARE(released.count(), 1);
    QCOMPARE(focusedRow(*menu.list), row);
}

void TestWidgetList::emptyListReportsLongPresses()
{
    Menu menu(0);
    menu.show();
    noteSignals(menu.list);
    pressKey(menu.list, Qt::Key_2);
    repeatKey(menu.list, Qt::Key_2, 11);
    QCOMPARE(RecordingPlatform::events(),
             QStringList({s_click, "upKeyLongPressed", "log:16:[keyPressEvent, 276] upKeyLongPressed"}));
    RecordingPlatform::reset();
    // Without items the release is handed on before anything else.
    releaseKey(menu.list, Qt::Key_2);
    QCOMPARE(RecordingPlatform::events(), QStringList());
    QCOMPARE(menu.screen.takeKeys(), QStringList("release 2"));
}

void TestWidgetList::pressWithoutRepeatIsNeverLong()
{
    WidgetList list(3, nullptr, sound());
    addRows(list, 3);
    noteSignals(&list);
    for (int i = 0; i < 30; ++i)
        QVERIFY(pressKey(&list, Qt::Key_2));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

// --- Shortcuts

void TestWidgetList::shortcutEntersItsRowAndClicks()
{
    Menu menu(0);
    menu.list->setRowCount(3);
    addRows(*menu.list, 2);
    WidgetListItem *item = newRow(QStringLiteral("deep"), 0);
    item->setMoreDepth(true);
    item->m_noShortcut = false;
    menu.list->addListItem(item, Qt::Key_3);
    menu.show();
    noteSignals(menu.list);
    NOTE_SIGNAL(item, &WidgetListItem::doEnter, "doEnter");
    const QStringList expected{"log:16:[keyReleaseEvent, 398] Shortcut pressed", "log:16:[selectByShortcut, 259]",
                               "doEnter", s_click};
    releaseKey(menu.list, Qt::Key_3);
    QCOMPARE(RecordingPlatform::events(), expected);
    RecordingPlatform::reset();
    releaseKey(QApplication::focusWidget(), Qt::Key_3);
    QCOMPARE(RecordingPlatform::events(), QStringList(s_rowTrace) + expected);
    QCOMPARE(focusedRow(*menu.list), 0);
    QCOMPARE(selectedRows(*menu.list), QList<int>({0}));
    QCOMPARE(menu.screen.takeKeys(), QStringList());
}

void TestWidgetList::everyDigitMayBeAShortcut()
{
    // But for those that move and choose.
    const QList<int> keys{Qt::Key_0, Qt::Key_1, Qt::Key_3, Qt::Key_4, Qt::Key_6, Qt::Key_7, Qt::Key_9};
    Menu menu(0);
    menu.list->setRowCount(int(keys.size()));
    QStringList expected;
    for (int key : keys) {
        WidgetListItem *item = newRow(QStringLiteral("deep"), 0);
        item->setMoreDepth(true);
        item->m_noShortcut = false;
        menu.list->addListItem(item, key);
        const QString entered = QString("doEnter of %1").arg(key - Qt::Key_0);
        connect(item, &WidgetListItem::doEnter, item, [entered] { RecordingPlatform::addEvent(entered); });
        expected += QStringList{"log:16:[keyReleaseEvent, 398] Shortcut pressed", "log:16:[selectByShortcut, 259]",
                                entered, s_click};
    }
    menu.show();
    for (int key : keys)
        releaseKey(menu.list, key);
    QCOMPARE(RecordingPlatform::events(), expected);
}

void TestWidgetList::shortcutOfARowThatDoesNotLeadDeeper()
{
    Menu menu(0);
    menu.list->setRowCount(1);
    WidgetListItem *item = newRow(QStringLiteral("flat"));
    item->m_noShortcut = false;
    menu.list->addListItem(item, Qt::Key_5);
    menu.show();
    releaseKey(menu.list, Qt::Key_5);
    QCOMPARE(RecordingPlatform::events(),
             QStringList({"log:16:[keyReleaseEvent, 398] Shortcut pressed", "log:16:[selectByShortcut, 259]",
                          "log:2:[selectByShortcut, 264] Not selectable by shortcut", s_click}));
    QCOMPARE(menu.screen.takeKeys(), QStringList());
}

void TestWidgetList::shortcutIsHandedOnWithoutARow_data()
{
    QTest::addColumn<int>("shortcut");
    QTest::addColumn<bool>("noShortcut");
    QTest::newRow("no entry") << -1 << false;
    QTest::newRow("another key") << int(Qt::Key_1) << false;
    QTest::newRow("the item takes none, as at first") << int(Qt::Key_3) << true;
}

void TestWidgetList::shortcutIsHandedOnWithoutARow()
{
    QFETCH(int, shortcut);
    QFETCH(bool, noShortcut);
    Menu menu(0);
    menu.list->setRowCount(1);
    WidgetListItem *item = newRow(QStringLiteral("deep"), 0);
    item->setMoreDepth(true);
    if (!noShortcut)
        item->m_noShortcut = false;
    menu.list->addListItem(item, shortcut);
    menu.show();
    releaseKey(menu.list, Qt::Key_3);
    QCOMPARE(RecordingPlatform::events(), QStringList());
    QCOMPARE(menu.screen.takeKeys(), QStringList("release 3"));
}

static WidgetListItem *newDeepRow(const QString &title)
{
    WidgetListItem *item = newRow(title, 0);
    item->setMoreDepth(true);
    item->m_noShortcut = false;
    return item;
}

void TestWidgetList::upAndDownComeBeforeShortcuts()
{
    Menu menu(0);
    menu.list->setRowCount(2);
    menu.list->addListItem(newDeepRow(QStringLiteral("A")), Qt::Key_2);
    menu.list->addListItem(newDeepRow(QStringLiteral("B")), Qt::Key_8);
    menu.show();
    QSignalSpy first(menu.item(0), &WidgetListItem::doEnter);
    QSignalSpy second(menu.item(1), &WidgetListItem::doEnter);
    QCOMPARE(menu.type(Qt::Key_8), 1);
    QCOMPARE(menu.type(Qt::Key_2), 0);
    QCOMPARE(first.count() + second.count(), 0);
}

void TestWidgetList::shortcutsOfUpAndDownInFunctionKeyMode()
{
    Menu menu(0);
    menu.list->m_useFunctionKeys = true;
    menu.list->setRowCount(2);
    menu.list->addListItem(newDeepRow(QStringLiteral("A")), Qt::Key_2);
    menu.list->addListItem(newDeepRow(QStringLiteral("B")), Qt::Key_8);
    menu.item(0)->m_useFunctionKeys = true;
    menu.show();
    QSignalSpy first(menu.item(0), &WidgetListItem::doEnter);
    QSignalSpy second(menu.item(1), &WidgetListItem::doEnter);
    menu.type(Qt::Key_8);
    QCOMPARE(second.count(), 1);
    menu.type(Qt::Key_2);
    QCOMPARE(first.count(), 1);
    QCOMPARE(focusedRow(*menu.list), 0);
}

void TestWidgetList::laterShortcutReplacesTheEarlier()
{
    WidgetList list(2, nullptr, sound());
    WidgetListItem *first = newDeepRow(QStringLiteral("A"));
    WidgetListItem *second = newDeepRow(QStringLiteral("B"));
    list.addListItem(first, Qt::Key_1);
    list.addListItem(second, Qt::Key_1);
    QSignalSpy firstEntered(first, &WidgetListItem::doEnter);
    QSignalSpy secondEntered(second, &WidgetListItem::doEnter);
    releaseKey(&list, Qt::Key_1);
    QCOMPARE(firstEntered.count(), 0);
    QCOMPARE(secondEntered.count(), 1);
}

void TestWidgetList::oneItemMayHaveSeveralShortcuts()
{
    WidgetList list(1, nullptr, sound());
    WidgetListItem *item = newDeepRow(QStringLiteral("A"));
    list.addListItem(item, Qt::Key_1);
    list.setRowCount(1);
    list.addListItem(item, Qt::Key_0);
    QSignalSpy entered(item, &WidgetListItem::doEnter);
    releaseKey(&list, Qt::Key_1);
    releaseKey(&list, Qt::Key_0);
    QCOMPARE(entered.count(), 2);
}

void TestWidgetList::shortcutsOfRemovedRowsAreDeadAtOnce_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("all items removed") << "removeAllItems";
    QTest::newRow("fewer rows") << "setRowCount";
    QTest::newRow("replaced by another item") << "replace";
    QTest::newRow("deleted by the application") << "delete";
}

void TestWidgetList::shortcutsOfRemovedRowsAreDeadAtOnce()
{
    QFETCH(QString, how);
    Menu menu(0);
    menu.list->setRowCount(2);
    addRows(*menu.list, 1);
    QPointer<WidgetListItem> item = newDeepRow(QStringLiteral("A"));
    menu.list->addListItem(item, Qt::Key_3);
    menu.show();
    QSignalSpy entered(item.data(), &WidgetListItem::doEnter);
    if (how == "removeAllItems") {
        menu.list->removeAllItems();
    } else if (how == "setRowCount") {
        menu.list->setRowCount(1);
    } else if (how == "replace") {
        menu.list->setRowCount(2);
        addRows(*menu.list, 2);
    } else {
        delete item.data();
    }
    RecordingPlatform::reset();
    for (int i = 0; i < 2; ++i) {
        releaseKey(menu.list, Qt::Key_3);
        QCOMPARE(entered.count(), 0);
        QCOMPARE(RecordingPlatform::events(), QStringList());
        QCOMPARE(menu.screen.takeKeys(), QStringList("release 3"));
        runEventLoop();
    }
    QVERIFY(!item);
}

void TestWidgetList::shortcutsOfKeptRowsLive()
{
    WidgetList list(3, nullptr, sound());
    WidgetListItem *first = newDeepRow(QStringLiteral("A"));
    WidgetListItem *second = newDeepRow(QStringLiteral("B"));
    list.addListItem(first, Qt::Key_1);
    list.addListItem(second, Qt::Key_3);
    QSignalSpy firstEntered(first, &WidgetListItem::doEnter);
    QSignalSpy secondEntered(second, &WidgetListItem::doEnter);
    // Items in rows that are kept keep their keys, also before they are added again.
    list.setRowCount(2);
    releaseKey(&list, Qt::Key_1);
    releaseKey(&list, Qt::Key_3);
    QCOMPARE(firstEntered.count(), 1);
    QCOMPARE(secondEntered.count(), 1);
    list.addListItem(first);
    releaseKey(&list, Qt::Key_1);
    QCOMPARE(firstEntered.count(), 2);
    // Also when another row goes.
    list.setRowCount(1);
    releaseKey(&list, Qt::Key_1);
    releaseKey(&list, Qt::Key_3);
    QCOMPARE(firstEntered.count(), 3);
    QCOMPARE(secondEntered.count(), 1);
}

void TestWidgetList::shortcutsOfOtherRowsLiveWhenARowIsReplaced()
{
    WidgetList list(2, nullptr, sound());
    QPointer<WidgetListItem> first = newDeepRow(QStringLiteral("A"));
    QPointer<WidgetListItem> second = newDeepRow(QStringLiteral("B"));
    list.addListItem(first, Qt::Key_1);
    list.addListItem(second, Qt::Key_3);
    QSignalSpy firstEntered(first, &WidgetListItem::doEnter);
    QSignalSpy secondEntered(second, &WidgetListItem::doEnter);
    list.setRowCount(2);
    list.addListItem(newDeepRow(QStringLiteral("C")));
    releaseKey(&list, Qt::Key_1);
    releaseKey(&list, Qt::Key_3);
    QCOMPARE(firstEntered.count(), 0);
    QCOMPARE(secondEntered.count(), 1);
}

void TestWidgetList::shortcutOfAHiddenRowStillActs()
{
    WidgetList list(2, nullptr, sound());
    addRows(list, 1);
    WidgetListItem *item = newDeepRow(QStringLiteral("A"));
    list.addListItem(item, Qt::Key_3);
    list.hideItem(1);
    QSignalSpy entered(item, &WidgetListItem::doEnter);
    releaseKey(&list, Qt::Key_3);
    QCOMPARE(entered.count(), 1);
}

void TestWidgetList::keysThatAreNoDigitsAreNoShortcuts_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("asterisk") << int(Qt::Key_Asterisk);
    QTest::newRow("before 0") << int(Qt::Key_Slash);
    QTest::newRow("after 9") << int(Qt::Key_Colon);
}

void TestWidgetList::keysThatAreNoDigitsAreNoShortcuts()
{
    QFETCH(int, key);
    Menu menu(0);
    menu.list->setRowCount(1);
    WidgetListItem *item = newDeepRow(QStringLiteral("A"));
    menu.list->addListItem(item, key);
    menu.show();
    QSignalSpy entered(item, &WidgetListItem::doEnter);
    releaseKey(menu.list, key);
    QCOMPARE(entered.count(), 0);
    QCOMPARE(menu.screen.takeKeys(), QStringList("release " + QKeySequence(key).toString()));
}

// --- No-focus style

void TestWidgetList::noFocusStyleDressesTheTable_data()
{
    QTest::addColumn<int>("rowsPerPage");
    QTest::newRow("3") << 3;
    QTest::newRow("1") << 1;
    QTest::newRow("0 too") << 0;
    QTest::newRow("-1 too") << -1;
}

void TestWidgetList::noFocusStyleDressesTheTable()
{
    QFETCH(int, rowsPerPage);
    WidgetList list(3, nullptr, sound());
    list.setNoFocusStyle(rowsPerPage);
    QCOMPARE(tableOf(list)->styleSheet(), s_noFocusTableSheet);
    QCOMPARE(tableOf(list)->selectionMode(), QAbstractItemView::NoSelection);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetList::noFocusStyleIsNotSetAgain()
{
    Menu menu(3);
    menu.list->setNoFocusStyle(3);
    menu.show();
    EventRecorder recorder(menu.list);
    menu.list->setNoFocusStyle(2);
    QCOMPARE(recorder.count(QEvent::StyleChange), 0);
}

void TestWidgetList::noFocusStyleStopsTheMarquee_data()
{
    QTest::addColumn<int>("rowsPerPage");
    QTest::addColumn<bool>("later");
    QTest::newRow("3") << 3 << false;
    QTest::newRow("0 stops those that are there, not later ones") << 0 << true;
}

void TestWidgetList::noFocusStyleStopsTheMarquee()
{
    QFETCH(int, rowsPerPage);
    WidgetList list(3, nullptr, sound());
    addRows(list, 2);
    list.setNoFocusStyle(rowsPerPage);
    QCOMPARE(itemOf(list, 0)->m_marquee, false);
    QCOMPARE(itemOf(list, 1)->m_marquee, false);
    addRows(list, 1);
    QTEST(itemOf(list, 2)->m_marquee, "later");
    // There is no way back.
    list.setNoFocusStyle(0);
    list.setRowCount(3);
    WidgetListItem *item = newRow(QStringLiteral("A"));
    list.addListItem(item);
    QTEST(item->m_marquee, "later");
}

void TestWidgetList::noFocusStyleStopsATitleThatScrolls()
{
    Menu menu(1);
    WidgetListItem *item = menu.item(0);
    const RowParts parts(*item);
    item->setTitle(textWiderThan(300, parts.title->font()), true);
    menu.show();
    QCOMPARE(timersOf(parts.title).size(), 1);
    const QString cut = fitted(parts.title->m_marqueeText.chopped(3), parts.title->font(), parts.title->width());
    tick(parts);
    QVERIFY(parts.title->text() != cut);
    menu.list->setNoFocusStyle(3);
    EVENTUALLY_COMPARE(timersOf(parts.title).size(), 0);
    QCOMPARE(parts.title->text(), cut);
}

void TestWidgetList::turnsPages_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("rowsPerPage");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QList<int>>("moved");
    QTest::newRow("down to the end, then up to the beginning")
        << 10 << 3 << "888222" << QList<int>({5, 8, 9, 4, 1, 0});
    QTest::newRow("down again at the end") << 10 << 3 << "88888" << QList<int>({5, 8, 9, 9, 9});
    QTest::newRow("up at the beginning") << 10 << 3 << "228" << QList<int>({0, 0, 5});
    QTest::newRow("turning round in the middle") << 20 << 3 << "88228" << QList<int>({5, 8, 3, 0, 5});
    QTest::newRow("turning round twice") << 30 << 4 << "8882828" << QList<int>({7, 11, 15, 8, 15, 8, 15});
    QTest::newRow("pages of one row") << 4 << 1 << "8888222" << QList<int>({1, 2, 3, 3, 2, 1, 0});
    QTest::newRow("pages of less than no row") << 4 << -2 << "88822" << QList<int>({1, 2, 3, 2, 1});
    QTest::newRow("a page longer than the list") << 4 << 10 << "8282" << QList<int>({3, 0, 3, 0});
    QTest::newRow("exactly to the last") << 6 << 3 << "882" << QList<int>({5, 5, 0});
    QTest::newRow("one row") << 1 << 3 << "8228" << QList<int>({0, 0, 0, 0});
}

void TestWidgetList::turnsPages()
{
    QFETCH(int, rows);
    QFETCH(int, rowsPerPage);
    QFETCH(QString, keys);
    Menu menu(rows);
    menu.list->setNoFocusStyle(rowsPerPage);
    menu.show();
    QList<int> moved;
    for (const QChar key : keys)
        moved << menu.type(key.unicode());
    QTEST(moved, "moved");
    QCOMPARE(RecordingPlatform::sounds().size(), keys.size());
}

void TestWidgetList::pageThatBeginsWithTheFirstRowIsOneOfSeveral()
{
    Menu menu(12);
    menu.list->setNoFocusStyle(3);
    menu.show();
    menu.list->setFocusAtItem(5);
    QCOMPARE(menu.type(Qt::Key_2), 0);
    menu.list->setFocusAtItem(8);
    QCOMPARE(menu.type(Qt::Key_2), 5);
}

void TestWidgetList::firstStepUpIsNotOneOfSeveral()
{
    Menu menu(12);
    menu.list->setNoFocusStyle(3);
    menu.show();
    menu.list->setFocusAtItem(8);
    QCOMPARE(menu.type(Qt::Key_2), 3);
}

void TestWidgetList::pagesAreScrolledTo()
{
    Menu menu(10);
    menu.list->setNoFocusStyle(3);
    menu.show();
    const auto firstAndLast = [&menu] {
        const int first = menu.table()->rowAt(0);
        int last = menu.table()->rowAt(menu.table()->viewport()->height() - 1);
        return qMakePair(first, last);
    };
    QCOMPARE(firstAndLast().first, 0);
    const QList<int> downs{5, 8, 9};
    for (int row : downs) {
        QCOMPARE(menu.type(Qt::Key_8), row);
        QCOMPARE(menu.table()->currentRow(), row);
        QVERIFY(isInView(*menu.list, row));
        QCOMPARE(firstAndLast().second, row);
    }
    QCOMPARE(menu.type(Qt::Key_2), 4);
    QCOMPARE(firstAndLast().first, 4);
}

void TestWidgetList::pagingFlagsSurviveTheShow()
{
    Menu menu(20);
    menu.list->setNoFocusStyle(3);
    menu.show();
    QCOMPARE(menu.type(Qt::Key_8), 5);
    menu.list->hide();
    menu.list->show();
    runEventLoop();
    // Row 0 again, but the step down is a continued one.
    QCOMPARE(menu.type(Qt::Key_8), 3);
    menu.list->setFocusAtItem(10);
    QCOMPARE(menu.type(Qt::Key_8), 13);
    menu.list->setNoFocusStyle(4);
    QCOMPARE(menu.type(Qt::Key_8), 17);
}

void TestWidgetList::pagesDoNotLookAtHiddenRows()
{
    Menu menu(10);
    menu.list->setNoFocusStyle(3);
    menu.list->hideItem(1);
    menu.show();
    QCOMPARE(menu.list->findNextRow(0), 5);
    QCOMPARE(menu.list->findPrevRow(6), 1);
}

void TestWidgetList::pagingWithStopAtEnds()
{
    Menu menu(10);
    menu.list->setNoFocusStyle(3);
    menu.list->m_stopAtEnds = true;
    menu.show();
    noteSignals(menu.list);
    const auto key = [&menu](int code) {
        RecordingPlatform::reset();
        releaseKey(menu.list, code);
        return RecordingPlatform::events();
    };
    QCOMPARE(key(Qt::Key_2), QStringList({"reachedBegin", s_click}));
    QCOMPARE(key(Qt::Key_8), QStringList(s_click));
    QCOMPARE(key(Qt::Key_8), QStringList(s_click));
    QCOMPARE(key(Qt::Key_8), QStringList(s_click));
    QCOMPARE(focusedRow(*menu.list), 9);
    QCOMPARE(key(Qt::Key_8), QStringList({"reachedEnd", s_click}));
    QCOMPARE(focusedRow(*menu.list), 9);
    QCOMPARE(key(Qt::Key_2), QStringList(s_click));
    QCOMPARE(focusedRow(*menu.list), 4);
}

void TestWidgetList::pagesOfAbsurdSize_data()
{
    QTest::addColumn<int>("rowsPerPage");
    QTest::newRow("largest") << INT_MAX;
    QTest::newRow("half of it") << INT_MAX / 2 + 1;
}

void TestWidgetList::pagesOfAbsurdSize()
{
    QFETCH(int, rowsPerPage);
    Menu menu(5);
    menu.list->setNoFocusStyle(rowsPerPage);
    menu.show();
    QCOMPARE(menu.type(Qt::Key_8), 4);
    QCOMPARE(menu.type(Qt::Key_2), 0);
}

void TestWidgetList::noFocusStyleOfZeroMovesAsBefore()
{
    Menu menu(3);
    menu.list->setNoFocusStyle(0);
    menu.show();
    QCOMPARE(menu.type(Qt::Key_8), 1);
    QCOMPARE(menu.type(Qt::Key_2), 0);
    QCOMPARE(menu.type(Qt::Key_2), 2);
}

// --- Rows out of view

void TestWidgetList::rowsStandWhereAPlainTablePutsThem_data()
{
    QTest::addColumn<QList<int>>("heights");
    QTest::addColumn<bool>("rightToLeft");
    QTest::addColumn<int>("hidden");
    const QList<int> equal{46, 46, 46, 46, 46, 46, 46, 46, 46, 46, 46, 46};
    QTest::newRow("three rows") << QList<int>({46, 46, 46}) << false << -1;
    QTest::newRow("two rows") << QList<int>({46, 46}) << false << -1;
    QTest::newRow("twelve rows") << equal << false << -1;
    QTest::newRow("twelve rows, right to left") << equal << true << -1;
    QTest::newRow("three rows, right to left") << QList<int>({46, 46, 46}) << true << -1;
    QTest::newRow("twelve rows, one hidden") << equal << false << 4;
    QTest::newRow("heights that do not fit the view") << QList<int>({30, 50, 33, 70, 41, 55, 60, 35}) << false << -1;
    QTest::newRow("rows higher than the view") << QList<int>({200, 300, 150, 140}) << false << -1;
    QTest::newRow("rows of no height") << QList<int>({0, 0, 0, 0, 0, 0, 0, 0, 0, 0}) << false << -1;
}

void TestWidgetList::rowsStandWhereAPlainTablePutsThem()
{
    QFETCH(QList<int>, heights);
    QFETCH(bool, rightToLeft);
    QFETCH(int, hidden);
    QApplication::setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    Menu menu(0);
    menu.list->setRowCount(int(heights.size()));
    for (int height : heights)
        menu.list->addListItem(newRow(QStringLiteral("row"), 2, height));
    QWidget parent;
    parent.resize(220, 176);
    const PlainTable plain(&parent, heights);
    if (hidden >= 0) {
        menu.list->hideItem(hidden);
        plain.table->hideRow(hidden);
    }
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent, LongestWait));
    menu.show();

    QString step = QStringLiteral("at first");
    const auto compare = [&] {
        runEventLoop();
        QCOMPARE(menu.table()->viewport()->geometry(), plain.table->viewport()->geometry());
        QCOMPARE(menu.table()->verticalScrollBar()->value(), plain.table->verticalScrollBar()->value());
        QCOMPARE(menu.table()->horizontalScrollBar()->value(), plain.table->horizontalScrollBar()->value());
        for (int row = 0; row < heights.size(); ++row) {
            const QRect expected = plain.table->cellWidget(row, 0)->geometry();
            const QRect place = menu.table()->visualRect(menu.table()->model()->index(row, 0));
            const QRect plainPlace = plain.table->visualRect(plain.table->model()->index(row, 0));
            QVERIFY2(place == plainPlace, qPrintable(QString("row %1 stands at %2, not at %3, %4")
                                                         .arg(row).arg(place.y()).arg(plainPlace.y()).arg(step)));
            if (row == hidden) {
                QVERIFY(!menu.item(row)->isVisible());
            } else if (expected.intersects(plain.table->viewport()->rect())) {
                QVERIFY(menu.item(row)->isVisible());
                QCOMPARE(menu.item(row)->geometry(), expected);
            } else {
                QVERIFY(!menu.item(row)->isVisible()
                        || !menu.item(row)->geometry().intersects(menu.table()->viewport()->rect()));
            }
        }
    };
    compare();
    const int maximum = plain.table->verticalScrollBar()->maximum();
    QCOMPARE(menu.table()->verticalScrollBar()->maximum(), maximum);
    QCOMPARE(menu.table()->horizontalScrollBar()->maximum(), plain.table->horizontalScrollBar()->maximum());
    for (int value : {1, maximum, maximum / 2, 0, maximum, 0}) {
        step = QString("after scrolling to %1").arg(value);
        menu.table()->verticalScrollBar()->setValue(value);
        plain.table->verticalScrollBar()->setValue(value);
        compare();
        if (QTest::currentTestFailed())
            return;
    }
    for (int value : {plain.table->horizontalScrollBar()->maximum(), 0}) {
        menu.table()->horizontalScrollBar()->setValue(value);
        plain.table->horizontalScrollBar()->setValue(value);
        compare();
        if (QTest::currentTestFailed())
            return;
    }
    // And by keys, which scroll to the row.
    for (int i = 0; i < heights.size(); ++i) {
        step = QString("after %1 keys").arg(i + 1);
        menu.type(Qt::Key_8);
        plain.table->setCurrentCell(menu.table()->currentRow(), 0);
        compare();
        if (QTest::currentTestFailed())
            return;
    }
    // Other heights and a bigger table while shown.
    menu.list->setRowHeight(52);
    for (int row = 0; row < heights.size(); ++row)
        plain.table->setRowHeight(row, 52);
    compare();
    menu.table()->resize(220, 170);
    plain.table->resize(220, 170);
    compare();
}

void TestWidgetList::rowsOutOfViewAreNotInTheViewport()
{
    Menu menu(12);
    menu.show();
    for (int row = 0; row < 12; ++row) {
        menu.list->setFocusAtItem(row);
        for (int other = 0; other < 12; ++other)
            QCOMPARE(!menu.item(other)->visibleRegion().isEmpty(), isInView(*menu.list, other));
    }
}

static QList<QWidget *> withChildren(QWidget *widget)
{
    return QList<QWidget *>{widget} + widget->findChildren<QWidget *>();
}

void TestWidgetList::rowOutOfViewIsNotDressed()
{
    Menu menu(12);
    menu.show();
    const QList<QWidget *> widgets = menu.item(9)->findChildren<QWidget *>();
    for (QWidget *widget : widgets)
        QVERIFY(!widget->testAttribute(Qt::WA_WState_Polished));
    QVERIFY(!menu.item(9)->isVisible());
    menu.list->refreshItems();
    menu.list->backup();
    menu.list->isModified();
    menu.list->setFocusAtItem(2);
    menu.list->hideItem(9);
    menu.list->showItem(9);
    for (QWidget *widget : widgets)
        QVERIFY(!widget->testAttribute(Qt::WA_WState_Polished));
    menu.list->setFocusAtItem(9);
    QVERIFY(RowParts(*menu.item(9)).title->testAttribute(Qt::WA_WState_Polished));
    QVERIFY(menu.item(9)->isVisible());
}

void TestWidgetList::styleAroundARowOutOfViewDoesNotConcernItsParts()
{
    struct AskedStyle : QProxyStyle
    {
        QRect subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const override
        {
            asked.insert(widget);
            return QProxyStyle::subElementRect(element, option, widget);
        }
        mutable QSet<const QWidget *> asked;
    };
    const QString before = qApp->style()->objectName();
    AskedStyle *style = new AskedStyle;
    QApplication::setStyle(style);
    {
        Menu menu(12);
        menu.show();
        style->asked.clear();
        menu.list->setStyleSheet(QStringLiteral("color: red"));
        QVERIFY(style->asked.contains(RowParts(*menu.item(0)).title));
        const QList<QWidget *> widgets = menu.item(9)->findChildren<QWidget *>();
        for (const QWidget *widget : widgets)
            QVERIFY(!style->asked.contains(widget));
    }
    QApplication::setStyle(before);
}

void TestWidgetList::rowOutOfViewHasItsTextsAndPlaces()
{
    Menu menu(12);
    const QString value = textWiderThan(220, RowParts(*menu.item(9)).value->font());
    for (int row : {0, 9}) {
        WidgetListItem *item = menu.item(row);
        item->setTitle(QStringLiteral("Title"), false);
        item->replaceValue(0, value, false);
        item->setSerialNum(true, 7);
        item->m_noShortcut = false;
        item->setMoreDepth(true);
    }
    menu.show();
    const RowParts seen(*menu.item(0));
    const RowParts unseen(*menu.item(9));
    const QList<QWidget *> seenParts = menu.item(0)->findChildren<QWidget *>();
    const QList<QWidget *> unseenParts = menu.item(9)->findChildren<QWidget *>();
    for (int i = 0; i < seenParts.size(); ++i) {
        QCOMPARE(unseenParts.at(i)->isHidden(), seenParts.at(i)->isHidden());
        if (!seenParts.at(i)->isHidden())
            QCOMPARE(unseenParts.at(i)->geometry(), seenParts.at(i)->geometry());
        QCOMPARE(unseenParts.at(i)->font(), seenParts.at(i)->font());
    }
    QCOMPARE(unseen.title->text(), QStringLiteral("Title"));
    QCOMPARE(unseen.badge->text(), QStringLiteral("7"));
    QCOMPARE(unseen.value->text(), fitted(value, unseen.value->font(), unseen.value->width()));
    QCOMPARE(unseen.title->styleSheet(), s_unfocusedTitle);
    QCOMPARE(menu.item(9)->getDisplayValue(), menu.item(0)->getDisplayValue());
    menu.list->backup();
    QVERIFY(!menu.list->isModified());
    menu.item(9)->setDisplayValueIndex(1);
    QVERIFY(menu.list->isModified());
    menu.item(9)->setDisplayValueIndex(0);
    menu.list->setFocusAtItem(9);
    QVERIFY(!menu.list->isModified());
}

void TestWidgetList::rowOutOfViewIsLaidOutForItsRow()
{
    Menu menu(12);
    menu.list->setRowHeight(60);
    menu.show();
    const RowParts seen(*menu.item(0));
    const RowParts unseen(*menu.item(9));
    QCOMPARE(seen.prevArrow->geometry(), QRect(185, 25, 6, 10));
    QCOMPARE(unseen.prevArrow->geometry(), QRect(185, 25, 6, 10));
    menu.list->setFocusAtItem(9);
    QCOMPARE(unseen.prevArrow->geometry(), QRect(185, 25, 6, 10));
}

void TestWidgetList::rowOutOfViewHasTheHeightThatItsRowGetsInAHiddenList()
{
    Menu menu(12);
    menu.show();
    menu.list->setFocusAtItem(9);
    menu.list->setFocusAtItem(0);
    menu.list->hide();
    menu.list->setRowHeight(60);
    menu.list->show();
    for (int row : {0, 9, 11})
        QCOMPARE(menu.item(row)->size(), QSize(220, 60));
    QCOMPARE(RowParts(*menu.item(11)).prevArrow->geometry(), QRect(185, 25, 6, 10));
}

void TestWidgetList::rowOutOfViewForgetsAtTheShow()
{
    Menu menu(12);
    menu.item(0)->setDisplayValue(0, QStringLiteral("once"), true);
    menu.item(9)->setDisplayValue(0, QStringLiteral("once"), true);
    menu.show();
    for (int row : {0, 9}) {
        QCOMPARE(menu.item(row)->getDisplayValue(), QStringLiteral("once"));
        menu.item(row)->updateValue();
        QCOMPARE(menu.item(row)->getDisplayValue(), QString());
    }
}

void TestWidgetList::rowOutOfViewIsReportedAtTheShow()
{
    Menu menu(12);
    for (int row : {0, 9})
        menu.item(row)->addValue(new QLabel);
    RecordingPlatform::reset();
    menu.screen.show();
    const QString line = QStringLiteral("[refresh, 326] This is not supported!!!!");
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList({line, line}));
    menu.list->setFocusAtItem(9);
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList({line, line}));
}

void TestWidgetList::comingIntoViewIsNoRefresh()
{
    Menu menu(12);
    menu.show();
    menu.item(9)->setTitle(QStringLiteral("changed"), false);
    menu.item(9)->replaceValue(0, QStringLiteral("changed"), false);
    menu.list->setFocusAtItem(9);
    const RowParts parts(*menu.item(9));
    QCOMPARE(parts.title->text(), QStringLiteral("row 9"));
    QCOMPARE(parts.value->text(), QStringLiteral("value 0"));
    menu.list->refreshItems();
    QCOMPARE(parts.title->text(), QStringLiteral("changed"));
    QCOMPARE(parts.value->text(), QStringLiteral("changed"));
}

void TestWidgetList::addedRowOutOfViewIsRefreshedAtOnce()
{
    Menu menu(6);
    menu.list->setRowCount(7);
    addRows(*menu.list, 6);
    menu.show();
    WidgetListItem *item = newRow(QStringLiteral("late"));
    item->setDisplayValue(0, QStringLiteral("once"), true);
    menu.list->addListItem(item);
    QCOMPARE(RowParts(*item).title->text(), QStringLiteral("late"));
    QCOMPARE(item->getDisplayValue(), QStringLiteral("once"));
    menu.list->setFocusAtItem(6);
    QCOMPARE(item->getDisplayValue(), QStringLiteral("once"));
    item->updateValue();
    QCOMPARE(item->getDisplayValue(), QString());
}

void TestWidgetList::itemMovedIntoViewIsRefreshed()
{
    Menu menu(12);
    menu.show();
    QList<WidgetListItem *> items;
    for (int row = 0; row < 12; ++row)
        items.prepend(menu.item(row));
    menu.list->setRowCount(12);
    for (WidgetListItem *item : items) {
        item->setTitle(QStringLiteral("changed"), true);
        item->replaceValue(0, QStringLiteral("changed"), false);
        menu.list->addListItem(item);
    }
    runEventLoop();
    for (int row = 0; row < 12; ++row) {
        QCOMPARE(menu.item(row)->getDisplayValue(), QStringLiteral("changed"));
        QCOMPARE(RowParts(*menu.item(row)).title->text(), QStringLiteral("changed"));
    }
}

void TestWidgetList::itemMovedToAnotherListIsRefreshed()
{
    Menu menu(12);
    menu.show();
    QPointer<WidgetListItem> item = menu.item(9);
    menu.list->removeAllItems();
    QCoreApplication::removePostedEvents(item, QEvent::DeferredDelete);
    item->setParent(nullptr);
    item->replaceValue(0, QStringLiteral("changed"), false);
    Menu other(0);
    other.list->setRowCount(1);
    other.show();
    other.list->addListItem(item);
    QVERIFY(item->isVisible());
    QCOMPARE(item->getDisplayValue(), QStringLiteral("changed"));
}

void TestWidgetList::displayValueSetOutOfViewLastsThroughComingIntoView()
{
    Menu menu(12);
    menu.show();
    menu.item(9)->setDisplayValue(0, QStringLiteral("once"), true);
    menu.list->setFocusAtItem(9);
    QCOMPARE(menu.item(9)->getDisplayValue(), QStringLiteral("once"));
    menu.list->refreshItems();
    QCOMPARE(menu.item(9)->getDisplayValue(), QStringLiteral("once"));
    menu.list->refreshItems();
    QCOMPARE(menu.item(9)->getDisplayValue(), QString());
}

void TestWidgetList::secondShowRefreshesRowsOutOfView()
{
    Menu menu(12);
    menu.show();
    // One that was never in view, and one that was and is not now.
    menu.list->setFocusAtItem(5);
    menu.list->setFocusAtItem(0);
    menu.list->hide();
    for (int row : {0, 5, 9})
        menu.item(row)->setDisplayValue(0, QStringLiteral("once"), true);
    menu.list->show();
    runEventLoop();
    for (int row : {0, 5, 9}) {
        QCOMPARE(menu.item(row)->getDisplayValue(), QStringLiteral("once"));
        menu.item(row)->updateValue();
        QCOMPARE(menu.item(row)->getDisplayValue(), QString());
    }
}

void TestWidgetList::rowComesIntoViewWithTheFocus()
{
    Menu menu(12);
    menu.show();
    for (int row : {9, 11, 4, 0, 7}) {
        menu.list->setFocusAtItem(row);
        QVERIFY(menu.item(row)->isVisible());
        QCOMPARE(focusedRow(*menu.list), row);
        QVERIFY(menu.table()->viewport()->rect().contains(menu.item(row)->geometry().center()));
        QCOMPARE(RowParts(*menu.item(row)).title->styleSheet(), s_focusedText);
        QCOMPARE(RowParts(*menu.item(row)).title->text(), QString("row %1").arg(row));
    }
}

void TestWidgetList::scrollingThereAndBackKeepsTheTexts()
{
    Menu menu(12);
    for (int row = 0; row < 12; ++row)
        menu.item(row)->setDisplayValue(0, QString("once %1").arg(row), true);
    menu.show();
    QScrollBar *bar = menu.table()->verticalScrollBar();
    for (int value : {bar->maximum(), 0, 3, 0, bar->maximum(), 5, 0}) {
        bar->setValue(value);
        runEventLoop();
        for (int row = 0; row < 12; ++row)
            QCOMPARE(menu.item(row)->getDisplayValue(), QString("once %1").arg(row));
    }
}

void TestWidgetList::scrollingDressesNothing()
{
    Menu menu(12);
    menu.show();
    QScrollBar *bar = menu.table()->verticalScrollBar();
    for (int value = 0; value <= bar->maximum(); ++value)
        bar->setValue(value);
    runEventLoop();
    EventRecorder recorder(menu.list);
    for (int value = bar->maximum(); value >= 0; --value)
        bar->setValue(value);
    runEventLoop();
    QCOMPARE(recorder.count(QEvent::StyleChange), 0);
    QCOMPARE(recorder.count(QEvent::Polish), 0);
    QCOMPARE(recorder.count(QEvent::Show), 0);
    QCOMPARE(recorder.count(QEvent::Hide), 0);
}

// --- What is not done again

void TestWidgetList::downKeyDressesTheTwoRowsOnly()
{
    Menu menu(3);
    menu.show();
    // Once around, so that every row has been dressed.
    for (int i = 0; i < 3; ++i)
        menu.type(Qt::Key_8);
    passTime(20);
    EventRecorder recorder(menu.list);
    QCOMPARE(menu.type(Qt::Key_8), 1);
    passTime(20);
    const QList<QObject *> dressed = recorder.receivers(QEvent::StyleChange);
    QVERIFY(!dressed.isEmpty());
    for (QObject *object : dressed)
        QVERIFY(menu.item(0)->isAncestorOf(static_cast<QWidget *>(object))
                || menu.item(1)->isAncestorOf(static_cast<QWidget *>(object)));
    // Title and arrows of each: the value keeps its colour, the badge is not shown.
    QCOMPARE(recorder.count(QEvent::StyleChange), 6);
    QCOMPARE(recorder.count(QEvent::StyleChange, RowParts(*menu.item(0)).value), 0);
    QCOMPARE(recorder.count(QEvent::FontChange), 0);
    QCOMPARE(recorder.count(QEvent::Move), 0);
    QCOMPARE(recorder.count(QEvent::Resize), 0);
    const QList<QWidget *> untouched = withChildren(menu.item(2));
    for (QWidget *widget : untouched)
        QCOMPARE(recorder.count(QEvent::Paint, widget), 0);
}

void TestWidgetList::keyStepDressesNothing()
{
    Menu menu(3, 3);
    menu.show();
    menu.type(Qt::Key_6);
    passTime(20);
    EventRecorder recorder(menu.list);
    menu.type(Qt::Key_6);
    passTime(20);
    QCOMPARE(recorder.count(QEvent::StyleChange), 0);
    QCOMPARE(recorder.count(QEvent::FontChange), 0);
    QCOMPARE(recorder.count(QEvent::Move), 0);
    QCOMPARE(recorder.count(QEvent::Resize), 0);
    for (int row : {1, 2}) {
        const QList<QWidget *> untouched = withChildren(menu.item(row));
        for (QWidget *widget : untouched)
            QCOMPARE(recorder.count(QEvent::Paint, widget), 0);
    }
    QCOMPARE(recorder.count(QEvent::Paint, RowParts(*menu.item(0)).title), 0);
}

void TestWidgetList::refreshOfAnUnchangedListDressesNothing()
{
    Menu menu(12);
    QWidget *other = new QWidget(&menu.screen);
    menu.show();
    other->setFocus();
    passTime(20);
    EventRecorder recorder(menu.list);
    menu.list->refreshItems();
    passTime(20);
    for (QEvent::Type type : {QEvent::StyleChange, QEvent::FontChange, QEvent::Paint, QEvent::Move, QEvent::Resize,
                              QEvent::Show, QEvent::Hide, QEvent::Polish})
        QCOMPARE(recorder.receivers(type), QList<QObject *>());
}

void TestWidgetList::secondShowDressesNothing()
{
    Menu menu(12);
    QWidget *other = new QWidget(&menu.screen);
    menu.show();
    other->setFocus();
    menu.list->hide();
    runEventLoop();
    EventRecorder recorder(menu.list);
    menu.list->show();
    runEventLoop();
    QCOMPARE(recorder.count(QEvent::Polish), 0);
    QCOMPARE(recorder.count(QEvent::FontChange), 0);
    // Only what the focus changes in row 0.
    const QList<QObject *> dressed = recorder.receivers(QEvent::StyleChange);
    for (QObject *object : dressed)
        QVERIFY(menu.item(0)->isAncestorOf(static_cast<QWidget *>(object)));
    QCOMPARE(recorder.count(QEvent::StyleChange), 3);
}

// --- Slots that delete

namespace {

struct Deletion
{
    const char *name;
    std::function<void(Menu &, QObject *, const std::function<void()> &)> connectTo;
    std::function<void(Menu &, QWidget *)> cause;
};

template <typename Signal>
std::function<void(Menu &, QObject *, const std::function<void()> &)> onList(Signal signal)
{
    return [signal](Menu &menu, QObject *context, const std::function<void()> &slot) {
        QObject::connect(menu.list.data(), signal, context, slot);
    };
}

template <typename Signal>
std::function<void(Menu &, QObject *, const std::function<void()> &)> onRow(int row, Signal signal)
{
    return [row, signal](Menu &menu, QObject *context, const std::function<void()> &slot) {
        QObject::connect(menu.item(row), signal, context, slot);
    };
}

std::function<void(Menu &, QWidget *)> released(int key)
{
    return [key](Menu &, QWidget *receiver) { releaseKey(receiver, key); };
}

std::function<void(Menu &, QWidget *)> held(int key)
{
    return [key](Menu &, QWidget *receiver) { repeatKey(receiver, key, 11); };
}

const QList<Deletion> &deletions()
{
    static const QList<Deletion> all{
        {"doSave", onList(&WidgetList::doSave), released(Qt::Key_Menu)},
        {"finished", onList(&WidgetList::finished), released(Qt::Key_Escape)},
        {"reachedBegin", onList(&WidgetList::reachedBegin), released(Qt::Key_2)},
        {"reachedEnd", onList(&WidgetList::reachedEnd),
         [](Menu &menu, QWidget *receiver) {
             menu.list->setFocusAtItem(3);
             releaseKey(receiver == menu.list ? receiver : QApplication::focusWidget(), Qt::Key_8);
         }},
        {"upKeyLongPressed", onList(&WidgetList::upKeyLongPressed), held(Qt::Key_2)},
        {"downKeyLongPressed", onList(&WidgetList::downKeyLongPressed), held(Qt::Key_8)},
        {"upKeyReleased", onList(&WidgetList::upKeyReleased),
         [](Menu &, QWidget *receiver) {
             repeatKey(receiver, Qt::Key_2, 11);
             releaseKey(receiver, Qt::Key_2);
         }},
        {"downKeyReleased", onList(&WidgetList::downKeyReleased),
         [](Menu &, QWidget *receiver) {
             repeatKey(receiver, Qt::Key_8, 11);
             releaseKey(receiver, Qt::Key_8);
         }},
        {"doEnter by shortcut", onRow(1, &WidgetListItem::doEnter), released(Qt::Key_3)},
        {"doEnter by right", onRow(2, &WidgetListItem::doEnter),
         [](Menu &menu, QWidget *) {
             menu.list->setFocusAtItem(2);
             releaseKey(QApplication::focusWidget(), Qt::Key_6);
         }},
        {"doEnter by OK", onRow(2, &WidgetListItem::doEnter),
         [](Menu &menu, QWidget *) {
             menu.list->setFocusAtItem(2);
             releaseKey(QApplication::focusWidget(), Qt::Key_Menu);
         }},
        {"doChange by right", onRow(0, &WidgetListItem::doChange),
         [](Menu &menu, QWidget *) { releaseKey(menu.item(0), Qt::Key_6); }},
        {"doChange by left", onRow(0, &WidgetListItem::doChange),
         [](Menu &menu, QWidget *) { releaseKey(menu.item(0), Qt::Key_4); }},
        {"finished of a row", onRow(0, &WidgetListItem::finished),
         [](Menu &menu, QWidget *) { QMetaObject::invokeMethod(menu.item(0), "finished"); }},
    };
    return all;
}

/// Four rows: text values; a shortcut; one that leads deeper and enters on OK; text values. Stops at its ends.
void prepare(Menu &menu)
{
    menu.list->m_stopAtEnds = true;
    menu.list->setRowCount(4);
    menu.list->addListItem(newRow(QStringLiteral("values")));
    menu.list->addListItem(newDeepRow(QStringLiteral("shortcut")), Qt::Key_3);
    WidgetListItem *deep = newDeepRow(QStringLiteral("deep"));
    deep->m_enterOnOK = true;
    menu.list->addListItem(deep);
    menu.list->addListItem(newRow(QStringLiteral("last")));
    menu.show();
}

void addDeletions()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("toTheRow");
    for (int i = 0; i < deletions().size(); ++i) {
        const QString name = QLatin1String(deletions().at(i).name);
        QTest::newRow(qPrintable(name + ", key to the list")) << i << false;
        QTest::newRow(qPrintable(name + ", key to the row")) << i << true;
    }
}

}

void TestWidgetList::aSlotMayDeleteTheList_data()
{
    addDeletions();
}

void TestWidgetList::aSlotMayDeleteTheList()
{
    QFETCH(int, number);
    QFETCH(bool, toTheRow);
    Menu menu(0);
    prepare(menu);
    const Deletion &deletion = deletions().at(number);
    int soundsBefore = 0;
    deletion.connectTo(menu, this, [&menu, &soundsBefore] {
        soundsBefore = int(RecordingPlatform::sounds().size());
        delete menu.list.data();
    });
    deletion.cause(menu, toTheRow ? QApplication::focusWidget() : menu.list.data());
    QVERIFY(!menu.list);
    QCOMPARE(int(RecordingPlatform::sounds().size()), soundsBefore);
    runEventLoop();
    disconnect(this);
}

void TestWidgetList::aSlotMayDeleteARow_data()
{
    addDeletions();
}

void TestWidgetList::aSlotMayDeleteARow()
{
    QFETCH(int, number);
    QFETCH(bool, toTheRow);
    Menu menu(0);
    prepare(menu);
    const Deletion &deletion = deletions().at(number);
    bool called = false;
    deletion.connectTo(menu, this, [&menu, &called] {
        called = true;
        for (int row = 0; row < 4; ++row)
            delete menu.item(row);
    });
    deletion.cause(menu, toTheRow ? QApplication::focusWidget() : menu.list.data());
    QVERIFY(called);
    for (int row = 0; row < 4; ++row)
        QVERIFY(!menu.item(row));
    runEventLoop();
    for (int key : {int(Qt::Key_2), int(Qt::Key_8), int(Qt::Key_3), int(Qt::Key_Menu)})
        releaseKey(menu.list, key);
    menu.list->refreshItems();
    QVERIFY(!menu.list->isModified());
}

void TestWidgetList::aSlotMayRemoveAllItems_data()
{
    addDeletions();
}

void TestWidgetList::aSlotMayRemoveAllItems()
{
    QFETCH(int, number);
    QFETCH(bool, toTheRow);
    Menu menu(0);
    prepare(menu);
    const Deletion &deletion = deletions().at(number);
    deletion.connectTo(menu, this, [&menu] {
        menu.list->removeAllItems();
        addRows(*menu.list, 2);
    });
    deletion.cause(menu, toTheRow ? QApplication::focusWidget() : menu.list.data());
    runEventLoop();
    QCOMPARE(RowParts(*menu.item(0)).title->text(), QStringLiteral("row 0"));
    QVERIFY(!menu.item(2));
    menu.list->setFocusAtItem(1);
    QCOMPARE(focusedRow(*menu.list), 1);
}

void TestWidgetList::deletedItemLeavesAnEmptyRow()
{
    Menu menu(3);
    menu.show();
    delete menu.item(1);
    runEventLoop();
    releaseKey(menu.list, Qt::Key_8);
    QCOMPARE(selectedRows(*menu.list), QList<int>({1}));
    releaseKey(menu.list, Qt::Key_8);
    QCOMPARE(focusedRow(*menu.list), 2);
    menu.list->refreshItems();
    menu.list->backup();
    QVERIFY(!menu.list->isModified());
    menu.list->setNoFocusStyle(3);
    menu.list->hideItem(1);
    menu.list->showItem(1);
    menu.list->removeAllItems();
}

// --- Extremes

void TestWidgetList::tenThousandRows()
{
    const qint64 start = processorTime();
    Menu menu(10000);
    menu.show();
    QCOMPARE(menu.type(Qt::Key_8), 1);
    menu.list->setFocusAtItem(9999);
    QCOMPARE(focusedRow(*menu.list), 9999);
    QCOMPARE(menu.type(Qt::Key_8), 0);
    QCOMPARE(menu.type(Qt::Key_2), 9999);
    QCOMPARE(RowParts(*menu.item(5000)).title->text(), QStringLiteral("row 5000"));
    int polished = 0;
    for (int row = 0; row < 10000; ++row)
        polished += RowParts(*menu.item(row)).title->testAttribute(Qt::WA_WState_Polished);
    QVERIFY2(polished <= 10, qPrintable(QString::number(polished)));
    for (int row = 0; row < 10000; ++row)
        menu.list->hideItem(row);
    QCOMPARE(menu.list->findNextRow(7), 7);
    menu.list->removeAllItems();
    runEventLoop();
    const qint64 taken = processorTime() - start;
    QVERIFY2(taken < 60000, qPrintable(QString::number(taken)));
}

void TestWidgetList::manyRowsAddedAgain()
{
    const int count = 10000;
    Menu menu(count);
    menu.show();
    QList<WidgetListItem *> items;
    for (int row = 0; row < count; ++row)
        items.prepend(menu.item(row));
    const qint64 start = processorTime();
    menu.list->setRowCount(count);
    for (WidgetListItem *item : items)
        menu.list->addListItem(item);
    const qint64 taken = processorTime() - start;
    QVERIFY2(taken < 10000, qPrintable(QString::number(taken)));
    runEventLoop();
    for (int row = 0; row < count; ++row)
        QCOMPARE(menu.item(row), items.at(row));
}

void TestWidgetList::noRows()
{
    Menu menu(0);
    menu.show();
    for (int key = Qt::Key_0; key <= Qt::Key_9; ++key) {
        pressKey(menu.list, key);
        releaseKey(menu.list, key);
    }
    QCOMPARE(menu.screen.takeKeys().size(), 10);
    menu.list->setRowHeight(40);
    menu.list->refreshItems();
    menu.list->removeAllItems();
    menu.list->setNoFocusStyle(3);
    QCOMPARE(menu.list->findNextRow(0), -1);
    QCOMPARE(menu.list->findPrevRow(0), 0);
    releaseKey(menu.list, Qt::Key_8);
    menu.list->setFocusAtItem(0);
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList("[setFocusAtItem, 249] Invalid 0"));
}

void TestWidgetList::rowsOfNoHeight()
{
    Menu menu(0);
    menu.list->setRowCount(20);
    for (int i = 0; i < 20; ++i)
        menu.list->addListItem(newRow(QString("row %1").arg(i), 2, 0));
    menu.show();
    for (int i = 1; i < 25; ++i) {
        menu.type(Qt::Key_8);
        QCOMPARE(selectedRows(*menu.list), QList<int>({i % 20}));
    }
    menu.list->setRowHeight(46);
    runEventLoop();
    QCOMPARE(menu.type(Qt::Key_8), 5);
    menu.list->setRowHeight(0);
    runEventLoop();
    menu.type(Qt::Key_2);
    QCOMPARE(selectedRows(*menu.list), QList<int>({4}));
}

void TestWidgetList::digitsInAnyOrder()
{
    for (bool functionKeys : {false, true}) {
        Menu menu(5, 3);
        menu.list->setRowCount(6);
        addRows(*menu.list, 5, 3);
        menu.list->addListItem(newDeepRow(QStringLiteral("deep")), Qt::Key_6);
        menu.list->m_useFunctionKeys = functionKeys;
        menu.show();
        quint32 state = 12345;
        const QList<int> keys{Qt::Key_0, Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_5, Qt::Key_6, Qt::Key_7,
                              Qt::Key_8, Qt::Key_9, Qt::Key_F1, Qt::Key_F2, Qt::Key_F3, Qt::Key_F4, Qt::Key_Menu,
                              Qt::Key_Escape};
        for (int i = 0; i < 3000; ++i) {
            state = state * 1664525u + 1013904223u;
            const int key = keys.at(int((state >> 16) % quint32(keys.size())));
            QWidget *receiver = QApplication::focusWidget();
            QVERIFY(receiver);
            switch ((state >> 8) % 4) {
            case 0:
                pressKey(receiver, key);
                break;
            case 1:
                repeatKey(receiver, key, 3);
                break;
            default:
                releaseKey(receiver, key);
                break;
            }
            const int row = focusedRow(*menu.list);
            QVERIFY(row >= 0);
            QCOMPARE(selectedRows(*menu.list), QList<int>({row}));
        }
    }
}

void TestWidgetList::longTitles()
{
    Menu menu(3);
    const QString text = QStringLiteral("long ").repeated(2000);
    menu.list->setTitle(text, true);
    for (int row = 0; row < 3; ++row)
        menu.item(row)->setTitle(text, true);
    menu.show();
    for (int i = 0; i < 3; ++i) {
        const RowParts parts(*menu.item(i));
        QCOMPARE(timersOf(parts.title).size(), 1);
        tick(parts);
        QCOMPARE(parts.title->text().length(), 10003);
        menu.type(Qt::Key_8);
        QCOMPARE(parts.title->text(), fitted(text, parts.title->font(), parts.title->width()));
        QCOMPARE(timersOf(parts.title).size(), 0);
    }
}

QTEST_MAIN(TestWidgetList)
#include "tst_widgetlist.moc"
