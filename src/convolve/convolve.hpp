// Linear convolution: direct sums, one transform of the whole length, or blocks of it (overlap-save), whichever a model
// of their costs says is cheapest.
#pragma once

#include "convolve/costs.hpp"
#include "frame/heap.hpp"
#include "transform/realfft.hpp"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace ark {

// ---- the transform of each type, and how a thread gets its tables ----

template <class Y>
struct Spectra;

template <class R>
struct RealSpectra {
    static constexpr const TransformKind& kind = toPackedKind;

    static void forward(const R* src, R* dst, int order, const Workspace<R>& space)
    {
        realToSpectrum(src, dst, permLayout(order), order, ARK_Forw, space);
    }
    static void multiply(const R* factor, R* dst, int order)
    {
        multiplySpectra(factor, static_cast<const R*>(dst), dst, permLayout(order), order);
    }
    static void inverse(R* samps, int order, const Workspace<R>& space)
    {
        spectrumToReal(static_cast<const R*>(samps), samps, permLayout(order), order, ARK_Inv, space);
    }
};
template <class C>
struct CplxSpectra {
    using R = Real<C>;
    static constexpr const TransformKind& kind = cplxKind;

    static void forward(const C* src, C* dst, int order, const Workspace<R>& space)
    {
        transformPairs(partsOf(src), partsOf(dst), order, ARK_Forw, space, R(1));
    }
    static void multiply(const C* factor, C* dst, int order)
    {
        kernels<ArithKernels<C>>().mpy(factor, dst, dst, std::ptrdiff_t{1} << order);
    }
    static void inverse(C* samps, int order, const Workspace<R>& space)
    {
        transformPairs<R>(partsOf(samps), partsOf(samps), order, ARK_Inv, space, scaleOf<R>(order, ARK_Inv));
    }
};
template <>
struct Spectra<float> : RealSpectra<float> {
    static void buildTables(int order) { arksRealFftl(nullptr, order, ARK_Init); }
};
template <>
struct Spectra<double> : RealSpectra<double> {
    static void buildTables(int order) { arkdRealFftl(nullptr, order, ARK_Init); }
};
template <>
struct Spectra<FloatCplx> : CplxSpectra<FloatCplx> {
    static void buildTables(int order) { arkcFft(nullptr, order, ARK_Init); }
};
template <>
struct Spectra<DoubleCplx> : CplxSpectra<DoubleCplx> {
    static void buildTables(int order) { arkzFft(nullptr, order, ARK_Init); }
};

// ---- the choice ----

enum class ConvWay { direct, whole, blocks };

struct ConvPlan {
    ConvWay way;
    int order;        // of the transforms
    std::int64_t hop; // outputs of a block
};

// Two operands in the order of their lengths: len >= n.
struct ConvShape {
    std::int64_t len, n;

    std::int64_t outputs() const { return len + n - 1; }
};

inline int significantBits(std::int64_t value) { return int(std::bit_width(std::uint64_t(value))); }
inline std::int64_t blocksOf(std::int64_t outputs, std::int64_t hop) { return (outputs + hop - 1) / hop; }

// The transforms of so many blocks and that of the filter; one text, so that equal costs are equal.
inline double costOf(const ConvCosts& costs, int order, std::int64_t blocks)
{
    if (order >= costOrders)
        return std::numeric_limits<double>::infinity();
    const double fft = double(costs.fft[order]), mul = double(costs.mul[order]);
    return double(blocks) * (fft + mul) + fft;
}

inline bool isDirect(const DirectRule& rule, ConvShape shape)
{
    return shape.n <= rule.always || (shape.n < rule.below && shape.len < rule.limits[shape.n - rule.always - 1]);
}

// Transforms of four times the filter's length are costed at eight times and two hops, but are done at four times, as
// the others.
inline ConvPlan planOf(const ConvCosts& costs, ConvShape shape)
{
    const std::int64_t M = shape.outputs();
    const int bits = significantBits(shape.n);
    const auto cost = [&](int order, int hops) {
        const std::int64_t hop = (std::int64_t{1} << order) - shape.n + 1;
        return costOf(costs, order, blocksOf(M, hops * hop));
    };
    bool isLong = shape.len > 32 * shape.n;
    double least = isLong ? cost(bits + 3, 2) : cost(bits + 1, 1);
    const double twice = cost(bits + 2, 1);
    if (twice < least) {
        isLong = true;
        least = twice;
    }
    if (costOf(costs, significantBits(M), 1) <= least)
        return {ConvWay::whole, significantBits(M - 1), M};
    int order = bits;
    for (const int largest = bits + (isLong ? 2 : 1); order < largest && std::int64_t{1} << order < M;)
        order++;
    return {ConvWay::blocks, order, (std::int64_t{1} << order) - (shape.n - 1)};
}

// ---- convolution by transforms ----

