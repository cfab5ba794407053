// The sum that a block of the Goertzel recurrence comes to. Compiled with -ffp-contract=fast.
#include "filter/lane_sums.hpp"
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

// Complex numbers, one or a register of them.
template <class V>
struct Pair {
    V re, im;
};
// a b + c, which waits for a last.
template <class A, class B>
ARK_INLINE Pair<A> timesPlus(Pair<A> a, Pair<B> b, Pair<A> c)
{
    return {a.re * b.re + (c.re - a.im * b.im), a.im * b.re + (c.im + a.re * b.im)};
}
template <class V>
ARK_INLINE Pair<V> times(Pair<V> a, Pair<V> b)
{
    return {a.re * b.re - a.im * b.im, a.im * b.re + a.re * b.im};
}
ARK_INLINE Pair<Vec<double>> inAllLanes(Pair<double> z) { return {broadcast(z.re), broadcast(z.im)}; }

// Lane l of register c has the samples at c L + l, c L + l + rows L, ..., and sums them by Horner's rule in powers of
// z^(rows L), L samples in a register. Zeros and the sum so far stand before the first sample.
template <class T>
void feed(const T* samples, std::ptrdiff_t n, GoertzelSum& sum)
{
#if defined(__x86_64__)
    constexpr int rows = 4;
#else // eight registers
    constexpr int rows = 2;
#endif
    constexpr int width = lanes<double>, each = width / parts<T>, step = rows * width;

    Pair<double> powers[each + 1] = {{1, 0}, {sum.cosine, sum.sine}};
    for (int j = 2; j <= each; j++)
        powers[j] = times(powers[j / 2], powers[j - j / 2]);
    const Pair<Vec<double>> ofRow = inAllLanes(powers[each]);
    const Pair<Vec<double>> ofTwo = times(ofRow, ofRow), ofStep = rows == 4 ? times(ofTwo, ofTwo) : ofTwo;

    const Real<T>*x = partsOf(samples), *end = x + parts<T> * n;
    double first[step] = {}, firstIm[step] = {};
    const int begin = step - parts<T> - int((end - x - parts<T>) % step);
    for (int j = begin; j < step; j++)
        first[j] = double(*x++);
    for (int part = 0; part < parts<T>; part++) {
        first[begin + part] += sum.re[part];
        firstIm[begin + part] = sum.im[part];
    }

    Pair<Vec<double>> v[rows];
    for (std::ptrdiff_t row = 0; row < rows; row++)
        v[row] = {load(first + row * width), load(firstIm + row * width)};
    for (; x != end; x += step)
        ARK_UNROLL
    for (std::ptrdiff_t row = 0; row < rows; row++)
        v[row] = timesPlus(v[row], ofStep, {loadDoubles(x + row * width), Vec<double>{}});

    double re[width], im[width];
    for (int j = 0; j < width; j++) {
        re[j] = powers[each - j / parts<T>].re;
        im[j] = powers[each - j / parts<T>].im;
    }
    for (int row = 1; row < rows; row++)
        v[row] = timesPlus(v[row - 1], ofRow, v[row]);
    const Pair<Vec<double>> weighted = times(v[rows - 1], {load(re), load(im)});
    if constexpr (isComplex<T>) {
        const Vec<double> sumRe = sumOfPairs(weighted.re), sumIm = sumOfPairs(weighted.im);
        for (int part = 0; part < 2; part++) {
            sum.re[part] = sumRe[part];
            sum.im[part] = sumIm[part];
        }
    } else {
        sum.re[0] = sumOf(weighted.re);
        sum.im[0] = sumOf(weighted.im);
    }
}

template <class T>
constexpr GoertzelKernels<T> goertzelTable{feed<T>};

} // namespace

extern const GoertzelKernels<float> goertzelS;
extern const GoertzelKernels<double> goertzelD;
extern const GoertzelKernels<FloatCplx> goertzelC;
extern const GoertzelKernels<DoubleCplx> goertzelZ;

constinit const GoertzelKernels<float> goertzelS = goertzelTable<float>;
constinit const GoertzelKernels<double> goertzelD = goertzelTable<double>;
constinit const GoertzelKernels<FloatCplx> goertzelC = goertzelTable<FloatCplx>;
constinit const GoertzelKernels<DoubleCplx> goertzelZ = goertzelTable<DoubleCplx>;

} // namespace ark::ARK_SET
