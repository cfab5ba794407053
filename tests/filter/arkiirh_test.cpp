#include "filter/iir_model.hpp"
#include "support/bad_calls.hpp"
#include "support/reports.hpp"

#include <gtest/gtest.h>

#include <climits>

namespace {

using Messages = std::vector<std::string>;

const BadCalls ofInit{"arkiirh",
                      {ZEROS(arksIirInit), ZEROS(arkdIirInit), ZEROS(arkcIirInit), ZEROS(arkzIirInit),
                       ZEROS(arkscIirInit), ZEROS(arkcsIirInit), ZEROS(arkdzIirInit), ZEROS(arkzdIirInit),
                       ZEROS(arksIirInitBq), ZEROS(arkdIirInitBq), ZEROS(arkcIirInitBq), ZEROS(arkzIirInitBq),
                       ZEROS(arkscIirInitBq), ZEROS(arkcsIirInitBq), ZEROS(arkdzIirInitBq), ZEROS(arkzdIirInitBq)},
                      {"statePtr==0", "tapVals==0"}};
const BadCalls ofState{"arkiirh",
                       {ZEROS(arksIir), ZEROS(arkdIir), ZEROS(arkcIir), ZEROS(arkzIir), ZEROS(arkscIir),
                        ZEROS(arkcsIir), ZEROS(arkdzIir), ZEROS(arkzdIir), ZEROS(arksbIir), ZEROS(arkdbIir),
                        ZEROS(arkcbIir), ZEROS(arkzbIir), ZEROS(arkscbIir), ZEROS(arkcsbIir), ZEROS(arkdzbIir),
                        ZEROS(arkzdbIir), ZEROS(arkIirFree)},
                       {"statePtr==0"}};
const BadCalls ofShortInit{"arkiirhw", {ZEROS(arkwIirInit), ZEROS(arkwIirInitBq)}, {"statePtr==0", "tapVals==0"}};
const BadCalls ofShortState{"arkiirhw", {ZEROS(arkwIir), ZEROS(arkwbIir)}, {"statePtr==0"}};

const Messages notInitialised{"IIR filter wasn't initialized"};

std::string trace(const std::vector<Report>& reports)
{
    std::string text;
    for (const Report& report : reports)
        text += report.function + " in " + report.module + ": " + report.message + "\n";
    return text;
}

TEST(IirObjects, LiveFromInitToFree)
{
    Reports reports;
    const float taps[6] = {2, 1, 0, 4, 1, 0};
    IirState state{};
    EXPECT_EQ(arksIir(&state, 1), 0);
    EXPECT_EQ(reports.messages(), notInitialised);
    arkIirFree(&state);
    EXPECT_EQ(reports.messages(), notInitialised);

    arksIirInit(1, taps, 2, &state);
    EXPECT_EQ(state.initMarker, 31725);
    EXPECT_EQ(state.tapState.iirType, 1);
    EXPECT_EQ(taps[0], 2) << "the caller's are left alone";
    EXPECT_EQ(arksIir(&state, 8), 4);
    const IirState before = state;
    arksIirInitBq(0, taps, 1, &state);
    EXPECT_EQ(reports.messages(),
              Messages{"IIR filter state structure is already initialized! Use arkIirFree to free it"});
    EXPECT_EQ(state.tapState.taps, before.tapState.taps);
    EXPECT_EQ(arksIir(&state, 0), 1) << "(1 8 - 1 4) / 4";

    arkSetErrStatus(ARK_StatusInternalError);
    arkIirFree(&state);
    EXPECT_EQ(state.initMarker, 0);
    EXPECT_TRUE(reports.take().empty());
    arkIirFree(&state);
    EXPECT_EQ(reports.messages(), notInitialised);
    arksIirInitBq(0, taps, 1, &state);
    EXPECT_EQ(state.tapState.isBiquad, 1);
    EXPECT_EQ(arksIir(&state, 8), 4);
    arkIirFree(&state);
}

TEST(IirObjects, ReportTheirInitsFailures)
{
    Reports reports;
    IirState state{};
    const double taps[6] = {};
    arkdIirInit(2, taps, -1, &state);
    EXPECT_EQ(reports.messages(), (Messages{"order < 0", "iirType is out of range"}));
    arkdIirInitBq(-1, taps, 0, &state);
    EXPECT_EQ(reports.messages(), (Messages{"numQuads <= 0", "iirType is out of range"}));
    arkzdIirInit(0, taps, 1, &state);
    EXPECT_EQ(trace(reports.take()),
              "arkdIirlInit in arkiirl: taps[order+1] equals zero\narkzdIirInit in arkiirh: <null>\n");
    EXPECT_EQ(state.initMarker, 0);
    const float shortTaps[6] = {};
    arkwIirInitBq(0, shortTaps, 1, &state);
    EXPECT_EQ(trace(reports.take()),
              "arkwIirlInitBq in arkiirlw: taps[0*6] equals zero\narkwIirInitBq in arkiirhw: <null>\n");
    const FloatCplx cplxTaps[6] = {};
    arkscIirInitBq(0, cplxTaps, INT_MAX, &state);
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusOutOfMemory);
    EXPECT_EQ(trace(reports.take()), "arkscIirInitBq in arkiirh: insufficiency of memory for IIR filter state\n");
    EXPECT_EQ(state.initMarker, 0);
}

int clearStatus(int status, const char*, const char*, const char*, int)
{
    arkSetErrStatus(ARK_StatusOk);
    return status;
}

// A handler may hide the failure of the inner Init from the status.
TEST(IirObjects, AreNotMadeOfWhatCouldNotBeNormalised)
{
    Reports reports;
    arkRedirectError(clearStatus);
    IirState state{};
    const float taps[4] = {1, 1, 0, 1};
    arksIirInit(0, taps, 1, &state);
    EXPECT_EQ(state.initMarker, 0);
    EXPECT_EQ(state.tapState.taps, nullptr);
}

TEST(IirObjects, PassOnWhatTheLowLevelReports)
{
    Reports reports;
    IirState state{};
    const FloatCplx taps[6] = {{1, 0}, {0, 0}, {0, 0}, {1, 0}, {0, 0}, {0, 0}};
    arkscIirInitBq(0, taps, 1, &state);
    float x[2] = {1, 2};
    arkscbIir(&state, x, nullptr, -1);
    EXPECT_EQ(trace(reports.take()), "arkscbIirl in arkiirl: outSamps==0\narkscbIir in arkiirh: <null>\n");
    arkSetErrStatus(5); // no failure, but not zero
    EXPECT_EQ(arkscIir(&state, 3).re, 3);
    EXPECT_EQ(trace(reports.take()), "arkscIir in arkiirh: <null>\n");
    arkSetErrStatus(ARK_StatusBadArgument);
    EXPECT_EQ(arkscIir(&state, 3).re, 0);
    EXPECT_TRUE(reports.take().empty());
    arkIirFree(&state);

    const float shortTaps[2] = {3, 2};
    arkwIirInit(0, shortTaps, 0, &state);
    short w[2] = {100, -100};
    arkwbIir(&state, w, w, 2, ARK_AUTO_SCALE, nullptr);
    EXPECT_EQ(trace(reports.take()),
              "arkwbIirl in arkiirlw: ARK_AUTO_SCALE and scaleFactor==NULL\narkwbIir in arkiirhw: <null>\n");
    arkwbIir(&state, w, w, 2, ARK_WRAP, nullptr);
    EXPECT_EQ(w[1], -150);
    EXPECT_EQ(arkwIir(&state, 7, ARK_WRAP, nullptr), 10) << "10.5 to even";
    arkIirFree(&state);
}

} // namespace
