// What the choice between direct sums and transforms is made by: tables of measured timings.
//
// The costs of float and the direct limits of float, double and FloatCplx are fixed: with them, and the formulas of
// convolve.hpp, the way that such a convolution takes is part of the interface. The others come from
// tools/measure_convolution.cpp, which prints them in this form; run at 3.7 GHz with AVX-512. Only ratios matter: an
// error in scale changes no choice.
#pragma once

#include <cstddef>

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

// Measured by the tool; in milliseconds up to order 21, growing as p 2^p beyond.
inline constexpr ConvCosts realDoubleCosts{
    {3.954e-07f, 7.909e-07f, 1.316e-05f, 1.639e-05f, 1.937e-05f, 2.359e-05f, 3.020e-05f, 5.798e-05f, 9.781e-05f,
    1.940e-04f, 3.931e-04f, 9.590e-04f, 2.063e-03f, 3.931e-03f, 9.134e-03f, 2.350e-02f, 5.494e-02f, 1.289e-01f,
    4.361e-01f, 9.099e-01f, 2.808e+00f, 6.756e+00f, 1.416e+01f, 2.960e+01f, 6.177e+01f, 1.287e+02f, 2.677e+02f,
    5.559e+02f, 1.153e+03f, 2.388e+03f, 4.942e+03f, 1.021e+04f, 2.108e+04f},
    {2.621e-06f, 5.242e-06f, 2.883e-05f, 2.743e-05f, 4.202e-05f, 4.905e-05f, 6.424e-05f, 9.592e-05f, 1.379e-04f,
    2.817e-04f, 5.739e-04f, 1.329e-03f, 2.859e-03f, 6.209e-03f, 1.162e-02f, 2.774e-02f, 7.722e-02f, 1.649e-01f,
    5.025e-01f, 1.068e+00f, 2.886e+00f, 7.666e+00f, 1.606e+01f, 3.358e+01f, 7.009e+01f, 1.460e+02f, 3.037e+02f,
    6.308e+02f, 1.308e+03f, 2.710e+03f, 5.607e+03f, 1.159e+04f, 2.392e+04f}};
inline constexpr ConvCosts cplxFloatCosts{
    {1.328e-06f, 2.655e-06f, 3.511e-06f, 7.218e-06f, 1.179e-05f, 1.792e-05f, 2.449e-05f, 4.108e-05f, 8.184e-05f,
    1.565e-04f, 3.706e-04f, 8.550e-04f, 1.838e-03f, 4.422e-03f, 9.714e-03f, 2.280e-02f, 5.254e-02f, 1.717e-01f,
    3.370e-01f, 8.429e-01f, 2.244e+00f, 5.522e+00f, 1.157e+01f, 2.419e+01f, 5.049e+01f, 1.052e+02f, 2.188e+02f,
    4.544e+02f, 9.424e+02f, 1.952e+03f, 4.039e+03f, 8.347e+03f, 1.723e+04f},
    {6.983e-06f, 1.397e-05f, 2.281e-05f, 2.163e-05f, 2.770e-05f, 3.388e-05f, 4.287e-05f, 7.753e-05f, 1.253e-04f,
    2.695e-04f, 5.207e-04f, 1.129e-03f, 2.504e-03f, 5.859e-03f, 1.267e-02f, 2.920e-02f, 6.357e-02f, 1.974e-01f,
    4.430e-01f, 1.072e+00f, 3.149e+00f, 7.635e+00f, 1.600e+01f, 3.345e+01f, 6.981e+01f, 1.454e+02f, 3.025e+02f,
    6.283e+02f, 1.303e+03f, 2.699e+03f, 5.584e+03f, 1.154e+04f, 2.383e+04f}};
inline constexpr ConvCosts cplxDoubleCosts{
    {1.315e-06f, 2.631e-06f, 3.462e-06f, 7.198e-06f, 1.082e-05f, 2.120e-05f, 3.305e-05f, 7.277e-05f, 1.479e-04f,
    3.530e-04f, 7.311e-04f, 1.750e-03f, 3.821e-03f, 7.872e-03f, 1.818e-02f, 4.355e-02f, 1.074e-01f, 4.071e-01f,
    8.519e-01f, 2.231e+00f, 5.488e+00f, 1.312e+01f, 2.749e+01f, 5.747e+01f, 1.199e+02f, 2.499e+02f, 5.198e+02f,
    1.080e+03f, 2.239e+03f, 4.638e+03f, 9.596e+03f, 1.983e+04f, 4.094e+04f},
    {1.007e-05f, 2.014e-05f, 1.440e-05f, 2.335e-05f, 3.102e-05f, 4.092e-05f, 7.198e-05f, 1.202e-04f, 2.141e-04f,
    4.262e-04f, 9.915e-04f, 2.221e-03f, 5.498e-03f, 1.102e-02f, 2.403e-02f, 6.053e-02f, 1.489e-01f, 4.852e-01f,
    1.092e+00f, 2.931e+00f, 7.352e+00f, 1.518e+01f, 3.181e+01f, 6.651e+01f, 1.388e+02f, 2.892e+02f, 6.015e+02f,
    1.249e+03f, 2.591e+03f, 5.367e+03f, 1.110e+04f, 2.295e+04f, 4.738e+04f}};
inline constexpr int cplxDoubleLimits[] = { // n = 16 ... 40
    513, 513, 498, 397, 397, 372, 249, 247, 247, 153, 153, 58, 58, 58, 58, 58, 55, 53, 49, 48, 46, 46, 44, 43, 42};
inline constexpr DirectRule cplxDoubleRule{15, 41, cplxDoubleLimits};
inline constexpr int mixedFloatLimits[] = { // n = 32 ... 79
    1824, 1025, 1013, 1001, 989, 793, 793, 793, 793, 793, 793, 793, 298, 168, 165, 144, 120, 120, 114, 114, 114, 114,
    114, 114, 114, 114, 114, 114, 114, 111, 108, 103, 100, 99, 96, 96, 94, 93, 92, 91, 90, 89, 88, 87, 86, 85, 84, 81};
inline constexpr DirectRule mixedFloatRule{31, 80, mixedFloatLimits};
inline constexpr int mixedDoubleLimits[] = { // n = 31 ... 85
    2364, 992, 801, 769, 547, 547, 547, 422, 422, 422, 265, 234, 234, 234, 234, 234, 234, 144, 144, 114, 114, 114, 114,
    114, 114, 114, 114, 114, 114, 114, 114, 114, 113, 112, 106, 106, 99, 99, 99, 99, 99, 99, 99, 99, 99, 97, 97, 95, 94,
    93, 91, 90, 90, 89, 88};
inline constexpr DirectRule mixedDoubleRule{30, 86, mixedDoubleLimits};
// clang-format on

template <std::size_t count>
constexpr bool covers(const DirectRule& rule, const int (&limits)[count])
{
    return rule.limits == limits && rule.below - rule.always - 1 == int(count);
}
static_assert(covers(realRule, realLimits) && covers(cplxFloatRule, cplxFloatLimits) &&
              covers(cplxDoubleRule, cplxDoubleLimits) && covers(mixedFloatRule, mixedFloatLimits) &&
              covers(mixedDoubleRule, mixedDoubleLimits));

} // namespace ark
