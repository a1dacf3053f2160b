#include "recordingplatform.h"
#include "sanitizers.h"
#include "simulatedtime.h"
#include "threadruns.h"
#include "widgetclock.h"
#include "widgetdate.h"

#include <QLabel>
#include <QtTest>

#include <cstdlib>
#include <random>

namespace {

const qint64 Second = 1000;
const qint64 Minute = 60 * Second;
const qint64 Hour = 60 * Minute;
const qint64 Day = 24 * Hour;

/// Within this time of what a day is about, every pass is made and nobody sets the time.
const qint64 Closely = 2 * Minute;
const qint64 Untouched = 10 * Minute;

/// The ticks between two settings of the system time, and those before the next try where the clock chip fails.
const unsigned int SyncTicks = 14400;
const unsigned int SyncRetryTicks = 10;

const QStringList WeekDays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

/// How much longer than they say threads sleep in the rest of the day. WIDGET_TIME_SCALE=1 has them make every pass.
int scaleOfTheDay()
{
#if defined(HAS_SANITIZER) || defined(IS_EMULATED)
    const int usual = 300;
#else
    const int usual = 100;
#endif
    const int asked = qEnvironmentVariableIntValue("WIDGET_TIME_SCALE");
    return asked > 0 ? asked : usual;
}

void setZone(const QByteArray &zone)
{
    qputenv("TZ", zone);
    tzset();
}

/// The clock and the date of the tests: what they show can be read from the sheets and texts of their labels.
struct Screen
{
    QWidget screen;
    WidgetClock clock;
    WidgetDate date;
    const QList<QLabel *> digits;
    const QList<QLabel *> dateLabels;

    Screen()
        : clock(&screen, nullptr),
          date(&screen, nullptr),
          digits(clock.findChildren<QLabel *>()),
          dateLabels(date.findChildren<QLabel *>())
    {
        for (int digit = 0; digit <= 9; ++digit) {
            clock.setNumTextUrl(digit, QStringLiteral("/*%1*/").arg(digit));
            clock.setNumTextXSUrl(digit, QStringLiteral("/*%1*/").arg(digit));
        }
        clock.setAMPMUrl(QStringLiteral("/*A*/"), QStringLiteral("/*P*/"));
        for (int day = 0; day < WeekDays.size(); ++day)
            date.setWDayText(day, WeekDays.at(day));
    }

    /// "hhmmss", "hhmm", both with an "A" or a "P" behind it in 12 hours; "" while there is none.
    QString shownTime() const
    {
        QString text;
        if (clock.isHidden())
            return text;
        for (int label : {1, 2, 3, 4, 6, 7, 0}) {  // in the order of their creation, the mark comes first
            if (!digits.at(label)->isHidden())
                text += digits.at(label)->styleSheet().mid(2, 1);
        }
        return text;
    }

    /// "Sat 12/31"; "" while there is none.
    QString shownDate() const
    {
        return date.isHidden() ? QString() : dateLabels.at(1)->text() + QLatin1Char(' ') + dateLabels.at(0)->text();
    }
};

QString twoDigits(int number)
{
    return QString(QChar('0' + number / 10)) + QChar('0' + number % 10);
}

/// The time as a screen should show it.
QString timeText(const struct tm &time, bool hour24, bool seconds)
{
    const int hour = !hour24 && time.tm_hour > 12 ? time.tm_hour - 12 : time.tm_hour;
    return twoDigits(hour) + twoDigits(time.tm_min) + (seconds ? twoDigits(time.tm_sec) : QString())
        + (hour24 ? "" : time.tm_hour < 12 ? "A" : "P");
}

QString dateText(const struct tm &time)
{
    return WeekDays.at(time.tm_wday) + QLatin1Char(' ') + twoDigits(time.tm_mon + 1) + QLatin1Char('/')
        + twoDigits(time.tm_mday);
}

/// The time of the device: the clock chip has the right one, and the system has its own, which anybody may set.
class DeviceTime
{
public:
    DeviceTime(qint64 start, int msPerTick, unsigned int seed)
        : m_start(start),
          m_msPerTick(msPerTick),
          m_random(seed),
          m_firstTick(0u - (unsigned int)(random(1, int(Day / msPerTick)))),
          m_lastReading(m_firstTick)
    {
        goOn(0);
        s_device = this;
        RecordingPlatform::setLocalTimeFunction([](long) { return s_device->localTime(); });
        RecordingPlatform::setClockChipFunction([] { return s_device->readChip(); });
    }

