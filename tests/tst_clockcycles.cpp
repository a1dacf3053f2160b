#include "allocationcount.h"
#include "eventrecording.h"
#include "recordingplatform.h"
#include "simulatedtime.h"
#include "waiting.h"
#include "widgetclock.h"
#include "widgetdate.h"

#include <QDir>
#include <QPointer>
#include <QtTest>

#include <atomic>
#include <functional>
#include <memory>

namespace {

/// Shared by the rows of a widget. WIDGET_CYCLES sets it. What watches every access takes its time.
int cycleCount()
{
#if defined(HAS_SANITIZER) || defined(IS_EMULATED)
    const int usual = 100;
#else
    const int usual = 10000;
#endif
    const int asked = qEnvironmentVariableIntValue("WIDGET_CYCLES");
    return asked > 0 ? asked : usual;
}

int threadCount()
{
    return int(QDir("/proc/self/task").entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
}

/// What there is of a process.
struct Stock
{
    int widgets = int(QApplication::allWidgets().size());
    qint64 blocks = memoryBlocks();

    static qint64 memoryBlocks()
    {
#ifdef COUNTS_ALLOCATIONS
        return blockCount();
#else
        return 0;
#endif
    }
};

/// A widget that an update thread keeps current, with a view to its connections.
class UpdatedWidget
{
public:
    virtual ~UpdatedWidget() = default;
    virtual QWidget *widget() = 0;
    virtual void start() = 0;
    virtual void stop() = 0;
    /// Emits each of its signals.
    virtual void change() = 0;
    virtual int connections() = 0;
};

/// Counts the connections of a widget's signals.
template <typename Base>
class Watched : public Base
{
public:
    explicit Watched(QWidget *parent)
        : Base(parent, nullptr)
    {
    }

    int connections() const
    {
        int connections = 0;
        const QMetaObject &meta = Base::staticMetaObject;
        for (int i = 0; i < meta.methodCount(); ++i) {
            if (meta.method(i).methodType() == QMetaMethod::Signal)
                connections += Base::receivers('2' + meta.method(i).methodSignature());
        }
        return connections;
    }
};

class UpdatedClock : public UpdatedWidget
{
public:
    explicit UpdatedClock(QWidget *parent) : m_clock(new Watched<WidgetClock>(parent)) {}
    ~UpdatedClock() override { delete m_clock.data(); }
    QWidget *widget() override { return m_clock; }
    void start() override { m_clock->start(); }
    void stop() override { m_clock->stop(); }
    int connections() override { return m_clock->connections(); }

    void change() override
    {
        m_clock->setFormat(m_clock->format() == WidgetClock::Hour12 ? WidgetClock::Hour24 : WidgetClock::Hour12);
        m_clock->setDisplaySec(!m_clock->displaySec());
    }

private:
    const QPointer<Watched<WidgetClock>> m_clock;
};

class UpdatedDate : public UpdatedWidget
{
public:
    explicit UpdatedDate(QWidget *parent) : m_date(new Watched<WidgetDate>(parent)) {}
    ~UpdatedDate() override { delete m_date.data(); }
    QWidget *widget() override { return m_date; }
    void start() override { m_date->start(); }
    void stop() override { m_date->stop(); }
    int connections() override { return m_date->connections(); }

    void change() override
    {
        m_date->setFormat(m_date->format() == WidgetDate::MonthDay ? WidgetDate::DayMonth : WidgetDate::MonthDay);
    }

private:
    const QPointer<Watched<WidgetDate>> m_date;
};

using Make = std::function<std::unique_ptr<UpdatedWidget>(QWidget *)>;

template <typename Updated>
Make making()
{
    return [](QWidget *parent) { return std::unique_ptr<UpdatedWidget>(new Updated(parent)); };
}

/// Adds each row for a clock and for a date.
void addForBoth(const char *name, std::function<void(QTestData &)> fill = nullptr)
{
    for (bool clock : {true, false}) {
        QTestData &data = QTest::addRow("%s, %s", clock ? "clock" : "date", name);
        data << (clock ? making<UpdatedClock>() : making<UpdatedDate>());
        if (fill)
            fill(data);
    }
}

}

Q_DECLARE_METATYPE(Make)

class TestClockCycles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void tenThousandCyclesLeaveNothingBehind_data();
    void tenThousandCyclesLeaveNothingBehind();
    void mayBeDestroyedAtAnyMomentAfterStop_data();
    void mayBeDestroyedAtAnyMomentAfterStop();
    void aSlotMayStopItAndDeleteIt_data();
    void aSlotMayStopItAndDeleteIt();
    void mayBeStoppedWhileItShowsATime_data();
    void mayBeStoppedWhileItShowsATime();
    void aSlotMayEndAThreadOfItsOwn_data();
    void aSlotMayEndAThreadOfItsOwn();
    void aSlotInTheThreadMayEndIt_data();
    void aSlotInTheThreadMayEndIt();

private:
    int m_threads = 0;
};

