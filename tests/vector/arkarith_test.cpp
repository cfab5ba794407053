#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstring>

namespace {

const BadCalls ofDst{"arkarith",
                     {ZEROS(arksbZero), ZEROS(arkdbZero), ZEROS(arkcbZero), ZEROS(arkzbZero), ZEROS(arksbSet),
                      ZEROS(arkdbSet),  ZEROS(arkcbSet),  ZEROS(arkzbSet),  ZEROS(arksbAdd1), ZEROS(arkdbAdd1),
                      ZEROS(arkcbAdd1), ZEROS(arkzbAdd1), ZEROS(arksbSub1), ZEROS(arkdbSub1), ZEROS(arkcbSub1),
                      ZEROS(arkzbSub1), ZEROS(arksbMpy1), ZEROS(arkdbMpy1), ZEROS(arkcbMpy1), ZEROS(arkzbMpy1)},
                     {"n<=0", "dst==0"}};
const BadCalls ofSrc{"arkarith",
                     {ZEROS(arksbCopy), ZEROS(arkdbCopy), ZEROS(arkcbCopy), ZEROS(arkzbCopy), ZEROS(arksbAdd2),
                      ZEROS(arkdbAdd2), ZEROS(arkcbAdd2), ZEROS(arkzbAdd2), ZEROS(arksbMpy2), ZEROS(arkdbMpy2),
                      ZEROS(arkcbMpy2), ZEROS(arkzbMpy2), ZEROS(arkcbConj2), ZEROS(arkzbConj2), ZEROS(arkcbConjFlip2),
                      ZEROS(arkzbConjFlip2), ZEROS(arkcbConjExtend2), ZEROS(arkzbConjExtend2)},
                     {"n<=0", "src==0", "dst==0"}};
const BadCalls ofSources{"arkarith",
                         {ZEROS(arksbAdd3), ZEROS(arkdbAdd3), ZEROS(arkcbAdd3), ZEROS(arkzbAdd3), ZEROS(arksbMpy3),
                          ZEROS(arkdbMpy3), ZEROS(arkcbMpy3), ZEROS(arkzbMpy3)},
                         {"n<=0", "srcA==0", "srcB==0", "dst==0"}};
const BadCalls ofSub2{
    "arkarith", {ZEROS(arksbSub2), ZEROS(arkdbSub2), ZEROS(arkcbSub2), ZEROS(arkzbSub2)}, {"n<=0", "val==0", "dst==0"}};
const BadCalls ofSub3{"arkarith",
                      {ZEROS(arksbSub3), ZEROS(arkdbSub3), ZEROS(arkcbSub3), ZEROS(arkzbSub3)},
                      {"n<=0", "src==0", "val==0", "dst==0"}};
const BadCalls ofVec{"arkarith",
                     {ZEROS(arkcbConj1), ZEROS(arkzbConj1), ZEROS(arkcbConjExtend1), ZEROS(arkzbConjExtend1)},
                     {"n<=0", "vec==0"}};
const BadCalls ofDiv{"arkarith", {ZEROS(arkcDiv), ZEROS(arkzDiv)}, {"(b.re==0.0)&&(b.im==0.0)"}};
const NoBadCalls never{"arkcAdd", "arkzAdd",  "arkcSub",  "arkzSub", "arkcMpy",
                       "arkzMpy", "arkcConj", "arkzConj", "arkcSet", "arkzSet"};

// One type's members.
template <class T>
struct Forms {
    void (*form1)(T, T*, int);
    void (*form2)(const T*, T*, int);
    void (*form3)(const T*, const T*, T*, int);
    T (*model)(T, T);
};

template <class T>
struct Members {
    void (*zero)(T*, int);
    void (*set)(T, T*, int);
    void (*copy)(const T*, T*, int);
    Forms<T> forms[3];
};

template <class T>
struct Conjugations {
    void (*conj1)(T*, int);
    void (*conj2)(const T*, T*, int);
    void (*flip2)(const T*, T*, int);
    void (*extend1)(T*, int);
    void (*extend2)(const T*, T*, int);
};

// The element types' own arithmetic. Floats in double: sums and products of floats rounded twice come out as if once.
float plus(float a, float b) { return float(double(a) + double(b)); }
float minus(float a, float b) { return float(double(a) - double(b)); }
float times(float a, float b) { return float(double(a) * double(b)); }
double plus(double a, double b) { return a + b; }
double minus(double a, double b) { return a - b; }
double times(double a, double b) { return a * b; }

template <class T>
T sumModel(T a, T b)
{
    if constexpr (requires { a.re; })
        return {plus(a.re, b.re), plus(a.im, b.im)};
    else
        return plus(a, b);
}
template <class T>
T differenceModel(T a, T b)
{
    if constexpr (requires { a.re; })
        return {minus(a.re, b.re), minus(a.im, b.im)};
    else
        return minus(a, b);
}
template <class T>
T productModel(T a, T b)
{
    if constexpr (requires { a.re; })
        return {minus(times(a.re, b.re), times(a.im, b.im)), plus(times(a.re, b.im), times(a.im, b.re))};
    else
        return times(a, b);
}

// clang-format off
#define MEMBERS(T, t)                                                           \
    Members<T>{ark##t##bZero, ark##t##bSet, ark##t##bCopy,                      \
               {{ark##t##bAdd1, ark##t##bAdd2, ark##t##bAdd3, sumModel},        \
                {ark##t##bSub1, ark##t##bSub2, ark##t##bSub3, differenceModel}, \
                {ark##t##bMpy1, ark##t##bMpy2, ark##t##bMpy3, productModel}}}
// clang-format on

template <class T>
Members<T> members();
template <>
Members<float> members()
{
    return MEMBERS(float, s);
}
template <>
Members<double> members()
{
    return MEMBERS(double, d);
}
template <>
Members<FloatCplx> members()
{
    return MEMBERS(FloatCplx, c);
}
template <>
Members<DoubleCplx> members()
{
    return MEMBERS(DoubleCplx, z);
}

template <class T>
bool sameBits(const std::vector<T>& a, const std::vector<T>& b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0;
}

// Numbers of all magnitudes, with zeros of both signs and denormal ones among them.
template <class Real>
Real anyReal()
{
    switch (randomInt(0, 15)) {
    case 0: return Real(0);
    case 1: return -Real(0);
    case 2: return std::numeric_limits<Real>::denorm_min() * Real(randomInt(1, 1000));
    default: return std::ldexp(Real(randomInt(-1000000, 1000000)), randomInt(-30, 30));
    }
}

template <class T>
T anyElement()
{
    if constexpr (requires(T x) { x.re; })
        return {anyReal<decltype(T{}.re)>(), anyReal<decltype(T{}.re)>()};
    else
        return anyReal<T>();
}

template <class T>
std::vector<T> anyVector(int n)
{
    std::vector<T> values(std::size_t(n), T{});
    for (T& value : values)
        value = anyElement<T>();
    return values;
}

// From one element to beyond four of the widest registers, and some that are long.
std::vector<int> lengths()
{
    std::vector<int> all{127, 128, 129, 1003};
    for (int n = 1; n <= 70; n++)
        all.push_back(n);
    return all;
}

template <class T>
class Arithmetic : public testing::Test {};
using FloatingTypes = testing::Types<float, double, FloatCplx, DoubleCplx>;
TYPED_TEST_SUITE(Arithmetic, FloatingTypes);

TYPED_TEST(Arithmetic, EqualsTheElementTypesOwn)
{
    using T = TypeParam;
    for (const int n : lengths())
        for (const Forms<T>& forms : members<T>().forms) {
            const std::vector<T> a = anyVector<T>(n), b = anyVector<T>(n);
            const T value = anyElement<T>();
            std::vector<T> ofVectors, ofValue;
            for (std::size_t i = 0; i < a.size(); i++) {
                ofVectors.push_back(forms.model(a[i], b[i]));
                ofValue.push_back(forms.model(a[i], value));
            }
            Guarded<T> srcA(a), srcB(b), dst(a.size());
            forms.form3(srcA.data(), srcB.data(), dst.data(), n);
            EXPECT_TRUE(sameBits(dst.values(), ofVectors)) << "form 3, n = " << n;
            EXPECT_TRUE(sameBits(srcA.values(), a) && sameBits(srcB.values(), b));

            Guarded<T> inPlace(a);
            forms.form2(srcB.data(), inPlace.data(), n);
            EXPECT_TRUE(sameBits(inPlace.values(), ofVectors)) << "form 2, n = " << n;

            forms.form1(value, srcA.data(), n);
            EXPECT_TRUE(sameBits(srcA.values(), ofValue)) << "form 1, n = " << n;

            Guarded<T> first(a), second(b);
            forms.form3(first.data(), second.data(), second.data(), n);
            EXPECT_TRUE(sameBits(second.values(), ofVectors)) << "form 3 into srcB, n = " << n;
        }
}

TYPED_TEST(Arithmetic, RunsFromTheLastElementToTheFirst)
{
    using T = TypeParam;
    for (const int n : lengths())
        for (const int shift : {1, 3})
            for (const Forms<T>& forms : members<T>().forms) {
                const std::vector<T> start = anyVector<T>(n + shift), other = anyVector<T>(n);
                std::vector<T> expected3 = start, expected2 = start;
                for (int i = 0; i < n; i++) {
                    expected3[std::size_t(i + shift)] = forms.model(start[std::size_t(i)], other[std::size_t(i)]);
                    expected2[std::size_t(i + shift)] =
                        forms.model(start[std::size_t(i + shift)], start[std::size_t(i)]);
                }
                std::vector<T> vec = start;
                forms.form3(vec.data(), other.data(), vec.data() + shift, n);
                EXPECT_TRUE(sameBits(vec, expected3)) << "form 3, n = " << n;
                vec = start;
                forms.form2(vec.data(), vec.data() + shift, n);
                EXPECT_TRUE(sameBits(vec, expected2)) << "form 2, n = " << n;
            }
}

TYPED_TEST(Arithmetic, ZeroSetCopy)
{
    using T = TypeParam;
    const Members<T> member = members<T>();
    for (const int n : lengths()) {
        const std::vector<T> source = anyVector<T>(n);
        const T value = anyElement<T>();
        Guarded<T> src(source), dst(source.size());
        member.copy(src.data(), dst.data(), n);
        EXPECT_TRUE(sameBits(dst.values(), source));
        member.set(value, dst.data(), n);
        EXPECT_TRUE(sameBits(dst.values(), std::vector<T>(source.size(), value))) << "n = " << n;
        member.zero(dst.data(), n);
        EXPECT_TRUE(sameBits(dst.values(), std::vector<T>(source.size(), T{})));

        std::vector<T> moved = source, shifted(source.begin(), source.end() - 1);
        shifted.insert(shifted.begin(), source[0]);
        if (n > 1)
            member.copy(moved.data(), moved.data() + 1, n - 1);
        EXPECT_TRUE(sameBits(moved, shifted)) << "n = " << n;
    }
}

TYPED_TEST(Arithmetic, DoesNothingUnderABadStatus)
{
    using T = TypeParam;
    Reports reports;
    const std::vector<T> start = anyVector<T>(5);
    std::vector<T> vec = start;
    for (const Forms<T>& forms : members<T>().forms) {
        forms.form1(start[0], vec.data(), 0);
        EXPECT_EQ(arkGetErrStatus(), ARK_StatusBadArgument);
        forms.form1(start[1], vec.data(), 5); // good, but the earlier failure is still recorded
        forms.form2(start.data(), vec.data(), 5);
        forms.form3(start.data(), start.data(), vec.data(), 5);
        members<T>().zero(vec.data(), 5);
        EXPECT_EQ(reports.messages(), std::vector<std::string>{"n<=0"});
        EXPECT_TRUE(sameBits(vec, start));
    }
}

template <class T>
Conjugations<T> conjugations();
template <>
Conjugations<FloatCplx> conjugations()
{
    return {arkcbConj1, arkcbConj2, arkcbConjFlip2, arkcbConjExtend1, arkcbConjExtend2};
}
template <>
Conjugations<DoubleCplx> conjugations()
{
    return {arkzbConj1, arkzbConj2, arkzbConjFlip2, arkzbConjExtend1, arkzbConjExtend2};
}
template <>
Conjugations<ShortCplx> conjugations()
{
    return {arkvbConj1, arkvbConj2, arkvbConjFlip2, arkvbConjExtend1, arkvbConjExtend2};
}
template <>
ShortCplx anyElement()
{
    return {short(randomInt(-32768, 32767)), short(randomInt(0, 9) ? randomInt(-32768, 32767) : -32768)};
}

template <class T>
class Conjugation : public testing::Test {};
using ComplexTypes = testing::Types<FloatCplx, DoubleCplx, ShortCplx>;
TYPED_TEST_SUITE(Conjugation, ComplexTypes);

TYPED_TEST(Conjugation, OfAllForms)
{
    using T = TypeParam;
    const Conjugations<T> member = conjugations<T>();
    for (const int n : lengths()) {
        SCOPED_TRACE(n);
        const std::vector<T> source = anyVector<T>(n);
        std::vector<T> conjugated = source;
        for (T& element : conjugated)
            element.im = decltype(element.im)(-element.im); // -32768 stays -32768 in 16 bits
        const std::vector<T> flipped(conjugated.rbegin(), conjugated.rend());
        std::vector<T> extended = source;
        const int even = n % 2 ? n - 1 : n;
        for (int j = 0; j < even; j++)
            extended.push_back(conjugated[std::size_t(even - 1 - j)]);

        Guarded<T> src(source), dst(source.size()), inPlace(source), mirrored(source);
        member.conj2(src.data(), dst.data(), n);
        EXPECT_TRUE(sameBits(dst.values(), conjugated));
        member.conj1(inPlace.data(), n);
        EXPECT_TRUE(sameBits(inPlace.values(), conjugated));
        member.flip2(src.data(), dst.data(), n);
        EXPECT_TRUE(sameBits(dst.values(), flipped));
        member.flip2(mirrored.data(), mirrored.data(), n);
        EXPECT_TRUE(sameBits(mirrored.values(), flipped));

        Guarded<T> room(extended.size()), other(extended.size());
        std::copy(source.begin(), source.end(), room.begin());
        member.extend1(room.data(), n);
        EXPECT_TRUE(sameBits(room.values(), extended));
        member.extend2(src.data(), other.data(), n);
        EXPECT_TRUE(sameBits(other.values(), extended));
        member.extend2(room.data(), room.data(), n);
        EXPECT_TRUE(sameBits(room.values(), extended));
    }
}

TEST(SingleValues, OfComplexNumbers)
{
    const FloatCplx a{3, 4}, b{1, -2};
    const auto isC = [](FloatCplx z, float re, float im) { return z.re == re && z.im == im; };
    EXPECT_TRUE(isC(arkcAdd(a, b), 4, 2));
    EXPECT_TRUE(isC(arkcSub(a, b), 2, 6));
    EXPECT_TRUE(isC(arkcMpy(a, b), 11, -2));
    EXPECT_TRUE(isC(arkcDiv(a, b), -1, 2));
    EXPECT_TRUE(isC(arkcConj(a), 3, -4));
    EXPECT_TRUE(isC(arkcSet(5, 6), 5, 6));
    const DoubleCplx y{3, 4}, z{1, -2};
    const auto isZ = [](DoubleCplx w, double re, double im) { return w.re == re && w.im == im; };
    EXPECT_TRUE(isZ(arkzAdd(y, z), 4, 2));
    EXPECT_TRUE(isZ(arkzSub(y, z), 2, 6));
    EXPECT_TRUE(isZ(arkzMpy(y, z), 11, -2));
    EXPECT_TRUE(isZ(arkzDiv(y, z), -1, 2));
    EXPECT_TRUE(isZ(arkzConj(y), 3, -4));
    EXPECT_TRUE(isZ(arkzSet(5, 6), 5, 6));
    // In double inside: neither the squares nor the quotient's intermediates leave the range of float.
    EXPECT_TRUE(isC(arkcDiv({3e30f, 0}, {0, 3e30f}), 0, -1));
}

TEST(SingleValues, DivisionByZeroOfEitherSign)
{
    Reports reports;
    arkSetErrStatus(ARK_StatusNoConvergence); // which single-value operations do not look at
    EXPECT_EQ(arkcDiv({4, 2}, {2, 0}).re, 2);
    for (const float zero : {0.0f, -0.0f}) {
        const FloatCplx c = arkcDiv({1, 1}, {zero, 0});
        const DoubleCplx z = arkzDiv({1, 1}, {0, double(zero)});
        EXPECT_TRUE(c.re == 0 && c.im == 0 && z.re == 0 && z.im == 0);
        EXPECT_EQ(reports.messages(), std::vector<std::string>(2, "(b.re==0.0)&&(b.im==0.0)"));
    }
}

} // namespace
