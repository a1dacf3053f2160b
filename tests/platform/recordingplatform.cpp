#include "recordingplatform.h"

#include "platform/logging.h"
#include "platform/soundmanager.h"
#include "platform/stringrc.h"
#include "platform/systemtime.h"
#include "platform/util.h"

#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <thread>
#include <vector>

namespace {

// Texts are as wide on every machine, also when a test is started by hand.
const bool s_dpiFixed = qEnvironmentVariableIsSet("QT_FONT_DPI") || qputenv("QT_FONT_DPI", "96");

struct Record
{
    QList<RecordingPlatform::LogLine> logLines;
    QList<int> sounds;
    QList<RecordingPlatform::WatchdogCall> watchdogCalls;
    QList<unsigned long> delays;
    QStringList events;
    bool recording = true;
    bool sleeping = true;
    std::function<void(const QString &)> watchdogHook;
    std::function<void(unsigned long)> delayHook;
    std::function<struct tm *(long)> localTimeFunction;
    bool timeFixed = false;
    struct tm localTime = {};
    unsigned int tick = 0;
    unsigned int tickStep = 0;
    int tickCalls = 0;
    int clockChipResult = 1;
    std::function<int()> clockChipFunction;
    int setTimeCalls = 0;
};

std::mutex s_mutex;

Record &record()
{
    // Never destroyed: at the exit of the program the thread sanitizer cannot tell that the update threads are over.
    static Record *instance = new Record;
    return *instance;
}

/// A list that shares nothing with the one that other threads go on writing to.
template <typename List>
List copyOf(List list)
{
    list.detach();
    return list;
}

using Lock = std::lock_guard<std::mutex>;

void recordWatchdog(const char *operation, const std::string &name)
{
    std::function<void(const QString &)> hook;
    {
        const Lock lock(s_mutex);
        if (record().recording) {
            const QString text = QString::fromStdString(name);
            record().watchdogCalls.append({QLatin1String(operation), text});
            record().events.append(QLatin1String("watchdog:") + QLatin1String(operation) + QLatin1Char(':') + text);
        }
        hook = record().watchdogHook;
    }
    if (hook)
        hook(QLatin1String(operation));
}

}

namespace RecordingPlatform {

void reset()
{
    const Lock lock(s_mutex);
    record() = Record();
    StringRC::getInstance()->m_rightToLeft = false;
}

void setRecording(bool recording)
{
    const Lock lock(s_mutex);
    record().recording = recording;
}

QList<LogLine> logLines()
{
    const Lock lock(s_mutex);
    return copyOf(record().logLines);
}

QStringList logTexts(int level)
{
    QStringList texts;
    for (const LogLine &line : logLines()) {
        if (line.level == level)
            texts.append(line.text);
    }
    return texts;
}

void clearLog()
{
    const Lock lock(s_mutex);
    record().logLines.clear();
}

QList<int> sounds()
{
    const Lock lock(s_mutex);
    return copyOf(record().sounds);
}

void clearSounds()
{
    const Lock lock(s_mutex);
    record().sounds.clear();
}

void setRightToLeft(bool rightToLeft)
{
    StringRC::getInstance()->m_rightToLeft = rightToLeft;
}

QList<WatchdogCall> watchdogCalls()
{
    const Lock lock(s_mutex);
    return copyOf(record().watchdogCalls);
}

QList<unsigned long> delays()
{
    const Lock lock(s_mutex);
    return copyOf(record().delays);
}

void setSleeping(bool sleeping)
{
    const Lock lock(s_mutex);
    record().sleeping = sleeping;
}

void setWatchdogHook(std::function<void(const QString &)> hook)
{
    const Lock lock(s_mutex);
    record().watchdogHook = hook;
}

void setDelayHook(std::function<void(unsigned long)> hook)
{
    const Lock lock(s_mutex);
    record().delayHook = hook;
}

void setLocalTimeFunction(std::function<struct tm *(long)> function)
{
    const Lock lock(s_mutex);
    record().localTimeFunction = function;
}

void setLocalTime(int year, int month, int day, int hour, int minute, int second)
{
    struct tm time = {};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = 12;
    time.tm_isdst = -1;
    mktime(&time);
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;

    const Lock lock(s_mutex);
    record().localTime = time;
    record().timeFixed = true;
}

void setTick(unsigned int tick, unsigned int step)
{
    const Lock lock(s_mutex);
    record().tick = tick;
    record().tickStep = step;
}

int tickCalls()
{
    const Lock lock(s_mutex);
    return record().tickCalls;
}

void setClockChipResult(int result)
{
    const Lock lock(s_mutex);
    record().clockChipResult = result;
}

void setClockChipFunction(std::function<int()> function)
{
    const Lock lock(s_mutex);
    record().clockChipFunction = function;
}

int setTimeCalls()
{
    const Lock lock(s_mutex);
    return record().setTimeCalls;
}

QStringList events()
{
    const Lock lock(s_mutex);
    return copyOf(record().events);
}

void addEvent(const QString &event)
{
    const Lock lock(s_mutex);
    record().events.append(event);
}

}

