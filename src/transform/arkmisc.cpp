#include "transform/bitreversal.hpp"

#include <arkpx/transform.h>

using namespace ark;

static constexpr Module here{"arkmisc"};

int arkBitRev(int a, int order)
{
    if (!allGood(here(), {{order < 0, "order<0"}, {order >= orders, "order>31"}}))
        return 0;
    return int(reversedBits(std::uint32_t(a), order));
}

void arkCalcBitRevTbl(int* tbl, int order)
{
    if (allGood(here(), {{order < 0, "order<0"}, {order >= orders, "order>31"}, {!tbl, "tbl==0"}}))
        fillBitReversal(tbl, order);
}

int* arkGetBitRevTbl(int order)
{
    const Where at = here();
    if (!allGood(at, {{order < 0, "order<0"}, {order >= orders, "order>31"}}))
        return nullptr;
    int* const table = context().caches.bitReversal[order].table<int>([=] { return std::size_t{1} << order; },
                                                                      [=](int* tbl) { fillBitReversal(tbl, order); });
    if (!table)
        outOfMemory(at, "NULL Pointer");
    return table;
}

void arkFreeBitRevTbls(void) { clear(context().caches.bitReversal); }

// clang-format off
void arksbBitRev1(float* vec, int order)      { bitRev1(here(), vec, order); }
void arkdbBitRev1(double* vec, int order)     { bitRev1(here(), vec, order); }
void arkcbBitRev1(FloatCplx* vec, int order)  { bitRev1(here(), vec, order); }
void arkzbBitRev1(DoubleCplx* vec, int order) { bitRev1(here(), vec, order); }
void arkwbBitRev1(short* vec, int order)      { bitRev1(here(), vec, order); }
void arkvbBitRev1(ShortCplx* vec, int order)  { bitRev1(here(), vec, order); }
void arkibBitRev1(int* vec, int order)        { bitRev1(here(), vec, order); }
void arkjbBitRev1(IntCplx* vec, int order)    { bitRev1(here(), vec, order); }

void arksbBitRev2(const float* src, float* dst, int order)           { bitRev2(here(), src, dst, order); }
void arkdbBitRev2(const double* src, double* dst, int order)         { bitRev2(here(), src, dst, order); }
void arkcbBitRev2(const FloatCplx* src, FloatCplx* dst, int order)   { bitRev2(here(), src, dst, order); }
void arkzbBitRev2(const DoubleCplx* src, DoubleCplx* dst, int order) { bitRev2(here(), src, dst, order); }
void arkwbBitRev2(const short* src, short* dst, int order)           { bitRev2(here(), src, dst, order); }
void arkvbBitRev2(const ShortCplx* src, ShortCplx* dst, int order)   { bitRev2(here(), src, dst, order); }
// clang-format on
