#pragma once

#include <cstddef>

namespace ark {

struct GaussKernels {
    // factors[i] = sqrt(-2 ln(squares[i]) / squares[i]), 0 < squares[i] < 1
    void (*factors)(const double* squares, double* factors, std::ptrdiff_t n);
};

} // namespace ark
