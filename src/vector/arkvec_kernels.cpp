// Square roots, absolute values, thresholds.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

template <class T>
struct Format;
template <>
struct Format<float> {
    using Bits = unsigned;
    static constexpr Bits exponent = 0x7F800000;
    static constexpr float least = 0x1p-126f, most = 0x1.fffffep127f, infinity = __builtin_inff(); // normal numbers
};
template <>
struct Format<double> {
    using Bits = unsigned long long;
    static constexpr Bits exponent = 0x7FF0000000000000;
    static constexpr double least = 0x1p-1022, most = 0x1.fffffffffffffp1023, infinity = __builtin_inf();
};

template <class T>
using BitsVec = Vec<typename Format<T>::Bits>;

template <class T>
ARK_INLINE Vec<T> magnitude(Vec<T> x)
{
    return (Vec<T>)((BitsVec<T>)x & ~(BitsVec<T>{} + BitsOf<T>::sign));
}

// x with the sign bits of y, x being without any.
template <class T>
ARK_INLINE Vec<T> withSign(Vec<T> x, Vec<T> y)
{
    return (Vec<T>)((BitsVec<T>)x | ((BitsVec<T>)y & (BitsVec<T>{} + BitsOf<T>::sign)));
}

// ---- complex vectors ----

// Real and imaginary parts apart; the order of the elements is that of memory.
template <class T>
struct Cplx {
    Vec<T> re, im;
};

// Two registers of parts, as they follow each other in memory, where they may be narrower. Where some are left, the
// lanes behind them load as ones, or as zeros if they are integers.
template <class Lane>
struct TwoRegisters {
    Vec<Lane> first, second;
};

template <class Lane>
ARK_INLINE TwoRegisters<Lane> loadTwo(const Lane* from, Whole)
{
    return {load(from), load(from + lanes<Lane>)};
}
template <class Lane>
ARK_INLINE TwoRegisters<Lane> loadTwo(const Lane* from, Part part)
{
    const Vec<Lane> ones = broadcast(Lane(1));
    const std::ptrdiff_t beyond = part.count - lanes<Lane>;
    if (beyond < 0)
        return {load(from, part, ones), ones};
    return {load(from), beyond > 0 ? load(from + lanes<Lane>, Part{beyond}, ones) : ones};
}
template <class Lane>
ARK_INLINE void storeTwo(Lane* to, TwoRegisters<Lane> v, Whole)
{
    store(to, v.first);
    store(to + lanes<Lane>, v.second);
}
template <class Lane>
ARK_INLINE void storeTwo(Lane* to, TwoRegisters<Lane> v, Part part)
{
    const std::ptrdiff_t beyond = part.count - lanes<Lane>;
    if (beyond < 0)
        return storePart(to, v.first, part.count);
    store(to, v.first);
    if (beyond > 0)
        storePart(to + lanes<Lane>, v.second, beyond);
}

// Narrower elements: Lane is double.
template <class Lane, class Reach>
ARK_INLINE TwoRegisters<Lane> loadTwo(const short* from, Reach reach)
{
    const Lanes32<double> v = fromInts<double>(loadInts(from, reach));
    return {v.part[0], v.part[1]};
}
template <class Lane, class Reach>
ARK_INLINE void storeTwo(short* to, TwoRegisters<Lane> v, Reach reach)
{
    storeInts(to, roundToInts<0>(Lanes32<double>{{v.first, v.second}}), reach);
}
template <class Lane>
requires(sizeof(Lane) > sizeof(float)) ARK_INLINE TwoRegisters<Lane> loadTwo(const float* from, Whole)
{
    return {loadDoubles(from), loadDoubles(from + lanes<Lane>)};
}
template <class Lane>
requires(sizeof(Lane) > sizeof(float)) ARK_INLINE TwoRegisters<Lane> loadTwo(const float* from, Part part)
{
    const Lanes32<double> v = fromFloats(load(from, part, broadcast(1.0f)));
    return {v.part[0], v.part[1]};
}
template <class Lane>
requires(sizeof(Lane) > sizeof(float)) ARK_INLINE void storeTwo(float* to, TwoRegisters<Lane> v, Whole)
{
    storeDoubles(to, v.first);
    storeDoubles(to + lanes<Lane>, v.second);
}
template <class Lane>
requires(sizeof(Lane) > sizeof(float)) ARK_INLINE void storeTwo(float* to, TwoRegisters<Lane> v, Part part)
{
    store(to, toFloats({{v.first, v.second}}), part);
}

