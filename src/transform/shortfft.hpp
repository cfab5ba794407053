// The 16-bit transforms: computed in single precision, rounded, scaled. And the products of 16-bit spectra.
#pragma once

#include "transform/realfft.hpp"
#include "vector/scale.hpp"

#include <cstring>

namespace ark {

// Vectors of one call: one, or two of the same length.
struct ShortVectors {
    const short* src[2];
    short* dst[2];
};

// A 16-bit transform: the single-precision operation that computes it, in place, and how its vectors are made up.
struct ShortTransform {
    TransformKind kind;
    int vectors;
    int parts;                  // reals that an element of the transform's length takes
    int moreSource, moreResult; // reals beyond them
    void (*compute)(float* x, float* y, int order, int flags);
    const char* initTrace;
    const char* computeTrace;
};

inline constexpr ShortTransform shortFft{
    cplxKind,
    1,
    2,
    0,
    0,
    [](float* x, float*, int order, int flags) { arkcFft(reinterpret_cast<FloatCplx*>(x), order, flags); },
    "out arkcFft ARK_Init",
    "out arkcFft calc. FFT"};
inline constexpr ShortTransform shortFftOfParts{
    cplxKind, 2, 1, 0, 0, arkcrFft, "out arkcrFft ARK_Init", "out arkcrFft calc. FFT"};
inline constexpr ShortTransform shortRealFft{
    ccsKind,
    1,
    1,
    0,
    2,
    [](float* x, float*, int order, int flags) { arksRealFft(x, order, flags); },
    "out arksRealFft ARK_Init",
    "out arksRealFft calc. FFT"};
inline constexpr ShortTransform shortCcsFft{ccsKind,
                                            1,
                                            1,
                                            2,
                                            0,
                                            [](float* x, float*, int order, int flags) { arksCcsFft(x, order, flags); },
                                            "out arksCcsFft ARK_Init",
                                            "out arksCcsFft calc. FFT"};
inline constexpr ShortTransform shortRealFftl{
    toPackedKind,
    1,
    1,
    0,
    0,
    [](float* x, float*, int order, int flags) { arksRealFftl(x, order, flags); },
    "out arksRealFftl ARK_Init",
    "out arksRealFftl calc. FFT"};
inline constexpr ShortTransform shortCcsFftl{
    fromPackedKind,
    1,
    1,
    0,
    0,
    [](float* x, float*, int order, int flags) { arksCcsFftl(x, order, flags); },
    "out arksCcsFftl ARK_Init",
    "out arksCcsFftl calc. FFT"};
inline constexpr ShortTransform shortReal2Fft{
    twoSignalsKind, 2, 1, 0, 2, arksReal2Fft, "out arksReal2Fft ARK_Init", "out arksReal2Fft calc. FFT"};
inline constexpr ShortTransform shortCcs2Fft{
    twoSignalsKind, 2, 1, 2, 0, arksCcs2Fft, "out arksCcs2Fft ARK_Init", "out arksCcs2Fft calc. FFT"};

// One factor serves all vectors. Without scaling the results are clamped, with ARK_WRAP too.
inline void storeScaled(const float* samples, std::ptrdiff_t distance, const ShortVectors& vectors, int count,
                        std::ptrdiff_t length, Scaling scaling)
{
    if (scaling.mode == ARK_AUTO_SCALE) {
        int factor = 0;
        for (int v = 0; v < count; v++)
            factor = std::max(factor, automaticFactor(samples + v * distance, length));
        *scaling.factor = factor;
        scaling.mode = ARK_FIXED_SCALE;
    }
    for (int v = 0; v < count; v++)
        floatToShort(samples + v * distance, vectors.dst[v], length, clampedByDefault(scaling));
}

// The single element of order 0, and the zeros that a longer result has beside it.
inline void copyElement(const ShortTransform& transform, const ShortVectors& vectors, Scaling scaling)
{
    if (scaling.mode == ARK_AUTO_SCALE)
        *scaling.factor = 0;
    for (int v = 0; v < transform.vectors; v++) {
        if (vectors.dst[v] == vectors.src[v])
            continue;
        for (int i = 0; i < transform.parts; i++)
            vectors.dst[v][i] = vectors.src[v][i];
        if (transform.moreResult)
            vectors.dst[v][1] = 0;
    }
}

inline float* obtainSamples(std::uint64_t count)
{
    Caches& caches = context().caches;
    const auto obtained = [&] {
        return count <= PTRDIFF_MAX ? caches.working.samples.buffer<float>(std::size_t(count)) : nullptr;
    };
    if (float* const samples = obtained())
        return samples;
    for (TransformTables& tables : caches.transform)
        tables.release();
    caches.working.release();
    return obtained();
}

template <std::size_t count>
void shortTransform(Where at, const ShortTransform& transform, const Check (&nulls)[count], const ShortVectors& vectors,
                    int order, int flags, Scaling scaling)
{
    if (has(flags, ARK_Free))
        return release<float>(transform.kind, order);
    const bool init = has(flags, ARK_Init);
    if (!orderGood(at, order) ||
        !(init || (firstGood(at, nulls) && flagsGood(at, transform.kind, flags) && scalingGood(at, scaling))))
        return;
    if (order == 0)
        return init ? void() : copyElement(transform, vectors, scaling);

    const std::uint64_t length = std::uint64_t(transform.parts) << order;
    const std::uint64_t distance = length + std::uint64_t(std::max(transform.moreSource, transform.moreResult));
    float* const samples = obtainSamples(distance * std::uint64_t(transform.vectors));
    if (!samples)
        return outOfMemory(at, "No working memory");
    if (init) {
        transform.compute(nullptr, nullptr, order, ARK_Init);
        return statusGood() ? void() : report(at, ARK_StatusBacktrace, transform.initTrace);
    }
    const auto source = std::ptrdiff_t(length) + transform.moreSource,
               result = std::ptrdiff_t(length) + transform.moreResult;
    float* const second = samples + (transform.vectors > 1 ? distance : 0);
    for (int v = 0; v < transform.vectors; v++)
        shortToFloat(vectors.src[v], v ? second : samples, source);
    transform.compute(samples, second, order, flags);
    if (!statusGood())
        return report(at, ARK_StatusBacktrace, transform.computeTrace);
    storeScaled(samples, std::ptrdiff_t(distance), vectors, transform.vectors, result, scaling);
}

// The public members' forms: of one vector and of two, in place and not.
template <class T>
void shortTransform(Where at, const ShortTransform& transform, T* samps, int order, int flags, int scaleMode,
                    int* scaleFactor)
{
    shortTransform(at, transform, {{!samps, "samps==0"}}, {{partsOf(samps)}, {partsOf(samps)}}, order, flags,
                   {scaleMode, scaleFactor});
}
template <class In, class Out>
void shortTransform(Where at, const ShortTransform& transform, const In* in, Out* out, int order, int flags,
                    int scaleMode, int* scaleFactor)
{
    shortTransform(at, transform, {{!in, "inSamps==0"}, {!out, "outSamps==0"}}, {{partsOf(in)}, {partsOf(out)}}, order,
                   flags, {scaleMode, scaleFactor});
}

struct PairNames { // of null pointers
    const char *x, *y, *xIn, *yIn, *xOut, *yOut;
};
inline constexpr PairNames partNames{"reSamps==0",   "imSamps==0",    "reInSamps==0",
                                     "imInSamps==0", "reOutSamps==0", "imOutSamps==0"};
inline constexpr PairNames signalNames{"xSamps==0",   "ySamps==0",    "xInSamps==0",
                                       "yInSamps==0", "xOutSamps==0", "yOutSamps==0"};

inline void shortTransform2(Where at, const ShortTransform& transform, const PairNames& names, short* x, short* y,
                            int order, int flags, int scaleMode, int* scaleFactor)
{
    shortTransform(at, transform, {{!x, names.x}, {!y, names.y}}, {{x, y}, {x, y}}, order, flags,
                   {scaleMode, scaleFactor});
}
template <class In, class Out>
void shortTransform2(Where at, const ShortTransform& transform, const PairNames& names, const In* xIn, const In* yIn,
                     Out* xOut, Out* yOut, int order, int flags, int scaleMode, int* scaleFactor)
{
    shortTransform(at, transform, {{!xIn, names.xIn}, {!yIn, names.yIn}, {!xOut, names.xOut}, {!yOut, names.yOut}},
                   {{partsOf(xIn), partsOf(yIn)}, {partsOf(xOut), partsOf(yOut)}}, order, flags,
                   {scaleMode, scaleFactor});
}

// Products of packed spectra under the rules of 16-bit arithmetic, one factor for all.
inline void multiplyShortSpectra(const short* a, const short* b, short* dst, SpectrumLayout layout, int order,
                                 Scaling scaling)
{
    const ShortArithKernels& kernel = kernels<ShortArithKernels>();
    const auto forEachLane = [&](auto body) { // body(offset, lanes, operation)
        forEachRun(layout, order, [&](std::ptrdiff_t offset, std::ptrdiff_t count, bool isComplexRun) {
            body(offset, isComplexRun ? 2 * count : count, isComplexRun ? shortCplxMpy : shortMpy);
        });
    };
    FixedRule fixed = fixedRule(scaling);
    if (scaling.mode == ARK_AUTO_SCALE) {
        unsigned bits = 0;
        forEachLane([&](std::ptrdiff_t offset, std::ptrdiff_t lanes, ShortOperation operation) {
            bits |= kernel.magnitudeBits[operation](a + offset, {b + offset, 1}, lanes);
        });
        fixed = {rightRule, std::max(int(std::bit_width(bits)) - 15, 0)};
        *scaling.factor = fixed.count;
    }
    forEachLane([&](std::ptrdiff_t offset, std::ptrdiff_t lanes, ShortOperation operation) {
        kernel.rules[operation].apply[fixed.rule](a + offset, {b + offset, 1}, dst + offset, lanes, fixed.count);
    });
}

inline void multiplyShortSpectra2(Where at, SpectrumLayout (*layoutOf)(int order), const short* src, short* dst,
                                  int order, int scaleMode, int* scaleFactor)
{
    if (allGood(at, {{order < 0, "order<0"},
                     {order >= orders, "order>31"},
                     {!src, "src==0"},
                     {!dst, "dst==0"},
                     {!scaleFactor, "scaleFactor==0"}}))
        multiplyShortSpectra(dst, src, dst, layoutOf(order), order, {scaleMode, scaleFactor});
}
inline void multiplyShortSpectra3(Where at, SpectrumLayout (*layoutOf)(int order), const short* srcA, const short* srcB,
                                  short* dst, int order, int scaleMode, int* scaleFactor)
{
    if (allGood(at, {{order < 0, "order<0"},
                     {order >= orders, "order>31"},
                     {!srcA, "srcA==0"},
                     {!srcB, "srcB==0"},
                     {!dst, "dst==0"},
                     {!scaleFactor, "scaleFactor==0"}}))
        multiplyShortSpectra(srcA, srcB, dst, layoutOf(order), order, {scaleMode, scaleFactor});
}

} // namespace ark
