#include "reference/spectrum.hpp"
#include "support/bad_calls.hpp"
#include "support/guarded.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

const BadCalls ofFloat{
    "arkffts", {ZEROS(arksRealFft), ZEROS(arksCcsFft), ZEROS(arksRealFftl), ZEROS(arksCcsFftl)}, {"samps==0"}};
const BadCalls ofDouble{
    "arkfftd", {ZEROS(arkdRealFft), ZEROS(arkdCcsFft), ZEROS(arkdRealFftl), ZEROS(arkdCcsFftl)}, {"samps==0"}};
const BadCalls ofFloatNip{"arkffts",
                          {ZEROS(arksRealFftNip), ZEROS(arksCcsFftNip), ZEROS(arksRealFftlNip), ZEROS(arksCcsFftlNip)},
                          {"inSamps==0"}};
const BadCalls ofDoubleNip{"arkfftd",
                           {ZEROS(arkdRealFftNip), ZEROS(arkdCcsFftNip), ZEROS(arkdRealFftlNip), ZEROS(arkdCcsFftlNip)},
                           {"inSamps==0"}};
const BadCalls ofFloat2{"arkffts", {ZEROS(arksReal2Fft), ZEROS(arksCcs2Fft)}, {"xSamps==0"}};
const BadCalls ofDouble2{"arkfftd", {ZEROS(arkdReal2Fft), ZEROS(arkdCcs2Fft)}, {"xSamps==0"}};
const BadCalls ofFloat2Nip{"arkffts", {ZEROS(arksReal2FftNip), ZEROS(arksCcs2FftNip)}, {"xInSamps==0"}};
const BadCalls ofDouble2Nip{"arkfftd", {ZEROS(arkdReal2FftNip), ZEROS(arkdCcs2FftNip)}, {"xInSamps==0"}};
const BadCalls ofFloatMpy2{"arkffts", {ZEROS(arksMpyRCPack2), ZEROS(arksMpyRCPerm2)}, {"src==0", "dst==0"}};
const BadCalls ofDoubleMpy2{"arkfftd", {ZEROS(arkdMpyRCPack2), ZEROS(arkdMpyRCPerm2)}, {"src==0", "dst==0"}};
const BadCalls ofFloatMpy3{"arkffts", {ZEROS(arksMpyRCPack3), ZEROS(arksMpyRCPerm3)}, {"srcA==0", "srcB==0", "dst==0"}};
const BadCalls ofDoubleMpy3{
    "arkfftd", {ZEROS(arkdMpyRCPack3), ZEROS(arkdMpyRCPerm3)}, {"srcA==0", "srcB==0", "dst==0"}};

template <class R>
struct Members;
template <>
struct Members<float> {
    using Cplx = FloatCplx;
    static constexpr auto realFft = arksRealFft, ccsFft = arksCcsFft, realFftl = arksRealFftl, ccsFftl = arksCcsFftl;
    static constexpr auto realFftNip = arksRealFftNip;
    static constexpr auto ccsFftNip = arksCcsFftNip;
    static constexpr auto realFftlNip = arksRealFftlNip, ccsFftlNip = arksCcsFftlNip;
    static constexpr auto real2Fft = arksReal2Fft, ccs2Fft = arksCcs2Fft;
    static constexpr auto real2FftNip = arksReal2FftNip;
    static constexpr auto ccs2FftNip = arksCcs2FftNip;
    static constexpr auto mpyPack2 = arksMpyRCPack2, mpyPerm2 = arksMpyRCPerm2;
    static constexpr auto mpyPack3 = arksMpyRCPack3, mpyPerm3 = arksMpyRCPerm3;
};
template <>
struct Members<double> {
    using Cplx = DoubleCplx;
    static constexpr auto realFft = arkdRealFft, ccsFft = arkdCcsFft, realFftl = arkdRealFftl, ccsFftl = arkdCcsFftl;
    static constexpr auto realFftNip = arkdRealFftNip;
    static constexpr auto ccsFftNip = arkdCcsFftNip;
    static constexpr auto realFftlNip = arkdRealFftlNip, ccsFftlNip = arkdCcsFftlNip;
    static constexpr auto real2Fft = arkdReal2Fft, ccs2Fft = arkdCcs2Fft;
    static constexpr auto real2FftNip = arkdReal2FftNip;
    static constexpr auto ccs2FftNip = arkdCcs2FftNip;
    static constexpr auto mpyPack2 = arkdMpyRCPack2, mpyPerm2 = arkdMpyRCPerm2;
    static constexpr auto mpyPack3 = arkdMpyRCPack3, mpyPerm3 = arkdMpyRCPerm3;
};

