// The complex FFT of 2^order elements.
//
// A register has W lanes. Element W n + l of the source belongs to lane l and row n: with M = N / W rows
//
//   X[k + M q] = sum over l of  w_W^(l q)  w_N^(l k)  Y_l[k],      Y_l[k] = sum over n of w_M^(n k) x[W n + l]
//
// with w_N = e^(-2 pi i / N). The rows: the transforms Y_l run in all lanes at once, passes of radix 4 to 16 in place,
// with twiddles that are the same for all lanes, which leave the rows in bit-reversed order. The lanes: for W rows k at
// a time, the twiddles w_N^(l k), a transposition, and the transform over l, at once or, in wide registers, by a tile
// as radix 2 and radix W / 2; its results are whole registers of neighbouring k. Between passes a row is W real parts
// and then W imaginary parts. Short transforms do all that in one straight piece of code, the longest as matrices.
//
// The shortest, and doubles in registers of 128 bits, have W = 1: a row is one complex number in one register, a pair,
// and there are no lanes to transform.
//
// The order of lanes that a deinterleaving inside blocks of 128 bits gives is l = W/2 p1 + 2 b + p0 for floats (b the
// block, p1 p0 the place in it) and l = W/2 p + b for doubles; it is kept throughout: the first factor of the transform
// over l is the radix 2 over p1 or p, and the table of the lanes pass is in that order.
//
// Bit-reversed order leaves the results of a row in the row, and to transpose there and back would cost more than the
// transform over l. It is made inside the registers, of real and imaginary parts next to each other, as memory has
// them: its longest stage is between the two registers of a row, and -i, which exchanges parts, is in a shuffle of the
// next.
#include "transform/fft_kernels.hpp"
#include "frame/kernels.hpp"
#include "transform/fft_tables.hpp"

