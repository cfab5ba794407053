#pragma once

#include "frame/types.hpp"

#include <cstddef>

namespace ark {

// taps[i] = keep taps[i] + gain conj(x[i]), i < n, any n from 0 on: computed in double and rounded once. gainIm is 0
// when the taps are real. Fused operations are used where the processor has them.
template <class X, class T>
struct LmsKernels {
    void (*adapt)(T* taps, const X* x, std::ptrdiff_t n, double keep, double gainRe, double gainIm);

    // The same, and the inner product of the new taps with fresh, in one pass: a step waits for the one before it. Null
    // when the taps are complex.
    double (*adaptAndDot)(T* taps, const X* x, const X* fresh, std::ptrdiff_t n, double keep, double gain);
};

} // namespace ark
