/* arkpx/generate.h - tones, triangle waves, noise and windows. */
#ifndef ARKPX_GENERATE_H
#define ARKPX_GENERATE_H

#include <arkpx/types.h>

#ifdef __cplusplus
extern "C" {
#endif

/* What all generators have in common. The caller owns a state record; Init fills it completely and may be called again
 * at any time, which starts anew. Every further call continues where the last one ended: n calls of the member for one
 * sample and one call of the block member for n samples give the same samples, mixed in any way (tones and triangle
 * waves say where this is not so). A record belongs to one thread at a time; different records are independent.
 *
 * All operations of this header return at the first failed check and do not look at the thread's status: an earlier
 * failure elsewhere never silences a generator. Every report is ARK_StatusBadArgument. After one the record and the
 * output are untouched and members that return a sample return 0. A NaN passes the checks of values and comes out as
 * NaN samples, as 0 from the 16-bit members; in a triangle wave a frequency does so from the second sample on.
 */

/* ---------------------------------------------------------------------------------------------------------------
 * Tone generator
 *
 *   real      samps[n] = mag cos(2 pi rFreq n + phase)                                            n = 0, 1, 2, ...
 *   complex   samps[n] = mag (cos(2 pi rFreq n + phase) + i sin(2 pi rFreq n + phase))
 *
 * rFreq: cycles per sample, 0 <= rFreq < 0.5, for complex tones as well. phase: radians, 0 <= phase < 2 pi. mag >= 0.
 * sampsLen: samples, >= 1.
 *
 * Floating types. y[n] = 2 cos(w) y[n-1] - y[n-2], w = 2 pi rFreq, real and imaginary parts alike, in the widest
 * floating type, stored as double. A block of some length computes the same sequence many samples at a time, from
 * y[n+j] = y[n] cos(jw) - q sin(jw) with the quadrature component q of the two stored samples; it calls no
 * trigonometric function, gives the same bits on every instruction set and agrees with single samples to rounding.
 * Nothing is renormalised. Drift: the largest difference from mag cos(2 pi rFreq n + phase), in long double, of a
 * double tone of magnitude 1 after 10^6 samples, measured over many phases, the same for blocks of any length and for
 * single samples:
 *   rFreq   10^-6   10^-5   10^-4   10^-3   0.01    0.1       0.25      0.4       0.49 ... 0.4998
 *   drift   8e-6    9e-7    9e-8    9e-9    9e-10   1.4e-10   1.7e-10   3.9e-10   4e-8
 * A float tone adds the rounding of its samples. The cause is that w and 2 cos(w) are rounded to double once, which puts
 * the frequency off by up to 5.6e-17 / sin(w) + 2e-16 w radians per sample. Tones below about 2e-9 cycles per sample,
 * whose cosine rounds to 1, do not turn: they continue in a straight line.
 *
 * 16-bit types. Two phasors, one sample apart and scaled up by 2^k, 16384 <= mag 2^k, turn by 2w in Q14:
 *   sample    (x + 2^k if x < 0, else x) >> k         x a part of the phasor; for k = 0 negative samples are one larger
 *   turn      ((re C2 - im S2) >> 14, (re S2 + im C2) >> 14), low 16 bits
 *             C2 = 16384 cos 2w, S2 = 16384 sin 2w, truncated
 * so that samples are exact to the bit everywhere, given cos and sin of w. Shifts round down, hence the magnitude falls
 * slowly. mag 0 is accepted and gives silence (k = 0). Single samples come from a buffer in the record that is filled 32
 * samples at a time (v: 16); a block first takes what is left there. A block that leaves an odd number of samples to
 * the phasors sets them two samples apart: what follows skips ahead, so 3 and 3 samples differ from 6.
 *
 * Reports, in this order.
 *   Init          "Invalid magnitude value", "Invalid freq value", "Invalid phase value", "Null pointer to state"
 *   one sample    "Null pointer to state", "Structure initialization need" (signature is not "BDT")
 *   block         "Null pointer to state", "Null input buffer pointer", "Bad number of items" (sampsLen < 1),
 *                 "Structure initialization need"
 * -0.0 counts as 0. Modules arktone (s, d, c, z; one line number a function) and arktonew (w, v; one a check).
 * Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
typedef struct ArksToneState {
    double twoCos; /* 2 cos(w) */
    double prev1;  /* the sample before the next one */
    double prev2;  /* the sample before that */
    float mag;     /* Init's arguments */
    float rFreq;
    float phase;
    char signature[4]; /* "BDT" */
} ArksToneState;

