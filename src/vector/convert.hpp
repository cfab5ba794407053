// Conversion between floating-point and integer vectors.
#pragma once

#include "frame/kernels.hpp"
#include "frame/report.hpp"

#include <arkpx/vector.h>

#include <bit>

namespace ark {

template <class Real>
const typename ConvertKernels<Real>::Integer& integerKernels(int wordBits, int flags)
{
    const int width = wordBits >> 4; // 8, 16, 32 bits: 0, 1, 2
    return kernels<ConvertKernels<Real>>().integers[width][(flags & ARK_Unsigned) != 0];
}

inline bool isWordSize(int wordBits) { return wordBits == 8 || wordBits == 16 || wordBits == 32; }

// std::has_single_bit calls a function where the processor may lack an instruction that counts bits.
inline bool hasSingleBit(unsigned bits) { return bits != 0 && (bits & (bits - 1)) == 0; }

// Out of line: what must outlast the conversion would cost the calls that do not ask for it.
template <class Real>
[[gnu::noinline]] void convertAndReport(Where at, typename ConvertKernels<Real>::ToInt convert, const Real* src,
                                        void* dst, int len, bool saturate)
{
    if (convert(src, dst, len, saturate))
        badArgument(at, "Value out of range");
}

template <class Real>
void floatToInt(Where at, const Real* src, void* dst, int len, int wordBits, int flags)
{
    const auto roundingFlags = unsigned(flags) & (ARK_RoundNearest | ARK_RoundZero | ARK_RoundDown | ARK_RoundUp);
    clearStatus();
    if (!allHold(at, {{len <= 0, "len<=0"},
                      {!src, "src==0"},
                      {!dst, "dst==0"},
                      {!isWordSize(wordBits), "Invalid size of an integer"},
                      {!hasSingleBit(roundingFlags), "Invalid conversion flag"}}))
        return;
    const int rounding = std::countr_zero(roundingFlags) - std::countr_zero(unsigned(ARK_RoundNearest));
    const auto convert = integerKernels<Real>(wordBits, flags).toInt[rounding];
    const bool saturate = (flags & ARK_Saturate) != 0;
    if (flags & ARK_ReportRange)
        return convertAndReport(at, convert, src, dst, len, saturate);
    convert(src, dst, len, saturate);
}

template <class Real>
void intToFloat(Where at, const void* src, Real* dst, int len, int wordBits, int flags)
{
    clearStatus();
    if (allHold(at, {{len <= 0, "len<=0"},
                     {!src, "src==0"},
                     {!dst, "dst==0"},
                     {!isWordSize(wordBits), "Invalid size of an integer"},
                     {flags != 0 && flags != ARK_Unsigned, "Invalid conversion flag"}}))
        integerKernels<Real>(wordBits, flags).fromInt(src, dst, len);
}

} // namespace ark
