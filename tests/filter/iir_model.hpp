// IIR filters by their definition: difference equations over the whole history, in long double, on the coefficients as
// the caller gives them.
#pragma once

#include "support/random.hpp"

#include <arkpx.h>

#include <complex>
#include <cstddef>
#include <tuple>
#include <vector>

namespace iir {

using Wide = std::complex<long double>;

template <class T>
Wide wide(T x)
{
    if constexpr (requires { x.re; })
        return {x.re, x.im};
    else
        return x;
}

template <class T>
T narrow(Wide x)
{
    if constexpr (requires { T{}.re; })
        return {decltype(T{}.re)(x.real()), decltype(T{}.im)(x.imag())};
    else
        return T(x.real());
}

// a0 y[i] = sum of b[k] x[i-k] - sum of a[k] y[i-k]
inline std::vector<Wide> filtered(const std::vector<Wide>& b, const std::vector<Wide>& a, const std::vector<Wide>& x)
{
    std::vector<Wide> y;
    for (std::size_t i = 0; i < x.size(); i++) {
        Wide sum = 0;
        for (std::size_t k = 0; k < b.size() && k <= i; k++)
            sum += b[k] * x[i - k];
        for (std::size_t k = 1; k < a.size() && k <= i; k++)
            sum -= a[k] * y[i - k];
        y.push_back(sum / a[0]);
    }
    return y;
}

// Coefficients in the caller's order: b's then a's of one filter, or of each section.
template <class T>
std::vector<Wide> filtered(const std::vector<T>& coefs, bool isCascade, std::vector<Wide> signal)
{
    const std::size_t half = isCascade ? 3 : coefs.size() / 2;
    for (std::size_t first = 0; first < coefs.size(); first += 2 * half) {
        std::vector<Wide> b, a;
        for (std::size_t k = 0; k < half; k++) {
            b.push_back(wide(coefs[first + k]));
            a.push_back(wide(coefs[first + half + k]));
        }
        signal = filtered(b, a, signal);
    }
    return signal;
}

inline double uniform(double low, double high) { return low + (high - low) * randomInt(0, 1 << 24) / (1 << 24); }

template <class T>
T randomValue(double magnitude)
{
    return narrow<T>(Wide(uniform(-magnitude, magnitude), uniform(-magnitude, magnitude)));
}

// The product of (1 - root z^-1), its roots within the radius; real roots and conjugate pairs for real types.
template <class T>
std::vector<Wide> randomPolynomial(int order, double radius)
{
    std::vector<Wide> p{1};
    const auto multiply = [&](Wide root) {
        p.push_back(0);
        for (std::size_t k = p.size() - 1; k > 0; k--)
            p[k] -= root * p[k - 1];
    };
    for (int k = 0; k < order; k++) {
        const Wide root = std::polar(radius * uniform(0.3, 1), uniform(-3, 3));
        if (requires { T{}.re; })
            multiply(root);
        else if (k + 1 < order) {
            multiply(root);
            multiply(std::conj(root));
            k++;
        } else
            multiply(root.real());
    }
    return p;
}

// A stable filter's coefficients. b0 and a0 are powers of two or such times i, so that the normalisation is exact up to
// the rounding of the coefficients given here.
template <class T>
std::vector<T> randomFilter(int order, double radius)
{
    std::vector<T> coefs;
    for (const double gain : {0.25, 2.0})
        for (const Wide c : randomPolynomial<T>(order, radius))
            coefs.push_back(narrow<T>(c * Wide(gain)));
    return coefs;
}

// One type's functions.
template <class DataType, class TapsType, class ResultType>
struct Member {
    using Data = DataType;
    using Taps = TapsType;
    using Result = ResultType;

    void (*lowInit)(int, Taps*, int, IirlTapState*);
    void (*lowInitBq)(int, Taps*, int, IirlTapState*);
    void (*initDlyl)(const IirlTapState*, Result*, IirlDlyState*);
    Result (*lowOne)(const IirlTapState*, const IirlDlyState*, Data);
    void (*lowBlock)(const IirlTapState*, const IirlDlyState*, const Data*, Result*, int);
    void (*init)(int, const Taps*, int, IirState*);
    void (*initBq)(int, const Taps*, int, IirState*);
    Result (*one)(IirState*, Data);
    void (*block)(IirState*, const Data*, Result*, int);
};

// clang-format off
inline const std::tuple members{
    Member<float, float, float>
        {arksIirlInit, arksIirlInitBq, arksIirlInitDlyl, arksIirl, arksbIirl, arksIirInit, arksIirInitBq, arksIir, arksbIir},
    Member<double, double, double>
        {arkdIirlInit, arkdIirlInitBq, arkdIirlInitDlyl, arkdIirl, arkdbIirl, arkdIirInit, arkdIirInitBq, arkdIir, arkdbIir},
    Member<FloatCplx, FloatCplx, FloatCplx>
        {arkcIirlInit, arkcIirlInitBq, arkcIirlInitDlyl, arkcIirl, arkcbIirl, arkcIirInit, arkcIirInitBq, arkcIir, arkcbIir},
    Member<DoubleCplx, DoubleCplx, DoubleCplx>
        {arkzIirlInit, arkzIirlInitBq, arkzIirlInitDlyl, arkzIirl, arkzbIirl, arkzIirInit, arkzIirInitBq, arkzIir, arkzbIir},
    Member<float, FloatCplx, FloatCplx>
        {arkcIirlInit, arkcIirlInitBq, arkcIirlInitDlyl, arkscIirl, arkscbIirl, arkscIirInit, arkscIirInitBq, arkscIir, arkscbIir},
    Member<FloatCplx, float, FloatCplx>
        {arksIirlInit, arksIirlInitBq, arkcIirlInitDlyl, arkcsIirl, arkcsbIirl, arkcsIirInit, arkcsIirInitBq, arkcsIir, arkcsbIir},
    Member<double, DoubleCplx, DoubleCplx>
        {arkzIirlInit, arkzIirlInitBq, arkzIirlInitDlyl, arkdzIirl, arkdzbIirl, arkdzIirInit, arkdzIirInitBq, arkdzIir, arkdzbIir},
    Member<DoubleCplx, double, DoubleCplx>
        {arkdIirlInit, arkdIirlInitBq, arkzIirlInitDlyl, arkzdIirl, arkzdbIirl, arkzdIirInit, arkzdIirInitBq, arkzdIir, arkzdbIir},
};
// clang-format on

template <class Test>
void forEachMember(Test test)
{
    std::apply([&](const auto&... member) { (test(member), ...); }, members);
}

} // namespace iir
