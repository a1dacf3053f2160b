#include "displaywork.h"
#include "listtesting.h"
#include "listviewtesting.h"

#include <QLabel>
#include <QStringListModel>
#include <QTemporaryDir>
#include <QtTest>

#include <climits>
#include <functional>
#include <memory>

Q_DECLARE_METATYPE(std::function<void(WidgetListView &)>)

namespace {

const QString s_click = QStringLiteral("sound:901");

/// What a list is set up with, of either make.
struct Setup
{
    QList<Row> rows;
    QList<int> hidden;
    int start = 0;
    int noFocusRows = -1;  // -1: not in the no-focus style
    bool functionKeys = false;
    bool stopAtEnds = false;
    bool enterOnOK = false;
    bool silent = false;
};

struct Stroke
{
    int key;
    int repeats;
};

template <typename List>
void setUp(List &list, const Setup &setup)
{
    list.setGeometry(0, 0, 220, 176);
    list.m_useFunctionKeys = setup.functionKeys;
    list.m_stopAtEnds = setup.stopAtEnds;
    if (setup.noFocusRows >= 0)
        list.setNoFocusStyle(setup.noFocusRows);
    for (int row : setup.hidden)
        list.hideItem(row);
}

QString strokeName(const Stroke &stroke)
{
    return QStringLiteral("-- %1 and %2 repeats").arg(QKeySequence(stroke.key).toString()).arg(stroke.repeats);
}

/// What a WidgetList notes, and the row in focus, after each of \a strokes.
QStringList notesOfWidgetList(const Setup &setup, const QList<Stroke> &strokes)
{
    SoundManager *sounds = setup.silent ? nullptr : sound();
    NotingScreen screen;
    screen.resize(220, 176);
    WidgetList list(int(setup.rows.size()), &screen, sounds);
    QList<WidgetListItem *> items;
    for (const Row &row : setup.rows) {
        WidgetListItem *item = newItem(row, sounds);
        item->m_enterOnOK = setup.enterOnOK;
        item->m_useFunctionKeys = setup.functionKeys;
        const int number = int(items.size());
        items.append(item);
        QObject::connect(item, &WidgetListItem::doEnter,
                         [number] { RecordingPlatform::addEvent(QStringLiteral("doEnter %1").arg(number)); });
        QObject::connect(item, &WidgetListItem::doChange,
                         [number] { RecordingPlatform::addEvent(QStringLiteral("doChange %1").arg(number)); });
        list.addListItem(item, row.badge == -1 ? -1 : Qt::Key_0 + row.badge);
    }
    setUp(list, setup);
    noteListSignals(&list);
    showInFront(screen);
    QStringList notes;
    for (const Stroke &stroke : strokes) {
        if (setup.start < items.size())
            list.setFocusAtItem(setup.start);
        strike(&list, stroke.key, stroke.repeats);
        notes << strokeName(stroke) << takeNotes() << QStringLiteral("row %1").arg(focusedRow(list));
        if (setup.start < items.size()) {
            const Row &row = setup.rows.at(setup.start);
            if (row.values.size() > 1)
                notes << items.at(setup.start)->getDisplayValue();
        }
    }
    return notes;
}

QStringList notesOfWidgetListView(const Setup &setup, const QList<Stroke> &strokes)
{
    RowsModel model(setup.rows);
    ViewMenu menu(&model, setup.silent ? nullptr : sound());
    setUp(*menu.list, setup);
    menu.list->m_enterOnOK = setup.enterOnOK;
    menu.show();
    QStringList notes;
    for (const Stroke &stroke : strokes) {
        if (setup.start < setup.rows.size())
            menu.list->setFocusAtItem(setup.start);
        menu.type(stroke.key, stroke.repeats);
        notes << strokeName(stroke) << takeNotes() << QStringLiteral("row %1").arg(menu.list->selectedRow());
        if (setup.start < setup.rows.size()) {
            const Row &row = model.at(setup.start);
            if (row.values.size() > 1)
                notes << row.values.value(row.valueIndex);
        }
    }
    return notes;
}

QList<int> allKeys()
{
    QList<int> keys{Qt::Key_F1, Qt::Key_F2, Qt::Key_F3, Qt::Key_F4, Qt::Key_F5, Qt::Key_Menu, Qt::Key_Escape,
                    Qt::Key_Return, Qt::Key_Enter, Qt::Key_Select, Qt::Key_Up, Qt::Key_Down, Qt::Key_Left,
                    Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Space,
                    Qt::Key_A, Qt::Key_R, Qt::Key_Slash, Qt::Key_Colon, Qt::Key_Asterisk, Qt::Key_NumberSign,
                    Qt::Key_Backspace};
    for (int digit = 0; digit <= 9; ++digit)
        keys.append(Qt::Key_0 + digit);
    return keys;
}

QString invalidIndex(const char *function, int index)
{
    return QString("[ui/view/widget/widgetlistview.cpp, %1] Invalid index %2").arg(function).arg(index);
}

/// Which key goes up or down.
int up(bool functionKeys)
{
    return functionKeys ? Qt::Key_F1 : Qt::Key_2;
}

int down(bool functionKeys)
{
    return functionKeys ? Qt::Key_F2 : Qt::Key_8;
}

}

Q_DECLARE_METATYPE(Setup)

class TestWidgetListView : public QObject
{
    Q_OBJECT

private slots:
    void init();

    // Beside a WidgetList
    void keysDoWhatTheyDoInAWidgetList_data();
    void keysDoWhatTheyDoInAWidgetList();
    void walksDoWhatTheyDoInAWidgetList_data();
    void walksDoWhatTheyDoInAWidgetList();
    void hasTheSignalsOfAWidgetListAndItsRow();

    // Rows
    void eachShowStartsOnRowZero();
    void rowSetBeforeTheShowIsThereAfterwards();
    void keepsItsRowWhileAnotherWidgetHasTheKeys();
    void takesTheFocusItselfWhenItIsShown();
    void setFocusAtItemComesIntoViewInSilence();
    void badRowsAreLogged_data();
    void badRowsAreLogged();
    void initialAndLastFocusCanBeInvoked();
    void rowHeightsAreFromOneToTheHeightOfTheList();

    // Hidden rows
    void hiddenRowsArePassed();
    void rowsOfOnePixelAreScrolledInto();
    void focusComesForTheReasonOther();
    void rowInFocusStaysInItsPlaceWhenOthersAreHidden();
    void rowThatIsShownGetsTheFocusWhereNoneHasIt();
    void rowHiddenWithTheFocusKeepsIt();
    void rowHiddenWithTheFocusGivesItToTheNearestWhenTheModelChanges();
    void lastRowStandsAtTheBottom();
    void focusOnAHiddenRowScrollsNowhere();
    void allRowsHiddenStay();
    void allRowsHiddenBeforeTheShowAreNotSelectedByKeys();
    void allRowsHiddenReachTheEnds();
    void hiddenRowsAreForgottenWithTheModel();

    // The no-focus style
    void turnsPagesInTheNoFocusStyle();
    void noFocusStyleOfNoRowsMovesByRows();

    // Up and down held
    void shortPressesAddUpToALongOne();
    void showForgetsWhatWasHeld();
    void heldKeyScrollsOnByRowsAndThenByPages_data();
    void heldKeyScrollsOnByRowsAndThenByPages();
    void heldKeyScrollsUpToTheEnds_data();
    void heldKeyScrollsUpToTheEnds();
    void heldKeyPassesHiddenRows();
    void heldKeyInTheNoFocusStyle();
    void heldKeyTurnsPagesInTheNoFocusStyle_data();
    void heldKeyTurnsPagesInTheNoFocusStyle();
    void heldKeyStaysWithoutScrollOnHold();
    void heldKeyStaysWhereAllRowsAreHidden();
    void hideEndsTheScrolling();

    // Left and right
    void switchesAreOffAtFirst();
    void mirroredListTurnsLeftAndRightRound();
    void valueStepsInTheModel();
    void valueStepsFromAnIndexOutside_data();
    void valueStepsFromAnIndexOutside();
    void refusedValueClicksOnly();
    void rowWithValuesIgnoresASetValue();

    // Digits
    void badgeInViewComesFirst();
    void badgeJustBelowTheViewComesAfterThoseAbove();
    void badgeOutOfViewIsFound();
    void badgeThatLeadsNowhereIsLogged();
    void hiddenRowIsNotSelectedByItsBadge();
    void badgesThatAreNoDigitSelectNothing_data();
    void badgesThatAreNoDigitSelectNothing();
    void digitThatIsADirectionSelectsNothing();

    // Letters
    void lettersOnlyWithFunctionKeysAndTheSwitch_data();
    void lettersOnlyWithFunctionKeysAndTheSwitch();
    void lettersGoDownAroundTheEnd();
    void everyDigitKeyMayHaveLettersAndBadges();
    void letterOfTheRowInFocusAloneStaysThere();
    void letterIsSearchedUpToTheFirstRowThatHasIt();
    void keyPressedAgainGoesToTheNextLetter();
    void otherKeysEndPressingAgain();
    void hideEndsPressingAgain();
    void lettersWithoutTitlesArePassed();
    void letterJump_data();
    void letterJump();
    void lettersPassHiddenRows();
    void emptyLettersLeaveTheKeyAlone();
    void badLetterKeysAreLogged_data();
    void badLetterKeysAreLogged();

    // Without a model
    void comingAndGoingModelsAreNoReasonToWarn();
    void everythingWorksWithoutAModel_data();
    void everythingWorksWithoutAModel();

    // The rows' part of the list, as the toolkit sees it
    void rowsAreFoundWhereTheyAre();
    void eachLineIsPaintedByItself();
    void rowsFollowTheFontOfTheApplication();
    void titleScrollsOnceItsFontIsTooWide();

