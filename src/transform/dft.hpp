// The DFT of any length, summed.
#pragma once

#include "frame/heap.hpp"
#include "frame/report.hpp"
#include "frame/types.hpp"

#include <arkpx/transform.h>

#include <cstddef>

namespace ark {

inline FloatCplx* dftTwiddles(const FloatCplx*, int len) { return arkcGetDftTwdTbl(len); }
inline DoubleCplx* dftTwiddles(const DoubleCplx*, int len) { return arkzGetDftTwdTbl(len); }

// y = scale * DFT of x, in which the elements k and len - k are folded into their sum and their difference: the sums meet
// the cosines only, the differences the sines only, and y[m] and y[len - m] are the sum and the difference of the same two
// sums. tw[k] = e^(-2 pi i k / len).
template <class C>
void dft(DoubleCplx* x, C* y, std::size_t len, const C* tw, bool inverse, double scale)
{
    using R = Real<C>;
    const auto store = [=](std::size_t m, DoubleCplx value) { y[m] = {R(value.re * scale), R(value.im * scale)}; };
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
        const DoubleCplx forward{even.re - odd.im, even.im + odd.re}, backward{even.re + odd.im, even.im - odd.re};
        store(m, inverse ? backward : forward);
        if (m != len - m)
            store(len - m, inverse ? forward : backward);
    }
}

template <class C>
void dft(Where at, const C* x, C* y, int len, int flags)
{
    if (!statusGood())
        return;
    const C* const tw = dftTwiddles(x, len);
    if (!allGood(at, {{len <= 0, "len<=0"}, {!tw, "tw==0"}}) || (flags & ARK_Init) ||
        !firstGood(at, {{!x, "x==0"},
                        {!y, "y==0"},
                        {!(flags & ARK_Forw) == !(flags & ARK_Inv), "ARK_Forw or ARK_Inv must be as a flag"}}))
        return;
    const auto count = std::size_t(len);
    Buffer<DoubleCplx> copy{count};
    if (!copy)
        return outOfMemory(at, "NULL Pointer");
    for (std::size_t k = 0; k < count; k++)
        copy[k] = {double(x[k].re), double(x[k].im)};
    const bool inverse = (flags & ARK_Inv) != 0;
    dft(copy.data(), y, count, tw, inverse, inverse && !(flags & ARK_NoScale) ? 1 / double(len) : 1);
}

} // namespace ark
