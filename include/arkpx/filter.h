/* arkpx/filter.h - filters. */
#ifndef ARKPX_FILTER_H
#define ARKPX_FILTER_H

#include <arkpx/types.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---------------------------------------------------------------------------------------------------------------
 * IIR filters: what both levels compute
 *
 * Arbitrary order N, coefficients b0 ... bN, a0 ... aN (2 N + 2 elements):
 *
 *   a0 y[i] = b0 x[i] + b1 x[i-1] + ... + bN x[i-N] - a1 y[i-1] - ... - aN y[i-N]
 *
 * The a's carry the signs of the denominator, as designed: the filter is (b0 + b1 z^-1 + ...) / (a0 + a1 z^-1 + ...).
 *
 * Cascade of Q second-order sections (biquads), coefficients b0 b1 b2 a0 a1 a2 of each section in turn (6 Q elements):
 * every section is such a filter with N = 2, the output of one is the input of the next.
 *
 * Prefer cascades: above order 4 or so, rounding the coefficients of an arbitrary-order filter to float moves its poles
 * noticeably, and may make it unstable. Nothing tests stability. SciPy's second-order sections are in the order that is
 * wanted here:
 *
 *   sos = scipy.signal.butter(8, 1000, fs=8000, output="sos")
 *   taps = sos.astype("float32").ravel()       # b0 b1 b2 a0 a1 a2 of each section
 *   numQuads = len(sos)
 *   # arksIirInitBq(0, taps, numQuads, &state); arksbIir(&state, src, dst, n);
 *
 * Init normalises the coefficients in place (the caller's array at the low level, an own copy in an object):
 *
 *   Init     b0/a0 ... bN/a0, a1/a0 ... aN/a0; the last element keeps its value. a0 must not be zero.
 *   InitBq   element 0: the gain, the product of all b0/a0; then for section i, at 4i+1 ... 4i+4:
 *            a1/a0  a2/a0  b1/b0  b2/b0. No b0 and no a0 may be zero.
 *
 * The delay line has N or 2 Q elements of the output's type, at first zero. With normalised coefficients a sample does,
 *
 *   arbitrary order (transposed direct form II)      section (direct form II); the first one gets v = gain x
 *     y = b0 x + d[0]                                  w = v - a1 d[2i] - a2 d[2i+1]
 *     d[k-1] = bk x - ak y + d[k],  k = 1 ... N-1      v = w + (b1/b0) d[2i] + (b2/b0) d[2i+1]
 *     d[N-1] = bN x - aN y                             d[2i+1] = d[2i], d[2i] = w
 *
 * Types. s, d, c, z: coefficients, data and results of one type. Mixed members: the first letter is the data's type, the
 * second the coefficients': sc and dz filter real data with complex coefficients, cs and zd complex data with real ones;
 * delay line and results are complex, and the coefficients are initialised with the functions of their own type, the
 * delay line with the complex one (arkcIirlInitDlyl, arkzIirlInitDlyl). w: 16-bit data, see below.
 *
 * Accuracy. All arithmetic is in double, products and sums fused where the processor can; outputs are rounded when they
 * are stored, never before they are fed back. The delay line is rounded to its type after the sample in one-sample
 * calls, in blocks when at most 512 samples are done; so blocks are more exact than samples one by one, and float
 * results of different partitions of a signal differ by that rounding. Quotients of the normalisation are formed in
 * double; complex ones neither overflow nor vanish before the result does.
 *
 * In place: outSamps may be inSamps where data and results are of one type; other overlaps are not allowed.
 *
 * Denormal numbers: float filters whose input has ended pass through the denormal range of float in the outputs only;
 * in blocks their states are doubles and leave the range of float as zeros, so that a decaying tail costs no time.
 *
 * 16-bit data (w): float coefficients, laid out and normalised as those of s, and a float delay line. Results are formed
 * in double, rounded to the nearest integer, ties to even, then scaled: the modes 0 to 4 as in types.h, shifts of at most
 * 63 to the right and 15 to the left, any other mode counts as ARK_WRAP; ARK_AUTO_SCALE chooses one factor for the call,
 * which brings the largest magnitude into 16384 ... 32767 if it does not fit as it is. The factor scales results only,
 * the state is not touched by it.
 *
 * Reports: in every function the checks are made in groups; all that fail of a group are reported, then the thread's
 * status is tested, and a negative one, also from an earlier failure, ends the function with nothing written (functions
 * with a result return zero).
 * --------------------------------------------------------------------------------------------------------------- */

/* ---------------------------------------------------------------------------------------------------------------
 * IIR filters in the caller's memory
 *
 * Two records point at two arrays, all four the caller's; there is nothing to free. One IirlTapState can serve any
 * number of delay lines. iirType is 0 or 1 and without effect.
 *
 * b functions filter numIters samples (0: none): as numIters calls for one sample do.
 *
 * Reports, each ARK_StatusBadArgument; a semicolon ends a group:
 *
 *   Init       "tapStPtr==0", "taps==0", "order < 0", "iirType is out of range"; then a0 = 0 (a complex one in both
 *              parts): "taps[order+1] equals zero"
 *   InitBq     "tapStPtr==0", "taps==0", "numQuads <= 0", "iirType is out of range"; then for the first section i that
 *              has b0 = 0 "taps[i*6] equals zero", or else a0 = 0 "taps[i*6+3] equals zero", i in digits. The sections
 *              before it are then normalised already.
 *   InitDlyl   "tapStPtr==0", "dlyStPtr==0"; "structure *tapStPtr wasn't initialized", "dlyl==0" (order above 0)
 *   one        "tapStPtr==0", "dlyStPtr==0"; "structure *tapStPtr wasn't initialized", "structure *dlyStPtr wasn't
 *   sample     initialized" (order above 0)
 *   block      "tapStPtr==0", "dlyStPtr==0", "inSamps==0", "outSamps==0"; the two above, "numIters < 0"
 *
 * The 16-bit filters add to their last group "ARK_FIXED_SCALE and ARK_AUTO_SCALE" (both bits set) and "ARK_AUTO_SCALE and
 * scaleFactor==NULL". A section count whose double exceeds 2^31-1 reports ARK_StatusOutOfMemory with "insufficiency of
 * memory for IIR filter state". Modules arkiirl and, for the w members, arkiirlw. Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
typedef struct IirlTapState {
    int order;    /* N, or twice the number of sections: the length of the delay line */
    void* taps;   /* normalised coefficients */
    int iirType;  /* as given to Init */
    int isBiquad; /* 0 arbitrary order, 1 cascade; any other value: not initialised */
} IirlTapState;

