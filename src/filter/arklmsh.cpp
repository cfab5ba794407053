#include "filter/lmsh.hpp"

using namespace ark;

static constexpr Module here{"arklmsh"};

// clang-format off
void arksLmsInit(int lmsType, const float* taps, int tapsLen, const float* dlyl, float step, float leak, int errDelay, LmsState* state)
    { lmsInit(here(), taps, tapsLen, dlyl, {lmsType, step, leak, errDelay}, state); }
void arkdLmsInit(int lmsType, const double* taps, int tapsLen, const double* dlyl, float step, float leak, int errDelay, LmsState* state)
    { lmsInit(here(), taps, tapsLen, dlyl, {lmsType, step, leak, errDelay}, state); }
void arkcLmsInit(int lmsType, const FloatCplx* taps, int tapsLen, const FloatCplx* dlyl, float step, float leak, int errDelay, LmsState* state)
    { lmsInit(here(), taps, tapsLen, dlyl, {lmsType, step, leak, errDelay}, state); }
void arkzLmsInit(int lmsType, const DoubleCplx* taps, int tapsLen, const DoubleCplx* dlyl, float step, float leak, int errDelay, LmsState* state)
    { lmsInit(here(), taps, tapsLen, dlyl, {lmsType, step, leak, errDelay}, state); }
void arkscLmsInit(int lmsType, const FloatCplx* taps, int tapsLen, const float* dlyl, float step, float leak, int errDelay, LmsState* state)
    { lmsInit(here(), taps, tapsLen, dlyl, {lmsType, step, leak, errDelay}, state); }
void arkdzLmsInit(int lmsType, const DoubleCplx* taps, int tapsLen, const double* dlyl, float step, float leak, int errDelay, LmsState* state)
    { lmsInit(here(), taps, tapsLen, dlyl, {lmsType, step, leak, errDelay}, state); }

void arksLmsInitMr(int lmsType, const float* taps, int tapsLen, const float* dlyl, float step, float leak, int errDelay, int downFactor, int downPhase, LmsState* state)
    { lmsInitMr(here(), taps, tapsLen, dlyl, {lmsType, step, leak, errDelay}, downFactor, downPhase, state); }
void arkdLmsInitMr(int lmsType, const double* taps, int tapsLen, const double* dlyl, float step, float leak, int errDelay, int downFactor, int downPhase, LmsState* state)
    { lmsInitMr(here(), taps, tapsLen, dlyl, {lmsType, step, leak, errDelay}, downFactor, downPhase, state); }
void arkcLmsInitMr(int lmsType, const FloatCplx* taps, int tapsLen, const FloatCplx* dlyl, float step, float leak, int errDelay, int downFactor, int downPhase, LmsState* state)
    { lmsInitMr(here(), taps, tapsLen, dlyl, {lmsType, step, leak, errDelay}, downFactor, downPhase, state); }
void arkzLmsInitMr(int lmsType, const DoubleCplx* taps, int tapsLen, const DoubleCplx* dlyl, float step, float leak, int errDelay, int downFactor, int downPhase, LmsState* state)
    { lmsInitMr(here(), taps, tapsLen, dlyl, {lmsType, step, leak, errDelay}, downFactor, downPhase, state); }
void arkscLmsInitMr(int lmsType, const FloatCplx* taps, int tapsLen, const float* dlyl, float step, float leak, int errDelay, int downFactor, int downPhase, LmsState* state)
    { lmsInitMr(here(), taps, tapsLen, dlyl, {lmsType, step, leak, errDelay}, downFactor, downPhase, state); }
void arkdzLmsInitMr(int lmsType, const DoubleCplx* taps, int tapsLen, const double* dlyl, float step, float leak, int errDelay, int downFactor, int downPhase, LmsState* state)
    { lmsInitMr(here(), taps, tapsLen, dlyl, {lmsType, step, leak, errDelay}, downFactor, downPhase, state); }

float arksLmsGetStep(const LmsState* state) { return getField(here(), state, &LmsState::step); }
float arkdLmsGetStep(const LmsState* state) { return getField(here(), state, &LmsState::step); }
float arkcLmsGetStep(const LmsState* state) { return getField(here(), state, &LmsState::step); }
float arkzLmsGetStep(const LmsState* state) { return getField(here(), state, &LmsState::step); }

