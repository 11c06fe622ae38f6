#include "support/ChildProcess.h"

#include "support/FileUtil.h"
#include "support/TempDir.h"

#include "framework/Handles.h"

#include <windows.h>

#include <vector>

namespace tqmtest {
namespace {

// An inheritable handle to a file of the exchange folder.
tqm::UniqueFile openInheritable(const std::string& path, DWORD access, DWORD disposition)
{
    SECURITY_ATTRIBUTES inherit = {sizeof(inherit), nullptr, TRUE};
    return tqm::UniqueFile(CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherit,
                                       disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

ProgramRun RunProgram(const std::string& commandLine, const std::string& input, unsigned timeoutMs)
{
    // Files rather than pipes: the child can write as much as it likes to
    // both streams without either side waiting on the other.
    TempDir exchange;
    ProgramRun run{-1, std::string(), std::string()};
    if (!WriteBytes(exchange.file("in"), input))
        return run;
    {
        tqm::UniqueFile in = openInheritable(exchange.file("in"), GENERIC_READ, OPEN_EXISTING);
        tqm::UniqueFile out = openInheritable(exchange.file("out"), GENERIC_WRITE, CREATE_ALWAYS);
        tqm::UniqueFile err = openInheritable(exchange.file("err"), GENERIC_WRITE, CREATE_ALWAYS);
        if (!in || !out || !err)
            return run;

        STARTUPINFOA startup = {};
        startup.cb = sizeof(startup);
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = in.get();
        startup.hStdOutput = out.get();
        startup.hStdError = err.get();
        PROCESS_INFORMATION process = {};
        std::vector<char> line(commandLine.begin(), commandLine.end());
        line.push_back('\0');
        if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr,
                            &startup, &process))
            return run;
        tqm::UniqueHandle hProcess(process.hProcess);
        tqm::UniqueHandle hThread(process.hThread);
        if (WaitForSingleObject(hProcess.get(), timeoutMs) != WAIT_OBJECT_0) {
            TerminateProcess(hProcess.get(), 1);
            WaitForSingleObject(hProcess.get(), INFINITE);
        } else {
            DWORD code = 0;
            GetExitCodeProcess(hProcess.get(), &code);
            run.exitCode = static_cast<int>(code);
        }
    }
    run.out = ReadBytes(exchange.file("out"));
    run.err = ReadBytes(exchange.file("err"));
    return run;
}

std::string QuoteArgument(const std::string& argument)
{
    if (!argument.empty() && argument.find_first_of(" \t\"") == std::string::npos)
        return argument;
    std::string quoted = "\"";
    size_t backslashes = 0;
    for (char ch : argument) {
        if (ch == '\\') {
            ++backslashes;
            continue;
        }
        if (ch == '"')
            quoted.append(backslashes * 2 + 1, '\\');
        else
            quoted.append(backslashes, '\\');
        backslashes = 0;
        quoted += ch;
    }
    quoted.append(backslashes * 2, '\\');
    quoted += '"';
    return quoted;
}

}  // namespace tqmtest
