// The scaling rules of 16-bit results: one text for every 16-bit operation.
#pragma once

#include "frame/kernels.hpp"
#include "frame/report.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace ark {

struct Scaling {
    int mode;
    int* factor;
};

// ---- arithmetic: exact 32-bit results of two 16-bit operands, shift counts modulo 32 ----

struct FixedRule {
    ShortRule rule;
    int count;
};

// Of every mode but ARK_AUTO_SCALE.
inline FixedRule fixedRule(Scaling scaling)
{
    if (scaling.mode == ARK_WRAP)
        return {wrapRule, 0};
    if (scaling.mode == ARK_SATURATE)
        return {saturateRule, 0};
    const bool saturate = scaling.mode == (ARK_FIXED_SCALE | ARK_SATURATE);
    const int factor = scaling.factor ? *scaling.factor : 0;
    if (factor >= 0)
        return {saturate ? rightSaturateRule : rightRule, factor & 31};
    return {saturate ? leftSaturateRule : leftRule, int((0u - unsigned(factor)) & 31)};
}

// dst = (a op b) >> shift with the smallest shift that makes everything fit. Out of line: it would cost the calls of
// the other modes registers.
[[gnu::noinline]] inline int automaticArithmetic(ShortOperation operation, const short* a, ShortOperand b, short* dst,
                                                 std::ptrdiff_t lanes)
{
    // What is already stored is rescaled, not computed again: dst may be one of the operands.
    const ShortArithKernels& kernel = kernels<ShortArithKernels>();
    const std::ptrdiff_t stored = kernel.applyWhileFitting[operation](a, b, dst, lanes);
    if (stored == lanes)
        return 0;
    const short* restA = a + stored;
    const ShortOperand restB{b.data + stored * b.step, b.step};
    const int shift = int(std::bit_width(kernel.magnitudeBits[operation](restA, restB, lanes - stored))) - 15;
    kernel.shiftRight(dst, stored, shift);
    kernel.rules[operation].apply[rightRule](restA, restB, dst + stored, lanes - stored, shift);
    return shift;
}

// dst = a op b under a scale mode; lanes are 16-bit values, two for a complex element.
inline void scaledArithmetic(Where at, ShortOperation operation, const short* a, ShortOperand b, short* dst,
                             std::ptrdiff_t lanes, Scaling scaling)
{
    if (scaling.mode == ARK_AUTO_SCALE) {
        if (!scaling.factor)
            return badArgument(at, "scalefactor==0");
        *scaling.factor = automaticArithmetic(operation, a, b, dst, lanes);
        return;
    }
    const FixedRule fixed = fixedRule(scaling);
    kernels<ShortArithKernels>().rules[operation].apply[fixed.rule](a, b, dst, lanes, fixed.count);
}

// ---- rescaling of wide intermediates: sums, transforms, filters; shift counts are capped ----

// An intermediate as a 64-bit integer: rounded to nearest, ties to even; 0 when not a number, clamped at 2^62.
inline std::int64_t wide(int x) { return x; }
inline std::int64_t wide(std::int64_t x) { return x; }
inline std::int64_t wide(double x)
{
    constexpr double limit = 0x1p62;
    constexpr double integral = 0x1p52; // from here on every double is an integer; adding it rounds to nearest even
    if (!(x > -limit))
        return x == x ? -std::int64_t(limit) : 0;
    if (x >= limit)
        return std::int64_t(limit);
    if (x > -integral && x < integral) {
        const double signedIntegral = std::copysign(integral, x); // no jump that depends on the sign
        x = (x + signedIntegral) - signedIntegral;
    }
    return std::int64_t(x);
}
inline std::int64_t wide(float x) { return wide(double(x)); }

inline short wrapped(std::int64_t x) { return short(std::uint16_t(x)); }
inline short clamped(std::int64_t x) { return short(std::clamp<std::int64_t>(x, -32768, 32767)); }

