// A gain as 16-bit arithmetic takes it.
#pragma once

#include <cmath>

namespace demo {

// The gain value * 2^-factor: a 16-bit multiplication under ARK_FIXED_SCALE.
struct FixedGain {
    short value;
    int factor;

    double ratio() const { return std::ldexp(value, -factor); }
};

// The nearest such gain, with all the 15 bits that a positive value has. For ratios from 2^-16 to 2^14.
inline FixedGain fixedGain(double ratio)
{
    const int factor = 14 - std::ilogb(ratio);
    const auto value = std::lround(std::ldexp(ratio, factor));
    return value < 32768 ? FixedGain{short(value), factor} : FixedGain{16384, factor - 1};
}

} // namespace demo
