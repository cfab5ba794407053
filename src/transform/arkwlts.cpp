#include "transform/wavelet.hpp"

using namespace ark;

static constexpr Module here{"arkwlts"};

// clang-format off
void arksWtInit(int par1, int par2, int dataOrder, int level, wtState* state, int wtType) { wtInit<float>(here(), {wtType, par1, par2}, dataOrder, level, state); }
void arkdWtInit(int par1, int par2, int dataOrder, int level, wtState* state, int wtType) { wtInit<double>(here(), {wtType, par1, par2}, dataOrder, level, state); }
void arkwWtInit(int par1, int par2, int dataOrder, int level, wtState* state, int wtType) { wtInit<float>(here(), {wtType, par1, par2}, dataOrder, level, state); }

void arksWtSetState(wtState* state, int wtType, int par1, int par2, int dataOrder, int level, const float* Ftaps[4], const int Flen[4], const int Fofs[4])
    { wtSetState(here(), state, {wtType, par1, par2}, dataOrder, level, Ftaps, Flen, Fofs, arksWtInit, "out arksWtInit"); }
void arkdWtSetState(wtState* state, int wtType, int par1, int par2, int dataOrder, int level, const double* Ftaps[4], const int Flen[4], const int Fofs[4])
    { wtSetState(here(), state, {wtType, par1, par2}, dataOrder, level, Ftaps, Flen, Fofs, arkdWtInit, "out arkdWtInit"); }
void arkwWtSetState(wtState* state, int wtType, int par1, int par2, int dataOrder, int level, const float* Ftaps[4], const int Flen[4], const int Fofs[4])
    { wtSetState(here(), state, {wtType, par1, par2}, dataOrder, level, Ftaps, Flen, Fofs, arkwWtInit, "out arkwWtInit"); }

void arksWtGetState(wtState* state, int* wtType, int* par1, int* par2, int* dataOrder, int* level, float* Ftaps[4], int Flen[4], int Fofs[4])
    { wtGetState(here(), state, wtType, par1, par2, dataOrder, level, Ftaps, Flen, Fofs); }
void arkdWtGetState(wtState* state, int* wtType, int* par1, int* par2, int* dataOrder, int* level, double* Ftaps[4], int Flen[4], int Fofs[4])
    { wtGetState(here(), state, wtType, par1, par2, dataOrder, level, Ftaps, Flen, Fofs); }
void arkwWtGetState(wtState* state, int* wtType, int* par1, int* par2, int* dataOrder, int* level, float* Ftaps[4], int Flen[4], int Fofs[4])
    { wtGetState(here(), state, wtType, par1, par2, dataOrder, level, Ftaps, Flen, Fofs); }

void arksWtDecompose(wtState* state, const float* src, float* dst)     { wtTransform(here(), state, src, dst, analyseAll<float>); }
void arkdWtDecompose(wtState* state, const double* src, double* dst)   { wtTransform(here(), state, src, dst, analyseAll<double>); }
void arkwWtDecompose(wtState* state, const short* src, short* dst)     { wtShortTransform(here(), state, src, dst, analyseAll<float>); }

void arksWtReconstruct(wtState* state, const float* src, float* dst)   { wtTransform(here(), state, src, dst, synthesiseAll<float>); }
void arkdWtReconstruct(wtState* state, const double* src, double* dst) { wtTransform(here(), state, src, dst, synthesiseAll<double>); }
void arkwWtReconstruct(wtState* state, const short* src, short* dst)   { wtShortTransform(here(), state, src, dst, synthesiseAll<float>); }

void arkWtFree(wtState* state) { wtFree(here(), state); }
// clang-format on
