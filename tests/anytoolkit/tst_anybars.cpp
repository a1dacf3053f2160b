// The base of all widgets, and what stands at the edges of a screen: bottom bar, page guide, status bar, icon group, soft
// button, progress bar.

#include "anytoolkit.h"
#include "widgetbottom.h"
#include "widgetbottomguide.h"
#include "widgeticongroup.h"
#include "widgetprogressbar.h"
#include "widgetsoftbtn.h"
#include "widgetstatusbar.h"

#include <QLabel>
#include <QProgressBar>

class TestAnyBars : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void keysMeanDirections_data();
    void keysMeanDirections();
    void clicksThroughItsSoundManagerOnly();

    void halvesOfTheBottomBarMeet();
    void bottomBarShowsItsStates();
    void bottomBarRejectsAStateThatDoesNotExist();

    void pageNumbersMeetInTheMiddle();
    void pageGuideShowsTheNewNumbers();

    void statusBarShowsItsStates();
    void statusBarLogsItsStates();

    void iconsAreHiddenUntilDressed();
    void iconsMoveUpAndDown();
    void iconGroupShowsTheNewLook();
    void iconGroupRejectsAnIndexThatDoesNotExist();

    void softButtonShowsTheNewLook();
    void nameOfASoftButtonFillsIt();
    void softButtonWithoutAnnotationRejectsOne();

    void numbersHaveCommas_data();
    void numbersHaveCommas();
    void progressBarTellsItsValue();
    void progressBarShowsTheNewValue();
};

static QString fill(const char *colour)
{
    return QString::fromLatin1("background-color: %1;").arg(QLatin1String(colour));
}

static QString picture(const char *name)
{
    return QString::fromLatin1("image: url(:/resource/images_l2/%1.png);").arg(QLatin1String(name));
}

void TestAnyBars::init()
{
    AnyPlatform::reset();
}

void TestAnyBars::keysMeanDirections_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("digits");
    QTest::addColumn<QString>("functionKeys");
    QTest::newRow("2") << int(Qt::Key_2) << "up" << "";
    QTest::newRow("8") << int(Qt::Key_8) << "down" << "";
    QTest::newRow("4") << int(Qt::Key_4) << "left" << "";
    QTest::newRow("6") << int(Qt::Key_6) << "right" << "";
    QTest::newRow("F1") << int(Qt::Key_F1) << "" << "up";
    QTest::newRow("F2") << int(Qt::Key_F2) << "" << "down";
    QTest::newRow("F3") << int(Qt::Key_F3) << "" << "left";
    QTest::newRow("F4") << int(Qt::Key_F4) << "" << "right";
    QTest::newRow("menu") << int(Qt::Key_Menu) << "OK" << "OK";
    QTest::newRow("return") << int(Qt::Key_Return) << "" << "";
}

static QString meaning(Widget &widget, int key)
{
    QStringList meanings;
    if (widget.isUpKey(key))
        meanings << "up";
    if (widget.isDownKey(key))
        meanings << "down";
    if (widget.isLeftKey(key))
        meanings << "left";
    if (widget.isRightKey(key))
        meanings << "right";
    if (widget.isOKKey(key))
        meanings << "OK";
    return meanings.join(",");
}

void TestAnyBars::keysMeanDirections()
{
    QFETCH(int, key);
    QFETCH(QString, digits);
    QFETCH(QString, functionKeys);
    Widget widget(0, 0);
    QCOMPARE(meaning(widget, key), digits);
    widget.m_useFunctionKeys = true;
    QCOMPARE(meaning(widget, key), functionKeys);
}

void TestAnyBars::clicksThroughItsSoundManagerOnly()
{
    Widget(0, sound()).playSound(901);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList() << "sound 901");
    Widget(0, 0).playSound(901);
    QCOMPARE(AnyPlatform::takeEvents(), QStringList());
}

// --- WidgetBottom

struct BottomScreen : Screen
{
    BottomScreen() : bar(this, 0)
    {
        static const char *const colours[] = {"#100000", "#200000", "#300000", "#400000", "#500000", "#600000"};
        bar.setGeometry(0, 146, 220, 30);
        bar.setBgGeometry(0, 0, 220, 30);
        bar.setItemStyle(0, QString(), fill("#474242"), 0);
        bar.setItemStyle(1, QString(), fill("#8c8282"), 0);
        for (int item = 2; item < 6; ++item) {
            for (int state = 0; state < 6; ++state)
                bar.setItemStyle(item, state == item ? picture("icon_sound") : fill(colours[state]), QString(), state);
        }
    }

