#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {

const BadCalls ofAll{
    "arkrand",
    {ZEROS(arksRandUniInit),  ZEROS(arkdRandUniInit),  ZEROS(arkcRandUniInit),  ZEROS(arkzRandUniInit),
     ZEROS(arksRandUni),      ZEROS(arkdRandUni),      ZEROS(arkcRandUni),      ZEROS(arkzRandUni),
     ZEROS(arksbRandUni),     ZEROS(arkdbRandUni),     ZEROS(arkcbRandUni),     ZEROS(arkzbRandUni),
     ZEROS(arksRandGausInit), ZEROS(arkdRandGausInit), ZEROS(arkcRandGausInit), ZEROS(arkzRandGausInit),
     ZEROS(arkwRandGausInit), ZEROS(arkvRandGausInit), ZEROS(arksRandGaus),     ZEROS(arkdRandGaus),
     ZEROS(arkcRandGaus),     ZEROS(arkzRandGaus),     ZEROS(arkwRandGaus),     ZEROS(arkvRandGaus),
     ZEROS(arksbRandGaus),    ZEROS(arkdbRandGaus),    ZEROS(arkcbRandGaus),    ZEROS(arkzbRandGaus),
     ZEROS(arkwbRandGaus),    ZEROS(arkvbRandGaus)},
    {"Null pointer to state structure"}};
const BadCalls ofShortUniform{
    "arkrandw",
    {ZEROS(arkwRandUniInit), ZEROS(arkvRandUniInit), ZEROS(arkwbRandUni), ZEROS(arkvbRandUni)},
    {"statePtr==0"}};
const BadCalls ofOneShortUniform{"arkrandw", {ZEROS(arkwRandUni), ZEROS(arkvRandUni)}, {"((void*)(0))==statePtr"}};

// The generator in 64 bits.
struct Model {
    static constexpr long long modulus = 1LL << 32;
    long long x[3], lcg = 1131199209, carry, spare = 0;
    long double waiting = 0;
    bool haveWaiting = false;

    Model(long long seed, long long firstCarry, int dropped) : carry{firstCarry}
    {
        unsigned long long g = (unsigned long long)(seed);
        x[0] = positive(seed);
        for (int i = 1; i < 3; i++) {
            g = (g * 214013 + 2531011) % (unsigned long long)(modulus);
            x[i] = (long long)((g / 65536) % 32768);
        }
        for (int i = 0; i < dropped; i++)
            draw();
    }
    static long long positive(long long value) { return (value % modulus + modulus) % modulus; }
    static long long asSigned(long long value)
    {
        return positive(value) >= modulus / 2 ? positive(value) - modulus : positive(value);
    }
    long long draw()
    {
        long long difference = asSigned(x[1] - x[2] - carry);
        carry = difference < 1;
        if (carry)
            difference -= 18;
        x[2] = x[1];
        x[1] = x[0];
        x[0] = positive(difference);
        lcg = positive(lcg * 69069 + 1013904243);
        return asSigned(lcg + x[0]);
    }
    long double gaussian(double mean, double stdDev)
    {
        if (haveWaiting) {
            haveWaiting = false;
            return waiting;
        }
        double u1, u2, s; // rounded alike: near 1 every bit of s counts
        do {
            u1 = double(draw()) * 4.656612873077e-10;
            u2 = double(draw()) * 4.656612873077e-10;
            s = u1 * u1 + u2 * u2;
        } while (s >= 1 || s == 0);
        const long double f = std::sqrt(-2 * std::log((long double)(s)) / s);
        waiting = mean + stdDev * u1 * f;
        haveWaiting = true;
        return mean + stdDev * u2 * f;
    }
};

// Many samples of a member, singly, in blocks and mixed, as real numbers.
template <class T, class State>
std::vector<double> samples(State& state, int count, T (*one)(State*), void (*block)(State*, T*, int))
{
    std::vector<T> all;
    while (int(all.size()) < count)
        if (randomInt(0, 1)) {
            all.push_back(one(&state));
        } else {
            Guarded<T> out{std::size_t(randomInt(1, randomInt(0, 1) ? 5 : 300))};
            block(&state, out.data(), int(out.end() - out.begin()));
            all.insert(all.end(), out.begin(), out.end());
        }
    std::vector<double> numbers;
    for (const T& sample : all)
        if constexpr (std::is_arithmetic_v<T>)
            numbers.push_back(double(sample));
        else
            numbers.insert(numbers.end(), {double(sample.re), double(sample.im)});
    return numbers;
}

