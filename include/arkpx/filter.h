/* arkpx/filter.h - FIR and IIR filters and LMS adaptive filters. */
#ifndef ARKPX_FILTER_H
#define ARKPX_FILTER_H

#include <arkpx/types.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---------------------------------------------------------------------------------------------------------------
 * FIR filters: what both levels compute
 *
 *   single rate    y[i] = sum over k = 0 ... N-1 of h[k] x[i-k]            h the taps, N = tapsLen
 *
 * Multi-rate filters raise the rate by U = upFactor, filter, and lower it by D = downFactor. On the up-sampled time
 * axis t = 0, 1, ..., of which a call with numIters covers U D numIters steps:
 *
 *   - at t = upPhase, upPhase + U, ... the next input enters; between them the signal is zero;
 *   - at t = downPhase, downPhase + D, ... an output is made: y = sum over k of h[k] v[t-k], v the signal with zeros.
 *
 * So a call reads numIters D inputs and writes numIters U outputs, and any partition of a signal into such calls gives
 * the same outputs. With p = (t - upPhase) mod U, only the taps h[p], h[p+U], h[p+2U], ... meet samples that are not
 * zero, and only they are computed (polyphase). upPhase p0 delays the input by p0 steps of the up-sampled axis;
 * downPhase chooses which of D steps is kept. No gain is corrected: to keep the level when raising the rate, scale the
 * taps by U. A linear-phase filter delays by (N-1)/2 steps of the up-sampled axis.
 *
 *   48 kHz to 8 kHz:    upFactor 1, downFactor 6: numIters 160 reads 960 samples and writes 160
 *   8 kHz to 48 kHz:    upFactor 6, downFactor 1, taps with gain 6: numIters 160 reads 160 and writes 960
 *   32 kHz to 48 kHz:   upFactor 3, downFactor 2: numIters 100 reads 200 and writes 300
 *
 * Types. The members s, d, c, z have data, taps and results of one type. Of the mixed members the first letter is the
 * type of data and history, the second that of the taps; the result is complex: sc and dz filter real data with
 * complex taps, cs and zd complex data with real taps. w: 16 bits, see there.
 *
 * Accuracy: sums are accumulated in double and rounded once to the result's type; the order of the sum is not fixed
 * and depends on the processor, the number of outputs and the block. The error before rounding is below N 2^-52
 * times the sum of the products' magnitudes. src and dst must not overlap.
 *
 * All checks of all FIR functions report ARK_StatusBadArgument and return at the first that fails, with outputs and
 * state untouched (functions with a result return zero). The thread's status is never tested: an earlier failure stops
 * nothing.
 * --------------------------------------------------------------------------------------------------------------- */

/* ---------------------------------------------------------------------------------------------------------------
 * FIR taps and delay line in the caller's memory
 *
 * Two records point at two arrays, all four the caller's; there is nothing to free. One taps record can serve any
 * number of delay lines.
 *
 *   taps    tapsLen elements, in the caller's order: taps[0] meets the newest sample
 *   delay   dlylLen + 1 elements, dlylLen = tapsLen for a single-rate filter, tapsLen / upFactor rounded up for a
 *   line    multi-rate one. In filter mode element 0 is the newest sample, element k the k-th before it. The last
 *           element is room that the interface promises; this implementation leaves it alone.
 *
 * Init and InitMr describe the taps (which they do not read), InitDlyl the delay line: it fixes dlylLen, does not clear
 * the array, and leaves the record out of filter mode. SetDlyl enters filter mode; block calls demand it. A multi-rate
 * record with upFactor 1 and downFactor 1 is a single-rate one.
 *
 * SetTaps copies src into the taps (null: zeros; the array itself: nothing to copy). GetTaps copies them out and leaves
 * filter mode until the next SetTaps: the taps are the caller's to edit.
 *
 * SetDlyl and GetDlyl exchange history in the order of time, oldest first: n samples, n = dlylLen for a multi-rate
 * filter, dlylLen - 1 for a single-rate one (what precedes the next input).
 *   SetDlyl   null: zeros in all dlylLen elements; the array itself: its first n elements are reversed, unless the
 *             record is in filter mode already; any other: element i becomes src[n-1-i]. Then filter mode is on.
 *   GetDlyl   only in filter mode, else nothing is copied; dst[i] = element n-1-i, or reversed in place when dst is
 *             the array itself. Then filter mode is off until the next SetDlyl.
 *
 * arkxFirl takes one sample and returns one output; it looks at neither rate nor filter mode, and moves the delay line
 * (dlylLen elements) at each call. arkxbFirl filters blocks, of both kinds of rate; long blocks cost nothing for the
 * delay line. One-sample and block calls can be mixed on a single-rate filter.
 *
 * 16 bits: data, taps and history are short. arkwFirl sums in 32 bits that wrap; with ARK_FIXED_SCALE in scaleMode the
 * sum is scaled by *scaleFactor (0 for null; left shifts by 15 at the most) and clamped if ARK_SATURATE is there too;
 * with any other mode, ARK_SATURATE and ARK_AUTO_SCALE included, the result is the low 16 bits of the sum. arkwbFirl
 * rounds each sum to float, then to the nearest integer (ties to even), and scales the block by the rules of types.h,
 * with shifts of at most 15 to the left; modes 6 and 7 count as 2 and 3, and ARK_AUTO_SCALE with a null scaleFactor
 * scales and does not tell.
 *
 * Reports, in this order. Module arkfirl.
 *   Init      "Null buffer pointer" (taps, tapState); "Invalid array length" (tapsLen < 1)
 *   InitMr    the same; "Invalid phase value" (a phase < 0); "Invalid factor value" (upFactor <= upPhase); "Invalid
 *             factor value" (downFactor <= downPhase)
 *   InitDlyl, SetTaps, GetTaps, SetDlyl, GetDlyl, Firl    "Null buffer pointer" (src of the Set functions may be null)
 *   bFirl     "Null buffer pointer"; "Invalid array length" (numIters < 1); "Not filter mode" (delay line); "Not filter
 *             mode" (taps)
 *   arkwbFirl also ARK_StatusOutOfMemory "Memory problem"
 * Allocates: never, but for arkwbFirl: 4 tapsLen + 8 numIters upFactor bytes every call.
 * --------------------------------------------------------------------------------------------------------------- */
