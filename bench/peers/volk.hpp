// VOLK: VOLK(call) is its contender, or nothing where VOLK is absent.
#pragma once

#include "driver.hpp"

#if ARKPX_BENCH_VOLK
#include <volk/volk.h>

#define VOLK(call) bench::Contender{"VOLK", [=] { call; }},

namespace bench {

// A complex array as VOLK sees it.
template <class T>
lv_32fc_t* volkCplx(const Array<T>& array)
{
    static_assert(sizeof(T) == sizeof(lv_32fc_t));
    return reinterpret_cast<lv_32fc_t*>(array.data());
}

} // namespace bench
#else
#define VOLK(call)
#endif