typedef struct ArkdToneState {
    double twoCos;
    double prev1;
    double prev2;
    double mag;
    double rFreq;
    double phase;
    char signature[4];
} ArkdToneState;

typedef struct ArkcToneState {
    double twoCos;
    DoubleCplx prev1;
    DoubleCplx prev2;
    float mag;
    float rFreq;
    float phase;
    char signature[4];
} ArkcToneState;

typedef struct ArkzToneState {
    double twoCos;
    DoubleCplx prev1;
    DoubleCplx prev2;
    double mag;
    double rFreq;
    double phase;
    char signature[4];
} ArkzToneState;

typedef struct ArkwToneState { /* of w and v */
    short ph0Re, ph0Im;        /* phasor of the next sample to be generated, scaled by 2^k */
    short ph1Re, ph1Im;        /* phasor of the sample after it */
    short rot[4];              /* C2, -S2, S2, C2 */
    short bias[4];             /* 2^k, four times */
    int shift;                 /* k */
    int bufIndex;              /* of the next unread sample in buf; 32 (v: 16) when there is none */
    short buf[32];             /* v: 16 pairs (re, im) */
    short mag;
    float rFreq;
    float phase;
    char signature[4];
} ArkwToneState;

ARKPX_API void arksToneInit(float rFreq, float phase, float mag, ArksToneState* statePtr);
ARKPX_API void arkdToneInit(double rFreq, double phase, double mag, ArkdToneState* statePtr);
ARKPX_API void arkcToneInit(float rFreq, float phase, float mag, ArkcToneState* statePtr);
ARKPX_API void arkzToneInit(double rFreq, double phase, double mag, ArkzToneState* statePtr);
ARKPX_API void arkwToneInit(float rFreq, float phase, short mag, ArkwToneState* statePtr);
ARKPX_API void arkvToneInit(float rFreq, float phase, short mag, ArkwToneState* statePtr);

ARKPX_API float      arksTone(ArksToneState* statePtr);
ARKPX_API double     arkdTone(ArkdToneState* statePtr);
ARKPX_API FloatCplx  arkcTone(ArkcToneState* statePtr);
ARKPX_API DoubleCplx arkzTone(ArkzToneState* statePtr);
ARKPX_API short      arkwTone(ArkwToneState* statePtr);
ARKPX_API ShortCplx  arkvTone(ArkwToneState* statePtr);

ARKPX_API void arksbTone(ArksToneState* statePtr, float* samps, int sampsLen);
ARKPX_API void arkdbTone(ArkdToneState* statePtr, double* samps, int sampsLen);
ARKPX_API void arkcbTone(ArkcToneState* statePtr, FloatCplx* samps, int sampsLen);
ARKPX_API void arkzbTone(ArkzToneState* statePtr, DoubleCplx* samps, int sampsLen);
ARKPX_API void arkwbTone(ArkwToneState* statePtr, short* samps, int sampsLen);
ARKPX_API void arkvbTone(ArkwToneState* statePtr, ShortCplx* samps, int sampsLen);

