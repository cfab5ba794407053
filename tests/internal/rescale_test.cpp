// The rescaling of wide intermediates, which the 16-bit transforms and filters share.
#include "vector/scale.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <vector>

namespace {

template <class Source>
std::vector<short> rescaled(const std::vector<Source>& source, int mode, int* factor)
{
    std::vector<short> out(source.size());
    ark::rescale(source.data(), out.data(), std::ptrdiff_t(source.size()), {mode, factor});
    return out;
}

using Shorts = std::vector<short>;

TEST(Rescale, AutomaticModeFillsTheRange)
{
    int factor = 99;
    EXPECT_EQ(rescaled<int>({5, -32768, 32767}, ARK_AUTO_SCALE, &factor), (Shorts{5, -32768, 32767}));
    EXPECT_EQ(factor, 0);
    EXPECT_EQ(rescaled<int>({32768, -3, 100}, ARK_AUTO_SCALE, &factor), (Shorts{16384, -2, 50}));
    EXPECT_EQ(factor, 1);
    EXPECT_EQ(rescaled<int>({-32768, 32768}, ARK_AUTO_SCALE, &factor), (Shorts{-16384, 16384}));
    EXPECT_EQ(factor, 1);
    EXPECT_EQ(rescaled<int>({-65536}, ARK_AUTO_SCALE, &factor), Shorts{-16384}) << "in 16384 ... 32767";
    EXPECT_EQ(factor, 2);
    EXPECT_EQ(rescaled<int>({INT_MIN, INT_MAX}, ARK_AUTO_SCALE, &factor), (Shorts{-16384, 16383}));
    EXPECT_EQ(factor, 17);
    EXPECT_EQ(rescaled<std::int64_t>({3LL << 40, -1}, ARK_AUTO_SCALE, &factor), (Shorts{24576, -1}));
    EXPECT_EQ(factor, 27);
}

TEST(Rescale, FixedModesCapTheirShifts)
{
    const auto with = [](int mode, int factor, const std::vector<int>& source) {
        return rescaled(source, mode, &factor);
    };
    EXPECT_EQ(with(2, 3, {81, -81, 1 << 20}), (Shorts{10, -11, 0}));
    EXPECT_EQ(with(3, 3, {81, -81, 1 << 20}), (Shorts{10, -11, 32767}));
    EXPECT_EQ(with(2, 40, {INT_MAX, INT_MIN}), (Shorts{0, -1}));
    EXPECT_EQ(with(2, -2, {8192, -8193, 5}), (Shorts{-32768, 32764, 20}));
    EXPECT_EQ(with(3, -2, {8192, -8193, 5}), (Shorts{32767, -32768, 20}));
    EXPECT_EQ(with(3, INT_MIN, {1, -1, INT_MAX, INT_MIN, 0}), (Shorts{32767, -32768, 32767, -32768, 0}));
    EXPECT_EQ(with(2, -15, {1, 3}), (Shorts{-32768, -32768}));
    EXPECT_EQ(rescaled<int>({40000}, ARK_FIXED_SCALE, nullptr), Shorts{-25536});
    EXPECT_EQ(rescaled<int>({40000}, ARK_SATURATE, nullptr), Shorts{32767});
    EXPECT_EQ(rescaled<int>({40000}, ARK_WRAP, nullptr), Shorts{-25536});
    EXPECT_EQ(rescaled<int>({40000}, 6, nullptr), Shorts{-25536});
}

TEST(Rescale, OfFloatsRoundsToNearestEvenFirst)
{
    int factor = 1;
    EXPECT_EQ(rescaled<float>({2.5f, 3.5f, -2.5f, 0.49999997f, -0.5f}, ARK_SATURATE, nullptr),
              (Shorts{2, 4, -2, 0, 0}));
    EXPECT_EQ(rescaled<double>({2.5, 3.49, -3.51}, ARK_FIXED_SCALE, &factor), (Shorts{1, 1, -2}));
    EXPECT_EQ(rescaled<double>({1e300, -INFINITY, NAN}, ARK_SATURATE, nullptr), (Shorts{32767, -32768, 0}));
    EXPECT_EQ(rescaled<float>({65536.0f * 3, 1.0f}, ARK_WRAP, nullptr), (Shorts{0, 1}));
    EXPECT_EQ(rescaled<double>({1e12, -5e11}, ARK_AUTO_SCALE, &factor), (Shorts{29802, -14902}));
    EXPECT_EQ(factor, 25);
}

} // namespace