namespace ark::ARK_SET {
namespace {

// ---- the rows' transforms ----

// A pass of radix r over transforms of length n, s of them one after another, in place: butterflies of the rows p + t
// n/r for every p = 0 ... n/r - 1, whose result j is multiplied by w_n^(j p). The table has r - 1 factors for every p.
// From natural order to bit-reversed order; or, with the passes in the opposite order and the factors before the
// butterfly, from bit-reversed order to natural order.
template <class R, int W, int radix, bool toReversed, bool withFactors, class Source, class Target>
ARK_INLINE void inPlaceButterfly(Source source, Target target, std::ptrdiff_t row, std::ptrdiff_t apart, const R* w,
                                 R eighth)
{
    const auto factor = [&](int j) ARK_INLINED { return getFactor<R, W>(w + sizeOfFactors<W>(j - 1)); };
    butterflyInGroups<radix, Row<R, W>>(
        eighth,
        [&]<int count>(int first, int step, Row<R, W>(&x)[count]) ARK_INLINED {
            ARK_UNROLL
            for (int i = 0; i < count; i++) {
                const int n = first + i * step;
                x[i] = source(row + (toReversed ? n : reversed(n, radix)) * apart);
                if constexpr (!toReversed && withFactors)
                    if (n > 0)
                        x[i] = loadedOnce(x[i]) * factor(n);
            }
        },
        [&]<int count>(int first, int step, Row<R, W>(&x)[count]) ARK_INLINED {
            ARK_UNROLL
            for (int i = 0; i < count; i++) {
                const int k = first + i * step;
                if constexpr (toReversed && withFactors)
                    if (k > 0)
                        x[i] = x[i] * factor(k);
                target(row + (toReversed ? reversed(k, radix) : k) * apart, x[i]);
            }
        });
}
template <class R, int W, int radix, bool toReversed, std::ptrdiff_t columns = 1, class Source, class Target>
ARK_INLINE void inPlacePass(Source source, Target target, std::ptrdiff_t n, std::ptrdiff_t s, RowsTable<R> table)
{
    const std::ptrdiff_t apart = n / radix;
    for (std::ptrdiff_t block = 0; block < n * s; block += n) {
        const R* w = table.factors;
        for (std::ptrdiff_t row = block; row < block + apart; row++, w += sizeOfFactors<W>(radix - 1))
            for (std::ptrdiff_t i = 0; i < columns; i++)
                inPlaceButterfly<R, W, radix, toReversed, true>(source.beside(i), target.beside(i), row, apart, w,
                                                                table.eighth);
    }
}
// Of transforms as long as the radix: all factors are 1.
template <class R, int W, int radix, bool toReversed>
ARK_INLINE void lastButterflies(R* rows, std::ptrdiff_t s, R eighth)
{
    for (; s > 0; s--, rows += radix * 2 * W)
        inPlaceButterfly<R, W, radix, toReversed, false>(InnerSource<R, W>{rows}, InnerTarget<R, W>{rows}, 0, 1, rows,
                                                         eighth);
}

// Calls body with the radix as a constant; the last one's may be longer.
template <class Body>
ARK_INLINE void withRadix(int log2Radix, Body body)
{
    if (log2Radix == 2)
        body(Index<4>{});
    else
        body(Index<8>{});
}
template <int W, class Body>
ARK_INLINE void withLastRadix(int log2Radix, Body body)
{
    if constexpr (!takesRadix8(W))
        if (log2Radix == 4)
            return body(Index<16>{});
    withRadix(log2Radix, body);
}

// The passes are long. They are not inlined, so that all transforms that need one have the same.
template <class R, int W, bool toReversed>
[[gnu::noinline]] void innerPass(int log2Radix, R* rows, std::ptrdiff_t n, std::ptrdiff_t s, RowsTable<R> table)
{
    if (n == std::ptrdiff_t{1} << log2Radix)
        withLastRadix<W>(log2Radix, [&]<int radix>(Index<radix>) ARK_INLINED {
            lastButterflies<R, W, radix, toReversed>(rows, s, table.eighth);
        });
    else
        withRadix(log2Radix, [&]<int radix>(Index<radix>) ARK_INLINED {
            inPlacePass<R, W, radix, toReversed>(InnerSource<R, W>{rows}, InnerTarget<R, W>{rows}, n, s, table);
        });
}

// In place in the rows, but for the source of the first pass, which is not the only one. Of one column of registers or
// of more, whose rows are apart.
template <class R, int W, std::ptrdiff_t columns = 1, class Source>
[[gnu::noinline]] void transformRowsToReversed(const Plan& plan, int passes, Source source, InnerTarget<R, W> rows,
                                               RowsTable<R> table)
{
    std::ptrdiff_t n = std::ptrdiff_t{1} << plan.m, s = 1;
    for (int i = 0; i < passes; i++) {
        const int log2Radix = plan.log2Radix[i];
        if (i == 0)
            withRadix(log2Radix, [&]<int radix>(Index<radix>) ARK_INLINED {
                inPlacePass<R, W, radix, true, columns>(source, rows, n, s, table);
            });
        else
            for (std::ptrdiff_t column = 0; column < columns; column++)
                innerPass<R, W, true>(log2Radix, rows.beside(column).rows, n, s, table);
        n >>= log2Radix;
        s <<= log2Radix;
        table.factors += sizeOfFactors<W>(n * ((1 << log2Radix) - 1));
    }
}

// The last pass to bit-reversed order, with its results put in natural order: rows in place, target in any order.
template <class R, int W, int radix, std::ptrdiff_t columns, class Source, class Target>
ARK_INLINE void lastPass(Source source, Target target, std::ptrdiff_t M, R eighth)
{
    for (std::ptrdiff_t k = 0, block = 0; k < M / radix; k++, block = nextReversed(block, M / radix))
        for (std::ptrdiff_t i = 0; i < columns; i++) {
            Row<R, W> x[radix];
            ARK_UNROLL
            for (int t = 0; t < radix; t++)
                x[t] = source.beside(i)(block * radix + t);
            butterfly(x, eighth);
            ARK_UNROLL
            for (int j = 0; j < radix; j++)
                target.beside(i)(k + j * (M / radix), x[j]);
        }
}

// In place in the rows, but for the target of the last pass, which is not the only one.
template <class R, int W, std::ptrdiff_t columns = 1, class Target>
[[gnu::noinline]] void transformRowsFromReversed(const Plan& plan, int passes, InnerTarget<R, W> rows, Target target,
                                                 RowsTable<R> table)
{
    table.factors += sizeOfFactors<W>(plan.factors);
    std::ptrdiff_t n = 1, s = std::ptrdiff_t{1} << plan.m;
    for (int i = plan.passes - 1; i >= passes; i--) {
        n <<= plan.log2Radix[i];
        s >>= plan.log2Radix[i];
    }
    for (int i = passes - 1; i >= 0; i--) {
        const int log2Radix = plan.log2Radix[i];
        if (n > 1)
            table.factors -= sizeOfFactors<W>(n * ((1 << log2Radix) - 1));
        n <<= log2Radix;
        s >>= log2Radix;
        if (i == 0)
            withRadix(log2Radix, [&]<int radix>(Index<radix>) ARK_INLINED {
                inPlacePass<R, W, radix, false, columns>(InnerSource<R, W>{rows.rows, rows.distance}, target, n, s,
                                                         table);
            });
        else
            for (std::ptrdiff_t column = 0; column < columns; column++)
                innerPass<R, W, false>(log2Radix, rows.beside(column).rows, n, s, table);
    }
}

// ---- the lanes' transform ----

// W rows k on their way to natural order, between the two halves of lanesToNatural: [q1][p0][group], W real and W
// imaginary parts. Registers would not hold them.
template <class R, int W>
struct Tile {
    static constexpr int P = int(16 / sizeof(R)), B = W / P, half = P / 2;
    alignas(64) R part[2][half][B][2 * W];
};

// The factors w_N^(l k) of the rows that row(0) to row(W - 1) give, the transposition inside blocks, and radix 2 over
// the upper half of the lanes.
template <class R, int W, class RowAt>
ARK_INLINE void fillTile(Tile<R, W>& tile, RowAt row, const R* table, LaneConstants<R, W> constants)
{
    using V = Reg<R, W>;
    constexpr int P = Tile<R, W>::P, half = Tile<R, W>::half;
    ARK_UNROLL
    for (int group = 0; group < Tile<R, W>::B; group++) {
        V re[P], im[P];
        ARK_UNROLL
        for (int r = 0; r < P; r++) {
            const int i = elementOf<P>(group * P + r, W);
            const Cplx<V> x = row(i) * getRow<R, W>(table + i * 2 * W);
            re[r] = x.re;
            im[r] = x.im;
        }
        transposeInBlocks(re);
        transposeInBlocks(im);
        ARK_UNROLL
        for (int p = 0; p < half; p++) {
            const Cplx<V> a{re[p], im[p]}, b{re[p + half], im[p + half]};
            const Cplx<V> sum = a + b, difference = (a - b) * constants.half(p);
            put(tile.part[0][p][group], sum.re);
            put(tile.part[0][p][group] + W, sum.im);
            put(tile.part[1][p][group], difference.re);
            put(tile.part[1][p][group] + W, difference.im);
        }
    }
}

// The transposition of blocks and radix W / 2.
template <class R, int W, class Target>
ARK_INLINE void emptyTile(const Tile<R, W>& tile, Target target, std::ptrdiff_t k0, std::ptrdiff_t M, R eighth)
{
    using V = Reg<R, W>;
    constexpr int P = Tile<R, W>::P, B = Tile<R, W>::B, half = Tile<R, W>::half, H = W / 2;
    ARK_UNROLL
    for (int q1 = 0; q1 < 2; q1++) {
        Cplx<V> x[H];
        ARK_UNROLL
        for (int p = 0; p < half; p++) {
            V re[B], im[B];
            ARK_UNROLL
            for (int group = 0; group < B; group++) {
                re[group] = get<R, W>(tile.part[q1][p][group]);
                im[group] = get<R, W>(tile.part[q1][p][group] + W);
            }
            transposeBlocks<P>(re);
            transposeBlocks<P>(im);
            ARK_UNROLL
            for (int b = 0; b < B; b++)
                x[half * b + p] = {re[b], im[b]};
        }
        butterfly(x, eighth);
        ARK_UNROLL
        for (int q2 = 0; q2 < H; q2++)
            target(k0 + M * (q1 + 2 * q2), x[q2]);
    }
}

// Where registers hold W rows, their transposition makes the transform over the lanes a butterfly.
template <class R, int W>
ARK_INLINE void turnedButterfly(Cplx<Reg<R, W>> (&x)[W], R eighth)
{
    Cplx<Reg<R, W>> turned[W];
    ARK_UNROLL
    for (int lane = 0; lane < W; lane++)
        turned[lane] = x[lane];
    transpose(turned);
    ARK_UNROLL
    for (int lane = 0; lane < W; lane++)
        x[elementOf<int(16 / sizeof(R))>(lane, W)] = turned[lane];
    butterfly(x, eighth);
}

// The same as by a tile.
template <class R, int W, class RowAt, class Target>
ARK_INLINE void lanesInRegisters(RowAt row, Target target, std::ptrdiff_t k0, std::ptrdiff_t M, const R* table,
                                 R eighth)
{
    Cplx<Reg<R, W>> x[W];
    ARK_UNROLL
    for (int lane = 0; lane < W; lane++) {
        const int i = elementOf<int(16 / sizeof(R))>(lane, W);
        x[lane] = row(i) * getRow<R, W>(table + i * 2 * W);
    }
    turnedButterfly<R, W>(x, eighth);
    ARK_UNROLL
    for (int q = 0; q < W; q++)
        target(k0 + M * q, x[q]);
}

// Natural order, from rows in bit-reversed order: for W rows k at a time, the transform over the lanes of each, written
// where k + M q stands. A tile is filled while the one before it is emptied, so that neither waits for memory.
template <class R, int W, class Target>
void lanesToNatural(const R* rows, Target target, std::ptrdiff_t M, const R* table, LaneConstants<R, W> constants)
{
    const InnerSource<R, W> source{rows};
    std::ptrdiff_t place = 0;
    const auto row = [&](int i) ARK_INLINED { return source(place + reversed(i, W) * (M / W)); };
    if constexpr (fitRegisters(W)) {
        for (std::ptrdiff_t k0 = 0; k0 < M; k0 += W, place = nextReversed(place, M / W))
            lanesInRegisters<R, W>(row, target, k0, M, table + k0 * 2 * W, constants.eighth);
    } else {
        Tile<R, W> tiles[2];
        fillTile(tiles[0], row, table, constants);
        for (std::ptrdiff_t k0 = 0; k0 < M; k0 += W) {
            if (k0 + W < M) {
                place = nextReversed(place, M / W);
                fillTile(tiles[(k0 / W + 1) % 2], row, table + (k0 + W) * 2 * W, constants);
            }
            emptyTile(tiles[k0 / W % 2], target, k0, M, constants.eighth);
        }
    }
}

// One stage of the transform over the elements of rows: x[e] + x[e + distance] and x[e] - x[e + distance]. Stages are a
// radix 4 two by two, at distances 8 and 4, 2 and 1: between the two, the upper half of both is multiplied by -i.
template <class R, int W, int distance, bool toReversed, bool exchanged, int count>
ARK_INLINE void laneStage(Interleaved<Reg<R, W>> (&x)[count])
{
    constexpr bool isSecond = (log2Of(distance) % 2 == 0) == toReversed;
    constexpr int turned = !isSecond ? 0 : toReversed ? 2 * distance : distance / 2;
    ARK_UNROLL
    for (auto& y : x) {
        if constexpr (distance == W / 2) {
            const Reg<R, W> upper = turned == 0 ? y.high : timesMinusIWhere<R, W, W / 2, turned, exchanged>(y.high);
            y = {y.low + upper, y.low - upper};
        } else {
            y = {stageInRegister<R, W, 0, distance, turned, exchanged>(y.low),
                 stageInRegister<R, W, W / 2, distance, turned, exchanged>(y.high)};
        }
    }
}

// The factors between the stages at distances of 4 and more and those below; among 8 elements the lower half has none.
template <class R, int W, bool exchanged, int count>
ARK_INLINE void multiplyBetweenStages(Interleaved<Reg<R, W>> (&x)[count], LaneConstants<R, W> constants)
{
    const Cplx<Reg<R, W>> low = constants.stages(0), high = constants.stages(1);
    ARK_UNROLL
    for (auto& y : x) {
        if constexpr (W > 8)
            y.low = timesPairs<exchanged>(y.low, low);
        y.high = timesPairs<exchanged>(y.high, high);
    }
}

// The transform over the elements of rows: natural order in and bit-reversed order out, or the opposite. As many as
// half of the registers hold go through every stage together; one alone would wait for each of its results.
inline constexpr int rowsTogether = ARK_AVX512 ? 8 : 4;
template <class R, int W, bool toReversed, bool exchanged, int count>
ARK_INLINE void transformLanes(Interleaved<Reg<R, W>> (&x)[count], LaneConstants<R, W> constants)
{
    if constexpr (toReversed) {
        if constexpr (W >= 16)
            laneStage<R, W, 8, toReversed, exchanged>(x);
        if constexpr (W >= 8) {
            laneStage<R, W, 4, toReversed, exchanged>(x);
            multiplyBetweenStages<R, W, exchanged>(x, constants);
        }
        laneStage<R, W, 2, toReversed, exchanged>(x);
        laneStage<R, W, 1, toReversed, exchanged>(x);
    } else {
        laneStage<R, W, 1, toReversed, exchanged>(x);
        laneStage<R, W, 2, toReversed, exchanged>(x);
        if constexpr (W >= 8) {
            multiplyBetweenStages<R, W, exchanged>(x, constants);
            laneStage<R, W, 4, toReversed, exchanged>(x);
        }
        if constexpr (W >= 16)
            laneStage<R, W, 8, toReversed, exchanged>(x);
    }
}

// The same, to a target's rows row(0) ... or from a source's.
template <class R, int W, int count, class Target, class RowNumber>
ARK_INLINE void lanesToReversed(Row<R, W> (&x)[count], Target target, RowNumber row, LaneConstants<R, W> constants)
{
    if constexpr (W == 1) {
        ARK_UNROLL
        for (int i = 0; i < count; i++)
            target(row(i), x[i]);
    } else {
        constexpr int together = count < rowsTogether ? count : rowsTogether;
        ARK_UNROLL
        for (int first = 0; first < count; first += together) {
            Interleaved<Reg<R, W>> y[together];
            ARK_UNROLL
            for (int i = 0; i < together; i++)
                y[i] = interleaved<Target::exchanged>(x[first + i]);
            transformLanes<R, W, true, Target::exchanged>(y, constants);
            ARK_UNROLL
            for (int i = 0; i < together; i++)
                target.put(row(first + i), y[i]);
        }
    }
}
template <class R, int W, int count, class Source, class RowNumber>
ARK_INLINE void lanesFromReversed(Source source, RowNumber row, Row<R, W> (&x)[count], LaneConstants<R, W> constants)
{
    if constexpr (W == 1) {
        ARK_UNROLL
        for (int i = 0; i < count; i++)
            x[i] = source(row(i));
    } else {
        constexpr int together = count < rowsTogether ? count : rowsTogether;
        ARK_UNROLL
        for (int first = 0; first < count; first += together) {
            Interleaved<Reg<R, W>> y[together];
            ARK_UNROLL
            for (int i = 0; i < together; i++)
                y[i] = source.get(row(first + i));
            transformLanes<R, W, false, Source::exchanged>(y, constants);
            ARK_UNROLL
            for (int i = 0; i < together; i++)
                x[first + i] = deinterleaved<Source::exchanged>(y[i]);
        }
    }
}

// ---- the whole transform ----

template <class R>
struct Job {
    FftVector<const R> src;
    FftVector<R> dst;
    const R* table;
    R* scratch;
    R scale;

