#include "frame/attach_win32.hpp"

const char ark::notifier = 0;

namespace {

void NTAPI onNotification(PVOID, DWORD reason, PVOID) { ark::notify(reason); }

} // namespace

// The linker collects the sections .CRT$XL? into the list of functions that the system calls with the same
// notifications as a DLL's entry.
extern "C" [[gnu::section(".CRT$XLC"), gnu::used]] const PIMAGE_TLS_CALLBACK arkTlsCallback = onNotification;