// dst = src, complex where only dst is, and zeros up to size.
template <class X, class Y>
void widen(const X* src, std::int64_t count, Y* dst, std::int64_t size)
{
    if constexpr (parts<X> == parts<Y>) {
        std::memcpy(dst, src, std::size_t(count) * sizeof(Y));
    } else {
        for (std::ptrdiff_t i = 0; i < count; i++)
            dst[i] = {src[i], 0};
    }
    std::memset(dst + count, 0, std::size_t(size - count) * sizeof(Y));
}

// One block is the whole: it begins at the first sample and the hop is the number of outputs.
template <class X, class H, class Y>
void convolveBySpectra(Where at, const ConvPlan& plan, ConvShape shape, const X* x, const H* h, Y* y)
{
    using Transform = Spectra<Y>;
    const std::int64_t size = std::int64_t{1} << plan.order;
    Transform::buildTables(plan.order);
    if (!statusGood())
        return backtrace(at);
    Buffer<Y> block{std::size_t(size)}, filter{std::size_t(size)};
    Workspace<Real<Y>> space;
    if (!block || !filter)
        return outOfMemory(at, "NULL Pointer");
    if (!obtainOrReport(at, Transform::kind, plan.order, space))
        return;
    widen(h, shape.n, filter.data(), size);
    Transform::forward(filter.data(), filter.data(), plan.order, space);
    for (std::int64_t done = 0; done < shape.outputs(); done += plan.hop) {
        const std::int64_t known = done ? shape.n - 1 : 0; // outputs at the front that the block before has delivered
        const X* const src = x + (done - known);
        const std::int64_t count = std::min(shape.len, done + std::min(plan.hop, size)) - (done - known);
        bool isRead = false;
        if constexpr (parts<X> == parts<Y>)
            if (count == size) {
                Transform::forward(src, block.data(), plan.order, space);
                isRead = true;
            }
        if (!isRead) {
            widen(src, count, block.data(), size);
            Transform::forward(block.data(), block.data(), plan.order, space);
        }
        Transform::multiply(filter.data(), block.data(), plan.order);
        Transform::inverse(block.data(), plan.order, space);
        std::memcpy(y + done, block.data() + known,
                    std::size_t(std::min(plan.hop, shape.outputs() - done)) * sizeof(Y));
    }
}

// ---- the members ----

// Who reports: the member, and its two ways that can fail.
struct ConvNames {
    const char *whole, *blocks;
};

// Which tables serve: X and H in either order.
template <class X, class H>
struct ConvTables {
    static constexpr bool isDouble = sizeof(Real<X>) == sizeof(double);
    static constexpr bool isReal = !isComplex<X> && !isComplex<H>, isMixed = isComplex<X> != isComplex<H>;
    static constexpr const ConvCosts& costs =
        isReal ? (isDouble ? realDoubleCosts : realFloatCosts) : (isDouble ? cplxDoubleCosts : cplxFloatCosts);
    static constexpr const DirectRule& rule = isReal     ? realRule
                                              : isMixed  ? (isDouble ? mixedDoubleRule : mixedFloatRule)
                                              : isDouble ? cplxDoubleRule
                                                         : cplxFloatRule;
    static_assert(rule.below <= longestDirect + 1);
};

template <class X, class H, class Y>
void convolveOrdered(Where at, const ConvNames& names, ConvShape shape, const X* x, const H* h, Y* y)
{
    using Tables = ConvTables<X, H>;
    if (isDirect(Tables::rule, shape))
        return kernels<ConvKernels<X, H>>().direct(x, std::ptrdiff_t(shape.len), h, std::ptrdiff_t(shape.n), y);
    const ConvPlan plan = planOf(Tables::costs, shape);
    Where inner = at;
    inner.function = plan.way == ConvWay::whole ? names.whole : names.blocks;
    convolveBySpectra(inner, plan, shape, x, h, y);
    if (!statusGood())
        backtrace(at);
}

inline bool convArgumentsGood(Where at, const void* x, int xLen, const void* h, int hLen, const void* y)
{
    arkSetErrStatus(ARK_StatusOk);
    const bool tooLong = xLen > 0 && hLen > 0 && std::int64_t{xLen} + hLen - 1 > std::numeric_limits<int>::max();
    return allGood(at, {{!x, "x==0"},
                        {xLen <= 0, "xLen<=0"},
                        {!h, "h==0"},
                        {hLen <= 0, "hLen<=0"},
                        {!y, "y==0"},
                        {tooLong, "xLen+hLen-1>2147483647"}});
}

template <class X, class H, class Y>
void convolve(Where at, const ConvNames& names, const X* x, int xLen, const H* h, int hLen, Y* y)
{
    if (!convArgumentsGood(at, x, xLen, h, hLen, y))
        return;
    if (hLen <= xLen)
        convolveOrdered(at, names, {xLen, hLen}, x, h, y);
    else
        convolveOrdered(at, names, {hLen, xLen}, h, x, y);
}

} // namespace ark
