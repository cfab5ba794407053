// Biquad cascades and direct forms. Nothing is fused here: single samples, which are compiled once, are not either.
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

// ---- two, four or eight doubles, at the most a register ----

template <int count>
struct DoublesOf {
    typedef double Type __attribute__((vector_size(8 * count)));
};
template <int count>
using Doubles = typename DoublesOf<count>::Type;

// Every lane moves one down; the last becomes the first of next.
template <int count, std::size_t... i>
ARK_INLINE Doubles<count> shiftedIn(Doubles<count> v, Doubles<count> next, std::index_sequence<i...>)
{
#if ARK_AVX512
    if constexpr (count == 4)
        return (Doubles<4>)_mm256_alignr_epi64((__m256i)next, (__m256i)v, 1);
    else if constexpr (count == 8)
        return (Doubles<8>)_mm512_alignr_epi64((__m512i)next, (__m512i)v, 1);
    else
#endif
        return __builtin_shufflevector(v, next, int(i + 1)...);
}

// To the state's type and back.
template <class State, int count>
ARK_INLINE Doubles<count> rounded(Doubles<count> v)
{
    if constexpr (sizeof(State) == sizeof(double))
        return v;
    else if constexpr (count == 2)
        return (Doubles<2>)_mm_cvtps_pd(_mm_cvtpd_ps((__m128d)v));
#if ARK_AVX2 || ARK_AVX512
    else if constexpr (count == 4)
        return (Doubles<4>)_mm256_cvtps_pd(_mm256_cvtpd_ps((__m256d)v));
#endif
#if ARK_AVX512
    else
        return (Doubles<8>)_mm512_cvtps_pd(_mm512_cvtpd_ps((__m512d)v));
#endif
}
template <class State, int count>
ARK_INLINE Number<Doubles<count>, 1> rounded(Number<Doubles<count>, 1> x)
{
    return {rounded<State, count>(x.re)};
}
template <class State, int count>
ARK_INLINE Number<Doubles<count>, 2> rounded(Number<Doubles<count>, 2> x)
{
    return {rounded<State, count>(x.re), rounded<State, count>(x.im)};
}

// ---- biquads: a pipeline of sections ----

// The recurrence w = v - a1 d0 - a2 d1 of a section cannot take its next sample before a multiplication, an addition
// and the rounding of w are done. So the sections run side by side, one a lane of one or more registers, and each works
// on the sample that lies `skew` samples behind that of the section before: this gives a section's output the time to
// become the next one's input. The first section is in the last lane of the first register; lanes behind the last
// section compute what nobody reads.
template <class State, int width, int registers, int coefParts, int parts>
struct Pipeline {
    static constexpr int count = width * registers; // at the most as many sections
    static constexpr std::ptrdiff_t skew = 2;
    static_assert(skew * (count - 1) < IirKernels::leastBlock);

    using V = Doubles<width>;
    using Value = Number<V, parts>;

    Section<V, coefParts> sections[registers];
    Value d0[registers], d1[registers];
    Value before[registers], outputs[registers]; // of the last two steps

    static ARK_INLINE V loadPart(const double* from)
    {
        double reversed[width];
        for (int i = 0; i < width; i++)
            reversed[i] = from[width - 1 - i];
        V v;
        __builtin_memcpy(&v, reversed, sizeof v);
        return v;
    }
    // Coefficients of sections from the first on.
    static ARK_INLINE Number<V, coefParts> load(const BiquadRun::Lanes& from, int first)
    {
        if constexpr (coefParts == 2)
            return {loadPart(from[0] + first), loadPart(from[1] + first)};
        else
            return {loadPart(from[0] + first)};
    }

