// The complex FFT of 2^order elements.
//
// A register has W lanes. Element W n + l of the source belongs to lane l and row n: with M = N / W rows
//
//   X[k + M q] = sum over l of  w_W^(l q)  w_N^(l k)  Y_l[k],      Y_l[k] = sum over n of w_M^(n k) x[W n + l]
//
// with w_N = e^(-2 pi i / N). The rows: the transforms Y_l run in all lanes at once, passes of radix 4 and 8 in place,
// with twiddles that are the same for all lanes, which leave the rows in bit-reversed order. The lanes: for W rows k at
// a time, the twiddles w_N^(l k), a transposition, and the transform over l, at once or, in wide registers, by a tile as
// radix 2 and radix W / 2; its results are whole registers of neighbouring k. Between passes a row is W real parts and
// then W imaginary parts. Short transforms do all that in one straight piece of code, the longest as matrices.
//
// The shortest, and doubles in registers of 128 bits, have W = 1: a row is one complex number in one register, a pair,
// and there are no lanes to transform.
//
// The order of lanes that a deinterleaving inside blocks of 128 bits gives is l = W/2 p1 + 2 b + p0 for floats (b the
// block, p1 p0 the place in it) and l = W/2 p + b for doubles; it is kept throughout: the first factor of the transform
// over l is the radix 2 over p1 or p, and the table of the lanes pass is in that order.
#include "transform/fft_kernels.hpp"
#include "frame/kernels.hpp"
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

// ... or one of them at the beginning of a register of 128 bits. Parts apart would have to be brought together again:
// of two doubles to no purpose, and the shortest transforms take less time than that.
template <class R>
struct Pair {
    using V = Reg<R, 16 / sizeof(R)>;
    V parts;
};
constexpr int neighbourOf(int lane, int) { return lane ^ 1; }
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

// sqrt(1/2), both parts of the root of unity at an eighth of the circle. The float transforms up to order 11 have
// always used a float that is 4 ulps above it, and their results depend on it; they keep it.
constexpr int longestOfEighth = 11;
template <class R>
constexpr R eighthOf(int order)
{
    return sizeof(R) == 4 && order <= longestOfEighth ? R(0x1.6A09EEp-1) : R(0.70710678118654752440);
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
    // The odd results: the differences times w_8^n.
    C odd[4] = {d0, timesEighth(d1, eighth), timesMinusI(d2), timesThreeEighths(d3, eighth)};
    butterfly(odd, eighth);
    ARK_UNROLL
    for (int i = 0; i < 4; i++) {
        x[2 * i] = even[i];
        x[2 * i + 1] = odd[i];
    }
}

// The roots of unity e^(-2 pi i a / N), when compiled.
template <class R, int N>
struct ConstantRoots {
    R re[N], im[N];
};
constexpr long double cosineOf(long double angle)
{
    long double term = 1, sum = 1;
    for (int n = 2; n < 40; n += 2) {
        term *= -angle * angle / (n * (n - 1));
        sum += term;
    }
    return sum;
}
template <class R, int N>
constexpr ConstantRoots<R, N> constantRoots = [] {
    constexpr long double pi = 3.14159265358979323846264338327950288L;
    ConstantRoots<R, N> roots{};
    for (int a = 0; a < N; a++) {
        const long double angle = 2 * pi * a / N;
        roots.re[a] = R(cosineOf(angle > pi ? 2 * pi - angle : angle));
        roots.im[a] = R(-cosineOf(angle > pi / 2 ? angle - pi / 2 : pi / 2 - angle));
    }
    return roots;
}();

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

// Longer ones as N1 by 4, n = 4 n1 + n2 and k = k1 + N1 k2.
template <class C, class R, int N>
ARK_INLINE void butterfly(C (&x)[N], R eighth)
{
    constexpr int N1 = N / 4;
    C y[4][N1];
    ARK_UNROLL
    for (int n2 = 0; n2 < 4; n2++) {
        ARK_UNROLL
        for (int n1 = 0; n1 < N1; n1++)
            y[n2][n1] = x[4 * n1 + n2];
        butterfly(y[n2], eighth);
    }
    ARK_UNROLL
    for (int k1 = 0; k1 < N1; k1++) {
        C z[4];
        ARK_UNROLL
        for (int n2 = 0; n2 < 4; n2++)
            z[n2] = timesRoot<N>(y[n2][k1], n2 * k1, eighth);
        butterfly(z, eighth);
        ARK_UNROLL
        for (int k2 = 0; k2 < 4; k2++)
            x[k1 + N1 * k2] = z[k2];
    }
}

// ---- memory ----

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
    static constexpr std::ptrdiff_t perElement = form == separateParts ? 1 : 2;

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

// ---- the rows' transforms ----

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

// The radices of the transform of 2^m rows, m >= 2, and the number of factors: of every pass but the last.
struct Plan {
    int m, passes;
    int log2Radix[12];
    std::ptrdiff_t factors;

    static Plan of(int m, int W)
    {
        Plan plan{m, 0, {}, 0};
        std::ptrdiff_t rows = std::ptrdiff_t{1} << m;
        for (int left = m; left > 0;) {
            // 8 where registers hold such a butterfly and more, otherwise 4
            const bool by8 = ARK_AVX512 || W == 1 ? left % 3 == 0 : left == 3;
            const int log2Radix = by8 ? 3 : 2;
            plan.log2Radix[plan.passes++] = log2Radix;
            left -= log2Radix;
            rows >>= log2Radix;
            if (left > 0)
                plan.factors += rows * ((1 << log2Radix) - 1);
        }
        return plan;
    }
};

// The factors of all passes but the last: both parts, in SSE2 as often as a register has lanes, since nothing loads
// copies of a number there; of pairs as PairFactor has them.
template <class R>
constexpr int copiesOfParts(int W)
{
    return W == 1 ? 2 : ARK_AVX2 || ARK_AVX512 ? 1 : W;
}
template <class R, int W>
constexpr std::ptrdiff_t sizeOfFactors(std::ptrdiff_t count)
{
    return count * 2 * copiesOfParts<R>(W);
}
template <class R, int W>
ARK_INLINE auto getFactor(const R* w)
{
    if constexpr (W == 1)
        return PairFactor<R>{getAligned<R, 2>(w), getAligned<R, 2>(w + 2)};
    else if constexpr (copiesOfParts<R>(W) == W)
        return getRow<R, W>(w);
    else
        return Cplx<Reg<R, W>>{w[0] - Reg<R, W>{}, w[1] - Reg<R, W>{}};
}
template <class R>
R* putFactor(R* w, int W, R re, R im)
{
    const int copies = copiesOfParts<R>(W);
    for (int i = 0; i < copies; i++) {
        w[i] = re;
        w[copies + i] = W == 1 && i == 0 ? -im : im;
    }
    return w + 2 * copies;
}

// The factors of all passes but the last, and the root of the butterflies.
template <class R>
struct RowsTable {
    const R* factors;
    R eighth;
};

