#include "transform/twiddles.hpp"

#include <arkpx/transform.h>

using namespace ark;

static constexpr Module here{"arktwd"};

static TwiddleTables& ofC() { return context().caches.twiddles[0]; }
static TwiddleTables& ofZ() { return context().caches.twiddles[1]; }
static TwiddleTables& ofV() { return context().caches.twiddles[2]; }

// clang-format off
void arkcCalcDftTwdTbl(FloatCplx* tbl, int length) { calcDftTwiddles(here(), tbl, length); }
void arkzCalcDftTwdTbl(DoubleCplx* tbl, int length) { calcDftTwiddles(here(), tbl, length); }
void arkvCalcDftTwdTbl(ShortCplx* tbl, int length) { calcDftTwiddles(here(), tbl, length); }

void arkcCalcFftTwdTbl(FloatCplx* tbl, int order) { calcFftTwiddles(here(), tbl, order); }
void arkzCalcFftTwdTbl(DoubleCplx* tbl, int order) { calcFftTwiddles(here(), tbl, order); }
void arkvCalcFftTwdTbl(ShortCplx* tbl, int order) { calcFftTwiddles(here(), tbl, order); }

FloatCplx* arkcGetDftTwdTbl(int length) { return getDftTwiddles<FloatCplx>(here(), ofC(), length); }
DoubleCplx* arkzGetDftTwdTbl(int length) { return getDftTwiddles<DoubleCplx>(here(), ofZ(), length); }
ShortCplx* arkvGetDftTwdTbl(int length) { return getDftTwiddles<ShortCplx>(here(), ofV(), length); }

FloatCplx* arkcGetFftTwdTbl(int order) { return getFftTwiddles<FloatCplx>(here(), ofC(), order); }
DoubleCplx* arkzGetFftTwdTbl(int order) { return getFftTwiddles<DoubleCplx>(here(), ofZ(), order); }
ShortCplx* arkvGetFftTwdTbl(int order) { return getFftTwiddles<ShortCplx>(here(), ofV(), order); }
// clang-format on

void arkcFreeTwdTbls(void)
{
    Caches& caches = context().caches;
    caches.twiddles[0].release();
    caches.transform[0].release();
    caches.working.release();
}

void arkzFreeTwdTbls(void)
{
    Caches& caches = context().caches;
    caches.twiddles[1].release();
    caches.transform[1].release();
}

void arkvFreeTwdTbls(void) { context().caches.twiddles[2].release(); }