typedef struct FirlTapState {
    void* taps;         /* the caller's array */
    int   tapsLen;
    int   upFactor;     /* 1 for a single-rate filter */
    int   upPhase;      /* 0 ... upFactor-1 */
    int   downFactor;   /* 1 for a single-rate filter */
    int   downPhase;    /* 0 ... downFactor-1 */
    int   isMultiRate;  /* 1 when a factor is 2 or more */
    int   isFilterMode; /* 0 between GetTaps and SetTaps */
} FirlTapState;

typedef struct FirlDlyState {
    void* dlyl;         /* the caller's array, dlylLen + 1 elements */
    int   dlylLen;
    int   isFilterMode; /* 1 between SetDlyl and GetDlyl */
} FirlDlyState;

ARKPX_API void arksFirlInit(float* taps, int tapsLen, FirlTapState* tapState);
ARKPX_API void arkdFirlInit(double* taps, int tapsLen, FirlTapState* tapState);
ARKPX_API void arkcFirlInit(FloatCplx* taps, int tapsLen, FirlTapState* tapState);
ARKPX_API void arkzFirlInit(DoubleCplx* taps, int tapsLen, FirlTapState* tapState);
ARKPX_API void arkwFirlInit(short* taps, int tapsLen, FirlTapState* tapState);

ARKPX_API void arksFirlInitMr(float* taps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase,
                              FirlTapState* tapState);
ARKPX_API void arkdFirlInitMr(double* taps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase,
                              FirlTapState* tapState);
ARKPX_API void arkcFirlInitMr(FloatCplx* taps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase,
                              FirlTapState* tapState);
ARKPX_API void arkzFirlInitMr(DoubleCplx* taps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase,
                              FirlTapState* tapState);
ARKPX_API void arkwFirlInitMr(short* taps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase,
                              FirlTapState* tapState);

ARKPX_API void arksFirlInitDlyl(const FirlTapState* tapState, float* dlyl, FirlDlyState* dlyState);
ARKPX_API void arkdFirlInitDlyl(const FirlTapState* tapState, double* dlyl, FirlDlyState* dlyState);
ARKPX_API void arkcFirlInitDlyl(const FirlTapState* tapState, FloatCplx* dlyl, FirlDlyState* dlyState);
ARKPX_API void arkzFirlInitDlyl(const FirlTapState* tapState, DoubleCplx* dlyl, FirlDlyState* dlyState);
ARKPX_API void arkwFirlInitDlyl(const FirlTapState* tapState, short* dlyl, FirlDlyState* dlyState);

ARKPX_API void arksFirlSetTaps(const float* src, FirlTapState* tapState);
ARKPX_API void arkdFirlSetTaps(const double* src, FirlTapState* tapState);
ARKPX_API void arkcFirlSetTaps(const FloatCplx* src, FirlTapState* tapState);
ARKPX_API void arkzFirlSetTaps(const DoubleCplx* src, FirlTapState* tapState);
ARKPX_API void arkwFirlSetTaps(const short* src, FirlTapState* tapState);

ARKPX_API void arksFirlGetTaps(FirlTapState* tapState, float* dst);
ARKPX_API void arkdFirlGetTaps(FirlTapState* tapState, double* dst);
ARKPX_API void arkcFirlGetTaps(FirlTapState* tapState, FloatCplx* dst);
ARKPX_API void arkzFirlGetTaps(FirlTapState* tapState, DoubleCplx* dst);
ARKPX_API void arkwFirlGetTaps(FirlTapState* tapState, short* dst);

ARKPX_API void arksFirlSetDlyl(const FirlTapState* tapState, const float* src, FirlDlyState* dlyState);
ARKPX_API void arkdFirlSetDlyl(const FirlTapState* tapState, const double* src, FirlDlyState* dlyState);
ARKPX_API void arkcFirlSetDlyl(const FirlTapState* tapState, const FloatCplx* src, FirlDlyState* dlyState);
ARKPX_API void arkzFirlSetDlyl(const FirlTapState* tapState, const DoubleCplx* src, FirlDlyState* dlyState);
ARKPX_API void arkwFirlSetDlyl(const FirlTapState* tapState, const short* src, FirlDlyState* dlyState);

ARKPX_API void arksFirlGetDlyl(const FirlTapState* tapState, FirlDlyState* dlyState, float* dst);
ARKPX_API void arkdFirlGetDlyl(const FirlTapState* tapState, FirlDlyState* dlyState, double* dst);
ARKPX_API void arkcFirlGetDlyl(const FirlTapState* tapState, FirlDlyState* dlyState, FloatCplx* dst);
ARKPX_API void arkzFirlGetDlyl(const FirlTapState* tapState, FirlDlyState* dlyState, DoubleCplx* dst);
ARKPX_API void arkwFirlGetDlyl(const FirlTapState* tapState, FirlDlyState* dlyState, short* dst);

ARKPX_API float      arksFirl(const FirlTapState* tapState, FirlDlyState* dlyState, float sample);
ARKPX_API double     arkdFirl(const FirlTapState* tapState, FirlDlyState* dlyState, double sample);
ARKPX_API FloatCplx  arkcFirl(const FirlTapState* tapState, FirlDlyState* dlyState, FloatCplx sample);
ARKPX_API DoubleCplx arkzFirl(const FirlTapState* tapState, FirlDlyState* dlyState, DoubleCplx sample);
ARKPX_API FloatCplx  arkscFirl(const FirlTapState* tapState, FirlDlyState* dlyState, float sample);
ARKPX_API FloatCplx  arkcsFirl(const FirlTapState* tapState, FirlDlyState* dlyState, FloatCplx sample);
ARKPX_API DoubleCplx arkdzFirl(const FirlTapState* tapState, FirlDlyState* dlyState, double sample);
ARKPX_API DoubleCplx arkzdFirl(const FirlTapState* tapState, FirlDlyState* dlyState, DoubleCplx sample);

ARKPX_API void arksbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const float* src, float* dst, int numIters);
ARKPX_API void arkdbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const double* src, double* dst,
                         int numIters);
ARKPX_API void arkcbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const FloatCplx* src, FloatCplx* dst,
                         int numIters);
ARKPX_API void arkzbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const DoubleCplx* src, DoubleCplx* dst,
                         int numIters);
ARKPX_API void arkscbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const float* src, FloatCplx* dst,
                          int numIters);
