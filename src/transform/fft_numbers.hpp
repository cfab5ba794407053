// What the kernels of the complex FFT compute with: registers, complex numbers in them, butterflies, transpositions.
#pragma once

#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

// ---- registers of W lanes, the native ones and narrower ones for short transforms ----

template <class R, int W>
struct RegisterOf {
    typedef R Type __attribute__((vector_size(W * sizeof(R))));
    typedef R InMemory __attribute__((vector_size(W * sizeof(R)), may_alias));
};
template <class R, int W>
using Reg = typename RegisterOf<R, W>::Type;

template <class R, int W>
ARK_INLINE Reg<R, W> get(const R* from)
{
    Reg<R, W> v;
    __builtin_memcpy(&v, from, sizeof v);
    return v;
}
template <class V, class R>
ARK_INLINE void put(R* to, V v)
{
    __builtin_memcpy(to, &v, sizeof v);
}
// In the tables and the scratch.
template <class R, int W>
ARK_INLINE Reg<R, W> getAligned(const R* from)
{
    return *reinterpret_cast<const typename RegisterOf<R, W>::InMemory*>(from);
}
template <class R, int W>
ARK_INLINE void putAligned(R* to, Reg<R, W> v)
{
    *reinterpret_cast<typename RegisterOf<R, W>::InMemory*>(to) = v;
}

template <class V, int (*source)(int lane, int lanes), std::size_t... i>
ARK_INLINE V shuffledIn(V a, V b, std::index_sequence<i...>)
{
    return __builtin_shufflevector(a, b, source(int(i), int(sizeof...(i)))...);
}
template <int (*source)(int lane, int lanes), class V>
ARK_INLINE V shuffled(V a, V b)
{
    return shuffledIn<V, source>(a, b, std::make_index_sequence<lanesOf<V>>{});
}

// Places in blocks of 128 bits: P of them, 4 for floats and 2 for doubles.
template <class V>
inline constexpr int placesOf = int(16 / sizeof(V{}[0]));

// Interleaving inside blocks, by single places and by pairs of places; lane counts on from a to b.
template <int P, int unit>
constexpr int unpackLow(int lane, int lanes)
{
    const int block = lane / P * P, place = lane % P / unit;
    return block + place / 2 * unit + lane % unit + (place % 2 ? lanes : 0);
}
template <int P, int unit>
constexpr int unpackHigh(int lane, int lanes)
{
    return unpackLow<P, unit>(lane, lanes) + P / 2;
}
// Even and odd places of a, then of b, inside blocks.
template <int P>
constexpr int evens(int lane, int lanes)
{
    const int block = lane / P * P, place = lane % P;
    return block + place * 2 % P + (place * 2 >= P ? lanes : 0);
}
template <int P>
constexpr int odds(int lane, int lanes)
{
    return evens<P>(lane, lanes) + 1;
}
// Halves and every second block of a, then of b.
constexpr int lowHalves(int lane, int lanes) { return lane < lanes / 2 ? lane : lane + lanes / 2; }
[[maybe_unused]] constexpr int highHalves(int lane, int lanes) { return lowHalves(lane, lanes) + lanes / 2; }
template <int P>
constexpr int evenBlocks(int lane, int)
{
    return lane / P * 2 * P + lane % P;
}
template <int P>
constexpr int oddBlocks(int lane, int lanes)
{
    return evenBlocks<P>(lane, lanes) + P;
}

// The order of lanes (see the top of fft_kernels.cpp): the element that a lane holds, and the lane that holds an
// element.
template <int P>
constexpr int elementOf(int lane, int lanes)
{
    const int block = lane / P, place = lane % P;
    return P == 4 ? lanes / 2 * (place / 2) + 2 * block + place % 2 : lanes / 2 * place + block;
}
template <int P>
constexpr int laneOf(int element, int lanes)
{
    const int upper = element / (lanes / 2), rest = element % (lanes / 2);
    return P == 4 ? rest / 2 * 4 + upper * 2 + rest % 2 : rest * 2 + upper;
}

