// Recursive filters in double, which every data type is widened to.
#pragma once

#include <arkpx/types.h>

#include <cstddef>

namespace ark {

// A real number (1 part) or a complex one (2 parts); V is double, or as many numbers as it has lanes.
template <class V, int parts>
struct Number;
template <class V>
struct Number<V, 1> {
    V re;
};
template <class V>
struct Number<V, 2> {
    V re, im;
};

template <class V>
[[gnu::always_inline]] inline Number<V, 1> operator+(Number<V, 1> a, Number<V, 1> b)
{
    return {a.re + b.re};
}
template <class V>
[[gnu::always_inline]] inline Number<V, 2> operator+(Number<V, 2> a, Number<V, 2> b)
{
    return {a.re + b.re, a.im + b.im};
}

// Complex when one factor is.
template <class V>
[[gnu::always_inline]] inline Number<V, 1> operator*(Number<V, 1> c, Number<V, 1> x)
{
    return {c.re * x.re};
}
template <class V>
[[gnu::always_inline]] inline Number<V, 2> operator*(Number<V, 1> c, Number<V, 2> x)
{
    return {c.re * x.re, c.re * x.im};
}
template <class V>
[[gnu::always_inline]] inline Number<V, 2> operator*(Number<V, 2> c, Number<V, 2> x)
{
    return {c.re * x.re - c.im * x.im, c.re * x.im + c.im * x.re};
}

// sum + c x, one product after the other.
template <class V, int parts>
[[gnu::always_inline]] inline Number<V, parts> plusProduct(Number<V, parts> sum, Number<V, 1> c, Number<V, parts> x)
{
    return sum + c * x;
}
template <class V>
[[gnu::always_inline]] inline Number<V, 2> plusProduct(Number<V, 2> sum, Number<V, 2> c, Number<V, 2> x)
{
    return {sum.re + c.re * x.re - c.im * x.im, sum.im + c.re * x.im + c.im * x.re};
}

// The number at index i of an array for each part, and back.
template <int parts, class T>
[[gnu::always_inline]] inline Number<double, parts> numberAt(const T& arrays, std::ptrdiff_t i)
{
    if constexpr (parts == 2)
        return {arrays[0][i], arrays[1][i]};
    else
        return {arrays[0][i]};
}
template <class T, int parts>
[[gnu::always_inline]] inline void putNumber(T& arrays, std::ptrdiff_t i, Number<double, parts> x)
{
    arrays[0][i] = x.re;
    if constexpr (parts == 2)
        arrays[1][i] = x.im;
}

// Up to eight sections in a row that run together, with their state. What is behind the last section must be zero: it
// passes everything on. Second parts are used by complex numbers only.
struct BiquadRun {
    static constexpr int capacity = 8;

    using Lanes = double[2][capacity];
    Lanes minusA1, minusA2, b1, b2; // b0 = 1
    Lanes d0, d1;                   // the last two values of w = v - a1 d0 - a2 d1
};

// A filter given by its coefficients, with its state.
struct DirectRun {
    static constexpr int capacity = 64; // highest order

    using Array = double[2][capacity + 1];
    Array b, minusA, d; // a1 ... aN in minusA[1] ... minusA[N]
};

// Between elements and doubles, of complex signals the two parts apart.
template <class T>
struct IirDataKernels {
    // signal = gain src, which is complex when one of them is.
    using Load = void (*)(const T* src, const double* gain, double* const* signal, std::ptrdiff_t n);

    Load load[2]; // real, complex gain
    void (*store)(const double* const* signal, T* dst, std::ptrdiff_t n);
};
template <>
struct IirDataKernels<short> {
    void (*load[1])(const short* src, const double* gain, double* const* signal, std::ptrdiff_t n);
};

struct IirKernels : IirDataKernels<float>,
                    IirDataKernels<double>,
                    IirDataKernels<FloatCplx>,
                    IirDataKernels<DoubleCplx>,
                    IirDataKernels<short> {
    // n values in place, of a complex signal the two parts apart. Products and sums are fused where the processor can.
    using Biquads = void (*)(BiquadRun& run, int sections, double* const* signal, std::ptrdiff_t n);
    using Direct = void (*)(DirectRun& run, int order, double* const* signal, std::ptrdiff_t n);

    struct Structures {
        Biquads biquads;
        Direct direct; // order 1 to DirectRun::capacity
    };
    Structures structures[2][2]; // real, complex coefficients; real, complex signal
};

} // namespace ark
