// Every request to the heap made to fail. The linker leads malloc and calloc here.
#include "frame/heap.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstdlib>
#include <thread>

namespace {

bool heapIsEmpty = false; // for all threads: on Windows, reaching a thread_local calls malloc

struct EmptyHeap {
    EmptyHeap() { heapIsEmpty = true; }
    ~EmptyHeap() { heapIsEmpty = false; }
};

} // namespace

extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __wrap_malloc(std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size);

void* __wrap_malloc(std::size_t size) { return heapIsEmpty ? nullptr : __real_malloc(size); }
void* __wrap_calloc(std::size_t count, std::size_t size) { return heapIsEmpty ? nullptr : __real_calloc(count, size); }
}

namespace {

TEST(EmptyHeap, GivesNullAndNoReport)
{
    const EmptyHeap empty;
    EXPECT_EQ(arkMalloc(1), nullptr);
    EXPECT_EQ(arkzMalloc(1), nullptr);
    EXPECT_FALSE(ark::Buffer<double>{1});
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusOk);
}

#ifndef _WIN32 // there a thread without a context does not start
TEST(EmptyHeapDeathTest, EndsAProcessThatCanHaveNoContext)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::thread([] {
                    const EmptyHeap empty;
                    arkGetErrStatus();
                }).join(),
                testing::ExitedWithCode(1), "ORB Library error:\nBad ORB Context\nTerminating the application");
}
#endif

TEST(Buffer, IsAlignedMovableAndRefusesWhatCannotBe)
{
    for (std::size_t count : {0u, 1u, 1000u}) {
        ark::Buffer<float> buffer{count};
        ASSERT_TRUE(buffer);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(buffer.data()) % 64, 0u);
        for (std::size_t i = 0; i < count; i++)
            buffer[i] = float(i);
        ark::Buffer<float> other{7};
        other = std::move(buffer);
        const ark::Buffer<float> last{std::move(other)};
        EXPECT_FALSE(other); // NOLINT(bugprone-use-after-move)
        EXPECT_TRUE(count == 0 || last[count - 1] == float(count - 1));
    }
    EXPECT_FALSE(ark::Buffer<double>{SIZE_MAX / 8 + 2}) << "whose bytes wrap to a small number";
    EXPECT_FALSE(ark::Buffer<char>{SIZE_MAX});
    EXPECT_FALSE(ark::Buffer<float>{});
}

} // namespace