    // Title bar
    void iconTakesALabelOnlyWhereItMust_data();
    void iconTakesALabelOnlyWhereItMust();
    void iconsTakeOneLabelForAll();
    void guidesTakeOneLabelForAll();
    void changeOfTheTitleBarPaintsItAlone_data();
    void changeOfTheTitleBarPaintsItAlone();
};

void TestWidgetListView::init()
{
    RecordingPlatform::reset();
}

void TestWidgetListView::keysDoWhatTheyDoInAWidgetList_data()
{
    const QStringList values{"one", "two", "three"};
    struct Kind
    {
        const char *name;
        std::function<void(Row &)> describe;
    };
    const Kind kinds[] = {
        {"a title", [](Row &) {}},
        {"leads deeper", [](Row &row) { row.moreDepth = true; }},
        {"not modifiable", [](Row &row) { row.modifiable = false; }},
        {"not modifiable, leads deeper", [](Row &row) { row.modifiable = false, row.moreDepth = true; }},
        {"not modifiable, values", [&](Row &row) { row.modifiable = false, row.values = values; }},
        {"a set value", [](Row &row) { row.setValue = "set"; }},
        {"an empty set value", [](Row &row) { row.setValue = QString(""); }},
        {"a set value, leads deeper", [](Row &row) { row.setValue = "set", row.moreDepth = true; }},
        {"one value", [&](Row &row) { row.values = values.mid(0, 1); }},
        {"one value, leads deeper", [&](Row &row) { row.values = values.mid(0, 1), row.moreDepth = true; }},
        {"one value, deletable", [&](Row &row) { row.values = values.mid(0, 1), row.deletable = true; }},
        {"one value, index outside", [&](Row &row) { row.values = values.mid(0, 1), row.valueIndex = 5; }},
        {"two values", [&](Row &row) { row.values = values.mid(0, 2); }},
        {"three values, the last", [&](Row &row) { row.values = values, row.valueIndex = 2; }},
        {"three values, lead deeper", [&](Row &row) { row.values = values, row.moreDepth = true; }},
        {"a badge", [](Row &row) { row.badge = 5; }},
        {"a badge, leads deeper", [](Row &row) { row.badge = 5, row.moreDepth = true; }},
        {"badge 0, values", [&](Row &row) { row.badge = 0, row.values = values; }},
    };
    QTest::addColumn<Setup>("setup");
    for (const Kind &kind : kinds) {
        for (bool functionKeys : {false, true}) {
            const char *mode = functionKeys ? "F keys" : "digits";
            const auto add = [&](const char *name, const std::function<void(Setup &)> &change) {
                Setup setup;
                setup.functionKeys = functionKeys;
                setup.rows = RowsModel::titled(7);
                setup.rows[0].badge = 3;
                setup.rows[6].badge = 7;
                setup.rows[4].badge = 4;
                setup.rows[5].badge = 6;
                setup.rows[5].moreDepth = true;
                setup.rows[6].moreDepth = true;
                setup.start = 2;
                change(setup);
                Row row = setup.rows.at(setup.start);
                row.badge = -1;
                kind.describe(row);
                setup.rows[setup.start] = row;
                QTest::addRow("%s, %s, %s", kind.name, mode, name) << setup;
            };
            add("in the middle", [](Setup &) {});
            add("enter on OK", [](Setup &setup) { setup.enterOnOK = true; });
            add("silent", [](Setup &setup) { setup.silent = true; });
            add("first", [](Setup &setup) { setup.start = 0; });
            add("last", [](Setup &setup) { setup.start = 6; });
            add("first, stops", [](Setup &setup) { setup.start = 0, setup.stopAtEnds = true; });
            add("last, stops", [](Setup &setup) { setup.start = 6, setup.stopAtEnds = true; });
            // A badge that is hidden selects nothing here.
            add("hidden around", [](Setup &setup) {
                setup.hidden = {0, 1, 3, 6};
                setup.rows[0].badge = setup.rows[6].badge = -1;
                setup.rows[4].badge = 3;
                setup.stopAtEnds = true;
            });
            add("no-focus style", [](Setup &setup) { setup.noFocusRows = 3; });
            add("the only one", [](Setup &setup) {
                setup.rows = setup.rows.mid(0, 1);
                setup.start = 0;
            });
        }
    }
    for (bool functionKeys : {false, true}) {
        Setup none;
        none.functionKeys = functionKeys;
        QTest::addRow("no rows, %s", functionKeys ? "F keys" : "digits") << none;
    }
}

void TestWidgetListView::keysDoWhatTheyDoInAWidgetList()
{
    QFETCH(Setup, setup);
    QList<Stroke> strokes;
    for (int repeats : {0, 1, 10, 11, 13}) {
        for (int key : allKeys())
            strokes.append({key, repeats});
    }
    QCOMPARE(notesOfWidgetListView(setup, strokes), notesOfWidgetList(setup, strokes));
}

void TestWidgetListView::walksDoWhatTheyDoInAWidgetList_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QList<int>>("hidden");
    QTest::addColumn<int>("noFocusRows");
    QTest::addColumn<bool>("stopAtEnds");
    for (bool stops : {false, true}) {
        const char *end = stops ? ", stops" : "";
        QTest::addRow("five rows%s", end) << 5 << QList<int>() << -1 << stops;
        QTest::addRow("one hidden%s", end) << 5 << QList<int>{2} << -1 << stops;
        QTest::addRow("the first hidden%s", end) << 5 << QList<int>{1, 4} << -1 << stops;
        QTest::addRow("pages of three%s", end) << 10 << QList<int>() << 3 << stops;
        QTest::addRow("pages of one%s", end) << 4 << QList<int>() << 1 << stops;
        QTest::addRow("pages of more than there are%s", end) << 4 << QList<int>() << 20 << stops;
        QTest::addRow("pages of none%s", end) << 4 << QList<int>{1} << 0 << stops;
    }
}

void TestWidgetListView::walksDoWhatTheyDoInAWidgetList()
{
    QFETCH(int, rows);
    QFETCH(QList<int>, hidden);
    QFETCH(int, noFocusRows);
    QFETCH(bool, stopAtEnds);
    Setup setup;
    setup.rows = RowsModel::titled(rows);
    setup.hidden = hidden;
    setup.noFocusRows = noFocusRows;
    setup.stopAtEnds = stopAtEnds;
    setup.start = INT_MAX;
    QList<Stroke> strokes;
    for (char key : QByteArray("8888888822222222288228822288888222282"))
        strokes.append({key, 0});
    for (char key : QByteArray("828822"))
        strokes.append({key, 6});
    QCOMPARE(notesOfWidgetListView(setup, strokes), notesOfWidgetList(setup, strokes));
}

void TestWidgetListView::hasTheSignalsOfAWidgetListAndItsRow()
{
    const auto methods = [](const QMetaObject &meta) {
        QStringList names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            names.append(QString::fromLatin1(meta.method(i).methodSignature()));
        return names;
    };
    QCOMPARE(methods(WidgetListView::staticMetaObject),
             QStringList({"doEnter(int)", "doChange(int)"}) + methods(WidgetList::staticMetaObject));
}

void TestWidgetListView::eachShowStartsOnRowZero()
{
    RowsModel model(RowsModel::titled(10));
    ViewMenu menu(&model);
    QCOMPARE(menu.list->selectedRow(), -1);
    menu.show();
    QCOMPARE(menu.list->selectedRow(), 0);
    QCOMPARE(menu.type(Qt::Key_2), 9);
    menu.list->hide();
    QCOMPARE(menu.list->selectedRow(), -1);
    menu.list->show();
    QCOMPARE(menu.list->selectedRow(), 0);
    QCOMPARE(menu.top(0), 0);
    menu.list->setFocus();
    QCOMPARE(menu.type(Qt::Key_8), 1);
}

void TestWidgetListView::rowSetBeforeTheShowIsThereAfterwards()
{
    RowsModel model(RowsModel::titled(30));
    ViewMenu menu(&model);
    menu.list->setFocusAtItem(20);
    QCOMPARE(menu.list->selectedRow(), 20);
    menu.show();
    QCOMPARE(menu.list->selectedRow(), 20);
    QVERIFY(menu.isInView(20));
    QCOMPARE(menu.type(Qt::Key_8), 21);
}

void TestWidgetListView::keepsItsRowWhileAnotherWidgetHasTheKeys()
{
    RowsModel model(RowsModel::titled(10));
    ViewMenu menu(&model);
    menu.show();
    menu.type(Qt::Key_8);
    const QImage focused = menu.picture();
    QWidget other(&menu.screen);
    other.show();
    other.setFocus();
    QVERIFY(!menu.list->hasFocus());
    QCOMPARE(menu.list->selectedRow(), 1);
    QVERIFY(menu.picture() != focused);
    menu.list->setFocus();
    QCOMPARE(menu.list->selectedRow(), 1);
    QCOMPARE(menu.picture(), focused);
    QCOMPARE(menu.type(Qt::Key_8), 2);
}

void TestWidgetListView::takesTheFocusItselfWhenItIsShown()
{
    RowsModel model(RowsModel::titled(10));
    ViewMenu menu(&model);
    menu.show();
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
    QWidget other(&menu.screen);
    other.show();
    other.setFocus();
    menu.list->setFocusAtItem(3);
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
    menu.list->hide();
    other.setFocus();
    menu.list->show();
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
    // Also where a row was set meanwhile.
    menu.list->hide();
    menu.list->setFocusAtItem(5);
    other.setFocus();
    QCOMPARE(QApplication::focusWidget(), &other);
    menu.list->show();
    QCOMPARE(QApplication::focusWidget(), menu.list.data());
    QCOMPARE(menu.list->selectedRow(), 5);
}

