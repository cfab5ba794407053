// liquid-dsp: LIQUID(object, call) is its contender, or nothing where liquid-dsp is absent. object makes one of its
// filters, which the call names q.
#pragma once

#include "driver.hpp"

#if ARKPX_BENCH_LIQUID
#include <complex>
#include <liquid/liquid.h>

#define LIQUID(object, call) [&] { const auto q = object; return bench::Contender{"liquid", [=] { call; }}; }(),

namespace bench {

// A complex array as liquid-dsp sees it.
template <class T>
std::complex<float>* liquidCplx(const Array<T>& array)
{
    static_assert(sizeof(T) == sizeof(std::complex<float>));
    return reinterpret_cast<std::complex<float>*>(array.data());
}

} // namespace bench
#else
#define LIQUID(object, call)
#endif
