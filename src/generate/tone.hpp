// The tones of the floating types, and the checks of all tones.
#pragma once

#include "frame/kernels.hpp"
#include "frame/report.hpp"
#include "frame/types.hpp"

#include <arkpx/generate.h>

#include <cmath>
#include <cstring>

namespace ark {

inline constexpr double twoPi = 6.283185307179586;

inline constexpr char toneMark[4] = {'B', 'D', 'T', '\0'};
static_assert(sizeof toneMark == sizeof ArksToneState{}.signature);

template <class State>
void markTone(State& state)
{
    std::memcpy(state.signature, toneMark, sizeof toneMark);
}

template <class State>
bool isTone(const State* state)
{
    return state && std::memcmp(state->signature, toneMark, sizeof toneMark) == 0;
}

template <class Frequency, class Magnitude, class State>
bool toneInitGood(Where at, Frequency rFreq, Frequency phase, Magnitude mag, const State* state)
{
    return firstGood(at, {{mag < 0, "Invalid magnitude value"},
                          {rFreq < 0 || rFreq >= Frequency(0.5), "Invalid freq value"},
                          {phase < 0 || double(phase) >= twoPi, "Invalid phase value"},
                          {!state, "Null pointer to state"}});
}

template <class State>
bool toneGood(Where at, const State* state)
{
    return firstGood(at, {{!state, "Null pointer to state"}, {!isTone(state), "Structure initialization need"}});
}

template <class State, class T>
bool toneBlockGood(Where at, const State* state, const T* samps, int sampsLen)
{
    return firstGood(at, {{!state, "Null pointer to state"},
                          {!samps, "Null input buffer pointer"},
                          {sampsLen < 1, "Bad number of items"},
                          {!isTone(state), "Structure initialization need"}});
}

inline void pointAt(double mag, double angle, double& sample) { sample = mag * std::cos(angle); }
inline void pointAt(double mag, double angle, DoubleCplx& sample)
{
    sample = {mag * std::cos(angle), mag * std::sin(angle)};
}

template <class Real, class State>
void toneInit(Where at, Real rFreq, Real phase, Real mag, State* state)
{
    if (!toneInitGood(at, rFreq, phase, mag, state))
        return;
    const double w = rFreq * twoPi;
    const double before = phase - w;
    *state = {};
    state->twoCos = 2 * std::cos(w);
    pointAt(mag, before, state->prev1);
    pointAt(mag, before - w, state->prev2);
    state->mag = mag;
    state->rFreq = rFreq;
    state->phase = phase;
    markTone(*state);
}

// y[n] = twoCos y[n-1] - y[n-2] of a state's one or two parts, in the widest floating type.
template <class T, class State>
class Recurrence {
public:
    explicit Recurrence(State& state)
        : twoCos_{state.twoCos},
          stored1_{partsOf(&state.prev1)},
          stored2_{partsOf(&state.prev2)}
    {
        for (int i = 0; i < parts<T>; i++) {
            prev1_[i] = stored1_[i];
            prev2_[i] = stored2_[i];
        }
    }
    T next()
    {
        T sample;
        for (int i = 0; i < parts<T>; i++) {
            const long double y = twoCos_ * prev1_[i] - prev2_[i];
            prev2_[i] = prev1_[i];
            prev1_[i] = y;
            partsOf(&sample)[i] = Real<T>(y);
        }
        return sample;
    }
    void store()
    {
        for (int i = 0; i < parts<T>; i++) {
            stored1_[i] = double(prev1_[i]);
            stored2_[i] = double(prev2_[i]);
        }
    }

private:
    long double twoCos_, prev1_[parts<T>], prev2_[parts<T>];
    double *stored1_, *stored2_;
};

template <class T, class State>
T tone(Where at, State* state)
{
    if (!toneGood(at, state))
        return {};
    Recurrence<T, State> recurrence{*state};
    const T sample = recurrence.next();
    recurrence.store();
    return sample;
}

// From this length on the tables that a block of many samples at a time needs are paid for.
inline constexpr int toneBlockPays = 24;

template <class T, class State>
void toneBlock(Where at, State* state, T* samps, int sampsLen)
{
    if (!toneBlockGood(at, state, samps, sampsLen))
        return;
    // A tone that does not turn has no quadrature component.
    if (sampsLen >= toneBlockPays && std::fabs(state->twoCos) < 2)
        return kernels<ToneKernels<T>>().block(state->twoCos, partsOf(&state->prev1), partsOf(&state->prev2), samps,
                                               sampsLen);
    Recurrence<T, State> recurrence{*state};
    for (int n = 0; n < sampsLen; n++)
        samps[n] = recurrence.next();
    recurrence.store();
}

} // namespace ark