void TestWidgetListView::setFocusAtItemComesIntoViewInSilence()
{
    RowsModel model(RowsModel::titled(100));
    ViewMenu menu(&model);
    menu.show();
    for (int row : {50, 51, 20, 99, 0, 2, 3, 98}) {
        menu.list->setFocusAtItem(row);
        QCOMPARE(menu.list->selectedRow(), row);
        QVERIFY(menu.isInView(row));
    }
    QCOMPARE(takeNotes(), QStringList());
}

void TestWidgetListView::badRowsAreLogged_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("row");
    QTest::newRow("below") << 5 << -1;
    QTest::newRow("far below") << 5 << INT_MIN;
    QTest::newRow("above") << 5 << 5;
    QTest::newRow("far above") << 5 << INT_MAX;
    QTest::newRow("no rows") << 0 << 0;
    QTest::newRow("no model") << -1 << 0;
}

void TestWidgetListView::badRowsAreLogged()
{
    QFETCH(int, rows);
    QFETCH(int, row);
    RowsModel model(RowsModel::titled(qMax(0, rows)));
    ViewMenu menu(rows < 0 ? nullptr : &model);
    menu.show();
    if (rows > 0)
        menu.type(Qt::Key_8);
    const int before = menu.list->selectedRow();
    RecordingPlatform::reset();
    menu.list->setFocusAtItem(row);
    menu.list->hideItem(row);
    menu.list->showItem(row);
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList({invalidIndex("setFocusAtItem", row),
                                                          invalidIndex("hideItem", row),
                                                          invalidIndex("showItem", row)}));
    QCOMPARE(takeNotes(), QStringList());
    QCOMPARE(menu.list->selectedRow(), before);
}

void TestWidgetListView::initialAndLastFocusCanBeInvoked()
{
    RowsModel model(RowsModel::titled(30));
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(20);
    QWidget other(&menu.screen);
    other.show();
    other.setFocus();
    QVERIFY(QMetaObject::invokeMethod(menu.list, "setLastFocus"));
    QVERIFY(menu.list->hasFocus());
    QCOMPARE(menu.list->selectedRow(), 20);
    other.setFocus();
    QVERIFY(QMetaObject::invokeMethod(menu.list, "setInitialFocus"));
    QVERIFY(menu.list->hasFocus());
    QCOMPARE(menu.list->selectedRow(), 0);
    QVERIFY(menu.isInView(0));

    menu.list->setModel(nullptr);
    QVERIFY(QMetaObject::invokeMethod(menu.list, "setLastFocus"));
    QVERIFY(QMetaObject::invokeMethod(menu.list, "setInitialFocus"));
    QCOMPARE(menu.list->selectedRow(), -1);
    QCOMPARE(takeNotes(), QStringList());
}

void TestWidgetListView::rowHeightsAreFromOneToTheHeightOfTheList()
{
    RowsModel model(RowsModel::titled(300));
    ViewMenu menu(&model);
    menu.show();
    QCOMPARE(menu.top(1) - menu.top(0), 46);
    menu.list->setRowHeight(23);
    QCOMPARE(menu.top(1) - menu.top(0), 23);
    for (int height : {0, -1, INT_MIN, 1}) {
        menu.list->setRowHeight(height);
        QCOMPARE(menu.top(1) - menu.top(0), 1);
        menu.list->setFocusAtItem(299);
        QVERIFY(menu.isInView(299));
        menu.list->setFocusAtItem(0);
        menu.picture();
    }
    for (int height : {138, 139, 1000, INT_MAX}) {
        menu.list->setRowHeight(height);
        QCOMPARE(menu.top(1) - menu.top(0), 138);
    }
    menu.list->setFocusAtItem(299);
    QVERIFY(menu.isInView(299));
    QCOMPARE(menu.type(Qt::Key_8), 0);
}

void TestWidgetListView::hiddenRowsArePassed()
{
    RowsModel model(RowsModel::titled(8));
    ViewMenu menu(&model);
    menu.show();
    for (int row : {1, 2, 4, 7})
        menu.list->hideItem(row);
    QCOMPARE(menu.type(Qt::Key_8), 3);
    QCOMPARE(menu.type(Qt::Key_8), 5);
    QCOMPARE(menu.type(Qt::Key_8), 6);
    QCOMPARE(menu.type(Qt::Key_8), 0);
    QCOMPARE(menu.type(Qt::Key_2), 6);
    QCOMPARE(menu.list->findNextRow(0), 3);
    QCOMPARE(menu.list->findNextRow(1), 3);
    QCOMPARE(menu.list->findPrevRow(0), 6);
    QCOMPARE(menu.list->findPrevRow(5), 3);
    for (int row : {-1, INT_MIN, 8, INT_MAX}) {
        QCOMPARE(menu.list->findNextRow(row), 0);
        QCOMPARE(menu.list->findPrevRow(row), 6);
    }
    menu.list->showItem(7);
    QCOMPARE(menu.type(Qt::Key_8), 7);
    menu.list->showItem(7);
    menu.list->hideItem(0);
    menu.list->hideItem(0);
    QCOMPARE(menu.type(Qt::Key_8), 3);
    menu.list->showItem(0);
    QCOMPARE(menu.list->findNextRow(7), 0);
}

void TestWidgetListView::rowsOfOnePixelAreScrolledInto()
{
    RowsModel model(RowsModel::titled(300));
    ViewMenu menu(&model);
    menu.list->setRowHeight(1);
    menu.show();
    for (int row : {138, 139, 200, 62, 61}) {
        menu.list->setFocusAtItem(row);
        QVERIFY(menu.isInView(row));
    }
}

void TestWidgetListView::focusComesForTheReasonOther()
{
    RowsModel model(RowsModel::titled(3));
    ViewMenu menu(&model);
    QWidget other(&menu.screen);
    menu.show();
    FocusReasons reasons;
    menu.list->installEventFilter(&reasons);
    other.setFocus();
    menu.list->setFocusAtItem(1);
    menu.list->hide();
    menu.list->setFocusAtItem(2);
    other.setFocus();
    menu.list->show();
    QCOMPARE(reasons.list, QList<Qt::FocusReason>({Qt::OtherFocusReason, Qt::OtherFocusReason}));
}

void TestWidgetListView::rowInFocusStaysInItsPlaceWhenOthersAreHidden()
{
    RowsModel model(RowsModel::titled(30));
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(20);
    menu.list->setFocusAtItem(19);
    const int top = menu.top(19);
    for (int row : {0, 5, 18, 20, 29}) {
        menu.list->hideItem(row);
        QCOMPARE(menu.top(19), top);
    }
    for (int row : {5, 29, 20, 0, 18}) {
        menu.list->showItem(row);
        QCOMPARE(menu.top(19), top);
    }
    for (int row = 0; row < 30; ++row) {
        if (row != 19)
            menu.list->hideItem(row);
        QVERIFY(menu.isInView(19));
    }
    QCOMPARE(menu.top(19), 0);
}

void TestWidgetListView::rowThatIsShownGetsTheFocusWhereNoneHasIt()
{
    RowsModel model(RowsModel::titled(5));
    ViewMenu menu(&model);
    for (int row = 0; row < 5; ++row)
        menu.list->hideItem(row);
    menu.show();
    menu.list->showItem(3);
    QCOMPARE(menu.list->selectedRow(), 3);
    menu.list->showItem(1);
    QCOMPARE(menu.list->selectedRow(), 3);
}

void TestWidgetListView::rowHiddenWithTheFocusKeepsIt()
{
    QList<Row> rows = RowsModel::titled(6);
    rows[2].moreDepth = true;
    rows[2].values = QStringList{"a", "b"};
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(2);
    menu.list->hideItem(2);
    menu.list->m_enterOnOK = true;
    QCOMPARE(menu.list->selectedRow(), 2);
    RecordingPlatform::reset();
    for (int key : {Qt::Key_4, Qt::Key_6}) {
        menu.type(key);
        QCOMPARE(takeNotes(), QStringList{QString("handed on: release %1").arg(QChar(key))});
    }
    QCOMPARE(model.at(2).valueIndex, 0);
    menu.list->showItem(2);
    QCOMPARE(menu.list->selectedRow(), 2);
    menu.type(Qt::Key_6);
    QCOMPARE(takeNotes(), QStringList({"doChange 2", s_click}));

    menu.list->hideItem(2);
    QCOMPARE(menu.type(Qt::Key_8), 3);
    menu.list->showItem(2);
    menu.list->setFocusAtItem(2);
    menu.list->hideItem(2);
    QCOMPARE(menu.type(Qt::Key_2), 1);
}

void TestWidgetListView::rowHiddenWithTheFocusGivesItToTheNearestWhenTheModelChanges()
{
    RowsModel model(RowsModel::titled(6));
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(2);
    menu.list->hideItem(2);
    model.insert(6, RowsModel::titled(1, "new"));
    QVERIFY(menu.list->selectedRow() == 1 || menu.list->selectedRow() == 3);
}

void TestWidgetListView::lastRowStandsAtTheBottom()
{
    RowsModel model(RowsModel::titled(12));
    ViewMenu menu(&model);
    menu.show();
    for (int height : {40, 46, 100, 137}) {
        menu.list->setRowHeight(height);
        menu.list->setFocusAtItem(0);
        QCOMPARE(menu.top(0), 0);
        menu.list->setFocusAtItem(11);
        QCOMPARE(menu.top(11), 138 - height);
    }
}

void TestWidgetListView::focusOnAHiddenRowScrollsNowhere()
{
    RowsModel model(RowsModel::titled(12));
    ViewMenu menu(&model);
    menu.show();
    menu.list->hideItem(9);
    menu.list->setFocusAtItem(9);
    QCOMPARE(menu.list->selectedRow(), 9);
    QCOMPARE(menu.top(0), 0);
}

