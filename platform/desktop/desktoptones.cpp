#include "platform/desktop/desktoptones.h"

#include "platform/desktop/audiooutput.h"

#include <algorithm>
#include <cmath>

namespace {

struct Tone
{
    double hz;
    double secondHz;  // 0: a single tone
    double seconds;
    double fadeOut;   // seconds at its end
    double volume;    // 1 is as loud as can be
};

constexpr double fadeIn = 0.001;
constexpr double digitSeconds = 0.12;
constexpr double digitFadeOut = 0.01;
constexpr double digitVolume = 0.25;

constexpr Tone click = {2000, 0, 0.015, 0.015, 0.3};
constexpr Tone lowClick = {1200, 0, 0.015, 0.015, 0.3};
constexpr Tone blip = {220, 0, 0.06, 0.03, 0.12};

constexpr int clickId = 901;
constexpr int lowClickId = 872;
constexpr int firstDigitId = 920;

// The two tones that a telephone sends for each digit.
constexpr double digitHz[10][2] = {
    {941, 1336},
    {697, 1209}, {697, 1336}, {697, 1477},
    {770, 1209}, {770, 1336}, {770, 1477},
    {852, 1209}, {852, 1336}, {852, 1477},
};

Tone toneOf(int id)
{
    if (id == clickId)
        return click;
    if (id == lowClickId)
        return lowClick;
    if (id >= firstDigitId && id < firstDigitId + 10) {
        const double *hz = digitHz[id - firstDigitId];
        return {hz[0], hz[1], digitSeconds, digitFadeOut, digitVolume};
    }
    return blip;
}

}

std::vector<std::int16_t> Desktop::toneSamples(int id)
{
    const Tone tone = toneOf(id);
    const double turn = 2 * std::acos(-1.0);
    const double loudest = tone.volume * 32767 / (tone.secondHz > 0 ? 2 : 1);

    std::vector<std::int16_t> samples(std::size_t(tone.seconds * AudioOutput::sampleRate));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double t = double(i) / AudioOutput::sampleRate;
        const double envelope = std::min({1.0, t / fadeIn, (tone.seconds - t) / tone.fadeOut});
        const double wave = std::sin(turn * tone.hz * t) + std::sin(turn * tone.secondHz * t);
        samples[i] = std::int16_t(loudest * envelope * wave);
    }
    return samples;
}
