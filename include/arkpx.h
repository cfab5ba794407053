/* arkpx.h - the whole interface of the arkpx signal-processing library.
 *
 *   #include <arkpx.h>
 *
 *   int main(void)
 *   {
 *       float left[4] = {1, 2, 3, 4}, right[4] = {4, 3, 2, 1}, mix[4];
 *       arkSetErrMode(ARK_ErrModeSilent);
 *       arksbAdd3(left, right, mix, 4);
 *       return arkGetErrStatus() == ARK_StatusOk ? 0 : 1;
 *   }
 *
 * Read this first: every thread starts in a mode in which a failed argument check asks, on the screen or the
 * terminal, whether to end the process. A program that wants to look at the status itself calls
 * arkSetErrMode(ARK_ErrModeSilent) once in every thread. See arkpx/frame.h.
 *
 * The header is C99 and C++; one header per subsystem, each of which can be included alone.
 */
#ifndef ARKPX_H
#define ARKPX_H

#include <arkpx/convolve.h>
#include <arkpx/filter.h>
#include <arkpx/frame.h>
#include <arkpx/generate.h>
#include <arkpx/transform.h>
#include <arkpx/types.h>
#include <arkpx/vector.h>

#endif
