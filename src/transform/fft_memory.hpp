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

// W elements of the caller's vector.
template <class R, int W, Form form>
struct Outside {
    using V = Reg<R, W>;
    static constexpr int P = placesOf<V>;
    static constexpr bool exchanged = form == inversePairs;

    // In the order of lanes, ...
    static ARK_INLINE Cplx<V> load(FftVector<const R> from, std::ptrdiff_t element)
    {
        if constexpr (form == separateParts) {
            const V re = get<R, W>(from.re + element), im = get<R, W>(from.im + element);
            return {shuffled<elementOf<P>>(re, re), shuffled<elementOf<P>>(im, im)};
        } else {
            return deinterleaved<exchanged>(loadInterleaved(from, element));
        }
    }
    static ARK_INLINE void store(FftVector<R> to, std::ptrdiff_t element, Cplx<V> x)
    {
        if constexpr (form == separateParts) {
            put(to.re + element, shuffled<laneOf<P>>(x.re, x.re));
            put(to.im + element, shuffled<laneOf<P>>(x.im, x.im));
        } else {
            storeInterleaved(to, element, interleaved<exchanged>(x));
        }
    }

    // ... or in their own.
    static ARK_INLINE Interleaved<V> loadInterleaved(FftVector<const R> from, std::ptrdiff_t element)
    {
        if constexpr (form == separateParts) {
            const V re = get<R, W>(from.re + element), im = get<R, W>(from.im + element);
            return {shuffled<lowInterleaved>(re, im), shuffled<highInterleaved>(re, im)};
        } else {
            return {get<R, W>(from.re + 2 * element), get<R, W>(from.re + 2 * element + W)};
        }
    }
    static ARK_INLINE void storeInterleaved(FftVector<R> to, std::ptrdiff_t element, Interleaved<V> x)
    {
        if constexpr (form == separateParts) {
            put(to.re + element, shuffled<evenLanes>(x.low, x.high));
            put(to.im + element, shuffled<oddLanes>(x.low, x.high));
        } else {
            put(to.re + 2 * element, x.low);
            put(to.re + 2 * element + W, x.high);
        }
    }

private:
    static constexpr int lowInterleaved(int lane, int lanes) { return lane / 2 + lane % 2 * lanes; }
    static constexpr int highInterleaved(int lane, int lanes) { return lowInterleaved(lane, lanes) + lanes / 2; }
    static constexpr int evenLanes(int lane, int) { return 2 * lane; }
    static constexpr int oddLanes(int lane, int) { return 2 * lane + 1; }
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
    static constexpr bool exchanged = form == inversePairs;
    ARK_INLINE Interleaved<Reg<R, W>> get(std::ptrdiff_t n) const
    {
        return Outside<R, W, form>::loadInterleaved(vector, first + n * step);
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
    static constexpr bool exchanged = form == inversePairs;
    ARK_INLINE void put(std::ptrdiff_t n, Interleaved<Reg<R, W>> x) const
    {
        if constexpr (scaled)
            x = scaledBy(x, scale);
        Outside<R, W, form>::storeInterleaved(vector, first + n * step, x);
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
