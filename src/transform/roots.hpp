// Roots of unity for tables that the library keeps for itself: accurate and quick.
#pragma once

#include "frame/types.hpp"

#include <cmath>
#include <cstddef>

namespace ark {

template <class Wide>
struct Root {
    Wide cosine, sine;
};

template <class Wide>
Root<Wide> rootOf(std::size_t k, int order) // of the angle pi k / 2^order
{
    constexpr Wide pi = Wide(3.14159265358979323846264338327950288L);
    const Wide angle = pi * Wide(k) / Wide(std::size_t{1} << order);
    return {std::cos(angle), std::sin(angle)};
}

// table[0 ... M-1] = (cos(pi k / M), sin(pi k / M)) for k = 1 ... M/2, M = 2^order, order >= 1. The angles up to pi / 4
// come from the few of a block and one for each block, by a product in a wider type: a fraction of an ulp away from the
// cosine itself, where powers of one root would drift. The others are their mirror images, so that small cosines are as
// accurate as small sines.
template <class R>
void fillRecombinationTable(int order, R* table)
{
    using Wide = typename Wider<R>::Type;
    constexpr std::size_t longestBlock = 64;
    const std::size_t count = std::size_t{1} << (order - 1);
    std::size_t block = 1;
    while (block < longestBlock && block * block < count / 2)
        block *= 2;
    Root<Wide> fine[longestBlock];
    for (std::size_t i = 0; i < block; i++)
        fine[i] = rootOf<Wide>(i, order);
    const auto set = [=](std::size_t k, R cosine, R sine) {
        if (k > 0) {
            table[2 * k - 2] = cosine;
            table[2 * k - 1] = sine;
        }
    };
    for (std::size_t begin = 0; begin <= count / 2; begin += block) {
        const Root<Wide> coarse = rootOf<Wide>(begin, order);
        for (std::size_t i = 0; i < block && begin + i <= count / 2; i++) {
            const R cosine = R(coarse.cosine * fine[i].cosine - coarse.sine * fine[i].sine);
            const R sine = R(coarse.sine * fine[i].cosine + coarse.cosine * fine[i].sine);
            set(begin + i, cosine, sine);
            set(count - begin - i, sine, cosine);
        }
    }
}

} // namespace ark
