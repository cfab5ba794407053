// Inner products of filters. Compiled with -ffp-contract=fast.
//
// Two ways to fill a register. Consecutive outputs of consecutive inputs (step 1) are computed side by side: lanes are
// outputs, taps are broadcast, and one register of data serves several taps, namely those a register's length apart.
// All others (few outputs, or steps over the data) are inner products: lanes are taps, several outputs share the taps.
#include "filter/lane_sums.hpp"
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

using D = Vec<double>;
constexpr int width = lanes<double>;

constexpr int low2(int lane, int) { return lane / 2; }
constexpr int high2(int lane, int lanes) { return lanes / 2 + lane / 2; }
// ---- outputs side by side ----

template <class X, class T>
struct Tile {
    using Y = FirOutput<X, T>;
    static constexpr int tapParts = parts<T>;
    static constexpr std::ptrdiff_t elements = width / parts<X>; // of data in a register; outputs of a row
#if defined(__x86_64__)
    static constexpr int maxRows = tapParts == 1 || ARK_AVX512 ? 8 : 4;
    static constexpr int tapsAtOnce = tapParts == 1 || ARK_AVX512 ? 4 : 2;
#else // eight registers
    static constexpr int maxRows = tapParts == 1 ? 4 : 2;
    static constexpr int tapsAtOnce = tapParts == 1 ? 2 : 1;
#endif
    static constexpr int minRows = maxRows / 2;

    template <int rows>
    struct Sums {
        D part[tapParts][rows]; // with the real parts of the taps, with the imaginary ones
    };

    // Taps h[0], h[tapStep * elements] ... h[(taps - 1) * tapStep * elements] over all rows.
    template <int rows, int taps>
    static ARK_INLINE void add(Sums<rows>& sums, const T* h, std::ptrdiff_t tapStep, const X* x)
    {
        D tap[tapParts][taps];
        unrolled<taps>([&](auto m) ARK_INLINED {
            const Real<T>* value = partsOf(h + decltype(m)::value * elements * tapStep);
            unrolled<tapParts>([&](auto part) ARK_INLINED {
                tap[decltype(part)::value][decltype(m)::value] = broadcast(double(value[decltype(part)::value]));
            });
        });
        unrolled<rows + taps - 1>([&](auto j) ARK_INLINED {
            const D data = loadDoubles(partsOf(x + decltype(j)::value * elements));
            unrolled<taps>([&](auto m) ARK_INLINED {
                constexpr int row = decltype(j)::value - decltype(m)::value;
                if constexpr (row >= 0 && row < rows)
                    unrolled<tapParts>([&](auto part) ARK_INLINED {
                        sums.part[decltype(part)::value][row] += tap[decltype(part)::value][decltype(m)::value] * data;
                    });
            });
        });
    }

    template <int rows, int taps>
    static ARK_INLINE std::ptrdiff_t addGroups(Sums<rows>& sums, const FirRun<X, T>& run, const X* x, std::ptrdiff_t k)
    {
        for (; k + taps * elements <= run.tapsLen; k += taps * elements)
            for (std::ptrdiff_t phase = k; phase < k + elements; phase++)
                add<rows, taps>(sums, run.taps + phase * run.tapStep, run.tapStep, x + phase);
        return k;
    }

    static ARK_INLINE void storeRow(Real<Y>* to, D real, D imaginary)
    {
        if constexpr (parts<X> == 2 && tapParts == 2) {
            storeDoubles(to, real + negateReal<double>(permute<otherPart>(imaginary)));
        } else if constexpr (tapParts == 2) {
            storeDoubles(to, permute2<lowOfBoth>(real, imaginary));
            storeDoubles(to + width, permute2<highOfBoth>(real, imaginary));
        } else {
            storeDoubles(to, real);
        }
    }

    template <int rows>
    static void tile(const FirRun<X, T>& run, std::ptrdiff_t i)
    {
        Sums<rows> sums{};
        const X* x = run.x + i;
        std::ptrdiff_t k = addGroups<rows, tapsAtOnce>(sums, run, x, 0);
        if constexpr (tapsAtOnce > 2)
            k = addGroups<rows, 2>(sums, run, x, k);
        for (; k < run.tapsLen; k++)
            add<rows, 1>(sums, run.taps + k * run.tapStep, 0, x + k);
        Y* dst = run.dst + i * run.dstStep;
        unrolled<rows>([&](auto row) ARK_INLINED {
            const D real = sums.part[0][decltype(row)::value],
                    imaginary = sums.part[tapParts - 1][decltype(row)::value];
            if (run.dstStep == 1)
                return storeRow(partsOf(dst + decltype(row)::value * elements), real, imaginary);
            Y out[elements];
            storeRow(partsOf(out), real, imaginary);
            for (std::ptrdiff_t e = 0; e < elements; e++)
                dst[(decltype(row)::value * elements + e) * run.dstStep] = out[e];
        });
    }

