// Conversion between floating-point and integer vectors.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

constexpr int step = lanes<int>; // elements at a time

// The bounds of Int as floating-point numbers that convert back without overflow. Floats end below 2^31 and 2^32.
template <class Real, class Int>
struct Range {
    static constexpr int bits = 8 * int(sizeof(Int)) - isSigned<Int>;
    static constexpr Real least = isSigned<Int> ? -Real(1ull << bits) : Real(0);
    static constexpr Real behind = Real(1ull << bits);
    static constexpr bool exact = bits <= 24 || sizeof(Real) == 8;
    static constexpr Real most = exact ? behind - 1 : behind - Real(1ull << (bits - 24));
};

template <class Int, class Real>
ARK_INLINE Vec<int> toLanes(Lanes32<Real> x)
{
    if constexpr (sizeof(Int) == 4 && !isSigned<Int>) {
        // The upper half of the range is brought down by 2^31, exactly, and the bit put back.
        using B = Vec<typename BitsOf<Real>::Type>;
        Lanes32<Real> upper;
        for (int k = 0; k < Lanes32<Real>::registers; k++) {
            const Vec<Real> half = broadcast(Real(0x1p31));
            upper.part[k] = (Vec<Real>)((B)(x.part[k] >= half) & (B)half);
            x.part[k] -= upper.part[k];
        }
        Lanes32<Real> flags; // 0 or 1
        for (int k = 0; k < Lanes32<Real>::registers; k++)
            flags.part[k] = upper.part[k] * broadcast(Real(0x1p-31));
        return truncateToInts(x) | shiftLeft(truncateToInts(flags), 31);
    } else {
        return truncateToInts(x);
    }
}

template <class Real>
struct Rounded {
    Lanes32<Real> value, clamped; // equal where the value is representable
    bool anyOutside;
};

template <class Int, int direction, class Real>
ARK_INLINE Rounded<Real> roundAndClamp(Lanes32<Real> x)
{
    using B = Vec<typename BitsOf<Real>::Type>;
    Rounded<Real> r;
    B outside{};
    for (int k = 0; k < Lanes32<Real>::registers; k++) {
        const Vec<Real> value = roundTo<direction>(x.part[k]);
        Vec<Real> clamped =
            smaller(larger(value, broadcast(Range<Real, Int>::least)), broadcast(Range<Real, Int>::most));
        outside |= (B)(value != clamped);
        clamped = (Vec<Real>)((B)clamped & (B)(value == value)); // not a number becomes 0
        r.value.part[k] = value;
        r.clamped.part[k] = clamped;
    }
    r.anyOutside = anySet(outside);
    return r;
}

// Where the largest floating-point number in range is below the integer bound, the bound is put in by hand.
template <class Int, class Real>
ARK_INLINE Vec<int> saturatedLanes(const Rounded<Real>& r)
{
    Vec<int> v = toLanes<Int>(r.clamped);
    if constexpr (!Range<Real, Int>::exact) {
        const Vec<int> above = (Vec<int>)(r.value.part[0] >= broadcast(Range<Real, Int>::behind));
        v = (v & ~above) | (above & broadcast(isSigned<Int> ? 0x7FFFFFFF : -1));
    }
    return v;
}

// Up to step elements, those that are out of range left alone unless saturating.
template <class Int, class Real>
[[gnu::noinline]] void storeSelected(Int* dst, const Rounded<Real>& r, int count, bool saturate)
{
    Int stored[step];
    Real value[step], clamped[step];
    storeInts(stored, saturatedLanes<Int>(r));
    storeLanes32(value, r.value);
    storeLanes32(clamped, r.clamped);
    for (int i = 0; i < count; i++)
        if (saturate || value[i] == clamped[i])
            dst[i] = stored[i];
}

template <class Real, class Int, int direction>
bool toInt(const Real* src, void* dst, std::ptrdiff_t n, bool saturate)
{
    Int* d = static_cast<Int*>(dst);
    bool anyOutside = false;
    std::ptrdiff_t i = 0;
    for (; i + step <= n; i += step) {
        const auto r = roundAndClamp<Int, direction>(loadLanes32(src + i));
        anyOutside |= r.anyOutside;
        if (r.anyOutside && !saturate) [[unlikely]]
            storeSelected(d + i, r, step, false);
        else
            storeInts(d + i, saturatedLanes<Int>(r));
    }
    if (const int rest = int(n - i); rest > 0) {
        Real last[step] = {};
        __builtin_memcpy(last, src + i, std::size_t(rest) * sizeof(Real));
        const auto r = roundAndClamp<Int, direction>(loadLanes32(last));
        anyOutside |= r.anyOutside;
        storeSelected(d + i, r, rest, saturate);
    }
    return anyOutside;
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
    for (; n >= step; n -= step)
        storeLanes32(dst + n - step, fromLanes<Real, Int>(loadAsInts(s + n - step)));
    if (n > 0) {
        Int last[step] = {};
        Real converted[step];
        __builtin_memcpy(last, s, std::size_t(n) * sizeof(Int));
        storeLanes32(converted, fromLanes<Real, Int>(loadAsInts(last)));
        __builtin_memcpy(dst, converted, std::size_t(n) * sizeof(Real));
    }
}

// In the order of Rounding; roundTo takes the processor's codes.
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
