// What differs between the two variants of the test program.
#pragma once

#include <arkpx.h>

// Makes the library use one instruction set. False where it cannot be done.
bool forceKernels(const char* set);