    // Of copies: what is indexed by a variable lives in memory.
    static ARK_INLINE double laneOf(V v, int lane) { return v[lane]; }
    static ARK_INLINE V withLane(V v, int lane, double x)
    {
        v[lane] = x;
        return v;
    }
    using Values = Value[registers];
    static ARK_INLINE void begin(Values& values, int section, const BiquadRun::Lanes& from, int at)
    {
        unrolled<registers>([&](auto r) ARK_INLINED {
            const int lane = r * width + width - 1 - section;
            if (lane >= 0 && lane < width) {
                values[r].re = withLane(values[r].re, lane, from[0][at]);
                if constexpr (parts == 2)
                    values[r].im = withLane(values[r].im, lane, from[1][at]);
            }
        });
    }
    static ARK_INLINE void end(const Values& values, int section, BiquadRun::Lanes& to, int at)
    {
        unrolled<registers>([&](auto r) ARK_INLINED {
            const int lane = r * width + width - 1 - section;
            if (lane >= 0 && lane < width) {
                to[0][at] = laneOf(values[r].re, lane);
                if constexpr (parts == 2)
                    to[1][at] = laneOf(values[r].im, lane);
            }
        });
    }

    // The signal's first numbers enter the first register, what leaves one enters the next.
    ARK_INLINE void step(double* const* signal, std::ptrdiff_t input)
    {
        Value entering;
        entering.re = V{signal[0][input]};
        if constexpr (parts == 2)
            entering.im = V{signal[1][input]};
        unrolled<registers>([&](auto r) ARK_INLINED {
            constexpr std::make_index_sequence<width> all;
            Value v, w;
            v.re = shiftedIn<width>(before[r].re, entering.re, all);
            if constexpr (parts == 2)
                v.im = shiftedIn<width>(before[r].im, entering.im, all);
            entering = before[r];
            before[r] = outputs[r];
            outputs[r] = sectionStep(sections[r], v, d0[r], d1[r], w);
            d1[r] = d0[r];
            d0[r] = rounded<State, width>(w);
        });
    }

    // The last section's output. Of several registers more than half of the lanes are used: so it is in one of the
    // last, of which a copy is indexed.
    ARK_INLINE void put(int last, double* const* signal, std::ptrdiff_t output) const
    {
        constexpr int nearest = registers > 2 ? registers / 2 : registers - 1;
        Value copies[registers - nearest];
        unrolled<registers - nearest>([&](auto r) ARK_INLINED { copies[r] = outputs[nearest + r]; });
        const Value& v = copies[nearest < registers - 1 ? last / width - nearest : 0];
        const int lane = width - 1 - last % width;
        signal[0][output] = v.re[lane];
        if constexpr (parts == 2)
            signal[1][output] = v.im[lane];
    }

    // Of used sections, at the most count, of several registers more than count / 2; n > skew (used - 1).
    ARK_INLINE void run(BiquadRun& r, int first, int used, double* const* signal, std::ptrdiff_t n)
    {
        unrolled<registers>([&](auto k) ARK_INLINED {
            const int at = first + k * width;
            sections[k] = {load(r.minusA1, at), load(r.minusA2, at), load(r.b1, at), load(r.b2, at)};
            d0[k] = d1[k] = before[k] = outputs[k] = Value{};
        });
        const std::ptrdiff_t delay = skew * (used - 1);
        // Before the first output, signal[0] has been read already and is written in vain.
        const auto next = [&](std::ptrdiff_t at) ARK_INLINED {
            step(signal, at < n ? at : n - 1);
            put(used - 1, signal, at > delay ? at - delay : 0);
        };
        std::ptrdiff_t i = 0;
        for (int event = 0; event < 2 * used; event++) {
            const bool begins = event < used;
            const int section = begins ? event : event - used;
            const std::ptrdiff_t until = (begins ? 0 : n) + skew * section;
            for (; i + 1 < until; i += 2) { // so `before` and `outputs` just change their names
                next(i);
                next(i + 1);
            }
            if (i < until)
                next(i++);
            if (begins) {
                begin(d0, section, r.d0, first + section);
                begin(d1, section, r.d1, first + section);
            } else {
                end(d0, section, r.d0, first + section);
                end(d1, section, r.d1, first + section);
            }
        }
    }
};

