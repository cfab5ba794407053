// Triangle waves.
#pragma once

#include "frame/report.hpp"
#include "frame/types.hpp"
#include "vector/scale.hpp"

#include <arkpx/generate.h>

#include <algorithm>
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

// A sample as the 16-bit members give it: rounded to nearest, ties to even, low 16 bits.
template <class To, class Real>
To triangleSample(Real value)
{
    if constexpr (sizeof(To) == sizeof(short))
        return wrapped(wide(value));
    else
        return value;
}

template <class T, class State>
T trngl(Where at, State* state)
{
    if (!firstGood(at, {{!state, "Null pointer to state"}}))
        return {};
    using Parts = TriangleParts<State>;
    T sample;
    for (int part = 0; part < Parts::count; part++)
        partsOf(&sample)[part] =
            triangleSample<Real<T>>(nextOfTriangle(*state, Parts::step(*state, part), Parts::value(*state, part)));
    return sample;
}

// Straight stretches from this length on are computed as value + j step, which does not wait for the sample before.
inline constexpr int stretchPays = 8;

// As triangleSample, for magnitudes below 2^22, in operations that a vector unit has: adding 1.5 2^23 leaves the
// integer in the low bits.
template <class To, class Real>
To stretchSample(Real value)
{
    if constexpr (sizeof(To) == sizeof(short))
        return short(std::uint16_t(std::bit_cast<std::uint32_t>(value + 12582912.0f)));
    else
        return value;
}

// The n samples of one part, stride apart: in each direction only the bound ahead is tested.
template <int stride, class To, class State, class Real>
void triangleBlock(const State& record, Real& stepOfPart, Real& valueOfPart, To* samps, int n)
{
    const State state = record;
    const Real mag = state.mag;
    Real step = stepOfPart, value = valueOfPart;
    bool rising = step > 0;
    while (n > 0) {
        const Real stretch = ((rising ? mag : -mag) - value) / step; // steps to the bound
        if (n > stretchPays && stretch > stretchPays && (sizeof(To) != sizeof(short) || mag <= 32768)) {
            // Up to the last sample but one before the bound.
            const int count = stretch < Real(n) ? std::min(int(stretch) - 1, n) : n;
            for (int j = 0; j < count; j++)
                samps[std::ptrdiff_t{j} * stride] = stretchSample<To>(value + Real(j) * step);
            value += Real(count) * step;
            samps += std::ptrdiff_t{count} * stride;
            n -= count;
            continue;
        }
        for (int left = std::min(n, stretchPays); left > 0; left--, n--) {
            *samps = triangleSample<To>(value);
            samps += stride;
            value += step;
            if (rising && value > mag) {
                const Real t = state.topRatio * value + state.topOffset;
                rising = t < -mag;
                value = rising ? value - state.upWrap : t;
                step = rising ? step : state.downStep;
            } else if (!rising && value < -mag) {
                const Real t = state.bottomRatio * value + state.bottomOffset;
                rising = !(t > mag);
                value = rising ? t : value + state.downWrap;
                step = rising ? state.upStep : step;
            }
        }
    }
    stepOfPart = step;
    valueOfPart = value;
}

template <class State, class T>
void trnglBlock(Where at, State* state, T* samps, int sampsLen)
{
    if (!firstGood(at, {{!state, "Null pointer to state"},
                        {!samps, "Null pointer to buffer"},
                        {sampsLen < 1, "Invalid number of items"}}))
        return;
    using Parts = TriangleParts<State>;
    for (int part = 0; part < Parts::count; part++)
        triangleBlock<Parts::count>(*state, Parts::step(*state, part), Parts::value(*state, part),
                                    partsOf(samps) + part, sampsLen);
}

} // namespace ark
