// What the choice between direct sums and transforms is made by: tables of measured timings.
//
// Those of s and the direct limits of s, d and c are fixed: with them, and the formulas of convolve.hpp, the way that a
// convolution takes is part of the interface. The others come from tools/measure_convolution.cpp, which prints them in
// this form; run on Zen 4, 3.7 GHz, AVX-512. Only ratios matter: an error in scale changes no choice.
#pragma once

#include "frame/types.hpp"

namespace ark {

// Of transforms of 2^p elements: of one transform, and of one block's spectrum product and everything beside it.
inline constexpr int costOrders = 33;
struct ConvCosts {
    float fft[costOrders], mul[costOrders];
};

// Direct sums serve every n <= always, and n < below when the longer operand has fewer than limits[n - always - 1]
// elements.
struct DirectRule {
    int always, below;
    const int* limits;
};

// clang-format off
inline constexpr ConvCosts realFloatCosts{
    {
     8.39233e-07f, 6.29425e-06f, 1.96838e-05f, 4.02832e-05f, 8.39233e-05f, 0.000195313f, 0.00043457f, 0.00100342f,
     0.00222168f, 0.00488281f, 0.0108203f, 0.0233984f, 0.0522656f, 0.113125f, 0.241875f, 0.5225f, 1.16625f, 3.2275f,
     6.84f, 16.96f, 42.0529f, 104.271f, 258.544f, 641.069f, 1589.55f, 3941.34f, 9772.69f, 24231.7f, 60083.3f,
     148978.0f, 369397.0f, 915931.0f, 2271080.0f},
    {
     2.93732e-06f, 7.97272e-06f, 2.34222e-05f, 4.95911e-05f, 0.000105591f, 0.000238037f, 0.000535889f, 0.0011792f,
     0.00260254f, 0.005625f, 0.0123242f, 0.0267969f, 0.05875f, 0.125313f, 0.269062f, 0.57f, 1.26375f, 3.3925f, 7.14f,
     17.14f, 42.4992f, 105.378f, 261.288f, 647.873f, 1606.42f, 3983.17f, 9876.41f, 24488.9f, 60720.9f, 150560.0f,
     373317.0f, 925652.0f, 2295180.0f}};

inline constexpr int realLimits[] = { // n = 21 ... 101
    37905, 15889, 3737, 2233, 1769, 1533, 1300, 1262, 1065, 1031, 843, 819, 794, 636, 475, 462, 447, 437, 416, 416,
    406, 281, 275, 268, 261, 257, 251, 246, 241, 207, 203, 200, 195, 192, 187, 185, 180, 178, 175, 173, 169, 167, 164,
    161, 159, 156, 153, 152, 150, 148, 146, 143, 141, 139, 137, 136, 133, 132, 129, 129, 128, 125, 124, 123, 121, 120,
    118, 117, 115, 114, 112, 111, 110, 110, 108, 106, 105, 105, 104, 103, 102};
inline constexpr int cplxFloatLimits[] = { // n = 13 ... 46
    3662, 984, 425, 361, 297, 245, 229, 152, 105, 101, 96, 92, 89, 85, 81, 79, 75, 74, 71, 69, 67, 65, 63, 61, 59, 58,
    56, 55, 53, 53, 51, 50, 49, 48};

inline constexpr DirectRule realRule{20, 102, realLimits}, cplxFloatRule{12, 47, cplxFloatLimits};
// MEASURED
inline constexpr const ConvCosts &realDoubleCosts = realFloatCosts, &cplxFloatCosts = realFloatCosts, &cplxDoubleCosts = realFloatCosts;
inline constexpr const DirectRule &cplxDoubleRule = cplxFloatRule, &mixedFloatRule = cplxFloatRule, &mixedDoubleRule = cplxFloatRule;
// clang-format on

} // namespace ark
