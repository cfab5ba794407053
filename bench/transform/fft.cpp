// Complex and real FFT. In place, what is transformed is overwritten again and again; unscaled spectra would overflow,
// so the arrays hold zeros there, which no transform is quicker with.
#include "accuracy.hpp"
#include "driver.hpp"
#include "peers/fftw.hpp"
#include "peers/kissfft.hpp"

#include "reference/spectrum.hpp"

#include <arkpx.h>

#include <bit>
#include <numbers>

namespace {

using bench::Array, bench::Contender, bench::Contenders, bench::noise;

int orderOf(int n) { return std::bit_width(unsigned(n)) - 1; }

std::vector<int> orders(int first, int last)
{
    std::vector<int> sizes;
    for (int order = first; order <= last; order++)
        sizes.push_back(1 << order);
    return sizes;
}

// The usual measure, whatever an algorithm really takes.
double cplxOperations(int n) { return 5.0 * n * orderOf(n); }
double twoCplxOperations(int n) { return 2 * cplxOperations(n); }
double realOperations(int n) { return 2.5 * n * orderOf(n); }

FloatCplx* cplx(float* parts) { return reinterpret_cast<FloatCplx*>(parts); }
DoubleCplx* cplx(double* parts) { return reinterpret_cast<DoubleCplx*>(parts); }

double zero() { return 0; }

// The parts of the spectrum of size n.
std::vector<long double> spectrumOf(const std::vector<reference::Complex>& signal)
{
    const std::size_t n = signal.size();
    std::vector<reference::Complex> roots, spectrum(n);
    for (std::size_t i = 0; i < n; i++)
        roots.push_back(std::polar(1.0L, -2 * std::numbers::pi_v<long double> * static_cast<long double>(i) /
                                             static_cast<long double>(n)));
    reference::transform(signal.data(), spectrum.data(), n, 1, roots);
    std::vector<long double> parts;
    for (const reference::Complex value : spectrum) {
        parts.push_back(value.real());
        parts.push_back(value.imag());
    }
    return parts;
}

// The errors of the spectrum of n complex or real numbers.
template <class R>
std::function<bench::Error()> cplxError(const Array<R>& in, const Array<R>& out, int n)
{
    return bench::relativeError(out.data(), 2 * n, [=] {
        std::vector<reference::Complex> signal;
        for (int i = 0; i < n; i++)
            signal.emplace_back(in[2 * i], in[2 * i + 1]);
        return spectrumOf(signal);
    });
}
template <class R>
std::function<bench::Error()> realError(const Array<R>& in, const Array<R>& out, int n)
{
    return bench::relativeError(out.data(), n + 2, [=] { return spectrumOf({in.data(), in.data() + n}); });
}

const bench::Family cplxFft{
    "Complex FFT",
    {
        {"float", 16,
         [](int n) {
             const Array<float> in(2 * n, noise), out(2 * n);
             return Contenders{{"arkpx", [=] { arkcFftNip(cplx(in), cplx(out), orderOf(n), ARK_Forw); }},
                               FFTW(bench::fftwCplx(in, out, n, FFTW_FORWARD)) KISSFFT(bench::kissfftCplx(in, out, n))}
                 .judgedBy(cplxError(in, out, n));
         },
         orders(1, 22), cplxOperations},
        {"float, in place", 16,
         [](int n) {
             const Array<float> x(2 * n, zero);
             return Contenders{{"arkpx", [=] { arkcFft(cplx(x), orderOf(n), ARK_Forw); }},
                               FFTW(bench::fftwCplx(x, x, n, FFTW_FORWARD))};
         },
         orders(1, 22), cplxOperations},
        {"float, there and back in bit-reversed order", 32,
         [](int n) {
             const Array<float> x(2 * n, zero);
             return Contenders{{"arkpx",
                                [=] {
                                    arkcFft(cplx(x), orderOf(n), ARK_Forw | ARK_OutBitRev);
                                    arkcFft(cplx(x), orderOf(n), ARK_Inv | ARK_InBitRev);
                                }},
                               {"natural", [=] {
                                    arkcFft(cplx(x), orderOf(n), ARK_Forw);
                                    arkcFft(cplx(x), orderOf(n), ARK_Inv);
                                }}};
         },
         orders(1, 22), twoCplxOperations},
        {"double", 32,
         [](int n) {
             const Array<double> in(2 * n, noise), out(2 * n);
             return Contenders{{"arkpx", [=] { arkzFftNip(cplx(in), cplx(out), orderOf(n), ARK_Forw); }},
                               FFTW(bench::fftwCplx(in, out, n, FFTW_FORWARD))}
                 .judgedBy(cplxError(in, out, n));
         },
         orders(1, 22), cplxOperations},
        {"double, in place", 32,
         [](int n) {
             const Array<double> x(2 * n, zero);
             return Contenders{{"arkpx", [=] { arkzFft(cplx(x), orderOf(n), ARK_Forw); }},
                               FFTW(bench::fftwCplx(x, x, n, FFTW_FORWARD))};
         },
         orders(1, 22), cplxOperations},
        {"float, first call",
         16,
         [](int n) {
             const Array<float> x(2 * n, zero);
             return Contenders{{"arkpx", [=] {
                                    arkcFft(nullptr, orderOf(n), ARK_Free);
                                    arkcFft(cplx(x), orderOf(n), ARK_Forw);
                                }}};
         },
         {1 << 4, 1 << 10, 1 << 16, 1 << 20},
         cplxOperations},
    }};

const bench::Family realFft{
    "Real FFT",
    {
        {"float into CCS", 8,
         [](int n) {
             const Array<float> in(n, noise), out(n + 2);
             return Contenders{{"arkpx", [=] { arksRealFftNip(in, cplx(out), orderOf(n), ARK_Forw); }},
                               FFTW(bench::fftwReal(in, out, n)) KISSFFT(bench::kissfftReal(in, out, n))}
                 .judgedBy(realError(in, out, n));
         },
         orders(2, 20), realOperations},
        {"float into RCPack, in place", 8,
         [](int n) {
             const Array<float> x(n + 2, zero);
             return Contenders{{"arkpx", [=] { arksRealFftl(x, orderOf(n), ARK_Forw | ARK_OutRCPack); }},
                               FFTW(bench::fftwReal(x, x, n))};
         },
         orders(2, 20), realOperations},
        {"float from CCS", 8,
         [](int n) {
             const Array<float> in(n + 2, noise), out(n);
             return Contenders{{"arkpx", [=] { arksCcsFftNip(cplx(in), out, orderOf(n), ARK_Inv); }},
                               FFTW(bench::fftwInverseReal(in, out, n))};
         },
         orders(2, 20), realOperations},
        {"double into CCS", 16,
         [](int n) {
             const Array<double> in(n, noise), out(n + 2);
             return Contenders{{"arkpx", [=] { arkdRealFftNip(in, cplx(out), orderOf(n), ARK_Forw); }},
                               FFTW(bench::fftwReal(in, out, n))}
                 .judgedBy(realError(in, out, n));
         },
         orders(2, 20), realOperations},
    }};

} // namespace
