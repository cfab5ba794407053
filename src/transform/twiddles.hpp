// The public twiddle tables and their caches.
#pragma once

#include "frame/report.hpp"
#include "frame/types.hpp"

#include <cmath>
#include <cstddef>

namespace ark {

template <class R>
R twiddlePart(long double value)
{
    return R(value);
}
template <>
inline short twiddlePart<short>(long double value)
{
    return short(16384 * value); // toward zero
}

// tbl[k] = e^(-2 pi i k / length). The step is a double; angle, cosine and sine are wider.
template <class T>
void fillTwiddles(T* tbl, std::size_t length)
{
    const double step = 6.283185307179586 / double(length);
    for (std::size_t k = 0; k < length; k++) {
        const long double angle = static_cast<long double>(k) * step;
        tbl[k] = {twiddlePart<Real<T>>(std::cos(angle)), twiddlePart<Real<T>>(-std::sin(angle))};
    }
}

template <class T>
void calcDftTwiddles(Where at, T* tbl, int length)
{
    if (allGood(at, {{length <= 0, "length<=0"}, {!tbl, "tbl==0"}}))
        fillTwiddles(tbl, std::size_t(length));
}

template <class T>
void calcFftTwiddles(Where at, T* tbl, int order)
{
    if (allGood(at, {{order < 0, "order<0"}, {order >= orders, "order>31"}, {!tbl, "tbl==0"}}))
        fillTwiddles(tbl, std::size_t{1} << order);
}

template <class T>
T* cachedTwiddles(Where at, Slot& slot, std::size_t length)
{
    T* const table = slot.table<T>([=] { return length; }, [=](T* tbl) { fillTwiddles(tbl, length); });
    if (!table)
        outOfMemory(at, "NULL Pointer");
    return table;
}

template <class T>
T* getFftTwiddles(Where at, TwiddleTables& tables, int order)
{
    if (!allGood(at, {{order < 0, "order<0"}, {order >= orders, "order>31"}}))
        return nullptr;
    return cachedTwiddles<T>(at, tables.fft[order], std::size_t{1} << order);
}

template <class T>
T* getDftTwiddles(Where at, TwiddleTables& tables, int length)
{
    if (!allGood(at, {{length <= 0, "length<=0"}}))
        return nullptr;
    int i = 0;
    while (i < tables.dftCount && tables.dft[i].length != length)
        i++;
    if (i == dftTwdCapacity) {
        outOfMemory(at, "Full Table");
        return nullptr;
    }
    T* const table = cachedTwiddles<T>(at, tables.dft[i].table, std::size_t(length));
    if (table && i == tables.dftCount) {
        tables.dft[i].length = length;
        tables.dftCount++;
    }
    return table;
}

} // namespace ark
