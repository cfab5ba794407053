// FIR filters by their definition: the whole past is kept, and every output is summed over all taps in long double.
#pragma once

#include "support/guarded.hpp"
#include "support/random.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <type_traits>
#include <vector>

namespace fir {

using Exact = std::complex<long double>;

inline Exact exact(FloatCplx z) { return {z.re, z.im}; }
inline Exact exact(DoubleCplx z) { return {static_cast<long double>(z.re), static_cast<long double>(z.im)}; }
template <class T>
requires std::is_arithmetic_v<T> Exact exact(T x) { return static_cast<long double>(x); }

// Random values between -1 and 1, or 16-bit numbers.
template <class T>
T anyValue()
{
    if constexpr (std::is_same_v<T, short>)
        return short(randomInt(-1000, 1000));
    else if constexpr (std::is_floating_point_v<T>)
        return T(randomInt(-1000000, 1000000)) / T(1000000);
    else
        return {anyValue<decltype(T{}.re)>(), anyValue<decltype(T{}.re)>()};
}
template <class T>
std::vector<T> anyValues(int n)
{
    std::vector<T> values(static_cast<std::size_t>(n));
    for (T& value : values)
        value = anyValue<T>();
    return values;
}

inline bool operator==(FloatCplx a, FloatCplx b) { return a.re == b.re && a.im == b.im; }
inline bool operator==(DoubleCplx a, DoubleCplx b) { return a.re == b.re && a.im == b.im; }

template <class T>
void expectSame(const std::vector<T>& got, const std::vector<T>& expected)
{
    EXPECT_TRUE(std::equal(got.begin(), got.end(), expected.begin(), expected.end(),
                           [](const T& a, const T& b) { return a == b; }));
}

struct Rate {
    int up = 1, upPhase = 0, down = 1, downPhase = 0;
    bool isMulti() const { return up > 1 || down > 1; }
};

// A sum and the sum of its terms' magnitudes, which is what rounding errors are measured by.
struct Sum {
    Exact value;
    long double magnitude = 0;

    void add(Exact a, Exact b)
    {
        value += a * b;
        magnitude += std::abs(a) * std::abs(b);
    }
};

// One rounding of the result; before it every term of a sum in double has seen fewer roundings than there are terms.
template <class Y>
void expectNear(Y got, const Sum& expected, std::size_t terms)
{
    using Part = decltype(exact(got).real());
    const long double unit = sizeof(Y) == sizeof(float) || std::is_same_v<Y, FloatCplx>
                                 ? static_cast<Part>(std::numeric_limits<float>::epsilon())
                                 : static_cast<Part>(std::numeric_limits<double>::epsilon());
    const long double tolerance =
        std::abs(expected.value) * unit + expected.magnitude * static_cast<long double>(terms) * 0x1p-51L + 1e-40L;
    ASSERT_LE(std::abs(exact(got) - expected.value), tolerance) << "of " << expected.value;
}

template <class X, class T>
class Model {
public:
    Model(const std::vector<T>& taps, Rate rate) : taps_{taps}, rate_{rate} {}

    void setTaps(const std::vector<T>& taps) { taps_ = taps; }
    void setHistory(const std::vector<X>& oldestFirst) { past_ = oldestFirst; }
    std::vector<X> history(int n) const
    {
        std::vector<X> values(std::size_t(n), X{});
        std::copy_backward(past_.end() - std::min<std::ptrdiff_t>(n, std::ptrdiff_t(past_.size())), past_.end(),
                           values.end());
        return values;
    }

