#include "support/library.hpp"

#include "frame/kernels.hpp"

bool forceKernels(const char* set) { return ark::forceKernels(set); }
