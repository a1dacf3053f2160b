#include "platform/desktop/desktoplog.h"

#include "platform/logging.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <deque>
#include <mutex>
#include <pthread.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::size_t recentMaximum = 100;

int levelFromEnvironment()
{
    const char *text = std::getenv("WIDGET_LOG_LEVEL");
    if (!text)
        return Logging::LogError;
    char *end = nullptr;
    const long level = std::strtol(text, &end, 10);
    const bool isNumber = end != text && *end == '\0' && level >= 0 && level <= 1000;
    return isNumber ? int(level) : int(Logging::LogError);
}

std::atomic<int> &shownLevel()
{
    static std::atomic<int> level(levelFromEnvironment());
    return level;
}

struct Sink
{
    std::mutex mutex;
    std::deque<std::string> recent;
    Desktop::LogListener listener;
};

Sink &sink()
{
    // Never destroyed: other threads may still log while the process exits.
    static Sink *sink = new Sink;
    return *sink;
}

std::string levelName(int level)
{
    switch (level) {
    case Logging::LogError:
        return "error ";
    case Logging::LogTrace:
        return "trace ";
    case Logging::LogNotice:
        return "notice";
    }
    return std::to_string(level);
}

std::string timeOfDay()
{
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    tm local = {};
    localtime_r(&now.tv_sec, &local);
    char text[32];
    const std::size_t length = std::strftime(text, sizeof(text), "%H:%M:%S", &local);
    std::snprintf(text + length, sizeof(text) - length, ".%03d", int(now.tv_nsec / 1000000));
    return text;
}

std::string threadName()
{
    static std::atomic<int> threads(0);
    thread_local const int number = ++threads;
    char name[64] = "";
    pthread_getname_np(pthread_self(), name, sizeof(name));
    return std::string(name) + '#' + std::to_string(number);
}

std::string formatted(const char *format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    std::string text(format);
    if (length >= 0) {
        text.resize(std::size_t(length) + 1);
        std::vsnprintf(&text[0], text.size(), format, again);
        text.pop_back();
    }
    va_end(again);
    return text;
}

void writeWhole(const std::string &text)
{
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t written = ::write(STDERR_FILENO, text.data() + done, text.size() - done);
        if (written >= 0)
            done += std::size_t(written);
        else if (errno != EINTR)
            return;
    }
}

}

void Logging::log(LogLevel level, const char *format, ...)
{
    if (int(level) > shownLevel().load(std::memory_order_relaxed))
        return;

    const int callersErrno = errno;
    va_list arguments;
    va_start(arguments, format);
    const std::string line = timeOfDay() + ' ' + levelName(level) + ' ' + threadName() + "  "
            + formatted(format, arguments);
    va_end(arguments);

    {
        Sink &out = sink();
        std::lock_guard<std::mutex> lock(out.mutex);
        out.recent.push_back(line);
        if (out.recent.size() > recentMaximum)
            out.recent.pop_front();
        writeWhole(line + '\n');
        if (out.listener)
            out.listener(level, line);
    }
    errno = callersErrno;
}

void Desktop::setLogLevel(int level)
{
    shownLevel() = level;
}

int Desktop::logLevel()
{
    return shownLevel();
}

std::vector<std::string> Desktop::recentLogLines()
{
    std::lock_guard<std::mutex> lock(sink().mutex);
    return std::vector<std::string>(sink().recent.begin(), sink().recent.end());
}

void Desktop::setLogListener(LogListener listener)
{
    std::lock_guard<std::mutex> lock(sink().mutex);
    std::swap(sink().listener, listener);
}
