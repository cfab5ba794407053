// The complex FFT of 2^order elements.
//
// A register has W lanes. Element W n + l of the source belongs to lane l and row n: with M = N / W rows
//
//   X[k + M q] = sum over l of  w_W^(l q)  w_N^(l k)  Y_l[k],      Y_l[k] = sum over n of w_M^(n k) x[W n + l]
//
// with w_N = e^(-2 pi i / N). The rows pass: the transforms Y_l run in all lanes at once, Stockham passes of radix 4 and 8
// over the rows, with twiddles that are the same for all lanes. The lanes pass: for W rows k at a time the twiddles
// w_N^(l k), a transposition, and the transform over l as radix 2 and radix W / 2, whose results are whole registers of
// neighbouring k. Between passes a row is W real parts and then W imaginary parts.
//
// The order of lanes that a deinterleaving inside blocks of 128 bits gives is l = W/2 p1 + 2 b + p0 for floats (b the
// block, p1 p0 the place in it) and l = W/2 p + b for doubles; it is kept throughout: the first factor of the transform
// over l is the radix 2 over p1 or p, and the table of the lanes pass is in that order.
#include "frame/kernels.hpp"
#include "transform/fft_kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

// ---- registers of W lanes, the native ones and narrower ones for short transforms ----

template <class R, int W>
struct RegisterOf {
    typedef R Type __attribute__((vector_size(W * sizeof(R))));
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
// Halves of a, then of b.
template <int P>
constexpr int blocksLow(int lane, int lanes)
{
    return lane < lanes / 2 ? lane : lanes + lane - lanes / 2;
}
template <int P>
constexpr int blocksHigh(int lane, int lanes)
{
    return blocksLow<P>(lane, lanes) + lanes / 2;
}

// The order of lanes (see the top of the file): the element that a lane holds, and the lane that holds an element.
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
ARK_INLINE Cplx<V> operator*(Cplx<V> a, Cplx<V> b)
{
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
template <class V>
ARK_INLINE Cplx<V> timesMinusI(Cplx<V> a)
{
    return {a.im, -a.re};
}

template <class R, int W>
ARK_INLINE Reg<R, W> all(R x)
{
    return x - Reg<R, W>{};
}

template <class V>
inline constexpr auto halfRoot = decltype(V{}[0] + V{}[0])(0.70710678118654752440);
template <>
inline constexpr auto halfRoot<float> = 0.70710678118654752440f;
template <>
inline constexpr auto halfRoot<double> = 0.70710678118654752440;

// ---- butterflies: forward transforms of 2, 4, 8 complex numbers, in natural order ----

template <class V>
ARK_INLINE void butterfly(Cplx<V> (&x)[1])
{
    static_cast<void>(x);
}
template <class V>
ARK_INLINE void butterfly(Cplx<V> (&x)[2])
{
    const Cplx<V> a = x[0] + x[1];
    x[1] = x[0] - x[1];
    x[0] = a;
}
template <class V>
ARK_INLINE void butterfly(Cplx<V> (&x)[4])
{
    const Cplx<V> s02 = x[0] + x[2], d02 = x[0] - x[2], s13 = x[1] + x[3], d13 = x[1] - x[3];
    x[0] = s02 + s13;
    x[2] = s02 - s13;
    x[1] = {d02.re + d13.im, d02.im - d13.re};
    x[3] = {d02.re - d13.im, d02.im + d13.re};
}
template <class V>
ARK_INLINE void butterfly(Cplx<V> (&x)[8])
{
    Cplx<V> even[4] = {x[0] + x[4], x[1] + x[5], x[2] + x[6], x[3] + x[7]};
    const Cplx<V> d0 = x[0] - x[4], d1 = x[1] - x[5], d2 = x[2] - x[6], d3 = x[3] - x[7];
    butterfly(even);
    // The odd results: the differences times w_8^n.
    const V h = V{} + halfRoot<V>;
    Cplx<V> odd[4] = {d0, {(d1.re + d1.im) * h, (d1.im - d1.re) * h}, timesMinusI(d2), {(d3.im - d3.re) * h, -(d3.re + d3.im) * h}};
    butterfly(odd);
    for (int i = 0; i < 4; i++) {
        x[2 * i] = even[i];
        x[2 * i + 1] = odd[i];
    }
}

// ---- rows ----

// Rows in memory: row n has its W real parts at re + n stride and its imaginary parts at im + n stride.
template <class R>
struct Rows {
    R *re, *im;
    std::ptrdiff_t stride;
};

template <class R, int W>
struct RowReader {
    Rows<const R> rows;
    ARK_INLINE Cplx<Reg<R, W>> operator()(std::ptrdiff_t n) const
    {
        return {get<R, W>(rows.re + n * rows.stride), get<R, W>(rows.im + n * rows.stride)};
    }
};
template <class R, int W>
struct RowWriter {
    Rows<R> rows;
    ARK_INLINE void operator()(std::ptrdiff_t n, Cplx<Reg<R, W>> x) const
    {
        put(rows.re + n * rows.stride, x.re);
        put(rows.im + n * rows.stride, x.im);
    }
};

// Row n of the caller's vector. For the inverse transform real and imaginary parts exchange roles on the way in and out.
template <class R, int W, bool inverse, bool isSeparate>
struct SourceReader {
    const R *re, *im;
    ARK_INLINE Cplx<Reg<R, W>> operator()(std::ptrdiff_t n) const
    {
        using V = Reg<R, W>;
        V a, b;
        if constexpr (isSeparate) {
            const V x = get<R, W>(re + n * W), y = get<R, W>(im + n * W);
            a = shuffled<elementOf<placesOf<V>>>(x, x);
            b = shuffled<elementOf<placesOf<V>>>(y, y);
        } else {
            const V x = get<R, W>(re + 2 * n * W), y = get<R, W>(re + 2 * n * W + W);
            a = shuffled<evens<placesOf<V>>>(x, y);
            b = shuffled<odds<placesOf<V>>>(x, y);
        }
        return inverse ? Cplx<V>{b, a} : Cplx<V>{a, b};
    }
};

// One Stockham pass of the rows' transform: of length n now, s interleaved ones of it, radix r. Reads rows
// q + s p + t n s / r (t = 0 ... r-1), writes rows q + s (r p + j) with twiddles w_n^(j p), p = 0 ... n/r - 1 in the
// table's order: r - 1 pairs for each p. The last pass (n = r) has no twiddles and may run in place.
template <class R, int W, int radix, class Read, class Write>
ARK_INLINE void rowsPass(Read read, Write write, std::ptrdiff_t n, std::ptrdiff_t s, const R* table)
{
    using V = Reg<R, W>;
    const std::ptrdiff_t apart = n * s / radix;
    // p = 0 needs no twiddles.
    for (std::ptrdiff_t q = 0; q < s; q++) {
        Cplx<V> x[radix];
        for (int t = 0; t < radix; t++)
            x[t] = read(q + t * apart);
        butterfly(x);
        for (int j = 0; j < radix; j++)
            write(q + s * j, x[j]);
    }
    for (std::ptrdiff_t p = 1; p < n / radix; p++) {
        const R* w = table + p * 2 * (radix - 1);
        for (std::ptrdiff_t q = 0; q < s; q++) {
            Cplx<V> x[radix];
            for (int t = 0; t < radix; t++)
                x[t] = read(q + s * p + t * apart);
            butterfly(x);
            write(q + s * radix * p, x[0]);
            for (int j = 1; j < radix; j++)
                write(q + s * (radix * p + j), x[j] * Cplx<V>{all<R, W>(w[2 * j - 2]), all<R, W>(w[2 * j - 1])});
        }
    }
}

// ---- the lanes pass ----

// P rows, whose blocks are P by P, transposed inside their blocks: register p then has place p of all P rows.
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

// B registers of B blocks each, transposed by blocks.
template <int P, class V>
ARK_INLINE void transposeBlocks(V (&x)[1])
{
    static_cast<void>(x);
}
template <int P, class V>
ARK_INLINE void transposeBlocks(V (&x)[2])
{
    const V a = shuffled<blocksLow<P>>(x[0], x[1]);
    x[1] = shuffled<blocksHigh<P>>(x[0], x[1]);
    x[0] = a;
}
template <int P>
constexpr int evenBlocks(int lane, int lanes)
{
    static_cast<void>(lanes);
    return lane / P * 2 * P + lane % P;
}
template <int P>
constexpr int oddBlocks(int lane, int lanes)
{
    return evenBlocks<P>(lane, lanes) + P;
}
template <int P, class V>
ARK_INLINE void transposeBlocks(V (&x)[4])
{
    const V a = shuffled<blocksLow<P>>(x[0], x[1]), b = shuffled<blocksHigh<P>>(x[0], x[1]);
    const V c = shuffled<blocksLow<P>>(x[2], x[3]), d = shuffled<blocksHigh<P>>(x[2], x[3]);
    x[0] = shuffled<evenBlocks<P>>(a, c);
    x[1] = shuffled<oddBlocks<P>>(a, c);
    x[2] = shuffled<evenBlocks<P>>(b, d);
    x[3] = shuffled<oddBlocks<P>>(b, d);
}

template <class R, int W, bool inverse, bool isSeparate, bool scaled>
ARK_INLINE void lanesPass(Rows<const R> rows, FftVector<R> dst, std::ptrdiff_t M, const R* table, const R* halfTwiddles,
                          R scale)
{
    using V = Reg<R, W>;
    constexpr int P = placesOf<V>, B = W / P, half = P / 2, H = W / 2;
    const RowReader<R, W> read{rows};
    for (std::ptrdiff_t k0 = 0; k0 < M; k0 += W) {
        // tile[q1][p0][group]: after the radix-2 step
        alignas(64) R tile[2][half][B][2][W];
        for (int group = 0; group < B; group++) {
            V re[P], im[P];
            for (int r = 0; r < P; r++) {
                const int row = elementOf<P>(group * P + r, W); // interleaving inside blocks then makes neighbours
                const R* w = table + (k0 + row) * 2 * W;
                const Cplx<V> x = read(k0 + row) * Cplx<V>{get<R, W>(w), get<R, W>(w + W)};
                re[r] = x.re;
                im[r] = x.im;
            }
            transposeInBlocks(re);
            transposeInBlocks(im);
            for (int p = 0; p < half; p++) {
                const Cplx<V> a{re[p], im[p]}, b{re[p + half], im[p + half]};
                const Cplx<V> w{get<R, W>(halfTwiddles + 2 * p * W), get<R, W>(halfTwiddles + 2 * p * W + W)};
                const Cplx<V> s = a + b, d = (a - b) * w;
                put(tile[0][p][group][0], s.re);
                put(tile[0][p][group][1], s.im);
                put(tile[1][p][group][0], d.re);
                put(tile[1][p][group][1], d.im);
            }
        }
        for (int q1 = 0; q1 < 2; q1++) {
            Cplx<V> x[H];
            for (int p = 0; p < half; p++) {
                V re[B], im[B];
                for (int group = 0; group < B; group++) {
                    re[group] = get<R, W>(tile[q1][p][group][0]);
                    im[group] = get<R, W>(tile[q1][p][group][1]);
                }
                transposeBlocks<P>(re);
                transposeBlocks<P>(im);
                for (int b = 0; b < B; b++)
                    x[half * b + p] = {re[b], im[b]};
            }
            butterfly(x);
            for (int q2 = 0; q2 < H; q2++) {
                const std::ptrdiff_t k = k0 + M * (q1 + 2 * q2);
                V re = inverse ? x[q2].im : x[q2].re, im = inverse ? x[q2].re : x[q2].im;
                if constexpr (scaled) {
                    re *= scale;
                    im *= scale;
                }
                if constexpr (isSeparate) {
                    put(dst.re + k, shuffled<laneOf<P>>(re, re));
                    put(dst.im + k, shuffled<laneOf<P>>(im, im));
                } else {
                    put(dst.re + 2 * k, shuffled<unpackLow<P, 1>>(re, im));
                    put(dst.re + 2 * k + W, shuffled<unpackHigh<P, 1>>(re, im));
                }
            }
        }
    }
}

// ---- the whole transform ----

constexpr int log2Of(int n) { return n == 1 ? 0 : 1 + log2Of(n / 2); }

// The widest register in which an order has a square of rows and lanes; 0 for the orders that are done in scalars.
template <class R>
ARK_INLINE int widthFor(int order)
{
    for (int width = lanes<R>; width >= int(16 / sizeof(R)); width /= 2)
        if (order >= 2 * log2Of(width))
            return width;
    return 0;
}

// The radices of the rows' transform of 2^m rows.
struct Plan {
    int passes;
    int log2Radix[12];
};

ARK_INLINE Plan planOf(int m)
{
    Plan plan{0, {}};
    const int most = ARK_AVX512 ? 3 : 2;
    if (most == 2 && m % 2 == 1 && m > 1) {
        plan.log2Radix[plan.passes++] = 3;
        m -= 3;
    }
    while (m > 0) {
        int radix = m < most ? m : most;
        if (most == 3 && (m == 4 || m == 2 || m % 3 == 1) && m > 1)
            radix = 2;
        plan.log2Radix[plan.passes++] = radix;
        m -= radix;
    }
    return plan;
}

// The table: for every pass but the last the twiddles of rowsPass; then for every row W real parts and W imaginary parts
// of w_N^(l k) in the order of lanes; then the twiddles of the radix-2 step of the lanes pass.
template <class R>
std::size_t tableSize(int order)
{
    const int W = widthFor<R>(order);
    if (W == 0)
        return 0;
    const int m = order - log2Of(W);
    const Plan plan = planOf(m);
    std::size_t size = 0;
    int left = m;
    for (int i = 0; i + 1 < plan.passes; i++) {
        const int radix = 1 << plan.log2Radix[i];
        left -= plan.log2Radix[i];
        size += std::size_t(2 * (radix - 1)) << left;
    }
    size = (size + 15) / 16 * 16;
    return size + (std::size_t(2) << order) + std::size_t(2 * W * 2);
}

template <class Wide>
struct Root {
    Wide re, im;
};

// e^(-2 pi i a / 2^order) by an angle of at most an eighth of the circle.
template <class Wide>
Root<Wide> rootOf(std::size_t a, int order)
{
    constexpr long double pi = 3.14159265358979323846264338327950288L;
    const std::size_t N = std::size_t(1) << order;
    const std::size_t octants = a * 8;
    const int octant = int(octants >> order);
    // The distance to the nearer of the axes, in units of 1/N.
    const std::size_t quarter = N / 4;
    Root<Wide> r;
    const auto angle = [&](std::size_t steps) { return Wide(2) * Wide(pi) * Wide(steps) / Wide(N); };
    const auto sine = [](Wide x) { return sizeof(Wide) == 8 ? Wide(__builtin_sin(double(x))) : Wide(__builtin_sinl(x)); };
    const auto cosine = [](Wide x) { return sizeof(Wide) == 8 ? Wide(__builtin_cos(double(x))) : Wide(__builtin_cosl(x)); };
    switch (octant) {
    case 0: r = {cosine(angle(a)), -sine(angle(a))}; break;
    case 1: r = {sine(angle(quarter - a)), -cosine(angle(quarter - a))}; break;
    case 2: r = {-sine(angle(a - quarter)), -cosine(angle(a - quarter))}; break;
    case 3: r = {-cosine(angle(2 * quarter - a)), -sine(angle(2 * quarter - a))}; break;
    case 4: r = {-cosine(angle(a - 2 * quarter)), sine(angle(a - 2 * quarter))}; break;
    case 5: r = {-sine(angle(3 * quarter - a)), cosine(angle(3 * quarter - a))}; break;
    case 6: r = {sine(angle(a - 3 * quarter)), cosine(angle(a - 3 * quarter))}; break;
    default: r = {cosine(angle(N - a)), sine(angle(N - a))}; break;
    }
    return r;
}

// What a product is formed in that is to be rounded to R once.
template <class R>
struct WiderThan;
template <>
struct WiderThan<float> {
    using Type = double;
};
template <>
struct WiderThan<double> {
    using Type = long double;
};

// All roots of one order, each as the product of two that were computed on their own.
template <class R>
class Roots {
public:
    explicit Roots(int order) : fineBits_{(order + 1) / 2}
    {
        for (std::size_t i = 0; i < std::size_t(1) << fineBits_; i++)
            fine_[i] = rootOf<Wide>(i, order);
        for (std::size_t i = 0; i < std::size_t(1) << (order - fineBits_); i++)
            coarse_[i] = rootOf<Wide>(i << fineBits_, order);
    }
    ARK_INLINE void get(std::size_t a, R& re, R& im) const
    {
        const Root<Wide> c = coarse_[a >> fineBits_], f = fine_[a & ((std::size_t(1) << fineBits_) - 1)];
        re = R(c.re * f.re - c.im * f.im);
        im = R(c.re * f.im + c.im * f.re);
    }

private:
    using Wide = typename WiderThan<R>::Type;

    int fineBits_;
    Root<Wide> fine_[1024], coarse_[1024];
};

template <class R>
void fillTable(int order, R* table)
{
    const int W = widthFor<R>(order);
    if (W == 0)
        return;
    const int m = order - log2Of(W);
    const Plan plan = planOf(m);
    const Roots<R> roots(order);
    R* at = table;
    int left = m;
    for (int i = 0; i + 1 < plan.passes; i++) {
        const int radix = 1 << plan.log2Radix[i], step = order - left;
        left -= plan.log2Radix[i];
        for (std::size_t p = 0; p < std::size_t(1) << left; p++)
            for (int j = 1; j < radix; j++, at += 2)
                roots.get((p * std::size_t(j)) << step, at[0], at[1]);
    }
    at = table + (at - table + 15) / 16 * 16;
    const int P = int(16 / sizeof(R));
    for (std::size_t k = 0; k < std::size_t(1) << m; k++, at += 2 * W)
        for (int lane = 0; lane < W; lane++)
            roots.get(k * std::size_t(P == 4 ? elementOf<4>(lane, W) : elementOf<2>(lane, W)), at[lane], at[W + lane]);
    for (int p = 0; p < P / 2; p++, at += 2 * W)
        for (int lane = 0; lane < W; lane++)
            roots.get(std::size_t(lane / P * (P / 2) + p) << m, at[lane], at[W + lane]);
}

template <class R>
std::size_t scratchSize(int order)
{
    return widthFor<R>(order) == 0 ? 0 : std::size_t(2) << order;
}

template <class R, int W, class Read, class Write>
ARK_INLINE void anyPass(int log2Radix, Read read, Write write, std::ptrdiff_t n, std::ptrdiff_t s, const R* table)
{
    switch (log2Radix) {
    case 1: return rowsPass<R, W, 2>(read, write, n, s, table);
    case 2: return rowsPass<R, W, 4>(read, write, n, s, table);
    default: return rowsPass<R, W, 8>(read, write, n, s, table);
    }
}

template <class R, int W, bool inverse, bool isSeparate>
void transformRegisters(FftVector<const R> src, FftVector<R> dst, int order, const R* table, R* scratch, R scale)
{
    const int m = order - log2Of(W);
    const Plan plan = planOf(m);
    const Rows<R> inScratch{scratch, scratch + W, 2 * W};
    const Rows<R> inDst = isSeparate ? Rows<R>{dst.re, dst.im, W} : Rows<R>{dst.re, dst.re + W, 2 * W};
    const R* at = table;
    std::ptrdiff_t n = std::ptrdiff_t{1} << m, s = 1;
    Rows<R> from = inScratch;
    for (int i = 0; i < plan.passes; i++) {
        const bool last = i == plan.passes - 1;
        const Rows<R> to = last || i % 2 == 0 ? inScratch : inDst;
        const RowWriter<R, W> write{to};
        if (i == 0)
            anyPass<R, W>(plan.log2Radix[i], SourceReader<R, W, inverse, isSeparate>{src.re, src.im}, write, n, s, at);
        else
            anyPass<R, W>(plan.log2Radix[i], RowReader<R, W>{{from.re, from.im, from.stride}}, write, n, s, at);
        const std::ptrdiff_t radix = std::ptrdiff_t{1} << plan.log2Radix[i];
        n /= radix;
        if (!last)
            at += n * 2 * (radix - 1);
        s *= radix;
        from = to;
    }
    at = table + (at - table + 15) / 16 * 16;
    const std::ptrdiff_t M = std::ptrdiff_t{1} << m;
    const R* const halfTwiddles = at + M * 2 * W;
    const Rows<const R> rows{scratch, scratch + W, 2 * W};
    if (scale == 1)
        lanesPass<R, W, inverse, isSeparate, false>(rows, dst, M, at, halfTwiddles, scale);
    else
        lanesPass<R, W, inverse, isSeparate, true>(rows, dst, M, at, halfTwiddles, scale);
}

// Orders too short for registers, in scalars.
template <class R, bool inverse, bool isSeparate, int N>
ARK_INLINE void transformScalars(FftVector<const R> src, FftVector<R> dst, R scale)
{
    constexpr int stride = isSeparate ? 1 : 2;
    Cplx<R> x[N];
    for (int i = 0; i < N; i++)
        x[i] = inverse ? Cplx<R>{src.im[i * stride], src.re[i * stride]} : Cplx<R>{src.re[i * stride], src.im[i * stride]};
    butterfly(x);
    for (int i = 0; i < N; i++) {
        dst.re[i * stride] = (inverse ? x[i].im : x[i].re) * scale;
        dst.im[i * stride] = (inverse ? x[i].re : x[i].im) * scale;
    }
}

template <class R, bool inverse, bool isSeparate>
void transform(FftVector<const R> src, FftVector<R> dst, int order, const R* table, R* scratch, R scale)
{
    constexpr int native = lanes<R>, least = int(16 / sizeof(R));
    const int W = widthFor<R>(order);
    if (W == native)
        return transformRegisters<R, native, inverse, isSeparate>(src, dst, order, table, scratch, scale);
    if constexpr (native / 2 >= least)
        if (W == native / 2)
            return transformRegisters<R, native / 2, inverse, isSeparate>(src, dst, order, table, scratch, scale);
    if constexpr (native / 4 >= least)
        if (W == native / 4)
            return transformRegisters<R, native / 4, inverse, isSeparate>(src, dst, order, table, scratch, scale);
    switch (order) {
    case 1: return transformScalars<R, inverse, isSeparate, 2>(src, dst, scale);
    case 2: return transformScalars<R, inverse, isSeparate, 4>(src, dst, scale);
    default: return transformScalars<R, inverse, isSeparate, 8>(src, dst, scale);
    }
}

} // namespace
} // namespace ark::ARK_SET
