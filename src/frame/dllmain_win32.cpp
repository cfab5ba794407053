#include "frame/attach_win32.hpp"

const char ark::notifier = 0;

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID);

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) { return ark::notify(reason); }
