// Two sounds brought to the same peak and added: clamped where the sum does not fit, or scaled so that it fits.
#include "demo.hpp"
#include "gain.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>

namespace demo {
namespace {

// The recording with its peak moved to a level.
std::vector<short> normalised(const Recording& recording, double level)
{
    const FixedGain gain = fixedGain(ratioOf(level - peakLevel(recording.samples)));
    std::vector<short> samples = recording.samples;
    int factor = gain.factor;
    arkwbMpy1(gain.value, samples.data(), lengthOf(samples), ARK_FIXED_SCALE | ARK_SATURATE, &factor);
    return samples;
}

} // namespace

void mix(Demo& demo)
{
    const std::vector<short> a = normalised(demo.speech, -1), b = normalised(demo.background, -1);
    const int n = lengthOf(a);

    // [code
    std::vector<short> saturated(a.size()), automatic(a.size());
    int factor = 0;
    arkwbAdd3(a.data(), b.data(), saturated.data(), n, ARK_SATURATE, nullptr);
    arkwbAdd3(a.data(), b.data(), automatic.data(), n, ARK_AUTO_SCALE, &factor);
    // code]

    int least = 0, most = 0;
    long long tooLarge = 0, clamped = 0, wrong = 0;
    for (std::size_t i = 0; i < a.size(); i++) {
        const int sum = a[i] + b[i];
        least = std::min(least, sum);
        most = std::max(most, sum);
        tooLarge += sum < -32768 || sum > 32767;
        clamped += saturated[i] != sum;
        wrong += automatic[i] != sum >> factor;
    }
    const int needed = least < -32768 || most > 32767 ? 1 : 0;

    Table table({"sound", "factor", "peak/dBFS", "RMS/dBFS", "clamped"});
    table.row({demo.speech.name, "", text(peakLevel(a), 2), text(rmsLevel(a), 2), ""});
    table.row({demo.background.name, "", text(peakLevel(b), 2), text(rmsLevel(b), 2), ""});
    table.row({"mix, ARK_SATURATE", "", text(peakLevel(saturated), 2), text(rmsLevel(saturated), 2), text(clamped)});
    table.row({"mix, ARK_AUTO_SCALE", text((long long)factor), text(peakLevel(automatic), 2),
               text(rmsLevel(automatic), 2), "0"});
    demo.show(table);

    demo.expect("peak of the first sound", peakLevel(a), -1.01, -0.99, "dBFS");
    demo.expect("peak of the second sound", peakLevel(b), -1.01, -0.99, "dBFS");
    demo.expect("sums clamped by saturation: those that do not fit 16 bits", clamped, tooLarge);
    demo.expect("factor of the automatic mode: 1 if any sum does not fit", factor, needed);
    demo.expect("sums that differ from (a + b) >> factor", wrong, 0);

    demo.write("mix-saturate", saturated, 1, demo.speech);
    demo.write("mix-auto", automatic, 1, demo.speech);
}

} // namespace demo