// dst[i] = f(src[i]) for n pairs, computed in lanes of Lane.
template <class Lane, class R, class Function>
ARK_INLINE void eachPair(const R* src, R* dst, std::ptrdiff_t n, Function f)
{
    constexpr std::ptrdiff_t step = 2 * lanes<Lane>;
    const auto apply = [&](std::ptrdiff_t i, auto reach) {
        const TwoRegisters<Lane> v = loadTwo<Lane>(src + i, reach);
        const Cplx<Lane> z =
            f(Cplx<Lane>{permute2<evenOfBoth>(v.first, v.second), permute2<oddOfBoth>(v.first, v.second)});
        storeTwo<Lane>(dst + i, {permute2<lowOfBoth>(z.re, z.im), permute2<highOfBoth>(z.re, z.im)}, reach);
    };
    std::ptrdiff_t i = 0;
    for (; i + step <= 2 * n; i += step)
        apply(i, Whole{});
    if (i < 2 * n)
        apply(i, Part{2 * n - i});
}

// z * scale, where the power of two brings the larger part to 2 ... 4 (denormal numbers: to somewhere below), so that
// squares neither overflow nor vanish. Infinite parts count as the largest finite number.
template <class T>
struct Scaled {
    Cplx<T> z;
    Vec<T> scale, norm; // norm = |z scale|^2, 0 for z = 0 only
};

template <class T>
ARK_INLINE Scaled<T> scaled(Cplx<T> z, bool evenPower = false)
{
    using F = Format<T>;
    const Vec<T> most = broadcast(F::most);
    const Vec<T> re = smaller(most, magnitude<T>(z.re)), im = smaller(most, magnitude<T>(z.im));
    constexpr auto bit = F::exponent & -F::exponent; // the lowest of the exponent's
    // Exponents of numbers lie between 1 and twice the bias; twice the bias + 1 less them is such an exponent again.
    BitsVec<T> scale = F::exponent - ((BitsVec<T>)larger(larger(re, im), broadcast(F::least)) & F::exponent);
    if (evenPower) // an odd exponent
        scale = (scale - bit) | bit;
    Scaled<T> s;
    s.scale = (Vec<T>)scale;
    s.z = {withSign<T>(re, z.re) * s.scale, withSign<T>(im, z.im) * s.scale};
    s.norm = s.z.re * s.z.re + s.z.im * s.z.im;
    return s;
}

// ---- square roots ----

ARK_INLINE Vec<short> squareRoot(Vec<short> x)
{
    // Single precision is exact: roots of 16-bit squares are integers, all others are farther from them than its error.
    const Wide w = widen(x);
    const auto root = [](Vec<int> v) {
        Lanes32<float> y = fromInts<float>(v);
        y.part[0] = squareRoot(y.part[0]);
        return roundToInts<3>(y);
    };
    return packSaturated({root(w.low), root(w.high)});
}

template <class T>
bool realRoots(const T* src, T* dst, std::ptrdiff_t n)
{
    Vec<T> least{};
    eachLane(src, dst, n, [&least](Vec<T> x) {
        least = smaller(x, least); // the second operand where x is not a number
        return x < Vec<T>{} ? x : squareRoot(x);
    });
    return anySet(least < Vec<T>{});
}

// The larger and the smaller part of the root's magnitude, which are the real and the imaginary part if re >= 0.
struct RootParts {
    Vec<double> larger, smaller;
};

ARK_INLINE RootParts withQuotient(Vec<double> imaginary, Vec<double> root)
{
    const Vec<double> zero{};
    return {root, root == zero ? zero : magnitude<double>(imaginary) / (root + root)};
}

