#include "platform/linux/boardwatchdog.h"

#include "platform/linux/boardinternal.h"
#include "platform/logging.h"
#include "platform/util.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <linux/watchdog.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

using Board::Locker;

const long long never = LLONG_MAX;
const long long retryMs = 10000;
const int feedsPerTimeout = 3;

struct Registration
{
    std::string name;
    pthread_t thread;
    long long lastKick;
    bool hanging;
};
typedef std::vector<Registration> Registrations;

struct Watchdog
{
    Watchdog()
        : isRunning(false), isEnding(false), device(-1), wasOpen(false), periodMs(0), nextFeed(0), isFed(false),
          servicePeriodMs(0), nextTold(0)
    {
        pthread_mutex_init(&mutex, 0);
        Board::initialize(&wake);
    }

    pthread_mutex_t mutex;
    pthread_cond_t wake;
    pthread_t watcher;
    bool isRunning;
    bool isEnding;
    Registrations registrations;

    int device;
    bool wasOpen;
    long long periodMs;
    long long nextFeed;  // or next try to open the device
    bool isFed;
    std::string lastProblem;

    long long servicePeriodMs;  // of systemd; 0: it does not watch
    long long nextTold;
};

Watchdog *instance = 0;  // never destroyed: other threads may still kick while the process exits
pthread_once_t instanceOnce = PTHREAD_ONCE_INIT;

void makeInstance()
{
    instance = new Watchdog;
}

Watchdog &watchdog()
{
    pthread_once(&instanceOnce, makeInstance);
    return *instance;
}

const std::string &devicePath()
{
    return Board::config().watchdogDevice;
}

void reportOnce(const std::string &problem)
{
    if (watchdog().lastProblem != problem)
        Logging::log(Logging::LogError, "[watchdog] %s: %s", devicePath().c_str(), problem.c_str());
    watchdog().lastProblem = problem;
}

void setPeriod()
{
    int seconds = Board::config().watchdogSeconds;
    if (ioctl(watchdog().device, WDIOC_SETTIMEOUT, &seconds) != 0) {
        const std::string reason = std::strerror(errno);
        seconds = 0;
        if (ioctl(watchdog().device, WDIOC_GETTIMEOUT, &seconds) != 0 || seconds <= 0)
            seconds = Board::config().watchdogSeconds;
        Logging::log(Logging::LogError, "[watchdog] %s: Its time cannot be set: %s. It is taken for %d s",
                     devicePath().c_str(), reason.c_str(), seconds);
    } else if (seconds != Board::config().watchdogSeconds) {
        Logging::log(Logging::LogTrace, "[watchdog] %s: It has %d s", devicePath().c_str(), seconds);
    }
    watchdog().periodMs = std::max(1, seconds) * 1000LL / feedsPerTimeout;
}

void openDevice(long long now)
{
    Watchdog &w = watchdog();
    w.device = open(devicePath().c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (w.device < 0) {
        reportOnce(std::strerror(errno));
        w.nextFeed = now + retryMs;
        return;
    }
    w.wasOpen = true;
    setPeriod();
    w.nextFeed = now;
}

// Without the magic, so that the hardware goes on.
void closeDevice()
{
    close(watchdog().device);
    watchdog().device = -1;
    watchdog().isFed = false;
}

void writeFeed(long long now)
{
    Watchdog &w = watchdog();
    const char anythingButTheMagic = '\0';
    const bool wasTaken = write(w.device, &anythingButTheMagic, 1) == 1;
    const int error = errno;
    w.isFed = wasTaken;
    w.nextFeed = now + w.periodMs;
    if (wasTaken) {
        w.lastProblem.clear();
        return;
    }
    reportOnce(std::string("It cannot be fed: ") + std::strerror(error));
    if (error == EAGAIN || error == EINTR)
        return;
    closeDevice();
    w.nextFeed = now + std::min(w.periodMs, retryMs);
}

bool someHang()
{
    const Registrations &all = watchdog().registrations;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].hanging)
            return true;
    }
    return false;
}

// Returns when the device is due again.
long long feedDevice(long long now)
{
    Watchdog &w = watchdog();
    if (devicePath().empty())
        return never;
    const bool hang = someHang();
    // To open it is to feed it: once the hardware runs, that has to wait, too.
    if (w.device < 0 && now >= w.nextFeed && !(hang && w.wasOpen))
        openDevice(now);
    if (hang && w.wasOpen) {
        w.isFed = false;
        return never;  // who answers again wakes the watcher
    }
    if (w.device < 0)
        return w.nextFeed;
    if (now >= w.nextFeed)
        writeFeed(now);
    return w.nextFeed;
}

// Returns when systemd is due again.
long long feedService(long long now)
{
    Watchdog &w = watchdog();
    if (w.servicePeriodMs == 0 || someHang())
        return never;
    if (now >= w.nextTold) {
        Board::tellService("WATCHDOG=1");
        w.nextTold = now + w.servicePeriodMs;
    }
    return w.nextTold;
}

long long feed()
{
    const long long now = Board::monotonicMs();
    const long long device = feedDevice(now);
    return std::min(device, feedService(now));
}

// Such as 52 for 5.2 s: the locale does not matter to integers.
int tenthsSinceKick(const Registration &registration)
{
    return int((Board::monotonicMs() - registration.lastKick + 50) / 100);
}

