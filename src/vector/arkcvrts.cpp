#include "vector/convert.hpp"

using namespace ark;

static constexpr Module here{"arkcvrts"};

void arksbFloatToInt(const float* src, void* dst, int len, int wordBits, int flags)
{
    floatToInt(here(), src, dst, len, wordBits, flags);
}

void arksbIntToFloat(const void* src, float* dst, int len, int wordBits, int flags)
{
    intToFloat(here(), src, dst, len, wordBits, flags);
}
