// A-law and mu-law. A segment and a step within it are the exponent and the first four bits of the fraction of a
// floating-point number: of the magnitude, where the segments double in length.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

constexpr int stepBit = 19;                  // the lowest of the fraction's first four bits
constexpr int segmentOfOne = -134 * 16;      // 2^7 has the exponent 134 and begins segment 0
constexpr int halfStep = 1 << (stepBit - 1); // values stand in the middle of their step

// The bits of a float as a lane of T has them: all, or those of the upper half, where the lower one is zero.
template <class T>
ARK_INLINE Vec<T> floatBits(int bits)
{
    return broadcast(T(bits >> (32 - 8 * int(sizeof(T)))));
}

struct Sample {
    Vec<int> magnitude;
    Vec<int> negative; // all bits or none
};

ARK_INLINE Vec<int> magnitudeOf(Vec<int> x)
{
    const Vec<int> negative = x >> 31;
    return subWrapping(x ^ negative, negative);
}

template <class Reach>
ARK_INLINE Sample sample(const short* from, Reach reach)
{
    const Vec<int> x = loadInts(from, reach);
    return {magnitudeOf(x), x >> 31};
}
template <class Reach>
ARK_INLINE Sample sample(const int* from, Reach reach)
{
    const Vec<int> x = loadInts(from, reach);
    return {(Vec<int>)((Vec<unsigned>)magnitudeOf(x) >> 16), x >> 31};
}
template <class Real, class Reach>
ARK_INLINE Sample sample(const Real* from, Reach reach)
{
    // Bounds in the extreme steps of both laws; what is not a number counts as the lower one.
    const Vec<Real> most = broadcast(Real(32767)), full = broadcast(Real(32768));
    Lanes32<Real> scaled = loadLanes32(from, reach);
    for (Vec<Real>& part : scaled.part)
        part = smaller(larger(part * full, -most), most);
    const Vec<int> x = roundToInts<3>(scaled);
    return {magnitudeOf(x), x >> 31};
}

// Segment and step of a magnitude from 2^7 on.
ARK_INLINE Vec<int> segmentAndStep(Vec<float> magnitude) { return ((Vec<int>)magnitude >> stepBit) + segmentOfOne; }
template <class T>
ARK_INLINE Vec<T> valueBits(Vec<T> segmentAndStep)
{
    return ((segmentAndStep - broadcast(T(segmentOfOne))) << (stepBit - 32 + 8 * int(sizeof(T)))) +
           floatBits<T>(halfStep);
}

ARK_INLINE Vec<float> asFloats(Vec<int> v) { return fromInts<float>(v).part[0]; }

struct ALaw {
    // Segments 1 to 7 begin at 2^8 to 2^14, segment 0 is linear below 2^8 in steps of 16.
    static ARK_INLINE Vec<int> code(Vec<int> magnitude)
    {
        const Vec<float> limited = smaller(larger(asFloats(magnitude), broadcast(256.0f)), broadcast(32767.0f));
        const Vec<int> linear = (Vec<int>)(magnitude < 256) & ((magnitude >> 4) - 16);
        return segmentAndStep(limited) + linear;
    }

    // The value is the float of these bits less an offset: in segment 0 what it would be in segment 1, less 2^8.
    template <class T>
    static ARK_INLINE Vec<T> bits(Vec<T> code)
    {
        return valueBits<T>(code + (isLinear<T>(code) & broadcast(T(16))));
    }
    template <class T>
    static ARK_INLINE Vec<T> offset(Vec<T> code)
    {
        return isLinear<T>(code) & floatBits<T>(__builtin_bit_cast(int, 256.0f));
    }
    template <class T>
    static ARK_INLINE Vec<T> isLinear(Vec<T> code)
    {
        using Signed = std::make_signed_t<T>;
        return (Vec<T>)(broadcast(Signed(16)) > (Vec<Signed>)code);
    }
};

struct MuLaw {
    // With 131 added, segments 0 to 7 begin at 2^7 to 2^14; the code is inverted.
    static ARK_INLINE Vec<int> code(Vec<int> magnitude)
    {
        return 127 - segmentAndStep(smaller(asFloats(magnitude + 131), broadcast(32767.0f)));
    }