    const Head<R>& head() const { return *reinterpret_cast<const Head<R>*>(table); }
};

// Calls body with OuterTarget, scaling or not.
template <class R, int W, Form form, class Body>
ARK_INLINE void withTarget(FftVector<R> vector, std::ptrdiff_t first, std::ptrdiff_t step, R scale, Body body)
{
    if (scale == 1)
        body(OuterTarget<R, W, form, false>{vector, first, step, scale});
    else
        body(OuterTarget<R, W, form, true>{vector, first, step, scale});
}

template <class R, int W, Form form>
void shortToNatural(const Job<R>& job)
{
    const Head<R>& head = job.head();
    const std::ptrdiff_t M = std::ptrdiff_t{1} << head.plan.m;
    R* const rows = job.scratch;
    transformRowsToReversed<R, W>(head.plan, W == 1 ? head.plan.passes - 1 : head.plan.passes,
                                  OuterSource<R, W, form>{job.src, 0, W}, InnerTarget<R, W>{rows},
                                  head.rowsTable(job.table));
    withTarget<R, W, form>(job.dst, 0, 1, job.scale, [&](auto target) {
        if constexpr (W == 1)
            withLastRadix<W>(head.plan.log2Radix[head.plan.passes - 1], [&]<int radix>(Index<radix>) ARK_INLINED {
                lastPass<R, W, radix, 1>(InnerSource<R, W>{rows}, target, M, head.eighth);
            });
        else
            lanesToNatural<R, W>(rows, target, M, job.table + head.lanes, {job.table + head.constants, head.eighth});
    });
}

template <class V, std::size_t... place>
ARK_INLINE auto blockIn(V v, int block, std::index_sequence<place...>)
{
    constexpr int P = sizeof...(place);
    switch (block) {
    case 0: return __builtin_shufflevector(v, v, int(place)...);
    case 1: return __builtin_shufflevector(v, v, (int(place) + P) % lanesOf<V>...);
    case 2: return __builtin_shufflevector(v, v, (int(place) + 2 * P) % lanesOf<V>...);
    default: return __builtin_shufflevector(v, v, (int(place) + 3 * P) % lanesOf<V>...);
    }
}
template <class V>
ARK_INLINE auto blockOf(V v, int block)
{
    return blockIn(v, block, std::make_index_sequence<placesOf<V>>{});
}

// So few rows that no pass over them needs a loop. Whole tiles of them, in natural order:
template <class R, int W, Form form, int M>
void fewTiles(const Job<R>& job)
{
    const OuterSource<R, W, form> source{job.src, 0, W};
    const LaneConstants<R, W> constants{job.table + job.head().constants, job.head().eighth};
    Cplx<Reg<R, W>> x[M];
    ARK_UNROLL
    for (int n = 0; n < M; n++)
        x[n] = source(n);
    butterfly(x, constants.eighth);
    withTarget<R, W, form>(job.dst, 0, 1, job.scale, [&](auto target) ARK_INLINED {
        ARK_UNROLL
        for (int k0 = 0; k0 < M; k0 += W) {
            const auto row = [&](int i) ARK_INLINED { return x[k0 + i]; };
            const R* const factors = job.table + job.head().lanes + k0 * 2 * W;
            if constexpr (fitRegisters(W)) {
                lanesInRegisters<R, W>(row, target, k0, M, factors, constants.eighth);
            } else {
                Tile<R, W> tile;
                fillTile(tile, row, factors, constants);
                emptyTile(tile, target, k0, M, constants.eighth);
            }
        }
    });
}

template <class C, class R, int N>
ARK_INLINE void scaleAll(C (&x)[N], R scale)
{
    if (scale == 1)
        return;
    ARK_UNROLL
    for (int i = 0; i < N; i++)
        x[i] = scaledBy(x[i], scale);
}

// Pairs, in any order.
template <class R, Form form, FftOrder fftOrder, int N>
void fewPairs(const Job<R>& job)
{
    const OuterSource<R, 1, form> source{job.src, 0, 1};
    const OuterTarget<R, 1, form, false> target{job.dst, 0, 1, 1};
    Row<R, 1> x[N];
    ARK_UNROLL
    for (int n = 0; n < N; n++)
        x[fftOrder == bitReversedInput ? reversed(n, N) : n] = source(n);
    butterfly(x, eighthOf<R>(log2Of(N)));
    scaleAll(x, job.scale);
    ARK_UNROLL
    for (int k = 0; k < N; k++)
        target(fftOrder == bitReversedOutput ? reversed(k, N) : k, x[k]);
}

// Result e of M rows k, which stands where k + M q does, q the bits of e reversed: of P rows P neighbours. A block of a
// register has N elements.
template <class R, int W, Form form, int M>
ARK_INLINE void rowsToNatural(const Interleaved<Reg<R, W>> (&x)[M], FftVector<R> to)
{
    using V = Reg<R, W>;
    constexpr int P = placesOf<V>, B = W / P, N = P / 2;
    ARK_UNROLL
    for (int k = 0; k < M; k += P) {
        ARK_UNROLL
        for (int first = 0; first < W; first += W / 2) {
            V turned[2][N]; // [rows][element of the block]
            ARK_UNROLL
            for (int i = 0; i < P; i++)
                turned[i / N][i % N] = first == 0 ? x[k + i].low : x[k + i].high;
            transposePairsInBlocks(turned[0]);
            transposePairsInBlocks(turned[1]);
            ARK_UNROLL
            for (int i = 0; i < B * N; i++) {
                const V &a = turned[0][i % N], &b = turned[1][i % N];
                const int at = reversed(first + i, W) * M + k;
                if constexpr (form == separateParts) {
                    put(to.re + at, blockOf(shuffled<evens<P>>(a, b), i / N));
                    put(to.im + at, blockOf(shuffled<odds<P>>(a, b), i / N));
                } else {
                    put(to.re + 2 * at, blockOf(a, i / N));
                    put(to.re + 2 * at + P, blockOf(b, i / N));
                }
            }
        }
    }
}

// Fewer than a tile, or in another order: in registers.
template <class R, int W, Form form, FftOrder fftOrder, int M>
void fewRows(const Job<R>& job)
{
    using V = Reg<R, W>;
    const OuterSource<R, W, form> source{job.src, 0, W};
    const OuterTarget<R, W, form, false> target{job.dst, 0, W, 1};
    const LaneConstants<R, W> constants{job.table + job.head().constants, job.head().eighth};
    const R* const factors = job.table + job.head().lanes;
    const auto reversedRow = [](int k) ARK_INLINED { return std::ptrdiff_t(reversed(k, M)); };
    Cplx<V> x[M];
    const auto multiply = [&]() ARK_INLINED {
        ARK_UNROLL
        for (int k = 1; k < M; k++)
            x[k] = x[k] * getRow<R, W>(factors + k * 2 * W);
    };
    if constexpr (fftOrder == bitReversedInput) {
        lanesFromReversed<R, W>(source, reversedRow, x, constants);
        multiply();
        butterfly(x, constants.eighth);
        scaleAll(x, job.scale);
        ARK_UNROLL
        for (int n = 0; n < M; n++)
            target(n, x[n]);
        return;
    }
    ARK_UNROLL
    for (int n = 0; n < M; n++)
        x[n] = source(n);
    butterfly(x, constants.eighth);
    multiply();
    scaleAll(x, job.scale);
    if constexpr (fftOrder == bitReversedOutput) {
        lanesToReversed<R, W>(x, target, reversedRow, constants);
    } else {
        constexpr bool exchanged = form == inversePairs;
        Interleaved<V> y[M];
        ARK_UNROLL
        for (int k = 0; k < M; k++)
            y[k] = interleaved<exchanged>(x[k]);
        transformLanes<R, W, true, exchanged>(y, constants);
        rowsToNatural<R, W, form>(y, job.dst);
    }
}

// Bit-reversed order takes factors from all over their table, which of long vectors is not in the cache, and no
// processor foresees from where next: those of the butterfly after the next one are asked for.
template <class R, int W, int radix>
ARK_INLINE void fetchFactorsAfter(const R* factors, std::ptrdiff_t k, std::ptrdiff_t M)
{
    constexpr std::ptrdiff_t row = std::ptrdiff_t{2} * W, line = 64 / sizeof(R), inCache = (1 << 20) / sizeof(R);
    if (W == 1 || M * row < inCache)
        return;
    k = nextReversed(nextReversed(k, M / radix), M / radix);
    ARK_UNROLL
    for (int j = 0; j < radix; j++)
        for (std::ptrdiff_t at = 0; at < row; at += line)
            __builtin_prefetch(factors + (k + j * (M / radix)) * row + at);
}

// The last pass over the rows to bit-reversed order, the factors w_N^(l k) and the lanes; and the opposite. Sources and
// targets are passed by value: stores could change what a reference leads to.
template <class R, int W, int radix, class Source, class Target>
ARK_INLINE void rowsThenLanes(Source source, Target target, std::ptrdiff_t M, const R* factors,
                              LaneConstants<R, W> constants)
{
    for (std::ptrdiff_t row = 0, next = 0; row < M; row += radix, next = nextReversed(next, M / radix)) {
        fetchFactorsAfter<R, W, radix>(factors, next, M);
        Row<R, W> x[radix];
        ARK_UNROLL
        for (int t = 0; t < radix; t++)
            x[t] = source(row + t);
        butterfly(x, constants.eighth);
        if constexpr (W > 1) {
            ARK_UNROLL
            for (int j = 0; j < radix; j++)
                x[j] = x[j] * getRow<R, W>(factors + (next + j * (M / radix)) * 2 * W);
        }
        lanesToReversed<R, W>(
            x, target, [row](int j) ARK_INLINED { return row + reversed(j, radix); }, constants);
    }
}
template <class R, int W, int radix, class Source, class Target>
ARK_INLINE void lanesThenRows(Source source, Target target, std::ptrdiff_t M, const R* factors,
                              LaneConstants<R, W> constants)
{
    for (std::ptrdiff_t row = 0, next = 0; row < M; row += radix, next = nextReversed(next, M / radix)) {
        fetchFactorsAfter<R, W, radix>(factors, next, M);
        const auto give = [&]<int count>(int first, int step, Row<R, W>(&x)[count]) ARK_INLINED {
            lanesFromReversed<R, W>(
                source, [&](int j) ARK_INLINED { return row + reversed(first + j * step, radix); }, x, constants);
            if constexpr (W > 1) {
                ARK_UNROLL
                for (int j = 0; j < count; j++)
                    x[j] = x[j] * getRow<R, W>(factors + (next + (first + j * step) * (M / radix)) * 2 * W);
            }
        };
        const auto take = [&]<int count>(int first, int step, Row<R, W>(&x)[count]) ARK_INLINED {
            ARK_UNROLL
            for (int t = 0; t < count; t++) {
                const int n = first + t * step;
                target(row + n, x[t]);
            }
        };
        if constexpr (W == 4) { // up to 5 % quicker there, and slower elsewhere
            butterflyInGroups<radix, Row<R, W>>(constants.eighth, give, take);
        } else {
            Row<R, W> x[radix];
            give(0, 1, x);
            butterfly(x, constants.eighth);
            take(0, 1, x);
        }
    }
}

// The two bit-reversed orders have row r where r W stands in the caller's vector, which may begin at element first.
template <class R, int W, Form form>
void shortToReversedFrom(const Job<R>& job, std::ptrdiff_t first)
{
    const Head<R>& head = job.head();
    const std::ptrdiff_t M = std::ptrdiff_t{1} << head.plan.m;
    R* const rows = job.scratch;
    transformRowsToReversed<R, W>(head.plan, head.plan.passes - 1, OuterSource<R, W, form>{job.src, first, W},
                                  InnerTarget<R, W>{rows}, head.rowsTable(job.table));
    const LaneConstants<R, W> constants{job.table + head.constants, head.eighth};
    const R* const factors = job.table + head.lanes;
    const InnerSource<R, W> source{rows};
    withTarget<R, W, form>(job.dst, first, W, job.scale, [&](auto target) {
        withLastRadix<W>(head.plan.log2Radix[head.plan.passes - 1], [&]<int radix>(Index<radix>) ARK_INLINED {
            rowsThenLanes<R, W, radix>(source, target, M, factors, constants);
        });
    });
}

template <class R, int W, Form form>
void shortToReversed(const Job<R>& job)
{
    shortToReversedFrom<R, W, form>(job, 0);
}

template <class R, int W, Form form>
void shortFromReversedFrom(const Job<R>& job, std::ptrdiff_t first)
{
    const Head<R>& head = job.head();
    const std::ptrdiff_t M = std::ptrdiff_t{1} << head.plan.m;
    R* const rows = job.scratch;
    const LaneConstants<R, W> constants{job.table + head.constants, head.eighth};
    const R* const factors = job.table + head.lanes;
    const OuterSource<R, W, form> source{job.src, first, W};
    const InnerTarget<R, W> inner{rows};
    withLastRadix<W>(head.plan.log2Radix[head.plan.passes - 1], [&]<int radix>(Index<radix>) ARK_INLINED {
        lanesThenRows<R, W, radix>(source, inner, M, factors, constants);
    });
    withTarget<R, W, form>(job.dst, first, W, job.scale, [&](auto target) {
        transformRowsFromReversed<R, W>(head.plan, head.plan.passes - 1, InnerTarget<R, W>{rows}, target,
                                        head.rowsTable(job.table));
    });
}

template <class R, int W, Form form>
void shortFromReversed(const Job<R>& job)
{
    shortFromReversedFrom<R, W, form>(job, 0);
}

// The same of few rows, in as many passes as there are here, a first one of radix 4 and the last: nothing is called,
// and the lengths of loops are constants.
template <class R, int W, Form form, FftOrder fftOrder, int m>
void twoPasses(const Job<R>& job)
{
    static_assert(!takesRadix8(W), "Plan's first radix would be 8");
    constexpr int last = 1 << (m - 2);
    constexpr std::ptrdiff_t M = 1 << m;
    const Head<R>& head = job.head();
    R* const rows = job.scratch;
    const LaneConstants<R, W> constants{job.table + head.constants, head.eighth};
    const R* const factors = job.table + head.lanes;
    if constexpr (fftOrder == bitReversedOutput) {
        inPlacePass<R, W, 4, true>(OuterSource<R, W, form>{job.src, 0, W}, InnerTarget<R, W>{rows}, M, 1,
                                   head.rowsTable(job.table));
        withTarget<R, W, form>(job.dst, 0, W, job.scale, [&](auto target) {
            rowsThenLanes<R, W, last>(InnerSource<R, W>{rows}, target, M, factors, constants);
        });
    } else {
        lanesThenRows<R, W, last>(OuterSource<R, W, form>{job.src, 0, W}, InnerTarget<R, W>{rows}, M, factors,
                                  constants);
        withTarget<R, W, form>(job.dst, 0, W, job.scale, [&](auto target) {
            inPlacePass<R, W, 4, false>(InnerSource<R, W>{rows}, target, M, 1, head.rowsTable(job.table));
        });
    }
}

// The factors w_N^(k (c + l)) of a matrix: of row k, and of the W columns from c on in the order of lanes.
template <class R, int W>
struct MatrixFactors {
    const R *powers, *fine, *coarse;
    int fineBits;

