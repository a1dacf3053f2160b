#ifndef DESKTOPSOUND_H
#define DESKTOPSOUND_H

#include <cstddef>
#include <functional>
#include <vector>

/// What a PC adds to the sound service (platform/soundmanager.h). Callable from any thread.
///
/// The first sound opens the PC's audio in the background. A sound takes the place of the one still playing. Where the
/// PC cannot play, or is muted, sounds are counted all the same.
namespace Desktop {

/// Mutes or unmutes the PC; not muted at start. While muted, the audio is not opened either.
void setMuted(bool muted);
bool isMuted();

/// The ids of the last sounds, newest last, at most 32.
std::vector<int> recentSounds();

/// How many sounds there have been since the start of the process.
std::size_t soundCount();

/// Is called with the id of each sound, by the thread that plays it, one at a time. It must not play itself. Once
/// setSoundListener() has returned, the earlier one is not called any more. None at start; a null one is none.
using SoundListener = std::function<void(int id)>;
void setSoundListener(SoundListener listener);

}

#endif
