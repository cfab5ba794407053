#pragma once

#include <cstddef>

namespace ark {

// Pairs of Gaussian values that are computed at a time.
inline constexpr std::ptrdiff_t gaussPairs = 64;

// Points in the unit circle.
struct CirclePoints {
    double u1[gaussPairs], u2[gaussPairs];
};

template <class Real>
struct GaussKernels {
    // values[2 i] = mean + stdDev u2[i] f and values[2 i + 1] = mean + stdDev u1[i] f for i < n, with
    // f = sqrt(-2 ln(s) / s), s = u1[i]^2 + u2[i]^2. values has room for 2 gaussPairs values, all of which may be
    // written.
    void (*pairs)(const CirclePoints& points, double mean, double stdDev, Real* values, std::ptrdiff_t n);
};

} // namespace ark
