#pragma once

#include <cstddef>

namespace ark {

enum Rounding { roundNearest, roundZero, roundDown, roundUp, roundings };

template <class Real>
struct ConvertKernels {
    // True when an element was out of range: stored as the nearer bound (0 when not a number) when saturating, else
    // left as it was. dst may be src when the integers are no wider than the floats.
    using ToInt = bool (*)(const Real* src, void* dst, std::ptrdiff_t n, bool saturate);

    // dst may be src when the integers are no wider than the floats.
    using FromInt = void (*)(const void* src, Real* dst, std::ptrdiff_t n);

    struct Integer {
        ToInt toInt[roundings];
        FromInt fromInt;
    };
    Integer integers[3][2]; // width 8, 16, 32 bits; signed, unsigned
};

} // namespace ark
