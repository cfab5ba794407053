# 32-bit Linux programs on a 64-bit system, with the system's own compiler; they run as they are.
set(CMAKE_C_FLAGS_INIT -m32)
set(CMAKE_CXX_FLAGS_INIT -m32)
