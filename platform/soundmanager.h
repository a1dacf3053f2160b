#ifndef PLATFORM_SOUNDMANAGER_H
#define PLATFORM_SOUNDMANAGER_H

#include "platform/api.h"

/// The device's sound service. Widgets hold a pointer to it and never create or delete one.
class PLATFORM_API SoundManager
{
public:
    /// The sound service of the process; never null.
    static SoundManager *getInstance();

    /// Starts the sound \a id and returns at once: 901 is the key click, 920 to 929 are the digits 0 to 9.
    void sndPlay(int id);
};

#endif
