// Sending trace texts.
#include "diag/TraceChannel.h"

#include "diag/DebugOutput.h"
#include "diag/ProgramWindow.h"

bool tqm::SendTrace(TraceReceiver receiver, const char* text, int count)
{
    bool toViewer = receiver == TraceReceiver::Viewer;
    HWND hWnd = ::FindWindowA(toViewer ? TARN_TRACE_WINDOW_CLASS : TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr);
    if (!hWnd)
        return false;
    COPYDATASTRUCT data;
    data.dwData = toViewer ? TARN_TRACE_TAG_VIEWER : TARN_TRACE_TAG_PROJECT_MANAGER;
    data.cbData = count > 0 ? static_cast<DWORD>(count) : 0;
    data.lpData = const_cast<char*>(text);
    // Sent, not posted: the receiver copies the text before the call returns,
    // so the caller's buffer may go away at once. A receiver that hangs holds
    // the caller up; the suite has always accepted that for its trace viewer.
    ::SendMessageA(hWnd, WM_COPYDATA, reinterpret_cast<WPARAM>(ProgramMainWindow()),
                   reinterpret_cast<LPARAM>(&data));
    return true;
}
