// Error status, modes, report handlers.
#include "frame/context.hpp"
#include "frame/platform.hpp"
#include "frame/report.hpp"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace ark {
namespace {

const char* orDefault(const char* text, const char* fallback) { return text ? text : fallback; }

bool isTrace(int status) { return status == ARK_StatusBacktrace || status == ARK_StatusAutotrace; }

constexpr const char* statusTexts[] = {
    "No Error",      "Backtrace",    "Unknown error",        "Internal error (bad state)",
    "Out of memory", "Bad argument", "Unsupported function", "Iteration convergence failed",
    "Autotrace call"};

// The texts differ in their spelling of the mode's name from those of arkStdErrReport; both are part of the interface.
constexpr const char* leafTail = "\n\nErrMode=ARK_ErrorModeLeaf\n\nTerminate the application?";
constexpr const char* parentTail = "\n\nErrMode=ARK_ErrorModeParent\n\nContinue?";

const char* bodyFormat(int status)
{
    switch (status) {
    case ARK_StatusBacktrace: return "called from [%s:%d]:%s():\n %s%s";
    case ARK_StatusAutotrace: return "called from [%s:%d]:\n %s(%s)%s";
    default: return "in function [%s:%d]:%s():\n %s%s";
    }
}

} // namespace

void report(const char* function, const char* module, int line, int status, const char* message)
{
    arkError(status, function, message, module, line);
}

void reportFailed(const char* function, const char* module, int line, const Check* checks, std::size_t count)
{
    for (std::size_t i = 0; i < count; i++)
        if (checks[i].failed)
            report(function, module, line, ARK_StatusBadArgument, checks[i].message);
}

} // namespace ark

using namespace ark;

int arkGetErrStatus(void) { return context().head.status; }

void arkSetErrStatus(int status) { context().head.status = status; }

int arkGetErrMode(void) { return context().head.mode; }

void arkSetErrMode(int mode) { context().head.mode = mode; }

ArkErrorContext* arkUndContext(void) { return &context().head; }

ArkErrorHandler arkRedirectError(ArkErrorHandler handler)
{
    return std::exchange(context().head.handler, handler ? handler : arkGuiBoxReport);
}

int arkError(int status, const char* functionName, const char* message, const char* fileName, int line)
{
    ArkErrorContext& head = context().head;
    if (!isTrace(status))
        head.status = status;
    if (status == ARK_StatusOk)
        return 0;
    return head.handler(status, functionName, message, fileName, line);
}

const char* arkErrorStr(int status)
{
    if (status <= 0 && status >= ARK_StatusAutotrace)
        return statusTexts[-status];
    char(&text)[sizeof(Context::text)] = context().text;
    platform::formatText(text, "Unknown %s code %d", status > 0 ? "status" : "error", status);
    return text;
}

int arkGuiBoxReport(int status, const char* functionName, const char* message, const char* fileName, int line)
{
    const ArkErrorContext& head = context().head;
    if (head.mode != ARK_ErrModeLeaf && head.mode != ARK_ErrModeParent)
        return status;
    const bool leaf = head.mode == ARK_ErrModeLeaf;

    char body[200];
    const char* const name = orDefault(functionName, "<unknown>");
    platform::formatText(body, bodyFormat(status), orDefault(fileName, ""), line < 0 ? 0 : line, name,
                         orDefault(message, ""), leaf ? leafTail : parentTail);
    char caption[100]; // names the recorded status: for a back-trace that of the innermost failure
    platform::formatText(caption, "ORB Library Error: %s", arkErrorStr(head.status));

    if (platform::askWhetherToEnd(caption, body, leaf ? platform::Buttons::yesNo : platform::Buttons::okCancel))
        platform::endProcess("ORB Library:\nterminating the application", "Win32S: Application exit");
    return status;
}

int arkStdErrReport(int status, const char* functionName, const char* message, const char* fileName, int line)
{
    const int mode = arkGetErrMode();
    if (mode == ARK_ErrModeSilent)
        return status;
    if (isTrace(status))
        std::fputs("\tcalled from", stderr);
    else
        std::fprintf(stderr, "\nORB Library Error: %s \n\tin function", arkErrorStr(status));
    if (line > 0 || fileName)
        std::fprintf(stderr, " [%s:%d]", orDefault(fileName, ""), line);
    std::fprintf(stderr, ":%s", orDefault(functionName, "<unknown>"));
    if (message)
        std::fprintf(stderr, status == ARK_StatusAutotrace ? "(%s)" : "(): %s", message);
    std::fputs("\n", stderr);
    std::fflush(stderr);
    if (mode != ARK_ErrModeLeaf)
        return status;
    std::fputs("ORB Library Error\nErrMode=ARK_ErrModeLeaf\nterminating the application", stderr);
    std::fflush(stderr);
    std::exit(1);
}

int arkNulDevReport(int status, const char*, const char*, const char*, int)
{
    if (arkGetErrMode() == ARK_ErrModeLeaf)
        std::exit(1);
    return status;
}
