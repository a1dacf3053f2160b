#ifndef SIMULATEDTIME_H
#define SIMULATEDTIME_H

#include "recordingplatform.h"
#include "waiting.h"

#include <QByteArray>
#include <QThread>

#include <cerrno>
#include <ctime>
#include <list>
#include <mutex>
#include <semaphore.h>
#include <thread>

/// A time in which update threads sleep. It stands still while one of them works and goes on when the test says so, to
/// the moment at which the first of them wakes up; only that one works then, up to its next sleep. So it does not matter
/// how fast the machine is, and the same happens in every run.
///
/// The thread that makes the object is the test's. When it sleeps itself, as in stop(), time goes on for the others.
/// Make it when no update thread runs, and have them stopped when it goes.
class SimulatedTime
{
    // Not a condition variable: the C library may lose one wakening in some millions of them.
    class Semaphore
    {
    public:
        Semaphore() { sem_init(&m_semaphore, 0, 0); }
        ~Semaphore() { sem_destroy(&m_semaphore); }
        Semaphore(const Semaphore &) = delete;
        Semaphore &operator=(const Semaphore &) = delete;

        void release() { sem_post(&m_semaphore); }

        bool acquire()
        {
            timespec end;
            clock_gettime(CLOCK_REALTIME, &end);
            end.tv_sec += LongestWait / 1000;
            int result;
            do {
                result = sem_timedwait(&m_semaphore, &end);
            } while (result == -1 && errno == EINTR);
            return result == 0;
        }

    private:
        sem_t m_semaphore;
    };

public:
    /// What is known of a thread that has started.
    struct Sleeper
    {
        QByteArray name;           ///< of its class
        qint64 passes = 0;
        qint64 unfedPasses = 0;    ///< those without exactly one kick of the watchdog
        qint64 processorTime = 0;  ///< in nanoseconds, for its passes and what they call in the platform

    private:
        friend class SimulatedTime;
        std::thread::id id;
        Semaphore waking;
        bool awake = true;
        bool ended = false;
        qint64 wakesAt = 0;
        int kicks = 0;
        qint64 awakeSince = 0;
    };

    SimulatedTime()
    {
        RecordingPlatform::reset();
        RecordingPlatform::setRecording(false);
        RecordingPlatform::setSleeping(false);
        Shared *const shared = &m_shared;
        RecordingPlatform::setWatchdogHook([shared](const QString &operation) { shared->feed(operation); });
        RecordingPlatform::setDelayHook([shared](unsigned long ms) { shared->sleep(ms); });
    }

    ~SimulatedTime()
    {
        RecordingPlatform::reset();
    }

    /// The milliseconds since the object was made.
    qint64 now() const
    {
        const std::lock_guard<std::mutex> lock(m_shared.mutex);
        return m_shared.now;
    }

    /// A sleep that begins from now on takes \a factor times as long; once at first.
    void setScale(int factor)
    {
        const std::lock_guard<std::mutex> lock(m_shared.mutex);
        m_shared.scale = factor;
    }

    /// Returns when \a threads have started and made their first pass, or false.
    bool awaitThreads(int threads)
    {
        std::unique_lock<std::mutex> lock(m_shared.mutex);
        return m_shared.wait(lock, [this, threads] {
            return m_shared.runningThreads() == threads && m_shared.allAsleep();
        });
    }

    /// The moment at which the next thread wakes up.
    qint64 nextWaking() const
    {
        const std::lock_guard<std::mutex> lock(m_shared.mutex);
        const Sleeper *const next = m_shared.next();
        return next ? next->wakesAt : m_shared.now;
    }

    /// Has time go on to the next waking, and that thread make its pass. What is known of it then, or null.
    const Sleeper *makePass()
    {
        std::unique_lock<std::mutex> lock(m_shared.mutex);
        return m_shared.makePass(lock);
    }

private:
    struct Shared
    {
        const std::thread::id own = std::this_thread::get_id();
        std::mutex mutex;
        Semaphore changed;
        std::list<Sleeper> sleepers;
        qint64 now = 0;
        int scale = 1;

        static qint64 processorTime()
        {
            timespec time;
            clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
            return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
        }

        /// In the test's thread: until \a condition holds, which may be from the next change on.
        template <typename Condition>
        bool wait(std::unique_lock<std::mutex> &lock, Condition condition)
        {
            bool changes = true;
            while (changes && !condition()) {
                lock.unlock();
                changes = changed.acquire();
                lock.lock();
            }
            return condition();
        }

        Sleeper *sleeperOfThisThread()
        {
            for (Sleeper &sleeper : sleepers) {
                if (sleeper.id == std::this_thread::get_id() && !sleeper.ended)
                    return &sleeper;
            }
            return nullptr;
        }

        int runningThreads() const
        {
            int running = 0;
            for (const Sleeper &sleeper : sleepers)
                running += !sleeper.ended;
            return running;
        }

        bool allAsleep() const
        {
            for (const Sleeper &sleeper : sleepers) {
                if (sleeper.awake)
                    return false;
            }
            return true;
        }

        Sleeper *next()
        {
            Sleeper *next = nullptr;
            for (Sleeper &sleeper : sleepers) {
                if (!sleeper.ended && (!next || sleeper.wakesAt < next->wakesAt))
                    next = &sleeper;
            }
            return next;
        }

        void feed(const QString &operation)
        {
            const std::lock_guard<std::mutex> lock(mutex);
            if (operation == QLatin1String("start")) {
                sleepers.emplace_back();
                sleepers.back().name = QThread::currentThread()->metaObject()->className();
                sleepers.back().id = std::this_thread::get_id();
                sleepers.back().awakeSince = processorTime();
                return;
            }
            Sleeper *const sleeper = sleeperOfThisThread();
            if (!sleeper)
                return;
            if (operation == QLatin1String("kick")) {
                ++sleeper->kicks;
            } else {
                sleeper->awake = false;
                sleeper->ended = true;
                changed.release();
            }
        }

        void sleep(unsigned long ms)
        {
            const qint64 workedUntil = processorTime();
            std::unique_lock<std::mutex> lock(mutex);
            const qint64 end = now + qint64(ms) * scale;
            if (std::this_thread::get_id() == own) {
                // A thread that was started is on its way.
                wait(lock, [this] { return allAsleep(); });
                for (Sleeper *sleeper = next(); sleeper && sleeper->wakesAt <= end; sleeper = next()) {
                    if (!makePass(lock))
                        break;
                }
                now = end;
                return;
            }
            Sleeper *const sleeper = sleeperOfThisThread();
            sleeper->processorTime += workedUntil - sleeper->awakeSince;
            ++sleeper->passes;
            sleeper->unfedPasses += sleeper->kicks != 1;
            sleeper->kicks = 0;
            sleeper->wakesAt = end;
            sleeper->awake = false;
            changed.release();
            lock.unlock();
            sleeper->waking.acquire();
            sleeper->awakeSince = processorTime();
        }

        const Sleeper *makePass(std::unique_lock<std::mutex> &lock)
        {
            Sleeper *const sleeper = next();
            if (!sleeper)
                return nullptr;
            now = qMax(now, sleeper->wakesAt);
            sleeper->awake = true;
            sleeper->waking.release();
            return wait(lock, [sleeper] { return !sleeper->awake; }) ? sleeper : nullptr;
        }
    };

    mutable Shared m_shared;
};

#endif
