// TQMDisplayLibraryHelp: the library's help file in the viewer its kind needs.
#include "libcatalog/LibraryLanguages.h"

#include "diag/MessageBoxHook.h"
#include "framework/Handles.h"
#include "libcatalog/logic/LibraryMembers.h"

#include <htmlhelp.h>
#include <shellapi.h>
#include <stdio.h>
#include <string.h>

namespace {

constexpr const char* kCaption = "Library Help";

// A box with the error icon under the caption "Library Help", text formatted
// with one string.
void showProblem(HWND owner, const char* format, const char* argument)
{
    char text[2 * MAX_PATH + 64];
    snprintf(text, sizeof(text), format, argument);
    ::MessageBeep(MB_ICONHAND);
    tqm::ShowMessageBox(owner, text, kCaption, MB_ICONERROR);
}

// Shows the wait cursor while it lives.
class WaitCursor
{
public:
    WaitCursor() : m_previous(SetCursor(LoadCursor(nullptr, IDC_WAIT))) {}
    ~WaitCursor() { SetCursor(m_previous); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    HCURSOR m_previous;
};

using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);

// HTML Help lives in hhctrl.ocx, which no import library offers: it is loaded
// on first use and then kept, since its viewer windows run on the caller's
// thread and need its code as long as they are open.
HtmlHelpFunction htmlHelp()
{
    static HtmlHelpFunction s_function = [] {
        HMODULE module = LoadLibraryA("hhctrl.ocx");
        return module ? reinterpret_cast<HtmlHelpFunction>(
                            reinterpret_cast<void*>(GetProcAddress(module, "HtmlHelpA")))
                      : nullptr;
    }();
    return s_function;
}

bool showWinHelp(HWND owner, const char* path, const char* keyword)
{
    const bool withKeyword = keyword && *keyword;
    return WinHelpA(owner, path, withKeyword ? HELP_KEY : HELP_FINDER,
                    reinterpret_cast<ULONG_PTR>(withKeyword ? keyword : nullptr)) != FALSE;
}

// HTML Help reports nothing useful back, so the help counts as shown
// whatever came of it, even where HTML Help itself cannot be loaded.
bool showHtmlHelp(const char* path, const char* keyword)
{
    const HtmlHelpFunction function = htmlHelp();
    if (!function)
        return true;
    if (keyword && *keyword) {
        HH_AKLINK link = {};
        link.cbStruct = sizeof(link);
        link.pszKeywords = keyword;
        link.fIndexOnFail = TRUE;  // the index, where the keyword is not found
        function(GetDesktopWindow(), path, HH_KEYWORD_LOOKUP, reinterpret_cast<DWORD_PTR>(&link));
    } else {
        function(GetDesktopWindow(), path, HH_DISPLAY_TOC, 0);
    }
    return true;
}

// The associated program; where the shell knows none, the shell's choice of
// program, whose outcome is the user's business.
bool showWithShell(HWND owner, const char* path)
{
    const INT_PTR result = reinterpret_cast<INT_PTR>(ShellExecuteA(owner, "Open", path, nullptr, nullptr, SW_SHOWNORMAL));
    if (result > 32)
        return true;
    if (result != SE_ERR_NOASSOC)
        return false;
    char parameters[MAX_PATH + 64];
    snprintf(parameters, sizeof(parameters), "shell32.dll,OpenAs_RunDLL %s", path);
    char windowsDir[MAX_PATH] = "";
    GetWindowsDirectoryA(windowsDir, MAX_PATH);
    ShellExecuteA(owner, "Open", "RUNDLL32.exe", parameters, windowsDir, SW_SHOWNORMAL);
    return true;
}

}  // namespace

BOOL WINAPI TQMDisplayLibraryHelp(HWND owner, const char* descriptionFile, const char* keyword)
{
    char path[MAX_PATH];
    if (!TQMGetLibHelpFilePath(descriptionFile, path)) {
        showProblem(owner, "Help file name not defined in TARNLIN file:\n%s", descriptionFile ? descriptionFile : "");
        return FALSE;
    }
    if (!strchr(path, '.'))
        return FALSE;
    if (GetFileAttributesA(path) == INVALID_FILE_ATTRIBUTES) {
        showProblem(owner, "Help file not found:\n%s", path);
        return FALSE;
    }

    bool shown;
    {
        WaitCursor wait;
        if (tqm::HasExtension(path, ".hlp"))
            shown = showWinHelp(owner, path, keyword);
        else if (tqm::HasExtension(path, ".chm"))
            shown = showHtmlHelp(path, keyword);
        else
            shown = showWithShell(owner, path);
    }
    if (!shown)
        showProblem(owner, "Failed to display help file:\n%s", path);
    return shown ? TRUE : FALSE;
}
