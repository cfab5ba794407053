// Element types as templates see them.
#pragma once

#include <arkpx/types.h>

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
