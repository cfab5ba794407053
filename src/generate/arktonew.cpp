#include "generate/tonew.hpp"

using namespace ark;

static constexpr Module here{"arktonew"};

// clang-format off
void arkwToneInit(float rFreq, float phase, short mag, ArkwToneState* statePtr) { toneInitShort<short>(here.lines(233, 2), rFreq, phase, mag, statePtr); }
void arkvToneInit(float rFreq, float phase, short mag, ArkwToneState* statePtr) { toneInitShort<ShortCplx>(here.lines(256, 2), rFreq, phase, mag, statePtr); }

short     arkwTone(ArkwToneState* statePtr) { return toneShort<short>(here.lines(391, 2), statePtr); }
ShortCplx arkvTone(ArkwToneState* statePtr) { return toneShort<ShortCplx>(here.lines(423, 2), statePtr); }

void arkwbTone(ArkwToneState* statePtr, short* samps, int sampsLen)     { toneBlockShort(here.lines(455, 2), statePtr, samps, sampsLen); }
void arkvbTone(ArkwToneState* statePtr, ShortCplx* samps, int sampsLen) { toneBlockShort(here.lines(499, 2), statePtr, samps, sampsLen); }
// clang-format on
