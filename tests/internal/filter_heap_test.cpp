// Filters and the heap: what allocates fails cleanly at every block, and nothing else allocates.
#include "internal/heap_control.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

// Keeps reports without a heap to keep them in.
class Notes {
public:
    Notes()
    {
        count = 0;
        previous_ = arkRedirectError(note);
    }
    ~Notes()
    {
        arkRedirectError(previous_);
        arkSetErrStatus(ARK_StatusOk);
    }

    static inline int count;
    static inline const char* message; // the last one

private:
    static int note(int status, const char*, const char* text, const char*, int)
    {
        count++;
        message = text;
        return status;
    }

    ArkErrorHandler previous_;
};

TEST(FilterHeap, FirObjectsFailToBeMade)
{
    const float taps[5] = {1, 2, 3, 4, 5};
    for (int blocks = 0; blocks < 3; blocks++) {
        FirState state{};
        const Notes notes;
        arksFirInit(taps, 5, nullptr, &state);
        {
            const FailingHeap heap{blocks};
            arksFirInitMr(taps, 5, nullptr, 2, 0, 1, 0, &state);
        }
        EXPECT_EQ(state.self, nullptr);
        EXPECT_EQ(arkGetErrStatus(), ARK_StatusOutOfMemory);
        EXPECT_EQ(Notes::count, 1);
        EXPECT_STREQ(Notes::message, "Allocation failure");
    }
}

TEST(FilterHeap, ShortBlocksFail)
{
    short taps[5] = {1, 2, 3, 4, 5}, dlyl[6], src[4] = {1, 2, 3, 4}, dst[4] = {};
    FirlTapState tapState;
    FirlDlyState dlyState;
    arkwFirlInit(taps, 5, &tapState);
    arkwFirlInitDlyl(&tapState, dlyl, &dlyState);
    arkwFirlSetDlyl(&tapState, nullptr, &dlyState);
    for (int blocks = 0; blocks < 2; blocks++) {
        const Notes notes;
        {
            const FailingHeap heap{blocks};
            arkwbFirl(&tapState, &dlyState, src, dst, 4, ARK_SATURATE, nullptr);
        }
        EXPECT_EQ(arkGetErrStatus(), ARK_StatusOutOfMemory);
        EXPECT_EQ(Notes::count, 1);
        EXPECT_STREQ(Notes::message, "Memory problem");
        EXPECT_EQ(dlyl[0], 0);
        EXPECT_EQ(dst[0], 0);
    }
}

TEST(FilterHeap, LmsObjectsFailToBeMade)
{
    for (int blocks = 0; blocks < 2; blocks++) {
        LmsState state{};
        const Notes notes;
        {
            const FailingHeap heap{blocks};
            arkdLmsInit(0, nullptr, 5, nullptr, 0, 0, 1, &state);
        }
        EXPECT_EQ(state.taps, nullptr);
        EXPECT_EQ(state.hasTaps, 0);
        EXPECT_EQ(arkGetErrStatus(), ARK_StatusOutOfMemory);
        EXPECT_EQ(Notes::count, 1);
        EXPECT_STREQ(Notes::message, "Problem to allocate memory");
    }
}

TEST(FilterHeap, FilteringAllocatesNothing)
{
    std::vector<float> taps(300, 1), dlyl(301), src(2000, 1), dst(4000);
    const std::vector<short> shorts(2000, 1);
    std::vector<short> shortDst(4000);
    FirState state{}, shortState{};
    FirlTapState tapState;
    FirlDlyState dlyState;
    arksFirInitMr(taps.data(), 300, nullptr, 2, 0, 3, 0, &state);
    arkwFirInitMr(taps.data(), 300, nullptr, 2, 0, 3, 0, &shortState);
    arksFirlInit(taps.data(), 300, &tapState);
    arksFirlInitDlyl(&tapState, dlyl.data(), &dlyState);
    LmsState lms{};
    arksLmsInit(0, nullptr, 300, nullptr, 0.001f, 0, 3, &lms);
    {
        const FailingHeap heap;
        arksFirlSetDlyl(&tapState, nullptr, &dlyState);
        arksFirl(&tapState, &dlyState, 1);
        arksbFirl(&tapState, &dlyState, src.data(), dst.data(), 2000);
        arksbFir(&state, src.data(), dst.data(), 600);
        int factor;
        arkwbFir(&shortState, shorts.data(), shortDst.data(), 600, ARK_AUTO_SCALE, &factor);
        arksbLmsDes(&lms, src.data(), src.data(), dst.data() + 1200, 1000);
    }
    EXPECT_EQ(dst[1199], 150);
    EXPECT_EQ(shortDst[1199], 150);
    arkFirFree(&state);
    arkFirFree(&shortState);
    arkLmsFree(&lms);
}

TEST(FilterHeap, IirObjectsFailToBeMade)
{
    const FloatCplx taps[6] = {{1, 0}, {1, 0}, {1, 0}, {1, 0}, {1, 0}, {1, 0}};
    for (int blocks = 0; blocks < 2; blocks++) {
        IirState state{};
        const Notes notes;
        {
            const FailingHeap heap{blocks};
            arkcIirInitBq(0, taps, 1, &state);
        }
        EXPECT_EQ(state.initMarker, 0);
        EXPECT_EQ(arkGetErrStatus(), ARK_StatusOutOfMemory);
        EXPECT_EQ(Notes::count, 1);
    }
}

TEST(FilterHeap, IirFiltersNeedNoMemory)
{
    const float taps[6] = {1, 0.5f, 0.25f, 1, 0.25f, 0.125f};
    IirState cascade{}, direct{};
    arkwIirInitBq(0, taps, 1, &cascade);
    arksIirInit(0, taps, 2, &direct);
    std::vector<float> x(3000, 1.0f);
    std::vector<short> w(3000, 10000);
    int factor = 0;
    const Notes notes;
    {
        const FailingHeap heap{0};
        arksbIir(&direct, x.data(), x.data(), 3000);
        arkwbIir(&cascade, w.data(), w.data(), 3000, ARK_AUTO_SCALE, &factor);
    }
    EXPECT_EQ(Notes::count, 0);
    EXPECT_GT(w[2999], 12000); // 10000 1.75/1.375
    arkIirFree(&cascade);
    arkIirFree(&direct);
}

} // namespace
