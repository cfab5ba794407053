/* arkpx/transform.h - bit reversal, twiddle tables, complex and real FFT, DFT, Goertzel, DCT, wavelets. */
#ifndef ARKPX_TRANSFORM_H
#define ARKPX_TRANSFORM_H

#include <arkpx/types.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---------------------------------------------------------------------------------------------------------------
 * Bit reversal
 *
 *   BitRev         the low order bits of a in reverse order; higher bits are dropped
 *   CalcBitRevTbl  tbl[i] = BitRev(i, order),                    i = 0 ... N-1, N = 2^order
 *   GetBitRevTbl   the same table from the thread's cache
 *   BitRev1        exchanges vec[i] and vec[BitRev(i, order)]
 *   BitRev2        dst[BitRev(i, order)] = src[i]
 *
 * Order 3: {0, 4, 2, 6, 1, 5, 3, 7}. Orders are 0 to 31. src and dst do not overlap.
 *
 * A table that Get hands out belongs to the calling thread's cache: built on the first request of its order, the same
 * pointer at every further one, valid until arkFreeBitRevTbls is called on that thread or the thread ends. Free works
 * whatever the status is.
 *
 * Reports, each ARK_StatusBadArgument, all that fail, in this order: "order<0", "order>31"; then null pointers in the
 * order of the arguments: "tbl==0", "vec==0", "src==0", "dst==0". Then the thread's status is tested: if it is negative,
 * also from an earlier failure, nothing is done, BitRev returns 0 and Get a null pointer. Get reports
 * ARK_StatusOutOfMemory "NULL Pointer" when there is no memory for the table. Module arkmisc. Allocates: Get, on the
 * first use of an order, N ints.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API int  arkBitRev(int a, int order);
ARKPX_API void arkCalcBitRevTbl(int* tbl, int order);
ARKPX_API int* arkGetBitRevTbl(int order);
ARKPX_API void arkFreeBitRevTbls(void);

ARKPX_API void arksbBitRev1(float* vec, int order);
ARKPX_API void arkdbBitRev1(double* vec, int order);
ARKPX_API void arkcbBitRev1(FloatCplx* vec, int order);
ARKPX_API void arkzbBitRev1(DoubleCplx* vec, int order);
ARKPX_API void arkwbBitRev1(short* vec, int order);
ARKPX_API void arkvbBitRev1(ShortCplx* vec, int order);
ARKPX_API void arkibBitRev1(int* vec, int order);
ARKPX_API void arkjbBitRev1(IntCplx* vec, int order);

ARKPX_API void arksbBitRev2(const float* src, float* dst, int order);
ARKPX_API void arkdbBitRev2(const double* src, double* dst, int order);
ARKPX_API void arkcbBitRev2(const FloatCplx* src, FloatCplx* dst, int order);
ARKPX_API void arkzbBitRev2(const DoubleCplx* src, DoubleCplx* dst, int order);
ARKPX_API void arkwbBitRev2(const short* src, short* dst, int order);
ARKPX_API void arkvbBitRev2(const ShortCplx* src, ShortCplx* dst, int order);