// A pass of radix r over transforms of length n, s of them one after another, in place: butterflies of the rows p + t
// n/r for every p = 0 ... n/r - 1, whose result j is multiplied by w_n^(j p). The table has r - 1 factors for every p.
// From natural order to bit-reversed order; or, with the passes in the opposite order and the factors before the
// butterfly, from bit-reversed order to natural order.
template <class R, int W, int radix, bool toReversed, bool withFactors, class Source, class Target>
ARK_INLINE void inPlaceButterfly(Source source, Target target, std::ptrdiff_t row, std::ptrdiff_t apart, const R* w,
                                 R eighth)
{
    Row<R, W> x[radix];
    const auto multiply = [&]() ARK_INLINED {
        ARK_UNROLL
        for (int j = 1; j < radix; j++)
            x[j] = x[j] * getFactor<R, W>(w + sizeOfFactors<R, W>(j - 1));
    };
    ARK_UNROLL
    for (int t = 0; t < radix; t++)
        x[toReversed ? t : reversed(t, radix)] = source(row + t * apart);
    if constexpr (!toReversed && withFactors)
        multiply();
    butterfly(x, eighth);
    if constexpr (toReversed && withFactors)
        multiply();
    ARK_UNROLL
    for (int j = 0; j < radix; j++)
        target(row + (toReversed ? reversed(j, radix) : j) * apart, x[j]);
}
template <class R, int W, int radix, bool toReversed, std::ptrdiff_t columns = 1, class Source, class Target>
ARK_INLINE void inPlacePass(Source source, Target target, std::ptrdiff_t n, std::ptrdiff_t s, RowsTable<R> table)
{
    const std::ptrdiff_t apart = n / radix;
    for (std::ptrdiff_t block = 0; block < n * s; block += n) {
        const R* w = table.factors;
        for (std::ptrdiff_t row = block; row < block + apart; row++, w += sizeOfFactors<R, W>(radix - 1))
            for (std::ptrdiff_t i = 0; i < columns; i++)
                inPlaceButterfly<R, W, radix, toReversed, true>(source.beside(i), target.beside(i), row, apart, w,
                                                                table.eighth);
    }
}
// Of transforms as long as the radix: all factors are 1.
template <class R, int W, int radix, bool toReversed>
ARK_INLINE void lastButterflies(R* rows, std::ptrdiff_t s, R eighth)
{
    for (; s > 0; s--, rows += radix * 2 * W)
        inPlaceButterfly<R, W, radix, toReversed, false>(InnerSource<R, W>{rows}, InnerTarget<R, W>{rows}, 0, 1, rows,
                                                         eighth);
}

template <int i>
struct Index {};

// Calls body with the radix as a constant.
template <class Body>
ARK_INLINE void withRadix(int log2Radix, Body body)
{
    if (log2Radix == 2)
        body(Index<4>{});
    else
        body(Index<8>{});
}

// The passes are long. They are not inlined, so that all transforms that need one have the same.
template <class R, int W, bool toReversed>
[[gnu::noinline]] void innerPass(int log2Radix, R* rows, std::ptrdiff_t n, std::ptrdiff_t s, RowsTable<R> table)
{
    withRadix(log2Radix, [&]<int radix>(Index<radix>) ARK_INLINED {
        if (n == radix)
            lastButterflies<R, W, radix, toReversed>(rows, s, table.eighth);
        else
            inPlacePass<R, W, radix, toReversed>(InnerSource<R, W>{rows}, InnerTarget<R, W>{rows}, n, s, table);
    });
}

// In place in the rows, but for the source of the first pass, which is not the only one. Of one column of registers or
// of more, whose rows are apart.
template <class R, int W, std::ptrdiff_t columns = 1, class Source>
[[gnu::noinline]] void transformRowsToReversed(const Plan& plan, int passes, Source source, R* rows, RowsTable<R> table)
{
    std::ptrdiff_t n = std::ptrdiff_t{1} << plan.m, s = 1;
    const std::ptrdiff_t distance = n * 2 * W;
    for (int i = 0; i < passes; i++) {
        const int log2Radix = plan.log2Radix[i];
        if (i == 0)
            withRadix(log2Radix, [&]<int radix>(Index<radix>) ARK_INLINED {
                inPlacePass<R, W, radix, true, columns>(source, InnerTarget<R, W>{rows, distance}, n, s, table);
            });
        else
            for (std::ptrdiff_t column = 0; column < columns; column++)
                innerPass<R, W, true>(log2Radix, rows + column * distance, n, s, table);
        n >>= log2Radix;
        s <<= log2Radix;
        table.factors += sizeOfFactors<R, W>(n * ((1 << log2Radix) - 1));
    }
}

// The last pass to bit-reversed order, with its results put in natural order: rows in place, target in any order.
template <class R, int W, int radix, std::ptrdiff_t columns, class Source, class Target>
ARK_INLINE void lastPass(Source source, Target target, std::ptrdiff_t M, R eighth)
{
    for (std::ptrdiff_t k = 0, block = 0; k < M / radix; k++, block = nextReversed(block, M / radix))
        for (std::ptrdiff_t i = 0; i < columns; i++) {
            Row<R, W> x[radix];
            ARK_UNROLL
            for (int t = 0; t < radix; t++)
                x[t] = source.beside(i)(block * radix + t);
            butterfly(x, eighth);
            ARK_UNROLL
            for (int j = 0; j < radix; j++)
                target.beside(i)(k + j * (M / radix), x[j]);
        }
}

// In place in the rows, but for the target of the last pass, which is not the only one.
template <class R, int W, std::ptrdiff_t columns = 1, class Target>
[[gnu::noinline]] void transformRowsFromReversed(const Plan& plan, int passes, R* rows, Target target,
                                                 RowsTable<R> table)
{
    table.factors += sizeOfFactors<R, W>(plan.factors);
    std::ptrdiff_t n = 1, s = std::ptrdiff_t{1} << plan.m;
    const std::ptrdiff_t distance = s * 2 * W;
    for (int i = plan.passes - 1; i >= passes; i--) {
        n <<= plan.log2Radix[i];
        s >>= plan.log2Radix[i];
    }
    for (int i = passes - 1; i >= 0; i--) {
        const int log2Radix = plan.log2Radix[i];
        if (n > 1)
            table.factors -= sizeOfFactors<R, W>(n * ((1 << log2Radix) - 1));
        n <<= log2Radix;
        s >>= log2Radix;
        if (i == 0)
            withRadix(log2Radix, [&]<int radix>(Index<radix>) ARK_INLINED {
                inPlacePass<R, W, radix, false, columns>(InnerSource<R, W>{rows, distance}, target, n, s, table);
            });
        else
            for (std::ptrdiff_t column = 0; column < columns; column++)
                innerPass<R, W, false>(log2Radix, rows + column * distance, n, s, table);
    }
}

// ---- the lanes' transform ----

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

// The constants of a register's own transform, in the table: the factors of the radix-2 step of fillTile, then those
// between the upper and the lower stages of transformLanes, which only registers of 8 and 16 lanes need.
template <class R, int W>
struct LaneConstants {
    static constexpr int halfFactors = int(8 / sizeof(R)), size = (halfFactors + 1) * 2 * W;
    const R* table;
    R eighth;
    ARK_INLINE Cplx<Reg<R, W>> half(int p) const { return getRow<R, W>(table + p * 2 * W); }
    ARK_INLINE Cplx<Reg<R, W>> stages() const { return half(halfFactors); }
};

