#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>

namespace {

const BadCalls ofAll{"arklaw",
                     {ZEROS(arkwbLinToALaw), ZEROS(arkibLinToALaw), ZEROS(arksbLinToALaw), ZEROS(arkdbLinToALaw),
                      ZEROS(arkwbALawToLin), ZEROS(arkibALawToLin), ZEROS(arksbALawToLin), ZEROS(arkdbALawToLin),
                      ZEROS(arkwbLinToMuLaw), ZEROS(arkibLinToMuLaw), ZEROS(arksbLinToMuLaw), ZEROS(arkdbLinToMuLaw),
                      ZEROS(arkwbMuLawToLin), ZEROS(arkibMuLawToLin), ZEROS(arksbMuLawToLin), ZEROS(arkdbMuLawToLin),
                      ZEROS(arkMuLawToALaw), ZEROS(arkALawToMuLaw)},
                     {"len<=0", "src==0", "dst==0"}};

using Code = unsigned char;

// ITU-T G.711 by its decision values: the magnitude, on the 16-bit scale, at which step number k of 128 begins.
enum Law { aLaw, muLaw };

int lowerBound(Law law, int k)
{
    const int segment = k / 16, step = k % 16;
    if (law == muLaw)
        return ((16 + step) << (segment + 3)) - 132;
    return segment == 0 ? 16 * step : (16 + step) << (segment + 3);
}

// Values lie in the middle of their steps; the first mu-law step lies about zero.
int decoded(Law law, Code code)
{
    const int k = law == muLaw ? 127 - code % 128 : code % 128;
    const int value = (lowerBound(law, k) + lowerBound(law, k + 1)) / 2;
    return code >= 128 ? value : -value;
}

// A decision value belongs to the step above it in the A-law and to the step below it in the mu-law.
Code encoded(Law law, bool negative, int magnitude)
{
    int k = 0;
    while (k < 127 && (law == aLaw ? magnitude >= lowerBound(law, k + 1) : magnitude > lowerBound(law, k + 1)))
        k++;
    return Code((law == muLaw ? 127 - k : k) + (negative ? 0 : 128));
}

template <class T>
struct Members {
    void (*encode[2])(const T*, Code*, int);
    void (*decode[2])(const Code*, T*, int);
    double full; // what stands for 32768
};
template <class T>
Members<T> members();
template <>
Members<short> members()
{
    return {{arkwbLinToALaw, arkwbLinToMuLaw}, {arkwbALawToLin, arkwbMuLawToLin}, 32768};
}
template <>
Members<int> members()
{
    return {{arkibLinToALaw, arkibLinToMuLaw}, {arkibALawToLin, arkibMuLawToLin}, 2147483648.0};
}
template <>
Members<float> members()
{
    return {{arksbLinToALaw, arksbLinToMuLaw}, {arksbALawToLin, arksbMuLawToLin}, 1};
}
template <>
Members<double> members()
{
    return {{arkdbLinToALaw, arkdbLinToMuLaw}, {arkdbALawToLin, arkdbMuLawToLin}, 1};
}

// Every 16-bit value and, where the type has them, values between and beyond.
template <class T>
std::vector<T> samples()
{
    using Limits = std::numeric_limits<T>;
    const T unit = T(members<T>().full / 32768);
    std::vector<T> values{Limits::max(), Limits::lowest(), T(Limits::lowest() + 1), T(Limits::max() - 1), T(0)};
    for (int i = -32768; i < 32768; i++) {
        values.push_back(T(T(i) * unit));
        if (sizeof(T) > 2)
            values.push_back(T(T(i) * unit + unit / T(randomInt(2, 1000))));
    }
    if constexpr (Limits::has_infinity) {
        values.push_back(Limits::quiet_NaN());
        for (const T x : {Limits::infinity(), Limits::denorm_min(), T(1), T(1.5), T(32635.5 / 32768)})
            values.insert(values.end(), {x, -x});
    }
    return values;
}

template <class T>
Code expectedCode(Law law, T x)
{
    if (x != x)
        return encoded(law, true, INT_MAX);
    const double scaled = std::clamp(double(x) / members<T>().full * 32768, -40000.0, 40000.0);
    const bool negative = std::is_integral_v<T> ? x < 0 : scaled <= -1; // fractions are truncated first
    return encoded(law, negative, int(std::fabs(scaled)));
}

template <class T>
class Companding : public testing::Test {};
using Linear = testing::Types<short, int, float, double>;
TYPED_TEST_SUITE(Companding, Linear);

TYPED_TEST(Companding, EncodesAsTheStandard)
{
    const std::vector<TypeParam> x = samples<TypeParam>();
    for (const Law law : {aLaw, muLaw}) {
        std::vector<Code> codes(x.size());
        members<TypeParam>().encode[law](x.data(), codes.data(), int(x.size()));
        for (std::size_t i = 0; i < x.size(); i++)
            ASSERT_EQ(int(codes[i]), int(expectedCode(law, x[i]))) << "law " << law << ", " << +x[i];
    }
}

TYPED_TEST(Companding, DecodesAsTheStandardAtEveryLength)
{
    std::vector<Code> all;
    for (int code = 0; code < 256; code++)
        all.push_back(Code(code));
    const Members<TypeParam> member = members<TypeParam>();
    for (const Law law : {aLaw, muLaw})
        for (std::size_t n = 1; n <= 256; n += n < 70 ? 1 : 31) {
            const std::vector<Code> codes(all.end() - long(n), all.end());
            std::vector<TypeParam> values;
            std::vector<Code> back;
            for (const Code code : codes) {
                values.push_back(TypeParam(decoded(law, code) * (member.full / 32768)));
                back.push_back(law == muLaw && code == 127 ? Code(255) : code);
            }
            Guarded<Code> src(codes), again(n);
            Guarded<TypeParam> dst(n);
            member.decode[law](src.data(), dst.data(), int(n));
            ASSERT_EQ(dst.values(), values);
            ASSERT_FALSE(std::signbit(double(dst[n - 1]))) << "zero is positive";
            member.encode[law](dst.data(), again.data(), int(n));
            ASSERT_EQ(again.values(), back);
        }
    short largest[2];
    const Code codes[2]{255, 128};
    arkwbALawToLin(codes, &largest[0], 1);
    arkwbMuLawToLin(codes + 1, &largest[1], 1);
    EXPECT_EQ(largest[0], 32256);
    EXPECT_EQ(largest[1], 32124);
}

// The tables differ from decoding and encoding again by one step at most, in as many places as is known of them.
TEST(CodeConversion, IsCloseToDecodingAndEncoding)
{
    std::vector<Code> all(256);
    for (int code = 0; code < 256; code++)
        all[std::size_t(code)] = Code(code);
    for (const Law from : {muLaw, aLaw}) {
        const Law to = from == muLaw ? aLaw : muLaw;
        Guarded<Code> codes(all);
        (from == muLaw ? arkMuLawToALaw : arkALawToMuLaw)(codes.data(), codes.data(), 256); // in place
        int differing = 0;
        for (int code = 0; code < 256; code++) {
            const int value = decoded(from, Code(code)), got = codes[std::size_t(code)];
            const int again = encoded(to, value < 0, std::abs(value));
            differing += got != again;
            EXPECT_LE(std::abs(got % 128 - again % 128), 1) << "code " << code << " of law " << from;
            EXPECT_EQ(got % 128, codes[std::size_t(code ^ 128)] % 128) << "both signs alike";
        }
        EXPECT_EQ(differing, from == muLaw ? 39 : 34);
    }
}

TEST(CompandingReports, NothingHappensAfterAFailure)
{
    Reports reports;
    const short x = 100;
    Code code = 77;
    arkSetErrStatus(ARK_StatusOutOfMemory);
    arkwbLinToALaw(&x, &code, 1);
    arkMuLawToALaw(&code, &code, 1);
    EXPECT_EQ(code, 77);
    EXPECT_TRUE(reports.take().empty());
}

} // namespace
