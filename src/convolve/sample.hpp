// Up- and down-sampling.
#pragma once

#include "frame/report.hpp"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ark {

inline bool goodSampling(Where at, const void* src, int srcLen, const void* dst, const int* dstLen, int factor,
                         const int* phase, bool tooLong)
{
    return firstGood(at, {{srcLen < 1, "Invalid src array length"},
                          {!src || !dst, "Null buffer pointer"},
                          {!dstLen, "Null dstLen pointer"},
                          {!phase, "Null phase pointer"},
                          {factor < 1, "Invalid factor value"},
                          {phase && *phase < 0, "Invalid phase value"},
                          {phase && factor <= *phase, "Invalid factor value"},
                          {tooLong, "Invalid factor value"}});
}

// From the end backwards: src may be the beginning of dst.
template <class T>
void upSample(Where at, const T* src, int srcLen, T* dst, int* dstLen, int factor, const int* phase)
{
    const std::int64_t len = std::int64_t{srcLen} * factor;
    if (!goodSampling(at, src, srcLen, dst, dstLen, factor, phase, len > INT_MAX))
        return;
    *dstLen = int(len);
    if (factor == 1) {
        if (dst != src)
            std::memmove(dst, src, std::size_t(srcLen) * sizeof(T));
        return;
    }
    T* end = dst + len;
    for (std::ptrdiff_t k = srcLen; k-- > 0;) {
        const T sample = src[k];
        T* const period = end - factor;
        std::fill(period, end, T{});
        period[*phase] = sample;
        end = period;
    }
}

template <class T>
void downSample(Where at, const T* src, int srcLen, T* dst, int* dstLen, int factor, int* phase)
{
    if (!goodSampling(at, src, srcLen, dst, dstLen, factor, phase, false))
        return;
    if (factor == 1) {
        if (dst != src)
            std::memmove(dst, src, std::size_t(srcLen) * sizeof(T));
        *dstLen = srcLen;
        return;
    }
    std::int64_t next = *phase;
    int taken = 0;
    for (; next < srcLen; next += factor)
        dst[taken++] = src[next];
    *dstLen = taken;
    *phase = int(next - srcLen);
}

} // namespace ark