/* ---------------------------------------------------------------------------------------------------------------
 * Twiddle tables
 *
 *   tbl[k] = e^(-2 pi i k / N) = (cos(2 pi k / N), -sin(2 pi k / N)),     k = 0 ... N-1
 *
 * N is length (DFT: any) or 2^order (FFT). The step 2 pi / N is a double, with 2 pi = 6.283185307179586; the angle k times
 * the step, its cosine and its sine are computed for each k in extended precision and rounded once to float (c) or double
 * (z). The 16-bit tables (v) are in Q14: 16384 times cosine and minus sine, truncated toward zero.
 *
 *   CalcDftTwdTbl, CalcFftTwdTbl   fill the caller's array of N elements
 *   GetDftTwdTbl, GetFftTwdTbl     the same table from the thread's cache
 *
 * A table that Get hands out belongs to the calling thread's cache: built on first request, the same pointer at every
 * further one, valid until the Free function of its element type is called on that thread or the thread ends. There is
 * room for a table of every order and for 32 lengths of the DFT (see dftTwdCapacity of ArkErrorContext); tables are never
 * dropped one by one.
 *
 *   arkcFreeTwdTbls  the c tables, what the single-precision and 16-bit transforms keep, and all working buffers
 *   arkzFreeTwdTbls  the z tables and what the double-precision transforms keep
 *   arkvFreeTwdTbls  the v tables
 *
 * Free works whatever the status is.
 *
 * Reports, each ARK_StatusBadArgument, all that fail, in this order: "order<0", "order>31" or "length<=0"; "tbl==0". Then
 * the thread's status is tested: if it is negative, also from an earlier failure, nothing is done and Get returns a null
 * pointer. Get reports ARK_StatusOutOfMemory and returns a null pointer: "Full Table" for a further length, "NULL Pointer"
 * when there is no memory. Module arktwd. Allocates: Get, on the first use of a length or order, N elements.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arkcCalcDftTwdTbl(FloatCplx* tbl, int length);
ARKPX_API void arkzCalcDftTwdTbl(DoubleCplx* tbl, int length);
ARKPX_API void arkvCalcDftTwdTbl(ShortCplx* tbl, int length);

ARKPX_API void arkcCalcFftTwdTbl(FloatCplx* tbl, int order);
ARKPX_API void arkzCalcFftTwdTbl(DoubleCplx* tbl, int order);
ARKPX_API void arkvCalcFftTwdTbl(ShortCplx* tbl, int order);

ARKPX_API FloatCplx*  arkcGetDftTwdTbl(int length);
ARKPX_API DoubleCplx* arkzGetDftTwdTbl(int length);
ARKPX_API ShortCplx*  arkvGetDftTwdTbl(int length);

ARKPX_API FloatCplx*  arkcGetFftTwdTbl(int order);
ARKPX_API DoubleCplx* arkzGetFftTwdTbl(int order);
ARKPX_API ShortCplx*  arkvGetFftTwdTbl(int order);

ARKPX_API void arkcFreeTwdTbls(void);
ARKPX_API void arkzFreeTwdTbls(void);
ARKPX_API void arkvFreeTwdTbls(void);

/* ---------------------------------------------------------------------------------------------------------------
 * The flag word of the transforms
 *
 *   direction      ARK_Forw        exponent -2 pi i k n / N, never scaled
 *                  ARK_Inv         exponent +2 pi i k n / N, the result divided by N; exactly one of the two is needed
 *                  ARK_NoScale     with ARK_Inv: not divided by N
 *   order of the   ARK_NoBitRev    input and output in natural order: what counts when none of the three is given
 *   elements       ARK_InBitRev    input in bit-reversed order, output in natural order
 *                  ARK_OutBitRev   input in natural order, output in bit-reversed order; no two of the three together
 *   layout of      ARK_OutRCPack, ARK_OutRCPerm    exactly one is needed where a packed spectrum is the result
 *   spectra        ARK_InRCPack, ARK_InRCPerm      exactly one is needed where a packed spectrum is the source
 *   tables         ARK_Init        only makes sure of tables and buffers; neither data nor other flags are looked at
 *                  ARK_Free        only releases the tables of this order and the working buffers
 *
 * The complex FFT looks at the first two groups and the last, the real FFT at the others as each of its functions says.
 * All other bits are ignored. Forward with ARK_OutBitRev and inverse with ARK_InBitRev save the two permutations of a
 * convolution.
 *
 * Every transform takes these steps:
 *   1. ARK_Free: done; nothing is tested, whatever the status is; an order outside 0 ... 31 releases nothing.
 *   2. "order<0", "order>31"; then the thread's status is tested: if it is negative, nothing is done.
 *   3. Tables and buffers are fetched, on the first use of an order built. When there is no memory, the transforms' own
 *      tables of this precision are released once, then it is tried again, then ARK_StatusOutOfMemory "No working Twd
 *      memory" is reported. Tables that a Get function has handed out stay.
 *   4. ARK_Init: done.
 *   5. The first null pointer is reported, in the order of the arguments ("samps==0" and the like).
 *   6. Every broken rule of the flags is reported: "ARK_Forw and ARK_Inv", "no ARK_Forw or ARK_Inv", "ARK_InBitRev and
 *      ARK_OutBitRev", else "ARK_InBitRev and ARK_NoBitRev", else "ARK_OutBitRev and ARK_NoBitRev", "ARK_InRCPack and
 *      ARK_InRCPerm", "no ARK_InRCPack or ARK_InRCPerm", "ARK_OutRCPack and ARK_OutRCPerm", "no ARK_OutRCPack or
 *      ARK_OutRCPerm".
 *   7. The transform. Order 0: one element, which is its own transform and is not scaled.
 * Reports other than that of memory are ARK_StatusBadArgument. After any report the data are untouched. Modules: arkffts
 * (float), arkfftd (double), arkfftw (16 bits).
 *
 * Tables and buffers belong to the calling thread and go with it, or with arkcFreeTwdTbls and arkzFreeTwdTbls, or with
 * ARK_Free. They take a few times the memory of the data. Calls on different threads share nothing.
 * --------------------------------------------------------------------------------------------------------------- */
enum {
    ARK_Forw = 0x1,
    ARK_Inv = 0x2,
    ARK_Init = 0x4,
    ARK_Free = 0x8,
    ARK_NoScale = 0x10,
    ARK_NoBitRev = 0x20,
    ARK_InBitRev = 0x40,
    ARK_OutBitRev = 0x80,
    ARK_OutRCPack = 0x100,
    ARK_OutRCPerm = 0x200,
    ARK_InRCPack = 0x400,
    ARK_InRCPerm = 0x1000
};

/* ---------------------------------------------------------------------------------------------------------------
 * The 16-bit transforms (v and w members)
 *
 * The samples become floats, the float transform is computed, and its results, rounded to the nearest integer (ties to
 * even), are brought to 16 bits: ARK_WRAP and ARK_SATURATE clamp them; the other scale modes shift the rounded integers
 * as arkpx/types.h says, by at most 63 to the right and 15 to the left; with ARK_AUTO_SCALE a factor other than 0 brings
 * the largest magnitude to 16384 ... 32767. One factor serves the whole result, both vectors where there are two. Modes
 * outside 0 to 4 take the low 16 bits.
 *
 * The steps above apply, with two differences. Null pointers and flags are tested before memory is fetched, and after the
 * flags the scale mode: "ARK_FIXED_SCALE and ARK_AUTO_SCALE" (both bits set), "ARK_AUTO_SCALE and scaleFactor==NULL" (both
 * reported). Memory for the floats is reported as "No working memory", after a retry without all tables and buffers of
 * the transforms; what fails inside is reported by the float function under its own name and then once more as
 * ARK_StatusBacktrace with "out NAME ARK_Init" or "out NAME calc. FFT", NAME being the float function that works in place
 * (arkcFft, arksRealFft ...). Order 0 with ARK_AUTO_SCALE writes the factor 0.
 * --------------------------------------------------------------------------------------------------------------- */

