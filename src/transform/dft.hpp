// The DFT of any length.
#pragma once

#include "frame/report.hpp"
#include "frame/types.hpp"
#include "transform/chirp.hpp"
#include "transform/mixedradix.hpp"

#include <arkpx/transform.h>

#include <cstddef>
#include <type_traits>

namespace ark {

inline FloatCplx* getDftTwiddles(const FloatCplx*, int len) { return arkcGetDftTwdTbl(len); }
inline DoubleCplx* getDftTwiddles(const DoubleCplx*, int len) { return arkzGetDftTwdTbl(len); }

// Null when there is none; that has been reported then.
template <class C>
TwiddleTables::Dft* obtainDft(const C* x, int len)
{
    TwiddleTables& tables = context().caches.twiddles[std::is_same_v<C, DoubleCplx>];
    const auto find = [&]() -> TwiddleTables::Dft* {
        for (int i = 0; i < tables.dftCount; i++)
            if (tables.dft[i].length == len)
                return &tables.dft[i];
        return nullptr;
    };
    TwiddleTables::Dft* const found = find();
    return found || !getDftTwiddles(x, len) ? found : find();
}

// The inverse is the forward transform between two conjugations. False when there is no memory, y is untouched then.
template <class C>
bool computeDft(const C* x, C* y, int len, TwiddleTables::Dft& entry, bool inverse, double scale)
{
    using R = Real<C>;
    const double sign = inverse ? -1 : 1, imScale = sign * scale;
    if (len <= longestShortDft) {
        kernels<DftKernels<R>>().transformShort[len - 1](partsOf(x), partsOf(y), sign, scale, imScale);
        return true;
    }
    if (hasSmallFactors(len)) {
        MixedDft mixed;
        if (isTooLongForMixed(len) ||
            !mixed.prepare(entry.fast.table<double>([=] { return mixedSize(len); },
                                                    [=](double* block) { fillMixed(len, block); })))
            return false;
        mixed.transform(partsOf(x), partsOf(y), sign, scale, imScale);
        return true;
    }

    Workspace<double> space;
    if (!obtainChirpSpace(len, space))
        return false;
    const double* const chirp =
        entry.fast.table<double>([=] { return chirpSize(len); }, [&](double* table) { fillChirp(len, space, table); });
    auto* const z = context().caches.working.spectrum.buffer<DoubleCplx>(std::size_t{1} << chirpOrder(len));
    if (!chirp || !z)
        return false;
    const auto count = std::size_t(len);
    for (std::size_t k = 0; k < count; k++)
        z[k] = {double(x[k].re), sign * double(x[k].im)};
    chirpDft(z, len, chirp, space);
    for (std::size_t m = 0; m < count; m++)
        y[m] = {R(z[m].re * scale), R(z[m].im * imScale)};
    return true;
}

template <class C>
void dft(Where at, const C* x, C* y, int len, int flags)
{
    if (!statusGood())
        return;
    TwiddleTables::Dft* const entry = obtainDft(x, len);
    if (!allGood(at, {{len <= 0, "len<=0"}, {!entry, "tw==0"}}) || has(flags, ARK_Init) ||
        !firstGood(at, {{!x, "x==0"},
                        {!y, "y==0"},
                        {!(flags & ARK_Forw) == !(flags & ARK_Inv), "ARK_Forw or ARK_Inv must be as a flag"}}))
        return;
    const bool inverse = has(flags, ARK_Inv);
    const double scale = inverse && !has(flags, ARK_NoScale) ? 1 / double(len) : 1;
    if (!computedWithin([=] { return computeDft(x, y, len, *entry, inverse, scale); }))
        outOfMemory(at, "NULL Pointer");
}

} // namespace ark
