// The discrete cosine transform, types II and III, scaled to be orthonormal.
#pragma once

#include "transform/anydft.hpp"
#include "transform/realfft.hpp"
#include "transform/shelf.hpp"
#include "vector/scale.hpp"

#include <arkpx/transform.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace ark {

// The tables of the lengths used last. What a table holds depends on its length alone. Everything is computed in double
// precision.
inline constinit Shelf<SharedTable<double>> dctShelf;

inline void dctFree() { dctShelf.clear(); }

// ---- powers of two up to 16: without tables and memory ----

// cos(pi i / 32)
constexpr double cosineOf32nd(std::size_t i)
{
    i %= 64;
    i = i > 32 ? 64 - i : i;
    const long double angle = std::numbers::pi_v<long double> * static_cast<long double>(i > 16 ? 32 - i : i) / 32;
    long double term = 1, sum = 1;
    for (int n = 2; n < 30; n += 2) {
        term *= -angle * angle / (n * (n - 1));
        sum += term;
    }
    return double(i > 16 ? -sum : sum);
}

// [j][n] = cos(pi (2n+1) (2j+1) / (2N))
template <std::size_t N>
inline constexpr auto oddCosines = [] {
    std::array<std::array<double, N / 2>, N / 2> factors{};
    for (std::size_t j = 0; j < N / 2; j++)
        for (std::size_t n = 0; n < N / 2; n++)
            factors[j][n] = cosineOf32nd((2 * n + 1) * (2 * j + 1) * (16 / N));
    return factors;
}();

// Unscaled. The even outputs are the transform of the sums x[n] + x[N-1-n]; the odd ones are those of the differences.
template <std::size_t N>
void tinyDct(const double* x, double* y)
{
    if constexpr (N == 1) {
        y[0] = x[0];
    } else {
        constexpr std::size_t half = N / 2;
        double sums[half], differences[half], even[half];
        for (std::size_t n = 0; n < half; n++) {
            sums[n] = x[n] + x[N - 1 - n];
            differences[n] = x[n] - x[N - 1 - n];
        }
        tinyDct<half>(sums, even);
        for (std::size_t j = 0; j < half; j++) {
            double odd = 0;
            for (std::size_t n = 0; n < half; n++)
                odd += differences[n] * oddCosines<N>[j][n];
            y[2 * j] = even[j];
            y[2 * j + 1] = odd;
        }
    }
}
template <std::size_t N>
void tinyInverseDct(const double* y, double* x)
{
    if constexpr (N == 1) {
        x[0] = y[0];
    } else {
        constexpr std::size_t half = N / 2;
        double even[half], ofEven[half], ofOdd[half]{};
        for (std::size_t j = 0; j < half; j++) {
            even[j] = y[2 * j];
            for (std::size_t n = 0; n < half; n++)
                ofOdd[n] += y[2 * j + 1] * oddCosines<N>[j][n];
        }
        tinyInverseDct<half>(even, ofEven);
        for (std::size_t n = 0; n < half; n++) {
            x[n] = ofEven[n] + ofOdd[n];
            x[N - 1 - n] = ofEven[n] - ofOdd[n];
        }
    }
}

template <std::size_t N, class R>
bool tinyDct(const R* src, R* dst, bool inverse)
{
    const double first = 1 / std::sqrt(double(N)), rest = std::numbers::sqrt2 * first;
    double x[N], y[N];
    for (std::size_t n = 0; n < N; n++)
        x[n] = double(src[n]) * (!inverse ? 1 : n ? rest : first);
    (inverse ? &tinyInverseDct<N> : static_cast<void (*)(const double*, double*)>(&tinyDct<N>))(x, y);
    for (std::size_t n = 0; n < N; n++)
        dst[n] = R(y[n] * (inverse ? 1 : n ? rest : first));
    return true;
}

// ---- the others: one FFT of the even elements followed by the odd ones backwards ----
//
// With V its spectrum and t = pi k / (2 N), V[k] e^(-i t) = y[k] - i y[N-k] but for the scale, y[N] = 0. Source: J.
// Makhoul, A fast cosine transform in one and two dimensions, IEEE Trans. ASSP 28 (1980).

inline long double dctAngle(std::uint64_t i, int N)
{
    return std::numbers::pi_v<long double> * static_cast<long double>(i) / (2 * static_cast<long double>(N));
}

// turns[k] = scale (cos, sin)(pi k step / (2 N)), k = 0 ... count - 1
inline void fillTurns(int N, std::uint64_t step, long double scale, std::size_t count, double* turns)
{
    for (std::size_t k = 0; k < count; k++) {
        turns[2 * k] = double(scale * std::cos(dctAngle(k * step, N)));
        turns[2 * k + 1] = double(scale * std::sin(dctAngle(k * step, N)));
    }
}
inline void fillScaledTurns(int N, std::size_t count, double* turns)
{
    fillTurns(N, 1, std::sqrt(2 / static_cast<long double>(N)), count, turns);
}

