// FIR filter objects: taps and a sliding history that the object owns.
#pragma once

#include "filter/fir.hpp"
#include "frame/heap.hpp"
#include "frame/report.hpp"
#include "vector/scale.hpp"

#include <arkpx/filter.h>

namespace ark {

inline bool isInitialised(const FirState* state) { return state && state->self == state; }

// The object keeps every sub-filter reversed, one behind the other.
template <class T>
Phase<T> storedPhase(const FirState& state, int k)
{
    const T* taps = static_cast<const T*>(state.taps);
    if (!state.isMultiRate)
        return {taps, 1, state.givenTapsLen, 0};
    const FirPhase& phase = state.phaseTable[k];
    return {taps + phase.offset, 1, phase.len, phase.start};
}

// place(stored, given): for each of the caller's taps, where it is kept.
template <class Place>
void eachTap(const FirState& state, Place place)
{
    std::ptrdiff_t offset = 0;
    for (int p = 0; p < state.upFactor && p < state.givenTapsLen; p++) {
        const SubFilter sub = subFilter(p, state.givenTapsLen, state.upFactor);
        for (std::ptrdiff_t j = 0; j < sub.len; j++)
            place(offset + sub.len - 1 - j, p + j * state.upFactor);
        offset += sub.len;
    }
}

template <class T>
void storeTaps(const T* taps, FirState& state)
{
    T* const stored = static_cast<T*>(state.taps);
    std::fill_n(stored, state.tapsLen, T{});
    if (taps)
        eachTap(state, [=](std::ptrdiff_t to, std::ptrdiff_t from) { stored[to] = taps[from]; });
}

template <class X>
void storeHistory(const X* dlyl, FirState& state)
{
    X* const history = static_cast<X*>(state.dlylPtr);
    if (dlyl)
        std::memmove(history, dlyl, std::size_t(state.dlylLen) * sizeof(X));
    else
        std::fill_n(history, state.dlylLen, X{});
}

inline void release(FirState& state)
{
    heapFree(state.taps);
    heapFree(state.buffer);
    heapFree(state.phaseTable);
    state.taps = state.buffer = state.bufEnd = state.dlylPtr = nullptr;
    state.phaseTable = nullptr;
    state.self = nullptr;
}

// Lengths in 64 bits: one that the record cannot hold counts as memory that cannot be had.
template <class X, class T>
bool allocate(FirState& state, Rate rate, int tapsLen)
{
    constexpr bool is16Bit = sizeof(X) == 2;
    const std::int64_t up = rate.up, down = rate.down, whole = (std::int64_t{tapsLen} + up - 1) / up;
    const std::int64_t stored = is16Bit && rate.isMulti() ? whole * up : tapsLen;
    const std::int64_t history = rate.isMulti() ? whole : tapsLen - 1, room = std::max<std::int64_t>(history, 127);
    const std::int64_t bufLen = rate.isMulti() ? (room + down - 1) / down * down : room + 1;
    state = {};
    if (stored > INT32_MAX || bufLen > INT32_MAX || (rate.isMulti() && history + down > INT32_MAX))
        return false;

    Buffer<T> taps{std::size_t(stored)};
    Buffer<X> buffer{std::size_t(history) + std::size_t(bufLen)};
    Buffer<FirPhase> phases;
    if (rate.isMulti())
        phases = Buffer<FirPhase>{std::size_t(up)};
    if (!taps || !buffer || (rate.isMulti() && !phases))
        return false;

    storeRate(state, rate);
    state.givenTapsLen = tapsLen;
    state.tapsLen = int(stored);
    state.tapsLen8 = is16Bit ? 0 : tapsLen & ~7;
    state.dlylLen = int(history);
    state.bufLen = int(bufLen);
    state.taps = taps.release();
    state.buffer = state.dlylPtr = buffer.release();
    state.bufEnd = static_cast<X*>(state.buffer) + bufLen;
    state.phaseTable = phases.release();
    state.self = &state;
    return true;
}

inline void fillPhaseTable(FirState& state)
{
    const int whole = state.givenTapsLen / state.upFactor, longer = state.givenTapsLen % state.upFactor;
    for (int k = 0; k < state.upFactor; k++) {
        const OutputPhase phase = outputPhase(rateOf(state), state.givenTapsLen, k);
        const int tap = int(phase.sub.tap);
        state.phaseTable[k] = {tap, int(phase.sub.len), int(phase.entered + state.dlylLen - phase.sub.len),
                               tap * whole + std::min(tap, longer)};
    }
}

template <class X, class T>
void initialise(Where at, const T* taps, int tapsLen, const X* dlyl, Rate rate, FirState* state)
{
    if (isInitialised(state))
        release(*state);
    if (!allocate<X, T>(*state, rate, tapsLen))
        return outOfMemory(at, "Allocation failure");
    if (state->isMultiRate)
        fillPhaseTable(*state);
    storeTaps(taps, *state);
    storeHistory(dlyl, *state);
}

template <class X, class T>
void firInit(Where at, const T* taps, int tapsLen, const X* dlyl, FirState* state)
{
    if (firstGood(at, {{!state, "Null state pointer"}, {tapsLen < 1, "Invalid value"}}))
        initialise(at, taps, tapsLen, dlyl, {}, state);
}

template <class X, class T>
void firInitMr(Where at, const T* taps, int tapsLen, const X* dlyl, Rate rate, FirState* state)
{
    if (firstGood(at, {{!state, "Null state pointer"},
                       {rate.up < 1, "Invalid value"},
                       {rate.down < 1, "Invalid value"},
                       {rate.upPhase < 0 || rate.upPhase >= rate.up, "Invalid value"},
                       {rate.downPhase < 0 || rate.downPhase >= rate.down, "Invalid value"},
                       {tapsLen < 1, "Invalid value"}}))
        initialise(at, taps, tapsLen, dlyl, rate, state);
}

inline void firFree(Where at, FirState* state)
{
    if (firstGood(at, {{!state, "Null state pointer"}, {!isInitialised(state), "Must have been initialized"}}))
        release(*state);
}

// ---- exchange ----

template <class T>
void firSetTaps(Where at, const T* taps, FirState* state)
{
    if (firstGood(at, {{!state, "Null state pointer"}, {!isInitialised(state), "Must have been initialized"}}))
        storeTaps(taps, *state);
}

template <class T>
void firGetTaps(Where at, const FirState* state, T* taps)
{
    if (!firstGood(at, {{!state, "Null state pointer"},
                        {!isInitialised(state), "Must have been initialized"},
                        {!taps, "Null buffer pointer"}}))
        return;
    const T* stored = static_cast<const T*>(state->taps);
    eachTap(*state, [=](std::ptrdiff_t from, std::ptrdiff_t to) { taps[to] = stored[from]; });
}

template <class X>
void firSetDlyl(Where at, const X* dlyl, FirState* state)
{
    if (firstGood(at, {{!state, "Null state pointer"}, {!isInitialised(state), "Must have been initialized"}}))
        storeHistory(dlyl, *state);
}

template <class X>
void firGetDlyl(Where at, const FirState* state, X* dlyl)
{
    if (firstGood(at, {{!state, "Null state pointer"},
                       {!isInitialised(state), "Must have been initialized"},
                       {!dlyl, "Null buffer pointer"}}))
        std::memmove(dlyl, state->dlylPtr, std::size_t(state->dlylLen) * sizeof(X));
}

// ---- filtering ----

// A multi-rate object has no one-sample filter; its history and taps are of different lengths, and only what both have
// is used.
template <class X, class T>
FirOutput<X, T> oneSample(FirState& state, X sample)
{
    X* const history = static_cast<X*>(state.dlylPtr);
    history[state.dlylLen] = sample;
    const std::int64_t n = std::min(std::int64_t{state.givenTapsLen}, std::int64_t{state.dlylLen} + 1);
    const FirOutput<X, T> sum = innerProduct(static_cast<const T*>(state.taps), history, std::ptrdiff_t(n));
    state.dlylPtr = history + 1;
    if (state.dlylPtr == state.bufEnd) {
        std::memmove(state.buffer, state.bufEnd, std::size_t(state.dlylLen) * sizeof(X));
        state.dlylPtr = state.buffer;
    }
    return sum;
}

// Blocks: the history, with the first of the new samples behind it, lies in the object's buffer; all further outputs
// are computed where the caller's samples lie.

// Brings the history to the start of the buffer and new samples behind it. How many cycles the buffer now serves.
template <class X>
std::ptrdiff_t fillBuffer(FirState& state, const X* src, std::ptrdiff_t cycles)
{
    X* const buffer = static_cast<X*>(state.buffer);
    if (state.dlylPtr != buffer)
        std::memmove(buffer, state.dlylPtr, std::size_t(state.dlylLen) * sizeof(X));
    state.dlylPtr = buffer;
    const std::ptrdiff_t room = state.isMultiRate ? state.bufLen : state.dlylLen;
    const std::ptrdiff_t inBuffer = std::min(cycles, room / state.downFactor);
    std::memcpy(buffer + state.dlylLen, src, std::size_t(inBuffer * state.downFactor) * sizeof(X));
    return inBuffer;
}

// What fillBuffer has prepared, filtered.
template <class X, class T, class Store>
void filterBlock(const FirState& state, const X* src, std::ptrdiff_t cycles, std::ptrdiff_t inBuffer,
                 const Store& store)
{
    const auto part = [&](const X* seq, std::ptrdiff_t from, std::ptrdiff_t n) {
        if (n > 0)
            eachPhase<X, T>(
                rateOf(state), seq, n, [&](int k) { return storedPhase<T>(state, k); },
                [&](FirRun<X, T> run, int k) { store(run, from * state.upFactor + k); });
    };
    part(static_cast<const X*>(state.buffer), 0, inBuffer);
    if (inBuffer < cycles)
        part(src + (inBuffer * state.downFactor - state.dlylLen), inBuffer, cycles - inBuffer);
}

// The last samples become the history, at the start of the buffer.
template <class X>
void keepHistory(FirState& state, const X* src, std::ptrdiff_t cycles)
{
    X* const buffer = static_cast<X*>(state.buffer);
    const std::ptrdiff_t entered = cycles * state.downFactor;
    const X* last = entered < state.dlylLen ? buffer + entered : src + (entered - state.dlylLen);
    std::memmove(buffer, last, std::size_t(state.dlylLen) * sizeof(X));
}

template <class X, class T>
FirOutput<X, T> fir(Where at, FirState* state, X sample)
{
    if (!firstGood(at, {{!state, "Null state pointer"}, {!isInitialised(state), "Must have been initialized"}}))
        return {};
    return oneSample<X, T>(*state, sample);
}

template <class X, class T>
void bFir(Where at, FirState* state, const X* src, FirOutput<X, T>* dst, int numIters)
{
    if (!firstGood(at, {{!state, "Null state pointer"},
                        {!isInitialised(state), "Must have been initialized"},
                        {!src, "Null buffer pointer"},
                        {!dst, "Null buffer pointer"},
                        {numIters < 1, "Invalid value"}}))
        return;
    const std::ptrdiff_t inBuffer = fillBuffer(*state, src, numIters);
    filterBlock<X, T>(*state, src, numIters, inBuffer, [=](FirRun<X, T> run, std::ptrdiff_t first) {
        run.dst = dst + first;
        kernels<FirKernels<X, T>>().filter(run);
    });
    keepHistory(*state, src, numIters);
}

// ---- 16 bits: float taps, sums in double, scaled on the way out ----

// use(sums, n, first, step) has the sums of the outputs first, first + step, ... in small portions.
template <class Use>
void eachSum(FirRun<short, float> run, std::ptrdiff_t first, const Use& use)
{
    constexpr std::ptrdiff_t portion = 256;
    double sums[portion];
    const std::ptrdiff_t step = run.dstStep, all = run.n;
    run.dst = sums;
    run.dstStep = 1;
    for (std::ptrdiff_t done = 0; done < all; done += run.n) {
        run.n = std::min(portion, all - done);
        kernels<FirKernels<short, float>>().filter(run);
        use(sums, run.n, first + done * step, step);
        run.x += run.n * run.step;
    }
}

// Every mode but the automatic one: the saturation bit, and the factor where the fixed-scale bit is there.
inline Scaling fixedScaling(Scaling scaling)
{
    return {scaling.mode & (ARK_FIXED_SCALE | ARK_SATURATE), scaling.factor};
}

inline short wFir(Where at, FirState* state, short sample, Scaling scaling)
{
    if (!firstGood(at, {{!state, "Null state pointer"},
                        {!isInitialised(state), "Must have been initialized"},
                        {scaling.mode == ARK_AUTO_SCALE && !scaling.factor, "Null scale factor pointer"}}))
        return 0;
    const double sum = oneSample<short, float>(*state, sample);
    short out;
    rescale(&sum, &out, 1, scaling.mode == ARK_AUTO_SCALE ? scaling : fixedScaling(scaling));
    return out;
}

// The automatic factor follows from all outputs: they are computed twice, rather than kept, to allocate nothing.
inline void wbFir(Where at, FirState* state, const short* src, short* dst, int numIters, Scaling scaling)
{
    if (!firstGood(at, {{!state, "Null state pointer"},
                        {!isInitialised(state), "Must have been initialized"},
                        {!src, "Null buffer pointer"},
                        {!dst, "Null buffer pointer"},
                        {numIters < 1, "Invalid value"},
                        {scaling.mode == ARK_AUTO_SCALE && !scaling.factor, "Null scale factor pointer"}}))
        return;
    const std::ptrdiff_t inBuffer = fillBuffer(*state, src, numIters);
    const auto each = [&](const auto& use) {
        filterBlock<short, float>(*state, src, numIters, inBuffer,
                                  [&](FirRun<short, float> run, std::ptrdiff_t first) { eachSum(run, first, use); });
    };
    if (scaling.mode == ARK_AUTO_SCALE) {
        double extremes[2] = {};
        each([&](const double* sums, std::ptrdiff_t n, std::ptrdiff_t, std::ptrdiff_t) {
            for (std::ptrdiff_t i = 0; i < n; i++) {
                extremes[0] = std::min(extremes[0], sums[i]);
                extremes[1] = std::max(extremes[1], sums[i]);
            }
        });
        short unused[2];
        rescale(extremes, unused, 2, scaling); // writes the factor
        scaling.mode = ARK_FIXED_SCALE;
    }
    each([&](const double* sums, std::ptrdiff_t n, std::ptrdiff_t first, std::ptrdiff_t step) {
        short out[256];
        rescale(sums, out, n, fixedScaling(scaling));
        for (std::ptrdiff_t i = 0; i < n; i++)
            dst[first + i * step] = out[i];
    });
    keepHistory(*state, src, numIters);
}

} // namespace ark
