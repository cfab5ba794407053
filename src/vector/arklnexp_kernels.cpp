// Logarithm and exponential.
//
// The polynomials are minimax ones of our own, printed by tools/minimax.py; ln 2 is split into a high part of so few
// bits that its multiples by exponents are exact, and the rest.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

template <class T>
struct Format;

template <>
struct Format<float> {
    static constexpr int fractionBits = 23;
    static constexpr float bias = 127;
    static constexpr float least = 0x1p-126f, most = 0x1.fffffep127f; // normal numbers
    static constexpr float infinity = __builtin_inff(), notANumber = __builtin_nanf("");
    static constexpr float roundToInteger = 0x1.8p23f; // adding it puts the nearest integer into the lowest bits
    static constexpr float ln2High = 0x1.63p-1f, ln2Low = -0x1.bd0106p-13f, log2e = 0x1.715476p0f;
    // e^x overflows above the one bound and is 0 below the other.
    static constexpr float expMost = 89, expLeast = -104.5f;
    static constexpr float rootHalf = 0x1.6a09e6p-1f;
    // e^r = 1 + r + r^2 p(r), |r| <= ln 2 / 2: error 2^-28.0
    static constexpr float exp[]{0x1.fffffcp-2f, 0x1.555492p-3f, 0x1.5558f2p-5f, 0x1.1239e2p-7f, 0x1.6a2434p-10f};
};

template <>
struct Format<double> {
    static constexpr int fractionBits = 52;
    static constexpr double bias = 1023;
    static constexpr double least = 0x1p-1022, most = 0x1.fffffffffffffp1023;
    static constexpr double infinity = __builtin_inf(), notANumber = __builtin_nan("");
    static constexpr double roundToInteger = 0x1.8p52;
    static constexpr double ln2High = 0x1.62e42feep-1, ln2Low = 0x1.a39ef35793c76p-33, log2e = 0x1.71547652b82fep0;
    static constexpr double expMost = 710, expLeast = -746;
    static constexpr double rootHalf = 0x1.6a09e667f3bcdp-1;
    // as above: error 2^-56.4
    static constexpr double exp[]{0x1.000000000000ap-1,  0x1.55555555554fap-3,  0x1.555555555087cp-5,
                                  0x1.1111111127be5p-7,  0x1.6c16c1842a126p-10, 0x1.a01a012a57b5ep-13,
                                  0x1.a0199a0c66195p-16, 0x1.71df255235e0bp-19, 0x1.28ad72cd4ab37p-22,
                                  0x1.ad7f6f0e24922p-26};
};

template <class T>
using BitsVec = Vec<typename BitsOf<T>::Type>;

// By Horner's rule, coefficients from the constant on.
template <class T, std::size_t count>
ARK_INLINE Vec<T> polynomial(const T (&coefficients)[count], Vec<T> x)
{
    Vec<T> sum = broadcast(coefficients[count - 1]);
    for (std::size_t k = count - 1; k-- > 0;)
        sum = multiplyAdd<T>(sum, x, broadcast(coefficients[k]));
    return sum;
}

// 2^n for an integral n that is a normal number's exponent.
template <class T>
ARK_INLINE Vec<T> powerOf2(Vec<T> n)
{
    using F = Format<T>;
    return (Vec<T>)((BitsVec<T>)(n + broadcast(F::roundToInteger + F::bias)) << F::fractionBits);
}

// p * 2^n, rounded once: p is about 1, n integral, the result perhaps infinite, denormal or 0.
template <class T>
ARK_INLINE Vec<T> timesPowerOf2(Vec<T> p, Vec<T> n)
{
#if ARK_AVX512
    if constexpr (sizeof(T) == 4)
        return (Vec<T>)_mm512_scalef_ps(p, n);
    else
        return (Vec<T>)_mm512_scalef_pd(p, n);
#else
    const Vec<T> toInteger = broadcast(Format<T>::roundToInteger);
    const Vec<T> half = (n * broadcast(T(0.5)) + toInteger) - toInteger;
    return p * powerOf2<T>(half) * powerOf2<T>(n - half);
#endif
}

template <class T>
struct Exp {
    static ARK_INLINE Vec<T> apply(Vec<T> x)
    {
        using F = Format<T>;
        // What is not a number is the second operand, and stays.
        x = smaller(broadcast(F::expMost), larger(broadcast(F::expLeast), x));
        const Vec<T> toInteger = broadcast(F::roundToInteger);
        const Vec<T> n = multiplyAdd<T>(x, broadcast(F::log2e), toInteger) - toInteger;
        Vec<T> r = multiplyAdd<T>(n, broadcast(-F::ln2High), x);
        r = multiplyAdd<T>(n, broadcast(-F::ln2Low), r);
        const Vec<T> beyondOne = multiplyAdd<T>(r * r, polynomial(F::exp, r), r);
        return timesPowerOf2<T>(broadcast(T(1)) + beyondOne, n);
    }
};

