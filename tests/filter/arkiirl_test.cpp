#include "filter/iir_model.hpp"
#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/reports.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstring>

namespace {

using iir::Wide, iir::forEachMember;

const BadCalls ofInit{"arkiirl",
                      {ZEROS(arksIirlInit), ZEROS(arkdIirlInit), ZEROS(arkcIirlInit), ZEROS(arkzIirlInit)},
                      {"tapStPtr==0", "taps==0"}};
const BadCalls ofInitBq{"arkiirl",
                        {ZEROS(arksIirlInitBq), ZEROS(arkdIirlInitBq), ZEROS(arkcIirlInitBq), ZEROS(arkzIirlInitBq)},
                        {"tapStPtr==0", "taps==0", "numQuads <= 0"}};
const BadCalls ofRecords{"arkiirl",
                         {ZEROS(arksIirlInitDlyl), ZEROS(arkdIirlInitDlyl), ZEROS(arkcIirlInitDlyl),
                          ZEROS(arkzIirlInitDlyl), ZEROS(arksIirl), ZEROS(arkdIirl), ZEROS(arkcIirl), ZEROS(arkzIirl),
                          ZEROS(arkscIirl), ZEROS(arkcsIirl), ZEROS(arkdzIirl), ZEROS(arkzdIirl)},
                         {"tapStPtr==0", "dlyStPtr==0"}};
const BadCalls ofBlocks{"arkiirl",
                        {ZEROS(arksbIirl), ZEROS(arkdbIirl), ZEROS(arkcbIirl), ZEROS(arkzbIirl), ZEROS(arkscbIirl),
                         ZEROS(arkcsbIirl), ZEROS(arkdzbIirl), ZEROS(arkzdbIirl)},
                        {"tapStPtr==0", "dlyStPtr==0", "inSamps==0", "outSamps==0"}};
const BadCalls ofShortInit{"arkiirlw", {ZEROS(arkwIirlInit)}, {"tapStPtr==0", "taps==0"}};
const BadCalls ofShortInitBq{"arkiirlw", {ZEROS(arkwIirlInitBq)}, {"tapStPtr==0", "taps==0", "numQuads <= 0"}};
const BadCalls ofShortRecords{"arkiirlw", {ZEROS(arkwIirlInitDlyl), ZEROS(arkwIirl)}, {"tapStPtr==0", "dlyStPtr==0"}};
const BadCalls ofShortBlock{
    "arkiirlw", {ZEROS(arkwbIirl)}, {"tapStPtr==0", "dlyStPtr==0", "inSamps==0", "outSamps==0"}};

// A filter on both levels. Arrays end where memory ends.
template <class M>
struct Filter {
    using Data = typename M::Data;
    using Taps = typename M::Taps;
    using Result = typename M::Result;

    Filter(const M& m, const std::vector<Taps>& coefs, bool isCascade)
        : member{m},
          taps(coefs),
          delay(isCascade ? coefs.size() / 3 : coefs.size() / 2 - 1)
    {
        const int size = isCascade ? int(coefs.size() / 6) : int(coefs.size() / 2 - 1);
        (isCascade ? m.initBq : m.init)(0, coefs.data(), size, &object);
        (isCascade ? m.lowInitBq : m.lowInit)(1, taps.data(), size, &tapState);
        for (Result& d : delay)
            d = iir::randomValue<Result>(5);
        m.initDlyl(&tapState, delay.data(), &dlyState);
    }
    ~Filter() { arkIirFree(&object); }

    Result one(bool low, Data x) { return low ? member.lowOne(&tapState, &dlyState, x) : member.one(&object, x); }
    void block(bool low, const Data* x, Result* y, int n)
    {
        low ? member.lowBlock(&tapState, &dlyState, x, y, n) : member.block(&object, x, y, n);
    }

