/* arkpx/vector.h - vector arithmetic, element-wise functions, conversion, companding. */
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
 * element to the first. What another overlap gives is not defined.
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

/* ---------------------------------------------------------------------------------------------------------------
 * Element-wise functions
 *
 *   Sqr        x^2                                     Thresh     ARK_LT: the larger of x and level
 *   Sqrt       the principal square root                          ARK_GT: the smaller of x and level
 *   Abs        |x|; -32768 gives 32767                 InvThresh  1 / x for |x| > level, else 1 / level with x's sign
 *
 * Form 1 works in place on vec[0 ... len-1], form 2 takes src[i] and stores dst[i], which may be src itself.
 *
 * Sqr. Floating results are those of Mpy3 on twice the same vector. The 16-bit members take the scale mode as bits:
 * with ARK_AUTO_SCALE set the others do not count and the factor is found and written as in the vector arithmetic;
 * else the factor is *scaleFactor if ARK_FIXED_SCALE is set and scaleFactor is not null, and 0 if not, and results that
 * do not fit are clamped with ARK_SATURATE, without it their low 16 bits are stored. Complex squares are exact before
 * they are scaled: (-32768, -32768) gives 2^31, not -2^31 as in Mpy3.
 *
 * Sqrt. Negative elements of real vectors are copied unchanged; -0.0 is not negative. Floats are rounded correctly,
 * 16-bit roots down. Complex roots have a real part that is not negative and an imaginary part with the sign of the
 * element's, also where that is -0.0; infinite elements as C's csqrt has them. Parts are accurate to 0.6 ulp (c) and to
 * 2 ulps (z) without overflow or underflow on the way, those of v are rounded to the nearest integer.
 *
 * Thresh. relOp is ARK_LT, or ARK_GT (any other value but 0). Elements equal to the level, and those that are not
 * numbers, stay as they are. Complex elements are compared by magnitude: one that is beyond the level keeps its angle
 * and gets the level as its magnitude, to within 5 ulps; (0, 0) becomes (level, 0). v compares exactly and rounds to the
 * nearest integer. A level that is not a number limits nothing.
 *
 * InvThresh. Complex elements: conj(x) / |x|^2 for |x| > level, else conj(x) / (|x| level), and (1 / level, 0) for zero.
 * With a level of 0 a zero element gives the largest finite number of its type, positive. What is not a number, element
 * or level, gives the like.
 *
 * Real and 16-bit results are rounded correctly; the parts of complex inverses are accurate to 4 ulps of the larger one.
 * All results are the same on all processors.
 *
 * Reports, each ARK_StatusBadArgument, all that fail: "len<=0"; "vec==0" (form 1) or "src==0", "dst==0" (form 2). Then
 * the thread's status is tested: if it is negative, also from an earlier failure, nothing is written. Checks of values
 * follow, each with a line number of its own:
 *   Sqr, w and v     "scaleFactor==0"                         null with ARK_AUTO_SCALE; nothing is written
 *   Thresh, c z v    "thresh<0.0f", "thresh<0.0", "thresh<0"  nothing is written
 *   InvThresh        "thresh<0.0f" (s, c, z form 2), "thresh<0.0" (d, z form 1); nothing is written
 *   InvThresh        "zero element and zero thresh"           once, after all results are written
 *   Sqrt, s d w      "Element of input vector is negative"    once, after all results are written
 * Levels of -0.0 and levels that are not numbers are not negative. Module arkvec. Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
enum {
    ARK_LT = 0, /* limits from below */
    ARK_GT = 1  /* limits from above */
};

ARKPX_API void arksbSqr1(float* vec, int len);
ARKPX_API void arkdbSqr1(double* vec, int len);
ARKPX_API void arkcbSqr1(FloatCplx* vec, int len);
ARKPX_API void arkzbSqr1(DoubleCplx* vec, int len);
ARKPX_API void arkwbSqr1(short* vec, int len, int scaleMode, int* scaleFactor);
ARKPX_API void arkvbSqr1(ShortCplx* vec, int len, int scaleMode, int* scaleFactor);

ARKPX_API void arksbSqr2(const float* src, float* dst, int len);
ARKPX_API void arkdbSqr2(const double* src, double* dst, int len);
ARKPX_API void arkcbSqr2(const FloatCplx* src, FloatCplx* dst, int len);
ARKPX_API void arkzbSqr2(const DoubleCplx* src, DoubleCplx* dst, int len);
ARKPX_API void arkwbSqr2(const short* src, short* dst, int len, int scaleMode, int* scaleFactor);
ARKPX_API void arkvbSqr2(const ShortCplx* src, ShortCplx* dst, int len, int scaleMode, int* scaleFactor);

