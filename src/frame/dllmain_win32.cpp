#include "frame/attach_win32.hpp"

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID);

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) { return ark::notify(reason); }
