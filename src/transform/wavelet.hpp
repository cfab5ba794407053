// The wavelet transform: records, checks, and the two-channel filter bank applied level by level.
#pragma once

#include "frame/heap.hpp"
#include "frame/report.hpp"
#include "transform/filterbank.hpp"
#include "vector/scale.hpp"

#include <arkpx/transform.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace ark {

// ---- one level ----

// The taps k of a filter with k = shift modulo 2.
template <class T>
struct FilterPhase {
    const T* tap; // the last one
    std::ptrdiff_t count;
    std::ptrdiff_t start; // output i is made of the samples i + start ... i + start + count - 1

    FilterPhase(const T* taps, std::ptrdiff_t len, std::ptrdiff_t shift)
    {
        const std::ptrdiff_t last = len - 1 - ((len - 1 - shift) & 1);
        tap = taps + last;
        count = last / 2 + 1;
        start = (shift - last) / 2;
    }

    HalfFilter<T> on(const T* line, std::ptrdiff_t i) const { return {tap, count, line + i + start}; }
};

// A part of a level's samples in the working buffer, with as many more on both sides as two filters reach: half the
// longer one's length at the most.
template <class T>
struct Line {
    std::ptrdiff_t len, before, after;
    T* samples;

    Line(T* room, std::ptrdiff_t n, const FilterPhase<T>& a, const FilterPhase<T>& b)
        : len{n},
          before{std::max<std::ptrdiff_t>(0, -std::min(a.start, b.start))},
          after{std::max<std::ptrdiff_t>(0, std::max(a.start + a.count, b.start + b.count) - 1)},
          samples{room + before}
    {}

    T* end() const { return samples + len + after; }

    // The samples from i on are there; adds those around them, at(m) for m = 0 ... n-1, periodic with n.
    template <class At>
    void extend(std::ptrdiff_t i, std::ptrdiff_t n, const At& at) const
    {
        std::ptrdiff_t m = i;
        for (std::ptrdiff_t k = 1; k <= before; k++) {
            m = (m ? m : n) - 1;
            samples[-k] = at(m);
        }
        m = i + len - 1;
        for (std::ptrdiff_t k = 0; k < after; k++) {
            m = m + 1 < n ? m + 1 : 0;
            samples[len + k] = at(m);
        }
    }
};

// So many outputs of each of two filters at a time: what they read then comes from the nearest cache.
inline constexpr std::ptrdiff_t waveletBlock = 512;

template <class T>
const T* filterOf(const wtState& state, int i)
{
    return static_cast<const T*>(state.tap_filt[i]);
}

// 2 n samples of src into n of low and of high. Unless src lies apart from them, all of it is read before anything is
// written.
template <class T>
void analyse(const wtState& state, const T* src, T* low, T* high, std::ptrdiff_t n, bool isApart)
{
    const T *const h = filterOf<T>(state, analysisLow), *const g = filterOf<T>(state, analysisHigh);
    const FilterPhase<T> hEven{h, state.Flen[0], state.Fofs[0]}, hOdd{h, state.Flen[0], state.Fofs[0] - 1};
    const FilterPhase<T> gEven{g, state.Flen[1], state.Fofs[1]}, gOdd{g, state.Flen[1], state.Fofs[1] - 1};
    const std::ptrdiff_t block = std::min(waveletBlock, n), part = isApart ? block : n;
    const Line<T> even{static_cast<T*>(state.src_pad), part, hEven, gEven}, odd{even.end(), part, hOdd, gOdd};
    const WaveletKernels<T>& loops = kernels<WaveletKernels<T>>();
    for (std::ptrdiff_t i = 0; i < n; i += part) {
        loops.split(src + 2 * i, even.samples, odd.samples, part);
        even.extend(i, n, [=](std::ptrdiff_t m) { return src[2 * m]; });
        odd.extend(i, n, [=](std::ptrdiff_t m) { return src[2 * m + 1]; });
        for (std::ptrdiff_t j = 0; j < part; j += block) {
            loops.filter(hEven.on(even.samples, j), hOdd.on(odd.samples, j), low + i + j, block);
            loops.filter(gEven.on(even.samples, j), gOdd.on(odd.samples, j), high + i + j, block);
        }
    }
}

