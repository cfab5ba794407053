#pragma once

#include "frame/types.hpp"

#include <cstddef>

namespace ark {

// taps[i] = keep taps[i] + gain conj(x[i]), i < n, any n from 0 on: computed in double and rounded once. gainIm is 0
// when the taps are real. Fused operations are used where the processor has them.
template <class X, class T>
struct LmsKernels {
    void (*adapt)(T* taps, const X* x, std::ptrdiff_t n, double keep, double gainRe, double gainIm);
};

} // namespace ark
