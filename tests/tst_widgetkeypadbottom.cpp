#include "keypadtesting.h"
#include "recordingplatform.h"
#include "waiting.h"
#include "widgetkeypadbottom.h"

#include <QtTest>

using namespace KeypadTesting;

class TestWidgetKeypadBottom : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void hasNoSignalsSlotsAndProperties();
    void enumerationsHaveTheirValues();
    void cellsStandSideBySide_data();
    void cellsStandSideBySide();
    void onlyTheFirstTwoCellsGetAFont();
    void setsNoSheetAndMakesNoSound();
    void placingTheBarLeavesTheCells();
    void onlyTheFirstTwoCellsTakeATextAndShowItPlainly();
    void setItemFontBringsTheFirstFontBack();
    void hidesAndShowsSingleCells();
    void ignoresItemsToHideThatDoNotExist();
    void keepsStylesForTheNextChange();
    void rejectsStylesForItemsAndStatesThatDoNotExist_data();
    void rejectsStylesForItemsAndStatesThatDoNotExist();
    void functionKeysSelectTheirCells_data();
    void functionKeysSelectTheirCells();
    void everyKeyIsLoggedAndHandedOn_data();
    void everyKeyIsLoggedAndHandedOn();
    void keyPressesAreHandedOnUnused();
    void cellStaysSelectedBecauseTheBarHasNoSlotForItsFlash();
    void onlyTheCellSelectedLastReturnsToRest();
    void everyShowPutsAllCellsToRest();
    void showingDoesNotForgetTheCellSelectedLast();
    void clearsTheFirstCellBeforeAnySelection();
    void withoutStylesSheetsAndLogStayEmpty();
    void itemThatDoesNotExistMeansTheFirstCell_data();
    void itemThatDoesNotExistMeansTheFirstCell();
    void styleInPlaceIsNotSetAgain();
};

// Cells whose sheets tell them apart.
class DressedBar : public WidgetKeypadBottom
{
public:
    DressedBar()
        : WidgetKeypadBottom(nullptr)
    {
        dressItems(*this);
        setBgGeometry(0, 0, 220, 23);
        show();
    }

    QString states() const { return cellStates(ownLabels(*this)); }
};

static void expectSlotWarnings(int count)
{
    static const QRegularExpression warning("No such slot WidgetKeypadBottom::clearSelection\\(\\)");
    for (int i = 0; i < count; ++i)
        QTest::ignoreMessage(QtWarningMsg, warning);
}

void TestWidgetKeypadBottom::init()
{
    RecordingPlatform::reset();
}

void TestWidgetKeypadBottom::hasNoSignalsSlotsAndProperties()
{
    const QMetaObject &meta = WidgetKeypadBottom::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetKeypadBottom");
    QCOMPARE(meta.superClass(), &Widget::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
}

void TestWidgetKeypadBottom::enumerationsHaveTheirValues()
{
    QCOMPARE(int(WidgetKeypadBottom::ItemButton1), 0);
    QCOMPARE(int(WidgetKeypadBottom::ItemButton2), 1);
    QCOMPARE(int(WidgetKeypadBottom::ItemSpace), 2);
    QCOMPARE(int(WidgetKeypadBottom::ItemDelete), 3);
    QCOMPARE(int(WidgetKeypadBottom::StateNormal), 0);
    QCOMPARE(int(WidgetKeypadBottom::StateSelected), 1);
}

void TestWidgetKeypadBottom::cellsStandSideBySide_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QRect>("rect");
    QTest::newRow("first button") << 0 << QRect(0, 0, 55, 23);
    QTest::newRow("second button") << 1 << QRect(55, 0, 55, 23);
    QTest::newRow("space") << 2 << QRect(110, 0, 55, 23);
    QTest::newRow("delete") << 3 << QRect(165, 0, 55, 23);
}

