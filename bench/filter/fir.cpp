// FIR filters: n outputs, or n inputs where the rate is lowered.
#include "driver.hpp"
#include "peers/liquid.hpp"
#include "peers/volk.hpp"

#include <arkpx.h>

namespace {

using bench::Array, bench::Case, bench::Contender, bench::Contenders, bench::noise;

FloatCplx complexNoise() { return {float(noise()), float(noise())}; }

struct Object : FirState {
    Object() : FirState{} {}
    ~Object() { arkFirFree(this); }
};

// Sums in double, and the history in front of x, which is the loop's best case.
template <class Y, class X, class T>
void plainFir(const T* taps, int tapsLen, const X* x, Y* dst, int n)
{
    for (int i = 0; i < n; i++) {
        double sum = 0;
        for (int k = 0; k < tapsLen; k++)
            sum += double(taps[k]) * double(x[i + tapsLen - 1 - k]);
        dst[i] = Y(sum);
    }
}

// clang-format off
Case real(const char* name, int tapsLen)
{
    return {name, 8,
            [=](int n) {
                const Array<float> taps(tapsLen, noise), src(n + tapsLen, noise), dst(n);
                const auto state = std::make_shared<Object>();
                arksFirInit(taps, tapsLen, nullptr, state.get());
                return Contenders{
                    {"arkpx", [=] { arksbFir(state.get(), src, dst, n); }},
                    {"loop", [=] { plainFir<float>(taps.data(), tapsLen, src.data(), dst.data(), n); }},
                    VOLK(for (int i = 0; i < n; i++) volk_32f_x2_dot_prod_32f(dst + i, src + i, taps, unsigned(tapsLen)))
                    LIQUID(firfilt_rrrf_create(taps, unsigned(tapsLen)),
                           firfilt_rrrf_execute_block(q, src, unsigned(n), dst))};
            },
            {64, 1024, 65536}};
}

Case cplx(const char* name, int tapsLen)
{
    return {name, 16,
            [=](int n) {
                const Array<FloatCplx> taps(tapsLen, complexNoise), src(n + tapsLen, complexNoise), dst(n);
                const auto state = std::make_shared<Object>();
                arkcFirInit(taps, tapsLen, nullptr, state.get());
                return Contenders{
                    {"arkpx", [=] { arkcbFir(state.get(), src, dst, n); }},
                    VOLK(for (int i = 0; i < n; i++)
                             volk_32fc_x2_dot_prod_32fc(volkCplx(dst) + i, volkCplx(src) + i, volkCplx(taps), unsigned(tapsLen)))
                    LIQUID(firfilt_cccf_create(liquidCplx(taps), unsigned(tapsLen)),
                           firfilt_cccf_execute_block(q, liquidCplx(src), unsigned(n), liquidCplx(dst)))};
            },
            {64, 1024, 65536}};
}

const bench::Family fir{
    "FIR filters, taps of the data's type",
    {real("float, 16 taps", 16), real("float, 64 taps", 64), real("float, 256 taps", 256), cplx("complex, 16 taps", 16),
     cplx("complex, 64 taps", 64), cplx("complex, 256 taps", 256)}};

constexpr int polyphaseTaps = 64, resamplerHalf = 11; // of 3 phases with 22 taps each

// up 1 or down 1, or both not.
Case rates(const char* name, int up, int down)
{
    return {name, 8,
            [=](int n) {
                const int cycles = n / up;
                const Array<float> taps(polyphaseTaps * up, noise), src(cycles * down, noise), dst(cycles * up);
                const auto state = std::make_shared<Object>();
                arksFirInitMr(taps, polyphaseTaps, nullptr, up, 0, down, 0, state.get());
                const Contender ours{"arkpx", [=] { arksbFir(state.get(), src, dst, cycles); }};
                if (up == 1)
                    return Contenders{ours,
                                      LIQUID(firdecim_rrrf_create(unsigned(down), taps, polyphaseTaps),
                                             firdecim_rrrf_execute_block(q, src, unsigned(cycles), dst))};
                if (down == 1)
                    return Contenders{ours,
                                      LIQUID(firinterp_rrrf_create(unsigned(up), taps, polyphaseTaps),
                                             firinterp_rrrf_execute_block(q, src, unsigned(cycles), dst))};
                return Contenders{ours,
                                  LIQUID(rresamp_rrrf_create(unsigned(up), unsigned(down), resamplerHalf, taps),
                                         for (int i = 0; i < cycles; i++) rresamp_rrrf_execute(q, src + i * down, dst + i * up))};
            },
            {1023, 65535}};
}

const bench::Family polyphase{"Polyphase FIR filters, float, 64 taps, n outputs",
                              {rates("up 3", 3, 1), rates("down 4", 1, 4), rates("up 3 down 2", 3, 2)}};
// clang-format on

} // namespace