template <class Real>
void compareUniform(const std::vector<double>& got, Model model, Real low, Real high)
{
    const double width = double(high) - double(low);
    const Real offset = Real(0.5 * width + low), scale = Real(width / 4294967296.0);
    for (std::size_t i = 0; i < got.size(); i++)
        ASSERT_EQ(got[i], double(Real(double(model.draw()) * scale + offset))) << "sample " << i;
}

TEST(UniformNoise, IsTheModelsToTheBit)
{
    ArksRandUniState s;
    ArkdRandUniState d;
    ArkwRandUniState w;
    for (const auto& [seed, whole] : {std::pair<double, long long>{5, 5},
                                      {5.9, 5},
                                      {-3.7, -3},
                                      {4294967301.0, 5},
                                      {-6442450944.0, -6442450944},
                                      {1e300, 0},
                                      {NAN, 0}}) {
        const Model model{whole, 0, 5};
        arkdRandUniInit(seed, -1, 3, &d);
        compareUniform(samples(d, 2000, arkdRandUni, arkdbRandUni), model, -1.0, 3.0);
        arkzRandUniInit(seed, 1e-3, 1e6, &d);
        compareUniform(samples(d, 2000, arkzRandUni, arkzbRandUni), model, 1e-3, 1e6);
        if (double(float(seed)) != seed && seed == seed && std::fabs(seed) > 10)
            continue; // not a float
        arksRandUniInit(float(seed), -3e38f, 3e38f, &s);
        compareUniform(samples(s, 2000, arksRandUni, arksbRandUni), model, -3e38f, 3e38f);
        arkcRandUniInit(float(seed), 0, 1, &s);
        compareUniform(samples(s, 2000, arkcRandUni, arkcbRandUni), model, 0.0f, 1.0f);
    }
    arksRandUniInit(1, 0.3f, 0.3f, &s);
    for (int i = 0; i < 10; i++)
        EXPECT_EQ(arksRandUni(&s), 0.3f);
    // r scale + offset is exact in double for 16-bit bounds.
    const auto compareShort = [](const std::vector<double>& got, Model model, int low, int high) {
        for (std::size_t i = 0; i < got.size(); i++) {
            const double value = double(model.draw()) * (high - low) / 4294967296.0 + 0.5 * (low + high);
            ASSERT_EQ(got[i], std::nearbyint(value)) << "sample " << i;
        }
    };
    for (const auto& [low, high] : {std::pair{-32768, 32767}, {0, 1}, {-1, 4}, {77, 77}, {100, -100}}) {
        arkwRandUniInit(-7, short(low), short(high), &w);
        compareShort(samples(w, 2000, arkwRandUni, arkwbRandUni), Model{-7, 0, 5}, low, high);
        arkvRandUniInit(-7, short(low), short(high), &w);
        EXPECT_EQ(w.bufIndex, 32);
        compareShort(samples(w, 2000, arkvRandUni, arkvbRandUni), Model{-7, 0, 5}, low, high);
    }
}

TEST(GaussianNoise, IsTheModels)
{
    const auto compare = [](const std::vector<double>& got, Model model, double mean, double stdDev, double epsilon) {
        for (std::size_t i = 0; i < got.size(); i++) {
            const double expected = double(model.gaussian(mean, stdDev));
            // the logarithm's error and a few roundings of the deviation, one of the sum
            ASSERT_NEAR(got[i], expected, std::fabs(expected - mean) * 1e-15 + std::fabs(expected) * epsilon)
                << "sample " << i;
        }
    };
    ArksRandGausState s;
    ArkdRandGausState d;
    constexpr double floatEpsilon = 6e-8, doubleEpsilon = 2.3e-16;
    for (const int seed : {0, 1, -5, 123456}) {
        const Model model{seed, 1, 0};
        arksRandGausInit(float(seed), 1, 2, &s);
        EXPECT_EQ(s.spare, 0);
        compare(samples(s, 3000, arksRandGaus, arksbRandGaus), model, 1, 2, floatEpsilon);
        arkcRandGausInit(float(seed), -3, 0.5f, &s);
        compare(samples(s, 3000, arkcRandGaus, arkcbRandGaus), model, -3, 0.5, floatEpsilon);
        arkdRandGausInit(seed + 0.5 * (seed > 0), 0, 1, &d);
        compare(samples(d, 3000, arkdRandGaus, arkdbRandGaus), model, 0, 1, doubleEpsilon);
        arkzRandGausInit(seed, 1e3, 1e-3, &d);
        compare(samples(d, 3000, arkzRandGaus, arkzbRandGaus), model, 1e3, 1e-3, doubleEpsilon);

        // 16-bit samples are the float ones, rounded and saturated: 20000 is 1.28 deviations from the bound.
        ArkwRandGausState w, v;
        arksRandGausInit(float(seed), 20000, 10000, &s);
        arkwRandGausInit(seed, 20000, 10000, &w);
        arkvRandGausInit(seed, 20000, 10000, &v);
        const std::vector<double> floats = samples(s, 6000, arksRandGaus, arksbRandGaus),
                                  pairs = samples(v, 3000, arkvRandGaus, arkvbRandGaus);
        const std::vector<double> shorts = samples(w, 6000, arkwRandGaus, arkwbRandGaus);
        for (std::size_t i = 0; i < 6000; i++) {
            ASSERT_EQ(shorts[i], std::clamp(std::nearbyint(floats[i]), -32768.0, 32767.0));
            ASSERT_EQ(pairs[i], shorts[i]);
        }
    }
}