// W rows k on their way to natural order, between the two halves of lanesToNatural: [q1][p0][group], W real and W
// imaginary parts. Registers would not hold them.
template <class R, int W>
struct Tile {
    static constexpr int P = int(16 / sizeof(R)), B = W / P, half = P / 2;
    alignas(64) R part[2][half][B][2 * W];
};

// The factors w_N^(l k) of the rows that row(0) to row(W - 1) give, the transposition inside blocks, and radix 2 over
// the upper half of the lanes.
template <class R, int W, class RowAt>
ARK_INLINE void fillTile(Tile<R, W>& tile, RowAt row, const R* table, LaneConstants<R, W> constants)
{
    using V = Reg<R, W>;
    constexpr int P = Tile<R, W>::P, half = Tile<R, W>::half;
    ARK_UNROLL
    for (int group = 0; group < Tile<R, W>::B; group++) {
        V re[P], im[P];
        ARK_UNROLL
        for (int r = 0; r < P; r++) {
            const int i = elementOf<P>(group * P + r, W);
            const Cplx<V> x = row(i) * getRow<R, W>(table + i * 2 * W);
            re[r] = x.re;
            im[r] = x.im;
        }
        transposeInBlocks(re);
        transposeInBlocks(im);
        ARK_UNROLL
        for (int p = 0; p < half; p++) {
            const Cplx<V> a{re[p], im[p]}, b{re[p + half], im[p + half]};
            const Cplx<V> sum = a + b, difference = (a - b) * constants.half(p);
            put(tile.part[0][p][group], sum.re);
            put(tile.part[0][p][group] + W, sum.im);
            put(tile.part[1][p][group], difference.re);
            put(tile.part[1][p][group] + W, difference.im);
        }
    }
}

// The transposition of blocks and radix W / 2.
template <class R, int W, class Target>
ARK_INLINE void emptyTile(const Tile<R, W>& tile, Target target, std::ptrdiff_t k0, std::ptrdiff_t M, R eighth)
{
    using V = Reg<R, W>;
    constexpr int P = Tile<R, W>::P, B = Tile<R, W>::B, half = Tile<R, W>::half, H = W / 2;
    ARK_UNROLL
    for (int q1 = 0; q1 < 2; q1++) {
        Cplx<V> x[H];
        ARK_UNROLL
        for (int p = 0; p < half; p++) {
            V re[B], im[B];
            ARK_UNROLL
            for (int group = 0; group < B; group++) {
                re[group] = get<R, W>(tile.part[q1][p][group]);
                im[group] = get<R, W>(tile.part[q1][p][group] + W);
            }
            transposeBlocks<P>(re);
            transposeBlocks<P>(im);
            ARK_UNROLL
            for (int b = 0; b < B; b++)
                x[half * b + p] = {re[b], im[b]};
        }
        butterfly(x, eighth);
        ARK_UNROLL
        for (int q2 = 0; q2 < H; q2++)
            target(k0 + M * (q1 + 2 * q2), x[q2]);
    }
}

// The same without a tile where the registers hold W rows, whose transposition makes the transform over the lanes a
// butterfly.
template <int W>
constexpr bool fitsRegisters = W <= 4;
template <class R, int W, class RowAt, class Target>
ARK_INLINE void lanesInRegisters(RowAt row, Target target, std::ptrdiff_t k0, std::ptrdiff_t M, const R* table,
                                 R eighth)
{
    using V = Reg<R, W>;
    constexpr int P = placesOf<V>;
    Cplx<V> turned[W], x[W];
    ARK_UNROLL
    for (int lane = 0; lane < W; lane++) {
        const int i = elementOf<P>(lane, W);
        turned[lane] = row(i) * getRow<R, W>(table + i * 2 * W);
    }
    transpose(turned);
    ARK_UNROLL
    for (int lane = 0; lane < W; lane++)
        x[elementOf<P>(lane, W)] = turned[lane];
    butterfly(x, eighth);
    ARK_UNROLL
    for (int q = 0; q < W; q++)
        target(k0 + M * q, x[q]);
}

// Natural order, from rows in bit-reversed order: for W rows k at a time, the transform over the lanes of each, written
// where k + M q stands. A tile is filled while the one before it is emptied, so that neither waits for memory.
template <class R, int W, class Target>
void lanesToNatural(const R* rows, Target target, std::ptrdiff_t M, const R* table, LaneConstants<R, W> constants)
{
    const InnerSource<R, W> source{rows};
    std::ptrdiff_t place = 0;
    const auto row = [&](int i) ARK_INLINED { return source(place + reversed(i, W) * (M / W)); };
    if constexpr (fitsRegisters<W>) {
        for (std::ptrdiff_t k0 = 0; k0 < M; k0 += W, place = nextReversed(place, M / W))
            lanesInRegisters<R, W>(row, target, k0, M, table + k0 * 2 * W, constants.eighth);
    } else {
        Tile<R, W> tiles[2];
        fillTile(tiles[0], row, table, constants);
        for (std::ptrdiff_t k0 = 0; k0 < M; k0 += W) {
            if (k0 + W < M) {
                place = nextReversed(place, M / W);
                fillTile(tiles[(k0 / W + 1) % 2], row, table + (k0 + W) * 2 * W, constants);
            }
            emptyTile(tiles[k0 / W % 2], target, k0, M, constants.eighth);
        }
    }
}

// The lane that holds the element at a distance, and +1 or -1 for the lower and the upper one of each such pair.
template <int P, int distance>
constexpr int partnerOf(int lane, int lanes)
{
    return laneOf<P>(elementOf<P>(lane, lanes) ^ distance, lanes);
}
template <class R, int W, int distance, std::size_t... lane>
ARK_INLINE Reg<R, W> signsIn(std::index_sequence<lane...>)
{
    return Reg<R, W>{(elementOf<int(16 / sizeof(R))>(int(lane), W) & distance ? R(-1) : R(1))...};
}

// One stage of the transform over the lanes of a register: x[e] + x[e + distance] and x[e] - x[e + distance].
template <class R, int W, int distance, int count>
ARK_INLINE void laneStage(Cplx<Reg<R, W>> (&x)[count])
{
    constexpr auto partner = partnerOf<int(16 / sizeof(R)), distance>;
    const Reg<R, W> sign = signsIn<R, W, distance>(std::make_index_sequence<W>{});
    ARK_UNROLL
    for (auto& y : x)
        y = {y.re * sign + shuffled<partner>(y.re, y.re), y.im * sign + shuffled<partner>(y.im, y.im)};
}

// Lanes that are in the upper half of both pairs: from a to b there.
template <int P, int distance>
constexpr int upperOfBoth(int lane, int lanes)
{
    const int element = elementOf<P>(lane, lanes);
    return element & distance && element & distance / 2 ? lane + lanes : lane;
}

