// 48 kHz to 8 kHz and back. Dropping five samples of six folds what is above 4 kHz down into speech; a polyphase filter
// takes it out first, and computes no sample that is dropped.
#include "demo.hpp"
#include "spectrum.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace demo {
namespace {

constexpr int factor = 6, rate = 48000, tapsLen = 241, delay = tapsLen - 1; // of both filters, at 48 kHz
constexpr double stopBand = -80;                                            // dB

// A low-pass filter of 4 kHz. Kaiser's formulas: beta for 80 dB, 241 taps for a transition of 3.5 ... 4.5 kHz.
std::vector<float> lowPass(double gain)
{
    // [code
    std::vector<float> taps;
    for (int i = 0; i < tapsLen; i++) {
        const double x = std::numbers::pi * (i - (tapsLen - 1) / 2) / factor;
        taps.push_back(float(gain / factor * (x == 0 ? 1 : std::sin(x) / x)));
    }
    const double beta = 0.1102 * (-stopBand - 8.7);
    arksWinKaiser(taps.data(), tapsLen, float(2 * beta / (tapsLen - 1)));
    // code]
    return taps;
}

std::vector<float> filtered(const std::vector<float>& samples, const std::vector<float>& taps, int up, int down)
{
    // [code
    FirState filter{};
    const int count = lengthOf(samples) / down;
    std::vector<float> out(std::size_t(count) * std::size_t(up));
    arksFirInitMr(taps.data(), tapsLen, nullptr, up, 0, down, 0, &filter);
    arksbFir(&filter, samples.data(), out.data(), count);
    arkFirFree(&filter);
    // code]
    return out;
}

std::vector<float> withoutFilter(const std::vector<float>& samples)
{
    // [code
    std::vector<float> out(samples.size() / factor + 1);
    int count = 0, phase = 0;
    arksDownSample(samples.data(), lengthOf(samples), out.data(), &count, factor, &phase);
    // code]
    out.resize(std::size_t(count));
    return out;
}

std::vector<float> tone(double frequency)
{
    std::vector<float> samples(rate / 2);
    ArksToneState state;
    arksToneInit(float(frequency / rate), 0, 10000, &state);
    arksbTone(&state, samples.data(), lengthOf(samples));
    return samples;
}

// RMS behind what the filters make of the tone's beginning, relative to the tone's.
double relative(const std::vector<float>& samples)
{
    double sum = 0;
    constexpr std::size_t from = 3 * delay;
    for (std::size_t i = from; i < samples.size(); i++)
        sum += double(samples[i]) * samples[i];
    return 0.5 * decibels(2 * sum / double(samples.size() - from) / 1e8);
}

std::vector<short> rounded(const std::vector<float>& samples)
{
    std::vector<short> out(samples.size());
    arksbFloatToInt(samples.data(), out.data(), lengthOf(out), 16, ARK_RoundNearest | ARK_Saturate);
    return out;
}

} // namespace

void rates(Demo& demo)
{
    const std::vector<float> down = lowPass(1), up = lowPass(factor);

    // Tones: above the new band, and within it.
    const std::vector<float> high = tone(5000), low = tone(1000);
    demo.expect("5 kHz, which becomes 3 kHz without a filter", relative(withoutFilter(high)), -0.01, 0.01, "dB");
    demo.expect("5 kHz through the filter", relative(filtered(high, down, 1, factor)), -INFINITY, stopBand + 1, "dB");
    demo.expect("1 kHz through the filter", relative(filtered(low, down, 1, factor)), -0.01, 0.01, "dB");

    std::vector<float> back = filtered(filtered(low, down, 1, factor), up, factor, 1);
    arksbSub2(low.data(), back.data() + delay, lengthOf(low) - delay);
    // Two filters' ripple and five images, 80 dB down each, at worst all in step.
    demo.expect("1 kHz there and back, difference", relative(back), -INFINITY, stopBand + decibels(7), "dB");

    Recording narrow = demo.left;
    std::vector<float> wide(narrow.samples.size());
    arksbIntToFloat(narrow.samples.data(), wide.data(), lengthOf(wide), 16, 0);
    demo.draw(spectrogram(narrow.name + " at 48 kHz", narrow.samples, rate));
    narrow.rate = rate / factor;
    narrow.samples = rounded(withoutFilter(wide));
    demo.draw(spectrogram("At 8 kHz without a filter", narrow.samples, narrow.rate));
    demo.write("8kHz-without-filter", narrow.samples, 1, narrow);
    const std::vector<float> decimated = filtered(wide, down, 1, factor);
    narrow.samples = rounded(decimated);
    demo.draw(spectrogram("At 8 kHz through the filter", narrow.samples, narrow.rate));
    demo.write("8kHz", narrow.samples, 1, narrow);
    demo.write("48kHz-again", rounded(filtered(decimated, up, factor, 1)), 1, demo.left);
}

} // namespace demo