    const M& member;
    Guarded<Taps> taps;
    Guarded<Result> delay;
    IirlTapState tapState{};
    IirlDlyState dlyState{};
    IirState object{};
};

// The coefficients are rounded to the type, relative to which the model is exact; what differs is the rounding of the
// delay line and of the results. With poles within 0.8 it is amplified by less than a thousand.
template <class Result>
double tolerance(const std::vector<Wide>& expected)
{
    long double most = 1;
    for (const Wide y : expected)
        most = std::max(most, std::abs(y));
    constexpr bool isFloat = sizeof(Result) == sizeof(float) || std::is_same_v<Result, FloatCplx>;
    return double(most) * 1000 * (isFloat ? FLT_EPSILON : DBL_EPSILON);
}

// Single samples and blocks of all lengths in any order, in place and not.
template <class M>
void compareWithModel(const M& member, int size, bool isCascade, int longest)
{
    using Data = typename M::Data;
    using Taps = typename M::Taps;
    using Result = typename M::Result;
    std::vector<Taps> coefs;
    if (isCascade)
        for (int i = 0; i < size; i++)
            for (const Taps c : iir::randomFilter<Taps>(2, 0.8))
                coefs.push_back(c);
    else
        coefs = iir::randomFilter<Taps>(size, 0.8);
    std::vector<Data> input;
    std::vector<Wide> wideInput;
    for (int i = 0; i < 3 * longest; i++) {
        input.push_back(iir::randomValue<Data>(1));
        wideInput.push_back(iir::wide(input.back()));
    }
    const std::vector<Wide> expected = iir::filtered(coefs, isCascade, wideInput);
    const double allowed = tolerance<Result>(expected);
    Filter<M> filter(member, coefs, isCascade);
    for (const bool low : {true, false})
        for (std::size_t done = 0; done < input.size();) {
            const std::size_t rest = input.size() - done;
            const std::size_t n =
                std::min<std::size_t>(rest, std::size_t(randomInt(1, randomInt(0, 2) ? 40 : longest)));
            Guarded<Data> src(
                std::vector<Data>(input.begin() + std::ptrdiff_t(done), input.begin() + std::ptrdiff_t(done + n)));
            Guarded<Result> dst(n);
            Result* y = dst.data();
            if (n == 1)
                y[0] = filter.one(low, src[0]);
            else {
                if constexpr (std::is_same_v<Data, Result>)
                    if (randomInt(0, 1))
                        y = src.data();
                filter.block(low, src.data(), y, int(n));
            }
            for (std::size_t i = 0; i < n; i++)
                ASSERT_LE(double(std::abs(iir::wide(y[i]) - expected[done + i])), allowed)
                    << (isCascade ? "cascade of " : "order ") << size << ", sample " << done + i << ", in a block of "
                    << n;
            done += n;
        }
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusOk);
}

TEST(IirFilters, EqualTheirDifferenceEquations)
{
    Reports reports;
    forEachMember([](const auto& member) {
        SCOPED_TRACE(typeid(member).name());
        for (int order = 0; order <= 9; order++)
            compareWithModel(member, order, false, 200);
        compareWithModel(member, 14, false, 1200);
        for (int sections = 1; sections <= 9; sections++)
            compareWithModel(member, sections, true, 200);
        compareWithModel(member, 19, true, 1200);
    });
    EXPECT_TRUE(reports.take().empty());
}

// The same number to the bit, or two NaN.
template <class T>
bool same(T a, T b)
{
    if constexpr (requires { a.re; })
        return same(a.re, b.re) && same(a.im, b.im);
    else
        return std::isnan(a) ? std::isnan(b) : std::memcmp(&a, &b, sizeof a) == 0;
}

