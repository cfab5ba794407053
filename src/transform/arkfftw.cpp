#include "transform/shortfft.hpp"

using namespace ark;

static constexpr Module here{"arkfftw"};

// clang-format off
void arkvFft(ShortCplx* samps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform(here(), shortFft, samps, order, flags, scaleMode, scaleFactor); }
void arkvFftNip(const ShortCplx* inSamps, ShortCplx* outSamps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform(here(), shortFft, inSamps, outSamps, order, flags, scaleMode, scaleFactor); }

void arkvrFft(short* reSamps, short* imSamps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform2(here(), shortFftOfParts, partNames, reSamps, imSamps, order, flags, scaleMode, scaleFactor); }
void arkvrFftNip(const short* reInSamps, const short* imInSamps, short* reOutSamps, short* imOutSamps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform2(here(), shortFftOfParts, partNames, reInSamps, imInSamps, reOutSamps, imOutSamps, order, flags, scaleMode, scaleFactor); }

void arkwRealFft (short* samps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform(here(), shortRealFft,  samps, order, flags, scaleMode, scaleFactor); }
void arkwCcsFft  (short* samps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform(here(), shortCcsFft,   samps, order, flags, scaleMode, scaleFactor); }
void arkwRealFftl(short* samps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform(here(), shortRealFftl, samps, order, flags, scaleMode, scaleFactor); }
void arkwCcsFftl (short* samps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform(here(), shortCcsFftl,  samps, order, flags, scaleMode, scaleFactor); }

void arkwRealFftNip (const short* inSamps, ShortCplx* outSamps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform(here(), shortRealFft,  inSamps, outSamps, order, flags, scaleMode, scaleFactor); }
void arkwCcsFftNip  (const ShortCplx* inSamps, short* outSamps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform(here(), shortCcsFft,   inSamps, outSamps, order, flags, scaleMode, scaleFactor); }
void arkwRealFftlNip(const short* inSamps, short* outSamps, int order, int flags, int scaleMode, int* scaleFactor)     { shortTransform(here(), shortRealFftl, inSamps, outSamps, order, flags, scaleMode, scaleFactor); }
void arkwCcsFftlNip (const short* inSamps, short* outSamps, int order, int flags, int scaleMode, int* scaleFactor)     { shortTransform(here(), shortCcsFftl,  inSamps, outSamps, order, flags, scaleMode, scaleFactor); }

void arkwReal2Fft(short* xSamps, short* ySamps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform2(here(), shortReal2Fft, signalNames, xSamps, ySamps, order, flags, scaleMode, scaleFactor); }
void arkwCcs2Fft (short* xSamps, short* ySamps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform2(here(), shortCcs2Fft,  signalNames, xSamps, ySamps, order, flags, scaleMode, scaleFactor); }

void arkwReal2FftNip(const short* xInSamps, const short* yInSamps, ShortCplx* xOutSamps, ShortCplx* yOutSamps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform2(here(), shortReal2Fft, signalNames, xInSamps, yInSamps, xOutSamps, yOutSamps, order, flags, scaleMode, scaleFactor); }
void arkwCcs2FftNip (const ShortCplx* xInSamps, const ShortCplx* yInSamps, short* xOutSamps, short* yOutSamps, int order, int flags, int scaleMode, int* scaleFactor) { shortTransform2(here(), shortCcs2Fft,  signalNames, xInSamps, yInSamps, xOutSamps, yOutSamps, order, flags, scaleMode, scaleFactor); }

void arkwMpyRCPack2(const short* src, short* dst, int order, int scaleMode, int* scaleFactor) { multiplyShortSpectra2(here(), packLayout, src, dst, order, scaleMode, scaleFactor); }
void arkwMpyRCPerm2(const short* src, short* dst, int order, int scaleMode, int* scaleFactor) { multiplyShortSpectra2(here(), permLayout, src, dst, order, scaleMode, scaleFactor); }

void arkwMpyRCPack3(const short* srcA, const short* srcB, short* dst, int order, int scaleMode, int* scaleFactor) { multiplyShortSpectra3(here(), packLayout, srcA, srcB, dst, order, scaleMode, scaleFactor); }
void arkwMpyRCPerm3(const short* srcA, const short* srcB, short* dst, int order, int scaleMode, int* scaleFactor) { multiplyShortSpectra3(here(), permLayout, srcA, srcB, dst, order, scaleMode, scaleFactor); }
// clang-format on
