#ifndef TONES_H
#define TONES_H

#include <vector>

/// The sounds that a platform makes itself.
namespace Tones {

const int sampleRate = 44100;

/// The samples of the sound \a id, mono at sampleRate, at \a volume percent (0 to 100): a click for 901, a lower one for
/// 872, the dialling tones of the digits 0 to 9 for 920 to 929, and a low, soft blip for every other id.
std::vector<short> samples(int id, int volume);

}

#endif
