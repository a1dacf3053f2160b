// Clock and date, and the threads that keep them current.

#include "anytoolkit.h"
#include "widgetclock.h"
#include "widgetdate.h"

#include <QLabel>
#include <QThread>

class TestAnyClock : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void clockThreadReportsWhatChanges_data();
    void clockThreadReportsWhatChanges();
    void clockThreadCallsTheWatchdogInEveryPass();
    void clockThreadSetsTheTimeFromTheChip_data();
    void clockThreadSetsTheTimeFromTheChip();
    void dateThreadReportsInEveryPass();
    void threadsReportFromThemselves();

    void clockIsHiddenUntilItHasATime();
    void clockShowsTheTime_data();
    void clockShowsTheTime();
    void runningClockLooksLikeOneThatIsTold();
    void clockTellsItsSettings();
    void clockRejectsWhatDoesNotExist();

    void dateShowsTheDay_data();
    void dateShowsTheDay();
    void runningDateLooksLikeOneThatIsTold();
    void dateTellsItsFormat();
    void dateRejectsAWeekDayThatDoesNotExist();

    void runAgainAfterTheyWereStopped();
};

void TestAnyClock::init()
{
    AnyPlatform::reset();
}

// --- The threads

// What a pause of a thread that a test runs is for.
static ThreadShared<bool> *s_stop;
static int s_lastPass;

static void stopAfterLastPass(int pass)
{
    if (pass == s_lastPass)
        *s_stop = true;
}

/// Runs the body of \a thread right here for some passes.
template <typename UpdateThread>
static void runPasses(UpdateThread *thread, int passes)
{
    s_stop = &thread->m_stop;
    s_lastPass = passes;
    AnyPlatform::setPauseHook(stopAfterLastPass);
    thread->run();
    AnyPlatform::setPauseHook(0);
}

/// Has the process remember this time as the last one that a clock has reported.
static void rememberTime(int hour, int min, int sec)
{
    AnyPlatform::setTime(hour, min, sec);
    ClockUpdateThread thread;
    thread.timeFormat(true);
    runPasses(&thread, 1);
    AnyPlatform::takeEvents();
}

void TestAnyClock::clockThreadReportsWhatChanges_data()
{
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("sec");
    QTest::addColumn<bool>("measureSec");
    QTest::addColumn<bool>("force");
    QTest::addColumn<int>("reports");
    // 10:20:30 was reported last.
    QTest::newRow("nothing") << 10 << 20 << 30 << false << false << 0;
    QTest::newRow("the minute") << 10 << 21 << 30 << false << false << 1;
    QTest::newRow("the hour") << 11 << 20 << 30 << false << false << 1;
    QTest::newRow("the second") << 10 << 20 << 31 << false << false << 0;
    QTest::newRow("the second, measured") << 10 << 20 << 31 << true << false << 1;
    QTest::newRow("nothing, forced") << 10 << 20 << 30 << false << true << 1;
}

void TestAnyClock::clockThreadReportsWhatChanges()
{
    QFETCH(int, hour);
    QFETCH(int, min);
    QFETCH(int, sec);
    QFETCH(bool, measureSec);
    QFETCH(bool, force);
    QFETCH(int, reports);
    rememberTime(10, 20, 30);
    AnyPlatform::setTime(hour, min, sec);
    ClockUpdateThread thread;
    thread.measureSec(measureSec);
    thread.timeFormat(force);
    QSignalSpy updates(&thread, SIGNAL(update(int,int,int)));
    runPasses(&thread, 3);
    QCOMPARE(int(updates.size()), reports);
    if (reports > 0) {
        QCOMPARE(updates.at(0).at(0).toInt(), hour);
        QCOMPARE(updates.at(0).at(1).toInt(), min);
        QCOMPARE(updates.at(0).at(2).toInt(), sec);
    }
}

void TestAnyClock::clockThreadCallsTheWatchdogInEveryPass()
{
    rememberTime(10, 20, 30);
    ClockUpdateThread thread;
    thread.m_interval = 70;
    runPasses(&thread, 2);
    const QString name = "virtual void ClockUpdateThread::run()";
    QCOMPARE(AnyPlatform::takeEvents(), QStringList()
        << "start " + name << "kick " + name << "delay 70" << "kick " + name << "delay 70" << "stop " + name);
    QVERIFY(!thread.m_stop);
}

void TestAnyClock::clockThreadSetsTheTimeFromTheChip_data()
{
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("log");
    QTest::newRow("not yet") << 14399 << 1 << "";
    QTest::newRow("due") << 14400 << 1 << "16 Sync RTC, Time: 28900 ";
    QTest::newRow("due, and fails") << 14400 << 0 << "16 Sync RTC, failed ";
}

