// Signals with their spectra: a plain recursive transform in long double, which shares nothing with the library.
#pragma once

#include "support/random.hpp"

#include <cmath>
#include <complex>
#include <cstddef>
#include <limits>
#include <map>
#include <vector>

namespace reference {

using Complex = std::complex<long double>;

// out[k] = sum over n of in[n * stride] e^(-2 pi i k n / size); roots are those of size * stride.
inline void transform(const Complex* in, Complex* out, std::size_t size, std::size_t stride,
                      const std::vector<Complex>& roots)
{
    if (size == 1) {
        out[0] = in[0];
        return;
    }
    reference::transform(in, out, size / 2, 2 * stride, roots);
    reference::transform(in + stride, out + size / 2, size / 2, 2 * stride, roots);
    for (std::size_t k = 0; k < size / 2; k++) {
        const Complex root = roots[k * stride], x = out[k], y = out[k + size / 2];
        const Complex turned{root.real() * y.real() - root.imag() * y.imag(),
                             root.real() * y.imag() + root.imag() * y.real()};
        out[k] = x + turned;
        out[k + size / 2] = x - turned;
    }
}

struct Pair {
    std::vector<Complex> signal; // parts in -1 ... 1 that are exact as floats
    std::vector<Complex> spectrum;

    std::size_t size() const { return signal.size(); }
    // The spectrum with the exponent of one direction, +1 or -1; that of the real and of the imaginary parts alone.
    Complex at(std::size_t k, int sign) const { return spectrum[sign < 0 || k == 0 ? k : size() - k]; }
    Complex ofReal(std::size_t k, int sign) const { return (at(k, sign) + std::conj(mirrored(k, sign))) / 2.0L; }
    Complex ofImaginary(std::size_t k, int sign) const
    {
        const Complex twice = at(k, sign) - std::conj(mirrored(k, sign));
        return {twice.imag() / 2, -twice.real() / 2};
    }

private:
    Complex mirrored(std::size_t k, int sign) const { return at((size() - k) % size(), sign); }
};

// Made once for each order.
inline const Pair& pairOf(int order)
{
    static std::map<int, Pair> made;
    Pair& pair = made[order];
    if (!pair.signal.empty())
        return pair;
    const std::size_t size = std::size_t{1} << order;
    std::vector<Complex> roots;
    for (std::size_t i = 0; i < size; i++) {
        const auto part = [] { return static_cast<long double>(randomInt(-(1 << 23), 1 << 23)) / (1 << 23); };
        const long double re = part(), im = part();
        pair.signal.push_back({re, im});
    }
    const long double step = 2 * std::acos(-1.0L) / static_cast<long double>(size);
    for (std::size_t i = 0; i < (size + 1) / 2; i++)
        roots.push_back({std::cos(step * static_cast<long double>(i)), -std::sin(step * static_cast<long double>(i))});
    pair.spectrum.resize(size);
    reference::transform(pair.signal.data(), pair.spectrum.data(), size, 1, roots);
    return pair;
}

// The distance of a result from what it should be, relative to that, in root mean squares.
class Error {
public:
    void add(Complex got, Complex wanted)
    {
        const auto square = [](long double x) { return double(x) * double(x); };
        difference_ += square(got.real() - wanted.real()) + square(got.imag() - wanted.imag());
        whole_ += square(wanted.real()) + square(wanted.imag());
    }
    double relative() const { return whole_ > 0 ? std::sqrt(difference_ / whole_) : difference_; }

private:
    double difference_ = 0, whole_ = 0;
};

// The error that a transform may have, relative as above. A step rounds a product, a sum of products and a sum, each
// evenly over at most one epsilon, which is .29 of it in root mean squares; together half an epsilon, and those of all
// steps add up like a random walk. With the wide root, the float transforms' own sqrt(1/2), a quarter of the numbers in
// a pass of radix 8 are too large by the same part: a number meets it in every fourth of the passes; once more for
// short vectors, whose energy may all be there.
template <class R>
double transformError(int steps, bool wideRoot)
{
    const double roundings = 0.6 * std::numeric_limits<R>::epsilon() * std::sqrt(steps > 1 ? steps : 1);
    if (sizeof(R) != sizeof(float) || !wideRoot)
        return roundings;
    const double excess = double(0x1.6A09EEp-1L * std::sqrt(2.0L) - 1), passes = steps / 3.0;
    return std::hypot(roundings, excess * (1 + passes / 4));
}

} // namespace reference
