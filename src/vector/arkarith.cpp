#include "vector/arkarith.hpp"

#include <arkpx/vector.h>

using namespace ark;

static constexpr Module here{"arkarith"};

// clang-format off
FloatCplx  arkcAdd(FloatCplx a, FloatCplx b)   { return {a.re + b.re, a.im + b.im}; }
DoubleCplx arkzAdd(DoubleCplx a, DoubleCplx b) { return {a.re + b.re, a.im + b.im}; }

FloatCplx  arkcSub(FloatCplx a, FloatCplx b)   { return {a.re - b.re, a.im - b.im}; }
DoubleCplx arkzSub(DoubleCplx a, DoubleCplx b) { return {a.re - b.re, a.im - b.im}; }

FloatCplx  arkcMpy(FloatCplx a, FloatCplx b)   { return product(a, b); }
DoubleCplx arkzMpy(DoubleCplx a, DoubleCplx b) { return product(a, b); }

FloatCplx  arkcDiv(FloatCplx a, FloatCplx b)   { return quotient(here(), a, b); }
DoubleCplx arkzDiv(DoubleCplx a, DoubleCplx b) { return quotient(here(), a, b); }

FloatCplx  arkcConj(FloatCplx a)  { return {a.re, -a.im}; }
DoubleCplx arkzConj(DoubleCplx a) { return {a.re, -a.im}; }

FloatCplx  arkcSet(float re, float im)   { return {re, im}; }
DoubleCplx arkzSet(double re, double im) { return {re, im}; }
// clang-format on

// Zero, Set and Copy move bits; the forms of Add, Sub and Mpy and the conjugations run kernels.
// clang-format off
void arksbZero(float* dst, int n)      { zero(here(), dst, n); }
void arkdbZero(double* dst, int n)     { zero(here(), dst, n); }
void arkcbZero(FloatCplx* dst, int n)  { zero(here(), dst, n); }
void arkzbZero(DoubleCplx* dst, int n) { zero(here(), dst, n); }

void arksbSet(float val, float* dst, int n)           { set(here(), val, dst, n); }
void arkdbSet(double val, double* dst, int n)         { set(here(), val, dst, n); }
void arkcbSet(FloatCplx val, FloatCplx* dst, int n)   { set(here(), val, dst, n); }
void arkzbSet(DoubleCplx val, DoubleCplx* dst, int n) { set(here(), val, dst, n); }

void arksbCopy(const float* src, float* dst, int n)           { copy(here(), src, dst, n); }
void arkdbCopy(const double* src, double* dst, int n)         { copy(here(), src, dst, n); }
void arkcbCopy(const FloatCplx* src, FloatCplx* dst, int n)   { copy(here(), src, dst, n); }
void arkzbCopy(const DoubleCplx* src, DoubleCplx* dst, int n) { copy(here(), src, dst, n); }

void arksbAdd1(float val, float* srcDst, int n)           { form1<Add>(here(), val, srcDst, n); }
void arkdbAdd1(double val, double* srcDst, int n)         { form1<Add>(here(), val, srcDst, n); }
void arkcbAdd1(FloatCplx val, FloatCplx* srcDst, int n)   { form1<Add>(here(), val, srcDst, n); }
void arkzbAdd1(DoubleCplx val, DoubleCplx* srcDst, int n) { form1<Add>(here(), val, srcDst, n); }

void arksbAdd2(const float* src, float* srcDst, int n)           { form2<Add>(here(), src, srcDst, n); }
void arkdbAdd2(const double* src, double* srcDst, int n)         { form2<Add>(here(), src, srcDst, n); }
void arkcbAdd2(const FloatCplx* src, FloatCplx* srcDst, int n)   { form2<Add>(here(), src, srcDst, n); }
void arkzbAdd2(const DoubleCplx* src, DoubleCplx* srcDst, int n) { form2<Add>(here(), src, srcDst, n); }

void arksbAdd3(const float* srcA, const float* srcB, float* dst, int n)                { form3<Add>(here(), srcA, srcB, dst, n); }
void arkdbAdd3(const double* srcA, const double* srcB, double* dst, int n)             { form3<Add>(here(), srcA, srcB, dst, n); }
void arkcbAdd3(const FloatCplx* srcA, const FloatCplx* srcB, FloatCplx* dst, int n)    { form3<Add>(here(), srcA, srcB, dst, n); }
void arkzbAdd3(const DoubleCplx* srcA, const DoubleCplx* srcB, DoubleCplx* dst, int n) { form3<Add>(here(), srcA, srcB, dst, n); }

