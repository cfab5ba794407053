// The discrete cosine transform.
#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <numeric>
#include <string>
#include <thread>

namespace {

using Messages = std::vector<std::string>;

const BadCalls ofDct{"arkdct", {ZEROS(arksDct), ZEROS(arkdDct), ZEROS(arkwDct)}, {"\nNull pointer to data buffer\n"}};

template <class T>
std::vector<T> noise(int n)
{
    std::vector<T> x(static_cast<std::size_t>(n));
    for (T& element : x)
        element = static_cast<T>(randomInt(-10000, 10000));
    return x;
}

// The formulas, over exact multiples of one angle.
template <class T>
std::vector<long double> model(const std::vector<T>& src, bool inverse)
{
    const std::size_t N = src.size();
    std::vector<long double> cosines(4 * N), dst(N);
    for (std::size_t i = 0; i < 4 * N; i++)
        cosines[i] = std::cos(std::acos(-1.0L) * static_cast<long double>(i) / static_cast<long double>(2 * N));
    const long double first = std::sqrt(1 / static_cast<long double>(N)), rest = std::sqrt(2.0L) * first;
    for (std::size_t k = 0; k < N; k++)
        for (std::size_t n = 0; n < N; n++) {
            const long double factor = cosines[(2 * n + 1) * k % (4 * N)] * (k ? rest : first);
            if (inverse)
                dst[n] += src[k] * factor;
            else
                dst[k] += src[n] * factor;
        }
    return dst;
}

void dct(const float* src, float* dst, int len, int flags) { arksDct(src, dst, len, flags); }
void dct(const double* src, double* dst, int len, int flags) { arkdDct(src, dst, len, flags); }

// Relative to the root of the mean square, which the transform keeps: rounding to the type of results that are a few
// times as large, and some roundings to double of each pass of the FFTs.
template <class T>
constexpr double tolerance = std::is_same_v<T, float> ? 3e-7 : 3e-15;

template <class T>
double errorOf(const std::vector<T>& got, const std::vector<long double>& wanted)
{
    long double off = 0, size = 0;
    for (std::size_t i = 0; i < wanted.size(); i++) {
        off = std::max(off, std::fabs(got[i] - wanted[i]));
        size += wanted[i] * wanted[i];
    }
    return double(off / std::sqrt(size / static_cast<long double>(wanted.size())));
}

std::vector<int> lengths()
{
    std::vector<int> all{98, 100, 105, 110, 127, 128, 129, 189, 256, 343, 511, 720, 1000, 1001, 1024};
    for (int N = 1; N <= 90; N++)
        all.push_back(N);
    return all;
}

template <class T>
class Dct : public testing::Test {};
using Members = testing::Types<float, double>;
TYPED_TEST_SUITE(Dct, Members);

TYPED_TEST(Dct, IsTheSumAtEveryLength)
{
    using T = TypeParam;
    Reports reports;
    for (const int N : lengths())
        for (const int flags : {int{ARK_Forw}, ARK_Inv | ARK_Init | ARK_Free | ARK_NoScale}) {
            const std::vector<T> source = noise<T>(N);
            Guarded<T> x{source}, y{std::size_t(N)};
            dct(x.data(), y.data(), N, flags);
            ASSERT_LT(errorOf(y.values(), model(source, (flags & ARK_Inv) != 0)), tolerance<T>) << N << ", " << flags;
            ASSERT_EQ(x.values(), source);
            dct(x.data(), x.data(), N, flags);
            ASSERT_EQ(x.values(), y.values()) << "in place, " << N;
        }
    EXPECT_EQ(reports.messages(), Messages{});
}

// Sums of integers are exact at any length: without a mean the first element is zero, not nearly so.
TYPED_TEST(Dct, TheFirstElementIsThePlainSum)
{
    for (const int N : lengths()) {
        std::vector<TypeParam> x = noise<TypeParam>(N);
        x[0] -= std::accumulate(x.begin(), x.end(), TypeParam(0));
        dct(x.data(), x.data(), N, ARK_Forw);
        ASSERT_EQ(x[0], 0) << N;
    }
}

TYPED_TEST(Dct, IsUndoneByItsInverse)
{
    using T = TypeParam;
    for (const int N : {4096, 5000, 30011}) {
        const std::vector<T> x = noise<T>(N);
        std::vector<T> y = x;
        dct(y.data(), y.data(), N, ARK_Forw);
        dct(y.data(), y.data(), N, ARK_Inv);
        ASSERT_LT(errorOf(y, std::vector<long double>(x.begin(), x.end())), 2 * tolerance<T>) << N;
    }
}

TEST(ShortDct, IsTheFloatOneRoundedAndSaturated)
{
    for (const int N : {1, 2, 7, 8, 12, 16, 33, 64, 100}) {
        std::vector<short> x = noise<short>(N);
        x[0] = 32767;
        std::vector<float> floats(x.begin(), x.end());
        Guarded<short> y{std::size_t(N)};
        for (const int flags : {ARK_Forw, ARK_Inv}) {
            std::vector<float> wanted(floats.size());
            arksDct(floats.data(), wanted.data(), N, flags);
            arkwDct(x.data(), y.data(), N, flags);
            for (std::size_t i = 0; i < wanted.size(); i++)
                ASSERT_EQ(y[i], short(std::clamp(std::nearbyint(wanted[i]), -32768.0f, 32767.0f))) << i << ", " << N;
        }
    }
    short constant[16];
    std::fill_n(constant, 16, short(32767));
    arkwDct(constant, constant, 16, ARK_Forw);
    EXPECT_EQ(constant[0], 32767);
    EXPECT_EQ(std::count(constant + 1, constant + 16, 0), 15);
}

TEST(DctReports, TheFirstFailureWhateverTheStatus)
{
    Reports reports;
    float x[2] = {1, 1}, y[2] = {7, 7};
    short shorts[2] = {5, 5};
    for (const int flags : {int{ARK_Free}, ARK_Free | ARK_Forw}) {
        arksDct(nullptr, nullptr, 0, flags);
        arkwDct(nullptr, nullptr, 0, flags);
        EXPECT_EQ(reports.messages().size(), flags == ARK_Free ? 0u : 2u);
    }
    arksDct(x, nullptr, 0, 0);
    arksDct(x, y, 0, 0);
    EXPECT_EQ(reports.messages(), (Messages{"\nNull pointer to data buffer\n", "\nBad value of data buffer size\n"}));
    for (const int flags : {0, ARK_Forw | ARK_Inv, int{ARK_Init}}) {
        arksDct(x, y, 2, flags);
        arkwDct(shorts, shorts, 2, flags);
        const auto made = reports.take();
        ASSERT_EQ(made.size(), 2u);
        EXPECT_EQ(made[0].message, "\nBad value of the transform flag\n");
        EXPECT_EQ(made[1].function, "arkwDct");
    }
    EXPECT_EQ(y[0], 7);
    arkSetErrStatus(ARK_StatusNoConvergence);
    arksDct(x, y, 2, ARK_Forw);
    EXPECT_FLOAT_EQ(y[0], std::sqrt(2.0f));
}

// Different lengths at once, more of them than are kept, and somebody who keeps freeing: each result is that of a lone
// transform, to the bit.
TEST(DctThreads, DoNotSeeEachOthersTables)
{
    const std::vector<int> ofThread[] = {{12, 16, 100, 1000, 31, 64}, {12, 17, 1024, 30, 100, 200}};
    std::atomic<int> wrong{0}, running{2};
    const auto run = [&](const std::vector<int>& lengths) {
        std::vector<std::vector<double>> sources, wanted;
        for (const int N : lengths) {
            std::vector<double> source(static_cast<std::size_t>(N));
            for (std::size_t n = 0; n < source.size(); n++)
                source[n] = double(n * n % 101);
            sources.push_back(source);
            wanted.push_back(source);
            arkdDct(source.data(), wanted.back().data(), N, ARK_Forw);
        }
        for (int round = 0; round < 600; round++) {
            const auto i = std::size_t(round) % lengths.size();
            std::vector<double> got(sources[i].size());
            arkdDct(sources[i].data(), got.data(), lengths[i], ARK_Forw);
            wrong += got != wanted[i];
        }
        running--;
    };
    std::thread first(run, ofThread[0]), second(run, ofThread[1]);
    while (running > 0) {
        arkdDct(nullptr, nullptr, 0, ARK_Free);
        std::this_thread::sleep_for(std::chrono::microseconds(50));
    }
    first.join();
    second.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