void arksLmsSetStep(LmsState* state, float step) { setField(here(), state, &LmsState::step, step); }
void arkdLmsSetStep(LmsState* state, float step) { setField(here(), state, &LmsState::step, step); }
void arkcLmsSetStep(LmsState* state, float step) { setField(here(), state, &LmsState::step, step); }
void arkzLmsSetStep(LmsState* state, float step) { setField(here(), state, &LmsState::step, step); }

float arksLmsGetLeak(const LmsState* state) { return getField(here(), state, &LmsState::leak); }
float arkdLmsGetLeak(const LmsState* state) { return getField(here(), state, &LmsState::leak); }
float arkcLmsGetLeak(const LmsState* state) { return getField(here(), state, &LmsState::leak); }
float arkzLmsGetLeak(const LmsState* state) { return getField(here(), state, &LmsState::leak); }

void arksLmsSetLeak(LmsState* state, float leak) { setField(here(), state, &LmsState::leak, leak); }
void arkdLmsSetLeak(LmsState* state, float leak) { setField(here(), state, &LmsState::leak, leak); }
void arkcLmsSetLeak(LmsState* state, float leak) { setField(here(), state, &LmsState::leak, leak); }
void arkzLmsSetLeak(LmsState* state, float leak) { setField(here(), state, &LmsState::leak, leak); }

float      arksLmsGetErrVal(const LmsState* state) { return getErrVal<float>(here(), state); }
double     arkdLmsGetErrVal(const LmsState* state) { return getErrVal<double>(here(), state); }
FloatCplx  arkcLmsGetErrVal(const LmsState* state) { return getErrVal<FloatCplx>(here(), state); }
DoubleCplx arkzLmsGetErrVal(const LmsState* state) { return getErrVal<DoubleCplx>(here(), state); }

void arksLmsSetErrVal(LmsState* state, float errVal)      { setErrVal(here(), state, errVal); }
void arkdLmsSetErrVal(LmsState* state, double errVal)     { setErrVal(here(), state, errVal); }
void arkcLmsSetErrVal(LmsState* state, FloatCplx errVal)  { setErrVal(here(), state, errVal); }
void arkzLmsSetErrVal(LmsState* state, DoubleCplx errVal) { setErrVal(here(), state, errVal); }

void arksLmsSetTaps(const float* src, LmsState* state)      { lmsSetTaps(here(), src, state); }
void arkdLmsSetTaps(const double* src, LmsState* state)     { lmsSetTaps(here(), src, state); }
void arkcLmsSetTaps(const FloatCplx* src, LmsState* state)  { lmsSetTaps(here(), src, state); }
void arkzLmsSetTaps(const DoubleCplx* src, LmsState* state) { lmsSetTaps(here(), src, state); }

void arksLmsGetTaps(const LmsState* state, float* dst)      { lmsGetTaps(here(), state, dst); }
void arkdLmsGetTaps(const LmsState* state, double* dst)     { lmsGetTaps(here(), state, dst); }
void arkcLmsGetTaps(const LmsState* state, FloatCplx* dst)  { lmsGetTaps(here(), state, dst); }
void arkzLmsGetTaps(const LmsState* state, DoubleCplx* dst) { lmsGetTaps(here(), state, dst); }

void arksLmsSetDlyl(const float* src, LmsState* state)      { lmsSetDlyl(here(), src, state); }
void arkdLmsSetDlyl(const double* src, LmsState* state)     { lmsSetDlyl(here(), src, state); }
void arkcLmsSetDlyl(const FloatCplx* src, LmsState* state)  { lmsSetDlyl(here(), src, state); }
void arkzLmsSetDlyl(const DoubleCplx* src, LmsState* state) { lmsSetDlyl(here(), src, state); }

void arksLmsGetDlyl(const LmsState* state, float* dst)      { lmsGetDlyl(here(), state, dst); }
void arkdLmsGetDlyl(const LmsState* state, double* dst)     { lmsGetDlyl(here(), state, dst); }
void arkcLmsGetDlyl(const LmsState* state, FloatCplx* dst)  { lmsGetDlyl(here(), state, dst); }
void arkzLmsGetDlyl(const LmsState* state, DoubleCplx* dst) { lmsGetDlyl(here(), state, dst); }

