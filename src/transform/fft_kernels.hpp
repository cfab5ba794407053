#pragma once

#include <cstddef>

namespace ark {

// A complex vector: two arrays of parts. In an interleaved one im is re + 1 and the parts of neighbours are 2 apart;
// else the arrays are separate and the parts are adjacent.
template <class R>
struct FftVector {
    R* re;
    R* im;
};

enum FftLayout { interleaved, separate, fftLayouts };
enum FftOrder { naturalOrder, bitReversedInput, bitReversedOutput, fftOrders };

// The complex transform of N = 2^order elements, order 1 to 31: dst[k] = scale * sum over n of src[n] e^(-+2 pi i n k /
// N).
template <class R>
struct FftKernels {
    // What one order needs, in reals: a table, filled once and the same for both directions and all layouts and orders,
    // and scratch for the duration of a call. Both aligned to 64 bytes.
    std::size_t (*tableSize)(int order);
    void (*fillTable)(int order, R* table);
    std::size_t (*scratchSize)(int order);

    // dst may be src; otherwise they do not overlap. Any address that R allows. scale is a power of two.
    using Transform = void (*)(FftVector<const R> src, FftVector<R> dst, int order, const R* table, R* scratch,
                               R scale);
    struct Directions {
        Transform forward, inverse;
    };
    Directions transform[fftLayouts][fftOrders];
};

} // namespace ark
