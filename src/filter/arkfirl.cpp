#include "filter/firl.hpp"

using namespace ark;

static constexpr Module here{"arkfirl"};

// clang-format off
void arksFirlInit(float* taps, int tapsLen, FirlTapState* tapState)      { firlInit(here(), taps, tapsLen, tapState); }
void arkdFirlInit(double* taps, int tapsLen, FirlTapState* tapState)     { firlInit(here(), taps, tapsLen, tapState); }
void arkcFirlInit(FloatCplx* taps, int tapsLen, FirlTapState* tapState)  { firlInit(here(), taps, tapsLen, tapState); }
void arkzFirlInit(DoubleCplx* taps, int tapsLen, FirlTapState* tapState) { firlInit(here(), taps, tapsLen, tapState); }
void arkwFirlInit(short* taps, int tapsLen, FirlTapState* tapState)      { firlInit(here(), taps, tapsLen, tapState); }

void arksFirlInitMr(float* taps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, FirlTapState* tapState)
    { firlInitMr(here(), taps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, tapState); }
void arkdFirlInitMr(double* taps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, FirlTapState* tapState)
    { firlInitMr(here(), taps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, tapState); }
void arkcFirlInitMr(FloatCplx* taps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, FirlTapState* tapState)
    { firlInitMr(here(), taps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, tapState); }
void arkzFirlInitMr(DoubleCplx* taps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, FirlTapState* tapState)
    { firlInitMr(here(), taps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, tapState); }
void arkwFirlInitMr(short* taps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, FirlTapState* tapState)
    { firlInitMr(here(), taps, tapsLen, {upFactor, upPhase, downFactor, downPhase}, tapState); }

void arksFirlInitDlyl(const FirlTapState* tapState, float* dlyl, FirlDlyState* dlyState)      { firlInitDlyl(here(), tapState, dlyl, dlyState); }
void arkdFirlInitDlyl(const FirlTapState* tapState, double* dlyl, FirlDlyState* dlyState)     { firlInitDlyl(here(), tapState, dlyl, dlyState); }
void arkcFirlInitDlyl(const FirlTapState* tapState, FloatCplx* dlyl, FirlDlyState* dlyState)  { firlInitDlyl(here(), tapState, dlyl, dlyState); }
void arkzFirlInitDlyl(const FirlTapState* tapState, DoubleCplx* dlyl, FirlDlyState* dlyState) { firlInitDlyl(here(), tapState, dlyl, dlyState); }
void arkwFirlInitDlyl(const FirlTapState* tapState, short* dlyl, FirlDlyState* dlyState)      { firlInitDlyl(here(), tapState, dlyl, dlyState); }

void arksFirlSetTaps(const float* src, FirlTapState* tapState)      { setTaps(here(), src, tapState); }
void arkdFirlSetTaps(const double* src, FirlTapState* tapState)     { setTaps(here(), src, tapState); }
void arkcFirlSetTaps(const FloatCplx* src, FirlTapState* tapState)  { setTaps(here(), src, tapState); }
void arkzFirlSetTaps(const DoubleCplx* src, FirlTapState* tapState) { setTaps(here(), src, tapState); }
void arkwFirlSetTaps(const short* src, FirlTapState* tapState)      { setTaps(here(), src, tapState); }

void arksFirlGetTaps(FirlTapState* tapState, float* dst)      { getTaps(here(), tapState, dst); }
void arkdFirlGetTaps(FirlTapState* tapState, double* dst)     { getTaps(here(), tapState, dst); }
void arkcFirlGetTaps(FirlTapState* tapState, FloatCplx* dst)  { getTaps(here(), tapState, dst); }
void arkzFirlGetTaps(FirlTapState* tapState, DoubleCplx* dst) { getTaps(here(), tapState, dst); }
void arkwFirlGetTaps(FirlTapState* tapState, short* dst)      { getTaps(here(), tapState, dst); }

void arksFirlSetDlyl(const FirlTapState* tapState, const float* src, FirlDlyState* dlyState)      { setDlyl(here(), tapState, src, dlyState); }
void arkdFirlSetDlyl(const FirlTapState* tapState, const double* src, FirlDlyState* dlyState)     { setDlyl(here(), tapState, src, dlyState); }
void arkcFirlSetDlyl(const FirlTapState* tapState, const FloatCplx* src, FirlDlyState* dlyState)  { setDlyl(here(), tapState, src, dlyState); }
void arkzFirlSetDlyl(const FirlTapState* tapState, const DoubleCplx* src, FirlDlyState* dlyState) { setDlyl(here(), tapState, src, dlyState); }
void arkwFirlSetDlyl(const FirlTapState* tapState, const short* src, FirlDlyState* dlyState)      { setDlyl(here(), tapState, src, dlyState); }

