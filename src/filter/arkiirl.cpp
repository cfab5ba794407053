#include "filter/iirl.hpp"

#include <arkpx/filter.h>

using namespace ark;

static constexpr Module here{"arkiirl"};

// clang-format off
void arksIirlInit(int iirType, float* taps, int order, IirlTapState* tapStPtr)      { iirlInit(here(), iirType, taps, order, tapStPtr); }
void arkdIirlInit(int iirType, double* taps, int order, IirlTapState* tapStPtr)     { iirlInit(here(), iirType, taps, order, tapStPtr); }
void arkcIirlInit(int iirType, FloatCplx* taps, int order, IirlTapState* tapStPtr)  { iirlInit(here(), iirType, taps, order, tapStPtr); }
void arkzIirlInit(int iirType, DoubleCplx* taps, int order, IirlTapState* tapStPtr) { iirlInit(here(), iirType, taps, order, tapStPtr); }

void arksIirlInitBq(int iirType, float* taps, int numQuads, IirlTapState* tapStPtr)      { iirlInitBq(here(), iirType, taps, numQuads, tapStPtr); }
void arkdIirlInitBq(int iirType, double* taps, int numQuads, IirlTapState* tapStPtr)     { iirlInitBq(here(), iirType, taps, numQuads, tapStPtr); }
void arkcIirlInitBq(int iirType, FloatCplx* taps, int numQuads, IirlTapState* tapStPtr)  { iirlInitBq(here(), iirType, taps, numQuads, tapStPtr); }
void arkzIirlInitBq(int iirType, DoubleCplx* taps, int numQuads, IirlTapState* tapStPtr) { iirlInitBq(here(), iirType, taps, numQuads, tapStPtr); }

void arksIirlInitDlyl(const IirlTapState* tapStPtr, float* dlyl, IirlDlyState* dlyStPtr)      { iirlInitDlyl(here(), tapStPtr, dlyl, dlyStPtr); }
void arkdIirlInitDlyl(const IirlTapState* tapStPtr, double* dlyl, IirlDlyState* dlyStPtr)     { iirlInitDlyl(here(), tapStPtr, dlyl, dlyStPtr); }
void arkcIirlInitDlyl(const IirlTapState* tapStPtr, FloatCplx* dlyl, IirlDlyState* dlyStPtr)  { iirlInitDlyl(here(), tapStPtr, dlyl, dlyStPtr); }
void arkzIirlInitDlyl(const IirlTapState* tapStPtr, DoubleCplx* dlyl, IirlDlyState* dlyStPtr) { iirlInitDlyl(here(), tapStPtr, dlyl, dlyStPtr); }

float arksIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, float sample)            { return iirl<float>(here(), tapStPtr, dlyStPtr, sample); }
double arkdIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, double sample)          { return iirl<double>(here(), tapStPtr, dlyStPtr, sample); }
FloatCplx arkcIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, FloatCplx sample)    { return iirl<FloatCplx>(here(), tapStPtr, dlyStPtr, sample); }
DoubleCplx arkzIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, DoubleCplx sample)  { return iirl<DoubleCplx>(here(), tapStPtr, dlyStPtr, sample); }
FloatCplx arkscIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, float sample)       { return iirl<FloatCplx>(here(), tapStPtr, dlyStPtr, sample); }
FloatCplx arkcsIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, FloatCplx sample)   { return iirl<float>(here(), tapStPtr, dlyStPtr, sample); }
DoubleCplx arkdzIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, double sample)     { return iirl<DoubleCplx>(here(), tapStPtr, dlyStPtr, sample); }
DoubleCplx arkzdIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, DoubleCplx sample) { return iirl<double>(here(), tapStPtr, dlyStPtr, sample); }

void arksbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const float* inSamps, float* outSamps, int numIters)            { iirlBlock<float>(here(), tapStPtr, dlyStPtr, inSamps, outSamps, numIters); }
void arkdbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const double* inSamps, double* outSamps, int numIters)          { iirlBlock<double>(here(), tapStPtr, dlyStPtr, inSamps, outSamps, numIters); }
void arkcbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const FloatCplx* inSamps, FloatCplx* outSamps, int numIters)    { iirlBlock<FloatCplx>(here(), tapStPtr, dlyStPtr, inSamps, outSamps, numIters); }
void arkzbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const DoubleCplx* inSamps, DoubleCplx* outSamps, int numIters)  { iirlBlock<DoubleCplx>(here(), tapStPtr, dlyStPtr, inSamps, outSamps, numIters); }
void arkscbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const float* inSamps, FloatCplx* outSamps, int numIters)       { iirlBlock<FloatCplx>(here(), tapStPtr, dlyStPtr, inSamps, outSamps, numIters); }
void arkcsbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const FloatCplx* inSamps, FloatCplx* outSamps, int numIters)   { iirlBlock<float>(here(), tapStPtr, dlyStPtr, inSamps, outSamps, numIters); }
void arkdzbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const double* inSamps, DoubleCplx* outSamps, int numIters)     { iirlBlock<DoubleCplx>(here(), tapStPtr, dlyStPtr, inSamps, outSamps, numIters); }
void arkzdbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const DoubleCplx* inSamps, DoubleCplx* outSamps, int numIters) { iirlBlock<double>(here(), tapStPtr, dlyStPtr, inSamps, outSamps, numIters); }
// clang-format on
