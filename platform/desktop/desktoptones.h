#ifndef DESKTOPTONES_H
#define DESKTOPTONES_H

#include <cstdint>
#include <vector>

namespace Desktop {

/// The samples of the sound \a id, mono at AudioOutput::sampleRate: a click for 901, a lower one for 872, the dialling
/// tones of the digits 0 to 9 for 920 to 929, and a low, soft blip for every other id.
std::vector<std::int16_t> toneSamples(int id);

}

#endif
