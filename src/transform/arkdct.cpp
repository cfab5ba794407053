#include "transform/dct.hpp"

using namespace ark;

static constexpr Module here{"arkdct"};

// At the process's end and when the library is unloaded. What another thread is using then stays with it.
[[gnu::destructor]] static void unload() { dctFree(); }

// clang-format off
void arksDct(const float* src, float* dst, int len, int flags)   { dct(here(), src, dst, len, flags); }
void arkdDct(const double* src, double* dst, int len, int flags) { dct(here(), src, dst, len, flags); }
void arkwDct(const short* src, short* dst, int len, int flags)   { shortDct(here(), src, dst, len, flags); }
// clang-format on
