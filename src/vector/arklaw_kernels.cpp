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

ARK_INLINE Sample sample(const short* from)
{
    const Vec<int> x = loadAsInts(from);
    return {magnitudeOf(x), x >> 31};
}
ARK_INLINE Sample sample(const int* from)
{
    const Vec<int> x = loadAsInts(from);
    return {(Vec<int>)((Vec<unsigned>)magnitudeOf(x) >> 16), x >> 31};
}
template <class Real>
ARK_INLINE Sample sample(const Real* from)
{
    // Bounds in the extreme steps of both laws; what is not a number counts as the lower one.
    const Vec<Real> most = broadcast(Real(32767)), full = broadcast(Real(32768));
    Lanes32<Real> scaled = loadLanes32(from);
    for (Vec<Real>& part : scaled.part)
        part = smaller(larger(part * full, -most), most);
    const Vec<int> x = truncateToInts(scaled);
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

// f(from, to) for every step elements, and once more for copies of those that are left.
template <class From, class To, class Function>
ARK_INLINE void inSteps(const From* src, To* dst, std::ptrdiff_t n, Function f)
{
    std::ptrdiff_t i = 0;
    for (; i + step <= n; i += step)
        f(src + i, dst + i);
    if (i < n) {
        From from[step] = {};
        To to[step];
        __builtin_memcpy(from, src + i, std::size_t(n - i) * sizeof(From));
        f(from, to);
        __builtin_memcpy(dst + i, to, std::size_t(n - i) * sizeof(To));
    }
}

template <class Law, class Linear>
void encode(const Linear* src, unsigned char* dst, std::ptrdiff_t n)
{
    inSteps(src, dst, n, [](const Linear* from, unsigned char* to) {
        const Sample s = sample(from);
        storeInts(to, Law::code(s.magnitude) | (~s.negative & 128));
    });
}

ARK_INLINE void storeValues(short* to, Vec<float> v) { storeInts(to, truncateToInts(Lanes32<float>{{v}})); }
ARK_INLINE void storeValues(int* to, Vec<float> v)
{
    storeInts(to, truncateToInts(Lanes32<float>{{v * broadcast(65536.0f)}}));
}
ARK_INLINE void storeValues(float* to, Vec<float> v) { store(to, v * broadcast(0x1p-15f)); }
ARK_INLINE void storeValues(double* to, Vec<float> v)
{
    Lanes32<double> wide = fromInts<double>(truncateToInts(Lanes32<float>{{v}}));
    for (Vec<double>& part : wide.part)
        part *= broadcast(0x1p-15);
    storeLanes32(to, wide);
}

template <class Law, class Linear>
void decode(const unsigned char* src, Linear* dst, std::ptrdiff_t n)
{
    inSteps(src, dst, n, [](const unsigned char* from, Linear* to) {
        const Vec<unsigned> byte = (Vec<unsigned>)loadAsInts(from), code = byte & 127, sign = (~byte & 128) << 24;
        // The sign goes to both, so that zero is never negative.
        storeValues(to, (Vec<float>)(Law::bits(code) | sign) - (Vec<float>)(Law::offset(code) | sign));
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