    ~DeviceTime()
    {
        s_device = nullptr;
    }

    void goOn(qint64 now)
    {
        m_now = now;
        RecordingPlatform::setTick(tick());
    }

    unsigned int tick() const { return m_firstTick + (unsigned int)(m_now / m_msPerTick); }
    void setWrongBy(qint64 ms) { m_wrongBy = ms; }
    int random(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_random); }

    struct tm *localTime()
    {
        static thread_local struct tm result;
        const time_t seconds = time_t((m_start + m_now + m_wrongBy) / Second);
        localtime_r(&seconds, &result);
        return &result;
    }

    int readChip()
    {
        const unsigned int ticks = ticksSinceReading();
        m_longestPause = qMax(m_longestPause, ticks);
        // Before the tick wraps around, the time is set too often rather than too seldom.
        const bool wraps = m_lastReading + SyncTicks < m_lastReading;
        m_tooEarly += m_answered && ticks < SyncTicks && !wraps;
        m_lastReading = tick();

        const bool answers = random(0, 2) == 0;
        m_answered = answers;
        m_failuresInARow = answers ? 0 : m_failuresInARow + 1;
        m_mostFailuresInARow = qMax(m_mostFailuresInARow, m_failuresInARow);
        m_failures += !answers;
        m_successes += answers;
        if (answers)
            m_wrongBy = 0;
        return answers;
    }

    int failures() const { return m_failures; }
    int successes() const { return m_successes; }
    int tooEarly() const { return m_tooEarly; }
    unsigned int mostFailuresInARow() const { return m_mostFailuresInARow; }
    unsigned int longestPause() const { return qMax(m_longestPause, ticksSinceReading()); }

private:
    static DeviceTime *s_device;

    unsigned int ticksSinceReading() const { return tick() - m_lastReading; }

    const qint64 m_start;
    const int m_msPerTick;
    std::mt19937 m_random;
    const unsigned int m_firstTick;
    unsigned int m_lastReading;
    unsigned int m_longestPause = 0;
    bool m_answered = true;
    unsigned int m_failuresInARow = 0;
    unsigned int m_mostFailuresInARow = 0;
    int m_tooEarly = 0;
    // Only one thread is awake.
    qint64 m_now = 0;
    qint64 m_wrongBy = 0;
    int m_failures = 0;
    int m_successes = 0;
};

DeviceTime *DeviceTime::s_device = nullptr;

}

class TestClockDays : public QObject
{
    Q_OBJECT

private slots:
    void showsTheRightTimeAllDay_data();
    void showsTheRightTimeAllDay();
    void cleanupTestCase();
};