    // The last tile overlaps the one before it.
    template <int rows>
    static void tiles(const FirRun<X, T>& run)
    {
        std::ptrdiff_t i = 0;
        for (; i + rows * elements <= run.n; i += rows * elements)
            tile<rows>(run, i);
        if (i < run.n)
            tile<rows>(run, run.n - rows * elements);
    }
};

// ---- inner products ----

template <std::size_t... i>
ARK_INLINE D laneNumbersIn(std::index_sequence<i...>)
{
    return D{double(i)...};
}

// Lanes from the first one on are replaced.
ARK_INLINE D replaceLanesFrom(std::ptrdiff_t first, D v, D replacement)
{
    return laneNumbersIn(std::make_index_sequence<width>{}) >= broadcast(double(first)) ? replacement : v;
}

template <class X, class T>
struct Inner {
    using Y = FirOutput<X, T>;
    static constexpr int dataParts = parts<X>, tapParts = parts<T>;
    static constexpr std::ptrdiff_t chunk = dataParts == 2 && tapParts == 2 ? width / 2 : width; // taps
    static constexpr int sumCount = dataParts == 1 && tapParts == 1 ? 1 : 2;
    static constexpr int dataCount = dataParts == 2 && tapParts == 1 ? 2 : 1; // registers of data in a chunk

    struct Registers {
        D part[sumCount];
    };

    static ARK_INLINE Registers loadTaps(const T* h)
    {
        if constexpr (sumCount == 1) {
            return {{loadDoubles(h)}};
        } else if constexpr (tapParts == 1) {
            const D v = loadDoubles(h);
            return {{permute<low2>(v), permute<high2>(v)}};
        } else if constexpr (dataParts == 1) {
            const D a = loadDoubles(partsOf(h)), b = loadDoubles(partsOf(h) + width);
            return {{permute2<evenOfBoth>(a, b), permute2<oddOfBoth>(a, b)}};
        } else {
            const D v = loadDoubles(partsOf(h));
            return {{permute<realPart>(v), permute<imaginaryPart>(v)}};
        }
    }

    // omitted: how many elements at the front of the chunk do not count, whatever they and their taps are.
    static ARK_INLINE void add(Registers& sums, const Registers& taps, const X* x, std::ptrdiff_t omitted = 0)
    {
        D data[dataCount];
        unrolled<dataCount>([&](auto i) ARK_INLINED {
            constexpr int at = decltype(i)::value * width;
            data[decltype(i)::value] = loadDoubles(partsOf(x) + at);
        });
        unrolled<sumCount>([&](auto i) ARK_INLINED {
            constexpr int from = decltype(i)::value % dataCount, at = from * width;
            D& sum = sums.part[decltype(i)::value];
            const D added = sum + taps.part[decltype(i)::value] * data[from];
            sum = omitted ? replaceLanesFrom(omitted * dataParts - at, sum, added) : added;
        });
    }

    struct Sum {
        double re, im;
    };

    static ARK_INLINE Sum total(const Registers& sums)
    {
        if constexpr (sumCount == 1) {
            return {sumOf(sums.part[0]), 0};
        } else if constexpr (tapParts == 1) {
            const D v = sumOfPairs(sums.part[0] + sums.part[1]);
            return {v[0], v[1]};
        } else if constexpr (dataParts == 1) {
            return {sumOf(sums.part[0]), sumOf(sums.part[1])};
        } else {
            const D v = sumOfPairs(sums.part[0] + negateReal<double>(permute<otherPart>(sums.part[1])));
            return {v[0], v[1]};
        }
    }

    static ARK_INLINE void addOne(Sum& sum, const T* h, const X* x)
    {
        const auto* a = partsOf(h);
        const auto* b = partsOf(x);
        sum.re += double(a[0]) * double(b[0]);
        if constexpr (dataParts == 2 && tapParts == 2) {
            sum.re -= double(a[1]) * double(b[1]);
            sum.im += double(a[0]) * double(b[1]) + double(a[1]) * double(b[0]);
        } else if constexpr (sumCount == 2) {
            sum.im += double(a[tapParts - 1]) * double(b[dataParts - 1]);
        }
    }