    explicit MatrixFactors(const Job<R>& job)
        : powers{job.table + job.head().powers},
          fine{job.table + job.head().fine},
          coarse{job.table + job.head().coarse},
          fineBits{job.head().restPlan.m}
    {}
    ARK_INLINE Row<R, W> times(Row<R, W> x, std::ptrdiff_t k, std::ptrdiff_t c) const
    {
        const std::ptrdiff_t a = k * c;
        const R *f = fine + 2 * (a & ((std::ptrdiff_t{1} << fineBits) - 1)), *g = coarse + 2 * (a >> fineBits);
        x = ARK_SET::times(x, f[0] * g[0] - f[1] * g[1], f[0] * g[1] + f[1] * g[0]);
        if constexpr (W > 1)
            x = x * getRow<R, W>(powers + k * 2 * W);
        return x;
    }
};

// Rows in bit-reversed order times their factors.
template <class R, int W, class Source, class Target>
ARK_INLINE void multiplyRows(Source source, Target target, std::ptrdiff_t count, MatrixFactors<R, W> factors,
                             std::ptrdiff_t c)
{
    for (std::ptrdiff_t row = 0, next = 0; row < count; row += 4, next = nextReversed(next, count / 4)) {
        ARK_UNROLL
        for (int i = 0; i < 4; i++)
            for (std::ptrdiff_t column = 0; column < columnsAtATime<R>(W); column++)
                target.beside(column)(row + i, factors.times(source.beside(column)(row + i),
                                                             next + reversed(i, 4) * (count / 4), c + column * W));
    }
}

// With N = N1 N2, n = N2 n1 + n2 and k = k1 + N1 k2: the columns, over n1; the factors w_N^(n2 k1); a transposition
// into the scratch, which makes k1 the lanes; the rows, over n2.
template <class R, int W, Form form>
void matrixToNatural(const Job<R>& job)
{
    constexpr int P = int(16 / sizeof(R));
    constexpr std::ptrdiff_t columns = columnsAtATime<R>(W);
    const Head<R>& head = job.head();
    const std::ptrdiff_t N1 = std::ptrdiff_t{1} << head.plan.m, N2 = std::ptrdiff_t{1} << head.restPlan.m;
    const std::ptrdiff_t turnedSize = columnSize<R>(W, N2);
    R* const turned = job.scratch; // [k1 / W], of that size each: [n2][2 W]
    R* const rows = turned + N1 / W * turnedSize;
    const MatrixFactors<R, W> factors(job);
    // W rows at k0 of the W columns at c.
    const auto turn = [&](auto source, std::ptrdiff_t c, std::ptrdiff_t k0, std::ptrdiff_t place) ARK_INLINED {
        Row<R, W> x[W];
        ARK_UNROLL
        for (int lane = 0; lane < W; lane++) {
            const int i = elementOf<P>(lane, W);
            x[lane] = factors.times(source(place + reversed(i, W) * (N1 / W)), k0 + i, c);
        }
        transpose(x);
        R* const to = turned + k0 / W * turnedSize + c * 2 * W;
        ARK_UNROLL
        for (int lane = 0; lane < W; lane++)
            putRow<R, W>(to + elementOf<P>(lane, W) * 2 * W, x[lane]);
    };
    const InnerTarget<R, W> block{rows, columnSize<R>(W, N1)};
    for (std::ptrdiff_t c = 0; c < N2; c += columns * W) {
        transformRowsToReversed<R, W, columns>(head.plan, head.plan.passes, OuterSource<R, W, form>{job.src, c, N2},
                                               block, head.rowsTable(job.table));
        const InnerSource<R, W> source{rows, block.distance};
        if constexpr (W == 1) { // less than a line of the cache: all columns together
            for (std::ptrdiff_t k = 0, place = 0; k < N1; k++, place = nextReversed(place, N1))
                for (std::ptrdiff_t column = 0; column < columns; column++)
                    turn(source.beside(column), c + column, k, place);
        } else {
            for (std::ptrdiff_t column = 0; column < columns; column++) {
                const InnerSource<R, W> one = source.beside(column);
                for (std::ptrdiff_t k0 = 0, place = 0; k0 < N1; k0 += W, place = nextReversed(place, N1 / W))
                    turn(one, c + column * W, k0, place);
            }
        }
    }
    for (std::ptrdiff_t k0 = 0; k0 < N1; k0 += columns * W) {
        R* const row = turned + k0 / W * turnedSize;
        const InnerSource<R, W> from{row, turnedSize};
        transformRowsToReversed<R, W, columns>(head.restPlan, head.restPlan.passes - 1, from,
                                               InnerTarget<R, W>{row, from.distance}, head.restRowsTable(job.table));
        withTarget<R, W, form>(job.dst, k0, N1, job.scale, [&](auto target) {
            withLastRadix<W>(head.restPlan.log2Radix[head.restPlan.passes - 1],
                             [&]<int radix>(Index<radix>)
                                 ARK_INLINED { lastPass<R, W, radix, columns>(from, target, N2, head.eighth); });
        });
    }
}

// Bit-reversed output: the columns in place, their results at bit-reversed rows, then every row on its own.
template <class R, int W, Form form>
void matrixToReversed(const Job<R>& job)
{
    const Head<R>& head = job.head();
    const std::ptrdiff_t N1 = std::ptrdiff_t{1} << head.plan.m, N2 = std::ptrdiff_t{1} << head.restPlan.m;
    R* const rows = job.scratch;
    const InnerSource<R, W> source{rows, columnSize<R>(W, N1)};
    const MatrixFactors<R, W> factors(job);
    constexpr std::ptrdiff_t columns = columnsAtATime<R>(W);
    for (std::ptrdiff_t c = 0; c < N2; c += columns * W) {
        transformRowsToReversed<R, W, columns>(head.plan, head.plan.passes, OuterSource<R, W, form>{job.src, c, N2},
                                               InnerTarget<R, W>{rows, source.distance}, head.rowsTable(job.table));
        const OuterTarget<R, W, form, false> target{job.dst, c, N2, 1};
        multiplyRows(source, target, N1, factors, c);
    }
    const FftVector<const R> between{job.dst.re, job.dst.im};
    for (std::ptrdiff_t row = 0; row < N1; row++)
        shortToReversedFrom<R, W, form>({between, job.dst, job.table + head.inner, job.scratch, job.scale}, row * N2);
}

// Bit-reversed input: the opposite.
template <class R, int W, Form form>
void matrixFromReversed(const Job<R>& job)
{
    const Head<R>& head = job.head();
    const std::ptrdiff_t N1 = std::ptrdiff_t{1} << head.plan.m, N2 = std::ptrdiff_t{1} << head.restPlan.m;
    for (std::ptrdiff_t row = 0; row < N1; row++)
        shortFromReversedFrom<R, W, form>({job.src, job.dst, job.table + head.inner, job.scratch, 1}, row * N2);
    R* const rows = job.scratch;
    const InnerTarget<R, W> inner{rows, columnSize<R>(W, N1)};
    const MatrixFactors<R, W> factors(job);
    constexpr std::ptrdiff_t columns = columnsAtATime<R>(W);
    for (std::ptrdiff_t c = 0; c < N2; c += columns * W) {
        const OuterSource<R, W, form> source{{job.dst.re, job.dst.im}, c, N2};
        multiplyRows(source, inner, N1, factors, c);
        withTarget<R, W, form>(job.dst, c, N2, job.scale, [&](auto target) {
            transformRowsFromReversed<R, W, columns>(head.plan, head.plan.passes, inner, target,
                                                     head.rowsTable(job.table));
        });
    }
}

// Up to 2^4 or 2^5 rows one straight piece of code is quicker than passes over them. The intermediate results of 32
// rows of 64 bytes would lie 4 KiB apart on the stack, where processors take loads for dependent on stores.
template <class R, int W>
constexpr int longestFewTiles = W * sizeof(R) < 64 ? 5 : 4;

// Then bit-reversed order is as quick as natural order in one straight piece, or quicker.
constexpr bool isTwoPasses(int W, int m) { return W > 1 && !takesRadix8(W) && (m == 5 || (m == 6 && ARK_AVX2)); }

template <class R>
using Compute = void (*)(const Job<R>& job);

template <class R, Form form, FftOrder fftOrder, int order>
constexpr Compute<R> computeFor()
{
    constexpr int W = widthFor<R>(order), m = order - log2Of(W);
    if constexpr (W == 1 && order <= longestFewPairs)
        return fewPairs<R, form, fftOrder, 1 << order>;
    else if constexpr (W > 1 && fftOrder == naturalOrder && m <= longestFewTiles<R, W> && (1 << m) % W == 0)
        return fewTiles<R, W, form, 1 << m>;
    else if constexpr (W > 1 && (m <= 3 || (m == 4 && fftOrder != naturalOrder)))
        return fewRows<R, W, form, fftOrder, 1 << m>;
    else if constexpr (isTwoPasses(W, m) && fftOrder != naturalOrder)
        return twoPasses<R, W, form, fftOrder, m>;
    else if constexpr (fftOrder == naturalOrder)
        return order < matrixFrom ? shortToNatural<R, W, form> : matrixToNatural<R, W, form>;
    else if constexpr (fftOrder == bitReversedOutput)
        return order < matrixFrom ? shortToReversed<R, W, form> : matrixToReversed<R, W, form>;
    else
        return order < matrixFrom ? shortFromReversed<R, W, form> : matrixFromReversed<R, W, form>;
}

template <class R>
using Transform = typename FftKernels<R>::Transform;

// A function for every way to compute, and no common one around them: entering it would take longer than the shortest
// transforms.
template <class R, Compute<R> compute>
void transformBy(FftVector<const R> src, FftVector<R> dst, int, const R* table, R* scratch, R scale)
{
    compute({src, dst, table, scratch, scale});
}

template <class R>
struct ByOrder {
    Transform<R> ofOrder[31]; // from 1 on
};
template <class R, Form form, FftOrder fftOrder, int... i>
constexpr ByOrder<R> transformsFor(std::integer_sequence<int, i...>)
{
    return {{transformBy<R, computeFor<R, form, fftOrder, i + 1>()>...}};
}
template <class R, Form form, FftOrder fftOrder>
constexpr ByOrder<R> transforms = transformsFor<R, form, fftOrder>(std::make_integer_sequence<int, 31>{});

template <class R, Form form, FftOrder fftOrder>
void transform(FftVector<const R> src, FftVector<R> dst, int order, const R* table, R* scratch, R scale)
{
    transforms<R, form, fftOrder>.ofOrder[order - 1](src, dst, order, table, scratch, scale);
}

template <class R, FftOrder fftOrder>
void inverseOfParts(FftVector<const R> src, FftVector<R> dst, int order, const R* table, R* scratch, R scale)
{
    transform<R, separateParts, fftOrder>({src.im, src.re}, {dst.im, dst.re}, order, table, scratch, scale);
}

template <class R, FftOrder fftOrder>
constexpr typename FftKernels<R>::Directions pairs{transform<R, forwardPairs, fftOrder>,
                                                   transform<R, inversePairs, fftOrder>};
template <class R, FftOrder fftOrder>
constexpr
    typename FftKernels<R>::Directions separated{transform<R, separateParts, fftOrder>, inverseOfParts<R, fftOrder>};

template <class R>
constexpr FftKernels<R> fftTable{
    tableSize<R>,
    fillTable<R>,
    scratchSize<R>,
    {{pairs<R, naturalOrder>, pairs<R, bitReversedInput>, pairs<R, bitReversedOutput>},
     {separated<R, naturalOrder>, separated<R, bitReversedInput>, separated<R, bitReversedOutput>}}};

} // namespace

extern const FftKernels<float> fftC;
extern const FftKernels<double> fftZ;

constinit const FftKernels<float> fftC = fftTable<float>;
constinit const FftKernels<double> fftZ = fftTable<double>;

} // namespace ark::ARK_SET
