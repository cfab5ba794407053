// IIR filters: the one core of both levels and all types.
#pragma once

#include "frame/kernels.hpp"
#include "frame/types.hpp"

#include <arkpx/filter.h>

#include <algorithm>
#include <cstddef>
#include <type_traits>

namespace ark {

template <class T>
using CplxOf = std::conditional_t<sizeof(T) == sizeof(float), FloatCplx, DoubleCplx>;

template <int count, class T>
Number<double, count> widened(T x)
{
    Number<double, count> result{};
    if constexpr (isComplex<T>)
        result = {double(x.re), double(x.im)};
    else
        result.re = double(x);
    return result;
}

template <class T>
T narrowed(Number<double, parts<T>> x)
{
    if constexpr (isComplex<T>)
        return {Real<T>(x.re), Real<T>(x.im)};
    else
        return T(x.re);
}

inline Number<double, 1> operator-(Number<double, 1> x) { return {-x.re}; }
inline Number<double, 2> operator-(Number<double, 2> x) { return {-x.re, -x.im}; }

template <class T>
const IirDataKernels<T>& iirData()
{
    return kernels<IirKernels>();
}

// A filter that is ready to run: checked records, seen with their types. Taps are of the coefficients' type, Data of
// the input's; the delay line is complex when either is.
template <class Taps, class Data>
class IirFilter {
public:
    static constexpr int coefParts = parts<Taps>, valueParts = isComplex<Taps> || isComplex<Data> ? 2 : 1;
    using Coef = Number<double, coefParts>;
    using Value = Number<double, valueParts>;
    using Element = std::conditional_t<valueParts == 2, CplxOf<Real<Taps>>, Real<Taps>>;

    IirFilter(const IirlTapState& tapState, const IirlDlyState& dlyState)
        : taps_{static_cast<const Taps*>(tapState.taps)},
          delay_{static_cast<Element*>(dlyState.dlyl)},
          order_{tapState.order},
          isBiquad_{tapState.isBiquad == 1}
    {}

    Value filterOne(Data sample) const { return isBiquad_ ? cascadeOne(widen(sample)) : directOne(widen(sample)); }

    // Filters n samples and hands the results, still in double, to deliver(results, first, count): an array for each
    // part. src may be overwritten with what has been delivered.
    template <class Deliver>
    void filter(const Data* src, std::ptrdiff_t n, Deliver deliver) const
    {
        alignas(64) double results[valueParts][capacity];
        double* const signal[2]{results[0], results[valueParts - 1]};
        for (std::ptrdiff_t first = 0; first < n; first += capacity) {
            const std::ptrdiff_t count = std::min(capacity, n - first);
            if (count < worthwhile || (!isBiquad_ && (order_ < 1 || order_ > DirectRun::capacity)))
                for (std::ptrdiff_t i = 0; i < count; i++)
                    putNumber(signal, i, filterOne(src[first + i]));
            else {
                Coef gain{};
                gain.re = 1;
                if (isBiquad_)
                    gain = coef(0);
                iirData<Data>().load[coefParts - 1](src + first, &gain.re, signal, count);
                isBiquad_ ? cascade(signal, count) : direct(signal, count);
            }
            deliver(signal, first, count);
        }
    }

private:
    static constexpr std::ptrdiff_t capacity = 512;
    static constexpr std::ptrdiff_t worthwhile = 8; // fewer samples are done before a kernel has its registers filled

    static Value widen(Data x) { return widened<valueParts>(x); }
    Coef coef(std::ptrdiff_t i) const { return widened<coefParts>(taps_[i]); }
    Value delay(std::ptrdiff_t i) const { return widened<valueParts>(delay_[i]); }
    void setDelay(std::ptrdiff_t i, Value x) const { delay_[i] = narrowed<Element>(x); }

    Value directOne(Value x) const
    {
        const std::ptrdiff_t n = order_;
        if (n == 0)
            return coef(0) * x;
        const Value y = plusProduct(delay(0), coef(0), x), minusY = -y;
        for (std::ptrdiff_t i = 1; i < n; i++)
            setDelay(i - 1, plusProduct(plusProduct(delay(i), coef(i), x), coef(n + i), minusY));
        setDelay(n - 1, plusProduct(coef(n) * x, coef(n + n), minusY));
        return y;
    }

    Value cascadeOne(Value x) const
    {
        Value v = coef(0) * x;
        for (std::ptrdiff_t i = 0; i < order_; i += 2) {
            const std::ptrdiff_t first = 1 + 2 * i; // a1, a2, b1, b2
            const Value d0 = delay(i), d1 = delay(i + 1);
            const Value w = plusProduct(plusProduct(v, coef(first + 1), -d1), coef(first), -d0);
            v = w + plusProduct(coef(first + 3) * d1, coef(first + 2), d0);
            setDelay(i + 1, d0);
            setDelay(i, w);
        }
        return v;
    }

    static const IirKernels::Structures& kernel()
    {
        return kernels<IirKernels>().structures[coefParts - 1][valueParts - 1];
    }

    void cascade(double* const* signal, std::ptrdiff_t n) const
    {
        const std::ptrdiff_t sections = order_ / 2;
        for (std::ptrdiff_t first = 0; first < sections; first += BiquadRun::capacity) {
            const std::ptrdiff_t count = std::min<std::ptrdiff_t>(BiquadRun::capacity, sections - first);
            BiquadRun run{};
            for (std::ptrdiff_t i = 0; i < count; i++) {
                const std::ptrdiff_t taps = 1 + 4 * (first + i), delays = 2 * (first + i);
                putNumber(run.minusA1, i, -coef(taps));
                putNumber(run.minusA2, i, -coef(taps + 1));
                putNumber(run.b1, i, coef(taps + 2));
                putNumber(run.b2, i, coef(taps + 3));
                putNumber(run.d0, i, delay(delays));
                putNumber(run.d1, i, delay(delays + 1));
            }
            kernel().biquads(run, int(count), signal, n);
            for (std::ptrdiff_t i = 0; i < count; i++) {
                setDelay(2 * (first + i), numberAt<valueParts>(run.d0, i));
                setDelay(2 * (first + i) + 1, numberAt<valueParts>(run.d1, i));
            }
        }
    }

    void direct(double* const* signal, std::ptrdiff_t n) const
    {
        DirectRun run;
        for (std::ptrdiff_t i = 0; i <= order_; i++) {
            putNumber(run.b, i, coef(i));
            putNumber(run.minusA, i, i > 0 ? -coef(order_ + i) : Coef{});
            putNumber(run.d, i, i < order_ ? delay(i) : Value{});
        }
        kernel().direct(run, order_, signal, n);
        for (std::ptrdiff_t i = 0; i < order_; i++)
            setDelay(i, numberAt<valueParts>(run.d, i));
    }

    const Taps* taps_;
    Element* delay_;
    int order_;
    bool isBiquad_;
};

} // namespace ark
