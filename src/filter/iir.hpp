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

    Value filterOne(Data sample) const { return isBiquad_ ? cascadeOne(sample) : directOne(sample); }

    // Filters n samples and hands the results, still in double, to deliver(results, first, count): an array for each
    // part. src may be overwritten with what has been delivered.
    template <class Deliver>
    void filter(const Data* src, std::ptrdiff_t n, Deliver deliver) const
    {
        alignas(64) double results[valueParts][capacity];
        double* const signal[2]{results[0], results[valueParts - 1]};
        for (std::ptrdiff_t first = 0; first < n; first += capacity) {
            const std::ptrdiff_t count = std::min(capacity, n - first);
            if (count < IirKernels::leastBlock || (!isBiquad_ && (order_ < 1 || order_ > DirectRun::capacity)))
                for (std::ptrdiff_t i = 0; i < count; i++)
                    putNumber(signal, i, filterOne(src[first + i]));
            else {
                isBiquad_ ? cascade(src + first, signal, count) : direct(src + first, signal, count);
            }
            deliver(signal, first, count);
        }
    }

private:
    static constexpr std::ptrdiff_t capacity = 512;

    Coef coef(std::ptrdiff_t i) const { return widened<coefParts>(taps_[i]); }
    Value delay(std::ptrdiff_t i) const { return widened<valueParts>(delay_[i]); }
    void setDelay(std::ptrdiff_t i, Value x) const { delay_[i] = narrowed<Element>(x); }

    Section<double, coefParts> section(std::ptrdiff_t i) const
    {
        const std::ptrdiff_t first = 1 + 4 * i; // a1, a2, b1, b2
        return {-coef(first), -coef(first + 1), coef(first + 2), coef(first + 3)};
    }

    Value directOne(Data sample) const
    {
        const Value x = widened<valueParts>(sample);
        const std::ptrdiff_t n = order_;
        if (n == 0)
            return coef(0) * x;
        const Value y = plusProduct(delay(0), coef(0), x);
        for (std::ptrdiff_t i = 1; i < n; i++)
            setDelay(i - 1, directStep(delay(i), coef(i), x, -coef(n + i), y));
        setDelay(n - 1, directLast(coef(n), x, -coef(n + n), y));
        return y;
    }

    Value cascadeOne(Data sample) const
    {
        Value v = coef(0) * widened<parts<Data>>(sample);
        for (std::ptrdiff_t i = 0; i < order_ / 2; i++) {
            const Value d0 = delay(2 * i), d1 = delay(2 * i + 1);
            Value w;
            v = sectionStep(section(i), v, d0, d1, w);
            setDelay(2 * i + 1, d0);
            setDelay(2 * i, w);
        }
        return v;
    }

    static const IirKernels::Structures& kernel()
    {
        constexpr bool isDouble = sizeof(Real<Element>) == sizeof(double);
        return kernels<IirKernels>().structures[isDouble][coefParts - 1][valueParts - 1];
    }

    void cascade(const Data* src, double* const* signal, std::ptrdiff_t n) const
    {
        const Coef gain = coef(0);
        iirData<Data>().load[coefParts - 1](src, &gain.re, signal, n);
        const std::ptrdiff_t sections = order_ / 2;
        for (std::ptrdiff_t first = 0; first < sections; first += BiquadRun::capacity) {
            const std::ptrdiff_t count = std::min<std::ptrdiff_t>(BiquadRun::capacity, sections - first);
            BiquadRun run{};
            for (std::ptrdiff_t i = 0; i < count; i++) {
                const Section<double, coefParts> c = section(first + i);
                putNumber(run.minusA1, i, c.minusA1);
                putNumber(run.minusA2, i, c.minusA2);
                putNumber(run.b1, i, c.b1);
                putNumber(run.b2, i, c.b2);
                putNumber(run.d0, i, delay(2 * (first + i)));
                putNumber(run.d1, i, delay(2 * (first + i) + 1));
            }
            kernel().biquads(run, int(count), signal, n);
            for (std::ptrdiff_t i = 0; i < count; i++) {
                setDelay(2 * (first + i), numberAt<valueParts>(run.d0, i));
                setDelay(2 * (first + i) + 1, numberAt<valueParts>(run.d1, i));
            }
        }
    }

    void direct(const Data* src, double* const* signal, std::ptrdiff_t n) const
    {
        const double one = 1; // a complex one would make NaN of infinities
        iirData<Data>().load[0](src, &one, signal, n);
        if constexpr (parts<Data> < valueParts)
            std::fill_n(signal[1], n, 0.0);
        DirectRun run;
        for (std::ptrdiff_t i = 0; i <= order_; i++) {
            putNumber(run.b, i, coef(i));
            putNumber(run.minusA, i, i > 0 ? -coef(order_ + i) : Coef{});
        }
        for (std::ptrdiff_t i = 0; i < order_; i++)
            putNumber(run.d, i, delay(i));
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
