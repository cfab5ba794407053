// Vector arithmetic of the floating types, and what needs no arithmetic, for all types.
#pragma once

#include "frame/kernels.hpp"
#include "frame/report.hpp"
#include "frame/types.hpp"

#include <cstddef>
#include <cstring>

namespace ark {

// How an operation names its null sources. The subtractions name another argument, and must.
struct SourceNames {
    const char* src;
    const char* srcA;
    const char* srcB;
};
inline constexpr SourceNames ownNames{"src==0", "srcA==0", "srcB==0"};
inline constexpr SourceNames subNames{"val==0", "src==0", "val==0"};

template <class T>
std::size_t bytesOf(int n)
{
    return std::size_t(n) * sizeof(T);
}

template <class T>
void zero(Where at, T* dst, int n)
{
    if (allGood(at, {{n <= 0, "n<=0"}, {!dst, "dst==0"}}))
        std::memset(dst, 0, bytesOf<T>(n));
}

template <class T>
void set(Where at, T val, T* dst, int n)
{
    if (!allGood(at, {{n <= 0, "n<=0"}, {!dst, "dst==0"}}))
        return;
    T pattern[16 / sizeof(T)];
    for (T& element : pattern)
        element = val;
    kernels<FillKernels>().fill(pattern, dst, bytesOf<T>(n));
}

template <class T>
void copy(Where at, const T* src, T* dst, int n)
{
    if (allGood(at, {{n <= 0, "n<=0"}, {!src, "src==0"}, {!dst, "dst==0"}}))
        std::memmove(dst, src, bytesOf<T>(n));
}

struct Add {
    static constexpr SourceNames names = ownNames;
    template <class T>
    static constexpr auto vectors = &ArithKernels<T>::add;
    template <class T>
    static constexpr auto value = &ArithKernels<T>::addValue;
};

struct Sub {
    static constexpr SourceNames names = subNames;
    template <class T>
    static constexpr auto vectors = &ArithKernels<T>::sub;
    template <class T>
    static constexpr auto value = &ArithKernels<T>::subValue;
};

struct Mpy {
    static constexpr SourceNames names = ownNames;
    template <class T>
    static constexpr auto vectors = &ArithKernels<T>::mpy;
    template <class T>
    static constexpr auto value = &ArithKernels<T>::mpyValue;
};

// srcDst = srcDst op val
template <class Operation, class T>
void form1(Where at, T val, T* srcDst, int n)
{
    if (allGood(at, {{n <= 0, "n<=0"}, {!srcDst, "dst==0"}}))
        (kernels<ArithKernels<T>>().*Operation::template value<T>)(val, srcDst, n);
}

// srcDst = srcDst op src
template <class Operation, class T>
void form2(Where at, const T* src, T* srcDst, int n)
{
    if (allGood(at, {{n <= 0, "n<=0"}, {!src, Operation::names.src}, {!srcDst, "dst==0"}}))
        (kernels<ArithKernels<T>>().*Operation::template vectors<T>)(srcDst, src, srcDst, n);
}

// dst = srcA op srcB
template <class Operation, class T>
void form3(Where at, const T* srcA, const T* srcB, T* dst, int n)
{
    if (allGood(at,
                {{n <= 0, "n<=0"}, {!srcA, Operation::names.srcA}, {!srcB, Operation::names.srcB}, {!dst, "dst==0"}}))
        (kernels<ArithKernels<T>>().*Operation::template vectors<T>)(srcA, srcB, dst, n);
}

template <class T>
void conj1(Where at, T* vec, int n)
{
    if (allGood(at, {{n <= 0, "n<=0"}, {!vec, "vec==0"}}))
        kernels<ConjKernels<T>>().conj(vec, vec, n);
}

template <class T>
void conj2(Where at, const T* src, T* dst, int n)
{
    if (allGood(at, {{n <= 0, "n<=0"}, {!src, "src==0"}, {!dst, "dst==0"}}))
        kernels<ConjKernels<T>>().conj(src, dst, n);
}

template <class T>
void conjFlip2(Where at, const T* src, T* dst, int n)
{
    if (allGood(at, {{n <= 0, "n<=0"}, {!src, "src==0"}, {!dst, "dst==0"}}))
        kernels<ConjKernels<T>>().conjFlip(src, dst, n);
}

// Appends the mirrored conjugates of the first m elements, m being n rounded down to even.
template <class T>
void conjExtend(T* vec, int n)
{
    kernels<ConjKernels<T>>().conjFlip(vec, vec + n, n & ~1);
}

template <class T>
void conjExtend1(Where at, T* vec, int n)
{
    if (allGood(at, {{n <= 0, "n<=0"}, {!vec, "vec==0"}}))
        conjExtend(vec, n);
}

template <class T>
void conjExtend2(Where at, const T* src, T* dst, int n)
{
    if (allGood(at, {{n <= 0, "n<=0"}, {!src, "src==0"}, {!dst, "dst==0"}})) {
        std::memmove(dst, src, bytesOf<T>(n));
        conjExtend(dst, n);
    }
}

template <class T>
T product(T a, T b)
{
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

template <class T>
T quotient(Where at, T a, T b)
{
    if (b.re == 0 && b.im == 0) {
        badArgument(at, "(b.re==0.0)&&(b.im==0.0)");
        return {0, 0};
    }
    const double aRe = a.re, aIm = a.im, bRe = b.re, bIm = b.im;
    const double inverse = 1.0 / (bRe * bRe + bIm * bIm);
    return {Real<T>((aRe * bRe + aIm * bIm) * inverse), Real<T>((aIm * bRe - aRe * bIm) * inverse)};
}

} // namespace ark
