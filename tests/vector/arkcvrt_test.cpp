#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace {

const BadCalls ofSingle{"arkcvrts",
                        {ZEROS(arksbFloatToInt)},
                        {"len<=0", "src==0", "dst==0", "Invalid size of an integer", "Invalid conversion flag"}};
const BadCalls ofDouble{"arkcvrtd",
                        {ZEROS(arkdbFloatToInt)},
                        {"len<=0", "src==0", "dst==0", "Invalid size of an integer", "Invalid conversion flag"}};
const BadCalls ofSingleBack{
    "arkcvrts", {ZEROS(arksbIntToFloat)}, {"len<=0", "src==0", "dst==0", "Invalid size of an integer"}};
const BadCalls ofDoubleBack{
    "arkcvrtd", {ZEROS(arkdbIntToFloat)}, {"len<=0", "src==0", "dst==0", "Invalid size of an integer"}};

void floatToInt(const float* src, void* dst, int n, int bits, int flags) { arksbFloatToInt(src, dst, n, bits, flags); }
void floatToInt(const double* src, void* dst, int n, int bits, int flags) { arkdbFloatToInt(src, dst, n, bits, flags); }
void intToFloat(const void* src, float* dst, int n, int bits, int flags) { arksbIntToFloat(src, dst, n, bits, flags); }
void intToFloat(const void* src, double* dst, int n, int bits, int flags) { arkdbIntToFloat(src, dst, n, bits, flags); }

constexpr int roundingFlags[] = {ARK_RoundNearest, ARK_RoundZero, ARK_RoundDown, ARK_RoundUp};

// In double, whose whole numbers reach far beyond 32 bits.
double rounded(double x, int flag)
{
    const double down = std::floor(x);
    switch (flag) {
    case ARK_RoundZero: return x < 0 ? std::ceil(x) : down;
    case ARK_RoundDown: return down;
    case ARK_RoundUp: return std::ceil(x);
    default:
        if (x - down != 0.5)
            return x - down < 0.5 ? down : down + 1;
        return std::fmod(down, 2) == 0 ? down : down + 1;
    }
}

// Everything near where something changes, in both signs, and numbers at random.
template <class Real>
std::vector<Real> interestingValues()
{
    std::vector<Real> values{0,
                             std::numeric_limits<Real>::denorm_min(),
                             std::numeric_limits<Real>::max(),
                             std::numeric_limits<Real>::infinity(),
                             std::numeric_limits<Real>::quiet_NaN(),
                             Real(0.49999997),
                             Real(8388609),
                             Real(4503599627370497)};
    for (const double place :
         {0.5,          1.0,          1.5,          2.5,          3.5,          127.0,        127.5,
          128.0,        128.5,        255.0,        255.5,        256.0,        32767.0,      32767.5,
          32768.0,      32768.5,      65535.0,      65535.5,      65536.0,      8388607.5,    16777216.0,
          2147483647.0, 2147483647.5, 2147483648.0, 2147483648.5, 4294967295.0, 4294967295.5, 4294967296.0})
        for (const Real x :
             {Real(place), std::nextafter(Real(place), Real(0)), std::nextafter(Real(place), Real(1e30))})
            values.push_back(x);
    for (int i = 0; i < 300; i++)
        values.push_back(std::ldexp(Real(randomInt(0, 1 << 24)), randomInt(-26, 12)));
    for (std::size_t i = 0, count = values.size(); i < count; i++)
        values.push_back(-values[i]);
    return values;
}

template <class Real, class Int>
void compareFloatToInt(const std::vector<Real>& source)
{
    using Limits = std::numeric_limits<Int>;
    const auto isOutside = [](double r) { return !(r >= double(Limits::min()) && r <= double(Limits::max())); };
    for (const int rounding : roundingFlags)
        for (const int saturate : {0, int{ARK_Saturate}}) {
            constexpr Int unwritten = 77;
            std::vector<Int> expected;
            for (const Real x : source) {
                const double r = rounded(x, rounding);
                if (!isOutside(r))
                    expected.push_back(Int(r));
                else if (!saturate)
                    expected.push_back(unwritten);
                else
                    expected.push_back(std::isnan(x) ? Int(0) : r < 0 ? Limits::min() : Limits::max());
            }
            Guarded<Real> src(source);
            Guarded<Int> dst(std::vector<Int>(source.size(), unwritten));
            const int flags = rounding | saturate | (Limits::is_signed ? 0 : int{ARK_Unsigned});
            floatToInt(src.data(), dst.data(), int(source.size()), 8 * int(sizeof(Int)), flags);
            EXPECT_EQ(arkGetErrStatus(), ARK_StatusOk);
            for (std::size_t i = 0; i < source.size(); i++)
                ASSERT_EQ(dst[i], expected[i]) << double(source[i]) << " with flags " << flags << " into "
                                               << 8 * sizeof(Int) << " bits at " << i << " of " << source.size();
        }
}

template <class Real, class Int>
void compareIntToFloat(const std::vector<Int>& source)
{
    Guarded<Int> src(source);
    Guarded<Real> dst(source.size());
    const int flags = std::numeric_limits<Int>::is_signed ? 0 : int{ARK_Unsigned};
    intToFloat(src.data(), dst.data(), int(source.size()), 8 * int(sizeof(Int)), flags);
    for (std::size_t i = 0; i < source.size(); i++)
        ASSERT_EQ(dst[i], Real(source[i])) << "at " << i << " of " << source.size();
}

