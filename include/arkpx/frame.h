/* arkpx/frame.h - error status and reports, memory, library version. */
#ifndef ARKPX_FRAME_H
#define ARKPX_FRAME_H

#include <arkpx/types.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---------------------------------------------------------------------------------------------------------------
 * Error status, mode and reports
 *
 * Every operation checks its arguments first. A failed check is reported through arkError, which records the status
 * for the calling thread and calls the thread's report handler; the operation then returns with its outputs
 * untouched. Nothing is ever thrown.
 *
 * The status is sticky. After a failure, operations whose documentation says that they test the status do nothing
 * until the application clears it with arkSetErrStatus(ARK_StatusOk).
 *
 * Status, mode and handler belong to the calling thread. A thread starts with status ARK_StatusOk, mode
 * ARK_ErrModeLeaf and handler arkGuiBoxReport; no call here affects another thread, and no lock is taken.
 *
 * What the three handlers of the library do in each mode:
 *
 *   mode                  arkGuiBoxReport (default)         arkStdErrReport            arkNulDevReport
 *   ARK_ErrModeLeaf       asks: end the process? Yes/No     writes, ends the process   ends the process
 *   ARK_ErrModeParent     asks: continue? OK/Cancel         writes, returns            returns
 *   ARK_ErrModeSilent     returns                           returns                    returns
 *   any other             returns                           writes, returns            returns
 *
 * A handler that ends the process ends it with exit code 1; all others return the status that they were given.
 *
 * Where arkGuiBoxReport asks. On Windows: a system-modal message box. Elsewhere, the first of: a dialog program
 * (zenity, kdialog, xmessage) when DISPLAY or WAYLAND_DISPLAY is set; the controlling terminal when the process is in
 * its foreground; else it writes the text to standard error and continues, so that a server never ends because nobody
 * was there to be asked. An answer that cannot be had counts as 'continue'. The body is cut at 199 characters and the
 * caption at 99; on Windows both are first formatted by the system, which stops at 1024.
 * --------------------------------------------------------------------------------------------------------------- */

enum { ARK_ErrModeLeaf = 0, ARK_ErrModeParent = 1, ARK_ErrModeSilent = 2 };

/* A report handler: what was passed to arkError. functionName, message and fileName may be null; line may be 0.
 * By convention it returns the status. It may call the library. */
typedef int (*ArkErrorHandler)(int status, const char* functionName, const char* message, const char* fileName,
                               int line);

/* The head of a thread's context. Private tables and buffers of the library follow it in memory: the record is only
 * ever reached through arkUndContext and never copied or created by an application. */
typedef struct ArkErrorContext {
    int status;              /* last status recorded */
    int mode;                /* ARK_ErrMode... */
    ArkErrorHandler handler; /* report handler in force, never null */
    int dftTwdCapacity;      /* DFT twiddle tables that one element type may cache: 32 */
} ArkErrorContext;

/* The thread's status: ARK_StatusOk or the last failure that was recorded or set.
 * The setter stores any value. */
ARKPX_API int  arkGetErrStatus(void);
ARKPX_API void arkSetErrStatus(int status);

/* The thread's mode. The setter stores any value; the table above says what values other than 0, 1 and 2 do. */
ARKPX_API int  arkGetErrMode(void);
ARKPX_API void arkSetErrMode(int mode);

/* Installs a report handler for the calling thread, arkGuiBoxReport for null; returns the one in force before. */
ARKPX_API ArkErrorHandler arkRedirectError(ArkErrorHandler handler);

/* Records the status (unless it is ARK_StatusBacktrace or ARK_StatusAutotrace, which are never recorded) and calls the
 * thread's handler with the same arguments. Returns 0, without a report, when status is 0; else what the handler
 * returned. functionName is the reporting function, message the failed condition or null for a back-trace, fileName
 * the source module; any of them may be null. No text is ever used as a format. */
ARKPX_API int arkError(int status, const char* functionName, const char* message, const char* fileName, int line);

/* The text of a status code. For codes outside the table "Unknown status code N" or "Unknown error code N", kept in
 * the thread's context until the thread's next such call. */
ARKPX_API const char* arkErrorStr(int status);

/* The three handlers. arkStdErrReport writes to the standard error stream, arkNulDevReport writes nothing. */
ARKPX_API int arkGuiBoxReport(int status, const char* functionName, const char* message, const char* fileName,
                              int line);
ARKPX_API int arkStdErrReport(int status, const char* functionName, const char* message, const char* fileName,
                              int line);
ARKPX_API int arkNulDevReport(int status, const char* functionName, const char* message, const char* fileName,
                              int line);

/* The calling thread's context. The address is the thread's own and stays the same for the thread's life. */
ARKPX_API ArkErrorContext* arkUndContext(void);

/* ---------------------------------------------------------------------------------------------------------------
 * Memory
 *
 * Malloc gives blocks aligned to 8 bytes, from the process heap. n counts elements, size counts bytes. Null when the heap
 * cannot supply the block, when the count is negative, or when the byte count does not fit the address space; a count of
 * 0 gives a valid pointer. No error is reported. Blocks are released by arkFree only, from any thread; arkFree accepts
 * null.
 * --------------------------------------------------------------------------------------------------------------- */
ARKPX_API void*       arkMalloc(int size);
ARKPX_API float*      arksMalloc(int n);
ARKPX_API double*     arkdMalloc(int n);
ARKPX_API FloatCplx*  arkcMalloc(int n);
ARKPX_API DoubleCplx* arkzMalloc(int n);
ARKPX_API short*      arkwMalloc(int n);
ARKPX_API ShortCplx*  arkvMalloc(int n);
ARKPX_API int*        arkiMalloc(int n);
ARKPX_API IntCplx*    arkjMalloc(int n);
ARKPX_API void        arkFree(void* block);

/* ---------------------------------------------------------------------------------------------------------------
 * Version
 *
 * arkGetLibVersion gives one constant record, the same address at every call. It names the interface that the library
 * implements, which is why it does not change with the releases of this implementation.
 * --------------------------------------------------------------------------------------------------------------- */
typedef struct ArkLibVersion {
    int         major;
    int         minor;
    int         build;
    const char* name;
    const char* version;
    const char* internalVersion;
    const char* buildDate;
    const char* targetKind;
} ArkLibVersion;

ARKPX_API const ArkLibVersion* arkGetLibVersion(void);

#ifdef __cplusplus
}
#endif

#endif
