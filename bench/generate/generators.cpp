// Tones, triangle waves and noise.
#include "driver.hpp"
#include "peers/eigen.hpp"
#include "peers/liquid.hpp"
#include "peers/plain.hpp"
#include "peers/volk.hpp"

#include <arkpx.h>

#include <cmath>
#include <random>

namespace {

using bench::Array, bench::Contender, bench::Contenders;

constexpr double rFreq = 0.0123, w = 6.283185307179586 * rFreq;

// dst[k] = value(k)
template <class T, class Value>
void fill(const Array<T>& dst, int n, Value value)
{
    T* const to = dst.data();
    for (int k = 0; k < n; k++)
        to[k] = value(k);
}

template <class State>
using Init = void (*)(State*);

// The library's contender: an initialised record and its block member.
template <class State, class T>
Contender own(Init<State> init, void (*block)(State*, T*, int), const Array<T>& dst, int n)
{
    State state;
    init(&state);
    return {bench::own, [=]() mutable { block(&state, dst, n); }};
}

// clang-format off
const bench::Family tones{
    "Generators",
    {
        {"tone, float", 4,
         [](int n) {
             const Array<float> dst(n);
             return Contenders{
                 own<ArksToneState>([](auto s) { arksToneInit(float(rFreq), 0, 1, s); }, arksbTone, dst, n),
                 {"loop", [=] { fill(dst, n, [](int k) { return std::cos(float(w) * float(k)); }); }},
                 EIGEN(eigen(dst, n) = Eigen::ArrayXf::LinSpaced(n, 0, float(w) * float(n - 1)).cos())
                 LIQUID([] { auto nco = nco_crcf_create(LIQUID_VCO); nco_crcf_set_frequency(nco, float(w)); return nco; }(),
                        fill(dst, n, [q](int) { nco_crcf_step(q); return nco_crcf_cos(q); }))};
         }},
        {"tone, complex float", 8,
         [](int n) {
             const Array<FloatCplx> dst(n), ones(n, [] { return FloatCplx{1, 0}; });
             return Contenders{
                 own<ArkcToneState>([](auto s) { arkcToneInit(float(rFreq), 0, 1, s); }, arkcbTone, dst, n),
                 {"loop", [=] { fill(dst, n, [](int k) {
                                    const float angle = float(w) * float(k);
                                    return FloatCplx{std::cos(angle), std::sin(angle)}; }); }},
                 LIQUID([] { auto nco = nco_crcf_create(LIQUID_NCO); nco_crcf_set_frequency(nco, float(w)); return nco; }(),
                        nco_crcf_mix_block_up(q, liquidCplx(ones), liquidCplx(dst), unsigned(n)))
                 VOLK(lv_32fc_t phase(1, 0);
                      volk_32fc_s32fc_x2_rotator_32fc(volkCplx(dst), volkCplx(ones),
                                                      lv_32fc_t(float(std::cos(w)), float(std::sin(w))), &phase, unsigned(n)))};
         }},
        {"tone, double", 8,
         [](int n) {
             const Array<double> dst(n);
             return Contenders{
                 own<ArkdToneState>([](auto s) { arkdToneInit(rFreq, 0, 1, s); }, arkdbTone, dst, n),
                 {"loop", [=] { fill(dst, n, [](int k) { return std::cos(w * k); }); }}};
         }},
        {"tone, 16-bit", 2,
         [](int n) {
             const Array<short> dst(n);
             return Contenders{
                 own<ArkwToneState>([](auto s) { arkwToneInit(float(rFreq), 0, 10000, s); }, arkwbTone, dst, n),
                 {"loop", [=] { fill(dst, n, [](int k) { return short(10000 * std::cos(float(w) * float(k))); }); }}};
         }},
        {"triangle wave, float", 4,
         [](int n) {
             const Array<float> dst(n);
             return Contenders{
                 own<ArksTrnglState>([](auto s) { arksTrnglInit(float(rFreq), 0, 1, 0, s); }, arksbTrngl, dst, n),
                 {"loop", [=] { fill(dst, n, [](int k) {
                                    const float t = float(rFreq) * float(k), part = t - std::floor(t);
                                    return part < 0.5f ? 1 - 4 * part : 4 * part - 3; }); }}};
         }},
        {"triangle wave, 16-bit", 2,
         [](int n) {
             const Array<short> dst(n);
             return Contenders{
                 own<ArksTrnglState>([](auto s) { arkwTrnglInit(float(rFreq), 0, 10000, 0, s); }, arkwbTrngl, dst, n),
                 {"loop", [=] { fill(dst, n, [](int k) {
                                    const float t = float(rFreq) * float(k), part = t - std::floor(t);
                                    return short(10000 * (part < 0.5f ? 1 - 4 * part : 4 * part - 3)); }); }}};
         }},
        {"uniform noise, float", 4,
         [](int n) {
             const Array<float> dst(n);
             return Contenders{
                 own<ArksRandUniState>([](auto s) { arksRandUniInit(1, -1, 1, s); }, arksbRandUni, dst, n),
                 {"std, mt19937", [=, engine = std::mt19937{1}, range = std::uniform_real_distribution<float>{-1, 1}]() mutable {
                      fill(dst, n, [&](int) { return range(engine); }); }},
                 LIQUID(0, (void)q; fill(dst, n, [](int) { return 2 * randf() - 1; }))};
         }},
        {"uniform noise, 16-bit", 2,
         [](int n) {
             const Array<short> dst(n);
             return Contenders{
                 own<ArkwRandUniState>([](auto s) { arkwRandUniInit(1, -100, 1000, s); }, arkwbRandUni, dst, n),
                 {"std, mt19937", [=, engine = std::mt19937{1}, range = std::uniform_int_distribution<short>{-100, 1000}]() mutable {
                      fill(dst, n, [&](int) { return range(engine); }); }}};
         }},
        {"Gaussian noise, float", 4,
         [](int n) {
             const Array<float> dst(n);
             return Contenders{
                 own<ArksRandGausState>([](auto s) { arksRandGausInit(1, 0, 1, s); }, arksbRandGaus, dst, n),
                 {"std, mt19937", [=, engine = std::mt19937{1}, normal = std::normal_distribution<float>{}]() mutable {
                      fill(dst, n, [&](int) { return normal(engine); }); }},
                 LIQUID(0, (void)q; fill(dst, n, [](int) { return randnf(); }))};
         }},
        {"Gaussian noise, double", 8,
         [](int n) {
             const Array<double> dst(n);
             return Contenders{
                 own<ArkdRandGausState>([](auto s) { arkdRandGausInit(1, 0, 1, s); }, arkdbRandGaus, dst, n),
                 {"std, mt19937_64", [=, engine = std::mt19937_64{1}, normal = std::normal_distribution<double>{}]() mutable {
                      fill(dst, n, [&](int) { return normal(engine); }); }}};
         }},
    }};
// clang-format on

} // namespace
