#include "eventrecording.h"
#include "recordingplatform.h"
#include "threadruns.h"
#include "waiting.h"
#include "widgetclock.h"

#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

namespace {

enum { Mark, HourTens, HourUnits, MinTens, MinUnits, Separator, SecTens, SecUnits };  // in the order of creation

QString largeSheet(int digit)
{
    return QStringLiteral("color: #10000%1").arg(digit);
}

QString smallSheet(int digit)
{
    return QStringLiteral("color: #20000%1").arg(digit);
}

const QString AMSheet = QStringLiteral("color: #300000");
const QString PMSheet = QStringLiteral("color: #300001");

/// A clock on a screen, with a sheet for every picture.
struct ClockScreen
{
    QWidget screen;
    WidgetClock clock;
    const QList<QLabel *> labels;

    ClockScreen()
        : clock(&screen, nullptr),
          labels(clock.findChildren<QLabel *>())
    {
        screen.resize(240, 120);
        clock.setGeometry(20, 20, 200, 80);
        for (int digit = 0; digit <= 9; ++digit) {
            clock.setNumTextUrl(digit, largeSheet(digit));
            clock.setNumTextXSUrl(digit, smallSheet(digit));
        }
        clock.setAMPMUrl(AMSheet, PMSheet);
    }

    /// The clock in view and everything painted.
    void bringUp()
    {
        screen.show();
        QVERIFY(QTest::qWaitForWindowExposed(&screen, LongestWait));
        runEventLoop();
    }

    /// What a label shows: a digit, "AM", "PM", "" without a picture, "?" for something else.
    QString picture(int label) const
    {
        const QString sheet = labels[label]->styleSheet();
        if (sheet.isEmpty())
            return QString();
        if (sheet == AMSheet || sheet == PMSheet)
            return sheet == AMSheet ? QStringLiteral("AM") : QStringLiteral("PM");
        const bool small = label == SecTens || label == SecUnits;
        for (int digit = 0; digit <= 9; ++digit) {
            if (sheet == (small ? smallSheet(digit) : largeSheet(digit)))
                return QString::number(digit);
        }
        return QStringLiteral("?");
    }

    /// "11:05:09 PM", with "_" for a digit without a picture; seconds and mark where they can be seen.
    QString shown() const
    {
        QString text;
        for (int label : {int(HourTens), int(HourUnits), int(MinTens), int(MinUnits), int(SecTens), int(SecUnits)}) {
            if (labels[label]->isHidden())
                continue;
            if (label == MinTens || label == SecTens)
                text += QLatin1Char(':');
            text += picture(label).isEmpty() ? QStringLiteral("_") : picture(label);
        }
        if (!labels[Mark]->isHidden())
            text += QLatin1Char(' ') + picture(Mark);
        return text;
    }
};

void setTime(int hour, int minute, int second)
{
    RecordingPlatform::setLocalTime(2024, 3, 7, hour, minute, second);
}

}

class TestWidgetClock : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void isMadeHiddenWithItsPartsInPlace();
    void hasSignalsSlotAndPropertiesInOrder();
    void formatCanBeSetByName();
    void placesAnItem_data();
    void placesAnItem();
    void rejectsAnUnknownItem_data();
    void rejectsAnUnknownItem();
    void ignoresADigitOutsideTheRange_data();
    void ignoresADigitOutsideTheRange();

    void showsEveryHour_data();
    void showsEveryHour();
    void showsEveryMinuteAndSecond();
    void showsNoPictureForNumbersThatItIsNotMadeFor_data();
    void showsNoPictureForNumbersThatItIsNotMadeFor();
    void anyFormatButHour24IsTwelveHours();
    void showsItselfWithATime();
    void secondsSwitchedOffStayUntilTheNextTime();
    void secondsAreHiddenWhateverTheirSheets();
    void hiddenMarkKeepsItsSheetInHour24();
    void digitSheetsShowWithTheNextTime();
    void separatorSheetShowsAtOnce();
    void separatorIsNeverShownOrHidden();
    void dressesAndShowsItsPartsInOrder_data();
    void dressesAndShowsItsPartsInOrder();
    void settersEmitOnlyChanges();

    void aTickThatChangesNothingTouchesNothing_data();
    void aTickThatChangesNothingTouchesNothing();
    void aTickTouchesOnlyTheDigitsThatChanged_data();
    void aTickTouchesOnlyTheDigitsThatChanged();
    void aTickPutsReplacedSheetsBack();
    void aTickShowsPartsThatWereHidden();
    void ticksOfOneDigitDressItOnceEachAndPaintNothingElse();

    void keepsItselfCurrent();
    void drawsInTheGuiThread();
    void startsHiddenInAMinuteAlreadyReported();
    void ofTwoClocksOneShowsTheNewMinute();
    void passesEvery100Milliseconds();
    void oneThreadAfterTheOtherAsksForTheTime();
    void stopReturnsWhenTheThreadHasEnded();
    void stopRightAfterStartReturns();
    void stopOfAClockThatNeverRanDoesNotReturn();
    void stopASecondTimeDoesNotReturn();
    void startsAndStopsAThousandTimes();
    void mayBeDestroyedRightAfterStop();
};