// Two stages, which together are a radix 4 but for factors that commute with the one between them: at a distance and at
// half of it, or the opposite. In between, the upper half of both is multiplied by -i.
template <class R, int W, bool toReversed, int distance, int count>
ARK_INLINE void twoLaneStages(Cplx<Reg<R, W>> (&x)[count])
{
    constexpr auto rotated = upperOfBoth<int(16 / sizeof(R)), distance>;
    laneStage<R, W, toReversed ? distance : distance / 2>(x);
    ARK_UNROLL
    for (auto& y : x)
        y = {shuffled<rotated>(y.re, y.im), shuffled<rotated>(y.im, -y.re)};
    laneStage<R, W, toReversed ? distance / 2 : distance>(x);
}

// The transform over the lanes of registers: natural order in and bit-reversed order out, or the opposite. Four at a
// time go through every stage together; one alone would wait for each of its results.
template <class R, int W, bool toReversed, int count>
ARK_INLINE void transformLanes(Cplx<Reg<R, W>> (&x)[count], LaneConstants<R, W> constants)
{
    if constexpr (count > 4) {
        ARK_UNROLL
        for (int first = 0; first < count; first += 4) {
            Cplx<Reg<R, W>> four[4] = {x[first], x[first + 1], x[first + 2], x[first + 3]};
            transformLanes<R, W, toReversed>(four, constants);
            ARK_UNROLL
            for (int i = 0; i < 4; i++)
                x[first + i] = four[i];
        }
    } else if constexpr (W == placesOf<Reg<R, W>>) {
        // As many registers as a register has lanes: transposed, they are a butterfly. Lanes are in their own order
        // here.
        Reg<R, W> re[W], im[W];
        const auto turn = [&](bool isReversed) ARK_INLINED {
            ARK_UNROLL
            for (int i = 0; i < W; i++) {
                re[i] = x[isReversed ? reversed(i, W) : i].re;
                im[i] = x[isReversed ? reversed(i, W) : i].im;
            }
            transposeInBlocks(re);
            transposeInBlocks(im);
        };
        const auto putBack = [&](bool isReversed) ARK_INLINED {
            ARK_UNROLL
            for (int i = 0; i < W; i++)
                x[isReversed ? reversed(i, W) : i] = {re[i], im[i]};
        };
        turn(false);
        putBack(!toReversed);
        butterfly(x, constants.eighth);
        turn(toReversed);
        putBack(false);
    } else if constexpr (W == 4) {
        twoLaneStages<R, W, toReversed, 2>(x);
    } else {
        const auto lower = [&] {
            if constexpr (W == 8)
                laneStage<R, W, 1>(x);
            else
                twoLaneStages<R, W, toReversed, 2>(x);
        };
        if constexpr (toReversed)
            twoLaneStages<R, W, toReversed, W / 2>(x);
        else
            lower();
        const Cplx<Reg<R, W>> factors = constants.stages();
        ARK_UNROLL
        for (auto& y : x)
            y = y * factors;
        if constexpr (toReversed)
            lower();
        else
            twoLaneStages<R, W, toReversed, W / 2>(x);
    }
}

// ---- tables ----

template <class Fine>
struct Root {
    Fine re, im;
};