void TestClockCycles::initTestCase()
{
    m_threads = threadCount();
}

void TestClockCycles::init()
{
    RecordingPlatform::reset();
    RecordingPlatform::setRecording(false);
    RecordingPlatform::setSleeping(false);
}

enum Cycle { AtOnce, AfterAPass, WithSignals, Anew };
Q_DECLARE_METATYPE(Cycle)

void TestClockCycles::tenThousandCyclesLeaveNothingBehind_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<Cycle>("cycle");
    addForBoth("stopped at once", [](QTestData &data) { data << AtOnce; });
    addForBoth("stopped after a pass", [](QTestData &data) { data << AfterAPass; });
    addForBoth("its signals and its updates come through", [](QTestData &data) { data << WithSignals; });
    addForBoth("another widget each time", [](QTestData &data) { data << Anew; });
}

void TestClockCycles::tenThousandCyclesLeaveNothingBehind()
{
    QFETCH(Make, make);
    QFETCH(Cycle, cycle);
    QWidget screen;
    std::unique_ptr<UpdatedWidget> updated = make(&screen);
    // Never destroyed: the thread sanitizer does not see the toolkit wait for the end of a thread.
    std::atomic<int> &starts = *new std::atomic<int>(0);
    std::atomic<int> &ends = *new std::atomic<int>(0);
    std::atomic<int> &passes = *new std::atomic<int>(0);
    RecordingPlatform::setWatchdogHook([&](const QString &operation) {
        starts += operation == QLatin1String("start");
        ends += operation == QLatin1String("stop");
        passes += operation == QLatin1String("kick");
    });

    const auto run = [&](int times) {
        for (int i = 0; i < times; ++i) {
            if (cycle == Anew)
                updated = make(&screen);
            const int passesBefore = passes;
            updated->start();
            if (cycle == WithSignals)
                updated->change();
            while (cycle == AfterAPass && passes == passesBefore)
                std::this_thread::yield();
            updated->stop();
            if (starts != ends)
                return false;
            if (cycle == WithSignals)
                QCoreApplication::processEvents();
            // What is on its way to a widget waits for it.
            else if (i % 100 == 99)
                QCoreApplication::sendPostedEvents();
        }
        runEventLoop();
        return true;
    };
    // The first ones make what stays: the toolkit's caches, and the memory of a few threads.
    QVERIFY(run(200));
    const int connections = updated->connections();
    const int children = int(updated->widget()->children().size());
    const Stock before;
    const int startsBefore = starts;

    const int times = cycleCount() / 4;
    QVERIFY(run(times));
    QCOMPARE(starts - startsBefore, times);
    QCOMPARE(ends.load(), starts.load());
    QCOMPARE(updated->connections(), connections);
    QCOMPARE(int(updated->widget()->children().size()), children);
    QCOMPARE(int(screen.children().size()), 1);
    // A thread is gone for its owner before it is for the system.
    EVENTUALLY_COMPARE(threadCount(), m_threads);
    QCOMPARE(Stock().widgets, before.widgets);
    EVENTUALLY(Stock().blocks <= before.blocks + times / 100);
    RecordingPlatform::setWatchdogHook(nullptr);
}

