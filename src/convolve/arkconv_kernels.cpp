// Convolution by direct sums. Lanes are outputs; a tap is broadcast and meets several registers of data.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

ARK_INLINE std::ptrdiff_t least(std::ptrdiff_t a, std::ptrdiff_t b) { return a < b ? a : b; }
ARK_INLINE std::ptrdiff_t most(std::ptrdiff_t a, std::ptrdiff_t b) { return a > b ? a : b; }

template <class X, class T>
struct Direct {
    using Y = FirOutput<X, T>;
    using R = Real<Y>;
    using V = Vec<R>;
    using MaskBits = typename BitsOf<R>::Type;
    // Products with the real parts of taps and with the imaginary ones are summed apart, unless the data is complex
    // too.
    static constexpr bool areBothComplex = parts<X> == 2 && parts<T> == 2;
    static constexpr int sumCount = areBothComplex ? 1 : parts<T>;
    static constexpr std::ptrdiff_t elements = lanes<R> / parts<X>; // outputs of a row
#if defined(__x86_64__)
    static constexpr int maxRows = sumCount == 1 || ARK_AVX512 ? 8 : 4;
#else // eight registers
    static constexpr int maxRows = sumCount == 1 ? 4 : 2;
#endif
    static constexpr int edgeRows = areBothComplex ? 2 : maxRows / 2;
    static constexpr std::ptrdiff_t tallest = maxRows * elements; // outputs of a tile

    struct Tap {
        V part[parts<T>];
    };

    static ARK_INLINE Tap spread(const Real<T>* tap)
    {
        if constexpr (areBothComplex)
            return {{broadcast(tap[0]), negateReal<R>(broadcast(tap[1]))}};
        else if constexpr (parts<T> == 2)
            return {{broadcast(tap[0]), broadcast(tap[1])}};
        else
            return {{broadcast(tap[0])}};
    }

    static ARK_INLINE V product(const Tap& tap, V data, int sum)
    {
        if constexpr (areBothComplex)
            return tap.part[0] * data + tap.part[1] * permute<otherPart>(data);
        else
            return tap.part[sum] * data;
    }

    static ARK_INLINE void storeRow(R* to, V first, V second)
    {
        if constexpr (sumCount == 2) {
            store(to, permute2<lowOfBoth>(first, second));
            store(to + lanes<R>, permute2<highOfBoth>(first, second));
        } else {
            store(to, first);
        }
    }

    // Rows of outputs from the taps h[begin] ... h[end-1]; x is what h[0] meets in the first output. Where mask is
    // given, products with elements that do not exist become zero, whatever the tap is.
    template <int rows, bool masked>
    static ARK_INLINE void tile(const X* x, const MaskBits* mask, const T* h, std::ptrdiff_t begin, std::ptrdiff_t end,
                                Y* y)
    {
        V sums[sumCount][rows] = {};
        for (std::ptrdiff_t i = begin; i < end; i++) {
            const Tap tap = spread(partsOf(h + i));
            ARK_UNROLL
            for (int row = 0; row < rows; row++) {
                const std::ptrdiff_t at = row * elements - i;
                const V data = load(partsOf(x + at));
                for (int sum = 0; sum < sumCount; sum++) {
                    V added = product(tap, data, sum);
                    if constexpr (masked)
                        added = (V)((Vec<MaskBits>)added & load(mask + at * parts<X>));
                    sums[sum][row] += added;
                }
            }
        }
        ARK_UNROLL
        for (int row = 0; row < rows; row++)
            storeRow(partsOf(y + row * elements), sums[0][row], sums[sumCount - 1][row]);
    }

    // Outputs that meet every tap; the last tile overlaps the one before it.
    template <int rows>
    static void tiles(const X* x, const T* h, std::ptrdiff_t n, Y* y, std::ptrdiff_t count)
    {
        constexpr std::ptrdiff_t length = rows * elements;
        for (std::ptrdiff_t k = 0; k < count; k += length) {
            const std::ptrdiff_t at = least(k, count - length);
            tile<rows, false>(x + at, nullptr, h, 0, n, y + at);
        }
    }

    static bool areFinite(const T* h, std::ptrdiff_t n)
    {
        int strange = 0;
        for (std::ptrdiff_t i = 0; i < n * parts<T>; i++)
            strange |= !(partsOf(h)[i] * 0 == 0);
        return !strange;
    }

