// The DFT of a length with small prime factors.
//
// With n = columns n1 + n2 and k = k1 + rows k2
//
//   X[k] = sum over n2 of  w_columns^(n2 k2)  w_length^(n2 k1)  sum over n1 of w_rows^(n1 k1) x[n]
//
// The inner sums run with columns n2 in the lanes, the outer ones with k1 in the lanes, so that both read and write
// whole registers of the caller's neighbours; between them stands a transposition. Each is a chain of Stockham passes
// over a block: a register of real and one of imaginary parts a row, and factors that all lanes share.
//
// Pairs are taken apart, and put together, inside blocks of 128 bits only. So the lanes of a block are in the order of
// dftLane in both halves; the transposition picks its rows in that order.
#include "transform/dft_kernels.hpp"
#include "frame/kernels.hpp"
#include "transform/fft_numbers.hpp"

namespace ark::ARK_SET {
namespace {

using V = Vec<double>;
constexpr std::ptrdiff_t W = lanes<double>;
constexpr std::ptrdiff_t rowSize = 2 * W; // doubles

using Complex = Cplx<V>;
ARK_INLINE Complex operator*(double factor, Complex a) { return scaledBy(a, factor); }

// ---- where the passes read and write ----

struct Rows {
    double* rows;

    ARK_INLINE Complex get(std::ptrdiff_t row) const
    {
        return {load(rows + row * rowSize), load(rows + row * rowSize + W)};
    }
    ARK_INLINE void put(std::ptrdiff_t row, Complex x) const
    {
        store(rows + row * rowSize, x.re);
        store(rows + row * rowSize + W, x.im);
    }
};

template <class R>
struct PairsSource {
    const R* pairs;
    std::ptrdiff_t stride; // reals
    double sign;

    ARK_INLINE Complex get(std::ptrdiff_t row) const
    {
        const V a = loadDoubles(pairs + row * stride), b = loadDoubles(pairs + row * stride + W);
        return {permute2<unpackLow<2, 1>>(a, b), sign * permute2<unpackHigh<2, 1>>(a, b)};
    }
};

template <class R>
struct PairsTarget {
    R* pairs;
    std::ptrdiff_t stride; // reals
    double reScale, imScale;

