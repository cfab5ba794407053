#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>

namespace {

const BadCalls ofDftCalc{
    "arktwd", {ZEROS(arkcCalcDftTwdTbl), ZEROS(arkzCalcDftTwdTbl), ZEROS(arkvCalcDftTwdTbl)}, {"length<=0", "tbl==0"}};
const BadCalls ofDftGet{
    "arktwd", {ZEROS(arkcGetDftTwdTbl), ZEROS(arkzGetDftTwdTbl), ZEROS(arkvGetDftTwdTbl)}, {"length<=0"}};
const BadCalls ofFftCalc{
    "arktwd", {ZEROS(arkcCalcFftTwdTbl), ZEROS(arkzCalcFftTwdTbl), ZEROS(arkvCalcFftTwdTbl)}, {"tbl==0"}};
const BadCalls ofFftGet{"arktwd",
                        {{"arkcGetFftTwdTbl", [] { arkcGetFftTwdTbl(32); }},
                         {"arkzGetFftTwdTbl", [] { arkzGetFftTwdTbl(32); }},
                         {"arkvGetFftTwdTbl", [] { arkvGetFftTwdTbl(32); }}},
                        {"order>31"}};
const NoBadCalls never{"arkcFreeTwdTbls", "arkzFreeTwdTbls", "arkvFreeTwdTbls"};

struct Types {
    template <class T, void (*calcDft)(T*, int), T* (*getDft)(int), void (*calcFft)(T*, int), T* (*getFft)(int),
              void (*free)()>
    struct Of {
        using Element = T;
        static constexpr auto calcDftTbl = calcDft;
        static constexpr auto getDftTbl = getDft;
        static constexpr auto calcFftTbl = calcFft;
        static constexpr auto getFftTbl = getFft;
        static constexpr auto freeTbls = free;
    };
};
using C =
    Types::Of<FloatCplx, arkcCalcDftTwdTbl, arkcGetDftTwdTbl, arkcCalcFftTwdTbl, arkcGetFftTwdTbl, arkcFreeTwdTbls>;
using Z =
    Types::Of<DoubleCplx, arkzCalcDftTwdTbl, arkzGetDftTwdTbl, arkzCalcFftTwdTbl, arkzGetFftTwdTbl, arkzFreeTwdTbls>;
using V =
    Types::Of<ShortCplx, arkvCalcDftTwdTbl, arkvGetDftTwdTbl, arkvCalcFftTwdTbl, arkvGetFftTwdTbl, arkvFreeTwdTbls>;

template <class T>
class Twiddles : public testing::Test {};
using Members = testing::Types<C, Z, V>;
TYPED_TEST_SUITE(Twiddles, Members);

template <class T>
bool equal(const T* a, const T* b, std::size_t n)
{
    for (std::size_t i = 0; i < n; i++)
        if (a[i].re != b[i].re || a[i].im != b[i].im)
            return false;
    return true;
}

TYPED_TEST(Twiddles, AreRootsOfUnity)
{
    using T = typename TypeParam::Element;
    using R = decltype(T::re);
    for (const int length : {1, 2, 3, 5, 8, 100, 1000, 4096, 12345}) {
        Guarded<T> tbl{std::size_t(length)};
        TypeParam::calcDftTbl(tbl.data(), length);
        const long double step = 2 * std::acos(-1.0L) / length;
        for (int k = 0; k < length; k++) {
            const long double re = std::cos(step * k), im = -std::sin(step * k);
            const T got = tbl[std::size_t(k)];
            if constexpr (std::is_same_v<R, short>) {
                // Truncated toward zero, give or take one where the exact value is an integer.
                const auto isTruncated = [](short value, long double x) {
                    return std::fabs(x) - 1 - 1e-9L < std::abs(value) && std::abs(value) <= std::fabs(x) + 1e-9L &&
                           value * x >= 0;
                };
                ASSERT_TRUE(isTruncated(got.re, 16384 * re) && isTruncated(got.im, 16384 * im))
                    << k << " of " << length;
            } else {
                // Half an ulp of 1, and what the step's own rounding amounts to over a circle: 2^-53 * 2 pi.
                const long double bound = std::numeric_limits<R>::epsilon() / 4.0L + 7e-16L;
                ASSERT_LE(std::fabs(got.re - re), bound) << k << " of " << length;
                ASSERT_LE(std::fabs(got.im - im), bound) << k << " of " << length;
            }
        }
    }
    Guarded<T> ofFft(64), ofDft(64);
    TypeParam::calcFftTbl(ofFft.data(), 6);
    TypeParam::calcDftTbl(ofDft.data(), 64);
    EXPECT_TRUE(equal(ofFft.data(), ofDft.data(), 64));
}

TEST(ShortTwiddles, AreInQ14)
{
    ShortCplx tbl[4];
    arkvCalcFftTwdTbl(tbl, 2);
    const ShortCplx wanted[] = {{16384, 0}, {0, -16384}, {-16384, 0}, {0, 16384}};
    EXPECT_TRUE(equal(tbl, wanted, 4));
}

TYPED_TEST(Twiddles, AreKeptUntilTheyAreFreed)
{
    using T = typename TypeParam::Element;
    Reports reports;
    TypeParam::freeTbls(); // what other tests have left
    T* const fft = TypeParam::getFftTbl(5);
    std::vector<T*> dft;
    for (int length = 1; length <= 32; length++)
        dft.push_back(TypeParam::getDftTbl(10 * length));
    EXPECT_EQ(TypeParam::getDftTbl(9), nullptr);
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusOutOfMemory);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"Full Table"});
    for (int length = 1; length <= 32; length++)
        EXPECT_EQ(TypeParam::getDftTbl(10 * length), dft[std::size_t(length - 1)])
            << "is there, although the list is full";
    EXPECT_EQ(TypeParam::getFftTbl(5), fft);
    std::vector<T> wanted(320);
    TypeParam::calcDftTbl(wanted.data(), 320);
    EXPECT_TRUE(equal(dft[31], wanted.data(), 320));
    TypeParam::calcFftTbl(wanted.data(), 5);
    EXPECT_TRUE(equal(fft, wanted.data(), 32));

    arkSetErrStatus(-3); // which stops everything but Free
    EXPECT_EQ(TypeParam::getFftTbl(5), nullptr);
    TypeParam::freeTbls();
    arkSetErrStatus(0);
    T* const fresh = TypeParam::getDftTbl(9);
    ASSERT_NE(fresh, nullptr);
    TypeParam::calcDftTbl(wanted.data(), 9);
    EXPECT_TRUE(equal(fresh, wanted.data(), 9));
    TypeParam::freeTbls();
    EXPECT_TRUE(reports.take().empty());
}

TEST(Twiddles, BelongToTheirThread)
{
    FloatCplx* const here = arkcGetFftTwdTbl(4);
    FloatCplx* there = nullptr;
    std::thread([&] {
        there = arkcGetFftTwdTbl(4);
        arkGetBitRevTbl(4); // what a thread leaves behind goes with it: the leak checker sees
        FloatCplx samples[16] = {};
        arkcFft(samples, 4, ARK_Forw);
        arkcFreeTwdTbls();
        arkzGetDftTwdTbl(7);
        arkcGetFftTwdTbl(3);
        arkcFft(samples, 4, ARK_Forw);
        short x[18] = {}, y[18] = {};
        arkwReal2Fft(x, y, 4, ARK_Forw, ARK_SATURATE, nullptr);
    }).join();
    EXPECT_NE(there, nullptr);
    EXPECT_NE(here, there);
    EXPECT_EQ(arkcGetFftTwdTbl(4), here);
    EXPECT_EQ(here[8].re, -1);
    arkcFreeTwdTbls();
}

} // namespace
