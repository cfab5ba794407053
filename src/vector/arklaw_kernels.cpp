// A-law and mu-law. A segment and a step within it are the exponent and the first four bits of the fraction of a
// floating-point number: of the magnitude, where the segments double in length.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

constexpr int step = lanes<int>; // elements at a time

constexpr int stepBit = 19;                        // the lowest of the fraction's first four bits
constexpr int segmentOfOne = -134 * 16;            // 2^7 has the exponent 134 and begins segment 0
constexpr unsigned halfStep = 1u << (stepBit - 1); // values stand in the middle of their step

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
ARK_INLINE Vec<unsigned> valueBits(Vec<unsigned> segmentAndStep)
{
    return ((segmentAndStep - unsigned(segmentOfOne)) << stepBit) + halfStep;
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
    static ARK_INLINE Vec<unsigned> bits(Vec<unsigned> code) { return valueBits(code + (isLinear(code) & 16)); }
    static ARK_INLINE Vec<unsigned> offset(Vec<unsigned> code)
    {
        return isLinear(code) & (Vec<unsigned>)broadcast(256.0f);
    }
    static ARK_INLINE Vec<unsigned> isLinear(Vec<unsigned> code) { return (Vec<unsigned>)((Vec<int>)code < 16); }
};

struct MuLaw {
    // With 131 added, segments 0 to 7 begin at 2^7 to 2^14; the code is inverted.
    static ARK_INLINE Vec<int> code(Vec<int> magnitude)
    {
        return 127 - segmentAndStep(smaller(asFloats(magnitude + 131), broadcast(32767.0f)));
    }

    static ARK_INLINE Vec<unsigned> bits(Vec<unsigned> code) { return valueBits(127 - code); }
    static ARK_INLINE Vec<unsigned> offset(Vec<unsigned>) { return (Vec<unsigned>)broadcast(132.0f); }
};

// body(i, reach) for every step elements and for those that are left.
template <class Body>
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
    inSteps(n, [=](std::ptrdiff_t i, auto reach) {
        const Sample s = sample(src + i, reach);
        storeInts(dst + i, Law::code(s.magnitude) | (~s.negative & 128), reach);
    });
}

template <class Reach>
ARK_INLINE void storeValues(short* to, Vec<float> v, Reach reach)
{
    storeInts(to, roundToInts<3>(Lanes32<float>{{v}}), reach);
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

template <class Law, class Linear>
void decode(const unsigned char* src, Linear* dst, std::ptrdiff_t n)
{
    inSteps(n, [=](std::ptrdiff_t i, auto reach) {
        const Vec<unsigned> byte = (Vec<unsigned>)loadInts(src + i, reach), code = byte & 127,
                            sign = (~byte & 128) << 24;
        // The sign goes to both, so that zero is never negative.
        storeValues(dst + i, (Vec<float>)(Law::bits(code) | sign) - (Vec<float>)(Law::offset(code) | sign), reach);
    });
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
