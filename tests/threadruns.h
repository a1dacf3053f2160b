#ifndef THREADRUNS_H
#define THREADRUNS_H

#include "recordingplatform.h"
#include "widgetclock.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

/// Runs the body of an update thread right here, without real pauses, and has it stop after \a passes. In the pause
/// after each pass but the last, \a pause gets the number of passes made so far.
template <typename UpdateThread>
void runPasses(UpdateThread &thread, int passes, std::function<void(int)> pause = nullptr)
{
    int made = 0;
    RecordingPlatform::setSleeping(false);
    RecordingPlatform::setDelayHook([&](unsigned long) {
        if (++made == passes)
            thread.m_stop = true;
        else if (pause)
            pause(made);
    });
    thread.run();
    RecordingPlatform::setDelayHook(nullptr);
}

/// Has the process remember this time as the last one that a clock has reported.
inline void rememberTime(int hour, int minute, int second)
{
    // What an earlier test has hooked in may be gone.
    RecordingPlatform::reset();
    RecordingPlatform::setLocalTime(2024, 3, 7, hour, minute, second);
    ClockUpdateThread thread;
    thread.timeFormat(true);
    runPasses(thread, 1);
}

/// Counts the passes that update threads make from now on.
class PassCount
{
public:
    PassCount()
    {
        const std::shared_ptr<Counted> counted = m_counted;
        const std::thread::id own = std::this_thread::get_id();
        RecordingPlatform::setDelayHook([counted, own](unsigned long) {
            const std::lock_guard<std::mutex> lock(counted->mutex);
            if (std::this_thread::get_id() != own)
                ++counted->passes[std::this_thread::get_id()];
        });
    }

    /// Whether \a threads threads have made \a passes each.
    bool reached(int threads, int passes) const
    {
        const std::lock_guard<std::mutex> lock(m_counted->mutex);
        int there = 0;
        for (const auto &thread : m_counted->passes)
            there += thread.second >= passes;
        return there >= threads;
    }

private:
    struct Counted
    {
        std::mutex mutex;
        std::map<std::thread::id, int> passes;
    };
    // The threads may still be in it when the count is gone.
    const std::shared_ptr<Counted> m_counted = std::make_shared<Counted>();
};

/// From the third pass on, keeps an update thread in its pause until the calling thread makes one, as stop() does.
inline void holdThirdPass()
{
    struct State
    {
        std::atomic<int> passes{0};
        std::atomic<bool> stopWaits{false};
    };
    const auto state = std::make_shared<State>();
    const std::thread::id own = std::this_thread::get_id();
    RecordingPlatform::setDelayHook([state, own](unsigned long) {
        if (std::this_thread::get_id() == own)
            state->stopWaits = true;
        else if (++state->passes >= 3)
            for (int i = 0; i < 10000 && !state->stopWaits; ++i)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
    });
}

/// Starts a clock or date widget, and stops it at the end of its own life.
template <typename UpdatedWidget>
class Run
{
public:
    explicit Run(UpdatedWidget &widget)
        : m_widget(widget)
    {
        m_widget.start();
    }

    ~Run()
    {
        m_widget.stop();
    }

private:
    UpdatedWidget &m_widget;
};

#endif
