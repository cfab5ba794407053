// The FIR core: the polyphase walk over a sequence of samples, and how new samples enter a delay line. The delay-line
// functions, the filter objects and the LMS filters are built on it.
#pragma once

#include "filter/arkfir_kernels.hpp"
#include "frame/kernels.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ark {

// Up-sampling, then down-sampling; all ones and zeros for a single-rate filter.
struct Rate {
    int up = 1, upPhase = 0, down = 1, downPhase = 0;

    bool isMulti() const { return up >= 2 || down >= 2; }
};

// How a state record keeps a rate; isMultiRate is the record's own word for it.
template <class State>
Rate rateOf(const State& state)
{
    if (!state.isMultiRate)
        return {};
    return {state.upFactor, state.upPhase, state.downFactor, state.downPhase};
}

template <class State>
void storeRate(State& state, Rate rate)
{
    state.upFactor = rate.up;
    state.upPhase = rate.upPhase;
    state.downFactor = rate.down;
    state.downPhase = rate.downPhase;
    state.isMultiRate = rate.isMulti();
}

// Of the taps, every U-th from tap on meets a sample that is not one of the zeros between the samples.
struct SubFilter {
    std::ptrdiff_t tap, len;
};

inline SubFilter subFilter(int tap, int tapsLen, int up) { return {tap, tapsLen / up + (tap < tapsLen % up)}; }

// Output k of a cycle, which has one output for each of its U up-sampled positions that a down-sampler keeps: its
// sub-filter, and how many samples of the cycle have entered when it is computed.
struct OutputPhase {
    SubFilter sub;
    std::int64_t entered;
};

inline OutputPhase outputPhase(Rate rate, int tapsLen, int k)
{
    const std::int64_t time = rate.downPhase + std::int64_t{k} * rate.down - rate.upPhase;
    if (time < 0) // the first sample of the cycle has not entered yet
        return {subFilter(int(time + rate.up), tapsLen, rate.up), 0};
    return {subFilter(int(time % rate.up), tapsLen, rate.up), time / rate.up + 1};
}

// What an output is computed from: the taps of its sub-filter, in the order in which they meet the samples of seq from
// start on, when seq is the history, oldest sample first, with the new samples behind it.
template <class T>
struct Phase {
    const T* taps;
    std::ptrdiff_t tapStep, len, start;
};

// Filters whole cycles, each of D samples in and U outputs out: phaseOf(k) is the phase of output k of every cycle,
// store(run, k) has the outputs k, k + U, ... computed.
template <class X, class T, class PhaseOf, class Store>
void eachPhase(Rate rate, const X* seq, std::ptrdiff_t cycles, const PhaseOf& phaseOf, const Store& store)
{
    for (int k = 0; k < rate.up; k++) {
        const Phase<T> phase = phaseOf(k);
        store(
            FirRun<X, T>{phase.taps, phase.tapStep, phase.len, seq + phase.start, rate.down, nullptr, rate.up, cycles},
            k);
    }
}

template <class X, class T>
FirOutput<X, T> innerProduct(const T* taps, const X* x, std::ptrdiff_t n)
{
    FirOutput<X, T> sum;
    kernels<FirKernels<X, T>>().dot(taps, x, n, &sum);
    return sum;
}

// ---- delay lines, newest sample first ----

template <class X>
void enter(X* dlyl, std::ptrdiff_t dlylLen, const X* src, std::ptrdiff_t n)
{
    const std::ptrdiff_t kept = std::max<std::ptrdiff_t>(dlylLen - n, 0);
    std::memmove(dlyl + (dlylLen - kept), dlyl, std::size_t(kept) * sizeof(X));
    for (std::ptrdiff_t k = 0; k < dlylLen - kept; k++)
        dlyl[k] = src[n - 1 - k];
}

// A filter as the delay-line functions see it.
template <class X, class T>
struct DelayLineFilter {
    const T* taps;
    int tapsLen;
    Rate rate;
    X* dlyl;
    std::ptrdiff_t dlylLen;

