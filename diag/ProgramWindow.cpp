// The program's main window and title.
#include "diag/ProgramWindow.h"

#include "diag/MessageBoxHook.h"
#include "diag/logic/ReportText.h"

namespace {

BOOL CALLBACK takeFirstMainWindow(HWND hWnd, LPARAM lParam)
{
    DWORD pid = 0;
    ::GetWindowThreadProcessId(hWnd, &pid);
    if (pid != ::GetCurrentProcessId() || !::IsWindowVisible(hWnd) || ::GetWindow(hWnd, GW_OWNER))
        return TRUE;
    *reinterpret_cast<HWND*>(lParam) = hWnd;
    return FALSE;
}

}  // namespace

// The library keeps no record of a program's main window (it has no part in
// making it), so it looks: the first visible, unowned top-level window of the
// process in the system's order. Hidden helper windows, such as an in-process
// trace viewer, never count.
HWND tqm::ProgramMainWindow()
{
    HWND found = nullptr;
    ::EnumWindows(takeFirstMainWindow, reinterpret_cast<LPARAM>(&found));
    return found;
}

void tqm::ProgramTitle(char* out, size_t size)
{
    char path[MAX_PATH] = "";
    ::GetModuleFileNameA(nullptr, path, MAX_PATH);
    SourceNameOf(path, out, size);
}

int tqm::ShowProgramMessageBox(const char* text, UINT type)
{
    char title[MAX_PATH];
    ProgramTitle(title, sizeof(title));
    return ShowMessageBox(ProgramMainWindow(), text, title, type);
}
