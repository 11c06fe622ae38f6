// RunTqm - runs the built tqm.exe (beside the test program) as a user runs
// it, for tests of its commands.
#pragma once

#include "support/ChildProcess.h"

#include <string>
#include <vector>

namespace tqmtest {

using TqmRun = ProgramRun;

// The command line that starts tqm with the arguments (quoted where needed).
std::string TqmCommandLine(const std::vector<std::string>& args);
// Runs tqm with the arguments and the standard input; line ends in its
// output and error text come back as "\n".
TqmRun RunTqm(const std::vector<std::string>& args, const std::string& input = std::string());

// text without its carriage returns: line ends as "\n".
std::string WithoutCarriageReturns(const std::string& text);

inline bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

}  // namespace tqmtest
