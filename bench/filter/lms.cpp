// LMS adaptive filters: n steps with a desired signal.
#include "driver.hpp"
#include "peers/liquid.hpp"

#include <arkpx.h>

// liquid-dsp declares the functions of its equalisers with a deprecation that was meant for one of them.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace {

using bench::Array, bench::Case, bench::Contenders, bench::noise;

struct Object : LmsState {
    Object() : LmsState{} {}
    ~Object() { arkLmsFree(this); }
};

// clang-format off
Case real(const char* name, int tapsLen)
{
    return {name, 12,
            [=](int n) {
                const Array<float> src(n, noise), desired(n, noise), dst(n);
                const auto state = std::make_shared<Object>();
                arksLmsInit(0, nullptr, tapsLen, nullptr, 1e-4f, 0, 0, state.get());
                return Contenders{
                    {"arkpx", [=] { arksbLmsDes(state.get(), src, desired, dst, n); }},
                    LIQUID(eqlms_rrrf_create(nullptr, unsigned(tapsLen)),
                           for (int i = 0; i < n; i++) {
                               eqlms_rrrf_push(q, src[i]);
                               eqlms_rrrf_execute(q, dst + i);
                               eqlms_rrrf_step(q, desired[i], dst[i]);
                           })};
            },
            {1024}};
}
// clang-format on

const bench::Family lms{"LMS adaptive filters", {real("float, 64 taps", 64), real("float, 512 taps", 512)}};

} // namespace
