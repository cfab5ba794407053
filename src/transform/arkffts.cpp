#include "transform/realfft.hpp"

using namespace ark;

static constexpr Module here{"arkffts"};

// clang-format off
void arkcFft(FloatCplx* samps, int order, int flags) { fft(here(), samps, order, flags); }
void arkcFftNip(const FloatCplx* inSamps, FloatCplx* outSamps, int order, int flags) { fft(here(), inSamps, outSamps, order, flags); }

void arkcrFft(float* reSamps, float* imSamps, int order, int flags) { fftOfParts(here(), reSamps, imSamps, order, flags); }
void arkcrFftNip(const float* reInSamps, const float* imInSamps, float* reOutSamps, float* imOutSamps, int order, int flags) { fftOfParts(here(), reInSamps, imInSamps, reOutSamps, imOutSamps, order, flags); }

void arksRealFft(float* samps, int order, int flags) { ccsFft<toSpectrum>(here(), samps, order, flags); }
void arksCcsFft (float* samps, int order, int flags) { ccsFft<toReal>    (here(), samps, order, flags); }

void arksRealFftNip(const float* inSamps, FloatCplx* outSamps, int order, int flags) { ccsFft<toSpectrum>(here(), inSamps, outSamps, order, flags); }
void arksCcsFftNip (const FloatCplx* inSamps, float* outSamps, int order, int flags) { ccsFft<toReal>    (here(), inSamps, outSamps, order, flags); }

void arksRealFftl(float* samps, int order, int flags) { packedFft<toSpectrum>(here(), samps, order, flags); }
void arksCcsFftl (float* samps, int order, int flags) { packedFft<toReal>    (here(), samps, order, flags); }

void arksRealFftlNip(const float* inSamps, float* outSamps, int order, int flags) { packedFft<toSpectrum>(here(), inSamps, outSamps, order, flags); }
void arksCcsFftlNip (const float* inSamps, float* outSamps, int order, int flags) { packedFft<toReal>    (here(), inSamps, outSamps, order, flags); }

void arksReal2Fft(float* xSamps, float* ySamps, int order, int flags) { twoSignals<toSpectrum>(here(), xSamps, ySamps, order, flags); }
void arksCcs2Fft (float* xSamps, float* ySamps, int order, int flags) { twoSignals<toReal>    (here(), xSamps, ySamps, order, flags); }

void arksReal2FftNip(const float* xInSamps, const float* yInSamps, FloatCplx* xOutSamps, FloatCplx* yOutSamps, int order, int flags) { twoSignals<toSpectrum>(here(), {"arksReal2Fft", "out arksReal2Fft"}, xInSamps, yInSamps, xOutSamps, yOutSamps, order, flags); }
void arksCcs2FftNip (const FloatCplx* xInSamps, const FloatCplx* yInSamps, float* xOutSamps, float* yOutSamps, int order, int flags) { twoSignals<toReal>(here(), {"arkcrFft", "out arkcrFft"}, xInSamps, yInSamps, xOutSamps, yOutSamps, order, flags); }

void arksMpyRCPack2(const float* src, float* dst, int order) { multiplySpectra2(here(), packLayout, src, dst, order); }
void arksMpyRCPerm2(const float* src, float* dst, int order) { multiplySpectra2(here(), permLayout, src, dst, order); }

void arksMpyRCPack3(const float* srcA, const float* srcB, float* dst, int order) { multiplySpectra3(here(), packLayout, srcA, srcB, dst, order); }
void arksMpyRCPerm3(const float* srcA, const float* srcB, float* dst, int order) { multiplySpectra3(here(), permLayout, srcA, srcB, dst, order); }
// clang-format on