/* ---------------------------------------------------------------------------------------------------------------
 * Complex FFT
 *
 *   ARK_Forw   X[k] =       sum over n of x[n] e^(-2 pi i k n / N)          k, n = 0 ... N-1, N = 2^order
 *   ARK_Inv    x[n] = 1/N * sum over k of X[k] e^(+2 pi i k n / N)
 *
 * N elements in every array; the cr, zr and vr members take real and imaginary parts in arrays of their own, N each. The
 * error of a result grows with the square root of the order: a few units in the last place of the largest. Up to order 11
 * the float transforms take the float 0x3F3504F7, 4 units above the nearest one, for sqrt(1/2) in the root at an eighth
 * of the circle, which adds about 2e-7 to 4e-7 of the result; greater orders and doubles take the nearest.
 *
 * In place, or (Nip) from one array into another; the two are equal or do not overlap, and give results that are equal to
 * the bit. Separate arrays give the same up to rounding. Null pointers: "samps==0"; "reSamps==0", "imSamps==0";
 * "inSamps==0", "outSamps==0"; "reInSamps==0", "imInSamps==0", "reOutSamps==0", "imOutSamps==0".
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arkcFft(FloatCplx* samps, int order, int flags);
ARKPX_API void arkzFft(DoubleCplx* samps, int order, int flags);
ARKPX_API void arkvFft(ShortCplx* samps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arkcFftNip(const FloatCplx* inSamps, FloatCplx* outSamps, int order, int flags);
ARKPX_API void arkzFftNip(const DoubleCplx* inSamps, DoubleCplx* outSamps, int order, int flags);
ARKPX_API void arkvFftNip(const ShortCplx* inSamps, ShortCplx* outSamps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arkcrFft(float* reSamps, float* imSamps, int order, int flags);
ARKPX_API void arkzrFft(double* reSamps, double* imSamps, int order, int flags);
ARKPX_API void arkvrFft(short* reSamps, short* imSamps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arkcrFftNip(const float* reInSamps, const float* imInSamps, float* reOutSamps, float* imOutSamps, int order, int flags);
ARKPX_API void arkzrFftNip(const double* reInSamps, const double* imInSamps, double* reOutSamps, double* imOutSamps, int order, int flags);
ARKPX_API void arkvrFftNip(const short* reInSamps, const short* imInSamps, short* reOutSamps, short* imOutSamps, int order, int flags, int scaleMode, int* scaleFactor);

/* ---------------------------------------------------------------------------------------------------------------
 * Real FFT
 *
 * The spectrum of N = 2^order reals has X[N-k] = conj(X[k]), and X[0] and X[N/2] are real. Its first half is kept in one of
 * three layouts, drawn here for N = 8, one cell a real:
 *
 *   CCS      | re0 |  0  | re1 | im1 | re2 | im2 | re3 | im3 | re4 |  0  |      N + 2 reals, N/2 + 1 complex elements
 *   RCPack   | re0 | re1 | im1 | re2 | im2 | re3 | im3 | re4 |                  N reals
 *   RCPerm   | re0 | re4 | re1 | im1 | re2 | im2 | re3 | im3 |                  N reals
 *
 *   RealFft     N reals into CCS                     RealFftl    N reals into RCPack or RCPerm (ARK_Out...)
 *   CcsFft      CCS into N reals                     CcsFftl     RCPack or RCPerm (ARK_In...) into N reals
 *   Real2Fft    two signals of N reals into CCS      Ccs2Fft     two spectra in CCS into N reals each
 *
 *   to a spectrum      X[k] = sum over n of x[n] e^(-+2 pi i k n / N)        k = 0 ... N/2
 *   to a signal        x[n] = sum over k of X[k] e^(-+2 pi i k n / N)        k, n = 0 ... N-1, X[N-k] = conj(X[k])
 *
 * with - for ARK_Forw and + for ARK_Inv, which without ARK_NoScale divides either by N. RealFft with ARK_Forw and then
 * CcsFft with ARK_Inv give the signal back. The imaginary parts of X[0] and X[N/2] in CCS are written as zero and not
 * read. Bit-order flags are ignored. One complex FFT of N/2 elements is computed, for two signals one of N.
 *
 * In place: samps has N + 2 reals where one side is in CCS, else N; a signal takes the first N. Not in place (Nip): the
 * arrays do not overlap; a CCS spectrum is an array of N/2 + 1 complex elements. Both give results that are equal to the
 * bit. Order 0: in place nothing changes; otherwise the element is copied, into CCS as (x, 0). Order 1: (x0 + x1, x0 - x1).
 *
 * Null pointers: "samps==0"; "inSamps==0", "outSamps==0"; "xSamps==0", "ySamps==0"; "xInSamps==0", "yInSamps==0",
 * "xOutSamps==0", "yOutSamps==0". arksReal2FftNip and arksCcs2FftNip and their double kin test pointers and flags before
 * they fetch memory; a failure to do so is reported under the names arksReal2Fft and arkcrFft (arkdReal2Fft and arkzrFft)
 * and once more as ARK_StatusBacktrace with "out arksReal2Fft" and "out arkcrFft" (or the double names).
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arksRealFft(float* samps, int order, int flags);
ARKPX_API void arkdRealFft(double* samps, int order, int flags);
ARKPX_API void arkwRealFft(short* samps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arksCcsFft(float* samps, int order, int flags);
ARKPX_API void arkdCcsFft(double* samps, int order, int flags);
ARKPX_API void arkwCcsFft(short* samps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arksRealFftNip(const float* inSamps, FloatCplx* outSamps, int order, int flags);
ARKPX_API void arkdRealFftNip(const double* inSamps, DoubleCplx* outSamps, int order, int flags);
ARKPX_API void arkwRealFftNip(const short* inSamps, ShortCplx* outSamps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arksCcsFftNip(const FloatCplx* inSamps, float* outSamps, int order, int flags);
ARKPX_API void arkdCcsFftNip(const DoubleCplx* inSamps, double* outSamps, int order, int flags);
ARKPX_API void arkwCcsFftNip(const ShortCplx* inSamps, short* outSamps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arksRealFftl(float* samps, int order, int flags);
ARKPX_API void arkdRealFftl(double* samps, int order, int flags);
ARKPX_API void arkwRealFftl(short* samps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arksCcsFftl(float* samps, int order, int flags);
ARKPX_API void arkdCcsFftl(double* samps, int order, int flags);
ARKPX_API void arkwCcsFftl(short* samps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arksRealFftlNip(const float* inSamps, float* outSamps, int order, int flags);
ARKPX_API void arkdRealFftlNip(const double* inSamps, double* outSamps, int order, int flags);
ARKPX_API void arkwRealFftlNip(const short* inSamps, short* outSamps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arksCcsFftlNip(const float* inSamps, float* outSamps, int order, int flags);
ARKPX_API void arkdCcsFftlNip(const double* inSamps, double* outSamps, int order, int flags);
ARKPX_API void arkwCcsFftlNip(const short* inSamps, short* outSamps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arksReal2Fft(float* xSamps, float* ySamps, int order, int flags);
ARKPX_API void arkdReal2Fft(double* xSamps, double* ySamps, int order, int flags);
ARKPX_API void arkwReal2Fft(short* xSamps, short* ySamps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arksCcs2Fft(float* xSamps, float* ySamps, int order, int flags);
ARKPX_API void arkdCcs2Fft(double* xSamps, double* ySamps, int order, int flags);
ARKPX_API void arkwCcs2Fft(short* xSamps, short* ySamps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arksReal2FftNip(const float* xInSamps, const float* yInSamps, FloatCplx* xOutSamps, FloatCplx* yOutSamps, int order, int flags);
ARKPX_API void arkdReal2FftNip(const double* xInSamps, const double* yInSamps, DoubleCplx* xOutSamps, DoubleCplx* yOutSamps, int order, int flags);
ARKPX_API void arkwReal2FftNip(const short* xInSamps, const short* yInSamps, ShortCplx* xOutSamps, ShortCplx* yOutSamps, int order, int flags, int scaleMode, int* scaleFactor);

ARKPX_API void arksCcs2FftNip(const FloatCplx* xInSamps, const FloatCplx* yInSamps, float* xOutSamps, float* yOutSamps, int order, int flags);
ARKPX_API void arkdCcs2FftNip(const DoubleCplx* xInSamps, const DoubleCplx* yInSamps, double* xOutSamps, double* yOutSamps, int order, int flags);
ARKPX_API void arkwCcs2FftNip(const ShortCplx* xInSamps, const ShortCplx* yInSamps, short* xOutSamps, short* yOutSamps, int order, int flags, int scaleMode, int* scaleFactor);

/* ---------------------------------------------------------------------------------------------------------------
 * Products of packed spectra
 *
 *   MpyRCPack2, MpyRCPerm2   dst[k] = dst[k] * src[k]           MpyRCPack3, MpyRCPerm3   dst[k] = srcA[k] * srcB[k]
 *
 * for the elements k = 0 ... N/2, in arrays of N = 2^order reals: real products at k = 0 and N/2, complex ones
 * between. The arithmetic, and for 16 bits the scaling, are those of the vector products (arkpx/vector.h): exact products
 * in 32 bits, fixed factors modulo 32; one factor serves the whole spectrum. Any source may be the destination.
 *
 * Reports, each ARK_StatusBadArgument, all that fail, in this order: "order<0", "order>31", "src==0" or "srcA==0",
 * "srcB==0", "dst==0", and for 16 bits "scaleFactor==0" in every mode. Then the thread's status is tested: if it is
 * negative, nothing is written. Modules as above. Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arksMpyRCPack2(const float* src, float* dst, int order);
ARKPX_API void arkdMpyRCPack2(const double* src, double* dst, int order);
ARKPX_API void arkwMpyRCPack2(const short* src, short* dst, int order, int scaleMode, int* scaleFactor);

ARKPX_API void arksMpyRCPerm2(const float* src, float* dst, int order);
ARKPX_API void arkdMpyRCPerm2(const double* src, double* dst, int order);
ARKPX_API void arkwMpyRCPerm2(const short* src, short* dst, int order, int scaleMode, int* scaleFactor);

ARKPX_API void arksMpyRCPack3(const float* srcA, const float* srcB, float* dst, int order);
ARKPX_API void arkdMpyRCPack3(const double* srcA, const double* srcB, double* dst, int order);
ARKPX_API void arkwMpyRCPack3(const short* srcA, const short* srcB, short* dst, int order, int scaleMode, int* scaleFactor);

ARKPX_API void arksMpyRCPerm3(const float* srcA, const float* srcB, float* dst, int order);
ARKPX_API void arkdMpyRCPerm3(const double* srcA, const double* srcB, double* dst, int order);
ARKPX_API void arkwMpyRCPerm3(const short* srcA, const short* srcB, short* dst, int order, int scaleMode, int* scaleFactor);

/* ---------------------------------------------------------------------------------------------------------------
 * DFT of any length
 *
 *   ARK_Forw   y[m] =         sum over k of x[k] e^(-2 pi i k m / len)          k, m = 0 ... len-1
 *   ARK_Inv    y[m] = 1/len * sum over k of x[k] e^(+2 pi i k m / len)          with ARK_NoScale: without 1/len
 *
 * len elements in each array, any len >= 1, primes too. x and y may overlap in any way: a copy of x is transformed. All
 * is computed in double precision and rounded to the type at the end; y[0] is the plain sum. Lengths up to 36 and those
 * whose prime factors are at most 13 are taken apart into these factors; others take a convolution by FFTs of at least
 * 2 len - 1 elements (Bluestein, 1970), which is some five times slower. The time of all grows as len log len. arkvDft
 * computes arkcDft of the samples as floats; its results are rounded and brought to 16 bits as those of the 16-bit
 * transforms above, a negative scaleMode counts as 0.
 *
 * A length takes one of the 32 places of the thread's cache of twiddle tables. ARK_Init only builds the table that
 * arkcGetDftTwdTbl or arkzGetDftTwdTbl hands out, so that these lengths can be chosen beforehand. Other bits of flags
 * than these four are ignored; there is no ARK_Free: arkcFreeTwdTbls (c, v) and arkzFreeTwdTbls (z, and what all three
 * have for FFTs) release everything.
 *
 * arkcDft and arkzDft, in this order: a negative status of the thread, also of an earlier failure: nothing is done. Then
 * ARK_StatusBadArgument "length<=0" in the name of the function that gets the table, or what else that reports; "len<=0"
 * and "tw==0" (there is no table), both if both hold. With ARK_Init: done. Then the first of "x==0", "y==0", "ARK_Forw or
 * ARK_Inv must be as a flag" (exactly one of them). ARK_StatusOutOfMemory "NULL Pointer": no working memory, even
 * without the tables that the double-precision transforms keep for themselves.
 * arkvDft: "length<=0"; the status is tested; with ARK_Init the table is built; the first of "inSamps==0", "outSamps==0";
 * "ARK_FIXED_SCALE and ARK_AUTO_SCALE" (both bits set), "ARK_AUTO_SCALE and scaleFactor==NULL", both if both hold;
 * ARK_StatusOutOfMemory "NULL Pointer". What fails in arkcDft is reported there and once more as ARK_StatusBacktrace with
 * "out arkcDft ARK_Init" (flags hold ARK_Init) or "out arkcDft calc. DFT". After any report y and outSamps are untouched.
 *
 * Modules arkdft (c, z), arkdftw (v). Allocates: on the first use of a length, its tables, and working memory of up to 4
 * len complex doubles, which grows with the longest; all belong to the calling thread and go with it. arkvDft: every
 * call, len complex floats. Threads share nothing.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arkcDft(const FloatCplx* x, FloatCplx* y, int len, int flags);
ARKPX_API void arkzDft(const DoubleCplx* x, DoubleCplx* y, int len, int flags);
ARKPX_API void arkvDft(const ShortCplx* inSamps, ShortCplx* outSamps, int length, int flags, int scaleMode, int* scaleFactor);

/* ---------------------------------------------------------------------------------------------------------------
 * Goertzel: one frequency of a signal, sample by sample
 *
 *   s[n] = 2 cos(2 pi freq) s[n-1] - s[n-2] + x[n]        s[-1] = s[-2] = 0
 *   the coefficient after sample n = e^(2 pi i freq) s[n] - s[n-1]
 *
 * freq is in cycles per sample, 0 < freq < 0.5. After N samples with freq N a whole number m, the coefficient is element m
 * of their DFT; else it is sum over k of x[k] e^(2 pi i freq (N - k)), of the magnitude of their spectrum at freq.
 *
 *   GoertzInit        fills the record and begins
 *   GoertzReset       begins anew at the same frequency
 *   Goertz            feeds one sample and returns the coefficient
 *   sbGoertz, ...     feed len samples (elements) and return the coefficient after the last
 *
 * A block gives what its samples one by one give, to the bit: the sums are computed in double, and s is rounded to the
 * record's precision at every sample. The members of real signals keep s in the real parts. Those of a precision (s, c, w
 * and v; d and z) have one record, and their Init and Reset do the same. The record is the caller's, holds no pointers,
 * may be copied, and needs no end.
 *
 * The 16-bit members bring the coefficient, rounded to the nearest integer (ties to even), to 16 bits as
 * arkpx/types.h says: ARK_WRAP (and a negative scaleMode) keeps the low 16 bits, ARK_SATURATE clamps,
 * ARK_AUTO_SCALE writes to *scaleFactor; one factor serves both parts.
 *
 * Reports, each ARK_StatusBadArgument, the first that fails; the status is not looked at; the record is untouched and the
 * returned coefficient (0, 0):
 *   Init             "Null state pointer", "Invalid frequency value" (0.5, what the type takes for 0, not a number)
 *   Reset, Goertz    "Null state pointer"
 *   blocks           "Null state pointer", "Null buffer pointer", "Invalid array length" (len < 1)
 *   16-bit members   "Null state pointer", "Zero scale factor pointer", whatever the mode is; "Too large scale factor"
 *                    (*scaleFactor outside -14 ... 14); "Erroneus scale mode" (scaleMode > 4); blocks then as above
 * Modules arkgrtzl, arkgrtzw (w, v). Allocates: never. A record serves one thread at a time.
 * --------------------------------------------------------------------------------------------------------------- */
