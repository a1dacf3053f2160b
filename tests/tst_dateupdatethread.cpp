#include "recordingplatform.h"
#include "threadruns.h"
#include "waiting.h"
#include "widgetdate.h"

#include <QtTest>

#include <atomic>

using Numbers = QList<int>;

static const QString WatchName = QStringLiteral("virtual void DateUpdateThread::run()");

class TestDateUpdateThread : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void isMadeWithDefinedValues();
    void hasOneSignalAndNothingElse();
    void reportsMonthDayAndWeekDay_data();
    void reportsMonthDayAndWeekDay();
    void reportsInEveryPassAlsoWhatDidNotChange();
    void callsTheWatchdogInOrderInEveryRun();
    void clearsTheStopBeforeItLeavesTheWatchdog();
    void aStopSetBeforehandMakesNoPass();
    void readsTheIntervalInEveryPass();
    void leavesTheSystemTimeAlone();
    void reportsFromItsOwnThread();
    void startsAndStopsAThousandTimes();
};

void TestDateUpdateThread::init()
{
    RecordingPlatform::reset();
}

void TestDateUpdateThread::isMadeWithDefinedValues()
{
    DateUpdateThread thread;
    QCOMPARE(bool(thread.m_stop), false);
    QVERIFY(thread.m_interval == 300);
    QVERIFY(!thread.isRunning());
    QCOMPARE(thread.parent(), nullptr);
}

