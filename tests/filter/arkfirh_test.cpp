#include "filter/fir_model.hpp"

#include "support/bad_calls.hpp"
#include "support/reports.hpp"

#include <climits>

namespace {

const BadCalls noState{
    "arkfirh",
    {ZEROS(arksFirInit),    ZEROS(arkdFirInit),    ZEROS(arkcFirInit),    ZEROS(arkzFirInit),    ZEROS(arkscFirInit),
     ZEROS(arkcsFirInit),   ZEROS(arkdzFirInit),   ZEROS(arkzdFirInit),   ZEROS(arksFirInitMr),  ZEROS(arkdFirInitMr),
     ZEROS(arkcFirInitMr),  ZEROS(arkzFirInitMr),  ZEROS(arkscFirInitMr), ZEROS(arkcsFirInitMr), ZEROS(arkdzFirInitMr),
     ZEROS(arkzdFirInitMr), ZEROS(arksFirSetTaps), ZEROS(arkdFirSetTaps), ZEROS(arkcFirSetTaps), ZEROS(arkzFirSetTaps),
     ZEROS(arksFirGetTaps), ZEROS(arkdFirGetTaps), ZEROS(arkcFirGetTaps), ZEROS(arkzFirGetTaps), ZEROS(arksFirSetDlyl),
     ZEROS(arkdFirSetDlyl), ZEROS(arkcFirSetDlyl), ZEROS(arkzFirSetDlyl), ZEROS(arksFirGetDlyl), ZEROS(arkdFirGetDlyl),
     ZEROS(arkcFirGetDlyl), ZEROS(arkzFirGetDlyl), ZEROS(arksFir),        ZEROS(arkdFir),        ZEROS(arkcFir),
     ZEROS(arkzFir),        ZEROS(arkscFir),       ZEROS(arkcsFir),       ZEROS(arkdzFir),       ZEROS(arkzdFir),
     ZEROS(arksbFir),       ZEROS(arkdbFir),       ZEROS(arkcbFir),       ZEROS(arkzbFir),       ZEROS(arkscbFir),
     ZEROS(arkcsbFir),      ZEROS(arkdzbFir),      ZEROS(arkzdbFir)},
    {"Null state pointer"}};
const BadCalls noShortState{"arkfirhw",
                            {ZEROS(arkwFirInit), ZEROS(arkwFirInitMr), ZEROS(arkwFirSetTaps), ZEROS(arkwFirGetTaps),
                             ZEROS(arkwFirSetDlyl), ZEROS(arkwFirGetDlyl), ZEROS(arkwFir), ZEROS(arkwbFir)},
                            {"Null state pointer"}};
const NoBadCalls reportsUnderAnotherName{"arkFirFree"};

// What an object of one pair of types is used through. Exchange goes by the taps' type and by the data's.
template <class X, class T, class Y>
struct Member {
    void (*init)(const T*, int, const X*, FirState*);
    void (*initMr)(const T*, int, const X*, int, int, int, int, FirState*);
    void (*setTaps)(const T*, FirState*);
    void (*getTaps)(const FirState*, T*);
    void (*setDlyl)(const X*, FirState*);
    void (*getDlyl)(const FirState*, X*);
    Y (*one)(FirState*, X);
    void (*block)(FirState*, const X*, Y*, int);
};

template <class X, class T, class Y>
class Object {
public:
    Object(const Member<X, T, Y>& member, const std::vector<T>& taps, fir::Rate rate) : member_{member}
    {
        member.init(taps.data(), int(taps.size()), nullptr, &state_); // is released by the next
        if (rate.isMulti() || randomInt(0, 1))
            member.initMr(taps.data(), int(taps.size()), nullptr, rate.up, rate.upPhase, rate.down, rate.downPhase,
                          &state_);
        EXPECT_EQ(state_.self, &state_);
        EXPECT_EQ(state_.isMultiRate, rate.isMulti());
    }
    ~Object() { arkFirFree(&state_); }

