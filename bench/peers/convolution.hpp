// Convolution as one writes it, and over FFTW.
#pragma once

#include "driver.hpp"
#include "peers/fftw.hpp"

#include <arkpx/types.h>

namespace bench {

// Sums in y, one element of the filter after the other over as much of y as stays in the cache.
inline void addProduct(float& sum, float a, float b) { sum += a * b; }
inline void addProduct(double& sum, double a, double b) { sum += a * b; }
inline void addProduct(FloatCplx& sum, FloatCplx a, FloatCplx b)
{
    sum.re += a.re * b.re - a.im * b.im;
    sum.im += a.re * b.im + a.im * b.re;
}

template <class T>
void plainConvolution(const T* __restrict x, int len, const T* __restrict h, int n, T* __restrict y)
{
    constexpr int tile = 1024;
    for (int from = 0; from < len + n - 1; from += tile) {
        const int to = std::min(from + tile, len + n - 1);
        std::fill(y + from, y + to, T{});
        for (int i = 0; i < n; i++)
            for (int k = std::max(from, i), end = std::min(to, len + i); k < end; k++)
                addProduct(y[k], h[i], x[k - i]);
    }
}

#if ARKPX_BENCH_FFTW
// Overlap-save with real transforms of a size that the caller chooses; the filter's spectrum is computed in every call,
// as the library has to.
template <class R>
class FftwConvolution {
public:
    FftwConvolution(int size, int n)
        : size_{size},
          n_{n},
          signal_(size),
          filter_(size),
          spectrum_(size + 2),
          filterSpectrum_(size + 2),
          forward_{fftwReal(signal_.data(), spectrum_.data(), size)},
          forwardFilter_{fftwReal(filter_.data(), filterSpectrum_.data(), size)},
          inverse_{fftwInverseReal(spectrum_.data(), signal_.data(), size)}
    {}
    void run(const R* x, int len, const R* h, R* y) const
    {
        const int hop = size_ - n_ + 1, M = len + n_ - 1;
        std::copy_n(h, n_, filter_.data());
        std::fill(filter_.data() + n_, filter_.data() + size_, R(0));
        forwardFilter_();
        for (int done = 0; done < M; done += hop) {
            const int from = std::max(done - n_ + 1, 0), to = std::min(done + hop, len), front = from - (done - n_ + 1);
            std::fill_n(signal_.data(), front, R(0));
            std::copy(x + from, x + to, signal_.data() + front);
            std::fill(signal_.data() + front + to - from, signal_.data() + size_, R(0));
            forward_();
            R* const a = spectrum_;
            const R* const b = filterSpectrum_;
            const R scale = R(1) / R(size_);
            for (int k = 0; k <= size_; k += 2) {
                const R re = a[k] * b[k] - a[k + 1] * b[k + 1], im = a[k] * b[k + 1] + a[k + 1] * b[k];
                a[k] = re * scale;
                a[k + 1] = im * scale;
            }
            inverse_();
            std::copy_n(signal_.data() + n_ - 1, std::min(hop, M - done), y + done);
        }
    }

private:
    int size_, n_;
    Array<R> signal_, filter_, spectrum_, filterSpectrum_;
    std::function<void()> forward_, forwardFilter_, inverse_;
};
#endif

// Over transforms of four sizes, of which the best counts; none where FFTW is absent.
template <class R>
void addFftwConvolutions(Contenders& contenders, const Array<R>& x, int len, const Array<R>& h, int n,
                         const Array<R>& y)
{
#if ARKPX_BENCH_FFTW
    int size = 64;
    while (size < 2 * n)
        size *= 2;
    for (int i = 0; i < 4 && size / 2 < len + n - 1; i++, size *= 2) {
        const auto convolution = std::make_shared<FftwConvolution<R>>(size, n);
        contenders.push_back({"FFTW", [=] { convolution->run(x, len, h, y); }});
    }
#else
    (void)contenders, (void)x, (void)len, (void)h, (void)n, (void)y;
#endif
}

} // namespace bench
