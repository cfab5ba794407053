// Five minutes of a heart's electrical activity: the drift of its baseline goes by a high-pass of two biquads, hum from
// the mains by an adaptive notch, which follows a mains frequency that is never quite nominal, and the beats are
// counted.
#include "demo.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace demo {
namespace {

using Samples = std::vector<float>;
using std::numbers::pi;

constexpr double corner = 0.5, mains = 60, offset = 0.02; // Hz
constexpr double magnitude = 0.3;                         // of the hum, in mV
constexpr double leftBehind = 1 - 0.99;                   // of the notch's memory, a sample
constexpr double settled = 10;                            // seconds

// A Butterworth high-pass of order 4, by the bilinear transform: sections with Q of .541 and 1.307.
std::vector<float> withoutDrift(const Samples& in, double rate)
{
    Samples out(in.size());
    // [code
    std::vector<double> taps;
    for (const double q : {0.54119610, 1.30656296}) {
        const double t = std::tan(pi * corner / rate), t2 = t * t;
        taps.insert(taps.end(), {1, -2, 1, 1 + t / q + t2, 2 * (t2 - 1), 1 - t / q + t2});
    }
    std::vector<double> samples(in.begin(), in.end());
    IirState highPass{};
    arkdIirInitBq(0, taps.data(), 2, &highPass);
    arkdbIir(&highPass, samples.data(), samples.data(), lengthOf(samples));
    arkIirFree(&highPass);
    std::copy(samples.begin(), samples.end(), out.begin());
    // code]
    return out;
}

Samples tone(double frequency, double rate, double level, std::size_t n)
{
    Samples samples(n);
    ArksToneState state;
    arksToneInit(float(frequency / rate), 0.3f, float(level), &state);
    arksbTone(&state, samples.data(), lengthOf(samples));
    return samples;
}

// What is left when the part of a signal that a tone of the mains' nominal frequency predicts is taken out.
Samples withoutHum(const Samples& in, double rate)
{
    Samples out(in.size());
    const Samples reference = tone(mains, rate, 1, in.size());
    const int period = int(std::lround(rate / mains));
    // [code
    LmsState notch{};
    // For a sine of magnitude 1 over whole periods: poles of radius 1 - step period / 4.
    const float step = float(4 * leftBehind / period);
    arksLmsInit(0, nullptr, period, nullptr, step, 0, 0, &notch);
    arksbLmsDes(&notch, reference.data(), in.data(), out.data(), lengthOf(in)); // out: the hum as predicted
    arksbSub3(in.data(), out.data(), out.data(), lengthOf(in));
    arkLmsFree(&notch);
    // code]
    return out;
}

double power(const Samples& samples, std::size_t from)
{
    double sum = 0;
    for (std::size_t i = from; i < samples.size(); i++)
        sum += double(samples[i]) * samples[i];
    return sum / double(samples.size() - from);
}

// The slope's energy over 150 ms: a hump for each beat.
Samples humps(const Samples& in, double rate)
{
    const int length = lengthOf(in), width = int(0.15 * rate);
    Samples slope(in.size()), energy(in.size() + std::size_t(width) - 1);
    // [code
    const float differences[] = {2, 1, 0, -1, -2};
    FirState fir{};
    arksFirInit(differences, 5, nullptr, &fir);
    arksbFir(&fir, in.data(), slope.data(), length);
    arkFirFree(&fir);
    arksbSqr1(slope.data(), length);
    const Samples window(std::size_t(width), 1.0f / float(width));
    arksConv(slope.data(), length, window.data(), width, energy.data());
    // code]
    energy.resize(in.size());
    return energy;
}

// The places of humps that rise above a third of the typical one's height, at least 250 ms apart.
std::vector<std::size_t> beats(const Samples& energy, double rate)
{
    const auto second = std::size_t(rate);
    std::vector<float> tops; // of each two seconds
    for (std::size_t i = 0; i + 2 * second <= energy.size(); i += 2 * second)
        tops.push_back(*std::max_element(energy.begin() + long(i), energy.begin() + long(i + 2 * second)));
    std::nth_element(tops.begin(), tops.begin() + long(tops.size() / 2), tops.end());
    const float threshold = tops[tops.size() / 2] / 3;
    std::vector<std::size_t> places;
    for (std::size_t i = 1; i < energy.size(); i++)
        if (energy[i] >= threshold && energy[i - 1] < threshold && (places.empty() || i - places.back() > second / 4))
            places.push_back(i);
    return places;
}

// The lag at which a signal is most like itself, of those of 40 ... 200 beats a minute: by sums alone.
double mostAlike(const Samples& x, double rate)
{
    double best = -1e300;
    std::size_t lag = 0;
    for (auto k = std::size_t(0.3 * rate); k <= std::size_t(1.5 * rate); k++) {
        double sum = 0;
        for (std::size_t i = 0; i + k < x.size(); i += 4)
            sum += double(x[i]) * x[i + k];
        sum /= double(x.size() - k);
        if (sum > best) {
            best = sum;
            lag = k;
        }
    }
    return double(lag) / rate;
}

Curve curve(const std::string& name, const Samples& samples, double rate, double from, double to)
{
    Curve out{name, {}, {}};
    for (auto i = std::size_t(from * rate); i < std::size_t(to * rate); i++) {
        out.x.push_back(double(i) / rate);
        out.y.push_back(samples[i]);
    }
    return out;
}

} // namespace

