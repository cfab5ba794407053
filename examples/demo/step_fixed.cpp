// One filter in 16 bits under each scale mode: a low-pass that also raises the level by 12 dB, so that loud speech does
// not fit. Wrapped samples are noise, clamped ones distortion; a scale that is fixed or found keeps them all.
#include "demo.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace demo {
namespace {

constexpr int tapsLen = 63, gain = 4, fixedFactor = 3;

std::vector<float> lowPass()
{
    std::vector<float> taps;
    double sum = 0;
    for (int i = 0; i < tapsLen; i++) {
        const double x = std::numbers::pi * 0.5 * (i - tapsLen / 2);
        taps.push_back(float(x == 0 ? 1 : std::sin(x) / x));
    }
    arksWinHamming(taps.data(), tapsLen);
    for (const float tap : taps)
        sum += tap;
    arksbMpy1(float(gain / sum), taps.data(), tapsLen);
    return taps;
}

} // namespace

void fixed(Demo& demo)
{
    // As loud as 16 bits allow, so that the gain is too much.
    std::vector<short> speech = demo.speech.samples;
    const double loudest = 32767 * ratioOf(-peakLevel(speech)) / 32768;
    for (short& sample : speech)
        sample = short(std::lround(std::clamp(sample * loudest, -32767.0, 32767.0)));
    const std::vector<float> taps = lowPass();
    const int n = lengthOf(speech);

    // The same in double.
    std::vector<double> exact(speech.size()), exactIn(speech.size());
    arkdbIntToFloat(speech.data(), exactIn.data(), n, 16, 0);
    const std::vector<double> wide(taps.begin(), taps.end());
    FirState reference{};
    arkdFirInit(wide.data(), tapsLen, nullptr, &reference);
    arkdbFir(&reference, exactIn.data(), exact.data(), n);
    arkFirFree(&reference);
    double peak = 0, power = 0;
    for (const double y : exact) {
        peak = std::max(peak, std::fabs(y));
        power += y * y;
    }

    struct Mode {
        const char* name;
        int mode;
        int factor; // as given
    };
    const Mode modes[] = {{"ARK_WRAP", ARK_WRAP, 0},
                          {"ARK_SATURATE", ARK_SATURATE, 0},
                          {"ARK_FIXED_SCALE", ARK_FIXED_SCALE, fixedFactor},
                          {"ARK_FIXED_SCALE | ARK_SATURATE", ARK_FIXED_SCALE | ARK_SATURATE, 1},
                          {"ARK_AUTO_SCALE", ARK_AUTO_SCALE, 0}};
    Table table({"mode", "factor", "samples that do not fit", "signal-to-noise ratio/dB"});
    double ratios[5];
    int factors[5], index = 0;
    for (const Mode& mode : modes) {
        std::vector<short> out(speech.size());
        int factor = mode.factor;
        // [code
        FirState filter{};
        arkwFirInit(taps.data(), tapsLen, nullptr, &filter);
        arkwbFir(&filter, speech.data(), out.data(), n, mode.mode, &factor);
        arkFirFree(&filter);
        // code]
        double noise = 0;
        long long beyond = 0;
        for (std::size_t i = 0; i < out.size(); i++) {
            const double difference = std::ldexp(out[i], factor) - exact[i];
            noise += difference * difference;
            beyond += std::fabs(std::ldexp(exact[i], -factor)) >= 32767.5;
        }
        ratios[index] = 0.5 * decibels(power / noise);
        factors[index++] = factor;
        table.row({mode.name, text((long long)factor), text(beyond), text(0.5 * decibels(power / noise), 1)});
        if (mode.mode == ARK_WRAP || mode.mode == ARK_SATURATE)
            demo.write(mode.mode == ARK_WRAP ? "fixed-wrapped" : "fixed-clamped", out, 1, demo.speech);
    }
    demo.show(table);

    // Sums are rounded to integers, an error of 1/12; the shift by f loses each of 0 ... 2^f - 1, all as likely.
    const auto theory = [&](int factor) {
        const double steps = std::ldexp(1, factor);
        return 0.5 * decibels(power / double(n) / ((steps - 1) * (2 * steps - 1) / 6 + 1.0 / 12));
    };
    int smallest = 0;
    while (std::ldexp(peak, -smallest) > 32767.5)
        smallest++;
    demo.expect("automatic factor", (long long)factors[4], (long long)smallest);
    demo.expect("automatic, signal-to-noise ratio", ratios[4], theory(factors[4]) - 0.5, theory(factors[4]) + 0.5,
                "dB");
    demo.expect("fixed, signal-to-noise ratio", ratios[2], theory(fixedFactor) - 0.5, theory(fixedFactor) + 0.5, "dB");
    demo.expect("what clamping is better than wrapping", ratios[1] - ratios[0], 0, INFINITY, "dB");
}

} // namespace demo
