// Wavelets when memory is short.
#include "internal/heap_control.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <cstring>

namespace {

const char* lastMessage;
int note(int status, const char*, const char* message, const char*, int)
{
    lastMessage = message;
    return status;
}

template <class Call>
int statusWith(int blocks, Call call)
{
    lastMessage = "";
    const ArkErrorHandler previous = arkRedirectError(note);
    {
        const FailingHeap heap{blocks};
        call();
    }
    arkRedirectError(previous);
    const int status = arkGetErrStatus();
    arkSetErrStatus(ARK_StatusOk);
    return status;
}

TEST(WaveletMemory, RecordsAreLeftCleared)
{
    wtState other{}, state{};
    const wtState clear{};
    arkdWtInit(4, 0, 5, 2, &other, 2);
    double* taps[4];
    int len[4], ofs[4];
    arkdWtGetState(&other, nullptr, nullptr, nullptr, nullptr, nullptr, taps, len, ofs);
    for (int blocks = 0; blocks < 5; blocks++) {
        state.par1 = 7;
        EXPECT_EQ(statusWith(blocks, [&] { arkdWtInit(2, 2, 5, 2, &state, 5); }), ARK_StatusOutOfMemory);
        EXPECT_STREQ(lastMessage, "No working wavelet memory");
        EXPECT_EQ(std::memcmp(&state, &clear, sizeof state), 0);
        state.par1 = 7;
        EXPECT_EQ(
            statusWith(blocks,
                       [&] { arkdWtSetState(&state, 10, 0, 0, 5, 2, const_cast<const double**>(taps), len, ofs); }),
            ARK_StatusOutOfMemory);
        EXPECT_STREQ(lastMessage, "No working wavelet memory");
        EXPECT_EQ(std::memcmp(&state, &clear, sizeof state), 0);
    }
    arkWtFree(&other);
}

TEST(WaveletMemory, OnlyShortTransformsAllocate)
{
    wtState state{};
    arksWtInit(4, 0, 4, 2, &state, 2);
    short w[16] = {1, 2, 3}, out[16] = {7};
    float s[16] = {};
    const auto both = [&] {
        arksWtDecompose(&state, s, s);
        arksWtReconstruct(&state, s, s);
    };
    EXPECT_EQ(statusWith(0, both), ARK_StatusOk);
    EXPECT_EQ(statusWith(0, [&] { arkwWtDecompose(&state, w, out); }), ARK_StatusOutOfMemory);
    EXPECT_STREQ(lastMessage, "No memory for working arrays");
    EXPECT_EQ(statusWith(0, [&] { arkwWtReconstruct(&state, w, out); }), ARK_StatusOutOfMemory);
    EXPECT_EQ(out[0], 7);
    arkWtFree(&state);
}

} // namespace
