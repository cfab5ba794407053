// spandsp: SPANDSP(call) is its contender, or nothing where spandsp is absent.
#pragma once

#include "driver.hpp"

#if ARKPX_BENCH_SPANDSP
#include <cstdint>
#include <cstdlib>

#include <spandsp/telephony.h>

#include <spandsp/bit_operations.h>
#include <spandsp/g711.h>

#define SPANDSP(call) bench::Contender{"spandsp", [=] { call; }},

namespace bench {

// Its state of a law, for the whole run.
inline g711_state_t* spandspLaw(int mode)
{
    static g711_state_t* const laws[2] = {g711_init(nullptr, G711_ALAW), g711_init(nullptr, G711_ULAW)};
    return laws[mode == G711_ULAW];
}

} // namespace bench
#else
#define SPANDSP(call)
#endif