void TestWidgetClock::init()
{
    rememberTime(23, 59, 59);
    RecordingPlatform::reset();
}

void TestWidgetClock::isMadeHiddenWithItsPartsInPlace()
{
    QWidget parent;
    WidgetClock clock(&parent, nullptr);
    QCOMPARE(clock.parentWidget(), &parent);
    QVERIFY(clock.isHidden());
    parent.show();
    QVERIFY(!clock.isVisible());
    QCOMPARE(clock.displaySec(), false);
    QCOMPARE(clock.format(), WidgetClock::Hour12);

    const QList<QLabel *> labels = clock.findChildren<QLabel *>();
    QCOMPARE(labels.size(), 8);
    QCOMPARE(labels[Mark]->geometry(), QRect(40, 0, 26, 13));
    QCOMPARE(labels[HourTens]->geometry(), QRect(35, 23, 34, 45));
    QCOMPARE(labels[HourUnits]->geometry(), QRect(69, 23, 34, 45));
    QCOMPARE(labels[Separator]->geometry(), QRect(103, 23, 15, 45));
    QCOMPARE(labels[MinTens]->geometry(), QRect(118, 23, 34, 45));
    QCOMPARE(labels[MinUnits]->geometry(), QRect(152, 23, 34, 45));
    QCOMPARE(labels[SecTens]->geometry(), QRect(65, 0, 9, 12));
    QCOMPARE(labels[SecUnits]->geometry(), QRect(76, 0, 9, 12));
    for (const QLabel *label : labels) {
        QCOMPARE(label->parentWidget(), &clock);
        QCOMPARE(label->styleSheet(), QString());
        QCOMPARE(label->text(), QString());
    }
}

void TestWidgetClock::hasSignalsSlotAndPropertiesInOrder()
{
    const QMetaObject &meta = WidgetClock::staticMetaObject;
    QCOMPARE(meta.className(), "WidgetClock");
    QCOMPARE(meta.superClass(), &Widget::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 3);
    const QMetaMethod displaySecChanged = meta.method(meta.methodOffset());
    const QMetaMethod formatChanged = meta.method(meta.methodOffset() + 1);
    const QMetaMethod updateHMS = meta.method(meta.methodOffset() + 2);
    QCOMPARE(displaySecChanged.methodSignature(), QByteArray("displaySecChanged(bool)"));
    QCOMPARE(displaySecChanged.methodType(), QMetaMethod::Signal);
    QCOMPARE(formatChanged.methodSignature(), QByteArray("formatChanged(bool)"));
    QCOMPARE(formatChanged.methodType(), QMetaMethod::Signal);
    QCOMPARE(updateHMS.methodSignature(), QByteArray("updateHMS(int,int,int)"));
    QCOMPARE(updateHMS.methodType(), QMetaMethod::Slot);
    QCOMPARE(updateHMS.access(), QMetaMethod::Public);

    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 2);
    const QMetaProperty displaySec = meta.property(meta.propertyOffset());
    const QMetaProperty format = meta.property(meta.propertyOffset() + 1);
    QCOMPARE(displaySec.name(), "displaySec");
    QCOMPARE(displaySec.typeName(), "bool");
    QCOMPARE(displaySec.notifySignal().methodSignature(), QByteArray("displaySecChanged(bool)"));
    QCOMPARE(format.name(), "format");
    QVERIFY(format.isEnumType());
    QCOMPARE(format.notifySignal().methodSignature(), QByteArray("formatChanged(bool)"));
    for (const QMetaProperty &property : {displaySec, format}) {
        QVERIFY(property.isReadable());
        QVERIFY(property.isWritable());
        QVERIFY(property.isDesignable());
        QVERIFY(property.isScriptable());
        QVERIFY(property.isStored());
    }
    const QMetaEnum formats = format.enumerator();
    QCOMPARE(formats.keyCount(), 2);
    QCOMPARE(formats.keyToValue("Hour12"), 0);
    QCOMPARE(formats.keyToValue("Hour24"), 1);
}

void TestWidgetClock::formatCanBeSetByName()
{
    WidgetClock clock(nullptr, nullptr);
    QVERIFY(clock.setProperty("format", QStringLiteral("Hour24")));
    QCOMPARE(clock.format(), WidgetClock::Hour24);
    QCOMPARE(clock.property("format").toInt(), 1);
    QVERIFY(clock.setProperty("format", 0));
    QCOMPARE(clock.format(), WidgetClock::Hour12);
    QVERIFY(clock.setProperty("displaySec", true));
    QCOMPARE(clock.displaySec(), true);
}

