#pragma once

#include <cstddef>

namespace ark {

// Every second tap of a filter, beginning with its last or the one before: tap, tap - 2, ... It meets x, x + 1, ...
template <class T>
struct HalfFilter {
    const T* tap;
    std::ptrdiff_t count;
    const T* x;
};

template <class T>
struct WaveletKernels {
    // dst[i] = sum over both filters and j = 0 ... count-1 of tap[-2 j] x[i + j], for i < n, accumulated in T in this
    // order; products and sums are fused where the processor can. Reads up to 64 bytes behind the last element of x.
    void (*filter)(const HalfFilter<T>& a, const HalfFilter<T>& b, T* dst, std::ptrdiff_t n);

    // even[i] = src[2 i], odd[i] = src[2 i + 1], and back; n of each.
    void (*split)(const T* src, T* even, T* odd, std::ptrdiff_t n);
    void (*join)(const T* even, const T* odd, T* dst, std::ptrdiff_t n);
};

} // namespace ark
