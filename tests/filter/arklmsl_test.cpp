#include "filter/lms_model.hpp"

#include "support/bad_calls.hpp"
#include "support/reports.hpp"

#include <climits>

namespace {

const BadCalls allNull{
    "arklmsl",
    {ZEROS(arksLmslInit),     ZEROS(arkdLmslInit),     ZEROS(arkcLmslInit),     ZEROS(arkzLmslInit),
     ZEROS(arkwLmslInit),     ZEROS(arksLmslInitMr),   ZEROS(arkdLmslInitMr),   ZEROS(arkcLmslInitMr),
     ZEROS(arkzLmslInitMr),   ZEROS(arksLmslInitDlyl), ZEROS(arkdLmslInitDlyl), ZEROS(arkcLmslInitDlyl),
     ZEROS(arkzLmslInitDlyl), ZEROS(arkwLmslInitDlyl), ZEROS(arksLmslGetStep),  ZEROS(arkdLmslGetStep),
     ZEROS(arkcLmslGetStep),  ZEROS(arkzLmslGetStep),  ZEROS(arkwLmslGetStep),  ZEROS(arksLmslSetStep),
     ZEROS(arkdLmslSetStep),  ZEROS(arkcLmslSetStep),  ZEROS(arkzLmslSetStep),  ZEROS(arkwLmslSetStep),
     ZEROS(arksLmslGetLeak),  ZEROS(arkdLmslGetLeak),  ZEROS(arkcLmslGetLeak),  ZEROS(arkzLmslGetLeak),
     ZEROS(arksLmslSetLeak),  ZEROS(arkdLmslSetLeak),  ZEROS(arkcLmslSetLeak),  ZEROS(arkzLmslSetLeak),
     ZEROS(arksLmslSetTaps),  ZEROS(arkdLmslSetTaps),  ZEROS(arkcLmslSetTaps),  ZEROS(arkzLmslSetTaps),
     ZEROS(arkwLmslSetTaps),  ZEROS(arksLmslGetTaps),  ZEROS(arkdLmslGetTaps),  ZEROS(arkcLmslGetTaps),
     ZEROS(arkzLmslGetTaps),  ZEROS(arkwLmslGetTaps),  ZEROS(arksLmslSetDlyl),  ZEROS(arkdLmslSetDlyl),
     ZEROS(arkcLmslSetDlyl),  ZEROS(arkzLmslSetDlyl),  ZEROS(arkwLmslSetDlyl),  ZEROS(arksLmslGetDlyl),
     ZEROS(arkdLmslGetDlyl),  ZEROS(arkcLmslGetDlyl),  ZEROS(arkzLmslGetDlyl),  ZEROS(arkwLmslGetDlyl),
     ZEROS(arksLmsl),         ZEROS(arkdLmsl),         ZEROS(arkcLmsl),         ZEROS(arkzLmsl),
     ZEROS(arkscLmsl),        ZEROS(arkdzLmsl),        ZEROS(arkwLmsl),         ZEROS(arksbLmsl),
     ZEROS(arkdbLmsl),        ZEROS(arkcbLmsl),        ZEROS(arkzbLmsl),        ZEROS(arkscbLmsl),
     ZEROS(arkdzbLmsl),       ZEROS(arksLmslNa),       ZEROS(arkdLmslNa),       ZEROS(arkcLmslNa),
     ZEROS(arkzLmslNa),       ZEROS(arkscLmslNa),      ZEROS(arkcsLmslNa),      ZEROS(arkdzLmslNa),
     ZEROS(arkzdLmslNa),      ZEROS(arksbLmslNa),      ZEROS(arkdbLmslNa),      ZEROS(arkcbLmslNa),
     ZEROS(arkzbLmslNa),      ZEROS(arkscbLmslNa),     ZEROS(arkcsbLmslNa),     ZEROS(arkdzbLmslNa),
     ZEROS(arkzdbLmslNa)},
    {"Null buffer pointer"}};

template <class T>
struct Records {
    void (*init)(int, T*, int, float, float, int, LmslTapState*);
    void (*initMr)(int, T*, int, float, float, int, int, int, LmslTapState*);
    void (*initDlyl)(const LmslTapState*, T*, int, LmslDlyState*);
    void (*setTaps)(const T*, LmslTapState*);
    void (*getTaps)(LmslTapState*, T*);
    void (*setDlyl)(const LmslTapState*, const T*, LmslDlyState*);
    void (*getDlyl)(const LmslTapState*, LmslDlyState*, T*);
};
constexpr Records<float> recordsS{arksLmslInit,    arksLmslInitMr,  arksLmslInitDlyl, arksLmslSetTaps,
                                  arksLmslGetTaps, arksLmslSetDlyl, arksLmslGetDlyl};
constexpr Records<double> recordsD{arkdLmslInit,    arkdLmslInitMr,  arkdLmslInitDlyl, arkdLmslSetTaps,
                                   arkdLmslGetTaps, arkdLmslSetDlyl, arkdLmslGetDlyl};
constexpr Records<FloatCplx> recordsC{arkcLmslInit,    arkcLmslInitMr,  arkcLmslInitDlyl, arkcLmslSetTaps,
                                      arkcLmslGetTaps, arkcLmslSetDlyl, arkcLmslGetDlyl};
constexpr Records<DoubleCplx> recordsZ{arkzLmslInit,    arkzLmslInitMr,  arkzLmslInitDlyl, arkzLmslSetTaps,
                                       arkzLmslGetTaps, arkzLmslSetDlyl, arkzLmslGetDlyl};

template <class X, class T, class Y>
struct Member {
    Records<T> taps;
    Records<X> data;
    Y (*one)(const LmslTapState*, LmslDlyState*, X, Y);
    Y (*block)(const LmslTapState*, LmslDlyState*, const X*, Y);
};

template <class X, class T, class Y>
void checkPrograms(const Member<X, T, Y>& member)
{
    for (int round = 0; round < 100; round++) {
        const lms::Parameters p = lms::anyParameters();
        const bool flag = randomInt(0, 1);
        const std::vector<T> start = fir::anyValues<T>(p.tapsLen);
        const int dlylLen = p.tapsLen + (flag ? p.errDelay : 0) + (p.down > 1 ? p.down : 0);
        Guarded<T> taps{start};
        Guarded<X> dlyl{std::size_t(dlylLen)};
        LmslTapState tapState;
        LmslDlyState dlyState;
        if (p.down > 1)
            member.taps.initMr(3, taps.data(), p.tapsLen, p.step, p.leak, p.errDelay, p.down, p.downPhase, &tapState);
        else
            member.taps.init(3, taps.data(), p.tapsLen, p.step, p.leak, p.errDelay, &tapState);
        member.data.initDlyl(&tapState, dlyl.data(), flag, &dlyState);
        ASSERT_EQ(dlyState.dlylLen, dlylLen);
        EXPECT_EQ(tapState.lmsType, 3);
        member.data.setDlyl(&tapState, nullptr, &dlyState);
        lms::Model<X, T> model{start, p, dlylLen};
        for (int step = 0; step < 40; step++) {
            const Y err = fir::anyValue<Y>();
            const bool decimates = randomInt(0, 1);
            if (randomInt(0, 9) == 0) { // history out, and another in, oldest first
                const int n = p.down > 1 ? dlylLen : dlylLen - 1;
                Guarded<X> out{std::size_t(n)};
                member.data.getDlyl(&tapState, &dlyState, out.data());
                for (int i = 0; i < n; i++)
                    EXPECT_TRUE(fir::exact(out[std::size_t(n - 1 - i)]) == fir::exact(model.age(i)));
                Guarded<X> other{fir::anyValues<X>(n)}; // an address even when there is nothing at it
                member.data.setDlyl(&tapState, other.data(), &dlyState);
                model.setHistory(other.values());
            }
            Guarded<X> src{fir::anyValues<X>(decimates ? p.down : 1)};
            const Y got = decimates ? member.block(&tapState, &dlyState, src.data(), err)
                                    : member.one(&tapState, &dlyState, src[0], err);
            const int base = decimates ? p.down - p.downPhase - 1 : 0;
            const fir::Exact expected = model.step(src.values(), base, fir::exact(err), p.step > 0);
            ASSERT_NO_FATAL_FAILURE(lms::expectNear(got, expected, p.tapsLen)) << "step " << step;
        }
        Guarded<T> learnt{std::size_t(p.tapsLen)};
        member.taps.getTaps(&tapState, learnt.data());
        for (std::size_t i = 0; i < learnt.values().size(); i++)
            ASSERT_NO_FATAL_FAILURE(lms::expectNear(learnt[i], fir::exact(model.taps()[i]), 2));
    }
}

TEST(Lmsl, LearnsByDefinition)
{
    checkPrograms<float, float, float>({recordsS, recordsS, arksLmsl, arksbLmsl});
    checkPrograms<double, double, double>({recordsD, recordsD, arkdLmsl, arkdbLmsl});
    checkPrograms<FloatCplx, FloatCplx, FloatCplx>({recordsC, recordsC, arkcLmsl, arkcbLmsl});
    checkPrograms<DoubleCplx, DoubleCplx, DoubleCplx>({recordsZ, recordsZ, arkzLmsl, arkzbLmsl});
    checkPrograms<float, FloatCplx, FloatCplx>({recordsC, recordsS, arkscLmsl, arkscbLmsl});
    checkPrograms<double, DoubleCplx, DoubleCplx>({recordsZ, recordsD, arkdzLmsl, arkdzbLmsl});
}

template <class X, class T, class Y>
struct NonAdaptiveMember {
    const Records<T>& taps;
    const Records<X>& data;
    Y (*one)(const LmslTapState*, LmslDlyState*, X);
    void (*block)(const LmslTapState*, LmslDlyState*, const X*, Y*, int);
};

template <class X, class T, class Y>
class NonAdaptive {
public:
    NonAdaptive(const NonAdaptiveMember<X, T, Y>& member, const std::vector<T>& taps, fir::Rate rate, int errDelay)
        : member_{member},
          tapArray_{taps},
          dlyl_{taps.size() + std::size_t(errDelay + (rate.isMulti() ? rate.down : 0))}
    {
        member_.taps.initMr(0, tapArray_.data(), int(taps.size()), 0, 0, errDelay, rate.down, rate.downPhase, &taps_);
        member_.data.initDlyl(&taps_, dlyl_.data(), 1, &dly_);
        setHistory(nullptr);
    }
    int historyLen() const { return dly_.dlylLen - !taps_.isMultiRate; }
    void setHistory(const std::vector<X>* history)
    {
        member_.data.setDlyl(&taps_, history ? history->data() : nullptr, &dly_);
    }
    Y one(X sample) { return member_.one(&taps_, &dly_, sample); }
    std::vector<Y> block(Guarded<X>& src, int numIters, int outputs)
    {
        Guarded<Y> dst{std::size_t(outputs)};
        member_.block(&taps_, &dly_, src.data(), dst.data(), numIters);
        return dst.values();
    }

private:
    NonAdaptiveMember<X, T, Y> member_;
    Guarded<T> tapArray_;
    Guarded<X> dlyl_;
    LmslTapState taps_;
    LmslDlyState dly_;
};

// Without adaptation: the FIR filter of the same taps, however long the delay line is.
template <class X, class T, class Y>
void checkNonAdaptive(const NonAdaptiveMember<X, T, Y>& member)
{
    for (int round = 0; round < 60; round++) {
        const lms::Parameters p = lms::anyParameters();
        const fir::Rate rate{1, 0, p.down, p.downPhase};
        const std::vector<T> taps = fir::anyValues<T>(p.tapsLen);
        NonAdaptive<X, T, Y> filter{member, taps, rate, p.errDelay};
        fir::Model<X, T> model{taps, rate};
        for (int call = 0; call < 4; call++) {
            const int numIters = randomInt(1, 90);
            Guarded<X> src{fir::anyValues<X>(numIters * p.down)};
            std::vector<Y> dst;
            const std::vector<fir::Sum> expected = model.filter(src.values());
            if (p.down == 1 && call % 2)
                for (const X& sample : src.values())
                    dst.push_back(filter.one(sample));
            else
                dst = filter.block(src, numIters, numIters);
            for (std::size_t i = 0; i < expected.size(); i++)
                ASSERT_NO_FATAL_FAILURE(fir::expectNear(dst[i], expected[i], taps.size()));
        }
    }
    fir::checkInfiniteTaps<X, T>([&](const std::vector<T>& taps, fir::Rate rate) {
        return NonAdaptive<X, T, Y>{member, taps, rate, 2};
    });
}

TEST(Lmsl, WithoutAdaptation)
{
    checkNonAdaptive<float, float, float>({recordsS, recordsS, arksLmslNa, arksbLmslNa});
    checkNonAdaptive<double, double, double>({recordsD, recordsD, arkdLmslNa, arkdbLmslNa});
    checkNonAdaptive<FloatCplx, FloatCplx, FloatCplx>({recordsC, recordsC, arkcLmslNa, arkcbLmslNa});
    checkNonAdaptive<DoubleCplx, DoubleCplx, DoubleCplx>({recordsZ, recordsZ, arkzLmslNa, arkzbLmslNa});
    checkNonAdaptive<float, FloatCplx, FloatCplx>({recordsC, recordsS, arkscLmslNa, arkscbLmslNa});
    checkNonAdaptive<FloatCplx, float, FloatCplx>({recordsS, recordsC, arkcsLmslNa, arkcsbLmslNa});
    checkNonAdaptive<double, DoubleCplx, DoubleCplx>({recordsZ, recordsD, arkdzLmslNa, arkdzbLmslNa});
    checkNonAdaptive<DoubleCplx, double, DoubleCplx>({recordsD, recordsZ, arkzdLmslNa, arkzdbLmslNa});
}

// To the bit: rational numbers, rounded to nearest even by hand.
TEST(Lmsl, Of16Bits)
{
    const auto toShort = [](long double x) {
        long long down = static_cast<long long>(std::floor(x));
        const long double rest = x - static_cast<long double>(down);
        down += rest > 0.5L || (rest == 0.5L && down % 2 != 0);
        return short(std::clamp(down, -32768LL, 32767LL));
    };
    for (int round = 0; round < 50; round++) {
        const int n = randomInt(1, 40), errDelay = randomInt(0, 5), range = randomInt(0, 1) ? 32767 : 300;
        const float step = float(randomInt(-1, 8)) / 8;
        Guarded<short> taps{fir::anyValues<short>(n)}, dlyl{std::size_t(n + errDelay)};
        std::vector<short> model = taps.values(), past(std::size_t(n + errDelay), 0); // newest first
        LmslTapState tapState;
        LmslDlyState dlyState;
        arkwLmslInit(1, taps.data(), n, step, errDelay, &tapState);
        arkwLmslInitDlyl(&tapState, dlyl.data(), 1, &dlyState);
        arkwLmslSetDlyl(&tapState, nullptr, &dlyState);
        EXPECT_EQ(arkwLmslGetStep(&tapState), step);
        for (int i = 0; i < 60; i++) {
            const short sample = short(randomInt(-range - 1, range)), err = short(randomInt(-range - 1, range));
            for (int k = 0; step > 0 && k < n; k++)
                model[std::size_t(k)] = toShort(model[std::size_t(k)] + static_cast<long double>(step) * err *
                                                                            past[std::size_t(errDelay + k)] / 32768);
            past.insert(past.begin(), sample);
            long double sum = 0;
            for (int k = 0; k < n; k++)
                sum += static_cast<long double>(model[std::size_t(k)]) * past[std::size_t(k)];
            ASSERT_EQ(arkwLmsl(&tapState, &dlyState, sample, err), toShort(sum / 32768));
        }
        Guarded<short> learnt{std::size_t(n)}, history{std::size_t(n + errDelay - 1)};
        arkwLmslGetTaps(&tapState, learnt.data());
        EXPECT_EQ(learnt.values(), model);
        arkwLmslGetDlyl(&tapState, &dlyState, history.data());
        for (int i = 0; i < n + errDelay - 1; i++)
            EXPECT_EQ(history[std::size_t(i)], past[std::size_t(n + errDelay - 2 - i)]) << "oldest first";
        arkwLmslSetTaps(learnt.data(), &tapState);
        arkwLmslSetStep(&tapState, 2);
        EXPECT_EQ(tapState.step, 2);
    }
}

TEST(Lmsl, FieldsAndReports)
{
    double taps[3] = {1, 2, 3}, dlyl[8] = {}, src[4] = {1, 2, 3, 4}, dst[4];
    LmslTapState tapState{};
    LmslDlyState dlyState{};
    Reports reports;
    using Messages = std::vector<std::string>;
    arkdLmslInit(0, taps, 0, 0, 0, -1, &tapState);
    arkdLmslInit(0, taps, 3, 0, 0, -1, &tapState);
    arkdLmslInitMr(0, taps, 3, 0, 0, -1, 0, -1, &tapState);
    arkdLmslInitMr(0, taps, 3, 0, 0, 0, 3, -1, &tapState);
    arkdLmslInitMr(0, taps, 3, 0, 0, 0, 3, 3, &tapState);
    EXPECT_EQ(reports.messages(),
              (Messages{"Invalid buffer length", "Invalid error delay value", "Invalid error delay value",
                        "Invalid factor value", "Invalid factor value"}));
    arkdLmslInit(0, taps, 3, 0, 0, INT_MAX, &tapState);
    arkdLmslInitDlyl(&tapState, dlyl, 1, &dlyState);
    EXPECT_EQ(reports.messages(), Messages{"Invalid buffer length"});
    EXPECT_EQ(dlyState.dlyl, nullptr);

    arkdLmslInitMr(0, taps, 3, 0.5f, 0.25f, 2, 3, 1, &tapState);
    arkdLmslInitDlyl(&tapState, dlyl, 1, &dlyState);
    EXPECT_EQ(dlyState.dlylLen, 8);
    EXPECT_EQ(dlyState.isFilterMode, 1);
    EXPECT_EQ(tapState.isMultiRate, 1);
    EXPECT_EQ(arkdLmslGetLeak(&tapState), 0.25f);
    arkdLmslSetLeak(&tapState, 1);
    arkdLmslSetStep(&tapState, 2);
    EXPECT_EQ(tapState.leak, 1);
    EXPECT_EQ(arkdLmslGetStep(&tapState), 2);

    arkdbLmslNa(&tapState, &dlyState, src, dst, 0);
    arkdLmslGetTaps(&tapState, taps);
    arkdbLmslNa(&tapState, &dlyState, src, dst, 1);
    arkdLmslGetDlyl(&tapState, &dlyState, dlyl);
    arkdbLmslNa(&tapState, &dlyState, src, dst, 1);
    EXPECT_EQ(reports.messages(), (Messages{"Invalid array length", "Not filter mode", "Not filter mode"}));
}

} // namespace
