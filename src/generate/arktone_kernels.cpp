// Blocks of tones.
#include "frame/kernels.hpp"
#include "generate/oscillator.hpp"

namespace ark::ARK_SET {
namespace {

template <class T>
void block(double twoCos, double* prev1, double* prev2, T* samps, std::ptrdiff_t n)
{
    constexpr int parts = ark::parts<T>;
    const long double c = 0.5L * twoCos;
    const Rotation perSample{c, __builtin_sqrtl((1 - c) * (1 + c))};
    double p[parts], q[parts];
    for (int i = 0; i < parts; i++) {
        const long double first = twoCos * static_cast<long double>(prev1[i]) - prev2[i];
        p[i] = double(first);
        q[i] = double((prev1[i] - first * perSample.cosine) / perSample.sine);
    }
    Oscillator<parts> oscillator{perSample, p, q};

    constexpr std::ptrdiff_t count = Oscillator<parts>::count;
    Real<T>* to = partsOf(samps);
    for (; n >= count; n -= count) {
        oscillator.peek([&](std::ptrdiff_t lane, Vec<double> v) { storeDoubles(to + lane, v); });
        oscillator.advance();
        to += Oscillator<parts>::lanesPerStep;
    }
    if (n > 0) {
        Real<T> rest[Oscillator<parts>::lanesPerStep];
        oscillator.peek([&](std::ptrdiff_t lane, Vec<double> v) { storeDoubles(rest + lane, v); });
        __builtin_memcpy(to, rest, std::size_t(n) * sizeof(T));
    }
    for (int i = 0; i < parts; i++) {
        prev1[i] = oscillator.at(n - 1, i);
        prev2[i] = oscillator.at(n - 2, i);
    }
}

} // namespace

extern const ToneKernels<float> toneS;
extern const ToneKernels<double> toneD;
extern const ToneKernels<FloatCplx> toneC;
extern const ToneKernels<DoubleCplx> toneZ;

constinit const ToneKernels<float> toneS{block};
constinit const ToneKernels<double> toneD{block};
constinit const ToneKernels<FloatCplx> toneC{block};
constinit const ToneKernels<DoubleCplx> toneZ{block};

} // namespace ark::ARK_SET
