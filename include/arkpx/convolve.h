/* arkpx/convolve.h - convolution; up- and down-sampling. */
#ifndef ARKPX_CONVOLVE_H
#define ARKPX_CONVOLVE_H

#include <arkpx/types.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---------------------------------------------------------------------------------------------------------------
 * Convolution, linear and complete
 *
 *   y[k] = sum over i of x[i] h[k-i], k = 0 ... xLen+hLen-2, over all i for which both elements exist
 *
 *   {1, 2, 3} with {1, 1}:  {1, 3, 5, 3}
 *
 * Lengths: xLen elements in x, hLen in h, xLen + hLen - 1 in y. y overlaps neither operand; x may be h. Exchanged
 * operands give the same result, but for the rounding where the lengths are equal: the shorter operand, of n elements
 * (h where both are as long), takes the part of a filter, the longer one, of L, that of a signal. Types: s, d, c, z; of
 * the mixed members the first letter is the type of x, the second that of h.
 *
 * Each call takes the way that tables of measured timings say is the quickest; no trial is run.
 *   direct     short filters: n up to 20 (real) or 12 (c) always, a few more for z and mixed members; and n up to 101
 *              (real) or 46 (c) while L is below a limit that falls with n. Sums grow in the precision of y, from the
 *              first element of the shorter operand to the last, every product and sum rounded: the same bits on all
 *              processors. The product of two complex elements (a b: re = a.re b.re - a.im b.im, im = a.re b.im +
 *              a.im b.re) is complete before it is added. The error is below 2 (n + 1) half ulps of the sum of the
 *              products' magnitudes; integers are exact while that sum is below 2^24 (2^53 in double).
 *   whole      one FFT of the smallest power of two that holds y
 *   blocks     overlap-save with an FFT of two or four times the smallest power of two above n
 *   The error of the last two is that of the transforms: a few ulps of the greatest sum of magnitudes in a block, also
 *   where y itself is small, so that integers are nearly and not exactly such.
 *
 * arkwConv computes in single precision, by the way that arksConv takes; then each y is rounded to the nearest integer
 * (ties to even, in 64 bits) and scaled by the rules of types.h: 0 wraps, ARK_SATURATE clamps, ARK_FIXED_SCALE shifts
 * by *scaleFactor (null: 0; left shifts by 15 at the most) and wraps, or clamps with ARK_SATURATE, ARK_AUTO_SCALE
 * chooses the factor and stores it. Other modes count as 0.
 *
 * Reports. The thread's status is set to ARK_StatusOk first: an earlier failure stops nothing. Then every check that
 * fails is reported, in this order, each ARK_StatusBadArgument, with y untouched: "x==0", "xLen<=0", "h==0", "hLen<=0",
 * "y==0", "xLen+hLen-1>2147483647"; arkwConv, when these hold: "ARK_FIXED_SCALE and ARK_AUTO_SCALE", "ARK_AUTO_SCALE and
 * scaleFactor==NULL". Without memory, ARK_StatusOutOfMemory: the transform's own report, or "NULL Pointer" under the
 * name of the inner way, arksConv0 (whole) or arksConv1 (blocks), and so on for each member; then ARK_StatusBacktrace
 * with a null message under the names that were passed through, the inner way's (after the transform) and the
 * member's. arkwConv reports "NULL pointer to float copy x", "... h" and "... y" under its own name. When memory is
 * short y is untouched. Modules arkconvs (s, c, sc, cs), arkconvd (d, z, dz, zd), arkconvw.
 *
 * Allocates: the direct way nothing; the others two buffers of the transform's length, every call, and the tables of
 * that transform, which the thread keeps (transform.h). arkwConv floats for all three vectors besides.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arksConv (const float*      x, int xLen, const float*      h, int hLen, float*      y);
