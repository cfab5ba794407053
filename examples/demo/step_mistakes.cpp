// What a wrong call does: its reports reach the thread's handler, its outputs stay as they were, and the status stops
// the calls that follow until it is cleared.
#include "demo.hpp"

#include <arkpx.h>

namespace demo {
namespace {

struct Report {
    std::string function, message, module, status;
};
std::vector<Report> reports;

int remember(int status, const char* function, const char* message, const char* module, int)
{
    reports.push_back({function, message ? message : "called from here", module, arkErrorStr(status)});
    return status;
}

// What was reported since the last time, as text: function: message; ...
std::string collect(Table& table, const std::string& mistake)
{
    std::string all;
    for (const Report& report : reports) {
        table.row({mistake, report.function, report.message, report.module, report.status});
        all += (all.empty() ? "" : "; ") + report.function + ": " + report.message;
    }
    reports.clear();
    return all;
}

} // namespace

void mistakes(Demo& demo)
{
    const ArkErrorHandler before = arkRedirectError(remember);
    Table table({"mistake", "function", "message", "module", "status"});

    // [code
    // 1: no length and no second source. Every failed check is reported.
    const float a[2] = {1, 2};
    float sum[2] = {0, 0};
    arksbAdd3(a, nullptr, sum, 0);
    const std::string first = collect(table, "no length, no source");
    // A correct call now does nothing: the status is sticky.
    arksbAdd3(a, a, sum, 2);
    const float whileFailed = sum[1];
    arkSetErrStatus(ARK_StatusOk);
    arksbAdd3(a, a, sum, 2);

    // 2: the automatic mode has nowhere to put its factor. One value is computed as a vector of one: the inner
    // operation reports the mistake, the outer one that it was called.
    const ShortCplx z = arkvAdd(arkvSet(20000, 0), arkvSet(20000, 0), ARK_AUTO_SCALE, nullptr);
    const std::string second = collect(table, "no place for the factor");
    arkSetErrStatus(ARK_StatusOk);

    // 3: two rounding rules at once. Conversions clear the status themselves before they begin.
    short codes[2] = {7, 7};
    arksbFloatToInt(a, codes, 2, 16, ARK_RoundDown | ARK_RoundUp);
    const std::string third = collect(table, "two rounding rules");
    const std::string status = arkErrorStr(arkGetErrStatus());
    arkSetErrStatus(ARK_StatusOk);
    // code]
    arkRedirectError(before);

    demo.show(table);
    demo.expect("first mistake", first, "arksbAdd3: n<=0; arksbAdd3: srcB==0");
    demo.expect("sum computed while the failure is recorded", (long long)whileFailed, 0);
    demo.expect("sum computed after it was cleared", (long long)sum[1], 4);
    demo.expect("second mistake", second, "arkvbAdd3: scalefactor==0; arkvAdd: called from here");
    demo.expect("its result", z.re, 0);
    demo.expect("third mistake", third, "arksbFloatToInt: Invalid conversion flag");
    demo.expect("its status", status, "Bad argument");
    demo.expect("its output, as it was", codes[0], 7);
}

} // namespace demo
