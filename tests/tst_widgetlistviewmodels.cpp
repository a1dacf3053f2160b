// A WidgetListView over models of all kinds that change at any time.

#include "allocationcount.h"
#include "displaywork.h"
#include "listviewtesting.h"

#include <QAbstractItemModelTester>
#include <QScreen>
#include <QSet>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QWindow>
#include <QtTest>

#include <functional>
#include <memory>
#include <random>

#if defined(COUNTS_ALLOCATIONS) && __GLIBC_PREREQ(2, 33)
#define COUNTS_HEAP
#include <malloc.h>
#endif

namespace {

const QString s_click = QStringLiteral("sound:901");
const int s_rowHeight = 46;
const int s_rowsInView = 3;

QString titleOf(const ViewMenu &menu)
{
    const int row = menu.list->selectedRow();
    return row == -1 ? QString() : menu.list->model()->index(row, 0).data(WidgetListView::TitleRole).toString();
}

/// Whether \a menu shows what a list shows that was made for the model as it is now.
bool looksFresh(ViewMenu &menu, const QList<int> &hidden = QList<int>(), int rowHeight = s_rowHeight)
{
    const QImage seen = onScreen(menu.screen);
    ViewMenu fresh(menu.list->model());
    fresh.list->setRowHeight(rowHeight);
    const int row = menu.list->selectedRow();
    if (row != -1)
        fresh.list->setFocusAtItem(row);
    fresh.show();
    for (int hiddenRow : hidden)
        fresh.list->hideItem(hiddenRow);
    fresh.view()->verticalScrollBar()->setValue(menu.view()->verticalScrollBar()->value());
    // Whatever the list itself has painted anew so far.
    fresh.view()->viewport()->update();
    const QImage expected = onScreen(fresh.screen);
    fresh.screen.hide();
    showInFront(menu.screen);
    if (seen == expected && !seen.isNull())
        return true;
    seen.save(QStringLiteral("%1-seen.png").arg(QTest::currentTestFunction()));
    expected.save(QStringLiteral("%1-fresh.png").arg(QTest::currentTestFunction()));
    return false;
}

const QString s_longTitle = QStringLiteral("A title that is wider than its row has room for, whatever stands there");

/// Has a title that scrolls go on by one character. Returns how many there are.
int turnTitle(const ViewMenu &menu)
{
    const QList<int> timers = scrollTimers(menu.view());
    for (int timer : timers) {
        QTimerEvent event(timer);
        QCoreApplication::sendEvent(menu.view(), &event);
    }
    return int(timers.size());
}

QList<Row> rowsWithValues(int count, const QString &prefix = QStringLiteral("row"))
{
    QList<Row> rows = RowsModel::titled(count, prefix);
    for (int i = 0; i < count; ++i) {
        rows[i].badge = i % 10;
        if (i % 3 == 0)
            rows[i].values = QStringList{QStringLiteral("a"), QStringLiteral("b %1").arg(i), QStringLiteral("c")};
        if (i % 4 == 1)
            rows[i].moreDepth = true;
    }
    return rows;
}

struct Change
{
    const char *name;
    std::function<void(RowsModel &)> make;
    int firstGone = -1;
};

/// Of a model of twelve rows.
const QList<Change> &changes()
{
    static const QList<Change> all{
        {"nothing", [](RowsModel &) {}},
        {"a row at the top", [](RowsModel &model) { model.insert(0, rowsWithValues(1, "new")); }},
        {"rows at the top", [](RowsModel &model) { model.insert(0, rowsWithValues(7, "new")); }},
        {"rows in the middle", [](RowsModel &model) { model.insert(5, rowsWithValues(2, "new")); }},
        {"rows after the middle", [](RowsModel &model) { model.insert(6, rowsWithValues(2, "new")); }},
        {"rows at the end", [](RowsModel &model) { model.insert(12, rowsWithValues(4, "new")); }},
        {"the first goes", [](RowsModel &model) { model.remove(0, 1); }, 0},
        {"the first four go", [](RowsModel &model) { model.remove(0, 4); }, 0},
        {"the middle one goes", [](RowsModel &model) { model.remove(5, 1); }, 5},
        {"the middle ones go", [](RowsModel &model) { model.remove(3, 6); }, 3},
        {"the one above the middle goes", [](RowsModel &model) { model.remove(4, 1); }, 4},
        {"the last goes", [](RowsModel &model) { model.remove(11, 1); }, 11},
        {"the last ones go", [](RowsModel &model) { model.remove(4, 8); }, 4},
        {"all but the first go", [](RowsModel &model) { model.remove(1, 11); }, 1},
        {"all but the last go", [](RowsModel &model) { model.remove(0, 11); }, 0},
        {"all go", [](RowsModel &model) { model.remove(0, 12); }, 0},
        {"the middle one goes up", [](RowsModel &model) { model.move(5, 0); }},
        {"the middle one goes down", [](RowsModel &model) { model.move(5, 11); }},
        {"the first goes down", [](RowsModel &model) { model.move(0, 11); }},
        {"the last goes up", [](RowsModel &model) { model.move(11, 0); }},
        {"neighbours change places", [](RowsModel &model) { model.move(5, 6); }},
        {"sorted", [](RowsModel &model) { model.sortRows(); }},
        {"reset", [](RowsModel &model) { model.reset(rowsWithValues(12, "other")); }},
        {"reset to fewer", [](RowsModel &model) { model.reset(rowsWithValues(4, "other")); }},
        {"reset to none", [](RowsModel &model) { model.reset(QList<Row>()); }},
        {"reset to many", [](RowsModel &model) { model.reset(rowsWithValues(50, "other")); }},
        {"each row changes",
         [](RowsModel &model) {
             for (int row = 0; row < model.rowCount(); ++row) {
                 Row changed = model.at(row);
                 changed.values = QStringList{"other", "values"};
                 changed.badge = 9 - row % 10;
                 changed.moreDepth = !changed.moreDepth;
                 model.change(row, changed);
             }
         }},
    };
    return all;
}

/// Where the focus comes to stand in a list, and by which keys.
struct Walk
{
    const char *name;
    const char *keys;
    int row;
};

const Walk s_walks[] = {
    {"at the top", "", 0},
    {"in the middle, from above", "88888", 5},
    {"in the middle, from below", "2222222", 5},
    {"in the middle of the view", "222222228", 5},
    {"at the end", "2", 11},
    {"above the end", "22", 10},
};

/// A model that notes which rows somebody asks for.
class AskedModel : public RowsModel
{
public:
    using RowsModel::RowsModel;

    QVariant data(const QModelIndex &index, int role) const override
    {
        m_askedRows.insert(index.row());
        return RowsModel::data(index, role);
    }

    mutable QSet<int> m_askedRows;
};

/// A model that gets its rows some time after it was asked for them, or never.
class LateModel : public RowsModel
{
public:
    bool canFetchMore(const QModelIndex &) const override { return m_rows.size() < m_most; }
    void fetchMore(const QModelIndex &) override { ++m_fetches; }

    void deliver(int count)
    {
        QList<Row> rows;
        for (int i = 0; i < count; ++i)
            rows.append(titledRow(QStringLiteral("late %1").arg(m_rows.size() + i)));
        insert(int(m_rows.size()), rows);
    }

    int m_most = 100;
    int m_fetches = 0;
};

using Deed = std::function<void(std::unique_ptr<ViewMenu> &, std::unique_ptr<RowsModel> &)>;

struct NamedDeed
{
    const char *name;
    Deed make;
};

/// What a slot may do to its list.
QList<NamedDeed> deeds()
{
    QList<NamedDeed> all;
    for (const Change &change : changes()) {
        all.append({change.name, [change](std::unique_ptr<ViewMenu> &, std::unique_ptr<RowsModel> &model) {
                        // The deed is done again and again, and each change is one of twelve rows.
                        if (model && model->rowCount() == 12)
                            change.make(*model);
                    }});
    }
    all.append({"the model is deleted", [](std::unique_ptr<ViewMenu> &, std::unique_ptr<RowsModel> &model) { model.reset(); }});
    all.append({"another model", [](std::unique_ptr<ViewMenu> &menu, std::unique_ptr<RowsModel> &) {
                    if (menu && menu->list)
                        menu->list->setModel(new RowsModel(RowsModel::titled(3, "another"), menu->list));
                }});
    all.append({"no model", [](std::unique_ptr<ViewMenu> &menu, std::unique_ptr<RowsModel> &) {
                    if (menu && menu->list)
                        menu->list->setModel(nullptr);
                }});
    all.append({"the same model", [](std::unique_ptr<ViewMenu> &menu, std::unique_ptr<RowsModel> &model) {
                    if (menu && menu->list)
                        menu->list->setModel(model.get());
                }});
    all.append({"the list is deleted", [](std::unique_ptr<ViewMenu> &menu, std::unique_ptr<RowsModel> &) {
                    if (menu)
                        delete menu->list;
                }});
    all.append({"the screen is deleted", [](std::unique_ptr<ViewMenu> &menu, std::unique_ptr<RowsModel> &) { menu.reset(); }});
    all.append({"everything is deleted", [](std::unique_ptr<ViewMenu> &menu, std::unique_ptr<RowsModel> &model) {
                    model.reset();
                    menu.reset();
                }});
    all.append({"the list is hidden", [](std::unique_ptr<ViewMenu> &menu, std::unique_ptr<RowsModel> &) {
                    if (menu && menu->list)
                        menu->list->hide();
                }});
    all.append({"the row is hidden", [](std::unique_ptr<ViewMenu> &menu, std::unique_ptr<RowsModel> &) {
                    if (menu && menu->list && menu->list->selectedRow() != -1)
                        menu->list->hideItem(menu->list->selectedRow());
                }});
    all.append({"another row", [](std::unique_ptr<ViewMenu> &menu, std::unique_ptr<RowsModel> &) {
                    if (menu && menu->list)
                        menu->list->setFocusAtItem(1);
                }});
    return all;
}

/// Keys that bring a signal about.
struct Cause
{
    const char *signal;
    int start;
    int key;
    int repeats;
    bool stopAtEnds;
    bool enterOnOK;
};

const Cause s_causes[] = {
    {"doEnter of the right key", 5, Qt::Key_6, 0, false, false},
    {"doEnter of OK", 4, Qt::Key_Menu, 0, false, true},
    {"doEnter of a digit", 2, Qt::Key_5, 0, false, false},
    {"doChange of the left key", 6, Qt::Key_4, 0, false, false},
    {"doChange of the right key", 6, Qt::Key_6, 0, false, false},
    {"doSave", 3, Qt::Key_Menu, 0, false, false},
    {"reachedBegin", 0, Qt::Key_2, 0, true, false},
    {"reachedEnd", 11, Qt::Key_8, 0, true, false},
    {"upKeyLongPressed and upKeyReleased", 5, Qt::Key_2, 15, false, false},
    {"downKeyLongPressed and downKeyReleased", 5, Qt::Key_8, 15, false, false},
    {"finished", 5, Qt::Key_Escape, 0, false, false},
};

/// Sends \a key also where the list that has the keys is deleted by it.
void strikeSafely(std::unique_ptr<ViewMenu> &menu, int key, int repeats)
{
    const auto list = [&]() -> QWidget * { return menu ? menu->list.data() : nullptr; };
    if (list())
        pressKey(list(), key);
    for (int i = 0; i < repeats && list(); ++i)
        repeatKey(list(), key);
    if (list())
        releaseKey(list(), key);
}

void strikeAll(std::unique_ptr<ViewMenu> &menu)
{
    for (int key : {Qt::Key_8, Qt::Key_8, Qt::Key_2, Qt::Key_4, Qt::Key_6, Qt::Key_Menu, Qt::Key_5, Qt::Key_Escape})
        strikeSafely(menu, key, 0);
}

}

