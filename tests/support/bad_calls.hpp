// The table of what every exported function reports for bad arguments, kept beside each family's tests and checked in
// one place (reports_test.cpp), which also sees to it that no exported function is missing.
#pragma once

#include <arkpx.h>

#include <initializer_list>
#include <string>
#include <vector>

struct BadCall {
    const char* name;
    void (*call)();
};

template <auto function>
struct WithZeros;
template <class Result, class... Arguments, Result (*function)(Arguments...)>
struct WithZeros<function> {
    static void call() { function(Arguments{}...); }
};

// An exported function called with zeros and null pointers for all its arguments.
// clang-format off
#define ZEROS(function) BadCall{#function, WithZeros<function>::call}
// clang-format on

struct BadCallGroup {
    const char* module;
    std::vector<BadCall> calls;
    std::vector<std::string> messages; // what each of the calls reports, in order
};

// Defined once per group at namespace scope: adds the group to the table.
class BadCalls {
public:
    BadCalls(const char* module, std::initializer_list<BadCall> calls, std::initializer_list<std::string> messages);
};

// Functions that have nothing to report, or whose reports a test of their own checks.
class NoBadCalls {
public:
    explicit NoBadCalls(std::initializer_list<const char*> names);
};

const std::vector<BadCallGroup>& badCallGroups();
const std::vector<std::string>& namesWithoutBadCalls();
