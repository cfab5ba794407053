#include "transform/goertzel.hpp"

using namespace ark;

static constexpr Module here{"arkgrtzw"};

// clang-format off
void arkwGoertzInit(float freq, ArksGoertzState* state) { goertzelInit<float>(here(), freq, state); }
void arkvGoertzInit(float freq, ArksGoertzState* state) { goertzelInit<float>(here(), freq, state); }

void arkwGoertzReset(ArksGoertzState* state) { goertzelReset<float>(here(), state); }
void arkvGoertzReset(ArksGoertzState* state) { goertzelReset<float>(here(), state); }

ShortCplx arkwGoertz(ArksGoertzState* state, short sample, int scaleMode, int* scaleFactor)     { return goertzel(here(), state, sample, scaleMode, scaleFactor); }
ShortCplx arkvGoertz(ArksGoertzState* state, ShortCplx sample, int scaleMode, int* scaleFactor) { return goertzel(here(), state, sample, scaleMode, scaleFactor); }

ShortCplx arkwbGoertz(ArksGoertzState* state, const short* samps, int len, int scaleMode, int* scaleFactor)     { return goertzelBlock(here(), state, samps, len, scaleMode, scaleFactor); }
ShortCplx arkvbGoertz(ArksGoertzState* state, const ShortCplx* samps, int len, int scaleMode, int* scaleFactor) { return goertzelBlock(here(), state, samps, len, scaleMode, scaleFactor); }
// clang-format on
