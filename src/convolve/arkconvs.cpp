#include "convolve/convolve.hpp"

#include <arkpx/convolve.h>

using namespace ark;

static constexpr Module here{"arkconvs"};

// clang-format off
void arksConv (const float* x, int xLen, const float* h, int hLen, float* y)             { convolve(here(), {"arksConv0", "arksConv1"}, x, xLen, h, hLen, y); }
void arkcConv (const FloatCplx* x, int xLen, const FloatCplx* h, int hLen, FloatCplx* y) { convolve(here(), {"arkcConv0", "arkcConv1"}, x, xLen, h, hLen, y); }
void arkscConv(const float* x, int xLen, const FloatCplx* h, int hLen, FloatCplx* y)     { convolve(here(), {"arkscConv0", "arkscConv1"}, x, xLen, h, hLen, y); }
void arkcsConv(const FloatCplx* x, int xLen, const float* h, int hLen, FloatCplx* y)     { convolve(here(), {"arkcsConv0", "arkcsConv1"}, x, xLen, h, hLen, y); }
// clang-format on