void TestWidgetClock::placesAnItem_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<int>("label");
    QTest::newRow("AM/PM") << 0 << int(Mark);
    QTest::newRow("hour tens") << 1 << int(HourTens);
    QTest::newRow("hour units") << 2 << int(HourUnits);
    QTest::newRow("separator") << 3 << int(Separator);
    QTest::newRow("minute tens") << 4 << int(MinTens);
    QTest::newRow("minute units") << 5 << int(MinUnits);
    QTest::newRow("second tens") << 6 << int(SecTens);
    QTest::newRow("second units") << 7 << int(SecUnits);
}

void TestWidgetClock::placesAnItem()
{
    QFETCH(int, item);
    QFETCH(int, label);
    ClockScreen screen;
    QList<QRect> places;
    for (const QLabel *other : screen.labels)
        places << other->geometry();
    places[label] = QRect(3, 4, 50, 60);

    screen.clock.setItemGeometry(WidgetClock::Item(item), 3, 4, 50, 60);
    for (int i = 0; i < places.size(); ++i)
        QCOMPARE(screen.labels[i]->geometry(), places[i]);
    QCOMPARE(RecordingPlatform::logLines().size(), 0);
}

void TestWidgetClock::rejectsAnUnknownItem_data()
{
    QTest::addColumn<int>("item");
    QTest::newRow("the first behind the last") << 8;
    QTest::newRow("negative") << -1;
    QTest::newRow("large") << 100000;
}

void TestWidgetClock::rejectsAnUnknownItem()
{
    QFETCH(int, item);
    ClockScreen screen;
    QList<QRect> places;
    for (const QLabel *label : screen.labels)
        places << label->geometry();
    const QRect place = screen.clock.geometry();

    screen.clock.setItemGeometry(WidgetClock::Item(item), 3, 4, 50, 60);
    QCOMPARE(RecordingPlatform::logTexts(128), QStringList() << "[setItemGeometry, 134] Unknown item!!");
    QCOMPARE(RecordingPlatform::logLines().size(), 1);
    QCOMPARE(screen.clock.geometry(), place);
    for (int i = 0; i < places.size(); ++i)
        QCOMPARE(screen.labels[i]->geometry(), places[i]);
}

void TestWidgetClock::ignoresADigitOutsideTheRange_data()
{
    QTest::addColumn<int>("digit");
    QTest::newRow("10") << 10;
    QTest::newRow("-1") << -1;
    QTest::newRow("the largest number") << INT_MAX;
    QTest::newRow("the smallest number") << INT_MIN;
}

void TestWidgetClock::ignoresADigitOutsideTheRange()
{
    QFETCH(int, digit);
    ClockScreen screen;
    screen.clock.setNumTextUrl(digit, QStringLiteral("color: red"));
    screen.clock.setNumTextXSUrl(digit, QStringLiteral("color: red"));
    QCOMPARE(RecordingPlatform::logTexts(2), QStringList()
             << QStringLiteral("[ui/view/widget/widgetclock.cpp, setNumTextUrl] Invalid index %1").arg(digit)
             << QStringLiteral("[ui/view/widget/widgetclock.cpp, setNumTextXSUrl] Invalid index %1").arg(digit));
    screen.clock.setDisplaySec(true);
    screen.clock.updateHMS(1, 23, 45);
    QCOMPARE(screen.shown(), QString("01:23:45 AM"));
}

void TestWidgetClock::showsEveryHour_data()
{
    QTest::addColumn<int>("hour");
    QTest::addColumn<QString>("hour12");
    QTest::addColumn<QString>("hour24");
    QTest::newRow("midnight is 00 AM") << 0 << "00:05 AM" << "00:05";
    for (int hour = 1; hour < 24; ++hour) {
        if (hour == 12)
            continue;
        const QString digits = QStringLiteral("%1:05").arg(hour, 2, 10, QLatin1Char('0'));
        const QString digits12 = QStringLiteral("%1:05").arg(hour % 12, 2, 10, QLatin1Char('0'));
        QTest::newRow(qPrintable(QStringLiteral("hour %1").arg(hour)))
            << hour << digits12 + (hour < 12 ? " AM" : " PM") << digits;
    }
    QTest::newRow("noon is 12 PM") << 12 << "12:05 PM" << "12:05";
}

