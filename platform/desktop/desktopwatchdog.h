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
    unsigned int id;  ///< no other registration's
    std::string name;
    double secondsSinceKick;
    bool hanging;  ///< not kicked in time
    bool held;     ///< by holdThread()
};

/// The watched threads in the order of their registration.
std::vector<WatchedThread> watchedThreads();

/// Makes the watched thread \a id hang: it does not return from its next kick until it is released. Ignored where no
/// thread has the id any more.
void holdThread(unsigned int id);
void releaseThread(unsigned int id);

/// Releases all threads that the calling one holds. Util::delayMs() does that too: who waits may be waiting for them to
/// end. At exit all are released.
void releaseThreads();

/// How long a thread may go without a kick: 5 s at start, from 1 ms to 24 h (a value beyond counts as the nearest).
/// Holds at once also for the threads already registered.
void setWatchTimeout(std::chrono::milliseconds timeout);
std::chrono::milliseconds watchTimeout();

}

#endif
