// Uniform and Gaussian noise.
#pragma once

#include "frame/kernels.hpp"
#include "frame/report.hpp"
#include "frame/types.hpp"
#include "vector/scale.hpp"

#include <arkpx/generate.h>

#include <algorithm>
#include <bit>
#include <cstdint>

namespace ark {

// The combined generator of 32-bit integers, while an operation draws from it.
class Draws {
public:
    template <class State>
    explicit Draws(const State& state)
        : lcg_{state.lcg},
          carry_{state.carry},
          x1_{state.x1},
          x2_{state.x2},
          x3_{state.x3}
    {}
    template <class State>
    void store(State& state) const
    {
        state.lcg = lcg_;
        state.carry = carry_;
        state.x1 = x1_;
        state.x2 = x2_;
        state.x3 = x3_;
    }
    std::int32_t next()
    {
        lcg_ = lcg_ * multiplier + increment;
        return std::int32_t(lcg_ + nextBorrowed());
    }
    // A point of the square around the unit circle, as point i. 1 when it is in the circle but not its centre, else 0.
    int nextPoint(CirclePoints& points, std::ptrdiff_t i)
    {
        constexpr double unit = 4.656612873077e-10; // just below 2^-31
        // Two steps of the congruential generator at once: its multiplication is what the next draw waits for.
        const std::uint32_t between = lcg_ * multiplier + increment;
        lcg_ = lcg_ * (multiplier * multiplier) + (multiplier + 1) * increment;
        const double u1 = std::int32_t(between + nextBorrowed()) * unit;
        const double u2 = std::int32_t(lcg_ + nextBorrowed()) * unit;
        points.u1[i] = u1;
        points.u2[i] = u2;
        // 0 < square < 1 in one comparison of bits
        const double square = u1 * u1 + u2 * u2;
        return std::bit_cast<std::uint64_t>(square) - 1 < std::bit_cast<std::uint64_t>(1.0) - 1;
    }

private:
    static constexpr std::uint32_t multiplier = 69069, increment = 1013904243;

