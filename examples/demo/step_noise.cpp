// Gaussian noise of a given level: its RMS is the standard deviation that was asked for, and as many samples fall into
// each interval as the normal distribution says.
#include "demo.hpp"

#include <arkpx.h>

#include <cmath>

namespace demo {
namespace {

constexpr int count = 1000000;
constexpr double wanted = -20; // dBFS

// The probability of a value below x standard deviations.
double below(double x) { return 0.5 * std::erfc(-x / std::sqrt(2.0)); }

} // namespace

void noise(Demo& demo)
{
    const auto deviation = float(32768 * ratioOf(wanted));
    // [code
    std::vector<float> samples(count);
    ArksRandGausState state;
    arksRandGausInit(1, 0, deviation, &state); // the seed 1, mean 0
    arksbRandGaus(&state, samples.data(), count);
    // code]

    // Intervals a quarter of a deviation wide, the outermost two without an end.
    constexpr int half = 16;
    constexpr double width = 0.25;
    std::vector<double> found(2 * half), middle, share, theory;
    double sum = 0, squares = 0;
    for (const float x : samples) {
        const double place = std::floor(x / deviation / width) + half;
        found[std::size_t(std::min(std::max(place, 0.0), 2.0 * half - 1))]++;
        sum += x;
        squares += double(x) * x;
    }
    double chiSquare = 0;
    for (int i = 0; i < 2 * half; i++) {
        const double from = i == 0 ? 0 : below((i - half) * width);
        const double to = i == 2 * half - 1 ? 1 : below((i + 1 - half) * width);
        const double expected = (to - from) * count;
        chiSquare += (found[std::size_t(i)] - expected) * (found[std::size_t(i)] - expected) / expected;
        middle.push_back((i + 0.5 - half) * width);
        share.push_back(found[std::size_t(i)] / count);
        theory.push_back(expected / count);
    }
    demo.draw(Picture{"Share of the samples in each quarter of a deviation",
                      "standard deviations",
                      "share",
                      {{"samples", middle, share, "boxes"}, {"normal distribution", middle, theory, "linespoints"}}});

    // Four standard deviations of each figure: of an RMS 1/sqrt(2 n), of a mean 1/sqrt(n), of chi-square sqrt(2 k).
    const double near = decibels(1 + 4 / std::sqrt(2.0 * count)), freedom = 2 * half - 1;
    demo.expect("RMS level", decibels(std::sqrt(squares / count) / 32768), wanted - near, wanted + near, "dBFS");
    demo.expect("mean, in standard deviations", sum / count / deviation, -4 / std::sqrt(count), 4 / std::sqrt(count),
                "");
    demo.expect("chi-square of the intervals", chiSquare, freedom - 4 * std::sqrt(2 * freedom),
                freedom + 4 * std::sqrt(2 * freedom), "");
}

} // namespace demo
