// How an operation checks its arguments and reports: who reports, one check, the two styles of checking.
//
//   constexpr ark::Module here{"arkarith"};
//
//   void arksbZero(float* dst, int n) { zero(here(), dst, n); }       // here() captures the member's name and line
//
//   template <class T> void zero(Where at, T* dst, int n)
//   {
//       if (allGood(at, {{n <= 0, "n<=0"}, {!dst, "dst==0"}}))
//           ...
//   }
//
// Messages are part of the interface and are written out: some name another argument than the one that they check, and
// a formatter would respell a stringised condition.
#pragma once

#include "frame/context.hpp"

#include <array>
#include <cstddef>
#include <utility>

namespace ark {

// The exported function that is running, its source module, and the line that every check of the call reports.
struct Where {
    const char* function;
    const char* module;
    int line;
    int lineStep = 0; // from one check of firstGood to the next
};

class Module {
public:
    constexpr explicit Module(const char* name) : name_{name} {}

    constexpr Where operator()(const char* function = __builtin_FUNCTION(), int line = __builtin_LINE()) const
    {
        return {function, name_, line};
    }

    // For the modules whose line numbers are part of the interface.
    constexpr Where lines(int first, int step = 0, const char* function = __builtin_FUNCTION()) const
    {
        return {function, name_, first, step};
    }

private:
    const char* name_;
};

struct Check {
    bool failed;
    const char* message;
};

// Out of line, and taking Where apart: an aggregate to be passed on would be put together in memory before the checks,
// on the path of good arguments.
[[gnu::cold]] void report(const char* function, const char* module, int line, int status, const char* message);
[[gnu::cold]] void reportFailed(const char* function, const char* module, int line, const Check* checks,
                                std::size_t count);

inline void report(Where at, int status, const char* message)
{
    report(at.function, at.module, at.line, status, message);
}
inline void reportFailed(Where at, const Check* checks, std::size_t count)
{
    reportFailed(at.function, at.module, at.line, checks, count);
}

inline void badArgument(Where at, const char* message) { report(at, ARK_StatusBadArgument, message); }
inline void outOfMemory(Where at, const char* message) { report(at, ARK_StatusOutOfMemory, message); }

// For an operation that found a negative status after an inner operation: adds its own name to the report.
inline void backtrace(Where at) { report(at, ARK_StatusBacktrace, nullptr); }

// The status gate: false when a failure, also an earlier one, is recorded for this thread.
inline bool statusGood() { return currentStatus() >= 0; }

// Indices that are constants: so the checks are nowhere in memory.
template <std::size_t count>
inline bool noneFailed(const Check (&checks)[count])
{
    return [&]<std::size_t... i>(std::index_sequence<i...>) { return !(checks[i].failed || ...); }
    (std::make_index_sequence<count>{});
}

// Reports every failed check. False when there was one.
template <std::size_t count>
inline bool allHold(Where at, const Check (&checks)[count])
{
    if (noneFailed(checks)) [[likely]]
        return true;
    const auto copies = std::to_array(checks); // for the report alone
    reportFailed(at, copies.data(), count);
    return false;
}

// Style 1: reports every failed check, then tests the status. False when the operation must not go on. A failed check
// counts even when the handler has cleared the status.
template <std::size_t count>
inline bool allGood(Where at, const Check (&checks)[count])
{
    return allHold(at, checks) && statusGood();
}

// Style 2: reports the first failed check only and does not look at the status. All conditions are evaluated before
// the call: one that needs an earlier one to hold guards itself (!state || state->mark != ...).
template <std::size_t count>
inline bool firstGood(Where at, const Check (&checks)[count])
{
    const auto good = [&at](const Check& check) {
        if (check.failed) [[unlikely]] {
            badArgument(at, check.message);
            return false;
        }
        at.line += at.lineStep;
        return true;
    };
    return [&]<std::size_t... i>(std::index_sequence<i...>) { return (good(checks[i]) && ...); }
    (std::make_index_sequence<count>{});
}

} // namespace ark