void TestClockDays::showsTheRightTimeAllDay_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("moment");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<bool>("hour24");
    QTest::addColumn<uint>("seed");

    uint seed = 1;
    // The moment in UTC, and the local time in the second before it and in the second that begins with it.
    const auto add = [&seed](const char *name, const char *zone, const char *moment, const char *before,
                             const char *after) {
        for (bool hour24 : {true, false}) {
            QTest::addRow("%s, %s", name, hour24 ? "24 hours with seconds" : "12 hours")
                << QByteArray(zone) << moment << before << after << hour24 << seed++;
        }
    };
    const char *const utc = "UTC0";
    const char *const berlin = "CET-1CEST,M3.5.0,M10.5.0/3";
    const char *const santiago = "<-04>4<-03>,M9.1.6/24,M4.1.6/24";
    const char *const lordHowe = "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0";
    add("noon", utc, "2024-03-07T12:00:00Z", "Thu 03/07 11:59:59", "Thu 03/07 12:00:00");
    add("midnight", utc, "2024-03-07T00:00:00Z", "Wed 03/06 23:59:59", "Thu 03/07 00:00:00");
    add("a month's end", utc, "2024-05-01T00:00:00Z", "Tue 04/30 23:59:59", "Wed 05/01 00:00:00");
    add("the leap day begins", utc, "2024-02-29T00:00:00Z", "Wed 02/28 23:59:59", "Thu 02/29 00:00:00");
    add("the leap day ends", utc, "2024-03-01T00:00:00Z", "Thu 02/29 23:59:59", "Fri 03/01 00:00:00");
    add("February's end in a common year", utc, "2023-03-01T00:00:00Z", "Tue 02/28 23:59:59", "Wed 03/01 00:00:00");
    if (sizeof(long) > 4)  // in which the platform is given a time
        add("February's end in 2100", utc, "2100-03-01T00:00:00Z", "Sun 02/28 23:59:59", "Mon 03/01 00:00:00");
    add("a year's end", utc, "2025-01-01T00:00:00Z", "Tue 12/31 23:59:59", "Wed 01/01 00:00:00");
    add("summer time begins", berlin, "2024-03-31T01:00:00Z", "Sun 03/31 01:59:59", "Sun 03/31 03:00:00");
    add("summer time ends", berlin, "2024-10-27T01:00:00Z", "Sun 10/27 02:59:59", "Sun 10/27 02:00:00");
    add("summer time begins at midnight", santiago, "2024-09-08T04:00:00Z", "Sat 09/07 23:59:59",
        "Sun 09/08 01:00:00");
    add("summer time ends at midnight", santiago, "2024-04-07T03:00:00Z", "Sat 04/06 23:59:59", "Sat 04/06 23:00:00");
    add("summer time of half an hour begins", lordHowe, "2024-10-05T15:30:00Z", "Sun 10/06 01:59:59",
        "Sun 10/06 02:30:00");
}

