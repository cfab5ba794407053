#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace {

const BadCalls ofFloats{"arkwin",
                        {ZEROS(arksWinBartlett), ZEROS(arkdWinBartlett), ZEROS(arkcWinBartlett), ZEROS(arkzWinBartlett),
                         ZEROS(arksWinHann),     ZEROS(arkdWinHann),     ZEROS(arkcWinHann),     ZEROS(arkzWinHann),
                         ZEROS(arksWinHamming),  ZEROS(arkdWinHamming),  ZEROS(arkcWinHamming),  ZEROS(arkzWinHamming),
                         ZEROS(arksWinBlackman), ZEROS(arkdWinBlackman), ZEROS(arkcWinBlackman), ZEROS(arkzWinBlackman),
                         ZEROS(arksWinKaiser),   ZEROS(arkdWinKaiser),   ZEROS(arkcWinKaiser),   ZEROS(arkzWinKaiser)},
                        {"Null pointer to buffer"}};
const BadCalls ofShorts{"arkwinw",
                        {ZEROS(arkwWinBartlett), ZEROS(arkvWinBartlett), ZEROS(arkwWinHann), ZEROS(arkvWinHann),
                         ZEROS(arkwWinHamming), ZEROS(arkvWinHamming), ZEROS(arkwWinBlackman), ZEROS(arkvWinBlackman),
                         ZEROS(arkwWinKaiser), ZEROS(arkvWinKaiser)},
                        {"Null pointer to buffer"}};
const NoBadCalls underAnotherName{"arksWinBlackmanStd", "arkdWinBlackmanStd", "arkcWinBlackmanStd",
                                  "arkzWinBlackmanStd", "arkwWinBlackmanStd", "arkvWinBlackmanStd",
                                  "arksWinBlackmanOpt", "arkdWinBlackmanOpt", "arkcWinBlackmanOpt",
                                  "arkzWinBlackmanOpt", "arkwWinBlackmanOpt", "arkvWinBlackmanOpt"};

template <class Element, class P>
struct Members {
    using T = Element;
    using Parameter = P;
    using Plain = void (*)(T*, int);
    using WithParameter = void (*)(T*, int, P);
    Plain bartlett, hann, hamming, standard, optimal;
    WithParameter blackman, kaiser;
};

#define MEMBERS(t)                                                                                                     \
    {                                                                                                                  \
        ark##t##WinBartlett, ark##t##WinHann, ark##t##WinHamming, ark##t##WinBlackmanStd, ark##t##WinBlackmanOpt,      \
            ark##t##WinBlackman, ark##t##WinKaiser                                                                     \
    }
const Members<float, float> s MEMBERS(s);
const Members<double, double> d MEMBERS(d);
const Members<FloatCplx, float> c MEMBERS(c);
const Members<DoubleCplx, double> z MEMBERS(z);
const Members<short, float> w MEMBERS(w);
const Members<ShortCplx, float> v MEMBERS(v);

template <class Test>
void withAllTypes(Test test)
{
    test(s), test(d), test(c), test(z), test(w), test(v);
}

using Weight = std::function<long double(long double k, long double m)>; // m = N-1
constexpr long double pi = 3.141592653589793238462643L;

Weight cosines(long double a0, long double a1, long double a2)
{
    return [=](long double k, long double m) {
        return a0 - a1 * std::cos(2 * pi * k / m) + a2 * std::cos(4 * pi * k / m);
    };
}
Weight blackman(long double alpha) { return cosines(0.5L + alpha / 2, 0.5L, -alpha / 2); }

long double besselI0(long double x) // the power series
{
    long double sum = 1, term = 1;
    for (int j = 1; term > sum * 1e-20L; j++)
        sum += term *= x * x / (4.0L * j * j);
    return sum;
}

template <class R>
constexpr double resolution = std::is_integral_v<R> ? 0 : double(std::numeric_limits<R>::epsilon()) / 2;

// tolerance: of a weight, beside the rounding of the product
template <class T>
void compare(int n, const Weight& weight, double tolerance, const std::function<void(T*, int)>& window)
{
    using R =
        std::conditional_t<sizeof(T) == 2 || std::is_same_v<T, ShortCplx>, short,
                           std::conditional_t<std::is_same_v<T, float> || std::is_same_v<T, FloatCplx>, float, double>>;
    constexpr std::size_t parts = sizeof(T) / sizeof(R);
    Guarded<T> vec{std::size_t(n)};
    R* const x = reinterpret_cast<R*>(vec.data());
    for (std::size_t i = 0; i < std::size_t(n) * parts; i++)
        x[i] = R(randomInt(-32768, 32767));
    const std::vector<R> before(x, x + std::size_t(n) * parts);
    window(vec.data(), n);
    for (std::size_t i = 0; i < before.size(); i++) {
        const auto k = int(i / parts);
        const bool middle = 2 * k == n - 1;
        const long double exact = before[i] * (middle ? 1 : weight(std::min(k, n - 1 - k), n - 1));
        const double slack = std::fabs(double(before[i])) * tolerance;
        if constexpr (std::is_integral_v<R>) // where rounding may pass an integer both neighbours are right
            ASSERT_TRUE(x[i] >= R(std::trunc(exact - slack)) && x[i] <= R(std::trunc(exact + slack)))
                << x[i] << " for " << double(exact) << " at " << k << " of " << n;
        else
            ASSERT_NEAR(x[i], double(exact), std::fabs(double(exact)) * resolution<R> + slack) << k << " of " << n;
    }
}

