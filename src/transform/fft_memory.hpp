// Where the passes of the complex FFT read and write: the caller's vectors and rows between passes.
#pragma once

#include "transform/fft_kernels.hpp"
#include "transform/fft_numbers.hpp"

namespace ark::ARK_SET {
namespace {

// How the caller's vectors are read and written. For the inverse transform real and imaginary parts exchange roles on
// the way in and on the way out; with separate parts that is an exchange of pointers.
enum Form { forwardPairs, inversePairs, separateParts };

ARK_INLINE Pair<double> getPair(const double* from) { return {get<double, 2>(from)}; }
ARK_INLINE Pair<float> getPair(const float* from)
{
    return {Reg<float, 4>(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(from)))};
}
ARK_INLINE void putPair(double* to, Pair<double> x) { put(to, x.parts); }
ARK_INLINE void putPair(float* to, Pair<float> x)
{
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to), __m128i(x.parts));
}

// W elements of the caller's vector, in the order of lanes.
template <class R, int W, Form form>
struct Outside {
    using V = Reg<R, W>;
    static constexpr int P = placesOf<V>;

    static ARK_INLINE Cplx<V> load(FftVector<const R> from, std::ptrdiff_t element)
    {
        if constexpr (form == separateParts) {
            const V re = get<R, W>(from.re + element), im = get<R, W>(from.im + element);
            return {shuffled<elementOf<P>>(re, re), shuffled<elementOf<P>>(im, im)};
        } else {
            const V x = get<R, W>(from.re + 2 * element), y = get<R, W>(from.re + 2 * element + W);
            const V even = shuffled<evens<P>>(x, y), odd = shuffled<odds<P>>(x, y);
            return form == forwardPairs ? Cplx<V>{even, odd} : Cplx<V>{odd, even};
        }
    }

    // The complex numbers of two registers with two each, the first ones of both and the second ones.
    static constexpr int lowOfPairs(int lane, int lanes)
    {
        return P == 4 ? unpackLow<4, 2>(lane, lanes) : lowHalves(lane, lanes);
    }
    static constexpr int highOfPairs(int lane, int lanes) { return lowOfPairs(lane, lanes) + 2; }

    // W times W of them, register i having element i of all rows, which begin at these elements.
    static ARK_INLINE void loadTurned(FftVector<const R> from, const std::ptrdiff_t (&elements)[W], Cplx<V> (&x)[W])
    {
        V first[W], second[W];
        if constexpr (form == separateParts) {
            ARK_UNROLL
            for (int r = 0; r < W; r++) {
                first[r] = get<R, W>(from.re + elements[r]);
                second[r] = get<R, W>(from.im + elements[r]);
            }
            transposeReals(first);
            transposeReals(second);
        } else {
            // A register holds two of a row's complex numbers. Paired, each holds one of two rows.
            constexpr int apart = P == 4 ? 1 : 2;
            ARK_UNROLL
            for (int i = 0; i < W; i += 2) {
                V rows[W], low[2], high[2];
                ARK_UNROLL
                for (int r = 0; r < W; r++)
                    rows[r] = get<R, W>(from.re + 2 * (elements[r] + i));
                ARK_UNROLL
                for (int pair = 0; pair < 2; pair++) {
                    const int r = pair * (3 - apart);
                    low[pair] = shuffled<lowOfPairs>(rows[r], rows[r + apart]);
                    high[pair] = shuffled<highOfPairs>(rows[r], rows[r + apart]);
                }
                first[i] = shuffled<evens<P>>(low[0], low[1]);
                second[i] = shuffled<odds<P>>(low[0], low[1]);
                first[i + 1] = shuffled<evens<P>>(high[0], high[1]);
                second[i + 1] = shuffled<odds<P>>(high[0], high[1]);
            }
        }
        ARK_UNROLL
        for (int i = 0; i < W; i++)
            x[i] = form == inversePairs ? Cplx<V>{second[i], first[i]} : Cplx<V>{first[i], second[i]};
    }
    static ARK_INLINE void storeTurned(FftVector<R> to, const std::ptrdiff_t (&elements)[W], const Cplx<V> (&x)[W])
    {
        V first[W], second[W];
        ARK_UNROLL
        for (int i = 0; i < W; i++) {
            const V even = form == inversePairs ? x[i].im : x[i].re, odd = form == inversePairs ? x[i].re : x[i].im;
            first[i] = form == separateParts ? even : shuffled<unpackLow<P, 1>>(even, odd);
            second[i] = form == separateParts ? odd : shuffled<unpackHigh<P, 1>>(even, odd);
        }
        if constexpr (form == separateParts) {
            transposeReals(first);
            transposeReals(second);
            ARK_UNROLL
            for (int r = 0; r < W; r++) {
                put(to.re + elements[r], first[r]);
                put(to.im + elements[r], second[r]);
            }
        } else {
            constexpr int apart = P == 4 ? 1 : 2;
            const auto putPair = [&](V a, V b, int row, int i) ARK_INLINED {
                put(to.re + 2 * (elements[row] + i), shuffled<lowOfPairs>(a, b));
                put(to.re + 2 * (elements[row + apart] + i), shuffled<highOfPairs>(a, b));
            };
            ARK_UNROLL
            for (int i = 0; i < W; i += 2) {
                putPair(first[i], first[i + 1], 0, i);
                putPair(second[i], second[i + 1], 3 - apart, i);
            }
        }
    }