void TestAnyClock::clockThreadSetsTheTimeFromTheChip()
{
    QFETCH(int, step);
    QFETCH(int, result);
    QFETCH(QString, log);
    rememberTime(10, 20, 30);
    AnyPlatform::setTick(100, step);
    AnyPlatform::setClockChipResult(result);
    ClockUpdateThread thread;
    runPasses(&thread, 2);
    QCOMPARE(bool(AnyPlatform::takeEvents().contains("set_time")), !log.isEmpty());
    QCOMPARE(AnyPlatform::takeLog().join(""), log);
}

void TestAnyClock::dateThreadReportsInEveryPass()
{
    AnyPlatform::setDate(3, 7, 4);
    DateUpdateThread thread;
    QSignalSpy updates(&thread, SIGNAL(update(int,int,int)));
    runPasses(&thread, 2);
    QCOMPARE(int(updates.size()), 2);
    QCOMPARE(updates.at(1).at(0).toInt(), 3);
    QCOMPARE(updates.at(1).at(1).toInt(), 7);
    QCOMPARE(updates.at(1).at(2).toInt(), 4);
    const QString name = "virtual void DateUpdateThread::run()";
    QCOMPARE(AnyPlatform::takeEvents(), QStringList()
        << "start " + name << "kick " + name << "delay 300" << "kick " + name << "delay 300" << "stop " + name);
}

/// Notes in which thread it is told of updates.
class Listener : public QObject
{
    Q_OBJECT

public:
    Listener() : m_calls(0), m_ownCalls(0) {}

    ThreadShared<int> m_calls;
    ThreadShared<int> m_ownCalls;  // in the thread that the listener lives in

public slots:
    void take(int, int, int)
    {
        if (QThread::currentThread() == thread())
            m_ownCalls = m_ownCalls + 1;
        m_calls = m_calls + 1;
    }
};

void TestAnyClock::threadsReportFromThemselves()
{
    ClockUpdateThread clock;
    DateUpdateThread date;
    QThread *threads[] = {&clock, &date};
    ThreadShared<bool> *stops[] = {&clock.m_stop, &date.m_stop};
    clock.timeFormat(true);
    for (int i = 0; i < 2; ++i) {
        Listener there;
        Listener here;
        connect(threads[i], SIGNAL(update(int,int,int)), &there, SLOT(take(int,int,int)), Qt::DirectConnection);
        connect(threads[i], SIGNAL(update(int,int,int)), &here, SLOT(take(int,int,int)));
        threads[i]->start();
        EVENTUALLY(there.m_calls > 0 && here.m_calls > 0);
        *stops[i] = true;
        QVERIFY(threads[i]->wait(LongestWait));
        QCOMPARE(int(there.m_ownCalls), 0);
        QVERIFY(here.m_ownCalls > 0);
    }
}

/// Starts a clock or date widget, and stops it at the end of its own life.
template <typename UpdatedWidget>
class Run
{
public:
    explicit Run(UpdatedWidget *widget) : m_widget(widget) { m_widget->start(); }
    ~Run() { m_widget->stop(); }

private:
    UpdatedWidget *m_widget;
};

// --- WidgetClock

static QString pictureOf(const char *name, int digit = -1)
{
    const QString number = digit < 0 ? QString() : QString::number(digit);
    return QString::fromLatin1("image: url(:/resource/images_l2/clock_%1%2.png);").arg(QLatin1String(name), number);
}

struct ClockScreen : Screen
{
    ClockScreen() : clock(this, 0)
    {
        setStyleSheet("background-color: #1f1618;");
        clock.setGeometry(10, 40, 200, 80);
        for (int digit = 0; digit < 10; ++digit) {
            clock.setNumTextUrl(digit, pictureOf("", digit));
            clock.setNumTextXSUrl(digit, pictureOf("xs_", digit));
        }
        clock.setSeperatorUrl(pictureOf("separator"));
        clock.setAMPMUrl(pictureOf("am"), pictureOf("pm"));
    }

    /// The time in words: those pictures that are seen, from left to right, the upper ones first.
    QString time() const
    {
        QStringList parts;
        const QList<QLabel *> labels = partsOf<QLabel>(&clock);
        for (int y = 0; y < clock.height(); ++y) {
            for (int x = 0; x < clock.width(); ++x) {
                for (int i = 0; i < int(labels.size()); ++i) {
                    if (labels.at(i)->pos() == QPoint(x, y) && labels.at(i)->isVisible())
                        parts << labels.at(i)->styleSheet().section("clock_", 1).section(".png", 0, 0);
                }
            }
        }
        return parts.join(" ");
    }

