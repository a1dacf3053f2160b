#include "recordingplatform.h"
#include "threadruns.h"
#include "waiting.h"
#include "widgetclock.h"
#include "widgetdate.h"

#include <QProcess>
#include <QtTest>

#include <atomic>
#include <chrono>
#include <thread>

using Numbers = QList<int>;
using Ticks = QList<uint>;

namespace {

const QString WatchName = QStringLiteral("virtual void ClockUpdateThread::run()");

void setTime(int hour, int minute, int second)
{
    RecordingPlatform::setLocalTime(2024, 3, 7, hour, minute, second);
}

/// The times that a thread reports.
class Reports
{
public:
    explicit Reports(ClockUpdateThread &thread)
    {
        QObject::connect(&thread, &ClockUpdateThread::update, &m_context, [this](int hour, int minute, int second) {
            m_times << QStringLiteral("%1:%2:%3").arg(hour).arg(minute).arg(second);
        }, Qt::DirectConnection);
    }

    QStringList times() const
    {
        return m_times;
    }

private:
    QObject m_context;
    QStringList m_times;
};

}

class TestClockUpdateThread : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void firstPassOfTheProcessReports();
    void isMadeWithDefinedValues();
    void hasOneSignalAndTwoSlotsInOrder();
    void reportsWhatChangesTheDisplay_data();
    void reportsWhatChangesTheDisplay();
    void reportsEachSecondOnceWhileSecondsAreMeasured();
    void remembersTheSecondAlsoWhenNotMeasured();
    void aForcedReportIsMadeOnce();
    void aForcedReportIsCancelledByFalse();
    void aForceDuringAReportCountsForThatReport();
    void readsTheFlagsInEveryPass();
    void ofTwoThreadsOneReportsTheMinute();
    void aThreadStartedAgainInTheSameMinuteIsSilent();
    void callsTheWatchdogInOrderInEveryRun();
    void clearsTheStopBeforeItLeavesTheWatchdog();
    void aStopSetBeforehandMakesNoPass();
    void aStopRightAfterTheStartIsNotLost();
    void readsTheIntervalInEveryPass();
    void setsTheSystemTimeWhenDue_data();
    void setsTheSystemTimeWhenDue();
    void logsTheSecondReadingOfTheTickAndCountsFromIt();
    void logsLargeTicksAsTheyAre();
    void countsTheTicksAnewInEveryRun();
    void setsTheSystemTimeBetweenTheKickAndTheReport();
    void reportsFromItsOwnThread();
    void startsAndStopsAThousandTimes();
    void switchesMayBeChangedWhileItRuns();
    void copiesTheSharedCalendarRecordWhole();
};

void TestClockUpdateThread::init()
{
    RecordingPlatform::reset();
}

// Nothing has been reported yet in a process of its own.
void TestClockUpdateThread::firstPassOfTheProcessReports()
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), QStringList("--first-passes"));
    QVERIFY(process.waitForFinished(LongestWait));
    QCOMPARE(process.readAllStandardOutput(), QByteArray("0:0:0"));
}

void TestClockUpdateThread::isMadeWithDefinedValues()
{
    ClockUpdateThread thread;
    QCOMPARE(bool(thread.m_stop), false);
    QVERIFY(thread.m_interval == 100);
    QVERIFY(!thread.isRunning());
    QCOMPARE(thread.parent(), nullptr);
}

