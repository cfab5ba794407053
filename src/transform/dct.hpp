// The discrete cosine transform, types II and III, scaled to be orthonormal.
#pragma once

#include "transform/chirp.hpp"
#include "transform/realfft.hpp"
#include "transform/shelf.hpp"
#include "vector/scale.hpp"

#include <arkpx/transform.h>

#include <bit>
#include <cmath>
#include <numbers>

namespace ark {

// The tables of the lengths used last. What a table holds depends on its length alone: for powers of two in precision R
// the rotations of fastDct, for the others in double precision the cosines of the sums or what chirpDct works with.
template <class R>
inline constinit Shelf<SharedTable<R>> dctShelf;

inline void dctFree()
{
    dctShelf<float>.clear();
    dctShelf<double>.clear();
}

// Up to here the sums are quicker than the FFTs of a length that is no power of two.
inline constexpr int longestSummedDct = 32;

// The angle pi i / (2 N).
template <class Wide>
Wide dctAngle(std::uint64_t i, int N)
{
    return std::numbers::pi_v<Wide> * Wide(i) / (2 * Wide(N));
}

// ---- short ones: the sums, over the cosines of all multiples of pi / (2 N) ----

// The folded input: with d[n] = x[n] - x[N-1-n] the odd outputs, with s[n] = x[n] + x[N-1-n] the even ones are half as
// long. work has N elements, the sums in front.
template <class R>
void directDct(const R* src, R* dst, std::size_t N, const double* cosines, double* work)
{
    const std::size_t half = N / 2;
    double *const sums = work, *const differences = work + (N + 1) / 2;
    for (std::size_t n = 0; n < half; n++) {
        const double a = double(src[n]), b = double(src[N - 1 - n]);
        sums[n] = a + b;
        differences[n] = a - b;
    }
    const double middle = N % 2 ? double(src[half]) : 0;
    const double first = 1 / std::sqrt(double(N)), rest = std::numbers::sqrt2 * first;
    const auto sum = [=](const double* folded, std::size_t k) {
        double total = 0;
        for (std::size_t n = 0, index = k; n < half; n++) {
            total += folded[n] * cosines[index];
            index += 2 * k;
            if (index >= 4 * N)
                index -= 4 * N;
        }
        return total;
    };
    dst[0] = R((sum(sums, 0) + middle) * first);
    for (std::size_t k = 1; k < N; k++)
        dst[k] = R((k % 2 ? sum(differences, k) : sum(sums, k) + (k % 4 ? -middle : middle)) * rest);
}

// The even and the odd terms apart: their sum is x[n], their difference x[N-1-n].
template <class R>
void directInverseDct(R* dst, std::size_t N, const double* cosines, const double* scaled)
{
    for (std::size_t n = 0; n < (N + 1) / 2; n++) {
        const std::size_t step = 2 * n + 1;
        double even = scaled[0], odd = 0;
        std::size_t index = 0;
        const auto next = [&] {
            index += step;
            if (index >= 4 * N)
                index -= 4 * N;
            return cosines[index];
        };
        std::size_t k = 1;
        for (; k + 1 < N; k += 2) {
            odd += scaled[k] * next();
            even += scaled[k + 1] * next();
        }
        if (k < N)
            odd += scaled[k] * next();
        dst[n] = R(even + odd);
        dst[N - 1 - n] = N - 1 - n == n ? R(even) : R(even - odd);
    }
}

template <class R>
bool directDct(const R* src, R* dst, int len, bool inverse)
{
    const auto fill = [=](double* cosines) {
        for (std::uint64_t i = 0; i < 4 * std::uint64_t(len); i++)
            cosines[i] = double(std::cos(dctAngle<long double>(i, len)));
    };
    const Borrowed<double> table{dctShelf<double>, len, 4 * std::uint64_t(len), fill};
    const auto N = std::size_t(len);
    Buffer<double> work{N};
    if (!table || !work)
        return false;
    if (!inverse) {
        directDct(src, dst, N, table.values(), work.data());
        return true;
    }
    const double first = 1 / std::sqrt(double(N)), rest = std::numbers::sqrt2 * first;
    for (std::size_t k = 0; k < N; k++)
        work[k] = double(src[k]) * (k ? rest : first);
    directInverseDct(dst, N, table.values(), work.data());
    return true;
}

// ---- the others: one FFT of the even elements followed by the odd ones backwards ----
//
// With V its spectrum and t = pi k / (2 N), V[k] e^(-i t) = y[k] - i y[N-k] but for the scale, y[N] = 0. Source: J.
// Makhoul, A fast cosine transform in one and two dimensions, IEEE Trans. ASSP 28 (1980).

// turns[k] = sqrt(2 / N) (cos, sin)(pi k / (2 N)), k = 0 ... count - 1
template <class R>
void fillTurns(int N, std::size_t count, R* turns)
{
    using Wide = typename Wider<R>::Type;
    const Wide scale = std::sqrt(2 / Wide(N));
    for (std::size_t k = 0; k < count; k++) {
        const Wide angle = dctAngle<Wide>(k, N);
        turns[2 * k] = R(scale * std::cos(angle));
        turns[2 * k + 1] = R(scale * std::sin(angle));
    }
}

// Powers of two: the spectrum of a real FFT, which holds the pairs up to N/2.
template <class R>
void fastForwardDct(const R* src, R* dst, int order, const R* turns, R* work, const Workspace<R>& space)
{
    const std::size_t N = std::size_t{1} << order;
    for (std::size_t n = 0; n < N / 2; n++) {
        work[n] = src[2 * n];
        work[N - 1 - n] = src[2 * n + 1];
    }
    realToSpectrum<R>(work, work, permLayout(order), order, ARK_Forw, space);
    const R first = R(1 / std::sqrt(double(N)));
    dst[0] = work[0] * first;
    dst[N / 2] = work[1] * first; // sqrt(2 / N) cos(pi / 4)
    for (std::size_t k = 1; k < N / 2; k++) {
        const R re = work[2 * k], im = work[2 * k + 1], cosine = turns[2 * k], sine = turns[2 * k + 1];
        dst[k] = re * cosine + im * sine;
        dst[N - k] = re * sine - im * cosine;
    }
}

template <class R>
void fastInverseDct(const R* src, R* dst, int order, const R* turns, R* work, const Workspace<R>& space)
{
    const std::size_t N = std::size_t{1} << order;
    const R first = R(1 / std::sqrt(double(N)));
    work[0] = src[0] * first;
    work[1] = src[N / 2] * first;
    for (std::size_t k = 1; k < N / 2; k++) {
        const R a = src[k] / 2, b = src[N - k] / 2, cosine = turns[2 * k], sine = turns[2 * k + 1];
        work[2 * k] = a * cosine + b * sine;
        work[2 * k + 1] = a * sine - b * cosine;
    }
    spectrumToReal<R>(work, work, permLayout(order), order, ARK_Inv | ARK_NoScale, space);
    for (std::size_t n = 0; n < N / 2; n++) {
        dst[2 * n] = work[n];
        dst[2 * n + 1] = work[N - 1 - n];
    }
}

template <class R>
bool fastDct(const R* src, R* dst, int len, bool inverse)
{
    const int order = std::countr_zero(unsigned(len));
    Workspace<R> space;
    if (!obtain(ccsKind, order, space))
        return false;
    const Borrowed<R> table{dctShelf<R>, len, std::uint64_t(len),
                            [=](R* turns) { fillTurns(len, std::size_t(len) / 2, turns); }};
    Buffer<R> work{std::size_t(len)};
    if (!table || !work)
        return false;
    const auto compute = inverse ? &fastInverseDct<R> : &fastForwardDct<R>;
    compute(src, dst, order, table.values(), work.data(), space);
    return true;
}

// Other lengths: a complex spectrum by the chirp, forward in both directions, since the inverse's result is real.
template <class R>
bool chirpDct(const R* src, R* dst, int len, bool inverse)
{
    Workspace<double> space;
    if (!obtainChirpSpace(len, space))
        return false;
    const std::size_t N = std::size_t(len), size = chirpSize(len);
    const Borrowed<double> table{dctShelf<double>, len, size + 2 * std::uint64_t{N}, [&](double* values) {
                                     fillChirp(len, space, values);
                                     fillTurns(len, N, values + size);
                                 }};
    Buffer<DoubleCplx> z{std::size_t{1} << chirpOrder(len)};
    if (!table || !z)
        return false;
    const double* const turns = table.values() + size;
    const double first = 1 / std::sqrt(double(N));
    const auto place = [=](std::size_t n) { return n % 2 ? N - 1 - n / 2 : n / 2; };
    if (inverse) {
        z[0] = {double(src[0]) * first, 0};
        for (std::size_t k = 1; k < N; k++) {
            const double a = double(src[k]) / 2, b = double(src[N - k]) / 2;
            const double cosine = turns[2 * k], sine = turns[2 * k + 1];
            z[k] = {a * cosine + b * sine, b * cosine - a * sine}; // conjugate
        }
        chirpDft(z.data(), len, table.values(), space);
        for (std::size_t n = 0; n < N; n++)
            dst[n] = R(z[place(n)].re);
    } else {
        for (std::size_t n = 0; n < N; n++)
            z[place(n)] = {double(src[n]), 0};
        chirpDft(z.data(), len, table.values(), space);
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
    if (len == 1) {
        dst[0] = src[0];
        return true;
    }
    const bool inverse = has(flags, ARK_Inv);
    if (std::has_single_bit(unsigned(len)))
        return computedWithin<R>([=] { return fastDct(src, dst, len, inverse); });
    if (len <= longestSummedDct)
        return directDct(src, dst, len, inverse);
    return computedWithin<double>([=] { return chirpDct(src, dst, len, inverse); });
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