template <class M>
void compareBlocksWithSingleSamples(const M& member, int size, bool isCascade, double magnitude, bool infinite)
{
    using Data = typename M::Data;
    using Result = typename M::Result;
    std::vector<typename M::Taps> coefs;
    for (int i = 0; i < (isCascade ? size : 1); i++)
        for (const auto c : iir::randomFilter<typename M::Taps>(isCascade ? 2 : size, 0.95))
            coefs.push_back(c);
    std::vector<Data> input(600);
    for (Data& x : input)
        x = iir::randomValue<Data>(magnitude);
    if (infinite)
        input[input.size() / 2] = iir::narrow<Data>(Wide(HUGE_VAL, 1));
    Filter<M> blocks(member, coefs, isCascade), singles(member, coefs, isCascade);
    for (std::size_t done = 0; done < input.size();) {
        const auto n =
            std::min<std::size_t>(std::size_t(randomInt(1, randomInt(0, 1) ? 40 : 300)), input.size() - done);
        std::vector<Result> output(n);
        blocks.block(true, &input[done], output.data(), int(n));
        for (std::size_t i = 0; i < n; i++)
            ASSERT_TRUE(same(output[i], singles.one(true, input[done + i])))
                << (isCascade ? "cascade of " : "order ") << size << ", sample " << i << " of a block of " << n;
        for (std::size_t i = 0; i < coefs.size() / (isCascade ? 3 : 2) - !isCascade; i++)
            ASSERT_TRUE(same(blocks.delay[i], singles.delay[i]))
                << (isCascade ? "cascade of " : "order ") << size << ", state " << i << " after a block of " << n;
        done += n;
    }
}

// However a signal is cut into blocks, and among denormal numbers and after an infinity as well.
TEST(IirFilters, BlocksGiveTheBitsOfSingleSamples)
{
    forEachMember([](const auto& member) {
        SCOPED_TRACE(typeid(member).name());
        for (const double magnitude : {1.0, 1e-38})
            for (const bool infinite : {false, true}) {
                for (int order = 0; order <= 6; order++)
                    compareBlocksWithSingleSamples(member, order, false, magnitude, infinite);
                for (int sections = 1; sections <= 9; sections++)
                    compareBlocksWithSingleSamples(member, sections, true, magnitude, infinite);
            }
    });
}

TEST(IirFilters, OfOrder0NeedNoDelayLine)
{
    Reports reports;
    float taps[2] = {3, -2};
    IirlTapState tapState;
    IirlDlyState dlyState;
    arksIirlInit(0, taps, 0, &tapState);
    arksIirlInitDlyl(&tapState, nullptr, &dlyState);
    EXPECT_EQ(arksIirl(&tapState, &dlyState, 5), -7.5f);
    float samples[20] = {5, 4};
    arksbIirl(&tapState, &dlyState, samples, samples, 20);
    EXPECT_EQ(samples[0], -7.5f);
    EXPECT_EQ(samples[1], -6.0f);
    EXPECT_TRUE(reports.take().empty());
}

// A low-pass Butterworth filter of order 2 n by the bilinear transform.
template <class T>
std::vector<T> butterworth(int n, double cutoff)
{
    const double pi = std::acos(-1.0), k = std::tan(pi * cutoff);
    std::vector<T> coefs;
    for (int i = 0; i < n; i++) {
        const double damping = 2 * std::sin(pi * (2 * i + 1) / (4 * n)), a0 = 1 + k * damping + k * k;
        for (const double c :
             {k * k / a0, 2 * k * k / a0, k * k / a0, 1.0, 2 * (k * k - 1) / a0, (1 - k * damping + k * k) / a0})
            coefs.push_back(T(c));
    }
    return coefs;
}