void TestWidgetListView::allRowsHiddenStay()
{
    RowsModel model(RowsModel::titled(4));
    ViewMenu menu(&model);
    menu.show();
    menu.type(Qt::Key_8);
    for (int row = 0; row < 4; ++row)
        menu.list->hideItem(row);
    for (int row : {0, 1, 2, 3, 4, -1, INT_MAX, INT_MIN}) {
        QCOMPARE(menu.list->findNextRow(row), row);
        QCOMPARE(menu.list->findPrevRow(row), row);
    }
    const QImage picture = menu.picture();
    for (int key : allKeys()) {
        menu.type(key);
        QCOMPARE(menu.list->selectedRow(), 1);
    }
    QCOMPARE(menu.picture(), picture);
    for (int row = 0; row < 4; ++row)
        menu.list->showItem(row);
    QCOMPARE(menu.type(Qt::Key_8), 2);
}

void TestWidgetListView::allRowsHiddenBeforeTheShowAreNotSelectedByKeys()
{
    RowsModel model(RowsModel::titled(2));
    ViewMenu menu(&model);
    menu.list->hideItem(0);
    menu.list->hideItem(1);
    for (int key : allKeys()) {
        menu.type(key);
        QCOMPARE(menu.list->selectedRow(), -1);
    }
    menu.list->showItem(1);
    QCOMPARE(menu.type(Qt::Key_8), 1);
}

void TestWidgetListView::allRowsHiddenReachTheEnds()
{
    RowsModel model(RowsModel::titled(3));
    ViewMenu menu(&model);
    menu.list->m_stopAtEnds = true;
    menu.show();
    for (int row = 0; row < 3; ++row)
        menu.list->hideItem(row);
    takeNotes();
    menu.type(Qt::Key_8);
    QCOMPARE(takeNotes(), QStringList({"reachedEnd", s_click}));
    menu.type(Qt::Key_2);
    QCOMPARE(takeNotes(), QStringList({"reachedBegin", s_click}));
}

void TestWidgetListView::hiddenRowsAreForgottenWithTheModel()
{
    RowsModel model(RowsModel::titled(4));
    RowsModel other(RowsModel::titled(4));
    ViewMenu menu(&model);
    menu.list->hideItem(1);
    menu.show();
    QCOMPARE(menu.list->findNextRow(0), 2);
    menu.list->setModel(&other);
    QCOMPARE(menu.list->findNextRow(0), 1);
    menu.list->setModel(&model);
    QCOMPARE(menu.list->findNextRow(0), 1);
}

void TestWidgetListView::turnsPagesInTheNoFocusStyle()
{
    RowsModel model(RowsModel::titled(10));
    ViewMenu menu(&model);
    menu.list->setNoFocusStyle(3);
    menu.show();
    QList<int> rows;
    for (char key : QByteArray("888222"))
        rows.append(menu.type(key));
    QCOMPARE(rows, QList<int>({5, 8, 9, 4, 1, 0}));
}

void TestWidgetListView::noFocusStyleOfNoRowsMovesByRows()
{
    for (int rowsPerPage : {0, -1, INT_MIN}) {
        RowsModel model(RowsModel::titled(10));
        ViewMenu menu(&model);
        menu.list->setNoFocusStyle(rowsPerPage);
        menu.show();
        QCOMPARE(menu.type(Qt::Key_8), 1);
        QCOMPARE(menu.type(Qt::Key_2), 0);
        QCOMPARE(menu.type(Qt::Key_2), 9);
    }
}

void TestWidgetListView::shortPressesAddUpToALongOne()
{
    RowsModel model(RowsModel::titled(5));
    ViewMenu menu(&model);
    menu.show();
    QCOMPARE(menu.type(Qt::Key_2, 6), 4);
    QCOMPARE(takeNotes(), QStringList{s_click});
    pressKey(menu.list, Qt::Key_2);
    repeatKey(menu.list, Qt::Key_2, 4);
    QCOMPARE(takeNotes(), QStringList());
    repeatKey(menu.list, Qt::Key_2);
    QCOMPARE(takeNotes(), QStringList({s_click, "upKeyLongPressed"}));
    repeatKey(menu.list, Qt::Key_2, 30);
    QCOMPARE(takeNotes(), QStringList());
    releaseKey(menu.list, Qt::Key_2);
    QCOMPARE(takeNotes(), QStringList({"upKeyReleased", "handed on: release 2"}));
    QCOMPARE(menu.list->selectedRow(), 4);
    // The count starts again.
    QCOMPARE(menu.type(Qt::Key_2, 10), 3);
    QCOMPARE(takeNotes(), QStringList{s_click});
}

void TestWidgetListView::showForgetsWhatWasHeld()
{
    RowsModel model(RowsModel::titled(5));
    ViewMenu menu(&model);
    menu.show();
    for (int key : {Qt::Key_2, Qt::Key_8}) {
        menu.type(key, 8);
        menu.list->hide();
        menu.list->show();
        takeNotes();
        menu.list->setFocus();
        menu.type(key, 8);
        QCOMPARE(takeNotes(), QStringList{s_click});

        pressKey(menu.list, key);
        repeatKey(menu.list, key, 11);
        menu.list->hide();
        menu.list->show();
        menu.list->setFocus();
        takeNotes();
        releaseKey(menu.list, key);
        QCOMPARE(takeNotes(), QStringList{s_click});
    }
}

void TestWidgetListView::heldKeyScrollsOnByRowsAndThenByPages_data()
{
    QTest::addColumn<bool>("functionKeys");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("page");
    for (bool functionKeys : {false, true}) {
        const char *mode = functionKeys ? "F keys" : "digits";
        QTest::addRow("%s, three rows in view", mode) << functionKeys << 46 << 3;
        QTest::addRow("%s, rows of a third", mode) << functionKeys << 40 << 3;
        QTest::addRow("%s, more rows in view", mode) << functionKeys << 20 << 6;
        QTest::addRow("%s, rows higher than the view", mode) << functionKeys << 200 << 1;
    }
}

void TestWidgetListView::heldKeyScrollsOnByRowsAndThenByPages()
{
    QFETCH(bool, functionKeys);
    QFETCH(int, height);
    QFETCH(int, page);
    RowsModel model(RowsModel::titled(200));
    ViewMenu menu(&model);
    menu.list->m_useFunctionKeys = functionKeys;
    menu.list->m_scrollOnHold = true;
    menu.list->setRowHeight(height);
    menu.show();
    for (int direction : {1, -1}) {
        const int key = direction > 0 ? down(functionKeys) : up(functionKeys);
        const QString name = direction > 0 ? "down" : "up";
        menu.list->setFocusAtItem(100);
        takeNotes();
        pressKey(menu.list, key);
        repeatKey(menu.list, key, 10);
        QCOMPARE(menu.list->selectedRow(), 100);
        QCOMPARE(takeNotes(), QStringList());
        repeatKey(menu.list, key);
        QCOMPARE(takeNotes(), QStringList({s_click, name + "KeyLongPressed"}));
        QCOMPARE(menu.list->selectedRow(), 100);
        int expected = 100;
        for (int i = 1; i <= 20; ++i) {
            repeatKey(menu.list, key);
            expected += direction * (i <= 10 ? 1 : page);
            QCOMPARE(menu.list->selectedRow(), expected);
            QVERIFY(height > 138 || menu.isInView(expected));
        }
        QCOMPARE(takeNotes(), QStringList());
        releaseKey(menu.list, key);
        QCOMPARE(menu.list->selectedRow(), expected);
        QCOMPARE(takeNotes(), QStringList({name + "KeyReleased",
                                           QString("handed on: release %1").arg(QKeySequence(key).toString())}));
        // The next one starts slowly again.
        menu.list->setFocusAtItem(100);
        pressKey(menu.list, key);
        repeatKey(menu.list, key, 12);
        QCOMPARE(menu.list->selectedRow(), 100 + direction);
        releaseKey(menu.list, key);
        QCOMPARE(menu.list->selectedRow(), 100 + direction);
    }
}

void TestWidgetListView::heldKeyScrollsUpToTheEnds_data()
{
    QTest::addColumn<bool>("stopAtEnds");
    QTest::newRow("around otherwise") << false;
    QTest::newRow("up to the ends also otherwise") << true;
}

void TestWidgetListView::heldKeyScrollsUpToTheEnds()
{
    QFETCH(bool, stopAtEnds);
    RowsModel model(RowsModel::titled(25));
    ViewMenu menu(&model);
    menu.list->m_stopAtEnds = stopAtEnds;
    menu.list->m_scrollOnHold = true;
    menu.show();
    takeNotes();
    menu.type(Qt::Key_8, 100);
    QCOMPARE(menu.list->selectedRow(), 24);
    QCOMPARE(takeNotes(), QStringList({s_click, "downKeyLongPressed", "downKeyReleased", "handed on: release 8"}));
    menu.type(Qt::Key_2, 100);
    QCOMPARE(menu.list->selectedRow(), 0);
    QCOMPARE(takeNotes(), QStringList({s_click, "upKeyLongPressed", "upKeyReleased", "handed on: release 2"}));
}