typedef struct ArksGoertzState {
    float freq; /* cycles per sample */
    float cosW; /* cos(2 pi freq), sin(2 pi freq), 2 cos(2 pi freq), with 2 pi as a double */
    float sinW;
    float coef;
    FloatCplx s2; /* s[n-1] */
    FloatCplx s1; /* s[n] */
} ArksGoertzState;
typedef struct ArkdGoertzState {
    double freq;
    double cosW;
    double sinW;
    double coef;
    DoubleCplx s2;
    DoubleCplx s1;
} ArkdGoertzState;

ARKPX_API void arksGoertzInit(float freq, ArksGoertzState* state);
ARKPX_API void arkdGoertzInit(double freq, ArkdGoertzState* state);
ARKPX_API void arkcGoertzInit(float freq, ArksGoertzState* state);
ARKPX_API void arkzGoertzInit(double freq, ArkdGoertzState* state);
ARKPX_API void arkwGoertzInit(float freq, ArksGoertzState* state);
ARKPX_API void arkvGoertzInit(float freq, ArksGoertzState* state);

ARKPX_API void arksGoertzReset(ArksGoertzState* state);
ARKPX_API void arkdGoertzReset(ArkdGoertzState* state);
ARKPX_API void arkcGoertzReset(ArksGoertzState* state);
ARKPX_API void arkzGoertzReset(ArkdGoertzState* state);
ARKPX_API void arkwGoertzReset(ArksGoertzState* state);
ARKPX_API void arkvGoertzReset(ArksGoertzState* state);