    WidgetClock clock;
};

void TestAnyClock::clockIsHiddenUntilItHasATime()
{
    ClockScreen screen;
    screen.showInFront();
    QVERIFY(!screen.clock.isVisible());
    screen.clock.updateHMS(1, 2, 3);
    QVERIFY(screen.clock.isVisible());
}

void TestAnyClock::clockShowsTheTime_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<bool>("seconds");
    QTest::addColumn<int>("hour");
    QTest::addColumn<QString>("time");
    QTest::newRow("morning") << int(WidgetClock::Hour12) << false << 9 << "am 0 9 separator 4 5";
    QTest::newRow("midnight") << int(WidgetClock::Hour12) << false << 0 << "am 0 0 separator 4 5";
    QTest::newRow("noon") << int(WidgetClock::Hour12) << false << 12 << "pm 1 2 separator 4 5";
    QTest::newRow("evening") << int(WidgetClock::Hour12) << true << 23 << "pm xs_0 xs_7 1 1 separator 4 5";
    QTest::newRow("evening, 24 hours") << int(WidgetClock::Hour24) << false << 23 << "2 3 separator 4 5";
    QTest::newRow("24 hours with seconds") << int(WidgetClock::Hour24) << true << 7 << "xs_0 xs_7 0 7 separator 4 5";
}

void TestAnyClock::clockShowsTheTime()
{
    QFETCH(int, format);
    QFETCH(bool, seconds);
    QFETCH(int, hour);
    QFETCH(QString, time);
    ClockScreen fresh;
    fresh.clock.setFormat(WidgetClock::Format(format));
    fresh.clock.setDisplaySec(seconds);
    fresh.clock.updateHMS(hour, 45, 7);
    const QImage expected = shownOnce(&fresh);

    ClockScreen screen;
    screen.showInFront();
    screen.clock.setDisplaySec(true);
    screen.clock.updateHMS(18, 36, 59);
    QVERIFY(seen(&screen) != expected);
    screen.clock.setFormat(WidgetClock::Format(format));
    screen.clock.setDisplaySec(seconds);
    screen.clock.updateHMS(hour, 45, 7);
    QCOMPARE(screen.time(), time);
    QVERIFY(looksAs(&screen, expected));
}

void TestAnyClock::runningClockLooksLikeOneThatIsTold()
{
    ClockScreen fresh;
    fresh.clock.setFormat(WidgetClock::Hour24);
    fresh.clock.updateHMS(21, 43, 5);
    const QImage expected = shownOnce(&fresh);

    rememberTime(8, 0, 0);
    AnyPlatform::setTime(9, 59, 58);
    ClockScreen screen;
    screen.showInFront();
    const Run<WidgetClock> run(&screen.clock);
    EVENTUALLY(screen.time() == "am 0 9 separator 5 9");
    AnyPlatform::setTime(21, 43, 5);
    EVENTUALLY(screen.time() == "pm 0 9 separator 4 3");
    screen.clock.setFormat(WidgetClock::Hour24);
    EVENTUALLY(screen.time() == "2 1 separator 4 3");
    QVERIFY(looksAs(&screen, expected));
}

void TestAnyClock::clockTellsItsSettings()
{
    WidgetClock clock(0, 0);
    QSignalSpy seconds(&clock, SIGNAL(displaySecChanged(bool)));
    QSignalSpy formats(&clock, SIGNAL(formatChanged(bool)));
    clock.setDisplaySec(true);
    clock.setDisplaySec(true);
    clock.setFormat(WidgetClock::Hour24);
    clock.setFormat(WidgetClock::Hour24);
    clock.setFormat(WidgetClock::Hour12);
    QCOMPARE(int(seconds.size()), 1);
    QCOMPARE(seconds.at(0).at(0).toBool(), true);
    QCOMPARE(int(formats.size()), 2);
    QCOMPARE(formats.at(1).at(0).toBool(), true);
    QVERIFY(clock.setProperty("displaySec", false));
    QVERIFY(!clock.displaySec());
}

void TestAnyClock::clockRejectsWhatDoesNotExist()
{
    WidgetClock clock(0, 0);
    clock.setNumTextUrl(10, QString());
    clock.setNumTextXSUrl(-1, QString());
    clock.setItemGeometry(WidgetClock::Item(8), 0, 0, 1, 1);
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "2 [ui/view/widget/widgetclock.cpp, setNumTextUrl] Invalid index 10"
        << "2 [ui/view/widget/widgetclock.cpp, setNumTextXSUrl] Invalid index -1"
        << "128 [setItemGeometry, 134] Unknown item!!");
}

// --- WidgetDate

