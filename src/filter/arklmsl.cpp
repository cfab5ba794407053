#include "filter/lmsl.hpp"

using namespace ark;

static constexpr Module here{"arklmsl"};

// clang-format off
void arksLmslInit(int lmsType, float* taps, int tapsLen, float step, float leak, int errDelay, LmslTapState* tapState)      { lmslInit(here(), taps, tapsLen, {lmsType, step, leak, errDelay}, tapState); }
void arkdLmslInit(int lmsType, double* taps, int tapsLen, float step, float leak, int errDelay, LmslTapState* tapState)     { lmslInit(here(), taps, tapsLen, {lmsType, step, leak, errDelay}, tapState); }
void arkcLmslInit(int lmsType, FloatCplx* taps, int tapsLen, float step, float leak, int errDelay, LmslTapState* tapState)  { lmslInit(here(), taps, tapsLen, {lmsType, step, leak, errDelay}, tapState); }
void arkzLmslInit(int lmsType, DoubleCplx* taps, int tapsLen, float step, float leak, int errDelay, LmslTapState* tapState) { lmslInit(here(), taps, tapsLen, {lmsType, step, leak, errDelay}, tapState); }
void arkwLmslInit(int lmsType, short* taps, int tapsLen, float step, int errDelay, LmslTapState* tapState)                  { lmslInit(here(), taps, tapsLen, {lmsType, step, 0, errDelay}, tapState); }

void arksLmslInitMr(int lmsType, float* taps, int tapsLen, float step, float leak, int errDelay, int downFactor, int downPhase, LmslTapState* tapState)
    { lmslInitMr(here(), taps, tapsLen, {lmsType, step, leak, errDelay}, downFactor, downPhase, tapState); }
void arkdLmslInitMr(int lmsType, double* taps, int tapsLen, float step, float leak, int errDelay, int downFactor, int downPhase, LmslTapState* tapState)
    { lmslInitMr(here(), taps, tapsLen, {lmsType, step, leak, errDelay}, downFactor, downPhase, tapState); }
void arkcLmslInitMr(int lmsType, FloatCplx* taps, int tapsLen, float step, float leak, int errDelay, int downFactor, int downPhase, LmslTapState* tapState)
    { lmslInitMr(here(), taps, tapsLen, {lmsType, step, leak, errDelay}, downFactor, downPhase, tapState); }
void arkzLmslInitMr(int lmsType, DoubleCplx* taps, int tapsLen, float step, float leak, int errDelay, int downFactor, int downPhase, LmslTapState* tapState)
    { lmslInitMr(here(), taps, tapsLen, {lmsType, step, leak, errDelay}, downFactor, downPhase, tapState); }

void arksLmslInitDlyl(const LmslTapState* tapState, float* dlyl, int flag, LmslDlyState* dlyState)      { lmslInitDlyl(here(), tapState, dlyl, flag, dlyState); }
void arkdLmslInitDlyl(const LmslTapState* tapState, double* dlyl, int flag, LmslDlyState* dlyState)     { lmslInitDlyl(here(), tapState, dlyl, flag, dlyState); }
void arkcLmslInitDlyl(const LmslTapState* tapState, FloatCplx* dlyl, int flag, LmslDlyState* dlyState)  { lmslInitDlyl(here(), tapState, dlyl, flag, dlyState); }
void arkzLmslInitDlyl(const LmslTapState* tapState, DoubleCplx* dlyl, int flag, LmslDlyState* dlyState) { lmslInitDlyl(here(), tapState, dlyl, flag, dlyState); }
void arkwLmslInitDlyl(const LmslTapState* tapState, short* dlyl, int flag, LmslDlyState* dlyState)      { lmslInitDlyl(here(), tapState, dlyl, flag, dlyState); }

float arksLmslGetStep(const LmslTapState* tapState) { return getField(here(), tapState, &LmslTapState::step); }
float arkdLmslGetStep(const LmslTapState* tapState) { return getField(here(), tapState, &LmslTapState::step); }
float arkcLmslGetStep(const LmslTapState* tapState) { return getField(here(), tapState, &LmslTapState::step); }
float arkzLmslGetStep(const LmslTapState* tapState) { return getField(here(), tapState, &LmslTapState::step); }
float arkwLmslGetStep(const LmslTapState* tapState) { return getField(here(), tapState, &LmslTapState::step); }

