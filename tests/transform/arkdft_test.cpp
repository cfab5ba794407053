// The DFT of any length.
#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"
#include "support/to_short.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <string>

namespace {

using Messages = std::vector<std::string>;

const BadCalls ofDft16{"arkdftw", {ZEROS(arkvDft)}, {"length<=0"}};
const BadCalls ofDft{"arkdft",
                     {{"arkcDft",
                       [] {
                           FloatCplx x{};
                           arkcDft(&x, nullptr, 5, ARK_Forw);
                       }},
                      {"arkzDft",
                       [] {
                           DoubleCplx x{};
                           arkzDft(&x, nullptr, 5, ARK_Forw);
                       }}},
                     {"y==0"}};

struct Sum {
    long double re = 0, im = 0;
};

// The formula, over exact multiples of one angle.
template <class C>
std::vector<Sum> model(const std::vector<C>& x, int flags)
{
    const std::size_t N = x.size();
    std::vector<Sum> roots(N), y(N);
    for (std::size_t k = 0; k < N; k++) {
        const long double angle = 2 * std::acos(-1.0L) * static_cast<long double>(k) / static_cast<long double>(N);
        roots[k] = {std::cos(angle), flags & ARK_Inv ? std::sin(angle) : -std::sin(angle)};
    }
    for (std::size_t m = 0; m < N; m++) {
        for (std::size_t k = 0, at = 0; k < N; k++, at = (at + m) % N) {
            y[m].re += x[k].re * roots[at].re - x[k].im * roots[at].im;
            y[m].im += x[k].re * roots[at].im + x[k].im * roots[at].re;
        }
        if ((flags & ARK_Inv) && !(flags & ARK_NoScale))
            y[m] = {y[m].re / static_cast<long double>(N), y[m].im / static_cast<long double>(N)};
    }
    return y;
}

template <class C>
std::vector<C> noise(int N)
{
    std::vector<C> x(static_cast<std::size_t>(N));
    for (C& element : x) {
        element.re = static_cast<decltype(C::re)>(randomInt(-10000, 10000));
        element.im = static_cast<decltype(C::re)>(randomInt(-10000, 10000));
    }
    return x;
}

template <class C>
struct MemberOf;
template <>
struct MemberOf<FloatCplx> {
    static constexpr auto dft = arkcDft;
    // Half an ulp of results that are a few times as large as their root of the mean square.
    static constexpr double tolerance = 3e-7;
};
template <>
struct MemberOf<DoubleCplx> {
    static constexpr auto dft = arkzDft;
    // Units of 2^-53 for each of up to some twenty passes, of results that are a few times as large.
    static constexpr double tolerance = 3e-15;
};

// Relative to the root of the mean square of the results.
template <class C>
double errorOf(const std::vector<C>& got, const std::vector<Sum>& wanted)
{
    long double off = 0, size = 0;
    for (std::size_t i = 0; i < wanted.size(); i++) {
        off = std::max({off, std::fabs(got[i].re - wanted[i].re), std::fabs(got[i].im - wanted[i].im)});
        size += wanted[i].re * wanted[i].re + wanted[i].im * wanted[i].im;
    }
    return double(off / std::sqrt(size / static_cast<long double>(wanted.size())));
}

template <class C>
class Dft : public testing::Test {};
using Members = testing::Types<FloatCplx, DoubleCplx>;
TYPED_TEST_SUITE(Dft, Members);

template <class C>
bool equal(const std::vector<C>& a, const std::vector<C>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](C x, C y) { return x.re == y.re && x.im == y.im; });
}

// All short ones, products of all small primes in many splits, powers of each, primes and their multiples.
std::vector<int> lengths()
{
    std::vector<int> all{225, 256, 343, 360, 500, 507, 512, 529, 625, 720, 729, 847, 997, 1000, 1001, 1024, 1331};
    for (int N = 1; N <= 200; N++)
        all.push_back(N);
    return all;
}

