// What the report handlers need of the platform: messagebox_win32.cpp and messagebox_posix.cpp.
#pragma once

#include <cstddef>
#include <cstdio>
#include <cstring>
#ifdef _WIN32
#include <windows.h>
#endif

namespace ark::platform {

// Formats, and cuts what does not fit.
template <std::size_t size, class... Arguments>
void formatText(char (&text)[size], const char* format, Arguments... arguments)
{
#ifdef _WIN32
    char whole[1024 + 1]; // what the system's formatter writes at the most
    wsprintfA(whole, format, arguments...);
    whole[size - 1 < sizeof whole ? size - 1 : sizeof whole - 1] = '\0';
    std::strcpy(text, whole);
#else
    std::snprintf(text, size, format, arguments...);
#endif
}

enum class Buttons { yesNo, okCancel };

// Asks the person at the screen or terminal. True when the process is to end: Yes, or Cancel. False for the other
// answer and when nobody can be asked.
bool askWhetherToEnd(const char* caption, const char* body, Buttons buttons);

// Ends the process with exit code 1 after showing the text. The caption is for systems whose message has one.
[[noreturn]] void endProcess(const char* text, const char* caption);

} // namespace ark::platform