TEST(IirFilters, ACascadeOfTenSectionsStaysStable)
{
    const std::vector<float> coefs = butterworth<float>(10, 0.1);
    constexpr int count = 1000000, block = 9973;
    std::vector<float> signal;
    std::vector<Wide> wideSignal;
    for (int i = 0; i < count; i++) {
        signal.push_back(float(iir::uniform(-1, 1)) + 1);
        wideSignal.push_back(signal.back());
    }
    IirState state{};
    arksIirInitBq(0, coefs.data(), 10, &state);
    for (int first = 0; first < count; first += block)
        arksbIir(&state, &signal[std::size_t(first)], &signal[std::size_t(first)], std::min(block, count - first));
    arkIirFree(&state);
    const std::vector<Wide> expected = iir::filtered(coefs, true, wideSignal);
    double worst = 0;
    for (std::size_t i = 0; i < signal.size(); i++)
        worst = std::max(worst, std::abs(double(signal[i]) - double(expected[i].real())));
    EXPECT_LT(worst,
              1e-4); // the gain is rounded once more, and the sharpest section amplifies the delay line's rounding
}

// After the input has ended, the tail runs down to zero, or to a limit cycle of rounding among the denormal numbers.
TEST(IirFilters, TailsRunDown)
{
    forEachMember([](const auto& member) {
        using M = std::decay_t<decltype(member)>;
        SCOPED_TRACE(typeid(M).name());
        std::vector<typename M::Taps> coefs;
        for (int section = 0; section < 5; section++)
            for (const double c : {0.5, 0.25, 0.125, 1.0, -0.9, 0.2})
                coefs.push_back(iir::narrow<typename M::Taps>(c));
        Filter<M> filter(member, coefs, true);
        std::vector<typename M::Data> input(20000);
        input[0] = iir::narrow<typename M::Data>(1);
        std::vector<typename M::Result> output(input.size());
        filter.block(false, input.data(), output.data(), int(input.size()));
        EXPECT_LT(std::abs(iir::wide(output.back())), 1e-307);
    });
}

TEST(IirNormalisation, OfArbitraryOrder)
{
    double d[8] = {1, -2, 3, 4, 8, 5, -6, 7};
    IirlTapState state;
    arkdIirlInit(1, d, 3, &state);
    EXPECT_EQ((std::vector<double>{d, d + 8}), (std::vector<double>{0.125, -0.25, 0.375, 0.5, 0.625, -0.75, 0.875, 7}));
    EXPECT_EQ(state.order, 3);
    EXPECT_EQ(state.taps, d);
    EXPECT_EQ(state.iirType, 1);
    EXPECT_EQ(state.isBiquad, 0);
}

TEST(IirNormalisation, OfBiquads)
{
    float s[12] = {2, 3, -5, 4, 6, 7, -8, 1, 4, 0.5f, 3, -1};
    IirlTapState state;
    arksIirlInitBq(0, s, 2, &state);
    const std::vector<float> expected{-8, 1.5f, 1.75f, 1.5f, -2.5f, 6, -2, -0.125f, -0.5f};
    EXPECT_EQ((std::vector<float>{s, s + 9}), expected);
    EXPECT_EQ(state.order, 4);
    EXPECT_EQ(state.isBiquad, 1);
}

// Quotients whose naive computation leaves the range of double.
TEST(IirNormalisation, OfComplexNumbersOfAnyMagnitude)
{
    for (const double a0Scale : {1e-300, 1e-160, 1.0, 1e160, 1e300})
        for (const double scale : {1e-300, 1.0, 1e300}) {
            const double ratio = scale / a0Scale;
            if (!(ratio < 1e307 && ratio > 1e-300))
                continue;
            DoubleCplx z[4] = {{3 * scale, 4 * scale}, {0, scale}, {1 * a0Scale, 2 * a0Scale}, {5 * a0Scale, 0}};
            IirlTapState state;
            arkzIirlInit(0, z, 1, &state);
            EXPECT_NEAR(z[0].re / ratio, 2.2, 1e-14);
            EXPECT_NEAR(z[0].im / ratio, -0.4, 1e-14);
            EXPECT_NEAR(z[1].re / ratio, 0.4, 1e-15);
            EXPECT_NEAR(z[1].im / ratio, 0.2, 1e-15);
            EXPECT_NEAR(z[2].re, 1, 1e-14);
            EXPECT_NEAR(z[2].im, -2, 1e-14);
        }
}

