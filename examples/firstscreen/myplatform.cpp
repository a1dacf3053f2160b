// What the library asks of the device, in the least that works: copy it and let each function do the real thing.

#include "platform/logging.h"
#include "platform/soundmanager.h"
#include "platform/stringrc.h"
#include "platform/systemtime.h"
#include "platform/util.h"

#include <cstdarg>
#include <cstdio>

#include <unistd.h>

void Logging::log(LogLevel level, const char *format, ...)
{
    if (level != LogError)
        return;
    va_list arguments;
    va_start(arguments, format);
    vfprintf(stderr, format, arguments);
    va_end(arguments);
    fputc('\n', stderr);
}

SoundManager *SoundManager::getInstance()
{
    static SoundManager instance;
    return &instance;
}

void SoundManager::sndPlay(int)
{
}

StringRC *StringRC::getInstance()
{
    static StringRC instance = {false};
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

void Util::delayMs(unsigned long ms)
{
    usleep(ms * 1000);
}

struct tm *Util::localtime(long t)
{
    static __thread struct tm record;
    const time_t time = t;
    return localtime_r(&time, &record);
}

unsigned int get_system_tick()
{
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec;
}

int set_time()
{
    return 0;
}