// As for complex transforms, with one more step for the recombination.
template <class R>
double bound(int order)
{
    return reference::transformError<R>(order + 1, order <= 12);
}

// Where each layout keeps the parts of X_k; the table of the documentation as formulas.
enum Layout { ccs, pack, perm };
std::size_t realPlace(Layout layout, std::size_t k, std::size_t N)
{
    if (layout == ccs || k == 0)
        return 2 * k;
    if (k == N / 2)
        return layout == pack ? N - 1 : 1;
    return layout == pack ? 2 * k - 1 : 2 * k;
}

template <class R>
class RealFft : public testing::Test {
protected:
    using Signal = std::vector<R>;

    static std::size_t sizeOf(Layout layout, std::size_t N) { return layout == ccs ? N + 2 : N; }

    static Signal signal(int order, bool imaginary = false)
    {
        Signal x;
        for (const reference::Complex& z : reference::pairOf(order).signal)
            x.push_back(R(imaginary ? z.imag() : z.real()));
        return x;
    }

    // What should be: the spectrum of the real or of the imaginary parts.
    static reference::Complex wanted(int order, std::size_t k, int sign, bool imaginary)
    {
        const reference::Pair& pair = reference::pairOf(order);
        return imaginary ? pair.ofImaginary(k, sign) : pair.ofReal(k, sign);
    }

    // In a layout; in CCS the imaginary parts that must not be read are no numbers.
    static Signal spectrum(Layout layout, int order, int sign, bool imaginary = false)
    {
        const std::size_t N = std::size_t{1} << order;
        Signal s(sizeOf(layout, N), std::numeric_limits<R>::quiet_NaN());
        for (std::size_t k = 0; k <= N / 2; k++) {
            const reference::Complex X = wanted(order, k, sign, imaginary);
            s[realPlace(layout, k, N)] = R(X.real());
            if (k != 0 && k != N / 2)
                s[realPlace(layout, k, N) + 1] = R(X.imag());
        }
        return s;
    }

    static void expectSpectrum(const R* got, Layout layout, int order, int sign, bool imaginary = false)
    {
        const std::size_t N = std::size_t{1} << order;
        reference::Error error;
        for (std::size_t k = 0; k <= N / 2; k++) {
            const R* const X = got + realPlace(layout, k, N);
            const bool isReal = k == 0 || k == N / 2;
            error.add({X[0], isReal ? 0 : X[1]}, wanted(order, k, sign, imaginary));
            if (isReal && layout == ccs && order > 0) {
                EXPECT_EQ(X[1], R(0));
                EXPECT_FALSE(std::signbit(X[1]));
            }
        }
        EXPECT_LE(error.relative(), bound<R>(order)) << "order " << order << ", layout " << layout << ", sign " << sign;
    }

    // N times the signal, backwards when its spectrum was taken with the sign that it comes back with.
    static void expectSignal(const R* got, int order, bool backwards, bool imaginary = false)
    {
        const reference::Pair& pair = reference::pairOf(order);
        const std::size_t N = pair.size();
        reference::Error error;
        for (std::size_t n = 0; n < N; n++) {
            const reference::Complex z = pair.signal[backwards ? (N - n) % N : n];
            error.add(R(got[n]), static_cast<long double>(N) * (imaginary ? z.imag() : z.real()));
        }
        EXPECT_LE(error.relative(), bound<R>(order)) << "order " << order << (backwards ? ", backwards" : "");
    }

