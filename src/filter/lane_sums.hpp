// Sums over the lanes of a register.
#pragma once

#include "frame/simd.hpp"

namespace ark::ARK_SET {

template <int distance>
constexpr int rotated(int lane, int lanes)
{
    return (lane + distance) % lanes;
}

// Lanes 0 and 1 become the sums of the even and of the odd ones.
ARK_INLINE Vec<double> sumOfPairs(Vec<double> v)
{
    if constexpr (lanes<double> >= 8)
        v += permute<rotated<lanes<double> / 2>>(v);
    if constexpr (lanes<double> >= 4)
        v += permute<rotated<2>>(v);
    return v;
}

ARK_INLINE double sumOf(Vec<double> v)
{
    v = sumOfPairs(v);
    return v[0] + v[1];
}

} // namespace ark::ARK_SET
