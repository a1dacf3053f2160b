// The kernel's side of the devices in linuxdevices.h: takes the place of functions of the system's library in the program
// that it is linked with, and for the libraries that this loads. A library that is loaded before all others would do the
// same, but the sanitizers want to be that one.

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <fstream>
#include <linux/input.h>
#include <linux/rtc.h>
#include <linux/watchdog.h>
#include <sstream>
#include <string>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

const unsigned int InputMajor = 13;

std::string directory()
{
    const char *path = std::getenv("WIDGET_TEST_DEVICES");
    return path ? path : "";
}

// The name of the device at \a path, or nothing for what is none of ours.
std::string deviceAt(const std::string &path)
{
    const std::string ours = directory();
    const bool isOurs = !ours.empty() && path.compare(0, ours.size(), ours) == 0;
    return isOurs ? path.substr(ours.size()) : std::string();
}

std::string deviceOf(int descriptor)
{
    char path[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), path, sizeof(path));
    return length < 0 ? std::string() : deviceAt(std::string(path, std::size_t(length)));
}

bool hasState(const std::string &device)
{
    return access((directory() + "state/" + device).c_str(), F_OK) == 0;
}

// What stands in the state behind \a word; \a found says whether it is there.
std::string state(const std::string &device, const std::string &word, bool *found = nullptr)
{
    std::ifstream stream(directory() + "state/" + device);
    std::string line;
    while (std::getline(stream, line)) {
        if (line.compare(0, word.size(), word) != 0)
            continue;
        if (found)
            *found = true;
        return line.substr(word.size());
    }
    return std::string();
}

bool isRefused(const std::string &device)
{
    bool found = false;
    state(device, "refuse", &found);
    return found;
}

void record(const std::string &line)
{
    const int file = open((directory() + "requests").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    const std::string whole = line + '\n';
    if (write(file, whole.data(), whole.size()) < 0)
        std::abort();
    close(file);
}

int failure(int error)
{
    errno = error;
    return -1;
}

int watchdog(const std::string &device, unsigned long request, int *seconds)
{
    const std::string fixed = state(device, "seconds ");
    if (request == WDIOC_SETTIMEOUT) {
        record(device + " WDIOC_SETTIMEOUT " + std::to_string(*seconds));
        if (isRefused(device))
            return failure(EOPNOTSUPP);
        if (!fixed.empty())
            *seconds = std::stoi(fixed);
        return 0;
    }
    if (request == WDIOC_GETTIMEOUT && !fixed.empty()) {
        *seconds = std::stoi(fixed);
        return 0;
    }
    return failure(ENOTTY);
}

int chip(const std::string &device, unsigned long request, rtc_time *registers)
{
    static std::atomic<bool> isInterrupted(false);
    if (request != RTC_RD_TIME || !hasState(device))
        return failure(EIO);
    if (hasState("interrupt") && !isInterrupted.exchange(true))
        return failure(EINTR);
    usleep(1000);  // behind a slow bus
    const std::string text = state(device, "");
    if (text == "now") {
        const time_t now = time(nullptr);
        tm time;
        gmtime_r(&now, &time);
        *registers = {time.tm_sec, time.tm_min, time.tm_hour, time.tm_mday, time.tm_mon, time.tm_year, 0, 0, 0};
        return 0;
    }
    *registers = {};
    std::sscanf(text.c_str(), "%d-%d-%d %d:%d:%d", &registers->tm_year, &registers->tm_mon, &registers->tm_mday,
                &registers->tm_hour, &registers->tm_min, &registers->tm_sec);
    registers->tm_year -= 1900;
    registers->tm_mon -= 1;
    return 0;
}

void setBits(const std::string &numbers, unsigned char *bits, std::size_t size)
{
    std::istringstream stream(numbers);
    for (std::size_t number; stream >> number;) {
        if (number / 8 < size)
            bits[number / 8] = static_cast<unsigned char>(bits[number / 8] | 1u << number % 8);
    }
}

int input(const std::string &device, unsigned long request, void *argument)
{
    const std::size_t size = _IOC_SIZE(request);
    const unsigned int number = _IOC_NR(request);
    if (request == EVIOCGRAB) {
        record(device + " EVIOCGRAB " + std::to_string(reinterpret_cast<unsigned long>(argument)));
        return isRefused(device) ? failure(EBUSY) : 0;
    }
    if (_IOC_TYPE(request) != 'E')
        return failure(ENOTTY);
    if (_IOC_DIR(request) != _IOC_READ)
        return 0;
    std::memset(argument, 0, size);
    unsigned char *bits = static_cast<unsigned char *>(argument);
    if (number == _IOC_NR(EVIOCGNAME(0))) {
        const std::string name = state(device, "name ");
        std::strncpy(static_cast<char *>(argument), name.c_str(), size - 1);
        return int(name.size()) + 1;
    }
    if (number == _IOC_NR(EVIOCGPHYS(0)) || number == _IOC_NR(EVIOCGUNIQ(0)))
        return failure(ENOENT);
    if (number == _IOC_NR(EVIOCGBIT(0, 0)))
        setBits("0 1", bits, size);  // EV_SYN, EV_KEY
    else if (number == _IOC_NR(EVIOCGBIT(EV_KEY, 0)))
        setBits(state(device, "keys "), bits, size);
    else if (number == _IOC_NR(EVIOCGKEY(0)))
        setBits(state(device, "held "), bits, size);
    return 0;
}

// Of the kernel's chips, one at a time can be open.
int openedChip(int chip)
{
    static std::atomic<int> openings(0);
    const std::string taken = state("taken", "");
    const bool isFree = taken.empty() || openings++ >= std::stoi(taken);
    if (isFree && flock(chip, LOCK_EX | LOCK_NB) == 0)
        return chip;
    record("rtc taken");
    close(chip);
    return failure(EBUSY);
}

}