    static void expectEqual(const R* got, const R* wantedValues, std::size_t size, const char* what)
    {
        EXPECT_EQ(std::memcmp(got, wantedValues, size * sizeof(R)), 0) << what << ", " << size << " reals";
    }
    static void expectScaled(const R* got, const R* unscaled, std::size_t size, std::size_t N)
    {
        for (std::size_t i = 0; i < size; i++)
            ASSERT_EQ(got[i], unscaled[i] / R(N)) << "element " << i;
    }
};
using Reals = testing::Types<float, double>;
TYPED_TEST_SUITE(RealFft, Reals);

TYPED_TEST(RealFft, ToSpectraInEveryLayout)
{
    using R = TypeParam;
    using M = Members<R>;
    for (int order = 1; order <= 20; order++)
        for (const int direction : {int{ARK_Forw}, ARK_Inv | ARK_NoScale}) {
            const std::size_t N = std::size_t{1} << order;
            const int sign = direction == ARK_Forw ? -1 : +1;
            const std::vector<R> source = this->signal(order);
            const auto inPlace = [&](Layout layout, int flags) {
                Guarded<R> x(this->sizeOf(layout, N));
                std::copy(source.begin(), source.end(), x.begin());
                if (layout == ccs)
                    M::realFft(x.data(), order, flags);
                else
                    M::realFftl(x.data(), order, flags | (layout == pack ? ARK_OutRCPack : ARK_OutRCPerm));
                return x.values();
            };
            const std::vector<R> spectrum = inPlace(ccs, direction);
            this->expectSpectrum(spectrum.data(), ccs, order, sign);

            Guarded<R> in(source), out(N + 2), packed(N);
            M::realFftNip(in.data(), reinterpret_cast<typename M::Cplx*>(out.data()), order, direction);
            this->expectEqual(out.data(), spectrum.data(), N + 2, "not in place");
            for (const Layout layout : {pack, perm}) {
                const std::vector<R> got = inPlace(layout, direction);
                std::vector<R> wanted(N);
                for (std::size_t k = 0; k <= N / 2; k++) {
                    wanted[realPlace(layout, k, N)] = spectrum[2 * k];
                    if (k != 0 && k != N / 2)
                        wanted[realPlace(layout, k, N) + 1] = spectrum[2 * k + 1];
                }
                this->expectEqual(got.data(), wanted.data(), N, "packed");
                M::realFftlNip(in.data(), packed.data(), order,
                               direction | (layout == pack ? ARK_OutRCPack : ARK_OutRCPerm));
                this->expectEqual(packed.data(), wanted.data(), N, "packed, not in place");
                if (direction != ARK_Forw)
                    this->expectScaled(inPlace(layout, ARK_Inv).data(), wanted.data(), N, N);
            }
            if (direction != ARK_Forw)
                this->expectScaled(inPlace(ccs, ARK_Inv).data(), spectrum.data(), N + 2, N);
        }
}

TYPED_TEST(RealFft, FromSpectraInEveryLayout)
{
    using R = TypeParam;
    using M = Members<R>;
    for (int order = 1; order <= 20; order++)
        for (const int direction : {int{ARK_Forw}, ARK_Inv | ARK_NoScale}) {
            const std::size_t N = std::size_t{1} << order;
            const auto inPlace = [&](Layout layout, int flags) {
                Guarded<R> x(this->spectrum(layout, order, -1));
                if (layout == ccs)
                    M::ccsFft(x.data(), order, flags);
                else
                    M::ccsFftl(x.data(), order, flags | (layout == pack ? ARK_InRCPack : ARK_InRCPerm));
                return x.values();
            };
            const std::vector<R> signal = inPlace(ccs, direction);
            this->expectSignal(signal.data(), order, direction == ARK_Forw);
            for (const Layout layout : {ccs, pack, perm}) {
                this->expectEqual(inPlace(layout, direction).data(), signal.data(), N, "in place");
                Guarded<R> in(this->spectrum(layout, order, -1)), out(N);
                if (layout == ccs)
                    M::ccsFftNip(reinterpret_cast<const typename M::Cplx*>(in.data()), out.data(), order, direction);
                else
                    M::ccsFftlNip(in.data(), out.data(), order,
                                  direction | (layout == pack ? ARK_InRCPack : ARK_InRCPerm));
                this->expectEqual(out.data(), signal.data(), N, "not in place");
                if (direction != ARK_Forw)
                    this->expectScaled(inPlace(layout, ARK_Inv).data(), signal.data(), N, N);
            }
        }
}

