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

ARK_INLINE void storeParts(float* to, Vec<float> v) { store(to, v); }
ARK_INLINE void storeParts(float* to, Vec<double> v) { storeDoubles(to, v); }
ARK_INLINE void storeParts(double* to, Vec<double> v) { store(to, v); }
ARK_INLINE void storeParts(short* to, Vec<double> v) { storeTruncated(to, roundTo<0>(v)); }

// dst[i] = f(src[i]) for n pairs, computed in lanes of Lane. Where a part of a register is left, f sees ones behind it.
template <class Lane, class Part, class Function>
ARK_INLINE void eachPair(const Part* src, Part* dst, std::ptrdiff_t n, Function f)
{
    constexpr int width = lanes<Lane>;
    const auto step = [&](const Part* from, Part* to) {
        Vec<Lane> a, b;
        if constexpr (sizeof(Lane) == sizeof(Part))
            a = load(from), b = load(from + width);
        else
            a = loadDoubles(from), b = loadDoubles(from + width);
        const Cplx<Lane> z = f(Cplx<Lane>{permute2<evenOfBoth>(a, b), permute2<oddOfBoth>(a, b)});
        storeParts(to, permute2<lowOfBoth>(z.re, z.im));
        storeParts(to + width, permute2<highOfBoth>(z.re, z.im));
    };
    std::ptrdiff_t i = 0;
    for (; i + width <= n; i += width)
        step(src + 2 * i, dst + 2 * i);
    if (i < n) {
        Part last[2 * width];
        for (Part& part : last)
            part = 1;
        const std::size_t bytes = std::size_t(n - i) * 2 * sizeof(Part);
        __builtin_memcpy(last, src + 2 * i, bytes);
        step(last, last);
        __builtin_memcpy(dst + 2 * i, last, bytes);
    }
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
    for (int lane = 0; lane < lanes<T>; lane++)
        if (least[lane] < 0)
            return true;
    return false;
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
    const Vec<double> root = squareRoot(s);
    const Exact back = square(root);
    return {root, (((s - back.high) - back.low) + rest) / (root + root)};
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
    if (anySet((absRe == infinity) | (absIm == infinity))) [[unlikely]] {
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

template <class T, bool above>
void complexThresh(const T* src, T* dst, std::ptrdiff_t n, Real<T> level)
{
    using R = Real<T>;
    const Vec<R> bound = broadcast(level), zero{}, one = broadcast(R(1)), infinity = broadcast(Format<R>::infinity);
    eachPair<R>(partsOf(src), partsOf(dst), n, [=](Cplx<R> z) {
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
        return Cplx<R>{beyond ? moved.re : z.re, beyond ? moved.im : z.im};
    });
}

template <class T>
ARK_INLINE bool anyZero(Vec<T> v)
{
    bool any = false;
    for (int lane = 0; lane < lanes<T>; lane++)
        any |= v[lane] == 0;
    return any;
}

template <class T>
ARK_INLINE Vec<T> leastMagnitude(Vec<T> least, Vec<T> x, Whole)
{
    return smaller(magnitude<T>(x), least);
}
template <class T>
ARK_INLINE Vec<T> leastMagnitude(Vec<T> least, Vec<T> x, Part part)
{
    for (std::ptrdiff_t i = 0; i < part.count; i++)
        least[0] = x[i] == 0 ? T(0) : least[0];
    return least;
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
    const auto inverse = [=](Vec<T> x) { return x == zero ? most : one / x; };
    Vec<T> least = one;
    downwards<lanes<T>, 1, true>(dst, n, [=, &least](std::ptrdiff_t i, auto reach) {
        const Vec<T> x = load(src + i, reach);
        least = leastMagnitude<T>(least, x, reach);
        store(dst + i, inverse(x), reach);
    });
    return anyZero<T>(least);
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
    eachPair<R>(partsOf(src), partsOf(dst), n, [=, &least](Cplx<R> z) {
        // conj(z) / |z|^2 or conj(z) / (|z| level)
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
    });
    return level == 0 && anyZero<R>(least);
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