    ARK_INLINE void put(std::ptrdiff_t row, Complex x) const
    {
        const V re = x.re * reScale, im = x.im * imScale;
        storeDoubles(pairs + row * stride, permute2<unpackLow<2, 1>>(re, im));
        storeDoubles(pairs + row * stride + W, permute2<unpackHigh<2, 1>>(re, im));
    }
};

// ---- butterflies ----

template <int N, class C>
requires(N == 1 || N == 2 || N == 4 || N == 8) ARK_INLINE void butterfly(C (&x)[N])
{
    butterfly(x, 0.70710678118654752440);
}

// Odd radices: the sums of opposite elements meet the cosines only, the differences the sines only.
template <int radix, class C>
ARK_INLINE void butterfly(C (&x)[radix])
{
    constexpr int half = radix / 2;
    const C first = x[0];
    C sums[half + 1], differences[half + 1];
    ARK_UNROLL
    for (int k = 1; k <= half; k++) {
        sums[k] = x[k] + x[radix - k];
        differences[k] = x[k] - x[radix - k];
        x[0] = x[0] + sums[k];
    }
    ARK_UNROLL
    for (int m = 1; m <= half; m++) {
        C even = first + constantRoots<double, radix>.re[m] * sums[1],
          odd = constantRoots<double, radix>.im[m] * differences[1];
        ARK_UNROLL
        for (int k = 2; k <= half; k++) {
            even = even + constantRoots<double, radix>.re[m * k % radix] * sums[k];
            odd = odd + constantRoots<double, radix>.im[m * k % radix] * differences[k];
        }
        x[m] = even - timesMinusI(odd);
        x[radix - m] = even + timesMinusI(odd);
    }
}

// ---- passes ----

// One butterfly for each of s neighbours.
template <int radix, bool hasFactors, class Source, class Target>
ARK_INLINE void butterflies(Source source, std::ptrdiff_t from, std::ptrdiff_t apart, Target target, std::ptrdiff_t to,
                            std::ptrdiff_t s, const double* factors)
{
    for (std::ptrdiff_t q = 0; q < s; q++) {
        Complex x[radix];
        ARK_UNROLL
        for (int k = 0; k < radix; k++)
            x[k] = source.get(from + q + k * apart);
        butterfly(x);
        ARK_UNROLL
        for (std::ptrdiff_t j = 0; j < radix; j++)
            if constexpr (hasFactors)
                target.put(to + q + j * s,
                           j == 0 ? x[j]
                                  : x[j] * Complex{broadcast(factors[2 * j - 2]), broadcast(factors[2 * j - 1])});
            else
                target.put(to + q + j * s, x[j]);
    }
}

// A pass: s transforms of length radix * count side by side. Source and target may be the same when count is 1. Returns
// where the next pass's factors are.
template <int radix, bool isLast, class Source, class Target>
ARK_INLINE const double* pass(Source source, Target target, std::ptrdiff_t count, std::ptrdiff_t s,
                              const double* factors)
{
    butterflies<radix, false>(source, 0, s * count, target, 0, s, nullptr);
    if constexpr (!isLast)
        for (std::ptrdiff_t p = 1; p < count; p++, factors += std::ptrdiff_t{2} * (radix - 1))
            butterflies<radix, true>(source, s * p, s * count, target, s * radix * p, s, factors);
    return factors;
}

template <bool isLast, class Source, class Target>
[[gnu::noinline]] const double* passOf(DftPass step, const Source& source, const Target& target, std::ptrdiff_t s,
                                       const double* factors)
{
    switch (step.radix) {
    case 2: return pass<2, isLast>(source, target, step.count, s, factors);
    case 3: return pass<3, isLast>(source, target, step.count, s, factors);
    case 4: return pass<4, isLast>(source, target, step.count, s, factors);
    case 5: return pass<5, isLast>(source, target, step.count, s, factors);
    case 7: return pass<7, isLast>(source, target, step.count, s, factors);
    case 8: return pass<8, isLast>(source, target, step.count, s, factors);
    case 11: return pass<11, isLast>(source, target, step.count, s, factors);
    case 13: return pass<13, isLast>(source, target, step.count, s, factors);
    default: return pass<1, isLast>(source, target, step.count, s, factors);
    }
}

// The passes from the first on, between two blocks in turn.
struct Chain {
    const DftPass* passes;
    const double* factors;
    std::ptrdiff_t s = 1;

    template <bool isLast, class Source, class Target>
    ARK_INLINE void next(const Source& source, const Target& target)
    {
        factors = passOf<isLast>(*passes, source, target, s, factors);
        s *= passes->radix;
        passes++;
    }
    ARK_INLINE void next(Rows& rows, Rows& others)
    {
        next<false>(rows, others);
        const Rows swapped = rows;
        rows = others;
        others = swapped;
    }
};

ARK_INLINE std::ptrdiff_t smaller(std::ptrdiff_t a, std::ptrdiff_t b) { return a < b ? a : b; }
ARK_INLINE std::ptrdiff_t larger(std::ptrdiff_t a, std::ptrdiff_t b) { return a > b ? a : b; }

// A register's worth of rows or columns: where the blocks do not fill all of them the last one overlaps the one before.
ARK_INLINE std::ptrdiff_t blocksOf(std::ptrdiff_t count) { return (count + W - 1) / W; }
ARK_INLINE std::ptrdiff_t beginOf(std::ptrdiff_t block, std::ptrdiff_t count)
{
    return block > 0 && (block + 1) * W > count ? count - W : block * W;
}

// The scratch: for each block of rows a row for each column, and a block behind them; two blocks; and the caller's
// pairs once more where whole registers reach beyond them.
struct Scratch {
    std::ptrdiff_t first, second, pairs, size; // doubles

