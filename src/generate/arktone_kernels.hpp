#pragma once

#include "frame/types.hpp"

#include <cstddef>

namespace ark {

template <class T>
struct ToneKernels {
    // The next n >= 1 samples of y[n] = twoCos y[n-1] - y[n-2], |twoCos| < 2. prev1 and prev2: the last two samples,
    // one or two parts each, brought up to date.
    void (*block)(double twoCos, double* prev1, double* prev2, T* samps, std::ptrdiff_t n);
};

} // namespace ark
