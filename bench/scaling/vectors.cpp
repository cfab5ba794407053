// The cost of an element from a thousand elements to a hundred million: flat, but for the memory's share.
#include "driver.hpp"
#include "peers/eigen.hpp"
#include "peers/liquid.hpp"
#include "peers/plain.hpp"
#include "peers/volk.hpp"

#include <arkpx.h>

#include <cmath>

namespace {

using bench::Array, bench::Contender, bench::Contenders, bench::noise;
namespace plain = bench::plain;

const std::vector<int> sizes{1000, 3000, 10000, 30000, 100000, 300000, 1000000, 3000000, 10000000, 30000000, 100000000};
const std::vector<int> fewer(sizes.begin(), sizes.end() - 2);

constexpr auto product = [](FloatCplx a, FloatCplx b) {
    return FloatCplx{a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
};

FloatCplx complexNoise() { return {float(noise()), float(noise())}; }
double loud() { return 20000 * noise(); }
double exponent() { return 10 * noise(); }

// EIGEN and VOLK bring their own commas.
// clang-format off
const bench::Family vectors{
    "Scaling: vectors",
    {
        {"float add", 12,
         [](int n) {
             const Array<float> a(n, noise), b(n, noise), dst(n);
             return Contenders{
                 {"arkpx", [=] { arksbAdd3(a, b, dst, n); }},
                 {"loop", [=] { plain::eachApart(std::plus{}, n, dst, a, b); }},
                 VOLK(volk_32f_x2_add_32f(dst, a, b, unsigned(n)))};
         }, sizes},
        {"complex multiply", 24,
         [](int n) {
             const Array<FloatCplx> a(n, complexNoise), b(n, complexNoise), dst(n);
             return Contenders{
                 {"arkpx", [=] { arkcbMpy3(a, b, dst, n); }},
                 {"loop", [=] { plain::eachApart(product, n, dst, a, b); }},
                 VOLK(volk_32fc_x2_multiply_32fc(volkCplx(dst), volkCplx(a), volkCplx(b), unsigned(n)))};
         }, fewer},
        {"float to 16-bit", 6,
         [](int n) {
             const Array<float> src(n, loud);
             const Array<short> dst(n);
             return Contenders{
                 {"arkpx", [=] { arksbFloatToInt(src, dst, n, 16, ARK_RoundNearest | ARK_Saturate); }},
                 {"loop", [=] { plain::eachApart([](float x) { return short(std::clamp(std::nearbyint(x), -32768.0f, 32767.0f)); }, n, dst, src); }},
                 VOLK(volk_32f_s32f_convert_16i(dst, src, 1, unsigned(n)))};
         }, sizes},
        {"float exp", 8,
         [](int n) {
             const Array<float> src(n, exponent), dst(n);
             return Contenders{
                 {"arkpx", [=] { arksbExp2(src, dst, n); }},
                 EIGEN(eigen(dst, n) = eigen(src, n).exp())
                 VOLK(volk_32f_exp_32f(dst, src, unsigned(n)))};
         }, sizes},
        {"tone, float", 4,
         [](int n) {
             ArksToneState tone;
             arksToneInit(0.0123f, 0, 1, &tone);
             const Array<float> dst(n);
             return Contenders{
                 {"arkpx", [=]() mutable { arksbTone(&tone, dst, n); }},
                 EIGEN(eigen(dst, n) = Eigen::ArrayXf::LinSpaced(n, 0, 0.0773f * float(n - 1)).cos())};
         }, sizes},
        {"FIR, 64 taps", 8,
         [](int n) {
             const Array<float> taps(64, noise), src(n + 64, noise), dst(n);
             const std::shared_ptr<FirState> state(new FirState{}, [](FirState* s) { arkFirFree(s); delete s; });
             arksFirInit(taps, 64, nullptr, state.get());
             return Contenders{
                 {"arkpx", [=] { arksbFir(state.get(), src, dst, n); }},
                 VOLK(for (int i = 0; i < n; i++) volk_32f_x2_dot_prod_32f(dst + i, src + i, taps, 64))};
         }, fewer},
        {"4 biquads", 8,
         [](int n) {
             constexpr float section[] = {0.25f, 0.5f, 0.25f, 1, -0.5f, 0.25f};
             float taps[24], b[12], a[12];
             for (int i = 0; i < 24; i++)
                 taps[i] = (i % 6 < 3 ? b : a)[i / 6 * 3 + i % 3] = section[i % 6];
             const Array<float> src(n, noise), dst(n);
             const std::shared_ptr<IirState> state(new IirState{}, [](IirState* s) { arkIirFree(s); delete s; });
             arksIirInitBq(0, taps, 4, state.get());
             return Contenders{
                 {"arkpx", [=] { arksbIir(state.get(), src, dst, n); }},
                 LIQUID(iirfilt_rrrf_create_sos(b, a, 4), iirfilt_rrrf_execute_block(q, src, unsigned(n), dst))};
         }, fewer},
    }};
// clang-format on

} // namespace
