// The FFT of real signals of the floating types, their packed spectra and the products of these.
#pragma once

#include "transform/cplxfft.hpp"
#include "transform/fewreals.hpp"
#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

namespace ark {

// Where a layout of the half spectrum of N reals keeps what: X_0 at 0, X_(N/2) at last, the pairs X_1 ... from
// pairs on.
struct SpectrumLayout {
    std::ptrdiff_t pairs, last;
    bool isCcs; // has room for the imaginary parts of X_0 and X_(N/2), which are zero
};

inline SpectrumLayout ccsLayout(int order) { return {2, std::ptrdiff_t{1} << order, true}; }
inline SpectrumLayout packLayout(int order) { return {1, order > 0 ? (std::ptrdiff_t{1} << order) - 1 : 0, false}; }
inline SpectrumLayout permLayout(int order) { return {2, order > 0, false}; }

template <class R, int N>
[[gnu::always_inline]] inline void fewToSpectrum(const R* src, R* dst, SpectrumLayout layout, int flags, R scale)
{
    const HalfSpectrum<R, N> spectrum = spectrumOf<R, N>(src);
    const R imScale = has(flags, ARK_Inv) ? -scale : scale;
    dst[0] = spectrum.re[0] * scale;
    unrolled<N / 2 - 1>([=](auto i) __attribute__((always_inline)) {
        dst[layout.pairs + 2 * i] = spectrum.re[i + 1] * scale;
        dst[layout.pairs + 2 * i + 1] = spectrum.im[i + 1] * imScale;
    });
    if (layout.isCcs)
        dst[1] = dst[layout.last + 1] = 0;
    dst[layout.last] = spectrum.re[N / 2] * scale;
}
template <class R, int N>
[[gnu::always_inline]] inline void spectrumToFew(const R* src, R* dst, SpectrumLayout layout, int flags, R scale)
{
    HalfSpectrum<R, N> spectrum;
    const R imSign = has(flags, ARK_Inv) ? 1 : -1;
    spectrum.re[0] = src[0];
    unrolled<N / 2 - 1>([&](auto i) __attribute__((always_inline)) {
        spectrum.re[i + 1] = src[layout.pairs + 2 * i];
        spectrum.im[i + 1] = src[layout.pairs + 2 * i + 1] * imSign;
    });
    spectrum.re[N / 2] = src[layout.last];
    R x[N];
    signalOf(spectrum, x);
    unrolled<N>([&](auto n) __attribute__((always_inline)) { dst[n] = x[n] * scale; });
}

// Two numbers in one store, as they are loaded next: a load waits long for two stores.
inline void putTogether(float* to, float a, float b)
{
    const std::uint64_t both = std::bit_cast<std::uint32_t>(a) | std::uint64_t{std::bit_cast<std::uint32_t>(b)} << 32;
    std::memcpy(to, &both, sizeof both);
}
inline void putTogether(double* to, double a, double b)
{
    typedef double Both __attribute__((vector_size(16)));
    const Both both{a, b};
    std::memcpy(to, &both, sizeof both);
}

// N reals as N/2 complex numbers: their transform, recombined where it stands. So few reals that calls would take
// longest are transformed as they are. Inlined, since layout and space would be passed in memory.
template <class R>
[[gnu::always_inline]] inline void realToSpectrum(const R* src, R* dst, SpectrumLayout layout, int order, int flags,
                                                  const Workspace<R>& space)
{
    const R scale = scaleOf<R>(order, flags);
    switch (order) {
    case 1: return fewToSpectrum<R, 2>(src, dst, layout, flags, scale);
    case 2: return fewToSpectrum<R, 4>(src, dst, layout, flags, scale);
    case 3: return fewToSpectrum<R, 8>(src, dst, layout, flags, scale);
    default: break;
    }
    transformPairs(src, dst, order - 1, flags, space, R(1));
    const R re = dst[0], im = dst[1];
    const auto recombine = inDirection(kernels<RealKernels<R>>().recombine, flags);
    recombine(dst + 2, dst + layout.pairs, order - 1, space.recombination, scale / 2, -scale / 2);
    dst[0] = (re + im) * scale;
    if (layout.isCcs)
        dst[1] = dst[layout.last + 1] = 0;
    dst[layout.last] = (re - im) * scale;
}

template <class R>
[[gnu::always_inline]] inline void spectrumToReal(const R* src, R* dst, SpectrumLayout layout, int order, int flags,
                                                  const Workspace<R>& space)
{
    const R scale = scaleOf<R>(order, flags);
    switch (order) {
    case 1: return spectrumToFew<R, 2>(src, dst, layout, flags, scale);
    case 2: return spectrumToFew<R, 4>(src, dst, layout, flags, scale);
    case 3: return spectrumToFew<R, 8>(src, dst, layout, flags, scale);
    default: break;
    }
    const R first = src[0], last = src[layout.last];
    const auto recombine = inDirection(kernels<RealKernels<R>>().recombine, flags);
    recombine(src + layout.pairs, dst + 2, order - 1, space.recombination, 1, 1);
    putTogether(dst, first + last, first - last);
    transformPairs<R>(dst, dst, order - 1, flags, space, scale);
}

inline constexpr bool toSpectrum = true, toReal = false;

// A transform of one real signal: direction says which side the spectrum is on. The single element of order 0 is
// copied, as (x, 0) into a spectrum in CCS of its own. Inlined as cplxFft is.
template <bool direction, class R, std::size_t count>
[[gnu::always_inline]] inline void realFft(Where at, const TransformKind& kind, const Check (&nulls)[count],
                                           const R* src, R* dst, SpectrumLayout (*layoutOf)(int order), int order,
                                           int flags)
{
    const Workspace<R> space = ready<R>(at, kind, nulls, order, flags);
    if (!space.isComplete)
        return;
    if (order == 0) {
        if (src == dst)
            return;
        dst[0] = src[0];
        if (direction == toSpectrum && layoutOf(0).isCcs)
            dst[1] = 0;
        return;
    }
    if constexpr (direction == toSpectrum)
        realToSpectrum(src, dst, layoutOf(order), order, flags, space);
    else
        spectrumToReal(src, dst, layoutOf(order), order, flags, space);
}

template <bool direction, class R>
[[gnu::always_inline]] inline void ccsFft(Where at, R* samps, int order, int flags)
{
    realFft<direction, R>(at, ccsKind, {{!samps, "samps==0"}}, samps, samps, ccsLayout, order, flags);
}
template <bool direction, class In, class Out>
[[gnu::always_inline]] inline void ccsFft(Where at, const In* in, Out* out, int order, int flags)
{
    realFft<direction>(at, ccsKind, {{!in, "inSamps==0"}, {!out, "outSamps==0"}}, partsOf(in), partsOf(out), ccsLayout,
                       order, flags);
}

template <bool direction>
constexpr TransformKind packedKind = direction == toSpectrum ? toPackedKind : fromPackedKind;

template <bool direction>
auto packedLayout(int flags)
{
    return has(flags, direction == toSpectrum ? ARK_OutRCPack : ARK_InRCPack) ? packLayout : permLayout;
}

template <bool direction, class R>
[[gnu::always_inline]] inline void packedFft(Where at, R* samps, int order, int flags)
{
    realFft<direction, R>(at, packedKind<direction>, {{!samps, "samps==0"}}, samps, samps,
                          packedLayout<direction>(flags), order, flags);
}
template <bool direction, class R>
[[gnu::always_inline]] inline void packedFft(Where at, const R* in, R* out, int order, int flags)
{
    realFft<direction, R>(at, packedKind<direction>, {{!in, "inSamps==0"}, {!out, "outSamps==0"}}, in, out,
                          packedLayout<direction>(flags), order, flags);
}

// ---- two real signals in one complex transform ----

template <class R>
struct Signals {
    R *x, *y;
};

template <bool direction, class R>
void twoSignalsFft(Signals<const R> src, Signals<R> dst, int order, int flags, const Workspace<R>& space)
{
    const std::ptrdiff_t N = std::ptrdiff_t{1} << order;
    const R scale = scaleOf<R>(order, flags);
    const RealKernels<R>& kernel = kernels<RealKernels<R>>();
    const auto transform = inDirection(kernels<FftKernels<R>>().transform[separate][naturalOrder], flags);
    R *const re = space.spectrum, *const im = re + N;
    if constexpr (direction == toSpectrum) {
        transform({src.x, src.y}, {re, im}, order, space.fft, space.scratch, 1);
        kernel.separate(re, im, dst.x, dst.y, N, scale / 2);
    } else {
        kernel.combine(src.x, src.y, re, im, N);
        transform({re, im}, {dst.x, dst.y}, order, space.fft, space.scratch, scale);
    }
}

template <bool direction, class R>
void twoSignals(Where at, R* x, R* y, int order, int flags)
{
    const Workspace<R> space = ready<R>(at, twoSignalsKind, {{!x, "xSamps==0"}, {!y, "ySamps==0"}}, order, flags);
    if (space.isComplete && order > 0)
        twoSignalsFft<direction, R>({x, y}, {x, y}, order, flags, space);
}

// The operation that a member is known to be made of, which failures inside are reported under before the member's own
// back-trace.
struct Inner {
    const char* function;
    const char* trace;
};

template <bool direction, class In, class Out>
void twoSignals(Where at, Inner inner, const In* xIn, const In* yIn, Out* xOut, Out* yOut, int order, int flags)
{
    using R = Real<In>;
    if (has(flags, ARK_Free))
        return release<R>(twoSignalsKind, order);
    const bool init = has(flags, ARK_Init);
    if (!orderGood(at, order) ||
        !(init ||
          (firstGood(
               at, {{!xIn, "xInSamps==0"}, {!yIn, "yInSamps==0"}, {!xOut, "xOutSamps==0"}, {!yOut, "yOutSamps==0"}}) &&
           flagsGood(at, twoSignalsKind, flags))))
        return;
    Workspace<R> space;
    if (!obtainOrReport<R>({inner.function, at.module, at.line}, twoSignalsKind, order, space))
        return report(at, ARK_StatusBacktrace, inner.trace);
    if (init)
        return;
    const Signals<const R> src{partsOf(xIn), partsOf(yIn)};
    const Signals<R> dst{partsOf(xOut), partsOf(yOut)};
    if (order > 0)
        return twoSignalsFft<direction, R>(src, dst, order, flags, space);
    dst.x[0] = src.x[0];
    dst.y[0] = src.y[0];
    if constexpr (direction == toSpectrum)
        dst.x[1] = dst.y[1] = 0;
}

// ---- products of packed spectra ----

// Calls body(offset, count, isComplex) for each run of reals, or of complex pairs, that a layout consists of.
template <class Body>
void forEachRun(SpectrumLayout layout, int order, Body body)
{
    body(std::ptrdiff_t{0}, std::ptrdiff_t{1}, false);
    if (order > 0)
        body(layout.last, std::ptrdiff_t{1}, false);
    if (order > 1)
        body(layout.pairs, (std::ptrdiff_t{1} << (order - 1)) - 1, true);
}

template <class R>
struct CplxOf;
template <>
struct CplxOf<float> {
    using Type = FloatCplx;
};
template <>
struct CplxOf<double> {
    using Type = DoubleCplx;
};

template <class R>
void multiplySpectra(const R* a, const R* b, R* dst, SpectrumLayout layout, int order)
{
    using C = typename CplxOf<R>::Type;
    forEachRun(layout, order, [=](std::ptrdiff_t offset, std::ptrdiff_t count, bool isComplexRun) {
        const auto pairs = [=](auto* part) { return reinterpret_cast<const C*>(part + offset); };
        if (isComplexRun)
            kernels<ArithKernels<C>>().mpy(pairs(a), pairs(b), reinterpret_cast<C*>(dst + offset), count);
        else
            dst[offset] = a[offset] * b[offset];
    });
}

template <class R>
void multiplySpectra2(Where at, SpectrumLayout (*layoutOf)(int order), const R* src, R* dst, int order)
{
    if (allGood(at, {{order < 0, "order<0"}, {order >= orders, "order>31"}, {!src, "src==0"}, {!dst, "dst==0"}}))
        multiplySpectra(dst, src, dst, layoutOf(order), order);
}
template <class R>
void multiplySpectra3(Where at, SpectrumLayout (*layoutOf)(int order), const R* srcA, const R* srcB, R* dst, int order)
{
    if (allGood(at, {{order < 0, "order<0"},
                     {order >= orders, "order>31"},
                     {!srcA, "srcA==0"},
                     {!srcB, "srcB==0"},
                     {!dst, "dst==0"}}))
        multiplySpectra(srcA, srcB, dst, layoutOf(order), order);
}

} // namespace ark
