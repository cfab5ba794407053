#pragma once

#include <cstddef>

namespace ark {

struct DftPass {
    int radix; // 2, 3, 4, 5, 7, 8, 11 or 13; 1 alone for a length of 1; 0 behind the last pass
    int count; // the product of the radices that follow
};

// How a length is taken apart: rows by columns, each by passes. All computing is done in double precision.
struct DftPlan {
    int rows, columns;
    DftPass rowPasses[32], columnPasses[32];
    std::size_t columnFactors, middleFactors; // where they begin in the table
};

// The DFT of rows * columns elements, forward: dst[k] = sum over n of src[n] e^(-2 pi i n k / length), the imaginary
// parts of the source multiplied by sign, those of the result by imScale, the real ones by reScale. src and dst may
// overlap in any way, at any address that R allows.
//
// The table: for the passes of the rows, then for those of the columns, for every pass but the last the factors
// w_n^(j p), p = 1 ... count - 1, j = 1 ... radix - 1, n = radix count, as pairs; then
// w_length^(k n) for blocks of `lanes` columns, in each for every row k, W real parts and W imaginary ones. Lane l of a
// block belongs to its column dftLane(l, lanes); where the blocks do not fill the columns the last one overlaps the one
// before.
inline constexpr int longestShortDft = 36;

template <class R>
struct DftKernels {
    int lanes;
    std::size_t (*scratchSize)(const DftPlan& plan); // doubles
    void (*transform)(const R* src, R* dst, const DftPlan& plan, const double* table, double* scratch, double sign,
                      double reScale, double imScale);
    // The same of 1 ... 36 elements.
    void (*transformShort[longestShortDft])(const R* src, R* dst, double sign, double reScale, double imScale);
};

constexpr int dftLane(int lane, int lanes) { return lane % 2 * (lanes / 2) + lane / 2; }

} // namespace ark
