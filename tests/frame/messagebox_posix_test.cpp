// The message-box handler where there is no message box: whom it asks, and what each answer does.
#include <arkpx.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <pty.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr int returned = 42; // exit code of a process that the handler did not end
constexpr int wrongResult = 43;

// Runs in a child process.
[[noreturn]] void reportAndExit(int mode, int status)
{
    arkSetErrMode(mode);
    arkSetErrStatus(ARK_StatusOutOfMemory);
    const std::string longText(3000, 'x');
    const bool good =
        arkGuiBoxReport(status, nullptr, status == 9 ? longText.c_str() : "m %s %n", "file", -3) == status;
    std::fflush(stderr);
    std::_Exit(good ? returned : wrongResult);
}

struct Outcome {
    int exitCode;
    std::string shown;
};

std::string contents(const fs::path& file)
{
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
}

Outcome waitFor(pid_t child, std::string shown)
{
    int state = 0;
    waitpid(child, &state, 0);
    return {WIFEXITED(state) ? WEXITSTATUS(state) : -1, std::move(shown)};
}

class GuiBox : public testing::Test {
protected:
    GuiBox() : folder_{fs::temp_directory_path() / ("arkpx-box-" + std::to_string(getpid()))}
    {
        fs::create_directory(folder_);
    }
    ~GuiBox() override { fs::remove_all(folder_); }

    // A display, and a dialog program of this name that notes its arguments and exits so.
    Outcome onDisplay(const char* program, int exitCode, int mode)
    {
        std::ofstream(folder_ / program) << "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" << (folder_ / "asked").string()
                                         << "'\nexit " << exitCode << "\n";
        fs::permissions(folder_ / program, fs::perms::owner_all);
        const pid_t child = fork();
        if (child == 0) {
            setenv("DISPLAY", ":none", 1);
            setenv("PATH", folder_.c_str(), 1);
            reportAndExit(mode, -1);
        }
        const Outcome outcome = waitFor(child, {});
        const std::string asked = contents(folder_ / "asked");
        fs::remove(folder_ / program);
        return {outcome.exitCode, asked};
    }

    // A terminal that answers with a line.
    static Outcome onTerminal(const std::string& answer, int mode)
    {
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            unsetenv("DISPLAY");
            unsetenv("WAYLAND_DISPLAY");
            reportAndExit(mode, -5);
        }
        EXPECT_EQ(write(terminal, answer.data(), answer.size()), ssize_t(answer.size()));
        std::string shown;
        char part[256];
        for (ssize_t n; (n = read(terminal, part, sizeof part)) > 0;)
            shown.append(part, std::size_t(n));
        const Outcome outcome = waitFor(child, shown);
        close(terminal);
        return outcome;
    }

    // Neither.
    Outcome alone(int mode, int status)
    {
        const fs::path file = folder_ / "stderr";
        const pid_t child = fork();
        if (child == 0) {
            unsetenv("DISPLAY");
            unsetenv("WAYLAND_DISPLAY");
            setsid();
            if (!std::freopen(file.c_str(), "w", stderr))
                std::_Exit(1);
            reportAndExit(mode, status);
        }
        const Outcome outcome = waitFor(child, {});
        return {outcome.exitCode, contents(file)};
    }

    fs::path folder_;
};

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST_F(GuiBox, AsksOnADisplay)
{
    for (const char* program : {"zenity", "kdialog", "xmessage"}) {
        const Outcome yes = onDisplay(program, 0, ARK_ErrModeLeaf);
        EXPECT_EQ(yes.exitCode, 1) << program;
        // The caption names the recorded status, not that of the back-trace.
        EXPECT_TRUE(contains(yes.shown, "ORB Library Error: Out of memory\n")) << yes.shown;
        EXPECT_TRUE(contains(yes.shown, "called from [file:0]:<unknown>():\n m %s %n\n\nErrMode=ARK_ErrorModeLeaf\n\n"
                                        "Terminate the application?\n"))
            << yes.shown;
        for (const int answer : {1, 5, 255}) // No, and programs that failed
            EXPECT_EQ(onDisplay(program, answer, ARK_ErrModeLeaf).exitCode, returned);
        EXPECT_EQ(onDisplay(program, 0, ARK_ErrModeParent).exitCode, 1) << "Cancel";
        const Outcome ok = onDisplay(program, 1, ARK_ErrModeParent);
        EXPECT_EQ(ok.exitCode, returned);
        EXPECT_TRUE(contains(ok.shown, "\n\nErrMode=ARK_ErrorModeParent\n\nContinue?\n")) << ok.shown;
    }
}

TEST_F(GuiBox, AsksOnTheTerminal)
{
    const Outcome yes = onTerminal("y\n", ARK_ErrModeLeaf);
    EXPECT_EQ(yes.exitCode, 1);
    EXPECT_TRUE(contains(yes.shown, "in function [file:0]:<unknown>():")) << yes.shown;
    EXPECT_TRUE(contains(yes.shown, "ORB Library:\r\nterminating the application")) << yes.shown;
    EXPECT_EQ(onTerminal("n\n", ARK_ErrModeLeaf).exitCode, returned);
    EXPECT_EQ(onTerminal("\n", ARK_ErrModeLeaf).exitCode, returned);
    EXPECT_EQ(onTerminal("c\n", ARK_ErrModeParent).exitCode, 1);
    EXPECT_EQ(onTerminal("o\n", ARK_ErrModeParent).exitCode, returned);
}

TEST_F(GuiBox, ContinuesWhenNobodyIsThere)
{
    for (const int mode : {int{ARK_ErrModeLeaf}, int{ARK_ErrModeParent}}) {
        const Outcome outcome = alone(mode, -8);
        EXPECT_EQ(outcome.exitCode, returned);
        EXPECT_TRUE(contains(outcome.shown, "called from [file:0]:\n <unknown>(m %s %n)")) << outcome.shown;
    }
    const Outcome cut = alone(ARK_ErrModeLeaf, 9);
    EXPECT_TRUE(contains(cut.shown, std::string(150, 'x'))) << cut.shown;
    EXPECT_FALSE(contains(cut.shown, std::string(200, 'x'))) << cut.shown;
    for (const int mode : {int{ARK_ErrModeSilent}, 5, -1}) {
        const Outcome outcome = alone(mode, -5);
        EXPECT_EQ(outcome.exitCode, returned);
        EXPECT_EQ(outcome.shown, "");
    }
}

} // namespace
