// The tables of the complex FFT of one order: how its passes go, their factors, and where each stands.
#pragma once

#include "frame/types.hpp"
#include "transform/fft_memory.hpp"

namespace ark::ARK_SET {
namespace {

// Registers that hold a butterfly of 8 and more make passes of that. Where they hold less than one, passes of 4 take
// the least time, and a last one of 16, which has no factors, less than two of 4.
constexpr bool takesRadix8(int W) { return ARK_AVX512 || W == 1; }

// The radices of the transform of 2^m rows, m >= 2, and the number of factors: of every pass but the last.
struct Plan {
    int m, passes;
    int log2Radix[12];
    std::ptrdiff_t factors;

    static Plan of(int m, int W)
    {
        Plan plan{m, 0, {}, 0};
        std::ptrdiff_t rows = std::ptrdiff_t{1} << m;
        for (int left = m; left > 0;) {
            const int log2Radix = takesRadix8(W) ? (left % 3 == 0 ? 3 : 2) : (left <= 4 ? left : 2);
            plan.log2Radix[plan.passes++] = log2Radix;
            left -= log2Radix;
            rows >>= log2Radix;
            if (left > 0)
                plan.factors += rows * ((1 << log2Radix) - 1);
        }
        return plan;
    }
};

// The factors of all passes but the last: both parts, in SSE2 as often as a register has lanes, since nothing loads
// copies of a number there; of pairs as PairFactor has them.
constexpr int copiesOfParts(int W) { return W == 1 ? 2 : ARK_AVX2 || ARK_AVX512 ? 1 : W; }
template <int W>
constexpr std::ptrdiff_t sizeOfFactors(std::ptrdiff_t count)
{
    return count * 2 * copiesOfParts(W);
}
template <class R, int W>
ARK_INLINE auto getFactor(const R* w)
{
    if constexpr (W == 1)
        return PairFactor<R>{getAligned<R, 2>(w), getAligned<R, 2>(w + 2)};
    else if constexpr (copiesOfParts(W) == W)
        return getRow<R, W>(w);
    else
        return Cplx<Reg<R, W>>{w[0] - Reg<R, W>{}, w[1] - Reg<R, W>{}};
}
template <class R>
R* putFactor(R* w, int W, R re, R im)
{
    const int copies = copiesOfParts(W);
    for (int i = 0; i < copies; i++) {
        w[i] = re;
        w[copies + i] = W == 1 && i == 0 ? -im : im;
    }
    return w + 2 * copies;
}

// The factors of all passes but the last, and the root of the butterflies.
template <class R>
struct RowsTable {
    const R* factors;
    R eighth;
};

// Whether registers hold W rows at once.
constexpr bool fitRegisters(int W) { return W <= 4; }

// The constants of a register's own transform. In the table, unless W rows fit registers: the factors of the radix-2
// step of fillTile, then those between the stages of transformLanes, of interleaved elements.
template <class R, int W>
struct LaneConstants {
    static constexpr int halfFactors = int(8 / sizeof(R));
    const R* table;
    R eighth;
    ARK_INLINE Cplx<Reg<R, W>> half(int p) const { return getRow<R, W>(table + p * 2 * W); }
    ARK_INLINE Cplx<Reg<R, W>> stages(int i) const { return half(halfFactors + i); }
};

template <class Fine>
struct Root {
    Fine re, im;
};

// e^(-2 pi i a / 2^order) by an angle of at most an eighth of the circle.
template <class Fine>
Root<Fine> rootOf(std::size_t a, int order)
{
    constexpr long double pi = 3.14159265358979323846264338327950288L;
    const std::size_t N = std::size_t(1) << order;
    const std::size_t octants = a * 8;
    const int octant = int(octants >> order);
    // The distance to the nearer of the axes, in units of 1/N.
    const std::size_t quarter = N / 4;
    Root<Fine> r;
    const auto angle = [&](std::size_t steps) { return Fine(2) * Fine(pi) * Fine(steps) / Fine(N); };
    const auto sine = [](Fine x) {
        return sizeof(Fine) == 8 ? Fine(__builtin_sin(double(x))) : Fine(__builtin_sinl(x));
    };
    const auto cosine = [](Fine x) {
        return sizeof(Fine) == 8 ? Fine(__builtin_cos(double(x))) : Fine(__builtin_cosl(x));
    };
    switch (octant) {
    case 0: r = {cosine(angle(a)), -sine(angle(a))}; break;
    case 1: r = {sine(angle(quarter - a)), -cosine(angle(quarter - a))}; break;
    case 2: r = {-sine(angle(a - quarter)), -cosine(angle(a - quarter))}; break;
    case 3: r = {-cosine(angle(2 * quarter - a)), -sine(angle(2 * quarter - a))}; break;
    case 4: r = {-cosine(angle(a - 2 * quarter)), sine(angle(a - 2 * quarter))}; break;
    case 5: r = {-sine(angle(3 * quarter - a)), cosine(angle(3 * quarter - a))}; break;
    case 6: r = {sine(angle(a - 3 * quarter)), cosine(angle(a - 3 * quarter))}; break;
    default: r = {cosine(angle(N - a)), sine(angle(N - a))}; break;
    }
    return r;
}

// All roots of one order, each as the product of two that were computed on their own; those at odd eighths of the
// circle have the parts that the transform wants there.
template <class R>
class Roots {
public:
    Roots(int order, R eighth)
        : fineBits_{(order + 1) / 2},
          eighthAt_{order < 3 ? std::size_t(1) << order : std::size_t(1) << (order - 3)},
          eighth_{eighth}
    {
        for (std::size_t i = 0; i < std::size_t(1) << fineBits_; i++)
            fine_[i] = rootOf<Fine>(i, order);
        for (std::size_t i = 0; i < std::size_t(1) << (order - fineBits_); i++)
            coarse_[i] = rootOf<Fine>(i << fineBits_, order);
    }
    ARK_INLINE void get(std::size_t a, R& re, R& im) const
    {
        const Root<Fine> c = coarse_[a >> fineBits_], f = fine_[a & ((std::size_t(1) << fineBits_) - 1)];
        re = R(c.re * f.re - c.im * f.im);
        im = R(c.re * f.im + c.im * f.re);
        if (a % (2 * eighthAt_) == eighthAt_) {
            re = re < 0 ? -eighth_ : eighth_;
            im = im < 0 ? -eighth_ : eighth_;
        }
    }

private:
    using Fine = typename Wider<R>::Type;

