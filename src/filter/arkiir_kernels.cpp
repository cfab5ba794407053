// Biquad cascades and direct forms.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

// ---- one, two, four or eight doubles, at the most a register ----

template <int count>
struct DoublesOf {
    typedef double Type __attribute__((vector_size(8 * count)));
    typedef long long Integers __attribute__((vector_size(8 * count)));
};
template <>
struct DoublesOf<1> {
    using Type = double;
};
template <int count>
using Doubles = typename DoublesOf<count>::Type;

template <int count, std::size_t... i>
ARK_INLINE Doubles<count> repeated(double x, std::index_sequence<i...>)
{
    return Doubles<count>{(static_cast<void>(i), x)...};
}

// Every lane moves one down; the last becomes x.
template <int count, std::size_t... i>
ARK_INLINE Doubles<count> shiftedIn(Doubles<count> v, double x, std::index_sequence<i...> all)
{
    if constexpr (count == 1)
        return x;
#if ARK_AVX512
    else if constexpr (count == 4)
        return (Doubles<4>)_mm256_alignr_epi64((__m256i)repeated<4>(x, all), (__m256i)v, 1);
    else if constexpr (count == 8)
        return (Doubles<8>)_mm512_alignr_epi64((__m512i)repeated<8>(x, all), (__m512i)v, 1);
#endif
    else
        return __builtin_shufflevector(v, repeated<count>(x, all), int(i + 1)...);
}

template <int count>
ARK_INLINE double firstLane(Doubles<count> v)
{
    if constexpr (count == 1)
        return v;
    else
        return v[0];
}

// v with one lane taken from another.
template <int count>
ARK_INLINE Doubles<count> withLane(Doubles<count> v, Doubles<count> other, int lane)
{
    if constexpr (count == 1)
        return other;
    else {
        using Integers = typename DoublesOf<count>::Integers;
        Integers index;
        for (int i = 0; i < count; i++)
            index[i] = i;
        const Integers mask = index == Integers{} + lane;
        return (Doubles<count>)(((Integers)other & mask) | ((Integers)v & ~mask));
    }
}

// ---- biquads: a pipeline of sections ----
//
// The recurrence w = v - a1 d0 - a2 d1 of a section cannot take its next sample before one fused multiplication and
// addition is done. So the sections run side by side, one a lane, and each works on the sample that lies `skew` samples
// behind that of the section before: this gives a section's output the time to become the next one's input. The first
// section is in the last lane, so that the last section's output is where a store costs nothing.
constexpr std::ptrdiff_t skew = 4;

template <int count, int coefParts, int parts>
struct Pipeline {
    using V = Doubles<count>;
    using Coef = Number<V, coefParts>;
    using Value = Number<V, parts>;

    Coef minusA1, minusA2, b1, b2;
    Value d0, d1;
    Value outputs[skew]; // of the last steps

    static ARK_INLINE V loadPart(const double* from)
    {
        double reversed[count];
        for (int i = 0; i < count; i++)
            reversed[i] = from[count - 1 - i];
        V v;
        __builtin_memcpy(&v, reversed, sizeof v);
        return v;
    }
    static ARK_INLINE void storePart(double* to, V v)
    {
        double reversed[count];
        __builtin_memcpy(reversed, &v, sizeof v);
        for (int i = 0; i < count; i++)
            to[i] = reversed[count - 1 - i];
    }

    // Sections first ... first + count - 1.
    template <int p>
    static ARK_INLINE Number<V, p> load(const BiquadRun::Lanes& from, int first)
    {
        if constexpr (p == 2)
            return {loadPart(from[0] + first), loadPart(from[1] + first)};
        else
            return {loadPart(from[0] + first)};
    }
    static ARK_INLINE void store(BiquadRun::Lanes& to, int first, Value v)
    {
        storePart(to[0] + first, v.re);
        if constexpr (parts == 2)
            storePart(to[1] + first, v.im);
    }

    static ARK_INLINE Value withSection(Value v, Value other, int section)
    {
        v.re = withLane<count>(v.re, other.re, count - 1 - section);
        if constexpr (parts == 2)
            v.im = withLane<count>(v.im, other.im, count - 1 - section);
        return v;
    }

    ARK_INLINE void step(int s, double* const* signal, std::ptrdiff_t input)
    {
        constexpr std::make_index_sequence<count> all;
        Value v = outputs[s];
        v.re = shiftedIn<count>(v.re, signal[0][input], all);
        if constexpr (parts == 2)
            v.im = shiftedIn<count>(v.im, signal[1][input], all);
        const Value w = plusProduct(plusProduct(v, minusA2, d1), minusA1, d0);
        outputs[s] = w + plusProduct(b2 * d1, b1, d0);
        d1 = d0;
        d0 = w;
    }

    ARK_INLINE void put(int s, double* const* signal, std::ptrdiff_t output) const
    {
        signal[0][output] = firstLane<count>(outputs[s].re);
        if constexpr (parts == 2)
            signal[1][output] = firstLane<count>(outputs[s].im);
    }

