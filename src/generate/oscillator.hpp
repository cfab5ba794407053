// A sinusoid computed many samples at a time, from the cosine and sine of its angle per sample alone. Only for kernel
// files: like simd.hpp, everything is in an unnamed namespace inside the set's namespace and always inlined.
//
// y[n+j] = p cos(jw) - q sin(jw), where p = y[n] and q is the component in quadrature. One step gives the samples
// j = 0 ... count-1 and then turns (p, q) by the angle of count samples. Every set takes steps of the same length,
// hence all give the same bits.
#pragma once

#include "frame/simd.hpp"

namespace ark::ARK_SET {
namespace {

// The widest floating type: what is raised to the power of a whole step must be more exact than what is stored.
struct Rotation {
    long double cosine, sine;
};

ARK_INLINE Rotation squared(Rotation r) { return {(r.cosine - r.sine) * (r.cosine + r.sine), 2 * r.cosine * r.sine}; }

// parts: 1 for a real sinusoid, 2 for pairs of a real and an imaginary one, which lanes hold in turns.
template <int parts>
class Oscillator {
public:
    static constexpr std::ptrdiff_t lanesPerStep = 64;
    static constexpr std::ptrdiff_t count = lanesPerStep / parts;

    // perSample: w. p and q: of each part, at the first sample.
    ARK_INLINE Oscillator(Rotation perSample, const double* p, const double* q)
    {
        for (int i = 0; i < parts; i++) {
            cosine_[i] = 1;
            sine_[i] = 0;
        }
        Rotation r = perSample;
        const auto doubleTable = [&](auto filled) {
            turn<filled>(double(r.cosine), double(r.sine));
            r = squared(r);
        };
        if constexpr (parts == 1)
            doubleTable(std::integral_constant<int, 1>{});
        doubleTable(std::integral_constant<int, 2>{});
        doubleTable(std::integral_constant<int, 4>{});
        doubleTable(std::integral_constant<int, 8>{});
        doubleTable(std::integral_constant<int, 16>{});
        doubleTable(std::integral_constant<int, 32>{});
        stepCosine_ = double(r.cosine);
        stepSine_ = double(r.sine);
        p_ = alternating(p[0], p[parts - 1]);
        q_ = alternating(q[0], q[parts - 1]);
    }

    // Calls use(lane, register) for the registers of the next count samples.
    template <class Use>
    ARK_INLINE void peek(Use use) const
    {
        constexpr int width = lanes<double>;
        for (std::ptrdiff_t lane = 0; lane < lanesPerStep; lane += width)
            use(lane, p_ * load(cosine_ + lane) - q_ * load(sine_ + lane));
    }

    ARK_INLINE void advance()
    {
        const Vec<double> p = p_ * stepCosine_ - q_ * stepSine_;
        q_ = p_ * stepSine_ + q_ * stepCosine_;
        p_ = p;
    }

    // Sample j of the next ones, -count < j < count.
    ARK_INLINE double at(std::ptrdiff_t j, int part) const
    {
        const std::ptrdiff_t lane = parts * (j < 0 ? -j : j);
        const double quadrature = q_[part] * sine_[lane];
        return p_[part] * cosine_[lane] + (j < 0 ? quadrature : -quadrature);
    }

private:
    // Fills the lanes from filled on with the first ones turned by an angle.
    template <int filled>
    ARK_INLINE void turn(double c, double s)
    {
        if constexpr (filled < lanes<double>) {
            for (int i = 0; i < filled; i++) {
                const double x = cosine_[i], y = sine_[i];
                cosine_[filled + i] = x * c - y * s;
                sine_[filled + i] = x * s + y * c;
            }
        } else {
            for (int i = 0; i < filled; i += lanes<double>) {
                const Vec<double> x = load(cosine_ + i), y = load(sine_ + i);
                store(cosine_ + filled + i, x * c - y * s);
                store(sine_ + filled + i, x * s + y * c);
            }
        }
    }

    alignas(64) double cosine_[lanesPerStep], sine_[lanesPerStep];
    double stepCosine_, stepSine_;
    Vec<double> p_, q_;
};

} // namespace
} // namespace ark::ARK_SET
