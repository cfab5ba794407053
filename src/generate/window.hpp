// Windows: checks and parameters.
#pragma once

#include "frame/kernels.hpp"
#include "frame/report.hpp"
#include "frame/types.hpp"

#include <arkpx/generate.h>

#include <cmath>

namespace ark {

template <class T>
bool windowGood(Where at, const T* vec, int n)
{
    return firstGood(at, {{!vec, "Null pointer to buffer"}, {n < 3, "Bad number of items"}});
}

template <class T>
void winBartlett(Where at, T* vec, int n)
{
    if (windowGood(at, vec, n))
        kernels<WindowKernels<T>>().bartlett(vec, n);
}

// Up to this length the tables that many cosines at a time need are not paid for.
inline constexpr int plainCosines = 64;

template <class T>
void winCosine(Where at, T* vec, int n, CosineWindow window)
{
    if (!windowGood(at, vec, n))
        return;
    constexpr double twoPi = 6.283185307179586, pi = 3.141592653589793;
    const double m = n - 1;
    // In the products of integers, which are truncated, the rounding of every weight shows: there the recurrence rules.
    if (sizeof(Real<T>) == sizeof(short) || n <= plainCosines)
        kernels<WindowKernels<T>>().cosine(vec, n, window, std::cos(-twoPi / m));
    else
        kernels<WindowKernels<T>>().longCosine(vec, n, window, std::sin(pi / m));
}

inline constexpr CosineWindow hann{0.5, 0.5, 0};
inline constexpr CosineWindow hamming{0.54, 0.46, 0};
inline CosineWindow blackman(double alpha) { return {0.5 + alpha / 2, 0.5, alpha / 2}; }

// The alpha with which the sidelobes fall fastest.
inline double optimalAlpha(int n)
{
    const double half = 0.5 / std::cos(3.141592653589793 / (double(n) - 1));
    return -(half * half);
}

template <class Parameter, class T>
void winKaiser(Where at, T* vec, int n, Parameter beta)
{
    const Parameter half = Parameter(double(n) - 1) * std::fabs(beta) * Parameter(0.5);
    if (firstGood(
            at,
            {{!vec, "Null pointer to buffer"}, {n < 3, "Bad number of items"}, {half > 308, "Huge window parameter"}}))
        kernels<WindowKernels<T>>().kaiser(vec, n, beta);
}

} // namespace ark
