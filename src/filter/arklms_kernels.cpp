// The update of adaptive filters. Compiled with -ffp-contract=fast.
#include "filter/lane_sums.hpp"
#include "frame/kernels.hpp"
#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

using D = Vec<double>;
constexpr int width = lanes<double>;

constexpr int low2(int lane, int) { return lane / 2; }
constexpr int high2(int lane, int lanes) { return lanes / 2 + lane / 2; }

// One register of taps, times keep, plus what the data adds.
template <class R>
ARK_INLINE void update(R* taps, D keep, D added)
{
    storeDoubles(taps, loadDoubles(taps) * keep + added);
}
template <class R>
ARK_INLINE D updated(R* taps, D keep, D added)
{
    update(taps, keep, added);
    return loadDoubles(taps);
}

template <class X, class T>
void adapt(T* taps, const X* x, std::ptrdiff_t n, double keep, double gainRe, double gainIm)
{
    Real<T>* t = partsOf(taps);
    const Real<X>* d = partsOf(x);
    const D kept = broadcast(keep);
    std::ptrdiff_t i = 0;
    if constexpr (!isComplex<T>) {
        const D gain = broadcast(gainRe);
        for (; i + width <= n; i += width)
            update(t + i, kept, gain * loadDoubles(d + i));
        for (; i < n; i++)
            t[i] = Real<T>(double(t[i]) * keep + gainRe * double(d[i]));
    } else if constexpr (!isComplex<X>) {
        const D gain = alternating(gainRe, gainIm);
        for (; i + width <= n; i += width) {
            const D data = loadDoubles(d + i);
            update(t + 2 * i, kept, gain * permute<low2>(data));
            update(t + 2 * i + width, kept, gain * permute<high2>(data));
        }
        for (; i < n; i++) {
            t[2 * i] = Real<T>(double(t[2 * i]) * keep + gainRe * double(d[i]));
            t[2 * i + 1] = Real<T>(double(t[2 * i + 1]) * keep + gainIm * double(d[i]));
        }
    } else {
        // gain conj(x) = gainRe (re, -im) + gainIm (im, re)
        const D real = alternating(gainRe, -gainRe), imaginary = broadcast(gainIm);
        for (; i + width / 2 <= n; i += width / 2) {
            const D data = loadDoubles(d + 2 * i);
            update(t + 2 * i, kept, real * data + imaginary * permute<otherPart>(data));
        }
        for (; i < n; i++) {
            const double re = double(d[2 * i]), im = double(d[2 * i + 1]);
            t[2 * i] = Real<T>(double(t[2 * i]) * keep + (gainRe * re + gainIm * im));
            t[2 * i + 1] = Real<T>(double(t[2 * i + 1]) * keep + (gainIm * re - gainRe * im));
        }
    }
}

template <class R>
double adaptAndDot(R* taps, const R* x, const R* fresh, std::ptrdiff_t n, double keep, double gain)
{
    constexpr std::ptrdiff_t chains = 4; // a sum alone would wait for itself
    const D kept = broadcast(keep), gains = broadcast(gain);
    D sums[chains] = {};
    std::ptrdiff_t i = 0;
    for (; i + chains * width <= n; i += chains * width)
        for (std::ptrdiff_t c = 0; c < chains; c++)
            sums[c] += updated(taps + i + c * width, kept, gains * loadDoubles(x + i + c * width)) *
                       loadDoubles(fresh + i + c * width);
    for (; i + width <= n; i += width)
        sums[0] += updated(taps + i, kept, gains * loadDoubles(x + i)) * loadDoubles(fresh + i);
    double sum = sumOf((sums[0] + sums[1]) + (sums[2] + sums[3]));
    for (; i < n; i++) {
        taps[i] = R(double(taps[i]) * keep + gain * double(x[i]));
        sum += double(taps[i]) * double(fresh[i]);
    }
    return sum;
}

template <class X, class T>
constexpr LmsKernels<X, T> lmsTable{adapt<X, T>, nullptr};
template <class R>
constexpr LmsKernels<R, R> realTable{adapt<R, R>, adaptAndDot<R>};

} // namespace

extern const LmsKernels<float, float> lmsS;
extern const LmsKernels<double, double> lmsD;
extern const LmsKernels<FloatCplx, FloatCplx> lmsC;
extern const LmsKernels<DoubleCplx, DoubleCplx> lmsZ;
extern const LmsKernels<float, FloatCplx> lmsSC;
extern const LmsKernels<double, DoubleCplx> lmsDZ;

constinit const LmsKernels<float, float> lmsS = realTable<float>;
constinit const LmsKernels<double, double> lmsD = realTable<double>;
constinit const LmsKernels<FloatCplx, FloatCplx> lmsC = lmsTable<FloatCplx, FloatCplx>;
constinit const LmsKernels<DoubleCplx, DoubleCplx> lmsZ = lmsTable<DoubleCplx, DoubleCplx>;
constinit const LmsKernels<float, FloatCplx> lmsSC = lmsTable<float, FloatCplx>;
constinit const LmsKernels<double, DoubleCplx> lmsDZ = lmsTable<double, DoubleCplx>;

} // namespace ark::ARK_SET