void TestWidgetClock::showsEveryHour()
{
    QFETCH(int, hour);
    ClockScreen screen;
    screen.clock.updateHMS(hour, 5, 7);
    QTEST(screen.shown(), "hour12");
    screen.clock.setFormat(WidgetClock::Hour24);
    screen.clock.updateHMS(hour, 5, 7);
    QTEST(screen.shown(), "hour24");
}

void TestWidgetClock::showsEveryMinuteAndSecond()
{
    ClockScreen screen;
    screen.clock.setFormat(WidgetClock::Hour24);
    screen.clock.setDisplaySec(true);
    for (int i = 0; i < 60; ++i) {
        screen.clock.updateHMS(23, i, 59 - i);
        QCOMPARE(screen.shown(), QStringLiteral("23:%1:%2").arg(i, 2, 10, QLatin1Char('0'))
                                                          .arg(59 - i, 2, 10, QLatin1Char('0')));
    }
}

void TestWidgetClock::showsNoPictureForNumbersThatItIsNotMadeFor_data()
{
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("minute");
    QTest::addColumn<int>("second");
    QTest::addColumn<QString>("hour12");
    QTest::addColumn<QString>("hour24");
    QTest::newRow("a leap second") << 23 << 59 << 60 << "11:59:5_ PM" << "23:59:5_";
    QTest::newRow("minute 60") << 1 << 60 << 0 << "01:5_:00 AM" << "01:5_:00";
    QTest::newRow("hour 24") << 24 << 0 << 0 << "12:00:00 PM" << "0_:00:00";
    QTest::newRow("hour 31") << 31 << 0 << 0 << "19:00:00 PM" << "0_:00:00";
    QTest::newRow("hour 32") << 32 << 0 << 0 << "0_:00:00 PM" << "0_:00:00";
    QTest::newRow("negative") << -1 << -1 << -1 << "0_:0_:0_ AM" << "0_:0_:0_";
    QTest::newRow("negative tens") << -10 << -10 << -10 << "0_:0_:0_ AM" << "0_:0_:0_";
    QTest::newRow("largest") << INT_MAX << INT_MAX << INT_MAX << "0_:5_:5_ PM" << "0_:5_:5_";
    QTest::newRow("smallest") << INT_MIN << INT_MIN << INT_MIN << "0_:0_:0_ AM" << "0_:0_:0_";
}

void TestWidgetClock::showsNoPictureForNumbersThatItIsNotMadeFor()
{
    QFETCH(int, hour);
    QFETCH(int, minute);
    QFETCH(int, second);
    ClockScreen screen;
    screen.clock.setDisplaySec(true);
    screen.clock.updateHMS(hour, minute, second);
    QTEST(screen.shown(), "hour12");
    screen.clock.setFormat(WidgetClock::Hour24);
    screen.clock.updateHMS(hour, minute, second);
    QTEST(screen.shown(), "hour24");
}

void TestWidgetClock::anyFormatButHour24IsTwelveHours()
{
    ClockScreen screen;
    for (int format : {2, 7, -1}) {
        screen.clock.setFormat(WidgetClock::Format(format));
        screen.clock.updateHMS(13, 0, 0);
        QCOMPARE(screen.shown(), QString("01:00 PM"));
    }
}

void TestWidgetClock::showsItselfWithATime()
{
    ClockScreen screen;
    screen.bringUp();
    QVERIFY(!screen.clock.isVisible());
    screen.clock.updateHMS(1, 2, 3);
    QVERIFY(screen.clock.isVisible());
    QVERIFY(screen.labels[HourTens]->isVisible());
    QVERIFY(screen.labels[Separator]->isVisible());

    screen.clock.hide();
    screen.clock.updateHMS(1, 2, 3);
    QVERIFY(screen.clock.isVisible());
}

void TestWidgetClock::secondsSwitchedOffStayUntilTheNextTime()
{
    ClockScreen screen;
    screen.clock.setDisplaySec(true);
    QVERIFY(screen.labels[SecUnits]->styleSheet().isEmpty());
    screen.clock.updateHMS(1, 2, 3);
    QCOMPARE(screen.shown(), QString("01:02:03 AM"));
    screen.clock.setDisplaySec(false);
    QCOMPARE(screen.shown(), QString("01:02:03 AM"));
    screen.clock.updateHMS(1, 2, 3);
    QCOMPARE(screen.shown(), QString("01:02 AM"));
}

void TestWidgetClock::secondsAreHiddenWhateverTheirSheets()
{
    ClockScreen screen;
    screen.bringUp();
    screen.clock.updateHMS(1, 2, 3);
    QVERIFY(!screen.labels[SecTens]->isVisible());
    QVERIFY(!screen.labels[SecUnits]->isVisible());
    QCOMPARE(screen.labels[SecUnits]->styleSheet(), QString());
}

