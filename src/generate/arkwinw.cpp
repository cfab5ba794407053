#include "generate/window.hpp"

using namespace ark;

static constexpr Module here{"arkwinw"};

// clang-format off
void arkwWinBartlett(short* vec, int N)     { winBartlett(here(), vec, N); }
void arkvWinBartlett(ShortCplx* vec, int N) { winBartlett(here(), vec, N); }

void arkwWinHann(short* vec, int N)     { winCosine(here(), vec, N, hann); }
void arkvWinHann(ShortCplx* vec, int N) { winCosine(here(), vec, N, hann); }

void arkwWinHamming(short* vec, int N)     { winCosine(here(), vec, N, hamming); }
void arkvWinHamming(ShortCplx* vec, int N) { winCosine(here(), vec, N, hamming); }

void arkwWinBlackman(short* vec, int N, float alpha)     { winCosine(here(), vec, N, blackman(alpha)); }
void arkvWinBlackman(ShortCplx* vec, int N, float alpha) { winCosine(here(), vec, N, blackman(alpha)); }

void arkwWinBlackmanStd(short* vec, int N)     { arkwWinBlackman(vec, N, -0.16f); }
void arkvWinBlackmanStd(ShortCplx* vec, int N) { arkvWinBlackman(vec, N, -0.16f); }

void arkwWinBlackmanOpt(short* vec, int N)     { arkwWinBlackman(vec, N, float(optimalAlpha(N))); }
void arkvWinBlackmanOpt(ShortCplx* vec, int N) { arkvWinBlackman(vec, N, float(optimalAlpha(N))); }

void arkwWinKaiser(short* vec, int N, float beta)     { winKaiser(here(), vec, N, beta); }
void arkvWinKaiser(ShortCplx* vec, int N, float beta) { winKaiser(here(), vec, N, beta); }
// clang-format on
