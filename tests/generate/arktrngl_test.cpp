#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {

const BadCalls ofAll{"arktrngl",
                     {ZEROS(arksTrnglInit), ZEROS(arkdTrnglInit), ZEROS(arkcTrnglInit), ZEROS(arkzTrnglInit),
                      ZEROS(arkwTrnglInit), ZEROS(arkvTrnglInit), ZEROS(arksTrngl), ZEROS(arkdTrngl), ZEROS(arkcTrngl),
                      ZEROS(arkzTrngl), ZEROS(arkwTrngl), ZEROS(arkvTrngl), ZEROS(arksbTrngl), ZEROS(arkdbTrngl),
                      ZEROS(arkcbTrngl), ZEROS(arkzbTrngl), ZEROS(arkwbTrngl), ZEROS(arkvbTrngl)},
                     {"Null pointer to state"}};

template <class Element, class Record, class R, class M, void (*initFunction)(R, R, M, R, Record*),
          Element (*oneFunction)(Record*), void (*blockFunction)(Record*, Element*, int)>
struct Family {
    using T = Element;
    using State = Record;
    using Real = R;
    using Magnitude = M;
    static constexpr auto init = initFunction;
    static constexpr auto one = oneFunction;
    static constexpr auto block = blockFunction;
};
template <class F>
class Triangle : public testing::Test {};
using Families =
    testing::Types<Family<float, ArksTrnglState, float, float, arksTrnglInit, arksTrngl, arksbTrngl>,
                   Family<double, ArkdTrnglState, double, double, arkdTrnglInit, arkdTrngl, arkdbTrngl>,
                   Family<FloatCplx, ArkcTrnglState, float, float, arkcTrnglInit, arkcTrngl, arkcbTrngl>,
                   Family<DoubleCplx, ArkzTrnglState, double, double, arkzTrnglInit, arkzTrngl, arkzbTrngl>,
                   Family<short, ArksTrnglState, float, short, arkwTrnglInit, arkwTrngl, arkwbTrngl>,
                   Family<ShortCplx, ArkcTrnglState, float, short, arkvTrnglInit, arkvTrngl, arkvbTrngl>>;
TYPED_TEST_SUITE(Triangle, Families);

constexpr double pi = 3.141592653589793, twoPi = 6.283185307179586;

double wave(double t, double asym)
{
    const double u = pi + asym;
    t -= twoPi * std::floor(t / twoPi);
    return t < u ? 1 - 2 * t / u : 2 * (t - u) / (twoPi - u) - 1;
}

template <class T>
std::vector<double> partsOf(T x)
{
    if constexpr (std::is_arithmetic_v<T>)
        return {double(x)};
    else
        return {double(x.re), double(x.im)};
}

TYPED_TEST(Triangle, FollowsTheClosedForm)
{
    using T = typename TypeParam::T;
    using Real = typename TypeParam::Real;
    for (const double asym : {0.0, 1.0, -2.5, 3.1, -3.1})
        for (const double frequency : {0.0, 0.001, 0.01234, 0.25, 0.4321, 0.4999}) {
            const Real a = Real(asym), f = Real(frequency), phase = Real(randomInt(0, 6282) * 0.001);
            const auto mag = typename TypeParam::Magnitude(randomInt(100, 30000));
            typename TypeParam::State state;
            TypeParam::init(f, phase, mag, a, &state);
            const double narrow = pi - std::fabs(double(a)), wide = pi + std::fabs(double(a)),
                         steepest = 2 * mag / narrow,
                         rounding = std::is_integral_v<typename TypeParam::Magnitude> ? 0.5 : 0;
            for (int n = 0, call = 0; n < 3000; call++) {
                const int length = call % 2 ? randomInt(2, 300) : 1;
                Guarded<T> out{std::size_t(length)};
                if (length == 1)
                    out[0] = TypeParam::one(&state);
                else
                    TypeParam::block(&state, out.data(), length);
                for (int i = 0; i < length; i++, n++) {
                    const double t = phase + twoPi * f * n, angles[] = {t, t + (pi + a + twoPi) / 2};
                    const std::vector<double> got = partsOf(out[std::size_t(i)]);
                    for (std::size_t part = 0; part < got.size(); part++) {
                        // A rounding error of value and step a sample, which turning into the steeper line makes larger
                        // by the ratio of the slopes; the angle of the imaginary part is off by what 2 pi as a float is
                        // off.
                        const double tolerance = rounding + steepest * 2e-7 +
                                                 (n + 4) * double(std::numeric_limits<Real>::epsilon()) * 2 *
                                                     (mag * wide / narrow + steepest);
                        ASSERT_NEAR(got[part], mag * wave(angles[part], a), tolerance)
                            << "sample " << n << ", part " << part << " at " << f << ", asymmetry " << a;
                    }
                }
            }
        }
}