void TestWidgetClock::hiddenMarkKeepsItsSheetInHour24()
{
    ClockScreen screen;
    screen.clock.updateHMS(13, 0, 0);
    screen.clock.setFormat(WidgetClock::Hour24);
    screen.clock.updateHMS(1, 0, 0);
    QVERIFY(screen.labels[Mark]->isHidden());
    QCOMPARE(screen.labels[Mark]->styleSheet(), PMSheet);
}

void TestWidgetClock::digitSheetsShowWithTheNextTime()
{
    ClockScreen screen;
    screen.clock.updateHMS(1, 0, 0);
    screen.clock.setNumTextUrl(1, QStringLiteral("color: blue"));
    screen.clock.setAMPMUrl(QStringLiteral("color: green"), QString());
    QCOMPARE(screen.labels[HourUnits]->styleSheet(), largeSheet(1));
    QCOMPARE(screen.labels[Mark]->styleSheet(), AMSheet);
    screen.clock.updateHMS(1, 0, 0);
    QCOMPARE(screen.labels[HourUnits]->styleSheet(), QString("color: blue"));
    QCOMPARE(screen.labels[Mark]->styleSheet(), QString("color: green"));
}

void TestWidgetClock::separatorSheetShowsAtOnce()
{
    ClockScreen screen;
    screen.clock.setSeperatorUrl(QStringLiteral("color: blue"));
    QCOMPARE(screen.labels[Separator]->styleSheet(), QString("color: blue"));
    screen.clock.updateHMS(1, 0, 0);
    QCOMPARE(screen.labels[Separator]->styleSheet(), QString("color: blue"));
}

void TestWidgetClock::separatorIsNeverShownOrHidden()
{
    ClockScreen screen;
    screen.bringUp();
    screen.clock.updateHMS(1, 0, 0);
    QVERIFY(screen.labels[Separator]->isVisible());
    screen.labels[Separator]->hide();
    screen.clock.updateHMS(1, 1, 0);
    QVERIFY(!screen.labels[Separator]->isVisible());
}

void TestWidgetClock::dressesAndShowsItsPartsInOrder_data()
{
    QTest::addColumn<bool>("hour24");
    QTest::addColumn<bool>("seconds");
    QTest::addColumn<QStringList>("expected");
    const QStringList digits{"dress 1", "dress 2", "dress 3", "dress 4", "show 1", "show 2", "show 3", "show 4"};
    const QStringList clock{"show clock"};
    QTest::newRow("12 hours with seconds")
        << false << true << digits + QStringList{"dress 0", "dress 6", "dress 7", "show 6", "show 7", "show 0"} + clock;
    QTest::newRow("12 hours") << false << false
                              << digits + QStringList{"dress 0", "hide 6", "hide 7", "show 0"} + clock;
    QTest::newRow("24 hours with seconds")
        << true << true << digits + QStringList{"dress 6", "dress 7", "show 6", "show 7", "hide 0"} + clock;
    QTest::newRow("24 hours") << true << false << digits + QStringList{"hide 6", "hide 7", "hide 0"} + clock;
}

void TestWidgetClock::dressesAndShowsItsPartsInOrder()
{
    QFETCH(bool, hour24);
    QFETCH(bool, seconds);
    ClockScreen screen;
    screen.clock.updateHMS(13, 24, 35);
    screen.clock.hide();
    // Each part the other way round, so that every step is seen.
    screen.clock.setFormat(hour24 ? WidgetClock::Hour24 : WidgetClock::Hour12);
    screen.clock.setDisplaySec(seconds);
    for (int label = 0; label < screen.labels.size(); ++label) {
        const bool shown = label == Mark ? !hour24 : label == SecTens || label == SecUnits ? seconds : true;
        screen.labels[label]->setVisible(!shown);
    }

    class Watcher : public QObject
    {
    public:
        ClockScreen *screen = nullptr;
        QStringList steps;

        bool eventFilter(QObject *watched, QEvent *event) override
        {
            const char *what = event->type() == QEvent::StyleChange ? "dress "
                : event->type() == QEvent::ShowToParent             ? "show "
                : event->type() == QEvent::HideToParent             ? "hide "
                                                                    : nullptr;
            const int label = screen->labels.indexOf(qobject_cast<QLabel *>(watched));
            if (what)
                steps << QLatin1String(what) + (label < 0 ? QString("clock") : QString::number(label));
            return false;
        }
    } watcher;
    watcher.screen = &screen;
    screen.bringUp();
    screen.clock.installEventFilter(&watcher);
    for (QLabel *label : screen.labels)
        label->installEventFilter(&watcher);
    screen.clock.updateHMS(10, 41, 50);
    QTEST(watcher.steps, "expected");
}

