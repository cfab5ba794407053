// Vector arithmetic.
#include "driver.hpp"
#include "peers/eigen.hpp"
#include "peers/plain.hpp"
#include "peers/volk.hpp"

#include <arkpx.h>

#include <cmath>

namespace {

using bench::Array, bench::Contender, bench::Contenders, bench::noise;
namespace plain = bench::plain;

constexpr auto product = [](FloatCplx a, FloatCplx b) {
    return FloatCplx{a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
};
constexpr auto saturatedSum = [](short a, short b) { return short(std::clamp(a + b, -32768, 32767)); };

// Of magnitude 1: products in place neither grow nor vanish.
FloatCplx phasor()
{
    const double angle = 3.14159265358979 * noise();
    return {float(std::cos(angle)), float(std::sin(angle))};
}

double loud() { return 20000 * noise(); } // sums of two are clipped now and then

// EIGEN and VOLK bring their own commas.
// clang-format off
const bench::Family arithmetic{
    "Vector arithmetic",
    {
        {"float add", 12,
         [](int n) {
             const Array<float> a(n, noise), b(n, noise), dst(n);
             return Contenders{
                 {"arkpx", [=] { arksbAdd3(a, b, dst, n); }},
                 {"loop", [=] { plain::each(std::plus{}, n, dst, a, b); }},
                 {"loop", [=] { plain::eachApart(std::plus{}, n, dst, a, b); }},
                 EIGEN(eigen(dst, n) = eigen(a, n) + eigen(b, n))
                 VOLK(volk_32f_x2_add_32f(dst, a, b, unsigned(n)))};
         }},
        {"float add, in place", 12,
         [](int n) {
             const Array<float> a(n, noise), b(n, noise);
             return Contenders{
                 {"arkpx", [=] { arksbAdd2(b, a, n); }},
                 {"loop", [=] { plain::each(std::plus{}, n, a, a, b); }},
                 EIGEN(eigen(a, n) += eigen(b, n))
                 VOLK(volk_32f_x2_add_32f(a, a, b, unsigned(n)))};
         }},
        {"complex multiply", 24,
         [](int n) {
             const Array<FloatCplx> a(n, phasor), b(n, phasor), dst(n);
             return Contenders{
                 {"arkpx", [=] { arkcbMpy3(a, b, dst, n); }},
                 {"loop", [=] { plain::each(product, n, dst, a, b); }},
                 {"loop", [=] { plain::eachApart(product, n, dst, a, b); }},
                 EIGEN(eigen(dst, n) = eigen(a, n) * eigen(b, n))
                 VOLK(volk_32fc_x2_multiply_32fc(volkCplx(dst), volkCplx(a), volkCplx(b), unsigned(n)))};
         }},
        {"complex multiply, in place", 24,
         [](int n) {
             const Array<FloatCplx> a(n, phasor), b(n, phasor);
             return Contenders{
                 {"arkpx", [=] { arkcbMpy2(b, a, n); }},
                 {"loop", [=] { plain::each(product, n, a, a, b); }},
                 EIGEN(eigen(a, n) *= eigen(b, n))
                 VOLK(volk_32fc_x2_multiply_32fc(volkCplx(a), volkCplx(a), volkCplx(b), unsigned(n)))};
         }},
        {"16-bit add, saturating", 6,
         [](int n) {
             const Array<short> a(n, loud), b(n, loud), dst(n);
             return Contenders{
                 {"arkpx", [=] { arkwbAdd3(a, b, dst, n, ARK_SATURATE, nullptr); }},
                 {"loop", [=] { plain::each(saturatedSum, n, dst, a, b); }},
                 {"loop", [=] { plain::eachApart(saturatedSum, n, dst, a, b); }},
                 EIGEN(eigen(dst, n) = (eigen(a, n).cast<int>() + eigen(b, n).cast<int>())
                                           .max(-32768).min(32767).cast<short>())};
         }},
        {"16-bit add, saturating, in place", 6,
         [](int n) {
             const Array<short> a(n, loud), b(n, loud);
             return Contenders{
                 {"arkpx", [=] { arkwbAdd2(b, a, n, ARK_SATURATE, nullptr); }},
                 {"loop", [=] { plain::each(saturatedSum, n, a, a, b); }},
                 EIGEN(eigen(a, n) = (eigen(a, n).cast<int>() + eigen(b, n).cast<int>())
                                         .max(-32768).min(32767).cast<short>())};
         }},
    }};
// clang-format on

} // namespace
