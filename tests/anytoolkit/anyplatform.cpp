#include "anyplatform.h"

#include "platform/logging.h"
#include "platform/soundmanager.h"
#include "platform/stringrc.h"
#include "platform/systemtime.h"
#include "platform/util.h"

#include <cstdarg>
#include <cstdio>

#include <pthread.h>
#include <unistd.h>

namespace {

struct Record
{
    Record()
        : hour(0), min(0), sec(0), month(1), day(1), wday(1),
          tick(0), tickStep(0), clockChipResult(1), pauseHook(0), pauses(0)
    {
    }

    QStringList events;
    QStringList log;
    int hour, min, sec;
    int month, day, wday;
    unsigned int tick;
    unsigned int tickStep;
    int clockChipResult;
    void (*pauseHook)(int);
    int pauses;
};

pthread_mutex_t s_mutex = PTHREAD_MUTEX_INITIALIZER;

class Lock
{
public:
    Lock() { pthread_mutex_lock(&s_mutex); }
    ~Lock() { pthread_mutex_unlock(&s_mutex); }

private:
    Lock(const Lock &);
    Lock &operator=(const Lock &);
};

Record &record()
{
    // Never destroyed, for threads that are still there at the exit.
    static Record *instance = new Record;
    return *instance;
}

// Texts share their characters among threads, so what leaves the record is a copy.
QStringList take(QStringList *list)
{
    QStringList taken;
    for (int i = 0; i < int(list->size()); ++i)
        taken.append(QString(list->at(i).constData(), list->at(i).size()));
    list->clear();
    return taken;
}

}

void AnyPlatform::reset()
{
    const Lock lock;
    record() = Record();
    StringRC::getInstance()->m_rightToLeft = false;
}

QStringList AnyPlatform::takeEvents()
{
    const Lock lock;
    return take(&record().events);
}

void AnyPlatform::addEvent(const QString &event)
{
    const Lock lock;
    record().events.append(event);
}

QStringList AnyPlatform::takeLog()
{
    const Lock lock;
    return take(&record().log);
}

void AnyPlatform::setRightToLeft(bool rightToLeft)
{
    StringRC::getInstance()->m_rightToLeft = rightToLeft;
}

void AnyPlatform::setTime(int hour, int min, int sec)
{
    const Lock lock;
    record().hour = hour;
    record().min = min;
    record().sec = sec;
}

void AnyPlatform::setDate(int month, int day, int wday)
{
    const Lock lock;
    record().month = month;
    record().day = day;
    record().wday = wday;
}

void AnyPlatform::setTick(unsigned int tick, unsigned int step)
{
    const Lock lock;
    record().tick = tick;
    record().tickStep = step;
}

void AnyPlatform::setClockChipResult(int result)
{
    const Lock lock;
    record().clockChipResult = result;
}

void AnyPlatform::setPauseHook(void (*hook)(int))
{
    const Lock lock;
    record().pauseHook = hook;
    record().pauses = 0;
}

void Logging::log(LogLevel level, const char *format, ...)
{
    char text[1024];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(text, sizeof(text), format, arguments);
    va_end(arguments);

    const Lock lock;
    record().log.append(QString::number(int(level)) + QLatin1Char(' ') + QString::fromLatin1(text));
}

SoundManager *SoundManager::getInstance()
{
    static SoundManager instance;
    return &instance;
}

void SoundManager::sndPlay(int id)
{
    AnyPlatform::addEvent(QString::fromLatin1("sound %1").arg(id));
}

StringRC *StringRC::getInstance()
{
    static StringRC instance = {false};
    return &instance;
}

void Util::startWatchThread(const std::string &name)
{
    AnyPlatform::addEvent(QLatin1String("start ") + QString::fromLatin1(name.c_str()));
}

void Util::kickDog(const std::string &name)
{
    AnyPlatform::addEvent(QLatin1String("kick ") + QString::fromLatin1(name.c_str()));
}

void Util::stopWatchThread(const std::string &name)
{
    AnyPlatform::addEvent(QLatin1String("stop ") + QString::fromLatin1(name.c_str()));
}

void Util::delayMs(unsigned long ms)
{
    void (*hook)(int);
    int pause;
    {
        const Lock lock;
        record().events.append(QString::fromLatin1("delay %1").arg(ms));
        hook = record().pauseHook;
        pause = ++record().pauses;
    }
    if (hook)
        hook(pause);
    else
        usleep(useconds_t(ms * 1000));
}

struct tm *Util::localtime(long)
{
    static __thread struct tm time;
    const Lock lock;
    time.tm_hour = record().hour;
    time.tm_min = record().min;
    time.tm_sec = record().sec;
    time.tm_mon = record().month - 1;
    time.tm_mday = record().day;
    time.tm_wday = record().wday;
    return &time;
}

unsigned int get_system_tick()
{
    const Lock lock;
    const unsigned int tick = record().tick;
    record().tick += record().tickStep;
    return tick;
}

int set_time()
{
    AnyPlatform::addEvent(QLatin1String("set_time"));
    const Lock lock;
    return record().clockChipResult;
}