void TestWidgetClock::settersEmitOnlyChanges()
{
    WidgetClock clock(nullptr, nullptr);
    QSignalSpy displaySecChanged(&clock, SIGNAL(displaySecChanged(bool)));
    QSignalSpy formatChanged(&clock, SIGNAL(formatChanged(bool)));
    clock.setDisplaySec(false);
    clock.setFormat(WidgetClock::Hour12);
    QCOMPARE(displaySecChanged.size(), 0);
    QCOMPARE(formatChanged.size(), 0);

    clock.setDisplaySec(true);
    clock.setDisplaySec(true);
    clock.setDisplaySec(false);
    QCOMPARE(displaySecChanged, QList<QVariantList>() << (QVariantList() << true) << (QVariantList() << false));

    clock.setFormat(WidgetClock::Hour24);
    clock.setFormat(WidgetClock::Hour24);
    clock.setFormat(WidgetClock::Hour12);
    QCOMPARE(formatChanged, QList<QVariantList>() << (QVariantList() << true) << (QVariantList() << true));
    QVERIFY(clock.isHidden());
}

void TestWidgetClock::aTickThatChangesNothingTouchesNothing_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<bool>("displaySec");
    QTest::newRow("12 hours") << int(WidgetClock::Hour12) << false;
    QTest::newRow("12 hours with seconds") << int(WidgetClock::Hour12) << true;
    QTest::newRow("24 hours") << int(WidgetClock::Hour24) << false;
    QTest::newRow("24 hours with seconds") << int(WidgetClock::Hour24) << true;
}

void TestWidgetClock::aTickThatChangesNothingTouchesNothing()
{
    QFETCH(int, format);
    QFETCH(bool, displaySec);
    ClockScreen screen;
    screen.clock.setFormat(WidgetClock::Format(format));
    screen.clock.setDisplaySec(displaySec);
    screen.clock.updateHMS(12, 34, 56);
    screen.bringUp();

    const EventRecorder recorder(&screen.screen);
    for (int i = 0; i < 3; ++i) {
        screen.clock.updateHMS(12, 34, 56);
        runEventLoop();
    }
    QCOMPARE(recorder.types(), QStringList());
}

void TestWidgetClock::aTickTouchesOnlyTheDigitsThatChanged_data()
{
    QTest::addColumn<QTime>("from");
    QTest::addColumn<QTime>("to");
    QTest::addColumn<QList<int>>("touched");
    QTest::newRow("a second") << QTime(10, 20, 30) << QTime(10, 20, 31) << (QList<int>() << SecUnits);
    QTest::newRow("ten seconds") << QTime(10, 20, 39) << QTime(10, 20, 40) << (QList<int>() << SecTens << SecUnits);
    QTest::newRow("a minute") << QTime(10, 20, 59) << QTime(10, 21, 0)
                              << (QList<int>() << MinUnits << SecTens << SecUnits);
    QTest::newRow("an hour") << QTime(10, 20, 30) << QTime(11, 20, 30) << (QList<int>() << HourUnits);
    QTest::newRow("from AM to PM") << QTime(11, 59, 59) << QTime(12, 0, 0)
        << (QList<int>() << Mark << HourUnits << MinTens << MinUnits << SecTens << SecUnits);
    QTest::newRow("half a day") << QTime(1, 20, 30) << QTime(13, 20, 30) << (QList<int>() << Mark);
}

void TestWidgetClock::aTickTouchesOnlyTheDigitsThatChanged()
{
    QFETCH(QTime, from);
    QFETCH(QTime, to);
    QFETCH(QList<int>, touched);
    ClockScreen screen;
    screen.clock.setDisplaySec(true);
    screen.clock.updateHMS(from.hour(), from.minute(), from.second());
    screen.bringUp();

    EventRecorder recorder(&screen.screen);
    screen.clock.updateHMS(to.hour(), to.minute(), to.second());
    QList<int> dressed;
    for (int label = 0; label < screen.labels.size(); ++label) {
        if (recorder.count(QEvent::StyleChange, screen.labels[label]) > 0)
            dressed << label;
    }
    QCOMPARE(dressed, touched);
    for (QEvent::Type type : {QEvent::Move, QEvent::Resize, QEvent::Show, QEvent::Hide})
        QCOMPARE(recorder.count(type), 0);
}

void TestWidgetClock::aTickPutsReplacedSheetsBack()
{
    ClockScreen screen;
    screen.clock.setDisplaySec(true);
    screen.clock.updateHMS(12, 34, 56);
    screen.bringUp();
    for (QLabel *label : screen.labels)
        label->setStyleSheet(QStringLiteral("color: red"));
    screen.clock.updateHMS(12, 34, 56);
    QCOMPARE(screen.shown(), QString("12:34:56 PM"));
    QCOMPARE(screen.labels[Separator]->styleSheet(), QString("color: red"));
}