void TestWidgetListView::heldKeyPassesHiddenRows()
{
    RowsModel model(RowsModel::titled(100));
    ViewMenu menu(&model);
    menu.list->m_scrollOnHold = true;
    menu.show();
    for (int row = 1; row < 100; row += 2)
        menu.list->hideItem(row);
    menu.list->hideItem(98);
    pressKey(menu.list, Qt::Key_8);
    repeatKey(menu.list, Qt::Key_8, 11);
    for (int i = 1; i <= 10; ++i) {
        repeatKey(menu.list, Qt::Key_8);
        QCOMPARE(menu.list->selectedRow(), 2 * i);
    }
    repeatKey(menu.list, Qt::Key_8);
    QCOMPARE(menu.list->selectedRow(), 26);
    repeatKey(menu.list, Qt::Key_8, 50);
    QCOMPARE(menu.list->selectedRow(), 96);
    releaseKey(menu.list, Qt::Key_8);
    menu.list->hideItem(0);
    menu.type(Qt::Key_2, 100);
    QCOMPARE(menu.list->selectedRow(), 2);
    // From a row that is hidden itself.
    menu.list->hideItem(2);
    menu.type(Qt::Key_8, 12);
    QCOMPARE(menu.list->selectedRow(), 4);
    menu.list->hideItem(6);
    menu.list->setFocusAtItem(8);
    menu.list->hideItem(8);
    menu.type(Qt::Key_2, 12);
    QCOMPARE(menu.list->selectedRow(), 4);
}

void TestWidgetListView::heldKeyTurnsPagesInTheNoFocusStyle_data()
{
    QTest::addColumn<int>("rowsPerPage");
    for (int rows : {1, 2, 3})
        QTest::addRow("%d", rows) << rows;
}

void TestWidgetListView::heldKeyTurnsPagesInTheNoFocusStyle()
{
    QFETCH(int, rowsPerPage);
    RowsModel model(RowsModel::titled(60));
    ViewMenu held(&model);
    ViewMenu typed(&model);
    for (WidgetListView *list : {held.list.data(), typed.list.data()}) {
        list->setNoFocusStyle(rowsPerPage);
        list->m_scrollOnHold = true;
        list->setFocusAtItem(0);
    }
    pressKey(held.list, Qt::Key_8);
    repeatKey(held.list, Qt::Key_8, 11);
    for (int i = 0; i < 15; ++i) {
        repeatKey(held.list, Qt::Key_8);
        releaseKey(typed.list, Qt::Key_8);
        QCOMPARE(held.list->selectedRow(), typed.list->selectedRow());
    }
}

void TestWidgetListView::heldKeyInTheNoFocusStyle()
{
    RowsModel model(RowsModel::titled(60));
    ViewMenu menu(&model);
    menu.list->setNoFocusStyle(3);
    menu.list->m_scrollOnHold = true;
    menu.show();
    menu.type(Qt::Key_8, 100);
    QCOMPARE(menu.list->selectedRow(), 59);
    QVERIFY(menu.isInView(59));
    menu.type(Qt::Key_2, 100);
    QCOMPARE(menu.list->selectedRow(), 0);
    QVERIFY(menu.isInView(0));
    // Each repeat that scrolls is to be seen at once.
    pressKey(menu.list, Qt::Key_8);
    repeatKey(menu.list, Qt::Key_8, 11);
    for (int i = 0; i < 5; ++i) {
        const QImage before = menu.picture();
        repeatKey(menu.list, Qt::Key_8);
        QVERIFY2(menu.picture() != before, qPrintable(QString::number(i)));
    }
}

void TestWidgetListView::heldKeyStaysWithoutScrollOnHold()
{
    RowsModel model(RowsModel::titled(60));
    ViewMenu menu(&model);
    menu.show();
    QCOMPARE(menu.type(Qt::Key_8, 100), 0);
}

void TestWidgetListView::heldKeyStaysWhereAllRowsAreHidden()
{
    RowsModel model(RowsModel::titled(5));
    ViewMenu menu(&model);
    menu.list->m_scrollOnHold = true;
    menu.show();
    menu.list->setFocusAtItem(2);
    for (int row = 0; row < 5; ++row)
        menu.list->hideItem(row);
    for (int key : {Qt::Key_8, Qt::Key_2})
        QCOMPARE(menu.type(key, 20), 2);
}

void TestWidgetListView::hideEndsTheScrolling()
{
    RowsModel model(RowsModel::titled(60));
    ViewMenu menu(&model);
    menu.list->m_scrollOnHold = true;
    menu.show();
    pressKey(menu.list, Qt::Key_8);
    repeatKey(menu.list, Qt::Key_8, 15);
    menu.list->hide();
    menu.list->show();
    menu.list->setFocus();
    repeatKey(menu.list, Qt::Key_8, 5);
    QCOMPARE(menu.list->selectedRow(), 0);
}

void TestWidgetListView::switchesAreOffAtFirst()
{
    // Whatever there was in its memory.
    void *memory = ::operator new(sizeof(WidgetListView));
    memset(memory, 1, sizeof(WidgetListView));
    WidgetListView *list = new (memory) WidgetListView(nullptr, nullptr);
    const bool off = !list->m_stopAtEnds && !list->m_enterOnOK && !list->m_scrollOnHold && !list->m_jumpToLetter
        && !list->m_mirrored && !list->m_useFunctionKeys;
    list->~WidgetListView();
    ::operator delete(memory);
    QVERIFY(off);
}

void TestWidgetListView::mirroredListTurnsLeftAndRightRound()
{
    QList<Row> rows = RowsModel::titled(3);
    rows[0].values = QStringList{"a", "b", "c"};
    rows[1].moreDepth = true;
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.list->m_mirrored = true;
    menu.show();
    menu.type(Qt::Key_4);
    QCOMPARE(model.at(0).valueIndex, 1);
    menu.type(Qt::Key_4);
    QCOMPARE(model.at(0).valueIndex, 2);
    menu.type(Qt::Key_6);
    QCOMPARE(model.at(0).valueIndex, 1);
    menu.list->setFocusAtItem(1);
    takeNotes();
    menu.type(Qt::Key_6);
    QCOMPARE(takeNotes(), QStringList{"handed on: release 6"});
    menu.type(Qt::Key_4);
    QCOMPARE(takeNotes(), QStringList({s_click, "doEnter 1", "handed on: release 4"}));
}

void TestWidgetListView::valueStepsInTheModel()
{
    QList<Row> rows = RowsModel::titled(3);
    rows[1].values = QStringList{"a", "b", "c"};
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.show();
    menu.type(Qt::Key_8);
    takeNotes();
    QList<int> indexes;
    // The model has the new value when the signal comes.
    connect(menu.list, &WidgetListView::doChange, [&](int row) { indexes.append(model.at(row).valueIndex); });
    for (char key : QByteArray("6664444")) {
        const QImage before = menu.picture();
        QCOMPARE(menu.type(key), 1);
        QCOMPARE(takeNotes(), QStringList({"doChange 1", s_click}));
        QVERIFY(menu.picture() != before);
    }
    QCOMPARE(indexes, QList<int>({1, 2, 0, 2, 1, 0, 2}));
}

void TestWidgetListView::valueStepsFromAnIndexOutside_data()
{
    QTest::addColumn<int>("index");
    for (int index : {-1, -7, INT_MIN, 3, 7, INT_MAX})
        QTest::addRow("%d", index) << index;
}

void TestWidgetListView::valueStepsFromAnIndexOutside()
{
    QFETCH(int, index);
    for (int key : {Qt::Key_4, Qt::Key_6}) {
        QList<Row> rows = RowsModel::titled(1);
        rows[0].values = QStringList{"a", "b", "c"};
        rows[0].valueIndex = index;
        RowsModel model(rows);
        ViewMenu menu(&model);
        menu.show();
        menu.type(key);
        QCOMPARE(takeNotes(), QStringList({"doChange 0", s_click}));

        // As in a row that is a widget.
        WidgetListItem item(nullptr, sound());
        item.resize(220, 46);
        for (const QString &value : rows.at(0).values)
            item.addValue(value);
        item.setDisplayValueIndex(index);
        item.show();
        pressKey(&item, key);
        releaseKey(&item, key);
        QCOMPARE(rows.at(0).values.value(model.at(0).valueIndex), item.getDisplayValue());
        takeNotes();
    }
}

void TestWidgetListView::refusedValueClicksOnly()
{
    QList<Row> rows = RowsModel::titled(1);
    rows[0].values = QStringList{"a", "b", "c"};
    RowsModel model(rows);
    model.m_refuses = true;
    ViewMenu menu(&model);
    menu.show();
    const QImage before = menu.picture();
    for (int key : {Qt::Key_4, Qt::Key_6}) {
        menu.type(key);
        QCOMPARE(takeNotes(), QStringList{s_click});
    }
    QCOMPARE(menu.picture(), before);
}

void TestWidgetListView::rowWithValuesIgnoresASetValue()
{
    QList<Row> rows = RowsModel::titled(1);
    rows[0].values = QStringList{"a", "b"};
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.show();
    const QImage without = menu.picture();
    rows[0].setValue = "set";
    model.change(0, rows.at(0));
    QCOMPARE(menu.picture(), without);
    menu.type(Qt::Key_6);
    QCOMPARE(takeNotes(), QStringList({"doChange 0", s_click}));
}

void TestWidgetListView::badgeInViewComesFirst()
{
    QList<Row> rows = RowsModel::titled(30);
    for (int row : {1, 15, 16, 28}) {
        rows[row].badge = 5;
        rows[row].moreDepth = true;
    }
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.show();
    menu.type(Qt::Key_5);
    QCOMPARE(takeNotes(), QStringList({"doEnter 1", s_click}));
    menu.list->setFocusAtItem(16);
    menu.type(Qt::Key_5);
    QCOMPARE(takeNotes(), QStringList({"doEnter 15", s_click}));
    QCOMPARE(menu.list->selectedRow(), 16);
    menu.list->setFocusAtItem(29);
    menu.type(Qt::Key_5);
    QCOMPARE(takeNotes(), QStringList({"doEnter 28", s_click}));
    // Also in the first row that is in view.
    menu.list->setFocusAtItem(15);
    QCOMPARE(menu.top(15), 0);
    menu.type(Qt::Key_5);
    QCOMPARE(takeNotes(), QStringList({"doEnter 15", s_click}));
    menu.list->setFocusAtItem(25);
    menu.list->setFocusAtItem(23);
    QVERIFY(!menu.isInView(28) && !menu.isInView(16));
    menu.type(Qt::Key_5);
    QCOMPARE(takeNotes(), QStringList({"doEnter 1", s_click}));
}