enum Destruction { Directly, ByItsParent, Later };
Q_DECLARE_METATYPE(Destruction)

void TestClockCycles::mayBeDestroyedAtAnyMomentAfterStop_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<Destruction>("destruction");
    addForBoth("directly", [](QTestData &data) { data << Directly; });
    addForBoth("with its parent", [](QTestData &data) { data << ByItsParent; });
    addForBoth("later", [](QTestData &data) { data << Later; });
}

// With any number of updates on their way, of which any number has been shown, and after any number of other runs.
void TestClockCycles::mayBeDestroyedAtAnyMomentAfterStop()
{
    QFETCH(Make, make);
    QFETCH(Destruction, destruction);
    for (int passes = 1; passes <= 5; ++passes) {
        for (int shownAfter = 0; shownAfter <= passes; ++shownAfter) {
            for (int runs = 1; runs <= 3; ++runs) {
                SimulatedTime time;
                RecordingPlatform::setLocalTimeFunction([](long) {
                    static struct tm local;
                    local.tm_sec = (local.tm_sec + 1) % 60;
                    local.tm_min = (local.tm_min + 7) % 60;
                    local.tm_mday = 1 + local.tm_min % 28;
                    return &local;
                });
                QWidget *screen = new QWidget;
                std::unique_ptr<UpdatedWidget> updated = make(screen);
                for (int run = 0; run < runs; ++run) {
                    updated->start();
                    QVERIFY(time.awaitThreads(1));
                    for (int pass = 1; pass < passes; ++pass) {
                        if (pass == shownAfter)
                            QCoreApplication::sendPostedEvents();
                        QVERIFY(time.makePass());
                        updated->change();
                    }
                    updated->stop();
                    QVERIFY(time.awaitThreads(0));
                }
                if (shownAfter == passes)
                    QCoreApplication::sendPostedEvents();

                const QPointer<QWidget> widget = updated->widget();
                if (destruction == Directly)
                    updated.reset();
                else if (destruction == ByItsParent)
                    delete screen;
                else
                    widget->deleteLater();
                runEventLoop();
                QVERIFY(!widget);
                updated.reset();
                if (destruction != ByItsParent)
                    delete screen;
            }
        }
    }
}

enum Signal { DisplaySecChanged, FormatChanged, DateFormatChanged };
enum Reaction { Stop, StopAndStart, StopAndDelete, StopAndDeleteParent, StopAndDeleteLater };
Q_DECLARE_METATYPE(Signal)
Q_DECLARE_METATYPE(Reaction)

void TestClockCycles::aSlotMayStopItAndDeleteIt_data()
{
    QTest::addColumn<Signal>("signal");
    QTest::addColumn<Reaction>("reaction");
    const QList<QPair<const char *, Signal>> emitted{
        {"displaySecChanged", DisplaySecChanged}, {"formatChanged", FormatChanged},
        {"formatChanged of the date", DateFormatChanged}};
    const QList<QPair<const char *, Reaction>> reactions{
        {"stops it", Stop}, {"stops it and starts it again", StopAndStart}, {"stops and deletes it", StopAndDelete},
        {"stops it and deletes the parent", StopAndDeleteParent}, {"stops it and deletes it later", StopAndDeleteLater}};
    for (const auto &signal : emitted) {
        for (const auto &reaction : reactions)
            QTest::addRow("%s: %s", signal.first, reaction.first) << signal.second << reaction.second;
    }
}