ARKPX_API void arkcsbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const FloatCplx* src, FloatCplx* dst,
                          int numIters);
ARKPX_API void arkdzbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const double* src, DoubleCplx* dst,
                          int numIters);
ARKPX_API void arkzdbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const DoubleCplx* src, DoubleCplx* dst,
                          int numIters);

ARKPX_API short arkwFirl(const FirlTapState* tapState, FirlDlyState* dlyState, short sample, int scaleMode,
                         int* scaleFactor);
ARKPX_API void  arkwbFirl(const FirlTapState* tapState, FirlDlyState* dlyState, const short* src, short* dst, int numIters,
                          int scaleMode, int* scaleFactor);

/* ---------------------------------------------------------------------------------------------------------------
 * FIR filter objects
 *
 * A FirState record is the caller's; taps and history behind it are the library's, from Init to arkFirFree. Zero the
 * record before its first Init: Init and Free tell by the record's field self whether it holds an object. Init of an
 * initialised object releases the old one first. The record must not be copied or moved while it is initialised.
 *
 *   FirState state = {0};
 *   arksFirInit(taps, 64, NULL, &state);
 *   arksbFir(&state, src, dst, 1024);             and so on, block after block
 *   arkFirFree(&state);
 *
 * Init takes tapsLen taps in the caller's order (taps[0] meets the newest sample; null: zeros) and the history dlyl,
 * oldest sample first (null: zeros). History is dlylLen samples: tapsLen - 1 for a single-rate object, tapsLen /
 * upFactor rounded up for a multi-rate one. Set and Get exchange taps and history in these orders at any time and change
 * nothing else; SetTaps and SetDlyl take null for zeros. A mixed object's taps go through the functions of its taps'
 * type, its history through those of its data's type: for arkscFir, arkcFirSetTaps and arksFirSetDlyl.
 *
 * arkxFir takes one sample and returns one output, for single-rate objects; on a multi-rate object its result has no
 * meaning. arkxbFir filters blocks of both kinds of rate. One-sample and block calls can be mixed.
 *
 * 16 bits: data and history are short, the taps float (kept as given: tapsScale is always 0). Each sum is rounded to the
 * nearest integer (ties to even) and delivered as sum 2^-f: with ARK_FIXED_SCALE in scaleMode f is *scaleFactor (0 for
 * null; left shifts by 15 at the most), else 0. With ARK_SATURATE results are clamped, else the low 16 bits are kept.
 * scaleMode equal to ARK_AUTO_SCALE: f is 0 if the whole block, or the one sample, fits as it is, else brings the largest
 * magnitude into 16384 ... 32767, and is written to *scaleFactor; the block is then computed twice.
 *
 * Reports, in this order. Modules arkfirh and, w members, arkfirhw.
 *   Init      "Null state pointer"; "Invalid value" (tapsLen < 1)
 *   InitMr    "Null state pointer"; "Invalid value" (upFactor < 1; downFactor < 1; upPhase not in 0 ... upFactor-1;
 *             downPhase not in 0 ... downFactor-1; tapsLen < 1)
 *             both then ARK_StatusOutOfMemory "Allocation failure", also where a length exceeds 2^31-1; the record then
 *             holds no object
 *   others    "Null state pointer"; "Must have been initialized"; then "Null buffer pointer" (GetTaps and GetDlyl: the
 *             destination; bFir: src, dst); bFir: "Invalid value" (numIters < 1); arkwFir, arkwbFir: "Null scale factor
 *             pointer" (ARK_AUTO_SCALE without one)
 *   arkFirFree reports under the name arkFirarkFree.
 * Allocates: Init only.
 * --------------------------------------------------------------------------------------------------------------- */

/* Output k of every cycle of upFactor outputs per downFactor inputs. */
typedef struct FirPhase {
    int tap;    /* its sub-filter has the caller's taps tap, tap + upFactor, ... */
    int len;    /* how many they are */
    int start;  /* the oldest sample that they meet, counted from the start of the history */
    int offset; /* where they are in taps */
} FirPhase;

typedef struct FirState {
    int       upFactor;     /* 1 for a single-rate object */
    int       upPhase;
    int       downFactor;
    int       downPhase;
    int       isMultiRate;  /* 1 when a factor is 2 or more */
    void*     self;         /* the record's own address while it is initialised */
    int       tapsLen;      /* elements of taps; w: rounded up to a multiple of upFactor */
    int       tapsLen8;     /* tapsLen rounded down to a multiple of 8; w: 0 */
    void*     taps;         /* every sub-filter reversed, one behind the other */
    int       dlylLen;
    int       bufLen;       /* elements of buffer behind the history */
    void*     buffer;       /* dlylLen + bufLen elements */
    void*     bufEnd;       /* buffer + bufLen elements */
    void*     dlylPtr;      /* the history inside buffer, oldest sample first */
    FirPhase* phaseTable;   /* upFactor entries; null for a single-rate object */
    int       tapsScale;    /* 0 */
    int       givenTapsLen; /* the caller's tapsLen */
} FirState;

ARKPX_API void arksFirInit(const float* taps, int tapsLen, const float* dlyl, FirState* state);
ARKPX_API void arkdFirInit(const double* taps, int tapsLen, const double* dlyl, FirState* state);
ARKPX_API void arkcFirInit(const FloatCplx* taps, int tapsLen, const FloatCplx* dlyl, FirState* state);
ARKPX_API void arkzFirInit(const DoubleCplx* taps, int tapsLen, const DoubleCplx* dlyl, FirState* state);
ARKPX_API void arkscFirInit(const FloatCplx* taps, int tapsLen, const float* dlyl, FirState* state);
ARKPX_API void arkcsFirInit(const float* taps, int tapsLen, const FloatCplx* dlyl, FirState* state);
ARKPX_API void arkdzFirInit(const DoubleCplx* taps, int tapsLen, const double* dlyl, FirState* state);
ARKPX_API void arkzdFirInit(const double* taps, int tapsLen, const DoubleCplx* dlyl, FirState* state);
ARKPX_API void arkwFirInit(const float* taps, int tapsLen, const short* dlyl, FirState* state);

ARKPX_API void arksFirInitMr(const float* taps, int tapsLen, const float* dlyl, int upFactor, int upPhase, int downFactor,
                             int downPhase, FirState* state);
