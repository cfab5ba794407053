// IIR filters in the caller's memory.
#pragma once

#include "filter/iir.hpp"
#include "frame/platform.hpp"
#include "frame/report.hpp"
#include "vector/scale.hpp"

#include <climits>
#include <cmath>
#include <cstring>

namespace ark {

inline constexpr const char* noIirMemory = "insufficiency of memory for IIR filter state";
inline constexpr const char* badIirType = "iirType is out of range";

inline bool isIirType(int iirType) { return iirType == 0 || iirType == 1; }

// ---- normalisation ----

template <int count>
bool isZero(Number<double, count> x)
{
    if constexpr (count == 2)
        return x.re == 0 && x.im == 0;
    else
        return x.re == 0;
}

inline Number<double, 1> quotient(Number<double, 1> a, Number<double, 1> b) { return {a.re / b.re}; }

// Both are scaled to magnitudes about 1, so that neither products nor squares leave the range of double.
inline Number<double, 2> quotient(Number<double, 2> a, Number<double, 2> b)
{
    const auto scaled = [](Number<double, 2>& x) {
        int exponent;
        std::frexp(std::fmax(std::fabs(x.re), std::fabs(x.im)), &exponent);
        x = {std::ldexp(x.re, -exponent), std::ldexp(x.im, -exponent)};
        return exponent;
    };
    const int exponent = scaled(a) - scaled(b);
    const double norm = b.re * b.re + b.im * b.im;
    return {std::ldexp((a.re * b.re + a.im * b.im) / norm, exponent),
            std::ldexp((a.im * b.re - a.re * b.im) / norm, exponent)};
}

template <class Taps>
void iirlInit(Where at, int iirType, Taps* taps, int order, IirlTapState* tapStPtr)
{
    if (!allGood(at, {{!tapStPtr, "tapStPtr==0"},
                      {!taps, "taps==0"},
                      {order < 0, "order < 0"},
                      {!isIirType(iirType), badIirType}}))
        return;
    const auto coef = [=](std::ptrdiff_t i) { return widened<parts<Taps>>(taps[i]); };
    const std::ptrdiff_t n = order;
    const auto a0 = coef(n + 1);
    if (isZero(a0))
        return badArgument(at, "taps[order+1] equals zero");
    for (std::ptrdiff_t i = 0; i <= n; i++)
        taps[i] = narrowed<Taps>(quotient(coef(i), a0));
    for (std::ptrdiff_t i = 1; i <= n; i++)
        taps[n + i] = narrowed<Taps>(quotient(coef(n + 1 + i), a0));
    *tapStPtr = {order, taps, iirType, 0};
}

template <class Taps>
void iirlInitBq(Where at, int iirType, Taps* taps, int numQuads, IirlTapState* tapStPtr)
{
    if (!allGood(at, {{!tapStPtr, "tapStPtr==0"},
                      {!taps, "taps==0"},
                      {numQuads <= 0, "numQuads <= 0"},
                      {!isIirType(iirType), badIirType}}))
        return;
    if (numQuads > INT_MAX / 2)
        return outOfMemory(at, noIirMemory);
    Number<double, parts<Taps>> gain{};
    gain.re = 1;
    for (int i = 0; i < numQuads; i++) {
        Number<double, parts<Taps>> section[6]; // b0 b1 b2 a0 a1 a2
        for (int k = 0; k < 6; k++)
            section[k] = widened<parts<Taps>>(taps[std::ptrdiff_t{i} * 6 + k]);
        const auto b0 = section[0], a0 = section[3];
        if (isZero(b0) || isZero(a0)) {
            char message[48];
            platform::formatText(message, isZero(b0) ? "taps[%d*6] equals zero" : "taps[%d*6+3] equals zero", i);
            return badArgument(at, message);
        }
        gain = gain * quotient(b0, a0);
        Taps* const normalised = taps + 1 + std::ptrdiff_t{i} * 4;
        normalised[0] = narrowed<Taps>(quotient(section[4], a0));
        normalised[1] = narrowed<Taps>(quotient(section[5], a0));
        normalised[2] = narrowed<Taps>(quotient(section[1], b0));
        normalised[3] = narrowed<Taps>(quotient(section[2], b0));
    }
    taps[0] = narrowed<Taps>(gain);
    *tapStPtr = {2 * numQuads, taps, iirType, 1};
}

// ---- delay line ----

inline Check tapsNotInitialised(const IirlTapState* tapStPtr)
{
    const bool initialised = tapStPtr->taps && (tapStPtr->isBiquad == 0 || tapStPtr->isBiquad == 1);
    return {!initialised, "structure *tapStPtr wasn't initialized"};
}

template <class Element>
void iirlInitDlyl(Where at, const IirlTapState* tapStPtr, Element* dlyl, IirlDlyState* dlyStPtr)
{
    if (!allGood(at, {{!tapStPtr, "tapStPtr==0"}, {!dlyStPtr, "dlyStPtr==0"}}) ||
        !allGood(at, {tapsNotInitialised(tapStPtr), Check{tapStPtr->order > 0 && !dlyl, "dlyl==0"}}))
        return;
    dlyStPtr->dlyl = dlyl;
    for (std::ptrdiff_t i = 0; i < tapStPtr->order; i++)
        dlyl[i] = Element{};
}

// ---- filtering ----

template <class... More>
bool bothInitialised(Where at, const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, More... more)
{
    return allGood(at,
                   {tapsNotInitialised(tapStPtr),
                    Check{tapStPtr->order > 0 && !dlyStPtr->dlyl, "structure *dlyStPtr wasn't initialized"}, more...});
}

inline Check twoScales(Scaling scaling)
{
    return {(scaling.mode & ARK_FIXED_SCALE) && (scaling.mode & ARK_AUTO_SCALE), "ARK_FIXED_SCALE and ARK_AUTO_SCALE"};
}
inline Check noFactor(Scaling scaling)
{
    return {(scaling.mode & ARK_AUTO_SCALE) && !scaling.factor, "ARK_AUTO_SCALE and scaleFactor==NULL"};
}

template <class Taps, class Data>
auto iirl(Where at, const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, Data sample)
{
    using Filter = IirFilter<Taps, Data>;
    if (!allGood(at, {{!tapStPtr, "tapStPtr==0"}, {!dlyStPtr, "dlyStPtr==0"}}) ||
        !bothInitialised(at, tapStPtr, dlyStPtr))
        return typename Filter::Element{};
    return narrowed<typename Filter::Element>(Filter{*tapStPtr, *dlyStPtr}.filterOne(sample));
}

template <class Taps, class Data, class Element>
void iirlBlock(Where at, const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const Data* inSamps,
               Element* outSamps, int numIters)
{
    if (!allGood(at, {{!tapStPtr, "tapStPtr==0"},
                      {!dlyStPtr, "dlyStPtr==0"},
                      {!inSamps, "inSamps==0"},
                      {!outSamps, "outSamps==0"}}) ||
        !bothInitialised(at, tapStPtr, dlyStPtr, Check{numIters < 0, "numIters < 0"}))
        return;
    IirFilter<Taps, Data>{*tapStPtr, *dlyStPtr}.filter(
        inSamps, numIters, [=](const double* const* results, std::ptrdiff_t first, std::ptrdiff_t count) {
            iirData<Element>().store(results, outSamps + first, count);
        });
}

// ---- 16-bit data ----

template <class Taps>
short iirl(Where at, const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, short sample, int scaleMode,
           int* scaleFactor)
{
    const Scaling scaling{scaleMode, scaleFactor};
    if (!allGood(at, {{!tapStPtr, "tapStPtr==0"}, {!dlyStPtr, "dlyStPtr==0"}}) ||
        !bothInitialised(at, tapStPtr, dlyStPtr, twoScales(scaling), noFactor(scaling)))
        return 0;
    const double result = IirFilter<Taps, short>{*tapStPtr, *dlyStPtr}.filterOne(sample).re;
    short scaled;
    rescale(&result, &scaled, 1, scaling);
    return scaled;
}

// The automatic factor of a block grows while the block is run; what is stored already is then shifted by what it grew.
template <class Taps>
void iirlBlock(Where at, const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const short* inSamps,
               short* outSamps, int numIters, int scaleMode, int* scaleFactor)
{
    const Scaling scaling{scaleMode, scaleFactor};
    if (!allGood(at, {{!tapStPtr, "tapStPtr==0"},
                      {!dlyStPtr, "dlyStPtr==0"},
                      {!inSamps, "inSamps==0"},
                      {!outSamps, "outSamps==0"}}) ||
        !bothInitialised(at, tapStPtr, dlyStPtr, Check{numIters < 0, "numIters < 0"}, twoScales(scaling),
                         noFactor(scaling)) ||
        numIters == 0)
        return;
    const auto shiftRight = kernels<ShortArithKernels>().shiftRight;
    int factor = 0;
    IirFilter<Taps, short>{*tapStPtr, *dlyStPtr}.filter(
        inSamps, numIters, [&](const double* const* results, std::ptrdiff_t first, std::ptrdiff_t count) {
            short* const dst = outSamps + first;
            if (scaleMode != ARK_AUTO_SCALE)
                return rescale(results[0], dst, count, scaling);
            int ownFactor = 0;
            rescale(results[0], dst, count, {ARK_AUTO_SCALE, &ownFactor});
            if (ownFactor > factor)
                shiftRight(outSamps, first, ownFactor - factor);
            else if (ownFactor < factor)
                shiftRight(dst, count, factor - ownFactor);
            factor = std::max(factor, ownFactor);
        });
    if (scaleMode == ARK_AUTO_SCALE)
        *scaleFactor = factor;
}

} // namespace ark
