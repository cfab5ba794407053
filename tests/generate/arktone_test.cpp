#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

namespace {

const BadCalls ofFloats{"arktone",
                        {ZEROS(arksToneInit), ZEROS(arkdToneInit), ZEROS(arkcToneInit), ZEROS(arkzToneInit),
                         ZEROS(arksTone), ZEROS(arkdTone), ZEROS(arkcTone), ZEROS(arkzTone), ZEROS(arksbTone),
                         ZEROS(arkdbTone), ZEROS(arkcbTone), ZEROS(arkzbTone)},
                        {"Null pointer to state"}};
const BadCalls ofShorts{
    "arktonew",
    {ZEROS(arkwToneInit), ZEROS(arkvToneInit), ZEROS(arkwTone), ZEROS(arkvTone), ZEROS(arkwbTone), ZEROS(arkvbTone)},
    {"Null pointer to state"}};

// One family's members; R: of its parameters, M: of its magnitude.
template <class Element, class Record, class R, class M, void (*initFunction)(R, R, M, Record*),
          Element (*oneFunction)(Record*), void (*blockFunction)(Record*, Element*, int), int... lines>
struct Family {
    using T = Element;
    using State = Record;
    using Real = R;
    using Magnitude = M;
    static constexpr auto init = initFunction;
    static constexpr auto one = oneFunction;
    static constexpr auto block = blockFunction;
    static constexpr int expectedLines[] = {lines...}; // of Init's four checks, two of one sample, four of a block
};
using S = Family<float, ArksToneState, float, float, arksToneInit, arksTone, arksbTone, 68, 68, 68, 68, 86, 86, 104,
                 104, 104, 104>;
using D = Family<double, ArkdToneState, double, double, arkdToneInit, arkdTone, arkdbTone, 72, 72, 72, 72, 90, 90, 108,
                 108, 108, 108>;
using C = Family<FloatCplx, ArkcToneState, float, float, arkcToneInit, arkcTone, arkcbTone, 76, 76, 76, 76, 94, 94, 112,
                 112, 112, 112>;
using Z = Family<DoubleCplx, ArkzToneState, double, double, arkzToneInit, arkzTone, arkzbTone, 80, 80, 80, 80, 98, 98,
                 116, 116, 116, 116>;
using W = Family<short, ArkwToneState, float, short, arkwToneInit, arkwTone, arkwbTone, 233, 235, 237, 239, 391, 393,
                 455, 457, 459, 461>;
using V = Family<ShortCplx, ArkwToneState, float, short, arkvToneInit, arkvTone, arkvbTone, 256, 258, 260, 262, 423,
                 425, 499, 501, 503, 505>;

template <class F>
class AnyTone : public testing::Test {};
using AnyTones = testing::Types<S, D, C, Z, W, V>;
TYPED_TEST_SUITE(AnyTone, AnyTones);

TYPED_TEST(AnyTone, StopsAtTheFirstFailedCheckAndNamesItsLine)
{
    using Magnitude = typename TypeParam::Magnitude;
    constexpr double twoPi = 6.283185307179586;
    typename TypeParam::State state;
    typename TypeParam::T out[2], before[2];
    TypeParam::init(0.25f, 1, 100, &state);
    std::memset(out, 0x55, sizeof out);
    std::memcpy(before, out, sizeof out);
    const auto good = state;
    auto unmarked = state;
    unmarked.signature[3] = '!';

    Reports reports;
    arkSetErrStatus(ARK_StatusOutOfMemory); // an old status stops nothing, as the last lines show
    TypeParam::init(0.5f, 7, Magnitude(-1), nullptr);
    TypeParam::init(0.5f, 7, 1, nullptr);
    TypeParam::init(0.25f, decltype(TypeParam::State::phase)(twoPi), 1, nullptr);
    TypeParam::init(0.25f, 0, 1, nullptr);
    TypeParam::one(nullptr);
    const auto sample = TypeParam::one(&unmarked);
    TypeParam::block(nullptr, nullptr, 0);
    TypeParam::block(&unmarked, nullptr, 0);
    TypeParam::block(&unmarked, out, 0);
    TypeParam::block(&unmarked, out, 2);
    TypeParam::init(-0.1f, 1, 1, &state);
    TypeParam::init(0.1f, -1, 1, &state);
    TypeParam::block(&state, out, 0);

    const char* const messages[] = {"Invalid magnitude value", "Invalid freq value",
                                    "Invalid phase value",     "Null pointer to state",
                                    "Null pointer to state",   "Structure initialization need",
                                    "Null pointer to state",   "Null input buffer pointer",
                                    "Bad number of items",     "Structure initialization need"};
    const std::vector<Report> made = reports.take();
    ASSERT_EQ(made.size(), 13u);
    for (std::size_t i = 0; i < 10; i++) {
        EXPECT_EQ(made[i].message, messages[i]);
        EXPECT_EQ(made[i].line, TypeParam::expectedLines[i]) << messages[i];
    }
    EXPECT_EQ(std::memcmp(out, before, sizeof out), 0);
    EXPECT_EQ(std::memcmp(&state, &good, sizeof state), 0);
    const typename TypeParam::T zero{};
    EXPECT_EQ(std::memcmp(&sample, &zero, sizeof zero), 0);

    arkSetErrStatus(ARK_StatusBadArgument);
    TypeParam::init(-0.0f, -0.0f, Magnitude(-0.0), &state);
    TypeParam::block(&state, out, 2);
    EXPECT_TRUE(reports.take().empty());
    EXPECT_EQ(std::memcmp(out, std::vector<typename TypeParam::T>(2).data(), sizeof out), 0);
    state = good;
    TypeParam::one(&state);
    EXPECT_NE(std::memcmp(&state, &good, sizeof state), 0);
}

template <class F>
class Tone : public testing::Test {};
using Tones = testing::Types<S, D, C, Z>;
TYPED_TEST_SUITE(Tone, Tones);

double difference(double sample, long double mag, long double angle)
{
    return std::fabs(double(sample - mag * std::cos(angle)));
}
double difference(DoubleCplx sample, long double mag, long double angle)
{
    return std::hypot(double(sample.re - mag * std::cos(angle)), double(sample.im - mag * std::sin(angle)));
}
DoubleCplx inDouble(FloatCplx x) { return {x.re, x.im}; }
DoubleCplx inDouble(DoubleCplx x) { return x; }
double inDouble(double x) { return x; }

// Single samples and blocks of every kind of length, one after the other.
TYPED_TEST(Tone, FollowsTheClosedForm)
{
    using T = typename TypeParam::T;
    using Real = typename TypeParam::Real;
    constexpr long double twoPi = 6.283185307179586476925L;
    // 1/64 and 1/32 are half a turn and a turn in one step of a block; the last ones are as far as it goes.
    for (const double frequency :
         {0.0, 1e-9, 1e-6, 1e-3, 1.0 / 64, 1.0 / 64 + 1e-9, 1.0 / 32, 0.1, 0.25, 0.3337, 0.4999, 0.4999999}) {
        const Real rFreq = Real(frequency), phase = Real(randomInt(0, 6282) * 0.001), mag = Real(randomInt(1, 1000));
        typename TypeParam::State state;
        TypeParam::init(rFreq, phase, mag, &state);
        // The recurrence is as exact as 2 cos(w), rounded to double, tells the angle w.
        const double w = 6.283185307179586 * rFreq, exactness = 4e-16 / std::max(std::sin(w), 1e-8);
        for (int n = 0, call = 0; n < 40000; call++) {
            const int length = call % 3 == 0 ? 1 : call % 3 == 1 ? randomInt(1, 140) : randomInt(1, 3000);
            Guarded<T> out{std::size_t(length)};
            if (length == 1)
                out[0] = TypeParam::one(&state);
            else
                TypeParam::block(&state, out.data(), length);
            for (int i = 0; i < length; i++, n++) {
                const double tolerance = mag * (2 * std::numeric_limits<Real>::epsilon() + exactness * (n + 8));
                ASSERT_LE(difference(inDouble(out[std::size_t(i)]), mag, twoPi * rFreq * n + phase), tolerance)
                    << "sample " << n << " at " << frequency << ", sample " << i << " of " << length;
            }
        }
        EXPECT_EQ(state.mag, mag);
        EXPECT_EQ(state.rFreq, rFreq);
        EXPECT_EQ(state.phase, phase);
    }
}

TYPED_TEST(Tone, OfFrequencyZeroIsConstant)
{
    typename TypeParam::State state;
    TypeParam::init(0, 1, 2, &state);
    const auto first = TypeParam::one(&state);
    std::vector<typename TypeParam::T> out(1000);
    TypeParam::block(&state, out.data(), 1000);
    for (const auto& sample : out)
        ASSERT_EQ(std::memcmp(&sample, &first, sizeof first), 0);
}

// ---- 16-bit ----

long long floorShift(long long x, int count)
{
    return (x - ((x % (1LL << count)) + (1LL << count)) % (1LL << count)) / (1LL << count);
}
long long low16(long long x) { return ((x + 32768) % 65536 + 65536) % 65536 - 32768; }

// The fixed-point tone in 64 bits.
struct Model {
    long long phasors[2][2], cos2W, sin2W;
    int shift = 0;