// ln(1 + f) - f for sqrt(1/2) <= 1 + f <= sqrt(2).
ARK_INLINE Vec<float> lnWithoutLinear(Vec<float> f)
{
    // f^2 (f p(f) - 1/2): error of ln(1 + f) 2^-27.2
    constexpr float p[]{0x1.555554p-2f, -0x1.000226p-2f, 0x1.99a008p-3f, -0x1.547244p-3f,
                        0x1.22da1cp-3f, -0x1.0d8540p-3f, 0x1.055b6cp-3f, -0x1.38b590p-4f};
    return f * f * multiplyAdd<float>(f, polynomial(p, f), broadcast(-0.5f));
}
ARK_INLINE Vec<double> lnWithoutLinear(Vec<double> f)
{
    // With s = f / (2 + f) and z = s^2, ln(1 + f) = 2 s + s z t(z) and 2 s = f - s f = f - f^2/2 + s f^2/2: error 2^-59
    constexpr double t[]{0x1.5555555555592p-1, 0x1.999999997fdb7p-2, 0x1.24924941f1295p-2, 0x1.c71c52095abaap-3,
                         0x1.74663ee8bcb07p-3, 0x1.39a1bab2e5167p-3, 0x1.2f0563960f679p-3};
    const Vec<double> s = f / (broadcast(2.0) + f), z = s * s, halfSquare = f * f * broadcast(0.5);
    return multiplyAdd<double>(s, multiplyAdd<double>(z, polynomial(t, z), halfSquare), -halfSquare);
}

// ln(x) + e ln(2) for a positive normal x: e, integral, is for numbers that were scaled to become normal.
template <class T>
ARK_INLINE Vec<T> lnOfNormal(Vec<T> x, Vec<T> e)
{
    using F = Format<T>;
    using B = BitsVec<T>;
    // x = 2^k m, with m in sqrt(1/2) ... sqrt(2): the exponent's bits count from sqrt(1/2) instead of from 1.
    const B rootHalf = (B)broadcast(F::rootHalf), one = (B)broadcast(T(1));
    const B fromRootHalf = (B)x - rootHalf + one;
    const B fraction = B{} + ((typename BitsOf<T>::Type(1) << F::fractionBits) - 1);
    const Vec<T> m = (Vec<T>)((fromRootHalf & fraction) + rootHalf);
    constexpr T integral = F::roundToInteger / T(1.5); // its lowest bits are those of the integer that is added
    const Vec<T> biased = (Vec<T>)((B)broadcast(integral) | (fromRootHalf >> F::fractionBits));
    e += biased - broadcast(integral + F::bias);

    // e ln 2 + f + (ln(1 + f) - f), where the first sum's rounding is made up for.
    const Vec<T> f = m - broadcast(T(1));
    const Vec<T> high = e * broadcast(F::ln2High), sum = high + f, lost = f - (sum - high);
    return sum + (multiplyAdd<T>(e, broadcast(F::ln2Low), lost) + lnWithoutLinear(f));
}

template <class T>
struct Ln {
    static ARK_INLINE Vec<T> apply(Vec<T> x)
    {
        using F = Format<T>;
        if (!allWithin(x, broadcast(F::least), broadcast(F::most))) [[unlikely]]
            return ofAny(x);
        return lnOfNormal<T>(x, Vec<T>{});
    }

    // Zeros give minus infinity, negative numbers what is not a number; infinity and what is not a number stay.
    static ARK_INLINE Vec<T> ofAny(Vec<T> x)
    {
        using F = Format<T>;
        const T up = T(1ll << F::fractionBits);
        const auto denormal = x < broadcast(F::least);
        const Vec<T> scaled = denormal ? x * broadcast(up) : x;
        Vec<T> y = lnOfNormal<T>(scaled, denormal ? broadcast(T(-F::fractionBits)) : Vec<T>{});
        y = x == Vec<T>{} ? broadcast(-F::infinity) : y;
        y = x < Vec<T>{} ? broadcast(-F::notANumber) : y;
        return x <= broadcast(F::most) ? y : x;
    }
};

// The smallest integers whose logarithm reaches 1, 2, ...
constexpr short lnBounds[]{3, 8, 21, 55, 149, 404, 1097, 2981, 8104, 22027};

// e^0, e^1, ... rounded; 32767 from the last on.
constexpr short expValues[]{1, 3, 7, 20, 55, 148, 403, 1097, 2981, 8103, 22026, 32767};

struct ShortLn {
    static ARK_INLINE Vec<short> apply(Vec<short> x)
    {
        Vec<short> count{};
        for (const short bound : lnBounds)
            count -= (Vec<short>)(x >= broadcast(bound)); // true is -1
        return count;
    }
};

struct ShortExp {
    static ARK_INLINE Vec<short> apply(Vec<short> x)
    {
        Vec<short> y{};
        short exponent = 0;
        for (const short value : expValues)
            y = x >= broadcast(exponent++) ? broadcast(value) : y;
        return y;
    }
};

template <class Function, class T>
void each(const T* src, T* dst, std::ptrdiff_t n)
{
    // Ones are ordinary numbers to both functions.
    eachLane(
        src, dst, n, [](Vec<T> x) { return Function::apply(x); }, broadcast(T(1)));
}

} // namespace

extern const LnExpKernels<float> lnExpS;
extern const LnExpKernels<double> lnExpD;
extern const LnExpKernels<short> lnExpW;

constinit const LnExpKernels<float> lnExpS{each<Ln<float>, float>, each<Exp<float>, float>};
constinit const LnExpKernels<double> lnExpD{each<Ln<double>, double>, each<Exp<double>, double>};
constinit const LnExpKernels<short> lnExpW{each<ShortLn, short>, each<ShortExp, short>};

} // namespace ark::ARK_SET
