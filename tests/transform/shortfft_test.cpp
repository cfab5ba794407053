// The 16-bit transforms against the float ones, rounded.
#include "support/bad_calls.hpp"
#include "support/guarded.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

namespace {

const BadCalls ofSamps{"arkfftw",
                       {ZEROS(arkvFft), ZEROS(arkwRealFft), ZEROS(arkwCcsFft), ZEROS(arkwRealFftl), ZEROS(arkwCcsFftl)},
                       {"samps==0"}};
const BadCalls ofNip{
    "arkfftw",
    {ZEROS(arkvFftNip), ZEROS(arkwRealFftNip), ZEROS(arkwCcsFftNip), ZEROS(arkwRealFftlNip), ZEROS(arkwCcsFftlNip)},
    {"inSamps==0"}};
const BadCalls ofParts{"arkfftw", {ZEROS(arkvrFft)}, {"reSamps==0"}};
const BadCalls ofPartsNip{"arkfftw", {ZEROS(arkvrFftNip)}, {"reInSamps==0"}};
const BadCalls ofTwo{"arkfftw", {ZEROS(arkwReal2Fft), ZEROS(arkwCcs2Fft)}, {"xSamps==0"}};
const BadCalls ofTwoNip{"arkfftw", {ZEROS(arkwReal2FftNip), ZEROS(arkwCcs2FftNip)}, {"xInSamps==0"}};
const BadCalls ofMpy2{
    "arkfftw", {ZEROS(arkwMpyRCPack2), ZEROS(arkwMpyRCPerm2)}, {"src==0", "dst==0", "scaleFactor==0"}};
const BadCalls ofMpy3{
    "arkfftw", {ZEROS(arkwMpyRCPack3), ZEROS(arkwMpyRCPerm3)}, {"srcA==0", "srcB==0", "dst==0", "scaleFactor==0"}};

using Shorts = std::vector<short>;
using Floats = std::vector<float>;

template <class T>
T* pairs(short* parts)
{
    return reinterpret_cast<T*>(parts);
}

// A transform of one vector or two: lengths for N elements, the float model, the two 16-bit members.
struct Member {
    const char* name;
    std::size_t vectors, elementParts, moreSource, moreResult;
    int flags;
    void (*model)(float* x, float* y, int order, int flags);
    void (*inPlace)(short* x, short* y, int order, int flags, int mode, int* factor);
    void (*apart)(short* x, short* y, short* X, short* Y, int order, int flags, int mode, int* factor);
};

const Member members[] = {
    {"vFft", 1, 2, 0, 0, ARK_OutBitRev,
     [](float* x, float*, int o, int f) { arkcFft(reinterpret_cast<FloatCplx*>(x), o, f); },
     [](short* x, short*, int o, int f, int m, int* s) { arkvFft(pairs<ShortCplx>(x), o, f, m, s); },
     [](short* x, short*, short* X, short*, int o, int f, int m, int* s) {
         arkvFftNip(pairs<ShortCplx>(x), pairs<ShortCplx>(X), o, f, m, s);
     }},
    {"vrFft", 2, 1, 0, 0, 0, arkcrFft, arkvrFft,
     [](short* x, short* y, short* X, short* Y, int o, int f, int m, int* s) { arkvrFftNip(x, y, X, Y, o, f, m, s); }},
    {"wRealFft", 1, 1, 0, 2, 0, [](float* x, float*, int o, int f) { arksRealFft(x, o, f); },
     [](short* x, short*, int o, int f, int m, int* s) { arkwRealFft(x, o, f, m, s); },
     [](short* x, short*, short* X, short*, int o, int f, int m, int* s) {
         arkwRealFftNip(x, pairs<ShortCplx>(X), o, f, m, s);
     }},
    {"wCcsFft", 1, 1, 2, 0, 0, [](float* x, float*, int o, int f) { arksCcsFft(x, o, f); },
     [](short* x, short*, int o, int f, int m, int* s) { arkwCcsFft(x, o, f, m, s); },
     [](short* x, short*, short* X, short*, int o, int f, int m, int* s) {
         arkwCcsFftNip(pairs<ShortCplx>(x), X, o, f, m, s);
     }},
    {"wRealFftl", 1, 1, 0, 0, ARK_OutRCPack, [](float* x, float*, int o, int f) { arksRealFftl(x, o, f); },
     [](short* x, short*, int o, int f, int m, int* s) { arkwRealFftl(x, o, f, m, s); },
     [](short* x, short*, short* X, short*, int o, int f, int m, int* s) { arkwRealFftlNip(x, X, o, f, m, s); }},
    {"wCcsFftl", 1, 1, 0, 0, ARK_InRCPerm, [](float* x, float*, int o, int f) { arksCcsFftl(x, o, f); },
     [](short* x, short*, int o, int f, int m, int* s) { arkwCcsFftl(x, o, f, m, s); },
     [](short* x, short*, short* X, short*, int o, int f, int m, int* s) { arkwCcsFftlNip(x, X, o, f, m, s); }},
    {"wReal2Fft", 2, 1, 0, 2, 0, arksReal2Fft, arkwReal2Fft,
     [](short* x, short* y, short* X, short* Y, int o, int f, int m, int* s) {
         arkwReal2FftNip(x, y, pairs<ShortCplx>(X), pairs<ShortCplx>(Y), o, f, m, s);
     }},
    {"wCcs2Fft", 2, 1, 2, 0, 0, arksCcs2Fft, arkwCcs2Fft,
     [](short* x, short* y, short* X, short* Y, int o, int f, int m, int* s) {
         arkwCcs2FftNip(pairs<ShortCplx>(x), pairs<ShortCplx>(y), X, Y, o, f, m, s);
     }},
};

// The documented rules, on integers of unlimited size; the factor of the automatic mode.
Shorts scaled(const std::vector<long long>& exact, int mode, int factor)
{
    Shorts out;
    for (const long long x : exact) {
        const long long moved =
            factor >= 0 ? (long long)(std::floor(std::ldexp((long double)x, -factor))) : x << -factor;
        const bool shifts = mode == 2 || mode == 3 || mode == 4, clamps = mode == 0 || mode == 1 || mode == 3;
        const long long value = shifts ? moved : x;
        out.push_back(clamps ? short(std::clamp(value, -32768LL, 32767LL)) : short(value & 0xFFFF));
    }
    return out;
}

int automaticFactor(const std::vector<long long>& exact)
{
    long long least = 0, most = 0;
    for (const long long x : exact) {
        least = std::min(least, x);
        most = std::max(most, x);
    }
    int factor = 0;
    if (least < -32768 || most > 32767)
        while ((std::max(most, -least) >> factor) > 32767)
            factor++;
    return factor;
}

TEST(ShortFft, IsTheFloatTransformRoundedAndScaled)
{
    for (const Member& m : members)
        for (int order = 0; order <= 13; order++)
            for (const int direction : {int{ARK_Forw}, int{ARK_Inv}, ARK_Inv | ARK_NoScale})
                for (const auto& [mode, factor] :
                     {std::pair{0, 0}, {1, 3}, {2, 9}, {2, -1}, {3, 4}, {3, -3}, {4, 77}, {5, 2}, {100, 2}}) {
                    SCOPED_TRACE(testing::Message() << m.name << ", order " << order << ", direction " << direction
                                                    << ", mode " << mode << ", factor " << factor);
                    const std::size_t length = m.elementParts << order;
                    const std::size_t source = length + m.moreSource, result = length + m.moreResult;
                    const int flags = direction | m.flags;
                    Shorts src[2];
                    Floats model[2];
                    for (std::size_t v = 0; v < m.vectors; v++) {
                        for (std::size_t i = 0; i < source; i++)
                            src[v].push_back(short(randomInt(-32768, 32767)));
                        model[v].assign(src[v].begin(), src[v].end());
                        model[v].resize(std::max(source, result));
                    }
                    m.model(model[0].data(), model[1].data(), order, flags);
                    std::vector<long long> exact[2], all;
                    for (std::size_t v = 0; v < m.vectors; v++)
                        for (std::size_t i = 0; i < result; i++) {
                            exact[v].push_back(std::llrint(double(model[v][i])));
                            all.push_back(exact[v].back());
                        }
                    const int wantedFactor = mode == 4 ? (order == 0 ? 0 : automaticFactor(all)) : factor;

                    Guarded<short> x(std::max(source, result)), y(std::max(source, result)), X(result), Y(result),
                        in(source), in2(source);
                    std::copy(src[0].begin(), src[0].end(), x.begin());
                    std::copy(src[1].begin(), src[1].end(), y.begin());
                    std::copy(src[0].begin(), src[0].end(), in.begin());
                    std::copy(src[1].begin(), src[1].end(), in2.begin());
                    int used = factor;
                    m.inPlace(x.data(), y.data(), order, flags, mode, &used);
                    EXPECT_EQ(used, wantedFactor);
                    used = factor;
                    m.apart(in.data(), in2.data(), X.data(), Y.data(), order, flags, mode, &used);
                    EXPECT_EQ(used, wantedFactor);
                    Guarded<short>*const inPlace[] = {&x, &y}, *const apart[] = {&X, &Y};
                    for (std::size_t v = 0; v < m.vectors; v++) {
                        Shorts wanted = order > 0 ? scaled(exact[v], mode, wantedFactor) : src[v];
                        if (order == 0 && m.moreResult)
                            wanted = {src[v][0], 0, 0};
                        const std::size_t count = order > 0 ? result : m.moreResult ? 2 : m.elementParts;
                        const auto first = [&](Guarded<short>& g) {
                            return Shorts(g.begin(), g.begin() + std::ptrdiff_t(count));
                        };
                        wanted.resize(count);
                        EXPECT_EQ(first(*apart[v]), wanted);
                        if (order > 0) {
                            EXPECT_EQ(first(*inPlace[v]), wanted);
                        }
                    }
                }
}

TEST(ShortFft, KnownResults)
{
    // A full-scale constant: its spectrum is N times it at 0 and nothing elsewhere.
    ShortCplx x[8];
    std::fill(x, x + 8, ShortCplx{32767, -32768});
    int factor = 9;
    arkvFft(x, 3, ARK_Forw, ARK_AUTO_SCALE, &factor);
    EXPECT_EQ(factor, 4) << "-262144 >> 3 would just fit, but lies at the end of the range";
    EXPECT_EQ(x[0].re, 16383);
    EXPECT_EQ(x[0].im, -16384);
    EXPECT_EQ(x[1].re, 0);
    std::fill(x, x + 8, ShortCplx{32767, -32768});
    arkvFft(x, 3, ARK_Forw, ARK_WRAP, nullptr);
    EXPECT_EQ(x[0].re, 32767) << "without a factor the results are clamped";
    EXPECT_EQ(x[0].im, -32768);
}

TEST(ShortFft, ScaleModesAreChecked)
{
    Reports reports;
    short x[6] = {1, 2, 3, 4, 5, 6}, y[6] = {};
    arkwRealFft(x, 2, ARK_Forw, ARK_AUTO_SCALE, nullptr);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"ARK_AUTO_SCALE and scaleFactor==NULL"});
    arkwReal2Fft(x, y, 2, ARK_Forw, ARK_AUTO_SCALE | ARK_FIXED_SCALE, nullptr);
    EXPECT_EQ(reports.messages(),
              (std::vector<std::string>{"ARK_FIXED_SCALE and ARK_AUTO_SCALE", "ARK_AUTO_SCALE and scaleFactor==NULL"}));
    arkwRealFft(x, 2, 0, ARK_AUTO_SCALE, nullptr);
    EXPECT_EQ(reports.messages(), std::vector<std::string>{"no ARK_Forw or ARK_Inv"}) << "flags come first";
    EXPECT_EQ(Shorts(x, x + 6), (Shorts{1, 2, 3, 4, 5, 6}));
    arkwRealFft(x, 2, ARK_Forw, ARK_FIXED_SCALE, nullptr);
    EXPECT_EQ(Shorts(x, x + 6), (Shorts{10, 0, -2, 2, -2, 0}));
    EXPECT_TRUE(reports.take().empty());
}