// What anyone may measure: bounds at five standard errors.
TEST(Noise, IsUniformNormalAndUncorrelated)
{
    constexpr int n = 10'000'000, bins = 100;
    const double five = 5 / std::sqrt(double(n));
    std::vector<double> x(n);
    const auto check = [&](double mean, double variance, double fourth, auto probability) {
        double sums[4] = {}, lagged[5] = {};
        std::vector<int> counts(bins);
        for (int i = 0; i < n; i++) {
            const double y = x[std::size_t(i)] - mean, squared = y * y;
            sums[0] += y, sums[1] += squared, sums[2] += squared * y, sums[3] += squared * squared;
            for (int lag = 1; lag <= std::min(i, 5); lag++)
                lagged[lag - 1] += y * (x[std::size_t(i - lag)] - mean);
            counts[std::size_t(std::min(int(probability(y) * bins), bins - 1))]++;
        }
        EXPECT_LT(std::fabs(sums[0] / n), five * std::sqrt(variance));
        EXPECT_LT(std::fabs(sums[1] / n - variance), five * std::sqrt(fourth - variance * variance));
        EXPECT_LT(std::fabs(sums[2] / n), five * 4 * std::pow(variance, 1.5));
        EXPECT_LT(std::fabs(sums[3] / n - fourth), five * 10 * variance * variance);
        for (const double sum : lagged)
            EXPECT_LT(std::fabs(sum / n), five * variance);
        double chiSquare = 0;
        for (const int count : counts)
            chiSquare += std::pow(count - double(n) / bins, 2) / (double(n) / bins);
        EXPECT_NEAR(chiSquare, bins - 1, 5 * std::sqrt(2.0 * bins)); // mean and deviation of chi-square
    };
    ArkdRandUniState uniform;
    arkdRandUniInit(2026, 0, 1, &uniform);
    arkdbRandUni(&uniform, x.data(), n);
    check(0.5, 1.0 / 12, 1.0 / 80, [](double y) { return y + 0.5; });
    ArkdRandGausState normal;
    arkdRandGausInit(2026, 0, 1, &normal);
    arkdbRandGaus(&normal, x.data(), n);
    check(0, 1, 3, [](double y) { return 0.5 * std::erfc(-y / std::sqrt(2.0)); });
}

TEST(Noise, BlocksCheckWhatTheyPromise)
{
    Reports reports;
    arkSetErrStatus(ARK_StatusOutOfMemory); // which stops nothing
    ArksRandUniState uniform;
    ArksRandGausState gauss;
    ArkwRandUniState w;
    float x[2] = {7, 7};
    short y[2] = {7, 7};
    arksRandUniInit(1, 2, 3, &uniform);
    arksRandGausInit(1, 2, 3, &gauss);
    arksbRandUni(&uniform, nullptr, 2);
    arksbRandUni(&uniform, x, 0);
    arksbRandGaus(&gauss, x, -5);
    arkwbRandGaus(&gauss, nullptr, 5);
    EXPECT_TRUE(reports.messages().empty());
    EXPECT_EQ(x[0], 7);
    EXPECT_EQ(gauss.lcg, 1131199209u);
    arkwRandUniInit(1, 2, 3, &w);
    arkwbRandUni(&w, nullptr, 0);
    arkwbRandUni(&w, y, 0);
    EXPECT_EQ(reports.messages(), (std::vector<std::string>{"samps==0", "sampsLen<=0"}));
    EXPECT_EQ(y[0], 7);
}

} // namespace
