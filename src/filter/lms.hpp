// The LMS core. State is a low-level taps record or an object: both begin with the same fields.
#pragma once

#include "filter/arklms_kernels.hpp"
#include "filter/fir.hpp"

namespace ark {

// A delay line, newest sample first. History behind its end counts as zero.
template <class X>
struct History {
    X* dlyl;
    std::ptrdiff_t len;

    // How many of n samples there are, from the one of this age on.
    std::ptrdiff_t available(std::ptrdiff_t age, std::ptrdiff_t n) const
    {
        return std::clamp<std::ptrdiff_t>(len - age, 0, n);
    }
};

// What a step reads, and the age of the newest sample that it looks at when it has read it.
struct StepRate {
    std::ptrdiff_t samples = 1, base = 0;
};

template <class State>
StepRate decimating(const State& state)
{
    return {state.downFactor, std::ptrdiff_t{state.downFactor} - state.downPhase - 1};
}

// taps = (1 - leak) taps + step err conj(the samples that fed the taps errDelay outputs ago)
template <class X, class T, class State>
void adapt(const State& state, History<X> history, std::ptrdiff_t base, FirOutput<X, T> err)
{
    const double step = state.step, keep = 1.0 - double(state.leak);
    T* const taps = static_cast<T*>(state.taps);
    const std::ptrdiff_t age = base + state.errDelay, n = history.available(age, state.tapsLen);
    const Real<T>* const errParts = partsOf(&err);
    kernels<LmsKernels<X, T>>().adapt(taps, history.dlyl + (n ? age : 0), n, keep, step * double(errParts[0]),
                                      parts<T> == 2 ? step * double(errParts[parts<T> - 1]) : 0);
    for (std::ptrdiff_t i = n * parts<T>; i < std::ptrdiff_t{state.tapsLen} * parts<T>; i++)
        partsOf(taps)[i] = Real<T>(keep * double(partsOf(taps)[i]));
}

// One output. The update comes first, while the delay line still holds what the error refers to.
template <class X, class T, class State>
FirOutput<X, T> lmsStep(const State& state, History<X> history, const X* src, StepRate rate, FirOutput<X, T> err,
                        bool updates)
{
    if (updates)
        adapt<X, T>(state, history, rate.base, err);
    enter(history.dlyl, history.len, src, rate.samples);
    const std::ptrdiff_t n = history.available(rate.base, state.tapsLen);
    return innerProduct(static_cast<const T*>(state.taps), history.dlyl + (n ? rate.base : 0), n);
}

} // namespace ark
