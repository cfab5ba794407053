// The Goertzel recurrence.
#pragma once

#include "frame/report.hpp"
#include "frame/types.hpp"
#include "vector/scale.hpp"

#include <arkpx/transform.h>

#include <cmath>

namespace ark {

inline constexpr const char* nullGoertzState = "Null state pointer";

template <class R>
struct GoertzelOf;
template <>
struct GoertzelOf<float> {
    using State = ArksGoertzState;
    using Cplx = FloatCplx;
};
template <>
struct GoertzelOf<double> {
    using State = ArkdGoertzState;
    using Cplx = DoubleCplx;
};
template <class R>
using GoertzelState = typename GoertzelOf<R>::State;
template <class R>
using GoertzelCplx = typename GoertzelOf<R>::Cplx;

template <class R>
void goertzelReset(Where at, GoertzelState<R>* state)
{
    if (firstGood(at, {{!state, nullGoertzState}}))
        state->s1 = state->s2 = {};
}

template <class R>
void goertzelInit(Where at, R freq, GoertzelState<R>* state)
{
    if (!firstGood(at, {{!state, nullGoertzState}, {!(freq > 0 && freq < R(0.5)), "Invalid frequency value"}}))
        return;
    const long double w = 6.283185307179586 * static_cast<long double>(freq);
    *state = {freq, R(std::cos(w)), R(std::sin(w)), R(2 * std::cos(w)), {}, {}};
}

// One part of the recurrence. Rounded at every sample, so that blocks and single samples agree to the bit.
template <class R>
struct GoertzelPart {
    R s2, s1;

    void feed(double coef, double x)
    {
        const double s = coef * double(s1) - double(s2) + x;
        s2 = s1;
        s1 = R(s);
    }
};

// Feeds n samples; T is a real or complex element type of any precision.
template <class R, class T>
void goertzelFeed(GoertzelState<R>& state, const T* samps, std::ptrdiff_t n)
{
    const double coef = double(state.coef);
    GoertzelPart<R> re{state.s2.re, state.s1.re}, im{state.s2.im, state.s1.im};
    for (std::ptrdiff_t i = 0; i < n; i++) {
        if constexpr (isComplex<T>) {
            re.feed(coef, double(samps[i].re));
            im.feed(coef, double(samps[i].im));
        } else {
            re.feed(coef, double(samps[i]));
        }
    }
    state.s2 = {re.s2, im.s2};
    state.s1 = {re.s1, im.s1};
}

// e^(i w) s1 - s2. A real tracker does not look at imaginary parts.
template <class R, class T>
GoertzelCplx<R> goertzelResult(const GoertzelState<R>& state)
{
    const double cosW = double(state.cosW), sinW = double(state.sinW);
    const double re1 = double(state.s1.re), im1 = double(state.s1.im);
    const double re2 = double(state.s2.re), im2 = double(state.s2.im);
    if constexpr (isComplex<T>)
        return {R(cosW * re1 - sinW * im1 - re2), R(cosW * im1 + sinW * re1 - im2)};
    else
        return {R(cosW * re1 - re2), R(sinW * re1)};
}

template <class R, class T>
GoertzelCplx<R> goertzel(Where at, GoertzelState<R>* state, T sample)
{
    if (!firstGood(at, {{!state, nullGoertzState}}))
        return {};
    goertzelFeed<R>(*state, &sample, 1);
    return goertzelResult<R, T>(*state);
}

template <class R, class T>
GoertzelCplx<R> goertzelBlock(Where at, GoertzelState<R>* state, const T* samps, int len)
{
    if (!firstGood(at, {{!state, nullGoertzState}, {!samps, "Null buffer pointer"}, {len < 1, "Invalid array length"}}))
        return {};
    goertzelFeed<R>(*state, samps, len);
    return goertzelResult<R, T>(*state);
}

// ---- 16 bits ----

template <class T>
ShortCplx goertzelShort(ArksGoertzState& state, const T* samps, int len, Scaling scaling)
{
    goertzelFeed<float>(state, samps, len);
    const FloatCplx result = goertzelResult<float, T>(state);
    if (scaling.mode < 0)
        scaling.mode = ARK_WRAP;
    ShortCplx rounded;
    rescale(partsOf(&result), partsOf(&rounded), 2, scaling);
    return rounded;
}

inline bool outsideGoertzFactors(const int* factor) { return factor && (*factor < -14 || *factor > 14); }

template <class T>
ShortCplx goertzel(Where at, ArksGoertzState* state, T sample, int scaleMode, int* scaleFactor)
{
    if (!firstGood(at, {{!state, nullGoertzState},
                        {!scaleFactor, "Zero scale factor pointer"},
                        {outsideGoertzFactors(scaleFactor), "Too large scale factor"},
                        {scaleMode >= 5, "Erroneus scale mode"}}))
        return {};
    return goertzelShort(*state, &sample, 1, {scaleMode, scaleFactor});
}

template <class T>
ShortCplx goertzelBlock(Where at, ArksGoertzState* state, const T* samps, int len, int scaleMode, int* scaleFactor)
{
    if (!firstGood(at, {{!state, nullGoertzState},
                        {!scaleFactor, "Zero scale factor pointer"},
                        {outsideGoertzFactors(scaleFactor), "Too large scale factor"},
                        {scaleMode >= 5, "Erroneus scale mode"},
                        {!samps, "Null buffer pointer"},
                        {len < 1, "Invalid array length"}}))
        return {};
    return goertzelShort(*state, samps, len, {scaleMode, scaleFactor});
}

} // namespace ark
