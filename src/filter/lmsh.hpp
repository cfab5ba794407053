// LMS filter objects: taps and delay line that the object owns, and an error of its own.
#pragma once

#include "filter/lmsl.hpp"

namespace ark {

template <class Y>
inline constexpr Y LmsErrVal::*errValOf = nullptr;
template <>
inline constexpr float LmsErrVal::*errValOf<float> = &LmsErrVal::s;
template <>
inline constexpr double LmsErrVal::*errValOf<double> = &LmsErrVal::d;
template <>
inline constexpr FloatCplx LmsErrVal::*errValOf<FloatCplx> = &LmsErrVal::c;
template <>
inline constexpr DoubleCplx LmsErrVal::*errValOf<DoubleCplx> = &LmsErrVal::z;

// The delay line has room for a decimating step's samples behind its dlylLen elements.
template <class X>
History<X> historyOf(const LmsState& state)
{
    return {static_cast<X*>(state.dlyl), std::ptrdiff_t{state.dlylLen} + state.downFactor};
}

inline void release(LmsState& state)
{
    if (state.hasTaps)
        heapFree(state.taps);
    if (state.hasDlyl)
        heapFree(state.dlyl);
    state.taps = state.dlyl = nullptr;
    state.hasTaps = state.hasDlyl = state.hasBoth = 0;
}

template <class T>
void storeTaps(const T* src, LmsState& state)
{
    if (src)
        copyElements(static_cast<T*>(state.taps), src, state.tapsLen);
    else
        std::fill_n(static_cast<T*>(state.taps), state.tapsLen, T{});
}

// The samples that are too old to be exchanged stay.
template <class X>
void storeHistory(const X* src, LmsState& state)
{
    const History<X> history = historyOf<X>(state);
    if (src)
        reverseElements(history.dlyl, src, state.dlylLen - 1);
    else
        std::fill_n(history.dlyl, history.len, X{});
}

template <class X, class T>
void initialise(Where at, const T* taps, int tapsLen, const X* dlyl, LmsParameters p, Rate rate, LmsState& state)
{
    const std::int64_t dlylLen = std::int64_t{tapsLen} + p.errDelay;
    state = {};
    Buffer<T> tapArray{std::size_t(tapsLen)};
    Buffer<X> dlyArray;
    if (dlylLen <= INT_MAX)
        dlyArray = Buffer<X>{std::size_t(dlylLen) + std::size_t(rate.down)};
    if (!tapArray || !dlyArray)
        return outOfMemory(at, "Problem to allocate memory");
    initAdaptive(state, tapArray.release(), tapsLen, p, rate);
    state.dlyl = dlyArray.release();
    state.dlylLen = int(dlylLen);
    state.hasTaps = state.hasDlyl = state.hasBoth = 1;
    storeTaps(taps, state);
    storeHistory<X>(nullptr, state);
    if (dlyl)
        storeHistory(dlyl, state);
}

template <class X, class T>
void lmsInit(Where at, const T* taps, int tapsLen, const X* dlyl, LmsParameters p, LmsState* state)
{
    if (firstGood(at, {{!state, "Null buffer pointer"},
                       {tapsLen < 1, "Invalid buffer length"},
                       {p.errDelay < 0, "Invalid error delay value"}}))
        initialise(at, taps, tapsLen, dlyl, p, {}, *state);
}

template <class X, class T>
void lmsInitMr(Where at, const T* taps, int tapsLen, const X* dlyl, LmsParameters p, int downFactor, int downPhase,
               LmsState* state)
{
    if (firstGood(at, {{!state, "Null buffer pointer"},
                       {tapsLen < 1, "Invalid buffer length"},
                       {p.errDelay < 0, "Invalid error delay value"},
                       {downPhase < 0, "Invalid factor value"},
                       {downFactor <= downPhase, "Invalid factor value"}}))
        initialise(at, taps, tapsLen, dlyl, p, {1, 0, downFactor, downPhase}, *state);
}

inline void lmsFree(Where at, LmsState* state)
{
    if (firstGood(at, {{!state, "Null buffer pointer"}}))
        release(*state);
}

// ---- exchange ----

inline bool hasTaps(Where at, const LmsState* state, bool hasArray = true)
{
    return firstGood(at, {{!state, "Null buffer pointer"},
                          {state && !state->hasTaps, "Taps state structure is not initialized"},
                          {!hasArray, "Null buffer pointer"}});
}

inline bool hasDlyl(Where at, const LmsState* state, bool hasArray = true)
{
    return firstGood(at, {{!state, "Null buffer pointer"},
                          {state && !state->hasDlyl, "Delay line state structure is not initialized"},
                          {!hasArray, "Null buffer pointer"}});
}

template <class T>
void lmsSetTaps(Where at, const T* src, LmsState* state)
{
    if (hasTaps(at, state))
        storeTaps(src, *state);
}

template <class T>
void lmsGetTaps(Where at, const LmsState* state, T* dst)
{
    if (hasTaps(at, state, dst))
        copyElements(dst, static_cast<const T*>(state->taps), state->tapsLen);
}

template <class X>
void lmsSetDlyl(Where at, const X* src, LmsState* state)
{
    if (hasDlyl(at, state))
        storeHistory(src, *state);
}

template <class X>
void lmsGetDlyl(Where at, const LmsState* state, X* dst)
{
    if (hasDlyl(at, state, dst))
        reverseElements(dst, static_cast<const X*>(state->dlyl), state->dlylLen - 1);
}

template <class Y>
Y getErrVal(Where at, const LmsState* state)
{
    return firstGood(at, {{!state, "Null buffer pointer"}}) ? state->errVal.*errValOf<Y> : Y{};
}

template <class Y>
void setErrVal(Where at, LmsState* state, Y value)
{
    if (firstGood(at, {{!state, "Null buffer pointer"}}))
        state->errVal.*errValOf<Y> = value;
}

// ---- filtering ----

inline bool goodLms(Where at, const LmsState* state, bool hasArrays = true, int numIters = 1)
{
    return firstGood(at, {{!state, "Null buffer pointer"},
                          {state && !state->hasTaps, "Taps state structure is not initialized"},
                          {state && !state->hasDlyl, "Delay line state structure is not initialized"},
                          {!hasArrays, "Null buffer pointer"},
                          {numIters < 1, "Bad value of number of iterations"}});
}

template <class X, class T>
FirOutput<X, T> lms(Where at, LmsState* state, X sample, FirOutput<X, T> err)
{
    if (!goodLms(at, state))
        return {};
    return lmsStep<X, T>(*state, historyOf<X>(*state), &sample, {}, err, state->step > 0);
}

template <class X, class T>
FirOutput<X, T> bLms(Where at, LmsState* state, const X* src, FirOutput<X, T> err)
{
    if (!goodLms(at, state, src))
        return {};
    return lmsStep<X, T>(*state, historyOf<X>(*state), src, decimating(*state), err, state->step > 0);
}

inline float difference(float a, float b) { return a - b; }
inline double difference(double a, double b) { return a - b; }
template <class Z>
Z difference(Z a, Z b)
{
    return {a.re - b.re, a.im - b.im};
}

// One step, when the new sample has entered: it is history[0]. The update is that of the samples before it. Unlike the
// steps with an error from outside, this adapts whatever the step is.
template <class X, class T>
FirOutput<X, T> desiredStep(LmsState& state, X* history, FirOutput<X, T> desired)
{
    auto& err = state.errVal.*errValOf<FirOutput<X, T>>;
    FirOutput<X, T> output;
    if constexpr (isComplex<T>) {
        adapt<X, T>(state, {history + 1, state.dlylLen}, 0, err);
        output = innerProduct(static_cast<const T*>(state.taps), static_cast<const X*>(history), state.tapsLen);
    } else {
        output = T(kernels<LmsKernels<X, T>>().adaptAndDot(static_cast<T*>(state.taps), history + 1 + state.errDelay,
                                                           history, state.tapsLen, 1.0 - double(state.leak),
                                                           double(state.step) * double(err)));
    }
    err = difference(desired, output);
    return output;
}

// dst may be src or desired.
template <class X, class T>
void desiredSteps(LmsState& state, const X* src, const FirOutput<X, T>* desired, FirOutput<X, T>* dst, std::ptrdiff_t n)
{
    const History<X> history = historyOf<X>(state);
    constexpr std::ptrdiff_t windowLen = 16384 / sizeof(X), fewSamples = 4;
    if (n < fewSamples || history.len > windowLen / 2) {
        for (std::ptrdiff_t i = 0; i < n; i++) {
            enter(history.dlyl, history.len, src + i, 1);
            dst[i] = desiredStep<X, T>(state, history.dlyl, desired[i]);
        }
        return;
    }
    // New samples, newest first, with the history behind them: the steps move along, the samples stay.
    X window[windowLen];
    const std::size_t bytes = std::size_t(history.len) * sizeof(X);
    for (std::ptrdiff_t done = 0, count; done < n; done += count) {
        count = std::min(windowLen - history.len, n - done);
        std::reverse_copy(src + done, src + done + count, window);
        std::memcpy(window + count, history.dlyl, bytes);
        for (std::ptrdiff_t i = 0; i < count; i++)
            dst[done + i] = desiredStep<X, T>(state, window + (count - 1 - i), desired[done + i]);
        std::memcpy(history.dlyl, window, bytes);
    }
}

template <class X, class T>
FirOutput<X, T> lmsDes(Where at, LmsState* state, X sample, FirOutput<X, T> desired)
{
    FirOutput<X, T> output{};
    if (goodLms(at, state))
        desiredSteps<X, T>(*state, &sample, &desired, &output, 1);
    return output;
}

template <class X, class T>
void bLmsDes(Where at, LmsState* state, const X* src, const FirOutput<X, T>* desired, FirOutput<X, T>* dst,
             int numIters)
{
    if (goodLms(at, state, src && desired && dst, numIters))
        desiredSteps<X, T>(*state, src, desired, dst, numIters);
}

} // namespace ark