class TestWidgetListViewModels : public QObject
{
    Q_OBJECT

private slots:
    void init();

    // Changes
    void focusStaysAndNothingStaleIsSeen_data();
    void focusStaysAndNothingStaleIsSeen();
    void changesWhileHiddenAreTaken_data();
    void changesWhileHiddenAreTaken();
    void changesWhileAKeyIsHeld_data();
    void changesWhileAKeyIsHeld();
    void slotsMayDoAnything_data();
    void slotsMayDoAnything();
    void slotsOfTheModelMayDeleteTheList();
    void fetchMayDeleteTheList_data();
    void fetchMayDeleteTheList();
    void valueMaySortItsRowElsewhere();
    void valueMayFilterItsRowOut();
    void hiddenRowsStayHiddenWithTheirItems();
    void hiddenRowsThatAModelTakesForOneAreHiddenOnce();
    void longTitleScrollsOnWhenRowsComeAbove();
    void sameTitleInTheNextRowStartsFromItsBeginning();
    void titleScrollsOnlyWhereItIsSeenWithTheFocus();
    void focusComesToTheNextRowsOfAnEmptyModel();
    void rowIsForgottenWhenTheListIsHidden();

    // Other models
    void stringListModelWorksAsItIs();
    void standardItemModelWorksAsItIs();
    void hiddenRowThatItsModelForgetsIsShownAgain();
    void standardItemModelMayHaveChildren();
    void firstColumnMayComeAndGo();
    void columnsMayChangePlaces();
    void proxyMayFilterAndSort();
    void anotherModelKeepsTheNearestRow();
    void modelsMayBeShared();
    void flagsOfItemsDoNotMatter();

    // Models that fetch
    void modelsOfTheTestsKeepTheRules();
    void fetchesNearTheEndOnly();
    void fetchesNothingForAListThatIsNotSeen();
    void fetchesNothingFromAModelThatHasNoMore();
    void fetchesForAnEmptyListAtItsShow();
    void fetchesForSmallerRows();
    void fetchesForAListThatIsShownBeforeItIsPainted();
    void fetchesForARowThatGetsTheFocusBeforeTheShow();
    void fetchesWhatComesLater();
    void fetchesOnWhenTooFewComeLater();
    void fetchWithoutRowsIsNotAskedForAgainAndAgain();
    void fetchIsNotAskedForInTheMiddleOfAFetch();

    // Costs
    void asksForRowsInViewOnly();
    void asksNothingOfAModelThatChangesWhileItIsHidden();
    void rowsThatComeLeaveNoTimerRunning();
    void modelOfBeforeNoLongerMovesTheFocus();
    void rowThatGoesLeavesTheViewWhereItIs();
    void focusThatComesAndGoesIsSeenAtOnce();
    void noFocusStyleIsSeenAtOnce();
    void rowHeightIsSeenAtOnce();
    void rowInFocusThatIsHiddenIsGoneAtOnce();
    void titleThatScrollsStopsWithTheWindow();
    void manyRowsCostNoMemory();
    void changeOfOneRowAsksForThatRowOnly();
    void formerModelIsNotListenedTo();
    void sameModelAgainChangesNothing();
    void modelsThatCameAndWentLeaveNothing();
    void rowsAreOnlyToBeLookedAt();
    void rowsThatScrollAreMovedAndNotPainted();
    void rowHiddenTwiceIsHiddenOnce();

    void randomWalk_data();
    void randomWalk();
};

void TestWidgetListViewModels::init()
{
    RecordingPlatform::reset();
}

void TestWidgetListViewModels::focusStaysAndNothingStaleIsSeen_data()
{
    QTest::addColumn<int>("change");
    QTest::addColumn<int>("walk");
    QTest::addColumn<int>("rowHeight");
    for (int change = 0; change < changes().size(); ++change) {
        for (int walk = 0; walk < int(sizeof(s_walks) / sizeof(s_walks[0])); ++walk) {
            for (int rowHeight : {s_rowHeight, 30})
                QTest::addRow("%s, %s, %d", changes().at(change).name, s_walks[walk].name, rowHeight)
                    << change << walk << rowHeight;
        }
    }
}

void TestWidgetListViewModels::focusStaysAndNothingStaleIsSeen()
{
    QFETCH(int, change);
    QFETCH(int, walk);
    QFETCH(int, rowHeight);
    RowsModel model(rowsWithValues(12));
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    ViewMenu menu(&model);
    menu.list->setRowHeight(rowHeight);
    menu.show();
    for (const char *key = s_walks[walk].keys; *key; ++key)
        menu.type(*key);
    const int row = s_walks[walk].row;
    QCOMPARE(menu.list->selectedRow(), row);
    onScreen(menu.screen);
    const int rowsAbove = row - menu.view()->verticalScrollBar()->value();
    const QPersistentModelIndex item(model.index(row));

    changes().at(change).make(model);

    const int count = model.rowCount();
    const int firstGone = changes().at(change).firstGone;
    // What moves up into its place.
    const int nearest = firstGone == -1 ? row : firstGone;
    const int expected = item.isValid() ? item.row() : qMin(nearest, count - 1);
    QCOMPARE(menu.list->selectedRow(), expected);
    if (item.isValid()) {
        const int rowsInView = 138 / rowHeight;
        QCOMPARE(menu.view()->verticalScrollBar()->value(), qBound(0, expected - rowsAbove, qMax(0, count - rowsInView)));
    }
    QVERIFY(count == 0 || menu.isInView(expected));
    QVERIFY(looksFresh(menu, QList<int>(), rowHeight));
    QCOMPARE(takeNotes(), QStringList());
    if (count > 0)
        QCOMPARE(menu.type(Qt::Key_8), (expected + 1) % count);
}

void TestWidgetListViewModels::changesWhileHiddenAreTaken_data()
{
    QTest::addColumn<int>("change");
    for (int change = 0; change < changes().size(); ++change)
        QTest::addRow("%s", changes().at(change).name) << change;
}

void TestWidgetListViewModels::changesWhileHiddenAreTaken()
{
    QFETCH(int, change);
    RowsModel model(rowsWithValues(12));
    ViewMenu menu(&model);
    menu.show();
    menu.type(Qt::Key_2);
    menu.list->hide();
    menu.list->setFocusAtItem(5);
    const QPersistentModelIndex item(model.index(5));
    changes().at(change).make(model);
    menu.list->show();
    menu.list->setFocus();
    if (item.isValid())
        QCOMPARE(menu.list->selectedRow(), item.row());
    QVERIFY(model.rowCount() == 0 || menu.isInView(menu.list->selectedRow()));
    QVERIFY(looksFresh(menu));
}

void TestWidgetListViewModels::changesWhileAKeyIsHeld_data()
{
    changesWhileHiddenAreTaken_data();
}

void TestWidgetListViewModels::changesWhileAKeyIsHeld()
{
    QFETCH(int, change);
    for (int key : {Qt::Key_2, Qt::Key_8}) {
        for (int repeats : {0, 5, 11, 13, 30}) {
            RowsModel model(rowsWithValues(12));
            ViewMenu menu(&model);
            menu.list->m_scrollOnHold = true;
            menu.show();
            menu.list->setFocusAtItem(5);
            pressKey(menu.list, key);
            repeatKey(menu.list, key, repeats);
            const int row = menu.list->selectedRow();
            const QPersistentModelIndex item(model.index(row));
            changes().at(change).make(model);
            if (item.isValid())
                QCOMPARE(menu.list->selectedRow(), item.row());
            repeatKey(menu.list, key, 35);
            const int count = model.rowCount();
            QCOMPARE(menu.list->selectedRow(), count == 0 ? -1 : key == Qt::Key_2 ? 0 : count - 1);
            releaseKey(menu.list, key);
            QCOMPARE(menu.list->selectedRow(), count == 0 ? -1 : key == Qt::Key_2 ? 0 : count - 1);
            if (repeats == 13)
                QVERIFY(looksFresh(menu));
        }
    }
}