    WidgetBottom bar;
};

void TestAnyBars::halvesOfTheBottomBarMeet()
{
    WidgetBottom bar(0, 0);
    bar.setBgGeometry(10, 0, 221, 30);
    const QList<QWidget *> halves = partsOf<QWidget>(&bar);
    QCOMPARE(int(halves.size()), 2);
    QCOMPARE(halves.at(0)->geometry(), QRect(10, 0, 110, 30));
    QCOMPARE(halves.at(1)->geometry(), QRect(110, 0, 110, 30));
}

void TestAnyBars::bottomBarShowsItsStates()
{
    BottomScreen fresh;
    fresh.bar.statusBottomShow(5, 3, 2, 0);
    const QImage expected = shownOnce(&fresh);

    BottomScreen screen;
    screen.bar.statusBottomShow(0, 1, 2, 3);
    screen.showInFront();
    QVERIFY(seen(&screen) != expected);
    screen.bar.statusBottomShow(5, 3, 2, 0);
    QVERIFY(looksAs(&screen, expected));
}

void TestAnyBars::bottomBarRejectsAStateThatDoesNotExist()
{
    BottomScreen screen;
    screen.bar.statusBottomShow(0, 1, 2, 3);
    screen.showInFront();
    const QImage before = drawn(&screen);
    screen.bar.statusBottomShow(1, 1, 6, 1);
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "2 [ui/view/widget/widgetbottom.cpp, statusBottomShow] Invalid index 6");
    QVERIFY(looksAs(&screen, before));
}

// --- WidgetBottomGuide

void TestAnyBars::pageNumbersMeetInTheMiddle()
{
    Screen screen;
    WidgetBottomGuide guide(&screen, 0);
    guide.setGeometry(0, 0, 220, 20);
    guide.setCurPageNo(3);
    guide.setTotPageNo(12);
    screen.showInFront();
    const QList<QLabel *> numbers = partsOf<QLabel>(&guide);
    QCOMPARE(int(numbers.size()), 2);
    QCOMPARE(numbers.at(0)->text(), QString("3"));
    QCOMPARE(numbers.at(0)->geometry(), QRect(88, 0, 22, 20));
    QCOMPARE(numbers.at(1)->text(), QString("/12"));
    QCOMPARE(numbers.at(1)->geometry(), QRect(110, 0, 22, 20));
}

void TestAnyBars::pageGuideShowsTheNewNumbers()
{
    Screen fresh;
    WidgetBottomGuide freshGuide(&fresh, 0);
    freshGuide.setGeometry(0, 150, 220, 26);
    freshGuide.setCurPageNo(2);
    freshGuide.setTotPageNo(7);
    const QImage expected = shownOnce(&fresh);

    Screen screen;
    WidgetBottomGuide guide(&screen, 0);
    guide.setGeometry(0, 150, 220, 26);
    guide.setCurPageNo(1);
    guide.setTotPageNo(3);
    screen.showInFront();
    QVERIFY(seen(&screen) != expected);
    guide.setCurPageNo(2);
    guide.setTotPageNo(7);
    QVERIFY(looksAs(&screen, expected));
}

// --- WidgetStatusBar

struct StatusScreen : Screen
{
    StatusScreen() : bar(this, 0)
    {
        bar.setBgGeometry(0, 0, 220, 22, 20);
        for (int item = 0; item < 4; ++item) {
            bar.setStatusUrl(item, 0, fill("#594b4f"));
            bar.setStatusUrl(item, 1, picture("page_on"));
            bar.setStatusUrl(item, 2, fill("#f7ce86"));
        }
    }

    WidgetStatusBar bar;
};

void TestAnyBars::statusBarShowsItsStates()
{
    StatusScreen fresh;
    fresh.bar.showItem0(2);
    fresh.bar.showItem1(1);
    const QImage expected = shownOnce(&fresh);

    StatusScreen screen;
    screen.showInFront();
    QVERIFY(seen(&screen) != expected);
    screen.bar.showItem0(1);
    screen.bar.showItem3(2);
    screen.bar.showItem1(1);
    screen.bar.showItem0(2);
    screen.bar.showItem3(0);
    QVERIFY(looksAs(&screen, expected));
}