float      arksLms(LmsState* state, float sample, float err)           { return lms<float, float>(here(), state, sample, err); }
double     arkdLms(LmsState* state, double sample, double err)         { return lms<double, double>(here(), state, sample, err); }
FloatCplx  arkcLms(LmsState* state, FloatCplx sample, FloatCplx err)   { return lms<FloatCplx, FloatCplx>(here(), state, sample, err); }
DoubleCplx arkzLms(LmsState* state, DoubleCplx sample, DoubleCplx err) { return lms<DoubleCplx, DoubleCplx>(here(), state, sample, err); }
FloatCplx  arkscLms(LmsState* state, float sample, FloatCplx err)      { return lms<float, FloatCplx>(here(), state, sample, err); }
DoubleCplx arkdzLms(LmsState* state, double sample, DoubleCplx err)    { return lms<double, DoubleCplx>(here(), state, sample, err); }

float      arksbLms(LmsState* state, const float* src, float err)           { return bLms<float, float>(here(), state, src, err); }
double     arkdbLms(LmsState* state, const double* src, double err)         { return bLms<double, double>(here(), state, src, err); }
FloatCplx  arkcbLms(LmsState* state, const FloatCplx* src, FloatCplx err)   { return bLms<FloatCplx, FloatCplx>(here(), state, src, err); }
DoubleCplx arkzbLms(LmsState* state, const DoubleCplx* src, DoubleCplx err) { return bLms<DoubleCplx, DoubleCplx>(here(), state, src, err); }
FloatCplx  arkscbLms(LmsState* state, const float* src, FloatCplx err)      { return bLms<float, FloatCplx>(here(), state, src, err); }
DoubleCplx arkdzbLms(LmsState* state, const double* src, DoubleCplx err)    { return bLms<double, DoubleCplx>(here(), state, src, err); }

float      arksLmsDes(LmsState* state, float sample, float desired)           { return lmsDes<float, float>(here(), state, sample, desired); }
double     arkdLmsDes(LmsState* state, double sample, double desired)         { return lmsDes<double, double>(here(), state, sample, desired); }
FloatCplx  arkcLmsDes(LmsState* state, FloatCplx sample, FloatCplx desired)   { return lmsDes<FloatCplx, FloatCplx>(here(), state, sample, desired); }
DoubleCplx arkzLmsDes(LmsState* state, DoubleCplx sample, DoubleCplx desired) { return lmsDes<DoubleCplx, DoubleCplx>(here(), state, sample, desired); }
FloatCplx  arkscLmsDes(LmsState* state, float sample, FloatCplx desired)      { return lmsDes<float, FloatCplx>(here(), state, sample, desired); }
DoubleCplx arkdzLmsDes(LmsState* state, double sample, DoubleCplx desired)    { return lmsDes<double, DoubleCplx>(here(), state, sample, desired); }

void arksbLmsDes(LmsState* state, const float* src, const float* desired, float* dst, int numIters)                { bLmsDes<float, float>(here(), state, src, desired, dst, numIters); }
void arkdbLmsDes(LmsState* state, const double* src, const double* desired, double* dst, int numIters)             { bLmsDes<double, double>(here(), state, src, desired, dst, numIters); }
void arkcbLmsDes(LmsState* state, const FloatCplx* src, const FloatCplx* desired, FloatCplx* dst, int numIters)    { bLmsDes<FloatCplx, FloatCplx>(here(), state, src, desired, dst, numIters); }
void arkzbLmsDes(LmsState* state, const DoubleCplx* src, const DoubleCplx* desired, DoubleCplx* dst, int numIters) { bLmsDes<DoubleCplx, DoubleCplx>(here(), state, src, desired, dst, numIters); }
void arkscbLmsDes(LmsState* state, const float* src, const FloatCplx* desired, FloatCplx* dst, int numIters)       { bLmsDes<float, FloatCplx>(here(), state, src, desired, dst, numIters); }
void arkdzbLmsDes(LmsState* state, const double* src, const DoubleCplx* desired, DoubleCplx* dst, int numIters)    { bLmsDes<double, DoubleCplx>(here(), state, src, desired, dst, numIters); }

void arkLmsFree(LmsState* state) { lmsFree(here(), state); }
// clang-format on
