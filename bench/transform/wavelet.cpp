// The wavelet transform over five levels, beside the sum as it is written down and GSL's, which knows no other number
// of levels than all.
#include "driver.hpp"

#include <arkpx.h>

#include <bit>
#include <memory>

#if ARKPX_BENCH_GSL
#include <gsl/gsl_wavelet.h>
#endif

namespace {

using bench::Array, bench::Contender, bench::Contenders, bench::noise;

int orderOf(int n) { return int(std::bit_width(unsigned(n))) - 1; }

const std::vector<int> sizes{1 << 6, 1 << 8, 1 << 10, 1 << 12, 1 << 14, 1 << 16, 1 << 18, 1 << 20, 1 << 22};

constexpr int levels = 5;

auto* initOf(float*) { return arksWtInit; }
auto* initOf(double*) { return arkdWtInit; }
auto* decomposeOf(float*) { return arksWtDecompose; }
auto* decomposeOf(double*) { return arkdWtDecompose; }
auto* reconstructOf(float*) { return arksWtReconstruct; }
auto* reconstructOf(double*) { return arkdWtReconstruct; }

template <class T>
std::shared_ptr<wtState> wavelet(int moments, int n, int level)
{
    std::shared_ptr<wtState> state{new wtState{}, [](wtState* s) {
                                       arkWtFree(s);
                                       delete s;
                                   }};
    initOf(static_cast<T*>(nullptr))(moments, 0, orderOf(n), level, state.get(), 2);
    return state;
}

template <class T>
void plainLevel(const wtState& state, const T* x, T* dst, int n)
{
    for (int band = 0; band < 2; band++) {
        const T* h = static_cast<const T*>(state.tap_filt[band]);
        const int len = state.Flen[band], ofs = state.Fofs[band];
        for (int i = 0; i < n / 2; i++) {
            T sum = 0;
            if (2 * i + ofs - len + 1 >= 0 && 2 * i + ofs < n)
                for (int k = 0; k < len; k++)
                    sum += h[k] * x[2 * i + ofs - k];
            else
                for (int k = 0; k < len; k++)
                    sum += h[k] * x[(2 * i + ofs - k) & (n - 1)];
            dst[band * n / 2 + i] = sum;
        }
    }
}

template <class T>
Contenders decompose(int moments, int n, int level)
{
    const Array<T> x(n, noise), y(n), low(n);
    const auto state = wavelet<T>(moments, n, level);
    Contenders all{{"arkpx", [=] { decomposeOf(x.data())(state.get(), x, y); }},
                   {"loop", [=] {
                        plainLevel<T>(*state, x, y, n);
                        for (int m = n / 2, done = 1; done < level; m /= 2, done++) {
                            std::copy_n(y.data(), m, low.data());
                            plainLevel<T>(*state, low, y, m);
                        }
                    }}};
    return all;
}

template <class T>
Contenders reconstruct(int moments, int n, int level)
{
    const Array<T> x(n, noise), y(n);
    const auto state = wavelet<T>(moments, n, level);
    return {{"arkpx", [=] { reconstructOf(x.data())(state.get(), x, y); }}};
}

#if ARKPX_BENCH_GSL
Contender gsl(int moments, int n)
{
    const std::shared_ptr<gsl_wavelet> kind{gsl_wavelet_alloc(gsl_wavelet_daubechies, std::size_t(2 * moments)),
                                            gsl_wavelet_free};
    const std::shared_ptr<gsl_wavelet_workspace> work{gsl_wavelet_workspace_alloc(std::size_t(n)),
                                                      gsl_wavelet_workspace_free};
    const Array<double> x(n, noise);
    return {"GSL", [=] { gsl_wavelet_transform_forward(kind.get(), x, 1, std::size_t(n), work.get()); }};
}
#endif

const bench::Family wavelets{
    "Wavelet transform",
    {
        {"float, 2 taps", 8, [](int n) { return decompose<float>(1, n, levels); }, sizes},
        {"float, 8 taps", 8, [](int n) { return decompose<float>(4, n, levels); }, sizes},
        {"float, 40 taps", 8, [](int n) { return decompose<float>(20, n, levels); }, sizes},
        {"float, 8 taps, back", 8, [](int n) { return reconstruct<float>(4, n, levels); }, sizes},
        {"double, 8 taps, back", 16, [](int n) { return reconstruct<double>(4, n, levels); }, sizes},
        {"float, 8 taps, one level", 8, [](int n) { return decompose<float>(4, n, 1); }, sizes},
        {"double, 8 taps, all levels", 16,
         [](int n) {
             Contenders all = decompose<double>(4, n, orderOf(n) - 1);
#if ARKPX_BENCH_GSL
             all.push_back(gsl(4, n));
#endif
             return all;
         },
         sizes},
    }};

} // namespace