// Of parts whose squares are far from the ends of the range; accurate to 2^-51, which is enough for rounding to a
// float.
ARK_INLINE RootParts rootParts(Cplx<double> z)
{
    const Vec<double> norm = squareRoot(z.re * z.re + z.im * z.im);
    return withQuotient(z.im, squareRoot((magnitude<double>(z.re) + norm) * broadcast(0.5)));
}

struct Exact {
    Vec<double> high, low;
};

ARK_INLINE Exact square(Vec<double> x)
{
    const Vec<double> high = x * x;
#if ARK_AVX512 || ARK_AVX2
    return {high, multiplyAdd<double>(x, x, -high)};
#else
    // Veltkamp's halves and Dekker's product.
    const Vec<double> c = x * broadcast(0x1p27 + 1), a = c - (c - x), b = x - a;
    return {high, ((a * a - high) + broadcast(2.0) * a * b) + b * b};
#endif
}

// sqrt(s + rest): rounded, and what was lost.
ARK_INLINE Exact preciseRoot(Vec<double> s, Vec<double> rest)
{
    const Vec<double> root = squareRoot(s), derivative = broadcast(0.5) / root;
    const Exact back = square(root);
    return {root, (((s - back.high) - back.low) + rest) * derivative};
}

// The larger part correct to little more than half an ulp, the smaller one, a quotient by it, to less than 2 ulps.
ARK_INLINE RootParts preciseRootParts(Cplx<double> z)
{
    const Scaled<double> s = scaled(z, true);
    const Vec<double> re = magnitude<double>(s.z.re), im = magnitude<double>(s.z.im);
    const Exact a = square(larger(re, im)), b = square(smaller(re, im));
    const Vec<double> norm = a.high + b.high;
    const Exact modulus = preciseRoot(norm, (a.high - norm) + b.high + (a.low + b.low));
    const Vec<double> sum = modulus.high + re, lost = (modulus.high - sum) + re + modulus.low;
    const Vec<double> oneHalf = broadcast(0.5);
    const Exact root = preciseRoot(sum * oneHalf, lost * oneHalf);

    // 1 / sqrt(scale): the exponent is the bias less half of what the scale's is above the bias.
    constexpr unsigned long long bias = 1023;
    const Vec<double> back = (Vec<double>)((((3 * bias) << 52) - (Vec<unsigned long long>)s.scale) >> 1);
    const Vec<double> zero{};
    return withQuotient(z.im, (sum == zero ? zero : root.high + root.low) * back);
}

// The principal root; zeros and infinities as C99's csqrt has them.
ARK_INLINE Cplx<double> principalRoot(Cplx<double> z, RootParts parts)
{
    const Vec<double> zero{}, infinity = broadcast(Format<double>::infinity);
    Vec<double> re = z.re < zero ? parts.smaller : parts.larger, im = z.re < zero ? parts.larger : parts.smaller;
    const Vec<double> absRe = magnitude<double>(z.re), absIm = magnitude<double>(z.im);
    if (!allWithin(larger(absRe, absIm), zero, broadcast(Format<double>::most))) [[unlikely]] {
        // An infinite real part leaves zero, or what is not a number, beside it; an infinite imaginary part wins.
        const Vec<double> rest = absIm * zero;
        const auto infinite = absRe == infinity, above = z.re > zero;
        re = infinite ? (above ? infinity : rest) : re;
        im = infinite ? (above ? rest : infinity) : im;
        re = absIm == infinity ? infinity : re;
        im = absIm == infinity ? infinity : im;
    }
    return {re, withSign<double>(im, z.im)};
}

bool doubleRoots(const DoubleCplx* src, DoubleCplx* dst, std::ptrdiff_t n)
{
    eachPair<double>(partsOf(src), partsOf(dst), n,
                     [](Cplx<double> z) { return principalRoot(z, preciseRootParts(z)); });
    return false;
}

template <class T>
bool narrowRoots(const T* src, T* dst, std::ptrdiff_t n)
{
    eachPair<double>(partsOf(src), partsOf(dst), n, [](Cplx<double> z) { return principalRoot(z, rootParts(z)); });
    return false;
}

// ---- absolute values ----