TYPED_TEST(Triangle, SamplesDoNotDependOnHowTheyAreCutIntoBlocks)
{
    using T = typename TypeParam::T;
    using Real = typename TypeParam::Real;
    for (int run = 0; run < 60; run++) {
        const Real f = Real(0.499 * std::pow(0.5, randomInt(0, 20))), phase = Real(randomInt(0, 6282) * 0.001),
                   asym = Real(randomInt(-3100, 3100) * 0.001);
        typename TypeParam::State state, oneByOne;
        TypeParam::init(f, phase, typename TypeParam::Magnitude(randomInt(1, 32767)), asym, &state);
        oneByOne = state;
        for (int n = 0; n < 3000;) {
            Guarded<T> out{std::size_t(randomInt(2, run % 2 ? 20 : 1000))};
            TypeParam::block(&state, out.data(), int(out.values().size()));
            for (const T sample : out.values()) {
                T expected;
                TypeParam::block(&oneByOne, &expected, 1);
                ASSERT_EQ(partsOf(sample), partsOf(expected))
                    << "sample " << n << " at " << f << ", asymmetry " << asym;
                n++;
            }
        }
    }
}

TYPED_TEST(Triangle, TurnsExactlyWhereNothingIsRounded)
{
    typename TypeParam::State state;
    TypeParam::init(0.25f, 0, 100, 0, &state);
    for (const double expected : {100, 0, -100, 0, 100, 0, -100})
        EXPECT_NEAR(partsOf(TypeParam::one(&state))[0], expected, 1e-4);
}

TYPED_TEST(Triangle, StopsAtTheFirstFailedCheck)
{
    using Real = typename TypeParam::Real;
    typename TypeParam::T out[1] = {};
    typename TypeParam::State state;
    Reports reports;
    arkSetErrStatus(ARK_StatusOutOfMemory); // which stops nothing
    TypeParam::init(-0.0f, -0.0f, 100, 0, &state);
    EXPECT_EQ(partsOf(TypeParam::one(&state))[0], 100);
    TypeParam::init(0.5f, Real(twoPi), -1, Real(pi), nullptr);
    TypeParam::init(0.5f, Real(twoPi), 1, Real(pi), nullptr);
    TypeParam::init(0.25f, Real(twoPi), 1, Real(pi), nullptr);
    TypeParam::init(0.25f, 0, 1, Real(pi), nullptr);
    TypeParam::init(0.25f, 0, 1, Real(-pi), nullptr);
    TypeParam::block(&state, nullptr, 0);
    TypeParam::block(&state, out, 0);
    EXPECT_EQ(reports.messages(),
              (std::vector<std::string>{"Invalid magnitude value", "Invalid frequence value", "Invalid phase value",
                                        "Invalid asymmetry value", "Invalid asymmetry value", "Null pointer to buffer",
                                        "Invalid number of items"}));
}

TEST(ShortTriangle, RoundsToNearestEven)
{
    ArksTrnglState state;
    arkwTrnglInit(0, 0, 1000, 0, &state);
    for (const auto& [value, expected] : {std::pair{2.5f, 2}, {3.5f, 4}, {-2.5f, -2}, {-0.75f, -1}}) {
        short sample = 0;
        state.value = value;
        arkwbTrngl(&state, &sample, 1);
        EXPECT_EQ(sample, expected);
        EXPECT_EQ(arkwTrngl(&state), expected);
    }
}

} // namespace
