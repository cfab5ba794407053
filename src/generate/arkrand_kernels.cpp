// Gaussian noise: the radii of many pairs at a time.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

using Words = Vec<unsigned long long>;

// sqrt(-2 ln(s) / s) for 0 < s < 1, within a few ulps. s = 2^e m with m in [sqrt(1/2), sqrt(2)),
// ln m = 2 artanh(g) = 2 g + 2 g^3 p(g^2) with g = (m - 1) / (m + 1), |g| < 0.172. p approximates 1/3 + z/5 + z^2/7 +
// ... by interpolation in the nodes of Chebyshev; z p(z) is off by 5e-18. One division serves both quotients.
ARK_INLINE Vec<double> factor(Vec<double> s)
{
    constexpr unsigned long long rootHalf = 0x3FE6A09E667F3BCD, bias = 1023ull << 52;
    const Words exponent = ((Words)s - rootHalf + bias) >> 52; // e + 1023
    const Vec<double> m = (Vec<double>)((Words)s - (exponent << 52) + bias);
    // 2^52 + its low bits, less 2^52 + 1023
    const Vec<double> e = (Vec<double>)(exponent | 0x4330000000000000ull) - (0x1p52 + 1023);
    const Vec<double> inverse = 1.0 / ((m + 1.0) * s);
    const Vec<double> g = (m - 1.0) * s * inverse, z = g * g;
    Vec<double> sum = z * 0.07308224842521703 + 0.07665860800278021;
    sum = sum * z + 0.09091444562630861;
    sum = sum * z + 0.1111110556739754;
    sum = sum * z + 0.14285714312987743;
    sum = sum * z + 0.19999999999949752;
    sum = sum * z + 0.3333333333333335;
    const Vec<double> logarithm = e * 0.6931471805599453 + (2.0 * g + 2.0 * g * z * sum);
    return squareRoot(-2.0 * logarithm * ((m + 1.0) * inverse));
}

template <class Real>
void pairs(const CirclePoints& points, double mean, double stdDev, Real* values, std::ptrdiff_t n)
{
    constexpr std::ptrdiff_t width = lanes<double>;
    for (std::ptrdiff_t i = 0; i < n; i += width) {
        const Vec<double> u1 = load(points.u1 + i), u2 = load(points.u2 + i);
        const Vec<double> f = factor(u1 * u1 + u2 * u2);
        const Vec<double> first = mean + stdDev * u2 * f, second = mean + stdDev * u1 * f;
        storeDoubles(values + 2 * i, permute2<lowOfBoth>(first, second));
        storeDoubles(values + 2 * i + width, permute2<highOfBoth>(first, second));
    }
}

} // namespace

extern const GaussKernels<float> gaussS;
extern const GaussKernels<double> gaussD;

constinit const GaussKernels<float> gaussS{pairs};
constinit const GaussKernels<double> gaussD{pairs};

} // namespace ark::ARK_SET
