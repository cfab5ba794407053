// The heartbeat under noise, freed of it by wavelets: the noise spreads evenly over all coefficients of an orthogonal
// transform, the heartbeat is in a few large ones. What is small becomes zero.
#include "demo.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>

namespace demo {
namespace {

using Samples = std::vector<float>;

constexpr int order = 15, level = 5;
constexpr float deviation = 0.2f; // of the noise, in mV

struct Wavelet {
    const char* name;
    int type, moments;
};
const Wavelet wavelets[] = {{"Haar", 1, 0}, {"Daubechies 4", 2, 4}, {"symlet 8", 3, 8}, {"coiflet 3", 4, 3}};

// Every coefficient but the coarsest approximation's that is below the largest magnitude to be expected of noise alone.
Samples denoised(const Samples& noisy, const Wavelet& wavelet, float threshold)
{
    Samples out(noisy.size());
    // [code
    wtState state{};
    arksWtInit(wavelet.moments, 0, order, level, &state, wavelet.type);
    arksWtDecompose(&state, noisy.data(), out.data());
    for (std::size_t i = out.size() >> level; i < out.size(); i++)
        if (std::fabs(out[i]) < threshold)
            out[i] = 0;
    arksWtReconstruct(&state, out.data(), out.data());
    arkWtFree(&state);
    // code]
    return out;
}

double energyOfDifference(const Samples& a, const Samples& b)
{
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); i++)
        sum += (double(a[i]) - b[i]) * (double(a[i]) - b[i]);
    return sum;
}

Curve curve(const std::string& name, const Samples& samples, int rate)
{
    Curve out{name, {}, {}};
    for (int i = 30 * rate; i < 33 * rate; i++) {
        out.x.push_back(double(i) / rate);
        out.y.push_back(samples[std::size_t(i)]);
    }
    return out;
}

} // namespace

void denoised(Demo& demo)
{
    const int n = 1 << order, rate = demo.heart.rate;
    Samples heart(std::size_t(n), 0.0f), noise(heart.size());
    arksbIntToFloat(demo.heart.samples.data(), heart.data(), n, 16, 0);
    arksbMpy1(1.0f / 200, heart.data(), n); // in mV
    ArksRandGausState random;
    arksRandGausInit(21, 0, deviation, &random);
    arksbRandGaus(&random, noise.data(), n);
    Samples noisy = heart;
    arksbAdd2(noise.data(), noisy.data(), n);

    double energy = 0;
    for (const float x : heart)
        energy += double(x) * x;
    const double before = 0.5 * decibels(energy / energyOfDifference(noisy, heart));
    // The expected maximum of n normal deviates (Donoho, Johnstone: Ideal spatial adaptation by wavelet shrinkage,
    // 1994).
    const float threshold = deviation * std::sqrt(2 * std::log(float(n)));

    Table table({"wavelet", "signal-to-noise ratio before/dB", "after/dB"});
    Picture picture{"Three seconds", "seconds", "mV", {curve("with noise", noisy, rate)}};
    for (const Wavelet& wavelet : wavelets) {
        const std::string name = wavelet.name;
        // Nothing taken out: the transform is orthogonal, every level rounds once or twice each way.
        const double error = std::sqrt(energyOfDifference(denoised(noisy, wavelet, 0), noisy) / (energy + 1));
        demo.expect(name + ", there and back", error / std::ldexp(1, -24), 0, 4 * std::sqrt(2.0 * level), "roundings");
        const Samples clean = denoised(noisy, wavelet, threshold);
        const double after = 0.5 * decibels(energy / energyOfDifference(clean, heart));
        table.row({name, text(before, 1), text(after, 1)});
        demo.expect(name + ", what the ratio gains", after - before, 2, INFINITY, "dB");
        if (wavelet.type == 3) {
            picture.curves.push_back(curve("by " + name, clean, rate));
            // Of noise alone nothing is left but its part in the approximation, 2^-level of it.
            const Samples rest = denoised(noise, wavelet, threshold);
            const double share =
                energyOfDifference(rest, Samples(rest.size())) / energyOfDifference(noise, Samples(rest.size()));
            demo.expect("of noise alone is left, in parts of 2^-5", share * (1 << level), 0.8, 1.3, "");
        }
    }
    demo.show(table);
    demo.draw(picture);
}

} // namespace demo
