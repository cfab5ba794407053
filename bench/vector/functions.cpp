// Element-wise functions, logarithm and exponential.
#include "accuracy.hpp"
#include "driver.hpp"
#include "peers/eigen.hpp"
#include "peers/plain.hpp"
#include "peers/volk.hpp"

#include <arkpx.h>

#include <cmath>
#include <complex>
#include <numbers>

namespace {

using bench::Array, bench::Contender, bench::Contenders, bench::noise;
namespace plain = bench::plain;

double positive() { return 100.001 + 100 * noise(); }
double exponent() { return 10 * noise(); }
FloatCplx anywhere()
{
    const float re = float(noise());
    return {re, float(noise())};
}
DoubleCplx anywhereInDouble()
{
    const double re = noise();
    return {re, noise()};
}

template <class Cplx>
Cplx root(Cplx z)
{
    const auto y = std::sqrt(std::complex(z.re, z.im));
    return {y.real(), y.imag()};
}

// EIGEN and VOLK bring their own commas.
// clang-format off
const bench::Family functions{
    "Element-wise functions",
    {
        {"float sqrt", 8,
         [](int n) {
             const Array<float> src(n, positive), dst(n);
             const auto work = [](float x) { return std::sqrt(x); };
             return Contenders{
                 {"arkpx", [=] { arksbSqrt2(src, dst, n); }},
                 {"loop", [=] { plain::each(work, n, dst, src); }},
                 {"loop", [=] { plain::eachApart(work, n, dst, src); }},
                 EIGEN(eigen(dst, n) = eigen(src, n).sqrt())
                 VOLK(volk_32f_sqrt_32f(dst, src, unsigned(n)))}
                 .judgedBy(bench::worstUlps(dst, n, [=](int i) { return std::sqrt(static_cast<long double>(src[i])); }));
         }},
        {"float exp", 8,
         [](int n) {
             const Array<float> src(n, exponent), dst(n);
             const auto work = [](float x) { return std::exp(x); };
             return Contenders{
                 {"arkpx", [=] { arksbExp2(src, dst, n); }},
                 {"loop", [=] { plain::each(work, n, dst, src); }},
                 EIGEN(eigen(dst, n) = eigen(src, n).exp())
                 VOLK(volk_32f_exp_32f(dst, src, unsigned(n)))}
                 .judgedBy(bench::worstUlps(dst, n, [=](int i) { return std::exp(static_cast<long double>(src[i])); }));
         }},
        {"float ln", 8,
         [](int n) {
             const Array<float> src(n, positive), dst(n);
             const auto work = [](float x) { return std::log(x); };
             return Contenders{
                 {"arkpx", [=] { arksbLn2(src, dst, n); }},
                 {"loop", [=] { plain::each(work, n, dst, src); }},
                 EIGEN(eigen(dst, n) = eigen(src, n).log())
                 VOLK(volk_32f_log2_32f(dst, src, unsigned(n)); volk_32f_s32f_multiply_32f(dst, dst, std::numbers::ln2_v<float>, unsigned(n)))}
                 .judgedBy(bench::worstUlps(dst, n, [=](int i) { return std::log(static_cast<long double>(src[i])); }));
         }},
        {"double exp", 16,
         [](int n) {
             const Array<double> src(n, exponent), dst(n);
             const auto work = [](double x) { return std::exp(x); };
             return Contenders{
                 {"arkpx", [=] { arkdbExp2(src, dst, n); }},
                 {"loop", [=] { plain::each(work, n, dst, src); }},
                 EIGEN(eigen(dst, n) = eigen(src, n).exp())}
                 .judgedBy(bench::worstUlps(dst, n, [=](int i) { return std::exp(static_cast<long double>(src[i])); }));
         }},
        {"double ln", 16,
         [](int n) {
             const Array<double> src(n, positive), dst(n);
             const auto work = [](double x) { return std::log(x); };
             return Contenders{
                 {"arkpx", [=] { arkdbLn2(src, dst, n); }},
                 {"loop", [=] { plain::each(work, n, dst, src); }},
                 EIGEN(eigen(dst, n) = eigen(src, n).log())}
                 .judgedBy(bench::worstUlps(dst, n, [=](int i) { return std::log(static_cast<long double>(src[i])); }));
         }},
        {"complex sqrt", 16,
         [](int n) {
             const Array<FloatCplx> src(n, anywhere), dst(n);
             return Contenders{
                 {"arkpx", [=] { arkcbSqrt2(src, dst, n); }},
                 {"loop", [=] { plain::each(root<FloatCplx>, n, dst, src); }},
                 EIGEN(eigen(dst, n) = eigen(src, n).sqrt())};
         }},
        {"double complex sqrt", 32,
         [](int n) {
             const Array<DoubleCplx> src(n, anywhereInDouble), dst(n);
             return Contenders{
                 {"arkpx", [=] { arkzbSqrt2(src, dst, n); }},
                 {"loop", [=] { plain::each(root<DoubleCplx>, n, dst, src); }},
                 EIGEN(eigen(dst, n) = eigen(src, n).sqrt())};
         }},
        {"float limit from above", 8,
         [](int n) {
             const Array<float> src(n, noise), dst(n);
             const auto work = [](float x) { return x > 0.5f ? 0.5f : x; };
             return Contenders{
                 {"arkpx", [=] { arksbThresh2(src, dst, n, 0.5f, ARK_GT); }},
                 {"loop", [=] { plain::each(work, n, dst, src); }},
                 {"loop", [=] { plain::eachApart(work, n, dst, src); }},
                 EIGEN(eigen(dst, n) = eigen(src, n).min(0.5f))};
         }},
        {"complex limit from above", 16,
         [](int n) {
             const Array<FloatCplx> src(n, anywhere), dst(n);
             const auto work = [](FloatCplx z) {
                 const float norm = z.re * z.re + z.im * z.im, factor = norm > 0.25f ? std::sqrt(0.25f / norm) : 1;
                 return FloatCplx{z.re * factor, z.im * factor};
             };
             return Contenders{
                 {"arkpx", [=] { arkcbThresh2(src, dst, n, 0.5f, ARK_GT); }},
                 {"loop", [=] { plain::each(work, n, dst, src); }},
                 {"loop", [=] { plain::eachApart(work, n, dst, src); }}};
         }},
        {"float inverse", 8,
         [](int n) {
             const Array<float> src(n, noise), dst(n);
             const auto work = [](float x) { return 1 / (std::fabs(x) > 0.01f ? x : std::copysign(0.01f, x)); };
             return Contenders{
                 {"arkpx", [=] { arksbInvThresh2(src, dst, n, 0.01f); }},
                 {"loop", [=] { plain::each(work, n, dst, src); }},
                 {"loop", [=] { plain::eachApart(work, n, dst, src); }}};
         }},
        {"complex inverse", 16,
         [](int n) {
             const Array<FloatCplx> src(n, anywhere), dst(n);
             const auto work = [](FloatCplx z) {
                 const float norm = z.re * z.re + z.im * z.im, divisor = norm > 1e-4f ? norm : std::sqrt(norm) * 0.01f;
                 return FloatCplx{z.re / divisor, -z.im / divisor};
             };
             return Contenders{
                 {"arkpx", [=] { arkcbInvThresh2(src, dst, n, 0.01f); }},
                 {"loop", [=] { plain::each(work, n, dst, src); }},
                 {"loop", [=] { plain::eachApart(work, n, dst, src); }}};
         }},
    }};
// clang-format on

} // namespace