// Even lengths. transform(work) takes N reals to the half of their spectrum in RCPerm, V[0] and V[N/2] in front, and in
// the inverse back, unscaled. Element N/2: sqrt(2 / N) cos(pi / 4) = sqrt(1 / N).
template <class R, class Transform>
void evenDct(const R* src, R* dst, std::size_t N, const double* turns, double* work, Transform transform)
{
    for (std::size_t n = 0; n < N / 2; n++) {
        work[n] = double(src[2 * n]);
        work[N - 1 - n] = double(src[2 * n + 1]);
    }
    transform(work);
    const double first = 1 / std::sqrt(double(N));
    dst[0] = R(work[0] * first);
    dst[N / 2] = R(work[1] * first);
    for (std::size_t k = 1; k < N / 2; k++) {
        const double re = work[2 * k], im = work[2 * k + 1], cosine = turns[2 * k], sine = turns[2 * k + 1];
        dst[k] = R(re * cosine + im * sine);
        dst[N - k] = R(re * sine - im * cosine);
    }
}
template <class R, class Transform>
void evenInverseDct(const R* src, R* dst, std::size_t N, const double* turns, double* work, Transform transform)
{
    const double first = 1 / std::sqrt(double(N));
    work[0] = double(src[0]) * first;
    work[1] = double(src[N / 2]) * first;
    for (std::size_t k = 1; k < N / 2; k++) {
        const double a = double(src[k]) / 2, b = double(src[N - k]) / 2;
        const double cosine = turns[2 * k], sine = turns[2 * k + 1];
        work[2 * k] = a * cosine + b * sine;
        work[2 * k + 1] = a * sine - b * cosine;
    }
    transform(work);
    for (std::size_t n = 0; n < N / 2; n++) {
        dst[2 * n] = R(work[n]);
        dst[2 * n + 1] = R(work[N - 1 - n]);
    }
}

// Powers of two.
template <class R>
bool fastDct(const R* src, R* dst, int len, bool inverse)
{
    const int order = std::countr_zero(unsigned(len));
    const auto N = std::size_t(len);
    Workspace<double> space;
    if (!obtain(ccsKind, order, space))
        return false;
    const Borrowed<double> table{dctShelf, len, [=] { return N; },
                                 [=](double* turns) { fillScaledTurns(len, N / 2, turns); }};
    Buffer<double> work{N};
    if (!table || !work)
        return false;
    const SpectrumLayout layout = permLayout(order);
    if (inverse)
        evenInverseDct(src, dst, N, table.values(), work.data(),
                       [=](double* x) { spectrumToReal<double>(x, x, layout, order, ARK_Inv | ARK_NoScale, space); });
    else
        evenDct(src, dst, N, table.values(), work.data(),
                [=](double* x) { realToSpectrum<double>(x, x, layout, order, ARK_Forw, space); });
    return true;
}

// From the spectrum Z of N/2 complex numbers, made of neighbouring reals, to the reals' V, and back, unscaled, to the
// conjugate of Z. turns[k] = (cos, sin)(2 pi k / N).
inline void recombineToSpectrum(DoubleCplx* z, std::size_t half, const double* turns)
{
    z[0] = {z[0].re + z[0].im, z[0].re - z[0].im};
    for (std::size_t k = 1; 2 * k <= half; k++) {
        const DoubleCplx a = z[k], b = z[half - k];
        const DoubleCplx even{(a.re + b.re) / 2, (a.im - b.im) / 2}, odd{(a.im + b.im) / 2, (b.re - a.re) / 2};
        const double cosine = turns[2 * k], sine = turns[2 * k + 1];
        const DoubleCplx turned{odd.re * cosine + odd.im * sine, odd.im * cosine - odd.re * sine};
        z[k] = {even.re + turned.re, even.im + turned.im};
        z[half - k] = {even.re - turned.re, turned.im - even.im};
    }
}
inline void recombineToReal(DoubleCplx* z, std::size_t half, const double* turns)
{
    z[0] = {z[0].re + z[0].im, z[0].im - z[0].re};
    for (std::size_t k = 1; 2 * k <= half; k++) {
        const DoubleCplx a = z[k], b = z[half - k];
        const DoubleCplx even{a.re + b.re, a.im - b.im}, odd{a.re - b.re, a.im + b.im};
        const double cosine = turns[2 * k], sine = turns[2 * k + 1];
        const DoubleCplx turned{-(odd.re * sine + odd.im * cosine), odd.re * cosine - odd.im * sine}; // times i
        z[k] = {even.re + turned.re, -(even.im + turned.im)};
        z[half - k] = {even.re - turned.re, even.im - turned.im};
    }
}

// So that what follows begins a cache line.
inline std::size_t roundedUp(std::size_t size) { return (size + 7) / 8 * 8; }