// n of low and of high into 2 n samples of dst. Unless both lie apart from it, all of them is read before anything is
// written.
template <class T>
void synthesise(const wtState& state, const T* low, const T* high, T* dst, std::ptrdiff_t n, bool isApart)
{
    const T *const h = filterOf<T>(state, synthesisLow), *const g = filterOf<T>(state, synthesisHigh);
    const FilterPhase<T> hEven{h, state.Flen[2], state.Fofs[2]}, hOdd{h, state.Flen[2], state.Fofs[2] + 1};
    const FilterPhase<T> gEven{g, state.Flen[3], state.Fofs[3]}, gOdd{g, state.Flen[3], state.Fofs[3] + 1};
    const std::ptrdiff_t block = std::min(waveletBlock, n), part = isApart ? block : n;
    const Line<T> lows{static_cast<T*>(state.src_pad), part, hEven, hOdd}, highs{lows.end(), part, gEven, gOdd};
    const WaveletKernels<T>& loops = kernels<WaveletKernels<T>>();
    T even[waveletBlock], odd[waveletBlock];
    // The samples i ... i + part - 1 and those around them: where they are, or in the working buffer. The kernel reads
    // beyond less than a whole block.
    const auto around = [=](const Line<T>& line, const T* band, std::ptrdiff_t i) -> const T* {
        if (isApart && part == waveletBlock && i >= line.before && i + part + line.after <= n)
            return band + i;
        std::memcpy(line.samples, band + i, std::size_t(part) * sizeof(T));
        line.extend(i, n, [=](std::ptrdiff_t m) { return band[m]; });
        return line.samples;
    };
    for (std::ptrdiff_t i = 0; i < n; i += part) {
        const T *const a = around(lows, low, i), *const d = around(highs, high, i);
        for (std::ptrdiff_t j = 0; j < part; j += block) {
            loops.filter(hEven.on(a, j), gEven.on(d, j), even, block);
            loops.filter(hOdd.on(a, j), gOdd.on(d, j), odd, block);
            loops.join(even, odd, dst + 2 * (i + j), block);
        }
    }
}

// The end of the working buffer, for half the signal: what is in front of it holds a block's lines, or those of the
// second level. The two largest levels then need no copy of what they read. Null where blocks are no parts.
template <class T>
T* spareHalf(const wtState& state)
{
    const std::ptrdiff_t half = std::ptrdiff_t{1} << (state.dataOrder - 1);
    const std::ptrdiff_t extension = 2 * std::ptrdiff_t{std::max(state.Flen[0], state.Flen[1])};
    return half >= 2 * waveletBlock ? static_cast<T*>(state.src_pad) + half + extension : nullptr;
}

// All levels, at least one; dst may be src.
template <class T>
void analyseAll(const wtState& state, const T* src, T* dst)
{
    T* const spare = src != dst && state.level > 1 ? spareHalf<T>(state) : nullptr;
    const T* from = src;
    for (int level = 1; level <= state.level; level++) {
        const std::ptrdiff_t n = std::ptrdiff_t{1} << (state.dataOrder - level);
        T* const low = level == 1 && spare ? spare : dst;
        analyse(state, from, low, dst + n, n, from != dst);
        from = low;
    }
}

template <class T>
void synthesiseAll(const wtState& state, const T* src, T* dst)
{
    T* const spare = src != dst ? spareHalf<T>(state) : nullptr;
    const T* low = src;
    for (int level = state.level; level >= 1; level--) {
        const std::ptrdiff_t n = std::ptrdiff_t{1} << (state.dataOrder - level);
        T* const to = level == 2 && spare ? spare : dst;
        synthesise(state, low, src + n, to, n, src != dst && low != to);
        low = to;
    }
}

// ---- records ----

