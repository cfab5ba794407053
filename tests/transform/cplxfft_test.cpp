#include "reference/spectrum.hpp"
#include "support/bad_calls.hpp"
#include "support/guarded.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <bit>
#include <cstring>

namespace {

const BadCalls ofFloat{"arkffts", {ZEROS(arkcFft)}, {"samps==0"}};
const BadCalls ofDouble{"arkfftd", {ZEROS(arkzFft)}, {"samps==0"}};
const BadCalls ofFloatNip{"arkffts", {ZEROS(arkcFftNip)}, {"inSamps==0"}};
const BadCalls ofDoubleNip{"arkfftd", {ZEROS(arkzFftNip)}, {"inSamps==0"}};
const BadCalls ofFloatParts{"arkffts", {ZEROS(arkcrFft)}, {"reSamps==0"}};
const BadCalls ofDoubleParts{"arkfftd", {ZEROS(arkzrFft)}, {"reSamps==0"}};
const BadCalls ofFloatPartsNip{"arkffts", {ZEROS(arkcrFftNip)}, {"reInSamps==0"}};
const BadCalls ofDoublePartsNip{"arkfftd", {ZEROS(arkzrFftNip)}, {"reInSamps==0"}};

template <class R>
struct Members;
template <>
struct Members<float> {
    using Cplx = FloatCplx;
    static constexpr auto fft = arkcFft;
    static constexpr auto fftNip = arkcFftNip;
    static constexpr auto ofParts = arkcrFft;
    static constexpr auto ofPartsNip = arkcrFftNip;
};
template <>
struct Members<double> {
    using Cplx = DoubleCplx;
    static constexpr auto fft = arkzFft;
    static constexpr auto fftNip = arkzFftNip;
    static constexpr auto ofParts = arkzrFft;
    static constexpr auto ofPartsNip = arkzrFftNip;
};

template <class R>
double bound(int order)
{
    return reference::transformError<R>(order, order <= 11);
}

// Place by place, as the numbers with one bit less and then those with that bit set.
std::vector<std::size_t> reversedPlaces(int order)
{
    std::vector<std::size_t> places{0};
    for (std::size_t bit = std::size_t{1} << order >> 1; bit > 0; bit /= 2)
        for (std::size_t i = 0, size = places.size(); i < size; i++)
            places.push_back(places[i] + bit);
    return places;
}

template <class R>
class CplxFft : public testing::Test {
protected:
    using Element = typename Members<R>::Cplx;

