#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstring>

namespace {

const BadCalls ofBitRev{
    "arkmisc",
    {{"arkBitRev", [] { arkBitRev(1, -1); }}, {"arkGetBitRevTbl", [] { arkGetBitRevTbl(INT_MIN); }}},
    {"order<0"}};
const BadCalls ofTable{"arkmisc", {ZEROS(arkCalcBitRevTbl)}, {"tbl==0"}};
const BadCalls ofVec{"arkmisc",
                     {ZEROS(arksbBitRev1), ZEROS(arkdbBitRev1), ZEROS(arkcbBitRev1), ZEROS(arkzbBitRev1),
                      ZEROS(arkwbBitRev1), ZEROS(arkvbBitRev1), ZEROS(arkibBitRev1), ZEROS(arkjbBitRev1)},
                     {"vec==0"}};
const BadCalls ofSrcDst{"arkmisc",
                        {ZEROS(arksbBitRev2), ZEROS(arkdbBitRev2), ZEROS(arkcbBitRev2), ZEROS(arkzbBitRev2),
                         ZEROS(arkwbBitRev2), ZEROS(arkvbBitRev2)},
                        {"src==0", "dst==0"}};
const NoBadCalls never{"arkFreeBitRevTbls"};

std::size_t reversed(std::size_t i, int order)
{
    std::size_t r = 0;
    for (int bit = 0; bit < order; bit++, i /= 2)
        r = 2 * r + i % 2;
    return r;
}

TEST(BitReversal, OfIndicesAndTables)
{
    EXPECT_EQ(arkBitRev(INT_MAX, 0), 0);
    EXPECT_EQ(arkBitRev(1, 31), 1 << 30);
    EXPECT_EQ(arkBitRev(-1, 31), INT_MAX);
    EXPECT_EQ(arkBitRev(INT_MIN + 6, 3), 3) << "higher bits are dropped";
    for (int order = 0; order <= 16; order++) {
        Guarded<int> table(std::size_t{1} << order);
        arkCalcBitRevTbl(table.data(), order);
        for (int i = 0; i < 1 << order; i++) {
            ASSERT_EQ(table[std::size_t(i)], int(reversed(std::size_t(i), order))) << "order " << order;
            ASSERT_EQ(arkBitRev(i, order), table[std::size_t(i)]);
        }
    }
}

TEST(BitReversal, TablesAreKeptUntilTheyAreFreed)
{
    int* const seventh = arkGetBitRevTbl(7);
    ASSERT_NE(seventh, nullptr);
    EXPECT_EQ(seventh[1], 64);
    EXPECT_NE(arkGetBitRevTbl(8), seventh);
    EXPECT_EQ(arkGetBitRevTbl(7), seventh);
    Reports reports;
    EXPECT_EQ(arkGetBitRevTbl(32), nullptr);
    EXPECT_EQ(arkGetBitRevTbl(7), nullptr) << "the status stops it";
    arkFreeBitRevTbls();
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"order>31"});
    int* const again = arkGetBitRevTbl(7);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again[64], 1);
    arkFreeBitRevTbls();
}

template <class T>
void checkVectors(void (*inPlace)(T*, int), void (*into)(const T*, T*, int))
{
    for (int order = 0; order <= 17; order++) {
        std::vector<T> source(std::size_t{1} << order);
        for (T& element : source) {
            const auto random = randomEngine()();
            std::memcpy(&element, &random, std::min(sizeof element, sizeof random));
        }
        const auto isReversed = [&](Guarded<T>& result) {
            bool good = true;
            for (std::size_t i = 0; i < source.size(); i++)
                good &= std::memcmp(&result[reversed(i, order)], &source[i], sizeof(T)) == 0;
            return good;
        };
        Guarded<T> vec(source), src(source), dst(source.size());
        inPlace(vec.data(), order);
        EXPECT_TRUE(isReversed(vec)) << "order " << order << ", " << sizeof(T) << " bytes";
        if (!into)
            continue;
        into(src.data(), dst.data(), order);
        EXPECT_TRUE(isReversed(dst)) << "order " << order << ", " << sizeof(T) << " bytes";
    }
}

TEST(BitReversal, OfVectors)
{
    checkVectors<float>(arksbBitRev1, arksbBitRev2);
    checkVectors<double>(arkdbBitRev1, arkdbBitRev2);
    checkVectors<FloatCplx>(arkcbBitRev1, arkcbBitRev2);
    checkVectors<DoubleCplx>(arkzbBitRev1, arkzbBitRev2);
    checkVectors<short>(arkwbBitRev1, arkwbBitRev2);
    checkVectors<ShortCplx>(arkvbBitRev1, arkvbBitRev2);
    checkVectors<int>(arkibBitRev1, nullptr);
    checkVectors<IntCplx>(arkjbBitRev1, nullptr);
}

} // namespace
