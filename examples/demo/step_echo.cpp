// An echo cancelled: an adaptive filter hears what is sent and what comes back, and learns the line's response. Trained
// with noise its error falls as theory says; then speech is sent and its echo is gone. Too large a step diverges.
#include "demo.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>

namespace demo {
namespace {

constexpr int tapsLen = 64, blockLen = 256, blocks = 128;
constexpr int trainingLen = blockLen * blocks;
constexpr double lineNoise = -50; // decibels below what is sent

std::vector<float> gaussian(float seed, double deviation, int n)
{
    std::vector<float> samples(std::size_t(n), 0.0f);
    ArksRandGausState state;
    arksRandGausInit(seed, 0, float(deviation), &state);
    arksbRandGaus(&state, samples.data(), n);
    return samples;
}

double power(const float* samples, int n)
{
    double sum = 0;
    for (int i = 0; i < n; i++)
        sum += double(samples[i]) * samples[i];
    return sum / n;
}

// A decaying response with half of the energy that is sent.
std::vector<float> lineResponse()
{
    std::vector<float> taps = gaussian(3, 1, tapsLen);
    for (int i = 0; i < tapsLen; i++)
        taps[std::size_t(i)] *= float(std::exp(-i / 12.0));
    arksbMpy1(float(std::sqrt(0.5 / power(taps.data(), tapsLen) / tapsLen)), taps.data(), tapsLen);
    return taps;
}

std::vector<float> echoOf(const std::vector<float>& sent, const std::vector<float>& response)
{
    // [code
    std::vector<float> echo(sent.size());
    FirState line{};
    arksFirInit(response.data(), tapsLen, nullptr, &line);
    arksbFir(&line, sent.data(), echo.data(), lengthOf(sent));
    arkFirFree(&line);
    // code]
    return echo;
}

struct Learned {
    std::vector<double> error; // power in each block
    std::vector<float> taps;
};

Learned trained(const std::vector<float>& sent, const std::vector<float>& received, double step)
{
    Learned out{{}, std::vector<float>(tapsLen)};
    // [code
    LmsState canceller;
    arksLmsInit(0, nullptr, tapsLen, nullptr, float(step), 0, 0, &canceller);
    for (int at = 0; at < trainingLen; at += blockLen) {
        float error[blockLen];
        arksbLmsDes(&canceller, &sent[std::size_t(at)], &received[std::size_t(at)], error, blockLen);
        arksbSub3(&received[std::size_t(at)], error, error, blockLen); // what is left of the echo
        out.error.push_back(power(error, blockLen));
    }
    arksLmsGetTaps(&canceller, out.taps.data());
    arkLmsFree(&canceller);
    // code]
    return out;
}

} // namespace

void echo(Demo& demo)
{
    const std::vector<float> response = lineResponse(), sent = gaussian(1, 1, trainingLen);
    std::vector<float> received = echoOf(sent, response);
    const double echoPower = power(received.data(), trainingLen), noisePower = std::pow(10, lineNoise / 10);
    const std::vector<float> disturbance = gaussian(2, std::sqrt(noisePower), trainingLen);
    arksbAdd2(disturbance.data(), received.data(), trainingLen);

    Picture curves{"Echo that is left, in blocks of 256 samples", "samples", "dB", {}, ""};
    for (const double part : {0.5, 0.1}) {
        const double step = part / tapsLen;
        const Learned out = trained(sent, received, step);
        // White Gaussian noise of power 1: what the taps are off by shrinks by this ratio each sample, to an excess
        // error of a part of the line's noise (Haykin, Adaptive Filter Theory, small-step theory with the term of
        // second order).
        const double ratio = 1 - 2 * step + step * step * (tapsLen + 2);
        const double floor = noisePower * (1 + step * tapsLen / (2 - step * (tapsLen + 2)));
        Curve measured{"step " + text(part, 1) + "/N", {}, {}}, theory{measured.name + ", theory", {}, {}};
        for (int i = 0; i < blocks; i++) {
            const double at = (i + 0.5) * blockLen;
            measured.x.push_back(at);
            measured.y.push_back(0.5 * decibels(out.error[std::size_t(i)] / echoPower));
            theory.x.push_back(at);
            theory.y.push_back(0.5 * decibels((floor + (echoPower - floor) * std::pow(ratio, at)) / echoPower));
        }
        curves.curves.insert(curves.curves.end(), {measured, theory});
        double last = 0;
        for (int i = blocks / 2; i < blocks; i++)
            last += out.error[std::size_t(i)] / (blocks / 2);
        const double expected = 0.5 * decibels(echoPower / floor), found = 0.5 * decibels(echoPower / last);
        demo.expect("echo return loss in the end, step " + text(part, 1) + "/N", found, expected - 0.5, expected + 0.5,
                    "dB");
    }
    demo.draw(curves);

    const Learned learned = trained(sent, received, 0.1 / tapsLen);
    Curve truth{"the line", {}, {}, "impulses"}, taps{"learned", {}, {}, "points"};
    double off = 0;
    for (std::size_t i = 0; i < tapsLen; i++) {
        const double difference = double(learned.taps[i]) - response[i];
        off += difference * difference;
        truth.x.push_back(double(i));
        truth.y.push_back(response[i]);
        taps.x.push_back(double(i));
        taps.y.push_back(learned.taps[i]);
    }
    demo.draw(Picture{"The response that was learned", "tap", "", {truth, taps}});

    const Learned diverged = trained(sent, received, 4.0 / tapsLen);
    const double end = diverged.error.back();
    demo.expect("a step of twice the limit diverges", std::isfinite(end) && end < 1e6 * echoPower ? "no" : "yes",
                "yes");

    // Speech, its echo as it is and without what the canceller expects.
    std::vector<float> speech(demo.speech.samples.size());
    arksbIntToFloat(demo.speech.samples.data(), speech.data(), lengthOf(speech), 16, 0);
    std::vector<float> back = echoOf(speech, response);
    const std::vector<float> foreseen = echoOf(speech, learned.taps);
    std::vector<float> left(speech.size());
    arksbSub3(back.data(), foreseen.data(), left.data(), lengthOf(speech));
    // A sample of what is left is at most the taps' distance times the length of 64 samples (Cauchy and Schwarz).
    const int n = lengthOf(speech);
    demo.expect("what is left of the echo of " + demo.speech.name,
                0.5 * decibels(power(left.data(), n) / power(speech.data(), n)), -INFINITY,
                0.5 * decibels(off * tapsLen), "dB");
    const auto write = [&](const char* name, const std::vector<float>& samples) {
        std::vector<short> heard(samples.size());
        arksbFloatToInt(samples.data(), heard.data(), n, 16, ARK_RoundNearest | ARK_Saturate);
        demo.write(name, heard, 1, demo.speech);
    };
    write("echo", back);
    write("echo-cancelled", left);
}

} // namespace demo