    FirOutput<X, T> step(X sample) const
    {
        enter(dlyl, dlylLen, &sample, 1);
        return innerProduct(taps, dlyl, std::min<std::ptrdiff_t>(tapsLen, dlylLen));
    }

    // cycles D samples in, cycles U outputs out.
    void block(const X* src, FirOutput<X, T>* dst, std::ptrdiff_t cycles) const
    {
        const std::ptrdiff_t down = rate.down, up = rate.up;
        // The outputs of these cycles still reach back into the delay line.
        const std::ptrdiff_t mixed = std::min(cycles, (dlylLen - 1) / down + 1);
        std::ptrdiff_t entered = 0;
        if (dlylLen <= windowLen - down)
            throughWindow(src, dst, mixed);
        else
            entered = throughDelayLine(src, dst, mixed);
        if (mixed < cycles)
            polyphase(src + (mixed * down - dlylLen), dst + mixed * up, cycles - mixed);
        enter(dlyl, dlylLen, src + entered, cycles * down - entered);
    }

private:
    static constexpr std::ptrdiff_t windowLen = 16384 / sizeof(X);

    // The taps that history is kept for: all, unless the records were made for different filters.
    int reach() const { return int(std::min(std::int64_t{tapsLen}, std::int64_t{dlylLen} * rate.up)); }

    // The taps lie as the caller has them: the first one meets the newest sample.
    void polyphase(const X* seq, FirOutput<X, T>* dst, std::ptrdiff_t cycles) const
    {
        const auto phaseOf = [&](int k) -> Phase<T> {
            const auto [sub, entered] = outputPhase(rate, reach(), k);
            const T* last = sub.len ? taps + (sub.tap + (sub.len - 1) * rate.up) : taps;
            return {last, -std::ptrdiff_t{rate.up}, sub.len, dlylLen + std::ptrdiff_t(entered) - sub.len};
        };
        eachPhase<X, T>(rate, seq, cycles, phaseOf, [=](FirRun<X, T> run, int k) {
            run.dst = dst + k;
            kernels<FirKernels<X, T>>().filter(run);
        });
    }

    // Brings history and new samples together, in the order of time, a window at a time.
    void throughWindow(const X* src, FirOutput<X, T>* dst, std::ptrdiff_t cycles) const
    {
        const std::ptrdiff_t down = rate.down, most = (windowLen - dlylLen) / down;
        X window[windowLen];
        for (std::ptrdiff_t c = 0, n; c < cycles; c += n) {
            n = std::min(most, cycles - c);
            const std::ptrdiff_t start = c * down - dlylLen, size = dlylLen + n * down;
            const std::ptrdiff_t old = std::clamp<std::ptrdiff_t>(-start, 0, size);
            for (std::ptrdiff_t i = 0; i < old; i++)
                window[i] = dlyl[-(start + i) - 1];
            std::memcpy(window + old, src + (start + old), std::size_t(size - old) * sizeof(X));
            polyphase(window, dst + c * rate.up, n);
        }
    }

    // From output to output: for what the window is too small for. Returns how many samples have entered.
    std::ptrdiff_t throughDelayLine(const X* src, FirOutput<X, T>* dst, std::ptrdiff_t cycles) const
    {
        std::ptrdiff_t entered = 0;
        for (std::ptrdiff_t c = 0; c < cycles; c++)
            for (int k = 0; k < rate.up; k++) {
                const OutputPhase phase = outputPhase(rate, reach(), k);
                const std::ptrdiff_t now = c * rate.down + std::ptrdiff_t(phase.entered);
                enter(dlyl, dlylLen, src + entered, now - entered);
                entered = now;
                const T* first = phase.sub.len ? taps + phase.sub.tap : taps;
                kernels<FirKernels<X, T>>().filter(
                    {first, rate.up, phase.sub.len, dlyl, 1, dst + (c * rate.up + k), 1, 1});
            }
        return entered;
    }
};

} // namespace ark
