// IIR filters: cascades of biquads and filters of arbitrary order, over blocks of n samples.
#include "driver.hpp"
#include "peers/liquid.hpp"

#include <arkpx.h>

#include <cmath>
#include <numbers>

namespace {

using bench::Array, bench::Case, bench::Contenders, bench::noise;

struct Object : IirState {
    Object() : IirState{} {}
    ~Object() { arkIirFree(this); }
};

// Low-pass sections b0 b1 b2 a0 a1 a2, poles of radius .7 ... .9, which no input makes overflow.
Array<float> sections(int count)
{
    Array<float> taps(6 * count);
    for (int i = 0; i < count; i++) {
        const double radius = 0.7 + 0.2 * i / count, angle = 0.2 * std::numbers::pi * (i + 1) / count;
        const double a1 = -2 * radius * std::cos(angle), a2 = radius * radius, b0 = (1 + a1 + a2) / 4;
        const double section[] = {b0, 2 * b0, b0, 1, a1, a2};
        for (int k = 0; k < 6; k++)
            taps[6 * i + k] = float(section[k]);
    }
    return taps;
}

// Section after section, in place from the second on: transposed direct form II.
void plainCascade(const float* taps, int count, float* states, const float* src, float* dst, int n)
{
    for (int i = 0; i < count; i++, taps += 6, states += 2, src = dst) {
        float d0 = states[0], d1 = states[1];
        for (int k = 0; k < n; k++) {
            const float x = src[k], y = taps[0] * x + d0;
            d0 = taps[1] * x - taps[4] * y + d1;
            d1 = taps[2] * x - taps[5] * y;
            dst[k] = y;
        }
        states[0] = d0;
        states[1] = d1;
    }
}

#if ARKPX_BENCH_LIQUID
// Its coefficients are apart: b's of all sections, then a's.
template <class Create>
auto liquidCascade(const Array<float>& taps, int count, Create create)
{
    std::vector<float> b, a;
    for (int i = 0; i < 6 * count; i++)
        (i % 6 < 3 ? b : a).push_back(taps[i]);
    return create(b.data(), a.data(), unsigned(count));
}
#endif

// clang-format off
Case biquads(const char* name, int count)
{
    return {name, 8,
            [=](int n) {
                const Array<float> taps = sections(count), src(n, noise), dst(n), states(2 * count);
                const auto state = std::make_shared<Object>();
                arksIirInitBq(0, taps, count, state.get());
                return Contenders{
                    {"arkpx", [=] { arksbIir(state.get(), src, dst, n); }},
                    {"loop", [=] { plainCascade(taps, count, states, src, dst, n); }},
                    LIQUID(liquidCascade(taps, count, iirfilt_rrrf_create_sos), iirfilt_rrrf_execute_block(q, src, unsigned(n), dst))};
            },
            {1, 64, 1024, 65536}};
}

FloatCplx complexNoise() { return {float(noise()), float(noise())}; }

Case complexBiquads(const char* name, int count)
{
    return {name, 16,
            [=](int n) {
                const Array<float> taps = sections(count);
                const Array<FloatCplx> src(n, complexNoise), dst(n);
                const auto state = std::make_shared<Object>();
                arkcsIirInitBq(0, taps, count, state.get());
                return Contenders{
                    {"arkpx", [=] { arkcsbIir(state.get(), src, dst, n); }},
                    LIQUID(liquidCascade(taps, count, iirfilt_crcf_create_sos),
                           iirfilt_crcf_execute_block(q, liquidCplx(src), unsigned(n), liquidCplx(dst)))};
            },
            {64, 1024, 65536}};
}

Case order(const char* name, int order)
{
    return {name, 8,
            [=](int n) {
                // Denominator 1 - .5 z^-N: stable for every order.
                const Array<float> taps(2 * order + 2, noise), src(n, noise), dst(n);
                std::fill_n(taps + order + 1, order + 1, 0.0f);
                taps[order + 1] = 1;
                taps[2 * order + 1] = -0.5f;
                const auto state = std::make_shared<Object>();
                arksIirInit(0, taps, order, state.get());
                return Contenders{
                    {"arkpx", [=] { arksbIir(state.get(), src, dst, n); }},
                    LIQUID(iirfilt_rrrf_create(taps, unsigned(order + 1), taps + order + 1, unsigned(order + 1)),
                           iirfilt_rrrf_execute_block(q, src, unsigned(n), dst))};
            },
            {64, 1024}};
}

const bench::Family iir{
    "IIR filters, float",
    {biquads("1 biquad", 1), biquads("4 biquads", 4), biquads("8 biquads", 8), biquads("16 biquads", 16),
     complexBiquads("complex, 1 biquad", 1), complexBiquads("complex, 4 biquads", 4), complexBiquads("complex, 8 biquads", 8),
     order("order 4", 4), order("order 16", 16)}};
// clang-format on

} // namespace
