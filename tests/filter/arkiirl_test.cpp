#include "filter/iir_model.hpp"
#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/reports.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>

namespace {

using iir::Wide, iir::forEachMember;

const BadCalls ofInit{"arkiirl",
                      {ZEROS(arksIirlInit), ZEROS(arkdIirlInit), ZEROS(arkcIirlInit), ZEROS(arkzIirlInit)},
                      {"tapStPtr==0", "taps==0"}};
const BadCalls ofInitBq{"arkiirl",
                        {ZEROS(arksIirlInitBq), ZEROS(arkdIirlInitBq), ZEROS(arkcIirlInitBq), ZEROS(arkzIirlInitBq)},
                        {"tapStPtr==0", "taps==0", "numQuads <= 0"}};
const BadCalls ofRecords{
    "arkiirl",
    {ZEROS(arksIirlInitDlyl), ZEROS(arkdIirlInitDlyl), ZEROS(arkcIirlInitDlyl), ZEROS(arkzIirlInitDlyl),
     ZEROS(arksIirl), ZEROS(arkdIirl), ZEROS(arkcIirl), ZEROS(arkzIirl), ZEROS(arkscIirl), ZEROS(arkcsIirl),
     ZEROS(arkdzIirl), ZEROS(arkzdIirl)},
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
        : member{m}, taps(coefs), delay(isCascade ? coefs.size() / 3 : coefs.size() / 2 - 1)
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
    return double(most) * 1000 * (sizeof(Result) / sizeof(iir::narrow<Result>(0)) * 0 + (std::is_same_v<Result, float> || std::is_same_v<Result, FloatCplx> ? FLT_EPSILON : DBL_EPSILON));
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
            const std::size_t n = std::min<std::size_t>(rest, std::size_t(randomInt(1, randomInt(0, 2) ? 40 : longest)));
            Guarded<Data> src(std::vector<Data>(input.begin() + std::ptrdiff_t(done), input.begin() + std::ptrdiff_t(done + n)));
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
                    << (isCascade ? "cascade of " : "order ") << size << ", sample " << done + i << ", in a block of " << n;
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
