// Convolution of a long operand with a short one: the operand's length is n, the filter's the case's.
#include "accuracy.hpp"
#include "driver.hpp"
#include "peers/convolution.hpp"

#include <arkpx.h>

namespace {

using bench::Array, bench::Case, bench::Contender, bench::Contenders, bench::noise;

FloatCplx complexNoise() { return {float(noise()), float(noise())}; }

template <class R>
Contenders real(void (*ours)(const R*, int, const R*, int, R*), int len, int n)
{
    const Array<R> x(len, noise), h(n, noise), y(len + n - 1);
    Contenders contenders{{"arkpx", [=] { ours(x, len, h, n, y); }},
                          {"direct loop", [=] { bench::plainConvolution<R>(x, len, h, n, y); }}};
    bench::addFftwConvolutions<R>(contenders, x, len, h, n, y);
    return std::move(contenders).judgedBy(bench::relativeError(y.data(), len + n - 1, [=] {
        std::vector<long double> sums(std::size_t(len + n - 1));
        for (int i = 0; i < n; i++)
            for (int k = 0; k < len; k++)
                sums[std::size_t(i + k)] += static_cast<long double>(h[i]) * x[k];
        return sums;
    }));
}

Case floats(const char* name, int n, std::vector<int> lengths)
{
    return {name, 8, [=](int len) { return real(arksConv, len, n); }, std::move(lengths)};
}
Case doubles(const char* name, int n, std::vector<int> lengths)
{
    return {name, 16, [=](int len) { return real(arkdConv, len, n); }, std::move(lengths)};
}
Case complexes(const char* name, int n, std::vector<int> lengths)
{
    return {name, 16,
            [=](int len) {
                const Array<FloatCplx> x(len, complexNoise), h(n, complexNoise), y(len + n - 1);
                return Contenders{{"arkpx", [=] { arkcConv(x, len, h, n, y); }},
                                  {"direct loop", [=] { bench::plainConvolution<FloatCplx>(x, len, h, n, y); }}};
            },
            std::move(lengths)};
}

const bench::Family convolution{
    "Convolution, n the longer operand",
    {floats("float, 16 taps", 16, {64, 1000, 65536}), floats("float, 24 taps", 24, {1000, 65536}),
     floats("float, 64 taps", 64, {100, 1000, 65536}), floats("float, 101 taps", 101, {101, 1000}),
     floats("float, 512 taps", 512, {512, 4096}), floats("float, 1024 taps", 1024, {65536}),
     floats("float, 4096 taps", 4096, {1000000}), doubles("double, 16 taps", 16, {1000}),
     doubles("double, 101 taps", 101, {1000}), doubles("double, 1024 taps", 1024, {65536}),
     complexes("complex, 12 taps", 12, {1000}), complexes("complex, 64 taps", 64, {1000, 65536})}};

} // namespace
