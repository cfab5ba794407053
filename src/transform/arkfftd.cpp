#include "transform/realfft.hpp"

using namespace ark;

static constexpr Module here{"arkfftd"};

// clang-format off
void arkzFft(DoubleCplx* samps, int order, int flags) { fft(here(), samps, order, flags); }
void arkzFftNip(const DoubleCplx* inSamps, DoubleCplx* outSamps, int order, int flags) { fft(here(), inSamps, outSamps, order, flags); }

void arkzrFft(double* reSamps, double* imSamps, int order, int flags) { fftOfParts(here(), reSamps, imSamps, order, flags); }
void arkzrFftNip(const double* reInSamps, const double* imInSamps, double* reOutSamps, double* imOutSamps, int order, int flags) { fftOfParts(here(), reInSamps, imInSamps, reOutSamps, imOutSamps, order, flags); }

void arkdRealFft(double* samps, int order, int flags) { ccsFft<toSpectrum>(here(), samps, order, flags); }
void arkdCcsFft (double* samps, int order, int flags) { ccsFft<toReal>    (here(), samps, order, flags); }

void arkdRealFftNip(const double* inSamps, DoubleCplx* outSamps, int order, int flags) { ccsFft<toSpectrum>(here(), inSamps, outSamps, order, flags); }
void arkdCcsFftNip (const DoubleCplx* inSamps, double* outSamps, int order, int flags) { ccsFft<toReal>    (here(), inSamps, outSamps, order, flags); }

void arkdRealFftl(double* samps, int order, int flags) { packedFft<toSpectrum>(here(), samps, order, flags); }
void arkdCcsFftl (double* samps, int order, int flags) { packedFft<toReal>    (here(), samps, order, flags); }

void arkdRealFftlNip(const double* inSamps, double* outSamps, int order, int flags) { packedFft<toSpectrum>(here(), inSamps, outSamps, order, flags); }
void arkdCcsFftlNip (const double* inSamps, double* outSamps, int order, int flags) { packedFft<toReal>    (here(), inSamps, outSamps, order, flags); }

void arkdReal2Fft(double* xSamps, double* ySamps, int order, int flags) { twoSignals<toSpectrum>(here(), xSamps, ySamps, order, flags); }
void arkdCcs2Fft (double* xSamps, double* ySamps, int order, int flags) { twoSignals<toReal>    (here(), xSamps, ySamps, order, flags); }

void arkdReal2FftNip(const double* xInSamps, const double* yInSamps, DoubleCplx* xOutSamps, DoubleCplx* yOutSamps, int order, int flags) { twoSignals<toSpectrum>(here(), {"arkdReal2Fft", "out arkdReal2Fft"}, xInSamps, yInSamps, xOutSamps, yOutSamps, order, flags); }
void arkdCcs2FftNip (const DoubleCplx* xInSamps, const DoubleCplx* yInSamps, double* xOutSamps, double* yOutSamps, int order, int flags) { twoSignals<toReal>(here(), {"arkzrFft", "out arkzrFft"}, xInSamps, yInSamps, xOutSamps, yOutSamps, order, flags); }

void arkdMpyRCPack2(const double* src, double* dst, int order) { multiplySpectra2(here(), packLayout, src, dst, order); }
void arkdMpyRCPerm2(const double* src, double* dst, int order) { multiplySpectra2(here(), permLayout, src, dst, order); }

void arkdMpyRCPack3(const double* srcA, const double* srcB, double* dst, int order) { multiplySpectra3(here(), packLayout, srcA, srcB, dst, order); }
void arkdMpyRCPerm3(const double* srcA, const double* srcB, double* dst, int order) { multiplySpectra3(here(), permLayout, srcA, srcB, dst, order); }
// clang-format on