    // sums[i] += the inner product of n taps and x + i step, for i < count.
    template <int count>
    static ARK_INLINE void products(const T* h, std::ptrdiff_t n, const X* x, std::ptrdiff_t step, Sum* sums)
    {
        if (n < chunk) {
            for (int i = 0; i < count; i++)
                for (std::ptrdiff_t k = 0; k < n; k++)
                    addOne(sums[i], h + k, x + i * step + k);
            return;
        }
        constexpr int chains = count == 1 ? 4 : 1; // one output alone would wait for its own sum
        Registers acc[count][chains] = {};
        std::ptrdiff_t k = 0;
        if constexpr (chains > 1)
            for (; k + chains * chunk <= n; k += chains * chunk)
                unrolled<chains>([&](auto c) ARK_INLINED {
                    constexpr std::ptrdiff_t at = decltype(c)::value * chunk;
                    add(acc[0][decltype(c)::value], loadTaps(h + k + at), x + k + at);
                });
        for (; k + chunk <= n; k += chunk) {
            const Registers taps = loadTaps(h + k);
            unrolled<count>(
                [&](auto i) ARK_INLINED { add(acc[decltype(i)::value][0], taps, x + decltype(i)::value * step + k); });
        }
        if (k < n) { // the last chunk goes back over taps that are done
            const std::ptrdiff_t last = n - chunk;
            const Registers taps = loadTaps(h + last);
            unrolled<count>([&](auto i) ARK_INLINED {
                add(acc[decltype(i)::value][0], taps, x + decltype(i)::value * step + last, k - last);
            });
        }
        unrolled<count>([&](auto i) ARK_INLINED {
            Registers& first = acc[decltype(i)::value][0];
            if constexpr (chains == 4)
                unrolled<sumCount>([&](auto part) ARK_INLINED {
                    constexpr int at = decltype(part)::value;
                    first.part[at] = (first.part[at] + acc[0][1].part[at]) + (acc[0][2].part[at] + acc[0][3].part[at]);
                });
            const Sum sum = total(first);
            sums[decltype(i)::value].re += sum.re;
            sums[decltype(i)::value].im += sum.im;
        });
    }

    static ARK_INLINE void storeSum(Y* dst, Sum sum)
    {
        partsOf(dst)[0] = Real<Y>(sum.re);
        if constexpr (isComplex<Y>)
            partsOf(dst)[1] = Real<Y>(sum.im);
    }

    static void dot(const T* h, const X* x, std::ptrdiff_t n, Y* dst)
    {
        Sum sum{};
        products<1>(h, n, x, 0, &sum);
        storeSum(dst, sum);
    }

    // Taps that do not lie side by side are brought together, so many at a time.
    static constexpr std::ptrdiff_t maxGathered = 4096 / sizeof(T);

    static void run(const FirRun<X, T>& run)
    {
        constexpr std::ptrdiff_t tile = 64;
        T gathered[maxGathered];
        std::ptrdiff_t gatheredFrom = -1;
        for (std::ptrdiff_t i = 0; i < run.n; i += tile) {
            const std::ptrdiff_t count = run.n - i < tile ? run.n - i : tile;
            Sum sums[tile] = {};
            for (std::ptrdiff_t k = 0, n; k < run.tapsLen; k += n) {
                const T* h = gathered;
                n = run.tapsLen - k;
                if (run.tapStep == 1) {
                    h = run.taps + k;
                } else {
                    n = n < maxGathered ? n : maxGathered;
                    if (gatheredFrom != k)
                        for (std::ptrdiff_t m = 0; m < n; m++)
                            gathered[m] = run.taps[(k + m) * run.tapStep];
                    gatheredFrom = k;
                }
                const X* x = run.x + i * run.step + k;
                std::ptrdiff_t output = 0;
                for (; output + 4 <= count; output += 4)
                    products<4>(h, n, x + output * run.step, run.step, sums + output);
                for (; output < count; output++)
                    products<1>(h, n, x + output * run.step, run.step, sums + output);
            }
            for (std::ptrdiff_t output = 0; output < count; output++)
                storeSum(run.dst + (i + output) * run.dstStep, sums[output]);
        }
    }
};

template <class X, class T>
void filter(const FirRun<X, T>& run)
{
    using Rows = Tile<X, T>;
    if (run.step != 1 || run.n < Rows::minRows * Rows::elements)
        Inner<X, T>::run(run);
    else if (run.n < Rows::maxRows * Rows::elements)
        Rows::template tiles<Rows::minRows>(run);
    else
        Rows::template tiles<Rows::maxRows>(run);
}

template <class X, class T>
constexpr FirKernels<X, T> firTable{filter<X, T>, Inner<X, T>::dot};

} // namespace

extern const FirKernels<float, float> firS;
extern const FirKernels<double, double> firD;
extern const FirKernels<FloatCplx, FloatCplx> firC;
extern const FirKernels<DoubleCplx, DoubleCplx> firZ;
extern const FirKernels<float, FloatCplx> firSC;
extern const FirKernels<FloatCplx, float> firCS;
extern const FirKernels<double, DoubleCplx> firDZ;
extern const FirKernels<DoubleCplx, double> firZD;
extern const FirKernels<short, float> firW;

constinit const FirKernels<float, float> firS = firTable<float, float>;
constinit const FirKernels<double, double> firD = firTable<double, double>;
constinit const FirKernels<FloatCplx, FloatCplx> firC = firTable<FloatCplx, FloatCplx>;
constinit const FirKernels<DoubleCplx, DoubleCplx> firZ = firTable<DoubleCplx, DoubleCplx>;
constinit const FirKernels<float, FloatCplx> firSC = firTable<float, FloatCplx>;
constinit const FirKernels<FloatCplx, float> firCS = firTable<FloatCplx, float>;
constinit const FirKernels<double, DoubleCplx> firDZ = firTable<double, DoubleCplx>;
constinit const FirKernels<DoubleCplx, double> firZD = firTable<DoubleCplx, double>;
constinit const FirKernels<short, float> firW = firTable<short, float>;

} // namespace ark::ARK_SET
