// Hum of 50 Hz and a slow drift under the recording, both taken out by a cascade of two biquads: a notch and a
// high-pass. The signal comes in blocks of random lengths, as from a device; the result does not depend on them.
#include "demo.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace demo {
namespace {

constexpr double mains = 50, width = 5, drift = 0.25, corner = 20; // Hz
constexpr double magnitude = 8000;

std::vector<double> tone(double frequency, int rate, int n)
{
    std::vector<double> samples(std::size_t(n), 0.0);
    ArkdToneState state;
    arkdToneInit(frequency / rate, 0, magnitude, &state);
    arkdbTone(&state, samples.data(), n);
    return samples;
}

std::vector<double> filtered(const std::vector<double>& in, int rate, bool randomBlocks)
{
    std::vector<double> out(in.size());
    ArkwRandUniState random;
    arkwRandUniInit(5, 1, 2000, &random);
    // [code
    // A zero pair on the unit circle and a pole pair close by; a second-order Butterworth high-pass.
    const double r = 1 - std::numbers::pi * width / rate, c = -2 * std::cos(2 * std::numbers::pi * mains / rate);
    const double t = std::tan(std::numbers::pi * corner / rate), root2 = std::numbers::sqrt2;
    const double taps[] = {
        1, c, 1, 1, r * c, r * r, 1, -2, 1, 1 + root2 * t + t * t, 2 * (t * t - 1), 1 - root2 * t + t * t};
    IirState filter{};
    arkdIirInitBq(0, taps, 2, &filter);
    for (int at = 0; at < lengthOf(in);) {
        const int n = randomBlocks ? std::min<int>(arkwRandUni(&random), lengthOf(in) - at) : lengthOf(in);
        arkdbIir(&filter, &in[std::size_t(at)], &out[std::size_t(at)], n);
        at += n;
    }
    arkIirFree(&filter);
    // code]
    return out;
}

// Of the last second.
double level(const std::vector<double>& samples, int rate)
{
    double sum = 0;
    for (std::size_t i = samples.size() - std::size_t(rate); i < samples.size(); i++)
        sum += samples[i] * samples[i];
    return 0.5 * decibels(std::max(sum / rate, 1e-30));
}

// Of the drift at the end: samples a quarter of its period apart are its cosine and its sine.
double magnitudeOf(const std::vector<double>& samples, int rate)
{
    return std::hypot(samples.back(), samples[samples.size() - 1 - std::size_t(rate / drift / 4)]);
}

void write(Demo& demo, const std::string& name, const std::vector<double>& samples)
{
    std::vector<short> heard(samples.size());
    arkdbFloatToInt(samples.data(), heard.data(), lengthOf(samples), 16, ARK_RoundNearest | ARK_Saturate);
    demo.write(name, heard, 1, demo.speech);
}

} // namespace

void hum(Demo& demo)
{
    const int rate = demo.speech.rate, length = std::max(lengthOf(demo.speech.samples), 5 * rate);
    std::vector<short> speech = demo.speech.samples;
    speech.resize(std::size_t(length)); // five seconds at least, for the filters to settle
    std::vector<double> clean(speech.size());
    arkdbIntToFloat(speech.data(), clean.data(), length, 16, 0);
    const std::vector<double> humming = tone(mains, rate, length), drifting = tone(drift, rate, length);
    std::vector<double> disturbed = clean;
    arkdbMpy1(0.5, disturbed.data(), length);
    arkdbAdd2(humming.data(), disturbed.data(), length);
    arkdbAdd2(drifting.data(), disturbed.data(), length);

    const std::vector<double> whole = filtered(disturbed, rate, false), blocks = filtered(disturbed, rate, true);
    double difference = 0;
    for (std::size_t i = 0; i < whole.size(); i++)
        difference = std::max(difference, std::fabs(whole[i] - blocks[i]));
    // The delay line stays in double: what it holds is up to a million times the signal, and rounded to 2^-53 of that.
    demo.expect("difference between one block and random ones", difference, 0, 32768 * 1e6 * std::ldexp(1, -53) * 32,
                "LSB");

    // The filters are linear: what they make of the disturbances alone is what is left of them. The notch has settled
    // long before the last second, to e^(-60); what rounding leaves of the tone is far below 10^-5.
    demo.expect("hum that is left", level(filtered(humming, rate, true), rate) - level(humming, rate), -INFINITY, -100,
                "dB");
    // The formula of the high-pass, with frequencies as the bilinear transform maps them.
    const auto mapped = [&](double frequency) { return std::tan(std::numbers::pi * frequency / rate); };
    const double theory = -0.5 * decibels(1 + std::pow(mapped(corner) / mapped(drift), 4));
    const double left = decibels(magnitudeOf(filtered(drifting, rate, true), rate) / magnitude);
    demo.expect("drift that is left", left, theory - 0.1, theory + 0.1, "dB");

    Curve before{"with hum and drift", {}, {}}, after{"filtered", {}, {}};
    for (std::size_t i = 0; i < whole.size(); i += std::max<std::size_t>(1, whole.size() / 8000)) {
        before.x.push_back(double(i) / rate);
        before.y.push_back(disturbed[i]);
        after.x.push_back(double(i) / rate);
        after.y.push_back(whole[i]);
    }
    demo.draw(Picture{"The recording", "seconds", "", {before, after}});
    write(demo, "hum", disturbed);
    write(demo, "hum-removed", whole);
}

} // namespace demo
