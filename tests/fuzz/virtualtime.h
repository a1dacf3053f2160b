#ifndef FUZZ_VIRTUALTIME_H
#define FUZZ_VIRTUALTIME_H

#include <QObject>
#include <QPointer>

#include <map>

/// The time of a run, which passes only when it is told to: the same input has the same timers run out in the same order
/// on every machine.
class VirtualTime
{
public:
    VirtualTime();

    /// Lets \a ms milliseconds pass, and has the timers run out that do by then.
    void pass(int ms);

    /// What the event loop does in no time: the events of this moment, and timers of 0 milliseconds.
    void settle() { pass(0); }

    /// How many timers run.
    static int timerCount();

private:
    struct Timer
    {
        QPointer<QObject> object;
        int interval;
        qint64 due;
    };

    void takeTimers();
    static void sendEvents();

    qint64 m_now;
    std::map<int, Timer> m_timers;  // by their ids
};

#endif
