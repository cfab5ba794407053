// A stereo frame is a complex number, left + i right; a complex product of magnitude 1 turns the image. In 16 bits the
// coefficient is a multiple of 2^-15, and the factor 15 takes the product back.
#include "demo.hpp"

#include <arkpx.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace demo {
namespace {

double energy(const std::vector<ShortCplx>& frames)
{
    double sum = 0;
    for (const ShortCplx z : frames)
        sum += double(z.re) * z.re + double(z.im) * z.im;
    return sum;
}

double distance(double re, double im) { return std::max(std::fabs(re), std::fabs(im)); }

void writeStereo(Demo& demo, const std::string& name, const std::vector<ShortCplx>& frames)
{
    std::vector<short> interleaved;
    for (const ShortCplx z : frames)
        interleaved.insert(interleaved.end(), {z.re, z.im});
    demo.write(name, interleaved, 2, demo.left);
}

} // namespace

void stereo(Demo& demo)
{
    std::vector<ShortCplx> frames;
    for (std::size_t i = 0; i < demo.left.samples.size(); i++)
        frames.push_back(arkvSet(demo.left.samples[i], demo.right.samples[i]));
    const int n = lengthOf(frames);

    const double angle = std::numbers::pi / 6;
    const double re = 32768 * std::cos(angle), im = 32768 * std::sin(angle);
    // [code
    const ShortCplx turn = arkvSet(short(std::lround(re)), short(std::lround(im)));
    int factor = 15;
    std::vector<ShortCplx> turned = frames;
    arkvbMpy1(turn, turned.data(), n, ARK_FIXED_SCALE | ARK_SATURATE, &factor);
    std::vector<ShortCplx> back = turned;
    arkvbMpy1(arkvConj(turn), back.data(), n, ARK_FIXED_SCALE | ARK_SATURATE, &factor);
    // code]

    // The same in floating point.
    std::vector<FloatCplx> exact;
    for (const ShortCplx z : frames)
        exact.push_back(arkcSet(z.re, z.im));
    arkcbMpy1(arkcSet(float(std::cos(angle)), float(std::sin(angle))), exact.data(), n);

    double fromExact = 0, fromStart = 0, largest = 0;
    for (std::size_t i = 0; i < frames.size(); i++) {
        largest = std::max(largest, std::hypot(frames[i].re, frames[i].im));
        fromExact =
            std::max(fromExact, distance(turned[i].re - double(exact[i].re), turned[i].im - double(exact[i].im)));
        fromStart = std::max(fromStart, distance(back[i].re - frames[i].re, back[i].im - frames[i].im));
    }
    // A part's error: less than 1 from the shift, and what the rounded coefficient is off by times the magnitude. On
    // the way back the first error is turned along, to at most the square root of 2, and the same comes again.
    const double coefficient = std::hypot(re - turn.re, im - turn.im) / 32768 * largest;
    const double once = 1 + coefficient + 0.01, twice = (1 + std::numbers::sqrt2) * once;

    demo.say(text((long long)n) + " frames at " + text((long long)demo.left.rate) + " Hz times (" +
             text((long long)turn.re) + ", " + text((long long)turn.im) + ") * 2^-15");
    demo.expect("energy changed by", 0.5 * decibels(energy(turned) / energy(frames)), -0.01, 0.01, "dB");
    demo.expect("largest difference from the same in floating point", fromExact, 0, once, "LSB");
    demo.expect("largest difference there and back", fromStart, 0, twice, "LSB");

    writeStereo(demo, "stereo", frames);
    writeStereo(demo, "stereo-turned", turned);
}

} // namespace demo