    // Of sections first ... first + count - 1; n >= skew (count - 1).
    ARK_INLINE void run(BiquadRun& r, int first, double* const* signal, std::ptrdiff_t n)
    {
        minusA1 = load<coefParts>(r.minusA1, first);
        minusA2 = load<coefParts>(r.minusA2, first);
        b1 = load<coefParts>(r.b1, first);
        b2 = load<coefParts>(r.b2, first);
        const Value start0 = d0 = load<parts>(r.d0, first), start1 = d1 = load<parts>(r.d1, first);
        for (int s = 0; s < skew; s++)
            outputs[s] = Value{};

        // A section that the signal has not reached yet computes nothing useful; it gets its state when it begins.
        for (int begun = 1; begun < count; begun++) {
            for (int s = 0; s < skew; s++)
                step(s, signal, skew * (begun - 1) + s);
            d0 = withSection(d0, start0, begun);
            d1 = withSection(d1, start1, begun);
        }
        constexpr std::ptrdiff_t delay = skew * (count - 1);
        std::ptrdiff_t i = delay;
        for (; i + skew <= n; i += skew)
            for (int s = 0; s < skew; s++) {
                step(s, signal, i + s);
                put(s, signal, i + s - delay);
            }
        // The same at the end: a section's state is put aside when it has had its last sample.
        const int rest = int(n - i);
        Value end0 = d0, end1 = d1;
        for (int ended = 0;; ended++, i += skew)
            for (int s = 0; s < skew; s++) {
                if (s == rest) {
                    end0 = withSection(end0, d0, ended);
                    end1 = withSection(end1, d1, ended);
                    if (ended == count - 1) {
                        store(r.d0, first, end0);
                        store(r.d1, first, end1);
                        return;
                    }
                }
                step(s, signal, i + s < n ? i + s : n - 1);
                put(s, signal, i + s - delay);
            }
    }
};

template <int count, int coefParts, int parts>
ARK_INLINE int run(BiquadRun& r, int first, double* const* signal, std::ptrdiff_t n)
{
    if constexpr (count <= lanes<double>)
        Pipeline<count, coefParts, parts>{}.run(r, first, signal, n);
    return count;
}

template <int coefParts, int parts>
void biquads(BiquadRun& r, int sections, double* const* signal, std::ptrdiff_t n)
{
    for (int first = 0; first < sections;) {
        // Filling and draining a pipeline takes time: short blocks use short ones.
        const int rest = sections - first;
        if (lanes<double> >= 8 && rest > 4 && n >= 16 * skew)
            first += run<8, coefParts, parts>(r, first, signal, n);
        else if (lanes<double> >= 4 && rest > 2 && n >= 6 * skew)
            first += run<4, coefParts, parts>(r, first, signal, n);
        else if (rest > 1 && n >= 2 * skew)
            first += run<2, coefParts, parts>(r, first, signal, n);
        else
            first += run<1, coefParts, parts>(r, first, signal, n);
    }
}

// ---- direct form ----

template <int coefParts, int parts>
void direct(DirectRun& run, int order, double* const* signal, std::ptrdiff_t n)
{
    for (std::ptrdiff_t i = 0; i < n; i++) {
        const auto x = numberAt<parts>(signal, i);
        const auto y = plusProduct(numberAt<parts>(run.d, 0), numberAt<coefParts>(run.b, 0), x);
        for (int k = 1; k <= order; k++)
            putNumber(run.d, k - 1,
                      plusProduct(plusProduct(numberAt<parts>(run.d, k), numberAt<coefParts>(run.b, k), x),
                                  numberAt<coefParts>(run.minusA, k), y));
        putNumber(signal, i, y);
    }
}

// ---- elements ----

template <class T, int coefParts>
void widen(const T* src, const double* gain, double* const* signal, std::ptrdiff_t n)
{
    constexpr bool isPair = isComplex<T>;
    const Real<T>* x = partsOf(src);
    double *re = signal[0], *im = signal[1];
    const double gainRe = gain[0], gainIm = coefParts == 2 ? gain[1] : 0;
    if constexpr (isPair && coefParts == 2)
        for (std::ptrdiff_t i = 0; i < n; i++) {
            const double a = x[2 * i], b = x[2 * i + 1];
            re[i] = gainRe * a - gainIm * b;
            im[i] = gainRe * b + gainIm * a;
        }
    else if constexpr (isPair)
        for (std::ptrdiff_t i = 0; i < n; i++) {
            re[i] = gainRe * x[2 * i];
            im[i] = gainRe * x[2 * i + 1];
        }
    else
        for (std::ptrdiff_t i = 0; i < n; i++) {
            re[i] = gainRe * x[i];
            if constexpr (coefParts == 2)
                im[i] = gainIm * x[i];
        }
}

template <class T>
void narrow(const double* const* signal, T* dst, std::ptrdiff_t n)
{
    Real<T>* y = partsOf(dst);
    const double *re = signal[0], *im = signal[1];
    for (std::ptrdiff_t i = 0; i < n; i++)
        if constexpr (isComplex<T>) {
            y[2 * i] = Real<T>(re[i]);
            y[2 * i + 1] = Real<T>(im[i]);
        } else
            y[i] = Real<T>(re[i]);
}

template <class T>
constexpr IirDataKernels<T> dataTable{{widen<T, 1>, widen<T, 2>}, narrow<T>};

template <int coefParts, int parts>
constexpr IirKernels::Structures structures{biquads<coefParts, parts>, direct<coefParts, parts>};

} // namespace

extern const IirKernels iir;

constinit const IirKernels iir{dataTable<float>,     dataTable<double>,
                               dataTable<FloatCplx>, dataTable<DoubleCplx>,
                               {{widen<short, 1>}},  {{structures<1, 1>, structures<1, 2>}, {{}, structures<2, 2>}}};

} // namespace ark::ARK_SET