    Model(float rFreq, float phase, int mag)
    {
        const double w = 6.283185307179586 * rFreq, before = double(phase) - w;
        cos2W = (long long)(16384 * std::cos(2 * w));
        sin2W = (long long)(16384 * std::sin(2 * w));
        while (mag && (mag << shift) < 16384)
            shift++;
        const long long c = (long long)(16384 * std::cos(w)), s = (long long)(16384 * std::sin(w));
        long long p[2] = {(long long)((mag << shift) * std::cos(before)),
                          (long long)((mag << shift) * std::sin(before))};
        for (auto& phasor : phasors) {
            const auto rounded = [](long long x) { return low16(floorShift(x < 0 ? x + 16384 : x, 14)); };
            phasor[0] = rounded(p[0] * c - p[1] * s);
            phasor[1] = rounded(p[0] * s + p[1] * c);
            std::memcpy(p, phasor, sizeof p);
        }
    }
    void turn(long long* p) const
    {
        const long long re = p[0] * cos2W - p[1] * sin2W, im = p[0] * sin2W + p[1] * cos2W;
        p[0] = low16(floorShift(re, 14));
        p[1] = low16(floorShift(im, 14));
    }
    void samples(std::vector<std::array<long long, 2>>& out, int n)
    {
        const auto down = [&](long long x) { return floorShift(x < 0 ? x + (1LL << shift) : x, shift); };
        for (int i = 0; i < n; i++)
            out.push_back({down(phasors[i % 2][0]), down(phasors[i % 2][1])}), turn(phasors[i % 2]);
        if (n % 2) { // the phasor of the next sample has been turned already
            std::memcpy(phasors[0], phasors[1], sizeof phasors[0]);
            turn(phasors[1]);
        }
    }
};

template <class F>
class ShortTone : public testing::Test {};
using ShortTones = testing::Types<W, V>;
TYPED_TEST_SUITE(ShortTone, ShortTones);

TYPED_TEST(ShortTone, IsExactToTheBit)
{
    using T = typename TypeParam::T;
    constexpr int capacity = int(64 / sizeof(T));
    const std::pair<short, int> shifts[] = {{0, 0}, {1, 14}, {3, 13}, {8191, 2}, {16383, 1}, {16384, 0}, {32767, 0}};
    for (const auto& [mag, shift] : shifts)
        for (const float rFreq : {0.0f, 0.01f, 0.125f, 0.25f, 0.4999f}) {
            const float phase = float(randomInt(0, 6282)) * 0.001f;
            typename TypeParam::State state;
            TypeParam::init(rFreq, phase, mag, &state);
            EXPECT_EQ(state.shift, shift);
            EXPECT_EQ(state.bias[3], 1 << shift);
            Model model{rFreq, phase, mag};
            std::vector<std::array<long long, 2>> expected;
            std::vector<T> got;
            int ready = 0; // in the record's buffer
            for (int call = 0; call < 100; call++)
                if (randomInt(0, 1)) {
                    if (ready == 0) {
                        model.samples(expected, capacity);
                        ready = capacity;
                    }
                    got.push_back(TypeParam::one(&state));
                    ready--;
                } else {
                    Guarded<T> out{std::size_t(randomInt(1, 40))};
                    const int n = int(out.end() - out.begin());
                    TypeParam::block(&state, out.data(), n);
                    got.insert(got.end(), out.begin(), out.end());
                    model.samples(expected, std::max(n - ready, 0));
                    ready = std::max(ready - n, 0);
                }
            for (std::size_t i = 0; i < got.size(); i++)
                for (std::size_t part = 0; part < sizeof(T) / sizeof(short); part++)
                    ASSERT_EQ(reinterpret_cast<const short*>(&got[i])[part], expected[i][part])
                        << "sample " << i << " at " << rFreq << ", magnitude " << mag;
        }
}

} // namespace
