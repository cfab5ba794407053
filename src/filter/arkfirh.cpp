#include "filter/firh.hpp"

using namespace ark;

static constexpr Module here{"arkfirh"};

// clang-format off
void arksFirInit(const float* taps, int tapsLen, const float* dlyl, FirState* state)           { firInit(here(), taps, tapsLen, dlyl, state); }
void arkdFirInit(const double* taps, int tapsLen, const double* dlyl, FirState* state)         { firInit(here(), taps, tapsLen, dlyl, state); }
void arkcFirInit(const FloatCplx* taps, int tapsLen, const FloatCplx* dlyl, FirState* state)   { firInit(here(), taps, tapsLen, dlyl, state); }
void arkzFirInit(const DoubleCplx* taps, int tapsLen, const DoubleCplx* dlyl, FirState* state) { firInit(here(), taps, tapsLen, dlyl, state); }
void arkscFirInit(const FloatCplx* taps, int tapsLen, const float* dlyl, FirState* state)      { firInit(here(), taps, tapsLen, dlyl, state); }
void arkcsFirInit(const float* taps, int tapsLen, const FloatCplx* dlyl, FirState* state)      { firInit(here(), taps, tapsLen, dlyl, state); }
void arkdzFirInit(const DoubleCplx* taps, int tapsLen, const double* dlyl, FirState* state)    { firInit(here(), taps, tapsLen, dlyl, state); }
void arkzdFirInit(const double* taps, int tapsLen, const DoubleCplx* dlyl, FirState* state)    { firInit(here(), taps, tapsLen, dlyl, state); }

void arksFirInitMr(const float* taps, int tapsLen, const float* dlyl, int upFactor, int upPhase, int downFactor, int downPhase, FirState* state)
    { firInitMr(here(), taps, tapsLen, dlyl, {upFactor, upPhase, downFactor, downPhase}, state); }
void arkdFirInitMr(const double* taps, int tapsLen, const double* dlyl, int upFactor, int upPhase, int downFactor, int downPhase, FirState* state)
    { firInitMr(here(), taps, tapsLen, dlyl, {upFactor, upPhase, downFactor, downPhase}, state); }
void arkcFirInitMr(const FloatCplx* taps, int tapsLen, const FloatCplx* dlyl, int upFactor, int upPhase, int downFactor, int downPhase, FirState* state)
    { firInitMr(here(), taps, tapsLen, dlyl, {upFactor, upPhase, downFactor, downPhase}, state); }
void arkzFirInitMr(const DoubleCplx* taps, int tapsLen, const DoubleCplx* dlyl, int upFactor, int upPhase, int downFactor, int downPhase, FirState* state)
    { firInitMr(here(), taps, tapsLen, dlyl, {upFactor, upPhase, downFactor, downPhase}, state); }
void arkscFirInitMr(const FloatCplx* taps, int tapsLen, const float* dlyl, int upFactor, int upPhase, int downFactor, int downPhase, FirState* state)
    { firInitMr(here(), taps, tapsLen, dlyl, {upFactor, upPhase, downFactor, downPhase}, state); }
void arkcsFirInitMr(const float* taps, int tapsLen, const FloatCplx* dlyl, int upFactor, int upPhase, int downFactor, int downPhase, FirState* state)
    { firInitMr(here(), taps, tapsLen, dlyl, {upFactor, upPhase, downFactor, downPhase}, state); }
void arkdzFirInitMr(const DoubleCplx* taps, int tapsLen, const double* dlyl, int upFactor, int upPhase, int downFactor, int downPhase, FirState* state)
    { firInitMr(here(), taps, tapsLen, dlyl, {upFactor, upPhase, downFactor, downPhase}, state); }
void arkzdFirInitMr(const double* taps, int tapsLen, const DoubleCplx* dlyl, int upFactor, int upPhase, int downFactor, int downPhase, FirState* state)
    { firInitMr(here(), taps, tapsLen, dlyl, {upFactor, upPhase, downFactor, downPhase}, state); }

void arksFirSetTaps(const float* taps, FirState* state)      { firSetTaps(here(), taps, state); }
void arkdFirSetTaps(const double* taps, FirState* state)     { firSetTaps(here(), taps, state); }
void arkcFirSetTaps(const FloatCplx* taps, FirState* state)  { firSetTaps(here(), taps, state); }
void arkzFirSetTaps(const DoubleCplx* taps, FirState* state) { firSetTaps(here(), taps, state); }