void TestWidgetKeypadBottom::cellsStandSideBySide()
{
    QFETCH(int, item);
    WidgetKeypadBottom bar(nullptr);
    const QList<QLabel *> cells = bar.findChildren<QLabel *>();
    QCOMPARE(cells.size(), 4);
    QCOMPARE(cells.at(item)->parentWidget(), &bar);
    QTEST(cells.at(item)->geometry(), "rect");
    QCOMPARE(cells.at(item)->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
}

void TestWidgetKeypadBottom::onlyTheFirstTwoCellsGetAFont()
{
    WidgetKeypadBottom bar(nullptr);
    const QList<QLabel *> cells = ownLabels(bar);
    for (int item = 0; item < 2; ++item) {
        QCOMPARE(cells.at(item)->font().pointSize(), 14);
        QCOMPARE(int(cells.at(item)->font().weight()), int(QFont::Bold));
    }
    for (int item = 2; item < 4; ++item)
        QVERIFY(!cells.at(item)->testAttribute(Qt::WA_SetFont));
}

void TestWidgetKeypadBottom::setsNoSheetAndMakesNoSound()
{
    WidgetKeypadBottom bar(nullptr);
    bar.show();
    bar.playSound(901);
    QCOMPARE(bar.styleSheet(), QString());
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetKeypadBottom::placingTheBarLeavesTheCells()
{
    WidgetKeypadBottom bar(nullptr);
    bar.setBgGeometry(10, 20, 300, 40);
    QCOMPARE(bar.geometry(), QRect(10, 20, 300, 40));
    QCOMPARE(ownLabels(bar).at(3)->geometry(), QRect(165, 0, 55, 23));
}

void TestWidgetKeypadBottom::onlyTheFirstTwoCellsTakeATextAndShowItPlainly()
{
    WidgetKeypadBottom bar(nullptr);
    for (int item = -1; item <= 4; ++item)
        bar.setItemText(WidgetKeypadBottom::Item(item), QString("<b>%1</b>").arg(item));
    const QList<QLabel *> cells = ownLabels(bar);
    QCOMPARE(cells.at(0)->text(), QString("<b>0</b>"));
    QCOMPARE(cells.at(1)->text(), QString("<b>1</b>"));
    QCOMPARE(cells.at(2)->text(), QString());
    QCOMPARE(cells.at(3)->text(), QString());
    QCOMPARE(cells.at(0)->textFormat(), Qt::PlainText);
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetKeypadBottom::setItemFontBringsTheFirstFontBack()
{
    WidgetKeypadBottom bar(nullptr);
    const QList<QLabel *> cells = ownLabels(bar);
    QFont other;
    other.setPointSize(9);
    for (QLabel *cell : cells)
        cell->setFont(other);
    bar.setItemFont();
    for (int item = 0; item < 4; ++item)
        QCOMPARE(cells.at(item)->font().pointSize(), item < 2 ? 14 : 9);
    QCOMPARE(int(cells.at(1)->font().weight()), int(QFont::Bold));
}

void TestWidgetKeypadBottom::hidesAndShowsSingleCells()
{
    DressedBar bar;
    const QList<QLabel *> cells = ownLabels(bar);
    for (int item = 0; item < 4; ++item) {
        bar.setItemVisible(WidgetKeypadBottom::Item(item), false);
        for (int other = 0; other < 4; ++other)
            QCOMPARE(cells.at(other)->isHidden(), other == item);
        bar.setItemVisible(WidgetKeypadBottom::Item(item), true);
        QVERIFY(cells.at(item)->isVisible());
    }
}

void TestWidgetKeypadBottom::ignoresItemsToHideThatDoNotExist()
{
    DressedBar bar;
    bar.setItemVisible(WidgetKeypadBottom::Item(4), false);
    bar.setItemVisible(WidgetKeypadBottom::Item(-1), false);
    for (QLabel *cell : ownLabels(bar))
        QVERIFY(cell->isVisible());
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetKeypadBottom::keepsStylesForTheNextChange()
{
    DressedBar bar;
    bar.setItemStyle(WidgetKeypadBottom::ItemSpace, WidgetKeypadBottom::StateNormal, "color: #123456");
    QCOMPARE(bar.states(), QString("nnnn"));
    expectSlotWarnings(1);
    bar.handleSelection(WidgetKeypadBottom::ItemSpace);
    bar.clearSelection();
    QCOMPARE(ownLabels(bar).at(2)->styleSheet(), QString("color: #123456"));
}

void TestWidgetKeypadBottom::rejectsStylesForItemsAndStatesThatDoNotExist_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("reported");
    QTest::newRow("behind the last") << 4 << 0 << 4;
    QTest::newRow("far out") << 1000000 << 1 << 1000000;
    QTest::newRow("negative") << -1 << 0 << -1;
    QTest::newRow("state behind the last") << 2 << 2 << 2;
    QTest::newRow("negative state") << 2 << -1 << -1;
    QTest::newRow("neither item nor state") << 4 << 5 << 4;
}

void TestWidgetKeypadBottom::rejectsStylesForItemsAndStatesThatDoNotExist()
{
    QFETCH(int, item);
    QFETCH(int, state);
    QFETCH(int, reported);
    DressedBar bar;
    bar.setItemStyle(WidgetKeypadBottom::Item(item), WidgetKeypadBottom::State(state), "color: #123456");
    QCOMPARE(RecordingPlatform::events(),
             QStringList() << QString("log:2:[ui/view/widget/widgetkeypadbottom.cpp, setItemStyle] Invalid index %1")
                                  .arg(reported));
    bar.hide();
    bar.show();
    QCOMPARE(bar.states(), QString("nnnn"));
}

void TestWidgetKeypadBottom::functionKeysSelectTheirCells_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("item");
    QTest::newRow("F1") << int(Qt::Key_F1) << 0;
    QTest::newRow("F2") << int(Qt::Key_F2) << 1;
    QTest::newRow("F3") << int(Qt::Key_F3) << 2;
    QTest::newRow("F4") << int(Qt::Key_F4) << 3;
}

void TestWidgetKeypadBottom::functionKeysSelectTheirCells()
{
    QFETCH(int, key);
    QFETCH(int, item);
    DressedBar bar;
    expectSlotWarnings(1);
    release(bar, key);
    QCOMPARE(bar.states(), QString("nnnn").replace(item, 1, "S"));
    QCOMPARE(RecordingPlatform::events(),
             QStringList() << "log:16:WidgetKeypad keyReleaseEvent"
                           << QString("log:128:[keyReleaseEvent, 109] key = %1").arg(key)
                           << QString("log:128:[handleSelection, 161] item = %1, style = color: #ff000%1").arg(item));
}

void TestWidgetKeypadBottom::everyKeyIsLoggedAndHandedOn_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("logLines");
    QTest::newRow("F1") << int(Qt::Key_F1) << 3;
    QTest::newRow("F4") << int(Qt::Key_F4) << 3;
    QTest::newRow("F5") << int(Qt::Key_F5) << 2;
    QTest::newRow("5") << int(Qt::Key_5) << 2;
    QTest::newRow("menu") << int(Qt::Key_Menu) << 2;
    QTest::newRow("escape") << int(Qt::Key_Escape) << 2;
}

void TestWidgetKeypadBottom::everyKeyIsLoggedAndHandedOn()
{
    QFETCH(int, key);
    DressedBar bar;
    QKeyEvent event(QEvent::KeyRelease, key, Qt::NoModifier);
    QFETCH(int, logLines);
    expectSlotWarnings(logLines - 2);
    QApplication::sendEvent(&bar, &event);
    QVERIFY(!event.isAccepted());
    QCOMPARE(int(RecordingPlatform::events().size()), logLines);
    QCOMPARE(RecordingPlatform::events().at(1), QString("log:128:[keyReleaseEvent, 109] key = %1").arg(key));
}

void TestWidgetKeypadBottom::keyPressesAreHandedOnUnused()
{
    DressedBar bar;
    QKeyEvent event(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    QApplication::sendEvent(&bar, &event);
    QVERIFY(!event.isAccepted());
    QCOMPARE(bar.states(), QString("nnnn"));
    QCOMPARE(RecordingPlatform::events(), QStringList());
}

void TestWidgetKeypadBottom::cellStaysSelectedBecauseTheBarHasNoSlotForItsFlash()
{
    DressedBar bar;
    expectSlotWarnings(1);
    release(bar, Qt::Key_F2);
    passTime(250);
    QCOMPARE(bar.states(), QString("nSnn"));
}

void TestWidgetKeypadBottom::onlyTheCellSelectedLastReturnsToRest()
{
    DressedBar bar;
    expectSlotWarnings(2);
    release(bar, Qt::Key_F2);
    release(bar, Qt::Key_F3);
    QCOMPARE(bar.states(), QString("nSSn"));
    bar.clearSelection();
    QCOMPARE(bar.states(), QString("nSnn"));
    bar.clearSelection();
    QCOMPARE(bar.states(), QString("nSnn"));
}

void TestWidgetKeypadBottom::everyShowPutsAllCellsToRest()
{
    DressedBar bar;
    expectSlotWarnings(4);
    for (int item = 0; item < 4; ++item)
        bar.handleSelection(WidgetKeypadBottom::Item(item));
    QCOMPARE(bar.states(), QString("SSSS"));
    bar.hide();
    QCOMPARE(bar.states(), QString("SSSS"));
    bar.show();
    QCOMPARE(bar.states(), QString("nnnn"));
}

void TestWidgetKeypadBottom::showingDoesNotForgetTheCellSelectedLast()
{
    DressedBar bar;
    expectSlotWarnings(1);
    bar.handleSelection(WidgetKeypadBottom::ItemDelete);
    bar.hide();
    bar.show();
    bar.setItemStyle(WidgetKeypadBottom::ItemDelete, WidgetKeypadBottom::StateNormal, "color: #123456");
    bar.clearSelection();
    QCOMPARE(ownLabels(bar).at(3)->styleSheet(), QString("color: #123456"));
}

void TestWidgetKeypadBottom::clearsTheFirstCellBeforeAnySelection()
{
    WidgetKeypadBottom bar(nullptr);
    dressItems(bar);
    bar.clearSelection();
    QCOMPARE(cellStates(ownLabels(bar)), QString("n???"));
}

void TestWidgetKeypadBottom::withoutStylesSheetsAndLogStayEmpty()
{
    WidgetKeypadBottom bar(nullptr);
    bar.show();
    expectSlotWarnings(1);
    release(bar, Qt::Key_F3);
    for (QLabel *cell : ownLabels(bar))
        QCOMPARE(cell->styleSheet(), QString());
    QCOMPARE(RecordingPlatform::events().last(), QString("log:128:[handleSelection, 161] item = 2, style = "));
}

void TestWidgetKeypadBottom::itemThatDoesNotExistMeansTheFirstCell_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("behind the last") << 4;
    QTest::newRow("far out") << 1000000;
    QTest::newRow("negative") << -1;
}

void TestWidgetKeypadBottom::itemThatDoesNotExistMeansTheFirstCell()
{
    QFETCH(int, item);
    DressedBar bar;
    expectSlotWarnings(1);
    bar.handleSelection(WidgetKeypadBottom::Item(item));
    QCOMPARE(bar.states(), QString("Snnn"));
    QCOMPARE(RecordingPlatform::events(),
             QStringList() << QString("log:128:[handleSelection, 161] item = %1, style = color: #ff0000").arg(item));
    bar.clearSelection();
    QCOMPARE(bar.states(), QString("nnnn"));
}

// Counts how often the widgets that it watches are dressed.
class DressingCounter : public QObject
{
public:
    int count = 0;

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::StyleChange;
        return false;
    }
};

void TestWidgetKeypadBottom::styleInPlaceIsNotSetAgain()
{
    DressedBar bar;
    DressingCounter counter;
    for (QLabel *cell : ownLabels(bar))
        cell->installEventFilter(&counter);
    expectSlotWarnings(2);
    release(bar, Qt::Key_F1);
    QCOMPARE(counter.count, 1);
    release(bar, Qt::Key_F1);
    QCOMPARE(counter.count, 1);
    bar.hide();
    bar.show();
    QCOMPARE(counter.count, 2);
}

QTEST_MAIN(TestWidgetKeypadBottom)
#include "tst_widgetkeypadbottom.moc"
