#include "generate/window.hpp"

using namespace ark;

static constexpr Module here{"arkwin"};

// clang-format off
void arksWinBartlett(float* vec, int N)      { winBartlett(here(), vec, N); }
void arkdWinBartlett(double* vec, int N)     { winBartlett(here(), vec, N); }
void arkcWinBartlett(FloatCplx* vec, int N)  { winBartlett(here(), vec, N); }
void arkzWinBartlett(DoubleCplx* vec, int N) { winBartlett(here(), vec, N); }

void arksWinHann(float* vec, int N)      { winCosine(here(), vec, N, hann); }
void arkdWinHann(double* vec, int N)     { winCosine(here(), vec, N, hann); }
void arkcWinHann(FloatCplx* vec, int N)  { winCosine(here(), vec, N, hann); }
void arkzWinHann(DoubleCplx* vec, int N) { winCosine(here(), vec, N, hann); }

void arksWinHamming(float* vec, int N)      { winCosine(here(), vec, N, hamming); }
void arkdWinHamming(double* vec, int N)     { winCosine(here(), vec, N, hamming); }
void arkcWinHamming(FloatCplx* vec, int N)  { winCosine(here(), vec, N, hamming); }
void arkzWinHamming(DoubleCplx* vec, int N) { winCosine(here(), vec, N, hamming); }

void arksWinBlackman(float* vec, int N, float alpha)       { winCosine(here(), vec, N, blackman(alpha)); }
void arkdWinBlackman(double* vec, int N, double alpha)     { winCosine(here(), vec, N, blackman(alpha)); }
void arkcWinBlackman(FloatCplx* vec, int N, float alpha)   { winCosine(here(), vec, N, blackman(alpha)); }
void arkzWinBlackman(DoubleCplx* vec, int N, double alpha) { winCosine(here(), vec, N, blackman(alpha)); }

void arksWinBlackmanStd(float* vec, int N)      { arksWinBlackman(vec, N, -0.16f); }
void arkdWinBlackmanStd(double* vec, int N)     { arkdWinBlackman(vec, N, -0.16); }
void arkcWinBlackmanStd(FloatCplx* vec, int N)  { arkcWinBlackman(vec, N, -0.16f); }
void arkzWinBlackmanStd(DoubleCplx* vec, int N) { arkzWinBlackman(vec, N, -0.16); }

void arksWinBlackmanOpt(float* vec, int N)      { arksWinBlackman(vec, N, float(optimalAlpha(N))); }
void arkdWinBlackmanOpt(double* vec, int N)     { arkdWinBlackman(vec, N, optimalAlpha(N)); }
void arkcWinBlackmanOpt(FloatCplx* vec, int N)  { arkcWinBlackman(vec, N, float(optimalAlpha(N))); }
void arkzWinBlackmanOpt(DoubleCplx* vec, int N) { arkzWinBlackman(vec, N, optimalAlpha(N)); }

void arksWinKaiser(float* vec, int N, float beta)       { winKaiser(here(), vec, N, beta); }
void arkdWinKaiser(double* vec, int N, double beta)     { winKaiser(here(), vec, N, beta); }
void arkcWinKaiser(FloatCplx* vec, int N, float beta)   { winKaiser(here(), vec, N, beta); }
void arkzWinKaiser(DoubleCplx* vec, int N, double beta) { winKaiser(here(), vec, N, beta); }
// clang-format on