    // Outputs some of whose taps hang over an end of the data.
    struct Edge {
        const X* data;        // what h[0] meets in the first output, of a copy of x with zeros around it
        const MaskBits* mask; // the same place in an array of bits that are set where x is, or null
        const T* h;
        std::ptrdiff_t len, n, first; // of x, of h; the first output's number
        Y* out;

        template <int rows, bool masked>
        ARK_INLINE void put(std::ptrdiff_t& k) const
        {
            constexpr std::ptrdiff_t length = rows * elements;
            tile<rows, masked>(data + k, masked ? mask + k * parts<X> : nullptr, h, most(0, first + k - (len - 1)),
                               least(n, first + k + length), out + k);
            k += length;
        }
    };

    static void edge(const X* x, std::ptrdiff_t len, const T* h, std::ptrdiff_t n, Y* y, std::ptrdiff_t first,
                     std::ptrdiff_t count)
    {
        constexpr std::ptrdiff_t maxSize = 3 * longestDirect + 2 * tallest;
        X data[maxSize];
        Y out[maxSize];
        const std::ptrdiff_t origin = n - 1 - first; // of x in data
        const std::ptrdiff_t size = count + n - 1 + tallest;
        const std::ptrdiff_t begin = most(0, -origin), end = least(len, size - origin);
        __builtin_memset(data, 0, std::size_t(origin + begin) * sizeof(X));
        __builtin_memcpy(data + (origin + begin), x + begin, std::size_t(end - begin) * sizeof(X));
        __builtin_memset(data + (origin + end), 0, std::size_t(size - origin - end) * sizeof(X));

        Edge edge{data + n - 1, nullptr, h, len, n, first, out};
        std::ptrdiff_t k = 0;
        if (areFinite(h, n)) {
            while (k + 2 * elements < count)
                edge.template put<edgeRows, false>(k);
            if (k + elements < count)
                edge.template put<2, false>(k);
            if (k < count)
                edge.template put<1, false>(k);
        } else { // not a number times zero
            MaskBits mask[parts<X> * maxSize];
            __builtin_memset(mask, 0, sizeof mask);
            __builtin_memset(mask + (origin + begin) * parts<X>, 0xFF, std::size_t(end - begin) * sizeof(X));
            edge.mask = mask + (n - 1) * parts<X>;
            while (k < count)
                edge.template put<1, true>(k);
        }
        __builtin_memcpy(y + first, out, std::size_t(count) * sizeof(Y));
    }

    static void run(const X* x, std::ptrdiff_t len, const T* h, std::ptrdiff_t n, Y* y)
    {
        const std::ptrdiff_t complete = len - n + 1;
        if (complete < tallest)
            return edge(x, len, h, n, y, 0, len + n - 1);
        tiles<maxRows>(x + n - 1, h, n, y + n - 1, complete);
        if (n > 1) {
            edge(x, len, h, n, y, 0, n - 1);
            edge(x, len, h, n, y, len, n - 1);
        }
    }
};

template <class X, class T>
constexpr ConvKernels<X, T> table{Direct<X, T>::run};

} // namespace

extern const ConvKernels<float, float> convS;
extern const ConvKernels<double, double> convD;
extern const ConvKernels<FloatCplx, FloatCplx> convC;
extern const ConvKernels<DoubleCplx, DoubleCplx> convZ;
extern const ConvKernels<float, FloatCplx> convSC;
extern const ConvKernels<FloatCplx, float> convCS;
extern const ConvKernels<double, DoubleCplx> convDZ;
extern const ConvKernels<DoubleCplx, double> convZD;

constinit const ConvKernels<float, float> convS = table<float, float>;
constinit const ConvKernels<double, double> convD = table<double, double>;
constinit const ConvKernels<FloatCplx, FloatCplx> convC = table<FloatCplx, FloatCplx>;
constinit const ConvKernels<DoubleCplx, DoubleCplx> convZ = table<DoubleCplx, DoubleCplx>;
constinit const ConvKernels<float, FloatCplx> convSC = table<float, FloatCplx>;
constinit const ConvKernels<FloatCplx, float> convCS = table<FloatCplx, float>;
constinit const ConvKernels<double, DoubleCplx> convDZ = table<double, DoubleCplx>;
constinit const ConvKernels<DoubleCplx, double> convZD = table<DoubleCplx, double>;

} // namespace ark::ARK_SET
