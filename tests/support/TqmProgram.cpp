#include "support/TqmProgram.h"

#include "support/ChildProcess.h"
#include "support/FixtureFiles.h"

namespace tqmtest {
std::string WithoutCarriageReturns(const std::string& text)
{
    std::string lines;
    lines.reserve(text.size());
    for (char ch : text) {
        if (ch != '\r')
            lines += ch;
    }
    return lines;
}

std::string TqmCommandLine(const std::vector<std::string>& args)
{
    std::string commandLine = QuoteArgument(ProgramDir() + "\\tqm.exe");
    for (const std::string& arg : args)
        commandLine += " " + QuoteArgument(arg);
    return commandLine;
}

TqmRun RunTqm(const std::vector<std::string>& args, const std::string& input)
{
    const ProgramRun run = RunProgram(TqmCommandLine(args), input);
    return TqmRun{run.exitCode, WithoutCarriageReturns(run.out), WithoutCarriageReturns(run.err)};
}

}  // namespace tqmtest
