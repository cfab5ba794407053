#include "frame/heap.hpp"
#include "frame/types.hpp"
#include "vector/scale.hpp"

#include <arkpx/transform.h>

#include <algorithm>

using namespace ark;

static constexpr Module here{"arkdftw"};

static void shortDft(Where at, const ShortCplx* in, ShortCplx* out, int length, int flags, Scaling scaling)
{
    if (!allGood(at, {{length <= 0, "length<=0"}}))
        return;
    if (flags & ARK_Init) {
        arkcDft(nullptr, nullptr, length, ARK_Init);
        return statusGood() ? void() : report(at, ARK_StatusBacktrace, "out arkcDft ARK_Init");
    }
    scaling.mode = std::max(scaling.mode, int{ARK_WRAP});
    if (!firstGood(at, {{!in, "inSamps==0"}, {!out, "outSamps==0"}}) || !scalingGood(at, scaling))
        return;
    Buffer<FloatCplx> samps{std::size_t(length)};
    if (!samps)
        return outOfMemory(at, "NULL Pointer");
    const std::ptrdiff_t parts = 2 * std::ptrdiff_t{length};
    shortToFloat(partsOf(in), partsOf(samps.data()), parts);
    arkcDft(samps.data(), samps.data(), length, flags);
    if (!statusGood())
        return report(at, ARK_StatusBacktrace, "out arkcDft calc. DFT");
    floatToShort(partsOf(samps.data()), partsOf(out), parts, clampedByDefault(scaling));
}

void arkvDft(const ShortCplx* inSamps, ShortCplx* outSamps, int length, int flags, int scaleMode, int* scaleFactor)
{
    shortDft(here(), inSamps, outSamps, length, flags, {scaleMode, scaleFactor});
}