/* ---------------------------------------------------------------------------------------------------------------
 * Triangle generator
 *
 * A periodic wave of straight lines. In one period of the phase t it falls from +mag at 0 to -mag at u = pi + asym and
 * rises back to +mag at 2 pi:
 *
 *   value(t) = mag (1 - 2 t / u)                    0 <= t < u
 *              mag (2 (t - u) / (2 pi - u) - 1)     u <= t < 2 pi
 *   samps[n] = value(2 pi rFreq n + phase)                                                       n = 0, 1, 2, ...
 *
 * The imaginary part of the complex wave is the same wave (u + 2 pi) / 2 ahead, where the real part rises through zero.
 * With asym 0, phase 0, rFreq 0.25 and mag 1: 1, 0, -1, 0, 1, ...
 *
 * rFreq: cycles per sample, 0 <= rFreq < 0.5. phase: radians, 0 <= phase < 2 pi. asym: radians, -pi < asym < pi; above 0
 * the falling part is the longer one. mag >= 0. sampsLen: samples, >= 1.
 *
 * The running value is kept in the family's own precision and changes by one step a sample; a line that passes a bound
 * is reflected there, or, where it would pass the other bound too, set back by a whole period. However a signal is cut
 * into blocks, its samples are the same; a block tests only the bound ahead and reflects by another formula than a
 * single sample, so that the two agree to rounding. 16-bit members compute as s and c do and round to nearest, ties to
 * even. Rounding adds up: after 10^6 samples a double wave of magnitude 1 is off by 10^-13 to 10^-8, a float wave by up
 * to a tenth, and, where asym is near its bounds, on the steep side by its whole height.
 *
 * Reports, in this order.
 *   Init          "Invalid magnitude value", "Invalid frequence value", "Invalid phase value",
 *                 "Invalid asymmetry value", "Null pointer to state"
 *   one sample    "Null pointer to state"
 *   block         "Null pointer to state", "Null pointer to buffer", "Invalid number of items" (sampsLen < 1)
 * -0.0 counts as 0. Module arktrngl. Records carry no mark: one that Init has not filled is not recognised.
 * Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
typedef struct ArksTrnglState { /* of s and w */
    float mag;
    float step;         /* per sample in the current direction: downStep or upStep */
    float downStep;     /* -4 pi mag rFreq / (pi + asym) */
    float upStep;       /* 4 pi mag rFreq / (pi - asym) */
    float topRatio;     /* -(pi - asym) / (pi + asym): an overshoot above mag as a fall */
    float bottomRatio;  /* -(pi + asym) / (pi - asym): an undershoot below -mag as a rise */
    float upWrap;       /* 4 pi mag / (pi - asym): a period in rising steps */
    float downWrap;     /* 4 pi mag / (pi + asym): a period in falling steps */
    float topOffset;    /* mag - topRatio mag */
    float bottomOffset; /* bottomRatio mag - mag */
    float value;        /* the next sample */
} ArksTrnglState;

typedef struct ArkdTrnglState {
    double mag;
    double step;
    double downStep;
    double upStep;
    double topRatio;
    double bottomRatio;
    double upWrap;
    double downWrap;
    double topOffset;
    double bottomOffset;
    double value;
} ArkdTrnglState;

typedef struct ArkcTrnglState { /* of c and v */
    float mag;
    float stepRe;
    float stepIm;
    float downStep;
    float upStep;
    float topRatio;
    float bottomRatio;
    float upWrap;
    float downWrap;
    float topOffset;
    float bottomOffset;
    float valueRe;
    float valueIm;
} ArkcTrnglState;

typedef struct ArkzTrnglState {
    double mag;
    double stepRe;
    double stepIm;
    double downStep;
    double upStep;
    double topRatio;
    double bottomRatio;
    double upWrap;
    double downWrap;
    double topOffset;
    double bottomOffset;
    double valueRe;
    double valueIm;
} ArkzTrnglState;