TEST(IirNormalisation, RefusesZeros)
{
    Reports reports;
    IirlTapState state{77, nullptr, 77, 77};
    float s[4] = {1, 2, -0.0f, 3};
    arksIirlInit(0, s, 1, &state);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"taps[order+1] equals zero"});
    FloatCplx c[4] = {{1, 0}, {2, 0}, {0, -1}, {3, 0}};
    arkcIirlInit(0, c, 1, &state);
    EXPECT_TRUE(reports.take().empty());
    EXPECT_EQ(c[0].im, 1);

    state = {77, nullptr, 77, 77};
    std::vector<double> twelve(6 * 12, 1.0);
    twelve[6 * 11] = -0.0;
    arkdIirlInitBq(0, twelve.data(), 12, &state);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"taps[11*6] equals zero"});
    std::vector<double> sections{2, 4, 6, 4, 8, 12, 1, 1, 1, 0, 1, 1, 0, 1, 1, 0, 1, 1};
    arkdIirlInitBq(0, sections.data(), 3, &state);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"taps[1*6+3] equals zero"});
    EXPECT_EQ(sections[1], 2) << "the section before is normalised";
    EXPECT_EQ(sections[6], 1) << "this one is left alone";
    sections = {0, 1, 1, 0, 1, 1};
    arkdIirlInitBq(0, sections.data(), 1, &state);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"taps[0*6] equals zero"});
    EXPECT_EQ(state.order, 77) << "not filled";
}

TEST(IirReports, ComeInGroups)
{
    using Messages = std::vector<std::string>;
    Reports reports;
    IirlTapState tapState{2, nullptr, 0, 0};
    IirlDlyState dlyState{nullptr};
    float taps[6] = {1, 1, 1, 1, 1, 1}, delay[2] = {7, 7}, x[3] = {1, 2, 3};
    arksIirlInit(2, taps, -1, &tapState);
    EXPECT_EQ(reports.messages(), (Messages{"order < 0", "iirType is out of range"}));
    arksIirlInitDlyl(&tapState, nullptr, &dlyState);
    EXPECT_EQ(reports.messages(), (Messages{"structure *tapStPtr wasn't initialized", "dlyl==0"}));
    const Messages unready{"structure *tapStPtr wasn't initialized", "structure *dlyStPtr wasn't initialized"};
    EXPECT_EQ(arksIirl(&tapState, &dlyState, 5), 0);
    EXPECT_EQ(reports.messages(), unready);
    tapState = {2, taps, 0, 2};
    arksbIirl(&tapState, &dlyState, x, x, -1);
    EXPECT_EQ(reports.messages(), (Messages{unready[0], unready[1], "numIters < 0"}));
    arksbIirl(&tapState, nullptr, x, nullptr, -1);
    EXPECT_EQ(reports.messages(), (Messages{"dlyStPtr==0", "outSamps==0"}));
    arksIirlInitBq(0, taps, INT_MAX / 2 + 1, &tapState);
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusOutOfMemory);
    EXPECT_EQ(reports.messages(), Messages{"insufficiency of memory for IIR filter state"});

    arksIirlInit(0, taps, 2, &tapState);
    arksIirlInitDlyl(&tapState, delay, &dlyState);
    arksbIirl(&tapState, &dlyState, x, x, 0);
    EXPECT_EQ(x[0], 1);
    arkSetErrStatus(ARK_StatusOutOfMemory);
    arksbIirl(&tapState, &dlyState, x, x, 3);
    EXPECT_EQ(arksIirl(&tapState, &dlyState, 5), 0);
    delay[0] = 3;
    arksIirlInitDlyl(&tapState, delay, &dlyState);
    EXPECT_EQ(delay[0], 3);
    EXPECT_EQ(x[0], 1);
    EXPECT_TRUE(reports.take().empty());
}

