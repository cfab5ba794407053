#include "generate/random.hpp"

using namespace ark;

static constexpr Module here{"arkrand"};

// clang-format off
void arksRandUniInit(float seed, float low, float high, ArksRandUniState* statePtr)    { randUniInit(here(), seed, low, high, statePtr); }
void arkdRandUniInit(double seed, double low, double high, ArkdRandUniState* statePtr) { randUniInit(here(), seed, low, high, statePtr); }
void arkcRandUniInit(float seed, float low, float high, ArksRandUniState* statePtr)    { randUniInit(here(), seed, low, high, statePtr); }
void arkzRandUniInit(double seed, double low, double high, ArkdRandUniState* statePtr) { randUniInit(here(), seed, low, high, statePtr); }

float      arksRandUni(ArksRandUniState* statePtr) { return randUni<float>(here(), statePtr); }
double     arkdRandUni(ArkdRandUniState* statePtr) { return randUni<double>(here(), statePtr); }
FloatCplx  arkcRandUni(ArksRandUniState* statePtr) { return randUni<FloatCplx>(here(), statePtr); }
DoubleCplx arkzRandUni(ArkdRandUniState* statePtr) { return randUni<DoubleCplx>(here(), statePtr); }

void arksbRandUni(ArksRandUniState* statePtr, float* samps, int sampsLen)      { randUniBlock(here(), statePtr, samps, sampsLen); }
void arkdbRandUni(ArkdRandUniState* statePtr, double* samps, int sampsLen)     { randUniBlock(here(), statePtr, samps, sampsLen); }
void arkcbRandUni(ArksRandUniState* statePtr, FloatCplx* samps, int sampsLen)  { randUniBlock(here(), statePtr, samps, sampsLen); }
void arkzbRandUni(ArkdRandUniState* statePtr, DoubleCplx* samps, int sampsLen) { randUniBlock(here(), statePtr, samps, sampsLen); }

void arksRandGausInit(float seed, float mean, float stdDev, ArksRandGausState* statePtr)    { randGausInit(here(), seed, mean, stdDev, statePtr); }
void arkdRandGausInit(double seed, double mean, double stdDev, ArkdRandGausState* statePtr) { randGausInit(here(), seed, mean, stdDev, statePtr); }
void arkcRandGausInit(float seed, float mean, float stdDev, ArksRandGausState* statePtr)    { randGausInit(here(), seed, mean, stdDev, statePtr); }
void arkzRandGausInit(double seed, double mean, double stdDev, ArkdRandGausState* statePtr) { randGausInit(here(), seed, mean, stdDev, statePtr); }
void arkwRandGausInit(int seed, short mean, short stdDev, ArkwRandGausState* statePtr)      { randGausInit(here(), seed, mean, stdDev, statePtr); }
void arkvRandGausInit(int seed, short mean, short stdDev, ArkwRandGausState* statePtr)      { randGausInit(here(), seed, mean, stdDev, statePtr); }

float      arksRandGaus(ArksRandGausState* statePtr) { return randGaus<float>(here(), statePtr); }
double     arkdRandGaus(ArkdRandGausState* statePtr) { return randGaus<double>(here(), statePtr); }
FloatCplx  arkcRandGaus(ArksRandGausState* statePtr) { return randGaus<FloatCplx>(here(), statePtr); }
DoubleCplx arkzRandGaus(ArkdRandGausState* statePtr) { return randGaus<DoubleCplx>(here(), statePtr); }
short      arkwRandGaus(ArkwRandGausState* statePtr) { return randGaus<short>(here(), statePtr); }
ShortCplx  arkvRandGaus(ArkwRandGausState* statePtr) { return randGaus<ShortCplx>(here(), statePtr); }

void arksbRandGaus(ArksRandGausState* statePtr, float* samps, int sampsLen)      { randGausBlock(here(), statePtr, samps, sampsLen); }
void arkdbRandGaus(ArkdRandGausState* statePtr, double* samps, int sampsLen)     { randGausBlock(here(), statePtr, samps, sampsLen); }
void arkcbRandGaus(ArksRandGausState* statePtr, FloatCplx* samps, int sampsLen)  { randGausBlock(here(), statePtr, samps, sampsLen); }
void arkzbRandGaus(ArkdRandGausState* statePtr, DoubleCplx* samps, int sampsLen) { randGausBlock(here(), statePtr, samps, sampsLen); }
void arkwbRandGaus(ArkwRandGausState* statePtr, short* samps, int sampsLen)      { randGausBlock(here(), statePtr, samps, sampsLen); }
void arkvbRandGaus(ArkwRandGausState* statePtr, ShortCplx* samps, int sampsLen)  { randGausBlock(here(), statePtr, samps, sampsLen); }
// clang-format on