ARKPX_API void arksTrnglInit(float rFreq, float phase, float mag, float asym, ArksTrnglState* statePtr);
ARKPX_API void arkdTrnglInit(double rFreq, double phase, double mag, double asym, ArkdTrnglState* statePtr);
ARKPX_API void arkcTrnglInit(float rFreq, float phase, float mag, float asym, ArkcTrnglState* statePtr);
ARKPX_API void arkzTrnglInit(double rFreq, double phase, double mag, double asym, ArkzTrnglState* statePtr);
ARKPX_API void arkwTrnglInit(float rFreq, float phase, short mag, float asym, ArksTrnglState* statePtr);
ARKPX_API void arkvTrnglInit(float rFreq, float phase, short mag, float asym, ArkcTrnglState* statePtr);

ARKPX_API float      arksTrngl(ArksTrnglState* statePtr);
ARKPX_API double     arkdTrngl(ArkdTrnglState* statePtr);
ARKPX_API FloatCplx  arkcTrngl(ArkcTrnglState* statePtr);
ARKPX_API DoubleCplx arkzTrngl(ArkzTrnglState* statePtr);
ARKPX_API short      arkwTrngl(ArksTrnglState* statePtr);
ARKPX_API ShortCplx  arkvTrngl(ArkcTrnglState* statePtr);

ARKPX_API void arksbTrngl(ArksTrnglState* statePtr, float* samps, int sampsLen);
ARKPX_API void arkdbTrngl(ArkdTrnglState* statePtr, double* samps, int sampsLen);
ARKPX_API void arkcbTrngl(ArkcTrnglState* statePtr, FloatCplx* samps, int sampsLen);
ARKPX_API void arkzbTrngl(ArkzTrnglState* statePtr, DoubleCplx* samps, int sampsLen);
ARKPX_API void arkwbTrngl(ArksTrnglState* statePtr, short* samps, int sampsLen);
ARKPX_API void arkvbTrngl(ArkcTrnglState* statePtr, ShortCplx* samps, int sampsLen);

/* ---------------------------------------------------------------------------------------------------------------
 * Random generators: uniform and Gaussian noise
 *
 * Both draw 32-bit integers r from a subtract-with-borrow generator of lag three plus a congruential one. One draw, all
 * in 32 bits that wrap:
 *
 *   d = x2 - x3 - carry;  if d as a signed number is below 1: d = d - 18, carry = 1; else carry = 0
 *   x3 = x2, x2 = x1, x1 = d;  lcg = 69069 lcg + 1013904243;  r = lcg + d, signed
 *
 * Init starts it from the seed s: x1 = s, x2 and x3 the next two of the values (g >> 16) & 0x7FFF with
 * g = 214013 g + 2531011 starting from g = s; lcg = 1131199209. The seed is truncated to an integer, so that 5.0 and 5.9
 * give the same noise; beyond 32 bits it wraps, beyond 64 bits and for a NaN it counts as 0. Equal seeds give equal
 * noise on every platform.
 *
 * Uniform: low <= sample < high. sample = r scale + offset with scale = (high - low) 2^-32, offset = the middle, computed
 * in double, then converted: a float result may round up to high itself. Init draws and drops five values. carry starts
 * at 0. 16-bit members round to nearest, ties to even, and so reach both bounds; low and high come half as often as the
 * values between them. low == high gives low exactly.
 *
 * Gaussian: Marsaglia's polar method. Pairs u1, u2 = r 4.656612873077e-10 (just below 2^-31) are drawn until
 * 0 < s = u1^2 + u2^2 < 1; with f = sqrt(-2 ln(s) / s) the next two samples are mean + stdDev u2 f and
 * mean + stdDev u1 f. carry starts at 1, nothing is dropped. ln is the library's own, so that the noise is equal to the
 * bit everywhere. 16-bit members are the s member's samples, rounded to nearest, ties to even, and saturated.
 *
 * Complex samples are two real ones, the real part first, from the same kind of record. sampsLen: samples.
 *
 * Reports.
 *   s, d, c, z, and Gaussian w, v: "Null pointer to state structure". A block with a null samps or sampsLen < 1 does
 *     nothing and reports nothing. Module arkrand.
 *   uniform w, v: Init "statePtr==0"; one sample "((void*)(0))==statePtr"; block, in this order, "statePtr==0",
 *     "samps==0", "sampsLen<=0". Module arkrandw.
 * Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
typedef struct ArksRandUniState { /* of s and c */
    float offset;
    float scale;
    unsigned int lcg;
    unsigned int carry; /* 0 or 1 */
    unsigned int x1;    /* the last three values, newest first */
    unsigned int x2;
    unsigned int x3;
    unsigned int seedLcg;
} ArksRandUniState;

