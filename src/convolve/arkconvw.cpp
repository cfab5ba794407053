#include "convolve/shortconv.hpp"

#include <arkpx/convolve.h>

using namespace ark;

static constexpr Module here{"arkconvw"};

void arkwConv(const short* x, int xLen, const short* h, int hLen, short* y, int scaleMode, int* scaleFactor)
{
    shortConvolve(here(), x, xLen, h, hLen, y, {scaleMode, scaleFactor});
}
