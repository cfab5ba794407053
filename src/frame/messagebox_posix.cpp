// The message box where there is none: a dialog program, the terminal, or standard error.
#include "frame/platform.hpp"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" char** environ;

namespace ark::platform {
namespace {

struct Labels {
    const char* end; // the answer that ends the process
    const char* goOn;
    const char* prompt; // on a terminal
    char endKey;
};

constexpr Labels yesNo{"Yes", "No", "[y/N] ", 'y'};
constexpr Labels okCancel{"Cancel", "OK", "[O]K/[c]ancel ", 'c'};

template <std::size_t size>
const char* joined(char (&text)[size], const char* head, const char* tail)
{
    std::snprintf(text, size, "%s%s", head, tail);
    return text;
}

// Runs a program to its end; -1 when there is no such program.
int run(const char* const* arguments)
{
    pid_t child;
    if (posix_spawnp(&child, arguments[0], nullptr, nullptr, const_cast<char* const*>(arguments), environ) != 0)
        return -1;
    int state = 0;
    while (waitpid(child, &state, 0) < 0)
        if (errno != EINTR)
            return 1; // the application reaps children itself: the answer is lost
    return WIFEXITED(state) ? WEXITSTATUS(state) : 1;
}

enum class Answer { end, goOn, nobody };

// Every dialog is set up so that exit status 0 stands for the answer that ends the process: a dialog program that fails
// for a reason of its own (no access to the display, killed) never ends it.
Answer askOnDisplay(const char* caption, const char* body, const Labels& labels)
{
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY"))
        return Answer::nobody;
    char title[128], text[256], endLabel[32], goOnLabel[32], buttons[64];
    std::snprintf(buttons, sizeof buttons, "%s:1,%s:0", labels.goOn, labels.end);

    const char* const zenity[] = {"zenity",
                                  "--question",
                                  "--no-markup",
                                  joined(title, "--title=", caption),
                                  joined(text, "--text=", body),
                                  joined(endLabel, "--ok-label=", labels.end),
                                  joined(goOnLabel, "--cancel-label=", labels.goOn),
                                  nullptr};
    const char* const kdialog[] = {"kdialog",    "--title",   caption,   "--yes-label", labels.end,
                                   "--no-label", labels.goOn, "--yesno", body,          nullptr};
    const char* const xmessage[] = {"xmessage", "-center", "-title", caption, "-buttons", buttons, body, nullptr};
    for (const char* const* dialog : {zenity, kdialog, xmessage})
        if (const int status = run(dialog); status >= 0)
            return status == 0 ? Answer::end : Answer::goOn;
    return Answer::nobody;
}

Answer askOnTerminal(const char* caption, const char* body, const Labels& labels)
{
    std::FILE* const terminal = std::fopen("/dev/tty", "r+e");
    if (!terminal)
        return Answer::nobody;
    Answer answer = Answer::nobody;
    if (tcgetpgrp(fileno(terminal)) == getpgrp()) { // a background process would be stopped by reading
        std::fprintf(terminal, "\n%s\n%s %s", caption, body, labels.prompt);
        std::fflush(terminal);
        char line[64] = "";
        const bool answered = std::fgets(line, sizeof line, terminal);
        answer = answered && (line[0] | 0x20) == labels.endKey ? Answer::end : Answer::goOn;
    }
    std::fclose(terminal);
    return answer;
}

} // namespace

bool askWhetherToEnd(const char* caption, const char* body, Buttons buttons)
{
    const Labels& labels = buttons == Buttons::yesNo ? yesNo : okCancel;
    Answer answer = askOnDisplay(caption, body, labels);
    if (answer == Answer::nobody)
        answer = askOnTerminal(caption, body, labels);
    if (answer == Answer::nobody)
        std::fprintf(stderr, "\n%s\n%s %s (nobody to ask)\n", caption, body, labels.goOn);
    return answer == Answer::end;
}

void endProcess(const char* text, const char*)
{
    std::fprintf(stderr, "\n%s\n", text);
    std::exit(1);
}

} // namespace ark::platform
