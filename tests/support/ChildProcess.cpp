#include "support/ChildProcess.h"

#include "framework/Handles.h"

#include <windows.h>

#include <string.h>

#include <thread>
#include <vector>

namespace tqmtest {
namespace {

// A pipe whose child end is inheritable and whose parent end is not.
struct Pipe
{
    tqm::UniqueHandle parentEnd;
    tqm::UniqueHandle childEnd;
};

bool makePipe(Pipe& pipe, bool childReads)
{
    SECURITY_ATTRIBUTES inherit = {sizeof(inherit), nullptr, TRUE};
    HANDLE hRead = nullptr;
    HANDLE hWrite = nullptr;
    if (!CreatePipe(&hRead, &hWrite, &inherit, 0))
        return false;
    pipe.parentEnd.reset(childReads ? hWrite : hRead);
    pipe.childEnd.reset(childReads ? hRead : hWrite);
    return SetHandleInformation(pipe.parentEnd.get(), HANDLE_FLAG_INHERIT, 0) != FALSE;
}

void drain(HANDLE hRead, std::string& text)
{
    char buffer[4096];
    DWORD got = 0;
    while (ReadFile(hRead, buffer, sizeof(buffer), &got, nullptr) && got > 0)
        text.append(buffer, got);
}

}  // namespace

ProgramRun RunProgram(const std::string& commandLine, const std::string& input, unsigned timeoutMs)
{
    // The desktop is made by the first program of the session that needs it,
    // and under Wine the desktop's process then holds on to that program's
    // standard handles: a child's pipes would never end. So the test makes
    // it first.
    GetDesktopWindow();
    ProgramRun run{-1, std::string(), std::string()};
    Pipe in, out, err;
    if (!makePipe(in, true) || !makePipe(out, false) || !makePipe(err, false))
        return run;

    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = in.childEnd.get();
    startup.hStdOutput = out.childEnd.get();
    startup.hStdError = err.childEnd.get();
    PROCESS_INFORMATION process = {};
    std::vector<char> line(commandLine.begin(), commandLine.end());
    line.push_back('\0');
    const BOOL started = CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                                        nullptr, &startup, &process);
    // Only the child holds its ends now, so the pipes end when it does.
    in.childEnd.reset();
    out.childEnd.reset();
    err.childEnd.reset();
    if (!started)
        return run;
    tqm::UniqueHandle hProcess(process.hProcess);
    tqm::UniqueHandle hThread(process.hThread);

    // Both streams are read while the child runs, so that it never waits on
    // a full pipe; the input is written beside them.
    std::thread outReader(drain, out.parentEnd.get(), std::ref(run.out));
    std::thread errReader(drain, err.parentEnd.get(), std::ref(run.err));
    std::thread writer([&] {
        DWORD written = 0;
        if (!input.empty())
            WriteFile(in.parentEnd.get(), input.data(), static_cast<DWORD>(input.size()), &written, nullptr);
        in.parentEnd.reset();
    });

    if (WaitForSingleObject(hProcess.get(), timeoutMs) != WAIT_OBJECT_0) {
        TerminateProcess(hProcess.get(), 1);
        WaitForSingleObject(hProcess.get(), INFINITE);
    } else {
        DWORD code = 0;
        GetExitCodeProcess(hProcess.get(), &code);
        run.exitCode = static_cast<int>(code);
    }
    writer.join();
    outReader.join();
    errReader.join();
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

namespace {
const char kChildFlag[] = "--tqm-child=";
}

ProgramRun RunSelfAsChild(const char* testName, const char* mode, unsigned timeoutMs)
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    return RunProgram(QuoteArgument(path) + " --gtest_filter=" + testName + " " + kChildFlag + mode, std::string(),
                      timeoutMs);
}

std::string ChildMode()
{
    const char* found = strstr(GetCommandLineA(), kChildFlag);
    if (!found)
        return std::string();
    found += strlen(kChildFlag);
    return std::string(found, strcspn(found, " \t\""));
}

}  // namespace tqmtest
