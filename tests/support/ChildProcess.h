// RunProgram - starts a program as a child process and collects what it
// printed and its exit code, for tests of the command-line tool and of
// programs that report on themselves. RunSelfAsChild runs one test of the
// current program in a child process, for behaviour that ends the process.
#pragma once

#include <windows.h>

#include <string>

namespace tqmtest {

struct ProgramRun
{
    int exitCode;     // -1 when the program could not start or was stopped
    std::string out;  // standard output, as written (line ends included)
    std::string err;  // standard error
};

// Runs commandLine (program path first, quoted where needed) with the given
// standard input; a program still running after timeoutMs is stopped.
ProgramRun RunProgram(const std::string& commandLine, const std::string& input = std::string(),
                      unsigned timeoutMs = 60000);

// The argument quoted for a command line where it holds blanks or quotes.
std::string QuoteArgument(const std::string& argument);

// Runs the test "Suite.Name" of this program in a child process started in
// mode, whose ChildMode() then returns mode.
ProgramRun RunSelfAsChild(const char* testName, const char* mode, unsigned timeoutMs = 60000);
// The mode RunSelfAsChild started this program in, or "" in the parent.
std::string ChildMode();

}  // namespace tqmtest