// Complex numbers, their real and imaginary parts in two registers, ...
template <class V>
struct Cplx {
    V re, im;
};
template <class V>
ARK_INLINE Cplx<V> operator+(Cplx<V> a, Cplx<V> b)
{
    return {a.re + b.re, a.im + b.im};
}
template <class V>
ARK_INLINE Cplx<V> operator-(Cplx<V> a, Cplx<V> b)
{
    return {a.re - b.re, a.im - b.im};
}
template <class V>
ARK_INLINE Cplx<V> operator-(Cplx<V> a)
{
    return {-a.re, -a.im};
}
template <class V>
ARK_INLINE Cplx<V> operator*(Cplx<V> a, Cplx<V> b)
{
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
template <class V, class R>
ARK_INLINE Cplx<V> scaledBy(Cplx<V> a, R scale)
{
    return {a.re * scale, a.im * scale};
}
template <class V>
ARK_INLINE Cplx<V> timesMinusI(Cplx<V> a)
{
    return {a.im, -a.re};
}
// times e^(-i pi / 4) and e^(-3 i pi / 4); eighth is the square root of one half
template <class V, class R>
ARK_INLINE Cplx<V> timesEighth(Cplx<V> a, R eighth)
{
    const V h = eighth - V{};
    return {(a.re + a.im) * h, (a.im - a.re) * h};
}
template <class V, class R>
ARK_INLINE Cplx<V> timesThreeEighths(Cplx<V> a, R eighth)
{
    const V h = eighth - V{};
    return {(a.im - a.re) * h, -(a.re + a.im) * h};
}

// ... or next to each other, elements 0 to W/2 - 1 and the others, as memory has them. For the inverse transform memory
// has them exchanged, imaginary part first; they stay so.
template <class V>
struct Interleaved {
    V low, high;
};
template <bool exchanged, class V>
ARK_INLINE Interleaved<V> interleaved(Cplx<V> x)
{
    constexpr int P = placesOf<V>;
    const V a = exchanged ? x.im : x.re, b = exchanged ? x.re : x.im;
    return {shuffled<unpackLow<P, 1>>(a, b), shuffled<unpackHigh<P, 1>>(a, b)};
}
template <bool exchanged, class V>
ARK_INLINE Cplx<V> deinterleaved(Interleaved<V> x)
{
    constexpr int P = placesOf<V>;
    const V a = shuffled<evens<P>>(x.low, x.high), b = shuffled<odds<P>>(x.low, x.high);
    return exchanged ? Cplx<V>{b, a} : Cplx<V>{a, b};
}
template <class V, class R>
ARK_INLINE Interleaved<V> scaledBy(Interleaved<V> a, R scale)
{
    return {a.low * scale, a.high * scale};
}

constexpr int neighbourOf(int lane, int) { return lane ^ 1; }

// Every complex number of a register times one of its own, whose parts are {re, re} and {-im, im}.
template <bool exchanged, class V>
ARK_INLINE V timesPairs(V a, Cplx<V> b)
{
    const V neighbours = shuffled<neighbourOf>(a, a);
    return exchanged ? a * b.re - neighbours * b.im : a * b.re + neighbours * b.im;
}

// One stage of a transform over complex numbers of which a register holds those from number first on: the sum of two at
// a distance for the lower one, the difference for the upper one. Those in whose number a bit of turned is set are
// multiplied by -i before, which exchanges their parts; signs, with a sum, cost nothing.
template <int first, int turned>
constexpr bool isTurned(int lane)
{
    return ((first + lane / 2) & turned) != 0;
}
template <int first, int turned>
constexpr int turnedPart(int lane, int)
{
    return isTurned<first, turned>(lane) ? lane ^ 1 : lane;
}
template <int distance>
constexpr int otherOfTwo(int lane, int)
{
    return lane ^ 2 * distance;
}
template <int distance>
constexpr int lowerOfTwo(int lane, int)
{
    return lane & ~(2 * distance);
}
template <int first, int distance, int turned>
constexpr int upperOfTwo(int lane, int lanes)
{
    return turnedPart<first, turned>(lane | 2 * distance, lanes);
}
template <class R, int W, int first, int distance, int turned, bool exchanged, std::size_t... lane>
ARK_INLINE Reg<R, W> signsOfStage(std::index_sequence<lane...>)
{
    return Reg<R, W>{((lane / 2 & distance) != 0) != (isTurned<first, turned>(int(lane)) && lane % 2 != exchanged)
                         ? R(-1)
                         : R(1)...};
}
template <class R, int W, int first, int turned, bool exchanged>
ARK_INLINE Reg<R, W> timesMinusIWhere(Reg<R, W> x)
{
    return shuffled<turnedPart<first, turned>>(x, x) *
           signsOfStage<R, W, first, 0, turned, exchanged>(std::make_index_sequence<W>{});
}
template <class R, int W, int first, int distance, int turned, bool exchanged>
ARK_INLINE Reg<R, W> stageInRegister(Reg<R, W> x)
{
    const Reg<R, W> signs = signsOfStage<R, W, first, distance, turned, exchanged>(std::make_index_sequence<W>{});
    if constexpr (turned == 0 || (first == 0 && turned >= W / 2))
        return x * signs + shuffled<otherOfTwo<distance>>(x, x);
    else
        return shuffled<lowerOfTwo<distance>>(x, x) + shuffled<upperOfTwo<first, distance, turned>>(x, x) * signs;
}

// ... or one of them at the beginning of a register of 128 bits. Parts apart would have to be brought together again:
// of two doubles to no purpose, and the shortest transforms take less time than that.
template <class R>
struct Pair {
    using V = Reg<R, 16 / sizeof(R)>;
    V parts;
};
template <class R>
ARK_INLINE Pair<R> exchanged(Pair<R> a)
{
    return {shuffled<neighbourOf>(a.parts, a.parts)};
}
template <class R>
ARK_INLINE Pair<R> operator+(Pair<R> a, Pair<R> b)
{
    return {a.parts + b.parts};
}
template <class R>
ARK_INLINE Pair<R> operator-(Pair<R> a, Pair<R> b)
{
    return {a.parts - b.parts};
}
template <class R>
ARK_INLINE Pair<R> operator-(Pair<R> a)
{
    return {-a.parts};
}
template <class R>
ARK_INLINE Pair<R> scaledBy(Pair<R> a, R scale)
{
    return {a.parts * scale};
}
template <class R>
ARK_INLINE Pair<R> timesMinusI(Pair<R> a)
{
    using V = typename Pair<R>::V;
    return {V(__m128i(exchanged(a).parts) ^ __m128i(V{R(0), R(-0.0)}))};
}
template <class R>
ARK_INLINE Pair<R> timesEighth(Pair<R> a, R eighth)
{
    return scaledBy(a + timesMinusI(a), eighth);
}
template <class R>
ARK_INLINE Pair<R> timesThreeEighths(Pair<R> a, R eighth)
{
    return scaledBy(timesMinusI(a) - a, eighth);
}

// What a pair is multiplied by: {re, re} and {-im, im}.
template <class R>
struct PairFactor {
    typename Pair<R>::V re, im;
};
template <class R>
ARK_INLINE Pair<R> operator*(Pair<R> a, PairFactor<R> b)
{
    return {a.parts * b.re + exchanged(a).parts * b.im};
}

// W complex numbers, and their product with one.
template <class R, int W>
using Row = std::conditional_t<W == 1, Pair<R>, Cplx<Reg<R, W>>>;
template <class V, class R>
ARK_INLINE Cplx<V> times(Cplx<V> x, R re, R im)
{
    return x * Cplx<V>{re - V{}, im - V{}};
}
template <class R>
ARK_INLINE Pair<R> times(Pair<R> x, R re, R im)
{
    return x * PairFactor<R>{{re, re}, {-im, im}};
}

// What comes from memory as it is GCC loads anew for every use, with the instruction that uses it, and a pass waits for
// loads sooner than for instructions. From here on it is in registers. (The product of a pair begins with an exchange.)
template <class V>
ARK_INLINE Cplx<V> loadedOnce(Cplx<V> x)
{
    asm("" : "+v"(x.re), "+v"(x.im));
    return x;
}
template <class R>
ARK_INLINE Pair<R> loadedOnce(Pair<R> x)
{
    return x;
}

// sqrt(1/2), both parts of the root of unity at an eighth of the circle. The float transforms up to order 11 have
// always used a float that is 4 ulps above it, and their results depend on it; they keep it.
inline constexpr int longestOfEighth = 11;
template <class R>
constexpr R eighthOf(int order)
{
    return sizeof(R) == 4 && order <= longestOfEighth ? R(0x1.6A09EEp-1) : R(0.70710678118654752440);
}

// ---- bit reversal ----

constexpr int log2Of(int n) { return n <= 1 ? 0 : 1 + log2Of(n / 2); }

constexpr int reversed(int i, int count)
{
    int result = 0;
    for (; count > 1; count /= 2, i /= 2)
        result = 2 * result + i % 2;
    return result;
}

// Counts in bit-reversed order: the place of the next index among count.
ARK_INLINE std::ptrdiff_t nextReversed(std::ptrdiff_t place, std::ptrdiff_t count)
{
    std::ptrdiff_t bit = count / 2;
    for (; bit & place; bit /= 2)
        place ^= bit;
    return place | bit;
}

// ---- butterflies: forward transforms of 2, 4, 8 complex numbers, in natural order; eighth as above ----

template <class C, class R>
ARK_INLINE void butterfly(C (&x)[1], R)
{
    static_cast<void>(x);
}
template <class C, class R>
ARK_INLINE void butterfly(C (&x)[2], R)
{
    const C a = x[0] + x[1];
    x[1] = x[0] - x[1];
    x[0] = a;
}
template <class C, class R>
ARK_INLINE void butterfly(C (&x)[4], R)
{
    const C s02 = x[0] + x[2], d02 = x[0] - x[2], s13 = x[1] + x[3], d13 = timesMinusI(x[1] - x[3]);
    x[0] = s02 + s13;
    x[2] = s02 - s13;
    x[1] = d02 + d13;
    x[3] = d02 - d13;
}
template <class C, class R>
ARK_INLINE void butterfly(C (&x)[8], R eighth)
{
    C even[4] = {x[0] + x[4], x[1] + x[5], x[2] + x[6], x[3] + x[7]};
    const C d0 = x[0] - x[4], d1 = x[1] - x[5], d2 = x[2] - x[6], d3 = x[3] - x[7];
    butterfly(even, eighth);
    // The odd results: the differences d_n times w_8^n, whose first and last share the square root of one half.
    const C turned = timesMinusI(d1 + d3), s02 = d0 + timesMinusI(d2), d02 = d0 - timesMinusI(d2);
    const C s13 = scaledBy(turned + (d1 - d3), eighth), d13 = scaledBy(turned - (d1 - d3), eighth);
    const C odd[4] = {s02 + s13, d02 + d13, s02 - s13, d02 - d13};
    ARK_UNROLL
    for (int i = 0; i < 4; i++) {
        x[2 * i] = even[i];
        x[2 * i + 1] = odd[i];
    }
}

// The cosine and the sine of 2 pi i / N.
constexpr long double cosineOf(int i, int N)
{
    const long double angle = 2 * 3.14159265358979323846264338327950288L * (2 * i > N ? N - i : i) / N;
    long double term = 1, sum = 1;
    for (int n = 2; n < 40; n += 2) {
        term *= -angle * angle / (n * (n - 1));
        sum += term;
    }
    return sum;
}
constexpr long double sineOf(int i, int N)
{
    const long double angle = 2 * 3.14159265358979323846264338327950288L * (2 * i > N ? N - i : i) / N;
    long double term = angle, sum = angle;
    for (int n = 3; n < 41; n += 2) {
        term *= -angle * angle / (n * (n - 1));
        sum += term;
    }
    return 2 * i > N ? -sum : sum;
}

// The roots of unity e^(-2 pi i a / N), when compiled.
template <class R, int N>
struct ConstantRoots {
    R re[N]{}, im[N]{};

    constexpr ConstantRoots()
    {
        for (int a = 0; a < N; a++) {
            re[a] = R(cosineOf(a, N));
            im[a] = R(-sineOf(a, N));
        }
    }
};
template <class R, int N>
constexpr ConstantRoots<R, N> constantRoots{};

// x e^(-2 pi i a / N), a < 3/4 N
template <int N, class C, class R>
ARK_INLINE C timesRoot(C x, int a, R eighth)
{
    constexpr auto& roots = constantRoots<R, N>;
    if (a % (N / 8) != 0)
        return times(x, roots.re[a], roots.im[a]);
    if (a == N / 8)
        return timesEighth(x, eighth);
    if (a == 2 * N / 8)
        return timesMinusI(x);
    if (a == 3 * N / 8)
        return timesThreeEighths(x, eighth);
    if (a == 4 * N / 8)
        return -x;
    if (a == 5 * N / 8)
        return -timesEighth(x, eighth);
    return x;
}

// From and to where the elements are: give(first, step, x) and take(first, step, x) are called for every group of
// elements first + i step, in natural order. Longer ones are N1 by 4, n = 4 n1 + n2 and k = k1 + N1 k2: registers hold
// a group of those, not all elements.
template <int N, class C, class R, class Give, class Take>
ARK_INLINE void butterflyInGroups(R eighth, Give give, Take take)
{
    if constexpr (N <= 8) {
        C x[N];
        give(0, 1, x);
        butterfly(x, eighth);
        take(0, 1, x);
    } else {
        constexpr int N1 = N / 4;
        C y[4][N1];
        ARK_UNROLL
        for (int n2 = 0; n2 < 4; n2++) {
            give(n2, 4, y[n2]);
            butterfly(y[n2], eighth);
        }
        ARK_UNROLL
        for (int k1 = 0; k1 < N1; k1++) {
            C z[4];
            ARK_UNROLL
            for (int n2 = 0; n2 < 4; n2++)
                z[n2] = timesRoot<N>(y[n2][k1], n2 * k1, eighth);
            butterfly(z, eighth);
            take(k1, N1, z);
        }
    }
}
template <class C, class R, int N>
ARK_INLINE void butterfly(C (&x)[N], R eighth)
{
    butterflyInGroups<N, C>(
        eighth,
        [&]<int count>(int first, int step, C(&group)[count]) ARK_INLINED {
            ARK_UNROLL
            for (int i = 0; i < count; i++)
                group[i] = x[first + i * step];
        },
        [&]<int count>(int first, int step, C(&group)[count]) ARK_INLINED {
            ARK_UNROLL
            for (int i = 0; i < count; i++)
                x[first + i * step] = group[i];
        });
}

// ---- transpositions ----

// P registers of places by rows, transposed inside their blocks: register p then has place p of all P rows.
template <class V>
ARK_INLINE void transposeInBlocks(V (&x)[4])
{
    const V a = shuffled<unpackLow<4, 1>>(x[0], x[1]), b = shuffled<unpackHigh<4, 1>>(x[0], x[1]);
    const V c = shuffled<unpackLow<4, 1>>(x[2], x[3]), d = shuffled<unpackHigh<4, 1>>(x[2], x[3]);
    x[0] = shuffled<unpackLow<4, 2>>(a, c);
    x[1] = shuffled<unpackHigh<4, 2>>(a, c);
    x[2] = shuffled<unpackLow<4, 2>>(b, d);
    x[3] = shuffled<unpackHigh<4, 2>>(b, d);
}
template <class V>
ARK_INLINE void transposeInBlocks(V (&x)[2])
{
    const V a = shuffled<unpackLow<2, 1>>(x[0], x[1]);
    x[1] = shuffled<unpackHigh<2, 1>>(x[0], x[1]);
    x[0] = a;
}

// Complex numbers next to each other: two registers of two a block, or one of one.
template <class V>
ARK_INLINE void transposePairsInBlocks(V (&x)[2])
{
    const V a = shuffled<unpackLow<4, 2>>(x[0], x[1]);
    x[1] = shuffled<unpackHigh<4, 2>>(x[0], x[1]);
    x[0] = a;
}
template <class V>
ARK_INLINE void transposePairsInBlocks(V (&)[1])
{}

// B registers of B blocks each, transposed by blocks.
template <int P, class V>
ARK_INLINE void transposeBlocks(V (&x)[1])
{
    static_cast<void>(x);
}
template <int P, class V>
ARK_INLINE void transposeBlocks(V (&x)[2])
{
    const V a = shuffled<lowHalves>(x[0], x[1]);
    x[1] = shuffled<highHalves>(x[0], x[1]);
    x[0] = a;
}
template <int P, class V>
ARK_INLINE void transposeBlocks(V (&x)[4])
{
    const V a = shuffled<lowHalves>(x[0], x[1]), b = shuffled<highHalves>(x[0], x[1]);
    const V c = shuffled<lowHalves>(x[2], x[3]), d = shuffled<highHalves>(x[2], x[3]);
    x[0] = shuffled<evenBlocks<P>>(a, c);
    x[1] = shuffled<oddBlocks<P>>(a, c);
    x[2] = shuffled<evenBlocks<P>>(b, d);
    x[3] = shuffled<oddBlocks<P>>(b, d);
}

// W rows transposed: register i then has lane i of all of them.
template <class V>
ARK_INLINE void transposeReals(V* x)
{
    constexpr int P = placesOf<V>, B = lanesOf<V> / P;
    V inBlocks[B][P];
    ARK_UNROLL
    for (int group = 0; group < B; group++) {
        ARK_UNROLL
        for (int r = 0; r < P; r++)
            inBlocks[group][r] = x[group * P + r];
        transposeInBlocks(inBlocks[group]);
    }
    ARK_UNROLL
    for (int p = 0; p < P; p++) {
        V blocks[B];
        ARK_UNROLL
        for (int group = 0; group < B; group++)
            blocks[group] = inBlocks[group][p];
        transposeBlocks<P>(blocks);
        ARK_UNROLL
        for (int b = 0; b < B; b++)
            x[b * P + p] = blocks[b];
    }
}

template <class V, int W>
ARK_INLINE void transpose(Cplx<V> (&x)[W])
{
    V re[W], im[W];
    ARK_UNROLL
    for (int i = 0; i < W; i++) {
        re[i] = x[i].re;
        im[i] = x[i].im;
    }
    transposeReals(re);
    transposeReals(im);
    ARK_UNROLL
    for (int i = 0; i < W; i++)
        x[i] = {re[i], im[i]};
}
template <class R>
ARK_INLINE void transpose(Pair<R> (&)[1])
{}

} // namespace
} // namespace ark::ARK_SET
