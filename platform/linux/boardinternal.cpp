#include "platform/linux/boardinternal.h"

#include <cerrno>
#include <csignal>
#include <ctime>

namespace {

const long long nsPerMs = 1000000;

}

long long Board::monotonicMs()
{
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<long long>(now.tv_sec) * 1000 + now.tv_nsec / nsPerMs;
}

int Board::startThread(pthread_t *thread, void *(*run)(void *))
{
    sigset_t all;
    sigset_t callers;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &callers);
    const int error = pthread_create(thread, 0, run, 0);
    pthread_sigmask(SIG_SETMASK, &callers, 0);
    return error;
}

void Board::initialize(pthread_cond_t *condition)
{
    pthread_condattr_t attributes;
    pthread_condattr_init(&attributes);
    pthread_condattr_setclock(&attributes, CLOCK_MONOTONIC);
    pthread_cond_init(condition, &attributes);
    pthread_condattr_destroy(&attributes);
}

bool Board::waitUntil(pthread_cond_t *condition, pthread_mutex_t *mutex, long long deadline)
{
    timespec time;
    time.tv_sec = time_t(deadline / 1000);
    time.tv_nsec = long(deadline % 1000 * nsPerMs);
    return pthread_cond_timedwait(condition, mutex, &time) != ETIMEDOUT;
}
