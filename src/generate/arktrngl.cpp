#include "generate/triangle.hpp"

using namespace ark;

static constexpr Module here{"arktrngl"};

// clang-format off
void arksTrnglInit(float rFreq, float phase, float mag, float asym, ArksTrnglState* statePtr)     { trnglInit(here(), rFreq, phase, mag, asym, statePtr); }
void arkdTrnglInit(double rFreq, double phase, double mag, double asym, ArkdTrnglState* statePtr) { trnglInit(here(), rFreq, phase, mag, asym, statePtr); }
void arkcTrnglInit(float rFreq, float phase, float mag, float asym, ArkcTrnglState* statePtr)     { trnglInit(here(), rFreq, phase, mag, asym, statePtr); }
void arkzTrnglInit(double rFreq, double phase, double mag, double asym, ArkzTrnglState* statePtr) { trnglInit(here(), rFreq, phase, mag, asym, statePtr); }
void arkwTrnglInit(float rFreq, float phase, short mag, float asym, ArksTrnglState* statePtr)     { trnglInit(here(), rFreq, phase, mag, asym, statePtr); }
void arkvTrnglInit(float rFreq, float phase, short mag, float asym, ArkcTrnglState* statePtr)     { trnglInit(here(), rFreq, phase, mag, asym, statePtr); }

float      arksTrngl(ArksTrnglState* statePtr) { return trngl<float>(here(), statePtr); }
double     arkdTrngl(ArkdTrnglState* statePtr) { return trngl<double>(here(), statePtr); }
FloatCplx  arkcTrngl(ArkcTrnglState* statePtr) { return trngl<FloatCplx>(here(), statePtr); }
DoubleCplx arkzTrngl(ArkzTrnglState* statePtr) { return trngl<DoubleCplx>(here(), statePtr); }
short      arkwTrngl(ArksTrnglState* statePtr) { return trngl<short>(here(), statePtr); }
ShortCplx  arkvTrngl(ArkcTrnglState* statePtr) { return trngl<ShortCplx>(here(), statePtr); }

void arksbTrngl(ArksTrnglState* statePtr, float* samps, int sampsLen)      { trnglBlock(here(), statePtr, samps, sampsLen); }
void arkdbTrngl(ArkdTrnglState* statePtr, double* samps, int sampsLen)     { trnglBlock(here(), statePtr, samps, sampsLen); }
void arkcbTrngl(ArkcTrnglState* statePtr, FloatCplx* samps, int sampsLen)  { trnglBlock(here(), statePtr, samps, sampsLen); }
void arkzbTrngl(ArkzTrnglState* statePtr, DoubleCplx* samps, int sampsLen) { trnglBlock(here(), statePtr, samps, sampsLen); }
void arkwbTrngl(ArksTrnglState* statePtr, short* samps, int sampsLen)      { trnglBlock(here(), statePtr, samps, sampsLen); }
void arkvbTrngl(ArkcTrnglState* statePtr, ShortCplx* samps, int sampsLen)  { trnglBlock(here(), statePtr, samps, sampsLen); }
// clang-format on
