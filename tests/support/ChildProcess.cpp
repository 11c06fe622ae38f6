#include "support/ChildProcess.h"

#include "support/FileUtil.h"
#include "support/TempDir.h"

#include "framework/Handles.h"

#include <string.h>

#include <vector>

namespace tqmtest {
namespace {
const char kChildFlag[] = "--tqm-child=";
}

ChildProcess::~ChildProcess()
{
    kill();
    if (m_process)
        CloseHandle(m_process);
}

bool ChildProcess::start(const std::string& commandLine, const std::string& outputPath)
{
    SECURITY_ATTRIBUTES inherit = {sizeof(inherit), nullptr, TRUE};
    tqm::UniqueFile output(CreateFileA(outputPath.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                       &inherit, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!output)
        return false;
    STARTUPINFOA si = {};
    si.cb = sizeof(si);
    si.dwFlags = STARTF_USESTDHANDLES;
    si.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    si.hStdOutput = output.get();
    si.hStdError = output.get();
    PROCESS_INFORMATION pi = {};
    std::vector<char> line(commandLine.begin(), commandLine.end());
    line.push_back('\0');
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &si, &pi))
        return false;
    CloseHandle(pi.hThread);
    m_process = pi.hProcess;
    m_id = pi.dwProcessId;
    return true;
}

bool ChildProcess::wait(DWORD timeoutMs)
{
    return m_process && WaitForSingleObject(m_process, timeoutMs) == WAIT_OBJECT_0;
}

DWORD ChildProcess::exitCode() const
{
    DWORD code = STILL_ACTIVE;
    if (m_process)
        GetExitCodeProcess(m_process, &code);
    return code;
}

void ChildProcess::kill()
{
    if (m_process && WaitForSingleObject(m_process, 0) == WAIT_TIMEOUT) {
        TerminateProcess(m_process, 999);
        WaitForSingleObject(m_process, 5000);
    }
}

ProcessResult RunProcess(const std::string& commandLine, DWORD timeoutMs)
{
    TempDir dir;
    std::string outputPath = dir.file("output.txt");
    ProcessResult result;
    {
        ChildProcess child;
        if (!child.start(commandLine, outputPath))
            return result;
        result.finished = child.wait(timeoutMs);
        child.kill();
        result.exitCode = child.exitCode();
    }
    result.output = ReadBytes(outputPath);
    return result;
}

std::string ProgramFolder()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    char* slash = strrchr(path, '\\');
    if (slash)
        *slash = '\0';
    return path;
}

ProcessResult RunSelfAsChild(const char* testName, const char* mode, DWORD timeoutMs)
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string commandLine = std::string("\"") + path + "\" --gtest_filter=" + testName + " " + kChildFlag + mode;
    return RunProcess(commandLine, timeoutMs);
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
