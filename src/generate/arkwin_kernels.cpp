// Windows. Every weight serves an element and its mirror image; cosines are computed in pieces of 64.
#include "frame/kernels.hpp"
#include "generate/oscillator.hpp"

namespace ark::ARK_SET {
namespace {

constexpr std::ptrdiff_t piece = 64, width = lanes<double>;

// ---- from weights to elements ----

ARK_INLINE void storeElements(float* to, Vec<double> v) { storeDoubles(to, v); }
ARK_INLINE void storeElements(double* to, Vec<double> v) { storeDoubles(to, v); }
ARK_INLINE void storeElements(short* to, Vec<double> v) { storeTruncated(to, v); }

template <class R>
ARK_INLINE R product(R x, double weight)
{
    if constexpr (sizeof(R) == sizeof(short))
        return short(_mm_cvttsd_si32(_mm_set_sd(x * weight)));
    else
        return R(x * weight);
}

// A weight for every part of elements in order, or of elements in reversed order.
constexpr int reversed(int lane, int lanes) { return lanes - 1 - lane; }
constexpr int lowTwice(int lane, int) { return lane / 2; }
constexpr int highTwice(int lane, int lanes) { return (lanes + lane) / 2; }
constexpr int lowTwiceReversed(int lane, int lanes) { return lanes - 1 - lane / 2; }
constexpr int highTwiceReversed(int lane, int lanes) { return lanes - 1 - (lanes + lane) / 2; }

template <class R>
ARK_INLINE void multiply(R* at, Vec<double> weights)
{
    storeElements(at, loadDoubles(at) * weights);
}

// Multiplies front[j] and back[-j] by weight j, 0 <= j < count, in whole registers: the number that this takes care of.
// weightsFrom(j) gives a register of weights.
template <class T, class Weights>
ARK_INLINE std::ptrdiff_t multiplyRegisters(T* front, T* back, std::ptrdiff_t count, Weights& weightsFrom)
{
    std::ptrdiff_t j = 0;
    for (; j + width <= count; j += width) {
        const Vec<double> w = weightsFrom(j);
        Real<T>*const to = partsOf(front + j), *const mirrored = partsOf(back - j - (width - 1));
        if constexpr (isComplex<T>) {
            multiply(to, permute<lowTwice>(w));
            multiply(to + width, permute<highTwice>(w));
            multiply(mirrored, permute<lowTwiceReversed>(w));
            multiply(mirrored + width, permute<highTwiceReversed>(w));
        } else {
            multiply(to, w);
            multiply(mirrored, permute<reversed>(w));
        }
    }
    return j;
}

template <class T>
ARK_INLINE void multiplyPair(T* front, T* back, std::ptrdiff_t j, double weight)
{
    T* const both[]{front + j, back - j};
    for (T* const element : both)
        for (int part = 0; part < parts<T>; part++)
            partsOf(element)[part] = product(partsOf(element)[part], weight);
}

// All pairs of elements, their weights given directly.
template <class T, class Weights>
ARK_INLINE void multiplyPairs(T* vec, std::ptrdiff_t n, Weights weightsFrom)
{
    const std::ptrdiff_t count = n / 2, done = multiplyRegisters(vec, vec + (n - 1), count, weightsFrom);
    if (done == count)
        return;
    double rest[width];
    store(rest, weightsFrom(done));
    for (std::ptrdiff_t j = done; j < count; j++)
        multiplyPair(vec, vec + (n - 1), j, rest[j - done]);
}

// The numbers k, k+1, ... in one register.
template <std::size_t... i>
ARK_INLINE Vec<double> countFromIn(double k, std::index_sequence<i...>)
{
    return Vec<double>{double(i)...} + k;
}
ARK_INLINE Vec<double> countFrom(double k) { return countFromIn(k, std::make_index_sequence<width>{}); }

// The weights of the numbers 0, 1, ..., which multiplyRegisters asks for one register after the other.
template <class WeightOf>
ARK_INLINE auto weightsOfNumbers(WeightOf weightOf)
{
    return [weightOf, numbers = countFrom(0)](std::ptrdiff_t) mutable {
        const Vec<double> w = weightOf(numbers);
        numbers += double(width);
        return w;
    };
}

// ---- Bartlett ----

template <class T>
void bartlett(T* vec, std::ptrdiff_t n)
{
    const double slope = 2 / double(n - 1);
    multiplyPairs(vec, n, weightsOfNumbers([=](Vec<double> k) { return k * slope; }));
}

// ---- sums of cosines ----

template <class V>
ARK_INLINE V weightOf(CosineWindow window, V c)
{
    return (window.a - window.b * c) - window.c * (2.0 * (c * c) - 1.0);
}

// Takes pieces of cosines from next(cosines, count), which may write a whole piece.
template <class T, class Next>
ARK_INLINE void multiplyByCosines(T* vec, std::ptrdiff_t n, CosineWindow window, Next next)
{
    alignas(64) double cosines[piece];
    const std::ptrdiff_t pairs = n / 2;
    for (std::ptrdiff_t k = 0; k < pairs; k += piece) {
        const std::ptrdiff_t count = pairs - k < piece ? pairs - k : piece;
        next(cosines, count);
        const auto weightsFrom = [&](std::ptrdiff_t j) { return weightOf(window, load(cosines + j)); };
        T *const front = vec + k, *const back = vec + (n - 1 - k);
        // The cosines that are left one by one: a register would wait for the single ones to reach the cache.
        for (std::ptrdiff_t j = multiplyRegisters(front, back, count, weightsFrom); j < count; j++)
            multiplyPair(front, back, j, weightOf(window, cosines[j]));
    }
}

template <class T>
void cosine(T* vec, std::ptrdiff_t n, CosineWindow window, double cosine)
{
    const double twice = 2 * cosine;
    double c = 1, before = cosine;
    multiplyByCosines(vec, n, window, [&](double* cosines, std::ptrdiff_t count) {
        for (std::ptrdiff_t j = 0; j < count; j++) {
            cosines[j] = c;
            const double next = twice * c - before;
            before = c;
            c = next;
        }
    });
}

template <class T>
void longCosine(T* vec, std::ptrdiff_t n, CosineWindow window, double sineOfHalf)
{
    const long double s = sineOfHalf;
    const double p = 1, q = 0;
    Oscillator<1> oscillator{{1 - 2 * s * s, 2 * s * __builtin_sqrtl(1 - s * s)}, &p, &q};
    multiplyByCosines(vec, n, window, [&](double* cosines, std::ptrdiff_t) {
        oscillator.peek([=](std::ptrdiff_t lane, Vec<double> v) { store(cosines + lane, v); });
        oscillator.advance();
    });
}

// ---- Kaiser ----

// e^x, 0 <= x < 700, within 1 ulp: 2^k e^r with |r| <= ln(2) / 2 and the series of e^r.
ARK_INLINE Vec<double> exponential(Vec<double> x)
{
    constexpr double integral = 0x1.8p52; // its sum with a small integer has the integer in its low bits
    const Vec<double> k = roundTo<0>(x * 1.4426950408889634);
    // ln 2 in two parts; k times the first one is exact.
    const Vec<double> r = (x - k * 0x1.62e42fefp-1) - k * 0x1.473de6af278edp-34;
    Vec<double> sum = r * (1.0 / 6227020800) + 1.0 / 479001600;
    sum = sum * r + 1.0 / 39916800;
    sum = sum * r + 1.0 / 3628800;
    sum = sum * r + 1.0 / 362880;
    sum = sum * r + 1.0 / 40320;
    sum = sum * r + 1.0 / 5040;
    sum = sum * r + 1.0 / 720;
    sum = sum * r + 1.0 / 120;
    sum = sum * r + 1.0 / 24;
    sum = sum * r + 1.0 / 6;
    sum = sum * r + 1.0 / 2;
    sum = (sum * r + 1.0) * r + 1.0;
    using Words = Vec<unsigned long long>;
    return (Vec<double>)((Words)sum + ((Words)(k + integral) << 52));
}

// I0(x) for x >= 0 from its square: Abramowitz and Stegun 9.8.1 below 3.75, 9.8.2 from there on.
ARK_INLINE Vec<double> besselI0(Vec<double> square)
{
    const Vec<double> t = square * (1 / 14.0625);
    Vec<double> small = t * 0.0045813 + 0.0360768;
    small = small * t + 0.2659732;
    small = small * t + 1.2067492;
    small = small * t + 3.0899424;
    small = small * t + 3.5156229;
    small = small * t + 1.0;
    const auto isSmall = square < 14.0625;
    if (!anySet(~isSmall))
        return small;

    const Vec<double> x = squareRoot(square), u = 3.75 / x;
    Vec<double> large = u * 0.00392377 - 0.01647633;
    large = large * u + 0.02635537;
    large = large * u - 0.02057706;
    large = large * u + 0.00916281;
    large = large * u - 0.00157565;
    large = large * u + 0.00225319;
    large = large * u + 0.01328592;
    large = large * u + 0.39894228;
    large = exponential(x) / squareRoot(x) * large;
    return isSmall ? small : large;
}

template <class T>
void kaiser(T* vec, std::ptrdiff_t n, double beta)
{
    const double m = double(n - 1), square = beta * beta, half = 0.5 * m * beta;
    const double factor = 1 / besselI0(broadcast(half * half))[0];
    multiplyPairs(vec, n, weightsOfNumbers([=](Vec<double> k) { return besselI0(k * (m - k) * square) * factor; }));
}

template <class T>
constexpr WindowKernels<T> windowTable{bartlett<T>, cosine<T>, longCosine<T>, kaiser<T>};

} // namespace

extern const WindowKernels<float> windowS;
extern const WindowKernels<double> windowD;
extern const WindowKernels<FloatCplx> windowC;
extern const WindowKernels<DoubleCplx> windowZ;
extern const WindowKernels<short> windowW;
extern const WindowKernels<ShortCplx> windowV;

constinit const WindowKernels<float> windowS = windowTable<float>;
constinit const WindowKernels<double> windowD = windowTable<double>;
constinit const WindowKernels<FloatCplx> windowC = windowTable<FloatCplx>;
constinit const WindowKernels<DoubleCplx> windowZ = windowTable<DoubleCplx>;
constinit const WindowKernels<short> windowW = windowTable<short>;
constinit const WindowKernels<ShortCplx> windowV = windowTable<ShortCplx>;

} // namespace ark::ARK_SET
