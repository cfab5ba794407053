// Conversion between floating-point and integer vectors.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

constexpr std::ptrdiff_t step = lanes<int>; // elements at a time

// Rounding brings exactly the numbers from least to most into the range of Int. direction is that of roundToInts.
template <class Real, class Int, int direction>
struct Bounds {
    static constexpr int bits = 8 * int(sizeof(Int)) - isSigned<Int>;
    static constexpr Real above = Real(1ull << bits);              // the first integer above the range
    static constexpr Real below = isSigned<Int> ? above : Real(0); // minus the first integer of the range

    // The next number that way.
    static constexpr Real towardZero(Real x)
    {
        using B = typename BitsOf<Real>::Type;
        return __builtin_bit_cast(Real, __builtin_bit_cast(B, x) - 1);
    }
    // Floats have no numbers between the last integers of 31 and 32 bits.
    static constexpr bool exact = above - Real(0.5) < above;

    static constexpr Real most = direction == 0 && exact   ? towardZero(above - Real(0.5))
                                 : direction == 2 && exact ? above - 1
                                                           : towardZero(above);
    static constexpr Real least = direction == 0      ? -(below + Real(0.5))
                                  : direction == 1    ? -below
                                  : below + 1 > below ? -towardZero(below + 1)
                                                      : -below;
};

template <class Int, int direction, class Real>
ARK_INLINE Vec<int> toLanes(Lanes32<Real> x)
{
    if constexpr (sizeof(Int) == 4 && !isSigned<Int>) {
        // The upper half of the range is brought down by 2^31, exactly, and the bit put back.
        using B = Vec<typename BitsOf<Real>::Type>;
        Lanes32<Real> upper; // 0 or 2^31, which converts to the upper bit
        for (int k = 0; k < upper.registers; k++) {
            const Vec<Real> half = broadcast(Real(0x1p31));
            upper.part[k] = (Vec<Real>)((B)(x.part[k] >= half) & (B)half);
            x.part[k] -= upper.part[k];
        }
        return roundToInts<direction>(x) ^ roundToInts<3>(upper);
    } else {
        return roundToInts<direction>(x);
    }
}

template <class Real>
using RealBits = Vec<typename BitsOf<Real>::Type>;

template <class Real>
struct Clamped {
    Lanes32<Real> value;    // 0 for what is not a number
    RealBits<Real> outside; // some bit for an element that was out of range
};

template <class Int, int direction, class Real>
ARK_INLINE Clamped<Real> clamp(Lanes32<Real> x)
{
    using B = RealBits<Real>;
    using To = Bounds<Real, Int, direction>;
    Clamped<Real> r{};
    for (int k = 0; k < x.registers; k++) {
        // In this order of the operands either zero, and what is not a number, come out as they are.
        const Vec<Real> bounded = smaller(broadcast(To::most), larger(broadcast(To::least), x.part[k]));
        r.value.part[k] = zeroUnlessNumber(bounded);
        r.outside |= (B)x.part[k] ^ (B)r.value.part[k];
    }
    return r;
}

template <class Int, int direction, class Real>
ARK_INLINE Vec<int> saturated(Lanes32<Real> x, Lanes32<Real> clamped)
{
    using To = Bounds<Real, Int, direction>;
    Vec<int> v = toLanes<Int, direction>(clamped);
    // Where the largest number in range is below the integer bound, the bound is put in by hand.
    if constexpr (!To::exact) {
        const Vec<int> above = (Vec<int>)(x.part[0] >= broadcast(To::above));
        v = (v & ~above) | (above & broadcast(isSigned<Int> ? 0x7FFFFFFF : -1));
    }
    return v;
}

