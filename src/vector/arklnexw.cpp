#include "vector/arklnexp.hpp"

using namespace ark;

static constexpr Module here{"arklnexw"};

// clang-format off
void arkwbLn1(short* vec, int len)                    { form1<Ln<short>>(here(), vec, len); }
void arkwbLn2(const short* src, short* dst, int len)  { form2<Ln<short>>(here(), src, dst, len); }

void arkwbExp1(short* vec, int len)                   { form1<Exp<short>>(here(), vec, len); }
void arkwbExp2(const short* src, short* dst, int len) { form2<Exp<short>>(here(), src, dst, len); }
// clang-format on
