#include "platform/common/tones.h"

#include <algorithm>
#include <cmath>

namespace {

struct Tone
{
    double hz;
    double secondHz;  // 0: a single tone
    double seconds;
    double fadeOut;   // seconds at its end
    double loudness;  // 1 is as loud as can be
};

const double fadeIn = 0.001;

const Tone click = {2000, 0, 0.015, 0.015, 0.6};
const Tone lowClick = {1200, 0, 0.015, 0.015, 0.6};
const Tone blip = {220, 0, 0.06, 0.03, 0.24};
const Tone digit = {0, 0, 0.12, 0.01, 0.5};

const int clickId = 901;
const int lowClickId = 872;
const int firstDigitId = 920;

// The two tones that a telephone sends for each digit.
const double digitHz[10][2] = {
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
    if (id < firstDigitId || id >= firstDigitId + 10)
        return blip;
    Tone tone = digit;
    tone.hz = digitHz[id - firstDigitId][0];
    tone.secondHz = digitHz[id - firstDigitId][1];
    return tone;
}

}

std::vector<short> Tones::samples(int id, int volume)
{
    const Tone tone = toneOf(id);
    const double turn = 2 * std::acos(-1.0);
    const double loudest = tone.loudness * 32767 * volume / 100 / (tone.secondHz > 0 ? 2 : 1);

    std::vector<short> all(std::size_t(tone.seconds * sampleRate));
    for (std::size_t i = 0; i < all.size(); ++i) {
        const double t = double(i) / sampleRate;
        const double envelope = std::min(1.0, std::min(t / fadeIn, (tone.seconds - t) / tone.fadeOut));
        const double wave = std::sin(turn * tone.hz * t) + std::sin(turn * tone.secondHz * t);
        all[i] = short(loudest * envelope * wave);
    }
    return all;
}