ARKPX_API void arkdFirInitMr(const double* taps, int tapsLen, const double* dlyl, int upFactor, int upPhase,
                             int downFactor, int downPhase, FirState* state);
ARKPX_API void arkcFirInitMr(const FloatCplx* taps, int tapsLen, const FloatCplx* dlyl, int upFactor, int upPhase,
                             int downFactor, int downPhase, FirState* state);
ARKPX_API void arkzFirInitMr(const DoubleCplx* taps, int tapsLen, const DoubleCplx* dlyl, int upFactor, int upPhase,
                             int downFactor, int downPhase, FirState* state);
ARKPX_API void arkscFirInitMr(const FloatCplx* taps, int tapsLen, const float* dlyl, int upFactor, int upPhase,
                              int downFactor, int downPhase, FirState* state);
ARKPX_API void arkcsFirInitMr(const float* taps, int tapsLen, const FloatCplx* dlyl, int upFactor, int upPhase,
                              int downFactor, int downPhase, FirState* state);
ARKPX_API void arkdzFirInitMr(const DoubleCplx* taps, int tapsLen, const double* dlyl, int upFactor, int upPhase,
                              int downFactor, int downPhase, FirState* state);
ARKPX_API void arkzdFirInitMr(const double* taps, int tapsLen, const DoubleCplx* dlyl, int upFactor, int upPhase,
                              int downFactor, int downPhase, FirState* state);
ARKPX_API void arkwFirInitMr(const float* taps, int tapsLen, const short* dlyl, int upFactor, int upPhase, int downFactor,
                             int downPhase, FirState* state);

ARKPX_API void arksFirSetTaps(const float* taps, FirState* state);
ARKPX_API void arkdFirSetTaps(const double* taps, FirState* state);
ARKPX_API void arkcFirSetTaps(const FloatCplx* taps, FirState* state);
ARKPX_API void arkzFirSetTaps(const DoubleCplx* taps, FirState* state);
ARKPX_API void arkwFirSetTaps(const float* taps, FirState* state);

ARKPX_API void arksFirGetTaps(const FirState* state, float* taps);
ARKPX_API void arkdFirGetTaps(const FirState* state, double* taps);
ARKPX_API void arkcFirGetTaps(const FirState* state, FloatCplx* taps);
ARKPX_API void arkzFirGetTaps(const FirState* state, DoubleCplx* taps);
ARKPX_API void arkwFirGetTaps(const FirState* state, float* taps);

ARKPX_API void arksFirSetDlyl(const float* dlyl, FirState* state);
ARKPX_API void arkdFirSetDlyl(const double* dlyl, FirState* state);
ARKPX_API void arkcFirSetDlyl(const FloatCplx* dlyl, FirState* state);
ARKPX_API void arkzFirSetDlyl(const DoubleCplx* dlyl, FirState* state);
ARKPX_API void arkwFirSetDlyl(const short* dlyl, FirState* state);

ARKPX_API void arksFirGetDlyl(const FirState* state, float* dlyl);
ARKPX_API void arkdFirGetDlyl(const FirState* state, double* dlyl);
ARKPX_API void arkcFirGetDlyl(const FirState* state, FloatCplx* dlyl);
ARKPX_API void arkzFirGetDlyl(const FirState* state, DoubleCplx* dlyl);
ARKPX_API void arkwFirGetDlyl(const FirState* state, short* dlyl);

ARKPX_API float      arksFir(FirState* state, float sample);
ARKPX_API double     arkdFir(FirState* state, double sample);
ARKPX_API FloatCplx  arkcFir(FirState* state, FloatCplx sample);
ARKPX_API DoubleCplx arkzFir(FirState* state, DoubleCplx sample);
ARKPX_API FloatCplx  arkscFir(FirState* state, float sample);
ARKPX_API FloatCplx  arkcsFir(FirState* state, FloatCplx sample);
ARKPX_API DoubleCplx arkdzFir(FirState* state, double sample);
ARKPX_API DoubleCplx arkzdFir(FirState* state, DoubleCplx sample);

ARKPX_API void arksbFir(FirState* state, const float* src, float* dst, int numIters);
ARKPX_API void arkdbFir(FirState* state, const double* src, double* dst, int numIters);
ARKPX_API void arkcbFir(FirState* state, const FloatCplx* src, FloatCplx* dst, int numIters);
ARKPX_API void arkzbFir(FirState* state, const DoubleCplx* src, DoubleCplx* dst, int numIters);
ARKPX_API void arkscbFir(FirState* state, const float* src, FloatCplx* dst, int numIters);
ARKPX_API void arkcsbFir(FirState* state, const FloatCplx* src, FloatCplx* dst, int numIters);
ARKPX_API void arkdzbFir(FirState* state, const double* src, DoubleCplx* dst, int numIters);
ARKPX_API void arkzdbFir(FirState* state, const DoubleCplx* src, DoubleCplx* dst, int numIters);

ARKPX_API short arkwFir(FirState* state, short sample, int scaleMode, int* scaleFactor);
ARKPX_API void  arkwbFir(FirState* state, const short* src, short* dst, int numIters, int scaleMode, int* scaleFactor);

ARKPX_API void arkFirFree(FirState* state);

/* ---------------------------------------------------------------------------------------------------------------
 * LMS adaptive filters: what both levels compute
 *
 * An FIR filter whose taps follow an error signal by the leaky least-mean-squares rule. One step, with N = tapsLen,
 * D = errDelay, e the error and x the delay line, newest sample first:
 *
 *   update   h[i] = (1 - leak) h[i] + step e conj(x[D + i])         i = 0 ... N-1
 *   enter    the new sample becomes x[0], all others age by one
 *   output   y = sum over i = 0 ... N-1 of h[i] x[i]
 *
 * The update precedes the sample: e belongs to the output made D steps before the previous one, and x[D + i] is the
 * sample that met tap i then. With D = 0, e is the error of the previous output. In a stationary signal of power p the
 * filter converges for 0 < step < 2 / (N p), fastest near 1 / (N p); the excess error in the end is about step N p / 2
 * of the noise. Nothing is divided by a power: silence leaves the taps alone (but for the leak).
 *
 * The decimating step takes F = downFactor samples, makes one output, and looks at the delay line from element
 * F - downPhase - 1 on instead of from element 0: the output is that of src[downPhase].
 *
 * step, leak and errDelay are of the same types for all members (float, float, int); errors, desired values and outputs
 * have the result's type: complex where data or taps are. sc and dz: real data, complex taps. lmsType is stored only.
 * Taps are updated in double and rounded once to their type; outputs are sums as in FIR filters.
 *
 * All checks report ARK_StatusBadArgument and return at the first that fails, functions with a result return zero; the
 * thread's status is never tested.
 * --------------------------------------------------------------------------------------------------------------- */

