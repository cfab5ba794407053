#pragma once

#include "frame/types.hpp"

#include <cstddef>

namespace ark {

// z s1 - s2 of either part of the signal, z = cosine + i sine on the unit circle. Real signals have part 0 only.
struct GoertzelSum {
    double cosine, sine;
    double re[2], im[2];
};

template <class T>
struct GoertzelKernels {
    // sum = z^n sum + sum over k < n of x[k] z^(n-k), for each part of x, n >= 1. In double, products and sums fused
    // where the processor can; the error stays below 4 n 2^-52 times the sum of the terms' magnitudes.
    void (*feed)(const T* x, std::ptrdiff_t n, GoertzelSum& sum);
};

} // namespace ark
