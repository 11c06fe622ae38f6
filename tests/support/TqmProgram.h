// RunTqm - runs the built tqm.exe (beside the test program) as a user runs
// it, for tests of its commands.
#pragma once

#include <string>
#include <vector>

namespace tqmtest {

struct TqmRun
{
    int exitCode;     // -1 when tqm could not start or was stopped
    std::string out;  // standard output, line ends as "\n"
    std::string err;  // standard error, line ends as "\n"
};

// The command line that starts tqm with the arguments (quoted where needed).
std::string TqmCommandLine(const std::vector<std::string>& args);
// Runs tqm with the arguments and the standard input.
TqmRun RunTqm(const std::vector<std::string>& args, const std::string& input = std::string());

inline bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

}  // namespace tqmtest
