#ifndef AUDIOOUTPUT_H
#define AUDIOOUTPUT_H

#include <cstdint>
#include <vector>

namespace Desktop {

/// The PC's loudspeaker. Opening and destroying may take a while, so one background thread does it all.
class AudioOutput
{
public:
    /// Gives up the PC's audio service.
    ~AudioOutput();

    /// Returns false, without a word on standard error, where the PC cannot play.
    bool open();

    /// Starts the \a samples (platform/common/tones.h) at once, in place of what is still playing.
    void play(const std::vector<std::int16_t> &samples);

    /// Stops playing and closes the device. Takes some 20 ms.
    void close();

private:
    unsigned int m_device = 0;
};

}

#endif
