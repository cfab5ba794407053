// The 16-bit tones: two phasors in fixed point, one sample apart.
#pragma once

#include "generate/tone.hpp"

#include <algorithm>
#include <cstdint>

namespace ark {

// Samples that the state's buffer holds.
template <class T>
inline constexpr int toneCapacity = int(sizeof(ArkwToneState::buf)) / int(sizeof(T));

struct Phasor {
    short re, im;
};

// Truncated toward zero; 0 for what is not a number, which only a frequency or phase that is none gives.
inline int truncated(double x) { return x == x ? int(x) : 0; }

inline short low16(int x) { return short(std::uint16_t(x)); }

template <class T>
void toneInitShort(Where at, float rFreq, float phase, short mag, ArkwToneState* state)
{
    if (!toneInitGood(at, rFreq, phase, mag, state))
        return;
    constexpr int one = 16384;
    const auto fixed = [](double x) { return truncated(one * x); };
    const double w = rFreq * twoPi;
    int shift = 0;
    while (mag > 0 && mag << shift < one)
        shift++;
    const int amplitude = mag << shift;

    // One sample before the first, turned by w into the first and on into the second.
    const double before = phase - w;
    const int cosW = fixed(std::cos(w)), sinW = fixed(std::sin(w));
    const auto rounded = [](int x) { return low16((x < 0 ? x + one : x) >> 14); };
    const auto turned = [=](Phasor p) {
        return Phasor{rounded(p.re * cosW - p.im * sinW), rounded(p.re * sinW + p.im * cosW)};
    };
    const Phasor ph0 =
        turned({low16(truncated(amplitude * std::cos(before))), low16(truncated(amplitude * std::sin(before)))});
    const Phasor ph1 = turned(ph0);

    *state = {};
    state->ph0Re = ph0.re;
    state->ph0Im = ph0.im;
    state->ph1Re = ph1.re;
    state->ph1Im = ph1.im;
    const short cos2W = short(fixed(std::cos(2 * w))), sin2W = short(fixed(std::sin(2 * w)));
    const short rot[4] = {cos2W, short(-sin2W), sin2W, cos2W};
    std::copy_n(rot, 4, state->rot);
    std::fill_n(state->bias, 4, short(1 << shift));
    state->shift = shift;
    state->bufIndex = toneCapacity<T>;
    state->mag = mag;
    state->rFreq = rFreq;
    state->phase = phase;
    markTone(*state);
}

// n samples straight from the phasors.
template <class T>
void turnPhasors(ArkwToneState& state, T* samps, int n)
{
    Phasor ph0{state.ph0Re, state.ph0Im}, ph1{state.ph1Re, state.ph1Im};
    const int cos2W = state.rot[3], sin2W = state.rot[2], bias = state.bias[0], shift = state.shift & 31;
    const auto turned = [=](Phasor p) {
        return Phasor{low16((p.re * cos2W - p.im * sin2W) >> 14), low16((p.re * sin2W + p.im * cos2W) >> 14)};
    };
    const auto down = [=](short x) { return short((x < 0 ? x + bias : x) >> shift); };
    const auto sample = [=](Phasor p) {
        if constexpr (isComplex<T>)
            return T{down(p.re), down(p.im)};
        else
            return down(p.re);
    };
    int i = 0;
    for (; i + 2 <= n; i += 2) {
        samps[i] = sample(ph0);
        samps[i + 1] = sample(ph1);
        ph0 = turned(ph0);
        ph1 = turned(ph1);
    }
    if (i < n) { // leaves the phasors two samples apart; applications rely on what follows
        samps[i] = sample(ph0);
        ph0 = ph1;
        ph1 = turned(ph1);
    }
    state.ph0Re = ph0.re;
    state.ph0Im = ph0.im;
    state.ph1Re = ph1.re;
    state.ph1Im = ph1.im;
}

// The buffered samples from bufIndex on; none when the index is out of range.
template <class T>
int buffered(const ArkwToneState& state)
{
    return state.bufIndex >= 0 && state.bufIndex < toneCapacity<T> ? toneCapacity<T> - state.bufIndex : 0;
}

template <class T>
T* toneBuffer(ArkwToneState& state)
{
    return reinterpret_cast<T*>(state.buf);
}

template <class T>
T toneShort(Where at, ArkwToneState* state)
{
    if (!toneGood(at, state))
        return {};
    if (!buffered<T>(*state)) {
        turnPhasors(*state, toneBuffer<T>(*state), toneCapacity<T>);
        state->bufIndex = 0;
    }
    return toneBuffer<T>(*state)[state->bufIndex++];
}

template <class T>
void toneBlockShort(Where at, ArkwToneState* state, T* samps, int sampsLen)
{
    if (!toneBlockGood(at, state, samps, sampsLen))
        return;
    const int ready = std::min(buffered<T>(*state), sampsLen);
    if (ready > 0) {
        std::copy_n(toneBuffer<T>(*state) + state->bufIndex, ready, samps);
        state->bufIndex += ready;
    }
    turnPhasors(*state, samps + ready, sampsLen - ready);
}

} // namespace ark