    // Whole cycles, from the time axis of one call.
    std::vector<Sum> filter(const std::vector<X>& src)
    {
        const long long before = static_cast<long long>(past_.size()), up = rate_.up, down = rate_.down;
        past_.insert(past_.end(), src.begin(), src.end());
        std::vector<Sum> outputs;
        for (long long t = rate_.downPhase; t < static_cast<long long>(src.size()) * up; t += down) {
            Sum sum;
            for (long long k = 0; k < static_cast<long long>(taps_.size()); k++) {
                const long long since = t - k - rate_.upPhase + before * up; // sample j enters at j * up on this axis
                if (since >= 0 && since % up == 0)
                    sum.add(exact(taps_[std::size_t(k)]), exact(past_[std::size_t(since / up)]));
            }
            outputs.push_back(sum);
        }
        return outputs;
    }

private:
    std::vector<T> taps_;
    std::vector<X> past_; // oldest first
    Rate rate_;
};

inline Rate anyRate()
{
    Rate rate;
    if (randomInt(0, 2) == 0)
        return rate;
    rate.up = randomInt(0, 2) == 0 ? 1 : randomInt(1, 12);
    rate.down = randomInt(0, 2) == 0 ? 1 : randomInt(1, 12);
    rate.upPhase = randomInt(0, rate.up - 1);
    rate.downPhase = randomInt(0, rate.down - 1);
    return rate;
}

inline int anyTapsLen()
{
    constexpr int most[] = {4, 20, 100, 700, 3000};
    return randomInt(1, most[randomInt(0, 19) == 0 ? 4 : randomInt(0, 12) == 0 ? 3 : randomInt(0, 2)]);
}

// One filter through a random program of calls, against the model. Filter is made from taps and a rate and has the
// functions that are used here.
template <class X, class T, class Filter>
void checkProgram(Filter& filter, std::vector<T> taps, Rate rate)
{
    SCOPED_TRACE(testing::Message() << taps.size() << " taps, up " << rate.up << ',' << rate.upPhase << " down "
                                    << rate.down << ',' << rate.downPhase);
    Model<X, T> model{taps, rate};
    const int historyLen = filter.historyLen();
    for (int step = 0; step < 6; step++) {
        switch (randomInt(0, 6)) {
        case 0: {
            const std::vector<X> history = anyValues<X>(historyLen);
            model.setHistory(history);
            filter.setHistory(&history);
            break;
        }
        case 1:
            model.setHistory({});
            filter.setHistory(nullptr);
            break;
        case 2: expectSame(filter.history(), model.history(historyLen)); break;
        case 3:
            expectSame(filter.taps(), taps);
            taps = anyValues<T>(int(taps.size()));
            filter.setTaps(taps);
            model.setTaps(taps);
            break;
        case 4:
            if (!rate.isMulti()) {
                const std::vector<X> src = anyValues<X>(randomInt(1, 200));
                const std::vector<Sum> expected = model.filter(src);
                for (std::size_t i = 0; i < src.size(); i++)
                    ASSERT_NO_FATAL_FAILURE(filter.expect(filter.one(src[i]), expected[i]));
                break;
            }
            [[fallthrough]];
        default: {
            const int most[] = {3, 40, 300};
            const int numIters = randomInt(1, most[randomInt(0, 2)]);
            Guarded<X> src{anyValues<X>(numIters * rate.down)};
            const std::vector<Sum> expected = model.filter(src.values());
            const auto got = filter.block(src, numIters, numIters * rate.up);
            ASSERT_EQ(got.size(), expected.size());
            for (std::size_t i = 0; i < got.size(); i++)
                ASSERT_NO_FATAL_FAILURE(filter.expect(got[i], expected[i])) << "output " << i << " of " << got.size();
        }
        }
    }
}

// One tap is infinite, all else is one, and so every output is infinite: none has met the tap with nothing, which would
// not be a number. make(taps, rate) makes the filter.
template <class X, class T, class Make>
void checkInfiniteTaps(const Make& make)
{
    const auto expectInfinite = [](const auto& outputs) {
        for (const auto& y : outputs) {
            EXPECT_TRUE(std::isinf(exact(y).real()));
            EXPECT_FALSE(std::isnan(exact(y).imag()));
        }
    };
    const auto element = []<class E>(E, double re) {
        if constexpr (std::is_arithmetic_v<E>)
            return E(re);
        else
            return E{decltype(E{}.re)(re), 1};
    };
    for (int n = 1; n <= 20; n++)
        for (int place = 0; place < n; place++)
            for (const Rate rate : {Rate{}, Rate{1, 0, 2, 1}}) {
                SCOPED_TRACE(testing::Message() << "tap " << place << " of " << n << ", down " << rate.down);
                std::vector<T> taps(std::size_t(n), element(T{}, 1));
                taps[std::size_t(place)] = element(T{}, HUGE_VAL);
                auto filter = make(taps, rate);
                const std::vector<X> history(std::size_t(filter.historyLen()), element(X{}, 1));
                filter.setHistory(&history);
                for (const int numIters : {1, 6, 40}) {
                    Guarded<X> src{std::vector<X>(std::size_t(numIters * rate.down), element(X{}, 1))};
                    expectInfinite(filter.block(src, numIters, numIters * rate.up));
                }
                if (!rate.isMulti())
                    expectInfinite(std::vector{filter.one(element(X{}, 1))});
            }
}

} // namespace fir
