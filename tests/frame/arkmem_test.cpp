#include "support/bad_calls.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>

namespace {

const NoBadCalls memory{"arkMalloc",  "arksMalloc", "arkdMalloc", "arkcMalloc", "arkzMalloc",      "arkwMalloc",
                        "arkvMalloc", "arkiMalloc", "arkjMalloc", "arkFree",    "arkGetLibVersion"};

template <class T>
void expectUsableBlocks(T* (*allocate)(int), std::size_t size)
{
    for (int n = 0; n < 70; n++) {
        T* const block = allocate(n);
        ASSERT_NE(block, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % 8, 0u);
        std::memset(static_cast<void*>(block), 0x55, std::size_t(n) * size);
        arkFree(block);
    }
    EXPECT_EQ(allocate(-1), nullptr);
    EXPECT_EQ(allocate(INT_MIN), nullptr);
    if (sizeof(void*) == 4 && size >= 2) {
        EXPECT_EQ(allocate(INT_MAX), nullptr) << "whose bytes no 32-bit address space holds";
    }
}

TEST(Memory, BlocksOfEveryType)
{
    expectUsableBlocks(arkMalloc, 1);
    expectUsableBlocks(arksMalloc, 4);
    expectUsableBlocks(arkdMalloc, 8);
    expectUsableBlocks(arkcMalloc, 8);
    expectUsableBlocks(arkzMalloc, 16);
    expectUsableBlocks(arkwMalloc, 2);
    expectUsableBlocks(arkvMalloc, 4);
    expectUsableBlocks(arkiMalloc, 4);
    expectUsableBlocks(arkjMalloc, 8);
    arkFree(nullptr);
}

TEST(Memory, TheHeapsBlockIsBelow)
{
    char* const block = static_cast<char*>(arkMalloc(100));
    char* heapBlock;
    std::memcpy(&heapBlock, block - sizeof heapBlock, sizeof heapBlock);
    EXPECT_GE(block - heapBlock, std::ptrdiff_t(sizeof heapBlock));
    EXPECT_LE(block - heapBlock, std::ptrdiff_t(sizeof heapBlock) + 7);
    arkFree(block);
}

TEST(Version, Record)
{
    const ArkLibVersion* const version = arkGetLibVersion();
    EXPECT_EQ(version, arkGetLibVersion());
    EXPECT_EQ(version->major, 3);
    EXPECT_EQ(version->minor, 0);
    EXPECT_EQ(version->build, 13);
    EXPECT_STREQ(version->name, "arkpx.dll");
    EXPECT_STREQ(version->version, "v4.0 Release Candidate");
    EXPECT_STREQ(version->internalVersion, "[4.00.12, 05/15/97]");
    EXPECT_STREQ(version->buildDate, "May 19 1997");
    EXPECT_STREQ(version->targetKind, "DLL");
}

} // namespace
