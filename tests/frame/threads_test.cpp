#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace {

thread_local int handled = 0;

template <int extra>
int addToHandled(int status, const char*, const char*, const char*, int)
{
    handled += extra;
    return status;
}

TEST(Threads, NeverSeeEachOthersState)
{
    constexpr int count = 16;
    std::atomic<int> ready{0}, wrong{0};
    const auto run = [&](int number) {
        const auto check = [&](bool good) { wrong += !good; };
        check(arkGetErrStatus() == ARK_StatusOk && arkGetErrMode() == ARK_ErrModeLeaf);
        check(arkRedirectError(number % 2 ? addToHandled<1> : addToHandled<100>) == arkGuiBoxReport);
        arkSetErrMode(number);
        arkSetErrStatus(number + 1);
        ready++;
        while (ready < count)
            std::this_thread::yield();
        for (int round = 0; round < 1000; round++) {
            check(arkGetErrMode() == number && arkGetErrStatus() == number + 1);
            check(arkErrorStr(number + 1) == "Unknown status code " + std::to_string(number + 1));
            float x = 1;
            arksbAdd1(1, &x, round % 2);
            check(x == (round % 2 ? 2.0f : 1.0f));
            check(arkGetErrStatus() == (round % 2 ? number + 1 : int{ARK_StatusBadArgument}));
            arkSetErrStatus(number + 1);
        }
        check(handled == (number % 2 ? 500 : 50000));
    };
    std::vector<std::thread> threads;
    for (int number = 0; number < count; number++)
        threads.emplace_back(run, number);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

// The order in which a thread's destructors run is nothing that a library can rely on.
struct CallsTheLibraryAtThreadEnd {
    ~CallsTheLibraryAtThreadEnd()
    {
        arkSetErrStatus(arkGetErrStatus() - 1);
        arkSetErrMode(ARK_ErrModeSilent);
        float x;
        arksbZero(&x, 1);
    }
};

TEST(Threads, MayCallWhileTheyEnd)
{
    for (int i = 0; i < 200; i++)
        std::thread([i] {
            thread_local CallsTheLibraryAtThreadEnd before;
            static_cast<void>(&before);
            if (i % 2) // the context is made by the thread, or only by its end
                arkSetErrStatus(-3);
        }).join();
}

} // namespace
