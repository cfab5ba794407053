#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"
#include "support/ulps.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <climits>
#include <cstdint>
#include <functional>
#include <sstream>

namespace {

const BadCalls inPlace{"arkvec",
                       {ZEROS(arksbSqr1),      ZEROS(arkdbSqr1),       ZEROS(arkcbSqr1),       ZEROS(arkzbSqr1),
                        ZEROS(arkwbSqr1),      ZEROS(arkvbSqr1),       ZEROS(arksbSqrt1),      ZEROS(arkdbSqrt1),
                        ZEROS(arkcbSqrt1),     ZEROS(arkzbSqrt1),      ZEROS(arkwbSqrt1),      ZEROS(arkvbSqrt1),
                        ZEROS(arksbAbs1),      ZEROS(arkdbAbs1),       ZEROS(arkwbAbs1),       ZEROS(arksbThresh1),
                        ZEROS(arkdbThresh1),   ZEROS(arkcbThresh1),    ZEROS(arkzbThresh1),    ZEROS(arkwbThresh1),
                        ZEROS(arkvbThresh1),   ZEROS(arksbInvThresh1), ZEROS(arkdbInvThresh1), ZEROS(arkcbInvThresh1),
                        ZEROS(arkzbInvThresh1)},
                       {"len<=0", "vec==0"}};
const BadCalls apart{"arkvec",
                     {ZEROS(arksbSqr2),      ZEROS(arkdbSqr2),       ZEROS(arkcbSqr2),       ZEROS(arkzbSqr2),
                      ZEROS(arkwbSqr2),      ZEROS(arkvbSqr2),       ZEROS(arksbSqrt2),      ZEROS(arkdbSqrt2),
                      ZEROS(arkcbSqrt2),     ZEROS(arkzbSqrt2),      ZEROS(arkwbSqrt2),      ZEROS(arkvbSqrt2),
                      ZEROS(arksbAbs2),      ZEROS(arkdbAbs2),       ZEROS(arkwbAbs2),       ZEROS(arksbThresh2),
                      ZEROS(arkdbThresh2),   ZEROS(arkcbThresh2),    ZEROS(arkzbThresh2),    ZEROS(arkwbThresh2),
                      ZEROS(arkvbThresh2),   ZEROS(arksbInvThresh2), ZEROS(arkdbInvThresh2), ZEROS(arkcbInvThresh2),
                      ZEROS(arkzbInvThresh2)},
                     {"len<=0", "src==0", "dst==0"}};

template <class T>
struct PartOf {
    using Type = decltype(T{}.re);
};
template <class T>
requires std::is_arithmetic_v<T>
struct PartOf<T> {
    using Type = T;
};
template <class T>
using Part = typename PartOf<T>::Type;

template <class T>
constexpr bool isReal = sizeof(T) == sizeof(Part<T>);
template <class T>
constexpr bool isInteger = std::is_integral_v<Part<T>>;

template <class T>
auto partsOf(T x)
{
    return std::bit_cast<std::array<Part<T>, sizeof(T) / sizeof(Part<T>)>>(x);
}

template <class P>
P anyPart()
{
    using Limits = std::numeric_limits<P>;
    const int kind = randomInt(0, 60);
    if constexpr (std::is_integral_v<P>) {
        return kind < 5 ? P(-32768) : kind < 8 ? P(32767) : P(randomInt(-32768, 32767) >> (kind % 3 * 6));
    } else {
        const P special[]{0,
                          -P(0),
                          1,
                          -1,
                          Limits::denorm_min(),
                          -Limits::min(),
                          Limits::max(),
                          Limits::lowest(),
                          Limits::infinity(),
                          -Limits::infinity(),
                          Limits::quiet_NaN()};
        const int range = kind < 20 ? Limits::max_exponent : 4;
        return kind < 11 ? special[kind] : std::ldexp(P(randomInt(-(1 << 24), 1 << 24)), randomInt(-range, range) - 24);
    }
}

// Vectors of all short lengths and a long one.
template <class T>
std::vector<std::vector<T>> vectors(int longest = 20000)
{
    std::vector<std::vector<T>> all;
    for (int n = 1; n <= 70; n++) {
        std::vector<T>& vector = all.emplace_back(std::size_t(n < 70 ? n : longest));
        for (T& x : vector)
            if constexpr (isReal<T>)
                x = anyPart<T>();
            else
                x = {anyPart<Part<T>>(), anyPart<Part<T>>()};
    }
    return all;
}

// What form 1, form 2, and form 2 in place make of a vector; they must agree, and leave src and what lies around alone.
template <class T, class... Parameters, class... Rest>
std::vector<T> results(void (*form1)(T*, int, Parameters...), void (*form2)(const T*, T*, int, Parameters...),
                       const std::vector<T>& source, Rest... rest)
{
    Guarded<T> src(source), dst(source.size()), vec(source), both(source);
    const int n = int(source.size());
    form1(vec.data(), n, rest...);
    arkSetErrStatus(ARK_StatusOk); // a report on values would stop the next call
    form2(src.data(), dst.data(), n, rest...);
    arkSetErrStatus(ARK_StatusOk);
    form2(both.data(), both.data(), n, rest...);
    arkSetErrStatus(ARK_StatusOk);
    const auto equal = [n](const T* a, const T* b) { return std::memcmp(a, b, std::size_t(n) * sizeof(T)) == 0; };
    EXPECT_TRUE(equal(src.data(), source.data()));
    EXPECT_TRUE(equal(dst.data(), vec.data())) << n;
    EXPECT_TRUE(equal(dst.data(), both.data())) << n;
    return dst.values();
}

template <class T>
std::string text(T x)
{
    std::ostringstream out;
    for (const auto p : partsOf(x))
        out << p << ' ';
    return out.str();
}

// Each of results's three calls has made the report, or none has.
void expectReports(Reports& reports, bool any, const char* message)
{
    EXPECT_EQ(reports.messages(), std::vector<std::string>(any ? 3 : 0, message));
}

using Wide = long double;
Wide modulus(Wide re, Wide im) { return std::sqrt(re * re + im * im); } // its exponents suffice for squares of doubles

// ---- square ----

template <class T>
void expectSquares(void (*form1)(T*, int), void (*form2)(const T*, T*, int))
{
    for (const std::vector<T>& source : vectors<T>()) {
        const std::vector<T> got = results(form1, form2, source);
        for (std::size_t i = 0; i < source.size(); i++) {
            const T x = source[i];
            if constexpr (isReal<T>)
                ASSERT_TRUE(same(got[i], x * x)) << x;
            else
                ASSERT_TRUE(same(got[i].re, x.re * x.re - x.im * x.im) && same(got[i].im, x.re * x.im + x.im * x.re))
                    << text(x);
        }
    }
}

TEST(Sqr, OfFloats)
{
    expectSquares(arksbSqr1, arksbSqr2);
    expectSquares(arkdbSqr1, arkdbSqr2);
    expectSquares(arkcbSqr1, arkcbSqr2);
    expectSquares(arkzbSqr1, arkzbSqr2);
}

std::vector<std::int64_t> exactSquare(short x) { return {std::int64_t{x} * x}; }
std::vector<std::int64_t> exactSquare(ShortCplx x)
{
    const std::int64_t re = x.re, im = x.im;
    return {re * re - im * im, 2 * re * im};
}

bool fits(std::int64_t r) { return r >= -32768 && r <= 32767; }

template <class T>
void expectScaledSquares(void (*form1)(T*, int, int, int*), void (*form2)(const T*, T*, int, int, int*))
{
    for (const std::vector<T>& source : vectors<T>(100))
        for (int mode = 0; mode < 16; mode++)
            for (int given : {0, 1, 9, 17, 31, 33, -1, -9, -31, -33, INT_MAX, INT_MIN}) {
                int factor = mode & ARK_FIXED_SCALE ? given % 32 : 0;
                if (mode & ARK_AUTO_SCALE) {
                    factor = 0;
                    for (const T x : source)
                        for (const std::int64_t r : exactSquare(x))
                            while (!fits(r >> factor))
                                factor++;
                }
                const int expectedUsed = mode & ARK_AUTO_SCALE ? factor : given;
                const std::vector<T> got = results(form1, form2, source, mode, &given);
                EXPECT_EQ(given, expectedUsed);
                for (std::size_t i = 0; i < source.size(); i++)
                    for (std::size_t k = 0; k < partsOf(source[i]).size(); k++) {
                        const std::int64_t exact = exactSquare(source[i])[k];
                        const std::int64_t r = factor < 0 ? exact * (std::int64_t{1} << -factor) : exact >> factor;
                        const short stored = mode & ARK_SATURATE ? short(std::clamp<std::int64_t>(r, -32768, 32767))
                                                                 : short(std::uint16_t(r));
                        ASSERT_EQ(partsOf(got[i])[k], stored) << exact << " in mode " << mode << ", factor " << factor;
                    }
            }
}

TEST(Sqr, OfShortsInEveryMode)
{
    expectScaledSquares(arkwbSqr1, arkwbSqr2);
    expectScaledSquares(arkvbSqr1, arkvbSqr2);
    short w = 182;
    arkwbSqr1(&w, 1, ARK_SATURATE | ARK_FIXED_SCALE, nullptr); // no factor is a factor of 0
    EXPECT_EQ(w, 32767);
}

// ---- square root ----

template <class T>
void expectRealRoots(void (*form1)(T*, int), void (*form2)(const T*, T*, int))
{
    Reports reports;
    for (const std::vector<T>& source : vectors<T>()) {
        const std::vector<T> got = results(form1, form2, source);
        bool anyNegative = false;
        for (std::size_t i = 0; i < source.size(); i++) {
            const T x = source[i], y = got[i];
            anyNegative |= x < 0;
            if (x < 0)
                ASSERT_EQ(y, x);
            else if constexpr (isInteger<T>)
                ASSERT_TRUE(y >= 0 && y * y <= x && (y + 1) * (y + 1) > x) << x << ' ' << y;
            else
                ASSERT_TRUE(same(y, std::sqrt(x))) << x << ' ' << y;
        }
        expectReports(reports, anyNegative, "Element of input vector is negative");
    }
}

TEST(Sqrt, OfRealNumbers)
{
    expectRealRoots(arksbSqrt1, arksbSqrt2);
    expectRealRoots(arkdbSqrt1, arkdbSqrt2);
    expectRealRoots(arkwbSqrt1, arkwbSqrt2);
    for (int i = 0; i < 32768; i++) {
        short root = short(i);
        arkwbSqrt1(&root, 1);
        ASSERT_TRUE(root * root <= i && (root + 1) * (root + 1) > i) << i;
    }
}

template <class T>
void expectComplexRoots(void (*form1)(T*, int), void (*form2)(const T*, T*, int), double ulps)
{
    for (const std::vector<T>& source : vectors<T>()) {
        const std::vector<T> got = results(form1, form2, source);
        for (std::size_t i = 0; i < source.size(); i++) {
            const Wide re = source[i].re, im = source[i].im;
            Wide larger = std::sqrt((std::fabs(re) + modulus(re, im)) / 2);
            Wide smaller = larger == 0 ? 0 : std::fabs(im) / (2 * larger);
            if (std::isinf(im)) // as in Annex G of C
                larger = smaller = std::fabs(im);
            else if (std::isinf(re))
                larger = std::fabs(re), smaller = std::fabs(im) * 0;
            const Wide expected[]{re < 0 ? smaller : larger, std::copysign(re < 0 ? larger : smaller, im)};
            for (std::size_t k = 0; k < 2; k++)
                if constexpr (isInteger<T>)
                    ASSERT_EQ(partsOf(got[i])[k], std::lround(expected[k])) << text(source[i]);
                else
                    ASSERT_LE(ulpsOff(partsOf(got[i])[k], expected[k]), ulps) << text(source[i]) << text(got[i]);
            ASSERT_TRUE(isInteger<T> || got[i].im != 0 || std::signbit(float(got[i].im)) == std::signbit(im));
        }
    }
}

TEST(Sqrt, OfComplexNumbers)
{
    expectComplexRoots(arkcbSqrt1, arkcbSqrt2, 0.6);
    expectComplexRoots(arkzbSqrt1, arkzbSqrt2, 2.0);
    expectComplexRoots(arkvbSqrt1, arkvbSqrt2, 0);
}

// ---- absolute value ----

template <class T>
void expectAbsoluteValues(void (*form1)(T*, int), void (*form2)(const T*, T*, int))
{
    for (const std::vector<T>& source : vectors<T>()) {
        const std::vector<T> got = results(form1, form2, source);
        for (std::size_t i = 0; i < source.size(); i++)
            ASSERT_TRUE(same(got[i], T(std::fmin(std::fabs(source[i]), isInteger<T> ? 32767 : INFINITY))) ||
                        source[i] != source[i])
                << source[i];
    }
}

TEST(Abs, OfAllTypes)
{
    expectAbsoluteValues(arksbAbs1, arksbAbs2);
    expectAbsoluteValues(arkdbAbs1, arkdbAbs2);
    expectAbsoluteValues(arkwbAbs1, arkwbAbs2);
}

// ---- thresholds ----

template <class T>
std::vector<Part<T>> levels()
{
    using P = Part<T>;
    using Limits = std::numeric_limits<P>;
    std::vector<P> all{0, 1, 100, 5000, 32767};
    if constexpr (!isInteger<T>)
        all = {0, P(0.75), 1, P(12345.678), P(1e-30), Limits::denorm_min(), Limits::max(), Limits::quiet_NaN()};
    if constexpr (isReal<T>)
        for (std::size_t i = all.size(); i-- > 0;)
            all.push_back(P(-all[i]));
    return all;
}

// Parts of complex results: nearest integers, or 5 ulps. One far below the other part of its element need not be
// precise.
template <class T>
void expectParts(T x, T got, Wide re, Wide im)
{
    const Wide expected[]{re, im}, size = modulus(re, im);
    for (std::size_t k = 0; k < 2; k++)
        if constexpr (isInteger<T>) {
            ASSERT_EQ(partsOf(got)[k], std::lround(expected[k])) << text(x);
        } else {
            const bool small = std::fabs(expected[k]) < size * std::numeric_limits<Part<T>>::epsilon();
            ASSERT_TRUE(small || ulpsOff(partsOf(got)[k], expected[k]) <= 5) << text(x) << text(got);
        }
}

template <class T>
void expectLimited(T x, T got, Part<T> level, int relOp)
{
    if constexpr (isReal<T>) {
        ASSERT_TRUE(same(got, (relOp == ARK_LT ? x < level : x > level) ? level : x)) << x << ' ' << level;
    } else {
        const Wide m = modulus(x.re, x.im);
        if (!(relOp == ARK_LT ? m < level : m > level)) {
            ASSERT_TRUE(same(got.re, x.re) && same(got.im, x.im)) << text(x) << level;
            return;
        }
        const auto finite = [](Wide p) { // infinite parts count as the largest finite number
            const Wide most = isInteger<T> ? 32768 : std::numeric_limits<Part<T>>::max();
            return std::clamp(p, -most, most);
        };
        const Wide re = finite(x.re), im = finite(x.im), factor = level / modulus(re, im);
        expectParts<T>(x, got, m == 0 ? Wide(level) : re * factor, m == 0 ? 0 : im * factor);
    }
}

template <class T, class P>
void expectLimits(void (*form1)(T*, int, P, int), void (*form2)(const T*, T*, int, P, int))
{
    for (const std::vector<T>& source : vectors<T>(2000))
        for (const P level : levels<T>())
            for (const int relOp : {int{ARK_LT}, int{ARK_GT}, -7}) {
                const std::vector<T> got = results(form1, form2, source, level, relOp);
                for (std::size_t i = 0; i < source.size(); i++)
                    ASSERT_NO_FATAL_FAILURE(expectLimited<T>(source[i], got[i], level, relOp)) << level << ' ' << relOp;
            }
}

TEST(Thresh, OfAllTypes)
{
    expectLimits(arksbThresh1, arksbThresh2);
    expectLimits(arkdbThresh1, arkdbThresh2);
    expectLimits(arkwbThresh1, arkwbThresh2);
    expectLimits(arkcbThresh1, arkcbThresh2);
    expectLimits(arkzbThresh1, arkzbThresh2);
    expectLimits(arkvbThresh1, arkvbThresh2);
}

template <class T>
void expectInverse(T x, T got, Part<T> level)
{
    const Part<T> most = std::numeric_limits<Part<T>>::max();
    if constexpr (isReal<T>) {
        const T limited = std::fabs(x) <= level ? std::copysign(level, x) : x;
        ASSERT_TRUE(same(got, level != level ? level : x == 0 && level == 0 ? most : 1 / limited)) << x << ' ' << got;
    } else {
        const Wide re = x.re, im = x.im, m = modulus(re, im), divisor = m > level ? m * m : m * level;
        if (m == 0)
            expectParts<T>(x, got, level == 0 ? Wide(most) : 1 / Wide(level), 0);
        else if (std::isinf(m))
            expectParts<T>(x, got, std::copysign(0.0L, re), -std::copysign(0.0L, im));
        else
            expectParts<T>(x, got, re / divisor, -im / divisor);
    }
}

template <class T, class P>
void expectInverses(void (*form1)(T*, int, P), void (*form2)(const T*, T*, int, P))
{
    Reports reports;
    for (const std::vector<T>& source : vectors<T>(2000))
        for (const P level : levels<T>()) {
            if (level < 0)
                continue;
            const std::vector<T> got = results(form1, form2, source, level);
            bool anyZero = false;
            for (std::size_t i = 0; i < source.size(); i++) {
                ASSERT_NO_FATAL_FAILURE(expectInverse<T>(source[i], got[i], level)) << level;
                anyZero |= partsOf(source[i]).front() == 0 && partsOf(source[i]).back() == 0;
            }
            expectReports(reports, level == 0 && anyZero, "zero element and zero thresh");
        }
}

TEST(InvThresh, OfAllTypes)
{
    expectInverses(arksbInvThresh1, arksbInvThresh2);
    expectInverses(arkdbInvThresh1, arkdbInvThresh2);
    expectInverses(arkcbInvThresh1, arkcbInvThresh2);
    expectInverses(arkzbInvThresh1, arkzbInvThresh2);
}

// Moderate and extreme elements are computed in different ways, side by side in one register: that must not show.
template <class T, class... Parameters>
void expectSameAlone(void (*form2)(const T*, T*, int, Parameters...), Parameters... parameters)
{
    for (const std::vector<T>& source : vectors<T>(500)) {
        std::vector<T> together(source.size());
        form2(source.data(), together.data(), int(source.size()), parameters...);
        for (std::size_t i = 0; i < source.size(); i++) {
            T alone;
            form2(&source[i], &alone, 1, parameters...);
            ASSERT_EQ(std::memcmp(&alone, &together[i], sizeof alone), 0) << text(source[i]) << text(alone);
        }
    }
}

TEST(Thresholds, OfComplexNumbersDoNotDependOnTheirNeighbours)
{
    for (const float level : {0.75f, 1e-30f, 1e30f}) {
        expectSameAlone<FloatCplx>(arkcbThresh2, level, int{ARK_GT});
        expectSameAlone<FloatCplx>(arkcbThresh2, level, int{ARK_LT});
        expectSameAlone<FloatCplx>(arkcbInvThresh2, level);
    }
    for (const double level : {0.75, 1e-300, 1e300}) {
        expectSameAlone<DoubleCplx>(arkzbThresh2, level, int{ARK_GT});
        expectSameAlone<DoubleCplx>(arkzbThresh2, level, int{ARK_LT});
        expectSameAlone<DoubleCplx>(arkzbInvThresh2, level);
    }
}

// Each call reports once, in a line that is not that of the checks of its arguments, and leaves its operand.
TEST(ElementWiseReports, OfValues)
{
    Reports reports;
    float s = -7;
    double d = -7;
    FloatCplx c{-7, 8};
    DoubleCplx z{-7, 8};
    short w = -7;
    ShortCplx v{-7, 8};
    struct {
        const char *function, *message;
        std::function<void(int n)> call;
    } const rows[]{
        // clang-format off
        {"arkcbThresh1", "thresh<0.0f", [&](int n) { arkcbThresh1(&c, n, -1, ARK_GT); }},
        {"arkcbThresh2", "thresh<0.0f", [&](int n) { arkcbThresh2(&c, &c, n, -1, ARK_GT); }},
        {"arkzbThresh1", "thresh<0.0", [&](int n) { arkzbThresh1(&z, n, -1, ARK_GT); }},
        {"arkzbThresh2", "thresh<0.0", [&](int n) { arkzbThresh2(&z, &z, n, -1, ARK_GT); }},
        {"arkvbThresh1", "thresh<0", [&](int n) { arkvbThresh1(&v, n, -1, ARK_GT); }},
        {"arkvbThresh2", "thresh<0", [&](int n) { arkvbThresh2(&v, &v, n, -1, ARK_GT); }},
        {"arksbInvThresh1", "thresh<0.0f", [&](int n) { arksbInvThresh1(&s, n, -1); }},
        {"arksbInvThresh2", "thresh<0.0f", [&](int n) { arksbInvThresh2(&s, &s, n, -1); }},
        {"arkdbInvThresh1", "thresh<0.0", [&](int n) { arkdbInvThresh1(&d, n, -1); }},
        {"arkdbInvThresh2", "thresh<0.0", [&](int n) { arkdbInvThresh2(&d, &d, n, -1); }},
        {"arkcbInvThresh1", "thresh<0.0f", [&](int n) { arkcbInvThresh1(&c, n, -1); }},
        {"arkcbInvThresh2", "thresh<0.0f", [&](int n) { arkcbInvThresh2(&c, &c, n, -1); }},
        {"arkzbInvThresh1", "thresh<0.0", [&](int n) { arkzbInvThresh1(&z, n, -1); }},
        {"arkzbInvThresh2", "thresh<0.0f", [&](int n) { arkzbInvThresh2(&z, &z, n, -1); }},
        {"arkwbSqr1", "scaleFactor==0", [&](int n) { arkwbSqr1(&w, n, ARK_AUTO_SCALE | ARK_FIXED_SCALE, nullptr); }},
        {"arkwbSqr2", "scaleFactor==0", [&](int n) { arkwbSqr2(&w, &w, n, ARK_AUTO_SCALE | ARK_FIXED_SCALE, nullptr); }},
        {"arkvbSqr1", "scaleFactor==0", [&](int n) { arkvbSqr1(&v, n, ARK_AUTO_SCALE | ARK_FIXED_SCALE, nullptr); }},
        {"arkvbSqr2", "scaleFactor==0", [&](int n) { arkvbSqr2(&v, &v, n, ARK_AUTO_SCALE | ARK_FIXED_SCALE, nullptr); }},
        {"arksbSqrt1", "Element of input vector is negative", [&](int n) { arksbSqrt1(&s, n); }},
        {"arksbSqrt2", "Element of input vector is negative", [&](int n) { arksbSqrt2(&s, &s, n); }},
        {"arkdbSqrt1", "Element of input vector is negative", [&](int n) { arkdbSqrt1(&d, n); }},
        {"arkdbSqrt2", "Element of input vector is negative", [&](int n) { arkdbSqrt2(&d, &d, n); }},
        {"arkwbSqrt1", "Element of input vector is negative", [&](int n) { arkwbSqrt1(&w, n); }},
        {"arkwbSqrt2", "Element of input vector is negative", [&](int n) { arkwbSqrt2(&w, &w, n); }},
        // clang-format on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.function);
        row.call(0);
        const std::vector<Report> ofArguments = reports.take();
        row.call(1);
        const std::vector<Report> ofValues = reports.take();
        ASSERT_EQ(ofArguments.size(), 1u);
        ASSERT_EQ(ofValues.size(), 1u);
        EXPECT_EQ(ofValues[0].status, ARK_StatusBadArgument);
        EXPECT_EQ(ofValues[0].function, row.function);
        EXPECT_EQ(ofValues[0].message, row.message);
        EXPECT_EQ(ofValues[0].module, "arkvec");
        EXPECT_NE(ofValues[0].line, ofArguments[0].line);
        arkSetErrStatus(ARK_StatusOutOfMemory);
        row.call(1);
        EXPECT_TRUE(reports.take().empty()) << "nothing is looked at after a failure";
    }
    EXPECT_TRUE(s == -7 && d == -7 && c.re == -7 && c.im == 8 && z.re == -7 && z.im == 8 && w == -7 && v.re == -7 &&
                v.im == 8);

    arkcbThresh1(&c, 1, -0.0f, ARK_LT);
    arksbInvThresh1(&s, 1, std::numeric_limits<float>::quiet_NaN());
    EXPECT_TRUE(reports.take().empty()) << "neither level is negative";
}

} // namespace
