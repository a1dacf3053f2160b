#ifndef WAITING_H
#define WAITING_H

#include <QCoreApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>

#include <ctime>
#include <functional>

/// The milliseconds that a test waits for what comes by itself. A machine with other things to do is slow, not wrong.
const int LongestWait = 120000;

/// QVERIFY and QCOMPARE for what has to come at some time. QTRY_VERIFY and QTRY_COMPARE go on for twice the time when it is
/// over, to tell by how much it was too short: then nobody would hear of a failure before the whole test is killed.
#define EVENTUALLY(condition) \
    do { \
        static_cast<void>(QTest::qWaitFor([&] { return bool(condition); }, LongestWait)); \
        QVERIFY(condition); \
    } while (false)
#define EVENTUALLY_COMPARE(actual, expected) \
    do { \
        static_cast<void>(QTest::qWaitFor([&] { return (actual) == (expected); }, LongestWait)); \
        QCOMPARE(actual, expected); \
    } while (false)

/// Lets \a ms pass and with them every timer that goes off by then. QTest::qWait() may return before the timers have
/// had their turn.
inline void passTime(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// The milliseconds for which the calling thread has had a processor. What other programs take does not count.
inline qint64 processorTime()
{
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1000 + time.tv_nsec / 1000000;
}

/// Does something at certain times, in the middle of the timers of what is tested: all timers of a thread go off in the
/// order of their times, also where a busy machine is late with all of them.
class Schedule
{
public:
    /// Has run() do \a action when \a ms have passed from now on.
    void at(int ms, std::function<void()> action)
    {
        ++m_open;
        QTimer::singleShot(ms, Qt::PreciseTimer, &m_context, [this, action] {
            action();
            --m_open;
        });
    }

    /// Returns when everything is done, or false.
    bool run()
    {
        return QTest::qWaitFor([this] { return m_open == 0; }, LongestWait);
    }

private:
    QObject m_context;
    int m_open = 0;
};

#endif