template <class Pair>
class Conversion : public testing::Test {};
template <class R, class I>
struct Types {
    using Real = R;
    using Int = I;
};
using Pairs = testing::Types<Types<float, std::int8_t>, Types<float, std::uint8_t>, Types<float, std::int16_t>,
                             Types<float, std::uint16_t>, Types<float, std::int32_t>, Types<float, std::uint32_t>,
                             Types<double, std::int8_t>, Types<double, std::uint8_t>, Types<double, std::int16_t>,
                             Types<double, std::uint16_t>, Types<double, std::int32_t>, Types<double, std::uint32_t>>;
TYPED_TEST_SUITE(Conversion, Pairs);

TYPED_TEST(Conversion, RoundsSaturatesAndLeavesAlone)
{
    using Real = typename TypeParam::Real;
    const std::vector<Real> all = interestingValues<Real>();
    compareFloatToInt<Real, typename TypeParam::Int>(all);
    for (std::size_t n = 1; n < 70; n++) {
        const auto first = all.begin() + randomInt(0, int(all.size() - n));
        compareFloatToInt<Real, typename TypeParam::Int>({first, first + std::ptrdiff_t(n)});
    }
}

TYPED_TEST(Conversion, OfIntegersIsExactOrNearest)
{
    using Int = typename TypeParam::Int;
    using Limits = std::numeric_limits<Int>;
    for (std::size_t n = 1; n < 70; n++) {
        std::vector<Int> source{Limits::min(), Limits::max(), Int(Limits::max() - 64), Int(1), Int(-1), Int(16777217)};
        for (int i = 0; i < 70; i++)
            source.push_back(Int(unsigned(randomInt(-2147483647, 2147483647))));
        source.resize(n);
        compareIntToFloat<typename TypeParam::Real, Int>(source);
    }
}

TYPED_TEST(Conversion, InPlace)
{
    using Real = typename TypeParam::Real;
    using Int = typename TypeParam::Int;
    constexpr int bits = 8 * int(sizeof(Int)), sign = std::numeric_limits<Int>::is_signed ? 0 : int{ARK_Unsigned};
    for (int n = 1; n < 70; n++) {
        std::vector<Real> vec(std::size_t(n), Real(0)), expected;
        for (Real& x : vec) {
            x = Real(randomInt(0, 200)) / 2;
            expected.push_back(Real(rounded(x, ARK_RoundNearest)));
        }
        floatToInt(vec.data(), vec.data(), n, bits, ARK_RoundNearest | ARK_Saturate | sign);
        intToFloat(vec.data(), vec.data(), n, bits, sign);
        EXPECT_EQ(vec, expected);
    }
}

TEST(ConversionReports, StartAfresh)
{
    Reports reports;
    const float x = 2.5f;
    short w = 0;
    arkSetErrStatus(ARK_StatusOutOfMemory);
    arksbFloatToInt(&x, &w, 1, 16, ARK_RoundNearest);
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusOk);
    EXPECT_EQ(w, 2);

    float back = 0;
    arkSetErrStatus(ARK_StatusOutOfMemory);
    arksbIntToFloat(&w, &back, 1, 16, 0);
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusOk);
    EXPECT_EQ(back, 2.0f);
    EXPECT_TRUE(reports.take().empty());
}

TEST(ConversionReports, OfFlags)
{
    Reports reports;
    const double x = 1;
    short w = 77;
    double back = 77;
    for (const int flags : {0, ARK_RoundNearest | ARK_RoundZero, ARK_RoundDown | ARK_RoundUp | ARK_Saturate}) {
        arkdbFloatToInt(&x, &w, 1, 16, flags);
        EXPECT_EQ(reports.messages(), std::vector<std::string>{"Invalid conversion flag"});
    }
    for (const int flags : {int{ARK_RoundNearest}, ARK_Unsigned | ARK_Saturate, 1}) {
        arkdbIntToFloat(&w, &back, 1, 16, flags);
        EXPECT_EQ(reports.messages(), std::vector<std::string>{"Invalid conversion flag"});
    }
    for (const int bits : {0, 1, 24, 64, -16}) {
        arkdbFloatToInt(&x, &w, 1, bits, ARK_RoundZero);
        EXPECT_EQ(reports.messages(), std::vector<std::string>{"Invalid size of an integer"});
    }
    EXPECT_EQ(w, 77);
    EXPECT_EQ(back, 77);
    arkdbFloatToInt(&x, &w, 1, 16, ARK_RoundZero | 0x4000 | 0x10); // further bits mean nothing
    EXPECT_EQ(w, 1);
}

TEST(ConversionReports, OfValuesOutOfRange)
{
    Reports reports;
    std::vector<float> source(40, 1.5f);
    std::vector<short> dst(40, 77);
    arksbFloatToInt(source.data(), dst.data(), 40, 16, ARK_RoundUp | ARK_ReportRange);
    EXPECT_TRUE(reports.take().empty());
    for (const std::size_t place : {0u, 20u, 39u})
        for (const float wrong : {1e6f, -32768.5f * 2, std::numeric_limits<float>::quiet_NaN()}) {
            source[place] = wrong;
            arksbFloatToInt(source.data(), dst.data(), 40, 16, ARK_RoundUp | ARK_ReportRange);
            EXPECT_EQ(dst[place], 2) << "left as it was";
            EXPECT_EQ(reports.messages(), std::vector<std::string>{"Value out of range"});
            arksbFloatToInt(source.data(), dst.data(), 40, 16, ARK_RoundUp);
            EXPECT_TRUE(reports.take().empty());
            source[place] = 1.5f;
        }
}

} // namespace
