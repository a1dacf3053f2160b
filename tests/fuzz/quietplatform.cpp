#include "quietplatform.h"

#include "platform/logging.h"
#include "platform/soundmanager.h"
#include "platform/stringrc.h"
#include "platform/systemtime.h"
#include "platform/util.h"

#include <atomic>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <thread>
#include <vector>

namespace {

std::mutex s_mutex;
struct tm s_time = {};
std::atomic<unsigned int> s_tick(0);
std::atomic<bool> s_clockChipWorks(true);
std::atomic<int> s_soundCount(0);

}

void QuietPlatform::reset()
{
    setRightToLeft(false);
    setTime(0, 0, 0, 1, 0, 0);
    s_tick = 0;
    s_clockChipWorks = true;
    s_soundCount = 0;
}

void QuietPlatform::setRightToLeft(bool rightToLeft)
{
    StringRC::getInstance()->m_rightToLeft = rightToLeft;
}

void QuietPlatform::setTime(int hour, int minute, int second, int day, int month, int weekDay)
{
    const std::lock_guard<std::mutex> lock(s_mutex);
    s_time.tm_hour = hour;
    s_time.tm_min = minute;
    s_time.tm_sec = second;
    s_time.tm_mday = day;
    s_time.tm_mon = month;
    s_time.tm_wday = weekDay;
}

void QuietPlatform::setTick(unsigned int tick)
{
    s_tick = tick;
}

void QuietPlatform::setClockChipWorks(bool works)
{
    s_clockChipWorks = works;
}

int QuietPlatform::soundCount()
{
    return s_soundCount;
}

// Writes the line as a device does, so that each argument is read.
void Logging::log(LogLevel, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    std::vector<char> text(size_t(vsnprintf(nullptr, 0, format, arguments)) + 1);
    vsnprintf(text.data(), text.size(), format, again);
    va_end(again);
    va_end(arguments);
}

SoundManager *SoundManager::getInstance()
{
    static SoundManager instance;
    return &instance;
}

void SoundManager::sndPlay(int)
{
    ++s_soundCount;
}

StringRC *StringRC::getInstance()
{
    static StringRC instance = {};
    return &instance;
}

void Util::startWatchThread(const std::string &)
{
}

void Util::kickDog(const std::string &)
{
}

void Util::stopWatchThread(const std::string &)
{
}

void Util::delayMs(unsigned long)
{
    std::this_thread::sleep_for(std::chrono::microseconds(200));
}

struct tm *Util::localtime(long)
{
    static thread_local struct tm result;
    const std::lock_guard<std::mutex> lock(s_mutex);
    result = s_time;
    return &result;
}

unsigned int get_system_tick()
{
    return s_tick;
}

int set_time()
{
    return s_clockChipWorks;
}