    ARK_INLINE static Scratch of(std::ptrdiff_t rows, std::ptrdiff_t columns)
    {
        Scratch scratch;
        scratch.first = (blocksOf(rows) * columns + W) * rowSize;
        scratch.second = scratch.first + larger(rows, columns) * rowSize;
        scratch.pairs = scratch.second + rows * rowSize;
        scratch.size = scratch.pairs;
        if (rows < W || columns < W)
            scratch.size += larger(2 * rows * columns + rowSize, columns * rowSize);
        return scratch;
    }
};

std::size_t scratchSize(const DftPlan& plan) { return std::size_t(Scratch::of(plan.rows, plan.columns).size); }

// A block of columns, transposed into the middle, the factors multiplied in. Where there are fewer rows than lanes, the
// last one stands in for those that are missing; where there are fewer columns, what is beyond them is overwritten by
// the next block or not read.
[[gnu::noinline]] void transposeBlock(const double* from, std::ptrdiff_t rows, const double* factors, double* middle,
                                      std::ptrdiff_t columns)
{
    for (std::ptrdiff_t block = 0; block < blocksOf(rows); block++, middle += columns * rowSize) {
        const std::ptrdiff_t begin = beginOf(block, rows);
        Complex x[W];
        ARK_UNROLL
        for (int l = 0; l < W; l++) {
            const std::ptrdiff_t row = smaller(begin + dftLane(l, W), rows - 1) * rowSize;
            x[l] =
                Complex{load(from + row), load(from + row + W)} * Complex{load(factors + row), load(factors + row + W)};
        }
        transpose(x);
        ARK_UNROLL
        for (int l = 0; l < W; l++)
            Rows{middle}.put(dftLane(l, W), x[l]);
    }
}

template <class R>
void transform(const R* src, R* dst, const DftPlan& plan, const double* table, double* scratch, double sign,
               double reScale, double imScale)
{
    const std::ptrdiff_t rows = plan.rows, columns = plan.columns;
    const Scratch places = Scratch::of(rows, columns);
    R* const pairs = reinterpret_cast<R*>(scratch + places.pairs);
    const double* factors = table + plan.middleFactors;

    if (columns < W) {
        __builtin_memcpy(pairs, src, std::size_t(2 * rows * columns) * sizeof(R));
        for (std::ptrdiff_t i = 0; i < rowSize; i++)
            pairs[2 * rows * columns + i] = 0;
        src = pairs;
    }
    for (std::ptrdiff_t block = 0; block < blocksOf(columns); block++, factors += rows * rowSize) {
        const std::ptrdiff_t begin = beginOf(block, columns);
        Rows block0{scratch + places.first}, block1{scratch + places.second};
        Chain chain{plan.rowPasses, table};
        chain.next<false>(PairsSource<R>{src + 2 * begin, 2 * columns, sign}, block0);
        while (chain.passes->radix)
            chain.next(block0, block1);
        transposeBlock(block0.rows, rows, factors, scratch + begin * rowSize, columns);
    }

    for (std::ptrdiff_t block = 0; block < blocksOf(rows); block++) {
        Rows block0{scratch + block * columns * rowSize}, block1{scratch + places.first};
        Chain chain{plan.columnPasses, table + plan.columnFactors};
        while (chain.passes->count > 1)
            chain.next(block0, block1);
        if (rows >= W)
            chain.next<true>(block0, PairsTarget<R>{dst + 2 * beginOf(block, rows), 2 * rows, reScale, imScale});
        else
            chain.next<true>(block0, PairsTarget<R>{pairs, rowSize, reScale, imScale});
    }
    if (rows >= W)
        return;
    // From the first on, so that what reaches into the next one is overwritten.
    std::ptrdiff_t column = 0;
    for (; 2 * column * rows + rowSize <= 2 * rows * columns; column++)
        __builtin_memcpy(dst + 2 * column * rows, pairs + column * rowSize, std::size_t(rowSize) * sizeof(R));
    for (; column < columns; column++)
        for (std::ptrdiff_t i = 0; i < 2 * rows; i++)
            dst[2 * column * rows + i] = pairs[column * rowSize + i];
}

// ---- short lengths: one complex number a register, straight-line ----

ARK_INLINE Pair<double> operator*(double factor, Pair<double> a) { return scaledBy(a, factor); }

template <int N>
ARK_INLINE Pair<double> turned(Pair<double> a, int k) // times e^(-2 pi i k / N)
{
    if (k == 0)
        return a;
    return times(a, constantRoots<double, N>.re[k], constantRoots<double, N>.im[k]);
}

// A transforms of B elements each after B of A.
template <int A, int B>
ARK_INLINE void composite(Pair<double> (&x)[A * B])
{
    Pair<double> columns[B][A];
    ARK_UNROLL
    for (int b = 0; b < B; b++) {
        ARK_UNROLL
        for (int a = 0; a < A; a++)
            columns[b][a] = x[B * a + b];
        butterfly(columns[b]);
    }
    ARK_UNROLL
    for (int a = 0; a < A; a++) {
        Pair<double> row[B];
        ARK_UNROLL
        for (int b = 0; b < B; b++)
            row[b] = turned<A * B>(columns[b][a], a * b);
        butterfly(row);
        ARK_UNROLL
        for (int b = 0; b < B; b++)
            x[a + A * b] = row[b];
    }
}
ARK_INLINE void butterfly(Pair<double> (&x)[6]) { composite<3, 2>(x); }
ARK_INLINE void butterfly(Pair<double> (&x)[9]) { composite<3, 3>(x); }

template <int A, int B, class R>
void transformShort(const R* src, R* dst, double sign, double reScale, double imScale)
{
    constexpr std::ptrdiff_t N = std::ptrdiff_t{A} * B;
    Pair<double> x[N];
    ARK_UNROLL
    for (std::ptrdiff_t n = 0; n < N; n++)
        x[n] = {Pair<double>::V{double(src[2 * n]), double(src[2 * n + 1])} * Pair<double>::V{1, sign}};
    composite<A, B>(x);
    ARK_UNROLL
    for (std::ptrdiff_t k = 0; k < N; k++) {
        const Pair<double>::V scaled = x[k].parts * Pair<double>::V{reScale, imScale};
        dst[2 * k] = R(scaled[0]);
        dst[2 * k + 1] = R(scaled[1]);
    }
}

template <class R>
constexpr DftKernels<R> dftTable{
    int(W),
    scratchSize,
    transform<R>,
    {transformShort<1, 1, R>,  transformShort<2, 1, R>,  transformShort<3, 1, R>,  transformShort<4, 1, R>,
     transformShort<5, 1, R>,  transformShort<3, 2, R>,  transformShort<7, 1, R>,  transformShort<8, 1, R>,
     transformShort<3, 3, R>,  transformShort<5, 2, R>,  transformShort<11, 1, R>, transformShort<4, 3, R>,
     transformShort<13, 1, R>, transformShort<7, 2, R>,  transformShort<5, 3, R>,  transformShort<4, 4, R>,
     transformShort<17, 1, R>, transformShort<9, 2, R>,  transformShort<19, 1, R>, transformShort<5, 4, R>,
     transformShort<7, 3, R>,  transformShort<11, 2, R>, transformShort<23, 1, R>, transformShort<8, 3, R>,
     transformShort<5, 5, R>,  transformShort<13, 2, R>, transformShort<9, 3, R>,  transformShort<7, 4, R>,
     transformShort<29, 1, R>, transformShort<6, 5, R>,  transformShort<31, 1, R>, transformShort<8, 4, R>,
     transformShort<11, 3, R>, transformShort<17, 2, R>, transformShort<7, 5, R>,  transformShort<9, 4, R>},
};

} // namespace

extern const DftKernels<float> dftC;
extern const DftKernels<double> dftZ;

constinit const DftKernels<float> dftC = dftTable<float>;
constinit const DftKernels<double> dftZ = dftTable<double>;

} // namespace ark::ARK_SET
