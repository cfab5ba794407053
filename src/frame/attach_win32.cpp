// The thread's context on Windows: a slot of thread-local storage, filled and emptied by attach notifications.
#include "frame/attach_win32.hpp"

#include "frame/context.hpp"
#include "frame/platform.hpp"

namespace ark {
namespace {

[[gnu::used]] const char* const notifiedBy = &notifier;

DWORD slot = TLS_OUT_OF_INDEXES;
int attachedProcesses = 0; // changed inside process notifications only, which the system serialises

bool attachThread()
{
    auto* fresh = static_cast<Context*>(LocalAlloc(LPTR, sizeof(Context)));
    if (!fresh)
        return false;
    fresh->head = initialHead;
    return TlsSetValue(slot, fresh) || LocalFree(fresh) != nullptr;
}

void detachThread()
{
    auto* const present = static_cast<Context*>(TlsGetValue(slot));
    if (present)
        present->caches.release();
    LocalFree(present);
    TlsSetValue(slot, nullptr);
}

bool attachProcess()
{
    if (attachedProcesses == 0) {
        slot = TlsAlloc();
        if (slot == TLS_OUT_OF_INDEXES)
            return false;
    }
    attachedProcesses++;
    return attachThread();
}

void detachProcess()
{
    attachedProcesses--;
    detachThread();
    if (attachedProcesses == 0)
        TlsFree(slot);
}

} // namespace

BOOL notify(DWORD reason)
{
    switch (reason) {
    case DLL_PROCESS_ATTACH: return attachProcess();
    case DLL_THREAD_ATTACH: return attachThread();
    case DLL_THREAD_DETACH: detachThread(); return TRUE;
    case DLL_PROCESS_DETACH: detachProcess(); return TRUE;
    default: return TRUE;
    }
}

Context& context()
{
    auto* present = static_cast<Context*>(TlsGetValue(slot));
    if (!present) [[unlikely]]
        contextMissing();
    return *present;
}

void contextMissing()
{
    MessageBoxA(nullptr, "pArkContext", "NULL", MB_OK);
    platform::endProcess("ORB Library error:\nBad ORB Context\nTerminating the application",
                         "Win32S: Fatal Application Exit");
}

} // namespace ark
