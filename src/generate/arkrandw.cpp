#include "generate/random.hpp"

using namespace ark;

static constexpr Module here{"arkrandw"};

// clang-format off
void arkwRandUniInit(int seed, short low, short high, ArkwRandUniState* statePtr) { randUniInitShort(here(), seed, low, high, statePtr); }
void arkvRandUniInit(int seed, short low, short high, ArkwRandUniState* statePtr) { randUniInitShort(here(), seed, low, high, statePtr); }

short     arkwRandUni(ArkwRandUniState* statePtr) { return randUniShort<short>(here(), statePtr); }
ShortCplx arkvRandUni(ArkwRandUniState* statePtr) { return randUniShort<ShortCplx>(here(), statePtr); }

void arkwbRandUni(ArkwRandUniState* statePtr, short* samps, int sampsLen)     { randUniBlockShort(here(), statePtr, samps, sampsLen); }
void arkvbRandUni(ArkwRandUniState* statePtr, ShortCplx* samps, int sampsLen) { randUniBlockShort(here(), statePtr, samps, sampsLen); }
// clang-format on
