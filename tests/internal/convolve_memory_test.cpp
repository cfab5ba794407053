// Convolution when memory is short, and the way that it takes, which the reports give away.
#include "heap_control.hpp"

#include "convolve/convolve.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace {

using Messages = std::vector<std::string>;

// Function and message of each report; without the heap, which must not be asked by the handler.
struct Record {
    int status;
    const char *function, *message;
};
Record records[8];
int recorded;
int record(int status, const char* function, const char* message, const char*, int)
{
    if (recorded < 8)
        records[recorded++] = {status, function, message};
    return status;
}

template <class Call>
Messages reportsOf(long good, Call call)
{
    recorded = 0;
    arkcFreeTwdTbls();
    arkzFreeTwdTbls();
    const ArkErrorHandler previous = arkRedirectError(record);
    {
        const FailingHeap heap(good);
        call();
    }
    arkRedirectError(previous);
    arkSetErrStatus(0);
    Messages made;
    for (int i = 0; i < recorded; i++)
        made.push_back(records[i].function + (": " + std::string(records[i].message ? records[i].message : "-")));
    return made;
}

Messages wayOf(int xLen, int hLen)
{
    const std::vector<float> x(std::size_t(xLen), 1.0f), h(std::size_t(hLen), 1.0f);
    std::vector<float> y(std::size_t(xLen + hLen) - 1, 5.0f);
    const Messages made = reportsOf(0, [&] { arksConv(x.data(), xLen, h.data(), hLen, y.data()); });
    EXPECT_EQ(y[0], made.empty() ? 1 : 5);
    return made;
}

const Messages direct, whole{"arksRealFftl: No working Twd memory", "arksConv0: -", "arksConv: -"},
    blocks{"arksRealFftl: No working Twd memory", "arksConv1: -", "arksConv: -"};

TEST(ConvolutionMemory, TheDirectWayNeedsNone)
{
    EXPECT_EQ(wayOf(1, 1), direct);
    EXPECT_EQ(wayOf(100000, 20), direct);
    for (const auto& [n, limit] :
         std::initializer_list<std::pair<int, int>>{{21, 37905}, {22, 15889}, {40, 416}, {60, 173}, {101, 102}}) {
        EXPECT_EQ(wayOf(n, limit - 1), direct) << n;
        EXPECT_NE(wayOf(n, limit), direct) << n;
    }
    EXPECT_EQ(wayOf(21, 37905), blocks);
    EXPECT_EQ(wayOf(102, 101), whole);
    EXPECT_EQ(wayOf(102, 102), whole);
    EXPECT_EQ(wayOf(1000, 101), blocks);
}

TEST(ConvolutionMemory, IsReportedFromTheInsideOut)
{
    const std::vector<double> x(3000, 1.0), h(200, 1.0);
    std::vector<double> y(3199, 5.0);
    const auto call = [&] { arkdConv(x.data(), 3000, h.data(), 200, y.data()); };
    Messages last{"-"};
    for (long good = 0; !last.empty() && good < 20; good++) {
        last = reportsOf(good, call);
        if (last.empty())
            break;
        EXPECT_EQ(y[0], 5);
        if (last[0] == "arkdRealFftl: No working Twd memory")
            EXPECT_EQ(last, (Messages{last[0], "arkdConv1: -", "arkdConv: -"}));
        else
            EXPECT_EQ(last, (Messages{"arkdConv1: NULL Pointer", "arkdConv: -"}));
    }
    EXPECT_TRUE(last.empty());
    EXPECT_EQ(std::lround(y[0]), 1);

    const std::vector<short> a(300, 1);
    std::vector<short> b(599, 5);
    const char* const parts[] = {"x", "h", "y"};
    for (long good = 0; good < 3; good++)
        EXPECT_EQ(reportsOf(good, [&] { arkwConv(a.data(), 300, a.data(), 300, b.data(), 0, nullptr); }),
                  Messages{std::string("arkwConv: NULL pointer to float copy ") + parts[good]});
    EXPECT_EQ(reportsOf(3, [&] { arkwConv(a.data(), 300, a.data(), 300, b.data(), 0, nullptr); }),
              (Messages{"arksRealFftl: No working Twd memory", "arksConv0: -", "arksConv: -", "arkwConv: -"}));
    EXPECT_EQ(b[0], 5);
}

TEST(ConvolutionPlan, FollowsTheCosts)
{
    using ark::ConvWay;
    const auto planned = [](std::int64_t len, std::int64_t n) { return ark::planOf(ark::realFloatCosts, {len, n}); };
    EXPECT_EQ(planned(1000, 101).order, 9) << "twice the usual size is cheaper";
    EXPECT_EQ(planned(4096, 512).order, 11);
    EXPECT_EQ(planned(65536, 1024).order, 13) << "a long operand: costed at 8 times, done at 4";
    EXPECT_EQ(planned(65536, 1024).hop, 8192 - 1023);
    EXPECT_EQ(planned(512, 512).way, ConvWay::whole);
    EXPECT_EQ(planned(512, 512).order, 10);
    EXPECT_EQ(planned(513, 512).order, 10) << "1024 outputs, though costed at 2048";
    EXPECT_EQ(planned((1ll << 30), 1 << 30).order, 31);
    EXPECT_GT(planned((1ll << 31) - 21, 21).hop, 0);
}

// An exact tie: both cost two transforms and a product of the same size.
TEST(ConvolutionPlan, ATieTakesTheWholeLength)
{
    ark::ConvCosts costs = ark::realFloatCosts;
    for (float& cost : costs.fft)
        cost = 0.1f;
    for (float& cost : costs.mul)
        cost = 0.3f;
    EXPECT_EQ(ark::planOf(costs, {130, 127}).way, ark::ConvWay::whole);
}

} // namespace
