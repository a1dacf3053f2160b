#ifndef BOARDINTERNAL_H
#define BOARDINTERNAL_H

#include "platform/linux/boardconfig.h"

#include <pthread.h>

namespace Board {

/// The configuration without a word about its bad lines, for the log itself.
const Config &silentConfig();

/// Milliseconds of the clock that nobody sets.
long long monotonicMs();

/// Starts a thread that gets none of the process's signals. Returns 0, or an error number.
int startThread(pthread_t *thread, void *(*run)(void *));

/// Initialises \a condition so that waitUntil() can be used with it.
void initialize(pthread_cond_t *condition);

/// Waits for \a condition until \a deadline, in milliseconds of monotonicMs(). Returns false when that has come.
bool waitUntil(pthread_cond_t *condition, pthread_mutex_t *mutex, long long deadline);

/// Sends \a message to systemd, in the form of sd_notify(3). Returns false as tellStarted() does
/// (platform/linux/boardservice.h).
bool tellService(const char *message);

/// The milliseconds after which systemd takes this process for dead unless it is told otherwise, or 0 where it does not
/// watch it.
long long serviceTimeoutMs();

/// Holds a mutex while it lives.
class Locker
{
public:
    explicit Locker(pthread_mutex_t *mutex) : m_mutex(mutex) { pthread_mutex_lock(m_mutex); }
    ~Locker() { pthread_mutex_unlock(m_mutex); }

private:
    Locker(const Locker &);
    Locker &operator=(const Locker &);

    pthread_mutex_t *m_mutex;
};

}

#endif
