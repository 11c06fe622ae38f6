// RunTqm - runs the built tqm.exe (beside the test program) as a user runs
// it, for tests of its commands.
#pragma once

#include <initializer_list>
#include <string>

namespace tqmtest {

struct TqmRun
{
    int exitCode;     // -1 when tqm could not start or was stopped
    std::string out;  // standard output, line ends as "\n"
    std::string err;  // standard error, line ends as "\n"
};

// Runs tqm with the arguments (quoted where needed) and the standard input.
TqmRun RunTqm(std::initializer_list<std::string> args, const std::string& input = std::string());

}  // namespace tqmtest