/* ---------------------------------------------------------------------------------------------------------------
 * LMS taps and delay line in the caller's memory
 *
 * As FIR taps and delay line, which see: taps[0] meets the newest sample. The delay line's array has dlylLen elements:
 * tapsLen, and errDelay more if the flag of InitDlyl is not 0, and downFactor more if the taps record is multi-rate.
 * History behind its end counts as zero: a delayed error wants the flag. InitDlyl does not clear the array, but
 * sets filter mode; SetDlyl with null clears it.
 *
 *   arkxLmsl       one step with one sample; a step <= 0 leaves the taps alone, and the leak out
 *   arkxbLmsl      one decimating step: downFactor samples in, one output
 *   arkxLmslNa     one sample without adaptation, arkxFirl on these records: the sum reaches over the shorter of taps
 *   arkxbLmslNa    and delay line; a block likewise, arkxbFirl with numIters, downFactor and filter mode as there
 *   SetTaps, GetTaps, SetDlyl, GetDlyl    as the FIR functions of these names, for n = dlylLen of a multi-rate record and
 *                  n = dlylLen - 1 of a single-rate one
 *
 * 16 bits: taps, data, error and output in units of 2^-15, no leak. Taps and output are rounded to the nearest unit
 * (ties to even) and saturated; sums are exact.
 *
 * Reports, in this order. Module arklmsl.
 *   Init      "Null buffer pointer" (taps, tapState); "Invalid buffer length" (tapsLen < 1); "Invalid error delay value"
 *             (errDelay < 0)
 *   InitMr    the same; "Invalid factor value" (downPhase < 0); "Invalid factor value" (downFactor <= downPhase)
 *   InitDlyl  "Null buffer pointer"; "Invalid buffer length" (dlylLen above 2^31-1)
 *   bLmslNa   as arkxbFirl
 *   others    "Null buffer pointer"
 * Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
typedef struct LmslTapState {
    void* taps;         /* as FirlTapState */
    int   tapsLen;
    int   upFactor;     /* 1 */
    int   upPhase;      /* 0 */
    int   downFactor;
    int   downPhase;
    int   isMultiRate;  /* 1 when downFactor is 2 or more */
    int   isFilterMode;
    float leak;
    float step;
    int   errDelay;
    int   lmsType;
} LmslTapState;

typedef struct LmslDlyState {
    void* dlyl;         /* the caller's array, dlylLen elements, newest sample first */
    int   dlylLen;
    int   isFilterMode; /* 1 but between GetDlyl and SetDlyl */
    int   flag;         /* not 0: dlylLen counts errDelay */
} LmslDlyState;

ARKPX_API void arksLmslInit(int lmsType, float* taps, int tapsLen, float step, float leak, int errDelay,
                            LmslTapState* tapState);
ARKPX_API void arkdLmslInit(int lmsType, double* taps, int tapsLen, float step, float leak, int errDelay,
                            LmslTapState* tapState);
ARKPX_API void arkcLmslInit(int lmsType, FloatCplx* taps, int tapsLen, float step, float leak, int errDelay,
                            LmslTapState* tapState);
ARKPX_API void arkzLmslInit(int lmsType, DoubleCplx* taps, int tapsLen, float step, float leak, int errDelay,
                            LmslTapState* tapState);
ARKPX_API void arkwLmslInit(int lmsType, short* taps, int tapsLen, float step, int errDelay, LmslTapState* tapState);

ARKPX_API void arksLmslInitMr(int lmsType, float* taps, int tapsLen, float step, float leak, int errDelay, int downFactor,
                              int downPhase, LmslTapState* tapState);
ARKPX_API void arkdLmslInitMr(int lmsType, double* taps, int tapsLen, float step, float leak, int errDelay, int downFactor,
                              int downPhase, LmslTapState* tapState);
ARKPX_API void arkcLmslInitMr(int lmsType, FloatCplx* taps, int tapsLen, float step, float leak, int errDelay,
                              int downFactor, int downPhase, LmslTapState* tapState);
ARKPX_API void arkzLmslInitMr(int lmsType, DoubleCplx* taps, int tapsLen, float step, float leak, int errDelay,
                              int downFactor, int downPhase, LmslTapState* tapState);

ARKPX_API void arksLmslInitDlyl(const LmslTapState* tapState, float* dlyl, int flag, LmslDlyState* dlyState);
ARKPX_API void arkdLmslInitDlyl(const LmslTapState* tapState, double* dlyl, int flag, LmslDlyState* dlyState);
ARKPX_API void arkcLmslInitDlyl(const LmslTapState* tapState, FloatCplx* dlyl, int flag, LmslDlyState* dlyState);
ARKPX_API void arkzLmslInitDlyl(const LmslTapState* tapState, DoubleCplx* dlyl, int flag, LmslDlyState* dlyState);
ARKPX_API void arkwLmslInitDlyl(const LmslTapState* tapState, short* dlyl, int flag, LmslDlyState* dlyState);

ARKPX_API float arksLmslGetStep(const LmslTapState* tapState);
ARKPX_API float arkdLmslGetStep(const LmslTapState* tapState);
ARKPX_API float arkcLmslGetStep(const LmslTapState* tapState);
ARKPX_API float arkzLmslGetStep(const LmslTapState* tapState);
ARKPX_API float arkwLmslGetStep(const LmslTapState* tapState);

ARKPX_API void arksLmslSetStep(LmslTapState* tapState, float step);
ARKPX_API void arkdLmslSetStep(LmslTapState* tapState, float step);
ARKPX_API void arkcLmslSetStep(LmslTapState* tapState, float step);
ARKPX_API void arkzLmslSetStep(LmslTapState* tapState, float step);
ARKPX_API void arkwLmslSetStep(LmslTapState* tapState, float step);