void arksLmslSetStep(LmslTapState* tapState, float step) { setField(here(), tapState, &LmslTapState::step, step); }
void arkdLmslSetStep(LmslTapState* tapState, float step) { setField(here(), tapState, &LmslTapState::step, step); }
void arkcLmslSetStep(LmslTapState* tapState, float step) { setField(here(), tapState, &LmslTapState::step, step); }
void arkzLmslSetStep(LmslTapState* tapState, float step) { setField(here(), tapState, &LmslTapState::step, step); }
void arkwLmslSetStep(LmslTapState* tapState, float step) { setField(here(), tapState, &LmslTapState::step, step); }

float arksLmslGetLeak(const LmslTapState* tapState) { return getField(here(), tapState, &LmslTapState::leak); }
float arkdLmslGetLeak(const LmslTapState* tapState) { return getField(here(), tapState, &LmslTapState::leak); }
float arkcLmslGetLeak(const LmslTapState* tapState) { return getField(here(), tapState, &LmslTapState::leak); }
float arkzLmslGetLeak(const LmslTapState* tapState) { return getField(here(), tapState, &LmslTapState::leak); }

void arksLmslSetLeak(LmslTapState* tapState, float leak) { setField(here(), tapState, &LmslTapState::leak, leak); }
void arkdLmslSetLeak(LmslTapState* tapState, float leak) { setField(here(), tapState, &LmslTapState::leak, leak); }
void arkcLmslSetLeak(LmslTapState* tapState, float leak) { setField(here(), tapState, &LmslTapState::leak, leak); }
void arkzLmslSetLeak(LmslTapState* tapState, float leak) { setField(here(), tapState, &LmslTapState::leak, leak); }

void arksLmslSetTaps(const float* src, LmslTapState* tapState)      { setTaps(here(), src, tapState); }
void arkdLmslSetTaps(const double* src, LmslTapState* tapState)     { setTaps(here(), src, tapState); }
void arkcLmslSetTaps(const FloatCplx* src, LmslTapState* tapState)  { setTaps(here(), src, tapState); }
void arkzLmslSetTaps(const DoubleCplx* src, LmslTapState* tapState) { setTaps(here(), src, tapState); }
void arkwLmslSetTaps(const short* src, LmslTapState* tapState)      { setTaps(here(), src, tapState); }

void arksLmslGetTaps(LmslTapState* tapState, float* dst)      { getTaps(here(), tapState, dst); }
void arkdLmslGetTaps(LmslTapState* tapState, double* dst)     { getTaps(here(), tapState, dst); }
void arkcLmslGetTaps(LmslTapState* tapState, FloatCplx* dst)  { getTaps(here(), tapState, dst); }
void arkzLmslGetTaps(LmslTapState* tapState, DoubleCplx* dst) { getTaps(here(), tapState, dst); }
void arkwLmslGetTaps(LmslTapState* tapState, short* dst)      { getTaps(here(), tapState, dst); }

void arksLmslSetDlyl(const LmslTapState* tapState, const float* src, LmslDlyState* dlyState)      { setDlyl(here(), tapState, src, dlyState); }
void arkdLmslSetDlyl(const LmslTapState* tapState, const double* src, LmslDlyState* dlyState)     { setDlyl(here(), tapState, src, dlyState); }
void arkcLmslSetDlyl(const LmslTapState* tapState, const FloatCplx* src, LmslDlyState* dlyState)  { setDlyl(here(), tapState, src, dlyState); }
void arkzLmslSetDlyl(const LmslTapState* tapState, const DoubleCplx* src, LmslDlyState* dlyState) { setDlyl(here(), tapState, src, dlyState); }
void arkwLmslSetDlyl(const LmslTapState* tapState, const short* src, LmslDlyState* dlyState)      { setDlyl(here(), tapState, src, dlyState); }

void arksLmslGetDlyl(const LmslTapState* tapState, LmslDlyState* dlyState, float* dst)      { getDlyl(here(), tapState, dlyState, dst); }
void arkdLmslGetDlyl(const LmslTapState* tapState, LmslDlyState* dlyState, double* dst)     { getDlyl(here(), tapState, dlyState, dst); }
void arkcLmslGetDlyl(const LmslTapState* tapState, LmslDlyState* dlyState, FloatCplx* dst)  { getDlyl(here(), tapState, dlyState, dst); }
void arkzLmslGetDlyl(const LmslTapState* tapState, LmslDlyState* dlyState, DoubleCplx* dst) { getDlyl(here(), tapState, dlyState, dst); }
void arkwLmslGetDlyl(const LmslTapState* tapState, LmslDlyState* dlyState, short* dst)      { getDlyl(here(), tapState, dlyState, dst); }

