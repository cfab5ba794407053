// kissfft: KISSFFT(run) is its contender, or nothing where it is absent. It works in single precision and not in place.
#pragma once

#include "driver.hpp"

#if ARKPX_BENCH_KISSFFT
#include <kiss_fft.h>
#include <kiss_fftr.h>

#define KISSFFT(...) bench::Contender{"kissfft", __VA_ARGS__},

namespace bench {

inline std::function<void()> kissfftCplx(float* in, float* out, int n)
{
    const std::shared_ptr<kiss_fft_state> plan(kiss_fft_alloc(n, 0, nullptr, nullptr), kiss_fft_free);
    return [=] { kiss_fft(plan.get(), reinterpret_cast<kiss_fft_cpx*>(in), reinterpret_cast<kiss_fft_cpx*>(out)); };
}
inline std::function<void()> kissfftReal(float* in, float* out, int n)
{
    const std::shared_ptr<kiss_fftr_state> plan(kiss_fftr_alloc(n, 0, nullptr, nullptr), kiss_fft_free);
    return [=] { kiss_fftr(plan.get(), in, reinterpret_cast<kiss_fft_cpx*>(out)); };
}

} // namespace bench
#else
#define KISSFFT(...)
#endif
