#include "support/library.hpp"

bool forceKernels(const char*) { return false; }
