#pragma once

#include "frame/types.hpp"

#include <cstddef>

namespace ark {

// What data of type X filtered by taps of type T becomes: complex when either is. 16-bit results leave as the sums.
template <class X, class T, bool complexTaps = isComplex<T>>
struct FirOutputOf {
    using Type = X;
};
template <class X, class T>
struct FirOutputOf<X, T, true> {
    using Type = T;
};
template <class T>
struct FirOutputOf<short, T, false> {
    using Type = double;
};
template <class X, class T>
using FirOutput = typename FirOutputOf<X, T>::Type;

// dst[i dstStep] = sum over k < tapsLen of taps[k tapStep] x[i step + k], for i = 0 ... n-1: x runs forward in time, so
// taps begins with the one that meets the oldest sample. Every tapsLen from 0 on, every n from 1 on. dst is apart from
// x. Elements of x before x[0] and behind x[(n-1) step + tapsLen - 1] are not read.
template <class X, class T>
struct FirRun {
    const T* taps;
    std::ptrdiff_t tapStep, tapsLen;
    const X* x;
    std::ptrdiff_t step;
    FirOutput<X, T>* dst;
    std::ptrdiff_t dstStep, n;
};

// Sums are accumulated in double and rounded once. Their order depends on the instruction set and on n: the difference
// to the exact sum stays below tapsLen 2^-52 times the sum of the products' magnitudes (fused operations are used where
// the processor has them).
template <class X, class T>
struct FirKernels {
    void (*filter)(const FirRun<X, T>& run);
    void (*dot)(const T* taps, const X* x, std::ptrdiff_t n, FirOutput<X, T>* sum); // any n from 0 on
};

} // namespace ark
