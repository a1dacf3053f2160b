#ifndef BOARDSERVICE_H
#define BOARDSERVICE_H

/// What a program tells systemd when that has started it; a unit for it is in examples/board.
///
/// A unit with WatchdogSec= starts the program anew when that no longer answers: from startWatchdog() or the first
/// registered thread on, systemd is told three times in that time as long as no registered thread hangs
/// (platform/linux/boardwatchdog.h), besides the hardware watchdog or in its place. A program that ends in order after that
/// says STOPPING=1.
namespace Board {

/// Says that the program has started, for a unit with Type=notify: best when the first screen has been painted. Returns
/// false where systemd has not asked for it, and where it cannot be told, which is logged at level 2, once until the reason
/// is another one: `[service] systemd cannot be told "READY=1": No such file or directory`. Callable from any thread.
bool tellStarted();

/// Has SIGTERM, SIGINT and, unless it is ignored, SIGHUP end the application as QCoreApplication::quit() does, so that the
/// hardware watchdog is stopped (watchdog_at_exit) and what is to be kept is kept. To be called once, after the QApplication
/// is made.
void quitOnTermination();

}

#endif
