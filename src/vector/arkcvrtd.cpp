#include "vector/convert.hpp"

using namespace ark;

static constexpr Module here{"arkcvrtd"};

void arkdbFloatToInt(const double* src, void* dst, int len, int wordBits, int flags)
{
    floatToInt(here(), src, dst, len, wordBits, flags);
}

void arkdbIntToFloat(const void* src, double* dst, int len, int wordBits, int flags)
{
    intToFloat(here(), src, dst, len, wordBits, flags);
}
