#include "filter/fir_model.hpp"

#include "support/bad_calls.hpp"
#include "support/reports.hpp"

#include <climits>

namespace {

const BadCalls allNull{
    "arkfirl",
    {ZEROS(arksFirlInit),     ZEROS(arkdFirlInit),     ZEROS(arkcFirlInit),     ZEROS(arkzFirlInit),
     ZEROS(arkwFirlInit),     ZEROS(arksFirlInitMr),   ZEROS(arkdFirlInitMr),   ZEROS(arkcFirlInitMr),
     ZEROS(arkzFirlInitMr),   ZEROS(arkwFirlInitMr),   ZEROS(arksFirlInitDlyl), ZEROS(arkdFirlInitDlyl),
     ZEROS(arkcFirlInitDlyl), ZEROS(arkzFirlInitDlyl), ZEROS(arkwFirlInitDlyl), ZEROS(arksFirlSetTaps),
     ZEROS(arkdFirlSetTaps),  ZEROS(arkcFirlSetTaps),  ZEROS(arkzFirlSetTaps),  ZEROS(arkwFirlSetTaps),
     ZEROS(arksFirlGetTaps),  ZEROS(arkdFirlGetTaps),  ZEROS(arkcFirlGetTaps),  ZEROS(arkzFirlGetTaps),
     ZEROS(arkwFirlGetTaps),  ZEROS(arksFirlSetDlyl),  ZEROS(arkdFirlSetDlyl),  ZEROS(arkcFirlSetDlyl),
     ZEROS(arkzFirlSetDlyl),  ZEROS(arkwFirlSetDlyl),  ZEROS(arksFirlGetDlyl),  ZEROS(arkdFirlGetDlyl),
     ZEROS(arkcFirlGetDlyl),  ZEROS(arkzFirlGetDlyl),  ZEROS(arkwFirlGetDlyl),  ZEROS(arksFirl),
     ZEROS(arkdFirl),         ZEROS(arkcFirl),         ZEROS(arkzFirl),         ZEROS(arkscFirl),
     ZEROS(arkcsFirl),        ZEROS(arkdzFirl),        ZEROS(arkzdFirl),        ZEROS(arkwFirl),
     ZEROS(arksbFirl),        ZEROS(arkdbFirl),        ZEROS(arkcbFirl),        ZEROS(arkzbFirl),
     ZEROS(arkscbFirl),       ZEROS(arkcsbFirl),       ZEROS(arkdzbFirl),       ZEROS(arkzdbFirl),
     ZEROS(arkwbFirl)},
    {"Null buffer pointer"}};

// The functions of the record of one element type.
template <class T>
struct Records {
    void (*init)(T*, int, FirlTapState*);
    void (*initMr)(T*, int, int, int, int, int, FirlTapState*);
    void (*initDlyl)(const FirlTapState*, T*, FirlDlyState*);
    void (*setTaps)(const T*, FirlTapState*);
    void (*getTaps)(FirlTapState*, T*);
    void (*setDlyl)(const FirlTapState*, const T*, FirlDlyState*);
    void (*getDlyl)(const FirlTapState*, FirlDlyState*, T*);
};
template <class T>
extern const Records<T> records;
template <>
constexpr Records<float> records<float>{arksFirlInit,    arksFirlInitMr,  arksFirlInitDlyl, arksFirlSetTaps,
                                        arksFirlGetTaps, arksFirlSetDlyl, arksFirlGetDlyl};
template <>
constexpr Records<double> records<double>{arkdFirlInit,    arkdFirlInitMr,  arkdFirlInitDlyl, arkdFirlSetTaps,
                                          arkdFirlGetTaps, arkdFirlSetDlyl, arkdFirlGetDlyl};
template <>
constexpr Records<FloatCplx> records<FloatCplx>{arkcFirlInit,    arkcFirlInitMr,  arkcFirlInitDlyl, arkcFirlSetTaps,
                                                arkcFirlGetTaps, arkcFirlSetDlyl, arkcFirlGetDlyl};
template <>
constexpr Records<DoubleCplx> records<DoubleCplx>{arkzFirlInit,    arkzFirlInitMr,  arkzFirlInitDlyl, arkzFirlSetTaps,
                                                  arkzFirlGetTaps, arkzFirlSetDlyl, arkzFirlGetDlyl};
template <>
constexpr Records<short> records<short>{arkwFirlInit,    arkwFirlInitMr,  arkwFirlInitDlyl, arkwFirlSetTaps,
                                        arkwFirlGetTaps, arkwFirlSetDlyl, arkwFirlGetDlyl};

template <class X, class T, class Y>
struct Member {
    Y (*one)(const FirlTapState*, FirlDlyState*, X);
    void (*block)(const FirlTapState*, FirlDlyState*, const X*, Y*, int);
};

// Both records and their arrays, exactly as long as promised.
template <class X, class T, class Y>
class LowLevel {
public:
    LowLevel(const Member<X, T, Y>& member, const std::vector<T>& taps, fir::Rate rate)
        : member_{member},
          tapArray_{taps.size()},
          dlyl_{rate.isMulti() ? (taps.size() + std::size_t(rate.up) - 1) / std::size_t(rate.up) + 1 : taps.size() + 1}
    {
        const int n = int(taps.size());
        if (rate.isMulti() || randomInt(0, 1))
            records<T>.initMr(tapArray_.data(), n, rate.up, rate.upPhase, rate.down, rate.downPhase, &taps_);
        else
            records<T>.init(tapArray_.data(), n, &taps_);
        setTaps(taps);
        records<X>.initDlyl(&taps_, dlyl_.data(), &dly_);
        records<X>.setDlyl(&taps_, nullptr, &dly_);
    }

