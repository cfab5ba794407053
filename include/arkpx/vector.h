/* arkpx/vector.h - vector arithmetic and conversion between floating-point and integer vectors. */
#ifndef ARKPX_VECTOR_H
#define ARKPX_VECTOR_H

#include <arkpx/types.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---------------------------------------------------------------------------------------------------------------
 * Arithmetic of single complex values
 *
 *   Add   a + b            Mpy   (a.re b.re - a.im b.im, a.re b.im + a.im b.re)        Conj  (a.re, -a.im)
 *   Sub   a - b            Div   a / b                                                 Set   (re, im)
 *
 * The floating members never look at the thread's status. c and z divisions compute in double, as
 * (a conj(b)) * (1 / |b|^2); a divisor of zero (either sign) reports ARK_StatusBadArgument
 * "(b.re==0.0)&&(b.im==0.0)" and gives (0, 0).
 *
 * arkvAdd, arkvSub and arkvMpy are arkvbAdd3, arkvbSub3 and arkvbMpy3 on one element, with their checks, status test
 * and scaling; where these leave a negative status the operation reports ARK_StatusBacktrace under its own name and
 * returns (0, 0). arkvDiv divides in double, truncates each part toward zero and clamps it to 16 bits; a divisor of
 * (0, 0) reports ARK_StatusBadArgument "(b.re==0)&&(b.im==0)" and gives (0, 0). The 16-bit conjugate of an imaginary
 * part of -32768 is -32768.
 *
 * Reports carry the module arkarith, those of the v members arkaritw. Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API FloatCplx  arkcAdd(FloatCplx a, FloatCplx b);
ARKPX_API DoubleCplx arkzAdd(DoubleCplx a, DoubleCplx b);
ARKPX_API ShortCplx  arkvAdd(ShortCplx a, ShortCplx b, int scaleMode, int* scaleFactor);

ARKPX_API FloatCplx  arkcSub(FloatCplx a, FloatCplx b);
ARKPX_API DoubleCplx arkzSub(DoubleCplx a, DoubleCplx b);
ARKPX_API ShortCplx  arkvSub(ShortCplx a, ShortCplx b, int scaleMode, int* scaleFactor);

ARKPX_API FloatCplx  arkcMpy(FloatCplx a, FloatCplx b);
ARKPX_API DoubleCplx arkzMpy(DoubleCplx a, DoubleCplx b);
ARKPX_API ShortCplx  arkvMpy(ShortCplx a, ShortCplx b, int scaleMode, int* scaleFactor);

ARKPX_API FloatCplx  arkcDiv(FloatCplx a, FloatCplx b);
ARKPX_API DoubleCplx arkzDiv(DoubleCplx a, DoubleCplx b);
ARKPX_API ShortCplx  arkvDiv(ShortCplx a, ShortCplx b);

ARKPX_API FloatCplx  arkcConj(FloatCplx a);
ARKPX_API DoubleCplx arkzConj(DoubleCplx a);
ARKPX_API ShortCplx  arkvConj(ShortCplx a);

ARKPX_API FloatCplx  arkcSet(float re, float im);
ARKPX_API DoubleCplx arkzSet(double re, double im);
ARKPX_API ShortCplx  arkvSet(short re, short im);