void arksFirGetTaps(const FirState* state, float* taps)      { firGetTaps(here(), state, taps); }
void arkdFirGetTaps(const FirState* state, double* taps)     { firGetTaps(here(), state, taps); }
void arkcFirGetTaps(const FirState* state, FloatCplx* taps)  { firGetTaps(here(), state, taps); }
void arkzFirGetTaps(const FirState* state, DoubleCplx* taps) { firGetTaps(here(), state, taps); }

void arksFirSetDlyl(const float* dlyl, FirState* state)      { firSetDlyl(here(), dlyl, state); }
void arkdFirSetDlyl(const double* dlyl, FirState* state)     { firSetDlyl(here(), dlyl, state); }
void arkcFirSetDlyl(const FloatCplx* dlyl, FirState* state)  { firSetDlyl(here(), dlyl, state); }
void arkzFirSetDlyl(const DoubleCplx* dlyl, FirState* state) { firSetDlyl(here(), dlyl, state); }

void arksFirGetDlyl(const FirState* state, float* dlyl)      { firGetDlyl(here(), state, dlyl); }
void arkdFirGetDlyl(const FirState* state, double* dlyl)     { firGetDlyl(here(), state, dlyl); }
void arkcFirGetDlyl(const FirState* state, FloatCplx* dlyl)  { firGetDlyl(here(), state, dlyl); }
void arkzFirGetDlyl(const FirState* state, DoubleCplx* dlyl) { firGetDlyl(here(), state, dlyl); }

float      arksFir(FirState* state, float sample)       { return fir<float, float>(here(), state, sample); }
double     arkdFir(FirState* state, double sample)      { return fir<double, double>(here(), state, sample); }
FloatCplx  arkcFir(FirState* state, FloatCplx sample)   { return fir<FloatCplx, FloatCplx>(here(), state, sample); }
DoubleCplx arkzFir(FirState* state, DoubleCplx sample)  { return fir<DoubleCplx, DoubleCplx>(here(), state, sample); }
FloatCplx  arkscFir(FirState* state, float sample)      { return fir<float, FloatCplx>(here(), state, sample); }
FloatCplx  arkcsFir(FirState* state, FloatCplx sample)  { return fir<FloatCplx, float>(here(), state, sample); }
DoubleCplx arkdzFir(FirState* state, double sample)     { return fir<double, DoubleCplx>(here(), state, sample); }
DoubleCplx arkzdFir(FirState* state, DoubleCplx sample) { return fir<DoubleCplx, double>(here(), state, sample); }

void arksbFir(FirState* state, const float* src, float* dst, int numIters)            { bFir<float, float>(here(), state, src, dst, numIters); }
void arkdbFir(FirState* state, const double* src, double* dst, int numIters)          { bFir<double, double>(here(), state, src, dst, numIters); }
void arkcbFir(FirState* state, const FloatCplx* src, FloatCplx* dst, int numIters)    { bFir<FloatCplx, FloatCplx>(here(), state, src, dst, numIters); }
void arkzbFir(FirState* state, const DoubleCplx* src, DoubleCplx* dst, int numIters)  { bFir<DoubleCplx, DoubleCplx>(here(), state, src, dst, numIters); }
void arkscbFir(FirState* state, const float* src, FloatCplx* dst, int numIters)       { bFir<float, FloatCplx>(here(), state, src, dst, numIters); }
void arkcsbFir(FirState* state, const FloatCplx* src, FloatCplx* dst, int numIters)   { bFir<FloatCplx, float>(here(), state, src, dst, numIters); }
void arkdzbFir(FirState* state, const double* src, DoubleCplx* dst, int numIters)     { bFir<double, DoubleCplx>(here(), state, src, dst, numIters); }
void arkzdbFir(FirState* state, const DoubleCplx* src, DoubleCplx* dst, int numIters) { bFir<DoubleCplx, double>(here(), state, src, dst, numIters); }

void arkFirFree(FirState* state) { firFree(here("arkFirarkFree"), state); }
// clang-format on