void TestClockUpdateThread::hasOneSignalAndTwoSlotsInOrder()
{
    const QMetaObject &meta = ClockUpdateThread::staticMetaObject;
    QCOMPARE(meta.className(), "ClockUpdateThread");
    QCOMPARE(meta.superClass(), &QThread::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 3);
    const QMetaMethod update = meta.method(meta.methodOffset());
    QCOMPARE(update.methodSignature(), QByteArray("update(int,int,int)"));
    QCOMPARE(update.methodType(), QMetaMethod::Signal);
    const QMetaMethod measureSec = meta.method(meta.methodOffset() + 1);
    QCOMPARE(measureSec.methodSignature(), QByteArray("measureSec(bool)"));
    QCOMPARE(measureSec.methodType(), QMetaMethod::Slot);
    QCOMPARE(measureSec.access(), QMetaMethod::Public);
    const QMetaMethod timeFormat = meta.method(meta.methodOffset() + 2);
    QCOMPARE(timeFormat.methodSignature(), QByteArray("timeFormat(bool)"));
    QCOMPARE(timeFormat.methodType(), QMetaMethod::Slot);
    QCOMPARE(timeFormat.access(), QMetaMethod::Public);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestClockUpdateThread::reportsWhatChangesTheDisplay_data()
{
    QTest::addColumn<bool>("measureSec");
    QTest::addColumn<bool>("force");
    QTest::addColumn<Numbers>("time");
    QTest::addColumn<bool>("reported");
    // The time last reported is 10:20:30.
    QTest::newRow("nothing changed") << false << false << (Numbers() << 10 << 20 << 30) << false;
    QTest::newRow("nothing changed, with seconds") << true << false << (Numbers() << 10 << 20 << 30) << false;
    QTest::newRow("the second") << false << false << (Numbers() << 10 << 20 << 31) << false;
    QTest::newRow("the second, with seconds") << true << false << (Numbers() << 10 << 20 << 31) << true;
    QTest::newRow("the minute") << false << false << (Numbers() << 10 << 21 << 30) << true;
    QTest::newRow("the minute, with seconds") << true << false << (Numbers() << 10 << 21 << 30) << true;
    QTest::newRow("the hour") << false << false << (Numbers() << 11 << 20 << 30) << true;
    QTest::newRow("the clock was put back") << false << false << (Numbers() << 10 << 19 << 59) << true;
    QTest::newRow("nothing changed, but forced") << false << true << (Numbers() << 10 << 20 << 30) << true;
    QTest::newRow("the second, and forced") << false << true << (Numbers() << 10 << 20 << 31) << true;
    QTest::newRow("a leap second, with seconds") << true << false << (Numbers() << 10 << 20 << 60) << true;
}

void TestClockUpdateThread::reportsWhatChangesTheDisplay()
{
    QFETCH(bool, measureSec);
    QFETCH(bool, force);
    QFETCH(Numbers, time);
    QFETCH(bool, reported);
    rememberTime(10, 20, 30);

    setTime(time[0], time[1], time[2]);
    ClockUpdateThread thread;
    const Reports reports(thread);
    thread.measureSec(measureSec);
    thread.timeFormat(force);
    runPasses(thread, 1);
    const QString text = QStringLiteral("%1:%2:%3").arg(time[0]).arg(time[1]).arg(time[2]);
    QCOMPARE(reports.times(), reported ? QStringList(text) : QStringList());
}

void TestClockUpdateThread::reportsEachSecondOnceWhileSecondsAreMeasured()
{
    rememberTime(10, 20, 30);
    ClockUpdateThread thread;
    const Reports reports(thread);
    thread.measureSec(true);
    runPasses(thread, 9, [](int made) { setTime(10, 20, 30 + made / 3); });
    QCOMPARE(reports.times(), QStringList() << "10:20:31" << "10:20:32");
}

void TestClockUpdateThread::remembersTheSecondAlsoWhenNotMeasured()
{
    rememberTime(10, 20, 30);
    ClockUpdateThread thread;
    const Reports reports(thread);
    thread.timeFormat(true);
    setTime(10, 20, 45);
    runPasses(thread, 2, [&](int) { thread.measureSec(true); });
    QCOMPARE(reports.times(), QStringList() << "10:20:45");
}

void TestClockUpdateThread::aForcedReportIsMadeOnce()
{
    rememberTime(10, 20, 30);
    ClockUpdateThread thread;
    const Reports reports(thread);
    thread.timeFormat(true);
    runPasses(thread, 5);
    QCOMPARE(reports.times(), QStringList() << "10:20:30");
}

void TestClockUpdateThread::aForcedReportIsCancelledByFalse()
{
    rememberTime(10, 20, 30);
    ClockUpdateThread thread;
    const Reports reports(thread);
    thread.timeFormat(true);
    thread.timeFormat(false);
    runPasses(thread, 2);
    QCOMPARE(reports.times(), QStringList());
}

void TestClockUpdateThread::aForceDuringAReportCountsForThatReport()
{
    rememberTime(10, 20, 30);
    ClockUpdateThread thread;
    const Reports reports(thread);
    connect(&thread, &ClockUpdateThread::update, &thread, [&] { thread.timeFormat(true); }, Qt::DirectConnection);
    setTime(10, 21, 0);
    runPasses(thread, 3);
    QCOMPARE(reports.times(), QStringList() << "10:21:0");
}

void TestClockUpdateThread::readsTheFlagsInEveryPass()
{
    rememberTime(10, 20, 30);
    ClockUpdateThread thread;
    const Reports reports(thread);
    runPasses(thread, 5, [&](int made) {
        setTime(10, 20, 30 + made);
        if (made == 2)
            thread.measureSec(true);
        if (made == 3)
            thread.measureSec(false);
        if (made == 4)
            thread.timeFormat(true);
    });
    QCOMPARE(reports.times(), QStringList() << "10:20:32" << "10:20:34");
}

void TestClockUpdateThread::ofTwoThreadsOneReportsTheMinute()
{
    rememberTime(10, 20, 30);
    ClockUpdateThread first;
    ClockUpdateThread second;
    const Reports reportsOfFirst(first);
    const Reports reportsOfSecond(second);

    setTime(10, 21, 0);
    runPasses(first, 1);
    setTime(10, 21, 1);
    runPasses(second, 1);
    QCOMPARE(reportsOfFirst.times(), QStringList() << "10:21:0");
    QCOMPARE(reportsOfSecond.times(), QStringList());

    second.timeFormat(true);
    runPasses(second, 1);
    QCOMPARE(reportsOfSecond.times(), QStringList() << "10:21:1");

    setTime(10, 22, 0);
    runPasses(second, 1);
    runPasses(first, 1);
    QCOMPARE(reportsOfFirst.times(), QStringList() << "10:21:0");
    QCOMPARE(reportsOfSecond.times(), QStringList() << "10:21:1" << "10:22:0");
}

void TestClockUpdateThread::aThreadStartedAgainInTheSameMinuteIsSilent()
{
    rememberTime(10, 20, 30);
    ClockUpdateThread thread;
    const Reports reports(thread);
    setTime(10, 21, 0);
    runPasses(thread, 1);
    setTime(10, 21, 40);
    runPasses(thread, 2, [](int) { setTime(10, 21, 59); });
    QCOMPARE(reports.times(), QStringList() << "10:21:0");
}

void TestClockUpdateThread::callsTheWatchdogInOrderInEveryRun()
{
    ClockUpdateThread thread;
    for (int run = 0; run < 2; ++run) {
        RecordingPlatform::reset();
        runPasses(thread, 2);
        QCOMPARE(RecordingPlatform::events(), QStringList()
                 << "watchdog:start:" + WatchName
                 << "watchdog:kick:" + WatchName << "delay:100"
                 << "watchdog:kick:" + WatchName << "delay:100"
                 << "watchdog:stop:" + WatchName);
        QCOMPARE(bool(thread.m_stop), false);
    }
}

void TestClockUpdateThread::clearsTheStopBeforeItLeavesTheWatchdog()
{
    ClockUpdateThread thread;
    QStringList stops;
    RecordingPlatform::setWatchdogHook([&](const QString &operation) {
        stops << operation + (thread.m_stop ? " stopping" : "");
    });
    thread.m_stop = true;
    thread.run();
    QCOMPARE(stops, QStringList() << "start stopping" << "stop");
}

void TestClockUpdateThread::aStopSetBeforehandMakesNoPass()
{
    ClockUpdateThread thread;
    const Reports reports(thread);
    thread.timeFormat(true);
    thread.m_stop = true;
    thread.start();
    QVERIFY(thread.wait(LongestWait));
    QCOMPARE(RecordingPlatform::events(), QStringList()
             << "watchdog:start:" + WatchName << "watchdog:stop:" + WatchName);
    QCOMPARE(RecordingPlatform::tickCalls(), 0);
    QCOMPARE(bool(thread.m_stop), false);
    QCOMPARE(reports.times(), QStringList());
}

void TestClockUpdateThread::aStopRightAfterTheStartIsNotLost()
{
    RecordingPlatform::setSleeping(false);
    for (int i = 0; i < 100; ++i) {
        ClockUpdateThread thread;
        thread.start();
        thread.m_stop = true;
        QVERIFY(thread.wait(LongestWait));
        QCOMPARE(bool(thread.m_stop), false);
    }
}

void TestClockUpdateThread::readsTheIntervalInEveryPass()
{
    ClockUpdateThread thread;
    thread.m_interval = 7;
    runPasses(thread, 3, [&](int made) { thread.m_interval = 7 + made; });
    QCOMPARE(RecordingPlatform::delays(), QList<unsigned long>() << 7 << 8 << 9);
}

void TestClockUpdateThread::setsTheSystemTimeWhenDue_data()
{
    const QString failed = QStringLiteral("Sync RTC, failed ");
    const uint nearlyWrapped = 4294967000u;  // 14400 later it is 14104

    QTest::addColumn<Ticks>("ticks");       // one for each pass
    QTest::addColumn<int>("chipAnswer");
    QTest::addColumn<Numbers>("attempts");  // the passes, counted from 1, that set the time
    QTest::addColumn<QStringList>("log");
    QTest::newRow("not before 14400 ticks")
        << (Ticks() << 5000 << 19399) << 1 << Numbers() << QStringList();
    QTest::newRow("after 14400 ticks")
        << (Ticks() << 5000 << 19399 << 19400) << 1 << (Numbers() << 3)
        << (QStringList() << "Sync RTC, Time: 19400 ");
    QTest::newRow("late")
        << (Ticks() << 5000 << 60000 << 60001) << 1 << (Numbers() << 2)
        << (QStringList() << "Sync RTC, Time: 60000 ");
    QTest::newRow("again 14400 ticks after success")
        << (Ticks() << 5000 << 19400 << 33799 << 33800) << 1 << (Numbers() << 2 << 4)
        << (QStringList() << "Sync RTC, Time: 19400 " << "Sync RTC, Time: 33800 ");
    QTest::newRow("again 10 ticks after failure")
        << (Ticks() << 5000 << 19400 << 19409 << 19410 << 19419 << 19420) << 0 << (Numbers() << 2 << 4 << 6)
        << (QStringList() << failed << failed << failed);
    QTest::newRow("a late failure is repeated until caught up")
        << (Ticks() << 5000 << 19435 << 19435 << 19435 << 19435 << 19435 << 19440) << 0
        << (Numbers() << 2 << 3 << 4 << 5 << 7)
        << (QStringList() << failed << failed << failed << failed << failed);
    QTest::newRow("a first tick of 0 leaves the start open")
        << (Ticks() << 0 << 0 << 20000 << 34399 << 34400) << 1 << (Numbers() << 5)
        << (QStringList() << "Sync RTC, Time: 34400 ");
    QTest::newRow("a first tick of 0 does not count as the start")
        << (Ticks() << 0 << 14400 << 28799 << 28800) << 1 << (Numbers() << 4)
        << (QStringList() << "Sync RTC, Time: 28800 ");
    QTest::newRow("a first tick of 1")
        << (Ticks() << 1 << 14400 << 14401) << 1 << (Numbers() << 3)
        << (QStringList() << "Sync RTC, Time: 14401 ");
    QTest::newRow("success may be any number")
        << (Ticks() << 5000 << 19400 << 19410) << -3 << (Numbers() << 2)
        << (QStringList() << "Sync RTC, Time: 19400 ");
    QTest::newRow("the sum wraps around: due at once, until the tick wraps too")
        << (Ticks() << nearlyWrapped << nearlyWrapped << 5 << 14103 << 14104) << 1 << (Numbers() << 1 << 2 << 5)
        << (QStringList() << "Sync RTC, Time: 4294967000 " << "Sync RTC, Time: 4294967000 "
                          << "Sync RTC, Time: 14104 ");
    QTest::newRow("the upper half of the ticks is no different")
        << (Ticks() << 2147483640u << 2147498039u << 2147498040u) << 1 << (Numbers() << 3)
        << (QStringList() << "Sync RTC, Time: 2147498040 ");
}

void TestClockUpdateThread::setsTheSystemTimeWhenDue()
{
    QFETCH(Ticks, ticks);
    QFETCH(int, chipAnswer);
    QFETCH(Numbers, attempts);
    QFETCH(QStringList, log);

    RecordingPlatform::setClockChipResult(chipAnswer);
    RecordingPlatform::setTick(ticks[0]);
    ClockUpdateThread thread;
    Numbers made;
    int calls = 0;
    const auto notePass = [&](int pass) {
        if (RecordingPlatform::setTimeCalls() != calls)
            made << pass;
        calls = RecordingPlatform::setTimeCalls();
    };
    runPasses(thread, ticks.size(), [&](int pass) {
        notePass(pass);
        RecordingPlatform::setTick(ticks[pass]);
    });
    notePass(ticks.size());
    QCOMPARE(made, attempts);
    QCOMPARE(RecordingPlatform::setTimeCalls(), attempts.size());
    QCOMPARE(RecordingPlatform::logTexts(16), log);
    QCOMPARE(RecordingPlatform::logLines().size(), log.size());
}

void TestClockUpdateThread::logsTheSecondReadingOfTheTickAndCountsFromIt()
{
    RecordingPlatform::setTick(1000);
    ClockUpdateThread thread;
    runPasses(thread, 4, [](int made) {
        if (made == 1)
            RecordingPlatform::setTick(15400, 3);
        if (made == 2)
            RecordingPlatform::setTick(29802);
        if (made == 3)
            RecordingPlatform::setTick(29803);
    });
    QCOMPARE(RecordingPlatform::logTexts(16), QStringList()
             << "Sync RTC, Time: 15403 " << "Sync RTC, Time: 29803 ");
    QCOMPARE(RecordingPlatform::tickCalls(), 6);
}

void TestClockUpdateThread::logsLargeTicksAsTheyAre()
{
    RecordingPlatform::setTick(4294967295u);
    ClockUpdateThread thread;
    runPasses(thread, 1);
    QCOMPARE(RecordingPlatform::logTexts(16), QStringList() << "Sync RTC, Time: 4294967295 ");
}

void TestClockUpdateThread::countsTheTicksAnewInEveryRun()
{
    ClockUpdateThread thread;
    RecordingPlatform::setTick(5000);
    runPasses(thread, 1);
    RecordingPlatform::setTick(100000);
    runPasses(thread, 3, [](int made) { RecordingPlatform::setTick(made == 1 ? 114399 : 114400); });
    QCOMPARE(RecordingPlatform::logTexts(16), QStringList() << "Sync RTC, Time: 114400 ");
}

void TestClockUpdateThread::setsTheSystemTimeBetweenTheKickAndTheReport()
{
    rememberTime(10, 20, 30);
    RecordingPlatform::reset();
    setTime(10, 21, 0);
    RecordingPlatform::setTick(4294967295u);
    ClockUpdateThread thread;
    connect(&thread, &ClockUpdateThread::update, &thread, [] { RecordingPlatform::addEvent("update"); },
            Qt::DirectConnection);
    runPasses(thread, 1);
    QCOMPARE(RecordingPlatform::events(), QStringList()
             << "watchdog:start:" + WatchName << "watchdog:kick:" + WatchName << "set_time"
             << "log:16:Sync RTC, Time: 4294967295 " << "update" << "delay:100" << "watchdog:stop:" + WatchName);
}

void TestClockUpdateThread::reportsFromItsOwnThread()
{
    ClockUpdateThread thread;
    thread.m_interval = 1;
    thread.timeFormat(true);
    std::atomic<QThread *> reporter(nullptr);
    connect(&thread, &ClockUpdateThread::update, &thread, [&] { reporter = QThread::currentThread(); },
            Qt::DirectConnection);
    thread.start();
    EVENTUALLY(reporter != nullptr);
    thread.m_stop = true;
    QVERIFY(thread.wait(LongestWait));
    QCOMPARE(reporter.load(), static_cast<QThread *>(&thread));
}

void TestClockUpdateThread::startsAndStopsAThousandTimes()
{
    const int times = 1000;
    ClockUpdateThread thread;
    thread.m_interval = 0;
    for (int i = 0; i < times; ++i) {
        thread.start();
        if (i % 2)
            std::this_thread::yield();
        thread.m_stop = true;
        QVERIFY(thread.wait(LongestWait));
        QCOMPARE(bool(thread.m_stop), false);
    }
    QStringList operations;
    for (const RecordingPlatform::WatchdogCall &call : RecordingPlatform::watchdogCalls()) {
        QCOMPARE(call.name, WatchName);
        if (call.operation != QLatin1String("kick"))
            operations << call.operation;
    }
    QCOMPARE(operations.size(), 2 * times);
    for (int i = 0; i < operations.size(); ++i)
        QCOMPARE(operations[i], QString(i % 2 ? "stop" : "start"));
}

void TestClockUpdateThread::switchesMayBeChangedWhileItRuns()
{
    ClockUpdateThread thread;
    ClockUpdateThread other;
    std::atomic<int> reports(0);
    connect(&thread, &ClockUpdateThread::update, &thread, [&] { ++reports; }, Qt::DirectConnection);
    thread.m_interval = 0;
    other.m_interval = 0;
    thread.start();
    other.start();
    for (int i = 0; i < 2000 || reports < 10; ++i) {
        thread.m_interval = i % 2;
        thread.measureSec(i % 3);
        thread.timeFormat(i % 5);
        other.timeFormat(i % 7);
    }
    thread.m_stop = true;
    other.m_stop = true;
    QVERIFY(thread.wait(LongestWait));
    QVERIFY(other.wait(LongestWait));
    QVERIFY(reports >= 10);
}

// A platform that has one record for all callers and is slow to fill it in.
void TestClockUpdateThread::copiesTheSharedCalendarRecordWhole()
{
    static struct tm shared;
    static int calls;
    RecordingPlatform::setLocalTimeFunction([](long) {
        const int number = ++calls % 20;
        for (int *field : {&shared.tm_hour, &shared.tm_min, &shared.tm_sec, &shared.tm_mon, &shared.tm_mday,
                           &shared.tm_wday}) {
            *field = number;
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        }
        return &shared;
    });
    ClockUpdateThread clock;
    DateUpdateThread date;
    std::atomic<int> reports(0);
    std::atomic<int> torn(0);
    connect(&clock, &ClockUpdateThread::update, &clock, [&](int hour, int minute, int second) {
        ++reports;
        torn += hour != minute || minute != second;
    }, Qt::DirectConnection);
    connect(&date, &DateUpdateThread::update, &date, [&](int month, int day, int wday) {
        ++reports;
        torn += month - 1 != day || day != wday;
    }, Qt::DirectConnection);
    clock.m_interval = 0;
    date.m_interval = 0;
    clock.measureSec(true);
    clock.start();
    date.start();
    EVENTUALLY(reports > 300 || torn > 0);
    clock.m_stop = true;
    date.m_stop = true;
    QVERIFY(clock.wait(LongestWait));
    QVERIFY(date.wait(LongestWait));
    QCOMPARE(torn.load(), 0);
}

namespace {

int printFirstPasses()
{
    setTime(0, 0, 0);
    ClockUpdateThread thread;
    const Reports reports(thread);
    runPasses(thread, 2);
    printf("%s", qPrintable(reports.times().join(' ')));
    return 0;
}

}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (application.arguments().value(1) == "--first-passes")
        return printFirstPasses();
    TestClockUpdateThread test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_clockupdatethread.moc"