void heart(Demo& demo)
{
    const double rate = demo.heart.rate;
    demo.say(demo.heart.name + ": " + text(double(demo.heart.samples.size()) / rate, 0) + " seconds at 360 Hz");
    Samples raw(demo.heart.samples.size());
    arksbIntToFloat(demo.heart.samples.data(), raw.data(), lengthOf(raw), 16, 0);
    arksbMpy1(1.0f / 200, raw.data(), lengthOf(raw)); // in mV
    const auto begin = std::size_t(settled * rate);

    const Samples steady = withoutDrift(raw, rate);
    demo.draw(Picture{"The baseline",
                      "seconds",
                      "mV",
                      {curve("as recorded", raw, rate, 20, 40), curve("high-pass", steady, rate, 20, 40)}});

    // Linear in what comes in: what it leaves of hum alone is the difference that hum makes.
    const Samples hum = tone(mains + offset, rate, magnitude, raw.size());
    Samples disturbed = steady;
    arksbAdd2(hum.data(), disturbed.data(), lengthOf(disturbed));
    const Samples clean = withoutHum(disturbed, rate), undisturbed = withoutHum(steady, rate);
    Samples rest(raw.size());
    arksbSub3(clean.data(), undisturbed.data(), rest.data(), lengthOf(rest));
    const double left = 0.5 * decibels(power(rest, begin) / power(hum, begin));
    // A zero at the reference's frequency beside a pole of that radius.
    const std::complex<double> z = std::polar(1.0, 2 * pi * offset / rate);
    const double theory = decibels(std::abs((z - 1.0) / (z - (1 - leftBehind))));
    demo.expect("hum that is left", left, theory - 0.5, theory + 0.5, "dB");
    demo.draw(Picture{"Hum of 60.02 Hz, and a notch that learns it",
                      "seconds",
                      "mV",
                      {curve("with hum", disturbed, rate, 28, 31), curve("clean", clean, rate, 28, 31)}});

    const Samples energy = humps(clean, rate);
    const std::vector<std::size_t> places = beats(energy, rate);
    std::vector<double> intervals;
    for (std::size_t i = 1; i < places.size(); i++)
        intervals.push_back(double(places[i] - places[i - 1]) / rate);
    std::sort(intervals.begin(), intervals.end());
    const double median = intervals[intervals.size() / 2], alike = mostAlike(energy, rate);
    demo.say(text((long long)places.size()) + " beats in " + text(double(raw.size()) / rate, 0) + " seconds");
    demo.expect("heart rate", 60 / median, 0.93 * 60 / alike, 1.07 * 60 / alike, "beats a minute");
    Curve humpsOf = curve("energy of the slope, scaled", energy, rate, 28, 34), marks{"beats", {}, {}, "points pt 7"};
    const double top = *std::max_element(humpsOf.y.begin(), humpsOf.y.end());
    for (double& y : humpsOf.y)
        y /= top;
    for (const std::size_t place : places)
        if (double(place) / rate >= 28 && double(place) / rate < 34) {
            marks.x.push_back(double(place) / rate);
            marks.y.push_back(0.3);
        }
    demo.draw(Picture{"Beats", "seconds", "mV", {curve("clean", clean, rate, 28, 34), humpsOf, marks}});
}

} // namespace demo
