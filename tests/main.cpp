#include "support/library.hpp"

#include <gtest/gtest.h>

#include <cstring>

// Besides GoogleTest's own options: --kernels=SET runs everything on one instruction set.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    for (int i = 1; i < argc; i++)
        if (std::strncmp(argv[i], "--kernels=", 10) == 0 && !forceKernels(argv[i] + 10)) {
            std::printf("this machine cannot run %s\n", argv[i] + 10);
            return 0;
        }
    // One thread's default, and what a death test's child falls back on, must not ask anybody.
    arkSetErrMode(ARK_ErrModeSilent);
    return RUN_ALL_TESTS();
}
