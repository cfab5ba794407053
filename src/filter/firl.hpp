// FIR taps and delay lines in the caller's memory. The LMS records begin with the same fields and share what is here.
#pragma once

#include "filter/fir.hpp"
#include "frame/heap.hpp"
#include "frame/report.hpp"
#include "vector/scale.hpp"

#include <arkpx/filter.h>

namespace ark {

template <class Taps>
void initTaps(Taps& state, void* taps, int tapsLen, Rate rate)
{
    state.taps = taps;
    state.tapsLen = tapsLen;
    storeRate(state, rate);
    state.isFilterMode = 1;
}

template <class T>
void firlInit(Where at, T* taps, int tapsLen, FirlTapState* tapState)
{
    if (firstGood(at, {{!taps || !tapState, "Null buffer pointer"}, {tapsLen < 1, "Invalid array length"}}))
        initTaps(*tapState, taps, tapsLen, {});
}

template <class T>
void firlInitMr(Where at, T* taps, int tapsLen, Rate rate, FirlTapState* tapState)
{
    if (firstGood(at, {{!taps || !tapState, "Null buffer pointer"},
                       {tapsLen < 1, "Invalid array length"},
                       {rate.upPhase < 0 || rate.downPhase < 0, "Invalid phase value"},
                       {rate.up <= rate.upPhase, "Invalid factor value"},
                       {rate.down <= rate.downPhase, "Invalid factor value"}}))
        initTaps(*tapState, taps, tapsLen, rate);
}

template <class X>
void firlInitDlyl(Where at, const FirlTapState* tapState, X* dlyl, FirlDlyState* dlyState)
{
    if (!firstGood(at, {{!dlyl, "Null buffer pointer"}, {!tapState || !dlyState, "Null buffer pointer"}}))
        return;
    const int up = tapState->isMultiRate ? tapState->upFactor : 1;
    *dlyState = {dlyl, tapState->tapsLen / up + (tapState->tapsLen % up != 0), 0};
}

// ---- exchange; T and X are the types of the arrays, Taps and Dlyl the records ----

template <class T>
void copyElements(T* dst, const T* src, std::ptrdiff_t n)
{
    if (dst != src)
        std::memmove(dst, src, std::size_t(n) * sizeof(T));
}

// dst may be src.
template <class T>
void reverseElements(T* dst, const T* src, std::ptrdiff_t n)
{
    if (dst == src)
        std::reverse(dst, dst + n);
    else
        std::reverse_copy(src, src + n, dst);
}

template <class T, class Taps>
void setTaps(Where at, const T* src, Taps* tapState)
{
    if (!firstGood(at, {{!tapState, "Null buffer pointer"}}))
        return;
    T* const taps = static_cast<T*>(tapState->taps);
    if (src)
        copyElements(taps, src, tapState->tapsLen);
    else
        std::fill_n(taps, tapState->tapsLen, T{});
    tapState->isFilterMode = 1;
}

template <class T, class Taps>
void getTaps(Where at, Taps* tapState, T* dst)
{
    if (!firstGood(at, {{!tapState || !dst, "Null buffer pointer"}}))
        return;
    copyElements(dst, static_cast<const T*>(tapState->taps), tapState->tapsLen);
    tapState->isFilterMode = 0;
}

// The samples that callers exchange: a single-rate filter's history does not count the next input's place.
template <class Taps, class Dlyl>
int exchangedLen(const Taps& taps, const Dlyl& dly)
{
    return dly.dlylLen - !taps.isMultiRate;
}

template <class X, class Taps, class Dlyl>
void setDlyl(Where at, const Taps* tapState, const X* src, Dlyl* dlyState)
{
    if (!firstGood(at, {{!dlyState, "Null buffer pointer"}, {!tapState, "Null buffer pointer"}}))
        return;
    X* const dlyl = static_cast<X*>(dlyState->dlyl);
    if (!src)
        std::fill_n(dlyl, dlyState->dlylLen, X{});
    else if (src != dlyl || !dlyState->isFilterMode)
        reverseElements(dlyl, src, exchangedLen(*tapState, *dlyState));
    dlyState->isFilterMode = 1;
}

template <class X, class Taps, class Dlyl>
void getDlyl(Where at, const Taps* tapState, Dlyl* dlyState, X* dst)
{
    if (!firstGood(at, {{!tapState || !dlyState, "Null buffer pointer"}, {!dst, "Null buffer pointer"}}))
        return;
    if (!dlyState->isFilterMode)
        return;
    reverseElements(dst, static_cast<const X*>(dlyState->dlyl), exchangedLen(*tapState, *dlyState));
    dlyState->isFilterMode = 0;
}

// ---- filtering ----

template <class X, class T, class Taps, class Dlyl>
DelayLineFilter<X, T> filterOf(const Taps& taps, const Dlyl& dly)
{
    return {static_cast<const T*>(taps.taps), taps.tapsLen, rateOf(taps), static_cast<X*>(dly.dlyl), dly.dlylLen};
}

template <class X, class T, class Taps, class Dlyl>
FirOutput<X, T> firl(Where at, const Taps* tapState, const Dlyl* dlyState, X sample)
{
    if (!firstGood(at, {{!tapState || !dlyState, "Null buffer pointer"}}))
        return {};
    return filterOf<X, T>(*tapState, *dlyState).step(sample);
}

template <class Taps, class Dlyl>
bool goodBlock(Where at, const Taps* tapState, const Dlyl* dlyState, const void* src, const void* dst, int numIters)
{
    return firstGood(at, {{!tapState || !dlyState, "Null buffer pointer"},
                          {!src || !dst, "Null buffer pointer"},
                          {numIters < 1, "Invalid array length"},
                          {dlyState && !dlyState->isFilterMode, "Not filter mode"},
                          {tapState && !tapState->isFilterMode, "Not filter mode"}});
}

template <class X, class T, class Taps, class Dlyl>
void bFirl(Where at, const Taps* tapState, const Dlyl* dlyState, const X* src, FirOutput<X, T>* dst, int numIters)
{
    if (goodBlock(at, tapState, dlyState, src, dst, numIters))
        filterOf<X, T>(*tapState, *dlyState).block(src, dst, numIters);
}

// ---- 16 bits ----

inline short wFirl(Where at, const FirlTapState* tapState, const FirlDlyState* dlyState, short sample, Scaling scaling)
{
    if (!firstGood(at, {{!tapState || !dlyState, "Null buffer pointer"}}))
        return 0;
    const short* taps = static_cast<const short*>(tapState->taps);
    short* dlyl = static_cast<short*>(dlyState->dlyl);
    enter<short>(dlyl, dlyState->dlylLen, &sample, 1);
    unsigned sum = 0; // wraps
    const int n = std::min(tapState->tapsLen, dlyState->dlylLen);
    for (int k = 0; k < n; k++)
        sum += unsigned(taps[k] * dlyl[k]);
    const int exact = int(sum);
    short out = short(sum);
    if (scaling.mode & ARK_FIXED_SCALE)
        rescale(&exact, &out, 1, {scaling.mode & (ARK_FIXED_SCALE | ARK_SATURATE), scaling.factor});
    return out;
}

inline void wbFirl(Where at, const FirlTapState* tapState, const FirlDlyState* dlyState, const short* src, short* dst,
                   int numIters, Scaling scaling)
{
    if (!goodBlock(at, tapState, dlyState, src, dst, numIters))
        return;
    const Rate rate = rateOf(*tapState);
    const std::uint64_t outputs = std::uint64_t(numIters) * unsigned(rate.up);
    Buffer<double> sums;
    if (outputs <= PTRDIFF_MAX)
        sums = Buffer<double>{std::size_t(outputs)};
    Buffer<float> taps{std::size_t(tapState->tapsLen)};
    if (!sums || !taps)
        return outOfMemory(at, "Memory problem");
    std::copy_n(static_cast<const short*>(tapState->taps), tapState->tapsLen, taps.data());
    const DelayLineFilter<short, float> filter{taps.data(), tapState->tapsLen, rate,
                                               static_cast<short*>(dlyState->dlyl), dlyState->dlylLen};
    filter.block(src, sums.data(), numIters);
    for (std::size_t i = 0; i < outputs; i++)
        sums[i] = float(sums[i]);

    int unused = 0;
    if (scaling.mode & ARK_FIXED_SCALE)
        scaling.mode &= ARK_FIXED_SCALE | ARK_SATURATE;
    if (scaling.mode == ARK_AUTO_SCALE && !scaling.factor)
        scaling.factor = &unused;
    rescale(sums.data(), dst, std::ptrdiff_t(outputs), scaling);
}

} // namespace ark