ARKPX_API void arksbSqrt1(float* vec, int len);
ARKPX_API void arkdbSqrt1(double* vec, int len);
ARKPX_API void arkcbSqrt1(FloatCplx* vec, int len);
ARKPX_API void arkzbSqrt1(DoubleCplx* vec, int len);
ARKPX_API void arkwbSqrt1(short* vec, int len);
ARKPX_API void arkvbSqrt1(ShortCplx* vec, int len);

ARKPX_API void arksbSqrt2(const float* src, float* dst, int len);
ARKPX_API void arkdbSqrt2(const double* src, double* dst, int len);
ARKPX_API void arkcbSqrt2(const FloatCplx* src, FloatCplx* dst, int len);
ARKPX_API void arkzbSqrt2(const DoubleCplx* src, DoubleCplx* dst, int len);
ARKPX_API void arkwbSqrt2(const short* src, short* dst, int len);
ARKPX_API void arkvbSqrt2(const ShortCplx* src, ShortCplx* dst, int len);

ARKPX_API void arksbAbs1(float* vec, int len);
ARKPX_API void arkdbAbs1(double* vec, int len);
ARKPX_API void arkwbAbs1(short* vec, int len);

ARKPX_API void arksbAbs2(const float* src, float* dst, int len);
ARKPX_API void arkdbAbs2(const double* src, double* dst, int len);
ARKPX_API void arkwbAbs2(const short* src, short* dst, int len);

ARKPX_API void arksbThresh1(float* vec, int len, float level, int relOp);
ARKPX_API void arkdbThresh1(double* vec, int len, double level, int relOp);
ARKPX_API void arkcbThresh1(FloatCplx* vec, int len, float level, int relOp);
ARKPX_API void arkzbThresh1(DoubleCplx* vec, int len, double level, int relOp);
ARKPX_API void arkwbThresh1(short* vec, int len, short level, int relOp);
ARKPX_API void arkvbThresh1(ShortCplx* vec, int len, short level, int relOp);

ARKPX_API void arksbThresh2(const float* src, float* dst, int len, float level, int relOp);
ARKPX_API void arkdbThresh2(const double* src, double* dst, int len, double level, int relOp);
ARKPX_API void arkcbThresh2(const FloatCplx* src, FloatCplx* dst, int len, float level, int relOp);
ARKPX_API void arkzbThresh2(const DoubleCplx* src, DoubleCplx* dst, int len, double level, int relOp);
ARKPX_API void arkwbThresh2(const short* src, short* dst, int len, short level, int relOp);
ARKPX_API void arkvbThresh2(const ShortCplx* src, ShortCplx* dst, int len, short level, int relOp);

ARKPX_API void arksbInvThresh1(float* vec, int len, float level);
ARKPX_API void arkdbInvThresh1(double* vec, int len, double level);
ARKPX_API void arkcbInvThresh1(FloatCplx* vec, int len, float level);
ARKPX_API void arkzbInvThresh1(DoubleCplx* vec, int len, double level);

