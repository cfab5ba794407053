#include "filter/iirh.hpp"

#include <arkpx/filter.h>

using namespace ark;

static constexpr Module here{"arkiirh"};

// clang-format off
void arksIirInit(int iirType, const float* tapVals, int order, IirState* statePtr)       { iirInit<arbitraryOrder, arksIirlInit, arksIirlInitDlyl>(here(), iirType, tapVals, order, statePtr); }
void arkdIirInit(int iirType, const double* tapVals, int order, IirState* statePtr)      { iirInit<arbitraryOrder, arkdIirlInit, arkdIirlInitDlyl>(here(), iirType, tapVals, order, statePtr); }
void arkcIirInit(int iirType, const FloatCplx* tapVals, int order, IirState* statePtr)   { iirInit<arbitraryOrder, arkcIirlInit, arkcIirlInitDlyl>(here(), iirType, tapVals, order, statePtr); }
void arkzIirInit(int iirType, const DoubleCplx* tapVals, int order, IirState* statePtr)  { iirInit<arbitraryOrder, arkzIirlInit, arkzIirlInitDlyl>(here(), iirType, tapVals, order, statePtr); }
void arkscIirInit(int iirType, const FloatCplx* tapVals, int order, IirState* statePtr)  { iirInit<arbitraryOrder, arkcIirlInit, arkcIirlInitDlyl>(here(), iirType, tapVals, order, statePtr); }
void arkcsIirInit(int iirType, const float* tapVals, int order, IirState* statePtr)      { iirInit<arbitraryOrder, arksIirlInit, arkcIirlInitDlyl>(here(), iirType, tapVals, order, statePtr); }
void arkdzIirInit(int iirType, const DoubleCplx* tapVals, int order, IirState* statePtr) { iirInit<arbitraryOrder, arkzIirlInit, arkzIirlInitDlyl>(here(), iirType, tapVals, order, statePtr); }
void arkzdIirInit(int iirType, const double* tapVals, int order, IirState* statePtr)     { iirInit<arbitraryOrder, arkdIirlInit, arkzIirlInitDlyl>(here(), iirType, tapVals, order, statePtr); }

void arksIirInitBq(int iirType, const float* tapVals, int numQuads, IirState* statePtr)       { iirInit<cascade, arksIirlInitBq, arksIirlInitDlyl>(here(), iirType, tapVals, numQuads, statePtr); }
void arkdIirInitBq(int iirType, const double* tapVals, int numQuads, IirState* statePtr)      { iirInit<cascade, arkdIirlInitBq, arkdIirlInitDlyl>(here(), iirType, tapVals, numQuads, statePtr); }
void arkcIirInitBq(int iirType, const FloatCplx* tapVals, int numQuads, IirState* statePtr)   { iirInit<cascade, arkcIirlInitBq, arkcIirlInitDlyl>(here(), iirType, tapVals, numQuads, statePtr); }
void arkzIirInitBq(int iirType, const DoubleCplx* tapVals, int numQuads, IirState* statePtr)  { iirInit<cascade, arkzIirlInitBq, arkzIirlInitDlyl>(here(), iirType, tapVals, numQuads, statePtr); }
void arkscIirInitBq(int iirType, const FloatCplx* tapVals, int numQuads, IirState* statePtr)  { iirInit<cascade, arkcIirlInitBq, arkcIirlInitDlyl>(here(), iirType, tapVals, numQuads, statePtr); }
void arkcsIirInitBq(int iirType, const float* tapVals, int numQuads, IirState* statePtr)      { iirInit<cascade, arksIirlInitBq, arkcIirlInitDlyl>(here(), iirType, tapVals, numQuads, statePtr); }
void arkdzIirInitBq(int iirType, const DoubleCplx* tapVals, int numQuads, IirState* statePtr) { iirInit<cascade, arkzIirlInitBq, arkzIirlInitDlyl>(here(), iirType, tapVals, numQuads, statePtr); }
void arkzdIirInitBq(int iirType, const double* tapVals, int numQuads, IirState* statePtr)     { iirInit<cascade, arkdIirlInitBq, arkzIirlInitDlyl>(here(), iirType, tapVals, numQuads, statePtr); }

float arksIir(IirState* statePtr, float sample)            { return iir<arksIirl>(here(), statePtr, sample); }
double arkdIir(IirState* statePtr, double sample)          { return iir<arkdIirl>(here(), statePtr, sample); }
FloatCplx arkcIir(IirState* statePtr, FloatCplx sample)    { return iir<arkcIirl>(here(), statePtr, sample); }
DoubleCplx arkzIir(IirState* statePtr, DoubleCplx sample)  { return iir<arkzIirl>(here(), statePtr, sample); }
FloatCplx arkscIir(IirState* statePtr, float sample)       { return iir<arkscIirl>(here(), statePtr, sample); }
FloatCplx arkcsIir(IirState* statePtr, FloatCplx sample)   { return iir<arkcsIirl>(here(), statePtr, sample); }
DoubleCplx arkdzIir(IirState* statePtr, double sample)     { return iir<arkdzIirl>(here(), statePtr, sample); }
DoubleCplx arkzdIir(IirState* statePtr, DoubleCplx sample) { return iir<arkzdIirl>(here(), statePtr, sample); }

void arksbIir(IirState* statePtr, const float* inSamps, float* outSamps, int numIters)            { iir<arksbIirl>(here(), statePtr, inSamps, outSamps, numIters); }
void arkdbIir(IirState* statePtr, const double* inSamps, double* outSamps, int numIters)          { iir<arkdbIirl>(here(), statePtr, inSamps, outSamps, numIters); }
void arkcbIir(IirState* statePtr, const FloatCplx* inSamps, FloatCplx* outSamps, int numIters)    { iir<arkcbIirl>(here(), statePtr, inSamps, outSamps, numIters); }
void arkzbIir(IirState* statePtr, const DoubleCplx* inSamps, DoubleCplx* outSamps, int numIters)  { iir<arkzbIirl>(here(), statePtr, inSamps, outSamps, numIters); }
void arkscbIir(IirState* statePtr, const float* inSamps, FloatCplx* outSamps, int numIters)       { iir<arkscbIirl>(here(), statePtr, inSamps, outSamps, numIters); }
void arkcsbIir(IirState* statePtr, const FloatCplx* inSamps, FloatCplx* outSamps, int numIters)   { iir<arkcsbIirl>(here(), statePtr, inSamps, outSamps, numIters); }
void arkdzbIir(IirState* statePtr, const double* inSamps, DoubleCplx* outSamps, int numIters)     { iir<arkdzbIirl>(here(), statePtr, inSamps, outSamps, numIters); }
void arkzdbIir(IirState* statePtr, const DoubleCplx* inSamps, DoubleCplx* outSamps, int numIters) { iir<arkzdbIirl>(here(), statePtr, inSamps, outSamps, numIters); }

void arkIirFree(IirState* statePtr) { iirFree(here(), statePtr); }
// clang-format on
