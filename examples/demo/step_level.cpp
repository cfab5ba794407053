// One recording times a gain that takes it over full scale: what each scale mode makes of it.
#include "demo.hpp"
#include "gain.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>

namespace demo {
namespace {

enum class Bounds { none, wrapped, clamped };

struct Outcome {
    std::vector<short> samples;
    int factor;
    double gain;        // of the mode as a whole, as a ratio
    double noise;       // decibels from the recording times that gain up to what is heard beside it
    long long tooLarge; // samples whose value at that gain does not fit 16 bits
    long long wrong;    // samples that differ from the same computed one by one in 64 bits
};

Outcome scaled(const std::vector<short>& source, short value, int scaleMode, int factor, Bounds bounds)
{
    Outcome out{source, factor, 0, 0, 0, 0};
    // [code
    arkwbMpy1(value, out.samples.data(), lengthOf(out.samples), scaleMode, &out.factor);
    // code]

    out.gain = std::ldexp(value, -out.factor);
    double signal = 0, error = 0;
    for (std::size_t i = 0; i < source.size(); i++) {
        const long long exact = (long long)source[i] * value >> out.factor; // toward minus infinity
        const long long clamped = std::clamp(exact, -32768LL, 32767LL);
        out.tooLarge += exact != clamped;
        const short expected = bounds == Bounds::clamped ? short(clamped) : short((unsigned short)exact);
        out.wrong += out.samples[i] != expected;
        const double ideal = out.gain * source[i];
        signal += ideal * ideal;
        error += (out.samples[i] - ideal) * (out.samples[i] - ideal);
    }
    out.noise = 0.5 * decibels(error / signal);
    return out;
}

} // namespace

void level(Demo& demo)
{
    const std::vector<short>& speech = demo.speech.samples;
    int peak = 1; // silent recordings are refused
    for (const short x : speech)
        peak = std::max(peak, std::abs(int(x)));
    // An odd number that takes the largest sample to twice full scale at least.
    const auto times = short(std::max(3, (65535 + peak) / peak) | 1);
    const FixedGain same = fixedGain(times), half = fixedGain(ratioOf(-6));

    // [code
    const Outcome wrapped = scaled(speech, times, ARK_WRAP, 0, Bounds::wrapped);
    const Outcome saturated = scaled(speech, times, ARK_SATURATE, 0, Bounds::clamped);
    // A gain that is no whole number is a value and a factor: 6 dB down is 16423 * 2^-15.
    const Outcome quieter = scaled(speech, half.value, ARK_FIXED_SCALE, half.factor, Bounds::wrapped);
    const Outcome fixed = scaled(speech, same.value, ARK_FIXED_SCALE | ARK_SATURATE, same.factor, Bounds::clamped);
    // The library finds the smallest factor with which everything fits, and says which.
    const Outcome automatic = scaled(speech, times, ARK_AUTO_SCALE, 0, Bounds::none);
    // code]

    Table table({"mode", "value", "factor", "gain/dB", "peak/dBFS", "RMS/dBFS", "too large", "noise/dB"});
    const auto row = [&](const char* mode, int value, const Outcome& out) {
        table.row({mode, text((long long)value), text((long long)out.factor), text(decibels(out.gain), 2),
                   text(peakLevel(out.samples), 2), text(rmsLevel(out.samples), 2), text(out.tooLarge),
                   text(out.noise, 1)});
    };
    row("ARK_WRAP", times, wrapped);
    row("ARK_SATURATE", times, saturated);
    row("ARK_FIXED_SCALE", half.value, quieter);
    row("ARK_FIXED_SCALE | ARK_SATURATE", same.value, fixed);
    row("ARK_AUTO_SCALE", times, automatic);
    demo.show(table);

    demo.expect("samples that differ from 64-bit integer arithmetic",
                wrapped.wrong + saturated.wrong + quieter.wrong + fixed.wrong + automatic.wrong, 0);
    demo.expect("one gain written in two ways gives the same samples",
                fixed.samples == saturated.samples ? "yes" : "no", "yes");
    demo.expect("samples too large at the automatic factor", automatic.tooLarge, 0);
    demo.expect("peak at the automatic factor: the largest that powers of two allow", peakLevel(automatic.samples),
                decibels(0.5), 0, "dBFS");
    // Each sample is rounded down by less than a step, and so is their RMS at most.
    const double step = decibels(1 + 1 / (32768 * ratioOf(rmsLevel(quieter.samples))));
    demo.expect("RMS level moved by the fixed gain", rmsLevel(quieter.samples) - rmsLevel(speech),
                decibels(quieter.gain) - step, decibels(quieter.gain) + step, "dB");
    demo.expect("noise of wrapping above that of saturation: it turns a peak into its opposite",
                wrapped.noise - saturated.noise, 0, 100, "dB");
    // Shifting out f bits loses (2^f - 1) * 2^-f of a step at most.
    const double lost = 1 - std::ldexp(1, -automatic.factor);
    demo.expect("noise of automatic scaling: at most that of the bits shifted out", automatic.noise, -INFINITY,
                decibels(lost / 32768) - rmsLevel(automatic.samples), "dB");

    demo.write("level-wrap", wrapped.samples, 1, demo.speech);
    demo.write("level-saturate", saturated.samples, 1, demo.speech);
    demo.write("level-fixed", quieter.samples, 1, demo.speech);
    demo.write("level-auto", automatic.samples, 1, demo.speech);
}

} // namespace demo
