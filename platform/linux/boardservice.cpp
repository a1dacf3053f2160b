#include "platform/linux/boardservice.h"

#include "platform/linux/boardinternal.h"
#include "platform/logging.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

pthread_mutex_t sendMutex = PTHREAD_MUTEX_INITIALIZER;
int lastError = 0;

// A path, or a name that starts with @ and is no file.
const char *socketName()
{
    const char *name = std::getenv("NOTIFY_SOCKET");
    return name && (*name == '/' || *name == '@') ? name : "";
}

// Returns 0, or an error number. Never waits.
int send(const std::string &message)
{
    const std::string name = socketName();
    sockaddr_un address;
    std::memset(&address, 0, sizeof(address));
    if (name.size() >= sizeof(address.sun_path))
        return ENAMETOOLONG;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.data(), name.size());
    if (name[0] == '@')
        address.sun_path[0] = '\0';
    const int descriptor = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0)
        return errno;
    const socklen_t length = socklen_t(offsetof(sockaddr_un, sun_path) + name.size());
    const bool isSent = sendto(descriptor, message.data(), message.size(), MSG_DONTWAIT | MSG_NOSIGNAL,
                               reinterpret_cast<sockaddr *>(&address), length) >= 0;
    const int error = isSent ? 0 : errno;
    close(descriptor);
    return error;
}

int terminationPipe[2] = {-1, -1};

// Of a signal, so it does no more than this.
void terminate(int)
{
    const int callersErrno = errno;
    const ssize_t written = write(terminationPipe[1], "", 1);
    static_cast<void>(written);  // a full pipe has told of it already
    errno = callersErrno;
}

bool makeTerminationPipe()
{
    if (pipe(terminationPipe) != 0)
        return false;
    for (int end = 0; end < 2; ++end) {
        fcntl(terminationPipe[end], F_SETFD, FD_CLOEXEC);
        fcntl(terminationPipe[end], F_SETFL, O_NONBLOCK);
    }
    return true;
}

}

bool Board::tellService(const char *message)
{
    if (!*socketName())
        return false;
    Locker lock(&sendMutex);
    const int error = send(message);
    if (error != 0 && error != lastError)
        Logging::log(Logging::LogError, "[service] systemd cannot be told \"%s\": %s", message, std::strerror(error));
    lastError = error;
    return error == 0;
}

bool Board::tellStarted()
{
    return tellService("READY=1");
}

void Board::quitOnTermination()
{
    if (terminationPipe[0] >= 0)
        return;
    if (!makeTerminationPipe()) {
        Logging::log(Logging::LogError, "[service] Signals end the program at once: %s", std::strerror(errno));
        return;
    }
    QObject *notifier = new QSocketNotifier(terminationPipe[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, SIGNAL(activated(int)), qApp, SLOT(quit()));
    struct sigaction action;
    std::memset(&action, 0, sizeof(action));
    action.sa_handler = terminate;
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, 0);
    sigaction(SIGINT, &action, 0);
    // That of a terminal that goes, which nohup has ignored.
    struct sigaction before;
    if (sigaction(SIGHUP, 0, &before) == 0 && before.sa_handler != SIG_IGN)
        sigaction(SIGHUP, &action, 0);
}

long long Board::serviceTimeoutMs()
{
    const char *time = std::getenv("WATCHDOG_USEC");
    const char *process = std::getenv("WATCHDOG_PID");
    if (!*socketName() || !time || (process && std::strtol(process, 0, 10) != long(getpid())))
        return 0;
    const long us = std::strtol(time, 0, 10);
    return us <= 0 ? 0 : us < 1000 ? 1 : us / 1000;
}
