// The discrete cosine transform, types II and III, scaled to be orthonormal.
#pragma once

#include "transform/realfft.hpp"
#include "transform/shelf.hpp"
#include "vector/scale.hpp"

#include <bit>
#include <cmath>
#include <numbers>

namespace ark {

inline constinit Shelf<SharedTable<double>> dctDirectShelf; // cos(pi i / (2 N)), i = 0 ... 4 N - 1
template <class R>
inline constinit Shelf<SharedTable<R>> dctFastShelf; // sqrt(2 / N) (cos, sin)(pi k / (2 N)), k = 0 ... N/2 - 1

inline void dctFree()
{
    dctDirectShelf.clear();
    dctFastShelf<float>.clear();
    dctFastShelf<double>.clear();
}

// A table off its shelf for the time of a transform, made where there is none. False when there is no memory.
template <class R>
class DctTable {
public:
    template <class Fill>
    DctTable(Shelf<SharedTable<R>>& shelf, int length, std::uint64_t count, Fill fill)
        : shelf_{shelf}, table_{shelf.take(length)}
    {
        if (table_)
            return;
        table_ = SharedTable<R>::make(length, count);
        if (table_)
            fill(table_->values());
    }
    ~DctTable()
    {
        if (table_)
            shelf_.put(table_);
    }
    DctTable(const DctTable&) = delete;
    DctTable& operator=(const DctTable&) = delete;

    explicit operator bool() const { return table_ != nullptr; }
    const R* values() const { return table_->values(); }

private:
    Shelf<SharedTable<R>>& shelf_;
    SharedTable<R>* table_;
};

// The angle pi i / (2 N).
template <class Wide>
Wide dctAngle(std::uint64_t i, int N)
{
    return std::numbers::pi_v<Wide> * Wide(i) / (2 * Wide(N));
}

// ---- any length: the sums, over the cosines of all multiples of pi / (2 N) ----

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
    const DctTable<double> table{dctDirectShelf, len, 4 * std::uint64_t(len), [=](double* cosines) {
                                     for (std::uint64_t i = 0; i < 4 * std::uint64_t(len); i++)
                                         cosines[i] = double(std::cos(dctAngle<long double>(i, len)));
                                 }};
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

// ---- powers of two: one real FFT of the even elements followed by the odd ones backwards ----
//
// With V its spectrum and t = pi k / (2 N), V[k] e^(-i t) = y[k] - i y[N-k]. Source: J. Makhoul, A fast cosine transform
// in one and two dimensions, IEEE Trans. ASSP 28 (1980).

template <class R>
void fastDct(const R* src, R* dst, int order, const R* turns, R* work, const Workspace<R>& space)
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
    const auto fill = [=](R* turns) {
        using Wide = typename Wider<R>::Type;
        const Wide scale = std::sqrt(2 / Wide(len));
        for (int k = 0; k < len / 2; k++) {
            const Wide angle = dctAngle<Wide>(std::uint64_t(k), len);
            turns[2 * std::size_t(k)] = R(scale * std::cos(angle));
            turns[2 * std::size_t(k) + 1] = R(scale * std::sin(angle));
        }
    };
    const DctTable<R> table{dctFastShelf<R>, len, std::uint64_t(len), fill};
    Buffer<R> work{std::size_t(len)};
    Workspace<R> space;
    if (!table || !work)
        return false;
    if (!obtain(ccsKind, order, space)) {
        transformTables<R>().release();
        if (!obtain(ccsKind, order, space))
            return false;
    }
    (inverse ? fastInverseDct<R> : fastDct<R>)(src, dst, order, table.values(), work.data(), space);
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

// dst may be src: both algorithms read a copy. False when there is no memory.
template <class R>
bool computeDct(const R* src, R* dst, int len, int flags)
{
    const bool inverse = (flags & ARK_Inv) != 0;
    if (len == 1) {
        dst[0] = src[0];
        return true;
    }
    return std::has_single_bit(unsigned(len)) ? fastDct(src, dst, len, inverse) : directDct(src, dst, len, inverse);
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
