#include "frame/kernels.hpp"

#include <gtest/gtest.h>

#include <cstring>

namespace {

// What this whole program is run with: the named set, or the best.
TEST(Kernels, AreThoseOfTheChosenSet)
{
    const ark::Kernels* const before = ark::chosenKernels;
    EXPECT_FALSE(ark::forceKernels("sse4711"));
    EXPECT_EQ(ark::chosenKernels, before);

    ASSERT_TRUE(ark::forceKernels("sse2"));
    EXPECT_EQ(ark::chosenKernels, &ark::sse2::kernels);
    EXPECT_EQ(&ark::kernels<ark::FillKernels>(),
              &static_cast<const ark::KernelSlot<ark::FillKernels>&>(ark::sse2::kernels).table);
    __atomic_store_n(&ark::chosenKernels, before, __ATOMIC_RELAXED);
}

// The best set that the processor has: the tables of another would be slower or not run at all.
TEST(Kernels, TheChoiceIsTheBestThatRunsHere)
{
    const ark::Kernels* const before = ark::chosenKernels;
    const ark::Kernels& chosen = ark::chooseKernels();
    for (const char* set : {"avx512", "avx2", "sse2"})
        if (ark::forceKernels(set)) {
            EXPECT_EQ(&chosen, ark::chosenKernels) << set;
            break;
        }
    __atomic_store_n(&ark::chosenKernels, before, __ATOMIC_RELAXED);
}

} // namespace
