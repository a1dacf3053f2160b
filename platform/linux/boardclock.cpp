#include "platform/linux/boardclock.h"

#include "platform/linux/boardinternal.h"
#include "platform/logging.h"
#include "platform/systemtime.h"
#include "platform/util.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/rtc.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

const int mostTries = 6;
const unsigned long retryMs = 20;

pthread_mutex_t chipMutex = PTHREAD_MUTEX_INITIALIZER;
pthread_mutex_t reasonMutex = PTHREAD_MUTEX_INITIALIZER;

// Never destroyed, as above all clocks run until the process ends.
std::string &lastReason()
{
    static std::string *reason = new std::string;
    return *reason;
}

void succeeded()
{
    Board::Locker lock(&reasonMutex);
    lastReason().clear();
}

bool failed(const std::string &reason)
{
    Board::Locker lock(&reasonMutex);
    if (lastReason() != reason)
        Logging::log(Logging::LogError, "[clock] %s", reason.c_str());
    lastReason() = reason;
    return false;
}

bool chipFailed(const std::string &reason)
{
    return failed(Board::config().clockDevice + ": " + reason);
}

// The kernel lets only one have the chip open: our own threads wait for each other, other programs need a moment.
int openChip()
{
    for (int tries = 1;; ++tries) {
        const int chip = open(Board::config().clockDevice.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (chip >= 0 || errno != EBUSY || tries == mostTries)
            return chip;
        Util::delayMs(retryMs);
    }
}

// Returns 0, or an error number.
int readRegisters(rtc_time *registers)
{
    Board::Locker lock(&chipMutex);
    const int chip = openChip();
    if (chip < 0)
        return errno;
    int status;
    do
        status = ioctl(chip, RTC_RD_TIME, registers);
    while (status != 0 && errno == EINTR);
    const int error = status == 0 ? 0 : errno;
    close(chip);
    return error;
}

tm calendar(const rtc_time &registers)
{
    tm time;
    std::memset(&time, 0, sizeof(time));
    time.tm_year = registers.tm_year;
    time.tm_mon = registers.tm_mon;
    time.tm_mday = registers.tm_mday;
    time.tm_hour = registers.tm_hour;
    time.tm_min = registers.tm_min;
    time.tm_sec = registers.tm_sec;
    time.tm_isdst = -1;
    return time;
}

bool isSame(const tm &one, const tm &other)
{
    return one.tm_year == other.tm_year && one.tm_mon == other.tm_mon && one.tm_mday == other.tm_mday
            && one.tm_hour == other.tm_hour && one.tm_min == other.tm_min && one.tm_sec == other.tm_sec;
}

// What does not exist, as the 31st of February, is carried over and comes out as another one.
bool isPossible(const tm &time)
{
    tm carried = time;
    timegm(&carried);
    return isSame(time, carried);
}

}

bool Board::readClockChip(time_t *time)
{
    if (config().clockDevice.empty())
        return failed("The configuration names no clock_device");
    rtc_time registers;
    std::memset(&registers, 0, sizeof(registers));
    const int error = readRegisters(&registers);
    if (error != 0)
        return chipFailed(std::strerror(error));
    tm read = calendar(registers);
    if (!isPossible(read))
        return chipFailed("The chip has no possible time");
    if (read.tm_year + 1900 < config().clockEarliestYear)
        return chipFailed("The chip has a time before clock_earliest_year");
    const time_t found = config().clockIsLocal ? mktime(&read) : timegm(&read);
    // From 2038 on, where time_t has 32 bits.
    if (found == time_t(-1))
        return chipFailed("The chip has a time that is too late for this system");
    *time = found;
    return true;
}

int set_time()
{
    timespec wanted = {0, 0};
    if (!Board::readClockChip(&wanted.tv_sec))
        return 0;
    if (time(0) != wanted.tv_sec && clock_settime(CLOCK_REALTIME, &wanted) != 0) {
        failed(std::string("The system time cannot be set: ") + std::strerror(errno));
        return 0;
    }
    succeeded();
    return 1;
}

unsigned int get_system_tick()
{
    return static_cast<unsigned int>(Board::monotonicMs() / 1000);
}

void Util::delayMs(unsigned long ms)
{
    timespec rest;
    rest.tv_sec = time_t(ms / 1000);
    rest.tv_nsec = long(ms % 1000) * 1000000;
    while (nanosleep(&rest, &rest) != 0 && errno == EINTR) {
    }
}

struct tm *Util::localtime(long t)
{
    static __thread tm record;
    const time_t time = t;
    tzset();  // localtime_r() alone looks for the zone once only
    if (!localtime_r(&time, &record))
        std::memset(&record, 0, sizeof(record));
    return &record;
}