TYPED_TEST(RealFft, TwoSignals)
{
    using R = TypeParam;
    using M = Members<R>;
    using Cplx = typename M::Cplx;
    for (int order = 1; order <= 18; order++)
        for (const int direction : {int{ARK_Forw}, ARK_Inv | ARK_NoScale}) {
            const std::size_t N = std::size_t{1} << order;
            const int sign = direction == ARK_Forw ? -1 : +1;
            const std::vector<R> sources[] = {this->signal(order, false), this->signal(order, true)};
            const auto inPlace = [&](int flags) {
                std::vector<std::vector<R>> result;
                Guarded<R> x(N + 2), y(N + 2);
                std::copy(sources[0].begin(), sources[0].end(), x.begin());
                std::copy(sources[1].begin(), sources[1].end(), y.begin());
                M::real2Fft(x.data(), y.data(), order, flags);
                return std::vector{x.values(), y.values()};
            };
            const auto spectra = inPlace(direction);
            Guarded<R> x(sources[0]), y(sources[1]), X(N + 2), Y(N + 2);
            M::real2FftNip(x.data(), y.data(), reinterpret_cast<Cplx*>(X.data()), reinterpret_cast<Cplx*>(Y.data()),
                           order, direction);
            for (const bool imaginary : {false, true}) {
                this->expectSpectrum(spectra[imaginary].data(), ccs, order, sign, imaginary);
                this->expectEqual((imaginary ? Y : X).data(), spectra[imaginary].data(), N + 2, "not in place");
                if (direction != ARK_Forw)
                    this->expectScaled(inPlace(ARK_Inv)[imaginary].data(), spectra[imaginary].data(), N + 2, N);
            }

            Guarded<R> a(this->spectrum(ccs, order, -1, false)), b(this->spectrum(ccs, order, -1, true));
            M::ccs2FftNip(reinterpret_cast<Cplx*>(a.data()), reinterpret_cast<Cplx*>(b.data()), x.data(), y.data(),
                          order, direction);
            M::ccs2Fft(a.data(), b.data(), order, direction);
            for (const bool imaginary : {false, true}) {
                this->expectSignal((imaginary ? b : a).data(), order, direction == ARK_Forw, imaginary);
                this->expectEqual((imaginary ? y : x).data(), (imaginary ? b : a).data(), N, "back, not in place");
            }
        }
}

TYPED_TEST(RealFft, TwoSignalsHaveZerosWhateverElseTheyHave)
{
    using R = TypeParam;
    for (int order = 1; order <= 6; order++) {
        const std::size_t N = std::size_t{1} << order;
        Guarded<R> x(N + 2), y(N + 2);
        x[0] = std::numeric_limits<R>::infinity();
        y[N - 1] = 1;
        Members<R>::real2Fft(x.data(), y.data(), order, ARK_Forw);
        EXPECT_TRUE(x[1] == 0 && y[1] == 0 && x[N + 1] == 0 && y[N + 1] == 0) << order;
    }
}