void arksFirlGetDlyl(const FirlTapState* tapState, FirlDlyState* dlyState, float* dst)      { getDlyl(here(), tapState, dlyState, dst); }
void arkdFirlGetDlyl(const FirlTapState* tapState, FirlDlyState* dlyState, double* dst)     { getDlyl(here(), tapState, dlyState, dst); }
void arkcFirlGetDlyl(const FirlTapState* tapState, FirlDlyState* dlyState, FloatCplx* dst)  { getDlyl(here(), tapState, dlyState, dst); }
void arkzFirlGetDlyl(const FirlTapState* tapState, FirlDlyState* dlyState, DoubleCplx* dst) { getDlyl(here(), tapState, dlyState, dst); }
void arkwFirlGetDlyl(const FirlTapState* tapState, FirlDlyState* dlyState, short* dst)      { getDlyl(here(), tapState, dlyState, dst); }

float      arksFirl(const FirlTapState* tapState, FirlDlyState* dlyState, float sample)       { return firl<float, float>(here(), tapState, dlyState, sample); }
double     arkdFirl(const FirlTapState* tapState, FirlDlyState* dlyState, double sample)      { return firl<double, double>(here(), tapState, dlyState, sample); }
FloatCplx  arkcFirl(const FirlTapState* tapState, FirlDlyState* dlyState, FloatCplx sample)   { return firl<FloatCplx, FloatCplx>(here(), tapState, dlyState, sample); }
DoubleCplx arkzFirl(const FirlTapState* tapState, FirlDlyState* dlyState, DoubleCplx sample)  { return firl<DoubleCplx, DoubleCplx>(here(), tapState, dlyState, sample); }
FloatCplx  arkscFirl(const FirlTapState* tapState, FirlDlyState* dlyState, float sample)      { return firl<float, FloatCplx>(here(), tapState, dlyState, sample); }
FloatCplx  arkcsFirl(const FirlTapState* tapState, FirlDlyState* dlyState, FloatCplx sample)  { return firl<FloatCplx, float>(here(), tapState, dlyState, sample); }
DoubleCplx arkdzFirl(const FirlTapState* tapState, FirlDlyState* dlyState, double sample)     { return firl<double, DoubleCplx>(here(), tapState, dlyState, sample); }
DoubleCplx arkzdFirl(const FirlTapState* tapState, FirlDlyState* dlyState, DoubleCplx sample) { return firl<DoubleCplx, double>(here(), tapState, dlyState, sample); }

void arksbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const float* src, float* dst, int numIters)            { bFirl<float, float>(here(), tapState, dlyState, src, dst, numIters); }
void arkdbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const double* src, double* dst, int numIters)          { bFirl<double, double>(here(), tapState, dlyState, src, dst, numIters); }
void arkcbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const FloatCplx* src, FloatCplx* dst, int numIters)    { bFirl<FloatCplx, FloatCplx>(here(), tapState, dlyState, src, dst, numIters); }
void arkzbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const DoubleCplx* src, DoubleCplx* dst, int numIters)  { bFirl<DoubleCplx, DoubleCplx>(here(), tapState, dlyState, src, dst, numIters); }
void arkscbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const float* src, FloatCplx* dst, int numIters)       { bFirl<float, FloatCplx>(here(), tapState, dlyState, src, dst, numIters); }
void arkcsbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const FloatCplx* src, FloatCplx* dst, int numIters)   { bFirl<FloatCplx, float>(here(), tapState, dlyState, src, dst, numIters); }
void arkdzbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const double* src, DoubleCplx* dst, int numIters)     { bFirl<double, DoubleCplx>(here(), tapState, dlyState, src, dst, numIters); }
void arkzdbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const DoubleCplx* src, DoubleCplx* dst, int numIters) { bFirl<DoubleCplx, double>(here(), tapState, dlyState, src, dst, numIters); }

short arkwFirl(const FirlTapState* tapState, FirlDlyState* dlyState, short sample, int scaleMode, int* scaleFactor)
    { return wFirl(here(), tapState, dlyState, sample, {scaleMode, scaleFactor}); }
void  arkwbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const short* src, short* dst, int numIters, int scaleMode, int* scaleFactor)
    { wbFirl(here(), tapState, dlyState, src, dst, numIters, {scaleMode, scaleFactor}); }
// clang-format on