// Other even lengths: a complex transform of half the length.
template <class R>
bool evenDctOfHalf(const R* src, R* dst, int len, bool inverse)
{
    const int half = len / 2;
    const auto N = std::size_t(len), H = std::size_t(half);
    AnyDft dft{half};
    if (!dft.obtain())
        return false;
    const std::size_t turnsSize = roundedUp(2 * H + 2 * (H / 2 + 1));
    const Borrowed<double> table{dctShelf, len, [=] { return turnsSize + anyDftSize(half); },
                                 [&](double* turns) {
                                     fillScaledTurns(len, H, turns);
                                     fillTurns(len, 4, 1, H / 2 + 1, turns + 2 * H);
                                     dft.fill(turns + turnsSize);
                                 }};
    if (!table || !dft.prepare(table.values() + turnsSize))
        return false;
    const double *const turns = table.values(), *const halfTurns = turns + 2 * H;
    DoubleCplx* const z = dft.elements();
    if (inverse)
        evenInverseDct(src, dst, N, turns, partsOf(z), [&](double* x) {
            recombineToReal(z, H, halfTurns);
            dft.transform();
            for (std::size_t n = 1; n < N; n += 2)
                x[n] = -x[n];
        });
    else
        evenDct(src, dst, N, turns, partsOf(z), [&](double*) {
            dft.transform();
            recombineToSpectrum(z, H, halfTurns);
        });
    return true;
}

// Odd lengths: a complex spectrum, forward in both directions, since the inverse's result is real.
template <class R>
bool oddDct(const R* src, R* dst, int len, bool inverse)
{
    AnyDft dft{len};
    if (!dft.obtain())
        return false;
    const std::size_t N = std::size_t(len), turnsSize = roundedUp(2 * N);
    const Borrowed<double> table{dctShelf, len, [=] { return turnsSize + anyDftSize(len); },
                                 [&](double* turns) {
                                     fillScaledTurns(len, N, turns);
                                     dft.fill(turns + turnsSize);
                                 }};
    if (!table || !dft.prepare(table.values() + turnsSize))
        return false;
    const double* const turns = table.values();
    DoubleCplx* const z = dft.elements();
    const double first = 1 / std::sqrt(double(N));
    const auto place = [=](std::size_t n) { return n % 2 ? N - 1 - n / 2 : n / 2; };
    if (inverse) {
        z[0] = {double(src[0]) * first, 0};
        for (std::size_t k = 1; k < N; k++) {
            const double a = double(src[k]) / 2, b = double(src[N - k]) / 2;
            const double cosine = turns[2 * k], sine = turns[2 * k + 1];
            z[k] = {a * cosine + b * sine, b * cosine - a * sine}; // conjugate
        }
        dft.transform();
        for (std::size_t n = 0; n < N; n++)
            dst[n] = R(z[place(n)].re);
    } else {
        for (std::size_t n = 0; n < N; n++)
            z[place(n)] = {double(src[n]), 0};
        dft.transform();
        dst[0] = R(z[0].re * first);
        for (std::size_t k = 1; k < N; k++)
            dst[k] = R(z[k].re * turns[2 * k] + z[k].im * turns[2 * k + 1]);
    }
    return true;
}

// ---- the members ----

template <class R>
bool dctGood(Where at, const R* src, const R* dst, int len, int flags)
{
    return firstGood(at, {{!src || !dst, "\nNull pointer to data buffer\n"},
                          {len < 1, "\nBad value of data buffer size\n"},
                          {!(flags & ARK_Forw) == !(flags & ARK_Inv), "\nBad value of the transform flag\n"}});
}

// dst may be src: a copy is read. False when there is no memory; dst is untouched then.
template <class R>
bool computeDct(const R* src, R* dst, int len, int flags)
{
    const bool inverse = has(flags, ARK_Inv);
    switch (len) {
    case 1: return tinyDct<1>(src, dst, inverse);
    case 2: return tinyDct<2>(src, dst, inverse);
    case 4: return tinyDct<4>(src, dst, inverse);
    case 8: return tinyDct<8>(src, dst, inverse);
    case 16: return tinyDct<16>(src, dst, inverse);
    default: break;
    }
    const bool isPower = std::has_single_bit(unsigned(len));
    const auto compute = isPower ? &fastDct<R> : len % 2 ? &oddDct<R> : &evenDctOfHalf<R>;
    return computedWithin([=] { return compute(src, dst, len, inverse); });
}

inline constexpr const char* noDctMemory = "\nMemory allocation problem\n";

template <class R>
void dct(Where at, const R* src, R* dst, int len, int flags)
{
    if (flags == ARK_Free)
        return dctFree();
    if (dctGood(at, src, dst, len, flags) && !computeDct(src, dst, len, flags))
        outOfMemory(at, noDctMemory);
}

inline void shortDct(Where at, const short* src, short* dst, int len, int flags)
{
    if (flags == ARK_Free)
        return dctFree();
    if (!dctGood(at, src, dst, len, flags))
        return;
    Buffer<float> samples{std::size_t(len)};
    if (!samples)
        return outOfMemory(at, noDctMemory);
    shortToFloat(src, samples.data(), len);
    if (!computeDct(samples.data(), samples.data(), len, flags))
        return outOfMemory(at, noDctMemory);
    floatToShort(samples.data(), dst, len, {ARK_SATURATE, nullptr});
}

} // namespace ark