// x * 2^-factor: to the right by at most 63, to the left by at most 15 and after clamping, which changes no clamped
// result and keeps the shift from overflowing.
inline short shiftedWrapped(std::int64_t x, int factor)
{
    if (factor >= 0)
        return wrapped(x >> std::min(factor, 63));
    return wrapped(std::int64_t(std::uint64_t(x) << -std::max(factor, -15)));
}
inline short shiftedClamped(std::int64_t x, int factor)
{
    if (factor >= 0)
        return clamped(x >> std::min(factor, 63));
    return clamped(std::int64_t{clamped(x)} * (1 << -std::max(factor, -15)));
}

// The factor of the automatic mode: 0 when everything fits in 16 bits, else the largest magnitude comes to lie in
// 16384 ... 32767.
template <class Source>
int automaticFactor(const Source* src, std::ptrdiff_t n)
{
    std::int64_t least = 0, most = 0;
    for (std::ptrdiff_t i = 0; i < n; i++) {
        least = std::min(least, wide(src[i]));
        most = std::max(most, wide(src[i]));
    }
    if (least >= -32768 && most <= 32767)
        return 0;
    return int(std::bit_width(std::max(std::uint64_t(most), std::uint64_t{0} - std::uint64_t(least)))) - 15;
}

// dst = src under a scale mode. The caller has made sure that the automatic mode has a factor to write to.
template <class Source>
void rescale(const Source* src, short* dst, std::ptrdiff_t n, Scaling scaling)
{
    const auto each = [&](auto store) {
        for (std::ptrdiff_t i = 0; i < n; i++)
            dst[i] = store(wide(src[i]));
    };
    const int factor = scaling.factor ? *scaling.factor : 0;
    switch (scaling.mode) {
    case ARK_AUTO_SCALE: {
        const int shift = automaticFactor(src, n);
        *scaling.factor = shift;
        return each([=](std::int64_t x) { return wrapped(x >> shift); });
    }
    case ARK_FIXED_SCALE: return each([=](std::int64_t x) { return shiftedWrapped(x, factor); });
    case ARK_FIXED_SCALE | ARK_SATURATE: return each([=](std::int64_t x) { return shiftedClamped(x, factor); });
    case ARK_SATURATE: return each([](std::int64_t x) { return clamped(x); });
    default: return each([](std::int64_t x) { return wrapped(x); });
    }
}

// ---- floats to 16 bits: results of operations that are computed in single precision ----

// What the operations that take floats to 16 bits say about their scale mode, both when both hold.
inline bool scalingGood(Where at, Scaling scaling)
{
    const bool fixed = (scaling.mode & ARK_FIXED_SCALE) != 0, automatic = (scaling.mode & ARK_AUTO_SCALE) != 0;
    const Check checks[] = {{fixed && automatic, "ARK_FIXED_SCALE and ARK_AUTO_SCALE"},
                            {automatic && !scaling.factor, "ARK_AUTO_SCALE and scaleFactor==NULL"}};
    for (const Check& check : checks)
        if (check.failed)
            badArgument(at, check.message);
    return !checks[0].failed && !checks[1].failed;
}

// Where results are clamped unless another mode is asked for: ARK_WRAP means ARK_SATURATE.
inline Scaling clampedByDefault(Scaling scaling)
{
    return {scaling.mode == ARK_WRAP ? int{ARK_SATURATE} : scaling.mode, scaling.factor};
}

// dst = src, rounded to nearest (ties to even), under a scale mode.
inline void floatToShort(const float* src, short* dst, std::ptrdiff_t n, Scaling scaling)
{
    if (scaling.mode == ARK_SATURATE)
        kernels<ConvertKernels<float>>().integers[1][0].toInt[roundNearest](src, dst, n, true);
    else
        rescale(src, dst, n, scaling);
}
inline void shortToFloat(const short* src, float* dst, std::ptrdiff_t n)
{
    kernels<ConvertKernels<float>>().integers[1][0].fromInt(src, dst, n);
}

} // namespace ark
