#include "spectrum.hpp"

#include "audio.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>

namespace demo {
namespace {

constexpr double least = 1e-12; // what silence counts as

} // namespace

std::vector<double> levels(std::span<const float> samples, int order)
{
    const std::size_t count = std::size_t(1) << order;
    std::vector<float> padded(samples.begin(), samples.begin() + std::ptrdiff_t(std::min(count, samples.size())));
    padded.resize(count);
    std::vector<FloatCplx> spectrum(count / 2 + 1);
    arksRealFftNip(padded.data(), spectrum.data(), order, ARK_Forw);

    std::vector<double> out;
    for (const FloatCplx z : spectrum)
        out.push_back(decibels(std::max(least, std::hypot(double(z.re), double(z.im)))));
    const double largest = *std::max_element(out.begin(), out.end());
    for (double& level : out)
        level -= largest;
    return out;
}

std::vector<double> frequencies(int order, double rate)
{
    std::vector<double> out;
    for (int i = 0; i <= 1 << order >> 1; i++)
        out.push_back(rate * i / (1 << order));
    return out;
}

Map spectrogram(const std::string& title, std::span<const short> samples, int rate)
{
    constexpr int order = 8;
    constexpr std::size_t length = 1 << order, most = 300;
    const std::size_t last = samples.size() - length;
    const std::size_t hop = std::max(last / most, length / 2);
    // A Hann window halves a sine, and its two halves share what is left.
    constexpr double fullScale = 32768.0 * length / 4;

    Map map{title, "seconds", "Hz", double(hop) / rate, double(rate) / length, {}, -100, 0};
    map.rows.resize(length / 2 + 1);
    for (std::size_t at = 0; at <= last; at += hop) {
        float block[length];
        FloatCplx spectrum[length / 2 + 1];
        arksbIntToFloat(&samples[at], block, length, 16, 0);
        arksWinHann(block, length);
        arksRealFftNip(block, spectrum, order, ARK_Forw);
        for (std::size_t i = 0; i < map.rows.size(); i++)
            map.rows[i].push_back(decibels(std::max(least, std::hypot(spectrum[i].re, spectrum[i].im) / fullScale)));
    }
    return map;
}

} // namespace demo
