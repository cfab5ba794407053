// The errors of results, against values in long double.
#pragma once

#include "driver.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace bench {

// The greatest error of n numbers in units in the last place of what they should be: wanted(i), a long double.
template <class R, class Wanted>
std::function<Error()> worstUlps(Array<R> got, int n, Wanted wanted)
{
    return [=] {
        long double worst = 0;
        for (int i = 0; i < n; i++) {
            const long double value = wanted(i);
            const int exponent = std::max(std::ilogb(value), std::numeric_limits<R>::min_exponent - 1);
            const long double ulp = std::scalbn(1.0L, exponent - std::numeric_limits<R>::digits + 1);
            worst = std::max(worst, std::fabs(got[i] - value) / ulp);
        }
        return Error{double(worst), " ulp"};
    };
}

// The distance of count numbers from what they should be, relative to that, in root mean squares. makeWanted() is
// called when first asked for and makes the vector of those.
template <class R, class MakeWanted>
std::function<Error()> relativeError(const R* got, int count, MakeWanted makeWanted)
{
    const auto wanted = std::make_shared<std::vector<long double>>();
    return [=] {
        if (wanted->empty())
            *wanted = makeWanted();
        long double difference = 0, whole = 0;
        for (int i = 0; i < count; i++) {
            const long double value = (*wanted)[std::size_t(i)];
            difference += (got[i] - value) * (got[i] - value);
            whole += value * value;
        }
        return Error{double(std::sqrt(difference / whole)), ""};
    };
}

} // namespace bench
