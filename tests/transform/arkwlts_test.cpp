#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>
#include <string>
#include <vector>

namespace {

const BadCalls noState{"arkwlts",
                       {ZEROS(arksWtInit), ZEROS(arkdWtInit), ZEROS(arkwWtInit), ZEROS(arksWtGetState),
                        ZEROS(arkdWtGetState), ZEROS(arkwWtGetState), ZEROS(arkWtFree)},
                       {"wtState==0"}};
const BadCalls noVectors{"arkwlts",
                         {ZEROS(arksWtDecompose), ZEROS(arkdWtDecompose), ZEROS(arkwWtDecompose),
                          ZEROS(arksWtReconstruct), ZEROS(arkdWtReconstruct), ZEROS(arkwWtReconstruct)},
                         {"wtState==0", "src==0", "dst==0"}};
const NoBadCalls reportThroughInit{"arksWtSetState", "arkdWtSetState", "arkwWtSetState"};

using Messages = std::vector<std::string>;

// The members of one type by one name.
template <class T>
struct Members;
template <>
struct Members<float> {
    static constexpr auto init = arksWtInit;
    static constexpr auto setState = arksWtSetState;
    static constexpr auto decompose = arksWtDecompose;
    static constexpr auto reconstruct = arksWtReconstruct;
};
template <>
struct Members<double> {
    static constexpr auto init = arkdWtInit;
    static constexpr auto setState = arkdWtSetState;
    static constexpr auto decompose = arkdWtDecompose;
    static constexpr auto reconstruct = arkdWtReconstruct;
};

struct BuiltIn {
    int type, par1, par2;
};

std::vector<BuiltIn> builtIns()
{
    std::vector<BuiltIn> all{{1, -5, 99}, {7, 0, 0}, {8, 0, 0}, {9, 0, 0}};
    for (int n = 1; n <= 20; n++)
        all.push_back({2, n, 0});
    for (int n = 2; n <= 20; n++)
        all.push_back({3, n, 0});
    for (int n = 1; n <= 5; n++)
        all.push_back({4, n, 0});
    const int pairs[][2] = {{1, 1}, {1, 3}, {1, 5}, {2, 2}, {2, 4}, {2, 6}, {2, 8}, {3, 1},
                            {3, 3}, {3, 5}, {3, 7}, {3, 9}, {4, 4}, {5, 5}, {6, 8}};
    for (const auto& pair : pairs)
        for (int type : {5, 6})
            all.push_back({type, pair[0], pair[1]});
    return all;
}

bool isOrthogonal(const BuiltIn& wavelet) { return wavelet.type != 5 && wavelet.type != 6; }

// A record that is freed.
struct Record {
    wtState state{};