    int fineBits_;
    std::size_t eighthAt_; // or beyond all, where there is none
    R eighth_;
    Root<Fine> fine_[1024], coarse_[1024];
};

template <class R>
void fillRowsTable(const Plan& plan, int W, R* table, R eighth)
{
    const Roots<R> roots(plan.m, eighth);
    for (int i = 0, left = plan.m; i + 1 < plan.passes; i++) {
        const int step = plan.m - left;
        left -= plan.log2Radix[i];
        for (std::size_t p = 0; p < std::size_t{1} << left; p++)
            for (std::size_t j = 1; j < std::size_t{1} << plan.log2Radix[i]; j++) {
                R re, im;
                roots.get((p * j) << step, re, im);
                table = putFactor(table, W, re, im);
            }
    }
}

// The widest register of which an order has 4 rows; otherwise pairs.
template <class R>
constexpr int widthFor(int order)
{
    for (int width = lanes<R>; width >= 4; width /= 2)
        if (order >= log2Of(width) + 2)
            return width;
    return 1;
}

// So few pairs are transformed in one straight piece of code, with neither tables nor scratch.
inline constexpr int longestFewPairs = 5;

// From this order on the vector is a matrix: columns, whose rows are far apart, are transformed W at a time, and then
// its rows, or the opposite. What is transformed at a time stays in the cache, and the tables are short.
inline constexpr int matrixFrom = 20;

// The registers of columns that are read and written together: as many as two cache lines hold.
template <class R>
constexpr std::ptrdiff_t columnsAtATime(std::ptrdiff_t W)
{
    return std::ptrdiff_t(64 / sizeof(R)) / W;
}

// From one column of rows of a matrix to the next in the scratch. There are many columns of pairs, and at a power of
// two they would share few lines of the cache.
template <class R>
constexpr std::ptrdiff_t columnSize(std::ptrdiff_t W, std::ptrdiff_t rows)
{
    return rows * 2 * W + (W == 1 ? std::ptrdiff_t(64 / sizeof(R)) : 0);
}

// What stands at the beginning of the table of one order, and where the rest of it stands, in reals from there.
template <class R>
struct Head {
    int order, W;
    R eighth;
    Plan plan, restPlan; // of the rows, or of the columns and the rest of a matrix: N = 2^(plan.m + restPlan.m)
    std::ptrdiff_t rows, lanes, constants;                // rows' tables, w_N^(k l), LaneConstants
    std::ptrdiff_t restRows, powers, fine, coarse, inner; // of matrices: see MatrixFactors; the table of the rest
    std::ptrdiff_t size;

    bool isAlone() const { return W == 1 && order <= longestFewPairs; }
    RowsTable<R> rowsTable(const R* table) const { return {table + rows, eighth}; }
    RowsTable<R> restRowsTable(const R* table) const { return {table + restRows, eighth}; }