TYPED_TEST(RealFft, OrderZeroIsCopied)
{
    using R = TypeParam;
    using M = Members<R>;
    using Cplx = typename M::Cplx;
    R samples[] = {5, 7, 9};
    for (auto* const inPlace : {M::realFft, M::ccsFft})
        inPlace(samples, 0, ARK_Inv);
    M::realFftl(samples, 0, ARK_Inv | ARK_OutRCPack);
    M::ccsFftl(samples, 0, ARK_Inv | ARK_InRCPerm);
    M::real2Fft(samples, samples + 2, 0, ARK_Inv);
    EXPECT_EQ(std::vector<R>(samples, samples + 3), (std::vector<R>{5, 7, 9}));

    Guarded<Cplx> X(1), Y(1);
    M::realFftNip(samples, X.data(), 0, ARK_Forw);
    EXPECT_TRUE(X[0].re == 5 && X[0].im == 0);
    M::real2FftNip(samples, samples + 1, X.data(), Y.data(), 0, ARK_Forw);
    EXPECT_TRUE(X[0].re == 5 && X[0].im == 0 && Y[0].re == 7 && Y[0].im == 0);
    Guarded<R> x(1), y(1);
    M::ccs2FftNip(X.data(), Y.data(), x.data(), y.data(), 0, ARK_Forw);
    EXPECT_TRUE(x[0] == 5 && y[0] == 7);
    M::ccsFftNip(Y.data(), x.data(), 0, ARK_Inv);
    EXPECT_EQ(x[0], 7);
    M::realFftlNip(samples, x.data(), 0, ARK_Forw | ARK_OutRCPerm);
    M::ccsFftlNip(samples, y.data(), 0, ARK_Forw | ARK_InRCPack);
    EXPECT_TRUE(x[0] == 5 && y[0] == 5);
}

TYPED_TEST(RealFft, AlignmentChangesNothing)
{
    using R = TypeParam;
    using M = Members<R>;
    for (int order = 1; order <= 11; order++) {
        const std::size_t N = std::size_t{1} << order;
        const std::vector<R> source = this->signal(order);
        std::vector<R> wanted = source, memory(N + 32);
        M::realFftl(wanted.data(), order, ARK_Forw | ARK_OutRCPack);
        std::vector<R> back = wanted;
        M::ccsFftl(back.data(), order, ARK_Inv | ARK_InRCPack);
        for (int offset = 0; offset < 16; offset++) {
            R* const x = memory.data() + offset;
            std::copy(source.begin(), source.end(), x);
            M::realFftl(x, order, ARK_Forw | ARK_OutRCPack);
            this->expectEqual(x, wanted.data(), N, "there");
            M::ccsFftl(x, order, ARK_Inv | ARK_InRCPack);
            this->expectEqual(x, back.data(), N, "back");
        }
    }
}

// The convolution theorem: the product of spectra is that of a circular convolution.
TYPED_TEST(RealFft, ProductsOfSpectraConvolve)
{
    using R = TypeParam;
    using M = Members<R>;
    for (int order = 0; order <= 8; order++) {
        const std::size_t N = std::size_t{1} << order;
        const auto a = this->signal(order, false), b = this->signal(order, true);
        for (const Layout layout : {pack, perm}) {
            const int to = ARK_Forw | (layout == pack ? ARK_OutRCPack : ARK_OutRCPerm);
            const int from = ARK_Inv | (layout == pack ? ARK_InRCPack : ARK_InRCPerm);
            Guarded<R> A(a), B(b), product(N);
            M::realFftl(A.data(), order, to);
            M::realFftl(B.data(), order, to);
            (layout == pack ? M::mpyPack3 : M::mpyPerm3)(A.data(), B.data(), product.data(), order);
            (layout == pack ? M::mpyPack2 : M::mpyPerm2)(A.data(), B.data(), order);
            this->expectEqual(B.data(), product.data(), N, "product in place");
            M::ccsFftl(product.data(), order, from);
            reference::Error error;
            for (std::size_t n = 0; n < N; n++) {
                long double sum = 0;
                for (std::size_t i = 0; i < N; i++)
                    sum += static_cast<long double>(a[i]) * static_cast<long double>(b[(n + N - i) % N]);
                error.add(product[n], sum);
            }
            EXPECT_LE(error.relative(), 3 * bound<R>(order)) << order; // three transforms and the products
        }
    }
}

} // namespace