    static ARK_INLINE void store(FftVector<R> to, std::ptrdiff_t element, Cplx<V> x)
    {
        if constexpr (form == separateParts) {
            put(to.re + element, shuffled<laneOf<P>>(x.re, x.re));
            put(to.im + element, shuffled<laneOf<P>>(x.im, x.im));
        } else {
            const V even = form == forwardPairs ? x.re : x.im, odd = form == forwardPairs ? x.im : x.re;
            put(to.re + 2 * element, shuffled<unpackLow<P, 1>>(even, odd));
            put(to.re + 2 * element + W, shuffled<unpackHigh<P, 1>>(even, odd));
        }
    }
};

template <class R, Form form>
struct Outside<R, 1, form> {
    static ARK_INLINE Pair<R> load(FftVector<const R> from, std::ptrdiff_t element)
    {
        if constexpr (form == separateParts)
            return {typename Pair<R>::V{from.re[element], from.im[element]}};
        else if constexpr (form == forwardPairs)
            return getPair(from.re + 2 * element);
        else
            return exchanged(getPair(from.re + 2 * element));
    }
    static ARK_INLINE void store(FftVector<R> to, std::ptrdiff_t element, Pair<R> x)
    {
        if constexpr (form == separateParts) {
            to.re[element] = x.parts[0];
            to.im[element] = x.parts[1];
        } else {
            putPair(to.re + 2 * element, form == forwardPairs ? x : exchanged(x));
        }
    }
};

// The rows that a pass reads or writes: of the caller's vector, row n beginning at element first + n step, ...
template <class R, int W, Form form>
struct OuterSource {
    FftVector<const R> vector;
    std::ptrdiff_t first, step;
    ARK_INLINE Row<R, W> operator()(std::ptrdiff_t n) const
    {
        return Outside<R, W, form>::load(vector, first + n * step);
    }
    ARK_INLINE void getTurned(std::ptrdiff_t (&rows)[W], Row<R, W> (&x)[W]) const
    {
        ARK_UNROLL
        for (auto& row : rows)
            row = first + row * step;
        Outside<R, W, form>::loadTurned(vector, rows, x);
    }
    ARK_INLINE OuterSource beside(std::ptrdiff_t i) const { return {vector, first + i * W, step}; }
};
template <class R, int W, Form form, bool scaled>
struct OuterTarget {
    FftVector<R> vector;
    std::ptrdiff_t first, step;
    R scale;
    ARK_INLINE void operator()(std::ptrdiff_t n, Row<R, W> x) const
    {
        if constexpr (scaled)
            x = scaledBy(x, scale);
        Outside<R, W, form>::store(vector, first + n * step, x);
    }
    ARK_INLINE void putTurned(std::ptrdiff_t (&rows)[W], Row<R, W> (&x)[W]) const
    {
        ARK_UNROLL
        for (int i = 0; i < W; i++) {
            rows[i] = first + rows[i] * step;
            if constexpr (scaled)
                x[i] = scaledBy(x[i], scale);
        }
        Outside<R, W, form>::storeTurned(vector, rows, x);
    }
    ARK_INLINE OuterTarget beside(std::ptrdiff_t i) const { return {vector, first + i * W, step, scale}; }
};

// A row in the tables or the scratch: W real parts and then W imaginary parts.
template <class R, int W>
ARK_INLINE Row<R, W> getRow(const R* from)
{
    if constexpr (W == 1)
        return {getAligned<R, 2>(from)};
    else
        return {getAligned<R, W>(from), getAligned<R, W>(from + W)};
}
template <class R, int W>
ARK_INLINE void putRow(R* to, Row<R, W> x)
{
    if constexpr (W == 1) {
        putAligned<R, 2>(to, x.parts);
    } else {
        putAligned<R, W>(to, x.re);
        putAligned<R, W>(to + W, x.im);
    }
}

// ... or between passes.
template <class R, int W>
struct InnerSource {
    const R* rows;
    std::ptrdiff_t distance = 0; // to the rows beside
    ARK_INLINE Row<R, W> operator()(std::ptrdiff_t n) const { return getRow<R, W>(rows + n * 2 * W); }
    ARK_INLINE InnerSource beside(std::ptrdiff_t i) const { return {rows + i * distance, distance}; }
};
template <class R, int W>
struct InnerTarget {
    R* rows;
    std::ptrdiff_t distance = 0;
    ARK_INLINE void operator()(std::ptrdiff_t n, Row<R, W> x) const { putRow<R, W>(rows + n * 2 * W, x); }
    ARK_INLINE InnerTarget beside(std::ptrdiff_t i) const { return {rows + i * distance, distance}; }
};

} // namespace
} // namespace ark::ARK_SET
