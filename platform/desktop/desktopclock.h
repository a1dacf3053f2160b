#ifndef DESKTOPCLOCK_H
#define DESKTOPCLOCK_H

#include <string>

/// What a PC adds to the times of the platform (platform/util.h, platform/systemtime.h). Callable from any thread.
///
/// Every thread has its own record behind Util::localtime. The system tick counts seconds since the process started.
/// The clock chip is made up: set_time() never touches the PC's own clock.
namespace Desktop {

/// Stops the local time at \a text, "2026-03-07 13:05:09", whatever time is asked for, so that pictures come out the
/// same. Returns false and changes nothing when \a text is not a date and time in that form, from the year 1000 on.
bool setFixedLocalTime(const std::string &text);

/// Lets the local time run again.
void clearFixedLocalTime();

/// What the local time stands at, in the same form; empty if it runs.
std::string fixedLocalTime();

/// Says whether set_time() succeeds; it does at start.
void setClockChipWorking(bool working);
bool isClockChipWorking();

/// How often set_time() has been called.
unsigned int clockChipCalls();

}

#endif