// v where x is in range, old elsewhere.
template <class Real>
ARK_INLINE Vec<int> within(Lanes32<Real> x, Lanes32<Real> clamped, Vec<int> v, Vec<int> old)
{
    Lanes32<Real> outside; // 0 or 1
    for (int k = 0; k < x.registers; k++)
        outside.part[k] =
            (Vec<Real>)((RealBits<Real>)(x.part[k] != clamped.part[k]) & (RealBits<Real>)broadcast(Real(1)));
    const Vec<int> keep = subWrapping(Vec<int>{}, roundToInts<3>(outside));
    return (old & keep) | (v & ~keep);
}

template <bool saturate, class Real, class Int, int direction>
bool convertAll(const Real* src, Int* dst, std::ptrdiff_t n)
{
    RealBits<Real> outside{};
    const auto converted = [&](std::ptrdiff_t i, auto reach) {
        const Lanes32<Real> x = loadLanes32(src + i, reach);
        const Clamped<Real> clamped = clamp<Int, direction>(x);
        outside |= clamped.outside;
        const Vec<int> v = saturated<Int, direction>(x, clamped.value);
        if constexpr (saturate)
            return v;
        else
            return within(x, clamped.value, v, loadInts(dst + i, reach));
    };
    std::ptrdiff_t i = 0;
    for (; i + 2 * step <= n; i += 2 * step) {
        const Vec<int> low = converted(i, Whole{}), high = converted(i + step, Whole{});
        storeInts(dst + i, low, high);
    }
    for (; i + step <= n; i += step)
        storeInts(dst + i, converted(i, Whole{}), Whole{});
    if (i < n)
        storeInts(dst + i, converted(i, Part{n - i}), Part{n - i});
    return anySet(outside);
}

template <class Real, class Int, int direction>
bool toInt(const Real* src, void* dst, std::ptrdiff_t n, bool saturate)
{
    if (saturate)
        return convertAll<true, Real, Int, direction>(src, static_cast<Int*>(dst), n);
    return convertAll<false, Real, Int, direction>(src, static_cast<Int*>(dst), n);
}

template <class Real, class Int>
ARK_INLINE Lanes32<Real> fromLanes(Vec<int> v)
{
    if constexpr (sizeof(Int) == 4 && !isSigned<Int>) {
        // In halves of 16 bits, which are exact; their sum is rounded once.
        Lanes32<Real> high = fromInts<Real>((Vec<int>)((Vec<unsigned>)v >> 16));
        const Lanes32<Real> low = fromInts<Real>(v & broadcast(0xFFFF));
        for (int k = 0; k < Lanes32<Real>::registers; k++)
            high.part[k] = high.part[k] * broadcast(Real(65536)) + low.part[k];
        return high;
    } else {
        return fromInts<Real>(v);
    }
}

// From the last element to the first, so that narrower integers can be widened in place.
template <class Real, class Int>
void fromInt(const void* src, Real* dst, std::ptrdiff_t n)
{
    const Int* s = static_cast<const Int*>(src);
    downwards<step, 1, true>(dst, n, [=](std::ptrdiff_t i, auto reach) {
        storeLanes32(dst + i, fromLanes<Real, Int>(loadInts(s + i, reach)), reach);
    });
}

// In the order of Rounding; roundToInts takes the processor's codes.
template <class Real, class Int>
constexpr typename ConvertKernels<Real>::Integer integer{
    {toInt<Real, Int, 0>, toInt<Real, Int, 3>, toInt<Real, Int, 1>, toInt<Real, Int, 2>}, fromInt<Real, Int>};

template <class Real>
constexpr ConvertKernels<Real> convertTable{{{integer<Real, signed char>, integer<Real, unsigned char>},
                                             {integer<Real, short>, integer<Real, unsigned short>},
                                             {integer<Real, int>, integer<Real, unsigned>}}};

} // namespace

extern const ConvertKernels<float> convertS;
extern const ConvertKernels<double> convertD;

constinit const ConvertKernels<float> convertS = convertTable<float>;
constinit const ConvertKernels<double> convertD = convertTable<double>;

} // namespace ark::ARK_SET
