// Blocks of 256 samples of the speech as sums of cosines: of the coefficients the 32 largest stay. The transform is
// orthonormal, so the energy of what goes is the energy of the error.
#include "demo.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>
#include <functional>

namespace demo {
namespace {

constexpr int blockLen = 256;

struct Kept {
    std::vector<float> samples;
    double dropped = 0; // energy of the coefficients that went
};

Kept keeping(int count, const std::vector<float>& speech)
{
    Kept kept{speech};
    std::vector<float> block(blockLen), magnitudes(blockLen);
    for (int at = 0; at + blockLen <= lengthOf(speech); at += blockLen) {
        float* const samples = &kept.samples[std::size_t(at)];
        // [code
        arksDct(samples, block.data(), blockLen, ARK_Forw);
        arksbAbs2(block.data(), magnitudes.data(), blockLen);
        std::nth_element(magnitudes.begin(), magnitudes.begin() + count - 1, magnitudes.end(), std::greater<>());
        int left = count;
        for (float& y : block)
            if (std::fabs(y) < magnitudes[std::size_t(count - 1)] || left-- <= 0) {
                kept.dropped += double(y) * y;
                y = 0;
            }
        arksDct(block.data(), samples, blockLen, ARK_Inv);
        // code]
    }
    return kept;
}

} // namespace

void cosines(Demo& demo)
{
    const int whole = lengthOf(demo.speech.samples) / blockLen * blockLen;
    std::vector<float> speech(std::size_t(whole), 0.0f);
    arksbIntToFloat(demo.speech.samples.data(), speech.data(), whole, 16, 0);
    double energy = 0;
    for (const float x : speech)
        energy += double(x) * x;

    Curve curve{"coefficients kept of 256", {}, {}, "linespoints"};
    Curve before{"speech", {}, {}}, after{"32 of 256 coefficients", {}, {}};
    for (const int count : {8, 16, 32, 64, 128}) {
        const Kept kept = keeping(count, speech);
        double error = 0;
        for (std::size_t i = 0; i < speech.size(); i++)
            error += (double(kept.samples[i]) - speech[i]) * (double(kept.samples[i]) - speech[i]);
        const double ratio = 0.5 * decibels(energy / error);
        curve.x.push_back(count);
        curve.y.push_back(ratio);
        if (count != 32)
            continue;
        const double theory = 0.5 * decibels(energy / kept.dropped);
        demo.expect("signal-to-noise ratio with 32 of 256 coefficients", ratio, theory - 0.01, theory + 0.01, "dB");
        // A loud place.
        const auto loudest = std::max_element(speech.begin(), speech.end()) - speech.begin();
        const long begin = std::clamp<long>(loudest - 200, 0, std::max(0, whole - 400));
        for (long i = begin; i < std::min<long>(begin + 400, whole); i++) {
            before.x.push_back(double(i) / demo.speech.rate);
            before.y.push_back(speech[std::size_t(i)]);
            after.x.push_back(double(i) / demo.speech.rate);
            after.y.push_back(kept.samples[std::size_t(i)]);
        }
        std::vector<short> heard(speech.size());
        arksbFloatToInt(kept.samples.data(), heard.data(), whole, 16, ARK_RoundNearest | ARK_Saturate);
        demo.write("cosines-32", heard, 1, demo.speech);
    }
    demo.draw(Picture{"A loud place", "seconds", "", {before, after}});
    demo.draw(
        Picture{"What few coefficients keep", "coefficients", "signal-to-noise ratio/dB", {curve}, "set logscale x 2"});
}

} // namespace demo
