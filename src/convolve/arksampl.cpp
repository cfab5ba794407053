#include "convolve/sample.hpp"

#include <arkpx/convolve.h>

using namespace ark;

static constexpr Module here{"arksampl"};

// clang-format off
void arksUpSample(const float* src, int srcLen, float* dst, int* dstLen, int factor, int* phase)           { upSample(here(), src, srcLen, dst, dstLen, factor, phase); }
void arkdUpSample(const double* src, int srcLen, double* dst, int* dstLen, int factor, int* phase)         { upSample(here(), src, srcLen, dst, dstLen, factor, phase); }
void arkcUpSample(const FloatCplx* src, int srcLen, FloatCplx* dst, int* dstLen, int factor, int* phase)   { upSample(here(), src, srcLen, dst, dstLen, factor, phase); }
void arkzUpSample(const DoubleCplx* src, int srcLen, DoubleCplx* dst, int* dstLen, int factor, int* phase) { upSample(here(), src, srcLen, dst, dstLen, factor, phase); }
void arkwUpSample(const short* src, int srcLen, short* dst, int* dstLen, int factor, int* phase)           { upSample(here(), src, srcLen, dst, dstLen, factor, phase); }
void arkvUpSample(const ShortCplx* src, int srcLen, ShortCplx* dst, int* dstLen, int factor, int* phase)   { upSample(here(), src, srcLen, dst, dstLen, factor, phase); }

void arksDownSample(const float* src, int srcLen, float* dst, int* dstLen, int factor, int* phase)           { downSample(here(), src, srcLen, dst, dstLen, factor, phase); }
void arkdDownSample(const double* src, int srcLen, double* dst, int* dstLen, int factor, int* phase)         { downSample(here(), src, srcLen, dst, dstLen, factor, phase); }
void arkcDownSample(const FloatCplx* src, int srcLen, FloatCplx* dst, int* dstLen, int factor, int* phase)   { downSample(here(), src, srcLen, dst, dstLen, factor, phase); }
void arkzDownSample(const DoubleCplx* src, int srcLen, DoubleCplx* dst, int* dstLen, int factor, int* phase) { downSample(here(), src, srcLen, dst, dstLen, factor, phase); }
void arkwDownSample(const short* src, int srcLen, short* dst, int* dstLen, int factor, int* phase)           { downSample(here(), src, srcLen, dst, dstLen, factor, phase); }
void arkvDownSample(const ShortCplx* src, int srcLen, ShortCplx* dst, int* dstLen, int factor, int* phase)   { downSample(here(), src, srcLen, dst, dstLen, factor, phase); }
// clang-format on
