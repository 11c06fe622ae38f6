#include "support/TqmProgram.h"

#include "support/ChildProcess.h"
#include "support/FixtureFiles.h"

namespace tqmtest {
namespace {

std::string withoutCarriageReturns(const std::string& text)
{
    std::string lines;
    lines.reserve(text.size());
    for (char ch : text) {
        if (ch != '\r')
            lines += ch;
    }
    return lines;
}

}  // namespace

TqmRun RunTqm(std::initializer_list<std::string> args, const std::string& input)
{
    std::string commandLine = QuoteArgument(ProgramDir() + "\\tqm.exe");
    for (const std::string& arg : args)
        commandLine += " " + QuoteArgument(arg);
    const ProgramRun run = RunProgram(commandLine, input);
    return TqmRun{run.exitCode, withoutCarriageReturns(run.out), withoutCarriageReturns(run.err)};
}

}  // namespace tqmtest