    int historyLen() const { return taps_.isMultiRate ? dly_.dlylLen : dly_.dlylLen - 1; }
    void setTaps(const std::vector<T>& taps) { records<T>.setTaps(taps.data(), &taps_); }
    std::vector<T> taps()
    {
        Guarded<T> out{tapArray_.values().size()};
        records<T>.getTaps(&taps_, out.data());
        EXPECT_EQ(taps_.isFilterMode, 0);
        records<T>.setTaps(tapArray_.data(), &taps_);
        return out.values();
    }
    void setHistory(const std::vector<X>* history)
    {
        if (!history)
            return records<X>.setDlyl(&taps_, nullptr, &dly_);
        if (randomInt(0, 1))
            return records<X>.setDlyl(&taps_, history->data(), &dly_);
        dly_.isFilterMode = 0; // in the array itself
        std::copy(history->begin(), history->end(), dlyl_.begin());
        records<X>.setDlyl(&taps_, dlyl_.data(), &dly_);
    }
    std::vector<X> history()
    {
        const std::size_t n = std::size_t(historyLen());
        Guarded<X> out{n};
        const bool inPlace = randomInt(0, 1);
        records<X>.getDlyl(&taps_, &dly_, inPlace ? dlyl_.data() : out.data());
        if (inPlace)
            std::copy(dlyl_.begin(), dlyl_.begin() + n, out.begin());
        EXPECT_EQ(dly_.isFilterMode, 0);
        records<X>.setDlyl(&taps_, out.data(), &dly_);
        return out.values();
    }
    Y one(X sample) { return member_.one(&taps_, &dly_, sample); }
    std::vector<Y> block(Guarded<X>& src, int numIters, int outputs)
    {
        Guarded<Y> dst{std::size_t(outputs)};
        member_.block(&taps_, &dly_, src.data(), dst.data(), numIters);
        return dst.values();
    }
    void expect(Y got, const fir::Sum& sum) { fir::expectNear(got, sum, tapArray_.values().size()); }

private:
    Member<X, T, Y> member_;
    Guarded<T> tapArray_;
    Guarded<X> dlyl_;
    FirlTapState taps_;
    FirlDlyState dly_;
};

template <class X, class T, class Y>
void checkPrograms(const Member<X, T, Y>& member)
{
    for (int round = 0; round < 150; round++) {
        const std::vector<T> taps = fir::anyValues<T>(fir::anyTapsLen());
        const fir::Rate rate = fir::anyRate();
        LowLevel<X, T, Y> filter{member, taps, rate};
        ASSERT_NO_FATAL_FAILURE((fir::checkProgram<X, T>(filter, taps, rate)));
    }
    fir::checkInfiniteTaps<X, T>([&](const std::vector<T>& taps, fir::Rate rate) {
        return LowLevel<X, T, Y>{member, taps, rate};
    });
}

TEST(Firl, FiltersByDefinition)
{
    checkPrograms<float, float, float>({arksFirl, arksbFirl});
    checkPrograms<double, double, double>({arkdFirl, arkdbFirl});
    checkPrograms<FloatCplx, FloatCplx, FloatCplx>({arkcFirl, arkcbFirl});
    checkPrograms<DoubleCplx, DoubleCplx, DoubleCplx>({arkzFirl, arkzbFirl});
    checkPrograms<float, FloatCplx, FloatCplx>({arkscFirl, arkscbFirl});
    checkPrograms<FloatCplx, float, FloatCplx>({arkcsFirl, arkcsbFirl});
    checkPrograms<double, DoubleCplx, DoubleCplx>({arkdzFirl, arkdzbFirl});
    checkPrograms<DoubleCplx, double, DoubleCplx>({arkzdFirl, arkzdbFirl});
}

// Sums below 2^24 are exact on the way through float: blocks scale them, and equal the one-sample function's.
TEST(Firl, Of16BitsScales)
{
    struct Exactly {
        int mode, factor;
        std::vector<short> operator()(const std::vector<fir::Sum>& sums, int* chosen) const
        {
            std::vector<long long> whole;
            for (const fir::Sum& sum : sums)
                whole.push_back(std::llround(sum.value.real()));
            int shift = mode & ARK_FIXED_SCALE ? factor : 0;
            const auto outside = [&](long long x) { return (x >> shift) != short(x >> shift); };
            if (mode == ARK_AUTO_SCALE)
                while (std::any_of(whole.begin(), whole.end(), outside))
                    shift++;
            *chosen = shift;
            std::vector<short> out;
            for (long long x : whole) {
                x = shift >= 0 ? x >> std::min(shift, 40) : x * (1 << std::min(-shift, 15));
                if ((mode & ARK_SATURATE) != 0 && mode != 5)
                    x = std::clamp(x, -32768LL, 32767LL);
                out.push_back(short(x));
            }
            return out;
        }
    };
    for (int round = 0; round < 300; round++) {
        const std::vector<short> taps = fir::anyValues<short>(randomInt(1, 16));
        const fir::Rate rate = fir::anyRate();
        const Exactly rule{randomInt(0, 7), randomInt(-20, 40)};
        fir::Model<short, short> model{taps, rate};
        FirlTapState tapState;
        FirlDlyState dlyState;
        Guarded<short> tapArray{taps}, dlyl{taps.size() + 1};
        records<short>.initMr(tapArray.data(), int(taps.size()), rate.up, rate.upPhase, rate.down, rate.downPhase,
                              &tapState);
        records<short>.initDlyl(&tapState, dlyl.data(), &dlyState);
        records<short>.setDlyl(&tapState, nullptr, &dlyState);
        for (int block = 0; block < 3; block++) {
            const int numIters = randomInt(1, 40);
            Guarded<short> src{fir::anyValues<short>(numIters * rate.down)}, dst{std::size_t(numIters * rate.up)};
            int factor = rule.factor, chosen;
            const std::vector<fir::Sum> sums = model.filter(src.values());
            arkwbFirl(&tapState, &dlyState, src.data(), dst.data(), numIters, rule.mode, &factor);
            ASSERT_EQ(dst.values(), rule(sums, &chosen)) << "mode " << rule.mode << " factor " << rule.factor;
            ASSERT_EQ(factor, rule.mode == ARK_AUTO_SCALE ? chosen : rule.factor);
            if (rate.isMulti())
                continue;
            const short sample = fir::anyValue<short>();
            const Exactly one{rule.mode & 2 ? rule.mode & 3 : 0, rule.factor}; // nothing else scales one sample
            factor = rule.factor;
            ASSERT_EQ(arkwFirl(&tapState, &dlyState, sample, rule.mode, &factor),
                      one(model.filter({sample}), &chosen)[0]);
        }
        Guarded<short> back{taps.size()}, history{std::size_t(dlyState.dlylLen - !rate.isMulti())};
        records<short>.getTaps(&tapState, back.data());
        EXPECT_EQ(back.values(), taps);
        records<short>.getDlyl(&tapState, &dlyState, history.data());
        EXPECT_EQ(history.values(), model.history(int(history.values().size())));
        records<short>.setTaps(nullptr, &tapState);
        EXPECT_EQ(tapArray.values(), std::vector<short>(taps.size()));
    }
}

TEST(Firl, Of16BitsWrapsIn32Bits)
{
    short taps[3] = {-32768, -32768, -32768}, dlyl[4], in = -32768, out[2] = {};
    FirlTapState tapState;
    FirlDlyState dlyState;
    arkwFirlInit(taps, 3, &tapState);
    arkwFirlInitDlyl(&tapState, dlyl, &dlyState);
    arkwFirlSetDlyl(&tapState, nullptr, &dlyState);
    int factor = 16;
    EXPECT_EQ(arkwFirl(&tapState, &dlyState, in, ARK_FIXED_SCALE, &factor), 16384);
    EXPECT_EQ(arkwFirl(&tapState, &dlyState, in, ARK_FIXED_SCALE, &factor), -32768) << "2^31 wraps";
    EXPECT_EQ(arkwFirl(&tapState, &dlyState, in, 7, &factor), -16384);
    EXPECT_EQ(arkwFirl(&tapState, &dlyState, 1, ARK_FIXED_SCALE, nullptr), -32768) << "no factor";
    // A block does not wrap: 2^31 + 32768 in float, and the low bits of that or its automatic scaling.
    const short src[2] = {-32768, -1};
    arkwFirlSetDlyl(&tapState, nullptr, &dlyState);
    arkwbFirl(&tapState, &dlyState, src, out, 2, ARK_AUTO_SCALE, nullptr);
    EXPECT_EQ(out[0], 16384);
    EXPECT_EQ(out[1], 16384);
    arkwbFirl(&tapState, &dlyState, src, out, 2, ARK_SATURATE, nullptr);
    EXPECT_EQ(out[0], 32767);
}

TEST(Firl, ModesAndReports)
{
    float taps[3] = {1, 2, 3}, copy[3] = {}, dlyl[4] = {7, 8, 9, 10}, src[4] = {1, 1, 1, 1}, dst[4] = {};
    FirlTapState tapState;
    FirlDlyState dlyState;
    Reports reports;
    using Messages = std::vector<std::string>;

    arksFirlInit(taps, 0, &tapState);
    EXPECT_EQ(reports.messages(), Messages{"Invalid array length"});
    arksFirlInitMr(taps, 0, 0, 0, 0, 0, &tapState);
    arksFirlInitMr(taps, 1, 0, -1, 0, 0, &tapState);
    arksFirlInitMr(taps, 1, 0, 0, 0, -1, &tapState);
    arksFirlInitMr(taps, 1, 0, 0, 1, 0, &tapState);
    arksFirlInitMr(taps, 1, 2, 2, 1, 0, &tapState);
    arksFirlInitMr(taps, 1, 2, 0, 3, 3, &tapState);
    EXPECT_EQ(reports.messages(), (Messages{"Invalid array length", "Invalid phase value", "Invalid phase value",
                                            "Invalid factor value", "Invalid factor value", "Invalid factor value"}));

    arksFirlInitMr(taps, 3, 1, 0, 1, 0, &tapState);
    EXPECT_EQ(tapState.isMultiRate, 0);
    arksFirlInitDlyl(&tapState, dlyl, &dlyState);
    EXPECT_EQ(dlyState.dlylLen, 3);
    arksFirlGetDlyl(&tapState, &dlyState, copy);
    EXPECT_EQ(copy[0], 0) << "nothing is copied out of filter mode";
    EXPECT_EQ(reports.messages(), Messages{});
    arksbFirl(&tapState, &dlyState, src, dst, 0);
    arksbFirl(&tapState, &dlyState, nullptr, dst, 0);
    arksbFirl(&tapState, &dlyState, src, dst, 4);
    arksFirlGetTaps(&tapState, copy);
    arksFirlSetDlyl(&tapState, dlyl, &dlyState); // 7, 8: reversed in place
    EXPECT_EQ(dlyl[0], 8);
    arksFirlSetDlyl(&tapState, dlyl, &dlyState);
    EXPECT_EQ(dlyl[0], 8) << "nothing happens in filter mode";
    arksbFirl(&tapState, &dlyState, src, dst, 4);
    EXPECT_EQ(reports.messages(),
              (Messages{"Invalid array length", "Null buffer pointer", "Not filter mode", "Not filter mode"}));
    EXPECT_EQ(dst[0], 0);

    // An old failure stops nothing, and one-sample calls do not look at the mode.
    arkSetErrStatus(ARK_StatusBadArgument);
    EXPECT_EQ(arksFirl(&tapState, &dlyState, 1), 1 + 2 * 8 + 3 * 7);
    arksFirlSetTaps(nullptr, &tapState);
    EXPECT_EQ(taps[2], 0);
    EXPECT_EQ(tapState.isFilterMode, 1);
    arksFirlGetDlyl(&tapState, &dlyState, dlyl);
    EXPECT_EQ(dlyl[0], 8) << "in the order of time";
    EXPECT_EQ(dlyl[1], 1);
}

// The walk goes from output to output, not along the up-sampled axis, which has 4e10 steps here.
TEST(Firl, HugeFactors)
{
    double taps[2] = {2, 3}, dlyl[2], src[1] = {5}, dst[1] = {};
    FirlTapState tapState;
    FirlDlyState dlyState;
    std::vector<double> many(200000, 1);
    arkdFirlInitMr(taps, 2, 1, 0, 200000, 199999, &tapState);
    arkdFirlInitDlyl(&tapState, dlyl, &dlyState);
    arkdFirlSetDlyl(&tapState, nullptr, &dlyState);
    arkdbFirl(&tapState, &dlyState, many.data(), dst, 1);
    EXPECT_EQ(dst[0], 5);
    arkdFirlInitMr(taps, 2, 200000, 1, 1, 0, &tapState);
    arkdFirlInitDlyl(&tapState, dlyl, &dlyState);
    arkdFirlSetDlyl(&tapState, nullptr, &dlyState);
    arkdbFirl(&tapState, &dlyState, src, many.data(), 1);
    EXPECT_EQ((std::vector<double>(many.begin(), many.begin() + 4)), (std::vector<double>{0, 10, 15, 0}));

    std::vector<double> longer(200000, 1);
    arkdFirlInitMr(taps, 2, 200000, 1, 200000, 1, &tapState);
    arkdFirlInitDlyl(&tapState, dlyl, &dlyState);
    arkdFirlSetDlyl(&tapState, nullptr, &dlyState);
    arkdbFirl(&tapState, &dlyState, longer.data(), many.data(), 1);
    EXPECT_EQ(many, std::vector<double>(200000, 2)) << "always the tap of the sample that has just entered";
}

} // namespace
