// The thread's context: what arkUndContext returns and what the library keeps for the thread behind it.
#pragma once

#include "frame/slot.hpp"

#include <arkpx/frame.h>

namespace ark {

// Created zero-filled and with this head; the caches of the transforms start empty.
inline constexpr int dftTwdCapacity = 32;
inline constexpr ArkErrorContext initialHead{ARK_StatusOk, ARK_ErrModeLeaf, arkGuiBoxReport, dftTwdCapacity};

inline constexpr int orders = 32; // of a transform: 0 to 31

inline void clear(Slot& slot) { slot.clear(); }
template <class T, std::size_t count>
void clear(T (&slots)[count])
{
    for (T& slot : slots)
        clear(slot);
}

// The public twiddle tables of one element type. Callers hold pointers to them.
struct TwiddleTables {
    Slot fft[orders];
    struct Dft {
        int length;
        Slot table;
        Slot fast; // private; where the transform is not done by the sums
    } dft[dftTwdCapacity];
    int dftCount;

    void release()
    {
        clear(fft);
        while (dftCount > 0) {
            dftCount--;
            dft[dftCount].table.clear();
            dft[dftCount].fast.clear();
        }
    }
};

// What the transforms of one precision keep for themselves.
struct TransformTables {
    Slot fft[orders];            // of the complex transform of an order
    std::size_t scratch[orders]; // the reals that it works in; known once fft is filled
    Slot recombination[orders];  // of the real transform around it

    void release(int order)
    {
        fft[order].clear();
        recombination[order].clear();
    }
    void release()
    {
        clear(fft);
        clear(recombination);
    }
};

// Working buffers, which grow with the largest transform.
struct WorkingBuffers {
    Slot scratch;  // of the complex transforms
    Slot spectrum; // of two signals in one
    Slot samples;  // 16-bit vectors as floats

    void release()
    {
        scratch.clear();
        spectrum.clear();
        samples.clear();
    }
};

struct Caches {
    Slot bitReversal[orders];
    TwiddleTables twiddles[3];    // FloatCplx, DoubleCplx, ShortCplx
    TransformTables transform[2]; // float, double
    WorkingBuffers working;

    void release()
    {
        clear(bitReversal);
        for (TwiddleTables& tables : twiddles)
            tables.release();
        for (TransformTables& tables : transform)
            tables.release();
        working.release();
    }
};

struct Context {
    ArkErrorContext head; // first: applications reach it through arkUndContext
    Caches caches;        // goes with the thread, whoever frees the context releases it
    char text[1332];      // arkErrorStr's text for codes that have none of their own
};

// Ends the process: a thread that can have no context has no place to record a status in.
[[noreturn]] void contextMissing();

// The calling thread's context. On Windows the library's attach notifications make and free it (attach_win32.cpp),
// elsewhere the first use in a thread makes it and the end of the thread frees it (attach_posix.cpp).
#ifdef _WIN32
Context& context();
inline int currentStatus() { return context().head.status; }
inline void clearStatus() { context().head.status = ARK_StatusOk; }
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

// The thread's status, read and cleared without making a context, which spares nearly all operations a call and the
// registers that it would cost.
inline int currentStatus()
{
    const Context* present = threadContext;
    return present ? present->head.status : int{ARK_StatusOk};
}
inline void clearStatus()
{
    if (Context* present = threadContext)
        present->head.status = ARK_StatusOk;
}
#endif

} // namespace ark