TEST(Windows, FollowTheClosedForms)
{
    for (const int n :
         {3, 4, 5, 6, 15, 16, 33, 63, 64, 65, 66, 67, 127, 128, 129, 130, 131, 255, 256, 257, 261, 1000, 1001, 1000003})
        withAllTypes([n](const auto& members) {
            using Set = std::decay_t<decltype(members)>;
            using T = typename Set::T;
            using P = typename Set::Parameter;
            const bool all = n <= 1001; // of a long one two types and some windows are enough
            if (!all && !std::is_same_v<T, double> && !std::is_same_v<T, short>)
                return;
            // The plain recurrence is as exact as 2 cos t, rounded to double, tells the angle t.
            const double recurrence = 1e-15 + 3e-17 * double(n) * double(n), close = 1e-15 + 4e-19 * n;
            const double tolerance = sizeof(T) == 2 || std::is_same_v<T, ShortCplx> || n <= 64 ? recurrence : close;
            const long double standard = -0.16L, asFloat = -0.16f;
            const long double root = 0.5L / std::cos(pi / (n - 1)), optimal = -root * root;
            compare<T>(
                n, [](long double k, long double m) { return 2 * k / m; }, 1e-15, members.bartlett);
            compare<T>(n, blackman(-0.75L), tolerance,
                       [&](T* vec, int length) { members.blackman(vec, length, P(-0.75)); });
            if (!all)
                return;
            compare<T>(n, cosines(0.5L, 0.5L, 0), tolerance, members.hann);
            compare<T>(n, cosines(0.54L, 0.46L, 0), tolerance, members.hamming);
            compare<T>(n, blackman(sizeof(P) == 4 ? asFloat : standard), tolerance, members.standard);
            if (n > 3)
                compare<T>(n, blackman(sizeof(P) == 4 ? (long double)(P(optimal)) : optimal), tolerance,
                           members.optimal);
            for (const double parameter : {0.0, 3.0, -8.5, 300.0}) {
                const P beta = P(2 * parameter / (n - 1));
                const Weight kaiser = [beta](long double k, long double m) {
                    return besselI0(beta * std::sqrt(k * (m - k))) / besselI0(beta * m / 2);
                };
                // 9.8.1 is off by 1.6e-7, 9.8.2 by 1.9e-7 of its factor, which is 0.4.
                compare<T>(n, kaiser, parameter == 0 ? 0 : 1.1e-6,
                           [&](T* vec, int length) { members.kaiser(vec, length, beta); });
            }
        });
}

TEST(Windows, KaiserOfAMillionElements)
{
    constexpr int n = 1000003;
    std::vector<double> vec(n, 1.0);
    arkdWinKaiser(vec.data(), n, 20.0 / (n - 1));
    for (const int k : {0, 1, 1000, 123456, 300000, 499999, 500002, 900000, n - 1})
        EXPECT_NEAR(vec[std::size_t(k)],
                    double(besselI0(20 / (n - 1.0L) * std::sqrt((long double)k * (n - 1 - k))) / besselI0(10)), 1e-6);
    EXPECT_EQ(vec[500001], 1.0);
}

TEST(Windows, OfKnownWeights)
{
    float three[] = {1, 1, 1}, four[] = {3, 3, 3, 3};
    arksWinHamming(three, 3);
    EXPECT_FLOAT_EQ(three[0], 0.08f);
    EXPECT_EQ(three[1], 1);
    EXPECT_FLOAT_EQ(three[2], 0.08f);
    arksWinBartlett(four, 4);
    EXPECT_EQ(std::vector<float>(four, four + 4), (std::vector<float>{0, 2, 2, 0}));
    short truncated[] = {101, -101, 0, 0}; // 0.08 and 0.77
    arkwWinHamming(truncated, 4);
    EXPECT_EQ(truncated[0], 8);
    EXPECT_EQ(truncated[1], -77);
    short huge[] = {1, 1, 1, 1}; // a product far beyond 32 bits
    arkwWinBlackman(huge, 4, 1e30f);
    EXPECT_EQ(huge[1], 0);
}

TEST(Windows, RefuseBadArguments)
{
    Reports reports;
    arkSetErrStatus(ARK_StatusOutOfMemory); // which stops nothing
    withAllTypes([&](const auto& members) {
        using T = typename std::decay_t<decltype(members)>::T;
        T vec[3] = {};
        for (const auto window : {members.bartlett, members.hann, members.hamming, members.standard, members.optimal}) {
            window(vec, 2);
            window(nullptr, 3);
        }
        members.blackman(vec, -2147483647 - 1, 0);
        members.kaiser(vec, 2, 1000);
        std::vector<std::string> expected;
        for (int i = 0; i < 5; i++)
            expected.insert(expected.end(), {"Bad number of items", "Null pointer to buffer"});
        expected.insert(expected.end(), {"Bad number of items", "Bad number of items"});
        EXPECT_EQ(reports.messages(), expected);

        std::vector<T> longer(1025);
        members.kaiser(longer.data(), 1025, -620.f / 1024);
        EXPECT_EQ(reports.messages(), std::vector<std::string>{"Huge window parameter"});
        members.kaiser(longer.data(), 1025, 616.f / 1024);
        EXPECT_TRUE(reports.messages().empty());
    });
    arkcWinBlackmanOpt(nullptr, 2);
    const std::vector<Report> made = reports.take();
    ASSERT_EQ(made.size(), 1u);
    EXPECT_EQ(made[0].function, "arkcWinBlackman");
    EXPECT_EQ(made[0].module, "arkwin");
}

} // namespace