void TestWidgetClock::aTickShowsPartsThatWereHidden()
{
    ClockScreen screen;
    screen.clock.setDisplaySec(true);
    screen.clock.updateHMS(12, 34, 56);
    screen.bringUp();
    for (int label : {int(Mark), int(HourTens), int(HourUnits), int(MinTens), int(MinUnits), int(SecTens),
                      int(SecUnits)}) {
        screen.labels[label]->hide();
        screen.clock.updateHMS(12, 34, 56);
        QVERIFY(screen.labels[label]->isVisible());
    }
}

void TestWidgetClock::ticksOfOneDigitDressItOnceEachAndPaintNothingElse()
{
    ClockScreen screen;
    screen.clock.setDisplaySec(true);
    screen.clock.updateHMS(12, 34, 50);
    screen.bringUp();

    const EventRecorder recorder(&screen.screen);
    for (int second = 51; second <= 59; ++second) {
        screen.clock.updateHMS(12, 34, second);
        runEventLoop();
    }
    QLabel *const digit = screen.labels[SecUnits];
    QCOMPARE(recorder.receivers(QEvent::StyleChange), QList<QObject *>() << digit);
    QCOMPARE(recorder.count(QEvent::StyleChange), 9);
    QCOMPARE(recorder.count(QEvent::Paint, digit), 9);
    for (int label = 0; label < SecUnits; ++label)
        QCOMPARE(recorder.count(QEvent::Paint, screen.labels[label]), 0);
}

void TestWidgetClock::keepsItselfCurrent()
{
    ClockScreen screen;
    screen.bringUp();
    setTime(9, 58, 59);
    const Run<WidgetClock> run(screen.clock);
    screen.clock.setDisplaySec(true);
    EVENTUALLY_COMPARE(screen.shown(), QString("09:58:59 AM"));
    QVERIFY(screen.clock.isVisible());
    setTime(9, 59, 0);
    EVENTUALLY_COMPARE(screen.shown(), QString("09:59:00 AM"));
    setTime(9, 59, 1);
    EVENTUALLY_COMPARE(screen.shown(), QString("09:59:01 AM"));
    setTime(21, 59, 1);
    screen.clock.setFormat(WidgetClock::Hour24);
    EVENTUALLY_COMPARE(screen.shown(), QString("21:59:01"));
    screen.clock.setFormat(WidgetClock::Hour12);
    EVENTUALLY_COMPARE(screen.shown(), QString("09:59:01 PM"));
    screen.clock.setDisplaySec(false);
    setTime(22, 0, 0);
    EVENTUALLY_COMPARE(screen.shown(), QString("10:00 PM"));
}

void TestWidgetClock::drawsInTheGuiThread()
{
    class ThreadOfEvents : public QObject
    {
    public:
        QList<QThread *> threads;

    protected:
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::StyleChange)
                threads << QThread::currentThread();
            return false;
        }
    };

    ThreadOfEvents recorder;
    ClockScreen screen;
    screen.clock.updateHMS(0, 0, 0);
    screen.bringUp();
    screen.labels[MinUnits]->installEventFilter(&recorder);
    setTime(3, 4, 5);
    const Run<WidgetClock> run(screen.clock);
    EVENTUALLY_COMPARE(recorder.threads, QList<QThread *>() << qApp->thread());
}

void TestWidgetClock::startsHiddenInAMinuteAlreadyReported()
{
    ClockScreen first;
    setTime(5, 6, 7);
    {
        const Run<WidgetClock> run(first.clock);
        EVENTUALLY(!first.clock.isHidden());
    }

    ClockScreen second;
    RecordingPlatform::reset();
    setTime(5, 6, 50);
    const Run<WidgetClock> run(second.clock);
    EVENTUALLY(RecordingPlatform::delays().size() >= 3);
    runEventLoop();
    QVERIFY(second.clock.isHidden());
    setTime(5, 7, 0);
    EVENTUALLY_COMPARE(second.shown(), QString("05:07 AM"));
}

void TestWidgetClock::ofTwoClocksOneShowsTheNewMinute()
{
    ClockScreen first;
    ClockScreen second;
    setTime(6, 7, 8);
    std::unique_ptr<Run<WidgetClock>> runOfFirst(new Run<WidgetClock>(first.clock));
    EVENTUALLY_COMPARE(first.shown(), QString("06:07 AM"));
    const PassCount passes;
    const Run<WidgetClock> runOfSecond(second.clock);
    EVENTUALLY(passes.reached(2, 3));
    runEventLoop();
    QVERIFY(second.clock.isHidden());
    second.clock.setFormat(WidgetClock::Hour24);
    EVENTUALLY_COMPARE(second.shown(), QString("06:07"));
    runOfFirst.reset();

    setTime(6, 8, 0);
    EVENTUALLY_COMPARE(second.shown(), QString("06:08"));
    const PassCount laterPasses;
    runOfFirst.reset(new Run<WidgetClock>(first.clock));
    EVENTUALLY(laterPasses.reached(2, 3));
    runEventLoop();
    QCOMPARE(first.shown(), QString("06:07 AM"));
}