float      arksLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, float sample, float err)           { return lmsl<float, float>(here(), tapState, dlyState, sample, err); }
double     arkdLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, double sample, double err)         { return lmsl<double, double>(here(), tapState, dlyState, sample, err); }
FloatCplx  arkcLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, FloatCplx sample, FloatCplx err)   { return lmsl<FloatCplx, FloatCplx>(here(), tapState, dlyState, sample, err); }
DoubleCplx arkzLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, DoubleCplx sample, DoubleCplx err) { return lmsl<DoubleCplx, DoubleCplx>(here(), tapState, dlyState, sample, err); }
FloatCplx  arkscLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, float sample, FloatCplx err)      { return lmsl<float, FloatCplx>(here(), tapState, dlyState, sample, err); }
DoubleCplx arkdzLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, double sample, DoubleCplx err)    { return lmsl<double, DoubleCplx>(here(), tapState, dlyState, sample, err); }
short      arkwLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, short sample, short err)           { return wLmsl(here(), tapState, dlyState, sample, err); }

float      arksbLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, const float* src, float err)           { return bLmsl<float, float>(here(), tapState, dlyState, src, err); }
double     arkdbLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, const double* src, double err)         { return bLmsl<double, double>(here(), tapState, dlyState, src, err); }
FloatCplx  arkcbLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, const FloatCplx* src, FloatCplx err)   { return bLmsl<FloatCplx, FloatCplx>(here(), tapState, dlyState, src, err); }
DoubleCplx arkzbLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, const DoubleCplx* src, DoubleCplx err) { return bLmsl<DoubleCplx, DoubleCplx>(here(), tapState, dlyState, src, err); }
FloatCplx  arkscbLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, const float* src, FloatCplx err)      { return bLmsl<float, FloatCplx>(here(), tapState, dlyState, src, err); }
DoubleCplx arkdzbLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, const double* src, DoubleCplx err)    { return bLmsl<double, DoubleCplx>(here(), tapState, dlyState, src, err); }

float      arksLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, float sample)       { return firl<float, float>(here(), tapState, dlyState, sample); }
double     arkdLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, double sample)      { return firl<double, double>(here(), tapState, dlyState, sample); }
FloatCplx  arkcLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, FloatCplx sample)   { return firl<FloatCplx, FloatCplx>(here(), tapState, dlyState, sample); }
DoubleCplx arkzLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, DoubleCplx sample)  { return firl<DoubleCplx, DoubleCplx>(here(), tapState, dlyState, sample); }
FloatCplx  arkscLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, float sample)      { return firl<float, FloatCplx>(here(), tapState, dlyState, sample); }
FloatCplx  arkcsLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, FloatCplx sample)  { return firl<FloatCplx, float>(here(), tapState, dlyState, sample); }
DoubleCplx arkdzLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, double sample)     { return firl<double, DoubleCplx>(here(), tapState, dlyState, sample); }
DoubleCplx arkzdLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, DoubleCplx sample) { return firl<DoubleCplx, double>(here(), tapState, dlyState, sample); }

void arksbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const float* src, float* dst, int numIters)
    { bFirl<float, float>(here(), tapState, dlyState, src, dst, numIters); }
void arkdbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const double* src, double* dst, int numIters)
    { bFirl<double, double>(here(), tapState, dlyState, src, dst, numIters); }
void arkcbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const FloatCplx* src, FloatCplx* dst, int numIters)
    { bFirl<FloatCplx, FloatCplx>(here(), tapState, dlyState, src, dst, numIters); }
void arkzbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const DoubleCplx* src, DoubleCplx* dst, int numIters)
    { bFirl<DoubleCplx, DoubleCplx>(here(), tapState, dlyState, src, dst, numIters); }
void arkscbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const float* src, FloatCplx* dst, int numIters)
    { bFirl<float, FloatCplx>(here(), tapState, dlyState, src, dst, numIters); }
void arkcsbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const FloatCplx* src, FloatCplx* dst, int numIters)
    { bFirl<FloatCplx, float>(here(), tapState, dlyState, src, dst, numIters); }
void arkdzbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const double* src, DoubleCplx* dst, int numIters)
    { bFirl<double, DoubleCplx>(here(), tapState, dlyState, src, dst, numIters); }
void arkzdbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const DoubleCplx* src, DoubleCplx* dst, int numIters)
    { bFirl<DoubleCplx, double>(here(), tapState, dlyState, src, dst, numIters); }
// clang-format on
