#include "platform/desktop/desktopwatchdog.h"

#include "platform/logging.h"
#include "platform/util.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;
using Lock = std::unique_lock<std::mutex>;

struct Registration
{
    unsigned int id;
    std::string name;
    std::thread::id thread;
    Clock::time_point lastKick;
    bool hanging;
    std::thread::id holder;  // that of no thread if it is not held
};
using Registrations = std::vector<Registration>;

struct Watchdog
{
    std::mutex mutex;
    std::condition_variable wake;
    std::condition_variable released;
    std::thread watcher;
    bool ending = false;
    std::chrono::milliseconds timeout = std::chrono::seconds(5);
    Registrations registrations;
    unsigned int lastId = 0;
    std::atomic<bool> someHeld = false;  // may still be true when none is any more
};

Watchdog &watchdog()
{
    // Never destroyed: other threads may still kick while the process exits.
    static Watchdog *watchdog = new Watchdog;
    return *watchdog;
}

double secondsSinceKick(const Registration &registration)
{
    return std::chrono::duration<double>(Clock::now() - registration.lastKick).count();
}

// Such as "5.2", in every locale.
std::string tenthsSinceKick(const Registration &registration)
{
    const long tenths = std::lround(secondsSinceKick(registration) * 10);
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10);
}

// Returns when the next thread is due.
Clock::time_point reportHanging()
{
    auto next = Clock::time_point::max();
    for (Registration &r : watchdog().registrations) {
        if (r.hanging)
            continue;
        const auto due = r.lastKick + watchdog().timeout;
        if (due > Clock::now()) {
            next = std::min(next, due);
            continue;
        }
        r.hanging = true;
        Logging::log(Logging::LogError, "[watchdog] \"%s\" has not answered for %s s", r.name.c_str(),
                     tenthsSinceKick(r).c_str());
    }
    return next;
}

void watch()
{
    Watchdog &w = watchdog();
    Lock lock(w.mutex);
    while (!w.ending) {
        const auto next = reportHanging();
        if (next == Clock::time_point::max())
            w.wake.wait(lock);
        else
            w.wake.wait_until(lock, next);
    }
}

void release(Registration &registration)
{
    registration.holder = std::thread::id();
    watchdog().released.notify_all();
}

void end()
{
    {
        Lock lock(watchdog().mutex);
        watchdog().ending = true;
        for (Registration &r : watchdog().registrations)
            release(r);
        watchdog().wake.notify_one();
    }
    watchdog().watcher.join();
}

Registrations::iterator findOwn(const std::string &name)
{
    Registrations &all = watchdog().registrations;
    const auto self = std::this_thread::get_id();
    return std::find_if(all.begin(), all.end(),
                        [&](const Registration &r) { return r.name == name && r.thread == self; });
}

Registrations::iterator findById(unsigned int id)
{
    Registrations &all = watchdog().registrations;
    return std::find_if(all.begin(), all.end(), [id](const Registration &r) { return r.id == id; });
}

// Returns the kicked registration, or the end.
Registrations::iterator kick(const std::string &name, const char *caller)
{
    Registrations &all = watchdog().registrations;
    auto found = findOwn(name);
    if (found == all.end())
        found = std::find_if(all.begin(), all.end(), [&](const Registration &r) { return r.name == name; });
    if (found == all.end()) {
        Logging::log(Logging::LogError, "[watchdog] %s: no thread is registered as \"%s\"", caller, name.c_str());
        return found;
    }
    if (found->hanging) {
        Logging::log(Logging::LogError, "[watchdog] \"%s\" answers again after %s s", name.c_str(),
                     tenthsSinceKick(*found).c_str());
        watchdog().wake.notify_one();
    }
    found->hanging = false;
    found->lastKick = Clock::now();
    return found;
}

}

void Util::startWatchThread(const std::string &name)
{
    Watchdog &w = watchdog();
    Lock lock(w.mutex);
    const auto earlier = findOwn(name);
    if (earlier != w.registrations.end())
        w.registrations.erase(earlier);
    w.registrations.push_back({++w.lastId, name, std::this_thread::get_id(), Clock::now(), false, {}});
    if (!w.watcher.joinable() && !w.ending) {
        w.watcher = std::thread(watch);
        std::atexit(end);
    }
    w.wake.notify_one();
}

void Util::kickDog(const std::string &name)
{
    Lock lock(watchdog().mutex);
    watchdog().released.wait(lock, [&name] {
        const auto own = findOwn(name);
        return own == watchdog().registrations.end() || own->holder == std::thread::id();
    });
    kick(name, "kickDog");
}

void Util::stopWatchThread(const std::string &name)
{
    Lock lock(watchdog().mutex);
    const auto kicked = kick(name, "stopWatchThread");
    if (kicked != watchdog().registrations.end())
        watchdog().registrations.erase(kicked);
}

std::vector<Desktop::WatchedThread> Desktop::watchedThreads()
{
    Lock lock(watchdog().mutex);
    std::vector<WatchedThread> threads;
    for (const Registration &r : watchdog().registrations)
        threads.push_back({r.id, r.name, secondsSinceKick(r), r.hanging, r.holder != std::thread::id()});
    return threads;
}

void Desktop::holdThread(unsigned int id)
{
    Watchdog &w = watchdog();
    Lock lock(w.mutex);
    const auto found = findById(id);
    if (found == w.registrations.end() || w.ending)
        return;
    found->holder = std::this_thread::get_id();
    w.someHeld = true;
}

void Desktop::releaseThread(unsigned int id)
{
    Lock lock(watchdog().mutex);
    const auto found = findById(id);
    if (found != watchdog().registrations.end())
        release(*found);
}

void Desktop::releaseThreads()
{
    Watchdog &w = watchdog();
    if (!w.someHeld)
        return;
    Lock lock(w.mutex);
    const auto none = std::thread::id();
    bool someAreLeft = false;
    for (Registration &r : w.registrations) {
        if (r.holder == std::this_thread::get_id())
            release(r);
        someAreLeft = someAreLeft || r.holder != none;
    }
    w.someHeld = someAreLeft;
}

void Desktop::setWatchTimeout(std::chrono::milliseconds timeout)
{
    using namespace std::chrono_literals;
    Lock lock(watchdog().mutex);
    watchdog().timeout = std::clamp<std::chrono::milliseconds>(timeout, 1ms, 24h);
    watchdog().wake.notify_one();
}

std::chrono::milliseconds Desktop::watchTimeout()
{
    Lock lock(watchdog().mutex);
    return watchdog().timeout;
}
