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
template <class V>
[[gnu::always_inline]] inline Number<V, 2> operator*(Number<V, 2> c, Number<V, 1> x)
{
    return {c.re * x.re, c.im * x.re};
}
template <class V>
[[gnu::always_inline]] inline Number<V, 1> operator-(Number<V, 1> x)
{
    return {-x.re};
}
template <class V>
[[gnu::always_inline]] inline Number<V, 2> operator-(Number<V, 2> x)
{
    return {-x.re, -x.im};
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

// ---- one sample, of single calls and in every lane of a block ----
//
// Both do the same operations in the same order, none of them fused: so blocks give the bits of single calls, on every
// processor. What goes into the delay line is then rounded to its type.

template <class V, int parts>
struct Section {
    Number<V, parts> minusA1, minusA2, b1, b2; // b0 = 1
};

// w, which d0 becomes, is what the next sample waits for: d0 comes last.
template <class V, int coefParts, int parts>
[[gnu::always_inline]] inline Number<V, parts> sectionStep(const Section<V, coefParts>& c, Number<V, parts> v,
                                                           Number<V, parts> d0, Number<V, parts> d1,
                                                           Number<V, parts>& w)
{
    w = plusProduct(plusProduct(v, c.minusA2, d1), c.minusA1, d0);
    return w + plusProduct(c.b2 * d1, c.b1, d0);
}

// The direct form's new d[k-1] from the old d[k], and its last one.
template <class V, int coefParts, int parts>
[[gnu::always_inline]] inline Number<V, parts> directStep(Number<V, parts> next, Number<V, coefParts> b,
                                                          Number<V, parts> x, Number<V, coefParts> minusA,
                                                          Number<V, parts> y)
{
    return plusProduct(plusProduct(next, b, x), minusA, y);
}
template <class V, int coefParts, int parts>
[[gnu::always_inline]] inline Number<V, parts> directLast(Number<V, coefParts> b, Number<V, parts> x,
                                                          Number<V, coefParts> minusA, Number<V, parts> y)
{
    return plusProduct(b * x, minusA, y);
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

// Up to eight sections in a row that run together, with their state. What is behind the last section must be a number,
// and is of no effect. Second parts are used by complex numbers only.
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
    Array b, minusA, d; // a1 ... aN in minusA[1] ... minusA[N], the state in d[0] ... d[N-1]
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
    // Filling and draining a pipeline takes time: below this a block's samples are done sooner one by one.
    static constexpr std::ptrdiff_t leastBlock = 16;

    // n >= leastBlock values in place, of a complex signal the two parts apart; the state is rounded to its type after
    // each value.
    using Biquads = void (*)(BiquadRun& run, int sections, double* const* signal, std::ptrdiff_t n);
    using Direct = void (*)(DirectRun& run, int order, double* const* signal, std::ptrdiff_t n);

    struct Structures {
        Biquads biquads;
        Direct direct; // order 1 to DirectRun::capacity
    };
    Structures structures[2][2][2]; // state of floats, doubles; real, complex coefficients; real, complex signal
};

} // namespace ark