// Completes fresh with copies of the taps and a working buffer, and makes it the record. False without memory; nothing
// is kept then.
template <class T, class Taps>
bool install(wtState& record, wtState fresh, Taps taps)
{
    Buffer<T> filters[4];
    for (int i = 0; i < 4; i++) {
        filters[i] = Buffer<T>{std::size_t(fresh.Flen[i])};
        if (!filters[i])
            return false;
        for (int k = 0; k < fresh.Flen[i]; k++)
            filters[i][std::size_t(k)] = T(taps[i][k]);
    }
    // The kernels' loads reach beyond the last element.
    const std::uint64_t extension = 2 * std::uint64_t(std::max(fresh.Flen[0], fresh.Flen[1])) + 64 / sizeof(T);
    const std::uint64_t elements = (std::uint64_t{1} << fresh.dataOrder) + extension;
    Buffer<T> pad{elements > SIZE_MAX ? SIZE_MAX : std::size_t(elements)};
    if (!pad)
        return false;
    for (int i = 0; i < 4; i++)
        fresh.tap_filt[i] = filters[i].release();
    fresh.src_pad = pad.release();
    fresh.initialised = 1;
    record = fresh;
    return true;
}

inline bool goodSizes(Where at, int dataOrder, int level)
{
    return allGood(at, {{dataOrder < 1, "dataOrder<1"},
                        {dataOrder > 31, "dataOrder>31"},
                        {level < 0, "level<0"},
                        {level >= dataOrder, "level>(dataOrder-1)"}});
}

struct WaveletType {
    int type, par1, par2;
};

template <class T>
void wtInit(Where at, WaveletType wavelet, int dataOrder, int level, wtState* state)
{
    if (!state)
        return badArgument(at, "wtState==0");
    *state = {};
    if (!goodSizes(at, dataOrder, level))
        return;
    FilterBank bank;
    if (!makeBank(wavelet.type, wavelet.par1, wavelet.par2, bank))
        return badArgument(at, "error in the type of wavelet");
    wtState fresh{};
    fresh.wtType = wavelet.type;
    fresh.kind = wavelet.type == 5 || wavelet.type == 6 ? 2 : 1;
    fresh.par1 = wavelet.par1;
    fresh.par2 = wavelet.par2;
    fresh.dataOrder = dataOrder;
    fresh.level = level;
    std::copy_n(bank.len, 4, fresh.Flen);
    std::copy_n(bank.ofs, 4, fresh.Fofs);
    if (!install<T>(*state, fresh, bank.taps))
        outOfMemory(at, "No working wavelet memory");
}

// init is the exported function, which reports under its own name.
template <class T>
void wtSetState(Where at, wtState* state, WaveletType wavelet, int dataOrder, int level, const T* const* taps,
                const int* len, const int* ofs, void (*init)(int, int, int, int, wtState*, int),
                const char* messageOfInit)
{
    if (wavelet.type != 10) {
        init(wavelet.par1, wavelet.par2, dataOrder, level, state, wavelet.type);
        if (!statusGood())
            report(at, ARK_StatusBacktrace, messageOfInit);
        return;
    }
    if (!state)
        return badArgument(at, "wtState==0");
    wtState fresh{};
    const T* filters[4] = {};
    for (int i = 0; i < 4; i++) { // before the record is cleared: they may be its own
        filters[i] = taps ? taps[i] : nullptr;
        fresh.Flen[i] = len ? len[i] : 0;
        fresh.Fofs[i] = ofs ? ofs[i] : 0;
    }
    *state = {};
    if (!goodSizes(at, dataOrder, level) ||
        !allGood(at, {{!taps, "Ftaps eq. NULL"}, {!len, "Flen eq. NULL"}, {!ofs, "Fofs eq. NULL"}}))
        return;
    const int *const n = fresh.Flen, *const o = fresh.Fofs;
    const bool shortOnes = std::any_of(n, n + 4, [](int x) { return x < 2; });
    const bool outside =
        o[0] < 0 || o[1] < 0 || o[2] < 0 || o[3] < 0 || o[0] >= n[0] || o[1] >= n[1] || o[2] >= n[2] || o[3] >= n[3];
    if (!allGood(at, {{!filters[0] || !filters[1] || !filters[2] || !filters[3], "Bad pointers in Ftaps"},
                      {shortOnes || n[0] != n[3] || n[1] != n[2], "Bad filter lengths"},
                      {outside, "Bad filter offsets"}}))
        return;
    fresh.wtType = 10;
    fresh.kind = 3;
    fresh.par1 = wavelet.par1;
    fresh.par2 = wavelet.par2;
    fresh.dataOrder = dataOrder;
    fresh.level = level;
    if (!install<T>(*state, fresh, filters))
        outOfMemory(at, "No working wavelet memory");
}