void TestWidgetListView::badgeJustBelowTheViewComesAfterThoseAbove()
{
    QList<Row> rows = RowsModel::titled(10);
    for (int row : {0, 5}) {
        rows[row].badge = 7;
        rows[row].moreDepth = true;
    }
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.show();
    menu.list->setFocusAtItem(4);
    QCOMPARE(menu.top(5), 3 * 46);
    menu.type(Qt::Key_7);
    QCOMPARE(takeNotes(), QStringList({"doEnter 0", s_click}));
}

void TestWidgetListView::badgeOutOfViewIsFound()
{
    QList<Row> rows = RowsModel::titled(1000);
    rows[999].badge = 0;
    rows[999].moreDepth = true;
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.show();
    menu.type(Qt::Key_0);
    QCOMPARE(takeNotes(), QStringList({"doEnter 999", s_click}));
    QCOMPARE(menu.list->selectedRow(), 0);
    QCOMPARE(menu.top(0), 0);
}

void TestWidgetListView::badgeThatLeadsNowhereIsLogged()
{
    QList<Row> rows = RowsModel::titled(5);
    rows[1].badge = 5;
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.show();
    menu.type(Qt::Key_5);
    QCOMPARE(RecordingPlatform::logTexts(2),
             QStringList("[ui/view/widget/widgetlistview.cpp, keyReleaseEvent] Not selectable by shortcut"));
    QCOMPARE(takeNotes(), QStringList{s_click});
    menu.type(Qt::Key_3);
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList());
    QCOMPARE(takeNotes(), QStringList{"handed on: release 3"});
}

void TestWidgetListView::hiddenRowIsNotSelectedByItsBadge()
{
    QList<Row> rows = RowsModel::titled(30);
    for (int row : {1, 2, 20}) {
        rows[row].badge = 5;
        rows[row].moreDepth = true;
    }
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.show();
    menu.list->hideItem(1);
    menu.type(Qt::Key_5);
    QCOMPARE(takeNotes(), QStringList({"doEnter 2", s_click}));
    menu.list->hideItem(2);
    menu.type(Qt::Key_5);
    QCOMPARE(takeNotes(), QStringList({"doEnter 20", s_click}));
    menu.list->hideItem(20);
    menu.type(Qt::Key_5);
    QCOMPARE(takeNotes(), QStringList{"handed on: release 5"});
}

void TestWidgetListView::badgesThatAreNoDigitSelectNothing_data()
{
    QTest::addColumn<QVariant>("badge");
    QTest::addColumn<bool>("shown");
    QTest::newRow("below") << QVariant(-1) << false;
    QTest::newRow("above") << QVariant(10) << true;
    QTest::newRow("not a number") << QVariant(QString("five")) << false;
    QTest::newRow("none") << QVariant() << false;
}

void TestWidgetListView::badgesThatAreNoDigitSelectNothing()
{
    QFETCH(QVariant, badge);
    QFETCH(bool, shown);
    class Model : public QStringListModel
    {
    public:
        QVariant data(const QModelIndex &index, int role) const override
        {
            return role == WidgetListView::BadgeRole ? m_badge : QStringListModel::data(index, role);
        }
        QVariant m_badge;
    } model;
    model.setStringList(QStringList({"one", "two"}));
    ViewMenu menu(&model);
    menu.show();
    const QImage without = menu.picture();
    model.m_badge = badge;
    emit model.dataChanged(model.index(0), model.index(1));
    QCOMPARE(menu.picture() != without, shown);
    for (int digit = 0; digit <= 9; ++digit) {
        if (digit == 2 || digit == 8)
            continue;
        takeNotes();
        menu.type(Qt::Key_0 + digit);
        QCOMPARE(takeNotes(), QStringList{QString("handed on: release %1").arg(digit)});
    }
    // The keys just below and above the digits.
    menu.type(Qt::Key_Slash);
    menu.type(Qt::Key_Colon);
    QCOMPARE(takeNotes(), QStringList({"handed on: release /", "handed on: release :"}));
}

void TestWidgetListView::digitThatIsADirectionSelectsNothing()
{
    QList<Row> rows = RowsModel::titled(9);
    for (int row = 0; row < 9; ++row) {
        rows[row].badge = row + 1;
        rows[row].moreDepth = row != 0;
    }
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.show();
    QCOMPARE(menu.type(Qt::Key_2), 8);
    QCOMPARE(takeNotes(), QStringList{s_click});
    QCOMPARE(menu.type(Qt::Key_8), 0);
    QCOMPARE(takeNotes(), QStringList{s_click});
    menu.list->m_useFunctionKeys = true;
    for (int digit : {2, 4, 6, 8}) {
        QCOMPARE(menu.type(Qt::Key_0 + digit), 0);
        QCOMPARE(takeNotes(), QStringList({QString("doEnter %1").arg(digit - 1), s_click}));
    }
}

void TestWidgetListView::lettersOnlyWithFunctionKeysAndTheSwitch_data()
{
    QTest::addColumn<bool>("functionKeys");
    QTest::addColumn<bool>("jumpToLetter");
    for (bool functionKeys : {false, true}) {
        for (bool jumpToLetter : {false, true}) {
            QTest::addRow("%s, %s", functionKeys ? "F keys" : "digits", jumpToLetter ? "on" : "off")
                << functionKeys << jumpToLetter;
        }
    }
}

void TestWidgetListView::lettersOnlyWithFunctionKeysAndTheSwitch()
{
    QFETCH(bool, functionKeys);
    QFETCH(bool, jumpToLetter);
    QList<Row> rows = RowsModel::titled(QStringList({"Dora", "Emil", "Karl"}));
    rows[2].badge = 5;
    rows[2].moreDepth = true;
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.list->m_useFunctionKeys = functionKeys;
    menu.list->m_jumpToLetter = jumpToLetter;
    menu.list->setKeyLetters(Qt::Key_5, "jkl5");
    menu.list->setKeyLetters(Qt::Key_8, "def");
    menu.show();
    if (functionKeys && jumpToLetter) {
        QCOMPARE(menu.type(Qt::Key_5), 2);
        QCOMPARE(takeNotes(), QStringList{s_click});
        QCOMPARE(menu.type(Qt::Key_8), 0);
        QCOMPARE(takeNotes(), QStringList{s_click});
        menu.type(Qt::Key_3);
        QCOMPARE(takeNotes(), QStringList{"handed on: release 3"});
    } else {
        QCOMPARE(menu.type(Qt::Key_5), 0);
        QCOMPARE(takeNotes(), QStringList({"doEnter 2", s_click}));
    }
}

namespace {

struct PhoneBook
{
    explicit PhoneBook(const QStringList &titles)
        : model(RowsModel::titled(titles)),
          menu(&model)
    {
        menu.list->m_useFunctionKeys = true;
        menu.list->m_jumpToLetter = true;
        menu.list->setKeyLetters(Qt::Key_2, "abc2");
        menu.list->setKeyLetters(Qt::Key_3, "def3");
        menu.show();
    }

    QList<int> type(const QByteArray &keys)
    {
        QList<int> rows;
        for (char key : keys)
            rows.append(menu.type(key));
        return rows;
    }

    RowsModel model;
    ViewMenu menu;
};

}

void TestWidgetListView::lettersGoDownAroundTheEnd()
{
    PhoneBook book({"Zoe", "Anna", "Emil", "Carl", "Dora"});
    QCOMPARE(book.type("2"), QList<int>{1});
    QVERIFY(book.menu.isInView(1));
    book.menu.list->setFocusAtItem(2);
    book.type("9");
    QCOMPARE(book.type("2"), QList<int>{3});
    book.menu.list->setFocusAtItem(4);
    book.type("9");
    QCOMPARE(book.type("2"), QList<int>{1});
    // To another row where there is one, or else to the same.
    book.type("9");
    QCOMPARE(book.type("2"), QList<int>{3});
    QCOMPARE(book.type("3"), QList<int>{4});
    book.type("9");
    QCOMPARE(book.type("3"), QList<int>{2});
}

void TestWidgetListView::everyDigitKeyMayHaveLettersAndBadges()
{
    QStringList titles{"+"};
    for (char letter = 'a'; letter <= 'j'; ++letter)
        titles.append(QString(QLatin1Char(letter)));
    PhoneBook book(titles);
    for (int digit = 0; digit <= 9; ++digit)
        book.menu.list->setKeyLetters(Qt::Key_0 + digit, titles.at(digit + 1));
    for (int digit = 0; digit <= 9; ++digit)
        QCOMPARE(book.menu.type(Qt::Key_0 + digit), digit + 1);

    // Without letters they are for badges.
    for (int digit = 0; digit <= 9; digit += 2)
        book.menu.list->setKeyLetters(Qt::Key_0 + digit, QString());
    for (int digit = 1; digit <= 9; digit += 2)
        book.menu.list->setKeyLetters(Qt::Key_0 + digit, QString(""));
    for (int digit = 0; digit <= 9; ++digit) {
        Row row = RowsModel::titledRow("row");
        row.badge = digit;
        row.moreDepth = true;
        book.model.change(digit, row);
    }
    for (int digit = 0; digit <= 9; ++digit) {
        takeNotes();
        book.menu.type(Qt::Key_0 + digit);
        QCOMPARE(takeNotes(), QStringList({QString("doEnter %1").arg(digit), s_click}));
    }
}

