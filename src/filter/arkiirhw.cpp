#include "filter/iirh.hpp"

#include <arkpx/filter.h>

using namespace ark;

static constexpr Module here{"arkiirhw"};

// clang-format off
void arkwIirInit(int iirType, const float* tapVals, int order, IirState* statePtr) { iirInit<arbitraryOrder, arkwIirlInit, arkwIirlInitDlyl>(here(), iirType, tapVals, order, statePtr); }

void arkwIirInitBq(int iirType, const float* tapVals, int numQuads, IirState* statePtr) { iirInit<cascade, arkwIirlInitBq, arkwIirlInitDlyl>(here(), iirType, tapVals, numQuads, statePtr); }

short arkwIir(IirState* statePtr, short sample, int scaleMode, int* scaleFactor) { return iir<arkwIirl>(here(), statePtr, sample, scaleMode, scaleFactor); }

void arkwbIir(IirState* statePtr, const short* inSamps, short* outSamps, int numIters, int scaleMode, int* scaleFactor) { iir<arkwbIirl>(here(), statePtr, inSamps, outSamps, numIters, scaleMode, scaleFactor); }
// clang-format on
