// The passes beside a complex transform that make it a transform of real signals.
#include "transform/real_kernels.hpp"
#include "frame/kernels.hpp"
#include "transform/fft_memory.hpp"

namespace ark::ARK_SET {
namespace {

// A register of W complex numbers.
template <class R, int W>
using Pairs = Reg<R, 2 * W>;

template <class R, int W, std::size_t... i>
ARK_INLINE auto signsIn(std::size_t place, std::index_sequence<i...>)
{
    typedef typename BitsOf<R>::Type SignBits __attribute__((vector_size(sizeof(Pairs<R, W>))));
    return SignBits{(i % 2 == place ? BitsOf<R>::sign : 0)...};
}
template <class R, int W>
ARK_INLINE Pairs<R, W> conjugate(Pairs<R, W> v)
{
    const auto signs = signsIn<R, W>(1, std::make_index_sequence<std::size_t{2} * W>{});
    return (Pairs<R, W>)((decltype(signs))v ^ signs);
}
template <class R, int W>
ARK_INLINE Pairs<R, W> timesI(Pairs<R, W> v)
{
    const auto signs = signsIn<R, W>(0, std::make_index_sequence<std::size_t{2} * W>{});
    return (Pairs<R, W>)((decltype(signs))permute<otherPart>(v) ^ signs);
}

template <class R>
ARK_INLINE Pair<R> conjugate(Pair<R> a)
{
    using V = typename Pair<R>::V;
    return {V(__m128i(a.parts) ^ __m128i(V{R(0), R(-0.0)}))};
}

// The vectors walk from both ends to the middle: k ... k + W - 1 and, mirrored, M - k - W + 1 ... M - k. The last two
// share the element M/2, for which both formulas give the same. What comes next is loaded before anything is stored:
// with dst one real away from src the two overlap.
template <class R, int W, bool forward>
void recombineBy(const R* src, R* dst, std::ptrdiff_t M, const R* table, R sumFactor, R differenceFactor)
{
    using V = Pairs<R, W>;
    V low = get<R, 2 * W>(src), high = get<R, 2 * W>(src + 2 * (M - W - 1));
    for (std::ptrdiff_t k = 1; k <= M / 2; k += W) {
        const V a = low, b = conjugate<R, W>(permute<flippedPairs>(high));
        if (k + W <= M / 2) {
            low = get<R, 2 * W>(src + 2 * (k + W - 1));
            high = get<R, 2 * W>(src + 2 * (M - k - W - W));
        }
        const V root = get<R, 2 * W>(table + 2 * (k - 1));
        const V cosine = permute<realPart>(root), sine = permute<imaginaryPart>(root);
        const V sum = (a + b) * sumFactor, difference = (a - b) * differenceFactor;
        const V straight = sine * difference, crossed = cosine * timesI<R, W>(difference);
        const V turned = forward ? crossed + straight : crossed - straight;
        put(dst + 2 * (k - 1), sum + turned);
        put(dst + 2 * (M - k - W), permute<flippedPairs>(conjugate<R, W>(sum - turned)));
    }
}

// The same one by one. So few elements have just been stored like that, and loads of whole registers would have to wait
// until they are in memory.
template <class R, std::ptrdiff_t M, bool forward>
void recombineFew(const R* src, R* dst, const R* table, R sumFactor, R differenceFactor)
{
    Pair<R> x[M];
    ARK_UNROLL
    for (std::ptrdiff_t k = 1; k < M; k++)
        x[k] = getPair(src + 2 * (k - 1));
    ARK_UNROLL
    for (std::ptrdiff_t k = 1; k <= M / 2; k++) {
        const R cosine = table[2 * (k - 1)], sine = table[2 * (k - 1) + 1];
        const Pair<R> a = x[k], b = conjugate(x[M - k]);
        const Pair<R> sum = scaledBy(a + b, sumFactor);
        const Pair<R> turned = times(scaledBy(a - b, differenceFactor), forward ? sine : -sine, cosine);
        putPair(dst + 2 * (k - 1), sum + turned);
        putPair(dst + 2 * (M - k - 1), conjugate(sum - turned));
    }
}

template <class R, bool forward>
void recombine(const R* src, R* dst, int order, const R* table, R sumFactor, R differenceFactor)
{
    if (order == 3)
        return recombineFew<R, 8, forward>(src, dst, table, sumFactor, differenceFactor);
    constexpr int W = lanes<R> / 2;
    static_assert(2 * W <= 1 << 4, "the shortest vectors from here on");
    recombineBy<R, W, forward>(src, dst, std::ptrdiff_t{1} << order, table, sumFactor, differenceFactor);
}

template <class R>
void separate(const R* __restrict re, const R* __restrict im, R* __restrict x, R* __restrict y, std::ptrdiff_t n,
              R factor)
{
    x[0] = 2 * factor * re[0];
    y[0] = 2 * factor * im[0];
    for (std::ptrdiff_t k = 1; k <= n / 2; k++) {
        x[2 * k] = factor * (re[k] + re[n - k]);
        x[2 * k + 1] = factor * (im[k] - im[n - k]);
        y[2 * k] = factor * (im[k] + im[n - k]);
        y[2 * k + 1] = factor * (re[n - k] - re[k]);
    }
    x[1] = y[1] = x[n + 1] = y[n + 1] = 0;
}

template <class R>
void combine(const R* __restrict x, const R* __restrict y, R* __restrict re, R* __restrict im, std::ptrdiff_t n)
{
    re[0] = x[0];
    im[0] = y[0];
    re[n / 2] = x[n];
    im[n / 2] = y[n];
    for (std::ptrdiff_t k = 1; k < n / 2; k++) {
        re[k] = x[2 * k] - y[2 * k + 1];
        im[k] = x[2 * k + 1] + y[2 * k];
    }
    for (std::ptrdiff_t k = 1; k < n / 2; k++) {
        re[n - k] = x[2 * k] + y[2 * k + 1];
        im[n - k] = y[2 * k] - x[2 * k + 1];
    }
}

template <class R>
constexpr RealKernels<R> realTable{{recombine<R, true>, recombine<R, false>}, separate<R>, combine<R>};

} // namespace

extern const RealKernels<float> realS;
extern const RealKernels<double> realD;

constinit const RealKernels<float> realS = realTable<float>;
constinit const RealKernels<double> realD = realTable<double>;

} // namespace ark::ARK_SET
