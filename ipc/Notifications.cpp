// Notifications and message lines for the project manager.
#include "ipc/Notifications.h"

#include "diag/TarnAssert.h"
#include "ipc/Molecules.h"
#include "ipc/logic/MessageLevel.h"

#include <string.h>

namespace {

HWND findProjectManager() { return ::FindWindowA(TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr); }

// Registered on first use; a race only registers the same name twice, which
// gives the same number.
UINT notifyFileSavedMessage()
{
    static const UINT s_message = ::RegisterWindowMessageA(TARN_MSG_NOTIFY_FILE_SAVED);
    return s_message;
}

}  // namespace

BOOL WINAPI TQMNotifyFileSaved(const char* filePath, const char* info)
{
    TARN_ASSERT(filePath != nullptr);
    HWND hWnd = findProjectManager();
    if (!hWnd)
        return FALSE;
    const UINT message = notifyFileSavedMessage();
    ATOM path = ::GlobalAddAtomA(filePath ? filePath : "");
    ATOM text = GlobalAddMolecule(info ? info : "");
    // Nobody else would ever delete the two when the post fails (the window
    // closed meanwhile), so they go again here. The result stays TRUE: the
    // project manager was there.
    if (!::PostMessageA(hWnd, message, text, path)) {
        if (path)
            ::GlobalDeleteAtom(path);
        if (text)
            GlobalDeleteMolecule(text);
    }
    return TRUE;
}

BOOL WINAPI TQMDisplayMessage(const char* text, int level)
{
    TARN_ASSERT(text != nullptr);
    HWND hWnd = findProjectManager();
    if (!hWnd)
        return FALSE;
    if (!text)
        text = "";
    COPYDATASTRUCT data;
    data.dwData = tqm::DisplayMessageWord(tqm::DisplayMessageLevel(text, level));
    data.cbData = static_cast<DWORD>(strlen(text) + 1);
    data.lpData = const_cast<char*>(text);
    ::SendMessageA(hWnd, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    return TRUE;
}

void WINAPI TQMTRACE(const char*) {}
