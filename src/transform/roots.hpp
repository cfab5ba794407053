// Roots of unity for tables that the library keeps for itself: accurate and quick.
#pragma once

#include <cmath>
#include <cstddef>

namespace ark {

// What is rounded to R once.
template <class R>
struct Wider;
template <>
struct Wider<float> {
    using Type = double;
};
template <>
struct Wider<double> {
    using Type = long double;
};

template <class Wide>
struct Root {
    Wide cosine, sine;
};

// Of the angle pi k / 2^order, k <= 2^order / 2, from that of at most pi / 4.
template <class Wide>
Root<Wide> rootOf(std::size_t k, int order)
{
    constexpr Wide pi = Wide(3.14159265358979323846264338327950288L);
    const std::size_t half = std::size_t{1} << (order - 1);
    const bool nearAxis = k <= half / 2;
    const Wide angle = pi * Wide(nearAxis ? k : half - k) / Wide(2 * half);
    const Wide cosine = std::cos(angle), sine = std::sin(angle);
    return nearAxis ? Root<Wide>{cosine, sine} : Root<Wide>{sine, cosine};
}

// table[0 ... M-1] = (cos(pi k / M), sin(pi k / M)) for k = 1 ... M/2, M = 2^order, order >= 1. The angles come from the few
// of a block and one for each block, by a product in a wider type: a fraction of an ulp away from the cosine itself, where
// powers of one root would drift.
template <class R>
void fillRecombinationTable(int order, R* table)
{
    using Wide = typename Wider<R>::Type;
    constexpr std::size_t longestBlock = 64;
    const std::size_t count = std::size_t{1} << (order - 1);
    std::size_t block = 1;
    while (block < longestBlock && block * block < count)
        block *= 2;
    Root<Wide> fine[longestBlock];
    for (std::size_t i = 0; i < block; i++)
        fine[i] = rootOf<Wide>(i, order);
    for (std::size_t begin = 0; begin < count; begin += block) {
        const Root<Wide> coarse = rootOf<Wide>(begin, order);
        for (std::size_t i = begin == 0; i < block; i++) {
            table[2 * (begin + i) - 2] = R(coarse.cosine * fine[i].cosine - coarse.sine * fine[i].sine);
            table[2 * (begin + i) - 1] = R(coarse.sine * fine[i].cosine + coarse.cosine * fine[i].sine);
        }
    }
    table[2 * count - 2] = 0;
    table[2 * count - 1] = 1;
}

} // namespace ark
