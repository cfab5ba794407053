#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <complex>
#include <cstdint>
#include <string>

namespace {

const std::initializer_list<std::string> allChecks = {"x==0", "xLen<=0", "h==0", "hLen<=0", "y==0"};
const BadCalls floatCalls{
    "arkconvs", {ZEROS(arksConv), ZEROS(arkcConv), ZEROS(arkscConv), ZEROS(arkcsConv)}, allChecks};
const BadCalls doubleCalls{
    "arkconvd", {ZEROS(arkdConv), ZEROS(arkzConv), ZEROS(arkdzConv), ZEROS(arkzdConv)}, allChecks};
const BadCalls shortCalls{"arkconvw", {ZEROS(arkwConv)}, allChecks};

using Wide = std::complex<double>;

template <class T>
T element(double re, double im)
{
    if constexpr (std::is_arithmetic_v<T>)
        return T(re);
    else
        return {decltype(T{}.re)(re), decltype(T{}.re)(im)};
}
template <class T>
Wide wide(T value)
{
    if constexpr (std::is_arithmetic_v<T>)
        return double(value);
    else
        return {double(value.re), double(value.im)};
}

// Small integers: every sum of their products is exact in a double, whatever its order.
template <class T>
std::vector<T> integers(int n)
{
    std::vector<T> values(std::size_t(n), T{});
    for (T& value : values)
        value = element<T>(randomInt(-9, 9), randomInt(-9, 9));
    return values;
}

template <class X, class H>
Wide exact(const std::vector<X>& x, const std::vector<H>& h, int k)
{
    Wide sum = 0;
    for (int i = std::max(0, k - int(x.size()) + 1); i <= std::min(k, int(h.size()) - 1); i++)
        sum += wide(h[std::size_t(i)]) * wide(x[std::size_t(k - i)]);
    return sum;
}

template <class X, class H, class Y>
using Member = void (*)(const X*, int, const H*, int, Y*);

// Direct sums of integers are exact. The error of a transform is below 2 log2 N ulps of |x| |h|, and that of the
// elements here, of rms 5.5 a part, is below 10 sqrt(length): 40 ulps of 100 sqrt(n len).
template <class X, class H, class Y>
void check(Member<X, H, Y> convolve, int xLen, int hLen, bool isDirect, int stride = 1)
{
    const std::vector<X> x = integers<X>(xLen);
    const std::vector<H> h = integers<H>(hLen);
    Guarded<X> guardedX{x};
    Guarded<H> guardedH{h};
    Guarded<Y> y{std::size_t(xLen) + std::size_t(hLen) - 1};
    convolve(guardedX.data(), xLen, guardedH.data(), hLen, y.data());
    const double ulp = sizeof(Y) / (std::is_arithmetic_v<Y> ? 1 : 2) == sizeof(float) ? 0x1p-24 : 0x1p-53;
    const double tolerance = isDirect ? 0 : 40 * ulp * 100 * std::sqrt(double(xLen) * hLen);
    for (int k = 0; k < xLen + hLen - 1; k += stride)
        ASSERT_LE(std::abs(wide(y[std::size_t(k)]) - exact(x, h, k)), tolerance)
            << "y[" << k << "] of " << xLen << " and " << hLen;
}

// Lengths around those of registers and tiles, each limit of the choice, and around powers of two, where the whole
// length and blocks of each mode are taken. Bound: up to which shorter length the sums are direct at any longer one.
template <class X, class H, class Y>
void checkGrid(Member<X, H, Y> convolve, int bound)
{
    for (int n = 1; n <= bound; n += n < 5 ? 1 : 3)
        for (const int len : {n, n + 1, n + 7, n + 14, n + 15, n + 16, n + 31, n + 66, n + 130, n + 300})
            for (const bool swapped : {false, true})
                check(convolve, swapped ? n : len, swapped ? len : n, true);
    for (const int n : {21, 31, 32, 33, 63, 64, 100, 101, 102, 127, 128, 255, 256, 300})
        for (const int len : {n, n + 1, 2 * n - 1, 2 * n, 3 * n + 5, 700, 32 * n, 32 * n + 1}) {
            const bool swapped = randomInt(0, 1);
            check(convolve, swapped ? n : std::max(len, n), swapped ? std::max(len, n) : n, false, 1 + n * len / 50000);
        }
}

TEST(Convolution, IsTheSumOfProducts)
{
    checkGrid(arksConv, 20);
    checkGrid(arkdConv, 20);
    checkGrid(arkcConv, 12);
    checkGrid(arkzConv, 12);
    checkGrid(arkscConv, 12);
    checkGrid(arkcsConv, 12);
    checkGrid(arkdzConv, 12);
    checkGrid(arkzdConv, 12);
}

// Either side of the limits: what is direct is exact, and the transforms join it without a gap.
TEST(Convolution, AtTheLimitsOfTheDirectWay)
{
    for (const auto& [n, limit] : std::initializer_list<std::pair<int, int>>{
             {21, 37905}, {22, 15889}, {23, 3737}, {40, 416}, {60, 173}, {100, 103}})
        for (const int len : {limit - 1, limit}) {
            check(arksConv, n, len, len < limit, 7);
            check(arkdConv, len, n, len < limit, 7);
        }
    check(arksConv, 101, 101, true);
    for (const auto& [n, limit] : std::initializer_list<std::pair<int, int>>{{13, 3662}, {14, 984}, {46, 48}})
        for (const int len : {limit - 1, limit})
            check(arkcConv, n, len, len < limit, 7);
}

TEST(Convolution, OfLongOperands)
{
    check(arksConv, 1000000, 4096, false, 9973);
    check(arksConv, 70000, 70001, false, 1999);
    check(arkcsConv, 3000, 100003, false, 1999);
    check(arkdConv, 1000000, 20, true, 997);
}

// Sums grow in the output's precision, from the first element of the shorter operand on.
TEST(Convolution, RoundsEachDirectSum)
{
    for (const int n : {1, 2, 7, 20}) {
        const int len = 500;
        std::vector<float> x(len), h(std::size_t(n), 0.0f), y(std::size_t(len + n) - 1), z = y;
        for (std::vector<float>* operand : {&x, &h})
            for (float& value : *operand)
                value = float(randomInt(-1 << 23, 1 << 23)) * 0x1p-20f;
        arksConv(x.data(), len, h.data(), n, y.data());
        arksConv(h.data(), n, x.data(), len, z.data());
        EXPECT_EQ(y, z);
        for (int k = 0; k < len + n - 1; k++) {
            volatile float sum = 0;
            for (int i = std::max(0, k - len + 1); i <= std::min(k, n - 1); i++) {
                const volatile float product = h[std::size_t(i)] * x[std::size_t(k - i)];
                sum = sum + product;
            }
            ASSERT_EQ(y[std::size_t(k)], sum) << k;
        }
    }
}

// Each complex product is a number of its own before it is added: 1 and 0 below are what is left when the large parts
// of one product cancel. Now and then something is infinite, and products that do not exist are not summed with it.
template <class C>
std::vector<C> oneByOne(const std::vector<C>& shorter, const std::vector<C>& longer)
{
    using R = decltype(C{}.re);
    std::vector<C> y(shorter.size() + longer.size() - 1, C{});
    for (std::size_t i = 0; i < shorter.size(); i++)
        for (std::size_t j = 0; j < longer.size(); j++) {
            const C a = shorter[i], b = longer[j];
            const volatile R re = a.re * b.re, square = a.im * b.im, im = a.re * b.im, other = a.im * b.re;
            const volatile R productRe = re - square, productIm = im + other;
            y[i + j].re += productRe;
            y[i + j].im += productIm;
        }
    return y;
}

template <class R>
bool isSame(R a, R b)
{
    using Bits = std::conditional_t<sizeof(R) == 4, std::uint32_t, std::uint64_t>;
    return std::bit_cast<Bits>(a) == std::bit_cast<Bits>(b) || (a != a && b != b);
}

template <class C>
void checkRounding(Member<C, C, C> convolve)
{
    using R = decltype(C{}.re);
    const auto any = [] {
        const double high = randomInt(-1 << 23, 1 << 23), low = randomInt(-1 << 28, 1 << 28);
        return R((high + low * 0x1p-29) * 0x1p-20);
    };
    for (int round = 0; round < 1500; round++) {
        std::vector<C> shorter(std::size_t(randomInt(1, 12)));
        std::vector<C> longer(shorter.size() + std::size_t(randomInt(0, round % 8 ? 70 : 500)));
        for (std::vector<C>* operand : {&shorter, &longer})
            for (C& value : *operand)
                value = {any(), any()};
        if (round % 3 == 0) {
            std::vector<C>& operand = randomInt(0, 1) ? shorter : longer;
            C& value = operand[std::size_t(randomInt(0, int(operand.size()) - 1))];
            (randomInt(0, 1) ? value.re : value.im) = randomInt(0, 1) ? R(HUGE_VAL) : -R(HUGE_VAL);
        }
        const int n = int(shorter.size()), len = int(longer.size());
        Guarded<C> h{shorter}, x{longer}, y{std::size_t(len + n) - 1};
        if (len > n && randomInt(0, 1))
            convolve(h.data(), n, x.data(), len, y.data());
        else
            convolve(x.data(), len, h.data(), n, y.data());
        const std::vector<C> expected = oneByOne(shorter, longer);
        for (std::size_t k = 0; k < expected.size(); k++)
            ASSERT_TRUE(isSame(y[k].re, expected[k].re) && isSame(y[k].im, expected[k].im))
                << "y[" << k << "] of " << len << " and " << n;
    }
}

TEST(Convolution, RoundsEachComplexProduct)
{
    checkRounding<FloatCplx>(arkcConv);
    checkRounding<DoubleCplx>(arkzConv);
    const FloatCplx h[2] = {{1, 1}, {1, 1}}, large[2] = {{1e30f, 1e30f}, {1, 0}},
                    larger[2] = {{2e38f, 2e38f}, {2e38f, 2e38f}};
    FloatCplx y[3];
    arkcConv(large, 2, h, 2, y);
    EXPECT_EQ(y[1].re, 1);
    arkcConv(larger, 2, h, 2, y);
    EXPECT_EQ(y[1].re, 0);
}

TEST(Convolution, InfiniteTapsMeetOnlyWhatIsThere)
{
    const float infinity = HUGE_VALF, h[3] = {1, infinity, 2}, x[4] = {1, 2, 3, 4};
    float y[6];
    arksConv(h, 3, x, 4, y);
    EXPECT_EQ(y[0], 1);
    EXPECT_EQ(y[1], infinity);
    EXPECT_EQ(y[4], infinity);
    EXPECT_EQ(y[5], 8);
}

TEST(Convolution, Of16BitsIsScaled)
{
    const std::vector<short> x{30000, -30000, 3, 20000}, h{2, 5};
    const int sums[5] = {60000, 90000, -149994, 40015, 100000};
    struct {
        int mode, factor;
        short (*expected)(int);
        int factorAfter;
    } const cases[] = {
        {ARK_WRAP, 9, [](int v) { return short(v); }, 9},
        {ARK_SATURATE, 9, [](int v) { return short(std::clamp(v, -32768, 32767)); }, 9},
        {ARK_FIXED_SCALE, 1, [](int v) { return short(v >> 1); }, 1},
        {ARK_FIXED_SCALE | ARK_SATURATE, 2, [](int v) { return short(std::clamp(v >> 2, -32768, 32767)); }, 2},
        {ARK_AUTO_SCALE, 9, [](int v) { return short(v >> 3); }, 3},
    };
    for (const auto& c : cases) {
        Guarded<short> y{5};
        int factor = c.factor;
        arkwConv(x.data(), 4, h.data(), 2, y.data(), c.mode, &factor);
        for (std::size_t k = 0; k < 5; k++)
            EXPECT_EQ(y[k], c.expected(sums[k])) << "mode " << c.mode;
        EXPECT_EQ(factor, c.factorAfter);
    }
    const std::vector<short> full(4, -32768);
    short y[7];
    int factor = 0;
    arkwConv(full.data(), 4, full.data(), 4, y, ARK_AUTO_SCALE, &factor); // 2^32 at the most
    EXPECT_EQ(factor, 18);
    EXPECT_EQ(y[3], 16384);
    EXPECT_EQ(y[0], 4096);
    arkwConv(full.data(), 4, full.data(), 4, y, ARK_SATURATE, nullptr);
    EXPECT_EQ(y[3], 32767);
    // By blocks: what is rounded is within the transform's error, which is far below a half.
    std::vector<short> longer(3000), shorter(150), result(3149);
    for (short& value : longer)
        value = short(randomInt(-9, 9));
    for (short& value : shorter)
        value = short(randomInt(-9, 9));
    arkwConv(longer.data(), 3000, shorter.data(), 150, result.data(), ARK_WRAP, nullptr);
    for (int k = 0; k < 3149; k++)
        ASSERT_EQ(result[std::size_t(k)], exact(longer, shorter, k).real());
}

TEST(Convolution, Reports)
{
    float value = 3, y = 7;
    short w = 3, wy = 7;
    Reports reports;
    arkError(ARK_StatusBadArgument, "before", "", "", 0);
    arksConv(&value, 1, &value, 1, &y);
    EXPECT_EQ(y, 9) << "an earlier failure stops nothing";
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusOk);
    reports.take();

    arksConv(nullptr, 1, &value, 0, &y);
    EXPECT_EQ(reports.messages(), (std::vector<std::string>{"x==0", "hLen<=0"}));
    arksConv(&value, INT_MAX, &value, 2, &y);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"xLen+hLen-1>2147483647"});
    arkwConv(&w, 1 << 30, &w, (1 << 30) + 2, &wy, ARK_WRAP, nullptr);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"xLen+hLen-1>2147483647"});
    arkwConv(&w, 1, &w, 1, &wy, ARK_FIXED_SCALE | ARK_AUTO_SCALE, nullptr);
    EXPECT_EQ(reports.messages(),
              (std::vector<std::string>{"ARK_FIXED_SCALE and ARK_AUTO_SCALE", "ARK_AUTO_SCALE and scaleFactor==NULL"}));
    EXPECT_EQ(y, 9);
    EXPECT_EQ(wy, 7);
}

} // namespace
