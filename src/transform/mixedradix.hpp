// The plan and the table of the DFT of a length with small prime factors (dft_kernels.hpp).
#pragma once

#include "frame/context.hpp"
#include "frame/kernels.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <numbers>

namespace ark {

struct Radix {
    int factor;
    double cost; // of a pass, for each register: measured, in relation to each other
};
inline constexpr Radix mixedRadices[] = {{8, 2.2}, {4, 1.3}, {2, 1.2}, {3, 1.4}, {5, 2}, {7, 2.8}, {11, 4.8}, {13, 6}};

// What the passes of a length cost, a product of these radices; and the passes.
inline double factorise(int length, DftPass* passes)
{
    double cost = 0;
    if (length == 1)
        *passes++ = {1, 1};
    for (const Radix& radix : mixedRadices)
        while (length % radix.factor == 0) {
            const Radix& taken = length % 32 == 16 ? mixedRadices[1] : radix; // 4 by 4 is cheaper than 8 by 2
            length /= taken.factor;
            *passes++ = {taken.factor, length};
            cost += taken.cost;
        }
    *passes = {};
    return cost;
}

// The doubles of the factors of the passes.
inline std::size_t passFactors(const DftPass* passes)
{
    std::size_t size = 0;
    for (; passes->radix; passes++)
        size += std::size_t{2} * std::size_t(passes->radix - 1) * std::size_t(passes->count - 1);
    return size;
}

inline DftPlan planDft(int length, int lanes)
{
    // Of a register; of an element, where registers reach beyond what there is; of a pass whose two blocks do not fit
    // into the first cache.
    constexpr double transposing = 2, copyingIn = 0.15, copyingOut = 0.35, tooLong = 1.5;
    const int longest = 1024 / lanes;
    DftPlan plan{};
    DftPass passes[32];
    double least = HUGE_VAL;
    const auto blocks = [=](int count) { return std::ceil(double(count) / lanes); };
    const auto passesOf = [&](int count) { return factorise(count, passes) * (count > longest ? tooLong : 1); };
    const auto consider = [&](int rows, int columns) {
        const double cost = blocks(columns) * rows * (passesOf(rows) + transposing) +
                            blocks(rows) * columns * passesOf(columns) +
                            ((columns < lanes) * copyingIn + (rows < lanes) * copyingOut) * length;
        if (cost < least) {
            least = cost;
            plan.rows = rows;
            plan.columns = columns;
        }
    };
    for (int factor = 1; factor <= length / factor; factor++)
        if (length % factor == 0) {
            consider(length / factor, factor);
            consider(factor, length / factor);
        }
    factorise(plan.rows, plan.rowPasses);
    factorise(plan.columns, plan.columnPasses);
    plan.columnFactors = passFactors(plan.rowPasses);
    plan.middleFactors = plan.columnFactors + passFactors(plan.columnPasses);
    return plan;
}

// e^(-2 pi i k / length) for k = 0, step, 2 step, ...: the first of each run directly, the others from it by a product
// with those of the first run, which in the wider type costs no accuracy.
class RootWalk {
public:
    RootWalk(std::size_t length, std::size_t step) : length_{length}, step_{step}
    {
        for (std::size_t i = 0; i < run; i++)
            fine_[i] = at(i);
    }

    template <class Store>
    void store(std::size_t begin, std::size_t count, Store store) const
    {
        for (std::size_t i = 0; i < count; i += run) {
            const Root coarse = at(begin + i);
            for (std::size_t j = 0; j < std::min(run, count - i); j++)
                store(i + j, double(coarse.re * fine_[j].re - coarse.im * fine_[j].im),
                      double(coarse.re * fine_[j].im + coarse.im * fine_[j].re));
        }
    }

private:
    struct Root {
        long double re, im;
    };
    static constexpr std::size_t run = 16;

    Root at(std::size_t i) const
    {
        const long double angle = 2 * std::numbers::pi_v<long double> *
                                  static_cast<long double>(std::uint64_t{i} * step_ % length_) /
                                  static_cast<long double>(length_);
        return {std::cos(angle), -std::sin(angle)};
    }