    int historyLen() const { return state_.dlylLen; }
    void setTaps(const std::vector<T>& taps) { member_.setTaps(taps.data(), &state_); }
    std::vector<T> taps()
    {
        Guarded<T> out{std::size_t(state_.givenTapsLen)};
        member_.getTaps(&state_, out.data());
        return out.values();
    }
    void setHistory(const std::vector<X>* history) { member_.setDlyl(history ? history->data() : nullptr, &state_); }
    std::vector<X> history()
    {
        Guarded<X> out{std::size_t(state_.dlylLen)};
        member_.getDlyl(&state_, out.data());
        return out.values();
    }
    Y one(X sample) { return member_.one(&state_, sample); }
    std::vector<Y> block(Guarded<X>& src, int numIters, int outputs)
    {
        Guarded<Y> dst{std::size_t(outputs)};
        member_.block(&state_, src.data(), dst.data(), numIters);
        return dst.values();
    }
    void expect(Y got, const fir::Sum& sum) { fir::expectNear(got, sum, std::size_t(state_.givenTapsLen)); }

private:
    Member<X, T, Y> member_;
    FirState state_{};
};

template <class X, class T, class Y>
void checkPrograms(const Member<X, T, Y>& member)
{
    for (int round = 0; round < 150; round++) {
        const std::vector<T> taps = fir::anyValues<T>(fir::anyTapsLen());
        const fir::Rate rate = fir::anyRate();
        Object<X, T, Y> filter{member, taps, rate};
        ASSERT_NO_FATAL_FAILURE((fir::checkProgram<X, T>(filter, taps, rate)));
    }
    fir::checkInfiniteTaps<X, T>([&](const std::vector<T>& taps, fir::Rate rate) {
        return Object<X, T, Y>{member, taps, rate};
    });
}

TEST(Fir, FiltersByDefinition)
{
    checkPrograms<float, float, float>({arksFirInit, arksFirInitMr, arksFirSetTaps, arksFirGetTaps, arksFirSetDlyl,
                                        arksFirGetDlyl, arksFir, arksbFir});
    checkPrograms<double, double, double>({arkdFirInit, arkdFirInitMr, arkdFirSetTaps, arkdFirGetTaps, arkdFirSetDlyl,
                                           arkdFirGetDlyl, arkdFir, arkdbFir});
    checkPrograms<FloatCplx, FloatCplx, FloatCplx>({arkcFirInit, arkcFirInitMr, arkcFirSetTaps, arkcFirGetTaps,
                                                    arkcFirSetDlyl, arkcFirGetDlyl, arkcFir, arkcbFir});
    checkPrograms<DoubleCplx, DoubleCplx, DoubleCplx>({arkzFirInit, arkzFirInitMr, arkzFirSetTaps, arkzFirGetTaps,
                                                       arkzFirSetDlyl, arkzFirGetDlyl, arkzFir, arkzbFir});
    checkPrograms<float, FloatCplx, FloatCplx>({arkscFirInit, arkscFirInitMr, arkcFirSetTaps, arkcFirGetTaps,
                                                arksFirSetDlyl, arksFirGetDlyl, arkscFir, arkscbFir});
    checkPrograms<FloatCplx, float, FloatCplx>({arkcsFirInit, arkcsFirInitMr, arksFirSetTaps, arksFirGetTaps,
                                                arkcFirSetDlyl, arkcFirGetDlyl, arkcsFir, arkcsbFir});
    checkPrograms<double, DoubleCplx, DoubleCplx>({arkdzFirInit, arkdzFirInitMr, arkzFirSetTaps, arkzFirGetTaps,
                                                   arkdFirSetDlyl, arkdFirGetDlyl, arkdzFir, arkdzbFir});
    checkPrograms<DoubleCplx, double, DoubleCplx>({arkzdFirInit, arkzdFirInitMr, arkdFirSetTaps, arkdFirGetTaps,
                                                   arkzFirSetDlyl, arkzFirGetDlyl, arkzdFir, arkzdbFir});
}

// Taps are multiples of 1/4: the sums are exact, and halves occur. What is expected of one sum:
short scaled(long long quarters, int mode, int f)
{
    long long x = quarters >> 2, rest = quarters & 3;
    x += rest == 3 || (rest == 2 && x % 2 != 0);
    const int shift = mode & ARK_FIXED_SCALE ? f : 0;
    x = shift >= 0 ? x >> std::min(shift, 40) : x * (1 << std::min(-shift, 15));
    return short(mode & ARK_SATURATE ? std::clamp(x, -32768LL, 32767LL) : x);
}

TEST(Fir, Of16BitsScales)
{
    for (int round = 0; round < 400; round++) {
        std::vector<float> taps;
        for (int n = randomInt(1, 30); n > 0; n--)
            taps.push_back(float(randomInt(-500, 500)) / 4);
        const fir::Rate rate = fir::anyRate();
        const int mode = randomInt(0, 7), f = randomInt(-20, 40);
        FirState state{};
        arkwFirInitMr(taps.data(), int(taps.size()), nullptr, rate.up, rate.upPhase, rate.down, rate.downPhase, &state);
        EXPECT_EQ(state.tapsLen % rate.up, 0);
        Guarded<float> got{taps.size()};
        arkwFirGetTaps(&state, got.data());
        EXPECT_EQ(got.values(), taps);
        fir::Model<short, float> model{taps, rate};
        const auto quarters = [](const fir::Sum& sum) { return std::llround(4 * sum.value.real()); };
        for (int block = 0; block < 3; block++) {
            const int numIters = randomInt(1, round % 10 ? 60 : 600);
            Guarded<short> src{fir::anyValues<short>(numIters * rate.down)}, dst{std::size_t(numIters * rate.up)};
            const std::vector<fir::Sum> sums = model.filter(src.values());
            int factor = f;
            arkwbFir(&state, src.data(), dst.data(), numIters, mode, &factor);
            if (mode == ARK_AUTO_SCALE) {
                int smallest = 0;
                const auto misfit = [&](const fir::Sum& sum) {
                    return scaled(quarters(sum), 2, smallest) != scaled(quarters(sum), 3, smallest);
                };
                while (std::any_of(sums.begin(), sums.end(), misfit))
                    smallest++;
                ASSERT_EQ(factor, smallest);
            } else {
                ASSERT_EQ(factor, f);
            }
            for (std::size_t i = 0; i < sums.size(); i++)
                ASSERT_EQ(dst[i], scaled(quarters(sums[i]), mode == ARK_AUTO_SCALE ? 2 : mode, factor))
                    << mode << ' ' << f;
            if (rate.isMulti() || mode == ARK_AUTO_SCALE)
                continue;
            const short sample = fir::anyValue<short>();
            ASSERT_EQ(arkwFir(&state, sample, mode, &factor), scaled(quarters(model.filter({sample})[0]), mode, f));
        }
        arkFirFree(&state);
    }
}

TEST(Fir, Of16BitsHistoryAndOneSample)
{
    const float taps[3] = {1000, 2, 3};
    const short history[2] = {10, 20};
    short back[2];
    FirState state{};
    arkwFirInit(taps, 3, history, &state);
    int factor = 9;
    EXPECT_EQ(arkwFir(&state, 100, ARK_AUTO_SCALE, &factor), (100000 + 40 + 30) >> 2);
    EXPECT_EQ(factor, 2);
    arkwFirGetDlyl(&state, back);
    EXPECT_EQ(back[0], 20);
    EXPECT_EQ(back[1], 100);
    arkwFirSetTaps(nullptr, &state);
    arkwFirSetDlyl(nullptr, &state);
    EXPECT_EQ(arkwFir(&state, 100, ARK_WRAP, nullptr), 0);
    Reports reports;
    short out = 5;
    arkwbFir(&state, history, &out, 1, ARK_AUTO_SCALE, nullptr);
    EXPECT_EQ(arkwFir(&state, 100, ARK_AUTO_SCALE, nullptr), 0);
    EXPECT_EQ(out, 5);
    EXPECT_EQ(reports.messages(), (std::vector<std::string>{"Null scale factor pointer", "Null scale factor pointer"}));
    arkFirFree(&state);
}

TEST(Fir, Of16BitsWithAnInfiniteTap)
{
    const std::vector<short> ones(32, 1);
    for (int n = 1; n <= 20; n++)
        for (int place = 0; place < n; place++) {
            std::vector<float> taps(std::size_t(n), 1.0f);
            taps[std::size_t(place)] = HUGE_VALF;
            FirState state{};
            std::vector<short> out(32);
            arkwFirInit(taps.data(), n, ones.data(), &state);
            EXPECT_EQ(arkwFir(&state, 1, ARK_SATURATE, nullptr), 32767);
            arkwbFir(&state, ones.data(), out.data(), 3, ARK_SATURATE, nullptr);
            arkwbFir(&state, ones.data(), out.data() + 3, 29, ARK_SATURATE, nullptr);
            EXPECT_EQ(out, std::vector<short>(32, 32767)) << "tap " << place << " of " << n;
            arkFirFree(&state);
        }
}

TEST(Fir, RecordAsDocumented)
{
    // 7 taps, three sub-filters of 3, 2 and 2, inputs at 1, 4, 7, ..., outputs at 1, 3, 5, ...
    const double taps[7] = {0, 1, 2, 3, 4, 5, 6};
    FirState state{};
    arkdFirInitMr(taps, 7, nullptr, 3, 1, 2, 1, &state);
    EXPECT_EQ(state.dlylLen, 3);
    EXPECT_EQ(state.bufLen, 128);
    EXPECT_EQ(static_cast<double*>(state.bufEnd), static_cast<double*>(state.buffer) + 128);
    const std::vector<double> stored(static_cast<double*>(state.taps), static_cast<double*>(state.taps) + 7);
    EXPECT_EQ(stored, (std::vector<double>{6, 3, 0, 4, 1, 5, 2}));
    const int expected[3][4] = {{0, 3, 1, 0}, {2, 2, 2, 5}, {1, 2, 3, 3}}; // at 1, 3, 5: 1, 1, 2 samples have entered
    for (int k = 0; k < 3; k++) {
        EXPECT_EQ(state.phaseTable[k].tap, expected[k][0]);
        EXPECT_EQ(state.phaseTable[k].len, expected[k][1]);
        EXPECT_EQ(state.phaseTable[k].start, expected[k][2]);
        EXPECT_EQ(state.phaseTable[k].offset, expected[k][3]);
    }
    arkdFirInit(taps, 7, nullptr, &state);
    EXPECT_EQ(state.phaseTable, nullptr);
    EXPECT_EQ(state.dlylLen, 6);
    // One-sample calls that reach the buffer's end bring the history back.
    for (int i = 0; i < 128; i++)
        arkdFir(&state, i);
    EXPECT_EQ(state.dlylPtr, state.buffer);
    arkFirFree(&state);
    EXPECT_EQ(state.self, nullptr);
}

// Nothing sensible, but nothing out of bounds either: the sanitizers watch.
TEST(Fir, OneSampleOfAMultiRateObject)
{
    const std::vector<float> taps(50, 1.0f);
    for (int up : {1, 2, 49, 60}) {
        FirState state{};
        arksFirInitMr(taps.data(), 50, nullptr, up, 0, 3, 0, &state);
        for (int i = 0; i < 500; i++)
            arksFir(&state, 1);
        arkFirFree(&state);
    }
}

TEST(Fir, Reports)
{
    float taps[2] = {1, 2}, data[4] = {};
    FirState state{};
    Reports reports;
    using Messages = std::vector<std::string>;

    arksFirInit(taps, 0, nullptr, &state);
    for (const auto& r :
         {fir::Rate{0, 0, 1, 0}, {1, 0, 0, 0}, {2, -1, 1, 0}, {2, 2, 1, 0}, {1, 0, 2, -1}, {1, 0, 2, 2}})
        arksFirInitMr(taps, 2, nullptr, r.up, r.upPhase, r.down, r.downPhase, &state);
    arksFirInitMr(taps, 0, nullptr, 1, 0, 1, 0, &state);
    EXPECT_EQ(reports.messages(), Messages(8, "Invalid value"));

    arksFirSetTaps(taps, &state);
    arksFirGetTaps(&state, taps);
    arksFirSetDlyl(data, &state);
    arksFirGetDlyl(&state, data);
    arksbFir(&state, data, data, 1);
    EXPECT_EQ(arksFir(&state, 1), 0);
    arkFirFree(&state);
    arkFirFree(nullptr);
    const std::vector<Report> made = reports.take();
    ASSERT_EQ(made.size(), 8u);
    for (int i = 0; i < 7; i++)
        EXPECT_EQ(made[std::size_t(i)].message, "Must have been initialized");
    EXPECT_EQ(made[7].message, "Null state pointer");
    EXPECT_EQ(made[7].function, "arkFirarkFree");
    EXPECT_EQ(made[7].module, "arkfirh");

    arksFirInit(taps, 2, nullptr, &state);
    arksFirGetTaps(&state, nullptr);
    arksFirGetDlyl(&state, nullptr);
    arksbFir(&state, nullptr, data, 1);
    arksbFir(&state, data, nullptr, 1);
    arksbFir(&state, data, data + 1, 0);
    EXPECT_EQ(reports.messages(), (Messages{"Null buffer pointer", "Null buffer pointer", "Null buffer pointer",
                                            "Null buffer pointer", "Invalid value"}));
    // Lengths that no record can hold: a history of 2^31 - 1 taps, a buffer of 2^31.
    arksFirInitMr(taps, 2, nullptr, 1, 0, INT_MAX, 0, &state);
    EXPECT_EQ(state.self, nullptr);
    const std::vector<Report> last = reports.take();
    ASSERT_EQ(last.size(), 1u);
    EXPECT_EQ(last[0].message, "Allocation failure");
    EXPECT_EQ(last[0].status, ARK_StatusOutOfMemory);
}

} // namespace