template <typename Updated>
static void react(Updated *updated, Reaction reaction)
{
    updated->stop();
    if (reaction == StopAndStart)
        updated->start();
    else if (reaction == StopAndDelete)
        delete updated;
    else if (reaction == StopAndDeleteParent)
        delete updated->parentWidget();
    else if (reaction == StopAndDeleteLater)
        updated->deleteLater();
}

void TestClockCycles::aSlotMayStopItAndDeleteIt()
{
    QFETCH(Signal, signal);
    QFETCH(Reaction, reaction);
    const bool deletes = reaction != Stop && reaction != StopAndStart;
    for (int i = 0; i < 20; ++i) {
        QPointer<QWidget> screen = new QWidget;
        QPointer<WidgetClock> clock = new WidgetClock(screen, nullptr);
        QPointer<WidgetDate> date = new WidgetDate(screen, nullptr);
        int calls = 0;
        const auto reactOfClock = [&] { ++calls; react(clock.data(), reaction); };
        if (signal == DisplaySecChanged)
            connect(clock.data(), &WidgetClock::displaySecChanged, screen.data(), reactOfClock);
        else if (signal == FormatChanged)
            connect(clock.data(), &WidgetClock::formatChanged, screen.data(), reactOfClock);
        else
            connect(date.data(), &WidgetDate::formatChanged, screen.data(),
                    [&] { ++calls; react(date.data(), reaction); });

        const QPointer<QWidget> widget =
            signal == DateFormatChanged ? static_cast<QWidget *>(date) : static_cast<QWidget *>(clock);
        if (signal == DateFormatChanged)
            date->start();
        else
            clock->start();
        // So that it happens before, between and after the passes.
        for (int wait = 0; wait < i; ++wait)
            std::this_thread::yield();
        if (signal == DisplaySecChanged)
            clock->setDisplaySec(true);
        else if (signal == FormatChanged)
            clock->setFormat(WidgetClock::Hour24);
        else
            date->setFormat(WidgetDate::DayMonth);
        QCOMPARE(calls, 1);
        runEventLoop();
        QCOMPARE(widget.isNull(), deletes);
        if (reaction == StopAndStart) {
            if (signal == DateFormatChanged)
                date->stop();
            else
                clock->stop();
        }
        delete screen;
    }
}

void TestClockCycles::mayBeStoppedWhileItShowsATime_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<bool>("deletes");
    addForBoth("stopped", [](QTestData &data) { data << false; });
    addForBoth("stopped and deleted later", [](QTestData &data) { data << true; });
}

// The update of the widget's own thread, seen as the application can see it.
void TestClockCycles::mayBeStoppedWhileItShowsATime()
{
    QFETCH(Make, make);
    QFETCH(bool, deletes);

    class Stopper : public QObject
    {
    public:
        UpdatedWidget *updated = nullptr;
        bool deletes = false;
        int shows = 0;

        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::ShowToParent && ++shows == 1) {
                updated->stop();
                if (deletes)
                    updated->widget()->deleteLater();
            }
            return false;
        }
    } stopper;

    QWidget screen;
    std::unique_ptr<UpdatedWidget> updated = make(&screen);
    const QPointer<QWidget> widget = updated->widget();
    stopper.updated = updated.get();
    stopper.deletes = deletes;
    widget->installEventFilter(&stopper);
    updated->change();
    updated->start();
    EVENTUALLY_COMPARE(stopper.shows, 1);
    runEventLoop();
    QCOMPARE(widget.isNull(), deletes);
    QCOMPARE(stopper.shows, 1);
}

enum Ending { EndIt, EndAndDeleteIt, EndItAndDeleteWhatItUpdates };
Q_DECLARE_METATYPE(Ending)