    template <class T>
    static ARK_INLINE Vec<T> bits(Vec<T> code)
    {
        return valueBits<T>(broadcast(T(127)) - code);
    }
    template <class T>
    static ARK_INLINE Vec<T> offset(Vec<T>)
    {
        return floatBits<T>(__builtin_bit_cast(int, 132.0f));
    }
};

// body(i, reach) for every step elements and for those that are left.
template <std::ptrdiff_t step, class Body>
ARK_INLINE void inSteps(std::ptrdiff_t n, Body body)
{
    std::ptrdiff_t i = 0;
    for (; i + step <= n; i += step)
        body(i, Whole{});
    if (i < n)
        body(i, Part{n - i});
}

template <class Law, class Linear>
void encode(const Linear* src, unsigned char* dst, std::ptrdiff_t n)
{
    inSteps<lanes<int>>(n, [=](std::ptrdiff_t i, auto reach) {
        const Sample s = sample(src + i, reach);
        storeInts(dst + i, Law::code(s.magnitude) | (~s.negative & 128), reach);
    });
}

template <class Reach>
ARK_INLINE void storeValues(int* to, Vec<float> v, Reach reach)
{
    storeInts(to, roundToInts<3>(Lanes32<float>{{v * broadcast(65536.0f)}}), reach);
}
template <class Reach>
ARK_INLINE void storeValues(float* to, Vec<float> v, Reach reach)
{
    store(to, v * broadcast(0x1p-15f), reach);
}
template <class Reach>
ARK_INLINE void storeValues(double* to, Vec<float> v, Reach reach)
{
    Lanes32<double> wide = fromInts<double>(roundToInts<3>(Lanes32<float>{{v}}));
    for (Vec<double>& part : wide.part)
        part *= broadcast(0x1p-15);
    storeLanes32(to, wide, reach);
}

// The difference of two floats, each in a lane of T.
template <class T>
struct Value {
    Vec<T> bits, offset;
};

template <class Law, class T>
ARK_INLINE Value<T> value(Vec<T> byte)
{
    const Vec<T> code = byte & broadcast(T(127)), sign = (~byte & broadcast(T(128))) << (8 * int(sizeof(T)) - 8);
    // The sign goes to both, so that zero is never negative.
    return {Law::template bits<T>(code) | sign, Law::template offset<T>(code) | sign};
}

template <class Law, class Linear, class Reach>
ARK_INLINE void decodeStep(const unsigned char* src, Linear* dst, Reach reach)
{
    const Value<unsigned> x = value<Law, unsigned>((Vec<unsigned>)loadInts(src, reach));
    storeValues(dst, (Vec<float>)x.bits - (Vec<float>)x.offset, reach);
}

// Twice as many elements: in lanes of 16 bits up to the subtraction.
template <class Law, class Reach>
ARK_INLINE void decodeStep(const unsigned char* src, short* dst, Reach reach)
{
    const Value<unsigned short> x = value<Law, unsigned short>(loadBytes(src, reach));
    const Wide bits = interleave16(Bits{}, (Bits)x.bits), offset = interleave16(Bits{}, (Bits)x.offset);
    const auto difference = [](Vec<int> a, Vec<int> b) {
        return roundToInts<3>(Lanes32<float>{{(Vec<float>)a - (Vec<float>)b}});
    };
    store(dst, packSaturated({difference(bits.low, offset.low), difference(bits.high, offset.high)}), reach);
}

template <class Law, class Linear>
void decode(const unsigned char* src, Linear* dst, std::ptrdiff_t n)
{
    constexpr int step = sizeof(Linear) == sizeof(short) ? lanes<short> : lanes<int>;
    inSteps<step>(n, [=](std::ptrdiff_t i, auto reach) { decodeStep<Law>(src + i, dst + i, reach); });
}

template <class Linear>
constexpr LawKernels<Linear> table{encode<ALaw, Linear>, encode<MuLaw, Linear>, decode<ALaw, Linear>,
                                   decode<MuLaw, Linear>};

} // namespace

extern const LawKernels<short> lawW;
extern const LawKernels<int> lawI;
extern const LawKernels<float> lawS;
extern const LawKernels<double> lawD;

constinit const LawKernels<short> lawW = table<short>;
constinit const LawKernels<int> lawI = table<int>;
constinit const LawKernels<float> lawS = table<float>;
constinit const LawKernels<double> lawD = table<double>;

} // namespace ark::ARK_SET