ARKPX_API float arksLmslGetLeak(const LmslTapState* tapState);
ARKPX_API float arkdLmslGetLeak(const LmslTapState* tapState);
ARKPX_API float arkcLmslGetLeak(const LmslTapState* tapState);
ARKPX_API float arkzLmslGetLeak(const LmslTapState* tapState);

ARKPX_API void arksLmslSetLeak(LmslTapState* tapState, float leak);
ARKPX_API void arkdLmslSetLeak(LmslTapState* tapState, float leak);
ARKPX_API void arkcLmslSetLeak(LmslTapState* tapState, float leak);
ARKPX_API void arkzLmslSetLeak(LmslTapState* tapState, float leak);

ARKPX_API void arksLmslSetTaps(const float* src, LmslTapState* tapState);
ARKPX_API void arkdLmslSetTaps(const double* src, LmslTapState* tapState);
ARKPX_API void arkcLmslSetTaps(const FloatCplx* src, LmslTapState* tapState);
ARKPX_API void arkzLmslSetTaps(const DoubleCplx* src, LmslTapState* tapState);
ARKPX_API void arkwLmslSetTaps(const short* src, LmslTapState* tapState);

ARKPX_API void arksLmslGetTaps(LmslTapState* tapState, float* dst);
ARKPX_API void arkdLmslGetTaps(LmslTapState* tapState, double* dst);
ARKPX_API void arkcLmslGetTaps(LmslTapState* tapState, FloatCplx* dst);
ARKPX_API void arkzLmslGetTaps(LmslTapState* tapState, DoubleCplx* dst);
ARKPX_API void arkwLmslGetTaps(LmslTapState* tapState, short* dst);

ARKPX_API void arksLmslSetDlyl(const LmslTapState* tapState, const float* src, LmslDlyState* dlyState);
ARKPX_API void arkdLmslSetDlyl(const LmslTapState* tapState, const double* src, LmslDlyState* dlyState);
ARKPX_API void arkcLmslSetDlyl(const LmslTapState* tapState, const FloatCplx* src, LmslDlyState* dlyState);
ARKPX_API void arkzLmslSetDlyl(const LmslTapState* tapState, const DoubleCplx* src, LmslDlyState* dlyState);
ARKPX_API void arkwLmslSetDlyl(const LmslTapState* tapState, const short* src, LmslDlyState* dlyState);

ARKPX_API void arksLmslGetDlyl(const LmslTapState* tapState, LmslDlyState* dlyState, float* dst);
ARKPX_API void arkdLmslGetDlyl(const LmslTapState* tapState, LmslDlyState* dlyState, double* dst);
ARKPX_API void arkcLmslGetDlyl(const LmslTapState* tapState, LmslDlyState* dlyState, FloatCplx* dst);
ARKPX_API void arkzLmslGetDlyl(const LmslTapState* tapState, LmslDlyState* dlyState, DoubleCplx* dst);
ARKPX_API void arkwLmslGetDlyl(const LmslTapState* tapState, LmslDlyState* dlyState, short* dst);

ARKPX_API float      arksLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, float sample, float err);
ARKPX_API double     arkdLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, double sample, double err);
ARKPX_API FloatCplx  arkcLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, FloatCplx sample, FloatCplx err);
ARKPX_API DoubleCplx arkzLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, DoubleCplx sample, DoubleCplx err);
ARKPX_API FloatCplx  arkscLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, float sample, FloatCplx err);
ARKPX_API DoubleCplx arkdzLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, double sample, DoubleCplx err);
ARKPX_API short      arkwLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, short sample, short err);

ARKPX_API float      arksbLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, const float* src, float err);
ARKPX_API double     arkdbLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, const double* src, double err);
ARKPX_API FloatCplx  arkcbLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, const FloatCplx* src, FloatCplx err);
ARKPX_API DoubleCplx arkzbLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, const DoubleCplx* src,
                               DoubleCplx err);
ARKPX_API FloatCplx  arkscbLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, const float* src, FloatCplx err);
ARKPX_API DoubleCplx arkdzbLmsl(const LmslTapState* tapState, LmslDlyState* dlyState, const double* src, DoubleCplx err);

ARKPX_API float      arksLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, float sample);
ARKPX_API double     arkdLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, double sample);
ARKPX_API FloatCplx  arkcLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, FloatCplx sample);
ARKPX_API DoubleCplx arkzLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, DoubleCplx sample);
ARKPX_API FloatCplx  arkscLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, float sample);
ARKPX_API FloatCplx  arkcsLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, FloatCplx sample);
ARKPX_API DoubleCplx arkdzLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, double sample);
ARKPX_API DoubleCplx arkzdLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, DoubleCplx sample);

ARKPX_API void arksbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const float* src, float* dst,
                           int numIters);
ARKPX_API void arkdbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const double* src, double* dst,
                           int numIters);
ARKPX_API void arkcbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const FloatCplx* src, FloatCplx* dst,
                           int numIters);
ARKPX_API void arkzbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const DoubleCplx* src, DoubleCplx* dst,
                           int numIters);
ARKPX_API void arkscbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const float* src, FloatCplx* dst,
                            int numIters);
ARKPX_API void arkcsbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const FloatCplx* src, FloatCplx* dst,
                            int numIters);
ARKPX_API void arkdzbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const double* src, DoubleCplx* dst,
                            int numIters);
ARKPX_API void arkzdbLmslNa(const LmslTapState* tapState, LmslDlyState* dlyState, const DoubleCplx* src, DoubleCplx* dst,
                            int numIters);