struct DateScreen : Screen
{
    DateScreen() : date(this, 0)
    {
        static const char *const names[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
        setStyleSheet("background-color: #1f1618;");
        date.setGeometry(10, 40, 180, 22);
        for (int wday = 0; wday < 7; ++wday)
            date.setWDayText(wday, names[wday]);
    }

    QString day() const
    {
        const QList<QLabel *> labels = partsOf<QLabel>(&date);
        return labels.at(0)->text() + " " + labels.at(1)->text();
    }

    WidgetDate date;
};

void TestAnyClock::dateShowsTheDay_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("day");
    QTest::newRow("month first") << int(WidgetDate::MonthDay) << "03/07 Thu";
    QTest::newRow("day first") << int(WidgetDate::DayMonth) << "07/03 Thu";
}

void TestAnyClock::dateShowsTheDay()
{
    QFETCH(int, format);
    QFETCH(QString, day);
    DateScreen fresh;
    fresh.date.setFormat(WidgetDate::Format(format));
    fresh.date.updateDateMonth(3, 7, 4);
    const QImage expected = shownOnce(&fresh);

    DateScreen screen;
    screen.showInFront();
    QVERIFY(!screen.date.isVisible());
    screen.date.updateDateMonth(12, 31, 6);
    QVERIFY(seen(&screen) != expected);
    screen.date.setFormat(WidgetDate::Format(format));
    screen.date.updateDateMonth(3, 7, 4);
    QCOMPARE(screen.day(), day);
    // The name ends where every name does.
    QCOMPARE(partsOf<QLabel>(&screen.date).at(1)->geometry().right(), 179);
    QVERIFY(looksAs(&screen, expected));
}

void TestAnyClock::runningDateLooksLikeOneThatIsTold()
{
    DateScreen fresh;
    fresh.date.updateDateMonth(10, 21, 1);
    const QImage expected = shownOnce(&fresh);

    AnyPlatform::setDate(10, 20, 0);
    DateScreen screen;
    screen.showInFront();
    const Run<WidgetDate> run(&screen.date);
    EVENTUALLY(screen.day() == "10/20 Sun");
    AnyPlatform::setDate(10, 21, 1);
    EVENTUALLY(screen.day() == "10/21 Mon");
    QVERIFY(looksAs(&screen, expected));
}

void TestAnyClock::dateTellsItsFormat()
{
    // For the spy: before Qt 6 the toolkit does not know what the argument is.
    qRegisterMetaType<int>("Format");
    WidgetDate date(0, 0);
    QSignalSpy formats(&date, SIGNAL(formatChanged(Format)));
    date.setFormat(WidgetDate::DayMonth);
    date.setFormat(WidgetDate::DayMonth);
    QCOMPARE(int(formats.size()), 1);
    QCOMPARE(int(date.format()), int(WidgetDate::DayMonth));
}

void TestAnyClock::dateRejectsAWeekDayThatDoesNotExist()
{
    DateScreen screen;
    screen.showInFront();
    screen.date.setWDayText(7, "Day");
    screen.date.updateDateMonth(3, 7, 7);
    QCOMPARE(AnyPlatform::takeLog(), QStringList()
        << "2 [ui/view/widget/widgetdate.cpp, setWDayText] Invalid index 7"
        << "2 [ui/view/widget/widgetdate.cpp, updateDateMonth] Invalid index 7");
    QVERIFY(!screen.date.isVisible());
}

// --- Both

void TestAnyClock::runAgainAfterTheyWereStopped()
{
    const QStringList names = QStringList() << "Clock" << "Date";
    Screen screen;
    WidgetClock clock(&screen, 0);
    WidgetDate date(&screen, 0);
    for (int run = 0; run < 2; ++run) {
        AnyPlatform::takeEvents();
        clock.start();
        clock.start();
        date.start();
        QStringList events;
        for (Patience patience; patience.lasts();) {
            events += AnyPlatform::takeEvents();
            if (!events.filter("kick virtual void Clock").isEmpty() && !events.filter("kick virtual void Date").isEmpty())
                break;
        }
        clock.stop();
        date.stop();
        events += AnyPlatform::takeEvents();
        for (int i = 0; i < 2; ++i) {
            const QString name = QString::fromLatin1(" virtual void %1UpdateThread::run()").arg(names.at(i));
            QCOMPARE(int(events.filter("start" + name).size()), 1);
            QVERIFY(!events.filter("kick" + name).isEmpty());
            QCOMPARE(int(events.filter("stop" + name).size()), 1);
        }
    }
}

ANYTOOLKIT_MAIN(TestAnyClock)

#include "tst_anyclock.moc"