typedef struct ArkdRandUniState { /* of d and z */
    double offset;
    double scale;
    unsigned int lcg;
    unsigned int carry;
    unsigned int x1;
    unsigned int x2;
    unsigned int x3;
    unsigned int seedLcg;
} ArkdRandUniState;

typedef struct ArkwRandUniState { /* of w and v */
    float offset;
    float scale;
    unsigned int lcg;
    unsigned int carry;
    unsigned int x1;
    unsigned int x2;
    unsigned int x3;
    unsigned int seedLcg;
    int bufIndex;  /* of the next unread value in buf; 32 when there is none */
    short buf[32]; /* values drawn ahead for single samples; a complex sample takes two */
} ArkwRandUniState;

typedef struct ArksRandGausState { /* of s and c */
    float mean;
    float stdDev;
    float spare;   /* the second sample of the last pair */
    int haveSpare; /* not 0: spare is the next sample */
    unsigned int lcg;
    unsigned int carry;
    unsigned int x1;
    unsigned int x2;
    unsigned int x3;
    unsigned int seedLcg;
} ArksRandGausState;

typedef struct ArkdRandGausState { /* of d and z */
    double mean;
    double stdDev;
    double spare;
    int haveSpare;
    unsigned int lcg;
    unsigned int carry;
    unsigned int x1;
    unsigned int x2;
    unsigned int x3;
    unsigned int seedLcg;
} ArkdRandGausState;

typedef ArksRandGausState ArkwRandGausState; /* of w and v */

ARKPX_API void arksRandUniInit(float seed, float low, float high, ArksRandUniState* statePtr);
ARKPX_API void arkdRandUniInit(double seed, double low, double high, ArkdRandUniState* statePtr);
ARKPX_API void arkcRandUniInit(float seed, float low, float high, ArksRandUniState* statePtr);
ARKPX_API void arkzRandUniInit(double seed, double low, double high, ArkdRandUniState* statePtr);
ARKPX_API void arkwRandUniInit(int seed, short low, short high, ArkwRandUniState* statePtr);
ARKPX_API void arkvRandUniInit(int seed, short low, short high, ArkwRandUniState* statePtr);

ARKPX_API float      arksRandUni(ArksRandUniState* statePtr);
ARKPX_API double     arkdRandUni(ArkdRandUniState* statePtr);
ARKPX_API FloatCplx  arkcRandUni(ArksRandUniState* statePtr);
ARKPX_API DoubleCplx arkzRandUni(ArkdRandUniState* statePtr);
ARKPX_API short      arkwRandUni(ArkwRandUniState* statePtr);
ARKPX_API ShortCplx  arkvRandUni(ArkwRandUniState* statePtr);

ARKPX_API void arksbRandUni(ArksRandUniState* statePtr, float* samps, int sampsLen);
ARKPX_API void arkdbRandUni(ArkdRandUniState* statePtr, double* samps, int sampsLen);
ARKPX_API void arkcbRandUni(ArksRandUniState* statePtr, FloatCplx* samps, int sampsLen);
ARKPX_API void arkzbRandUni(ArkdRandUniState* statePtr, DoubleCplx* samps, int sampsLen);
ARKPX_API void arkwbRandUni(ArkwRandUniState* statePtr, short* samps, int sampsLen);
ARKPX_API void arkvbRandUni(ArkwRandUniState* statePtr, ShortCplx* samps, int sampsLen);