/* ---------------------------------------------------------------------------------------------------------------
 * LMS filter objects
 *
 * An LmsState record is the caller's; taps and delay line behind it are the library's, from Init to arkLmsFree. An Init
 * takes any record for an empty one: free an object before making another in its place. A record that never was an
 * object must be zeroed before it is freed; freeing twice does no harm.
 *
 * Init takes tapsLen taps (taps[0] meets the newest sample; null: zeros) and as history dlyl dlylLen - 1 = tapsLen +
 * errDelay - 1 samples, oldest first (null: zeros). Set and Get exchange them in these orders at any time, samples that
 * are older stay; null sources mean zeros everywhere. An sc object's taps go through
 * arkcLmsSetTaps, its error value through arkcLmsSetErrVal, its history through arksLmsSetDlyl; dz likewise through z
 * and d.
 *
 *   arkxLms        one step with one sample and an error; a step <= 0 leaves the taps alone, and the leak out
 *   arkxbLms       one decimating step: downFactor samples in, one output
 *   arkxLmsDes     one step with one sample that computes the error itself: the update uses errVal, which then becomes
 *                  desired - output. Unlike above, a step <= 0 counts as any other: the update runs, with the leak
 *   arkxbLmsDes    numIters steps of arkxLmsDes: src, desired and dst have numIters elements; dst may be src or desired
 *
 * Reports, in this order. Module arklmsh.
 *   Init      "Null buffer pointer" (state); "Invalid buffer length" (tapsLen < 1); "Invalid error delay value" (errDelay
 *             < 0); InitMr: "Invalid factor value" (downPhase < 0); "Invalid factor value" (downFactor <= downPhase); then
 *             ARK_StatusOutOfMemory "Problem to allocate memory"
 *   Lms, bLms, LmsDes, bLmsDes    "Null buffer pointer" (state); "Taps state structure is not initialized"; "Delay line
 *             state structure is not initialized"; "Null buffer pointer" (arrays); bLmsDes: "Bad value of number of
 *             iterations" (numIters < 1)
 *   SetTaps, GetTaps, SetDlyl, GetDlyl    "Null buffer pointer" (state); the message of the absent one; "Null buffer
 *             pointer" (dst)
 *   others    "Null buffer pointer"
 * Allocates: Init only.
 * --------------------------------------------------------------------------------------------------------------- */
typedef union LmsErrVal {
    float      s;
    double     d;
    FloatCplx  c;
    DoubleCplx z;
} LmsErrVal;

typedef struct LmsState {
    void*     taps;
    int       tapsLen;
    int       upFactor;     /* 1 */
    int       upPhase;      /* 0 */
    int       downFactor;
    int       downPhase;
    int       isMultiRate;  /* 1 when downFactor is 2 or more */
    int       isFilterMode; /* 1 */
    float     leak;
    float     step;
    int       errDelay;
    int       lmsType;
    void*     dlyl;         /* newest sample first */
    int       dlylLen;      /* tapsLen + errDelay; the array has downFactor elements more */
    int       hasTaps;
    int       hasDlyl;
    int       hasBoth;
    LmsErrVal errVal;       /* in the member of the result's type; 0 after Init */
} LmsState;

ARKPX_API void arksLmsInit(int lmsType, const float* taps, int tapsLen, const float* dlyl, float step, float leak,
                           int errDelay, LmsState* state);
ARKPX_API void arkdLmsInit(int lmsType, const double* taps, int tapsLen, const double* dlyl, float step, float leak,
                           int errDelay, LmsState* state);
ARKPX_API void arkcLmsInit(int lmsType, const FloatCplx* taps, int tapsLen, const FloatCplx* dlyl, float step, float leak,
                           int errDelay, LmsState* state);
ARKPX_API void arkzLmsInit(int lmsType, const DoubleCplx* taps, int tapsLen, const DoubleCplx* dlyl, float step,
                           float leak, int errDelay, LmsState* state);
ARKPX_API void arkscLmsInit(int lmsType, const FloatCplx* taps, int tapsLen, const float* dlyl, float step, float leak,
                            int errDelay, LmsState* state);
ARKPX_API void arkdzLmsInit(int lmsType, const DoubleCplx* taps, int tapsLen, const double* dlyl, float step, float leak,
                            int errDelay, LmsState* state);

ARKPX_API void arksLmsInitMr(int lmsType, const float* taps, int tapsLen, const float* dlyl, float step, float leak,
                             int errDelay, int downFactor, int downPhase, LmsState* state);
ARKPX_API void arkdLmsInitMr(int lmsType, const double* taps, int tapsLen, const double* dlyl, float step, float leak,
                             int errDelay, int downFactor, int downPhase, LmsState* state);
ARKPX_API void arkcLmsInitMr(int lmsType, const FloatCplx* taps, int tapsLen, const FloatCplx* dlyl, float step,
                             float leak, int errDelay, int downFactor, int downPhase, LmsState* state);
ARKPX_API void arkzLmsInitMr(int lmsType, const DoubleCplx* taps, int tapsLen, const DoubleCplx* dlyl, float step,
                             float leak, int errDelay, int downFactor, int downPhase, LmsState* state);
ARKPX_API void arkscLmsInitMr(int lmsType, const FloatCplx* taps, int tapsLen, const float* dlyl, float step, float leak,
                              int errDelay, int downFactor, int downPhase, LmsState* state);
ARKPX_API void arkdzLmsInitMr(int lmsType, const DoubleCplx* taps, int tapsLen, const double* dlyl, float step, float leak,
                              int errDelay, int downFactor, int downPhase, LmsState* state);

ARKPX_API float arksLmsGetStep(const LmsState* state);
ARKPX_API float arkdLmsGetStep(const LmsState* state);
ARKPX_API float arkcLmsGetStep(const LmsState* state);
ARKPX_API float arkzLmsGetStep(const LmsState* state);

ARKPX_API void arksLmsSetStep(LmsState* state, float step);
ARKPX_API void arkdLmsSetStep(LmsState* state, float step);
ARKPX_API void arkcLmsSetStep(LmsState* state, float step);
ARKPX_API void arkzLmsSetStep(LmsState* state, float step);

ARKPX_API float arksLmsGetLeak(const LmsState* state);
ARKPX_API float arkdLmsGetLeak(const LmsState* state);
ARKPX_API float arkcLmsGetLeak(const LmsState* state);
ARKPX_API float arkzLmsGetLeak(const LmsState* state);

ARKPX_API void arksLmsSetLeak(LmsState* state, float leak);
ARKPX_API void arkdLmsSetLeak(LmsState* state, float leak);
ARKPX_API void arkcLmsSetLeak(LmsState* state, float leak);
ARKPX_API void arkzLmsSetLeak(LmsState* state, float leak);

ARKPX_API float      arksLmsGetErrVal(const LmsState* state);
ARKPX_API double     arkdLmsGetErrVal(const LmsState* state);
ARKPX_API FloatCplx  arkcLmsGetErrVal(const LmsState* state);
ARKPX_API DoubleCplx arkzLmsGetErrVal(const LmsState* state);

ARKPX_API void arksLmsSetErrVal(LmsState* state, float errVal);
ARKPX_API void arkdLmsSetErrVal(LmsState* state, double errVal);
ARKPX_API void arkcLmsSetErrVal(LmsState* state, FloatCplx errVal);
ARKPX_API void arkzLmsSetErrVal(LmsState* state, DoubleCplx errVal);

