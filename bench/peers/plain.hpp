// The peer that needs no library: the loop that one would write, at -O3 for the processor that the peers are compiled
// for. It exists with the promise that the arrays do not overlap and without: the faster one counts.
#pragma once

#include "driver.hpp"

namespace bench::plain {

template <class Work, class Dst, class... Src>
void loop(Work work, int n, Dst* dst, const Src*... src)
{
    for (int i = 0; i < n; i++)
        dst[i] = work(src[i]...);
}

template <class Work, class Dst, class... Src>
void loopApart(Work work, int n, Dst* __restrict dst, const Src* __restrict... src)
{
    for (int i = 0; i < n; i++)
        dst[i] = work(src[i]...);
}

// dst[i] = work(src[i]...)
template <class Work, class Dst, class... Src>
void each(Work work, int n, const Array<Dst>& dst, const Array<Src>&... src)
{
    loop(work, n, dst.data(), static_cast<const Src*>(src.data())...);
}
template <class Work, class Dst, class... Src>
void eachApart(Work work, int n, const Array<Dst>& dst, const Array<Src>&... src)
{
    loopApart(work, n, dst.data(), static_cast<const Src*>(src.data())...);
}

} // namespace bench::plain
