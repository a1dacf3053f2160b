#ifndef BOARDSOUND_H
#define BOARDSOUND_H

/// What a board adds to the sound service (platform/soundmanager.h). Callable from any thread.
///
/// Sounds are made by the program and played through ALSA, on "sound_device" of the configuration and as loud as
/// "sound_volume": a click for 901, a lower one for 872, the dialling tones of the digits 0 to 9 for 920 to 929, and a low,
/// soft blip for every other id.
///
/// Playing never waits for the card: a thread of its own plays what is in a queue. A sound that waits there ends the one
/// that is heard, once that was for 20 ms. The queue holds 8; where a card does not keep up, the oldest are left out.
///
/// The first sound opens the card. Where there is none, or it is taken, sounds are silent; the reason is logged at level
/// 2, once until it is another one: "[sound] default: No such file or directory". It is tried again by a sound that comes
/// five seconds later or more. At exit the sound that plays gets at most 200 ms.
///
/// Built without ALSA's headers, and with "sound_device = none" or "sound_volume = 0", the board is silent without a word.
namespace Board {

/// Mutes or unmutes the board; not muted at start. While muted, the card is not opened either.
void setMuted(bool muted);
bool isMuted();

}

#endif
