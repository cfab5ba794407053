// LMS taps and delay lines in the caller's memory.
#pragma once

#include "filter/firl.hpp"
#include "filter/lms.hpp"

#include <climits>

namespace ark {

struct LmsParameters {
    int lmsType;
    float step, leak;
    int errDelay;
};

// The fields that the low-level record and the object share.
template <class State>
void initAdaptive(State& state, void* taps, int tapsLen, LmsParameters p, Rate rate)
{
    initTaps(state, taps, tapsLen, rate);
    state.leak = p.leak;
    state.step = p.step;
    state.errDelay = p.errDelay;
    state.lmsType = p.lmsType;
}

template <class T>
void lmslInit(Where at, T* taps, int tapsLen, LmsParameters p, LmslTapState* tapState)
{
    if (firstGood(at, {{!taps || !tapState, "Null buffer pointer"},
                       {tapsLen < 1, "Invalid buffer length"},
                       {p.errDelay < 0, "Invalid error delay value"}}))
        initAdaptive(*tapState, taps, tapsLen, p, {});
}

template <class T>
void lmslInitMr(Where at, T* taps, int tapsLen, LmsParameters p, int downFactor, int downPhase, LmslTapState* tapState)
{
    if (firstGood(at, {{!taps || !tapState, "Null buffer pointer"},
                       {tapsLen < 1, "Invalid buffer length"},
                       {p.errDelay < 0, "Invalid error delay value"},
                       {downPhase < 0, "Invalid factor value"},
                       {downFactor <= downPhase, "Invalid factor value"}}))
        initAdaptive(*tapState, taps, tapsLen, p, {1, 0, downFactor, downPhase});
}

template <class X>
void lmslInitDlyl(Where at, const LmslTapState* tapState, X* dlyl, int flag, LmslDlyState* dlyState)
{
    if (!firstGood(at, {{!dlyState || !tapState || !dlyl, "Null buffer pointer"}}))
        return;
    const std::int64_t len = std::int64_t{tapState->tapsLen} + (flag ? tapState->errDelay : 0) +
                             (tapState->isMultiRate ? tapState->downFactor : 0);
    if (firstGood(at, {{len > INT_MAX, "Invalid buffer length"}}))
        *dlyState = {dlyl, int(len), 1, flag};
}

// ---- fields of a record ----

template <class State, class Owner, class Value>
Value getField(Where at, const State* state, Value Owner::*field)
{
    return firstGood(at, {{!state, "Null buffer pointer"}}) ? state->*field : Value{};
}

template <class State, class Owner, class Value>
void setField(Where at, State* state, Value Owner::*field, Value value)
{
    if (firstGood(at, {{!state, "Null buffer pointer"}}))
        state->*field = value;
}

// ---- filtering ----

template <class X>
History<X> historyOf(const LmslDlyState& state)
{
    return {static_cast<X*>(state.dlyl), state.dlylLen};
}

template <class X, class T>
FirOutput<X, T> lmsl(Where at, const LmslTapState* tapState, LmslDlyState* dlyState, X sample, FirOutput<X, T> err)
{
    if (!firstGood(at, {{!dlyState || !tapState, "Null buffer pointer"}}))
        return {};
    return lmsStep<X, T>(*tapState, historyOf<X>(*dlyState), &sample, {}, err, tapState->step > 0);
}

template <class X, class T>
FirOutput<X, T> bLmsl(Where at, const LmslTapState* tapState, LmslDlyState* dlyState, const X* src, FirOutput<X, T> err)
{
    if (!firstGood(at, {{!dlyState || !tapState || !src, "Null buffer pointer"}}))
        return {};
    return lmsStep<X, T>(*tapState, historyOf<X>(*dlyState), src, decimating(*tapState), err, tapState->step > 0);
}

// ---- 16 bits: everything in units of 2^-15 ----

// sum 2^-15, to the nearest integer, ties to even, saturated.
inline short fromQ30(std::int64_t sum) { return clamped((sum + 0x3FFF + ((sum >> 15) & 1)) >> 15); }

inline short wLmsl(Where at, const LmslTapState* tapState, LmslDlyState* dlyState, short sample, short err)
{
    if (!firstGood(at, {{!dlyState || !tapState, "Null buffer pointer"}}))
        return 0;
    const History<short> history = historyOf<short>(*dlyState);
    short* const taps = static_cast<short*>(tapState->taps);
    if (tapState->step > 0) {
        const double step = double(tapState->step) * 0x1p-15;
        const std::ptrdiff_t age = tapState->errDelay, n = history.available(age, tapState->tapsLen);
        for (std::ptrdiff_t i = 0; i < n; i++)
            taps[i] = clamped(wide(taps[i] + step * (err * history.dlyl[age + i])));
    }
    enter<short>(history.dlyl, history.len, &sample, 1);
    std::int64_t sum = 0;
    const std::ptrdiff_t n = history.available(0, tapState->tapsLen);
    for (std::ptrdiff_t i = 0; i < n; i++)
        sum += std::int64_t{taps[i]} * history.dlyl[i];
    return fromQ30(sum);
}

} // namespace ark
