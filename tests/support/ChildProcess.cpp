#include "support/ChildProcess.h"

#include "framework/Handles.h"
#include "support/FileUtil.h"
#include "support/TempDir.h"

#include <windows.h>

namespace tqmtest {
namespace {

// One argument as CommandLineToArgvW and the C runtime read it back.
std::string quoted(const std::string& arg)
{
    if (!arg.empty() && arg.find_first_of(" \t\n\v\"") == std::string::npos)
        return arg;
    std::string out = "\"";
    size_t backslashes = 0;
    for (char c : arg) {
        if (c == '\\') {
            ++backslashes;
            continue;
        }
        out.append(c == '"' ? backslashes * 2 + 1 : backslashes, '\\');
        backslashes = 0;
        out += c;
    }
    out.append(backslashes * 2, '\\');
    return out + "\"";
}

std::string withoutCr(const std::string& text)
{
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        if (!(text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n'))
            out += text[i];
    }
    return out;
}

tqm::UniqueFile openInheritable(const std::string& path, DWORD access, DWORD disposition)
{
    SECURITY_ATTRIBUTES sa = {sizeof(sa), nullptr, TRUE};
    return tqm::UniqueFile(CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &sa, disposition,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

ProgramResult RunProgram(const std::string& program, const std::vector<std::string>& args, const std::string& input)
{
    ProgramResult result;
    // Files rather than pipes: nothing can block however much the child writes.
    TempDir dir;
    WriteBytes(dir.file("in"), input);
    {
        tqm::UniqueFile in = openInheritable(dir.file("in"), GENERIC_READ, OPEN_EXISTING);
        tqm::UniqueFile out = openInheritable(dir.file("out"), GENERIC_WRITE, CREATE_ALWAYS);
        tqm::UniqueFile err = openInheritable(dir.file("err"), GENERIC_WRITE, CREATE_ALWAYS);
        if (!in || !out || !err)
            return result;

        std::string commandLine = quoted(program);
        for (const std::string& arg : args)
            commandLine += " " + quoted(arg);
        STARTUPINFOA si = {};
        si.cb = sizeof(si);
        si.dwFlags = STARTF_USESTDHANDLES;
        si.hStdInput = in.get();
        si.hStdOutput = out.get();
        si.hStdError = err.get();
        PROCESS_INFORMATION pi = {};
        if (!CreateProcessA(program.c_str(), &commandLine[0], nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                            nullptr, &si, &pi))
            return result;
        tqm::UniqueHandle process(pi.hProcess);
        tqm::UniqueHandle thread(pi.hThread);
        WaitForSingleObject(process.get(), INFINITE);
        DWORD code = 0;
        GetExitCodeProcess(process.get(), &code);
        result.exitCode = static_cast<int>(code);
    }
    result.out = withoutCr(ReadBytes(dir.file("out")));
    result.err = withoutCr(ReadBytes(dir.file("err")));
    return result;
}

std::string ProgramFolder()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string folder = path;
    return folder.substr(0, folder.find_last_of('\\'));
}

}  // namespace tqmtest