// e^(-2 pi i a / 2^order) by an angle of at most an eighth of the circle.
template <class Fine>
Root<Fine> rootOf(std::size_t a, int order)
{
    constexpr long double pi = 3.14159265358979323846264338327950288L;
    const std::size_t N = std::size_t(1) << order;
    const std::size_t octants = a * 8;
    const int octant = int(octants >> order);
    // The distance to the nearer of the axes, in units of 1/N.
    const std::size_t quarter = N / 4;
    Root<Fine> r;
    const auto angle = [&](std::size_t steps) { return Fine(2) * Fine(pi) * Fine(steps) / Fine(N); };
    const auto sine = [](Fine x) {
        return sizeof(Fine) == 8 ? Fine(__builtin_sin(double(x))) : Fine(__builtin_sinl(x));
    };
    const auto cosine = [](Fine x) {
        return sizeof(Fine) == 8 ? Fine(__builtin_cos(double(x))) : Fine(__builtin_cosl(x));
    };
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

// All roots of one order, each as the product of two that were computed on their own; those at odd eighths of the
// circle have the parts that the transform wants there.
template <class R>
class Roots {
public:
    Roots(int order, R eighth)
        : fineBits_{(order + 1) / 2},
          eighthAt_{order < 3 ? std::size_t(1) << order : std::size_t(1) << (order - 3)},
          eighth_{eighth}
    {
        for (std::size_t i = 0; i < std::size_t(1) << fineBits_; i++)
            fine_[i] = rootOf<Fine>(i, order);
        for (std::size_t i = 0; i < std::size_t(1) << (order - fineBits_); i++)
            coarse_[i] = rootOf<Fine>(i << fineBits_, order);
    }
    ARK_INLINE void get(std::size_t a, R& re, R& im) const
    {
        const Root<Fine> c = coarse_[a >> fineBits_], f = fine_[a & ((std::size_t(1) << fineBits_) - 1)];
        re = R(c.re * f.re - c.im * f.im);
        im = R(c.re * f.im + c.im * f.re);
        if (a % (2 * eighthAt_) == eighthAt_) {
            re = re < 0 ? -eighth_ : eighth_;
            im = im < 0 ? -eighth_ : eighth_;
        }
    }

private:
    using Fine = typename WiderThan<R>::Type;

    int fineBits_;
    std::size_t eighthAt_; // or beyond all, where there is none
    R eighth_;
    Root<Fine> fine_[1024], coarse_[1024];
};

template <class R>
void fillRowsTable(const Plan& plan, int W, R* table, R eighth)
{
    const Roots<R> roots(plan.m, eighth);
    for (int i = 0, left = plan.m; i + 1 < plan.passes; i++) {
        const int step = plan.m - left;
        left -= plan.log2Radix[i];
        for (std::size_t p = 0; p < std::size_t{1} << left; p++)
            for (std::size_t j = 1; j < std::size_t{1} << plan.log2Radix[i]; j++) {
                R re, im;
                roots.get((p * j) << step, re, im);
                table = putFactor(table, W, re, im);
            }
    }
}

// The widest register of which an order has 4 rows; otherwise pairs.
template <class R>
constexpr int widthFor(int order)
{
    for (int width = lanes<R>; width >= 4; width /= 2)
        if (order >= log2Of(width) + 2)
            return width;
    return 1;
}

// From this order on the vector is a matrix: columns, whose rows are far apart, are transformed W at a time, and then
// its rows, or the opposite. What is transformed at a time stays in the cache, and the tables are short.
constexpr int matrixFrom = 20;

// The registers of columns that are read and written together: as many as two cache lines hold.
template <class R, int W>
constexpr std::ptrdiff_t columnsAtATime = std::ptrdiff_t(64 / (W * sizeof(R)));

// What stands at the beginning of the table of one order, and where the rest of it stands, in reals from there.
template <class R>
struct Head {
    int order, W;
    R eighth;
    Plan plan, restPlan; // of the rows, or of the columns and the rest of a matrix: N = 2^(plan.m + restPlan.m)
    std::ptrdiff_t rows, lanes, constants;                // rows' tables, w_N^(k l), LaneConstants
    std::ptrdiff_t restRows, powers, fine, coarse, inner; // of matrices: see MatrixFactors; the table of the rest
    std::ptrdiff_t size;

    RowsTable<R> rowsTable(const R* table) const { return {table + rows, eighth}; }
    RowsTable<R> restRowsTable(const R* table) const { return {table + restRows, eighth}; }

    static Head of(int order, R eighth)
    {
        Head head{};
        head.order = order;
        head.eighth = eighth;
        head.W = widthFor<R>(order);
        std::ptrdiff_t end = std::ptrdiff_t(sizeof(Head) / sizeof(R));
        const auto add = [&](std::ptrdiff_t count) {
            const std::ptrdiff_t begin = (end + 15) / 16 * 16;
            end = begin + count;
            return begin;
        };
        const std::ptrdiff_t W = head.W, factor = 2 * copiesOfParts<R>(head.W);
        if (order < matrixFrom) {
            head.plan = Plan::of(order - log2Of(head.W), head.W);
            head.rows = add(head.plan.factors * factor);
            if (W > 1) {
                head.lanes = add(std::ptrdiff_t{2} << order);
                head.constants = add((std::ptrdiff_t(8 / sizeof(R)) + 1) * 2 * W);
            }
        } else {
            head.plan = Plan::of(order - order / 2, head.W);
            head.restPlan = Plan::of(order / 2, head.W);
            head.rows = add(head.plan.factors * factor);
            head.restRows = add(head.restPlan.factors * factor);
            head.powers = add(2 * W << head.plan.m);
            head.fine = add(std::ptrdiff_t{2} << head.restPlan.m);
            head.coarse = add(std::ptrdiff_t{2} << head.plan.m);
            head.inner = add(of(head.restPlan.m, eighth).size);
        }
        head.size = add(0);
        return head;
    }
};

// Everything but the head's own place.
template <class R>
void fillShortTable(const Head<R>& head, R* table)
{
    const int W = head.W, P = int(16 / sizeof(R));
    const auto element = [&](int lane) { return std::size_t(P == 4 ? elementOf<4>(lane, W) : elementOf<2>(lane, W)); };
    fillRowsTable(head.plan, head.W, table + head.rows, head.eighth);
    if (W == 1)
        return;
    const Roots<R> roots(head.order, head.eighth);
    R* at = table + head.lanes;
    for (std::size_t k = 0; k < std::size_t{1} << head.plan.m; k++, at += 2 * W)
        for (int lane = 0; lane < W; lane++)
            roots.get(k * element(lane), at[lane], at[W + lane]);
    // LaneConstants: powers of w_W, in the steps of this order's roots.
    at = table + head.constants;
    const std::size_t unit = std::size_t{1} << head.plan.m;
    for (int p = 0; p < P / 2; p++, at += 2 * W)
        for (int lane = 0; lane < W; lane++)
            roots.get(unit * std::size_t(lane / P * (P / 2) + p), at[lane], at[W + lane]);
    for (int lane = 0; lane < W; lane++) {
        // w_W^(u1 e0) w_(W/2)^(u2 e0), u1 and u2 the upper bits of the element and e0 the others
        const std::size_t e = element(lane), quarter = std::size_t(W) / 4, e0 = quarter > 1 ? e % quarter : 0;
        roots.get(e0 == 0 ? 0 : unit * e0 * (e / (2 * quarter) + e / quarter % 2 * 2), at[lane], at[W + lane]);
    }
}

template <class R>
void fillMatrixTable(const Head<R>& head, R* table)
{
    using Fine = typename WiderThan<R>::Type;
    fillRowsTable(head.plan, head.W, table + head.rows, head.eighth);
    fillRowsTable(head.restPlan, head.W, table + head.restRows, head.eighth);
    R *powers = table + head.powers, *fine = table + head.fine, *coarse = table + head.coarse;
    for (std::size_t a = 0; a < std::size_t{1} << head.restPlan.m; a++) {
        const Root<Fine> root = rootOf<Fine>(a, head.order);
        fine[2 * a] = R(root.re);
        fine[2 * a + 1] = R(root.im);
    }
    for (std::size_t k = 0; k < std::size_t{1} << head.plan.m; k++) {
        const Root<Fine> step = rootOf<Fine>(k << head.restPlan.m, head.order), root = rootOf<Fine>(k, head.order);
        coarse[2 * k] = R(step.re);
        coarse[2 * k + 1] = R(step.im);
        Root<Fine> power{1, 0};
        for (int l = 0; l < head.W; l++) {
            const int lane = int(16 / sizeof(R)) == 4 ? laneOf<4>(l, head.W) : laneOf<2>(l, head.W);
            R* const of = powers + k * std::size_t(2 * head.W);
            of[lane] = R(power.re);
            of[head.W + lane] = R(power.im);
            power = {power.re * root.re - power.im * root.im, power.re * root.im + power.im * root.re};
        }
    }
}

template <class R>
void fillTableOf(const Head<R>& head, R* table)
{
    __builtin_memcpy(table, &head, sizeof head);
    if (head.order < matrixFrom)
        return fillShortTable(head, table);
    fillMatrixTable(head, table);
    fillTableOf(Head<R>::of(head.restPlan.m, head.eighth), table + head.inner);
}

template <class R>
Head<R> headFor(int order)
{
    return Head<R>::of(order, eighthOf<R>(order));
}
template <class R>
void fillTable(int order, R* table)
{
    fillTableOf(headFor<R>(order), table);
}
template <class R>
std::size_t tableSize(int order)
{
    return std::size_t(headFor<R>(order).size);
}
template <class R>
std::size_t scratchSize(int order)
{
    const Head<R> head = headFor<R>(order);
    const std::size_t whole = std::size_t{2} << order;
    return order < matrixFrom ? whole
                              : whole + (std::size_t(2 * columnsAtATime<R, lanes<R>> * lanes<R>) << head.plan.m);
}

// ---- the whole transform ----

template <class R>
struct Job {
    FftVector<const R> src;
    FftVector<R> dst;
    const R* table;
    R* scratch;
    R scale;

    const Head<R>& head() const { return *reinterpret_cast<const Head<R>*>(table); }
};

// Calls body with OuterTarget, scaling or not.
template <class R, int W, Form form, class Body>
ARK_INLINE void withTarget(FftVector<R> vector, std::ptrdiff_t first, std::ptrdiff_t step, R scale, Body body)
{
    if (scale == 1)
        body(OuterTarget<R, W, form, false>{vector, first, step, scale});
    else
        body(OuterTarget<R, W, form, true>{vector, first, step, scale});
}

template <class R, int W, Form form>
void shortToNatural(const Job<R>& job)
{
    const Head<R>& head = job.head();
    const std::ptrdiff_t M = std::ptrdiff_t{1} << head.plan.m;
    R* const rows = job.scratch;
    transformRowsToReversed<R, W>(head.plan, W == 1 ? head.plan.passes - 1 : head.plan.passes,
                                  OuterSource<R, W, form>{job.src, 0, W}, rows, head.rowsTable(job.table));
    withTarget<R, W, form>(job.dst, 0, 1, job.scale, [&](auto target) {
        if constexpr (W == 1)
            withRadix(head.plan.log2Radix[head.plan.passes - 1], [&]<int radix>(Index<radix>) ARK_INLINED {
                lastPass<R, W, radix, 1>(InnerSource<R, W>{rows}, target, M, head.eighth);
            });
        else
            lanesToNatural<R, W>(rows, target, M, job.table + head.lanes, {job.table + head.constants, head.eighth});
    });
}

template <class V, std::size_t... place>
ARK_INLINE auto blockIn(V v, int block, std::index_sequence<place...>)
{
    constexpr int P = sizeof...(place);
    switch (block) {
    case 0: return __builtin_shufflevector(v, v, int(place)...);
    case 1: return __builtin_shufflevector(v, v, (int(place) + P) % lanesOf<V>...);
    case 2: return __builtin_shufflevector(v, v, (int(place) + 2 * P) % lanesOf<V>...);
    default: return __builtin_shufflevector(v, v, (int(place) + 3 * P) % lanesOf<V>...);
    }
}
template <class V>
ARK_INLINE auto blockOf(V v, int block)
{
    return blockIn(v, block, std::make_index_sequence<placesOf<V>>{});
}

// So few rows that no pass over them needs a loop. Whole tiles of them, in natural order:
template <class R, int W, Form form, int M>
void fewTiles(const Job<R>& job)
{
    const OuterSource<R, W, form> source{job.src, 0, W};
    const LaneConstants<R, W> constants{job.table + job.head().constants, job.head().eighth};
    Cplx<Reg<R, W>> x[M];
    ARK_UNROLL
    for (int n = 0; n < M; n++)
        x[n] = source(n);
    butterfly(x, constants.eighth);
    withTarget<R, W, form>(job.dst, 0, 1, job.scale, [&](auto target) ARK_INLINED {
        ARK_UNROLL
        for (int k0 = 0; k0 < M; k0 += W) {
            const auto row = [&](int i) ARK_INLINED { return x[k0 + i]; };
            const R* const factors = job.table + job.head().lanes + k0 * 2 * W;
            if constexpr (fitsRegisters<W>) {
                lanesInRegisters<R, W>(row, target, k0, M, factors, constants.eighth);
            } else {
                Tile<R, W> tile;
                fillTile(tile, row, factors, constants);
                emptyTile(tile, target, k0, M, constants.eighth);
            }
        }
    });
}

template <class C, class R, int N>
ARK_INLINE void scaleAll(C (&x)[N], R scale)
{
    if (scale != 1)
        ARK_UNROLL
    for (int i = 0; i < N; i++)
        x[i] = scaledBy(x[i], scale);
}

// Pairs, in any order.
template <class R, Form form, FftOrder fftOrder, int N>
void fewPairs(const Job<R>& job)
{
    const OuterSource<R, 1, form> source{job.src, 0, 1};
    const OuterTarget<R, 1, form, false> target{job.dst, 0, 1, 1};
    Row<R, 1> x[N];
    ARK_UNROLL
    for (int n = 0; n < N; n++)
        x[fftOrder == bitReversedInput ? reversed(n, N) : n] = source(n);
    butterfly(x, eighthOf<R>(log2Of(N)));
    scaleAll(x, job.scale);
    ARK_UNROLL
    for (int k = 0; k < N; k++)
        target(fftOrder == bitReversedOutput ? reversed(k, N) : k, x[k]);
}

// Fewer than a tile, or in another order: in registers.
template <class R, int W, Form form, FftOrder fftOrder, int M>
void fewRows(const Job<R>& job)
{
    using V = Reg<R, W>;
    constexpr int P = placesOf<V>, B = W / P;
    constexpr bool fromReversed = fftOrder == bitReversedInput;
    const OuterSource<R, W, form> source{job.src, 0, W};
    const OuterTarget<R, W, form, false> target{job.dst, 0, W, 1};
    const LaneConstants<R, W> constants{job.table + job.head().constants, job.head().eighth};
    const R* const factors = job.table + job.head().lanes;
    Cplx<V> x[M];
    ARK_UNROLL
    for (int n = 0; n < M; n++)
        x[fromReversed ? reversed(n, M) : n] = source(n);
    if constexpr (fromReversed)
        transformLanes<R, W, false>(x, constants);
    else
        butterfly(x, constants.eighth);
    ARK_UNROLL
    for (int k = 1; k < M; k++)
        x[k] = x[k] * getRow<R, W>(factors + k * 2 * W);
    if constexpr (fromReversed)
        butterfly(x, constants.eighth);
    else
        transformLanes<R, W, true>(x, constants);
    scaleAll(x, job.scale);
    if constexpr (fftOrder != naturalOrder) {
        ARK_UNROLL
        for (int k = 0; k < M; k++)
            target(fromReversed ? k : reversed(k, M), x[k]);
        return;
    }
    // P rows k of one result q of the lanes are neighbours.
    ARK_UNROLL
    for (int k = 0; k < M; k += P) {
        V re[P], im[P];
        ARK_UNROLL
        for (int i = 0; i < P; i++) {
            re[i] = form == inversePairs ? x[k + i].im : x[k + i].re;
            im[i] = form == inversePairs ? x[k + i].re : x[k + i].im;
        }
        transposeInBlocks(re);
        transposeInBlocks(im);
        ARK_UNROLL
        for (int p = 0; p < P; p++) {
            const V low = shuffled<unpackLow<P, 1>>(re[p], im[p]), high = shuffled<unpackHigh<P, 1>>(re[p], im[p]);
            ARK_UNROLL
            for (int b = 0; b < B; b++) {
                const int at = reversed(elementOf<P>(b * P + p, W), W) * M + k;
                if constexpr (form == separateParts) {
                    put(job.dst.re + at, blockOf(re[p], b));
                    put(job.dst.im + at, blockOf(im[p], b));
                } else {
                    put(job.dst.re + 2 * at, blockOf(low, b));
                    put(job.dst.re + 2 * at + P, blockOf(high, b));
                }
            }
        }
    }
}

// The last pass over the rows to bit-reversed order, the factors w_N^(l k) and the lanes; and the opposite. Sources and
// targets are passed by value: stores could change what a reference leads to.
template <class R, int W, int radix, class Source, class Target>
ARK_INLINE void rowsThenLanes(Source source, Target target, std::ptrdiff_t M, const R* factors,
                              LaneConstants<R, W> constants)
{
    for (std::ptrdiff_t row = 0, next = 0; row < M; row += radix, next = nextReversed(next, M / radix)) {
        Row<R, W> x[radix];
        ARK_UNROLL
        for (int t = 0; t < radix; t++)
            x[t] = source(row + t);
        butterfly(x, constants.eighth);
        if constexpr (W > 1) {
            ARK_UNROLL
            for (int j = 0; j < radix; j++)
                x[j] = x[j] * getRow<R, W>(factors + (next + j * (M / radix)) * 2 * W);
            transformLanes<R, W, true>(x, constants);
        }
        ARK_UNROLL
        for (int j = 0; j < radix; j++)
            target(row + reversed(j, radix), x[j]);
    }
}
template <class R, int W, int radix, class Source, class Target>
ARK_INLINE void lanesThenRows(Source source, Target target, std::ptrdiff_t M, const R* factors,
                              LaneConstants<R, W> constants)
{
    for (std::ptrdiff_t row = 0, next = 0; row < M; row += radix, next = nextReversed(next, M / radix)) {
        Row<R, W> x[radix];
        ARK_UNROLL
        for (int j = 0; j < radix; j++)
            x[j] = source(row + reversed(j, radix));
        if constexpr (W > 1) {
            transformLanes<R, W, false>(x, constants);
            ARK_UNROLL
            for (int j = 0; j < radix; j++)
                x[j] = x[j] * getRow<R, W>(factors + (next + j * (M / radix)) * 2 * W);
        }
        butterfly(x, constants.eighth);
        ARK_UNROLL
        for (int t = 0; t < radix; t++)
            target(row + t, x[t]);
    }
}

// The two bit-reversed orders have row r where r W stands in the caller's vector, which may begin at element first.
template <class R, int W, Form form>
void shortToReversedFrom(const Job<R>& job, std::ptrdiff_t first)
{
    const Head<R>& head = job.head();
    const std::ptrdiff_t M = std::ptrdiff_t{1} << head.plan.m;
    R* const rows = job.scratch;
    transformRowsToReversed<R, W>(head.plan, head.plan.passes - 1, OuterSource<R, W, form>{job.src, first, W}, rows,
                                  head.rowsTable(job.table));
    const LaneConstants<R, W> constants{job.table + head.constants, head.eighth};
    const R* const factors = job.table + head.lanes;
    const InnerSource<R, W> source{rows};
    withTarget<R, W, form>(job.dst, first, W, job.scale, [&](auto target) {
        withRadix(head.plan.log2Radix[head.plan.passes - 1], [&]<int radix>(Index<radix>) ARK_INLINED {
            rowsThenLanes<R, W, radix>(source, target, M, factors, constants);
        });
    });
}

template <class R, int W, Form form>
void shortToReversed(const Job<R>& job)
{
    shortToReversedFrom<R, W, form>(job, 0);
}

template <class R, int W, Form form>
void shortFromReversedFrom(const Job<R>& job, std::ptrdiff_t first)
{
    const Head<R>& head = job.head();
    const std::ptrdiff_t M = std::ptrdiff_t{1} << head.plan.m;
    R* const rows = job.scratch;
    const LaneConstants<R, W> constants{job.table + head.constants, head.eighth};
    const R* const factors = job.table + head.lanes;
    const OuterSource<R, W, form> source{job.src, first, W};
    const InnerTarget<R, W> inner{rows};
    withRadix(head.plan.log2Radix[head.plan.passes - 1], [&]<int radix>(Index<radix>) ARK_INLINED {
        lanesThenRows<R, W, radix>(source, inner, M, factors, constants);
    });
    withTarget<R, W, form>(job.dst, first, W, job.scale, [&](auto target) {
        transformRowsFromReversed<R, W>(head.plan, head.plan.passes - 1, rows, target, head.rowsTable(job.table));
    });
}

template <class R, int W, Form form>
void shortFromReversed(const Job<R>& job)
{
    shortFromReversedFrom<R, W, form>(job, 0);
}

// The factors w_N^(k (c + l)) of a matrix: of row k, and of the W columns from c on in the order of lanes.
template <class R, int W>
struct MatrixFactors {
    const R *powers, *fine, *coarse;
    int fineBits;

    explicit MatrixFactors(const Job<R>& job)
        : powers{job.table + job.head().powers},
          fine{job.table + job.head().fine},
          coarse{job.table + job.head().coarse},
          fineBits{job.head().restPlan.m}
    {}
    ARK_INLINE Row<R, W> times(Row<R, W> x, std::ptrdiff_t k, std::ptrdiff_t c) const
    {
        const std::ptrdiff_t a = k * c;
        const R *f = fine + 2 * (a & ((std::ptrdiff_t{1} << fineBits) - 1)), *g = coarse + 2 * (a >> fineBits);
        x = ARK_SET::times(x, f[0] * g[0] - f[1] * g[1], f[0] * g[1] + f[1] * g[0]);
        if constexpr (W > 1)
            x = x * getRow<R, W>(powers + k * 2 * W);
        return x;
    }
};

// Rows in bit-reversed order times their factors.
template <class R, int W, class Source, class Target>
ARK_INLINE void multiplyRows(Source source, Target target, std::ptrdiff_t count, MatrixFactors<R, W> factors,
                             std::ptrdiff_t c)
{
    for (std::ptrdiff_t row = 0, next = 0; row < count; row += 4, next = nextReversed(next, count / 4))
        ARK_UNROLL
    for (int i = 0; i < 4; i++)
        for (std::ptrdiff_t column = 0; column < columnsAtATime<R, W>; column++)
            target.beside(column)(row + i, factors.times(source.beside(column)(row + i),
                                                         next + reversed(i, 4) * (count / 4), c + column * W));
}

// With N = N1 N2, n = N2 n1 + n2 and k = k1 + N1 k2: the columns, over n1; the factors w_N^(n2 k1); a transposition
// into the scratch, which makes k1 the lanes; the rows, over n2.
template <class R, int W, Form form>
void matrixToNatural(const Job<R>& job)
{
    constexpr int P = int(16 / sizeof(R));
    constexpr std::ptrdiff_t columns = columnsAtATime<R, W>;
    const Head<R>& head = job.head();
    const std::ptrdiff_t N1 = std::ptrdiff_t{1} << head.plan.m, N2 = std::ptrdiff_t{1} << head.restPlan.m;
    R* const turned = job.scratch; // [k1 / W][n2][2 W]
    R* const rows = job.scratch + 2 * N1 * N2;
    const MatrixFactors<R, W> factors(job);
    const auto turn = [&](InnerSource<R, W> source, std::ptrdiff_t c) ARK_INLINED {
        for (std::ptrdiff_t k0 = 0, place = 0; k0 < N1; k0 += W, place = nextReversed(place, N1 / W)) {
            Row<R, W> x[W];
            ARK_UNROLL
            for (int lane = 0; lane < W; lane++) {
                const int i = elementOf<P>(lane, W);
                x[lane] = factors.times(source(place + reversed(i, W) * (N1 / W)), k0 + i, c);
            }
            transpose(x);
            R* const to = turned + (k0 * N2 + c * W) * 2;
            ARK_UNROLL
            for (int lane = 0; lane < W; lane++)
                putRow<R, W>(to + elementOf<P>(lane, W) * 2 * W, x[lane]);
        }
    };
    for (std::ptrdiff_t c = 0; c < N2; c += columns * W) {
        transformRowsToReversed<R, W, columns>(head.plan, head.plan.passes, OuterSource<R, W, form>{job.src, c, N2},
                                               rows, head.rowsTable(job.table));
        for (std::ptrdiff_t column = 0; column < columns; column++)
            turn({rows + column * N1 * 2 * W}, c + column * W);
    }
    for (std::ptrdiff_t k0 = 0; k0 < N1; k0 += columns * W) {
        R* const row = turned + k0 * N2 * 2;
        const InnerSource<R, W> from{row, N2 * 2 * W};
        transformRowsToReversed<R, W, columns>(head.restPlan, head.restPlan.passes - 1, from, row,
                                               head.restRowsTable(job.table));
        withTarget<R, W, form>(job.dst, k0, N1, job.scale, [&](auto target) {
            withRadix(head.restPlan.log2Radix[head.restPlan.passes - 1], [&]<int radix>(Index<radix>) ARK_INLINED {
                lastPass<R, W, radix, columns>(from, target, N2, head.eighth);
            });
        });
    }
}

// Bit-reversed output: the columns in place, their results at bit-reversed rows, then every row on its own.
template <class R, int W, Form form>
void matrixToReversed(const Job<R>& job)
{
    const Head<R>& head = job.head();
    const std::ptrdiff_t N1 = std::ptrdiff_t{1} << head.plan.m, N2 = std::ptrdiff_t{1} << head.restPlan.m;
    R* const rows = job.scratch;
    const InnerSource<R, W> source{rows, N1 * 2 * W};
    const MatrixFactors<R, W> factors(job);
    constexpr std::ptrdiff_t columns = columnsAtATime<R, W>;
    for (std::ptrdiff_t c = 0; c < N2; c += columns * W) {
        transformRowsToReversed<R, W, columns>(head.plan, head.plan.passes, OuterSource<R, W, form>{job.src, c, N2},
                                               rows, head.rowsTable(job.table));
        const OuterTarget<R, W, form, false> target{job.dst, c, N2, 1};
        multiplyRows(source, target, N1, factors, c);
    }
    const FftVector<const R> between{job.dst.re, job.dst.im};
    for (std::ptrdiff_t row = 0; row < N1; row++)
        shortToReversedFrom<R, W, form>({between, job.dst, job.table + head.inner, job.scratch, job.scale}, row * N2);
}

// Bit-reversed input: the opposite.
template <class R, int W, Form form>
void matrixFromReversed(const Job<R>& job)
{
    const Head<R>& head = job.head();
    const std::ptrdiff_t N1 = std::ptrdiff_t{1} << head.plan.m, N2 = std::ptrdiff_t{1} << head.restPlan.m;
    for (std::ptrdiff_t row = 0; row < N1; row++)
        shortFromReversedFrom<R, W, form>({job.src, job.dst, job.table + head.inner, job.scratch, 1}, row * N2);
    R* const rows = job.scratch;
    const InnerTarget<R, W> inner{rows, N1 * 2 * W};
    const MatrixFactors<R, W> factors(job);
    constexpr std::ptrdiff_t columns = columnsAtATime<R, W>;
    for (std::ptrdiff_t c = 0; c < N2; c += columns * W) {
        const OuterSource<R, W, form> source{{job.dst.re, job.dst.im}, c, N2};
        multiplyRows(source, inner, N1, factors, c);
        withTarget<R, W, form>(job.dst, c, N2, job.scale, [&](auto target) {
            transformRowsFromReversed<R, W, columns>(head.plan, head.plan.passes, rows, target,
                                                     head.rowsTable(job.table));
        });
    }
}

// Up to 2^4 or 2^5 rows one straight piece of code is quicker than passes over them. The intermediate results of 32
// rows of 64 bytes would lie 4 KiB apart on the stack, where processors take loads for dependent on stores.
template <class R, int W>
constexpr int longestFewTiles = W * sizeof(R) < 64 ? 5 : 4;
constexpr int longestFewPairs = 5;

template <class R>
using Compute = void (*)(const Job<R>& job);

template <class R, Form form, FftOrder fftOrder, int order>
constexpr Compute<R> computeFor()
{
    constexpr int W = widthFor<R>(order), m = order - log2Of(W);
    if constexpr (W == 1 && order <= longestFewPairs)
        return fewPairs<R, form, fftOrder, 1 << order>;
    else if constexpr (W > 1 && fftOrder == naturalOrder && m <= longestFewTiles<R, W> && (1 << m) % W == 0)
        return fewTiles<R, W, form, 1 << m>;
    else if constexpr (W > 1 && (m <= 3 || (m == 4 && fftOrder != naturalOrder)))
        return fewRows<R, W, form, fftOrder, 1 << m>;
    else if constexpr (fftOrder == naturalOrder)
        return order < matrixFrom ? shortToNatural<R, W, form> : matrixToNatural<R, W, form>;
    else if constexpr (fftOrder == bitReversedOutput)
        return order < matrixFrom ? shortToReversed<R, W, form> : matrixToReversed<R, W, form>;
    else
        return order < matrixFrom ? shortFromReversed<R, W, form> : matrixFromReversed<R, W, form>;
}

template <class R>
using Transform = typename FftKernels<R>::Transform;

// A function for every way to compute, and no common one around them: entering it would take longer than the shortest
// transforms.
template <class R, Compute<R> compute>
void transformBy(FftVector<const R> src, FftVector<R> dst, int, const R* table, R* scratch, R scale)
{
    compute({src, dst, table, scratch, scale});
}

template <class R>
struct ByOrder {
    Transform<R> ofOrder[31]; // from 1 on
};
template <class R, Form form, FftOrder fftOrder, int... i>
constexpr ByOrder<R> transformsFor(std::integer_sequence<int, i...>)
{
    return {{transformBy<R, computeFor<R, form, fftOrder, i + 1>()>...}};
}
template <class R, Form form, FftOrder fftOrder>
constexpr ByOrder<R> transforms = transformsFor<R, form, fftOrder>(std::make_integer_sequence<int, 31>{});

template <class R, Form form, FftOrder fftOrder>
void transform(FftVector<const R> src, FftVector<R> dst, int order, const R* table, R* scratch, R scale)
{
    transforms<R, form, fftOrder>.ofOrder[order - 1](src, dst, order, table, scratch, scale);
}

template <class R, FftOrder fftOrder>
void inverseOfParts(FftVector<const R> src, FftVector<R> dst, int order, const R* table, R* scratch, R scale)
{
    transform<R, separateParts, fftOrder>({src.im, src.re}, {dst.im, dst.re}, order, table, scratch, scale);
}

template <class R, FftOrder fftOrder>
constexpr typename FftKernels<R>::Directions pairs{transform<R, forwardPairs, fftOrder>,
                                                   transform<R, inversePairs, fftOrder>};
template <class R, FftOrder fftOrder>
constexpr
    typename FftKernels<R>::Directions separated{transform<R, separateParts, fftOrder>, inverseOfParts<R, fftOrder>};

template <class R>
constexpr FftKernels<R> fftTable{
    tableSize<R>,
    fillTable<R>,
    scratchSize<R>,
    {{pairs<R, naturalOrder>, pairs<R, bitReversedInput>, pairs<R, bitReversedOutput>},
     {separated<R, naturalOrder>, separated<R, bitReversedInput>, separated<R, bitReversedOutput>}}};

} // namespace

extern const FftKernels<float> fftC;
extern const FftKernels<double> fftZ;

constinit const FftKernels<float> fftC = fftTable<float>;
constinit const FftKernels<double> fftZ = fftTable<double>;

} // namespace ark::ARK_SET