void TestAnyBars::statusBarLogsItsStates()
{
    WidgetStatusBar bar(0, 0);
    bar.showItem0(1);
    bar.showItem2(7);
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "16 [showItem0, 71] status = 1"
        << "16 [ui/view/widget/widgetstatusbar.cpp : showItem2] status =7");
}

// --- WidgetIconGroup

void TestAnyBars::iconsAreHiddenUntilDressed()
{
    WidgetIconGroup group(0, 0);
    const QList<QLabel *> elements = partsOf<QLabel>(&group);
    QCOMPARE(int(elements.size()), 5);
    for (int i = 0; i < 5; ++i)
        QVERIFY(elements.at(i)->isHidden());
    group.setIcon(1, picture("icon_sound"));
    group.setSeperator(1, fill("#ffffff"));
    for (int i = 0; i < 5; ++i)
        QCOMPARE(elements.at(i)->isHidden(), i != 1 && i != 4);
}

void TestAnyBars::iconsMoveUpAndDown()
{
    WidgetIconGroup group(0, 0);
    const QList<QLabel *> elements = partsOf<QLabel>(&group);
    QCOMPARE(elements.at(1)->geometry(), QRect(51, 2, 20, 20));
    QCOMPARE(elements.at(4)->geometry(), QRect(81, 6, 11, 11));
    group.setVerticalAlignment(WidgetIconGroup::Top);
    group.setVerticalAlignment(WidgetIconGroup::Top);
    QCOMPARE(elements.at(1)->geometry(), QRect(51, -2, 20, 20));
    group.setVerticalAlignment(WidgetIconGroup::Bottom);
    QCOMPARE(elements.at(4)->geometry(), QRect(81, 4, 11, 11));
    group.setVerticalAlignment(WidgetIconGroup::Center);
    QCOMPARE(elements.at(1)->geometry(), QRect(51, 2, 20, 20));
}

void TestAnyBars::iconGroupShowsTheNewLook()
{
    Screen fresh;
    WidgetIconGroup freshGroup(&fresh, 0);
    freshGroup.setGeometry(20, 10, 122, 24);
    freshGroup.setIcon(0, picture("page_on"));
    freshGroup.setIcon(2, fill("#f7ce86"));
    freshGroup.setSeperator(0, fill("#ffffff"));
    freshGroup.setVerticalAlignment(WidgetIconGroup::Bottom);
    const QImage expected = shownOnce(&fresh);

    Screen screen;
    WidgetIconGroup group(&screen, 0);
    group.setGeometry(20, 10, 122, 24);
    group.setIcon(0, fill("#594b4f"));
    screen.showInFront();
    QVERIFY(seen(&screen) != expected);
    group.setIcon(0, picture("page_on"));
    group.setIcon(2, fill("#f7ce86"));
    group.setSeperator(0, fill("#ffffff"));
    group.setVerticalAlignment(WidgetIconGroup::Bottom);
    QVERIFY(looksAs(&screen, expected));
}

void TestAnyBars::iconGroupRejectsAnIndexThatDoesNotExist()
{
    WidgetIconGroup group(0, 0);
    group.setIcon(3, QString());
    group.setSeperator(-1, QString());
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "2 [ui/view/widget/widgeticongroup.cpp, setIcon] Invalid index 3"
        << "2 [ui/view/widget/widgeticongroup.cpp, setSeperator] Invalid index -1");
}

// --- WidgetSoftBtn

void TestAnyBars::softButtonShowsTheNewLook()
{
    Screen fresh;
    WidgetSoftBtn freshButton(true, &fresh, 0);
    freshButton.setItemGeometry(WidgetSoftBtn::ItemBackground, 0, 140, 110, 36);
    freshButton.setAttribute(Qt::WA_StyledBackground);
    freshButton.setBtnName("Save");
    freshButton.setItemStyle(WidgetSoftBtn::ItemAnnotation, fill("#f7ce86"));
    freshButton.setFontStyle(WidgetSoftBtn::ItemName, 10, true, "color: #1f1618;");
    const QImage expected = shownOnce(&fresh);

    Screen screen;
    WidgetSoftBtn button(true, &screen, 0);
    button.setGeometry(50, 0, 60, 20);
    button.setAttribute(Qt::WA_StyledBackground);
    button.setBtnName("Back");
    screen.showInFront();
    QVERIFY(seen(&screen) != expected);
    button.setItemGeometry(WidgetSoftBtn::ItemBackground, 0, 140, 110, 36);
    button.setBtnName("Save");
    button.setItemStyle(WidgetSoftBtn::ItemAnnotation, fill("#f7ce86"));
    button.setFontStyle(WidgetSoftBtn::ItemName, 10, true, "color: #1f1618;");
    QVERIFY(looksAs(&screen, expected));
}

