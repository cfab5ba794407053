#include "filter/firh.hpp"

using namespace ark;

static constexpr Module here{"arkfirhw"};

// clang-format off
void arkwFirInit(const float* taps, int tapsLen, const short* dlyl, FirState* state) { firInit(here(), taps, tapsLen, dlyl, state); }

void arkwFirInitMr(const float* taps, int tapsLen, const short* dlyl, int upFactor, int upPhase, int downFactor, int downPhase, FirState* state)
    { firInitMr(here(), taps, tapsLen, dlyl, {upFactor, upPhase, downFactor, downPhase}, state); }

void arkwFirSetTaps(const float* taps, FirState* state) { firSetTaps(here(), taps, state); }
void arkwFirGetTaps(const FirState* state, float* taps) { firGetTaps(here(), state, taps); }
void arkwFirSetDlyl(const short* dlyl, FirState* state) { firSetDlyl(here(), dlyl, state); }
void arkwFirGetDlyl(const FirState* state, short* dlyl) { firGetDlyl(here(), state, dlyl); }

short arkwFir(FirState* state, short sample, int scaleMode, int* scaleFactor) { return wFir(here(), state, sample, {scaleMode, scaleFactor}); }

void arkwbFir(FirState* state, const short* src, short* dst, int numIters, int scaleMode, int* scaleFactor) { wbFir(here(), state, src, dst, numIters, {scaleMode, scaleFactor}); }
// clang-format on
