#pragma once

#include "frame/types.hpp"

#include <cstddef>

namespace ark {

// dst may be src in all of them.

// Principal square roots; 16-bit ones are rounded, real ones down and parts of complex ones to nearest. Real: true when
// there are negative elements, which are copied.
template <class T>
struct RootKernels {
    bool (*squareRoot)(const T* src, T* dst, std::ptrdiff_t n);
};

template <class T>
struct AbsKernels {
    void (*abs)(const T* src, T* dst, std::ptrdiff_t n);
};

// Limits the values, or the magnitudes of complex numbers, from below and from above. What is not a number is copied.
template <class T>
struct ThreshKernels {
    using Thresh = void (*)(const T* src, T* dst, std::ptrdiff_t n, Real<T> level);
    Thresh fromBelow, fromAbove;
};

// 1 / x where |x| > level, else 1 / level with the sign, or the angle, of 1 / x. True when the level and an element are
// zero: the largest number there is.
template <class T>
struct InvThreshKernels {
    bool (*invThresh)(const T* src, T* dst, std::ptrdiff_t n, Real<T> level);
};

struct VecKernels : RootKernels<float>,
                    RootKernels<double>,
                    RootKernels<FloatCplx>,
                    RootKernels<DoubleCplx>,
                    RootKernels<short>,
                    RootKernels<ShortCplx>,
                    AbsKernels<float>,
                    AbsKernels<double>,
                    AbsKernels<short>,
                    ThreshKernels<float>,
                    ThreshKernels<double>,
                    ThreshKernels<FloatCplx>,
                    ThreshKernels<DoubleCplx>,
                    ThreshKernels<short>,
                    InvThreshKernels<float>,
                    InvThreshKernels<double>,
                    InvThreshKernels<FloatCplx>,
                    InvThreshKernels<DoubleCplx> {};

} // namespace ark