TYPED_TEST(Dft, IsTheSumAtEveryLength)
{
    using C = TypeParam;
    Reports reports;
    for (const int N : lengths()) {
        arkcFreeTwdTbls(); // room for further lengths
        arkzFreeTwdTbls();
        for (const int flags : {int{ARK_Forw}, int{ARK_Inv}, ARK_Inv | ARK_NoScale | ARK_Free}) {
            Guarded<C> x{noise<C>(N)}, y{std::size_t(N)};
            const std::vector<C> before = x.values();
            MemberOf<C>::dft(x.data(), y.data(), N, flags);
            if (N <= 200 || flags != ARK_Inv) {
                ASSERT_LT(errorOf(y.values(), model(before, flags)), MemberOf<C>::tolerance) << N << ", " << flags;
            }
            if (flags != ARK_Inv) { // integers, which no sum rounds
                const Sum sum = std::accumulate(before.begin(), before.end(), Sum{}, [](Sum a, C b) {
                    return Sum{a.re + b.re, a.im + b.im};
                });
                ASSERT_TRUE(y[0].re == sum.re && y[0].im == sum.im) << "the first element, " << N;
            }
            ASSERT_TRUE(equal(x.values(), before)) << "the source, " << N;
            MemberOf<C>::dft(x.data(), x.data(), N, flags);
            ASSERT_TRUE(equal(x.values(), y.values())) << "in place, " << N;
        }
    }
    EXPECT_EQ(reports.messages(), Messages{});
}

// Whatever the addresses are and however the arrays overlap, the results are the same.
TYPED_TEST(Dft, OfArraysThatOverlapAnywhere)
{
    using C = TypeParam;
    for (const int N : {5, 16, 36, 37, 40, 63, 100, 128, 1000}) {
        const auto length = std::size_t(N);
        const std::vector<C> x = noise<C>(N);
        std::vector<C> wanted(length);
        MemberOf<C>::dft(x.data(), wanted.data(), N, ARK_Inv);
        for (std::size_t from = 0; from <= 9; from += 3)
            for (std::size_t to = 0; to <= 5; to++) {
                std::vector<C> room(length + 9);
                std::copy(x.begin(), x.end(), room.begin() + std::ptrdiff_t(from));
                MemberOf<C>::dft(room.data() + from, room.data() + to, N, ARK_Inv);
                room.erase(room.begin(), room.begin() + std::ptrdiff_t(to));
                room.resize(length);
                ASSERT_TRUE(equal(room, wanted)) << N << ", from " << from << " to " << to;
            }
    }
    arkcFreeTwdTbls();
    arkzFreeTwdTbls();
}

// Long enough to tell a time of len log len from one of len^2; a shift of the input is a rotation.
TYPED_TEST(Dft, OfAShiftedPulseIsARotation)
{
    using C = TypeParam;
    for (const int N : {100003, 100000, 3 << 15, 13 * 7001, 90090}) {
        constexpr int at = 777;
        std::vector<C> x(static_cast<std::size_t>(N)), y(x.size());
        x[at].re = 1;
        MemberOf<C>::dft(x.data(), y.data(), N, ARK_Forw);
        double worst = 0;
        for (int m = 0; m < N; m += 7) {
            const long double angle = 2 * std::acos(-1.0L) * static_cast<long double>(std::int64_t{m} * at % N) / N;
            worst = std::max({worst, double(std::fabs(y[std::size_t(m)].re - std::cos(angle))),
                              double(std::fabs(y[std::size_t(m)].im + std::sin(angle)))});
        }
        EXPECT_LT(worst, sizeof(C) == sizeof(FloatCplx) ? 1e-7 : 1e-14) << N;
        arkcFreeTwdTbls();
        arkzFreeTwdTbls();
    }
}

TEST(DftReports, InTheirOrder)
{
    Reports reports;
    FloatCplx x{3, 4}, y{7, 7};
    arkcDft(nullptr, nullptr, 0, ARK_Init);
    EXPECT_EQ(reports.messages(), (Messages{"length<=0", "len<=0", "tw==0"}));
    arkcDft(nullptr, nullptr, 3, 0);
    EXPECT_EQ(reports.messages(), Messages{"x==0"});
    for (const int flags : {0, ARK_Forw | ARK_Inv, int{ARK_NoScale}}) {
        arkcDft(&x, &y, 1, flags);
        EXPECT_EQ(reports.messages(), Messages{"ARK_Forw or ARK_Inv must be as a flag"});
    }
    arkcDft(nullptr, nullptr, 3, ARK_Init);
    EXPECT_EQ(reports.messages(), Messages{});
    arkSetErrStatus(ARK_StatusNoConvergence);
    arkcDft(nullptr, nullptr, 0, 0);
    arkcDft(&x, &y, 1, ARK_Forw);
    arkvDft(nullptr, nullptr, 3, ARK_Init, 0, nullptr);
    EXPECT_EQ(reports.messages(), Messages{});
    EXPECT_EQ(y.re, 7);
}