    std::size_t length_, step_;
    Root fine_[run];
};

inline std::size_t dftTableSize(const DftPlan& plan, int lanes)
{
    const auto count = std::size_t((plan.columns + lanes - 1) / lanes) * std::size_t(lanes);
    return plan.middleFactors + 2 * std::size_t(plan.rows) * count;
}

inline void fillPassFactors(const DftPass* passes, double* table)
{
    for (; passes->radix; passes++) {
        const std::size_t others = std::size_t(passes->radix) - 1, count = std::size_t(passes->count) - 1;
        for (std::size_t j = 0; j < others; j++)
            RootWalk{(others + 1) * (count + 1), j + 1}.store(1, count, [=](std::size_t p, double re, double im) {
                table[2 * (p * others + j)] = re;
                table[2 * (p * others + j) + 1] = im;
            });
        table += 2 * others * count;
    }
}

inline void fillDftTable(const DftPlan& plan, int lanes, double* table)
{
    fillPassFactors(plan.rowPasses, table);
    fillPassFactors(plan.columnPasses, table + plan.columnFactors);
    table += plan.middleFactors;
    const auto rows = std::size_t(plan.rows), columns = std::size_t(plan.columns), W = std::size_t(lanes);
    const std::size_t last = (columns - 1) / W, lastBegin = columns < W ? 0 : columns - W;
    if (columns < W)
        std::fill_n(table, 2 * rows * W, 0.0);
    for (std::size_t row = 0; row < rows; row++)
        RootWalk{rows * columns, row}.store(0, columns, [=](std::size_t column, double re, double im) {
            const auto set = [=](std::size_t block, std::size_t place) {
                const std::size_t lane = place < W / 2 ? 2 * place : 2 * place - W + 1;
                double* const values = table + (block * rows + row) * 2 * W + lane;
                values[0] = re;
                values[W] = im;
            };
            if (column < last * W)
                set(column / W, column % W);
            if (column >= lastBegin)
                set(last, column - lastBegin);
        });
}

// ---- a block that holds all that one length needs: the plan and behind it the table, from a multiple of 64 bytes on
// ----

inline constexpr std::size_t planSize = (sizeof(DftPlan) + 63) / 64 * 8; // doubles

inline bool hasSmallFactors(int length)
{
    auto left = unsigned(length) >> std::countr_zero(unsigned(length));
    const auto divide = [&](unsigned prime) {
        while (left % prime == 0)
            left /= prime;
    };
    divide(3);
    divide(5);
    if (left > 1) {
        divide(7);
        divide(11);
        divide(13);
    }
    return left == 1;
}

// Of lengths with small factors, as the two that follow.
inline std::size_t mixedSize(int length)
{
    const int lanes = kernels<DftKernels<double>>().lanes;
    return planSize + dftTableSize(planDft(length, lanes), lanes);
}
inline void fillMixed(int length, double* block)
{
    const int lanes = kernels<DftKernels<double>>().lanes;
    const DftPlan plan = planDft(length, lanes);
    std::memcpy(block, &plan, sizeof plan);
    fillDftTable(plan, lanes, block + planSize);
}
// Nobody can have an array of such a length, or the sizes would overflow.
inline bool isTooLongForMixed(int length) { return std::uint64_t(length) > std::uint64_t{PTRDIFF_MAX} / 128; }

class MixedDft {
public:
    // With such a block. False when there is none, or no memory.
    bool prepare(const double* block)
    {
        if (!block)
            return false;
        plan_ = reinterpret_cast<const DftPlan*>(block);
        const std::size_t size = kernels<DftKernels<double>>().scratchSize(*plan_);
        scratch_ = context().caches.working.scratch.buffer<double>(size);
        return scratch_ != nullptr;
    }

    template <class R>
    void transform(const R* src, R* dst, double sign, double reScale, double imScale) const
    {
        const auto* const table = reinterpret_cast<const double*>(plan_) + planSize;
        kernels<DftKernels<R>>().transform(src, dst, *plan_, table, scratch_, sign, reScale, imScale);
    }

private:
    const DftPlan* plan_ = nullptr;
    double* scratch_ = nullptr;
};

} // namespace ark