void TestWidgetClock::passesEvery100Milliseconds()
{
    WidgetClock clock(nullptr, nullptr);
    holdThirdPass();
    clock.start();
    EVENTUALLY(RecordingPlatform::delays().size() >= 3);
    QCOMPARE(RecordingPlatform::delays(), QList<unsigned long>() << 100 << 100 << 100);
    clock.stop();
    QCOMPARE(RecordingPlatform::delays().value(3), 10ul);
}

void TestWidgetClock::oneThreadAfterTheOtherAsksForTheTime()
{
    // The record that the platform answers with may be one for all.
    static std::atomic<int> s_asking(0);
    static std::atomic<bool> s_several(false);
    RecordingPlatform::setLocalTimeFunction([](long) {
        static struct tm now;
        ++s_asking;
        for (int i = 0; i < 50 && !s_several; ++i) {
            s_several = s_several || s_asking > 1;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        --s_asking;
        return &now;
    });
    ClockScreen first;
    ClockScreen second;
    const PassCount passes;
    const Run<WidgetClock> runOfFirst(first.clock);
    const Run<WidgetClock> runOfSecond(second.clock);
    EVENTUALLY(passes.reached(2, 3));
    QVERIFY(!s_several);
}

void TestWidgetClock::stopReturnsWhenTheThreadHasEnded()
{
    WidgetClock clock(nullptr, nullptr);
    std::atomic<bool> ended(false);
    RecordingPlatform::setWatchdogHook([&](const QString &operation) {
        if (operation == QLatin1String("stop")) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            ended = true;
        }
    });
    clock.start();
    clock.stop();
    QVERIFY(ended);
}

void TestWidgetClock::stopRightAfterStartReturns()
{
    WidgetClock clock(nullptr, nullptr);
    clock.start();
    clock.stop();
    QStringList operations;
    for (const RecordingPlatform::WatchdogCall &call : RecordingPlatform::watchdogCalls())
        operations << call.operation;
    operations.removeAll(QStringLiteral("kick"));
    QCOMPARE(operations, QStringList() << "start" << "stop");
}

/// Has \a clock, whose thread does not run, wait in stop() for 50 times 10 ms before a start lets it end.
static void verifyThatStopWaits(WidgetClock &clock)
{
    RecordingPlatform::reset();
    RecordingPlatform::setSleeping(false);
    int waits = 0;
    RecordingPlatform::setDelayHook([&](unsigned long) {
        if (++waits == 50)
            clock.start();
    });
    clock.stop();
    QVERIFY(waits >= 50);
    for (unsigned long delay : RecordingPlatform::delays())
        QCOMPARE(delay, 10ul);
    QCOMPARE(RecordingPlatform::watchdogCalls().size(), 2);
}

void TestWidgetClock::stopOfAClockThatNeverRanDoesNotReturn()
{
    WidgetClock clock(nullptr, nullptr);
    verifyThatStopWaits(clock);
}

void TestWidgetClock::stopASecondTimeDoesNotReturn()
{
    WidgetClock clock(nullptr, nullptr);
    clock.start();
    clock.stop();
    verifyThatStopWaits(clock);
}

void TestWidgetClock::startsAndStopsAThousandTimes()
{
    const int times = 1000;
    ClockScreen screen;
    RecordingPlatform::setSleeping(false);
    for (int i = 0; i < times; ++i) {
        screen.clock.start();
        screen.clock.stop();
    }
    runEventLoop();
    int starts = 0;
    int stops = 0;
    for (const RecordingPlatform::WatchdogCall &call : RecordingPlatform::watchdogCalls()) {
        starts += call.operation == QLatin1String("start");
        stops += call.operation == QLatin1String("stop");
        QVERIFY(starts - stops == 0 || starts - stops == 1);
    }
    QCOMPARE(starts, times);
    QCOMPARE(stops, times);
}

void TestWidgetClock::mayBeDestroyedRightAfterStop()
{
    RecordingPlatform::setSleeping(false);
    QWidget parent;
    for (int i = 0; i < 200; ++i) {
        std::unique_ptr<WidgetClock> clock(new WidgetClock(&parent, nullptr));
        clock->start();
        clock->setFormat(WidgetClock::Hour24);
        clock->stop();
    }
    runEventLoop();
    QVERIFY(parent.children().isEmpty());
}

QTEST_MAIN(TestWidgetClock)
#include "tst_widgetclock.moc"