/* ---------------------------------------------------------------------------------------------------------------
 * Arithmetic of vectors
 *
 * For i = 0 ... n-1:
 *
 *   Zero  dst[i] = 0         Add1  srcDst[i] += val      Add2  srcDst[i] += src[i]     Add3  dst[i] = srcA[i] + srcB[i]
 *   Set   dst[i] = val       Sub1  srcDst[i] -= val      Sub2  srcDst[i] -= src[i]     Sub3  dst[i] = srcA[i] - srcB[i]
 *   Copy  dst[i] = src[i]    Mpy1  srcDst[i] *= val      Mpy2  srcDst[i] *= src[i]     Mpy3  dst[i] = srcA[i] * srcB[i]
 *
 * Floating results are those of the element type's own arithmetic: every sum and product is rounded once, on every
 * processor alike. The products of complex numbers are those of arkcMpy.
 *
 * 16-bit results (w and v) follow the scale mode, which is compared as a whole value: ARK_WRAP, ARK_SATURATE,
 * ARK_AUTO_SCALE and ARK_FIXED_SCALE | ARK_SATURATE are told apart, any other value counts as ARK_FIXED_SCALE. The
 * exact sum, difference or product is formed in 32 bits (complex products: two products and their sum, which wraps for
 * four times -32768). Fixed factors count modulo 32, and -33 acts as -1. One factor serves both parts of complex
 * elements. ARK_AUTO_SCALE makes one pass over the data when everything fits, else two.
 *   {1, 200, 20000} Mpy1 100 with ARK_AUTO_SCALE gives {1, 312, 31250} and the factor 6: 2000000 >> 6 = 31250.
 *
 * Lengths: n elements in every array. In place: any source may be the destination itself; in the floating operations
 * and in Copy the destination may also overlap the sources from above (dst > src), as if the loop ran from the last
 * element to the first.
 *
 * Reports, each ARK_StatusBadArgument, all that fail, in this order: "n<=0"; then null pointers in the order of the
 * arguments: "src==0", "srcA==0", "srcB==0", "dst==0" (for dst and srcDst alike). Sub2 reports a null src as "val==0";
 * Sub3 reports a null srcA as "src==0" and a null srcB as "val==0". Then the thread's status is tested: if it is
 * negative, also from an earlier failure, nothing is written. Last, ARK_AUTO_SCALE with a null scaleFactor reports
 * "scalefactor==0". Modules arkarith (s, d, c, z) and arkaritw (w, v). Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arksbZero(float* dst, int n);
ARKPX_API void arkdbZero(double* dst, int n);
ARKPX_API void arkcbZero(FloatCplx* dst, int n);
ARKPX_API void arkzbZero(DoubleCplx* dst, int n);
ARKPX_API void arkwbZero(short* dst, int n);
ARKPX_API void arkvbZero(ShortCplx* dst, int n);

ARKPX_API void arksbSet(float val, float* dst, int n);
ARKPX_API void arkdbSet(double val, double* dst, int n);
ARKPX_API void arkcbSet(FloatCplx val, FloatCplx* dst, int n);
ARKPX_API void arkzbSet(DoubleCplx val, DoubleCplx* dst, int n);
ARKPX_API void arkwbSet(short val, short* dst, int n);
ARKPX_API void arkvbSet(ShortCplx val, ShortCplx* dst, int n);

ARKPX_API void arksbCopy(const float* src, float* dst, int n);
ARKPX_API void arkdbCopy(const double* src, double* dst, int n);
ARKPX_API void arkcbCopy(const FloatCplx* src, FloatCplx* dst, int n);
ARKPX_API void arkzbCopy(const DoubleCplx* src, DoubleCplx* dst, int n);
ARKPX_API void arkwbCopy(const short* src, short* dst, int n);
ARKPX_API void arkvbCopy(const ShortCplx* src, ShortCplx* dst, int n);

ARKPX_API void arksbAdd1(float val, float* srcDst, int n);
ARKPX_API void arkdbAdd1(double val, double* srcDst, int n);
ARKPX_API void arkcbAdd1(FloatCplx val, FloatCplx* srcDst, int n);
ARKPX_API void arkzbAdd1(DoubleCplx val, DoubleCplx* srcDst, int n);
ARKPX_API void arkwbAdd1(short val, short* srcDst, int n, int scaleMode, int* scaleFactor);
ARKPX_API void arkvbAdd1(ShortCplx val, ShortCplx* srcDst, int n, int scaleMode, int* scaleFactor);

ARKPX_API void arksbAdd2(const float* src, float* srcDst, int n);
ARKPX_API void arkdbAdd2(const double* src, double* srcDst, int n);
ARKPX_API void arkcbAdd2(const FloatCplx* src, FloatCplx* srcDst, int n);
ARKPX_API void arkzbAdd2(const DoubleCplx* src, DoubleCplx* srcDst, int n);
ARKPX_API void arkwbAdd2(const short* src, short* srcDst, int n, int scaleMode, int* scaleFactor);
ARKPX_API void arkvbAdd2(const ShortCplx* src, ShortCplx* srcDst, int n, int scaleMode, int* scaleFactor);

ARKPX_API void arksbAdd3(const float* srcA, const float* srcB, float* dst, int n);
ARKPX_API void arkdbAdd3(const double* srcA, const double* srcB, double* dst, int n);
ARKPX_API void arkcbAdd3(const FloatCplx* srcA, const FloatCplx* srcB, FloatCplx* dst, int n);
ARKPX_API void arkzbAdd3(const DoubleCplx* srcA, const DoubleCplx* srcB, DoubleCplx* dst, int n);
ARKPX_API void arkwbAdd3(const short* srcA, const short* srcB, short* dst, int n, int scaleMode, int* scaleFactor);
ARKPX_API void arkvbAdd3(const ShortCplx* srcA, const ShortCplx* srcB, ShortCplx* dst, int n, int scaleMode, int* scaleFactor);

ARKPX_API void arksbSub1(float val, float* srcDst, int n);
ARKPX_API void arkdbSub1(double val, double* srcDst, int n);
ARKPX_API void arkcbSub1(FloatCplx val, FloatCplx* srcDst, int n);
ARKPX_API void arkzbSub1(DoubleCplx val, DoubleCplx* srcDst, int n);
ARKPX_API void arkwbSub1(short val, short* srcDst, int n, int scaleMode, int* scaleFactor);
ARKPX_API void arkvbSub1(ShortCplx val, ShortCplx* srcDst, int n, int scaleMode, int* scaleFactor);

ARKPX_API void arksbSub2(const float* src, float* srcDst, int n);
ARKPX_API void arkdbSub2(const double* src, double* srcDst, int n);
ARKPX_API void arkcbSub2(const FloatCplx* src, FloatCplx* srcDst, int n);
ARKPX_API void arkzbSub2(const DoubleCplx* src, DoubleCplx* srcDst, int n);
ARKPX_API void arkwbSub2(const short* src, short* srcDst, int n, int scaleMode, int* scaleFactor);
ARKPX_API void arkvbSub2(const ShortCplx* src, ShortCplx* srcDst, int n, int scaleMode, int* scaleFactor);

ARKPX_API void arksbSub3(const float* srcA, const float* srcB, float* dst, int n);
ARKPX_API void arkdbSub3(const double* srcA, const double* srcB, double* dst, int n);
ARKPX_API void arkcbSub3(const FloatCplx* srcA, const FloatCplx* srcB, FloatCplx* dst, int n);
ARKPX_API void arkzbSub3(const DoubleCplx* srcA, const DoubleCplx* srcB, DoubleCplx* dst, int n);
ARKPX_API void arkwbSub3(const short* srcA, const short* srcB, short* dst, int n, int scaleMode, int* scaleFactor);
ARKPX_API void arkvbSub3(const ShortCplx* srcA, const ShortCplx* srcB, ShortCplx* dst, int n, int scaleMode, int* scaleFactor);

ARKPX_API void arksbMpy1(float val, float* srcDst, int n);
ARKPX_API void arkdbMpy1(double val, double* srcDst, int n);
ARKPX_API void arkcbMpy1(FloatCplx val, FloatCplx* srcDst, int n);
ARKPX_API void arkzbMpy1(DoubleCplx val, DoubleCplx* srcDst, int n);
ARKPX_API void arkwbMpy1(short val, short* srcDst, int n, int scaleMode, int* scaleFactor);
ARKPX_API void arkvbMpy1(ShortCplx val, ShortCplx* srcDst, int n, int scaleMode, int* scaleFactor);

ARKPX_API void arksbMpy2(const float* src, float* srcDst, int n);
ARKPX_API void arkdbMpy2(const double* src, double* srcDst, int n);
ARKPX_API void arkcbMpy2(const FloatCplx* src, FloatCplx* srcDst, int n);
ARKPX_API void arkzbMpy2(const DoubleCplx* src, DoubleCplx* srcDst, int n);
ARKPX_API void arkwbMpy2(const short* src, short* srcDst, int n, int scaleMode, int* scaleFactor);
ARKPX_API void arkvbMpy2(const ShortCplx* src, ShortCplx* srcDst, int n, int scaleMode, int* scaleFactor);

ARKPX_API void arksbMpy3(const float* srcA, const float* srcB, float* dst, int n);
ARKPX_API void arkdbMpy3(const double* srcA, const double* srcB, double* dst, int n);
ARKPX_API void arkcbMpy3(const FloatCplx* srcA, const FloatCplx* srcB, FloatCplx* dst, int n);
ARKPX_API void arkzbMpy3(const DoubleCplx* srcA, const DoubleCplx* srcB, DoubleCplx* dst, int n);
ARKPX_API void arkwbMpy3(const short* srcA, const short* srcB, short* dst, int n, int scaleMode, int* scaleFactor);
ARKPX_API void arkvbMpy3(const ShortCplx* srcA, const ShortCplx* srcB, ShortCplx* dst, int n, int scaleMode, int* scaleFactor);

/* ---------------------------------------------------------------------------------------------------------------
 * Conjugation of complex vectors
 *
 *   Conj1        vec[i] = conj(vec[i])                Conj2  dst[i] = conj(src[i])           i = 0 ... n-1
 *   ConjFlip2    dst[n-1-i] = conj(src[i])                                                   i = 0 ... n-1
 *   ConjExtend1  vec[n+j] = conj(vec[m-1-j])          m = n rounded down to even             j = 0 ... m-1
 *   ConjExtend2  dst[i] = src[i], i = 0 ... n-1, then ConjExtend1 on dst
 *
 * The vector that is extended has room for n + m elements. The 16-bit conjugate of an imaginary part of -32768 is
 * -32768. In place: src may be dst; ConjFlip2 is then a mirror. Overlap otherwise as for the vector arithmetic, except
 * for ConjFlip2, whose arrays are the same or apart.
 *
 * Reports, status test and modules as for the vector arithmetic: "n<=0", "vec==0", "src==0", "dst==0". Allocates:
 * never.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arkcbConj1(FloatCplx* vec, int n);
ARKPX_API void arkzbConj1(DoubleCplx* vec, int n);
ARKPX_API void arkvbConj1(ShortCplx* vec, int n);

ARKPX_API void arkcbConj2(const FloatCplx* src, FloatCplx* dst, int n);
ARKPX_API void arkzbConj2(const DoubleCplx* src, DoubleCplx* dst, int n);
ARKPX_API void arkvbConj2(const ShortCplx* src, ShortCplx* dst, int n);

ARKPX_API void arkcbConjFlip2(const FloatCplx* src, FloatCplx* dst, int n);
ARKPX_API void arkzbConjFlip2(const DoubleCplx* src, DoubleCplx* dst, int n);
ARKPX_API void arkvbConjFlip2(const ShortCplx* src, ShortCplx* dst, int n);

ARKPX_API void arkcbConjExtend1(FloatCplx* vec, int n);
ARKPX_API void arkzbConjExtend1(DoubleCplx* vec, int n);
ARKPX_API void arkvbConjExtend1(ShortCplx* vec, int n);

ARKPX_API void arkcbConjExtend2(const FloatCplx* src, FloatCplx* dst, int n);
ARKPX_API void arkzbConjExtend2(const DoubleCplx* src, DoubleCplx* dst, int n);
ARKPX_API void arkvbConjExtend2(const ShortCplx* src, ShortCplx* dst, int n);

/* ---------------------------------------------------------------------------------------------------------------
 * Conversion between floating-point and integer vectors
 *
 * The integers are 8, 16 or 32 bits wide (wordBits), signed or with ARK_Unsigned unsigned.
 *
 * FloatToInt rounds each element by the one rounding rule that the flags name and stores it if the rounded value is
 * representable. An element whose rounded value is not representable, or that is not a number, is out of range: with
 * ARK_Saturate the nearer bound is stored (0 for not a number), without it the element of dst is left as it was; with
 * ARK_ReportRange one report "Value out of range" follows when the vector is done. Further bits of flags are ignored.
 *   2.5 and 3.5 with ARK_RoundNearest give 2 and 4; 40000 into signed 16 bits with ARK_Saturate gives 32767.
 *
 * IntToFloat stores each integer exactly; 32-bit magnitudes above 2^24 are rounded to the nearest float. flags is 0 or
 * ARK_Unsigned.
 *
 * Lengths: len elements in src and in dst. In place: src may be dst when the integers are no wider than the floats.
 *
 * Unlike all other operations these clear the thread's status first: an earlier failure does not stop them, and
 * afterwards the status tells of this call alone. Reports, each ARK_StatusBadArgument, all that fail, in this order:
 * "len<=0", "src==0", "dst==0", "Invalid size of an integer", "Invalid conversion flag" (FloatToInt: not exactly one
 * rounding rule; IntToFloat: flags neither 0 nor ARK_Unsigned); dst is then untouched. Modules arkcvrts and arkcvrtd.
 * Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
enum {
    ARK_RoundNearest = 0x80, /* to the nearest integer, ties to even */
    ARK_RoundZero = 0x100,   /* toward zero */
    ARK_RoundDown = 0x200,   /* toward minus infinity */
    ARK_RoundUp = 0x400,     /* toward plus infinity */
    ARK_Unsigned = 0x800,
    ARK_Saturate = 0x1000,
    ARK_ReportRange = 0x2000
};

ARKPX_API void arksbFloatToInt(const float* src, void* dst, int len, int wordBits, int flags);
ARKPX_API void arkdbFloatToInt(const double* src, void* dst, int len, int wordBits, int flags);

ARKPX_API void arksbIntToFloat(const void* src, float* dst, int len, int wordBits, int flags);
ARKPX_API void arkdbIntToFloat(const void* src, double* dst, int len, int wordBits, int flags);

#ifdef __cplusplus
}
#endif

#endif
