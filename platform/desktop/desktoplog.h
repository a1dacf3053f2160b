#ifndef DESKTOPLOG_H
#define DESKTOPLOG_H

#include <functional>
#include <string>
#include <vector>

/// What a PC adds to the log (platform/logging.h), whose lines go to standard error as
/// "13:05:09.250 error  ClockUpdateThre#2  [setItemStyle, 120] Unknown item!!": local time, level, name and number of
/// the thread (numbered in the order of their first lines), message. Callable from any thread.
namespace Desktop {

/// Shows the lines whose level is at most \a level: 2 rejected calls only, 16 traces too, 128 everything, 0 nothing.
/// At start it is the number in the environment variable WIDGET_LOG_LEVEL, else 2.
void setLogLevel(int level);
int logLevel();

/// The last lines shown, newest last, at most 100.
std::vector<std::string> recentLogLines();

/// Is called with each line shown and its level, by the thread that logs it, one line at a time. It must not log itself.
/// Once setLogListener() has returned, the earlier one is not called any more. None at start; a null one is none.
using LogListener = std::function<void(int level, const std::string &line)>;
void setLogListener(LogListener listener);

}

#endif
