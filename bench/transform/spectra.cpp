// DFT of any length, DCT and Goertzel.
#include "driver.hpp"
#include "peers/fftw.hpp"
#include "peers/kissfft.hpp"

#include <arkpx.h>

#include <cmath>

namespace {

using bench::Array, bench::Contenders, bench::noise;

FloatCplx* cplx(float* parts) { return reinterpret_cast<FloatCplx*>(parts); }
DoubleCplx* cplx(double* parts) { return reinterpret_cast<DoubleCplx*>(parts); }

// The sums as one would write them, over a table of the roots.
template <class R>
void sums(const R* in, R* out, const R* roots, int n)
{
    for (int m = 0; m < n; m++) {
        double re = 0, im = 0;
        for (int k = 0, at = 0; k < n; k++) {
            re += double(in[2 * k] * roots[2 * at] - in[2 * k + 1] * roots[2 * at + 1]);
            im += double(in[2 * k] * roots[2 * at + 1] + in[2 * k + 1] * roots[2 * at]);
            at += m;
            at = at < n ? at : at - n;
        }
        out[2 * m] = R(re);
        out[2 * m + 1] = R(im);
    }
}

// Fewer than the cache of a thread has room for.
const std::vector<int> lengths{3,   7,   12,  16,  17,   31,   33,   60,    64,    100,
                               127, 360, 500, 997, 1000, 1024, 4000, 10007, 100000};

const bench::Family dft{"DFT of any length",
                        {
                            {"float", 16,
                             [](int n) {
                                 const Array<float> in(2 * n, noise), out(2 * n);
                                 return Contenders{{"arkpx", [=] { arkcDft(cplx(in), cplx(out), n, ARK_Forw); }},
                                                   FFTW(bench::fftwCplx(in, out, n, FFTW_FORWARD))
                                                       KISSFFT(bench::kissfftCplx(in, out, n))};
                             },
                             lengths},
                            {"double", 32,
                             [](int n) {
                                 const Array<double> in(2 * n, noise), out(2 * n);
                                 return Contenders{{"arkpx", [=] { arkzDft(cplx(in), cplx(out), n, ARK_Forw); }},
                                                   FFTW(bench::fftwCplx(in, out, n, FFTW_FORWARD))};
                             },
                             lengths},
                            {"float, beside the sums",
                             16,
                             [](int n) {
                                 const Array<float> in(2 * n, noise), out(2 * n), roots(2 * n, noise);
                                 return Contenders{{"arkpx", [=] { arkcDft(cplx(in), cplx(out), n, ARK_Forw); }},
                                                   {"loop", [=] { sums<float>(in, out, roots, n); }}};
                             },
                             {3, 7, 12, 17, 31, 33, 127, 1000}},
                        }};

#if ARKPX_BENCH_FFTW
std::function<void()> fftwDct(float* in, float* out, int n, fftw_r2r_kind kind)
{
    return bench::running(fftwf_plan_r2r_1d(n, in, out, kind, FFTW_MEASURE), fftwf_destroy_plan, fftwf_execute);
}
std::function<void()> fftwDct(double* in, double* out, int n, fftw_r2r_kind kind)
{
    return bench::running(fftw_plan_r2r_1d(n, in, out, kind, FFTW_MEASURE), fftw_destroy_plan, fftw_execute);
}
#endif

const std::vector<int> dctLengths{8, 12, 16, 31, 33, 64, 100, 256, 1000, 1024, 4096, 65536};

const bench::Family dct{"DCT",
                        {
                            {"float, II", 8,
                             [](int n) {
                                 const Array<float> in(n, noise), out(n);
                                 return Contenders{{"arkpx", [=] { arksDct(in, out, n, ARK_Forw); }},
                                                   FFTW(fftwDct(in, out, n, FFTW_REDFT10))};
                             },
                             dctLengths},
                            {"float, III", 8,
                             [](int n) {
                                 const Array<float> in(n, noise), out(n);
                                 return Contenders{{"arkpx", [=] { arksDct(in, out, n, ARK_Inv); }},
                                                   FFTW(fftwDct(in, out, n, FFTW_REDFT01))};
                             },
                             dctLengths},
                            {"double, II", 16,
                             [](int n) {
                                 const Array<double> in(n, noise), out(n);
                                 return Contenders{{"arkpx", [=] { arkdDct(in, out, n, ARK_Forw); }},
                                                   FFTW(fftwDct(in, out, n, FFTW_REDFT10))};
                             },
                             dctLengths},
                            {"double, III", 16,
                             [](int n) {
                                 const Array<double> in(n, noise), out(n);
                                 return Contenders{{"arkpx", [=] { arkdDct(in, out, n, ARK_Inv); }},
                                                   FFTW(fftwDct(in, out, n, FFTW_REDFT01))};
                             },
                             dctLengths},
                            {"16 bits, II", 4,
                             [](int n) {
                                 const Array<short> in(n, [] { return 1000 * noise(); }), out(n);
                                 return Contenders{{"arkpx", [=] { arkwDct(in, out, n, ARK_Forw); }}};
                             },
                             dctLengths},
                        }};

// The recurrence that one writes. Wide: in double and rounded at every sample, which gives the library's results.
template <class R, class Wide>
void recurrence(const R* samps, int n, R freq, R* out)
{
    const double w = 6.283185307179586 * double(freq);
    const Wide coef = Wide(R(2 * std::cos(w)));
    R s1 = 0, s2 = 0;
    for (int i = 0; i < n; i++) {
        const R s = R(coef * Wide(s1) - Wide(s2) + Wide(samps[i]));
        s2 = s1;
        s1 = s;
    }
    out[0] = R(std::cos(w)) * s1 - s2;
    out[1] = R(std::sin(w)) * s1;
}

const bench::Family goertzel{
    "Goertzel",
    {
        {"float",
         4,
         [](int n) {
             const Array<float> samps(n, noise), out(2);
             ArksGoertzState state;
             arksGoertzInit(0.0871f, &state);
             return Contenders{{"arkpx",
                                [=]() mutable {
                                    arksGoertzReset(&state);
                                    *cplx(out) = arksbGoertz(&state, samps, n);
                                }},
                               {"loop", [=] { recurrence<float, double>(samps, n, 0.0871f, out); }},
                               {"loop in float", [=] { recurrence<float, float>(samps, n, 0.0871f, out); }}};
         },
         {205, 10000}},
        {"double",
         8,
         [](int n) {
             const Array<double> samps(n, noise), out(2);
             ArkdGoertzState state;
             arkdGoertzInit(0.0871, &state);
             return Contenders{{"arkpx",
                                [=]() mutable {
                                    arkdGoertzReset(&state);
                                    *cplx(out) = arkdbGoertz(&state, samps, n);
                                }},
                               {"loop", [=] { recurrence<double, double>(samps, n, 0.0871, out); }}};
         },
         {205, 10000}},
    }};

} // namespace