extern "C" __attribute__((visibility("default"))) int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const bool makesFile = flags & O_CREAT || (flags & O_TMPFILE) == O_TMPFILE;
    const mode_t mode = makesFile ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    const int descriptor = openat(AT_FDCWD, path, flags, mode);
    return descriptor >= 0 && deviceAt(path).compare(0, 3, "rtc") == 0 ? openedChip(descriptor) : descriptor;
}

extern "C" __attribute__((visibility("default"))) int ioctl(int descriptor, unsigned long request, ...) noexcept
{
    va_list arguments;
    va_start(arguments, request);
    void *argument = va_arg(arguments, void *);
    va_end(arguments);

    const std::string device = deviceOf(descriptor);
    if (device.compare(0, 8, "watchdog") == 0)
        return watchdog(device, request, static_cast<int *>(argument));
    if (device.compare(0, 3, "rtc") == 0)
        return chip(device, request, static_cast<rtc_time *>(argument));
    if (device.compare(0, 5, "event") == 0)
        return input(device, request, argument);
    using Ioctl = int (*)(int, unsigned long, ...);
    static const Ioctl real = reinterpret_cast<Ioctl>(dlsym(RTLD_NEXT, "ioctl"));
    const int answer = real(descriptor, request, argument);
    // QEMU does not say what the kernel says of requests that it does not know.
    return answer < 0 && errno == ENOSYS ? failure(ENOTTY) : answer;
}

// Nobody serves the syslog of this machine, whether it has one or not.
extern "C" __attribute__((visibility("default"))) int connect(int descriptor, const sockaddr *address, socklen_t length)
{
    if (!directory().empty() && address->sa_family == AF_UNIX
            && std::strcmp(reinterpret_cast<const sockaddr_un *>(address)->sun_path, "/dev/log") == 0)
        return failure(ENOENT);
    using Connect = int (*)(int, const sockaddr *, socklen_t);
    static const Connect real = reinterpret_cast<Connect>(dlsym(RTLD_NEXT, "connect"));
    return real(descriptor, address, length);
}

extern "C" __attribute__((visibility("default"))) int clock_settime(clockid_t, const timespec *time) noexcept
{
    if (directory().empty() || hasState("clock"))
        return failure(EPERM);
    record("clock_settime " + std::to_string(time->tv_sec));
    return 0;
}

// Older ones have it in the header.
#if !defined(__GLIBC__) || __GLIBC_PREREQ(2, 33)
extern "C" __attribute__((visibility("default"))) int stat(const char *path, struct stat *status) noexcept
{
    const int answer = fstatat(AT_FDCWD, path, status, 0);
    const std::string device = answer == 0 ? deviceAt(path) : std::string();
    if (device.empty())
        return answer;
    const std::string number = state(device, "number ");
    if (!number.empty())
        status->st_rdev = makedev(InputMajor, unsigned(std::stoi(number)));
    const std::string node = state(device, "inode ");
    if (!node.empty())
        status->st_ino = ino_t(std::stoi(node));
    return answer;
}
#endif
