#include <arkpx/frame.h>

const ArkLibVersion* arkGetLibVersion(void)
{
    static constexpr ArkLibVersion record{
        3, 0, 13, "arkpx.dll", "v4.0 Release Candidate", "[4.00.12, 05/15/97]", "May 19 1997", "DLL"};
    return &record;
}
