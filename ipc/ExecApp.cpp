// Starting the suite's programs and watching them.
#include "ipc/Processes.h"

#include "diag/TarnAssert.h"
#include "framework/CString.h"
#include "framework/Handles.h"
#include "paths/InstallDirs.h"

#include <string.h>

#include <vector>

namespace {

// The longest program name ExecApp takes from its caller.
constexpr size_t kMaxTitle = 512;

// The program's file name, upper-cased, without its folder; ".exe" added
// when it has no dot.
CString programTitle(const char* app)
{
    const char* title = app;
    for (const char* p = app; *p; ++p) {
        if (*p == '\\' || *p == '/' || *p == ':')
            title = p + 1;
    }
    CString upper(title, static_cast<int>(strnlen(title, kMaxTitle)));
    upper.MakeUpper();
    if (upper.Find('.') < 0)
        upper += ".exe";
    return upper;
}

// The part of path after its last backslash and before that part's last dot.
CString baseName(const CString& path)
{
    CString name = path.Mid(path.ReverseFind('\\') + 1);
    int dot = name.ReverseFind('.');
    return dot < 0 ? name : name.Left(dot);
}

// Windows that every thread using COM or the clipboard gets; never a
// program's main window.
bool isHelperWindow(HWND hWnd)
{
    char className[256] = "";
    ::GetClassNameA(hWnd, className, sizeof(className));
    return strstr(className, "CLIPBRDWNDCLASS") || strstr(className, "OleDdeWndClass") ||
           strstr(className, "OleMainThreadWndClass");
}

struct ThreadSearch
{
    DWORD processId;
    DWORD threadId;
    HWND found;
};

BOOL CALLBACK takeThreadMainWindow(HWND hWnd, LPARAM lParam)
{
    auto& search = *reinterpret_cast<ThreadSearch*>(lParam);
    DWORD processId = 0;
    if (::GetWindowThreadProcessId(hWnd, &processId) != search.threadId || processId != search.processId ||
        ::GetParent(hWnd) || isHelperWindow(hWnd))
        return TRUE;
    search.found = hWnd;
    return FALSE;
}

struct ClassSearch
{
    const char* name;  // upper case
    HWND found;
};

BOOL CALLBACK takeWindowOfClass(HWND hWnd, LPARAM lParam)
{
    auto& search = *reinterpret_cast<ClassSearch*>(lParam);
    char className[256] = "";
    ::GetClassNameA(hWnd, className, sizeof(className));
    ::CharUpperA(className);
    if (!strstr(className, search.name))
        return TRUE;
    search.found = hWnd;
    return FALSE;
}

// The started program's main window: a window of its primary thread, or
// else, for programs that make their windows on another thread, the first
// top-level window whose class carries the program's name.
HWND findMainWindow(const PROCESS_INFORMATION& process, const CString& path)
{
    ThreadSearch byThread{process.dwProcessId, process.dwThreadId, nullptr};
    ::EnumThreadWindows(process.dwThreadId, takeThreadMainWindow, reinterpret_cast<LPARAM>(&byThread));
    if (byThread.found)
        return byThread.found;
    CString name = baseName(path);
    name.MakeUpper();
    ClassSearch byClass{name.GetString(), nullptr};
    ::EnumWindows(takeWindowOfClass, reinterpret_cast<LPARAM>(&byClass));
    return byClass.found;
}

}  // namespace

BOOL WINAPI ExecApp(HWND, const char* pszApp, const char* pszArgs, EXECAPPINFO* pInfo, WORD nShow)
{
    TARN_ASSERT(pszApp != nullptr);
    if (!pszApp)
        return FALSE;
    CString path = TQMGetAppsDir() + "\\" + programTitle(pszApp);
    CString commandLine;
    commandLine.Format(path[0] != '"' ? "\"%s\" %s" : "%s %s", path.GetString(), pszArgs ? pszArgs : "");
    std::vector<char> writable(commandLine.GetString(), commandLine.GetString() + commandLine.GetLength() + 1);

    HCURSOR previous = ::SetCursor(::LoadCursor(nullptr, IDC_WAIT));
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = nShow;
    PROCESS_INFORMATION process = {};
    // On failure the wait cursor stays: deliberate, as the suite has it.
    if (!::CreateProcessA(nullptr, writable.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
        return FALSE;
    tqm::UniqueHandle processHandle(process.hProcess);
    tqm::UniqueHandle threadHandle(process.hThread);
    ::WaitForInputIdle(process.hProcess, 20000);
    ::SetCursor(previous);

    HWND hWndMain = findMainWindow(process, path);
    TARN_ASSERT(pInfo != nullptr);
    if (pInfo) {
        pInfo->hWndMain = hWndMain;
        pInfo->hInstance =
            hWndMain ? reinterpret_cast<HINSTANCE>(::GetWindowLongPtrA(hWndMain, GWLP_HINSTANCE)) : nullptr;
        pInfo->hProcess = process.hProcess;
        pInfo->hThread = process.hThread;
        pInfo->dwProcessId = process.dwProcessId;
        pInfo->dwThreadId = process.dwThreadId;
    }
    return TRUE;
}

BOOL WINAPI IsAppRunning(EXECAPPINFO* pInfo)
{
    if (!pInfo)
        return FALSE;
    tqm::UniqueHandle opened;
    HANDLE process = nullptr;
    if (pInfo->hWndMain) {
        if (!::IsWindow(pInfo->hWndMain))
            return FALSE;
        DWORD processId = 0;
        ::GetWindowThreadProcessId(pInfo->hWndMain, &processId);
        // Reading the exit code needs only this right; all access would fail
        // for a program that runs elevated.
        opened.reset(::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
        process = opened.get();
    } else {
        // The handle ExecApp closed: deliberate, the suite asks it all the same.
        process = pInfo->hProcess;
    }
    DWORD exitCode = 0;
    return process && ::GetExitCodeProcess(process, &exitCode) && exitCode == STILL_ACTIVE;
}
