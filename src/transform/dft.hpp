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

// Lengths without small factors for which the sums are quicker than two FFTs and more.
inline constexpr int longestSummedDft = 23;

// The sums, of elements k and len - k folded into their sum and their difference: the sums meet the cosines only, the
// differences the sines only, and y[m] and y[len - m] are the sum and the difference of the same two sums.
// tw[k] = e^(-2 pi i k / len).
template <class C, class Store>
void summedDft(DoubleCplx* x, std::size_t len, const C* tw, Store store)
{
    const std::size_t pairs = (len - 1) / 2;
    DoubleCplx total = x[0];
    for (std::size_t k = 1; k < len; k++)
        total = {total.re + x[k].re, total.im + x[k].im};
    for (std::size_t k = 1; k <= pairs; k++) {
        const DoubleCplx a = x[k], b = x[len - k];
        x[k] = {a.re + b.re, a.im + b.im};
        x[len - k] = {a.re - b.re, a.im - b.im};
    }
    store(0, total);

    for (std::size_t m = 1; m <= len / 2; m++) {
        DoubleCplx even = x[0], odd{}; // odd: times i
        if (len % 2 == 0) {
            const double sign = m % 2 ? -1 : 1;
            even = {even.re + sign * x[len / 2].re, even.im + sign * x[len / 2].im};
        }
        std::size_t index = 0;
        for (std::size_t k = 1; k <= pairs; k++) {
            index += m;
            if (index >= len)
                index -= len;
            const double re = double(tw[index].re), im = double(tw[index].im);
            even.re += x[k].re * re;
            even.im += x[k].im * re;
            odd.re += x[len - k].re * im;
            odd.im += x[len - k].im * im;
        }
        store(m, {even.re - odd.im, even.im + odd.re});
        if (m != len - m)
            store(len - m, {even.re + odd.im, even.im - odd.re});
    }
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

    const auto count = std::size_t(len);
    const bool isSummed = len <= longestSummedDft;
    Workspace<double> space;
    const double* chirp = nullptr;
    if (!isSummed) {
        if (!obtainChirpSpace(len, space))
            return false;
        chirp = entry.fast.table<double>([=] { return chirpSize(len); },
                                         [&](double* table) { fillChirp(len, space, table); });
        if (!chirp)
            return false;
    }
    auto* const z =
        context().caches.working.spectrum.buffer<DoubleCplx>(isSummed ? count : std::size_t{1} << chirpOrder(len));
    if (!z)
        return false;
    for (std::size_t k = 0; k < count; k++)
        z[k] = {double(x[k].re), sign * double(x[k].im)};
    const auto store = [=](std::size_t m, DoubleCplx value) { y[m] = {R(value.re * scale), R(value.im * imScale)}; };
    if (isSummed) {
        summedDft(z, count, entry.table.built<C>(), store);
        return true;
    }
    chirpDft(z, len, chirp, space);
    for (std::size_t m = 0; m < count; m++)
        store(m, z[m]);
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