void TestWidgetListViewModels::slotsMayDoAnything_data()
{
    QTest::addColumn<int>("cause");
    QTest::addColumn<int>("deed");
    const QList<NamedDeed> all = deeds();
    for (int cause = 0; cause < int(sizeof(s_causes) / sizeof(s_causes[0])); ++cause) {
        for (int deed = 0; deed < all.size(); ++deed)
            QTest::addRow("%s: %s", s_causes[cause].signal, all.at(deed).name) << cause << deed;
    }
}

void TestWidgetListViewModels::slotsMayDoAnything()
{
    QFETCH(int, cause);
    QFETCH(int, deed);
    const Cause &by = s_causes[cause];
    const NamedDeed deedOf = deeds().at(deed);
    std::unique_ptr<RowsModel> model(new RowsModel(rowsWithValues(12)));
    std::unique_ptr<ViewMenu> menu(new ViewMenu(model.get()));
    menu->list->m_stopAtEnds = by.stopAtEnds;
    menu->list->m_enterOnOK = by.enterOnOK;
    menu->list->m_scrollOnHold = true;
    menu->show();
    menu->list->setFocusAtItem(by.start);
    takeNotes();
    int done = 0;
    QString notes;
    const auto act = [&] {
        ++done;
        if (done == 1)
            notes = takeNotes().join(" ");
        deedOf.make(menu, model);
    };
    WidgetListView *list = menu->list;
    connect(list, &WidgetListView::doEnter, act);
    connect(list, &WidgetListView::doChange, act);
    connect(list, &WidgetListView::doSave, act);
    connect(list, &WidgetListView::reachedBegin, act);
    connect(list, &WidgetListView::reachedEnd, act);
    connect(list, &WidgetListView::upKeyLongPressed, act);
    connect(list, &WidgetListView::upKeyReleased, act);
    connect(list, &WidgetListView::downKeyLongPressed, act);
    connect(list, &WidgetListView::downKeyReleased, act);
    connect(list, &WidgetListView::finished, act);
    strikeSafely(menu, by.key, by.repeats);
    QVERIFY(done > 0);
    QVERIFY(notes.contains(QString(by.signal).section(' ', 0, 0)));
    if (!menu || !menu->list)
        QVERIFY2(!takeNotes().contains(s_click), "a list that is gone has clicked");
    strikeAll(menu);
    if (menu && menu->list && menu->list->isVisible()) {
        const bool rowIsHidden = QByteArray(deedOf.name) == "the row is hidden";
        if (!rowIsHidden) {
            QVERIFY(looksFresh(*menu));
            if (menu->list->model() && menu->list->model()->rowCount() > 0)
                QVERIFY(menu->isInView(menu->list->selectedRow()));
        }
        menu->picture();
    }
}

void TestWidgetListViewModels::slotsOfTheModelMayDeleteTheList()
{
    for (int what : {0, 1, 2}) {
        std::unique_ptr<RowsModel> model(new RowsModel(rowsWithValues(12)));
        std::unique_ptr<ViewMenu> menu(new ViewMenu(model.get()));
        menu->show();
        connect(model.get(), &QAbstractItemModel::dataChanged, this, [&] {
            if (what == 0)
                delete menu->list;
            else if (what == 1)
                menu.reset();
            else
                menu->list->setModel(nullptr);
        });
        strikeSafely(menu, Qt::Key_6, 0);
        strikeAll(menu);
        QVERIFY(what == 2 || !menu || !menu->list);
    }
}

void TestWidgetListViewModels::fetchMayDeleteTheList_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("key");
    QTest::newRow("for rows in view soon") << 0 << 9 << 0;
    QTest::newRow("for rows after the last") << 0 << 11 << 0;
    QTest::newRow("at the last, which is in view") << 10 << 11 << 0;
    QTest::newRow("at a show") << 11 << -1 << 0;
    QTest::newRow("down") << 10 << 11 << int(Qt::Key_F2);
    QTest::newRow("up") << 0 << 11 << int(Qt::Key_F1);
    QTest::newRow("a letter") << 10 << 11 << int(Qt::Key_7);
}

void TestWidgetListViewModels::fetchMayDeleteTheList()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(int, key);
    // Whoever uses it when it is gone, crashes.
    class ErasedList : public WidgetListView
    {
    public:
        using WidgetListView::WidgetListView;
        static void *operator new(size_t size) { return ::operator new(size); }
        static void operator delete(void *memory)
        {
            memset(memory, 0xA5, sizeof(ErasedList));
            ::operator delete(memory);
        }
    };
    class FailingModel : public RowsModel
    {
    public:
        using RowsModel::RowsModel;
        bool canFetchMore(const QModelIndex &) const override { return m_list; }
        void fetchMore(const QModelIndex &) override { delete m_list; }
        QPointer<WidgetListView> m_list;
    } model(rowsWithValues(12));
    ViewMenu menu(nullptr);
    delete menu.list;
    menu.list = new ErasedList(&menu.screen, SoundManager::getInstance());
    menu.list->setGeometry(0, 0, 220, 176);
    menu.list->setModel(&model);
    menu.show();
    menu.list->setFocusAtItem(11);
    menu.list->setFocusAtItem(from);
    menu.list->m_useFunctionKeys = true;
    menu.list->m_jumpToLetter = true;
    menu.list->setKeyLetters(Qt::Key_7, QStringLiteral("pqrs"));
    model.m_list = menu.list;
    takeNotes();
    if (key != 0) {
        strike(menu.list, key);
        QCOMPARE(takeNotes(), QStringList());
    } else if (to == -1) {
        model.remove(2, 10);
        menu.list->hide();
        // The toolkit goes on with a list that it shows.
        menu.list->show();
        QVERIFY(menu.list);
        runEventLoop();
    } else {
        menu.list->setFocusAtItem(to);
    }
    QVERIFY(!menu.list);
    menu.picture();
}

void TestWidgetListViewModels::valueMaySortItsRowElsewhere()
{
    class SortingModel : public RowsModel
    {
    public:
        using RowsModel::RowsModel;
        bool setData(const QModelIndex &index, const QVariant &value, int role) override
        {
            const int row = index.row();
            const bool set = RowsModel::setData(index, value, role);
            move(row, 9);
            return set;
        }
    } model(rowsWithValues(12));
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(3);
    takeNotes();
    const QString title = titleOf(menu);
    QCOMPARE(menu.type(Qt::Key_6), 9);
    QCOMPARE(takeNotes(), QStringList({"doChange 9", s_click}));
    QCOMPARE(titleOf(menu), title);
    QCOMPARE(model.at(9).valueIndex, 1);
    QVERIFY(looksFresh(menu));
}

void TestWidgetListViewModels::valueMayFilterItsRowOut()
{
    class Filter : public QSortFilterProxyModel
    {
    public:
        bool filterAcceptsRow(int row, const QModelIndex &parent) const override
        {
            return sourceModel()->index(row, 0, parent).data(WidgetListView::ValueIndexRole).toInt() == 0;
        }
    };
    RowsModel model(rowsWithValues(12));
    Filter filter;
    filter.setFilterRole(WidgetListView::ValueIndexRole);
    filter.setDynamicSortFilter(true);
    filter.setSourceModel(&model);
    ViewMenu menu(&filter);
    menu.show();
    menu.list->setFocusAtItem(3);
    takeNotes();
    menu.type(Qt::Key_6);
    QCOMPARE(model.at(3).valueIndex, 1);
    QCOMPARE(filter.rowCount(), 11);
    QCOMPARE(takeNotes(), QStringList{s_click});
    QCOMPARE(titleOf(menu), QString("row 4"));
    QVERIFY(looksFresh(menu));
}

void TestWidgetListViewModels::hiddenRowsThatAModelTakesForOneAreHiddenOnce()
{
    class CarelessModel : public RowsModel
    {
    public:
        using RowsModel::RowsModel;
        void takeForOne(int row, int other)
        {
            emit layoutAboutToBeChanged();
            changePersistentIndex(index(other), index(row));
            emit layoutChanged();
        }
    } model(RowsModel::titled(QStringList({"a", "b", "b", "c", "d", "e", "f"})));
    ViewMenu menu(&model);
    menu.show();
    menu.list->hideItem(1);
    menu.list->hideItem(2);
    model.takeForOne(1, 2);
    QVERIFY(looksFresh(menu, {1}));
    QCOMPARE(menu.list->findNextRow(0), 2);
    menu.list->setFocusAtItem(6);
    QVERIFY(looksFresh(menu, {1}));
    menu.list->showItem(1);
    QVERIFY(looksFresh(menu));
}

void TestWidgetListViewModels::hiddenRowsStayHiddenWithTheirItems()
{
    RowsModel model(RowsModel::titled(QStringList({"e", "d", "c", "b", "a", "f", "g", "h"})));
    ViewMenu menu(&model);
    menu.show();
    menu.list->hideItem(1);
    menu.list->hideItem(2);
    menu.list->hideItem(6);
    const auto reachable = [&] {
        QString titles;
        menu.list->setFocusAtItem(0);
        const int first = menu.type(Qt::Key_8);
        do
            titles += titleOf(menu);
        while (menu.type(Qt::Key_8) != first);
        std::sort(titles.begin(), titles.end());
        return titles;
    };
    QCOMPARE(reachable(), QString("abefh"));
    QVERIFY(looksFresh(menu, {1, 2, 6}));
    model.sortRows();
    QCOMPARE(reachable(), QString("abefh"));
    QVERIFY(looksFresh(menu, {2, 3, 6}));
    model.insert(0, RowsModel::titled(QStringList("i")));
    QCOMPARE(reachable(), QString("abefhi"));
    model.remove(3, 1);
    QCOMPARE(reachable(), QString("abefhi"));
    QVERIFY(looksFresh(menu, {3, 6}));
    model.move(6, 0);
    QCOMPARE(reachable(), QString("abefhi"));
    QVERIFY(looksFresh(menu, {0, 4}));
    model.reset(RowsModel::titled(QStringList({"x", "y", "z"})));
    QCOMPARE(reachable(), QString("xyz"));
}

