// How far a floating-point result is off.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

// In units of the last place of a T of the expected value's size. 0 for equal infinities and where neither is a number.
template <class T>
double ulpsOff(T got, long double expected)
{
    using Limits = std::numeric_limits<T>;
    const T nearest = T(expected);
    if (std::isnan(nearest) || std::isnan(got))
        return std::isnan(nearest) && std::isnan(got) ? 0 : Limits::infinity();
    if (std::isinf(nearest) || std::isinf(got))
        return nearest == got ? 0 : Limits::infinity();
    int exponent = 0;
    std::frexp(expected, &exponent);
    const int last = std::max(exponent, Limits::min_exponent) - Limits::digits;
    return double(std::ldexp(std::fabs(static_cast<long double>(got) - expected), -last));
}

// The same bits, or both not numbers: tells zeros apart.
template <class T>
bool same(T a, T b)
{
    return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b);
}