ARKPX_API FloatCplx  arksGoertz(ArksGoertzState* state, float sample);
ARKPX_API DoubleCplx arkdGoertz(ArkdGoertzState* state, double sample);
ARKPX_API FloatCplx  arkcGoertz(ArksGoertzState* state, FloatCplx sample);
ARKPX_API DoubleCplx arkzGoertz(ArkdGoertzState* state, DoubleCplx sample);
ARKPX_API ShortCplx  arkwGoertz(ArksGoertzState* state, short sample, int scaleMode, int* scaleFactor);
ARKPX_API ShortCplx  arkvGoertz(ArksGoertzState* state, ShortCplx sample, int scaleMode, int* scaleFactor);

ARKPX_API FloatCplx  arksbGoertz(ArksGoertzState* state, const float* samps, int len);
ARKPX_API DoubleCplx arkdbGoertz(ArkdGoertzState* state, const double* samps, int len);
ARKPX_API FloatCplx  arkcbGoertz(ArksGoertzState* state, const FloatCplx* samps, int len);
ARKPX_API DoubleCplx arkzbGoertz(ArkdGoertzState* state, const DoubleCplx* samps, int len);
ARKPX_API ShortCplx  arkwbGoertz(ArksGoertzState* state, const short* samps, int len, int scaleMode, int* scaleFactor);
ARKPX_API ShortCplx  arkvbGoertz(ArksGoertzState* state, const ShortCplx* samps, int len, int scaleMode, int* scaleFactor);

