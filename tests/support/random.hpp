// Random numbers that are the same in every run and on every platform.
#pragma once

#include <cstdint>
#include <random>

inline std::mt19937_64& randomEngine()
{
    static std::mt19937_64 engine{20261121};
    return engine;
}

// Both bounds included. The modulus is taken by hand: the standard distributions differ between libraries.
inline int randomInt(int low, int high)
{
    const std::uint64_t count = std::uint64_t(std::int64_t{high} - low) + 1;
    return int(std::int64_t{low} + std::int64_t(randomEngine()() % count));
}
