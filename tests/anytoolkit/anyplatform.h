#ifndef ANYPLATFORM_H
#define ANYPLATFORM_H

#include <QString>
#include <QStringList>

/// A platform that records what is called, as that in tests/platform/ does, in C++98. Safe to use from any thread.
namespace AnyPlatform {

/// Forgets all records and puts all answers back to their defaults. Call it in init() of a test.
void reset();

/// What was called since the last call, in its order: "sound 901", "start <name>", "kick <name>", "stop <name>",
/// "delay 100", "set_time". A test adds signals to it, and so sees all of that in one order.
QStringList takeEvents();
void addEvent(const QString &event);

/// The lines of the log since the last call, as "<level> <text>".
QStringList takeLog();

/// Where texts are written from right to left; false at first.
void setRightToLeft(bool rightToLeft);

/// Util::localtime() answers with this (\a month 1 to 12, \a wday 0 to 6 from Sunday), midnight of 1 January at first.
void setTime(int hour, int min, int sec);
void setDate(int month, int day, int wday);

/// get_system_tick() answers with \a tick (0 at first), then counts on by \a step at each call.
void setTick(unsigned int tick, unsigned int step);

/// set_time() answers with \a result (1 at first).
void setClockChipResult(int result);

/// Every Util::delayMs() calls \a hook with the number of pauses since then, from 1, instead of sleeping.
/// For threads whose body a test runs in its own thread.
void setPauseHook(void (*hook)(int pause));

}

#endif
