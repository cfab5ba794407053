# 64-bit Windows, with Debian's cross compiler. The variant with POSIX threads is the one whose std::thread works.
set(ARKPX_MINGW_TARGET x86_64-w64-mingw32)
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")
