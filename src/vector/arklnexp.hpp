// Logarithm and exponential.
#pragma once

#include "vector/arkvec.hpp"

namespace ark {

template <class T>
inline constexpr ElementWiseNames lnExpNames{};
template <>
inline constexpr ElementWiseNames lnExpNames<short>{"Len<=0", "Vector==0", "Vector==0", "Vector==0"};

template <class T>
struct Ln {
    static constexpr ElementWiseNames names = lnExpNames<T>;
    static void apply(Where, const T* src, T* dst, int n) { kernels<LnExpKernels<T>>().ln(src, dst, n); }
};

template <class T>
struct Exp {
    static constexpr ElementWiseNames names = lnExpNames<T>;
    static void apply(Where, const T* src, T* dst, int n) { kernels<LnExpKernels<T>>().exp(src, dst, n); }
};

} // namespace ark
