// The DFT of any length by complex FFTs, in double precision.
#pragma once

#include "frame/heap.hpp"
#include "transform/cplxfft.hpp"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <numbers>

namespace ark {

// Compute returns false when there is no memory. What the transforms of double precision keep for themselves gives way
// once.
template <class Compute>
bool computedWithin(Compute compute)
{
    if (compute())
        return true;
    transformTables<double>().release();
    return compute();
}

// With n k = (n^2 + k^2 - (k - n)^2) / 2 the DFT of N elements is a convolution with the chirp c[n] = e^(-i pi n^2 /
// N):
//
//   X[k] = c[k] sum over n of (x[n] c[n]) conj c[k - n]
//
// and that is done by FFTs of M >= 2 N - 1 elements. Source: L. I. Bluestein, A linear filtering approach to the
// computation of discrete Fourier transform, IEEE Trans. Audio Electroacoust. 18 (1970).
inline int chirpOrder(int N) { return int(std::bit_width(2 * std::uint64_t(N) - 2)); }

// Doubles of the table: c[0 ... N-1], then the spectrum of conj c over M elements in bit-reversed order, divided by M.
// Of lengths for which there is a workspace.
inline std::size_t chirpSize(int N) { return 2 * (std::size_t(N) + (std::size_t{1} << chirpOrder(N))); }

inline bool obtainChirpSpace(int N, Workspace<double>& space)
{
    return isOrder(chirpOrder(N)) && obtain(cplxKind, chirpOrder(N), space);
}

inline void fillChirp(int N, const Workspace<double>& space, double* table)
{
    const int order = chirpOrder(N);
    const std::size_t length = std::size_t(N), M = std::size_t{1} << order;
    double* const spectrum = table + 2 * length;
    const double scale = 1 / double(M);
    std::memset(spectrum, 0, 2 * M * sizeof(double));
    for (std::size_t n = 0; n < length; n++) {
        const std::uint64_t turn = std::uint64_t{n} * n % (2 * std::uint64_t{length});
        const long double angle = std::numbers::pi_v<long double> * static_cast<long double>(turn) / N;
        const double re = double(std::cos(angle)), im = -double(std::sin(angle));
        table[2 * n] = re;
        table[2 * n + 1] = im;
        for (const std::size_t place : {n, (M - n) % M}) {
            spectrum[2 * place] = re * scale;
            spectrum[2 * place + 1] = -im * scale;
        }
    }
    kernels<FftKernels<double>>().transform[interleaved][bitReversedOutput].forward(
        pairsIn(reinterpret_cast<const DoubleCplx*>(spectrum)), pairsIn(reinterpret_cast<DoubleCplx*>(spectrum)), order,
        space.fft, space.scratch, 1);
}

// Forward, of the first N elements of z, which has 2^chirpOrder(N). The first result is their plain sum, which is exact
// where a sum of doubles is.
inline void chirpDft(DoubleCplx* z, int N, const double* table, const Workspace<double>& space)
{
    const int order = chirpOrder(N);
    const std::ptrdiff_t M = std::ptrdiff_t{1} << order;
    const auto* const chirp = reinterpret_cast<const DoubleCplx*>(table);
    const auto mpy = kernels<ArithKernels<DoubleCplx>>().mpy;
    const auto& fft = kernels<FftKernels<double>>().transform[interleaved];
    const auto in = pairsIn(static_cast<const DoubleCplx*>(z));
    long double re = 0, im = 0; // so many terms, one after the other, would lose more in double than the FFTs do
    for (std::ptrdiff_t n = 0; n < N; n++) {
        re += z[n].re;
        im += z[n].im;
    }
    mpy(z, chirp, z, N);
    std::memset(z + N, 0, std::size_t(M - N) * sizeof *z);
    fft[bitReversedOutput].forward(in, pairsIn(z), order, space.fft, space.scratch, 1);
    mpy(z, chirp + N, z, M);
    fft[bitReversedInput].inverse(in, pairsIn(z), order, space.fft, space.scratch, 1);
    mpy(z, chirp, z, N);
    z[0] = {double(re), double(im)};
}

} // namespace ark
