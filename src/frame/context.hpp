// The thread's context: what arkUndContext returns and what the library keeps for the thread behind it.
#pragma once

#include <arkpx/frame.h>

namespace ark {

// Created zero-filled and with this head; the caches of the transforms start empty.
inline constexpr int dftTwdCapacity = 32;
inline constexpr ArkErrorContext initialHead{ARK_StatusOk, ARK_ErrModeLeaf, arkGuiBoxReport, dftTwdCapacity};

struct Context {
    ArkErrorContext head; // first: applications reach it through arkUndContext
    // The tables and buffers that the transforms cache for the thread go between the two.
    char text[1332]; // arkErrorStr's text for codes that have none of their own
};

// Ends the process: a thread that can have no context has no place to record a status in.
[[noreturn]] void contextMissing();

// The calling thread's context. On Windows the library's attach notifications make and free it (attach_win32.cpp),
// elsewhere the first use in a thread makes it and the end of the thread frees it (attach_posix.cpp).
#ifdef _WIN32
Context& context();
#else
Context& attachThread();

// initial-exec: a pointer fits the reserve that the loader keeps for libraries opened at run time, and reaching it
// costs one load instead of a call. The context itself would not fit.
[[gnu::tls_model("initial-exec")]] extern constinit thread_local Context* threadContext;

inline Context& context()
{
    Context* present = threadContext;
    return present ? *present : attachThread();
}
#endif

} // namespace ark