ARKPX_API void arksLmsSetTaps(const float* src, LmsState* state);
ARKPX_API void arkdLmsSetTaps(const double* src, LmsState* state);
ARKPX_API void arkcLmsSetTaps(const FloatCplx* src, LmsState* state);
ARKPX_API void arkzLmsSetTaps(const DoubleCplx* src, LmsState* state);

ARKPX_API void arksLmsGetTaps(const LmsState* state, float* dst);
ARKPX_API void arkdLmsGetTaps(const LmsState* state, double* dst);
ARKPX_API void arkcLmsGetTaps(const LmsState* state, FloatCplx* dst);
ARKPX_API void arkzLmsGetTaps(const LmsState* state, DoubleCplx* dst);

ARKPX_API void arksLmsSetDlyl(const float* src, LmsState* state);
ARKPX_API void arkdLmsSetDlyl(const double* src, LmsState* state);
ARKPX_API void arkcLmsSetDlyl(const FloatCplx* src, LmsState* state);
ARKPX_API void arkzLmsSetDlyl(const DoubleCplx* src, LmsState* state);

ARKPX_API void arksLmsGetDlyl(const LmsState* state, float* dst);
ARKPX_API void arkdLmsGetDlyl(const LmsState* state, double* dst);
ARKPX_API void arkcLmsGetDlyl(const LmsState* state, FloatCplx* dst);
ARKPX_API void arkzLmsGetDlyl(const LmsState* state, DoubleCplx* dst);

ARKPX_API float      arksLms(LmsState* state, float sample, float err);
ARKPX_API double     arkdLms(LmsState* state, double sample, double err);
ARKPX_API FloatCplx  arkcLms(LmsState* state, FloatCplx sample, FloatCplx err);
ARKPX_API DoubleCplx arkzLms(LmsState* state, DoubleCplx sample, DoubleCplx err);
ARKPX_API FloatCplx  arkscLms(LmsState* state, float sample, FloatCplx err);
ARKPX_API DoubleCplx arkdzLms(LmsState* state, double sample, DoubleCplx err);

ARKPX_API float      arksbLms(LmsState* state, const float* src, float err);
ARKPX_API double     arkdbLms(LmsState* state, const double* src, double err);
ARKPX_API FloatCplx  arkcbLms(LmsState* state, const FloatCplx* src, FloatCplx err);
ARKPX_API DoubleCplx arkzbLms(LmsState* state, const DoubleCplx* src, DoubleCplx err);
ARKPX_API FloatCplx  arkscbLms(LmsState* state, const float* src, FloatCplx err);
ARKPX_API DoubleCplx arkdzbLms(LmsState* state, const double* src, DoubleCplx err);

ARKPX_API float      arksLmsDes(LmsState* state, float sample, float desired);
ARKPX_API double     arkdLmsDes(LmsState* state, double sample, double desired);
ARKPX_API FloatCplx  arkcLmsDes(LmsState* state, FloatCplx sample, FloatCplx desired);
ARKPX_API DoubleCplx arkzLmsDes(LmsState* state, DoubleCplx sample, DoubleCplx desired);
ARKPX_API FloatCplx  arkscLmsDes(LmsState* state, float sample, FloatCplx desired);
ARKPX_API DoubleCplx arkdzLmsDes(LmsState* state, double sample, DoubleCplx desired);

ARKPX_API void arksbLmsDes(LmsState* state, const float* src, const float* desired, float* dst, int numIters);
ARKPX_API void arkdbLmsDes(LmsState* state, const double* src, const double* desired, double* dst, int numIters);
ARKPX_API void arkcbLmsDes(LmsState* state, const FloatCplx* src, const FloatCplx* desired, FloatCplx* dst, int numIters);
ARKPX_API void arkzbLmsDes(LmsState* state, const DoubleCplx* src, const DoubleCplx* desired, DoubleCplx* dst,
                           int numIters);
ARKPX_API void arkscbLmsDes(LmsState* state, const float* src, const FloatCplx* desired, FloatCplx* dst, int numIters);
ARKPX_API void arkdzbLmsDes(LmsState* state, const double* src, const DoubleCplx* desired, DoubleCplx* dst, int numIters);

ARKPX_API void arkLmsFree(LmsState* state);

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
 *     y = d[0] + b0 x                                  w = v - a2 d[2i+1] - a1 d[2i]
 *     d[k-1] = d[k] + bk x - ak y,  k = 1 ... N-1      v = w + ((b2/b0) d[2i+1] + (b1/b0) d[2i])
 *     d[N-1] = bN x - aN y                             d[2i+1] = d[2i], d[2i] = w
 *
 * Types. s, d, c, z: coefficients, data and results of one type. Mixed members: the first letter is the data's type, the
 * second the coefficients': sc and dz filter real data with complex coefficients, cs and zd complex data with real ones;
 * delay line and results are complex, and the coefficients are initialised with the functions of their own type, the
 * delay line with the complex one (arkcIirlInitDlyl, arkzIirlInitDlyl). w: 16-bit data, see below.
 *
 * Accuracy. All arithmetic is in double, every product and sum rounded on its own, in the order written above. After
 * each sample the new elements of the delay line are rounded to its type; within a sample nothing is: w and y are used
 * as they are. Results are rounded when they are stored. So a block gives what its samples one by one give, to the bit, a
 * signal may be cut into blocks in any way, and results are the same on all processors. (Of what infinities make, the
 * signs and payloads of NaN may differ.) Poles near the unit circle amplify the rounding of the delay line, a pair of
 * radius 1 - e at angle 0 or pi by up to 1 / e^2: there prefer the members for double to those for float. Quotients of
 * the normalisation are formed in double; complex ones neither overflow nor vanish before the result does.
 *
 * In place: outSamps may be inSamps where data and results are of one type; other overlaps are not allowed.
 *
 * Denormal numbers: when its input has ended, a filter's state decays through the denormal range of its type (float:
 * below 1.2e-38), and with poles near the unit circle rounding keeps denormals in it for ever. They cost no time on the
 * processor that the library is measured on; one that is slow with them is relieved by InitDlyl, which clears the state,
 * or by noise of about 1e-20 that is added to the input. The state of w is float, too.
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