ARKPX_API void arkdConv (const double*     x, int xLen, const double*     h, int hLen, double*     y);
ARKPX_API void arkcConv (const FloatCplx*  x, int xLen, const FloatCplx*  h, int hLen, FloatCplx*  y);
ARKPX_API void arkzConv (const DoubleCplx* x, int xLen, const DoubleCplx* h, int hLen, DoubleCplx* y);
ARKPX_API void arkscConv(const float*      x, int xLen, const FloatCplx*  h, int hLen, FloatCplx*  y);
ARKPX_API void arkcsConv(const FloatCplx*  x, int xLen, const float*      h, int hLen, FloatCplx*  y);
ARKPX_API void arkdzConv(const double*     x, int xLen, const DoubleCplx* h, int hLen, DoubleCplx* y);
ARKPX_API void arkzdConv(const DoubleCplx* x, int xLen, const double*     h, int hLen, DoubleCplx* y);

ARKPX_API void arkwConv(const short* x, int xLen, const short* h, int hLen, short* y, int scaleMode, int* scaleFactor);

/* ---------------------------------------------------------------------------------------------------------------
 * Up- and down-sampling by a whole factor, without a filter
 *
 *   UpSample      dst[phase + k factor] = src[k], k = 0 ... srcLen-1, all other elements of dst zero; *dstLen = srcLen
 *                 factor; *phase stays: the next block of a stream uses it again
 *   DownSample    dst[k] = src[phase + k factor] while the index is below srcLen; *dstLen = how many; *phase = the
 *                 offset of the next one to keep into the next block: any partition of a stream into blocks keeps the
 *                 same samples
 *
 *   {1, 2} up by 3, phase 1:              {0, 1, 0, 0, 2, 0}
 *   {a0 ... a9} down by 3, phase 2:       {a2, a5, a8}, phase becomes 1; then {b0 ... b4}: {b1, b4}, phase 2
 *
 * Lengths: srcLen elements in src; dst has room for srcLen factor (up) or srcLen / factor rounded up (down). In place:
 * src may be dst (up: in an array that has the room).
 *
 * Reports, each ARK_StatusBadArgument, the first that fails, with everything untouched; the thread's status is not
 * tested: "Invalid src array length" (srcLen < 1), "Null buffer pointer" (src, dst), "Null dstLen pointer", "Null phase
 * pointer", "Invalid factor value" (factor < 1), "Invalid phase value" (*phase < 0), "Invalid factor value" (factor <=
 * *phase); UpSample: "Invalid factor value" (srcLen factor above 2^31-1). Module arksampl. Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arksUpSample(const float* src, int srcLen, float* dst, int* dstLen, int factor, int* phase);
ARKPX_API void arkdUpSample(const double* src, int srcLen, double* dst, int* dstLen, int factor, int* phase);
ARKPX_API void arkcUpSample(const FloatCplx* src, int srcLen, FloatCplx* dst, int* dstLen, int factor, int* phase);
ARKPX_API void arkzUpSample(const DoubleCplx* src, int srcLen, DoubleCplx* dst, int* dstLen, int factor, int* phase);
ARKPX_API void arkwUpSample(const short* src, int srcLen, short* dst, int* dstLen, int factor, int* phase);
ARKPX_API void arkvUpSample(const ShortCplx* src, int srcLen, ShortCplx* dst, int* dstLen, int factor, int* phase);

ARKPX_API void arksDownSample(const float* src, int srcLen, float* dst, int* dstLen, int factor, int* phase);
ARKPX_API void arkdDownSample(const double* src, int srcLen, double* dst, int* dstLen, int factor, int* phase);
ARKPX_API void arkcDownSample(const FloatCplx* src, int srcLen, FloatCplx* dst, int* dstLen, int factor, int* phase);
ARKPX_API void arkzDownSample(const DoubleCplx* src, int srcLen, DoubleCplx* dst, int* dstLen, int factor, int* phase);
ARKPX_API void arkwDownSample(const short* src, int srcLen, short* dst, int* dstLen, int factor, int* phase);
ARKPX_API void arkvDownSample(const ShortCplx* src, int srcLen, ShortCplx* dst, int* dstLen, int factor, int* phase);

#ifdef __cplusplus
}
#endif

#endif
