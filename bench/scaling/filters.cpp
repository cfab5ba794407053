// FIR filters over the number of their taps, convolution over lengths.
#include "driver.hpp"
#include "peers/convolution.hpp"
#include "peers/liquid.hpp"
#include "peers/volk.hpp"

#include <arkpx.h>

namespace {

using bench::Array, bench::Case, bench::Contender, bench::Contenders, bench::noise;

constexpr int outputs = 4096;

double products(int taps) { return double(taps) * outputs; }

// clang-format off
const bench::Family fir{
    "Scaling: FIR filters over n, their taps",
    {{"float, 4096 samples", 8,
      [](int taps) {
          const Array<float> h(taps, noise), src(outputs + taps, noise), dst(outputs);
          const std::shared_ptr<FirState> state(new FirState{}, [](FirState* s) { arkFirFree(s); delete s; });
          arksFirInit(h, taps, nullptr, state.get());
          return Contenders{
              {"arkpx", [=] { arksbFir(state.get(), src, dst, outputs); }},
              VOLK(for (int i = 0; i < outputs; i++) volk_32f_x2_dot_prod_32f(dst + i, src + i, h, unsigned(taps)))
              LIQUID(firfilt_rrrf_create(h, unsigned(taps)), firfilt_rrrf_execute_block(q, src, outputs, dst))};
      },
      {1, 2, 3, 5, 10, 20, 30, 50, 100, 200, 300, 500, 1000, 2000, 3000, 5000, 10000}, nullptr, products}},
    "a tap and sample"};
// clang-format on

constexpr double longestDirect = 1e9; // products, beyond which the loop is not worth waiting for

Contenders convolution(int len, int n)
{
    const Array<float> x(len, noise), h(n, noise), y(len + n - 1);
    Contenders contenders{{"arkpx", [=] { arksConv(x, len, h, n, y); }}};
    if (double(len) * n <= longestDirect)
        contenders.push_back({"direct loop", [=] { bench::plainConvolution<float>(x, len, h, n, y); }});
    bench::addFftwConvolutions<float>(contenders, x, len, h, n, y);
    return contenders;
}

const std::vector<int> lengths{100, 300, 1000, 3000, 10000, 30000, 100000, 300000, 1000000};

const bench::Family convolutions{
    "Scaling: convolution",
    {
        {"float, with 64 taps", 8, [](int len) { return convolution(len, 64); }, lengths},
        {"float, with 1024 taps", 8, [](int len) { return convolution(len, 1024); }, lengths},
        {"float, both operands of n", 16, [](int len) { return convolution(len, len); }, lengths},
    }};

} // namespace
