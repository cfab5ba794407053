#include "generate/tone.hpp"

using namespace ark;

static constexpr Module here{"arktone"};

// clang-format off
void arksToneInit(float rFreq, float phase, float mag, ArksToneState* statePtr)    { toneInit(here.lines(68), rFreq, phase, mag, statePtr); }
void arkdToneInit(double rFreq, double phase, double mag, ArkdToneState* statePtr) { toneInit(here.lines(72), rFreq, phase, mag, statePtr); }
void arkcToneInit(float rFreq, float phase, float mag, ArkcToneState* statePtr)    { toneInit(here.lines(76), rFreq, phase, mag, statePtr); }
void arkzToneInit(double rFreq, double phase, double mag, ArkzToneState* statePtr) { toneInit(here.lines(80), rFreq, phase, mag, statePtr); }

float      arksTone(ArksToneState* statePtr) { return tone<float>(here.lines(86), statePtr); }
double     arkdTone(ArkdToneState* statePtr) { return tone<double>(here.lines(90), statePtr); }
FloatCplx  arkcTone(ArkcToneState* statePtr) { return tone<FloatCplx>(here.lines(94), statePtr); }
DoubleCplx arkzTone(ArkzToneState* statePtr) { return tone<DoubleCplx>(here.lines(98), statePtr); }

void arksbTone(ArksToneState* statePtr, float* samps, int sampsLen)      { toneBlock(here.lines(104), statePtr, samps, sampsLen); }
void arkdbTone(ArkdToneState* statePtr, double* samps, int sampsLen)     { toneBlock(here.lines(108), statePtr, samps, sampsLen); }
void arkcbTone(ArkcToneState* statePtr, FloatCplx* samps, int sampsLen)  { toneBlock(here.lines(112), statePtr, samps, sampsLen); }
void arkzbTone(ArkzToneState* statePtr, DoubleCplx* samps, int sampsLen) { toneBlock(here.lines(116), statePtr, samps, sampsLen); }
// clang-format on
