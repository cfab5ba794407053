/* arkpx/types.h - element types, constants and conventions shared by every subsystem. */
#ifndef ARKPX_TYPES_H
#define ARKPX_TYPES_H

/* Define ARKPX_STATIC before including any header when linking to the static library on Windows. */
#if defined(_WIN32) && !defined(ARKPX_STATIC)
#define ARKPX_API __declspec(dllimport)
#elif defined(__GNUC__) && !defined(_WIN32)
#define ARKPX_API __attribute__((visibility("default")))
#else
#define ARKPX_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Names. A function is called ark + element type + [b] + operation + [form]:
 *
 *   type  element                    b     works on a vector ("buffer"), not on one element
 *   s     float                      1     one vector, changed in place (with a value, where there is one)
 *   d     double                     2     source into destination; where the operation has two operands,
 *   c     FloatCplx                        the destination is the first of them
 *   z     DoubleCplx                 3     two sources into a destination
 *   w     16-bit signed
 *   v     ShortCplx                  Lengths count elements, never bytes; a complex element counts once.
 *   i     32-bit signed              Arrays may start at any address that their element type allows.
 *   j     IntCplx
 */

/* Complex elements: the real part first, no padding. */
typedef struct FloatCplx {
    float re;
    float im;
} FloatCplx;

typedef struct DoubleCplx {
    double re;
    double im;
} DoubleCplx;

typedef struct ShortCplx {
    short re;
    short im;
} ShortCplx;

typedef struct IntCplx {
    int re;
    int im;
} IntCplx;

/* Status codes. ARK_StatusBacktrace and ARK_StatusAutotrace accompany reports and are never recorded by arkError. */
enum {
    ARK_StatusOk = 0,
    ARK_StatusBacktrace = -1,
    ARK_StatusUnknownError = -2,
    ARK_StatusInternalError = -3,
    ARK_StatusOutOfMemory = -4,
    ARK_StatusBadArgument = -5,
    ARK_StatusUnsupportedFunction = -6,
    ARK_StatusNoConvergence = -7,
    ARK_StatusAutotrace = -8
};

/* Scale modes of the 16-bit operations. Every 16-bit operation that can overflow takes (int scaleMode,
 * int* scaleFactor). A factor f delivers the exact result r as r * 2^-f: f > 0 is an arithmetic shift to the right
 * (toward minus infinity, without rounding), f < 0 a shift to the left.
 *
 *   ARK_WRAP                          the low 16 bits of the result
 *   ARK_SATURATE                      the result clamped to -32768 ... 32767
 *   ARK_FIXED_SCALE                   shifted by *scaleFactor (0 for a null pointer), low 16 bits
 *   ARK_FIXED_SCALE | ARK_SATURATE    shifted by *scaleFactor (0 for a null pointer), clamped
 *   ARK_AUTO_SCALE                    shifted by 0 if the whole result fits as it is, else by a factor with which it
 *                                     does; the factor is written to *scaleFactor, which must not be null
 *
 * The automatic factor of the vector arithmetic is the smallest one. Filters, transforms, DFT, Goertzel and convolution
 * bring the largest magnitude, if the result does not fit as it is, into 16384 ... 32767. That is the same factor, but
 * where the largest magnitude is that of -2^16, -2^17 and so on: -65536 takes the factor 2 and becomes -16384, in the
 * vector arithmetic the factor 1 and becomes -32768.
 */
enum { ARK_WRAP = 0, ARK_SATURATE = 1, ARK_FIXED_SCALE = 2, ARK_AUTO_SCALE = 4 };

#ifdef __cplusplus
}
#endif

#endif
