// The Goertzel recurrence.
#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"
#include "support/to_short.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>
#include <string>

namespace {

using Messages = std::vector<std::string>;

const BadCalls ofGoertz{"arkgrtzl",
                        {ZEROS(arksGoertzInit), ZEROS(arkdGoertzInit), ZEROS(arkcGoertzInit), ZEROS(arkzGoertzInit),
                         ZEROS(arksGoertzReset), ZEROS(arkdGoertzReset), ZEROS(arkcGoertzReset), ZEROS(arkzGoertzReset),
                         ZEROS(arksGoertz), ZEROS(arkdGoertz), ZEROS(arkcGoertz), ZEROS(arkzGoertz), ZEROS(arksbGoertz),
                         ZEROS(arkdbGoertz), ZEROS(arkcbGoertz), ZEROS(arkzbGoertz)},
                        {"Null state pointer"}};
const BadCalls ofShortGoertz{"arkgrtzw",
                             {ZEROS(arkwGoertzInit), ZEROS(arkvGoertzInit), ZEROS(arkwGoertzReset),
                              ZEROS(arkvGoertzReset), ZEROS(arkwGoertz), ZEROS(arkvGoertz), ZEROS(arkwbGoertz),
                              ZEROS(arkvbGoertz)},
                             {"Null state pointer"}};

static_assert(offsetof(ArksGoertzState, s2) == 16 && offsetof(ArksGoertzState, s1) == 24);
static_assert(sizeof(ArksGoertzState) == 32 && sizeof(ArkdGoertzState) == 64);

template <class T_, class R_, auto init_, auto reset_, auto feed_, auto block_>
struct Member {
    using T = T_;
    using R = R_;
    using State = std::conditional_t<std::is_same_v<R, float>, ArksGoertzState, ArkdGoertzState>;
    static constexpr auto init = init_;
    static constexpr auto reset = reset_;
    static constexpr auto feed = feed_;
    static constexpr auto block = block_;
};
template <class Member>
class Goertzel : public testing::Test {};
using Members = testing::Types<Member<float, float, arksGoertzInit, arksGoertzReset, arksGoertz, arksbGoertz>,
                               Member<double, double, arkdGoertzInit, arkdGoertzReset, arkdGoertz, arkdbGoertz>,
                               Member<FloatCplx, float, arkcGoertzInit, arkcGoertzReset, arkcGoertz, arkcbGoertz>,
                               Member<DoubleCplx, double, arkzGoertzInit, arkzGoertzReset, arkzGoertz, arkzbGoertz>>;
TYPED_TEST_SUITE(Goertzel, Members);

long double re(float x) { return x; }
long double re(double x) { return x; }
long double im(float) { return 0; }
long double im(double) { return 0; }
template <class C>
long double re(C x)
{
    return x.re;
}
template <class C>
long double im(C x)
{
    return x.im;
}

template <class T>
std::vector<T> noise(int n)
{
    std::vector<T> x(static_cast<std::size_t>(n));
    for (T& element : x) {
        if constexpr (std::is_arithmetic_v<T>) {
            element = static_cast<T>(randomInt(-10000, 10000));
        } else {
            element.re = static_cast<decltype(T::re)>(randomInt(-10000, 10000));
            element.im = static_cast<decltype(T::re)>(randomInt(-10000, 10000));
        }
    }
    return x;
}

template <class T>
bool sameBits(const T& a, const T& b)
{
    const void *const first = &a, *const second = &b;
    return std::memcmp(first, second, sizeof a) == 0;
}

struct Sum {
    long double re = 0, im = 0;
};

// sum over k of x[k] e^(2 pi i freq (N - k))
template <class T>
Sum spectrumAt(long double freq, const std::vector<T>& x)
{
    Sum sum;
    for (std::size_t k = 0; k < x.size(); k++) {
        const long double turns = freq * static_cast<long double>(x.size() - k);
        const long double angle = 2 * std::acos(-1.0L) * (turns - std::floor(turns));
        sum.re += re(x[k]) * std::cos(angle) - im(x[k]) * std::sin(angle);
        sum.im += re(x[k]) * std::sin(angle) + im(x[k]) * std::cos(angle);
    }
    return sum;
}

TYPED_TEST(Goertzel, IsTheSpectrumAtItsFrequency)
{
    using T = typename TypeParam::T;
    using R = typename TypeParam::R;
    for (const double freq : {0.25, 0.125, 697.0 / 8000, 1477.0 / 8000, 0.01, 0.4999})
        for (const int n : {1, 2, 3, 17, 205}) {
            Guarded<typename TypeParam::State> state{1};
            TypeParam::init(R(freq), state.data());
            Guarded<T> x{noise<T>(n)};
            const auto got = TypeParam::block(state.data(), x.data(), n);
            const Sum wanted = spectrumAt(R(freq), x.values());
            // The recurrence multiplies what is rounded at each sample by up to 1 / sin(2 pi freq), n samples long, and
            // the rounding of the coefficient moves the frequency by as much.
            const long double gain = 1 / std::sin(2 * std::acos(-1.0L) * R(freq));
            const long double tolerance = std::numeric_limits<R>::epsilon() * 10000 * gain * gain * n * (n + 3.0L);
            ASSERT_LE(std::fabs(got.re - wanted.re), tolerance) << freq << ", " << n;
            ASSERT_LE(std::fabs(got.im - wanted.im), tolerance) << freq << ", " << n;
        }
}

TYPED_TEST(Goertzel, ABlockIsItsSamplesOneByOneToTheBit)
{
    using T = typename TypeParam::T;
    using State = typename TypeParam::State;
    State single, block;
    std::memset(&single, 0x5A, sizeof single);
    TypeParam::init(typename TypeParam::R(0.0871), &single);
    block = single;
    for (const int n : {1, 2, 5, 64, 205}) {
        const std::vector<T> x = noise<T>(n);
        const auto fromBlock = TypeParam::block(&block, x.data(), n);
        auto last = fromBlock;
        for (const T sample : x)
            last = TypeParam::feed(&single, sample);
        ASSERT_TRUE(sameBits(single, block)) << n;
        ASSERT_TRUE(sameBits(last, fromBlock)) << n;
    }
    State fresh;
    TypeParam::init(single.freq, &fresh);
    TypeParam::reset(&single);
    EXPECT_TRUE(sameBits(single, fresh)) << "reset";
    EXPECT_FLOAT_EQ(float(fresh.cosW), std::cos(0.0871f * 6.2831853f));
    EXPECT_FLOAT_EQ(float(fresh.sinW), std::sin(0.0871f * 6.2831853f));
    EXPECT_EQ(fresh.coef, 2 * fresh.cosW);
}

// What is rounded where, from the documentation: sums in double, s in the record's precision.
TEST(GoertzelState, KeepsItsValuesInTheRealParts)
{
    ArksGoertzState state;
    arksGoertzInit(0.1f, &state);
    float s1 = 0, s2 = 0;
    for (int i = 0; i < 50; i++) {
        const float x = float(randomInt(-1000, 1000)) / 7;
        arksGoertz(&state, x);
        const float s = float(double(state.coef) * double(s1) - double(s2) + double(x));
        s2 = s1;
        s1 = s;
        ASSERT_TRUE(state.s1.re == s1 && state.s2.re == s2 && state.s1.im == 0 && state.s2.im == 0);
    }
    // The sums in their order.
    state.s1.re = 1;
    state.s2.re = 1e20f;
    arksGoertz(&state, 1e20f);
    EXPECT_EQ(state.s1.re, 0);
}

TYPED_TEST(Goertzel, AcceptsFrequenciesBetweenZeroAndAHalf)
{
    using R = typename TypeParam::R;
    using Limits = std::numeric_limits<R>;
    Reports reports;
    typename TypeParam::State state, before;
    for (const R freq : {Limits::denorm_min(), Limits::min(), std::nextafter(R(0.5), R(0)), R(0.25)}) {
        TypeParam::init(freq, &state);
        EXPECT_EQ(state.freq, freq);
        EXPECT_EQ(reports.messages(), Messages{});
    }
    // Of a quarter: 2 pi is rounded to double. Extended precision has a unit of 5e-20 here, and less on the way.
    EXPECT_NEAR(double(state.cosW), 6.123234e-17, 1e-20);
    before = state;
    for (const R freq : {R(0), -R(0), -R(0.25), R(0.5), R(1), Limits::infinity(), -Limits::infinity(),
                         Limits::quiet_NaN(), -Limits::quiet_NaN()}) {
        TypeParam::init(freq, &state);
        EXPECT_EQ(reports.messages(), Messages{"Invalid frequency value"}) << freq;
        EXPECT_TRUE(sameBits(state, before));
    }
}

TYPED_TEST(Goertzel, ReportsTheFirstFailureWhateverTheStatus)
{
    Reports reports;
    typename TypeParam::State state;
    TypeParam::init(typename TypeParam::R(0.1), &state);
    const typename TypeParam::T x{};
    EXPECT_EQ(TypeParam::block(nullptr, nullptr, 0).re, 0);
    EXPECT_EQ(TypeParam::block(&state, nullptr, 0).re, 0);
    EXPECT_EQ(TypeParam::block(&state, &x, 0).re, 0);
    EXPECT_EQ(reports.messages(), (Messages{"Null state pointer", "Null buffer pointer", "Invalid array length"}));
    const auto one = noise<typename TypeParam::T>(1);
    arkSetErrStatus(ARK_StatusNoConvergence);
    EXPECT_NE(TypeParam::block(&state, one.data(), 1).re, 0);
}

// ---- 16 bits ----

template <class T, auto floatFeed, auto feed, auto block>
void checkShort(auto toFloat)
{
    for (int mode = -1; mode <= ARK_AUTO_SCALE; mode++)
        for (const int given : {-14, -3, 0, 4, 14}) {
            ArksGoertzState single, blocks, floats;
            arkwGoertzInit(0.1003f, &single);
            arkvGoertzInit(0.1003f, &blocks);
            floats = single;
            for (const int n : {1, 2, 100}) {
                const std::vector<T> x = noise<T>(n);
                int factor = given, blockFactor = given;
                ShortCplx last{};
                FloatCplx exact{};
                for (const T sample : x) {
                    factor = given;
                    last = feed(&single, sample, mode, &factor);
                    exact = floatFeed(&floats, toFloat(sample));
                }
                const ShortCplx ofBlock = block(&blocks, x.data(), n, mode, &blockFactor);
                ASSERT_TRUE(sameBits(single, floats));
                ASSERT_TRUE(sameBits(blocks, floats));
                const int chosen = mode == ARK_AUTO_SCALE ? automaticFactorOf(std::vector{exact}) : given;
                ASSERT_TRUE(factor == chosen && blockFactor == chosen);
                const ShortCplx wanted = toShort(exact, mode, chosen, false);
                ASSERT_TRUE(last.re == wanted.re && last.im == wanted.im) << mode << ", " << given;
                ASSERT_TRUE(ofBlock.re == wanted.re && ofBlock.im == wanted.im) << mode << ", " << given;
            }
        }
}

TEST(ShortGoertzel, IsTheFloatOneScaled)
{
    checkShort<short, arksGoertz, arkwGoertz, arkwbGoertz>([](short x) { return float(x); });
    checkShort<ShortCplx, arkcGoertz, arkvGoertz, arkvbGoertz>([](ShortCplx x) {
        return FloatCplx{float(x.re), float(x.im)};
    });
}

TEST(ShortGoertzel, ReportsInTheirOrder)
{
    Reports reports;
    ArksGoertzState state;
    arkwGoertzInit(0.1f, &state);
    const ArksGoertzState before = state;
    const short x = 9;
    int factor = 15;
    EXPECT_EQ(arkwbGoertz(nullptr, nullptr, 0, 5, nullptr).re, 0);
    arkwbGoertz(&state, nullptr, 0, 5, nullptr);
    arkwbGoertz(&state, nullptr, 0, 5, &factor);
    factor = -15;
    arkwGoertz(&state, x, 5, &factor);
    factor = INT_MIN;
    arkvGoertz(&state, {9, 9}, 0, &factor);
    factor = -14;
    arkwbGoertz(&state, nullptr, 0, 5, &factor);
    arkwbGoertz(&state, nullptr, 0, 4, &factor);
    arkwbGoertz(&state, &x, 0, 4, &factor);
    EXPECT_EQ(reports.messages(), (Messages{"Null state pointer", "Zero scale factor pointer", "Too large scale factor",
                                            "Too large scale factor", "Too large scale factor", "Erroneus scale mode",
                                            "Null buffer pointer", "Invalid array length"}));
    EXPECT_TRUE(sameBits(state, before));
    factor = 14;
    arkwGoertz(&state, x, ARK_SATURATE, &factor);
    EXPECT_EQ(reports.messages(), Messages{});
    EXPECT_EQ(state.s1.re, 9);
}

} // namespace
