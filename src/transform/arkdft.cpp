#include "transform/dft.hpp"

using namespace ark;

static constexpr Module here{"arkdft"};

void arkcDft(const FloatCplx* x, FloatCplx* y, int len, int flags) { dft(here(), x, y, len, flags); }
void arkzDft(const DoubleCplx* x, DoubleCplx* y, int len, int flags) { dft(here(), x, y, len, flags); }
