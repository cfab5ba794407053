#include "filter/lms_model.hpp"

#include "support/bad_calls.hpp"
#include "support/reports.hpp"

#include <climits>

namespace {

const BadCalls allNull{
    "arklmsh",
    {ZEROS(arksLmsInit),      ZEROS(arkdLmsInit),      ZEROS(arkcLmsInit),      ZEROS(arkzLmsInit),
     ZEROS(arkscLmsInit),     ZEROS(arkdzLmsInit),     ZEROS(arksLmsInitMr),    ZEROS(arkdLmsInitMr),
     ZEROS(arkcLmsInitMr),    ZEROS(arkzLmsInitMr),    ZEROS(arkscLmsInitMr),   ZEROS(arkdzLmsInitMr),
     ZEROS(arksLms),          ZEROS(arkdLms),          ZEROS(arkcLms),          ZEROS(arkzLms),
     ZEROS(arkscLms),         ZEROS(arkdzLms),         ZEROS(arksbLms),         ZEROS(arkdbLms),
     ZEROS(arkcbLms),         ZEROS(arkzbLms),         ZEROS(arkscbLms),        ZEROS(arkdzbLms),
     ZEROS(arksLmsDes),       ZEROS(arkdLmsDes),       ZEROS(arkcLmsDes),       ZEROS(arkzLmsDes),
     ZEROS(arkscLmsDes),      ZEROS(arkdzLmsDes),      ZEROS(arksbLmsDes),      ZEROS(arkdbLmsDes),
     ZEROS(arkcbLmsDes),      ZEROS(arkzbLmsDes),      ZEROS(arkscbLmsDes),     ZEROS(arkdzbLmsDes),
     ZEROS(arksLmsGetStep),   ZEROS(arkdLmsGetStep),   ZEROS(arkcLmsGetStep),   ZEROS(arkzLmsGetStep),
     ZEROS(arksLmsSetStep),   ZEROS(arkdLmsSetStep),   ZEROS(arkcLmsSetStep),   ZEROS(arkzLmsSetStep),
     ZEROS(arksLmsGetLeak),   ZEROS(arkdLmsGetLeak),   ZEROS(arkcLmsGetLeak),   ZEROS(arkzLmsGetLeak),
     ZEROS(arksLmsSetLeak),   ZEROS(arkdLmsSetLeak),   ZEROS(arkcLmsSetLeak),   ZEROS(arkzLmsSetLeak),
     ZEROS(arksLmsGetErrVal), ZEROS(arkdLmsGetErrVal), ZEROS(arkcLmsGetErrVal), ZEROS(arkzLmsGetErrVal),
     ZEROS(arksLmsSetErrVal), ZEROS(arkdLmsSetErrVal), ZEROS(arkcLmsSetErrVal), ZEROS(arkzLmsSetErrVal),
     ZEROS(arksLmsGetTaps),   ZEROS(arkdLmsGetTaps),   ZEROS(arkcLmsGetTaps),   ZEROS(arkzLmsGetTaps),
     ZEROS(arksLmsSetTaps),   ZEROS(arkdLmsSetTaps),   ZEROS(arkcLmsSetTaps),   ZEROS(arkzLmsSetTaps),
     ZEROS(arksLmsGetDlyl),   ZEROS(arkdLmsGetDlyl),   ZEROS(arkcLmsGetDlyl),   ZEROS(arkzLmsGetDlyl),
     ZEROS(arksLmsSetDlyl),   ZEROS(arkdLmsSetDlyl),   ZEROS(arkcLmsSetDlyl),   ZEROS(arkzLmsSetDlyl),
     ZEROS(arkLmsFree)},
    {"Null buffer pointer"}};

template <class X, class T, class Y>
struct Member {
    void (*init)(int, const T*, int, const X*, float, float, int, LmsState*);
    void (*initMr)(int, const T*, int, const X*, float, float, int, int, int, LmsState*);
    Y (*one)(LmsState*, X, Y);
    Y (*decimating)(LmsState*, const X*, Y);
    Y (*desiring)(LmsState*, X, Y);
    void (*block)(LmsState*, const X*, const Y*, Y*, int);
    void (*getTaps)(const LmsState*, T*);
    void (*setTaps)(const T*, LmsState*);
    void (*getDlyl)(const LmsState*, X*);
    void (*setDlyl)(const X*, LmsState*);
    Y (*getErrVal)(const LmsState*);
    void (*setErrVal)(LmsState*, Y);
};

template <class X, class T, class Y>
void checkPrograms(const Member<X, T, Y>& member)
{
    for (int round = 0; round < 100; round++) {
        const lms::Parameters p = lms::anyParameters();
        const int historyLen = p.tapsLen + p.errDelay;
        const std::vector<T> taps = fir::anyValues<T>(p.tapsLen);
        const std::vector<X> history = fir::anyValues<X>(historyLen - 1);
        lms::Model<X, T> model{taps, p, historyLen + p.down};
        LmsState state;
        if (p.down > 1)
            member.initMr(5, taps.data(), p.tapsLen, nullptr, p.step, p.leak, p.errDelay, p.down, p.downPhase, &state);
        else
            member.init(5, taps.data(), p.tapsLen, history.data(), p.step, p.leak, p.errDelay, &state);
        if (p.down == 1)
            model.setHistory(history);
        EXPECT_EQ(state.dlylLen, historyLen);
        EXPECT_TRUE(fir::exact(member.getErrVal(&state)) == fir::exact(Y{}));
        for (int step = 0; step < 25; step++) {
            Y err = fir::anyValue<Y>();
            Guarded<X> src{fir::anyValues<X>(p.down)};
            fir::Exact expected;
            Y got;
            switch (randomInt(0, 5)) {
            case 0:
                got = member.one(&state, src[0], err);
                expected = model.step({src[0]}, 0, fir::exact(err), p.step > 0);
                break;
            case 1:
                got = member.decimating(&state, src.data(), err);
                expected = model.step(src.values(), p.down - p.downPhase - 1, fir::exact(err), p.step > 0);
                break;
            case 2: { // desired values, in place
                member.setErrVal(&state, err);
                const int n = randomInt(1, 12);
                Guarded<X> samples{fir::anyValues<X>(n)};
                Guarded<Y> desired{fir::anyValues<Y>(n)};
                for (int i = 0; i < n; i++) {
                    expected = model.step({samples[std::size_t(i)]}, 0, fir::exact(err), true);
                    err = lms::narrowed<Y>(fir::exact(desired[std::size_t(i)]) - expected);
                }
                member.block(&state, samples.data(), desired.data(), desired.data(), n);
                got = desired[std::size_t(n - 1)];
                ASSERT_NO_FATAL_FAILURE(lms::expectNear(member.getErrVal(&state), fir::exact(err), p.tapsLen));
                member.setErrVal(&state, Y{});
                break;
            }
            case 3: {
                member.setErrVal(&state, err);
                const Y desired = fir::anyValue<Y>();
                got = member.desiring(&state, src[0], desired);
                expected = model.step({src[0]}, 0, fir::exact(err), true);
                ASSERT_NO_FATAL_FAILURE(
                    lms::expectNear(member.getErrVal(&state), fir::exact(desired) - expected, p.tapsLen));
                break;
            }
            case 4: { // history out, and another in, oldest first
                Guarded<X> out{std::size_t(historyLen - 1)};
                member.getDlyl(&state, out.data());
                for (int i = 0; i < historyLen - 1; i++)
                    EXPECT_TRUE(fir::exact(out[std::size_t(historyLen - 2 - i)]) == fir::exact(model.age(i)));
                const std::vector<X> other = fir::anyValues<X>(historyLen - 1);
                if (other.empty()) // whose address is null, which means zeros
                    continue;
                member.setDlyl(other.data(), &state);
                model.setHistory(other);
                continue;
            }
            default: {
                Guarded<T> learnt{std::size_t(p.tapsLen)};
                member.getTaps(&state, learnt.data());
                for (std::size_t i = 0; i < learnt.values().size(); i++)
                    ASSERT_NO_FATAL_FAILURE(lms::expectNear(learnt[i], fir::exact(model.taps()[i]), 2));
                model.taps() = learnt.values();
                continue;
            }
            }
            ASSERT_NO_FATAL_FAILURE(lms::expectNear(got, expected, p.tapsLen)) << "step " << step;
        }
        const std::vector<T> zeros(std::size_t(p.tapsLen), T{});
        Guarded<T> out{zeros.size()};
        member.setTaps(nullptr, &state);
        member.setDlyl(nullptr, &state);
        member.getTaps(&state, out.data());
        EXPECT_EQ(std::memcmp(out.data(), zeros.data(), zeros.size() * sizeof(T)), 0);
        arkLmsFree(&state);
    }
}

TEST(Lms, LearnsByDefinition)
{
    checkPrograms<float, float, float>({arksLmsInit, arksLmsInitMr, arksLms, arksbLms, arksLmsDes, arksbLmsDes,
                                        arksLmsGetTaps, arksLmsSetTaps, arksLmsGetDlyl, arksLmsSetDlyl,
                                        arksLmsGetErrVal, arksLmsSetErrVal});
    checkPrograms<double, double, double>({arkdLmsInit, arkdLmsInitMr, arkdLms, arkdbLms, arkdLmsDes, arkdbLmsDes,
                                           arkdLmsGetTaps, arkdLmsSetTaps, arkdLmsGetDlyl, arkdLmsSetDlyl,
                                           arkdLmsGetErrVal, arkdLmsSetErrVal});
    checkPrograms<FloatCplx, FloatCplx, FloatCplx>({arkcLmsInit, arkcLmsInitMr, arkcLms, arkcbLms, arkcLmsDes,
                                                    arkcbLmsDes, arkcLmsGetTaps, arkcLmsSetTaps, arkcLmsGetDlyl,
                                                    arkcLmsSetDlyl, arkcLmsGetErrVal, arkcLmsSetErrVal});
    checkPrograms<DoubleCplx, DoubleCplx, DoubleCplx>({arkzLmsInit, arkzLmsInitMr, arkzLms, arkzbLms, arkzLmsDes,
                                                       arkzbLmsDes, arkzLmsGetTaps, arkzLmsSetTaps, arkzLmsGetDlyl,
                                                       arkzLmsSetDlyl, arkzLmsGetErrVal, arkzLmsSetErrVal});
    checkPrograms<float, FloatCplx, FloatCplx>({arkscLmsInit, arkscLmsInitMr, arkscLms, arkscbLms, arkscLmsDes,
                                                arkscbLmsDes, arkcLmsGetTaps, arkcLmsSetTaps, arksLmsGetDlyl,
                                                arksLmsSetDlyl, arkcLmsGetErrVal, arkcLmsSetErrVal});
    checkPrograms<double, DoubleCplx, DoubleCplx>({arkdzLmsInit, arkdzLmsInitMr, arkdzLms, arkdzbLms, arkdzLmsDes,
                                                   arkdzbLmsDes, arkzLmsGetTaps, arkzLmsSetTaps, arkdLmsGetDlyl,
                                                   arkdLmsSetDlyl, arkzLmsGetErrVal, arkzLmsSetErrVal});
}

// Blocks of any lengths, longer than what is laid out at once, and delay lines too long to be laid out at all.
TEST(Lms, BlocksGiveWhatSingleSamplesGive)
{
    constexpr int samples = 9000;
    const std::vector<double> input = fir::anyValues<double>(samples), desired = fir::anyValues<double>(samples);
    for (const int taps : {5, 1500}) {
        LmsState single, blocks;
        arkdLmsInit(0, nullptr, taps, nullptr, 1e-5f, 0, 2, &single);
        arkdLmsInit(0, nullptr, taps, nullptr, 1e-5f, 0, 2, &blocks);
        std::vector<double> expected, got(input);
        for (std::size_t i = 0; i < samples; i++)
            expected.push_back(arkdLmsDes(&single, input[i], desired[i]));
        for (int done = 0, n; done < samples; done += n) {
            n = std::min(samples - done, randomInt(1, 5000));
            arkdbLmsDes(&blocks, got.data() + done, desired.data() + done, got.data() + done, n);
        }
        EXPECT_EQ(got, expected);
        arkLmsFree(&single);
        arkLmsFree(&blocks);
    }
}

// A known system, white noise of power 1/3 through it, measured with noise of power q. In the end the output differs
// from the system's by the misadjustment step N p / (2 - step N p) times q (independence theory, which is good to some
// per cent for small steps).
TEST(Lms, FindsAKnownSystem)
{
    constexpr int taps = 16, samples = 400000;
    const float step = 0.02f;
    const double expected = step * taps / 3.0 / (2 - step * taps / 3.0);
    const std::vector<double> system = fir::anyValues<double>(taps), input = fir::anyValues<double>(samples);
    for (const double noise : {0.0, 0.1}) {
        LmsState state;
        arkdLmsInit(0, nullptr, taps, nullptr, step, 0, 0, &state);
        double excess = 0;
        for (int i = 0; i < samples; i++) {
            double clean = 0;
            for (int k = 0; k < taps && k <= i; k++)
                clean += system[std::size_t(k)] * input[std::size_t(i - k)];
            const double output = arkdLmsDes(&state, input[std::size_t(i)], clean + noise * fir::anyValue<double>());
            if (i >= samples / 10)
                excess += (output - clean) * (output - clean);
        }
        const double misadjustment = excess / (samples * 0.9) / (0.01 / 3);
        if (noise == 0) {
            Guarded<double> learnt{taps};
            arkdLmsGetTaps(&state, learnt.data());
            for (int k = 0; k < taps; k++)
                EXPECT_NEAR(learnt[std::size_t(k)], system[std::size_t(k)], 1e-12);
        } else {
            EXPECT_NEAR(misadjustment / expected, 1, 0.1);
        }
        arkLmsFree(&state);
    }
}

TEST(Lms, FieldsReportsAndFree)
{
    float taps[3] = {1, 2, 3}, array[4] = {};
    LmsState state{};
    Reports reports;
    using Messages = std::vector<std::string>;
    arksLmsInit(0, taps, 0, nullptr, 0, 0, -1, &state);
    arksLmsInit(0, taps, 3, nullptr, 0, 0, -1, &state);
    arksLmsInitMr(0, taps, 3, nullptr, 0, 0, 0, 0, -1, &state);
    arksLmsInitMr(0, taps, 3, nullptr, 0, 0, 0, 0, 0, &state);
    EXPECT_EQ(reports.messages(), (Messages{"Invalid buffer length", "Invalid error delay value",
                                            "Invalid factor value", "Invalid factor value"}));
    arksLmsInit(0, taps, 3, nullptr, 0, 0, INT_MAX, &state);
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusOutOfMemory);
    EXPECT_EQ(reports.messages(), Messages{"Problem to allocate memory"});