void TestWidgetListViewModels::longTitleScrollsOnWhenRowsComeAbove()
{
    RowsModel model(RowsModel::titled(QStringList({"one", s_longTitle, "three"})));
    ViewMenu menu(&model);
    menu.show();
    menu.type(Qt::Key_8);
    const auto turn = [&] { return turnTitle(menu); };
    const auto rowPicture = [&] {
        const QRect rect = menu.view()->visualRect(menu.list->model()->index(menu.list->selectedRow(), 0));
        return onScreen(menu.screen).copy(0, 38 + rect.top(), 210, rect.height());
    };
    const QImage atRest = rowPicture();
    QCOMPARE(turn(), 1);
    const QImage scrolled = rowPicture();
    QVERIFY(scrolled != atRest);
    model.insert(0, RowsModel::titled(5, "new"));
    QCOMPARE(menu.list->selectedRow(), 6);
    QCOMPARE(rowPicture(), scrolled);
    // Another title starts from its beginning, or not at all.
    Row row = model.at(6);
    row.title = "short";
    model.change(6, row);
    QCOMPARE(turn(), 0);
    QVERIFY(looksFresh(menu));
    row.title = s_longTitle;
    model.change(6, row);
    QCOMPARE(rowPicture(), atRest);
    QCOMPARE(turn(), 1);
    QCOMPARE(rowPicture(), scrolled);
    model.remove(6, 1);
    QCOMPARE(turn(), 0);
    QVERIFY(looksFresh(menu));
    model.insert(0, RowsModel::titled(QStringList(s_longTitle)));
    menu.list->setFocusAtItem(0);
    QCOMPARE(turn(), 1);
    menu.list->setModel(nullptr);
    QCOMPARE(turn(), 0);
}

void TestWidgetListViewModels::sameTitleInTheNextRowStartsFromItsBeginning()
{
    RowsModel model(RowsModel::titled(QStringList({s_longTitle, s_longTitle})));
    ViewMenu menu(&model);
    menu.show();
    const auto rowPicture = [&](int row) { return onScreen(menu.screen).copy(0, 38 + row * s_rowHeight, 210, s_rowHeight); };
    const QImage atRest = rowPicture(0);
    QCOMPARE(turnTitle(menu), 1);
    const QImage turnedOnce = rowPicture(0);
    QCOMPARE(turnTitle(menu), 1);
    QVERIFY(rowPicture(0) != atRest);
    QVERIFY(rowPicture(0) != turnedOnce);
    menu.type(Qt::Key_8);
    QCOMPARE(rowPicture(1), atRest);
    QCOMPARE(turnTitle(menu), 1);
    QCOMPARE(rowPicture(1), turnedOnce);
}

void TestWidgetListViewModels::titleScrollsOnlyWhereItIsSeenWithTheFocus()
{
    RowsModel model(RowsModel::titled(QStringList({s_longTitle, "short"})));
    ViewMenu menu(&model);
    QWidget other(&menu.screen);
    other.setFocusPolicy(Qt::StrongFocus);
    QCOMPARE(turnTitle(menu), 0);
    menu.show();
    const QImage atRest = menu.picture();
    QCOMPARE(turnTitle(menu), 1);
    other.setFocus();
    QCOMPARE(turnTitle(menu), 0);
    menu.list->setFocus();
    QCOMPARE(menu.picture(), atRest);
    QCOMPARE(turnTitle(menu), 1);
    menu.list->hideItem(0);
    QCOMPARE(turnTitle(menu), 0);
    menu.list->showItem(0);
    QCOMPARE(menu.picture(), atRest);
    QCOMPARE(turnTitle(menu), 1);
    menu.list->hideItem(1);
    QVERIFY(menu.picture() != atRest);
    QCOMPARE(turnTitle(menu), 1);
    menu.list->hide();
    QCOMPARE(turnTitle(menu), 0);
    menu.list->show();
    QCOMPARE(turnTitle(menu), 1);
    menu.list->setNoFocusStyle(0);
    QCOMPARE(turnTitle(menu), 0);
}

void TestWidgetListViewModels::focusComesToTheNextRowsOfAnEmptyModel()
{
    RowsModel model;
    ViewMenu menu(&model);
    menu.show();
    QCOMPARE(menu.list->selectedRow(), -1);
    model.insert(0, rowsWithValues(5));
    QCOMPARE(menu.list->selectedRow(), 0);
    QVERIFY(looksFresh(menu));
    model.remove(0, 5);
    QCOMPARE(menu.list->selectedRow(), -1);
    QVERIFY(looksFresh(menu));
    model.insert(0, rowsWithValues(3));
    QCOMPARE(menu.list->selectedRow(), 0);
}

void TestWidgetListViewModels::rowIsForgottenWhenTheListIsHidden()
{
    RowsModel model(rowsWithValues(12));
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(7);
    menu.list->hide();
    model.insert(0, RowsModel::titled(3));
    model.remove(0, 2);
    model.sortRows();
    QCOMPARE(menu.list->selectedRow(), -1);
    model.reset(rowsWithValues(9));
    QCOMPARE(menu.list->selectedRow(), -1);
    menu.list->setModel(nullptr);
    menu.list->setModel(&model);
    QCOMPARE(menu.list->selectedRow(), -1);
    menu.list->show();
    QCOMPARE(menu.list->selectedRow(), 0);
    QCOMPARE(menu.top(0), 0);
}

void TestWidgetListViewModels::stringListModelWorksAsItIs()
{
    QStringListModel model(QStringList({"one", "two", "three", "four", "five"}));
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    ViewMenu menu(&model);
    menu.show();
    RowsModel same(RowsModel::titled(model.stringList()));
    ViewMenu other(&same);
    const QImage picture = menu.picture();
    other.show();
    QCOMPARE(picture, other.picture());
    showInFront(menu.screen);
    menu.type(Qt::Key_8);
    model.sort(0);
    QCOMPARE(titleOf(menu), QString("two"));
    model.insertRows(0, 2);
    QCOMPARE(titleOf(menu), QString("two"));
    model.removeRows(0, 3);
    QCOMPARE(titleOf(menu), QString("two"));
    QVERIFY(looksFresh(menu));
    model.setStringList(QStringList("only"));
    QCOMPARE(menu.list->selectedRow(), 0);
    takeNotes();
    menu.type(Qt::Key_6);
    QCOMPARE(takeNotes(), QStringList{"handed on: release 6"});
    QVERIFY(looksFresh(menu));
}

void TestWidgetListViewModels::standardItemModelWorksAsItIs()
{
    QStandardItemModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    ViewMenu menu(&model);
    menu.show();
    for (int i = 0; i < 8; ++i) {
        QStandardItem *item = new QStandardItem(QString("item %1").arg(7 - i));
        item->setData(QStringList({"a", "b"}), WidgetListView::ValuesRole);
        model.appendRow(item);
    }
    QCOMPARE(menu.list->selectedRow(), 0);
    menu.type(Qt::Key_8);
    takeNotes();
    menu.type(Qt::Key_6);
    QCOMPARE(takeNotes(), QStringList({"doChange 1", s_click}));
    QCOMPARE(model.item(1)->data(WidgetListView::ValueIndexRole).toInt(), 1);
    model.sort(0);
    QCOMPARE(menu.list->selectedRow(), 6);
    QVERIFY(looksFresh(menu));
    qDeleteAll(model.takeRow(6));
    QCOMPARE(menu.list->selectedRow(), 6);
    QCOMPARE(titleOf(menu), QString("item 7"));
    // Another item in the same row.
    model.setItem(6, new QStandardItem("another"));
    QCOMPARE(menu.list->selectedRow(), 6);
    QCOMPARE(titleOf(menu), QString("another"));
    QVERIFY(looksFresh(menu));
    menu.list->hideItem(1);
    menu.list->hideItem(2);
    model.setItem(1, new QStandardItem("yet another"));
    QVERIFY(looksFresh(menu, {1, 2}));
    QCOMPARE(menu.list->findNextRow(0), 3);
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    // Qt 5 tells nobody.
    delete model.takeItem(1);
    delete model.takeItem(6);
    QCOMPARE(menu.list->selectedRow(), 6);
    QVERIFY(looksFresh(menu, {2}));
    QCOMPARE(menu.list->findNextRow(0), 1);
    QCOMPARE(menu.list->findNextRow(1), 3);
#endif
    model.clear();
    QCOMPARE(menu.list->selectedRow(), -1);
    QVERIFY(looksFresh(menu));
}

void TestWidgetListViewModels::hiddenRowThatItsModelForgetsIsShownAgain()
{
    class ForgettingModel : public RowsModel
    {
    public:
        using RowsModel::RowsModel;
        void replace(int row, const Row &by)
        {
            changePersistentIndex(index(row), QModelIndex());
            change(row, by);
        }
    } model(RowsModel::titled(8));
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(6);
    menu.list->hideItem(1);
    menu.list->hideItem(2);
    model.replace(1, RowsModel::titledRow("another"));
    QCOMPARE(menu.list->findNextRow(0), 1);
    QCOMPARE(menu.list->findNextRow(1), 3);
    QCOMPARE(menu.list->selectedRow(), 6);
    QVERIFY(looksFresh(menu, {2}));
    // Nor is the focus lost with the row that has it.
    for (int row : {6, 0}) {
        menu.list->setFocusAtItem(row);
        model.replace(row, RowsModel::titledRow("another one"));
        QCOMPARE(menu.list->selectedRow(), row);
    }
    QVERIFY(looksFresh(menu, {2}));
}