typedef struct IirlDlyState {
    void* dlyl;
} IirlDlyState;

ARKPX_API void arksIirlInit(int iirType, float* taps, int order, IirlTapState* tapStPtr);
ARKPX_API void arkdIirlInit(int iirType, double* taps, int order, IirlTapState* tapStPtr);
ARKPX_API void arkcIirlInit(int iirType, FloatCplx* taps, int order, IirlTapState* tapStPtr);
ARKPX_API void arkzIirlInit(int iirType, DoubleCplx* taps, int order, IirlTapState* tapStPtr);
ARKPX_API void arkwIirlInit(int iirType, float* taps, int order, IirlTapState* tapStPtr);

ARKPX_API void arksIirlInitBq(int iirType, float* taps, int numQuads, IirlTapState* tapStPtr);
ARKPX_API void arkdIirlInitBq(int iirType, double* taps, int numQuads, IirlTapState* tapStPtr);
ARKPX_API void arkcIirlInitBq(int iirType, FloatCplx* taps, int numQuads, IirlTapState* tapStPtr);
ARKPX_API void arkzIirlInitBq(int iirType, DoubleCplx* taps, int numQuads, IirlTapState* tapStPtr);
ARKPX_API void arkwIirlInitBq(int iirType, float* taps, int numQuads, IirlTapState* tapStPtr);

