#include "frame/platform.hpp"

namespace ark::platform {

bool askWhetherToEnd(const char* caption, const char* body, Buttons buttons)
{
    const bool yesNo = buttons == Buttons::yesNo;
    const int answer = MessageBoxA(nullptr, body, caption, MB_SYSTEMMODAL | UINT(yesNo ? MB_YESNO : MB_OKCANCEL));
    return answer == (yesNo ? IDYES : IDCANCEL);
}

void endProcess(const char* text, const char* caption)
{
    const bool win32s = (GetVersion() & 0x80000000u) != 0;
    if (win32s)
        MessageBoxA(nullptr, text, caption, MB_SYSTEMMODAL);
    else
        FatalAppExitA(0, text);
    ExitProcess(1);
}

} // namespace ark::platform
