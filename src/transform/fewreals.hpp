// The FFT of 2, 4 or 8 real numbers, unscaled.
#pragma once

namespace ark {

// X_0 ... X_(N/2); the imaginary parts of the first and the last are zero and not kept.
template <class R, int N>
struct HalfSpectrum {
    R re[N / 2 + 1], im[N / 2 + 1];
};

template <class R>
inline constexpr R rootOfHalf = R(0.70710678118654752440L);

// X_k = sum over n of x_n e^(-2 pi i k n / N), x_n at step n: from the spectra E and O of those at even and odd places,
// X_k = E_k + w^k O_k and X_(N/2-k) = conj(E_k - w^k O_k).
template <class R, int N>
[[gnu::always_inline]] inline HalfSpectrum<R, N> spectrumOf(const R* x, int step = 1)
{
    static_assert(N == 2 || N == 4 || N == 8);
    HalfSpectrum<R, N> result;
    if constexpr (N == 2) {
        result.re[0] = x[0] + x[step];
        result.re[1] = x[0] - x[step];
    } else {
        const auto even = spectrumOf<R, N / 2>(x, 2 * step), odd = spectrumOf<R, N / 2>(x + step, 2 * step);
        result.re[0] = even.re[0] + odd.re[0];
        result.re[N / 2] = even.re[0] - odd.re[0];
        result.re[N / 4] = even.re[N / 4];
        result.im[N / 4] = -odd.re[N / 4];
        if constexpr (N == 8) {
            const R re = (odd.re[1] + odd.im[1]) * rootOfHalf<R>, im = (odd.im[1] - odd.re[1]) * rootOfHalf<R>;
            result.re[1] = even.re[1] + re;
            result.im[1] = even.im[1] + im;
            result.re[3] = even.re[1] - re;
            result.im[3] = im - even.im[1];
        }
    }
    return result;
}

// x_n = sum over all N elements X_k of the spectrum of X_k e^(2 pi i k n / N), at step n: those at even and odd places
// from the half spectra X_k + conj X_(N/2-k) and (X_k - conj X_(N/2-k)) w^-k.
template <class R, int N>
[[gnu::always_inline]] inline void signalOf(const HalfSpectrum<R, N>& spectrum, R* x, int step = 1)
{
    static_assert(N == 2 || N == 4 || N == 8);
    const R *const re = spectrum.re, *const im = spectrum.im;
    if constexpr (N == 2) {
        x[0] = re[0] + re[1];
        x[step] = re[0] - re[1];
    } else {
        HalfSpectrum<R, N / 2> even, odd;
        even.re[0] = re[0] + re[N / 2];
        odd.re[0] = re[0] - re[N / 2];
        even.re[N / 4] = 2 * re[N / 4];
        odd.re[N / 4] = -2 * im[N / 4];
        if constexpr (N == 8) {
            even.re[1] = re[1] + re[3];
            even.im[1] = im[1] - im[3];
            odd.re[1] = (re[1] - re[3] - (im[1] + im[3])) * rootOfHalf<R>;
            odd.im[1] = (re[1] - re[3] + (im[1] + im[3])) * rootOfHalf<R>;
        }
        signalOf(even, x, 2 * step);
        signalOf(odd, x + step, 2 * step);
    }
}

} // namespace ark