void arksbSub1(float val, float* srcDst, int n)           { form1<Sub>(here(), val, srcDst, n); }
void arkdbSub1(double val, double* srcDst, int n)         { form1<Sub>(here(), val, srcDst, n); }
void arkcbSub1(FloatCplx val, FloatCplx* srcDst, int n)   { form1<Sub>(here(), val, srcDst, n); }
void arkzbSub1(DoubleCplx val, DoubleCplx* srcDst, int n) { form1<Sub>(here(), val, srcDst, n); }

void arksbSub2(const float* src, float* srcDst, int n)           { form2<Sub>(here(), src, srcDst, n); }
void arkdbSub2(const double* src, double* srcDst, int n)         { form2<Sub>(here(), src, srcDst, n); }
void arkcbSub2(const FloatCplx* src, FloatCplx* srcDst, int n)   { form2<Sub>(here(), src, srcDst, n); }
void arkzbSub2(const DoubleCplx* src, DoubleCplx* srcDst, int n) { form2<Sub>(here(), src, srcDst, n); }

void arksbSub3(const float* srcA, const float* srcB, float* dst, int n)                { form3<Sub>(here(), srcA, srcB, dst, n); }
void arkdbSub3(const double* srcA, const double* srcB, double* dst, int n)             { form3<Sub>(here(), srcA, srcB, dst, n); }
void arkcbSub3(const FloatCplx* srcA, const FloatCplx* srcB, FloatCplx* dst, int n)    { form3<Sub>(here(), srcA, srcB, dst, n); }
void arkzbSub3(const DoubleCplx* srcA, const DoubleCplx* srcB, DoubleCplx* dst, int n) { form3<Sub>(here(), srcA, srcB, dst, n); }

void arksbMpy1(float val, float* srcDst, int n)           { form1<Mpy>(here(), val, srcDst, n); }
void arkdbMpy1(double val, double* srcDst, int n)         { form1<Mpy>(here(), val, srcDst, n); }
void arkcbMpy1(FloatCplx val, FloatCplx* srcDst, int n)   { form1<Mpy>(here(), val, srcDst, n); }
void arkzbMpy1(DoubleCplx val, DoubleCplx* srcDst, int n) { form1<Mpy>(here(), val, srcDst, n); }

void arksbMpy2(const float* src, float* srcDst, int n)           { form2<Mpy>(here(), src, srcDst, n); }
void arkdbMpy2(const double* src, double* srcDst, int n)         { form2<Mpy>(here(), src, srcDst, n); }
void arkcbMpy2(const FloatCplx* src, FloatCplx* srcDst, int n)   { form2<Mpy>(here(), src, srcDst, n); }
void arkzbMpy2(const DoubleCplx* src, DoubleCplx* srcDst, int n) { form2<Mpy>(here(), src, srcDst, n); }

void arksbMpy3(const float* srcA, const float* srcB, float* dst, int n)                { form3<Mpy>(here(), srcA, srcB, dst, n); }
void arkdbMpy3(const double* srcA, const double* srcB, double* dst, int n)             { form3<Mpy>(here(), srcA, srcB, dst, n); }
void arkcbMpy3(const FloatCplx* srcA, const FloatCplx* srcB, FloatCplx* dst, int n)    { form3<Mpy>(here(), srcA, srcB, dst, n); }
void arkzbMpy3(const DoubleCplx* srcA, const DoubleCplx* srcB, DoubleCplx* dst, int n) { form3<Mpy>(here(), srcA, srcB, dst, n); }

void arkcbConj1(FloatCplx* vec, int n)  { conj1(here(), vec, n); }
void arkzbConj1(DoubleCplx* vec, int n) { conj1(here(), vec, n); }

void arkcbConj2(const FloatCplx* src, FloatCplx* dst, int n)   { conj2(here(), src, dst, n); }
void arkzbConj2(const DoubleCplx* src, DoubleCplx* dst, int n) { conj2(here(), src, dst, n); }

void arkcbConjFlip2(const FloatCplx* src, FloatCplx* dst, int n)   { conjFlip2(here(), src, dst, n); }
void arkzbConjFlip2(const DoubleCplx* src, DoubleCplx* dst, int n) { conjFlip2(here(), src, dst, n); }

void arkcbConjExtend1(FloatCplx* vec, int n)  { conjExtend1(here(), vec, n); }
void arkzbConjExtend1(DoubleCplx* vec, int n) { conjExtend1(here(), vec, n); }

void arkcbConjExtend2(const FloatCplx* src, FloatCplx* dst, int n)   { conjExtend2(here(), src, dst, n); }
void arkzbConjExtend2(const DoubleCplx* src, DoubleCplx* dst, int n) { conjExtend2(here(), src, dst, n); }
// clang-format on