void TestWidgetListView::letterOfTheRowInFocusAloneStaysThere()
{
    PhoneBook book({"Zoe", "Anna", "Tom"});
    book.menu.list->setFocusAtItem(1);
    takeNotes();
    QCOMPARE(book.type("2"), QList<int>{1});
    QCOMPARE(takeNotes(), QStringList{s_click});
}

void TestWidgetListView::letterIsSearchedUpToTheFirstRowThatHasIt()
{
    QStringList titles{"Zoe", "Tom", "Anna"};
    for (int i = 0; i < 1000; ++i)
        titles.append("Tom");
    PhoneBook book(titles);
    book.model.m_highestAsked = -1;
    QCOMPARE(book.type("2"), QList<int>{2});
    QVERIFY2(book.model.m_highestAsked < 20, qPrintable(QString::number(book.model.m_highestAsked)));
}

void TestWidgetListView::keyPressedAgainGoesToTheNextLetter()
{
    PhoneBook book({"Anna", "Axel", "Bea", "Bob", "Carl", "Dora", "2nd"});
    book.menu.list->setFocusAtItem(5);
    QCOMPARE(book.type("2"), QList<int>{6});
    QCOMPARE(book.type("2222222"), QList<int>({0, 2, 4, 6, 0, 2, 4}));
}

void TestWidgetListView::hideEndsPressingAgain()
{
    PhoneBook book({"Anna", "Carl", "Bea"});
    QCOMPARE(book.type("22"), QList<int>({1, 0}));
    book.menu.list->hide();
    book.menu.list->show();
    QCOMPARE(book.type("2"), QList<int>{1});
}

void TestWidgetListView::otherKeysEndPressingAgain()
{
    PhoneBook book({"Anna", "Axel", "Bea", "Bob", "Carl", "Dora"});
    book.menu.list->setFocusAtItem(5);
    QCOMPARE(book.type("22"), QList<int>({0, 2}));
    book.menu.type(Qt::Key_F5);
    QCOMPARE(book.type("2"), QList<int>{3});
    QCOMPARE(book.type("3"), QList<int>{5});
    QCOMPARE(book.type("2"), QList<int>{0});
    QCOMPARE(book.menu.type(Qt::Key_F2), 1);
    QCOMPARE(book.type("2"), QList<int>{2});
}

void TestWidgetListView::lettersWithoutTitlesArePassed()
{
    PhoneBook book({"Anna", "Axel", "Carl", "Zoe"});
    book.menu.list->setFocusAtItem(3);
    QCOMPARE(book.type("2222"), QList<int>({0, 2, 0, 2}));
    takeNotes();
    QCOMPARE(book.type("3"), QList<int>{2});
    QCOMPARE(takeNotes(), QStringList{"handed on: release 3"});

    PhoneBook one({"Zoe", "Anna", "Axel"});
    QCOMPARE(one.type("222"), QList<int>({1, 2, 1}));
}

void TestWidgetListView::letterJump_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("letters");
    QTest::addColumn<bool>("found");
    QTest::newRow("the letter") << "echo" << "def" << true;
    QTest::newRow("upper case title") << "Echo" << "def" << true;
    QTest::newRow("upper case letters") << "echo" << "DEF" << true;
    QTest::newRow("accent in the title") << QString::fromUtf8("\xc3\xa9" "cole") << "def" << true;
    QTest::newRow("accent, upper case") << QString::fromUtf8("\xc3\x89" "cole") << "def" << true;
    QTest::newRow("accent of its own") << QString::fromUtf8("e\xcc\x81" "cole") << "def" << true;
    QTest::newRow("accent in the letters") << "ecole" << QString::fromUtf8("d\xc3\xa9") << true;
    QTest::newRow("two accents") << QString::fromUtf8("\xe1\xba\xbf") << "e" << true;
    QTest::newRow("another letter") << "foxtrot" << "abc" << false;
    QTest::newRow("in the middle") << "the echo" << "def" << false;
    QTest::newRow("empty title") << QString() << "def" << false;
    QTest::newRow("digit") << "3rd" << "def3" << true;
    QTest::newRow("Greek") << QString::fromUtf8("\xce\x86\xce\xbb\xcf\x86\xce\xb1") << QString::fromUtf8("\xce\xb1") << true;
    QTest::newRow("Cyrillic") << QString::fromUtf8("\xd0\x94\xd0\xbe\xd0\xbc") << QString::fromUtf8("\xd0\xb4") << true;
    QTest::newRow("Chinese") << QString::fromUtf8("\xe4\xb8\xad") << QString::fromUtf8("\xe4\xb8\xad") << true;
    QTest::newRow("beyond 16 bits") << QString::fromUtf8("\xf0\x9f\x98\x80 hi") << QString::fromUtf8("\xf0\x9f\x98\x80") << true;
    QTest::newRow("another beyond 16 bits")
        << QString::fromUtf8("\xf0\x9f\x98\x80 hi") << QString::fromUtf8("\xf0\x9f\x98\x81") << false;
    QTest::newRow("upper case beyond 16 bits")
        << QString::fromUtf8("\xf0\x90\x90\x80") << QString::fromUtf8("\xf0\x90\x90\xa8") << true;
    QTest::newRow("half a pair") << QString(QChar(0xd83d)) << "def" << false;
    QTest::newRow("the wrong half of a pair") << QString(QChar(0xdbff)) + QChar(0xffff) << "def" << false;
    QTest::newRow("half a pair in the letters") << "echo" << QString(QChar(0xd83d)) << false;
    QTest::newRow("blank") << " echo" << " " << true;
}

void TestWidgetListView::letterJump()
{
    QFETCH(QString, title);
    QFETCH(QString, letters);
    QFETCH(bool, found);
    PhoneBook book({"zulu", title, "yankee"});
    book.menu.list->setKeyLetters(Qt::Key_3, letters);
    QCOMPARE(book.type("3"), QList<int>{found ? 1 : 0});
    QCOMPARE(takeNotes(), QStringList{found ? s_click : QStringLiteral("handed on: release 3")});
}

void TestWidgetListView::lettersPassHiddenRows()
{
    PhoneBook book({"Zoe", "Anna", "Axel", "Bea", "Carl"});
    book.menu.list->hideItem(1);
    book.menu.list->hideItem(3);
    QCOMPARE(book.type("222"), QList<int>({2, 4, 2}));
    for (int row : {2, 4})
        book.menu.list->hideItem(row);
    takeNotes();
    QCOMPARE(book.type("2"), QList<int>{2});
    QCOMPARE(takeNotes(), QStringList{"handed on: release 2"});
}

void TestWidgetListView::emptyLettersLeaveTheKeyAlone()
{
    PhoneBook book({"Zoe", "Anna"});
    book.menu.list->setKeyLetters(Qt::Key_2, QString());
    QCOMPARE(book.type("2"), QList<int>{0});
    QCOMPARE(takeNotes(), QStringList{"handed on: release 2"});
}

void TestWidgetListView::badLetterKeysAreLogged_data()
{
    QTest::addColumn<int>("key");
    for (int key : {0, -1, int(Qt::Key_0) - 1, int(Qt::Key_9) + 1, int(Qt::Key_A), int(Qt::Key_F1), INT_MIN, INT_MAX})
        QTest::addRow("%d", key) << key;
}

void TestWidgetListView::badLetterKeysAreLogged()
{
    QFETCH(int, key);
    PhoneBook book({"Zoe", "Anna"});
    book.menu.list->setKeyLetters(key, "abc");
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList{invalidIndex("setKeyLetters", key)});
    takeNotes();
    if (key != Qt::Key_F1) {
        strike(book.menu.list, key);
        QCOMPARE(book.menu.list->selectedRow(), 0);
    }
}

void TestWidgetListView::comingAndGoingModelsAreNoReasonToWarn()
{
    static int s_warnings;
    s_warnings = 0;
    const QtMessageHandler handler =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) { ++s_warnings; });
    {
        RowsModel model(RowsModel::titled(3));
        ViewMenu menu(nullptr);
        menu.list->setModel(&model);
        menu.list->setModel(nullptr);
        menu.list->setModel(&model);
    }
    qInstallMessageHandler(handler);
    QCOMPARE(s_warnings, 0);
}

void TestWidgetListView::everythingWorksWithoutAModel_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("never one") << 0;
    QTest::newRow("null") << 1;
    QTest::newRow("null after one") << 2;
    QTest::newRow("deleted") << 3;
    QTest::newRow("an empty one") << 4;
}

void TestWidgetListView::everythingWorksWithoutAModel()
{
    QFETCH(int, kind);
    for (bool functionKeys : {false, true}) {
        std::unique_ptr<RowsModel> model(new RowsModel(RowsModel::titled(kind == 4 ? 0 : 12)));
        ViewMenu menu(kind == 2 || kind == 3 ? model.get() : nullptr);
        menu.show();
        menu.type(Qt::Key_8);
        if (kind == 1 || kind == 2)
            menu.list->setModel(nullptr);
        if (kind == 3)
            model.reset();
        if (kind == 4)
            menu.list->setModel(model.get());
        QVERIFY((menu.list->model() != nullptr) == (kind == 4));
        menu.list->m_useFunctionKeys = functionKeys;
        menu.list->m_enterOnOK = true;
        menu.list->m_scrollOnHold = true;
        menu.list->m_jumpToLetter = true;
        menu.list->setKeyLetters(Qt::Key_5, "jkl");
        const auto doEverything = [&] {
            for (int row : {-1, 0, 1, INT_MAX, INT_MIN}) {
                menu.list->setFocusAtItem(row);
                menu.list->hideItem(row);
                menu.list->showItem(row);
                menu.list->findNextRow(row);
                menu.list->findPrevRow(row);
            }
            menu.list->setRowHeight(20);
            menu.list->setRowHeight(46);
            for (int key : allKeys()) {
                menu.type(key);
                QCOMPARE(menu.list->selectedRow(), -1);
                menu.type(key, 30);
                QCOMPARE(menu.list->selectedRow(), -1);
            }
            const QStringList notes = takeNotes();
            for (const QString &note : notes) {
                QVERIFY2(!note.startsWith("doEnter") && !note.startsWith("doChange") && !note.startsWith("reached"),
                         qPrintable(note));
            }
            menu.list->hide();
            menu.list->show();
            menu.list->setFocus();
            menu.picture();
        };
        doEverything();
        menu.list->setNoFocusStyle(3);
        doEverything();
    }
}

