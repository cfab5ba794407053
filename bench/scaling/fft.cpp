// FFTs of the orders 1 to 26, of double to 24.
#include "driver.hpp"
#include "peers/fftw.hpp"

#include <arkpx.h>

#include <bit>

namespace {

using bench::Array, bench::Contenders, bench::noise;

constexpr int lastMeasured = 1 << 19; // to measure plans of more takes FFTW many seconds

int orderOf(int n) { return int(std::bit_width(unsigned(n))) - 1; }

std::vector<int> upTo(int last)
{
    std::vector<int> sizes;
    for (int order = 1; order <= last; order++)
        sizes.push_back(1 << order);
    return sizes;
}

double cplxOperations(int n) { return 5.0 * n * orderOf(n); }
double realOperations(int n) { return 2.5 * n * orderOf(n); }

FloatCplx* cplx(float* parts) { return reinterpret_cast<FloatCplx*>(parts); }
DoubleCplx* cplx(double* parts) { return reinterpret_cast<DoubleCplx*>(parts); }

// With plan(how), a plan of FFTW: as it measures out, or as it guesses.
template <class Plan>
Contenders beside([[maybe_unused]] int n, std::function<void()> ours, [[maybe_unused]] Plan plan)
{
    Contenders contenders{{"arkpx", std::move(ours)}};
#if ARKPX_BENCH_FFTW
    const bool measured = n <= lastMeasured;
    contenders.push_back({"FFTW", plan(measured ? FFTW_MEASURE : FFTW_ESTIMATE)});
#endif
    return contenders;
}

#if ARKPX_BENCH_FFTW
#define PLAN(call) [=]([[maybe_unused]] unsigned how) { return bench::call; }
#else
#define PLAN(call) 0
#endif

const bench::Family fft{"Scaling: FFT",
                        {
                            {"complex, float", 16,
                             [](int n) {
                                 const Array<float> in(2 * n, noise), out(2 * n);
                                 return beside(
                                     n, [=] { arkcFftNip(cplx(in), cplx(out), orderOf(n), ARK_Forw); },
                                     PLAN(fftwCplx(in, out, n, FFTW_FORWARD, how)));
                             },
                             upTo(26), cplxOperations},
                            {"complex, double", 32,
                             [](int n) {
                                 const Array<double> in(2 * n, noise), out(2 * n);
                                 return beside(
                                     n, [=] { arkzFftNip(cplx(in), cplx(out), orderOf(n), ARK_Forw); },
                                     PLAN(fftwCplx(in, out, n, FFTW_FORWARD, how)));
                             },
                             upTo(24), cplxOperations},
                            {"real, float", 8,
                             [](int n) {
                                 const Array<float> in(n, noise), out(n + 2);
                                 return beside(
                                     n, [=] { arksRealFftNip(in, cplx(out), orderOf(n), ARK_Forw); },
                                     PLAN(fftwReal(in, out, n, how)));
                             },
                             upTo(26), realOperations},
                        },
                        "an element; FFTW's plans: measured up to 2^19 elements, above that estimated"};

} // namespace
