// How results in single precision become 16-bit ones under a scale mode.
#pragma once

#include <arkpx.h>

#include <algorithm>
#include <cmath>

// Complex results. Without a mode they are clamped, or keep the low 16 bits.
inline ShortCplx toShort(FloatCplx x, int scaleMode, int factor, bool clampsWithoutMode)
{
    const bool clamps = scaleMode == ARK_SATURATE || scaleMode == (ARK_FIXED_SCALE | ARK_SATURATE) ||
                        (clampsWithoutMode && scaleMode <= ARK_WRAP);
    const auto part = [=](float value) {
        const int shift = scaleMode < ARK_FIXED_SCALE ? 0 : factor;
        const auto whole = static_cast<long long>(std::floor(std::ldexp(std::nearbyint(double(value)), -shift)));
        return short(clamps ? std::clamp(whole, -32768LL, 32767LL) : whole);
    };
    return {part(x.re), part(x.im)};
}

// The least shift that brings the largest magnitude to 16 bits.
template <class Results>
int automaticFactorOf(const Results& results)
{
    double largest = 0;
    for (const FloatCplx x : results)
        largest = std::max({largest, double(std::fabs(x.re)), double(std::fabs(x.im))});
    int factor = 0;
    while (std::floor(std::ldexp(std::nearbyint(largest), -factor)) > 32767)
        factor++;
    return factor;
}
