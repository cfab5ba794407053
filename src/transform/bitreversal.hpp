// Bit reversal of indices, tables and vectors.
#pragma once

#include "frame/report.hpp"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace ark {

// The low bits of x in reverse order, bits being 0 to 32.
constexpr std::uint32_t reversedBits(std::uint32_t x, int bits)
{
    x = (x >> 1 & 0x55555555) | (x & 0x55555555) << 1;
    x = (x >> 2 & 0x33333333) | (x & 0x33333333) << 2;
    x = (x >> 4 & 0x0F0F0F0F) | (x & 0x0F0F0F0F) << 4;
    x = (x >> 8 & 0x00FF00FF) | (x & 0x00FF00FF) << 8;
    return std::uint32_t(std::uint64_t{x >> 16 | x << 16} >> (32 - bits));
}

inline void fillBitReversal(int* table, int order)
{
    // The entries of i + 2^bit are those of i with one bit more: the reversed one.
    table[0] = 0;
    for (int bit = 0; bit < order; bit++) {
        const std::size_t half = std::size_t{1} << bit;
        const int reversedBit = int(std::uint32_t{1} << (order - 1 - bit));
        for (std::size_t i = 0; i < half; i++)
            table[half + i] = table[i] + reversedBit;
    }
}

// A long vector is permuted in square tiles of a cache line's length. An index is (row, middle, column) with tileBits
// bits for row and column; the element belongs to tile middle, and its place after the reversal to the tile of the
// reversed middle, there in row reverse(column) and column reverse(row). So every line of memory is read and written
// once, as a whole, whatever the associativity of the cache makes of rows that are a power of two apart.
template <class T>
class Tile {
public:
    static constexpr int bits = sizeof(T) == 2 ? 5 : sizeof(T) == 4 ? 4 : sizeof(T) == 8 ? 3 : 2;

    Tile(const T* vec, int order, std::size_t middle)
    {
        for (std::size_t row = 0; row < side; row++)
            std::memcpy(elements_[row], vec + (row << (order - bits)) + (middle << bits), sizeof elements_[row]);
    }
    void storeReversed(T* vec, int order, std::size_t middle) const
    {
        for (std::size_t column = 0; column < side; column++) {
            T line[side];
            for (std::size_t row = 0; row < side; row++)
                line[reversed(row)] = elements_[row][column];
            std::memcpy(vec + (reversed(column) << (order - bits)) + (middle << bits), line, sizeof line);
        }
    }

private:
    static constexpr std::size_t side = std::size_t{1} << bits;
    static constexpr std::size_t reversed(std::size_t i) { return reversedBits(std::uint32_t(i), bits); }

    T elements_[side][side];
};

// Where each of the middles goes, in pairs: body(middle, reversed).
template <class T, class Body>
void forEachTile(int order, Body body)
{
    const int middleBits = order - 2 * Tile<T>::bits;
    for (std::size_t middle = 0; middle < std::size_t{1} << middleBits; middle++)
        body(middle, std::size_t{reversedBits(std::uint32_t(middle), middleBits)});
}

template <class T>
void reverseInPlace(T* vec, int order)
{
    if (order >= 2 * Tile<T>::bits)
        return forEachTile<T>(order, [=](std::size_t middle, std::size_t reversed) {
            if (middle > reversed)
                return;
            const Tile<T> one(vec, order, middle), other(vec, order, reversed);
            one.storeReversed(vec, order, reversed);
            other.storeReversed(vec, order, middle);
        });
    for (std::size_t i = 0; i < std::size_t{1} << order; i++)
        if (const std::size_t j = reversedBits(std::uint32_t(i), order); i < j)
            std::swap(vec[i], vec[j]);
}

template <class T>
void reverseInto(const T* src, T* dst, int order)
{
    if (order >= 2 * Tile<T>::bits)
        return forEachTile<T>(order, [=](std::size_t middle, std::size_t reversed) {
            Tile<T>(src, order, middle).storeReversed(dst, order, reversed);
        });
    for (std::size_t i = 0; i < std::size_t{1} << order; i++)
        dst[reversedBits(std::uint32_t(i), order)] = src[i];
}

template <class T>
void bitRev1(Where at, T* vec, int order)
{
    if (allGood(at, {{order < 0, "order<0"}, {order >= orders, "order>31"}, {!vec, "vec==0"}}))
        reverseInPlace(vec, order);
}

template <class T>
void bitRev2(Where at, const T* src, T* dst, int order)
{
    if (allGood(at, {{order < 0, "order<0"}, {order >= orders, "order>31"}, {!src, "src==0"}, {!dst, "dst==0"}}))
        reverseInto(src, dst, order);
}

} // namespace ark
