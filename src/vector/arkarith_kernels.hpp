#pragma once

#include "frame/types.hpp"

#include <cstddef>

namespace ark {

// dst may be a source, or overlap one from above: the loops run from the last element to the first.
template <class T>
struct ArithKernels {
    using Vectors = void (*)(const T* a, const T* b, T* dst, std::ptrdiff_t n);
    using Value = void (*)(T value, T* srcDst, std::ptrdiff_t n); // srcDst[i] = srcDst[i] op value

    Vectors add, sub, mpy;
    Value addValue, subValue, mpyValue;
};

template <class T>
struct ConjKernels {
    void (*conj)(const T* src, T* dst, std::ptrdiff_t n);
    void (*conjFlip)(const T* src, T* dst, std::ptrdiff_t n); // src is dst, or apart from it
};

struct FillKernels {
    // Repeats a pattern of 16 bytes over any number of bytes.
    void (*fill)(const void* pattern, void* dst, std::size_t bytes);
};

} // namespace ark
