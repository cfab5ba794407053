// Convolution of 16-bit vectors: computed in single precision, rounded, scaled.
#pragma once

#include "convolve/convolve.hpp"
#include "vector/scale.hpp"

#include <arkpx/convolve.h>

namespace ark {

inline void shortConvolve(Where at, const short* x, int xLen, const short* h, int hLen, short* y, Scaling scaling)
{
    if (!convArgumentsGood(at, x, xLen, h, hLen, y) || !scalingGood(at, scaling))
        return;
    const auto widened = [](const short* src, int len) {
        Buffer<float> copy{std::size_t(len)};
        if (copy)
            shortToFloat(src, copy.data(), len);
        return copy;
    };
    const std::ptrdiff_t outputs = std::ptrdiff_t{xLen} - 1 + hLen;
    const Buffer<float> wideX = widened(x, xLen);
    if (!wideX)
        return outOfMemory(at, "NULL pointer to float copy x");
    const Buffer<float> wideH = widened(h, hLen);
    if (!wideH)
        return outOfMemory(at, "NULL pointer to float copy h");
    Buffer<float> wideY{std::size_t(outputs)};
    if (!wideY)
        return outOfMemory(at, "NULL pointer to float copy y");
    arksConv(wideX.data(), xLen, wideH.data(), hLen, wideY.data());
    if (!statusGood())
        return backtrace(at);
    floatToShort(wideY.data(), y, outputs, scaling);
}

} // namespace ark