// How many lanes a register of a pipeline has. Conversions of two numbers take least time, and a float state waits for
// them at every sample: so it has registers of two, but no more of them than there are to keep all at hand.
template <class State, int count, int parts>
constexpr int widthOf()
{
    const int preferred = sizeof(State) == sizeof(double) ? count : count * parts <= 8 ? 2 : 4;
    return preferred < lanes<double> ? preferred : lanes<double>;
}

template <class State, int coefParts, int parts>
void biquads(BiquadRun& r, int sections, double* const* signal, std::ptrdiff_t n)
{
    for (int first = 0; first < sections;) {
        const int rest = sections - first;
        const auto run = [&]<int count>(Index<count>) ARK_INLINED {
            constexpr int width = widthOf<State, count, parts>();
            const int used = rest < count ? rest : count;
            Pipeline<State, width, count / width, coefParts, parts>{}.run(r, first, used, signal, n);
            return used;
        };
        constexpr int most = 8 / widthOf<State, 8, parts>() * parts <= 4 ? 8 : 4; // what fits into the registers
        if (most == 8 && rest > 4)
            first += run(Index<most>{});
        else if (rest > 2)
            first += run(Index<4>{});
        else
            first += run(Index<2>{});
    }
}

// ---- direct form ----

template <class State, int coefParts, int parts>
void direct(DirectRun& run, int order, double* const* signal, std::ptrdiff_t n)
{
    const auto setState = [&](int k, Number<double, parts> x) ARK_INLINED {
        x.re = State(x.re);
        if constexpr (parts == 2)
            x.im = State(x.im);
        putNumber(run.d, k, x);
    };
    const auto b = [&](int k) ARK_INLINED { return numberAt<coefParts>(run.b, k); };
    const auto minusA = [&](int k) ARK_INLINED { return numberAt<coefParts>(run.minusA, k); };
    for (std::ptrdiff_t i = 0; i < n; i++) {
        const auto x = numberAt<parts>(signal, i);
        const auto y = plusProduct(numberAt<parts>(run.d, 0), b(0), x);
        for (int k = 1; k < order; k++)
            setState(k - 1, directStep(numberAt<parts>(run.d, k), b(k), x, minusA(k), y));
        setState(order - 1, directLast(b(order), x, minusA(order), y));
        putNumber(signal, i, y);
    }
}

// ---- elements ----

template <class T, int coefParts>
void widen(const T* src, const double* gain, double* const* signal, std::ptrdiff_t n)
{
    constexpr int dataParts = isComplex<T> ? 2 : 1;
    const Real<T>* const x = partsOf(src);
    double* const to[2]{signal[0], signal[1]};
    const double gains[2][1]{{gain[0]}, {gain[coefParts - 1]}};
    const auto factor = numberAt<coefParts>(gains, 0);
    for (std::ptrdiff_t i = 0; i < n; i++) {
        Number<double, dataParts> value;
        value.re = x[dataParts * i];
        if constexpr (dataParts == 2)
            value.im = x[2 * i + 1];
        putNumber(to, i, factor * value);
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

template <class State, int coefParts, int parts>
constexpr IirKernels::Structures structures{biquads<State, coefParts, parts>, direct<State, coefParts, parts>};

} // namespace

extern const IirKernels iir;

constinit const IirKernels iir{
    dataTable<float>,
    dataTable<double>,
    dataTable<FloatCplx>,
    dataTable<DoubleCplx>,
    {{widen<short, 1>}},
    {{{structures<float, 1, 1>, structures<float, 1, 2>}, {{}, structures<float, 2, 2>}},
     {{structures<double, 1, 1>, structures<double, 1, 2>}, {{}, structures<double, 2, 2>}}}};

} // namespace ark::ARK_SET
