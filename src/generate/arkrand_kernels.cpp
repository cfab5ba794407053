// Gaussian noise: the radii of many pairs at a time.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

using Words = Vec<unsigned long long>;

// ln x for normal x > 0, within 3 ulps: x = 2^e m with m in [sqrt(1/2), sqrt(2)),
// ln m = 2 artanh(g) = 2 g (1 + g^2/3 + g^4/5 + ...) with g = (m - 1) / (m + 1), |g| < 0.172.
ARK_INLINE Vec<double> naturalLogarithm(Vec<double> x)
{
    constexpr unsigned long long rootHalf = 0x3FE6A09E667F3BCD, bias = 1023ull << 52;
    const Words exponent = ((Words)x - rootHalf + bias) >> 52; // e + 1023
    const Vec<double> m = (Vec<double>)((Words)x - (exponent << 52) + bias);
    // 2^52 + its low bits, less 2^52 + 1023
    const Vec<double> e = (Vec<double>)(exponent | 0x4330000000000000ull) - (0x1p52 + 1023);
    const Vec<double> g = (m - 1.0) / (m + 1.0), z = g * g;
    Vec<double> sum = z * (1.0 / 21) + 1.0 / 19;
    sum = sum * z + 1.0 / 17;
    sum = sum * z + 1.0 / 15;
    sum = sum * z + 1.0 / 13;
    sum = sum * z + 1.0 / 11;
    sum = sum * z + 1.0 / 9;
    sum = sum * z + 1.0 / 7;
    sum = sum * z + 1.0 / 5;
    sum = sum * z + 1.0 / 3;
    return e * 0.6931471805599453 + (2.0 * g + 2.0 * g * z * sum);
}

ARK_INLINE Vec<double> factor(Vec<double> square)
{
    return squareRoot(-2.0 * naturalLogarithm(square) / square);
}

void factors(const double* squares, double* to, std::ptrdiff_t n)
{
    constexpr std::ptrdiff_t width = lanes<double>;
    std::ptrdiff_t i = 0;
    for (; i + width <= n; i += width)
        store(to + i, factor(load(squares + i)));
    if (i < n)
        storePart(to + i, factor(loadPart(squares + i, n - i)), n - i);
}

} // namespace

extern const GaussKernels gauss;

constinit const GaussKernels gauss{factors};

} // namespace ark::ARK_SET