void TestClockCycles::aSlotMayEndAThreadOfItsOwn_data()
{
    QTest::addColumn<bool>("clock");
    QTest::addColumn<bool>("slotComesFirst");
    QTest::addColumn<Ending>("ending");
    const QList<QPair<const char *, Ending>> endings{
        {"ended", EndIt}, {"ended and deleted", EndAndDeleteIt},
        {"ended, and what it updates is deleted", EndItAndDeleteWhatItUpdates}};
    for (bool clock : {true, false}) {
        for (bool slotComesFirst : {true, false}) {
            for (const auto &ending : endings) {
                QTest::addRow("%s, %s, %s the widget's", clock ? "clock" : "date", ending.first,
                              slotComesFirst ? "before" : "after")
                    << clock << slotComesFirst << ending.second;
            }
        }
    }
}

template <typename Thread, typename Updated, typename Slot>
static void endInASlot(bool slotComesFirst, Ending ending, Slot updateSlot)
{
    QPointer<Thread> thread = new Thread;
    QPointer<Updated> updated = new Updated(nullptr, nullptr);
    thread->m_interval = 0;
    QObject context;
    int calls = 0;
    const auto connectUpdate = [&] {
        QObject::connect(thread.data(), &Thread::update, updated.data(), updateSlot);
    };
    if (!slotComesFirst)
        connectUpdate();
    QObject::connect(thread.data(), &Thread::update, &context, [&] {
        // Others may be on their way.
        if (++calls > 1)
            return;
        if (ending == EndItAndDeleteWhatItUpdates)
            delete updated;
        thread->m_stop = true;
        if (!thread->wait(LongestWait))
            qWarning("The thread does not end.");
        else if (ending == EndAndDeleteIt)
            delete thread;
    });
    if (slotComesFirst)
        connectUpdate();
    thread->start();
    EVENTUALLY(calls > 0);
    runEventLoop();
    QCOMPARE(thread.isNull(), ending == EndAndDeleteIt);
    if (thread) {
        QVERIFY(thread->isFinished());
        QCOMPARE(bool(thread->m_stop), false);
    }
    delete updated;
    delete thread;
}

void TestClockCycles::aSlotMayEndAThreadOfItsOwn()
{
    QFETCH(bool, clock);
    QFETCH(bool, slotComesFirst);
    QFETCH(Ending, ending);
    RecordingPlatform::setLocalTimeFunction([](long) {
        static struct tm local;
        local.tm_min = (local.tm_min + 1) % 60;
        local.tm_mday = 1 + local.tm_min % 28;
        return &local;
    });
    for (int i = 0; i < 20; ++i) {
        if (clock)
            endInASlot<ClockUpdateThread, WidgetClock>(slotComesFirst, ending, &WidgetClock::updateHMS);
        else
            endInASlot<DateUpdateThread, WidgetDate>(slotComesFirst, ending, &WidgetDate::updateDateMonth);
    }
}

void TestClockCycles::aSlotInTheThreadMayEndIt_data()
{
    QTest::addColumn<bool>("clock");
    QTest::newRow("clock") << true;
    QTest::newRow("date") << false;
}

template <typename Thread>
static void endInTheThread()
{
    Thread thread;
    std::atomic<int> updates(0);
    QObject::connect(&thread, &Thread::update, &thread, [&] {
        ++updates;
        thread.m_stop = true;
    }, Qt::DirectConnection);
    thread.start();
    QVERIFY(thread.wait(LongestWait));
    QCOMPARE(updates.load(), 1);
    QCOMPARE(bool(thread.m_stop), false);
}

void TestClockCycles::aSlotInTheThreadMayEndIt()
{
    QFETCH(bool, clock);
    RecordingPlatform::setLocalTimeFunction([](long) {
        static struct tm local;
        local.tm_min = (local.tm_min + 1) % 60;
        return &local;
    });
    for (int i = 0; i < 20; ++i) {
        if (clock)
            endInTheThread<ClockUpdateThread>();
        else
            endInTheThread<DateUpdateThread>();
    }
}

QTEST_MAIN(TestClockCycles)
#include "tst_clockcycles.moc"
