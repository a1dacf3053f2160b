#include "platform/desktop/desktopclock.h"

#include "platform/desktop/desktopwatchdog.h"
#include "platform/systemtime.h"
#include "platform/util.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <mutex>
#include <optional>

namespace {

const auto processStart = std::chrono::steady_clock::now();

std::atomic<bool> chipWorking(true);
std::atomic<unsigned int> chipCalls(0);

std::mutex fixedTimeMutex;
std::optional<tm> fixedTime;

std::string written(const tm &time)
{
    char text[32];
    std::strftime(text, sizeof(text), "%Y-%m-%d %H:%M:%S", &time);
    return text;
}

std::optional<tm> parsed(const std::string &text)
{
    tm time = {};
    std::sscanf(text.c_str(), "%4d-%2d-%2d %2d:%2d:%2d", &time.tm_year, &time.tm_mon, &time.tm_mday, &time.tm_hour,
                &time.tm_min, &time.tm_sec);
    time.tm_year -= 1900;
    time.tm_mon -= 1;
    timegm(&time);  // works out the days of the week and year, and carries over what is out of range
    return text == written(time) ? std::optional<tm>(time) : std::nullopt;
}

}

bool Desktop::setFixedLocalTime(const std::string &text)
{
    const std::optional<tm> time = parsed(text);
    if (!time)
        return false;
    std::lock_guard<std::mutex> lock(fixedTimeMutex);
    fixedTime = time;
    return true;
}

void Desktop::clearFixedLocalTime()
{
    std::lock_guard<std::mutex> lock(fixedTimeMutex);
    fixedTime.reset();
}

std::string Desktop::fixedLocalTime()
{
    std::lock_guard<std::mutex> lock(fixedTimeMutex);
    return fixedTime ? written(*fixedTime) : std::string();
}

void Desktop::setClockChipWorking(bool working)
{
    chipWorking = working;
}

bool Desktop::isClockChipWorking()
{
    return chipWorking;
}

unsigned int Desktop::clockChipCalls()
{
    return chipCalls;
}

void Util::delayMs(unsigned long ms)
{
    Desktop::releaseThreads();
    timespec rest;
    rest.tv_sec = time_t(ms / 1000);
    rest.tv_nsec = long(ms % 1000) * 1000000;
    while (nanosleep(&rest, &rest) != 0 && errno == EINTR) {
    }
}

struct tm *Util::localtime(long t)
{
    thread_local tm record;
    {
        std::lock_guard<std::mutex> lock(fixedTimeMutex);
        if (fixedTime) {
            record = *fixedTime;
            return &record;
        }
    }
    const time_t time = t;
    if (!localtime_r(&time, &record))
        record = tm();
    return &record;
}

unsigned int get_system_tick()
{
    using namespace std::chrono;
    return unsigned(duration_cast<seconds>(steady_clock::now() - processStart).count());
}

int set_time()
{
    ++chipCalls;
    return chipWorking ? 1 : 0;
}