// ---- 16-bit data ----

struct ShortFilter {
    explicit ShortFilter(const std::vector<float>& coefs, bool isCascade = true)
        : taps{coefs},
          delay(isCascade ? coefs.size() / 3 : coefs.size() / 2 - 1)
    {
        if (isCascade)
            arkwIirlInitBq(0, taps.data(), int(coefs.size() / 6), &tapState);
        else
            arkwIirlInit(0, taps.data(), int(delay.size()), &tapState);
        arkwIirlInitDlyl(&tapState, delay.data(), &dlyState);
    }
    std::vector<float> taps, delay;
    IirlTapState tapState{};
    IirlDlyState dlyState{};
};

// The rules of scaling in long double; factor is what the automatic mode shall write.
std::vector<short> scaled(const std::vector<long double>& results, int mode, int& factor)
{
    const auto moved = [](long double r, int shift) { return std::floor(std::ldexp(std::nearbyint(r), -shift)); };
    if (mode == ARK_AUTO_SCALE) {
        factor = 0;
        for (const long double r : results)
            while (moved(r, factor) > 32767 || moved(r, factor) < -32768)
                factor++;
    }
    std::vector<short> out;
    for (const long double r : results) {
        const auto whole = static_cast<long long>(moved(r, mode & (ARK_FIXED_SCALE | ARK_AUTO_SCALE) ? factor : 0));
        out.push_back(mode & ARK_SATURATE ? short(std::clamp(whole, -32768LL, 32767LL))
                                          : short(static_cast<unsigned short>(whole)));
    }
    return out;
}

TEST(IirShort, ResultsAreRoundedAndScaled)
{
    Reports reports;
    const std::vector<float> coefs{4, 1, -1.25f, 2, -1.5f, 0.75f, 1, 0.5f, 0.25f, 1, 0.25f, -0.125f};
    for (const int n : {1, 2, 7, 8, 40, 511, 513, 3000}) {
        std::vector<short> input;
        std::vector<Wide> wideInput;
        for (int i = 0; i < n; i++) { // late samples are the loudest
            input.push_back(short(randomInt(-1, 1) * randomInt(0, 100 + 32000 * i / n)));
            wideInput.push_back(input.back());
        }
        std::vector<long double> results;
        for (const Wide y : iir::filtered(coefs, true, wideInput))
            results.push_back(y.real());
        for (const int mode : {0, 1, 2, 3, 4}) {
            int factor = randomInt(-2, 3), expectedFactor = factor;
            const std::vector<short> expected = scaled(results, mode, expectedFactor);
            ShortFilter filter(coefs);
            Guarded<short> samples(input);
            arkwbIirl(&filter.tapState, &filter.dlyState, samples.data(), samples.data(), n, mode, &factor);
            EXPECT_EQ(factor, expectedFactor);
            for (std::size_t i = 0; i < input.size(); i++) {
                const long double fraction = std::fabs(results[i] - std::floor(results[i]) - 0.5L);
                if (fraction > 0.05L) { // nearer to a tie, the rounding of the float delay line decides
                    ASSERT_EQ(samples[i], expected[i]) << "mode " << mode << ", sample " << i << " of " << n;
                }
            }
        }
    }
    ShortFilter filter({1.5f, 0, 0, 1, 0, 0});
    EXPECT_EQ(arkwIirl(&filter.tapState, &filter.dlyState, 5, ARK_SATURATE, nullptr), 8) << "7.5 to even";
    EXPECT_EQ(arkwIirl(&filter.tapState, &filter.dlyState, 30000, ARK_SATURATE, nullptr), 32767);
    int factor = 9;
    EXPECT_EQ(arkwIirl(&filter.tapState, &filter.dlyState, -30000, ARK_AUTO_SCALE, &factor), -22500);
    EXPECT_EQ(factor, 1);
    EXPECT_TRUE(reports.take().empty());
}

