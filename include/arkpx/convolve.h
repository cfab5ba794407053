/* arkpx/convolve.h - up- and down-sampling. */
#ifndef ARKPX_CONVOLVE_H
#define ARKPX_CONVOLVE_H

#include <arkpx/types.h>

#ifdef __cplusplus
extern "C" {
#endif

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
