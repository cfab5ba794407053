// Attach and detach notifications: dllmain_win32.cpp passes on the DLL's, tlscallback_win32.cpp those of a program that
// is linked to the static library.
#pragma once

#include <windows.h>

namespace ark {

// False when the process or thread that is being attached cannot have a context.
BOOL notify(DWORD reason);

// Defined by each of the two, and referred to by the contexts: else the linker would leave the one that it needs in the
// static library.
extern const char notifier;

} // namespace ark