    Record() = default;
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;
    ~Record() { arkWtFree(&state); }
    const double* taps(int i) const { return static_cast<const double*>(state.tap_filt[i]); }
};

// ---- the definition ----

using Wide = std::vector<long double>;

struct Bank {
    std::vector<double> taps[4];
    int ofs[4];
};

template <class T>
Bank bankOf(const wtState& state)
{
    Bank bank;
    for (int i = 0; i < 4; i++) {
        const T* taps = static_cast<const T*>(state.tap_filt[i]);
        bank.taps[i].assign(taps, taps + state.Flen[i]);
        bank.ofs[i] = state.Fofs[i];
    }
    return bank;
}

std::size_t modulo(long long i, std::size_t n) { return std::size_t((i % (long long)n + (long long)n) % (long long)n); }

// With magnitudes: of taps, as the samples are then; the sums bound what rounding can do.
long double tapOf(const Bank& bank, int i, std::size_t k, bool magnitudes)
{
    return magnitudes ? std::fabs(bank.taps[i][k]) : bank.taps[i][k];
}

Wide decomposed(const Bank& bank, Wide x, int level, bool magnitudes)
{
    for (std::size_t n = x.size(); level-- > 0; n /= 2) {
        Wide out(n);
        for (int band = 0; band < 2; band++)
            for (std::size_t i = 0; i < n / 2; i++)
                for (std::size_t k = 0; k < bank.taps[band].size(); k++)
                    out[std::size_t(band) * n / 2 + i] +=
                        tapOf(bank, band, k, magnitudes) *
                        x[modulo(2 * (long long)i + bank.ofs[band] - (long long)k, n)];
        std::copy(out.begin(), out.end(), x.begin());
    }
    return x;
}

Wide reconstructed(const Bank& bank, Wide x, int level, bool magnitudes)
{
    for (std::size_t n = x.size() >> (level - 1); level-- > 0; n *= 2) {
        Wide out(n);
        for (int band = 0; band < 2; band++)
            for (std::size_t i = 0; i < n / 2; i++)
                for (std::size_t k = 0; k < bank.taps[2 + band].size(); k++)
                    out[modulo(2 * (long long)i + (long long)k - bank.ofs[2 + band], n)] +=
                        tapOf(bank, 2 + band, k, magnitudes) * x[std::size_t(band) * n / 2 + i];
        std::copy(out.begin(), out.end(), x.begin());
    }
    return x;
}

template <class T>
void expectByDefinition(const wtState& state, Wide (*model)(const Bank&, Wide, int, bool), std::vector<T> x,
                        std::vector<T> got)
{
    const Bank bank = bankOf<T>(state);
    Wide wide(x.begin(), x.end()), sizes;
    for (T value : x)
        sizes.push_back(std::fabs(value));
    const Wide expected = model(bank, wide, state.level, false), bound = model(bank, sizes, state.level, true);
    const long double roundings =
        static_cast<long double>(state.level) * static_cast<long double>(bank.taps[0].size() + bank.taps[1].size() + 2);
    for (std::size_t i = 0; i < x.size(); i++)
        ASSERT_NEAR(got[i], double(expected[i]), double(roundings * std::numeric_limits<T>::epsilon() * bound[i]))
            << i << " of " << x.size() << ", level " << state.level;
}

template <class T>
void checkByDefinition(wtState& state)
{
    Guarded<T> x{std::size_t{1} << state.dataOrder}, y{std::size_t{1} << state.dataOrder};
    for (T& value : x)
        value = T(randomInt(-1000, 1000)) / 8;
    const std::vector<T> before = x.values();
    Members<T>::decompose(&state, x.data(), y.data());
    ASSERT_EQ(x.values(), before);
    ASSERT_NO_FATAL_FAILURE(expectByDefinition(state, decomposed, before, y.values()));
    const std::vector<T> apart = y.values();
    Members<T>::decompose(&state, x.data(), x.data());
    ASSERT_EQ(x.values(), apart);

    Members<T>::reconstruct(&state, x.data(), y.data());
    ASSERT_EQ(x.values(), apart);
    if (state.level > 0) {
        ASSERT_NO_FATAL_FAILURE(expectByDefinition(state, reconstructed, apart, y.values()));
    }
    const std::vector<T> back = y.values();
    Members<T>::reconstruct(&state, x.data(), x.data());
    ASSERT_EQ(x.values(), back);
}

// Filters of any lengths, also much longer than the signal, that restore nothing.
template <class T>
void checkAnyFilters()
{
    for (int round = 0; round < 300; round++) {
        const bool isLong = round == 7;
        const int shortest = isLong ? 1100 : 2, longest = isLong ? 1500 : round % 3 ? 12 : 70;
        const int lengths[2] = {randomInt(shortest, longest), randomInt(shortest, longest)};
        const int len[4] = {lengths[0], lengths[1], lengths[1], lengths[0]};
        std::vector<T> taps[4];
        const T* pointers[4];
        int ofs[4];
        for (int i = 0; i < 4; i++) {
            for (int k = 0; k < len[i]; k++)
                taps[i].push_back(T(randomInt(-100, 100)) / 64);
            pointers[i] = taps[i].data();
            ofs[i] = randomInt(0, len[i] - 1);
        }
        const int order = isLong ? 11 : round % 20 ? randomInt(1, 8) : randomInt(9, 12);
        const int level = isLong ? 2 : round % 40 ? randomInt(0, order - 1) : round / 40 % 4;
        Record record;
        Members<T>::setState(&record.state, 10, 3, 4, order, level, pointers, len, ofs);
        ASSERT_EQ(record.state.initialised, 1);
        ASSERT_NO_FATAL_FAILURE(checkByDefinition<T>(record.state));
    }
}

TEST(Wavelet, FollowsTheDefinition)
{
    checkAnyFilters<float>();
    checkAnyFilters<double>();
}

// ---- the built-in wavelets ----

double inner(const double* a, const double* b, int n, int shift)
{
    long double sum = 0;
    for (int k = std::max(0, -shift); k < n && k + shift < n; k++)
        sum += static_cast<long double>(a[k]) * b[k + shift];
    return double(sum);
}

TEST(Wavelet, BuiltInFiltersAreWhatTheyAreCalled)
{
    for (const BuiltIn& wavelet : builtIns()) {
        SCOPED_TRACE(testing::Message() << wavelet.type << ' ' << wavelet.par1 << ' ' << wavelet.par2);
        Record record;
        arkdWtInit(wavelet.par1, wavelet.par2, 3, 1, &record.state, wavelet.type);
        ASSERT_EQ(record.state.initialised, 1);
        EXPECT_EQ(record.state.kind, isOrthogonal(wavelet) ? 1 : 2);
        const int* const len = record.state.Flen;
        EXPECT_EQ(len[0], len[3]);
        EXPECT_EQ(len[1], len[2]);
        // What a wavelet of so many vanishing moments cannot see: polynomials below that degree.
        const auto moments = [&](int filter) {
            for (int degree = 0;; degree++) {
                long double sum = 0, size = 0;
                for (int k = 0; k < len[filter]; k++) {
                    const long double term = std::pow((k - len[filter] / 2.0L) / len[filter], degree);
                    sum += record.taps(filter)[k] * term;
                    size += std::fabs(record.taps(filter)[k] * term);
                }
                if (std::fabs(sum) > 1e-14L * size)
                    return degree;
            }
        };
        for (int i : {0, 2})
            EXPECT_NEAR(double(std::accumulate(record.taps(i), record.taps(i) + len[i], -std::sqrt(2.0L))), 0, 1e-15);
        if (isOrthogonal(wavelet)) {
            EXPECT_EQ(len[0], len[1]);
            for (int shift = 0; shift < len[0]; shift += 2)
                for (int i = 0; i < 4; i++) {
                    EXPECT_NEAR(inner(record.taps(i), record.taps(i), len[0], shift), shift == 0, 5e-16);
                    EXPECT_NEAR(inner(record.taps(i), record.taps(i ^ 1), len[0], shift), 0, 5e-16);
                    EXPECT_NEAR(inner(record.taps(i), record.taps(i ^ 1), len[0], -shift), 0, 5e-16);
                }
        } else {
            const bool is55 = wavelet.par1 == 5; // has 6 and 4
            const int own[] = {is55 ? 6 : wavelet.par1, is55 ? 4 : wavelet.par2};
            EXPECT_EQ(moments(1), own[wavelet.type - 5]);
            EXPECT_EQ(moments(3), own[6 - wavelet.type]);
        }
        if (wavelet.type >= 2 && wavelet.type <= 4) {
            EXPECT_EQ(len[0], wavelet.type == 4 ? 6 * wavelet.par1 : 2 * wavelet.par1);
            EXPECT_EQ(moments(1), wavelet.type == 4 ? 2 * wavelet.par1 : wavelet.par1);
        }
    }
}

template <class T>
void checkRestores(double tolerance)
{
    std::vector<T> x(256), y(256);
    for (T& value : x)
        value = T(randomInt(-1000, 1000));
    for (const BuiltIn& wavelet : builtIns())
        for (int order = 1; order <= 8; order++)
            for (int level = 0; level < order; level++) {
                Record record;
                Members<T>::init(wavelet.par1, wavelet.par2, order, level, &record.state, wavelet.type);
                Members<T>::decompose(&record.state, x.data(), y.data());
                const std::size_t n = std::size_t{1} << order;
                if (isOrthogonal(wavelet)) {
                    const double of = std::inner_product(x.data(), x.data() + n, x.data(), 0.0);
                    ASSERT_NEAR(std::inner_product(y.data(), y.data() + n, y.data(), 0.0), of, of * tolerance);
                }
                Members<T>::reconstruct(&record.state, y.data(), y.data());
                for (std::size_t i = 0; i < n; i++)
                    ASSERT_NEAR(y[i], x[i], 1000 * tolerance)
                        << wavelet.type << ' ' << wavelet.par1 << ' ' << wavelet.par2 << ", level " << level
                        << " of order " << order;
            }
}

// The biorthogonal transforms are far from orthogonal: 3.1 grows rounding errors by more than ten on the way back.
TEST(Wavelet, ReconstructRestoresTheSignal)
{
    checkRestores<double>(1e-13);
    checkRestores<float>(5e-5);
}

// The first three samples of each band that PyWavelets 1.1.1 gives for x[i] = (7 i^2 + 3 i) mod 23 - 11, i = 0 ... 31,
// by pywt.dwt(x, name, 'periodization'); its symlets and biorthogonal filters have 11 to 12 digits.
struct Published {
    int type, par1, par2;
    double bands[6];
};
const Published published[] = {
    {1, 0, 0, {-8.4852813742, -5.6568542495, -4.9497474683, -7.0710678119, 5.6568542495, 2.1213203436}},
    {2, 2, 0, {-8.942860296, -2.0172948124, -7.4339123881, 1.4996567222, -5.5967950811, -5.5967950811}},
    {2, 7, 0, {-4.3857937267, 9.6936192825, -6.5816382844, 2.3173845817, -2.7974070896, -2.8842089561}},
    {3, 4, 0, {-3.6982715308, -7.4614777162, -1.1800140324, 8.9886550136, -3.6109954058, -3.3247326779}},
    {3, 11, 0, {-5.2102021773, -5.6542522738, -5.0944198636, 1.4195961852, 2.9030291257, 6.6633186809}},
    {4, 2, 0, {-1.0345210744, -4.7299632421, -6.5939449303, -4.5958868839, -3.2492259218, -3.9390472894}},
    {5, 1, 3, {-8.3968930266, -4.5078057301, -5.8336309448, -7.0710678119, 5.6568542495, 2.1213203436}},
    {5, 1, 5, {-8.5957668088, -3.9277571986, -6.214805694, -7.0710678119, 5.6568542495, 2.1213203436}},
    {5, 2, 2, {-13.081475452, -0.88388347648, -7.7781745931, -3.1819805153, 4.9497474683, 4.9497474683}},
    {5, 2, 8, {-12.080546468, -0.31626455643, -10.30867947, -3.1819805153, 4.9497474683, 4.9497474683}},
    {5, 3, 1, {-13.081475452, -7.4246212025, -6.7175144213, 5.4800775542, -4.0658639918, -4.0658639918}},
    {5, 3, 3, {-11.821941498, -3.8448931227, -8.2422134182, 5.4800775542, -4.0658639918, -4.0658639918}},
    {5, 3, 9, {-12.279323144, -0.91338222434, -9.6234755629, 5.4800775542, -4.0658639918, -4.0658639918}},
    {5, 4, 4, {-10.481780963, -1.3335122059, -7.8206117177, -4.4825886081, 5.5502582923, 5.5502582923}},
    {5, 5, 5, {-8.8326781392, -1.8785914852, -6.6342058821, 5.8039505275, -6.5103121724, -6.2196182481}},
    {5, 6, 8, {-10.096105544, -1.3393404814, -8.8704581418, -4.5923815532, 5.3865947469, 5.213809136}},
    {6, 1, 3, {-8.4852813742, -5.6568542495, -4.9497474683, -8.5736697219, 6.0987959877, 4.0658639918}},
    {6, 2, 4, {-7.7781745931, -3.1819805153, -6.0104076401, -5.2922523154, 6.0877474443, 6.3529124872}},
    {6, 3, 5, {-6.1871843354, -4.772970773, -4.0658639918, 14.412824938, -9.7448153282, -3.2869416782}},
    {6, 4, 4, {-8.8697793561, -2.9757124996, -7.7080794687, -4.2540288093, 5.1818285199, 5.4844561639}},
    {6, 5, 5, {-10.444523815, -2.3781775912, -9.367368898, 3.4382428759, -4.4783638184, -4.7958605252}},
    {6, 6, 8, {-8.7157413659, -2.5164572271, -7.7579542659, -4.8625547467, 5.4968835056, 5.252103189}},
};

TEST(Wavelet, BandsArePublishedOnes)
{
    for (const Published& wavelet : published) {
        Record record;
        arkdWtInit(wavelet.par1, wavelet.par2, 5, 1, &record.state, wavelet.type);
        double x[32], y[32];
        for (int i = 0; i < 32; i++)
            x[i] = (7 * i * i + 3 * i) % 23 - 11;
        arkdWtDecompose(&record.state, x, y);
        for (int i = 0; i < 6; i++)
            EXPECT_NEAR(y[i < 3 ? i : 13 + i], wavelet.bands[i], 1e-9)
                << wavelet.type << ' ' << wavelet.par1 << ' ' << wavelet.par2 << ", " << i;
    }
}

// Daubechies, Ten Lectures on Wavelets, table 6.1; Antonini, Barlaud, Mathieu, Daubechies, Image Coding Using Wavelet
// Transform, table I (times sqrt(2)); Beylkin, Coifman, Rokhlin, Fast Wavelet Transforms and Numerical Algorithms I.
TEST(Wavelet, TapsArePublishedOnes)
{
    const auto expectTaps = [](BuiltIn wavelet, int filter, std::vector<double> taps, double tolerance) {
        Record record;
        arkdWtInit(wavelet.par1, wavelet.par2, 5, 1, &record.state, wavelet.type);
        for (std::size_t k = 0; k < taps.size(); k++)
            EXPECT_NEAR(record.taps(filter)[k], taps[k], tolerance) << wavelet.type << ", " << k;
    };
    const double root2 = std::sqrt(2.0), root3 = std::sqrt(3.0);
    expectTaps({1, 0, 0}, 2, {std::sqrt(0.5), std::sqrt(0.5)}, 1e-16);
    expectTaps(
        {2, 2, 0}, 2,
        {(1 + root3) / (4 * root2), (3 + root3) / (4 * root2), (3 - root3) / (4 * root2), (1 - root3) / (4 * root2)},
        5e-16); // the formula itself is rounded several times
    expectTaps({2, 4, 0}, 2,
               {.2303778133088964, .7148465705529154, .6308807679298587, -.0279837694168599, -.1870348117190931,
                .0308413818355607, .0328830116668852, -.0105974017850690},
               2e-15);
    expectTaps(
        {5, 4, 4}, 0,
        {.037828455507, -.023849465020, -.110624404418, .377402855613, .852698679009, .377402855613, -.110624404418},
        1e-12);
    expectTaps({8, 0, 0}, 2, {.099305765374, .424215360813, .699825214057, .449718251149, -.110927598348}, 1e-12);
    const double r = std::sqrt(0.5);
    const double taps[4][2] = {{r, r}, {-r, r}, {r, r}, {r, -r}};
    for (int i = 0; i < 4; i++)
        expectTaps({1, 0, 0}, i, {taps[i][0], taps[i][1]}, 1e-16);
}

TEST(Wavelet, UnknownOnesAreRefused)
{
    Reports reports;
    for (const BuiltIn& wavelet : std::vector<BuiltIn>{
             {0, 1, 1}, {11, 1, 1}, {-1, 1, 1}, {2, 0, 0},  {2, 21, 0}, {3, 1, 0},      {3, 21, 0}, {4, 0, 0},
             {4, 6, 0}, {5, 1, 2},  {5, 1, 7},  {5, 2, 10}, {5, 3, 11}, {5, 2, 3},      {5, 0, 2},  {5, 4, 2},
             {6, 5, 4}, {6, 6, 6},  {5, 3, -1}, {5, 7, 7},  {5, -1, 3}, {2, 1 << 30, 0}}) {
        wtState state{};
        arkdWtInit(wavelet.par1, wavelet.par2, 5, 1, &state, wavelet.type);
        EXPECT_EQ(reports.messages(), Messages{"error in the type of wavelet"}) << wavelet.type << ' ' << wavelet.par1;
        EXPECT_EQ(state.initialised, 0);
    }
}

// ---- records ----

TEST(WaveletRecord, GoesThroughGetAndSetState)
{
    Record record;
    arksWtInit(2, 4, 6, 3, &record.state, 5);
    int type, par1, par2, order, level, len[4], ofs[4];
    float* taps[4];
    arksWtGetState(&record.state, &type, &par1, &par2, &order, &level, taps, len, ofs);
    EXPECT_EQ((std::array{type, par1, par2, order, level}), (std::array{5, 2, 4, 6, 3}));
    EXPECT_EQ((std::array{len[0], len[1], ofs[0], ofs[1], ofs[2], ofs[3]}), (std::array{9, 3, 4, 2, 1, 3}));
    float x[64], y[64], again[64];
    for (float& value : x)
        value = float(randomInt(-9, 9));
    arksWtDecompose(&record.state, x, y);
    // A record's filters may become another's, also those of the one that is set: it is a plain record.
    wtState before = record.state;
    arksWtSetState(&record.state, 10, 7, 8, 6, 3, const_cast<const float**>(taps), record.state.Flen,
                   record.state.Fofs);
    arkWtFree(&before);
    EXPECT_EQ((std::array{record.state.wtType, record.state.kind, record.state.par1, record.state.par2}),
              (std::array{10, 3, 7, 8}));
    arksWtDecompose(&record.state, x, again);
    EXPECT_TRUE(std::equal(y, y + 64, again));
    arksWtGetState(&record.state, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);

    arkWtFree(&record.state);
    EXPECT_EQ(record.state.initialised, 0);
    EXPECT_EQ(record.state.tap_filt[3], nullptr);
    EXPECT_EQ(record.state.src_pad, nullptr);
    // What a record holds by chance is nobody's memory.
    std::memset(static_cast<void*>(&record.state), 0x7F, sizeof record.state);
    arkWtFree(&record.state);
    std::memset(static_cast<void*>(&record.state), 0x01, sizeof record.state);
    record.state.initialised = 1;
    arksWtSetState(&record.state, 1, 0, 0, 4, 2, nullptr, nullptr, nullptr);
    EXPECT_EQ(record.state.wtType, 1);
}

TEST(WaveletRecord, SetStateReports)
{
    Reports reports;
    const double filter[4] = {1, 2, 3, 4};
    const double* taps[4] = {filter, filter, filter, filter};
    const int len[4] = {4, 2, 2, 4}, ofs[4] = {3, 1, 0, 0};
    Record record;
    wtState& state = record.state;
    const auto set = [&](int order, int level, const double** t, const int* n, const int* o) {
        std::memset(static_cast<void*>(&state), 0x7F, sizeof state);
        arkdWtSetState(&state, 10, 0, 0, order, level, t, n, o);
        EXPECT_EQ(state.initialised, 0);
        EXPECT_EQ(state.tap_filt[0], nullptr);
        return reports.messages();
    };
    EXPECT_EQ(set(0, 0, nullptr, len, ofs), (Messages{"dataOrder<1", "level>(dataOrder-1)"}));
    EXPECT_EQ(set(32, -1, taps, len, ofs), (Messages{"dataOrder>31", "level<0"}));
    EXPECT_EQ(set(INT_MIN, 0, taps, len, ofs), (Messages{"dataOrder<1", "level>(dataOrder-1)"}));
    EXPECT_EQ(set(4, 1, nullptr, nullptr, nullptr), (Messages{"Ftaps eq. NULL", "Flen eq. NULL", "Fofs eq. NULL"}));
    const double* holed[4] = {filter, filter, nullptr, filter};
    const int tooShort[4] = {1, 2, 2, 1}, unequal[4] = {4, 2, 3, 4}, outside[4] = {0, 2, 0, 0},
              negative[4] = {0, 0, 0, -1};
    EXPECT_EQ(set(4, 1, holed, unequal, ofs), (Messages{"Bad pointers in Ftaps", "Bad filter lengths"}));
    EXPECT_EQ(set(4, 1, taps, tooShort, negative), (Messages{"Bad filter lengths", "Bad filter offsets"}));
    EXPECT_EQ(set(4, 1, taps, len, outside), Messages{"Bad filter offsets"});
    EXPECT_EQ(set(4, 1, taps, len, negative), Messages{"Bad filter offsets"});

    arkdWtSetState(nullptr, 10, 0, 0, 4, 1, taps, len, ofs);
    EXPECT_EQ(reports.messages(), Messages{"wtState==0"});
    arkdWtSetState(nullptr, 2, 2, 0, 4, 1, nullptr, nullptr, nullptr);
    arkwWtSetState(&state, 2, 0, 0, 4, 4, nullptr, nullptr, nullptr);
    const std::vector<Report> both = reports.take();
    ASSERT_EQ(both.size(), 4u);
    EXPECT_EQ(both[0].function + both[0].message, "arkdWtInitwtState==0");
    EXPECT_EQ(both[1].function + both[1].message, "arkdWtSetStateout arkdWtInit");
    EXPECT_EQ(both[1].status, ARK_StatusBacktrace);
    EXPECT_EQ(both[2].function + both[2].message, "arkwWtInitlevel>(dataOrder-1)");
    EXPECT_EQ(both[3].function + both[3].message, "arkwWtSetStateout arkwWtInit");

    arkSetErrStatus(ARK_StatusBadArgument);
    arksWtInit(0, 0, 4, 1, &state, 1);
    EXPECT_EQ(state.initialised, 0);
    EXPECT_TRUE(reports.messages().empty());
    arksWtGetState(&state, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(reports.messages(), Messages{"wtState is not initialised"});
}

TEST(WaveletRecord, TransformsReport)
{
    Reports reports;
    Record record;
    float x[16] = {}, y[16];
    std::fill_n(y, 16, 7.0f);
    arksWtDecompose(&record.state, x, y);
    arksWtReconstruct(&record.state, x, nullptr);
    EXPECT_EQ(reports.messages(), (Messages{"wtState is not initialised", "dst==0"}));
    arksWtInit(2, 0, 4, 2, &record.state, 2);
    const wtState good = record.state;
    const auto with = [&](auto change) {
        change(record.state);
        arksWtDecompose(&record.state, x, y);
        const Messages first = reports.messages();
        arksWtReconstruct(&record.state, x, y);
        EXPECT_EQ(reports.messages(), first);
        EXPECT_TRUE(std::all_of(y, y + 16, [](float value) { return value == 7; }));
        record.state = good;
        return first;
    };
    EXPECT_EQ(with([](wtState& s) { s.dataOrder = 0, s.level = -1, s.kind = 4; }),
              (Messages{"wtState->dataOrder<1", "wtState->level<0", "error in the type of wavelet"}));
    EXPECT_EQ(with([](wtState& s) { s.dataOrder = s.level = 32; }),
              (Messages{"wtState->dataOrder>31", "wtState->level>(wtState->dataOrder-1)"}));
    EXPECT_EQ(with([](wtState& s) {
                  for (void*& taps : s.tap_filt)
                      taps = nullptr;
                  s.src_pad = nullptr;
              }),
              (Messages{"wtState->tap_filt[ 0 ]==0", "wtState->tap_filt[ 1 ]==0", "wtState->tap_filt[ 2 ]==0",
                        "wtState->tap_filt[ 3 ]==0", "wtState->src_pad==0"}));
    EXPECT_EQ(with([](wtState& s) { s.Flen[0] = 1; }),
              (Messages{"error in the filter lengths", "error in the filter lengths ortho. wavelet",
                        "error in the filter offsets"}));
    EXPECT_EQ(with([](wtState& s) { s.Flen[0] = s.Flen[1] = s.Flen[2] = s.Flen[3] = 3; }),
              Messages{"error in the filter lengths ortho. wavelet"});
    EXPECT_EQ(with([](wtState& s) { s.Fofs[3] = 4; }), Messages{"error in the filter offsets"});
    EXPECT_EQ(with([](wtState& s) { s.Fofs[1] = -1; }), Messages{"error in the filter offsets"});
    arkSetErrStatus(ARK_StatusBadArgument);
    arksWtDecompose(&record.state, x, y);
    arksWtReconstruct(&record.state, x, y);
    EXPECT_EQ(y[0], 7);
    EXPECT_TRUE(reports.messages().empty());
}

// ---- 16 bits ----

TEST(Wavelet, Of16BitsRoundsAndSaturates)
{
    Record record, wide;
    arkwWtInit(4, 0, 10, 5, &record.state, 3);
    arkdWtInit(4, 0, 10, 5, &wide.state, 3);
    Guarded<short> x{1024}, y{1024};
    for (const int size : {100, 32767}) {
        std::vector<double> expected(1024);
        for (std::size_t i = 0; i < 1024; i++)
            expected[i] = x[i] = short(randomInt(-size, size));
        arkdWtDecompose(&wide.state, expected.data(), expected.data());
        arkwWtDecompose(&record.state, x.data(), y.data());
        for (std::size_t i = 0; i < 1024; i++) // float is off by up to 2^-6 at the largest values
            ASSERT_NEAR(y[i], std::clamp(expected[i], -32768.0, 32767.0), size == 100 ? 0.5001 : 0.52);
        const std::vector<short> bands = y.values();
        expected.assign(bands.begin(), bands.end());
        arkdWtReconstruct(&wide.state, expected.data(), expected.data());
        arkwWtReconstruct(&record.state, y.data(), y.data());
        for (std::size_t i = 0; i < 1024; i++)
            ASSERT_NEAR(y[i], std::clamp(expected[i], -32768.0, 32767.0), size == 100 ? 0.5001 : 0.52);
    }
    // Exact ones: ties go to the even neighbour, both bounds saturate. Level 0 copies.
    const float half[2] = {0.5f, 0.5f}, one[2] = {2, 0};
    const float* taps[4] = {half, one, one, half};
    const int len[4] = {2, 2, 2, 2}, ofs[4] = {1, 1, 0, 0};
    arkWtFree(&record.state);
    arkwWtSetState(&record.state, 10, 0, 0, 2, 1, taps, len, ofs);
    const short in[4] = {2, 3, -20000, 20001};
    short out[4];
    arkwWtDecompose(&record.state, in, out);
    EXPECT_EQ((std::array{out[0], out[1], out[2], out[3]}), (std::array<short, 4>{2, 0, 6, 32767}));
    arkWtFree(&record.state);
    arkwWtSetState(&record.state, 10, 0, 0, 2, 0, taps, len, ofs);
    arkwWtReconstruct(&record.state, in, out);
    EXPECT_TRUE(std::equal(in, in + 4, out));
}

} // namespace