ARKPX_API void arksRandGausInit(float seed, float mean, float stdDev, ArksRandGausState* statePtr);
ARKPX_API void arkdRandGausInit(double seed, double mean, double stdDev, ArkdRandGausState* statePtr);
ARKPX_API void arkcRandGausInit(float seed, float mean, float stdDev, ArksRandGausState* statePtr);
ARKPX_API void arkzRandGausInit(double seed, double mean, double stdDev, ArkdRandGausState* statePtr);
ARKPX_API void arkwRandGausInit(int seed, short mean, short stdDev, ArkwRandGausState* statePtr);
ARKPX_API void arkvRandGausInit(int seed, short mean, short stdDev, ArkwRandGausState* statePtr);

ARKPX_API float      arksRandGaus(ArksRandGausState* statePtr);
ARKPX_API double     arkdRandGaus(ArkdRandGausState* statePtr);
ARKPX_API FloatCplx  arkcRandGaus(ArksRandGausState* statePtr);
ARKPX_API DoubleCplx arkzRandGaus(ArkdRandGausState* statePtr);
ARKPX_API short      arkwRandGaus(ArkwRandGausState* statePtr);
ARKPX_API ShortCplx  arkvRandGaus(ArkwRandGausState* statePtr);

ARKPX_API void arksbRandGaus(ArksRandGausState* statePtr, float* samps, int sampsLen);
ARKPX_API void arkdbRandGaus(ArkdRandGausState* statePtr, double* samps, int sampsLen);
ARKPX_API void arkcbRandGaus(ArksRandGausState* statePtr, FloatCplx* samps, int sampsLen);
ARKPX_API void arkzbRandGaus(ArkdRandGausState* statePtr, DoubleCplx* samps, int sampsLen);
ARKPX_API void arkwbRandGaus(ArkwRandGausState* statePtr, short* samps, int sampsLen);
ARKPX_API void arkvbRandGaus(ArkwRandGausState* statePtr, ShortCplx* samps, int sampsLen);

