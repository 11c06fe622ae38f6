#include "stress/Stress.h"

#include "support/ChildProcess.h"

#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>

namespace tqmstress {

extern const RoleEntry kRoles[];
extern const size_t kRoleCount;

bool FullSize()
{
    const char* value = getenv("TQM_STRESS");
    return value && strcmp(value, "full") == 0;
}

int Sized(int full, int shortSize) { return FullSize() ? full : shortSize; }

void Figure(const char* format, ...)
{
    char text[1024];
    va_list args;
    va_start(args, format);
    vsnprintf(text, sizeof(text), format, args);
    va_end(args);
    printf("figure: %s\n", text);
    fflush(stdout);
}

bool RunRole(int argc, char** argv, int* pExitCode)
{
    const char kFlag[] = "--tqm-role=";
    if (argc < 2 || strncmp(argv[1], kFlag, strlen(kFlag)) != 0)
        return false;
    const char* name = argv[1] + strlen(kFlag);
    std::vector<std::string> args(argv + 2, argv + argc);
    for (size_t i = 0; i < kRoleCount; ++i) {
        if (strcmp(kRoles[i].name, name) == 0) {
            *pExitCode = kRoles[i].role(args);
            return true;
        }
    }
    fprintf(stderr, "no role %s\n", name);
    *pExitCode = 2;
    return true;
}

Child::~Child() { Kill(); }

bool Child::Start(const char* role, const std::vector<std::string>& args)
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string line = tqmtest::QuoteArgument(path) + " --tqm-role=" + role;
    for (const std::string& arg : args)
        line += " " + tqmtest::QuoteArgument(arg);
    return StartCommand(line, std::string());
}

bool Child::StartCommand(const std::string& commandLine, const std::string& outputFile)
{
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    tqm::UniqueFile output;
    if (!outputFile.empty()) {
        SECURITY_ATTRIBUTES inherit = {sizeof(inherit), nullptr, TRUE};
        output.reset(CreateFileA(outputFile.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherit, CREATE_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!output)
            return false;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
        startup.hStdOutput = output.get();
        startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    }
    std::vector<char> line(commandLine.begin(), commandLine.end());
    line.push_back('\0');
    PROCESS_INFORMATION process = {};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, output ? TRUE : FALSE, 0, nullptr, nullptr, &startup,
                        &process))
        return false;
    CloseHandle(process.hThread);
    m_process.reset(process.hProcess);
    m_id = process.dwProcessId;
    return true;
}

int Child::Wait(DWORD timeoutMs)
{
    if (!m_process)
        return -1;
    if (WaitForSingleObject(m_process.get(), timeoutMs) != WAIT_OBJECT_0) {
        Kill();
        return -1;
    }
    DWORD code = 0;
    GetExitCodeProcess(m_process.get(), &code);
    return static_cast<int>(code);
}

void Child::Kill()
{
    if (m_process && WaitForSingleObject(m_process.get(), 0) == WAIT_TIMEOUT) {
        TerminateProcess(m_process.get(), 99);
        WaitForSingleObject(m_process.get(), 10000);
    }
}

std::vector<ATOM> GlobalAtoms()
{
    std::vector<ATOM> atoms;
    char name[256];
    for (unsigned atom = 0xC000; atom <= 0xFFFF; ++atom) {
        if (GlobalGetAtomNameA(static_cast<ATOM>(atom), name, sizeof(name)) > 0)
            atoms.push_back(static_cast<ATOM>(atom));
    }
    return atoms;
}

std::vector<std::string> NewAtoms(const std::vector<ATOM>& before, const std::vector<ATOM>& after)
{
    std::vector<std::string> names;
    for (ATOM atom : after) {
        if (std::binary_search(before.begin(), before.end(), atom))
            continue;
        char name[256] = "";
        GlobalGetAtomNameA(atom, name, sizeof(name));
        names.push_back(std::string(name).substr(0, 40));
    }
    return names;
}

unsigned long Random::Between(unsigned long lo, unsigned long hi)
{
    m_state = m_state * 6364136223846793005ull + 1442695040888963407ull;
    return lo + static_cast<unsigned long>((m_state >> 33) % (hi - lo + 1));
}

std::string ReadWhole(const std::string& path)
{
    std::string bytes;
    tqm::UniqueFile file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file)
        return bytes;
    char buffer[65536];
    DWORD got = 0;
    while (ReadFile(file.get(), buffer, sizeof(buffer), &got, nullptr) && got > 0)
        bytes.append(buffer, got);
    return bytes;
}

std::string StopEventName()
{
    char name[64];
    snprintf(name, sizeof(name), "Tqm.Stress.Stop.%lu", GetCurrentProcessId());
    return name;
}

std::vector<std::string> TempFiles(const std::string& folder)
{
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    HANDLE find = FindFirstFileA((folder + "\\*.tmp").c_str(), &found);
    if (find == INVALID_HANDLE_VALUE)
        return names;
    do
        names.push_back(found.cFileName);
    while (FindNextFileA(find, &found));
    FindClose(find);
    return names;
}

}  // namespace tqmstress
