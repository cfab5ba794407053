// A room put on the speech: the convolution with the room's answer to one click. The library takes direct sums for a
// short answer and transforms for a long one; this step shows both against direct sums written as a loop.
#include "demo.hpp"

#include <arkpx.h>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace demo {
namespace {

constexpr double decay = 1.5; // seconds to -60 dB

// Noise that fades, behind the sound that comes straight.
std::vector<float> room(int rate)
{
    std::vector<float> answer(std::size_t(decay * rate));
    ArksRandGausState noise;
    arksRandGausInit(11, 0, 0.05f, &noise);
    arksbRandGaus(&noise, answer.data(), lengthOf(answer));
    for (std::size_t i = 0; i < answer.size(); i++)
        answer[i] *= float(std::pow(10, -3 * double(i) / (decay * rate)));
    answer[0] = 1;
    return answer;
}

std::vector<float> convolved(const std::vector<float>& x, const std::vector<float>& h)
{
    // [code
    std::vector<float> y(x.size() + h.size() - 1);
    arksConv(x.data(), lengthOf(x), h.data(), lengthOf(h), y.data());
    // code]
    return y;
}

// The fastest of some calls, in nanoseconds an output.
template <class Work>
double nanoseconds(std::size_t outputs, Work work)
{
    double least = 1e9;
    for (int i = 0; i < 5; i++) {
        const auto begin = std::chrono::steady_clock::now();
        work();
        least =
            std::min(least, std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count());
    }
    return least / double(outputs);
}

Picture crossover()
{
    constexpr std::size_t length = 4096;
    Curve direct{"direct sums in a loop", {}, {}, "linespoints"}, library{"arksConv", {}, {}, "linespoints"};
    const std::vector<float> x(length, 0.5f);
    for (std::size_t n = 8; n <= 2048; n *= 2) {
        const std::vector<float> h(n, 0.25f);
        std::vector<float> y(length + n - 1);
        const auto loop = [&] {
            std::fill(y.begin(), y.end(), 0.0f);
            for (std::size_t i = 0; i < n; i++)
                for (std::size_t k = 0; k < length; k++)
                    y[i + k] += h[i] * x[k];
        };
        direct.x.push_back(double(n));
        direct.y.push_back(nanoseconds(y.size(), loop));
        library.x.push_back(double(n));
        library.y.push_back(nanoseconds(y.size(), [&] { arksConv(x.data(), length, h.data(), int(n), y.data()); }));
    }
    return {"4096 samples with filters of each length, on this machine",
            "taps",
            "ns an output",
            {direct, library},
            "set logscale xy"};
}

} // namespace

void reverb(Demo& demo)
{
    const int rate = demo.speech.rate;
    std::vector<float> dry(demo.speech.samples.size());
    arksbIntToFloat(demo.speech.samples.data(), dry.data(), lengthOf(dry), 16, 0);
    const std::vector<float> answer = room(rate);
    const std::vector<float> wet = convolved(dry, answer);

    // Some outputs as sums in double. A transform's error is a few roundings of the largest sum of magnitudes.
    double worst = 0, scale = 0;
    const std::size_t stride = std::max<std::size_t>(1, wet.size() / 200);
    for (std::size_t k = 0; k < wet.size(); k += stride) {
        double sum = 0, magnitudes = 0;
        for (std::size_t i = k < dry.size() ? 0 : k - dry.size() + 1; i < answer.size() && i <= k; i++) {
            sum += double(answer[i]) * dry[k - i];
            magnitudes += std::fabs(double(answer[i]) * dry[k - i]);
        }
        worst = std::max(worst, std::fabs(wet[k] - sum));
        scale = std::max(scale, magnitudes);
    }
    demo.expect("largest error in units of the largest sum's last place", worst / (scale * std::ldexp(1, -24)), 0, 4,
                "");

    const auto level = [&](std::size_t from) {
        double sum = 0;
        for (std::size_t i = from; i < from + answer.size() / 20; i++)
            sum += double(answer[i]) * answer[i];
        return 0.5 * decibels(sum);
    };
    const std::size_t early = answer.size() / 10, late = answer.size() * 9 / 10;
    demo.expect("the room fades, from a tenth of its time to nine tenths, by", level(early) - level(late), 46, 50,
                "dB");
    demo.draw(crossover());

    // As loud as the speech at most.
    std::vector<float> heard = wet;
    float loudest = 0;
    for (const float y : heard)
        loudest = std::max(loudest, std::fabs(y));
    arksbMpy1(float(ratioOf(peakLevel(demo.speech.samples))) * 32767 / loudest, heard.data(), lengthOf(heard));
    std::vector<short> samples(heard.size());
    arksbFloatToInt(heard.data(), samples.data(), lengthOf(heard), 16, ARK_RoundNearest | ARK_Saturate);
    demo.write("room", samples, 1, demo.speech);
}

} // namespace demo