void TestWidgetListViewModels::standardItemModelMayHaveChildren()
{
    QStandardItemModel model;
    for (int i = 0; i < 8; ++i)
        model.appendRow(new QStandardItem(QString("item %1").arg(i)));
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(5);
    for (int i = 0; i < 20; ++i)
        model.item(i % 8)->insertRow(0, new QStandardItem("child"));
    QCOMPARE(menu.list->selectedRow(), 5);
    model.item(5)->child(0)->setText("another");
    model.item(5)->removeRows(0, 2);
    model.item(2)->removeRows(0, model.item(2)->rowCount());
    model.item(3)->sortChildren(0);
    QCOMPARE(menu.list->selectedRow(), 5);
    QVERIFY(looksFresh(menu));
    QCOMPARE(menu.type(Qt::Key_8), 6);
}

void TestWidgetListViewModels::firstColumnMayComeAndGo()
{
    QStandardItemModel model(4, 0);
    ViewMenu menu(&model);
    menu.show();
    for (int key : {Qt::Key_8, Qt::Key_2, Qt::Key_4, Qt::Key_6, Qt::Key_5, Qt::Key_Menu})
        menu.type(key);
    menu.picture();
    QVERIFY(looksFresh(menu));
    model.setColumnCount(1);
    for (int row = 0; row < 4; ++row)
        model.setItem(row, new QStandardItem(QString("first %1").arg(row)));
    menu.list->setFocusAtItem(2);
    QVERIFY(looksFresh(menu));

    QList<QStandardItem *> column;
    for (int row = 0; row < 4; ++row) {
        column.append(new QStandardItem(QString("new %1").arg(row)));
        column.last()->setData(QStringList({"a", "b", "c"}), WidgetListView::ValuesRole);
    }
    model.insertColumn(0, column);
    QCOMPARE(menu.list->selectedRow(), 2);
    QVERIFY(looksFresh(menu));
    takeNotes();
    menu.type(Qt::Key_6);
    QCOMPARE(takeNotes(), QStringList({"doChange 2", s_click}));
    QCOMPARE(model.item(2, 0)->data(WidgetListView::ValueIndexRole).toInt(), 1);

    model.removeColumn(0);
    QCOMPARE(menu.list->selectedRow(), 2);
    QVERIFY(looksFresh(menu));
    menu.type(Qt::Key_6);
    QCOMPARE(takeNotes(), QStringList{"handed on: release 6"});
    model.removeColumn(0);
    QVERIFY(looksFresh(menu));
    QCOMPARE(menu.list->selectedRow(), -1);
    menu.type(Qt::Key_8);
}

void TestWidgetListViewModels::columnsMayChangePlaces()
{
    // One of the columns has values, the other one has not.
    class TwoColumns : public QAbstractTableModel
    {
    public:
        int rowCount(const QModelIndex &parent = QModelIndex()) const override { return parent.isValid() ? 0 : 3; }
        int columnCount(const QModelIndex &parent = QModelIndex()) const override { return parent.isValid() ? 0 : 2; }

        QVariant data(const QModelIndex &index, int role) const override
        {
            const bool first = (index.column() == 0) != m_swapped;
            if (role == WidgetListView::TitleRole)
                return first ? QStringLiteral("first") : QStringLiteral("second");
            return role == WidgetListView::ValuesRole && first ? QStringList{"a", "b"} : QVariant();
        }

        bool setData(const QModelIndex &, const QVariant &, int) override { return true; }

        void swap()
        {
            beginMoveColumns(QModelIndex(), 1, 1, QModelIndex(), 0);
            m_swapped = !m_swapped;
            endMoveColumns();
        }

    private:
        bool m_swapped = false;
    };
    TwoColumns model;
    ViewMenu menu(&model);
    menu.show();
    menu.type(Qt::Key_8);
    takeNotes();
    menu.type(Qt::Key_6);
    QCOMPARE(takeNotes(), QStringList({"doChange 1", s_click}));
    model.swap();
    QVERIFY(looksFresh(menu));
    menu.type(Qt::Key_6);
    QCOMPARE(takeNotes(), QStringList{"handed on: release 6"});
    QCOMPARE(menu.list->selectedRow(), 1);
}

void TestWidgetListViewModels::proxyMayFilterAndSort()
{
    RowsModel model(rowsWithValues(60));
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&model);
    QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);
    ViewMenu menu(&proxy);
    menu.show();
    menu.list->setFocusAtItem(34);
    const auto filter = [&](const QString &text) { proxy.setFilterFixedString(text); };
    filter("4");
    QCOMPARE(titleOf(menu), QString("row 34"));
    QVERIFY(looksFresh(menu));
    filter(QString());
    QCOMPARE(titleOf(menu), QString("row 34"));
    QCOMPARE(menu.list->selectedRow(), 34);
    proxy.sort(0, Qt::DescendingOrder);
    QCOMPARE(titleOf(menu), QString("row 34"));
    QVERIFY(looksFresh(menu));
    filter("nothing like that");
    QCOMPARE(menu.list->selectedRow(), -1);
    QVERIFY(looksFresh(menu));
    filter("5");
    QVERIFY(menu.list->selectedRow() != -1);
    QVERIFY(looksFresh(menu));
    proxy.setSourceModel(nullptr);
    QCOMPARE(menu.list->selectedRow(), -1);
    proxy.setSourceModel(&model);
    QVERIFY(menu.list->selectedRow() != -1);
    QVERIFY(looksFresh(menu));
}

void TestWidgetListViewModels::anotherModelKeepsTheNearestRow()
{
    RowsModel model(rowsWithValues(20));
    RowsModel large(rowsWithValues(40, "large"));
    RowsModel small(rowsWithValues(4, "small"));
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(10);
    menu.list->setModel(&large);
    QCOMPARE(menu.list->model(), &large);
    QCOMPARE(menu.list->selectedRow(), 10);
    QVERIFY(looksFresh(menu));
    menu.list->setModel(&small);
    QCOMPARE(menu.list->selectedRow(), 3);
    QVERIFY(looksFresh(menu));
    // What becomes of a model of before does not matter.
    large.reset(QList<Row>());
    model.remove(0, 15);
    QCOMPARE(menu.list->selectedRow(), 3);
    menu.list->hideItem(1);
    menu.list->setModel(&small);
    QCOMPARE(menu.list->findNextRow(0), 2);
    QCOMPARE(menu.list->selectedRow(), 3);
    QVERIFY(looksFresh(menu, {1}));
}

void TestWidgetListViewModels::modelsMayBeShared()
{
    RowsModel model(rowsWithValues(12));
    ViewMenu menu(&model);
    ViewMenu other(&model);
    menu.show();
    menu.list->setFocusAtItem(3);
    other.show();
    other.list->setFocusAtItem(9);
    QCOMPARE(menu.list->selectedRow(), 3);
    other.type(Qt::Key_6);
    QCOMPARE(model.at(9).valueIndex, 1);
    model.remove(0, 1);
    QCOMPARE(menu.list->selectedRow(), 2);
    QCOMPARE(other.list->selectedRow(), 8);
    menu.list->hideItem(5);
    QCOMPARE(other.list->findNextRow(4), 5);
}

void TestWidgetListViewModels::flagsOfItemsDoNotMatter()
{
    class Flagless : public RowsModel
    {
    public:
        using RowsModel::RowsModel;
        Qt::ItemFlags flags(const QModelIndex &) const override { return Qt::NoItemFlags; }
    } model(rowsWithValues(12));
    ViewMenu menu(&model);
    menu.show();
    QCOMPARE(menu.list->selectedRow(), 0);
    menu.type(Qt::Key_6);
    QCOMPARE(takeNotes(), QStringList({"doChange 0", s_click}));
    QCOMPARE(menu.type(Qt::Key_8), 1);
    model.remove(1, 1);
    QCOMPARE(titleOf(menu), QString("row 2"));
    QCOMPARE(menu.type(Qt::Key_2), 0);
    const QImage picture = menu.picture();
    RowsModel flagged(rowsWithValues(12));
    flagged.remove(1, 1);
    flagged.setData(flagged.index(0), 1, WidgetListView::ValueIndexRole);
    ViewMenu other(&flagged);
    other.show();
    QCOMPARE(other.picture(), picture);
}

void TestWidgetListViewModels::modelsOfTheTestsKeepTheRules()
{
    LateModel late;
    RowsModel rows(rowsWithValues(12));
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&rows);
    for (QAbstractItemModel *model : QList<QAbstractItemModel *>{&late, &rows, &proxy}) {
        QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        ViewMenu menu(model);
        menu.show();
        late.deliver(5);
        for (int i = 0; i < 38; ++i)
            menu.type(i % 3 == 2 ? Qt::Key_6 : Qt::Key_8);
        QVERIFY(menu.list->selectedRow() > 0);
    }
    // The tester fetches in the middle of what it watches, so nobody else may.
    LazyModel lazy(50, 7);
    QAbstractItemModelTester tester(&lazy, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(lazy.rowCount() < 50);
}

void TestWidgetListViewModels::fetchesNearTheEndOnly()
{
    LazyModel model(1000, 20);
    ViewMenu menu(&model);
    QCOMPARE(model.m_fetches, 0);
    menu.show();
    QCOMPARE(model.rowCount(), 20);
    for (int row = 1; row < 300; ++row) {
        const int before = model.rowCount();
        QCOMPARE(menu.type(Qt::Key_8), row);
        const bool near = row + 2 * s_rowsInView >= before;
        QCOMPARE(model.rowCount() > before, near);
        QVERIFY(model.rowCount() <= row + 2 * s_rowsInView + 20);
    }
    QVERIFY(looksFresh(menu));
    const int fetched = model.rowCount();
    menu.list->setFocusAtItem(0);
    QCOMPARE(model.rowCount(), fetched);
    menu.list->setFocusAtItem(fetched - 1);
    QCOMPARE(model.rowCount(), fetched + 20);
    QCOMPARE(menu.list->selectedRow(), fetched - 1);
}

