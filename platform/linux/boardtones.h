#ifndef BOARDTONES_H
#define BOARDTONES_H

#include <vector>

namespace Board {

/// The samples of the sound \a id, mono at SoundCard::sampleRate, at \a volume percent (0 to 100).
std::vector<short> toneSamples(int id, int volume);

}

#endif