void TestDateUpdateThread::hasOneSignalAndNothingElse()
{
    const QMetaObject &meta = DateUpdateThread::staticMetaObject;
    QCOMPARE(meta.className(), "DateUpdateThread");
    QCOMPARE(meta.superClass(), &QThread::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(), QByteArray("update(int,int,int)"));
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestDateUpdateThread::reportsMonthDayAndWeekDay_data()
{
    QTest::addColumn<Numbers>("date");
    QTest::addColumn<Numbers>("report");
    QTest::newRow("the last day of a year") << (Numbers() << 2024 << 12 << 31) << (Numbers() << 12 << 31 << 2);
    QTest::newRow("the first day of a year") << (Numbers() << 2025 << 1 << 1) << (Numbers() << 1 << 1 << 3);
    QTest::newRow("a leap day") << (Numbers() << 2024 << 2 << 29) << (Numbers() << 2 << 29 << 4);
    QTest::newRow("a Sunday") << (Numbers() << 2024 << 3 << 10) << (Numbers() << 3 << 10 << 0);
    QTest::newRow("a Saturday") << (Numbers() << 2024 << 3 << 9) << (Numbers() << 3 << 9 << 6);
}

void TestDateUpdateThread::reportsMonthDayAndWeekDay()
{
    QFETCH(Numbers, date);
    QFETCH(Numbers, report);
    RecordingPlatform::setLocalTime(date[0], date[1], date[2], 23, 59, 59);
    DateUpdateThread thread;
    Numbers reported;
    connect(&thread, &DateUpdateThread::update, &thread, [&](int month, int day, int wday) {
        reported << month << day << wday;
    }, Qt::DirectConnection);
    runPasses(thread, 1);
    QCOMPARE(reported, report);
}

void TestDateUpdateThread::reportsInEveryPassAlsoWhatDidNotChange()
{
    RecordingPlatform::setLocalTime(2024, 3, 7, 12, 0, 0);
    DateUpdateThread thread;
    Numbers days;
    connect(&thread, &DateUpdateThread::update, &thread, [&](int, int day, int) { days << day; }, Qt::DirectConnection);
    runPasses(thread, 4, [](int made) { RecordingPlatform::setLocalTime(2024, 3, 7 + made / 2, 12, 0, 0); });
    QCOMPARE(days, Numbers() << 7 << 7 << 8 << 8);
}

void TestDateUpdateThread::callsTheWatchdogInOrderInEveryRun()
{
    DateUpdateThread thread;
    connect(&thread, &DateUpdateThread::update, &thread, [] { RecordingPlatform::addEvent("update"); },
            Qt::DirectConnection);
    for (int run = 0; run < 2; ++run) {
        RecordingPlatform::reset();
        runPasses(thread, 2);
        QCOMPARE(RecordingPlatform::events(), QStringList()
                 << "watchdog:start:" + WatchName
                 << "watchdog:kick:" + WatchName << "update" << "delay:300"
                 << "watchdog:kick:" + WatchName << "update" << "delay:300"
                 << "watchdog:stop:" + WatchName);
        QCOMPARE(bool(thread.m_stop), false);
    }
}

void TestDateUpdateThread::clearsTheStopBeforeItLeavesTheWatchdog()
{
    DateUpdateThread thread;
    QStringList stops;
    RecordingPlatform::setWatchdogHook([&](const QString &operation) {
        stops << operation + (thread.m_stop ? " stopping" : "");
    });
    thread.m_stop = true;
    thread.run();
    QCOMPARE(stops, QStringList() << "start stopping" << "stop");
}

void TestDateUpdateThread::aStopSetBeforehandMakesNoPass()
{
    DateUpdateThread thread;
    connect(&thread, &DateUpdateThread::update, &thread, [] { RecordingPlatform::addEvent("update"); },
            Qt::DirectConnection);
    thread.m_stop = true;
    thread.start();
    QVERIFY(thread.wait(LongestWait));
    QCOMPARE(RecordingPlatform::events(), QStringList()
             << "watchdog:start:" + WatchName << "watchdog:stop:" + WatchName);
    QCOMPARE(bool(thread.m_stop), false);
}

void TestDateUpdateThread::readsTheIntervalInEveryPass()
{
    DateUpdateThread thread;
    thread.m_interval = 7;
    runPasses(thread, 3, [&](int made) { thread.m_interval = 7 + made; });
    QCOMPARE(RecordingPlatform::delays(), QList<unsigned long>() << 7 << 8 << 9);
}

void TestDateUpdateThread::leavesTheSystemTimeAlone()
{
    RecordingPlatform::setTick(4294967295u);
    DateUpdateThread thread;
    runPasses(thread, 3);
    QCOMPARE(RecordingPlatform::tickCalls(), 0);
    QCOMPARE(RecordingPlatform::setTimeCalls(), 0);
}

void TestDateUpdateThread::reportsFromItsOwnThread()
{
    DateUpdateThread thread;
    thread.m_interval = 1;
    std::atomic<QThread *> reporter(nullptr);
    connect(&thread, &DateUpdateThread::update, &thread, [&] { reporter = QThread::currentThread(); },
            Qt::DirectConnection);
    thread.start();
    EVENTUALLY(reporter != nullptr);
    thread.m_stop = true;
    QVERIFY(thread.wait(LongestWait));
    QCOMPARE(reporter.load(), static_cast<QThread *>(&thread));
}

void TestDateUpdateThread::startsAndStopsAThousandTimes()
{
    const int times = 1000;
    DateUpdateThread thread;
    for (int i = 0; i < times; ++i) {
        thread.m_interval = i % 2;
        thread.start();
        thread.m_stop = true;
        QVERIFY(thread.wait(LongestWait));
        QCOMPARE(bool(thread.m_stop), false);
    }
    int starts = 0;
    int stops = 0;
    for (const RecordingPlatform::WatchdogCall &call : RecordingPlatform::watchdogCalls()) {
        QCOMPARE(call.name, WatchName);
        starts += call.operation == QLatin1String("start");
        stops += call.operation == QLatin1String("stop");
        QVERIFY(starts - stops == 0 || starts - stops == 1);
    }
    QCOMPARE(starts, times);
    QCOMPARE(stops, times);
}

QTEST_GUILESS_MAIN(TestDateUpdateThread)
#include "tst_dateupdatethread.moc"
