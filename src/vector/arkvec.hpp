// Element-wise functions: each is written once, as apply on a source and a destination, and its forms add the checks.
#pragma once

#include "frame/kernels.hpp"
#include "frame/report.hpp"
#include "frame/types.hpp"
#include "vector/scale.hpp"

#include <arkpx/vector.h>

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace ark {

struct ElementWiseNames {
    const char *len = "len<=0", *vec = "vec==0", *src = "src==0", *dst = "dst==0";
};

// In place.
template <class Operation, class T, class... Rest>
void form1(Where at, T* vec, int len, Rest... rest)
{
    constexpr ElementWiseNames names = Operation::names;
    if (allGood(at, {{len <= 0, names.len}, {!vec, names.vec}}))
        Operation::apply(at, vec, vec, len, rest...);
}

// From src to dst.
template <class Operation, class T, class... Rest>
void form2(Where at, const T* src, T* dst, int len, Rest... rest)
{
    constexpr ElementWiseNames names = Operation::names;
    if (allGood(at, {{len <= 0, names.len}, {!src, names.src}, {!dst, names.dst}}))
        Operation::apply(at, src, dst, len, rest...);
}

// A check of values: it reports the line where it stands, not the member's.
inline Where onThisLine(Where at, int line = __builtin_LINE())
{
    at.line = line;
    return at;
}

struct Sqr {
    static constexpr ElementWiseNames names{};

    template <class T>
    static void apply(Where, const T* src, T* dst, int n)
    {
        kernels<ArithKernels<T>>().mpy(src, src, dst, n);
    }

    template <class T>
    static void apply(Where at, const T* src, T* dst, int n, int scaleMode, int* scaleFactor)
    {
        // The mode counts as bits: what the arithmetic compares as a whole comes out of them.
        const int mode =
            scaleMode & ARK_AUTO_SCALE ? int{ARK_AUTO_SCALE} : scaleMode & (ARK_SATURATE | ARK_FIXED_SCALE);
        if (mode == ARK_AUTO_SCALE && !scaleFactor)
            return badArgument(onThisLine(at), "scaleFactor==0");
        scaledSquares(at, src, dst, n, {mode, scaleFactor});
    }

private:
    static void scaledSquares(Where at, const short* src, short* dst, std::ptrdiff_t n, Scaling scaling)
    {
        scaledArithmetic(at, shortMpy, src, {src, 1}, dst, n, scaling);
    }

    // The products' 32 bits hold every square but that of (-32768, -32768), which is (0, 2^31).
    static void scaledSquares(Where at, const ShortCplx* src, ShortCplx* dst, std::ptrdiff_t n, Scaling scaling)
    {
        const auto isLeast = [](ShortCplx z) { return z.re == -32768 && z.im == -32768; };
        bool anyLeast = false;
        for (std::ptrdiff_t i = 0; i < n; i++)
            anyLeast |= isLeast(src[i]);
        const short* in = partsOf(src);
        if (!anyLeast)
            return scaledArithmetic(at, shortCplxMpy, in, {in, 1}, partsOf(dst), 2 * n, scaling);

        FixedRule fixed{rightRule, 17}; // what 2^31 needs to fit is enough for all
        if (scaling.mode == ARK_AUTO_SCALE)
            *scaling.factor = fixed.count;
        else
            fixed = fixedRule(scaling);
        const auto apply = kernels<ShortArithKernels>().rules[shortCplxMpy].apply[fixed.rule];
        for (std::ptrdiff_t i = 0; i < n; i++) {
            std::ptrdiff_t end = i;
            while (end < n && !isLeast(src[end]))
                end++;
            if (end > i)
                apply(in + 2 * i, {in + 2 * i, 1}, partsOf(dst) + 2 * i, 2 * (end - i), fixed.count);
            if (end < n)
                dst[end] = {0, imaginaryOfLeast(fixed)};
            i = end;
        }
    }

    static short imaginaryOfLeast(FixedRule fixed)
    {
        constexpr std::int64_t value = std::int64_t{1} << 31;
        switch (fixed.rule) {
        case saturateRule:
        case leftSaturateRule: return 32767;
        case rightRule: return wrapped(value >> fixed.count);
        case rightSaturateRule: return clamped(value >> fixed.count);
        default: return 0;
        }
    }
};

struct Sqrt {
    static constexpr ElementWiseNames names{};

    template <class T>
    static void apply(Where at, const T* src, T* dst, int n)
    {
        const RootKernels<T>& kernel = kernels<VecKernels>();
        if (kernel.squareRoot(src, dst, n))
            badArgument(onThisLine(at), "Element of input vector is negative");
    }
};

struct Abs {
    static constexpr ElementWiseNames names{};

    template <class T>
    static void apply(Where, const T* src, T* dst, int n)
    {
        const AbsKernels<T>& kernel = kernels<VecKernels>();
        kernel.abs(src, dst, n);
    }
};

struct Thresh {
    static constexpr ElementWiseNames names{};

    template <class T>
    static void apply(Where, const T* src, T* dst, int n, T level, int relOp)
    {
        limit(src, dst, n, level, relOp);
    }

    // Magnitudes: the level must not be negative.
    template <class T>
    static void apply(Where at, const T* src, T* dst, int n, Real<T> level, int relOp, const char* ofNegativeLevel)
    {
        if (level < 0)
            return badArgument(onThisLine(at), ofNegativeLevel);
        limit(src, dst, n, level, relOp);
    }

private:
    template <class T>
    static void limit(const T* src, T* dst, int n, Real<T> level, int relOp)
    {
        const ThreshKernels<T>& kernel = kernels<VecKernels>();
        (relOp == ARK_LT ? kernel.fromBelow : kernel.fromAbove)(src, dst, n, level);
    }

    static void limit(const ShortCplx* src, ShortCplx* dst, int n, short level, int relOp)
    {
        const std::int64_t bound = std::int64_t{level} * level;
        for (std::ptrdiff_t i = 0; i < n; i++) {
            const ShortCplx z = src[i];
            const std::int64_t norm = std::int64_t{z.re} * z.re + std::int64_t{z.im} * z.im;
            const bool beyond = relOp == ARK_LT ? norm < bound : norm > bound;
            if (!beyond)
                dst[i] = z;
            else if (norm == 0)
                dst[i] = {level, 0};
            else
                dst[i] = {scaledPart(z.re, level, norm), scaledPart(z.im, level, norm)};
        }
    }

    // part level / sqrt(norm), rounded to nearest; no exact result lies in the middle between two integers.
    static short scaledPart(int part, int level, std::int64_t norm)
    {
        const auto doubled = std::uint64_t(2 * std::int64_t{part < 0 ? -part : part} * level),
                   square = doubled * doubled;
        auto y = std::uint64_t(double(doubled) * 0.5 / std::sqrt(double(norm)));
        // Toward zero so far. Exactly: the largest y with (2 y - 1) sqrt(norm) <= 2 part level.
        const std::uint64_t next = 2 * y + 1;
        if (next * next * std::uint64_t(norm) <= square)
            y++;
        return short(part < 0 ? -int(y) : int(y));
    }
};

struct InvThresh {
    static constexpr ElementWiseNames names{};

    template <class T>
    static void apply(Where at, const T* src, T* dst, int n, Real<T> level, const char* ofNegativeLevel)
    {
        if (level < 0)
            return badArgument(onThisLine(at), ofNegativeLevel);
        const InvThreshKernels<T>& kernel = kernels<VecKernels>();
        if (kernel.invThresh(src, dst, n, level))
            badArgument(onThisLine(at), "zero element and zero thresh");
    }
};

} // namespace ark
