#ifndef BOARDLOG_H
#define BOARDLOG_H

/// What a board adds to the log (platform/logging.h), whose lines go to syslog as
/// "radio[412]: error ClockUpdateThre#431  [setItemStyle, 120] Unknown item!!": program, process, level, name and number
/// of the thread as `top -H` has them, message. Callable from any thread.
///
/// The levels are syslog's error (up to 2), debug (up to 16), and notice (beyond). Each line is one message to the socket
/// "log_device" of the configuration, so none is torn; line breaks and other control characters in it become blanks, and
/// what is longer than 8000 bytes is cut and ends with "...".
///
/// Logging never waits. While nobody takes the lines they go to standard error, one write each; what that does not take
/// either, or not to its end, is dropped, and counted by a later line, "[log] 12 lines were lost". A syslog that was
/// started anew is found again by the next line.
namespace Board {

/// Logs the lines whose level is at most \a level: 2 rejected calls only, 16 traces too, 128 everything, 0 nothing.
/// At start it is the number from 0 to 1000 in the environment variable WIDGET_LOG_LEVEL, else "log_level" of the
/// configuration, else 2.
void setLogLevel(int level);
int logLevel();

}

#endif
