#include "filter/iirl.hpp"

#include <arkpx/filter.h>

using namespace ark;

static constexpr Module here{"arkiirlw"};

// clang-format off
void arkwIirlInit(int iirType, float* taps, int order, IirlTapState* tapStPtr) { iirlInit(here(), iirType, taps, order, tapStPtr); }

void arkwIirlInitBq(int iirType, float* taps, int numQuads, IirlTapState* tapStPtr) { iirlInitBq(here(), iirType, taps, numQuads, tapStPtr); }

void arkwIirlInitDlyl(const IirlTapState* tapStPtr, float* dlyl, IirlDlyState* dlyStPtr) { iirlInitDlyl(here(), tapStPtr, dlyl, dlyStPtr); }

short arkwIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, short sample, int scaleMode, int* scaleFactor) { return iirl<float>(here(), tapStPtr, dlyStPtr, sample, scaleMode, scaleFactor); }

void arkwbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const short* inSamps, short* outSamps, int numIters, int scaleMode, int* scaleFactor) { iirlBlock<float>(here(), tapStPtr, dlyStPtr, inSamps, outSamps, numIters, scaleMode, scaleFactor); }
// clang-format on
