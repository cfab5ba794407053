// The LMS rule by its definition: the whole past is kept, everything is computed in long double.
#pragma once

#include "filter/fir_model.hpp"

namespace lms {

using fir::Exact;
using fir::exact;

template <class T>
T narrowed(Exact z)
{
    if constexpr (std::is_floating_point_v<T>)
        return T(z.real());
    else
        return {decltype(T{}.re)(z.real()), decltype(T{}.re)(z.imag())};
}

struct Parameters {
    int tapsLen, errDelay, down, downPhase;
    float step, leak;
};

inline Parameters anyParameters()
{
    Parameters p{randomInt(1, 70), randomInt(0, 9), randomInt(0, 1) ? 1 : randomInt(1, 6), 0, 0, 0};
    p.downPhase = randomInt(0, p.down - 1);
    p.step = float(randomInt(-1, 9)) * 0.0005f;
    p.leak = randomInt(0, 1) ? 0.0f : 0.01f;
    return p;
}

// historyLen: samples that the filter remembers; what is older counts as zero.
template <class X, class T>
class Model {
public:
    Model(const std::vector<T>& taps, const Parameters& p, int historyLen) : taps_{taps}, p_{p}, historyLen_{historyLen}
    {}

    // What is older than the given samples stays.
    void setHistory(const std::vector<X>& oldestFirst)
    {
        past_.resize(past_.size() - std::min(past_.size(), oldestFirst.size()));
        past_.insert(past_.end(), oldestFirst.begin(), oldestFirst.end());
    }
    X age(int age) const
    {
        return age < historyLen_ && age < int(past_.size()) ? past_[past_.size() - 1 - std::size_t(age)] : X{};
    }

    Exact step(const std::vector<X>& samples, int base, Exact err, bool updates)
    {
        if (updates)
            for (int i = 0; i < p_.tapsLen; i++)
                taps_[std::size_t(i)] = narrowed<T>((1.0L - p_.leak) * exact(taps_[std::size_t(i)]) +
                                                    static_cast<long double>(p_.step) * err *
                                                        std::conj(exact(age(base + p_.errDelay + i))));
        past_.insert(past_.end(), samples.begin(), samples.end());
        Exact sum;
        for (int i = 0; i < p_.tapsLen; i++)
            sum += exact(taps_[std::size_t(i)]) * exact(age(base + i));
        return sum;
    }

    std::vector<T>& taps() { return taps_; }

private:
    std::vector<T> taps_;
    std::vector<X> past_; // oldest first
    Parameters p_;
    int historyLen_;
};

// Roundings of the taps that differ by one unit stay in the taps: some tens of units over a program.
template <class Y>
void expectNear(Y got, Exact expected, long double scale)
{
    const bool single = sizeof(Y) == sizeof(float) || std::is_same_v<Y, FloatCplx>;
    ASSERT_LE(std::abs(exact(got) - expected), scale * (single ? 0x1p-18L : 0x1p-46L));
}

} // namespace lms