    arksLms(&state, 1, 1);
    arksbLms(&state, array, 1);
    arksLmsDes(&state, 1, 1);
    arksbLmsDes(&state, array, array, array, 1);
    arksLmsSetTaps(taps, &state);
    arksLmsGetTaps(&state, array);
    EXPECT_EQ(reports.messages(), Messages(6, "Taps state structure is not initialized"));
    arksLmsSetDlyl(taps, &state);
    arksLmsGetDlyl(&state, array);
    state.hasTaps = 1;
    arksLms(&state, 1, 1);
    state.hasTaps = 0;
    EXPECT_EQ(reports.messages(), Messages(3, "Delay line state structure is not initialized"));

    arksLmsInit(0, taps, 3, nullptr, 0.5f, 0.25f, 1, &state);
    EXPECT_EQ(arksLmsGetStep(&state), 0.5f);
    EXPECT_EQ(arksLmsGetLeak(&state), 0.25f);
    arksLmsSetStep(&state, 3);
    arksLmsSetLeak(&state, 4);
    EXPECT_EQ(state.step, 3);
    EXPECT_EQ(state.leak, 4);
    arksbLms(&state, nullptr, 1);
    arksbLmsDes(&state, nullptr, array, array, 0);
    arksbLmsDes(&state, array, nullptr, array, 0);
    arksbLmsDes(&state, array, array, nullptr, 0);
    arksLmsGetTaps(&state, nullptr);
    arksLmsGetDlyl(&state, nullptr);
    EXPECT_EQ(reports.messages(), Messages(6, "Null buffer pointer"));
    arksbLmsDes(&state, array, array, array, 0);
    EXPECT_EQ(reports.messages(), Messages{"Bad value of number of iterations"});
    arkLmsFree(&state);
    arkLmsFree(&state);
    EXPECT_EQ(reports.messages(), Messages{});
    EXPECT_EQ(state.hasBoth, 0);
}

} // namespace