/* ---------------------------------------------------------------------------------------------------------------
 * DCT, types II and III
 *
 *   ARK_Forw   y[0] = sqrt(1/N) sum over n of x[n]
 *              y[k] = sqrt(2/N) sum over n of x[n] cos(pi (2n+1) k / (2N))                          k = 1 ... N-1
 *   ARK_Inv    x[n] = sqrt(1/N) y[0] + sqrt(2/N) sum over k = 1 ... N-1 of y[k] cos(pi (2n+1) k / (2N))
 *
 * n = 0 ... N-1, N = len >= 1, any. The transform is orthonormal: each direction undoes the other, up to rounding. src and
 * dst may overlap in any way. All is computed in double precision and rounded to the type at the end. Powers of two take
 * one real FFT, from 32 on; other lengths the DFT above, of half the length when it is even (Makhoul, 1980).
 * arkwDct is arksDct of the samples, whose results it rounds to the nearest integer (ties to even) and saturates: a
 * constant c has the coefficient c sqrt(N).
 *
 * A flag word of exactly ARK_Free releases the tables of all three members; nothing else is looked at. Other bits than
 * ARK_Forw and ARK_Inv are ignored otherwise, ARK_Init too.
 *
 * Reports, the first that fails; the status is not looked at; dst is untouched; each text begins and ends with a line
 * feed: ARK_StatusBadArgument "\nNull pointer to data buffer\n", "\nBad value of data buffer size\n" (len < 1), "\nBad
 * value of the transform flag\n" (exactly one of ARK_Forw and ARK_Inv); ARK_StatusOutOfMemory "\nMemory allocation
 * problem\n", when it is short even without the tables that the transforms of the thread keep for themselves.
 *
 * Module arkdct. Allocates: never for 1, 2, 4, 8 and 16; other powers of two every call, len doubles; other lengths the
 * DFT's working memory, which the thread keeps; arkwDct every call len floats besides. On the first use of a length, a
 * table: those of the 8 lengths used last are kept for the whole process, until ARK_Free. Any number of threads may
 * transform any lengths at the same time, also while one frees: who uses a table owns it meanwhile, and the others make
 * their own. The FFTs' tables belong to the calling thread, as those above.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arksDct(const float* src, float* dst, int len, int flags);
ARKPX_API void arkdDct(const double* src, double* dst, int len, int flags);
ARKPX_API void arkwDct(const short* src, short* dst, int len, int flags);

/* ---------------------------------------------------------------------------------------------------------------
 * Wavelet transform
 *
 * The discrete wavelet transform of N = 2^dataOrder real samples over level levels, 0 <= level < dataOrder: a two-channel
 * filter bank applied to the signal, then to its low band, and so on. The signal counts as periodic: all indices are
 * modulo the length M of the level's signal, also where a filter is several times longer.
 *
 *   Decompose     low[n]  = sum over k of h0[k] x[2n + o0 - k]       h0 the analysis low-pass of Flen[0] taps, o0 = Fofs[0]
 *                 high[n] = sum over k of h1[k] x[2n + o1 - k]       h1 the analysis high-pass; n = 0 ... M/2 - 1
 *   Reconstruct   x[m] = sum over n of g0[m - 2n + o2] low[n] + g1[m - 2n + o3] high[n]       m = 0 ... M - 1
 *                                                                    g0, g1 the synthesis filters; taps outside are 0
 *
 * Each level leaves its high band in the upper half and goes on with the lower one. The subbands in dst, and in
 * Reconstruct's src, are thus, for level 3 and N = 16,
 *
 *   elements 0 1 | 2 3 | 4 5 6 7 | 8 ... 15
 *            low   high  high      high
 *            of level 3  of 2      of 1
 *
 * in general the low band in elements 0 ... 2^(dataOrder-level) - 1 and the high band of level j in the elements from
 * 2^(dataOrder-j) to 2^(dataOrder-j+1) - 1. Level 0 copies. dst may be src; otherwise they must not overlap.
 *
 * Example: Haar, N = 4, one level, r = 1/sqrt(2). h0 = {r, r}, h1 = {-r, r}, g0 = {r, r}, g1 = {r, -r}, offsets
 * {1, 1, 0, 0}. x = {1, 3, 4, 8}:
 *   low[0]  = h0[0] x[1] + h0[1] x[0] =  3r + 1r = 4r       low[1]  = 12r       dst = {4r, 12r, -2r, -4r}
 *   high[0] = h1[0] x[1] + h1[1] x[0] = -3r + 1r = -2r      high[1] = -4r
 *   x[0] = g0[0] low[0] + g1[0] high[0] = 4rr - 2rr = 1     x[1] = g0[1] low[0] + g1[1] high[0] = 4rr + 2rr = 3
 *
 * Built-in wavelets, numbered by wtType. par1 and par2 are ignored where none is named, but always stored.
 *
 *   1  Haar
 *   2  Daubechies, par1 vanishing moments, 1 to 20; 2 par1 taps
 *   3  symlets, their nearly symmetric relatives, par1 2 to 20; 2 par1 taps
 *   4  coiflets, par1 1 to 5; 6 par1 taps
 *   5  biorthogonal with linear phase (Cohen, Daubechies, Feauveau), known as par1.par2: the synthesis low-pass has par1
 *      zeros at the Nyquist frequency, the analysis low-pass par2: 1 with 1 3 5; 2 with 2 4 6 8; 3 with 1 3 5 7 9; 4 with
 *      4; 5 with 5 (in truth 6 and 4); 6 with 8. High bands of polynomials of degree below par1 vanish.
 *   6  the same with analysis and synthesis exchanged
 *   7  discrete Meyer, 62 taps
 *   8  Beylkin, 18 taps
 *   9  Vaidyanathan, 24 taps
 *
 * 5 and 6 are of kind 2; the others are orthogonal, of kind 1: their transform keeps the sum of squares. Low-pass taps
 * have the sum sqrt(2). Types 7 and 9 are the filters of that name in common use moved to the nearest exactly orthogonal
 * ones (taps by up to 9e-4 and 7e-6). With types 1 to 6, the bands are those that PyWavelets computes with mode
 * periodization. For an orthogonal filter of F taps the offsets are {F/2, F/2, F/2 - 1, F/2 - 1}.
 * Sources: I. Daubechies, Ten Lectures on Wavelets; the taps are computed by tools/wavelet_taps.py, which names the others.
 *
 * wtType 10 stands for the caller's own four filters, in the order h0, h1, g0, g1 (kind 3): Flen[0] = Flen[3] >= 2,
 * Flen[1] = Flen[2] >= 2, 0 <= Fofs[i] < Flen[i]. They are copied. Filters as tables have them, whose bank restores the
 * signal after a delay of D samples - H0(z) G0(z) + H1(z) G1(z) = 2 z^-D, H0(-z) G0(z) + H1(-z) G1(z) = 0 - take any
 * offsets with o0 + o2 = o1 + o3 = D and o0 - o1 even; Reconstruct then inverts Decompose. For orthogonal filters of F
 * taps, D = F - 1.
 *
 * The record is the caller's; the arrays behind it are the library's, from Init or SetState to arkWtFree. Init builds a
 * wavelet, SetState does the same through Init or takes the caller's filters; both begin with clearing the record, whatever
 * it holds, and leave it cleared on failure: call arkWtFree before a record is used anew.
 * GetState gives the fields, and the filters as pointers to the record's own; they may be passed to SetState, also of the
 * same record. Any of GetState's outputs may be null. A record serves one thread at a time, as it holds the working
 * buffer; members of one type only (s and w share records).
 *
 *   wtState state;
 *   arksWtInit(4, 0, 10, 5, &state, 3);           symlets of 4 moments, 1024 samples, 5 levels
 *   arksWtDecompose(&state, src, dst);
 *   arksWtReconstruct(&state, dst, src);
 *   arkWtFree(&state);
 *
 * Arithmetic is in the element's type, one band's sum of both filters after the other; w computes in float and rounds to
 * the nearest integer (ties to even), saturated at both ends: the low band of a full-scale signal grows by sqrt(2) a level.
 *
 * Reports, module arkwlts, ARK_StatusBadArgument. Checks of one line are all reported.
 *   Init          "wtState==0"
 *                 "dataOrder<1", "dataOrder>31", "level<0", "level>(dataOrder-1)"; then the thread's status is tested
 *                 "error in the type of wavelet" (also for parameters that it does not have)
 *                 ARK_StatusOutOfMemory "No working wavelet memory"
 *   SetState      type 10: "wtState==0"
 *                 those of the second line of Init, then the status
 *                 "Ftaps eq. NULL", "Flen eq. NULL", "Fofs eq. NULL"
 *                 "Bad pointers in Ftaps", "Bad filter lengths", "Bad filter offsets"
 *                 ARK_StatusOutOfMemory "No working wavelet memory"
 *                 other types: those of Init under its name, then ARK_StatusBacktrace "out arksWtInit" (of its own type)
 *   GetState      "wtState==0" or "wtState is not initialised"; the status is not tested
 *   Decompose,    "wtState==0", "src==0", "dst==0"; then the status is tested
 *   Reconstruct   "wtState is not initialised"
 *                 "wtState->dataOrder<1", "wtState->dataOrder>31", "wtState->level<0",
 *                 "wtState->level>(wtState->dataOrder-1)", "error in the type of wavelet" (kind not 1, 2 or 3),
 *                 "wtState->tap_filt[ 0 ]==0" to "[ 3 ]", "wtState->src_pad==0", "error in the filter lengths",
 *                 "error in the filter lengths ortho. wavelet" (kind 1: not equal, or odd), "error in the filter offsets"
 *                 w: ARK_StatusOutOfMemory "No memory for working arrays"
 *   arkWtFree     "wtState==0"; the status is not tested
 * Allocates: Init and SetState; Decompose and Reconstruct of 16 bits, N floats, on every call.
 * --------------------------------------------------------------------------------------------------------------- */