template <class Value>
void give(Value* to, Value value)
{
    if (to)
        *to = value;
}

template <class T>
void wtGetState(Where at, const wtState* state, int* type, int* par1, int* par2, int* dataOrder, int* level, T** taps,
                int* len, int* ofs)
{
    if (!firstGood(at, {{!state, "wtState==0"}, {!state || state->initialised != 1, "wtState is not initialised"}}))
        return;
    give(type, state->wtType);
    give(par1, state->par1);
    give(par2, state->par2);
    give(dataOrder, state->dataOrder);
    give(level, state->level);
    for (int i = 0; i < 4; i++) {
        if (taps)
            taps[i] = static_cast<T*>(state->tap_filt[i]);
        if (len)
            len[i] = state->Flen[i];
        if (ofs)
            ofs[i] = state->Fofs[i];
    }
}

inline void wtFree(Where at, wtState* state)
{
    if (!state)
        return badArgument(at, "wtState==0");
    if (state->initialised == 1) { // else its pointers are nobody's
        for (void* taps : state->tap_filt)
            heapFree(taps);
        heapFree(state->src_pad);
    }
    for (void*& taps : state->tap_filt)
        taps = nullptr;
    state->src_pad = nullptr;
    state->initialised = 0;
}

// ---- transforms ----

inline bool goodTransform(Where at, const wtState* state, bool hasSrc, bool hasDst)
{
    if (!allGood(at, {{!state, "wtState==0"}, {!hasSrc, "src==0"}, {!hasDst, "dst==0"}}))
        return false;
    if (state->initialised != 1) {
        badArgument(at, "wtState is not initialised");
        return false;
    }
    const int *const n = state->Flen, *const o = state->Fofs;
    const bool lengths = std::all_of(n, n + 4, [](int x) { return x >= 2; }) && n[0] == n[3] && n[1] == n[2];
    const bool offsets =
        o[0] >= 0 && o[1] >= 0 && o[2] >= 0 && o[3] >= 0 && o[0] < n[0] && o[1] < n[1] && o[2] < n[2] && o[3] < n[3];
    return allGood(at,
                   {{state->dataOrder < 1, "wtState->dataOrder<1"},
                    {state->dataOrder > 31, "wtState->dataOrder>31"},
                    {state->level < 0, "wtState->level<0"},
                    {state->level >= state->dataOrder, "wtState->level>(wtState->dataOrder-1)"},
                    {state->kind < 1 || state->kind > 3, "error in the type of wavelet"},
                    {!state->tap_filt[0], "wtState->tap_filt[ 0 ]==0"},
                    {!state->tap_filt[1], "wtState->tap_filt[ 1 ]==0"},
                    {!state->tap_filt[2], "wtState->tap_filt[ 2 ]==0"},
                    {!state->tap_filt[3], "wtState->tap_filt[ 3 ]==0"},
                    {!state->src_pad, "wtState->src_pad==0"},
                    {!lengths, "error in the filter lengths"},
                    {state->kind == 1 && (n[0] != n[1] || n[0] % 2 != 0), "error in the filter lengths ortho. wavelet"},
                    {!offsets, "error in the filter offsets"}});
}

template <class T>
using WaveletPass = void (*)(const wtState&, const T* src, T* dst);

template <class T>
void wtTransform(Where at, const wtState* state, const T* src, T* dst, WaveletPass<T> pass)
{
    if (!goodTransform(at, state, src, dst))
        return;
    if (state->level == 0)
        std::memmove(dst, src, (std::size_t{1} << state->dataOrder) * sizeof(T));
    else
        pass(*state, src, dst);
}

inline void wtShortTransform(Where at, const wtState* state, const short* src, short* dst, WaveletPass<float> pass)
{
    if (!goodTransform(at, state, src, dst))
        return;
    const std::size_t n = std::size_t{1} << state->dataOrder;
    if (state->level == 0) {
        std::memmove(dst, src, n * sizeof(short));
        return;
    }
    Buffer<float> work{n};
    if (!work)
        return outOfMemory(at, "No memory for working arrays");
    shortToFloat(src, work.data(), std::ptrdiff_t(n));
    pass(*state, work.data(), work.data());
    floatToShort(work.data(), dst, std::ptrdiff_t(n), {ARK_SATURATE, nullptr});
}

} // namespace ark
