# What the two Windows targets share; mingw-i686.cmake and mingw-x86_64.cmake name the target.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86)
set(CMAKE_C_COMPILER ${ARKPX_MINGW_TARGET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ARKPX_MINGW_TARGET}-g++-posix)
set(CMAKE_RC_COMPILER ${ARKPX_MINGW_TARGET}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${ARKPX_MINGW_TARGET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Tests run in Wine. The folder is named from this file: CMake also reads it for the small programs that it tries out.
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../../tools/wine")