void TestAnyBars::nameOfASoftButtonFillsIt()
{
    Screen screen;
    WidgetSoftBtn button(false, &screen, 0);
    button.setGeometry(0, 0, 100, 30);
    button.setItemGeometry(WidgetSoftBtn::ItemName, 5, 5, 20, 20);
    screen.showInFront();
    QLabel *name = partsOf<QLabel>(&button).at(0);
    QCOMPARE(name->geometry(), QRect(0, 0, 100, 30));
    button.setItemGeometry(WidgetSoftBtn::ItemName, 5, 5, 20, 20);
    QCOMPARE(name->geometry(), QRect(5, 5, 20, 20));
    button.resize(80, 20);
    QCOMPARE(name->geometry(), QRect(0, 0, 80, 20));
}

void TestAnyBars::softButtonWithoutAnnotationRejectsOne()
{
    WidgetSoftBtn button(false, 0, 0);
    button.setItemStyle(WidgetSoftBtn::ItemAnnotation, fill("#ffffff"));
    QCOMPARE(AnyPlatform::takeLog(), QStringList() << "2 This is not annotated soft key...!");
    button.setItemGeometry(WidgetSoftBtn::Item(3), 0, 0, 1, 1);
    QCOMPARE(AnyPlatform::takeLog(), QStringList() << "2 [setItemGeometry, 49] Unknown item!!");
}

// --- WidgetProgressBar

void TestAnyBars::numbersHaveCommas_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("three digits") << 123 << "123 ";
    QTest::newRow("four digits") << 1234 << "1,234 ";
    QTest::newRow("seven digits") << 1234567 << "1,234,567 ";
    QTest::newRow("the sign counts") << -123 << "-,123 ";
}

void TestAnyBars::numbersHaveCommas()
{
    QFETCH(int, value);
    QFETCH(QString, text);
    WidgetProgressBar bar(0);
    QCOMPARE(bar.calcIntToString(value, true), text);
    QCOMPARE(bar.calcIntToString(value, false), text.trimmed());
}

void TestAnyBars::progressBarTellsItsValue()
{
    WidgetProgressBar bar(0);
    QSignalSpy changes(&bar, SIGNAL(valueChanged(int)));
    bar.setItemUseMaxValue(1234, 20000);
    QCOMPARE(int(changes.size()), 1);
    QCOMPARE(changes.at(0).at(0).toInt(), 1234);
    const QProgressBar *filled = partsOf<QProgressBar>(&bar).at(0);
    QCOMPARE(filled->value(), 1234);
    QCOMPARE(filled->maximum(), 20000);
    QCOMPARE(filled->format(), QString("20,000 "));
    QCOMPARE(partsOf<QLabel>(&bar).at(1)->text(), QString("1,234"));
}

void TestAnyBars::progressBarShowsTheNewValue()
{
    Screen fresh;
    WidgetProgressBar freshBar(&fresh);
    freshBar.setGeometry(0, 38, 220, 46);
    freshBar.setItemTitle("Memory");
    freshBar.setItemUseMaxValue(300, 1200);
    const QImage expected = shownOnce(&fresh);

    Screen screen;
    WidgetProgressBar bar(&screen);
    bar.setGeometry(0, 38, 220, 46);
    bar.setItemTitle("Disk");
    bar.setItemUseMaxValue(900, 1000);
    screen.showInFront();
    QVERIFY(seen(&screen) != expected);
    bar.setItemTitle("Memory");
    bar.setItemUseMaxValue(300, 1200);
    QVERIFY(looksAs(&screen, expected));
}

ANYTOOLKIT_MAIN(TestAnyBars)

#include "tst_anybars.moc"
