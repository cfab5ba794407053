// The complex FFT of the floating types.
#pragma once

#include "frame/types.hpp"
#include "transform/workspace.hpp"

namespace ark {

template <class T>
FftVector<const Real<T>> pairsIn(const T* elements)
{
    // Nothing is added to a null pointer, which is reported later.
    return {partsOf(elements), elements ? partsOf(elements) + 1 : nullptr};
}
template <class T>
FftVector<Real<T>> pairsIn(T* elements)
{
    // Nothing is added to a null pointer, which is reported later.
    return {partsOf(elements), elements ? partsOf(elements) + 1 : nullptr};
}

template <class R>
void transformPairs(const R* src, R* dst, int order, int flags, const Workspace<R>& space, R scale)
{
    const auto& kernel = kernels<FftKernels<R>>().transform[interleaved][naturalOrder];
    inDirection(kernel, flags)({src, src + 1}, {dst, dst + 1}, order, space.fft, space.scratch, scale);
}

// Inlined: the place and the checks would be passed in memory, and loaded before they have arrived there.
template <class R, std::size_t count>
[[gnu::always_inline]] inline void cplxFft(Where at, const Check (&nulls)[count], FftLayout layout,
                                           FftVector<const R> src, FftVector<R> dst, int order, int flags)
{
    const Workspace<R> space = ready<R>(at, cplxKind, nulls, order, flags);
    if (!space.isComplete || !noneFailed(nulls)) // the latter never alone: it tells the analyser of null pointers
        return;
    if (order == 0) {
        *dst.re = *src.re;
        *dst.im = *src.im;
        return;
    }
    const FftOrder fftOrder = has(flags, ARK_InBitRev)    ? bitReversedInput
                              : has(flags, ARK_OutBitRev) ? bitReversedOutput
                                                          : naturalOrder;
    const auto& kernel = kernels<FftKernels<R>>().transform[layout][fftOrder];
    inDirection(kernel, flags)(src, dst, order, space.fft, space.scratch, scaleOf<R>(order, flags));
}

// The public members' forms: in place and not, of pairs and of separate arrays. Inlined, too.
template <class T>
[[gnu::always_inline]] inline void fft(Where at, T* samps, int order, int flags)
{
    using R = Real<T>;
    cplxFft<R>(at, {{!samps, "samps==0"}}, interleaved, pairsIn<T>(static_cast<const T*>(samps)), pairsIn(samps), order,
               flags);
}
template <class T>
[[gnu::always_inline]] inline void fft(Where at, const T* in, T* out, int order, int flags)
{
    using R = Real<T>;
    cplxFft<R>(at, {{!in, "inSamps==0"}, {!out, "outSamps==0"}}, interleaved, pairsIn(in), pairsIn(out), order, flags);
}
template <class R>
[[gnu::always_inline]] inline void fftOfParts(Where at, R* re, R* im, int order, int flags)
{
    cplxFft<R>(at, {{!re, "reSamps==0"}, {!im, "imSamps==0"}}, separate, {re, im}, {re, im}, order, flags);
}
template <class R>
[[gnu::always_inline]] inline void fftOfParts(Where at, const R* reIn, const R* imIn, R* reOut, R* imOut, int order,
                                              int flags)
{
    cplxFft<R>(at,
               {{!reIn, "reInSamps==0"}, {!imIn, "imInSamps==0"}, {!reOut, "reOutSamps==0"}, {!imOut, "imOutSamps==0"}},
               separate, {reIn, imIn}, {reOut, imOut}, order, flags);
}

} // namespace ark
