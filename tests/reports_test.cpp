#include "support/bad_calls.hpp"
#include "support/reports.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

std::vector<BadCallGroup>& groups()
{
    static std::vector<BadCallGroup> all;
    return all;
}

std::vector<std::string>& silentNames()
{
    static std::vector<std::string> all;
    return all;
}

int clearStatus(int status, const char*, const char*, const char*, int)
{
    arkSetErrStatus(ARK_StatusOk);
    return status;
}

} // namespace

BadCalls::BadCalls(const char* module, std::initializer_list<BadCall> calls,
                   std::initializer_list<std::string> messages)
{
    groups().push_back({module, calls, messages});
}

NoBadCalls::NoBadCalls(std::initializer_list<const char*> names)
{
    silentNames().insert(silentNames().end(), names.begin(), names.end());
}

TEST(Reports, OfBadArguments)
{
    Reports reports;
    for (const BadCallGroup& group : groups())
        for (const BadCall& bad : group.calls) {
            SCOPED_TRACE(bad.name);
            bad.call();
            EXPECT_EQ(arkGetErrStatus(), ARK_StatusBadArgument);
            const std::vector<Report> made = reports.take();
            ASSERT_EQ(made.size(), group.messages.size());
            for (std::size_t i = 0; i < made.size(); i++) {
                EXPECT_EQ(made[i].status, ARK_StatusBadArgument);
                EXPECT_EQ(made[i].function, bad.name);
                EXPECT_EQ(made[i].message, group.messages[i]);
                EXPECT_EQ(made[i].module, group.module);
                EXPECT_GT(made[i].line, 0);
                EXPECT_EQ(made[i].line, made[0].line) << "all checks of a call share a line";
            }
        }
}

// A call whose null pointers were reported must not follow them because the handler has cleared the status.
TEST(Reports, SurviveAHandlerThatClearsTheStatus)
{
    Reports reports;
    arkRedirectError(clearStatus);
    for (const BadCallGroup& group : groups())
        for (const BadCall& bad : group.calls)
            bad.call();
    EXPECT_EQ(arkGetErrStatus(), ARK_StatusOk);
}

TEST(Reports, EveryExportedFunctionIsCovered)
{
    const char* const exportedNames[] = {
#include "exported_names.inc"
    };
    std::vector<std::string> exported(std::begin(exportedNames), std::end(exportedNames)), covered = silentNames();
    for (const BadCallGroup& group : groups())
        for (const BadCall& bad : group.calls)
            covered.push_back(bad.name);
    std::sort(exported.begin(), exported.end());
    std::sort(covered.begin(), covered.end());
    EXPECT_EQ(covered, exported);
}
