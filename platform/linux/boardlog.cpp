#include "platform/linux/boardlog.h"

#include "platform/linux/boardinternal.h"
#include "platform/logging.h"

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <string>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <syslog.h>
#include <unistd.h>
#include <vector>

namespace {

const std::size_t longestMessage = 8000;
const std::size_t shortMessage = 900;  // for a socket with little room

int shownLevel = Logging::LogError;
pthread_once_t levelOnce = PTHREAD_ONCE_INIT;

pthread_mutex_t sinkMutex = PTHREAD_MUTEX_INITIALIZER;
int sink = -1;
unsigned long lostLines = 0;
bool errorsEndInALine = false;  // that was cut

void readLevel()
{
    shownLevel = Board::silentConfig().logLevel;
    const char *text = std::getenv("WIDGET_LOG_LEVEL");
    if (!text)
        return;
    char *end = 0;
    const long level = std::strtol(text, &end, 10);
    if (end != text && *end == '\0' && level >= 0 && level <= 1000)
        shownLevel = int(level);
}

std::string number(unsigned long value)
{
    char text[24];
    snprintf(text, sizeof(text), "%lu", value);
    return text;
}

std::string levelName(int level)
{
    switch (level) {
    case Logging::LogError:
        return "error";
    case Logging::LogTrace:
        return "trace";
    case Logging::LogNotice:
        return "notice";
    }
    return number(static_cast<unsigned long>(level));
}

int priority(int level)
{
    const int severity = level <= Logging::LogError ? LOG_ERR : level <= Logging::LogTrace ? LOG_DEBUG : LOG_NOTICE;
    return Board::silentConfig().logFacility | severity;
}

// As syslog wants it, in English whatever the locale is.
std::string timeStamp()
{
    static const char *const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const time_t now = time(0);
    tm local;
    std::memset(&local, 0, sizeof(local));
    localtime_r(&now, &local);
    char text[40];
    snprintf(text, sizeof(text), "%s %2d %02d:%02d:%02d", months[local.tm_mon], local.tm_mday, local.tm_hour,
                  local.tm_min, local.tm_sec);
    return text;
}

std::string programName()
{
    const std::string &configured = Board::silentConfig().logName;
    return (configured.empty() ? std::string(program_invocation_short_name) : configured)
            + '[' + number(static_cast<unsigned long>(getpid())) + "]: ";
}

std::string threadName()
{
    char name[17] = "";
    prctl(PR_GET_NAME, reinterpret_cast<unsigned long>(name), 0, 0, 0);
    return std::string(name) + '#' + number(static_cast<unsigned long>(syscall(SYS_gettid)));
}

std::string formatted(const char *format, va_list arguments)
{
    va_list again;
    __va_copy(again, arguments);  // va_copy() is newer than C++98
    const int length = vsnprintf(0, 0, format, arguments);
    std::string text(format);
    if (length >= 0) {
        std::vector<char> room(std::size_t(length) + 1);
        vsnprintf(&room[0], room.size(), format, again);
        text = &room[0];
    }
    va_end(again);
    return text;
}

void makeOneLine(std::string *text)
{
    while (!text->empty() && (*text)[text->size() - 1] == '\n')
        text->erase(text->size() - 1);
    for (std::size_t i = 0; i < text->size(); ++i) {
        const unsigned char c = static_cast<unsigned char>((*text)[i]);
        if (c < ' ' || c == 0x7f)
            (*text)[i] = ' ';
    }
}

std::string shortened(const std::string &text, std::size_t longest)
{
    return text.size() <= longest ? text : text.substr(0, longest - 3) + "...";
}

void disconnect()
{
    if (sink >= 0)
        close(sink);
    sink = -1;
}

bool connectSink()
{
    const std::string &path = Board::silentConfig().logDevice;
    sockaddr_un address;
    std::memset(&address, 0, sizeof(address));
    if (path.size() >= sizeof(address.sun_path))
        return false;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    sink = socket(AF_UNIX, SOCK_DGRAM, 0);
    if (sink < 0)
        return false;
    fcntl(sink, F_SETFD, FD_CLOEXEC);
    if (connect(sink, reinterpret_cast<sockaddr *>(&address), sizeof(address)) == 0)
        return true;
    disconnect();
    return false;
}

enum Outcome { Taken, Full, Nobody };

Outcome trySend(const std::string &message)
{
    const std::string *text = &message;
    std::string cut;
    for (;;) {
        if (send(sink, text->data(), text->size(), MSG_DONTWAIT | MSG_NOSIGNAL) >= 0)
            return Taken;
        if (errno == EINTR)
            continue;
        if (errno == EMSGSIZE && text->size() > shortMessage) {
            cut = shortened(message, shortMessage);
            text = &cut;
            continue;
        }
        return errno == EAGAIN || errno == EWOULDBLOCK || errno == ENOBUFS || errno == EMSGSIZE ? Full : Nobody;
    }
}

Outcome sendToSyslog(const std::string &message)
{
    if (sink >= 0) {
        const Outcome outcome = trySend(message);
        if (outcome != Nobody)
            return outcome;
        disconnect();
    }
    return connectSink() ? trySend(message) : Nobody;
}

// What a pipe takes at once it takes whole, and a pipe that is ready takes as much as that. A disk may take a part.
Outcome writeToErrors(const std::string &message)
{
    const std::string line = (errorsEndInALine ? "\n" : "") + shortened(message, PIPE_BUF - 2) + '\n';
    pollfd errors = {STDERR_FILENO, POLLOUT, 0};
    if (poll(&errors, 1, 0) != 1 || errors.revents != POLLOUT)
        return Full;
    ssize_t written;
    do
        written = write(STDERR_FILENO, line.data(), line.size());
    while (written < 0 && errno == EINTR);
    if (written > 0)
        errorsEndInALine = line[std::size_t(written) - 1] != '\n';
    return written == ssize_t(line.size()) ? Taken : Full;
}

// With the mutex.
bool put(int level, const std::string &text)
{
    char header[16];
    snprintf(header, sizeof(header), "<%d>", priority(level));
    const std::string stamped = timeStamp() + ' ' + programName() + text;
    Outcome outcome = sendToSyslog(header + stamped);
    if (outcome == Nobody)
        outcome = writeToErrors(stamped);
    return outcome == Taken;
}

std::string withOrigin(int level, const std::string &message)
{
    return levelName(level) + ' ' + threadName() + "  " + message;
}

void putWithLosses(int level, const std::string &text)
{
    if (lostLines > 0) {
        const std::string count = "[log] " + number(lostLines) + (lostLines == 1 ? " line was lost" : " lines were lost");
        if (put(Logging::LogError, withOrigin(Logging::LogError, count)))
            lostLines = 0;
    }
    if (!put(level, text))
        ++lostLines;
}

}

void Logging::log(LogLevel level, const char *format, ...)
{
    const int callersErrno = errno;
    Board::config();  // what it says of its bad lines comes first
    if (int(level) <= Board::logLevel()) {
        va_list arguments;
        va_start(arguments, format);
        std::string message = formatted(format, arguments);
        va_end(arguments);
        makeOneLine(&message);
        const std::string text = withOrigin(level, shortened(message, longestMessage));

        Board::Locker lock(&sinkMutex);
        putWithLosses(level, text);
    }
    errno = callersErrno;
}

void Board::setLogLevel(int level)
{
    logLevel();
    __sync_lock_test_and_set(&shownLevel, level);
}

int Board::logLevel()
{
    pthread_once(&levelOnce, readLevel);
    return __sync_fetch_and_add(&shownLevel, 0);
}
