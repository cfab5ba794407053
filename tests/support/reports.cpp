#include "support/reports.hpp"

#include <utility>

namespace {

thread_local std::vector<Report> recorded;

std::string textOr(const char* text) { return text ? text : "<null>"; }

int record(int status, const char* function, const char* message, const char* file, int line)
{
    recorded.push_back({status, textOr(function), textOr(message), textOr(file), line});
    return status;
}

} // namespace

std::ostream& operator<<(std::ostream& out, const Report& report)
{
    return out << report.status << ' ' << report.function << " \"" << report.message << "\" [" << report.module << ':'
               << report.line << ']';
}

Reports::Reports()
{
    arkSetErrStatus(ARK_StatusOk);
    recorded.clear();
    previous_ = arkRedirectError(record);
}

Reports::~Reports()
{
    arkRedirectError(previous_);
    arkSetErrStatus(ARK_StatusOk);
}

std::vector<Report> Reports::take()
{
    arkSetErrStatus(ARK_StatusOk);
    return std::exchange(recorded, {});
}

std::vector<std::string> Reports::messages()
{
    std::vector<std::string> texts;
    for (Report& report : take())
        texts.push_back(std::move(report.message));
    return texts;
}
