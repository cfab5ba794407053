// Eigen: EIGEN(statement) is its contender, or nothing where Eigen is absent.
#pragma once

#include "driver.hpp"

#if ARKPX_BENCH_EIGEN
#include <arkpx/types.h>

#include <Eigen/Core>
#include <complex>

#define EIGEN(...) bench::Contender{"Eigen", [=] { __VA_ARGS__; }},

namespace bench {

// The element of Eigen's own that has an element's layout.
template <class T>
struct EigenElement {
    using Type = T;
};
template <>
struct EigenElement<FloatCplx> {
    using Type = std::complex<float>;
};
template <>
struct EigenElement<DoubleCplx> {
    using Type = std::complex<double>;
};

// An array as Eigen sees it.
template <class T>
auto eigen(const Array<T>& array, int n)
{
    using Element = typename EigenElement<T>::Type;
    return Eigen::Map<Eigen::Array<Element, Eigen::Dynamic, 1>>(reinterpret_cast<Element*>(array.data()), n);
}

} // namespace bench
#else
#define EIGEN(...)
#endif