    static std::vector<Element> signal(int order, bool inReversedOrder)
    {
        const reference::Pair& pair = reference::pairOf(order);
        std::vector<Element> x(pair.size());
        const std::vector<std::size_t> places = reversedPlaces(order);
        for (std::size_t i = 0; i < x.size(); i++) {
            const reference::Complex value = pair.signal[inReversedOrder ? places[i] : i];
            x[i] = {R(value.real()), R(value.imag())};
        }
        return x;
    }
    static bool equal(const Element* a, const Element* b, std::size_t size)
    {
        return std::memcmp(a, b, size * sizeof *a) == 0;
    }
};
using Reals = testing::Types<float, double>;
TYPED_TEST_SUITE(CplxFft, Reals);

TYPED_TEST(CplxFft, EveryOrderDirectionAndForm)
{
    using R = TypeParam;
    using M = Members<R>;
    using Cplx = typename M::Cplx;
    for (int order = 0; order <= 20; order += order < 17 ? 1 : 3) { // the last one is computed as a matrix
        const std::size_t N = std::size_t{1} << order;
        const std::vector<std::size_t> places = reversedPlaces(order);
        for (const int direction : {int{ARK_Forw}, ARK_Inv | ARK_NoScale})
            for (const int orderFlag : {0, int{ARK_InBitRev}, int{ARK_OutBitRev}}) {
                SCOPED_TRACE(testing::Message() << "order " << order << ", flags " << (direction | orderFlag));
                const int flags = direction | orderFlag;
                const std::vector<Cplx> source = this->signal(order, orderFlag == ARK_InBitRev);
                Guarded<Cplx> x(source);
                M::fft(x.data(), order, flags);
                reference::Error error;
                for (std::size_t i = 0; i < N; i++) {
                    const std::size_t k = orderFlag == ARK_OutBitRev ? places[i] : i;
                    error.add({x[i].re, x[i].im}, reference::pairOf(order).at(k, direction == ARK_Forw ? -1 : +1));
                }
                EXPECT_LE(error.relative(), bound<R>(order));

                // Not in place gives the same to the bit.
                Guarded<Cplx> in(source), out(N);
                M::fftNip(in.data(), out.data(), order, flags | (orderFlag ? 0 : ARK_NoBitRev));
                EXPECT_TRUE(this->equal(out.data(), x.data(), N));
                EXPECT_TRUE(this->equal(in.data(), source.data(), N));
                Guarded<R> re(N), im(N), reOut(N), imOut(N);
                for (std::size_t i = 0; i < N; i++) {
                    re[i] = source[i].re;
                    im[i] = source[i].im;
                }
                M::ofPartsNip(re.data(), im.data(), reOut.data(), imOut.data(), order, flags);
                M::ofParts(re.data(), im.data(), order, flags);
                reference::Error ofParts;
                for (std::size_t i = 0; i < N; i++) {
                    ASSERT_TRUE(re[i] == reOut[i] && im[i] == imOut[i]) << "element " << i;
                    ofParts.add({re[i], im[i]}, {x[i].re, x[i].im});
                }
                EXPECT_LE(ofParts.relative(), bound<R>(order)) << "other roundings";
                if (direction == ARK_Forw)
                    continue;
                Guarded<Cplx> scaled(source);
                M::fft(scaled.data(), order, flags & ~ARK_NoScale);
                for (std::size_t i = 0; i < N; i++) {
                    const Cplx divided{x[i].re / R(N), x[i].im / R(N)};
                    ASSERT_TRUE(this->equal(&divided, &scaled[i], 1)) << "element " << i;
                }
            }
    }
}

TYPED_TEST(CplxFft, BitReversedThereAndBack)
{
    using R = TypeParam;
    using M = Members<R>;
    for (int order = 0; order <= 21; order += order < 16 ? 1 : 5) {
        auto x = this->signal(order, false);
        M::fft(x.data(), order, ARK_Forw | ARK_OutBitRev);
        M::fft(x.data(), order, ARK_Inv | ARK_InBitRev);
        reference::Error error;
        for (std::size_t i = 0; i < x.size(); i++)
            error.add({x[i].re, x[i].im}, reference::pairOf(order).signal[i]);
        EXPECT_LE(error.relative(), 2 * bound<R>(order)) << order; // two transforms
    }
}

TYPED_TEST(CplxFft, AlignmentChangesNothing)
{
    using M = Members<TypeParam>;
    using Cplx = typename M::Cplx;
    for (int order = 1; order <= 13; order++) {
        const std::size_t N = std::size_t{1} << order;
        const std::vector<Cplx> source = this->signal(order, false);
        for (const int flags : {int{ARK_Forw}, ARK_Forw | ARK_InBitRev, ARK_Inv | ARK_OutBitRev}) {
            std::vector<Cplx> wanted = source;
            M::fft(wanted.data(), order, flags);
            std::vector<TypeParam> in(2 * N + 64), out(2 * N + 64); // whose elements start at every place of a register
            for (int offset = 0; offset < 16; offset++) {
                auto* const src = reinterpret_cast<Cplx*>(in.data() + offset);
                auto* const dst = reinterpret_cast<Cplx*>(out.data() + 7 * offset % 17);
                std::memcpy(src, source.data(), N * sizeof(Cplx));
                M::fftNip(src, dst, order, flags);
                EXPECT_TRUE(this->equal(dst, wanted.data(), N)) << "order " << order << ", offset " << offset;
                M::fft(src, order, flags);
                EXPECT_TRUE(this->equal(src, wanted.data(), N)) << "order " << order << ", offset " << offset;
            }
        }
    }
}

// An impulse an eighth of the way in: every result is a power of the eighth root of unity. In the float transforms up
// to order 11 its parts are not the floats nearest to sqrt(1/2).
TYPED_TEST(CplxFft, RootAtAnEighthOfTheCircle)
{
    using R = TypeParam;
    using Cplx = typename Members<R>::Cplx;
    for (int order = 3; order <= 15; order++)
        for (const int flags :
             {int{ARK_Forw}, ARK_Inv | ARK_NoScale, ARK_Forw | ARK_InBitRev, ARK_Forw | ARK_OutBitRev}) {
            const R h =
                sizeof(R) == sizeof(float) && order <= 11 ? R(std::bit_cast<float>(0x3F3504F7u)) : R(std::sqrt(0.5L));
            const R cosines[8] = {1, h, 0, -h, -1, -h, 0, h};
            const std::size_t N = std::size_t{1} << order;
            const std::vector<std::size_t> places = reversedPlaces(order);
            std::vector<Cplx> x(N);
            x[flags & ARK_InBitRev ? places[N / 8] : N / 8].re = 1;
            Members<R>::fft(x.data(), order, flags);
            for (std::size_t i = 0; i < N; i++) {
                const std::size_t k = (flags & ARK_OutBitRev ? places[i] : i) % 8;
                const R sine = cosines[(k + 6) % 8];
                ASSERT_TRUE(x[i].re == cosines[k] && x[i].im == (flags & ARK_Inv ? sine : -sine))
                    << "order " << order << ", flags " << flags << ", place " << i;
            }
        }
}

// What needs no reference, on lengths beyond those above: energy is kept, and a shifted sum has the sum of the spectra,
// turned.
TYPED_TEST(CplxFft, ParsevalLinearityAndShift)
{
    using R = TypeParam;
    using M = Members<R>;
    using Cplx = typename M::Cplx;
    for (const int order : {5, 12, 21}) {
        const std::size_t N = std::size_t{1} << order;
        std::vector<Cplx> a(N), b(N), sum(N);
        for (std::size_t i = 0; i < N; i++) {
            a[i] = {R(randomInt(-1000, 1000)), R(randomInt(-1000, 1000))};
            b[i] = {R(randomInt(-1000, 1000)), R(randomInt(-1000, 1000))};
        }
        const std::size_t shift = N / 4 + 1;
        for (std::size_t i = 0; i < N; i++) // 3 a + b, late by shift
            sum[(i + shift) % N] = {3 * a[i].re + b[i].re, 3 * a[i].im + b[i].im};
        long double energy = 0, spectralEnergy = 0;
        for (const Cplx& x : a)
            energy += std::norm(reference::Complex{x.re, x.im});
        for (auto* x : {&a, &b, &sum})
            M::fft(x->data(), order, ARK_Forw);
        for (const Cplx& x : a)
            spectralEnergy += std::norm(reference::Complex{x.re, x.im});
        EXPECT_NEAR(double(spectralEnergy / static_cast<long double>(N) / energy), 1, 2 * bound<R>(order));
        reference::Error error;
        for (std::size_t k = 0; k < N; k++) {
            const long double angle =
                -2 * std::acos(-1.0L) * static_cast<long double>(k * shift % N) / static_cast<long double>(N);
            const reference::Complex turn{std::cos(angle), std::sin(angle)};
            error.add({sum[k].re, sum[k].im},
                      turn * (reference::Complex{a[k].re, a[k].im} * 3.0L + reference::Complex{b[k].re, b[k].im}));
        }
        EXPECT_LE(error.relative(), 2 * bound<R>(order)) << order;
    }
}

} // namespace
