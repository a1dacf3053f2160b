#ifndef THREADRUNS_H
#define THREADRUNS_H

#include "recordingplatform.h"

#include <functional>

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
