#ifndef SOUNDCARD_H
#define SOUNDCARD_H

#include <string>
#include <vector>

namespace Board {

/// A sound card. All operations but the constructor may take a while, so one background thread does them.
class SoundCard
{
public:
    /// Whether this program was built to play at all.
    static bool isBuilt();

    SoundCard();
    ~SoundCard();

    bool isOpen() const;

    /// Opens \a device for one channel. Where it cannot, says why in \a problem.
    bool open(const std::string &device, std::string *problem);

    /// Starts the \a samples (platform/common/tones.h), in place of what is still playing. Where it cannot, says why in
    /// \a problem and closes the card.
    bool play(const std::vector<short> &samples, std::string *problem);

    /// Ends what is playing.
    void stop();

    void close();

private:
    SoundCard(const SoundCard &);
    SoundCard &operator=(const SoundCard &);

    void *m_handle;
};

}

#endif
