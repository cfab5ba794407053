#pragma once

#include "filter/arkfir_kernels.hpp" // FirOutput: what data of one type and taps of another become

#include <cstddef>

namespace ark {

inline constexpr std::ptrdiff_t longestDirect = 128;

template <class X, class T>
struct ConvKernels {
    // y[k] = sum of h[i] x[k-i] over the i < n for which 0 <= k-i < len, k = 0 ... len+n-2; 1 <= n <= len, n <=
    // longestDirect. y is apart from x and h. Sums grow in the output's precision from i = 0 on, every product and sum
    // rounded, so that all instruction sets give the same bits. A complex product is complete before it is added.
    void (*direct)(const X* x, std::ptrdiff_t len, const T* h, std::ptrdiff_t n, FirOutput<X, T>* y);
};

} // namespace ark