ARK_INLINE Vec<short> absolute(Vec<short> x) { return larger(x, subSaturated(Vec<short>{}, x)); }
ARK_INLINE Vec<float> absolute(Vec<float> x) { return magnitude<float>(x); }
ARK_INLINE Vec<double> absolute(Vec<double> x) { return magnitude<double>(x); }

template <class T>
void absoluteValues(const T* src, T* dst, std::ptrdiff_t n)
{
    eachLane(src, dst, n, [](Vec<T> x) { return absolute(x); });
}

// ---- thresholds ----

template <class T, bool above>
void thresh(const T* src, T* dst, std::ptrdiff_t n, T level)
{
    const Vec<T> bound = broadcast(level);
    // Of equal zeros, and where x is not a number, the second operand is taken.
    eachLane(src, dst, n, [=](Vec<T> x) { return above ? smaller(bound, x) : larger(bound, x); });
}

template <class R>
ARK_INLINE auto isInfinite(Cplx<R> z)
{
    return larger(magnitude<R>(z.re), magnitude<R>(z.im)) == broadcast(Format<R>::infinity);
}

// Between these nothing of what follows overflows, or is lost by underflow, that need not: levels and squared
// magnitudes.
template <class R>
inline constexpr R leastModerate = sizeof(R) == 4 ? R(0x1p-60) : R(0x1p-500);
template <class R>
inline constexpr R mostModerate = 1 / leastModerate<R>;

// What needs no scaling, lane by lane, and what does, where any lane does: which lanes lie side by side must not show.
template <class R, class Scaled>
ARK_INLINE Cplx<R> whereModerate(Cplx<R> z, Vec<R> norm, Vec<R> least, Cplx<R> plain, Scaled scaled)
{
    const Vec<R> most = broadcast(mostModerate<R>);
    if (!allWithin(norm, least, most)) [[unlikely]] {
        const auto moderate = (norm >= least) & (norm <= most);
        const Cplx<R> other = scaled(z);
        plain = {moderate ? plain.re : other.re, moderate ? plain.im : other.im};
    }
    return plain;
}

template <class R, bool above>
ARK_INLINE Cplx<R> limitedScaled(Cplx<R> z, Vec<R> bound)
{
    const Vec<R> zero{}, one = broadcast(R(1)), infinity = broadcast(Format<R>::infinity);
    const Scaled<R> s = scaled(z);
    const Vec<R> scaledBound = bound * s.scale, boundNorm = scaledBound * scaledBound;
    const Vec<R> norm = s.norm + (isInfinite(z) ? infinity : zero); // not a number if a part is not
    const auto beyond = above ? norm > boundNorm : norm < boundNorm;
    const Vec<R> toUnit = one / squareRoot(s.norm);
    // Rounding must not carry a part beyond the level, which may be the largest number.
    const auto limited = [=](Vec<R> x) { return withSign<R>(smaller(bound, magnitude<R>(x)), x); };
    Cplx<R> moved{limited(s.z.re * toUnit * bound), limited(s.z.im * toUnit * bound)};
    if (!above) {
        moved.re = norm == zero ? bound : moved.re;
        moved.im = norm == zero ? zero : moved.im;
    }
    return {beyond ? moved.re : z.re, beyond ? moved.im : z.im};
}

template <class T, bool above>
void complexThresh(const T* src, T* dst, std::ptrdiff_t n, Real<T> level)
{
    using R = Real<T>;
    const Vec<R> one = broadcast(R(1)), bound = broadcast(level), boundNorm = bound * bound;
    const bool moderate = level >= leastModerate<R> && level <= mostModerate<R>;
    // Limits from above leave small elements alone, however inexact their norm.
    const Vec<R> least = broadcast(!moderate ? Format<R>::infinity : above ? R(0) : leastModerate<R>);
    eachPair<R>(partsOf(src), partsOf(dst), n, [=](Cplx<R> z) {
        const Vec<R> norm = z.re * z.re + z.im * z.im;
        const auto beyond = above ? norm > boundNorm : norm < boundNorm;
        const Vec<R> factor = beyond ? bound / squareRoot(norm) : one;
        return whereModerate<R>(z, norm, least, {z.re * factor, z.im * factor},
                                [=](Cplx<R> any) { return limitedScaled<R, above>(any, bound); });
    });
}