// Exact products of the pairs that each layout holds, under every rule; the automatic factor covers all of them.
TEST(ShortSpectra, Products)
{
    const auto product = [](ShortCplx a, ShortCplx b) {
        const auto in32Bits = [](long long r) { return r == 1LL << 31 ? -r : r; };
        return std::pair{in32Bits(1LL * a.re * b.re - 1LL * a.im * b.im),
                         in32Bits(1LL * a.re * b.im + 1LL * a.im * b.re)};
    };
    for (int order = 0; order <= 9; order++)
        for (const bool pack : {true, false})
            for (const int bits : {6, 8, 15})
                for (const auto& [mode, factor] :
                     {std::pair{0, 1}, {1, 1}, {2, 5}, {2, -34}, {3, 12}, {4, 1}, {7, 16}}) {
                    const std::size_t N = std::size_t{1} << order;
                    Shorts a(N), b(N);
                    for (std::size_t i = 0; i < N; i++) {
                        a[i] = short(randomInt(-(1 << bits), (1 << bits) - 1));
                        b[i] = short(randomInt(-(1 << bits), (1 << bits) - 1));
                    }
                    std::vector<long long> exact(N);
                    for (const std::size_t i : {std::size_t{0}, pack ? N - 1 : std::min<std::size_t>(1, N - 1)})
                        exact[i] = 1LL * a[i] * b[i];
                    for (std::size_t i = pack ? 1 : 2; i + 1 < N; i += 2)
                        std::tie(exact[i], exact[i + 1]) = product({a[i], a[i + 1]}, {b[i], b[i + 1]});
                    int wantedFactor = factor, used = factor;
                    if (mode == 4) {
                        wantedFactor = 0;
                        for (const long long x : exact)
                            while ((x >> wantedFactor) < -32768 || (x >> wantedFactor) > 32767)
                                wantedFactor++;
                    }
                    const Shorts wanted = scaled(exact, mode == 7 ? 2 : mode, wantedFactor == -34 ? -2 : wantedFactor);
                    // Wrapping takes the low bits here: vector arithmetic, not the rounding of transforms.
                    Shorts low;
                    for (const long long x : exact)
                        low.push_back(short(x & 0xFFFF));
                    Guarded<short> A(a), B(b), dst(N);
                    (pack ? arkwMpyRCPack3 : arkwMpyRCPerm3)(A.data(), B.data(), dst.data(), order, mode, &used);
                    EXPECT_EQ(dst.values(), mode == 0 ? low : wanted) << "order " << order << ", mode " << mode;
                    EXPECT_EQ(used, wantedFactor);
                    (pack ? arkwMpyRCPack2 : arkwMpyRCPerm2)(A.data(), B.data(), order, mode, &used);
                    EXPECT_EQ(B.values(), dst.values());
                }
}

} // namespace