void TestWidgetListViewModels::fetchesNothingForAListThatIsNotSeen()
{
    LazyModel model(1000, 1);
    ViewMenu menu(&model);
    runEventLoop();
    QCOMPARE(model.m_fetches, 0);
    model.insert(0, RowsModel::titled(2));
    menu.list->setRowHeight(23);
    menu.list->setFocusAtItem(1);
    menu.list->hideItem(0);
    runEventLoop();
    QCOMPARE(model.m_fetches, 0);
}

void TestWidgetListViewModels::fetchesNothingFromAModelThatHasNoMore()
{
    class CompleteModel : public RowsModel
    {
    public:
        using RowsModel::RowsModel;
        void fetchMore(const QModelIndex &) override { ++m_fetches; }
        int m_fetches = 0;
    } model(RowsModel::titled(3));
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(2);
    model.remove(0, 1);
    runEventLoop();
    QCOMPARE(model.m_fetches, 0);
}

void TestWidgetListViewModels::fetchesForAnEmptyListAtItsShow()
{
    for (int portion : {1, 2, 5, 30}) {
        LazyModel model(1000, portion);
        ViewMenu menu(&model);
        QCOMPARE(model.rowCount(), 0);
        menu.show();
        QCOMPARE(menu.list->selectedRow(), 0);
        QVERIFY(model.rowCount() > 2 * s_rowsInView && model.rowCount() <= 2 * s_rowsInView + portion);
        QVERIFY(looksFresh(menu));
        // The same where the list is shown already.
        LazyModel another(1000, portion);
        menu.list->setModel(&another);
        QVERIFY(another.rowCount() > 2 * s_rowsInView && another.rowCount() <= 2 * s_rowsInView + portion);
        // Hidden rows do not count.
        for (int row = 1; row < another.rowCount() && row < 20; ++row)
            menu.list->hideItem(row);
        QCOMPARE(menu.type(Qt::Key_8), 20);
    }
}

void TestWidgetListViewModels::fetchesForAListThatIsShownBeforeItIsPainted()
{
    class PaintWatch : public QObject
    {
    public:
        explicit PaintWatch(const QAbstractItemModel *model) : m_model(model) { }

        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::Paint)
                m_rows.append(m_model->rowCount());
            return false;
        }

        QList<int> m_rows;

    private:
        const QAbstractItemModel *m_model;
    };
    LazyModel model(1000, 20);
    ViewMenu menu(&model);
    menu.list->hide();
    menu.show();
    QCOMPARE(model.m_fetches, 0);
    PaintWatch watch(&model);
    menu.view()->viewport()->installEventFilter(&watch);
    // As when one screen takes the place of another, the window is to be painted already.
    menu.screen.update();
    menu.list->show();
    QCOMPARE(model.m_fetches, 0);
    runEventLoop();
    QVERIFY(!watch.m_rows.isEmpty());
    QCOMPARE(watch.m_rows.first(), 20);
}

void TestWidgetListViewModels::fetchesForARowThatGetsTheFocusBeforeTheShow()
{
    LazyModel model(1000, 1);
    while (model.rowCount() < 30)
        model.fetchMore(QModelIndex());
    ViewMenu menu(&model);
    menu.list->setFocusAtItem(29);
    menu.show();
    QCOMPARE(menu.list->selectedRow(), 29);
    QVERIFY(model.rowCount() > 29 + s_rowsInView);
}

void TestWidgetListViewModels::fetchesForSmallerRows()
{
    LazyModel model(1000, 1);
    ViewMenu menu(&model);
    menu.show();
    const int before = model.rowCount();
    menu.list->setRowHeight(23);
    QVERIFY(model.rowCount() >= 2 * before - 2);
    QVERIFY(looksFresh(menu, {}, 23));
}

void TestWidgetListViewModels::fetchesWhatComesLater()
{
    LateModel model;
    ViewMenu menu(&model);
    menu.show();
    const int asked = model.m_fetches;
    QVERIFY(asked > 0);
    QCOMPARE(menu.list->selectedRow(), -1);
    model.deliver(3);
    QCOMPARE(menu.list->selectedRow(), 0);
    runEventLoop();
    QVERIFY(model.m_fetches > asked);
    QVERIFY(looksFresh(menu));
    model.deliver(3);
    model.deliver(3);
    const int enough = model.m_fetches;
    model.deliver(30);
    QCOMPARE(model.m_fetches, enough);
    QCOMPARE(menu.list->selectedRow(), 0);
    for (int i = 0; i < 38; ++i)
        menu.type(Qt::Key_8);
    QCOMPARE(menu.list->selectedRow(), 38);
    QVERIFY(model.m_fetches > enough);
    model.deliver(3);
    QCOMPARE(menu.list->selectedRow(), 38);
    QCOMPARE(menu.type(Qt::Key_8), 39);
    QVERIFY(looksFresh(menu));
}

void TestWidgetListViewModels::fetchesOnWhenTooFewComeLater()
{
    LateModel model;
    ViewMenu menu(&model);
    menu.show();
    // More than are in view, which is all that the toolkit itself looks at, but less than two views.
    int asked = model.m_fetches;
    model.deliver(2 * s_rowsInView - 1);
    runEventLoop();
    QVERIFY(model.m_fetches > asked);
    model.deliver(2);
    runEventLoop();
    asked = model.m_fetches;
    model.deliver(1);
    runEventLoop();
    QCOMPARE(model.m_fetches, asked);
}

void TestWidgetListViewModels::fetchWithoutRowsIsNotAskedForAgainAndAgain()
{
    LateModel model;
    model.deliver(5);
    ViewMenu menu(&model);
    menu.show();
    for (int i = 0; i < 20; ++i) {
        const int before = model.m_fetches;
        QCOMPARE(menu.type(Qt::Key_8), (i + 1) % 5);
        onScreen(menu.screen);
        QVERIFY(model.m_fetches <= before + 1);
    }
}

void TestWidgetListViewModels::fetchIsNotAskedForInTheMiddleOfAFetch()
{
    class NestingModel : public LazyModel
    {
    public:
        NestingModel()
            : LazyModel(200, 1)
        {
        }

        void fetchMore(const QModelIndex &parent) override
        {
            m_deepest = qMax(m_deepest, ++m_depth);
            LazyModel::fetchMore(parent);
            --m_depth;
        }

        int m_deepest = 0;

    private:
        int m_depth = 0;
    };
    NestingModel model;
    ViewMenu menu(&model);
    // As an application does that wants the first row whatever comes.
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, menu.list.data(),
                     [&] { menu.list->setFocusAtItem(0); });
    menu.show();
    // The toolkit itself asks for more where the current row is the last one, as the first is that comes.
    QVERIFY2(model.m_deepest <= 2, qPrintable(QString::number(model.m_deepest)));
    QCOMPARE(menu.list->selectedRow(), 0);
    const int fetched = model.rowCount();
    QVERIFY(fetched > 2 * s_rowsInView);
    // And there is a next time.
    menu.list->setFocusAtItem(fetched - 2);
    QVERIFY(model.rowCount() > fetched);
}

void TestWidgetListViewModels::asksNothingOfAModelThatChangesWhileItIsHidden()
{
    class CountingModel : public LateModel
    {
    public:
        int rowCount(const QModelIndex &parent) const override
        {
            ++m_questions;
            return RowsModel::rowCount(parent);
        }

        bool canFetchMore(const QModelIndex &parent) const override
        {
            ++m_questions;
            return LateModel::canFetchMore(parent);
        }

        mutable int m_questions = 0;
    } model;
    model.deliver(20);
    ViewMenu menu(&model);
    menu.show();
    menu.list->hide();
    runEventLoop();
    model.m_asked = 0;
    model.m_questions = 0;
    const QModelIndex changed = model.index(3);
    model.m_questions = 0;
    emit model.dataChanged(changed, changed);
    runEventLoop();
    QCOMPARE(model.m_asked, 0);
    QCOMPARE(model.m_questions, 0);
}

void TestWidgetListViewModels::rowsThatComeLeaveNoTimerRunning()
{
    RowsModel model(RowsModel::titled(5));
    ViewMenu menu(&model);
    model.insert(0, RowsModel::titled(5));
    menu.show();
    model.insert(0, RowsModel::titled(5));
    model.sortRows();
    model.reset(RowsModel::titled(20));
    for (int i = 0; i < 3; ++i)
        runEventLoop();
    QCOMPARE(QAbstractEventDispatcher::instance()->registeredTimers(menu.view()).size(), 0);
}

void TestWidgetListViewModels::modelOfBeforeNoLongerMovesTheFocus()
{
    RowsModel before(RowsModel::titled(12));
    RowsModel now;
    ViewMenu menu(&before);
    menu.show();
    menu.list->setFocusAtItem(5);
    menu.list->setModel(&now);
    before.insert(0, RowsModel::titled(3));
    now.insert(0, RowsModel::titled(12));
    QCOMPARE(menu.list->selectedRow(), 5);
}

void TestWidgetListViewModels::rowThatGoesLeavesTheViewWhereItIs()
{
    RowsModel model(RowsModel::titled(20));
    ViewMenu menu(&model);
    menu.show();
    for (int row : {15, 10}) {
        menu.list->setFocusAtItem(19);
        menu.list->setFocusAtItem(row);
        QCOMPARE(menu.top(row), 0);
        model.remove(row, 1);
        QCOMPARE(menu.list->selectedRow(), row);
        QCOMPARE(menu.top(row), 0);
        model.insert(row, RowsModel::titled(1, "new"));
    }
}

