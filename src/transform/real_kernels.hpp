#pragma once

#include <cstddef>

namespace ark {

// The passes beside a complex transform that make it a transform of real signals.
template <class R>
struct RealKernels {
    // The spectrum of 2 M reals from, or back to, that of the M complex numbers made of neighbouring reals; M =
    // 2^order, order >= 3. Elements 1 to M - 1 of each stand at src and dst: element k at src + 2 (k - 1). For k = 1
    // ... M/2, with a = src_k and b = src_(M-k):
    //
    //   sum = sumFactor (a + conj b)    turned = differenceFactor c_k (a - conj b)    c_k = (+-sin(pi k / M), cos(pi k
    //   / M)) dst_k = sum + turned            dst_(M-k) = conj(sum - turned)
    //
    // The sine is positive in the direction forward. table holds cosine and sine for each k. dst may be src, one real
    // below it or one real above; otherwise they do not overlap.
    using Recombine = void (*)(const R* src, R* dst, int order, const R* table, R sumFactor, R differenceFactor);
    struct Directions {
        Recombine forward, inverse;
    } recombine;

    // The spectra X_k = factor (Z_k + conj Z_(n-k)) and Y_k = -i factor (Z_k - conj Z_(n-k)), k = 0 ... n/2, of two
    // real signals from Z, the transform of x + i y in separate arrays of n = 2^order elements, order >= 1.
    void (*separate)(const R* re, const R* im, R* x, R* y, std::ptrdiff_t n, R factor);

    // Z = X + i Y in separate arrays of n elements from the halves k = 0 ... n/2 of two real signals' spectra. The
    // imaginary parts of elements 0 and n/2 count as zero.
    void (*combine)(const R* x, const R* y, R* re, R* im, std::ptrdiff_t n);
};

} // namespace ark