typedef struct wtState {
    int   initialised; /* 1 from a successful Init or SetState to arkWtFree */
    int   wtType;      /* 1 to 9 built-in, 10 the caller's filters */
    int   kind;        /* 1 orthogonal, 2 biorthogonal, 3 the caller's filters */
    int   par1;
    int   par2;
    int   dataOrder;   /* 1 to 31 */
    int   level;       /* 0 to dataOrder - 1 */
    int   Flen[4];     /* of analysis low-pass and high-pass, synthesis low-pass and high-pass */
    int   Fofs[4];
    void* tap_filt[4]; /* float, or double for the d members */
    void* src_pad;     /* working buffer, 2^dataOrder + 2 max(Flen[0], Flen[1]) elements and some more */
} wtState;

ARKPX_API void arksWtInit(int par1, int par2, int dataOrder, int level, wtState* state, int wtType);
ARKPX_API void arkdWtInit(int par1, int par2, int dataOrder, int level, wtState* state, int wtType);
ARKPX_API void arkwWtInit(int par1, int par2, int dataOrder, int level, wtState* state, int wtType);

ARKPX_API void arksWtSetState(wtState* state, int wtType, int par1, int par2, int dataOrder, int level, const float* Ftaps[4], const int Flen[4], const int Fofs[4]);
ARKPX_API void arkdWtSetState(wtState* state, int wtType, int par1, int par2, int dataOrder, int level, const double* Ftaps[4], const int Flen[4], const int Fofs[4]);
ARKPX_API void arkwWtSetState(wtState* state, int wtType, int par1, int par2, int dataOrder, int level, const float* Ftaps[4], const int Flen[4], const int Fofs[4]);

ARKPX_API void arksWtGetState(wtState* state, int* wtType, int* par1, int* par2, int* dataOrder, int* level, float* Ftaps[4], int Flen[4], int Fofs[4]);
ARKPX_API void arkdWtGetState(wtState* state, int* wtType, int* par1, int* par2, int* dataOrder, int* level, double* Ftaps[4], int Flen[4], int Fofs[4]);
ARKPX_API void arkwWtGetState(wtState* state, int* wtType, int* par1, int* par2, int* dataOrder, int* level, float* Ftaps[4], int Flen[4], int Fofs[4]);

ARKPX_API void arksWtDecompose(wtState* state, const float* src, float* dst);
ARKPX_API void arkdWtDecompose(wtState* state, const double* src, double* dst);
ARKPX_API void arkwWtDecompose(wtState* state, const short* src, short* dst);

ARKPX_API void arksWtReconstruct(wtState* state, const float* src, float* dst);
ARKPX_API void arkdWtReconstruct(wtState* state, const double* src, double* dst);
ARKPX_API void arkwWtReconstruct(wtState* state, const short* src, short* dst);

ARKPX_API void arkWtFree(wtState* state);

#ifdef __cplusplus
}
#endif

#endif
