#pragma once

#include "frame/types.hpp"

#include <cstddef>

namespace ark {

// The weights (a - b cos t) - c cos 2t, t = 2 pi k / (n-1).
struct CosineWindow {
    double a, b, c;
};

// In place, n >= 3 elements; the middle one of an odd number is left alone.
template <class T>
struct WindowKernels {
    void (*bartlett)(T* vec, std::ptrdiff_t n);
    // By the plain recurrence; cosine: of 2 pi / (n-1).
    void (*cosine)(T* vec, std::ptrdiff_t n, CosineWindow window, double cosine);
    // Many cosines at a time; sineOfHalf: of pi / (n-1), which is more exact than the cosine.
    void (*longCosine)(T* vec, std::ptrdiff_t n, CosineWindow window, double sineOfHalf);
    void (*kaiser)(T* vec, std::ptrdiff_t n, double beta);
};

} // namespace ark
