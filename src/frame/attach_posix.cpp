// The thread's context where threads announce neither their start nor their end: made on first use.
#include "frame/context.hpp"
#include "frame/platform.hpp"

#include <cstdlib>
#include <pthread.h>

namespace ark {

constinit thread_local Context* threadContext = nullptr;

namespace {

// A key rather than a thread_local with a destructor: keys are served after every C++ destructor of the thread, and
// served again when one of those brings the context back.
pthread_key_t endOfThread;
bool endIsWatched = false;

void detachThread(void* present)
{
    threadContext = nullptr;
    if (present)
        static_cast<Context*>(present)->caches.release();
    std::free(present);
}

void watchEndOfThreads() { endIsWatched = pthread_key_create(&endOfThread, detachThread) == 0; }

// At exit and when the library is unloaded: frees the context of the thread that does it and makes sure that the end of
// no other thread calls into unloaded code. A context that is made after this lasts until the process has ended.
[[gnu::destructor]] void unload()
{
    if (endIsWatched)
        pthread_key_delete(endOfThread);
    endIsWatched = false;
    detachThread(threadContext);
}

} // namespace

[[gnu::cold]] Context& attachThread()
{
    static pthread_once_t once = PTHREAD_ONCE_INIT;
    pthread_once(&once, watchEndOfThreads);

    auto* fresh = static_cast<Context*>(std::calloc(1, sizeof(Context)));
    if (!fresh)
        contextMissing();
    fresh->head = initialHead;
    threadContext = fresh;
    if (endIsWatched)
        pthread_setspecific(endOfThread, fresh);
    return *fresh;
}

void contextMissing()
{
    platform::endProcess("ORB Library error:\nBad ORB Context\nTerminating the application",
                         "Win32S: Fatal Application Exit");
}

} // namespace ark
