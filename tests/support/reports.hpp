// Records what the library reports.
#pragma once

#include <arkpx.h>

#include <ostream>
#include <string>
#include <vector>

struct Report {
    int status = ARK_StatusBadArgument;
    std::string function;
    std::string message; // "<null>" for a back-trace
    std::string module;
    int line = 0;

    friend std::ostream& operator<<(std::ostream& out, const Report& report);
};

// While it lives, the calling thread's reports go to it; the thread starts and ends with status 0.
class Reports {
public:
    Reports();
    ~Reports();
    Reports(const Reports&) = delete;
    Reports& operator=(const Reports&) = delete;

    // The reports since the last call; clears the thread's status.
    std::vector<Report> take();

    // The messages alone.
    std::vector<std::string> messages();

private:
    ArkErrorHandler previous_;
};