ARKPX_API void arksIirlInitDlyl(const IirlTapState* tapStPtr, float* dlyl, IirlDlyState* dlyStPtr);
ARKPX_API void arkdIirlInitDlyl(const IirlTapState* tapStPtr, double* dlyl, IirlDlyState* dlyStPtr);
ARKPX_API void arkcIirlInitDlyl(const IirlTapState* tapStPtr, FloatCplx* dlyl, IirlDlyState* dlyStPtr);
ARKPX_API void arkzIirlInitDlyl(const IirlTapState* tapStPtr, DoubleCplx* dlyl, IirlDlyState* dlyStPtr);
ARKPX_API void arkwIirlInitDlyl(const IirlTapState* tapStPtr, float* dlyl, IirlDlyState* dlyStPtr);

ARKPX_API float      arksIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, float sample);
ARKPX_API double     arkdIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, double sample);
ARKPX_API FloatCplx  arkcIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, FloatCplx sample);
ARKPX_API DoubleCplx arkzIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, DoubleCplx sample);
ARKPX_API FloatCplx  arkscIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, float sample);
ARKPX_API FloatCplx  arkcsIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, FloatCplx sample);
ARKPX_API DoubleCplx arkdzIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, double sample);
ARKPX_API DoubleCplx arkzdIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, DoubleCplx sample);
ARKPX_API short      arkwIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, short sample, int scaleMode, int* scaleFactor);

ARKPX_API void arksbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const float* inSamps, float* outSamps, int numIters);
ARKPX_API void arkdbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const double* inSamps, double* outSamps, int numIters);
ARKPX_API void arkcbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const FloatCplx* inSamps, FloatCplx* outSamps, int numIters);
ARKPX_API void arkzbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const DoubleCplx* inSamps, DoubleCplx* outSamps, int numIters);
ARKPX_API void arkscbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const float* inSamps, FloatCplx* outSamps, int numIters);
ARKPX_API void arkcsbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const FloatCplx* inSamps, FloatCplx* outSamps, int numIters);
ARKPX_API void arkdzbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const double* inSamps, DoubleCplx* outSamps, int numIters);
ARKPX_API void arkzdbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const DoubleCplx* inSamps, DoubleCplx* outSamps, int numIters);
ARKPX_API void arkwbIirl(const IirlTapState* tapStPtr, const IirlDlyState* dlyStPtr, const short* inSamps, short* outSamps, int numIters, int scaleMode, int* scaleFactor);

/* ---------------------------------------------------------------------------------------------------------------
 * IIR filter objects
 *
 * An IirState owns a copy of its coefficients (tapVals is left alone) and its delay line. Zero the record before its
 * first Init; arkIirFree releases what Init allocated and makes the record ready for another Init. One arkIirFree serves
 * all types.
 *
 * Reports; a semicolon ends a group:
 *
 *   Init       "statePtr==0", "tapVals==0"; "order < 0", "iirType is out of range", "IIR filter state structure is
 *              already initialized! Use arkIirFree to free it"; then ARK_StatusOutOfMemory "insufficiency of memory for
 *              IIR filter state", nothing kept; then what the coefficients' own low-level Init reports (a0 = 0), and
 *              ARK_StatusBacktrace without a message
 *   InitBq     the same with "numQuads <= 0"
 *   one        "statePtr==0"; "IIR filter wasn't initialized"; then what the low-level filter of the same types reports;
 *   sample,    a status that is not zero afterwards, also from an earlier failure: ARK_StatusBacktrace without a message
 *   block
 *   Free       "statePtr==0"; "IIR filter wasn't initialized". The status is not tested, so that nothing leaks.
 *
 * Modules arkiirh and, for the w members, arkiirhw. Allocates: in Init and InitBq only.
 * --------------------------------------------------------------------------------------------------------------- */
typedef struct IirState {
    IirlTapState tapState;
    IirlDlyState dlyState;
    int initMarker; /* 31725 while initialised */
} IirState;