template <class T>
bool invThresh(const T* src, T* dst, std::ptrdiff_t n, T level)
{
    const Vec<T> one = broadcast(T(1)), zero{};
    if (level != 0) {
        const Vec<T> bound = broadcast(level);
        const BitsVec<T> propagated = level == level ? BitsVec<T>{} : (BitsVec<T>)bound;
        eachLane(src, dst, n, [=](Vec<T> x) {
            const Vec<T> limited = larger(bound, magnitude<T>(x)); // x where x is not a number
            return one / (Vec<T>)((BitsVec<T>)withSign<T>(limited, x) | propagated);
        });
        return false;
    }
    const Vec<T> most = broadcast(Format<T>::most);
    Vec<T> least = one;
    eachLane(
        src, dst, n,
        [=, &least](Vec<T> x) {
            least = smaller(magnitude<T>(x), least);
            return x == zero ? most : one / x;
        },
        one);
    return anySet(least == zero);
}

template <class T>
bool complexInvThresh(const T* src, T* dst, std::ptrdiff_t n, Real<T> level)
{
    using R = Real<T>;
    using F = Format<R>;
    // Small levels have no inverse: it is applied in two factors.
    const R up = level < 1 ? R(0x1p64) : R(1);
    const Vec<R> one = broadcast(R(1)), zero{}, bound = broadcast(level);
    const Vec<R> boundInverse = broadcast(1 / (level * up)), boundFactor = broadcast(up);
    const Vec<R> ofZero = broadcast(level == 0 ? F::most : 1 / level);
    Vec<R> least = one;
    // conj(z) / |z|^2 or conj(z) / (|z| level)
    const auto ofAny = [=, &least](Cplx<R> z) {
        const Scaled<R> s = scaled(z);
        const Vec<R> scaledBound = bound * s.scale;
        const auto beyond = s.norm > scaledBound * scaledBound;
        const Vec<R> divisor = beyond ? s.norm : squareRoot(s.norm);
        Vec<R> factor = beyond ? s.scale : boundInverse;
        factor = isInfinite(z) ? zero : factor;
        const Vec<R> secondFactor = beyond ? one : boundFactor;
        const Cplx<R> inverse{s.z.re / divisor * factor * secondFactor, -s.z.im / divisor * factor * secondFactor};
        least = smaller(s.norm, least);
        return Cplx<R>{s.norm == zero ? ofZero : inverse.re, s.norm == zero ? zero : inverse.im};
    };
    const bool moderate = level == 0 || (level >= leastModerate<R> && level <= mostModerate<R>);
    const Vec<R> leastNorm = broadcast(moderate ? leastModerate<R> : F::infinity), boundNorm = bound * bound;
    eachPair<R>(partsOf(src), partsOf(dst), n, [=](Cplx<R> z) {
        const Vec<R> norm = z.re * z.re + z.im * z.im;
        const Vec<R> divisor = norm > boundNorm ? norm : squareRoot(norm) * bound, inverse = one / divisor;
        return whereModerate<R>(z, norm, leastNorm, {z.re * inverse, -z.im * inverse}, ofAny);
    });
    return level == 0 && anySet(least == zero);
}

} // namespace

extern const VecKernels vec;

constinit const VecKernels vec{
    {realRoots<float>},
    {realRoots<double>},
    {narrowRoots<FloatCplx>},
    {doubleRoots},
    {realRoots<short>},
    {narrowRoots<ShortCplx>},
    {absoluteValues<float>},
    {absoluteValues<double>},
    {absoluteValues<short>},
    {thresh<float, false>, thresh<float, true>},
    {thresh<double, false>, thresh<double, true>},
    {complexThresh<FloatCplx, false>, complexThresh<FloatCplx, true>},
    {complexThresh<DoubleCplx, false>, complexThresh<DoubleCplx, true>},
    {thresh<short, false>, thresh<short, true>},
    {invThresh<float>},
    {invThresh<double>},
    {complexInvThresh<FloatCplx>},
    {complexInvThresh<DoubleCplx>},
};

} // namespace ark::ARK_SET