void Logging::log(LogLevel level, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    std::vector<char> text(size_t(vsnprintf(nullptr, 0, format, arguments)) + 1);
    vsnprintf(text.data(), text.size(), format, again);
    va_end(again);
    va_end(arguments);

    const Lock lock(s_mutex);
    if (!record().recording)
        return;
    const QString line = QString::fromLatin1(text.data());
    record().logLines.append({int(level), line});
    record().events.append(QStringLiteral("log:%1:").arg(int(level)) + line);
}

SoundManager *SoundManager::getInstance()
{
    static SoundManager instance;
    return &instance;
}

void SoundManager::sndPlay(int id)
{
    const Lock lock(s_mutex);
    if (!record().recording)
        return;
    record().sounds.append(id);
    record().events.append(QStringLiteral("sound:%1").arg(id));
}

StringRC *StringRC::getInstance()
{
    static StringRC instance = {};
    return &instance;
}

void Util::startWatchThread(const std::string &name)
{
    recordWatchdog("start", name);
}

void Util::kickDog(const std::string &name)
{
    recordWatchdog("kick", name);
}

void Util::stopWatchThread(const std::string &name)
{
    recordWatchdog("stop", name);
}

void Util::delayMs(unsigned long ms)
{
    bool sleeping;
    std::function<void(unsigned long)> hook;
    {
        const Lock lock(s_mutex);
        if (record().recording) {
            record().delays.append(ms);
            record().events.append(QStringLiteral("delay:%1").arg(ms));
        }
        sleeping = record().sleeping;
        hook = record().delayHook;
    }
    if (hook)
        hook(ms);
    if (sleeping)
        std::this_thread::sleep_for(std::chrono::milliseconds(ms));
    else
        std::this_thread::yield();
}

struct tm *Util::localtime(long t)
{
    static thread_local struct tm result;
    std::function<struct tm *(long)> function;
    {
        const Lock lock(s_mutex);
        function = record().localTimeFunction;
        result = record().localTime;
        if (!record().timeFixed) {
            const time_t time = t;
            localtime_r(&time, &result);
        }
    }
    return function ? function(t) : &result;
}

unsigned int get_system_tick()
{
    const Lock lock(s_mutex);
    const unsigned int tick = record().tick;
    record().tick += record().tickStep;
    ++record().tickCalls;
    return tick;
}

int set_time()
{
    int result;
    std::function<int()> function;
    {
        const Lock lock(s_mutex);
        ++record().setTimeCalls;
        if (record().recording)
            record().events.append(QStringLiteral("set_time"));
        result = record().clockChipResult;
        function = record().clockChipFunction;
    }
    return function ? function() : result;
}