ARKPX_API void arksIirInit(int iirType, const float* tapVals, int order, IirState* statePtr);
ARKPX_API void arkdIirInit(int iirType, const double* tapVals, int order, IirState* statePtr);
ARKPX_API void arkcIirInit(int iirType, const FloatCplx* tapVals, int order, IirState* statePtr);
ARKPX_API void arkzIirInit(int iirType, const DoubleCplx* tapVals, int order, IirState* statePtr);
ARKPX_API void arkscIirInit(int iirType, const FloatCplx* tapVals, int order, IirState* statePtr);
ARKPX_API void arkcsIirInit(int iirType, const float* tapVals, int order, IirState* statePtr);
ARKPX_API void arkdzIirInit(int iirType, const DoubleCplx* tapVals, int order, IirState* statePtr);
ARKPX_API void arkzdIirInit(int iirType, const double* tapVals, int order, IirState* statePtr);
ARKPX_API void arkwIirInit(int iirType, const float* tapVals, int order, IirState* statePtr);

ARKPX_API void arksIirInitBq(int iirType, const float* tapVals, int numQuads, IirState* statePtr);
ARKPX_API void arkdIirInitBq(int iirType, const double* tapVals, int numQuads, IirState* statePtr);
ARKPX_API void arkcIirInitBq(int iirType, const FloatCplx* tapVals, int numQuads, IirState* statePtr);
ARKPX_API void arkzIirInitBq(int iirType, const DoubleCplx* tapVals, int numQuads, IirState* statePtr);
ARKPX_API void arkscIirInitBq(int iirType, const FloatCplx* tapVals, int numQuads, IirState* statePtr);
ARKPX_API void arkcsIirInitBq(int iirType, const float* tapVals, int numQuads, IirState* statePtr);
ARKPX_API void arkdzIirInitBq(int iirType, const DoubleCplx* tapVals, int numQuads, IirState* statePtr);
ARKPX_API void arkzdIirInitBq(int iirType, const double* tapVals, int numQuads, IirState* statePtr);
ARKPX_API void arkwIirInitBq(int iirType, const float* tapVals, int numQuads, IirState* statePtr);

ARKPX_API float      arksIir(IirState* statePtr, float sample);
ARKPX_API double     arkdIir(IirState* statePtr, double sample);
ARKPX_API FloatCplx  arkcIir(IirState* statePtr, FloatCplx sample);
ARKPX_API DoubleCplx arkzIir(IirState* statePtr, DoubleCplx sample);
ARKPX_API FloatCplx  arkscIir(IirState* statePtr, float sample);
ARKPX_API FloatCplx  arkcsIir(IirState* statePtr, FloatCplx sample);
ARKPX_API DoubleCplx arkdzIir(IirState* statePtr, double sample);
ARKPX_API DoubleCplx arkzdIir(IirState* statePtr, DoubleCplx sample);
ARKPX_API short      arkwIir(IirState* statePtr, short sample, int scaleMode, int* scaleFactor);

ARKPX_API void arksbIir(IirState* statePtr, const float* inSamps, float* outSamps, int numIters);
ARKPX_API void arkdbIir(IirState* statePtr, const double* inSamps, double* outSamps, int numIters);
ARKPX_API void arkcbIir(IirState* statePtr, const FloatCplx* inSamps, FloatCplx* outSamps, int numIters);
ARKPX_API void arkzbIir(IirState* statePtr, const DoubleCplx* inSamps, DoubleCplx* outSamps, int numIters);
ARKPX_API void arkscbIir(IirState* statePtr, const float* inSamps, FloatCplx* outSamps, int numIters);
ARKPX_API void arkcsbIir(IirState* statePtr, const FloatCplx* inSamps, FloatCplx* outSamps, int numIters);
ARKPX_API void arkdzbIir(IirState* statePtr, const double* inSamps, DoubleCplx* outSamps, int numIters);
ARKPX_API void arkzdbIir(IirState* statePtr, const DoubleCplx* inSamps, DoubleCplx* outSamps, int numIters);
ARKPX_API void arkwbIir(IirState* statePtr, const short* inSamps, short* outSamps, int numIters, int scaleMode, int* scaleFactor);

ARKPX_API void arkIirFree(IirState* statePtr);

#ifdef __cplusplus
}
#endif

#endif
