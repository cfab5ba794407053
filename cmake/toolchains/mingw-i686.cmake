# 32-bit Windows, with Debian's cross compiler. The variant with POSIX threads is the one whose std::thread works.
set(ARKPX_MINGW_TARGET i686-w64-mingw32)
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")
