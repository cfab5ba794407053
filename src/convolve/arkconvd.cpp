#include "convolve/convolve.hpp"

#include <arkpx/convolve.h>

using namespace ark;

static constexpr Module here{"arkconvd"};

// clang-format off
void arkdConv (const double* x, int xLen, const double* h, int hLen, double* y)             { convolve(here(), {"arkdConv0", "arkdConv1"}, x, xLen, h, hLen, y); }
void arkzConv (const DoubleCplx* x, int xLen, const DoubleCplx* h, int hLen, DoubleCplx* y) { convolve(here(), {"arkzConv0", "arkzConv1"}, x, xLen, h, hLen, y); }
void arkdzConv(const double* x, int xLen, const DoubleCplx* h, int hLen, DoubleCplx* y)     { convolve(here(), {"arkdzConv0", "arkdzConv1"}, x, xLen, h, hLen, y); }
void arkzdConv(const DoubleCplx* x, int xLen, const double* h, int hLen, DoubleCplx* y)     { convolve(here(), {"arkzdConv0", "arkzdConv1"}, x, xLen, h, hLen, y); }
// clang-format on