/* ---------------------------------------------------------------------------------------------------------------
 * Windows
 *
 *   vec[k] *= w(k), vec[N-1-k] *= w(k)      0 <= k < (N-1)/2,   t = 2 pi k / (N-1)
 *
 *   Bartlett      2 k / (N-1)
 *   Hann          (1 - cos t) / 2
 *   Hamming       0.54 - 0.46 cos t
 *   Blackman      0.5 + alpha/2 - cos(t)/2 - (alpha/2) cos 2t
 *   BlackmanStd   alpha = -0.16: 0.42 - cos(t)/2 + 0.08 cos 2t
 *   BlackmanOpt   alpha = -(0.5 / cos(pi / (N-1)))^2: the fastest fall of the sidelobes
 *   Kaiser        I0(beta sqrt(k (N-1-k))) / I0(beta (N-1)/2)
 *
 * Symmetric windows, in place. All are 1 in the middle: the middle element of an odd length is left as it is. Complex
 * elements have both parts multiplied by the weight. N: elements, >= 3. beta is per sample: the parameter that tables
 * give for Kaiser's window is beta (N-1)/2; its sign does not matter.
 *
 * Weights are computed in double. Cosines come from recurrences: one trigonometric call for a whole window, two for
 * BlackmanOpt. In the 16-bit types and for N <= 64 this is c(k+1) = 2 cos(2 pi/(N-1)) c(k) - c(k-1), whose error grows
 * with N (10^-11 at 10000, 10^-6 at a million); longer floating windows turn 64 cosines at a time and keep every cosine
 * within 2e-13 up to N = 1,000,003. 16-bit products are truncated toward zero and their low 16 bits taken (0 for a
 * product beyond 32 bits): 100 under 0.999 becomes 99. I0 is evaluated by the polynomials 9.8.1 and 9.8.2 of Abramowitz
 * and Stegun, Handbook of Mathematical Functions; weights are within 1.1e-6 of the exact ones, relatively.
 *
 * Reports, in this order: "Null pointer to buffer"; "Bad number of items" (N < 3: also lengths 1 and 2); Kaiser:
 * "Huge window parameter" ((N-1) |beta| / 2 > 308, formed in beta's type). BlackmanStd and BlackmanOpt check nothing of
 * their own: the Blackman member of their type reports, under its name. Modules arkwin (s, c, d, z) and arkwinw (w, v).
 * Allocates: never.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void arksWinBartlett(float* vec, int N);
ARKPX_API void arkdWinBartlett(double* vec, int N);
ARKPX_API void arkcWinBartlett(FloatCplx* vec, int N);
ARKPX_API void arkzWinBartlett(DoubleCplx* vec, int N);
ARKPX_API void arkwWinBartlett(short* vec, int N);
ARKPX_API void arkvWinBartlett(ShortCplx* vec, int N);

ARKPX_API void arksWinHann(float* vec, int N);
ARKPX_API void arkdWinHann(double* vec, int N);
ARKPX_API void arkcWinHann(FloatCplx* vec, int N);
ARKPX_API void arkzWinHann(DoubleCplx* vec, int N);
ARKPX_API void arkwWinHann(short* vec, int N);
ARKPX_API void arkvWinHann(ShortCplx* vec, int N);

ARKPX_API void arksWinHamming(float* vec, int N);
ARKPX_API void arkdWinHamming(double* vec, int N);
ARKPX_API void arkcWinHamming(FloatCplx* vec, int N);
ARKPX_API void arkzWinHamming(DoubleCplx* vec, int N);
ARKPX_API void arkwWinHamming(short* vec, int N);
ARKPX_API void arkvWinHamming(ShortCplx* vec, int N);

ARKPX_API void arksWinBlackman(float* vec, int N, float alpha);
ARKPX_API void arkdWinBlackman(double* vec, int N, double alpha);
ARKPX_API void arkcWinBlackman(FloatCplx* vec, int N, float alpha);
ARKPX_API void arkzWinBlackman(DoubleCplx* vec, int N, double alpha);
ARKPX_API void arkwWinBlackman(short* vec, int N, float alpha);
ARKPX_API void arkvWinBlackman(ShortCplx* vec, int N, float alpha);

ARKPX_API void arksWinBlackmanStd(float* vec, int N);
ARKPX_API void arkdWinBlackmanStd(double* vec, int N);
ARKPX_API void arkcWinBlackmanStd(FloatCplx* vec, int N);
ARKPX_API void arkzWinBlackmanStd(DoubleCplx* vec, int N);
ARKPX_API void arkwWinBlackmanStd(short* vec, int N);
ARKPX_API void arkvWinBlackmanStd(ShortCplx* vec, int N);

ARKPX_API void arksWinBlackmanOpt(float* vec, int N);
ARKPX_API void arkdWinBlackmanOpt(double* vec, int N);
ARKPX_API void arkcWinBlackmanOpt(FloatCplx* vec, int N);
ARKPX_API void arkzWinBlackmanOpt(DoubleCplx* vec, int N);
ARKPX_API void arkwWinBlackmanOpt(short* vec, int N);
ARKPX_API void arkvWinBlackmanOpt(ShortCplx* vec, int N);

ARKPX_API void arksWinKaiser(float* vec, int N, float beta);
ARKPX_API void arkdWinKaiser(double* vec, int N, double beta);
ARKPX_API void arkcWinKaiser(FloatCplx* vec, int N, float beta);
ARKPX_API void arkzWinKaiser(DoubleCplx* vec, int N, double beta);
ARKPX_API void arkwWinKaiser(short* vec, int N, float beta);
ARKPX_API void arkvWinKaiser(ShortCplx* vec, int N, float beta);

#ifdef __cplusplus
}
#endif

#endif