void TestWidgetListViewModels::focusThatComesAndGoesIsSeenAtOnce()
{
    RowsModel model(RowsModel::titled(5));
    ViewMenu menu(&model);
    QWidget other(&menu.screen);
    other.setFocusPolicy(Qt::StrongFocus);
    other.setGeometry(0, 0, 1, 1);
    menu.show();
    const QImage before = onScreen(menu.screen);
    other.setFocus();
    const QImage without = onScreen(menu.screen);
    QVERIFY(without != before);
    menu.view()->viewport()->update();
    QCOMPARE(onScreen(menu.screen), without);
    menu.list->setFocus();
    QCOMPARE(onScreen(menu.screen), before);
}

void TestWidgetListViewModels::noFocusStyleIsSeenAtOnce()
{
    RowsModel model(RowsModel::titled(5));
    ViewMenu menu(&model);
    menu.show();
    const QImage before = onScreen(menu.screen);
    menu.list->setNoFocusStyle(3);
    const QImage seen = onScreen(menu.screen);
    QVERIFY(seen != before);
    menu.view()->viewport()->update();
    QCOMPARE(onScreen(menu.screen), seen);
}

void TestWidgetListViewModels::rowHeightIsSeenAtOnce()
{
    RowsModel model(RowsModel::titled(12));
    ViewMenu menu(&model);
    menu.show();
    for (int height : {30, 69, 46}) {
        menu.list->setRowHeight(height);
        QCOMPARE(menu.view()->verticalScrollBar()->maximum(), 12 - 138 / height);
        QVERIFY(looksFresh(menu, {}, height));
    }
}

void TestWidgetListViewModels::rowInFocusThatIsHiddenIsGoneAtOnce()
{
    RowsModel model(RowsModel::titled(3));
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(1);
    onScreen(menu.screen);
    menu.list->hideItem(1);
    QVERIFY(looksFresh(menu, {1}));
}

void TestWidgetListViewModels::titleThatScrollsStopsWithTheWindow()
{
    RowsModel model(RowsModel::titled(QStringList(s_longTitle)));
    ViewMenu menu(&model);
    menu.show();
    QCOMPARE(turnTitle(menu), 1);
    menu.screen.hide();
    QCOMPARE(turnTitle(menu), 0);
}

void TestWidgetListViewModels::asksForRowsInViewOnly()
{
    AskedModel model(rowsWithValues(100000));
    ViewMenu menu(&model);
    menu.show();
    QVERIFY2(model.m_askedRows.size() <= s_rowsInView + 1, qPrintable(QString::number(model.m_askedRows.size())));
    menu.list->m_scrollOnHold = true;
    const auto inView = [&] {
        QSet<int> rows;
        const int top = menu.view()->verticalScrollBar()->value();
        for (int i = -1; i <= s_rowsInView; ++i)
            rows.insert(top + i);
        return rows;
    };
    const auto ask = [&](const char *what, const std::function<void()> &act) {
        model.m_askedRows.clear();
        model.m_asked = 0;
        QSet<int> allowed = inView();
        act();
        allowed.unite(inView());
        onScreen(menu.screen);
        QVERIFY2(allowed.contains(model.m_askedRows), what);
        QVERIFY2(model.m_asked < 300, what);
    };
    for (int key : {Qt::Key_8, Qt::Key_8, Qt::Key_8, Qt::Key_8, Qt::Key_2, Qt::Key_4, Qt::Key_6, Qt::Key_Menu,
                    Qt::Key_Escape, Qt::Key_F1, Qt::Key_A, Qt::Key_2, Qt::Key_2, Qt::Key_2, Qt::Key_2, Qt::Key_2}) {
        const int row = menu.list->selectedRow();
        if ((key == Qt::Key_4 || key == Qt::Key_6) && model.at(row).values.isEmpty())
            continue;
        ask(QKeySequence(key).toString().toLatin1(), [&] { menu.type(key); });
    }
    ask("setFocusAtItem", [&] { menu.list->setFocusAtItem(50000); });
    ask("hideItem", [&] { menu.list->hideItem(20000); });
    ask("showItem", [&] { menu.list->showItem(20000); });
    ask("insert", [&] { model.insert(3, RowsModel::titled(2)); });
    ask("remove", [&] { model.remove(3, 2); });
    ask("change", [&] { model.change(7, RowsModel::titledRow("changed")); });
    ask("hide and show", [&] {
        menu.list->hide();
        menu.list->show();
        menu.list->setFocus();
    });
    ask("a badge in view", [&] { menu.type(Qt::Key_1); });
    // Page after page.
    pressKey(menu.list, Qt::Key_8);
    repeatKey(menu.list, Qt::Key_8, 11);
    for (int i = 0; i < 20; ++i)
        ask("held", [&] { repeatKey(menu.list, Qt::Key_8); });
    releaseKey(menu.list, Qt::Key_8);
}

void TestWidgetListViewModels::manyRowsCostNoMemory()
{
#ifdef COUNTS_ALLOCATIONS
    struct Cost
    {
        long allocations;
        qint64 heap;
    };
    const auto costOf = [](int rows) {
        RowsModel model(RowsModel::titled(rows));
        Cost cost{};
#ifdef COUNTS_HEAP
        const auto heap = [] {
            const auto info = mallinfo2();
            return qint64(info.uordblks + info.hblkhd);
        };
        const qint64 heapBefore = heap();
#endif
        const long before = allocationCount();
        ViewMenu menu(&model);
        menu.screen.setAttribute(Qt::WA_DontShowOnScreen);
        menu.screen.show();
        const char keys[] = "888888882222222288884646";
        for (const char *key = keys; *key; ++key) {
            pressKey(menu.list, *key);
            releaseKey(menu.list, *key);
        }
        menu.list->setFocusAtItem(rows - 1);
        menu.list->setFocusAtItem(0);
        cost.allocations = allocationCount() - before;
#ifdef COUNTS_HEAP
        cost.heap = heap() - heapBefore;
#endif
        return cost;
    };
    costOf(12);
    const Cost few = costOf(12);
    const Cost many = costOf(100000);
    QVERIFY2(many.allocations <= few.allocations + 20,
             qPrintable(QStringLiteral("%1 and %2").arg(many.allocations).arg(few.allocations)));
    QVERIFY2(many.heap <= few.heap + 20000, qPrintable(QStringLiteral("%1 and %2").arg(many.heap).arg(few.heap)));
#else
    QSKIP("Nobody counts here.");
#endif
}

namespace {

/// What a list is to do, told in plain words: items, some of them hidden, of which one has the focus.
struct Reference
{
    QStringList items;
    QSet<QString> hidden;
    QString focus;  // null: none
    int lastRow = 0;

    int rowOfFocus() const { return focus.isNull() ? -1 : int(items.indexOf(focus)); }
    bool isSeen(int row) const { return !hidden.contains(items.at(row)); }

    int seenCount() const
    {
        int count = 0;
        for (int row = 0; row < items.size(); ++row)
            count += isSeen(row);
        return count;
    }

    void setFocus(int row)
    {
        focus = items.at(row);
        lastRow = row;
    }

    /// The next row from \a row that is seen, downwards before upwards.
    void focusNearest(int row)
    {
        if (items.isEmpty()) {
            focus = QString();
            lastRow = row;
            return;
        }
        row = qMin(row, int(items.size()) - 1);
        for (int candidate = row; candidate < items.size(); ++candidate) {
            if (isSeen(candidate))
                return setFocus(candidate);
        }
        for (int candidate = row; candidate >= 0; --candidate) {
            if (isSeen(candidate))
                return setFocus(candidate);
        }
    }

    /// After a change; \a row is where the focus goes if its item is gone.
    void settle(int row)
    {
        const int current = rowOfFocus();
        focusNearest(current == -1 ? row : current);
    }

    void step(int direction, bool around)
    {
        const int count = int(items.size());
        int row = rowOfFocus();
        for (int i = 0; i < count; ++i) {
            row += direction;
            if (!around && (row < 0 || row >= count))
                return;
            row = (row + count) % count;
            if (isSeen(row))
                return setFocus(row);
        }
    }
};

}

void TestWidgetListViewModels::randomWalk_data()
{
    QTest::addColumn<int>("seed");
    QTest::addColumn<bool>("proxied");
    for (int seed = 1; seed <= 4; ++seed)
        QTest::addRow("%d", seed) << seed << false;
    QTest::newRow("through a proxy") << 5 << true;
}

void TestWidgetListViewModels::changeOfOneRowAsksForThatRowOnly()
{
    AskedModel model(rowsWithValues(12));
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(1);
    for (int row : {0, 2, 1, 5}) {
        onScreen(menu.screen);
        model.m_askedRows.clear();
        model.change(row, RowsModel::titledRow("changed"));
        onScreen(menu.screen);
        QCOMPARE(model.m_askedRows, row < s_rowsInView ? QSet<int>{row} : QSet<int>());
    }
}

void TestWidgetListViewModels::formerModelIsNotListenedTo()
{
    RowsModel former(rowsWithValues(12));
    RowsModel model(rowsWithValues(12));
    ViewMenu menu(&former);
    QVERIFY(showAndPaint(menu.screen));
    menu.list->setModel(&model);
    onScreen(menu.screen);
    model.m_asked = 0;
    const QStringList work = workOf(menu.screen, [&] {
        for (const Change &change : changes()) {
            change.make(former);
            former.reset(rowsWithValues(12));
            former.change(menu.list->selectedRow(), RowsModel::titledRow("changed"));
            former.reset(rowsWithValues(12));
        }
    });
    QCOMPARE(work, QStringList());
    QCOMPARE(model.m_asked, 0);
}

void TestWidgetListViewModels::sameModelAgainChangesNothing()
{
    RowsModel model(rowsWithValues(12));
    ViewMenu menu(&model);
    QVERIFY(showAndPaint(menu.screen));
    menu.list->hideItem(1);
    menu.list->setFocusAtItem(6);
    onScreen(menu.screen);
    model.m_asked = 0;
    QCOMPARE(workOf(menu.screen, [&] { menu.list->setModel(&model); }), QStringList());
    QCOMPARE(model.m_asked, 0);
    QCOMPARE(menu.list->selectedRow(), 6);
    QVERIFY(menu.view()->visualRect(model.index(1)).isEmpty());
}

