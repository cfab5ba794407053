// FFTW: FFTW(run) is its contender, or nothing where it is absent. Plans are made with MEASURE, if nothing else is
// asked for.
#pragma once

#include "driver.hpp"

#if ARKPX_BENCH_FFTW
#include <fftw3.h>

#include <type_traits>

#define FFTW(...) bench::Contender{"FFTW", __VA_ARGS__},

namespace bench {

// What an array holds: making a plan overwrites it.
template <class R>
class Kept {
public:
    Kept(R* where, int count) : where_{where}, values_(where, where + count) {}
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;
    ~Kept() { std::copy(values_.begin(), values_.end(), where_); }

private:
    R* where_;
    std::vector<R> values_;
};

// A function that runs the plan; the plan goes with it.
template <class Plan, class Destroy, class Execute>
std::function<void()> running(Plan plan, Destroy destroy, Execute execute)
{
    std::shared_ptr<std::remove_pointer_t<Plan>> owner(plan, destroy);
    return [=] { execute(owner.get()); };
}

inline std::function<void()> fftwCplx(float* in, float* out, int n, int sign, unsigned how = FFTW_MEASURE)
{
    const Kept kept(in, 2 * n);
    return running(
        fftwf_plan_dft_1d(n, reinterpret_cast<fftwf_complex*>(in), reinterpret_cast<fftwf_complex*>(out), sign, how),
        fftwf_destroy_plan, fftwf_execute);
}
inline std::function<void()> fftwCplx(double* in, double* out, int n, int sign, unsigned how = FFTW_MEASURE)
{
    const Kept kept(in, 2 * n);
    return running(
        fftw_plan_dft_1d(n, reinterpret_cast<fftw_complex*>(in), reinterpret_cast<fftw_complex*>(out), sign, how),
        fftw_destroy_plan, fftw_execute);
}
inline std::function<void()> fftwReal(float* in, float* out, int n, unsigned how = FFTW_MEASURE)
{
    const Kept kept(in, n);
    return running(fftwf_plan_dft_r2c_1d(n, in, reinterpret_cast<fftwf_complex*>(out), how), fftwf_destroy_plan,
                   fftwf_execute);
}
inline std::function<void()> fftwReal(double* in, double* out, int n, unsigned how = FFTW_MEASURE)
{
    const Kept kept(in, n);
    return running(fftw_plan_dft_r2c_1d(n, in, reinterpret_cast<fftw_complex*>(out), how), fftw_destroy_plan,
                   fftw_execute);
}
inline std::function<void()> fftwInverseReal(float* in, float* out, int n, unsigned how = FFTW_MEASURE)
{
    const Kept kept(in, n + 2);
    return running(fftwf_plan_dft_c2r_1d(n, reinterpret_cast<fftwf_complex*>(in), out, how), fftwf_destroy_plan,
                   fftwf_execute);
}
inline std::function<void()> fftwInverseReal(double* in, double* out, int n, unsigned how = FFTW_MEASURE)
{
    const Kept kept(in, n + 2);
    return running(fftw_plan_dft_c2r_1d(n, reinterpret_cast<fftw_complex*>(in), out, how), fftw_destroy_plan,
                   fftw_execute);
}

} // namespace bench
#else
#define FFTW(...)
#endif
