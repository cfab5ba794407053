#include "support/bad_calls.hpp"
#include "support/reports.hpp"

#include <arkpx.h>
#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <cstdlib>
#include <string>

namespace {

const NoBadCalls frame{"arkError",        "arkErrorStr",     "arkGetErrStatus",  "arkSetErrStatus",
                       "arkGetErrMode",   "arkSetErrMode",   "arkRedirectError", "arkStdErrReport",
                       "arkGuiBoxReport", "arkNulDevReport", "arkUndContext"};

// The thread's mode for the time of a test.
struct Mode {
    explicit Mode(int mode) { arkSetErrMode(mode); }
    ~Mode() { arkSetErrMode(ARK_ErrModeSilent); }
};

TEST(Status, TextOfEveryCode)
{
    const char* const texts[] = {
        "No Error",      "Backtrace",    "Unknown error",        "Internal error (bad state)",
        "Out of memory", "Bad argument", "Unsupported function", "Iteration convergence failed",
        "Autotrace call"};
    for (int code = 0; code >= -8; code--)
        EXPECT_STREQ(arkErrorStr(code), texts[-code]);
    EXPECT_STREQ(arkErrorStr(-9), "Unknown error code -9");
    EXPECT_STREQ(arkErrorStr(1), "Unknown status code 1");
    EXPECT_STREQ(arkErrorStr(INT_MIN), "Unknown error code -2147483648");
    EXPECT_STREQ(arkErrorStr(INT_MAX), "Unknown status code 2147483647");
    EXPECT_EQ(arkErrorStr(7), arkErrorStr(8)) << "one buffer for the thread";
}

TEST(Status, IsStoredUnchecked)
{
    for (const int status : {-8, -1, 5, INT_MIN, 0}) {
        arkSetErrStatus(status);
        EXPECT_EQ(arkGetErrStatus(), status);
        EXPECT_EQ(arkUndContext()->status, status);
    }
    Mode odd{5};
    EXPECT_EQ(arkGetErrMode(), 5);
    EXPECT_EQ(arkUndContext()->mode, 5);
}

TEST(Status, ReportsAreRecordedAndPassedOn)
{
    Reports reports;
    EXPECT_EQ(arkError(-7, "f", "m", "file", 12), -7);
    EXPECT_EQ(arkGetErrStatus(), -7);
    EXPECT_EQ(arkError(ARK_StatusBacktrace, "g", nullptr, "file", 13), -1);
    EXPECT_EQ(arkError(ARK_StatusAutotrace, "h", "arguments", nullptr, 0), -8);
    EXPECT_EQ(arkGetErrStatus(), -7) << "traces are never recorded";
    EXPECT_EQ(arkError(3, nullptr, nullptr, nullptr, -1), 3);
    EXPECT_EQ(arkGetErrStatus(), 3);
    EXPECT_EQ(arkError(0, "f", "m", "file", 1), 0);
    EXPECT_EQ(arkGetErrStatus(), 0);

    const std::vector<Report> made = reports.take();
    ASSERT_EQ(made.size(), 4u);
    EXPECT_EQ(made[0].status, -7);
    EXPECT_EQ(made[0].function + made[0].message + made[0].module, "fmfile");
    EXPECT_EQ(made[0].line, 12);
    EXPECT_EQ(made[1].message, "<null>");
    EXPECT_EQ(made[3].line, -1);
}

int returnsSeven(int, const char*, const char*, const char*, int) { return 7; }

// Calls an operation that fails as well: one that did so without end would overflow the stack.
int callsTheLibrary(int status, const char* function, const char*, const char*, int)
{
    static thread_local int depth = 0;
    float x = 1;
    if (depth++ == 0)
        arksbZero(&x, -1);
    depth--;
    return std::string{function} == "outer" ? status : 0;
}

TEST(Handler, IsTheThreadsOwnToReplace)
{
    const ArkErrorHandler before = arkRedirectError(returnsSeven);
    EXPECT_EQ(arkError(-5, "f", "m", "file", 1), 7);
    EXPECT_EQ(arkUndContext()->handler, returnsSeven);
    EXPECT_EQ(arkRedirectError(nullptr), returnsSeven);
    EXPECT_EQ(arkRedirectError(callsTheLibrary), arkGuiBoxReport);
    EXPECT_EQ(arkError(-4, "outer", "m", "file", 1), -4);
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusBadArgument) << "what the inner operation recorded";
    arkSetErrStatus(0);
    arkRedirectError(before);
}

TEST(Context, HasItsFieldsInOrder)
{
    EXPECT_EQ(offsetof(ArkErrorContext, status), 0u);
    EXPECT_EQ(offsetof(ArkErrorContext, mode), 4u);
    EXPECT_EQ(offsetof(ArkErrorContext, handler), 8u);
    EXPECT_EQ(offsetof(ArkErrorContext, dftTwdCapacity), 8u + sizeof(void*));
    EXPECT_EQ(arkUndContext()->dftTwdCapacity, 32);
    EXPECT_EQ(arkUndContext(), arkUndContext());
}

std::string stdErrText(int status, const char* function, const char* message, const char* file, int line)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(arkStdErrReport(status, function, message, file, line), status);
    return testing::internal::GetCapturedStderr();
}

TEST(StdErrReport, Texts)
{
    for (const int mode : {int{ARK_ErrModeParent}, 5}) {
        Mode shown{mode};
        arkSetErrStatus(-4); // which this handler does not look at
        EXPECT_EQ(stdErrText(-5, "arksbAdd1", "n<=0", "arkarith", 9),
                  "\nORB Library Error: Bad argument \n\tin function [arkarith:9]:arksbAdd1(): n<=0\n");
        arkSetErrStatus(0);
        EXPECT_EQ(stdErrText(-1, "outer", nullptr, "file", 0), "\tcalled from [file:0]:outer\n");
        EXPECT_EQ(stdErrText(-8, "outer", "x = %d", nullptr, 3), "\tcalled from [:3]:outer(x = %d)\n");
        EXPECT_EQ(stdErrText(12, nullptr, nullptr, nullptr, 0),
                  "\nORB Library Error: Unknown status code 12 \n\tin function:<unknown>\n");
    }
    Mode silent{ARK_ErrModeSilent};
    EXPECT_EQ(stdErrText(-5, "f", "m", "file", 1), "");
}

TEST(NulDevReport, Returns)
{
    for (const int mode : {int{ARK_ErrModeParent}, int{ARK_ErrModeSilent}, 5}) {
        Mode shown{mode};
        EXPECT_EQ(arkNulDevReport(-6, nullptr, nullptr, nullptr, 0), -6);
    }
}

// A handler that ends the process does so with exit code 1.
TEST(EndOfProcessDeathTest, InLeafMode)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            arkSetErrMode(ARK_ErrModeLeaf);
            arkNulDevReport(-5, "f", "m", "file", 1);
            std::_Exit(0);
        },
        testing::ExitedWithCode(1), "");
    EXPECT_EXIT(
        {
            arkSetErrMode(ARK_ErrModeLeaf);
            arkStdErrReport(-5, "f", "m", "file", 1);
            std::_Exit(0);
        },
        testing::ExitedWithCode(1), "ErrMode=ARK_ErrModeLeaf\nterminating the application");
}

} // namespace
