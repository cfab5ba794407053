// Element types as templates see them.
#pragma once

#include <arkpx/types.h>

#include <utility>

namespace ark {

template <class T>
struct Element {
    using Real = T;
    static constexpr bool isComplex = false;
};

template <>
struct Element<FloatCplx> {
    using Real = float;
    static constexpr bool isComplex = true;
};
template <>
struct Element<DoubleCplx> {
    using Real = double;
    static constexpr bool isComplex = true;
};
template <>
struct Element<ShortCplx> {
    using Real = short;
    static constexpr bool isComplex = true;
};
template <>
struct Element<IntCplx> {
    using Real = int;
    static constexpr bool isComplex = true;
};

// The type of one part of an element: float for float and FloatCplx alike.
template <class T>
using Real = typename Element<T>::Real;

template <class T>
inline constexpr bool isComplex = Element<T>::isComplex;

// Parts of one element: 2 for complex ones, 1 for real ones.
template <class T>
inline constexpr int parts = isComplex<T> ? 2 : 1;

// A complex vector is an array of pairs: its parts, real first, as one array. Kernels use these, so they must not exist
// as functions of their own (see kernels.hpp).
template <class T>
[[gnu::always_inline]] inline const Real<T>* partsOf(const T* elements)
{
    return reinterpret_cast<const Real<T>*>(elements);
}
template <class T>
[[gnu::always_inline]] inline Real<T>* partsOf(T* elements)
{
    return reinterpret_cast<Real<T>*>(elements);
}

// A number as a type, and calls of body with those from 0 to count - 1: what they index stays in registers. body says
// itself that it is inlined.
template <int i>
struct Index {
    static constexpr int value = i;
    [[gnu::always_inline]] constexpr operator int() const { return i; }
};
template <class Body, int... i>
[[gnu::always_inline]] inline void unrolledOver(const Body& body, std::integer_sequence<int, i...>)
{
    (body(Index<i>{}), ...);
}
template <int count, class Body>
[[gnu::always_inline]] inline void unrolled(const Body& body)
{
    unrolledOver(body, std::make_integer_sequence<int, count>{});
}

// What products are formed in that are rounded to R once.
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

} // namespace ark
