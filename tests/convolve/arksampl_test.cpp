#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

namespace {

const BadCalls noLength{"arksampl",
                        {ZEROS(arksUpSample), ZEROS(arkdUpSample), ZEROS(arkcUpSample), ZEROS(arkzUpSample),
                         ZEROS(arkwUpSample), ZEROS(arkvUpSample), ZEROS(arksDownSample), ZEROS(arkdDownSample),
                         ZEROS(arkcDownSample), ZEROS(arkzDownSample), ZEROS(arkwDownSample), ZEROS(arkvDownSample)},
                        {"Invalid src array length"}};

template <class T>
using Function = void (*)(const T*, int, T*, int*, int, int*);

template <class T>
std::vector<T> numbered(int n) // every element different
{
    std::vector<T> values;
    for (int i = 1; i <= n; i++)
        if constexpr (sizeof(T) == sizeof(short) || std::is_floating_point_v<T>)
            values.push_back(T(i));
        else
            values.push_back({decltype(T{}.re)(i), decltype(T{}.re)(-i)});
    return values;
}

template <class T>
bool same(const std::vector<T>& a, const std::vector<T>& b)
{
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

template <class T>
void checkUp(Function<T> up)
{
    for (int round = 0; round < 200; round++) {
        const int n = randomInt(1, 50), factor = randomInt(1, 9), phase = randomInt(0, factor - 1);
        const std::vector<T> src = numbered<T>(n);
        std::vector<T> expected(std::size_t(n * factor), T{});
        for (int k = 0; k < n; k++)
            expected[std::size_t(phase + k * factor)] = src[std::size_t(k)];
        Guarded<T> in{src}, out{expected.size()}, inPlace{expected.size()};
        int len = -1, keptPhase = phase;
        up(in.data(), n, out.data(), &len, factor, &keptPhase);
        EXPECT_EQ(len, n * factor);
        EXPECT_EQ(keptPhase, phase);
        EXPECT_TRUE(same(out.values(), expected));
        std::copy(src.begin(), src.end(), inPlace.begin());
        up(inPlace.data(), n, inPlace.data(), &len, factor, &keptPhase);
        EXPECT_TRUE(same(inPlace.values(), expected));
    }
}

// Blocks of any lengths keep what the whole signal keeps.
template <class T>
void checkDown(Function<T> down)
{
    for (int round = 0; round < 200; round++) {
        const int n = randomInt(1, 100), factor = randomInt(1, 9), first = randomInt(0, factor - 1);
        const std::vector<T> src = numbered<T>(n);
        std::vector<T> expected, got;
        for (int i = first; i < n; i += factor)
            expected.push_back(src[std::size_t(i)]);
        int phase = first;
        for (int done = 0, block; done < n; done += block) {
            block = randomInt(1, n - done);
            Guarded<T> in{std::vector<T>(src.begin() + done, src.begin() + done + block)};
            Guarded<T> out{std::size_t((block + factor - 1) / factor)};
            int len = -1;
            const bool inPlace = randomInt(0, 1);
            down(in.data(), block, inPlace ? in.data() : out.data(), &len, factor, &phase);
            ASSERT_GE(phase, 0);
            got.insert(got.end(), inPlace ? in.begin() : out.begin(), (inPlace ? in.begin() : out.begin()) + len);
        }
        EXPECT_TRUE(same(got, expected));
    }
}

TEST(Sampling, PutsAndKeepsEveryNth)
{
    checkUp<float>(arksUpSample);
    checkUp<double>(arkdUpSample);
    checkUp<FloatCplx>(arkcUpSample);
    checkUp<DoubleCplx>(arkzUpSample);
    checkUp<short>(arkwUpSample);
    checkUp<ShortCplx>(arkvUpSample);
    checkDown<float>(arksDownSample);
    checkDown<double>(arkdDownSample);
    checkDown<FloatCplx>(arkcDownSample);
    checkDown<DoubleCplx>(arkzDownSample);
    checkDown<short>(arkwDownSample);
    checkDown<ShortCplx>(arkvDownSample);
}

TEST(Sampling, FactorsNearTheEndOfInt)
{
    const float src[3] = {1, 2, 3};
    float dst[1] = {};
    int len = 7, phase = INT_MAX - 1;
    arksDownSample(src, 3, dst, &len, INT_MAX, &phase);
    EXPECT_EQ(len, 0);
    EXPECT_EQ(phase, INT_MAX - 4);
    phase = 2;
    arksDownSample(src, 3, dst, &len, INT_MAX, &phase);
    EXPECT_EQ(len, 1);
    EXPECT_EQ(phase, INT_MAX - 1);
    EXPECT_EQ(dst[0], 3);
}

TEST(Sampling, ReportsInOrder)
{
    float array[2] = {5, 6};
    int len = 7, phase = 0;
    Reports reports;
    for (const auto function : {arksUpSample, arksDownSample}) {
        function(nullptr, 1, array, &len, 0, &phase);
        function(array, 1, nullptr, nullptr, 0, &phase);
        function(array, 1, array, nullptr, 0, nullptr);
        function(array, 1, array, &len, 0, nullptr);
        phase = -1;
        function(array, 1, array, &len, 0, &phase);
        function(array, 1, array, &len, 1, &phase);
        phase = 1;
        function(array, 1, array, &len, 1, &phase);
        EXPECT_EQ(reports.messages(),
                  (std::vector<std::string>{"Null buffer pointer", "Null buffer pointer", "Null dstLen pointer",
                                            "Null phase pointer", "Invalid factor value", "Invalid phase value",
                                            "Invalid factor value"}));
    }
    arksUpSample(array, 2, array, &len, 1 << 30, &phase);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"Invalid factor value"}) << "2^31 elements";
    EXPECT_EQ(len, 7);
    EXPECT_EQ(array[0], 5);
}

} // namespace