    static Head of(int order, R eighth)
    {
        Head head{};
        head.order = order;
        head.eighth = eighth;
        head.W = widthFor<R>(order);
        std::ptrdiff_t end = std::ptrdiff_t(sizeof(Head) / sizeof(R));
        const auto add = [&](std::ptrdiff_t count) {
            const std::ptrdiff_t begin = (end + 15) / 16 * 16;
            end = begin + count;
            return begin;
        };
        const std::ptrdiff_t W = head.W, factor = 2 * copiesOfParts(head.W);
        if (head.isAlone()) {
            // nothing but the head
        } else if (order < matrixFrom) {
            head.plan = Plan::of(order - log2Of(head.W), head.W);
            head.rows = add(head.plan.factors * factor);
            if (W > 1) {
                head.lanes = add(std::ptrdiff_t{2} << order);
                head.constants = add(fitRegisters(head.W) ? 0 : (std::ptrdiff_t(8 / sizeof(R)) + 2) * 2 * W);
            }
        } else {
            head.plan = Plan::of(order - order / 2, head.W);
            head.restPlan = Plan::of(order / 2, head.W);
            head.rows = add(head.plan.factors * factor);
            head.restRows = add(head.restPlan.factors * factor);
            if (W > 1)
                head.powers = add(2 * W << head.plan.m);
            head.fine = add(std::ptrdiff_t{2} << head.restPlan.m);
            head.coarse = add(std::ptrdiff_t{2} << head.plan.m);
            head.inner = add(of(head.restPlan.m, eighth).size);
        }
        head.size = add(0);
        return head;
    }
};

// Everything but the head's own place.
template <class R>
void fillShortTable(const Head<R>& head, R* table)
{
    const int W = head.W, P = int(16 / sizeof(R));
    const auto element = [&](int lane) { return std::size_t(P == 4 ? elementOf<4>(lane, W) : elementOf<2>(lane, W)); };
    fillRowsTable(head.plan, head.W, table + head.rows, head.eighth);
    if (W == 1)
        return;
    const Roots<R> roots(head.order, head.eighth);
    R* at = table + head.lanes;
    for (std::size_t k = 0; k < std::size_t{1} << head.plan.m; k++, at += 2 * W)
        for (int lane = 0; lane < W; lane++)
            roots.get(k * element(lane), at[lane], at[W + lane]);
    if (fitRegisters(W))
        return;
    // LaneConstants: powers of w_W, in the steps of this order's roots.
    at = table + head.constants;
    const std::size_t unit = std::size_t{1} << head.plan.m;
    for (int p = 0; p < P / 2; p++, at += 2 * W)
        for (int lane = 0; lane < W; lane++)
            roots.get(unit * std::size_t(lane / P * (P / 2) + p), at[lane], at[W + lane]);
    for (int e = 0; e < W; e++) {
        // w_W^(u e0), u the upper bits of the element reversed and e0 the lower two
        R re, im;
        roots.get(unit * std::size_t(reversed(e / 4, W / 4) * (e % 4)), re, im);
        R* const to = at + e / (W / 2) * 2 * W + 2 * (e % (W / 2));
        to[0] = to[1] = re;
        to[W] = -im;
        to[W + 1] = im;
    }
}

template <class R>
void fillMatrixTable(const Head<R>& head, R* table)
{
    using Fine = typename Wider<R>::Type;
    fillRowsTable(head.plan, head.W, table + head.rows, head.eighth);
    fillRowsTable(head.restPlan, head.W, table + head.restRows, head.eighth);
    R *powers = table + head.powers, *fine = table + head.fine, *coarse = table + head.coarse;
    for (std::size_t a = 0; a < std::size_t{1} << head.restPlan.m; a++) {
        const Root<Fine> root = rootOf<Fine>(a, head.order);
        fine[2 * a] = R(root.re);
        fine[2 * a + 1] = R(root.im);
    }
    for (std::size_t k = 0; k < std::size_t{1} << head.plan.m; k++) {
        const Root<Fine> step = rootOf<Fine>(k << head.restPlan.m, head.order), root = rootOf<Fine>(k, head.order);
        coarse[2 * k] = R(step.re);
        coarse[2 * k + 1] = R(step.im);
        Root<Fine> power{1, 0};
        for (int l = 0; l < head.W && head.W > 1; l++) {
            const int lane = int(16 / sizeof(R)) == 4 ? laneOf<4>(l, head.W) : laneOf<2>(l, head.W);
            R* const of = powers + k * std::size_t(2 * head.W);
            of[lane] = R(power.re);
            of[head.W + lane] = R(power.im);
            power = {power.re * root.re - power.im * root.im, power.re * root.im + power.im * root.re};
        }
    }
}

template <class R>
void fillTableOf(const Head<R>& head, R* table)
{
    __builtin_memcpy(table, &head, sizeof head);
    if (head.isAlone())
        return;
    if (head.order < matrixFrom)
        return fillShortTable(head, table);
    fillMatrixTable(head, table);
    fillTableOf(Head<R>::of(head.restPlan.m, head.eighth), table + head.inner);
}

template <class R>
Head<R> headFor(int order)
{
    return Head<R>::of(order, eighthOf<R>(order));
}
template <class R>
void fillTable(int order, R* table)
{
    fillTableOf(headFor<R>(order), table);
}
template <class R>
std::size_t tableSize(int order)
{
    return std::size_t(headFor<R>(order).size);
}
template <class R>
std::size_t scratchSize(int order)
{
    const Head<R> head = headFor<R>(order);
    if (head.isAlone())
        return 0;
    if (order < matrixFrom)
        return std::size_t{2} << order;
    // Of a matrix: all rows turned, and the columns that are transformed together.
    const std::ptrdiff_t W = head.W, N1 = std::ptrdiff_t{1} << head.plan.m, N2 = std::ptrdiff_t{1} << head.restPlan.m;
    return std::size_t(N1 / W * columnSize<R>(W, N2) + columnsAtATime<R>(W) * columnSize<R>(W, N1));
}

} // namespace
} // namespace ark::ARK_SET
