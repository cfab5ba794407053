#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"
#include "support/ulps.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

namespace {

const BadCalls inPlace{
    "arklnexp", {ZEROS(arksbLn1), ZEROS(arkdbLn1), ZEROS(arksbExp1), ZEROS(arkdbExp1)}, {"len<=0", "vec==0"}};
const BadCalls apart{
    "arklnexp", {ZEROS(arksbLn2), ZEROS(arkdbLn2), ZEROS(arksbExp2), ZEROS(arkdbExp2)}, {"len<=0", "src==0", "dst==0"}};
const BadCalls shortsInPlace{"arklnexw", {ZEROS(arkwbLn1), ZEROS(arkwbExp1)}, {"Len<=0", "Vector==0"}};
const BadCalls shortsApart{"arklnexw", {ZEROS(arkwbLn2), ZEROS(arkwbExp2)}, {"Len<=0", "Vector==0", "Vector==0"}};

template <class T>
struct Members {
    void (*ln1)(T*, int);
    void (*ln2)(const T*, T*, int);
    void (*exp1)(T*, int);
    void (*exp2)(const T*, T*, int);
    double ulps; // the bound that the header gives
};
template <class T>
Members<T> members();
template <>
Members<float> members()
{
    return {arksbLn1, arksbLn2, arksbExp1, arksbExp2, 1.0};
}
template <>
Members<double> members()
{
    return {arkdbLn1, arkdbLn2, arkdbExp1, arkdbExp2, 2.0};
}

template <class T>
using Bits = std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>;

// Numbers of every exponent and sign, as they come, and many about the places where something happens.
template <class T>
std::vector<T> samples()
{
    std::vector<T> values;
    for (int i = 0; i < 100000; i++)
        values.push_back(std::bit_cast<T>(Bits<T>(randomEngine()() >> (64 - 8 * sizeof(T)))));
    for (const T centre : {T(0), T(1), T(0.70710678), T(1.41421356), T(0.34657359), T(88.7), T(-87.3), T(-103.9),
                           T(709.78), T(-708.4), T(-745.1)})
        for (int i = 0; i < 10000; i++)
            values.push_back(centre + std::ldexp(T(randomInt(-1000000, 1000000)), randomInt(-40, -20)));
    for (int i = 0; i < 100000; i++)
        values.push_back(std::ldexp(T(randomInt(-1000000, 1000000)), randomInt(-20, -11)));
    return values;
}

template <class T>
class LnExp : public testing::Test {};
using Floats = testing::Types<float, double>;
TYPED_TEST_SUITE(LnExp, Floats);

TYPED_TEST(LnExp, Accuracy)
{
    const std::vector<TypeParam> x = samples<TypeParam>();
    std::vector<TypeParam> ln(x.size()), exp(x.size());
    const Members<TypeParam> member = members<TypeParam>();
    member.ln2(x.data(), ln.data(), int(x.size()));
    member.exp2(x.data(), exp.data(), int(x.size()));
    for (std::size_t i = 0; i < x.size(); i++) {
        ASSERT_LE(ulpsOff(ln[i], std::log(static_cast<long double>(x[i]))), member.ulps) << "ln of " << x[i];
        ASSERT_LE(ulpsOff(exp[i], std::exp(static_cast<long double>(x[i]))), member.ulps) << "exp of " << x[i];
    }
}

TYPED_TEST(LnExp, SpecialValues)
{
    Reports reports;
    using Limits = std::numeric_limits<TypeParam>;
    const TypeParam inf = Limits::infinity(), nan = Limits::quiet_NaN();
    struct {
        TypeParam x, ln, exp;
    } const rows[]{
        {0, -inf, 1},   {-TypeParam(0), -inf, 1}, {1, 0, TypeParam(2.718281828459045)}, {inf, inf, inf},
        {-inf, nan, 0}, {nan, nan, nan},          {-Limits::denorm_min(), nan, 1},      {-Limits::max(), nan, 0}};
    for (const auto& row : rows) {
        TypeParam ln = row.x, exp = row.x;
        members<TypeParam>().ln1(&ln, 1);
        members<TypeParam>().exp1(&exp, 1);
        EXPECT_TRUE(same(ln, row.ln)) << ln << " is the ln of " << row.x;
        EXPECT_LE(ulpsOff(exp, row.exp), members<TypeParam>().ulps) << "e^" << row.x;
    }
    EXPECT_TRUE(reports.take().empty());
}

// An element's result does not depend on its place, on the length or on the form, nor on special values beside it.
TYPED_TEST(LnExp, EveryLengthAndForm)
{
    const Members<TypeParam> member = members<TypeParam>();
    for (int n = 1; n < 70; n++) {
        std::vector<TypeParam> x;
        for (int i = 0; i < n; i++)
            x.push_back(randomInt(0, 20) == 0 ? TypeParam(0) : TypeParam(randomInt(1, 1 << 20)) / (1 << 15));
        for (const auto& [form1, form2] : {std::pair{member.ln1, member.ln2}, std::pair{member.exp1, member.exp2}}) {
            Guarded<TypeParam> src(x), dst(x.size()), vec(x);
            form2(src.data(), dst.data(), n);
            form1(vec.data(), n);
            for (std::size_t i = 0; i < x.size(); i++) {
                TypeParam alone = x[i];
                form1(&alone, 1);
                ASSERT_EQ(dst[i], alone) << "at " << i << " of " << n;
                ASSERT_EQ(vec[i], alone) << "at " << i << " of " << n;
            }
            EXPECT_EQ(src.values(), x);
        }
    }
}

TEST(ShortLnExp, EveryValue)
{
    std::vector<short> x, ln, exp;
    for (int i = -32768; i < 32768; i++) {
        x.push_back(short(i));
        ln.push_back(i < 1 ? short(0) : short(std::log(static_cast<long double>(i))));
        exp.push_back(short(std::lround(std::fmin(std::exp(static_cast<long double>(i)), 32767.0L))));
    }
    std::vector<short> got(x.size());
    arkwbLn2(x.data(), got.data(), 65536);
    EXPECT_EQ(got, ln);
    arkwbExp2(x.data(), got.data(), 65536);
    EXPECT_EQ(got, exp);
    for (const std::size_t n : {1u, 7u, 8u, 31u, 65u}) {
        const auto part = [n](const std::vector<short>& all) {
            return std::vector<short>(all.end() - long(n) - 32757, all.end() - 32757);
        };
        Guarded<short> vec(part(x));
        arkwbLn1(vec.data(), int(n));
        EXPECT_EQ(vec.values(), part(ln));
        Guarded<short> other(part(x));
        arkwbExp1(other.data(), int(n));
        EXPECT_EQ(other.values(), part(exp));
    }
}

TEST(LnExpReports, NothingHappensAfterAFailure)
{
    Reports reports;
    float s = 2;
    short w = 5;
    arkSetErrStatus(ARK_StatusOutOfMemory);
    arksbLn1(&s, 1);
    arksbExp2(&s, &s, 1);
    arkwbLn1(&w, 1);
    EXPECT_EQ(s, 2.0f);
    EXPECT_EQ(w, 5);
    EXPECT_TRUE(reports.take().empty());
}

} // namespace
