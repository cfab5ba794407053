// Triangle waves.
#pragma once

#include "frame/report.hpp"
#include "frame/types.hpp"
#include "vector/scale.hpp"

#include <arkpx/generate.h>

#include <bit>
#include <cstddef>
#include <cstdint>

namespace ark {

// The steps and values of a record's one or two parts.
template <class State>
struct TriangleParts {
    using Real = decltype(State::step);
    static constexpr int count = 1;
    static Real& step(State& state, int) { return state.step; }
    static Real& value(State& state, int) { return state.value; }
};
template <class State>
requires requires(State state) { state.stepIm; }
struct TriangleParts<State> {
    using Real = decltype(State::stepRe);
    static constexpr int count = 2;
    static Real& step(State& state, int part) { return part ? state.stepIm : state.stepRe; }
    static Real& value(State& state, int part) { return part ? state.valueIm : state.valueRe; }
};

template <class Real, class Magnitude, class State>
void trnglInit(Where at, Real rFreq, Real phase, Magnitude mag, Real asym, State* state)
{
    constexpr double pi = 3.141592653589793, twoPi = 6.283185307179586;
    constexpr double wrap = 6.2831854820251465; // 2 pi as a float, also where the test is against the double
    if (!firstGood(at, {{mag < 0, "Invalid magnitude value"},
                        {rFreq < 0 || rFreq >= Real(0.5), "Invalid frequence value"},
                        {phase < 0 || double(phase) >= twoPi, "Invalid phase value"},
                        {double(asym) <= -pi || double(asym) >= pi, "Invalid asymmetry value"},
                        {!state, "Null pointer to state"}}))
        return;
    using Parts = TriangleParts<State>;
    const double m = mag, f = rFreq, u = pi + asym, d = pi - asym;
    const double inverseU = 1 / u, inverseD = 1 / d;
    const double topRatio = -d * inverseU, bottomRatio = -u * inverseD, period = 4 * pi * m;
    *state = {};
    state->mag = Real(m);
    state->downStep = Real(-f * period * inverseU);
    state->upStep = Real(f * period * inverseD);
    state->topRatio = Real(topRatio);
    state->bottomRatio = Real(bottomRatio);
    state->upWrap = Real(period * inverseD);
    state->downWrap = Real(period * inverseU);
    state->topOffset = Real(m - topRatio * m);
    state->bottomOffset = Real(bottomRatio * m - m);
    double t = phase;
    for (int part = 0; part < Parts::count; part++) {
        const bool rising = t >= u;
        Parts::step(*state, part) = rising ? state->upStep : state->downStep;
        Parts::value(*state, part) = Real(rising ? m * ((t - u) * 2 / d - 1) : m * (1 - 2 * t / u));
        t += (u + twoPi) * 0.5;
        if (t > twoPi)
            t -= wrap;
    }
}

// One sample of one part: both bounds tested, the top first.
template <class State>
auto nextOfTriangle(const State& state, typename TriangleParts<State>::Real& step,
                    typename TriangleParts<State>::Real& value)
{
    const auto sample = value, mag = state.mag;
    const auto v = value + step;
    value = v;
    if (v > mag) {
        const auto t = (v - mag) * state.topRatio + mag;
        if (t < -mag) {
            value = v - state.upWrap;
        } else {
            step = state.downStep;
            value = t;
        }
    } else if (v < -mag) {
        const auto t = (mag + v) * state.bottomRatio - mag;
        if (t > mag) {
            value = v + state.downWrap;
        } else {
            step = state.upStep;
            value = t;
        }
    }
    return sample;
}

// A sample as the 16-bit members give it: rounded to nearest, ties to even, low 16 bits. Where magnitudes are small
// (below 2^22), adding 1.5 2^23 leaves the integer there.
template <class To, bool isSmall, class Real>
To triangleSample(Real value)
{
    if constexpr (sizeof(To) != sizeof(short))
        return value;
    else if constexpr (isSmall)
        return wrapped(std::bit_cast<std::int32_t>(value + 0x1.8p23f));
    else
        return wrapped(wide(value));
}

template <class T, class State>
T trngl(Where at, State* state)
{
    if (!firstGood(at, {{!state, "Null pointer to state"}}))
        return {};
    using Parts = TriangleParts<State>;
    T sample;
    for (int part = 0; part < Parts::count; part++)
        partsOf(&sample)[part] = triangleSample<Real<T>, false>(
            nextOfTriangle(*state, Parts::step(*state, part), Parts::value(*state, part)));
    return sample;
}

// One part in a block: in each direction only the bound ahead is tested. Sample after sample, since every sum is
// rounded: what is left in the record must not depend on how a signal is cut into blocks.
template <class State>
struct TriangleInBlock {
    using Real = typename TriangleParts<State>::Real;
    Real step, value;
    bool rising;

    Real next(const State& state)
    {
        const Real sample = value, v = value + step;
        value = v;
        if (rising && v > state.mag) {
            const Real t = state.topRatio * v + state.topOffset;
            rising = t < -state.mag;
            value = rising ? v - state.upWrap : t;
            step = rising ? step : state.downStep;
        } else if (!rising && v < -state.mag) {
            const Real t = state.bottomRatio * v + state.bottomOffset;
            rising = !(t > state.mag);
            value = rising ? t : v + state.downWrap;
            step = rising ? state.upStep : step;
        }
        return sample;
    }
};

template <bool isSmall, class State, class T>
void triangleBlock(State& record, T* samps, std::ptrdiff_t n)
{
    using Parts = TriangleParts<State>;
    const State state = record;
    TriangleInBlock<State> inBlock[Parts::count];
    for (int part = 0; part < Parts::count; part++) {
        const auto step = Parts::step(record, part);
        inBlock[part] = {step, Parts::value(record, part), step > 0};
    }
    for (std::ptrdiff_t i = 0; i < n; i++)
        for (int part = 0; part < Parts::count; part++)
            partsOf(samps + i)[part] = triangleSample<Real<T>, isSmall>(inBlock[part].next(state));
    for (int part = 0; part < Parts::count; part++) {
        Parts::step(record, part) = inBlock[part].step;
        Parts::value(record, part) = inBlock[part].value;
    }
}

template <class State, class T>
void trnglBlock(Where at, State* state, T* samps, int sampsLen)
{
    if (!firstGood(at, {{!state, "Null pointer to state"},
                        {!samps, "Null pointer to buffer"},
                        {sampsLen < 1, "Invalid number of items"}}))
        return;
    state->mag <= 0x1p21 ? triangleBlock<true>(*state, samps, sampsLen) : triangleBlock<false>(*state, samps, sampsLen);
}

} // namespace ark
