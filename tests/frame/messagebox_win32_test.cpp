// The message box itself: what it shows in each mode, what each answer does, and who has a context on Windows.
#include <arkpx.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>
#include <utility>
#include <vector>
#include <windows.h>

namespace {

constexpr int returned = 42; // exit code of a process that the handler did not end

struct Box {
    std::string caption, body;
    std::vector<int> buttons;
    bool topmost; // as a system-modal box is

    bool operator==(const Box&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Box& box)
    {
        out << '"' << box.caption << "\" \"" << box.body << '"';
        for (const int button : box.buttons)
            out << ' ' << button;
        return out << (box.topmost ? " topmost" : "");
    }
};

std::string textOf(HWND window, int(WINAPI* get)(HWND, LPSTR, int))
{
    char text[4096];
    return {text, std::size_t(get(window, text, int(sizeof text)))};
}

BOOL CALLBACK addChild(HWND child, LPARAM parameter)
{
    Box& box = *reinterpret_cast<Box*>(parameter);
    if (textOf(child, GetClassNameA) == "Button")
        box.buttons.push_back(GetDlgCtrlID(child));
    else
        box.body += textOf(child, GetWindowTextA); // the icon has none
    return TRUE;
}

Box readBox(HWND window)
{
    Box box{textOf(window, GetWindowTextA), "", {}, (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0};
    EnumChildWindows(window, addChild, reinterpret_cast<LPARAM>(&box));
    return box;
}

// Takes the first visible dialog of this process: other test programs have theirs on the same desktop.
BOOL CALLBACK takeOwnDialog(HWND window, LPARAM found)
{
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId() || !IsWindowVisible(window) || textOf(window, GetClassNameA) != "#32770")
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// Answers this process's message boxes, one button after the other, as a person would.
class Person {
public:
    // One that tells does so on standard error, for the parent of a process that will not live to compare.
    enum class Tells { no, yes };

    explicit Person(std::vector<int> answers, Tells tells = Tells::no)
        : tells_{tells == Tells::yes},
          thread_{[this, answers = std::move(answers)] {
              for (const int answer : answers)
                  press(answer);
          }}
    {}

    // To be called when no box can be there any more.
    std::vector<Box> saw()
    {
        leaves_ = true;
        thread_.join();
        return std::move(saw_);
    }

private:
    HWND waitForDialog()
    {
        HWND found = nullptr;
        while (!leaves_ && !found) {
            EnumWindows(takeOwnDialog, reinterpret_cast<LPARAM>(&found));
            Sleep(10);
        }
        return found;
    }

    void press(int answer)
    {
        const HWND window = waitForDialog();
        if (!window)
            return;
        saw_.push_back(readBox(window));
        if (tells_)
            std::cerr << "box " << saw_.back() << std::endl;
        while (IsWindow(window)) {
            PostMessageA(window, WM_COMMAND, WPARAM(answer), 0);
            Sleep(10);
        }
    }

    const bool tells_;
    std::atomic<bool> leaves_{false};
    std::vector<Box> saw_;
    std::thread thread_;
};

struct Mode {
    explicit Mode(int mode) { arkSetErrMode(mode); }
    ~Mode()
    {
        arkSetErrMode(ARK_ErrModeSilent);
        arkSetErrStatus(ARK_StatusOk);
    }
};

const std::string leafTail = "\n\nErrMode=ARK_ErrorModeLeaf\n\nTerminate the application?";
const std::string parentTail = "\n\nErrMode=ARK_ErrorModeParent\n\nContinue?";

TEST(RealBox, LeafAsksYesOrNo)
{
    Mode mode{ARK_ErrModeLeaf};
    Person person{{IDNO, IDNO}};
    EXPECT_EQ(arkError(-5, "arksbAdd1", "n<=0", "arkarith", 7), -5);
    EXPECT_EQ(arkGuiBoxReport(12, nullptr, nullptr, nullptr, -3), 12);
    const std::vector<int> yesNo{IDYES, IDNO};
    const std::vector<Box> expected{
        {"ORB Library Error: Bad argument", "in function [arkarith:7]:arksbAdd1():\n n<=0" + leafTail, yesNo, true},
        {"ORB Library Error: Bad argument", "in function [:0]:<unknown>():\n " + leafTail, yesNo, true}};
    EXPECT_EQ(person.saw(), expected);
}

TEST(RealBox, ParentAsksOkOrCancel)
{
    Mode mode{ARK_ErrModeParent};
    Person person{{IDOK, IDOK, IDOK}};
    EXPECT_EQ(arkError(-4, "inner", "m %s %n", "file", 7), -4);
    EXPECT_EQ(arkError(ARK_StatusBacktrace, "outer", nullptr, "file", 8), -1);
    EXPECT_EQ(arkError(ARK_StatusAutotrace, "outer", "x = 1", "file", 9), -8);
    const std::string caption = "ORB Library Error: Out of memory"; // the recorded status, also in the traces
    const std::vector<int> okCancel{IDOK, IDCANCEL};
    const std::vector<Box> expected{{caption, "in function [file:7]:inner():\n m %s %n" + parentTail, okCancel, true},
                                    {caption, "called from [file:8]:outer():\n " + parentTail, okCancel, true},
                                    {caption, "called from [file:9]:\n outer(x = 1)" + parentTail, okCancel, true}};
    EXPECT_EQ(person.saw(), expected);
}

TEST(RealBox, CutsLongTexts)
{
    Mode mode{ARK_ErrModeLeaf};
    const std::string longText(3000, 'x');
    Person person{{IDNO, IDNO}};
    EXPECT_EQ(arkGuiBoxReport(-5, longText.c_str(), "m", "file", 1), -5);
    EXPECT_EQ(arkGuiBoxReport(-5, "f", longText.c_str(), longText.c_str(), 1), -5);
    const std::vector<Box> saw = person.saw();
    ASSERT_EQ(saw.size(), 2u);
    EXPECT_EQ(saw[0].body, ("in function [file:1]:" + longText).substr(0, 199));
    EXPECT_EQ(saw[1].body, ("in function [" + longText).substr(0, 199));
}

TEST(RealBox, StaysAwayInOtherModes)
{
    for (const int value : {int{ARK_ErrModeSilent}, 5, -1}) {
        Mode mode{value};
        Person person{{IDNO}};
        EXPECT_EQ(arkGuiBoxReport(-5, "f", "m", "file", 1), -5);
        EXPECT_EQ(person.saw(), std::vector<Box>{});
    }
}

// What ends the process runs in one of its own.
class RealBoxDeathTest : public testing::Test {
protected:
    RealBoxDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

[[noreturn]] void reportInMode(int mode, int answer)
{
    Person person{{answer, IDOK}, Person::Tells::yes};
    arkSetErrMode(mode);
    arkError(-7, "f", "m", "file", 1);
    std::_Exit(returned);
}

TEST_F(RealBoxDeathTest, YesAndCancelEndTheProcess)
{
    const char* const fatal = "ORB Library:\nterminating the application";
    EXPECT_EXIT(reportInMode(ARK_ErrModeLeaf, IDYES), testing::ExitedWithCode(1), fatal);
    EXPECT_EXIT(reportInMode(ARK_ErrModeParent, IDCANCEL), testing::ExitedWithCode(1), fatal);
}

#ifdef ARKPX_STATIC // The program that is linked to the DLL cannot load it later.

// The DLL, loaded while the program runs: a library of its own beside the one that the program is linked to.
class LoadedDll {
public:
    LoadedDll() : library_{LoadLibraryA("arkpx.dll")} {}
    LoadedDll(const LoadedDll&) = delete;
    ~LoadedDll() { FreeLibrary(library_); }

    bool isThere() const { return library_ != nullptr; }
    int status() const { return get<int()>("arkGetErrStatus")(); }
    int mode() const { return get<int()>("arkGetErrMode")(); }
    void setStatus(int status) const { get<void(int)>("arkSetErrStatus")(status); }

private:
    template <class Function>
    Function* get(const char* name) const
    {
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
    }

    HMODULE library_;
};

TEST(Attach, EveryLoadTakesAndReleasesOneSlot)
{
    for (int i = 0; i < 1200; i++) { // more than the slots that a process has
        const LoadedDll library;
        ASSERT_TRUE(library.isThere()) << i;
        ASSERT_EQ(library.status(), 0);
        ASSERT_EQ(library.mode(), 0);
        library.setStatus(-3);
    }
}

std::size_t heapBlocks()
{
    std::size_t blocks = 0;
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(GetProcessHeap(), &entry))
        blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
    return blocks;
}

TEST(Attach, ThreadsLeaveNoContextBehind)
{
    const LoadedDll library;
    ASSERT_TRUE(library.isThere());
    const auto runThreads = [&](int count) {
        for (int i = 0; i < count; i++)
            std::thread([&] { library.setStatus(library.status() - 1); }).join();
    };
    runThreads(10); // whatever the system keeps for the next threads
    const std::size_t before = heapBlocks();
    runThreads(200);
    EXPECT_LT(heapBlocks(), before + 100);
    EXPECT_EQ(library.status(), 0);
}

[[noreturn]] void callFromOlderThread()
{
    std::atomic<bool> runs{false};
    std::atomic<LoadedDll*> loaded{nullptr};
    std::thread older{[&] {
        runs = true;
        while (!loaded)
            Sleep(1);
        loaded.load()->status();
        std::_Exit(returned);
    }};
    while (!runs)
        Sleep(1);
    LoadedDll library;
    Person person{{IDOK, IDOK}, Person::Tells::yes};
    loaded = &library;
    older.join();
    std::_Exit(returned);
}

TEST_F(RealBoxDeathTest, OlderThreadsHaveNoContext)
{
    EXPECT_EXIT(callFromOlderThread(), testing::ExitedWithCode(1),
                "box \"NULL\" \"pArkContext\" 1\nbox \".*\" \"ORB Library error:\nBad ORB Context\nTerminating the "
                "application\" 1");
}

#endif

} // namespace