    std::uint32_t nextBorrowed()
    {
        std::uint32_t gap = x2_ - x3_;
        asm("" : "+r"(gap)); // keeps the carry, which comes last, out of this difference
        const std::uint32_t difference = gap - carry_;
        carry_ = std::int32_t(difference) < 1;
        x3_ = x2_;
        x2_ = x1_;
        x1_ = difference - 18 * carry_;
        return x1_;
    }

private:
    std::uint32_t lcg_, carry_, x1_, x2_, x3_;
};

// Truncated; through 64 bits, so that what is beyond 32 bits wraps; 0 beyond 64 bits and for what is not a number.
inline std::uint32_t seedBits(double seed)
{
    return seed > -0x1p63 && seed < 0x1p63 ? std::uint32_t(std::int64_t(seed)) : 0;
}

template <class State>
void startDraws(State& state, double seed, unsigned int carry)
{
    const auto another = [&] {
        state.seedLcg = state.seedLcg * 214013u + 2531011u;
        return (state.seedLcg >> 16) & 0x7FFF;
    };
    state.seedLcg = state.x1 = seedBits(seed);
    state.x2 = another();
    state.x3 = another();
    state.carry = carry;
    state.lcg = 1131199209;
}

// ---- uniform ----

template <class Bound, class State>
void startUniform(State& state, double seed, Bound low, Bound high)
{
    using Real = decltype(State::scale);
    const double width = double(high) - double(low);
    state = {};
    state.offset = Real(0.5 * width + low);
    state.scale = Real(width * 0x1p-32);
    startDraws(state, seed, 0);
    Draws draws{state};
    for (int i = 0; i < 5; i++)
        draws.next();
    draws.store(state);
}

// n values in 16 bits or in the state's own precision.
template <class Real, class State>
void drawUniform(State& state, Real* to, std::ptrdiff_t n)
{
    Draws draws{state};
    const double scale = state.scale, offset = state.offset;
    for (std::ptrdiff_t i = 0; i < n; i++) {
        const double value = draws.next() * scale + offset;
        if constexpr (sizeof(Real) == sizeof(short))
            to[i] = wrapped(wide(value));
        else
            to[i] = Real(value);
    }
    draws.store(state);
}

inline constexpr char nullRecord[] = "Null pointer to state structure";

template <class Real, class State>
void randUniInit(Where at, Real seed, Real low, Real high, State* state)
{
    if (firstGood(at, {{!state, nullRecord}}))
        startUniform(*state, seed, low, high);
}

template <class T, class State>
T randUni(Where at, State* state)
{
    T sample{};
    if (firstGood(at, {{!state, nullRecord}}))
        drawUniform(*state, partsOf(&sample), parts<T>);
    return sample;
}

template <class State, class T>
void randUniBlock(Where at, State* state, T* samps, int sampsLen)
{
    if (firstGood(at, {{!state, nullRecord}}) && samps && sampsLen > 0)
        drawUniform(*state, partsOf(samps), std::ptrdiff_t{sampsLen} * parts<T>);
}

// ---- uniform, 16-bit: with a buffer for single samples ----

inline constexpr int uniformCapacity = int(sizeof ArkwRandUniState{}.buf / sizeof(short));

inline void randUniInitShort(Where at, int seed, short low, short high, ArkwRandUniState* state)
{
    if (!firstGood(at, {{!state, "statePtr==0"}}))
        return;
    startUniform(*state, seed, low, high);
    state->bufIndex = uniformCapacity;
}

inline bool isBuffered(const ArkwRandUniState& state)
{
    return state.bufIndex >= 0 && state.bufIndex < uniformCapacity;
}

template <class T>
T randUniShort(Where at, ArkwRandUniState* state)
{
    T sample{};
    if (!firstGood(at, {{!state, "((void*)(0))==statePtr"}}))
        return sample;
    for (int part = 0; part < parts<T>; part++) {
        if (!isBuffered(*state)) {
            drawUniform(*state, state->buf, uniformCapacity);
            state->bufIndex = 0;
        }
        partsOf(&sample)[part] = state->buf[state->bufIndex++];
    }
    return sample;
}

template <class T>
void randUniBlockShort(Where at, ArkwRandUniState* state, T* samps, int sampsLen)
{
    if (!firstGood(at, {{!state, "statePtr==0"}, {!samps, "samps==0"}, {sampsLen <= 0, "sampsLen<=0"}}))
        return;
    short* to = partsOf(samps);
    std::ptrdiff_t n = std::ptrdiff_t{sampsLen} * parts<T>;
    for (; n > 0 && isBuffered(*state); n--)
        *to++ = state->buf[state->bufIndex++];
    drawUniform(*state, to, n);
}

// ---- Gaussian ----

template <class Seed, class Parameter, class State>
void randGausInit(Where at, Seed seed, Parameter mean, Parameter stdDev, State* state)
{
    if (!firstGood(at, {{!state, nullRecord}}))
        return;
    *state = {};
    state->mean = mean;
    state->stdDev = stdDev;
    startDraws(*state, seed, 1);
}

// Draws count points in the unit circle.
inline void drawPoints(Draws& draws, CirclePoints& points, std::ptrdiff_t count)
{
    for (std::ptrdiff_t i = 0; i < count;)
        i += draws.nextPoint(points, i); // the next point overwrites one outside: no jump to guess
}

// n values in the state's own precision.
template <class Real, class State>
void drawGaussian(State& state, Real* to, std::ptrdiff_t n)
{
    if (state.haveSpare) {
        state.haveSpare = 0;
        *to++ = state.spare;
        n--;
    }
    Draws draws{state};
    for (; n > 0; to += 2 * gaussPairs, n -= 2 * gaussPairs) {
        CirclePoints points;
        Real values[2 * gaussPairs];
        const std::ptrdiff_t count = std::min<std::ptrdiff_t>((n + 1) / 2, gaussPairs);
        drawPoints(draws, points, count);
        Real* const into = n < 2 * gaussPairs ? values : to;
        kernels<GaussKernels<Real>>().pairs(points, state.mean, state.stdDev, into, count);
        if (into == values)
            std::copy_n(values, n, to);
        state.spare = into[2 * count - 1];
        state.haveSpare = n < 2 * count;
    }
    draws.store(state);
}

template <class State>
void drawGaussian(State& state, short* to, std::ptrdiff_t n)
{
    for (float values[2 * gaussPairs]; n > 0;) {
        const std::ptrdiff_t count = std::min<std::ptrdiff_t>(n, 2 * gaussPairs);
        drawGaussian(state, values, count);
        n -= count;
        for (std::ptrdiff_t i = 0; i < count; i++)
            *to++ = clamped(wide(values[i]));
    }
}

template <class T, class State>
T randGaus(Where at, State* state)
{
    T sample{};
    if (firstGood(at, {{!state, nullRecord}}))
        drawGaussian(*state, partsOf(&sample), parts<T>);
    return sample;
}

template <class State, class T>
void randGausBlock(Where at, State* state, T* samps, int sampsLen)
{
    if (firstGood(at, {{!state, nullRecord}}) && samps && sampsLen > 0)
        drawGaussian(*state, partsOf(samps), std::ptrdiff_t{sampsLen} * parts<T>);
}

} // namespace ark