// The difference equations with normalised coefficients in double, states rounded to float.
short plainCascade(const std::vector<float>& taps, std::vector<float>& d, short x)
{
    double v = double(taps[0]) * x;
    for (std::size_t i = 0; i < d.size(); i += 2) {
        const double a1 = taps[2 * i + 1], a2 = taps[2 * i + 2], b1 = taps[2 * i + 3], b2 = taps[2 * i + 4];
        const double w = v - a2 * d[i + 1] - a1 * d[i];
        v = w + (b1 * d[i] + b2 * d[i + 1]);
        d[i + 1] = d[i];
        d[i] = float(w);
    }
    return short(std::clamp(std::nearbyint(v), -32768.0, 32767.0));
}
short plainDirect(const std::vector<float>& taps, std::vector<float>& d, short x)
{
    const std::size_t n = d.size();
    const double y = d[0] + double(taps[0]) * x;
    for (std::size_t k = 1; k <= n; k++) {
        const double input = double(taps[k]) * x;
        d[k - 1] = float((k < n ? d[k] + input : input) - double(taps[n + k]) * y);
    }
    return short(std::clamp(std::nearbyint(y), -32768.0, 32767.0));
}

// Poles so near the unit circle that every rounding of the state is amplified to whole numbers.
TEST(IirShort, ResultsAreExactToTheBit)
{
    const std::vector<float> narrow{1e-5f, 2e-5f, 1e-5f, 1, -1.9955f, 0.99554f};
    std::vector<float> three = narrow;
    three.insert(three.end(), {0.02f, 0.04f, 0.02f, 1, -1.56f, 0.64f, 0.5f, 0.1f, 0.3f, 1, -1.2f, 0.5f});
    const std::vector<float> third{0.002f, 0.006f, 0.006f, 0.002f, 1, -2.9f, 2.81f, -0.9095f};
    const auto compare = [](const std::vector<float>& coefs, bool isCascade) {
        ShortFilter filter(coefs, isCascade);
        std::vector<float> state(filter.delay.size());
        std::vector<short> input, expected;
        for (int i = 0; i < 20000; i++) {
            input.push_back(short(15000 * std::sin(i * 0.01) + randomInt(-3000, 3000)));
            expected.push_back((isCascade ? plainCascade : plainDirect)(filter.taps, state, input.back()));
        }
        for (int done = 0; done < 20000;) {
            const int n = std::min(randomInt(1, 1000), 20000 - done);
            short* const samples = &input[std::size_t(done)];
            arkwbIirl(&filter.tapState, &filter.dlyState, samples, samples, n, ARK_SATURATE, nullptr);
            done += n;
        }
        EXPECT_EQ(input, expected);
        EXPECT_EQ(filter.delay, state);
    };
    compare(narrow, true);
    compare(three, true);
    compare(narrow, false);
    compare(third, false);
}

TEST(IirShort, ReportsOfScaling)
{
    Reports reports;
    ShortFilter filter({1, 0, 0, 1, 0, 0});
    short x[2] = {5, 6};
    arkwbIirl(&filter.tapState, &filter.dlyState, x, x, -1, 6, nullptr);
    EXPECT_EQ(reports.messages(), (std::vector<std::string>{"numIters < 0", "ARK_FIXED_SCALE and ARK_AUTO_SCALE",
                                                            "ARK_AUTO_SCALE and scaleFactor==NULL"}));
    EXPECT_EQ(arkwIirl(&filter.tapState, &filter.dlyState, 5, ARK_AUTO_SCALE, nullptr), 0);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"ARK_AUTO_SCALE and scaleFactor==NULL"});
    arkwbIirl(&filter.tapState, &filter.dlyState, x, x, 2, ARK_FIXED_SCALE, nullptr);
    EXPECT_EQ(x[1], 6);
    EXPECT_TRUE(reports.take().empty());
}

} // namespace