void TestWidgetListViewModels::modelsThatCameAndWentLeaveNothing()
{
    RowsModel models[2] = {RowsModel(rowsWithValues(12)), RowsModel(rowsWithValues(3))};
    ViewMenu menu(nullptr);
    menu.show();
    const auto objects = [&] {
        runEventLoop();
        return menu.list->findChildren<QObject *>().size();
    };
    menu.list->setModel(&models[0]);
    const auto before = objects();
    for (int i = 1; i < 10; ++i)
        menu.list->setModel(&models[i % 2]);
    QCOMPARE(objects(), before);
}

void TestWidgetListViewModels::rowsAreOnlyToBeLookedAt()
{
    RowsModel model(rowsWithValues(12));
    ViewMenu menu(&model);
    menu.show();
    const QAbstractItemView *view = menu.view();
    QCOMPARE(view->focusPolicy(), Qt::NoFocus);
    QCOMPARE(view->frameWidth(), 0);
    QCOMPARE(view->selectionMode(), QAbstractItemView::NoSelection);
    QCOMPARE(view->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(view->hasAutoScroll(), false);
    QCOMPARE(view->verticalScrollMode(), QAbstractItemView::ScrollPerItem);
    QCOMPARE(view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    // What a pointing device does goes to the screen.
    QCOMPARE(menu.screen.childAt(100, 100), menu.list.data());
}

void TestWidgetListViewModels::rowsThatScrollAreMovedAndNotPainted()
{
    class Regions : public QObject
    {
    public:
        QRegion m_painted;

    protected:
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::Paint)
                m_painted += static_cast<QPaintEvent *>(event)->region();
            return false;
        }
    };
    RowsModel model(rowsWithValues(40));
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(7);
    onScreen(menu.screen);
    Regions regions;
    menu.view()->viewport()->installEventFilter(&regions);
    menu.type(Qt::Key_8);
    onScreen(menu.screen);
    // The row that loses the focus, and the one that comes into view with it.
    QCOMPARE(menu.top(7), s_rowHeight);
    QVERIFY(!regions.m_painted.isEmpty());
    QVERIFY(!regions.m_painted.intersects(QRect(0, 0, 200, s_rowHeight)));
    regions.m_painted = QRegion();
    menu.type(Qt::Key_2);
    onScreen(menu.screen);
    QCOMPARE(menu.top(7), s_rowHeight);
    QVERIFY(!regions.m_painted.intersects(QRect(0, 0, 200, s_rowHeight)));
    QVERIFY(regions.m_painted.intersects(QRect(0, s_rowHeight, 200, s_rowHeight)));
}

void TestWidgetListViewModels::rowHiddenTwiceIsHiddenOnce()
{
    RowsModel model(rowsWithValues(12));
    ViewMenu menu(&model);
    QVERIFY(showAndPaint(menu.screen));
    menu.list->hideItem(3);
    onScreen(menu.screen);
    QCOMPARE(workOf(menu.screen, [&] { menu.list->hideItem(3); }), QStringList());
    QVERIFY(looksFresh(menu, {3}));
    menu.list->showItem(3);
    onScreen(menu.screen);
    QCOMPARE(workOf(menu.screen, [&] { menu.list->showItem(3); }), QStringList());
    QVERIFY(looksFresh(menu));
}

void TestWidgetListViewModels::randomWalk()
{
    QFETCH(int, seed);
    QFETCH(bool, proxied);
    std::mt19937 engine(static_cast<unsigned>(seed));
    const auto random = [&](int below) { return int(engine() % static_cast<unsigned>(below)); };
    int created = 0;
    const auto newRows = [&](int count) {
        QList<Row> rows;
        for (int i = 0; i < count; ++i) {
            Row row = RowsModel::titledRow(QStringLiteral("%1 item %2").arg(QChar('a' + random(26))).arg(created++));
            if (random(2))
                row.values = QStringList{"one", "two", "three"};
            row.moreDepth = random(3) == 0;
            row.badge = random(10);
            rows.append(row);
        }
        return rows;
    };
    RowsModel model(newRows(10));
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&model);
    ViewMenu menu(proxied ? static_cast<QAbstractItemModel *>(&proxy) : &model);
    menu.list->m_scrollOnHold = true;
    menu.show();
    Reference reference;
    const auto titles = [&] {
        QStringList all;
        for (int row = 0; row < model.rowCount(); ++row)
            all.append(model.at(row).title);
        return all;
    };
    reference.items = titles();
    reference.setFocus(0);

    for (int i = 0; i < 3000; ++i) {
        const int count = model.rowCount();
        const int lastRow = reference.lastRow;
        QString what;
        switch (count > 40 ? 2 : random(13)) {
        case 0:
        case 1: {
            const int at = random(count + 1);
            const int rows = 1 + random(5);
            what = QString("insert %1 at %2").arg(rows).arg(at);
            model.insert(at, newRows(rows));
            reference.items = titles();
            reference.settle(lastRow);
            break;
        }
        case 2: {
            if (count == 0)
                continue;
            const int at = random(count);
            const int rows = 1 + random(qMin(count - at, 12));
            what = QString("remove %1 at %2").arg(rows).arg(at);
            model.remove(at, rows);
            reference.items = titles();
            reference.settle(at);
            break;
        }
        case 3: {
            if (count < 2)
                continue;
            const int from = random(count);
            const int to = random(count);
            if (from == to)
                continue;
            what = QString("move %1 to %2").arg(from).arg(to);
            model.move(from, to);
            reference.items = titles();
            reference.settle(lastRow);
            break;
        }
        case 4:
            if (random(8) != 0)
                continue;
            what = "sort";
            model.sortRows();
            reference.items = titles();
            reference.settle(lastRow);
            break;
        case 5:
            if (random(20) != 0)
                continue;
            what = "reset";
            model.reset(newRows(random(15)));
            reference.items = titles();
            reference.hidden.clear();
            reference.focus = QString();
            reference.settle(lastRow);
            break;
        case 6:
            if (count > 0) {
                const int row = random(count);
                what = QString("change %1").arg(row);
                Row changed = newRows(1).at(0);
                changed.title = model.at(row).title;
                model.change(row, changed);
            }
            break;
        case 7:
            if (reference.seenCount() > 1) {
                const int row = random(count);
                what = QString("hide %1").arg(row);
                menu.list->hideItem(row);
                reference.hidden.insert(reference.items.at(row));
            }
            break;
        case 8:
            if (count > 0) {
                const int row = random(count);
                what = QString("show %1").arg(row);
                menu.list->showItem(row);
                reference.hidden.remove(reference.items.at(row));
            }
            break;
        case 9:
            if (count > 0) {
                const int row = random(count);
                if (!reference.isSeen(row))
                    continue;
                what = QString("focus %1").arg(row);
                menu.list->setFocusAtItem(row);
                reference.setFocus(row);
            }
            break;
        case 10: {
            const bool up = random(2);
            what = up ? "up" : "down";
            menu.type(up ? Qt::Key_2 : Qt::Key_8);
            if (count > 0)
                reference.step(up ? -1 : 1, true);
            break;
        }
        case 11: {
            if (count == 0 || !reference.isSeen(reference.rowOfFocus()))
                continue;
            const int key = random(2) ? Qt::Key_2 : Qt::Key_8;
            const int rows = random(10);
            what = QString("hold %1 for %2").arg(QKeySequence(key).toString()).arg(rows);
            // Whatever was counted before.
            pressKey(menu.list, key);
            while (!takeNotes().join(" ").contains("LongPressed"))
                repeatKey(menu.list, key);
            repeatKey(menu.list, key, rows);
            releaseKey(menu.list, key);
            for (int step = 0; step < rows; ++step)
                reference.step(key == Qt::Key_2 ? -1 : 1, false);
            break;
        }
        case 12: {
            const int row = reference.rowOfFocus();
            const bool steps = row != -1 && reference.isSeen(row) && model.at(row).values.size() > 1;
            const int before = row == -1 ? 0 : model.at(row).valueIndex;
            what = "right";
            takeNotes();
            pressKey(menu.list, Qt::Key_6);
            if (steps) {
                releaseKey(menu.list, Qt::Key_6);
                QCOMPARE(takeNotes(), QStringList({QStringLiteral("doChange %1").arg(row), s_click}));
                QCOMPARE(model.at(row).valueIndex, (before + 1) % 3);
            }
            break;
        }
        }
        if (model.rowCount() > 0 && reference.seenCount() == 0) {
            for (int row = 0; row < model.rowCount(); ++row)
                menu.list->showItem(row);
            menu.list->setFocusAtItem(0);
            reference.hidden.clear();
            reference.setFocus(0);
        }
        const int row = reference.rowOfFocus();
        QVERIFY2(menu.list->selectedRow() == row,
                 qPrintable(QStringLiteral("step %1, %2: %3 instead of %4")
                                .arg(i)
                                .arg(what)
                                .arg(menu.list->selectedRow())
                                .arg(row)));
        if (row != -1 && reference.isSeen(row))
            QVERIFY2(menu.isInView(row), qPrintable(QStringLiteral("step %1, %2").arg(i).arg(what)));
        if (i % 40 == 0) {
            QList<int> hidden;
            for (int candidate = 0; candidate < reference.items.size(); ++candidate) {
                if (!reference.isSeen(candidate))
                    hidden.append(candidate);
            }
            QVERIFY2(looksFresh(menu, hidden), qPrintable(QStringLiteral("step %1, %2").arg(i).arg(what)));
        }
    }
}

int main(int argc, char **argv)
{
    // grabWindow() gives what is on the screen with this platform.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    TestWidgetListViewModels test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_widgetlistviewmodels.moc"