void TestWidgetListView::rowsAreFoundWhereTheyAre()
{
    // Makes an index of whatever it is asked for, as a model may.
    class LaxModel : public RowsModel
    {
    public:
        using RowsModel::RowsModel;
        QModelIndex index(int row, int column, const QModelIndex &) const override { return createIndex(row, column); }
    };
    LaxModel model(RowsModel::titled(8));
    const auto indexOf = [&](int row) { return model.index(row, 0, QModelIndex()); };
    ViewMenu menu(&model);
    menu.show();
    menu.list->hideItem(1);
    menu.list->setFocusAtItem(5);
    // Rows 3, 4 and 5 are in view; with row 1 hidden they have the places 2 to 4.
    const QAbstractItemView *view = menu.view();
    const auto rowAt = [&](int x, int y) { return view->indexAt(QPoint(x, y)).row(); };
    for (int row = 3; row <= 5; ++row) {
        const QRect rect = view->visualRect(indexOf(row));
        QCOMPARE(rect, QRect(0, (row - 3) * 46, 220, 46));
        QCOMPARE(rowAt(0, rect.top()), row);
        QCOMPARE(rowAt(200, rect.bottom()), row);
    }
    QCOMPARE(view->visualRect(indexOf(1)), QRect());
    QCOMPARE(view->visualRect(QModelIndex()), QRect());
    QCOMPARE(view->visualRect(indexOf(0)), QRect(0, -2 * 46, 220, 46));
    QCOMPARE(view->visualRect(indexOf(2)), QRect(0, -46, 220, 46));
    QCOMPARE(view->indexAt(QPoint(10, 10)).column(), 0);
    QCOMPARE(rowAt(-1, 10), -1);
    QCOMPARE(rowAt(10, -1), -1);
    QCOMPARE(rowAt(10, 138), -1);
    QCOMPARE(rowAt(220, 10), -1);
    // Below the last one.
    for (int row = 0; row < 7; ++row)
        menu.list->hideItem(row);
    QCOMPARE(rowAt(10, 45), 7);
    QCOMPARE(rowAt(10, 46), -1);
    RecordingPlatform::reset();
}

void TestWidgetListView::eachLineIsPaintedByItself()
{
    QList<Row> rows = RowsModel::titled(5);
    for (Row &row : rows)
        row.setValue = QStringLiteral("a value");
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.list->setRowHeight(30);
    menu.show();
    for (int row : {0, 4}) {
        menu.list->setFocusAtItem(row);
        const auto paint = [&](QImage *image, const QRegion &region) {
            menu.view()->viewport()->render(image, region.boundingRect().topLeft(), region, QWidget::RenderFlags());
        };
        QImage atOnce(menu.view()->viewport()->size(), QImage::Format_RGB32);
        QImage byLines(atOnce.size(), QImage::Format_RGB32);
        paint(&atOnce, atOnce.rect());
        for (int y = 0; y < atOnce.height(); ++y)
            paint(&byLines, QRect(0, y, atOnce.width(), 1));
        QCOMPARE(byLines, atOnce);
    }
}

void TestWidgetListView::rowsFollowTheFontOfTheApplication()
{
    QList<Row> rows = RowsModel::titled(3);
    rows[0].setValue = QStringLiteral("a value");
    rows[1].badge = 1;
    // Where it is cut depends on the font, too.
    rows[2].title = QStringLiteral("illicit fillies in a title that is too wide");
    RowsModel model(rows);
    ViewMenu menu(&model);
    menu.show();
    const auto seenRows = [](ViewMenu &list) { return list.picture().copy(0, 38, 220, 138); };
    const QImage before = seenRows(menu);
    const QFont font = QApplication::font();
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans Mono")));
    const QImage after = seenRows(menu);
    ViewMenu other(&model);
    other.show();
    const QImage expected = seenRows(other);
    QApplication::setFont(font);
    QVERIFY(after != before);
    QCOMPARE(after, expected);
    menu.show();
    QCOMPARE(seenRows(menu), before);
}

void TestWidgetListView::titleScrollsOnceItsFontIsTooWide()
{
    RowsModel model(RowsModel::titled(QStringList{"illicit fillies fill it"}));
    ViewMenu menu(&model);
    menu.show();
    const auto scrolls = [&menu] {
        runEventLoop();
        return !scrollTimers(menu.view()).isEmpty();
    };
    QVERIFY(!scrolls());
    const QFont font = QApplication::font();
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans Mono")));
    const bool scrolling = scrolls();
    QApplication::setFont(font);
    QVERIFY(scrolling);
    QVERIFY(!scrolls());
}

void TestWidgetListView::iconTakesALabelOnlyWhereItMust_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<int>("labels");
    QTest::newRow("none") << QString() << 1;
    QTest::newRow("a picture of a resource") << "image: url(:/resource/images_l2/icon_disc.png);" << 0;
    QTest::newRow("a picture in a file") << "image: url(%1);" << 1;
    QTest::newRow("a picture that does not exist") << "image: url(:/none.png);" << 1;
    QTest::newRow("two pictures") << "image: url(:/none.png);image: url(:/resource/images_l2/icon_disc.png);" << 1;
    QTest::newRow("a picture and more") << "image: url(:/resource/images_l2/icon_disc.png); border: none;" << 1;
    QTest::newRow("a picture where a colour belongs") << "color: url(:/resource/images_l2/icon_disc.png);" << 1;
}

void TestWidgetListView::iconTakesALabelOnlyWhereItMust()
{
    QFETCH(QString, sheet);
    const QTemporaryDir directory;
    const QString file = directory.filePath("icon.png");
    QVERIFY(QPixmap(":/resource/images_l2/icon_disc.png").save(file));
    sheet.replace("%1", file);
    ViewMenu menu(nullptr);
    menu.list->setTitleIcon(sheet);
    const QList<QLabel *> labels = menu.list->findChildren<QLabel *>();
    QTEST(int(labels.size()), "labels");
    for (const QLabel *label : labels) {
        QCOMPARE(label->geometry(), QRect(0, 0, 38, 38));
        QCOMPARE(label->styleSheet(), "padding: 3px;" + sheet);
    }
}

void TestWidgetListView::guidesTakeOneLabelForAll()
{
    ViewMenu menu(nullptr);
    menu.list->addGuide(QStringLiteral("border: none;"), QRect(10, 0, 60, 13));
    menu.list->addGuide(QStringLiteral("color: red;"), QRect(20, 10, 50, 14));
    const QList<QLabel *> labels = menu.list->findChildren<QLabel *>();
    QCOMPARE(labels.size(), 1);
    QCOMPARE(labels.at(0)->geometry(), QRect(20, 10, 50, 14));
}

void TestWidgetListView::iconsTakeOneLabelForAll()
{
    ViewMenu menu(nullptr);
    menu.list->setTitleIcon(QStringLiteral("background-color: red;"));
    menu.list->setTitleIcon(QStringLiteral("image: url(:/none.png);"));
    menu.list->setTitleIcon(QStringLiteral("border: none;"));
    QCOMPARE(menu.list->findChildren<QLabel *>().size(), 1);
}

void TestWidgetListView::changeOfTheTitleBarPaintsItAlone_data()
{
    QTest::addColumn<std::function<void(WidgetListView &)>>("change");
    QTest::addColumn<bool>("paints");
    const auto add = [](const char *name, bool paints, const std::function<void(WidgetListView &)> &change) {
        QTest::newRow(name) << change << paints;
    };
    add("another title", true, [](WidgetListView &list) { list.setTitle("Others", false); });
    add("the same title", false, [](WidgetListView &list) { list.setTitle("Settings", false); });
    add("the same title in the default font", true, [](WidgetListView &list) { list.setTitle("Settings", true); });
    add("the default font", true, [](WidgetListView &list) { list.setDefaultFont(); });
    add("an icon", true,
        [](WidgetListView &list) { list.setTitleIcon("image: url(:/resource/images_l2/icon_disc.png);"); });
}

void TestWidgetListView::changeOfTheTitleBarPaintsItAlone()
{
    QFETCH(std::function<void(WidgetListView &)>, change);
    QFETCH(bool, paints);
    RowsModel model(RowsModel::titled(5));
    ViewMenu menu(&model);
    menu.list->setTitle("Settings", false);
    QVERIFY(showAndPaint(menu.screen));
    const QWidget *bar = menu.list->childAt(100, 10);
    const EventRecorder recorder(&menu.screen);
    change(*menu.list);
    passTime(20);
    QCOMPARE(recorder.receivers(QEvent::Paint).contains(const_cast<QWidget *>(bar)), paints);
    QCOMPARE(recorder.count(QEvent::Paint), recorder.count(QEvent::Paint, bar));
}

QTEST_MAIN(TestWidgetListView)

#include "tst_widgetlistview.moc"