void reportHang(const Registration &registration)
{
    const int tenths = tenthsSinceKick(registration);
    std::string consequence;
    if (!devicePath().empty())
        consequence += ", " + devicePath() + " is not fed";
    if (watchdog().servicePeriodMs > 0)
        consequence += ", systemd is not told";
    Logging::log(Logging::LogError, "[watchdog] \"%s\" has not answered for %d.%d s%s", registration.name.c_str(),
                 tenths / 10, tenths % 10, consequence.c_str());
}

// Returns when the next thread is due.
long long findHanging()
{
    long long next = never;
    Registrations &all = watchdog().registrations;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].hanging)
            continue;
        const long long due = all[i].lastKick + Board::config().threadTimeoutMs;
        if (due > Board::monotonicMs()) {
            next = std::min(next, due);
            continue;
        }
        all[i].hanging = true;
        reportHang(all[i]);
    }
    return next;
}

void *watch(void *)
{
    Watchdog &w = watchdog();
    Locker lock(&w.mutex);
    while (!w.isEnding) {
        const long long thread = findHanging();
        const long long next = std::min(thread, feed());
        if (next == never)
            pthread_cond_wait(&w.wake, &w.mutex);
        else
            Board::waitUntil(&w.wake, &w.mutex, next);
    }
    return 0;
}

void stopDevice()
{
    const bool stops = Board::config().watchdogStopsAtExit;
    if (stops && write(watchdog().device, "V", 1) != 1)
        Logging::log(Logging::LogError, "[watchdog] %s: It cannot be stopped: %s", devicePath().c_str(),
                     std::strerror(errno));
    closeDevice();
}

void end()
{
    Watchdog &w = watchdog();
    {
        Locker lock(&w.mutex);
        w.isEnding = true;
        pthread_cond_signal(&w.wake);
    }
    pthread_join(w.watcher, 0);
    Locker lock(&w.mutex);
    if (w.device >= 0)
        stopDevice();
    Board::tellService("STOPPING=1");
}

// With the mutex.
void run()
{
    Watchdog &w = watchdog();
    if (w.isRunning || w.isEnding)
        return;
    w.servicePeriodMs = (Board::serviceTimeoutMs() + feedsPerTimeout - 1) / feedsPerTimeout;
    const int error = Board::startThread(&w.watcher, watch);
    if (error != 0) {
        Logging::log(Logging::LogError, "[watchdog] There is no thread to watch others: %s", std::strerror(error));
        return;
    }
    w.isRunning = true;
    std::atexit(end);
}

// Returns the end where there is none.
Registrations::iterator findOwn(const std::string &name)
{
    Registrations &all = watchdog().registrations;
    Registrations::iterator it = all.begin();
    while (it != all.end() && !(it->name == name && pthread_equal(it->thread, pthread_self())))
        ++it;
    return it;
}

Registrations::iterator findAny(const std::string &name)
{
    Registrations &all = watchdog().registrations;
    Registrations::iterator it = all.begin();
    while (it != all.end() && it->name != name)
        ++it;
    return it;
}

void answer(Registration *registration)
{
    if (registration->hanging) {
        const int tenths = tenthsSinceKick(*registration);
        Logging::log(Logging::LogError, "[watchdog] \"%s\" answers again after %d.%d s", registration->name.c_str(),
                     tenths / 10, tenths % 10);
        pthread_cond_signal(&watchdog().wake);
    }
    registration->hanging = false;
    registration->lastKick = Board::monotonicMs();
}

// Returns the kicked registration, or the end.
Registrations::iterator kick(const std::string &name, const char *caller)
{
    Registrations &all = watchdog().registrations;
    Registrations::iterator found = findOwn(name);
    if (found == all.end())
        found = findAny(name);
    if (found == all.end())
        Logging::log(Logging::LogError, "[watchdog] %s: no thread is registered as \"%s\"", caller, name.c_str());
    else
        answer(&*found);
    return found;
}

}

void Util::startWatchThread(const std::string &name)
{
    Watchdog &w = watchdog();
    Locker lock(&w.mutex);
    const Registrations::iterator earlier = findOwn(name);
    if (earlier != w.registrations.end()) {
        answer(&*earlier);
        w.registrations.erase(earlier);
    }
    const Registration registration = {name, pthread_self(), Board::monotonicMs(), false};
    w.registrations.push_back(registration);
    run();
    pthread_cond_signal(&w.wake);
}

void Util::kickDog(const std::string &name)
{
    Locker lock(&watchdog().mutex);
    kick(name, "kickDog");
}

void Util::stopWatchThread(const std::string &name)
{
    Locker lock(&watchdog().mutex);
    const Registrations::iterator kicked = kick(name, "stopWatchThread");
    if (kicked != watchdog().registrations.end())
        watchdog().registrations.erase(kicked);
}

void Board::startWatchdog()
{
    Locker lock(&watchdog().mutex);
    run();
}

std::vector<std::string> Board::hangingThreads()
{
    Locker lock(&watchdog().mutex);
    const Registrations &all = watchdog().registrations;
    std::vector<std::string> names;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].hanging)
            names.push_back(all[i].name);
    }
    return names;
}

bool Board::isWatchdogFed()
{
    Locker lock(&watchdog().mutex);
    return watchdog().isFed;
}
