#pragma once

#include <cstddef>

namespace ark {

// dst may be src, or overlap it from above.
template <class T>
struct LnExpKernels {
    void (*ln)(const T* src, T* dst, std::ptrdiff_t n);
    void (*exp)(const T* src, T* dst, std::ptrdiff_t n);
};

} // namespace ark
