#include "transform/goertzel.hpp"

using namespace ark;

static constexpr Module here{"arkgrtzl"};

// clang-format off
void arksGoertzInit(float freq, ArksGoertzState* state)  { goertzelInit<float>(here(), freq, state); }
void arkdGoertzInit(double freq, ArkdGoertzState* state) { goertzelInit<double>(here(), freq, state); }
void arkcGoertzInit(float freq, ArksGoertzState* state)  { goertzelInit<float>(here(), freq, state); }
void arkzGoertzInit(double freq, ArkdGoertzState* state) { goertzelInit<double>(here(), freq, state); }

void arksGoertzReset(ArksGoertzState* state) { goertzelReset<float>(here(), state); }
void arkdGoertzReset(ArkdGoertzState* state) { goertzelReset<double>(here(), state); }
void arkcGoertzReset(ArksGoertzState* state) { goertzelReset<float>(here(), state); }
void arkzGoertzReset(ArkdGoertzState* state) { goertzelReset<double>(here(), state); }

FloatCplx  arksGoertz(ArksGoertzState* state, float sample)      { return goertzel<float>(here(), state, sample); }
DoubleCplx arkdGoertz(ArkdGoertzState* state, double sample)     { return goertzel<double>(here(), state, sample); }
FloatCplx  arkcGoertz(ArksGoertzState* state, FloatCplx sample)  { return goertzel<float>(here(), state, sample); }
DoubleCplx arkzGoertz(ArkdGoertzState* state, DoubleCplx sample) { return goertzel<double>(here(), state, sample); }

FloatCplx  arksbGoertz(ArksGoertzState* state, const float* samps, int len)      { return goertzelBlock<float>(here(), state, samps, len); }
DoubleCplx arkdbGoertz(ArkdGoertzState* state, const double* samps, int len)     { return goertzelBlock<double>(here(), state, samps, len); }
FloatCplx  arkcbGoertz(ArksGoertzState* state, const FloatCplx* samps, int len)  { return goertzelBlock<float>(here(), state, samps, len); }
DoubleCplx arkzbGoertz(ArkdGoertzState* state, const DoubleCplx* samps, int len) { return goertzelBlock<double>(here(), state, samps, len); }
// clang-format on
