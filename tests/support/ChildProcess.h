// RunProgram - starts a program as a child process and collects what it
// writes, for tests of the command-line tool.
#pragma once

#include <string>
#include <vector>

namespace tqmtest {

struct ProgramResult
{
    int exitCode = -1;   // -1 when the program could not be started
    std::string out;     // standard output, with CR LF turned into LF
    std::string err;     // standard error, likewise
};

// Runs program (a full path) with the arguments, quoted as the C runtime
// splits them, feeding it input on standard input; waits for it to end.
ProgramResult RunProgram(const std::string& program, const std::vector<std::string>& args,
                         const std::string& input = std::string());

// The folder of the running test program, where the build puts its tools.
std::string ProgramFolder();

}  // namespace tqmtest
