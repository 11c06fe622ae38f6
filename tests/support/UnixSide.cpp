#include "support/UnixSide.h"

#include "support/TempDir.h"

#include <windows.h>

#include <stdio.h>

#include <vector>

namespace tqmtest {
namespace {

using UnixFileName = char*(CDECL*)(LPCWSTR);
using DosFileName = WCHAR*(CDECL*)(LPCSTR);

template <typename Function>
Function wineFunction(const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32"), name)));
}

std::wstring wide(const std::string& text)
{
    std::wstring result(text.size() + 1, L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, &result[0], static_cast<int>(result.size()));
    result.resize(length > 0 ? length - 1 : 0);
    return result;
}

// The Windows name of a Unix path, as a wide string; empty outside Wine.
std::wstring dosPathOf(const std::string& unixPath)
{
    const auto dosName = wineFunction<DosFileName>("wine_get_dos_file_name");
    WCHAR* name = dosName ? dosName(unixPath.c_str()) : nullptr;
    if (!name)
        return std::wstring();
    std::wstring result(name);
    HeapFree(GetProcessHeap(), 0, name);
    return result;
}

// Starts a Unix program with its arguments (each quoted); Wine runs it as a
// Unix process, of which the caller gets no handle: the caller watches for
// its effect instead.
bool startUnixProgram(const std::string& program, const std::vector<std::string>& arguments)
{
    const std::wstring dosProgram = dosPathOf(program);
    if (dosProgram.empty())
        return false;
    std::wstring commandLine = L"\"" + wide(program) + L"\"";
    for (const std::string& argument : arguments)
        commandLine += L" \"" + wide(argument) + L"\"";
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(dosProgram.c_str(), &commandLine[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process))
        return false;
    if (process.hThread)
        CloseHandle(process.hThread);
    if (process.hProcess)
        CloseHandle(process.hProcess);
    return true;
}

// Waits up to five seconds until the path exists (or, with exists false, is gone).
bool waitForPath(const std::string& path, bool exists)
{
    for (int i = 0; i < 250; ++i) {
        if ((GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES) == exists)
            return true;
        Sleep(20);
    }
    return false;
}

}  // namespace

std::string UnixPathOf(const std::string& windowsPath)
{
    const auto unixName = wineFunction<UnixFileName>("wine_get_unix_file_name");
    char* name = unixName ? unixName(wide(windowsPath).c_str()) : nullptr;
    if (!name)
        return std::string();
    std::string result(name);
    HeapFree(GetProcessHeap(), 0, name);
    return result;
}

FolderLink::FolderLink(const std::string& linkPath, const std::string& target) : m_linkPath(linkPath)
{
    m_unixLink = UnixPathOf(linkPath);
    const std::string unixTarget = UnixPathOf(target);
    if (m_unixLink.empty() || unixTarget.empty()) {
        m_why = "not running under Wine: no Unix paths";
        return;
    }
    if (!startUnixProgram("/bin/ln", {"-s", unixTarget, m_unixLink})) {
        m_why = "Wine did not start /bin/ln";
        return;
    }
    m_made = waitForPath(linkPath, true);
    if (!m_made)
        m_why = "/bin/ln made no link at " + m_unixLink;
}

FolderLink::~FolderLink()
{
    if (m_made && startUnixProgram("/bin/rm", {"-f", m_unixLink}))
        waitForPath(m_linkPath, false);
}

UncShare::UncShare()
{
    // The prefix's device folder holds the drive "c:" and the "unc" tree.
    std::string devices = UnixPathOf("C:\\");
    while (!devices.empty() && devices.back() == '/')
        devices.pop_back();
    const size_t slash = devices.rfind('/');
    if (devices.empty() || slash == std::string::npos)
        return;
    devices.erase(slash);
    static unsigned s_counter = 0;
    char share[64];
    snprintf(share, sizeof(share), "s%lu-%u", GetCurrentProcessId(), ++s_counter);
    std::string unixFolder = devices;
    for (const char* part : {"unc", "tqmtest", static_cast<const char*>(share)}) {
        unixFolder += std::string("/") + part;
        const std::wstring dosFolder = dosPathOf(unixFolder);
        if (dosFolder.empty())
            return;
        CreateDirectoryW(dosFolder.c_str(), nullptr);
    }
    m_path = std::string("\\\\tqmtest\\") + share;
    const DWORD attributes = GetFileAttributesA(m_path.c_str());
    m_made = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

UncShare::~UncShare()
{
    if (m_made)
        RemoveTree(m_path);
}

}  // namespace tqmtest
