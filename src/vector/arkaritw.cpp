#include "vector/arkaritw.hpp"

#include <arkpx/vector.h>

using namespace ark;

static constexpr Module here{"arkaritw"};

// The single-value operations are the vector operations on one element, with their reports.
template <auto vectorOperation>
static ShortCplx ofOne(Where at, ShortCplx a, ShortCplx b, int scaleMode, int* scaleFactor)
{
    ShortCplx result{0, 0};
    vectorOperation(&a, &b, &result, 1, scaleMode, scaleFactor);
    if (!statusGood())
        backtrace(at);
    return result;
}

ShortCplx arkvAdd(ShortCplx a, ShortCplx b, int scaleMode, int* scaleFactor)
{
    return ofOne<arkvbAdd3>(here(), a, b, scaleMode, scaleFactor);
}

ShortCplx arkvSub(ShortCplx a, ShortCplx b, int scaleMode, int* scaleFactor)
{
    return ofOne<arkvbSub3>(here(), a, b, scaleMode, scaleFactor);
}

ShortCplx arkvMpy(ShortCplx a, ShortCplx b, int scaleMode, int* scaleFactor)
{
    return ofOne<arkvbMpy3>(here(), a, b, scaleMode, scaleFactor);
}

ShortCplx arkvDiv(ShortCplx a, ShortCplx b)
{
    if (b.re == 0 && b.im == 0) {
        badArgument(here(), "(b.re==0)&&(b.im==0)");
        return {0, 0};
    }
    // Numerators and denominator are exact, so that exact quotients come out exact.
    const double norm = double(b.re) * b.re + double(b.im) * b.im;
    const auto part = [=](double numerator) { return short(std::clamp(numerator / norm, -32768.0, 32767.0)); };
    return {part(double(a.re) * b.re + double(a.im) * b.im), part(double(a.im) * b.re - double(a.re) * b.im)};
}

ShortCplx arkvConj(ShortCplx a) { return {a.re, short(-a.im)}; }

ShortCplx arkvSet(short re, short im) { return {re, im}; }

// clang-format off
void arkwbZero(short* dst, int n)     { zero(here(), dst, n); }
void arkvbZero(ShortCplx* dst, int n) { zero(here(), dst, n); }

void arkwbSet(short val, short* dst, int n)         { set(here(), val, dst, n); }
void arkvbSet(ShortCplx val, ShortCplx* dst, int n) { set(here(), val, dst, n); }

void arkwbCopy(const short* src, short* dst, int n)         { copy(here(), src, dst, n); }
void arkvbCopy(const ShortCplx* src, ShortCplx* dst, int n) { copy(here(), src, dst, n); }

void arkwbAdd1(short val, short* srcDst, int n, int scaleMode, int* scaleFactor)         { form1<ShortAdd>(here(), val, srcDst, n, scaleMode, scaleFactor); }
void arkvbAdd1(ShortCplx val, ShortCplx* srcDst, int n, int scaleMode, int* scaleFactor) { form1<ShortAdd>(here(), val, srcDst, n, scaleMode, scaleFactor); }

void arkwbAdd2(const short* src, short* srcDst, int n, int scaleMode, int* scaleFactor)         { form2<ShortAdd>(here(), src, srcDst, n, scaleMode, scaleFactor); }
void arkvbAdd2(const ShortCplx* src, ShortCplx* srcDst, int n, int scaleMode, int* scaleFactor) { form2<ShortAdd>(here(), src, srcDst, n, scaleMode, scaleFactor); }

void arkwbAdd3(const short* srcA, const short* srcB, short* dst, int n, int scaleMode, int* scaleFactor)             { form3<ShortAdd>(here(), srcA, srcB, dst, n, scaleMode, scaleFactor); }
void arkvbAdd3(const ShortCplx* srcA, const ShortCplx* srcB, ShortCplx* dst, int n, int scaleMode, int* scaleFactor) { form3<ShortAdd>(here(), srcA, srcB, dst, n, scaleMode, scaleFactor); }

void arkwbSub1(short val, short* srcDst, int n, int scaleMode, int* scaleFactor)         { form1<ShortSub>(here(), val, srcDst, n, scaleMode, scaleFactor); }
void arkvbSub1(ShortCplx val, ShortCplx* srcDst, int n, int scaleMode, int* scaleFactor) { form1<ShortSub>(here(), val, srcDst, n, scaleMode, scaleFactor); }

void arkwbSub2(const short* src, short* srcDst, int n, int scaleMode, int* scaleFactor)         { form2<ShortSub>(here(), src, srcDst, n, scaleMode, scaleFactor); }
void arkvbSub2(const ShortCplx* src, ShortCplx* srcDst, int n, int scaleMode, int* scaleFactor) { form2<ShortSub>(here(), src, srcDst, n, scaleMode, scaleFactor); }

void arkwbSub3(const short* srcA, const short* srcB, short* dst, int n, int scaleMode, int* scaleFactor)             { form3<ShortSub>(here(), srcA, srcB, dst, n, scaleMode, scaleFactor); }
void arkvbSub3(const ShortCplx* srcA, const ShortCplx* srcB, ShortCplx* dst, int n, int scaleMode, int* scaleFactor) { form3<ShortSub>(here(), srcA, srcB, dst, n, scaleMode, scaleFactor); }

void arkwbMpy1(short val, short* srcDst, int n, int scaleMode, int* scaleFactor)         { form1<ShortMpy>(here(), val, srcDst, n, scaleMode, scaleFactor); }
void arkvbMpy1(ShortCplx val, ShortCplx* srcDst, int n, int scaleMode, int* scaleFactor) { form1<ShortMpy>(here(), val, srcDst, n, scaleMode, scaleFactor); }

void arkwbMpy2(const short* src, short* srcDst, int n, int scaleMode, int* scaleFactor)         { form2<ShortMpy>(here(), src, srcDst, n, scaleMode, scaleFactor); }
void arkvbMpy2(const ShortCplx* src, ShortCplx* srcDst, int n, int scaleMode, int* scaleFactor) { form2<ShortMpy>(here(), src, srcDst, n, scaleMode, scaleFactor); }

void arkwbMpy3(const short* srcA, const short* srcB, short* dst, int n, int scaleMode, int* scaleFactor)             { form3<ShortMpy>(here(), srcA, srcB, dst, n, scaleMode, scaleFactor); }
void arkvbMpy3(const ShortCplx* srcA, const ShortCplx* srcB, ShortCplx* dst, int n, int scaleMode, int* scaleFactor) { form3<ShortMpy>(here(), srcA, srcB, dst, n, scaleMode, scaleFactor); }

void arkvbConj1(ShortCplx* vec, int n) { conj1(here(), vec, n); }

void arkvbConj2(const ShortCplx* src, ShortCplx* dst, int n) { conj2(here(), src, dst, n); }

void arkvbConjFlip2(const ShortCplx* src, ShortCplx* dst, int n) { conjFlip2(here(), src, dst, n); }

void arkvbConjExtend1(ShortCplx* vec, int n) { conjExtend1(here(), vec, n); }

void arkvbConjExtend2(const ShortCplx* src, ShortCplx* dst, int n) { conjExtend2(here(), src, dst, n); }
// clang-format on
