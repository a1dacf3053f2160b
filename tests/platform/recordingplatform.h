#ifndef RECORDINGPLATFORM_H
#define RECORDINGPLATFORM_H

#include <QList>
#include <QString>
#include <QStringList>

#include <ctime>
#include <functional>

/// The platform of the tests: it records every call and answers with what the test has set. Safe to use from any thread.
namespace RecordingPlatform {

struct LogLine
{
    int level;
    QString text;  ///< as formatted
};

struct WatchdogCall
{
    QString operation;  ///< "start", "kick" or "stop"
    QString name;
};

/// Forgets all records and puts all answers back to their defaults. Call it in init() of a test.
void reset();

/// With false nothing is put on the lists below any more; answers, hooks and counts go on. For tests that make more
/// calls than a machine has memory for.
void setRecording(bool recording);

QList<LogLine> logLines();
/// The texts of the lines at \a level.
QStringList logTexts(int level);
void clearLog();

/// The ids that were played, oldest first.
QList<int> sounds();
void clearSounds();

void setRightToLeft(bool rightToLeft);

QList<WatchdogCall> watchdogCalls();
/// Every call of the watchdog calls \a hook with its operation, in the same thread, after it was recorded.
void setWatchdogHook(std::function<void(const QString &)> hook);
/// The milliseconds of each Util::delayMs() call, oldest first. Calls really sleep unless setSleeping(false).
QList<unsigned long> delays();
void setSleeping(bool sleeping);
/// Every Util::delayMs() calls \a hook with its milliseconds, in the thread that is to sleep, before it sleeps.
void setDelayHook(std::function<void(unsigned long)> hook);

/// Util::localtime() answers with this time for every argument (month 1 to 12, the week day follows from the date),
/// until reset() brings the machine's local time back.
void setLocalTime(int year, int month, int day, int hour, int minute, int second);

/// Util::localtime() answers with what \a function returns, which comes before a time that was set.
void setLocalTimeFunction(std::function<struct tm *(long)> function);

/// get_system_tick() answers with \a tick (0 at first), then counts on by \a step at each call (0 at first).
void setTick(unsigned int tick, unsigned int step = 0);
int tickCalls();

/// set_time() answers with \a result (1 at first).
void setClockChipResult(int result);
/// set_time() answers with what \a function returns, which comes before a result that was set.
void setClockChipFunction(std::function<int()> function);
int setTimeCalls();

/// One list for everything in its order: "log:16:text", "sound:901", "watchdog:kick:name", "delay:10", "set_time".
/// A test may add its own entries to see signals and sounds in one order.
QStringList events();
void addEvent(const QString &event);

}

#endif