ARKPX_API void arksbInvThresh2(const float* src, float* dst, int len, float level);
ARKPX_API void arkdbInvThresh2(const double* src, double* dst, int len, double level);
ARKPX_API void arkcbInvThresh2(const FloatCplx* src, FloatCplx* dst, int len, float level);
ARKPX_API void arkzbInvThresh2(const DoubleCplx* src, DoubleCplx* dst, int len, double level);
/* ---------------------------------------------------------------------------------------------------------------
 * Logarithm and exponential
 *
 *   Ln  the natural logarithm            Exp  e^x
 *
 * Form 1 works in place on vec[0 ... len-1], form 2 takes src[i] and stores dst[i], which may be src itself.
 *
 * s is accurate to 1 ulp and d to 2 (16 million random arguments: errors up to 0.997 and 1.033 ulp), over the whole range
 * with denormal arguments and results; the last bit may differ from one processor's instruction set to another's. Zeros
 * have the logarithm minus infinity, negative numbers one that is not a number, without a report; infinities and what is
 * not a number go through as in C's log and exp. Polynomials: see src/vector/arklnexp_kernels.cpp.
 *
 * w: Ln rounds down, and gives 0 for x < 3, also for zero and negative x; Exp rounds to nearest, and gives 32767 from
 * x = 11 on and 0 for negative x.
 *
 * Reports, each ARK_StatusBadArgument, all that fail: "len<=0"; "vec==0" (form 1) or "src==0", "dst==0" (form 2); w
 * says "Len<=0" and for each null pointer "Vector==0". Then the thread's status is tested: if it is negative, also from
 * an earlier failure, nothing is written. Modules arklnexp (s, d) and arklnexw (w). Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arksbLn1(float* vec, int len);
ARKPX_API void arkdbLn1(double* vec, int len);
ARKPX_API void arkwbLn1(short* vec, int len);

ARKPX_API void arksbLn2(const float* src, float* dst, int len);
ARKPX_API void arkdbLn2(const double* src, double* dst, int len);
ARKPX_API void arkwbLn2(const short* src, short* dst, int len);

ARKPX_API void arksbExp1(float* vec, int len);
ARKPX_API void arkdbExp1(double* vec, int len);
ARKPX_API void arkwbExp1(short* vec, int len);

ARKPX_API void arksbExp2(const float* src, float* dst, int len);
ARKPX_API void arkdbExp2(const double* src, double* dst, int len);
ARKPX_API void arkwbExp2(const short* src, short* dst, int len);
/* ---------------------------------------------------------------------------------------------------------------
 * A-law and mu-law companding
 *
 * Between linear samples and the 8-bit codes of ITU-T G.711, and between the two laws. Bit 7 of a code is the sign, set
 * for positive values, bits 6 ... 4 are the segment, bits 3 ... 0 the step in it. Mu-law codes are those of G.711, with
 * segment and step inverted; A-law codes come without the inversion of every other bit: a code here is the G.711 code
 * exclusive-or 0x55.
 *
 * Linear samples are scaled to full range: w as they are, i by their upper 16 bits (of the magnitude: toward zero), s
 * and d as fractions, 1.0 for 32768. Encoding: a magnitude m, truncated to an integer, gets
 *   A-law   the first segment s whose bound 2^(s+8) - 1 is not below m, and step (m >> max(s + 3, 4)) & 15;
 *   mu-law  the first segment s whose bound 2^(s+8) - 132 is not below m, and step 15 - ((bound - m) >> (s + 3)).
 * Magnitudes above the last bound get its code, and so does infinity; what is not a number is encoded like the most
 * negative sample. Decoding gives the middle of the step, at most 32256 (A-law) and 32124 (mu-law) in magnitude: w as
 * it is, i times 65536, s and d divided by 32768. Mu-law 127 and 255 decode to 0, which is encoded as 255.
 *
 * MuLawToALaw and ALawToMuLaw go by tables of their own, which do not always name the code nearest to the decoded value.
 *
 * Lengths: len elements in src and in dst. In place: only between the two laws; otherwise src and dst are apart.
 *
 * Reports, each ARK_StatusBadArgument, all that fail, in this order: "len<=0", "src==0", "dst==0". Then the thread's
 * status is tested: if it is negative, also from an earlier failure, nothing is written. Module arklaw. Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arkwbLinToALaw(const short* src, unsigned char* dst, int len);
ARKPX_API void arkibLinToALaw(const int* src, unsigned char* dst, int len);
ARKPX_API void arksbLinToALaw(const float* src, unsigned char* dst, int len);
ARKPX_API void arkdbLinToALaw(const double* src, unsigned char* dst, int len);

ARKPX_API void arkwbALawToLin(const unsigned char* src, short* dst, int len);
ARKPX_API void arkibALawToLin(const unsigned char* src, int* dst, int len);
ARKPX_API void arksbALawToLin(const unsigned char* src, float* dst, int len);
ARKPX_API void arkdbALawToLin(const unsigned char* src, double* dst, int len);

ARKPX_API void arkwbLinToMuLaw(const short* src, unsigned char* dst, int len);
ARKPX_API void arkibLinToMuLaw(const int* src, unsigned char* dst, int len);
ARKPX_API void arksbLinToMuLaw(const float* src, unsigned char* dst, int len);
ARKPX_API void arkdbLinToMuLaw(const double* src, unsigned char* dst, int len);

ARKPX_API void arkwbMuLawToLin(const unsigned char* src, short* dst, int len);
ARKPX_API void arkibMuLawToLin(const unsigned char* src, int* dst, int len);
ARKPX_API void arksbMuLawToLin(const unsigned char* src, float* dst, int len);
ARKPX_API void arkdbMuLawToLin(const unsigned char* src, double* dst, int len);

ARKPX_API void arkMuLawToALaw(const unsigned char* src, unsigned char* dst, int len);
ARKPX_API void arkALawToMuLaw(const unsigned char* src, unsigned char* dst, int len);

#ifdef __cplusplus
}
#endif

#endif