TEST(DftReports, AFullListOfTables)
{
    Reports reports;
    arkzFreeTwdTbls();
    for (int length = 1; length <= 32; length++)
        arkzDft(nullptr, nullptr, length, ARK_Init);
    EXPECT_EQ(reports.messages(), Messages{});
    DoubleCplx x[33]{};
    arkzDft(x, x, 33, ARK_Forw);
    const auto made = reports.take();
    ASSERT_EQ(made.size(), 2u);
    EXPECT_EQ(made[0].function + ": " + made[0].message, "arkzGetDftTwdTbl: Full Table");
    EXPECT_EQ(made[1].function + ": " + made[1].message, "arkzDft: tw==0");
    arkzFreeTwdTbls();
    arkzDft(x, x, 33, ARK_Forw);
    EXPECT_EQ(reports.messages(), Messages{});
    arkzFreeTwdTbls();
}

// ---- 16 bits ----

TEST(ShortDft, IsTheFloatOneScaled)
{
    Reports reports;
    for (const int N : {1, 2, 3, 16, 31, 100})
        for (int mode = -1; mode <= ARK_AUTO_SCALE; mode++) {
            const std::vector<ShortCplx> x = noise<ShortCplx>(N);
            std::vector<FloatCplx> floats;
            for (const ShortCplx element : x)
                floats.push_back({float(element.re), float(element.im)});
            arkcDft(floats.data(), floats.data(), N, ARK_Inv | ARK_NoScale);
            int factor = mode == ARK_AUTO_SCALE ? 99 : 5;
            Guarded<ShortCplx> y{std::size_t(N)};
            arkvDft(x.data(), y.data(), N, ARK_Inv | ARK_NoScale, mode, &factor);
            ASSERT_EQ(factor, mode == ARK_AUTO_SCALE ? automaticFactorOf(floats) : 5) << N;
            for (std::size_t m = 0; m < std::size_t(N); m++) {
                const ShortCplx wanted = toShort(floats[m], mode, factor, true);
                ASSERT_TRUE(y[m].re == wanted.re && y[m].im == wanted.im) << m << " of " << N << ", mode " << mode;
            }
        }
    EXPECT_EQ(reports.messages(), Messages{});
    arkcFreeTwdTbls();
}

TEST(ShortDft, ReportsInTheirOrder)
{
    Reports reports;
    ShortCplx x[3] = {{1, 2}, {3, 4}, {5, 6}}, y[3] = {{7, 7}, {7, 7}, {7, 7}};
    int factor = 0;
    arkvDft(nullptr, nullptr, 3, ARK_Init, 6, nullptr);
    EXPECT_EQ(reports.messages(), Messages{});
    arkvDft(nullptr, nullptr, 3, 0, 6, nullptr);
    EXPECT_EQ(reports.messages(), Messages{"inSamps==0"});
    arkvDft(x, nullptr, 3, 0, 6, nullptr);
    EXPECT_EQ(reports.messages(), Messages{"outSamps==0"});
    arkvDft(x, y, 3, 0, ARK_FIXED_SCALE | ARK_AUTO_SCALE, nullptr);
    EXPECT_EQ(reports.messages(),
              (Messages{"ARK_FIXED_SCALE and ARK_AUTO_SCALE", "ARK_AUTO_SCALE and scaleFactor==NULL"}));
    arkvDft(x, y, 3, 0, ARK_AUTO_SCALE, &factor);
    const auto made = reports.take();
    ASSERT_EQ(made.size(), 2u);
    EXPECT_EQ(made[0].function + ": " + made[0].message, "arkcDft: ARK_Forw or ARK_Inv must be as a flag");
    EXPECT_EQ(made[1].function + ": " + made[1].message, "arkvDft: out arkcDft calc. DFT");
    EXPECT_EQ(made[1].status, ARK_StatusBacktrace);

    arkcFreeTwdTbls();
    for (int length = 1; length <= 32; length++)
        arkcDft(nullptr, nullptr, length, ARK_Init);
    arkvDft(nullptr, nullptr, 33, ARK_Init, 0, nullptr);
    EXPECT_EQ(reports.messages(), (Messages{"Full Table", "tw==0", "out arkcDft ARK_Init"}));
    EXPECT_EQ(y[0].re, 7);
    arkcFreeTwdTbls();
}

} // namespace