// A day of the device's, half of it before a certain moment and half of it after. The clock chip fails two times out
// of three, somebody sets the time by hours now and then, and the system tick wraps around.
void TestClockDays::showsTheRightTimeAllDay()
{
    QFETCH(QByteArray, zone);
    QFETCH(QString, moment);
    QFETCH(QString, before);
    QFETCH(QString, after);
    QFETCH(bool, hour24);
    QFETCH(uint, seed);

    setZone(zone);
    rememberTime(4, 44, 44);
    SimulatedTime time;
    const qint64 momentInDay = Day / 2;
    // The tick is a second, or, as on other devices, a millisecond.
    const int msPerTick = seed % 4 < 2 ? 1000 : 1;
    DeviceTime device(QDateTime::fromString(moment, Qt::ISODate).toMSecsSinceEpoch() - momentInDay, msPerTick, seed);

    Screen screen;
    if (hour24) {
        screen.clock.setFormat(WidgetClock::Hour24);
        screen.clock.setDisplaySec(true);
    }
    screen.clock.start();
    screen.date.start();
    const bool started = time.awaitThreads(2);

    QString clockText = timeText(*device.localTime(), hour24, hour24);
    QString shownDate = dateText(*device.localTime());
    QStringList seen;  // around the moment
    QStringList wrong;
    const SimulatedTime::Sleeper *clockThread = nullptr;
    const SimulatedTime::Sleeper *dateThread = nullptr;
    qint64 nextSetting = Hour;
    int settings = 0;
    while (started && time.now() < Day) {
        QCoreApplication::sendPostedEvents();
        // What was right at the last pass, and nothing else.
        if (screen.shownTime() != clockText || screen.shownDate() != shownDate) {
            wrong << QStringLiteral("%1 ms: %2 %3 instead of %4 %5").arg(time.now())
                         .arg(screen.shownDate(), screen.shownTime(), shownDate, clockText);
            if (wrong.size() == 5)
                break;
        }
        const qint64 next = time.nextWaking();
        const qint64 toMoment = momentInDay - next;
        if (qAbs(toMoment) <= Minute) {
            const QString text = screen.shownDate() + QLatin1Char(' ') + screen.shownTime();
            if (seen.isEmpty() || seen.last() != text)
                seen << text;
        }

        if (qAbs(toMoment) <= Untouched) {
            device.setWrongBy(0);
        } else if (next >= nextSetting) {
            // Often by hours alone, so that minute and second stay.
            device.setWrongBy(device.random(-30, 30) * Hour + device.random(0, 1) * device.random(-59, 59) * Minute);
            nextSetting = next + device.random(5, 90) * Minute;
            ++settings;
        }
        time.setScale(qAbs(toMoment) <= Closely ? 1 : scaleOfTheDay());
        device.goOn(next);

        const SimulatedTime::Sleeper *const thread = time.makePass();
        if (!thread)
            break;
        if (thread->name == "ClockUpdateThread") {
            clockThread = thread;
            clockText = timeText(*device.localTime(), hour24, hour24);
        } else {
            dateThread = thread;
            shownDate = dateText(*device.localTime());
        }
    }
    // A pass ends in the thread's sleep, so stop() takes no more than the rest of it.
    const qint64 stopped = time.now();
    if (started) {
        screen.clock.stop();
        screen.date.stop();
    }
    const qint64 stopping = time.now() - stopped;

    QVERIFY(started);
    QCOMPARE(wrong, QStringList());
    QVERIFY(clockThread && dateThread);
    QVERIFY(time.now() >= Day);
    QVERIFY(stopping <= (100 + 300) * scaleOfTheDay() + 20 * scaleOfTheDay());
    QCOMPARE(clockThread->unfedPasses, 0);
    QCOMPARE(dateThread->unfedPasses, 0);
    QVERIFY(settings > 5);
    QVERIFY(device.failures() > 0);
    QVERIFY(device.successes() > 0);
    QCOMPARE(device.tooEarly(), 0);
    // Where more than a tick passes between two passes, the due one may be missed for a whole round of the counter.
    if (msPerTick == 1000) {
        const unsigned int ticksPerPass = unsigned(scaleOfTheDay()) / 10 + 1;
        QVERIFY(device.longestPause() <= SyncTicks + SyncRetryTicks * device.mostFailuresInARow() + ticksPerPass);
    }

    // Both threads pass within 300 ms, so that the date may be new before the time is, or the other way round.
    const auto shown = [hour24](const QString &text) {
        struct tm time = {};
        time.tm_hour = text.mid(10, 2).toInt();
        time.tm_min = text.mid(13, 2).toInt();
        time.tm_sec = text.mid(16, 2).toInt();
        return text.left(10) + timeText(time, hour24, hour24);
    };
    const int last = int(seen.indexOf(shown(before)));
    QVERIFY2(last >= 0, qPrintable(seen.join(", ")));
    const int first = int(seen.indexOf(shown(after), last));
    QVERIFY2(first == last + 1 || (first == last + 2 && before.left(9) != after.left(9)), qPrintable(seen.join(", ")));

    for (const SimulatedTime::Sleeper *thread : {clockThread, dateThread}) {
        const double perPass = double(thread->processorTime) / double(thread->passes);
        const int passesPerDay = int(Day / (thread == clockThread ? 100 : 300));
        qInfo("%s: %lld passes, %.1f us of processor time each: %.2f s for the %d passes of a day", thread->name.data(),
              (long long)thread->passes, perPass / 1000, perPass * passesPerDay / 1e9, passesPerDay);
    }
}

void TestClockDays::cleanupTestCase()
{
    setZone("UTC0");
}

QTEST_MAIN(TestClockDays)
#include "tst_clockdays.moc"
