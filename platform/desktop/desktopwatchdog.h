#ifndef DESKTOPWATCHDOG_H
#define DESKTOPWATCHDOG_H

#include <chrono>
#include <string>
#include <vector>

/// What a PC adds to the watchdog (platform/util.h). Callable from any thread.
///
/// A registered thread that does not kick in time is logged once, and once more when it kicks again. Threads may share
/// a name: each is watched by itself. A thread that registers again under its name starts afresh. A kick or stop from
/// a thread that is not registered under the name counts for the longest registered one that is.
namespace Desktop {

struct WatchedThread
{
    std::string name;
    double secondsSinceKick;
    bool hanging;  ///< not kicked in time
};

/// The watched threads in the order of their registration.
std::vector<WatchedThread> watchedThreads();

/// How long a thread may go without a kick: 5 s at start, from 1 ms to 24 h (a value beyond counts as the nearest).
/// Holds at once also for the threads already registered.
void setWatchTimeout(std::chrono::milliseconds timeout);
std::chrono::milliseconds watchTimeout();

}

#endif
