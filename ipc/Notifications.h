// TQMNotifyFileSaved, TQMDisplayMessage, TQMTRACE - what the suite's editors
// and tools tell the project manager.
//
// Both go to the project manager's main window, the first top-level window of
// class "Tarn52:VmxWClass" (TARN_PROJECT_MANAGER_WINDOW_CLASS); without it
// they return FALSE and leave nothing behind.
//
// A saved file: the registered message "Tarn52.NotifyFileSaved" is posted with
// a global molecule of the info text as wParam (ipc/Molecules.h) and a global
// atom of the path as lParam. The receiver reads both and deletes them.
//
// A message line: WM_COPYDATA, sent without a sender window, with the data
// word 0xAAAA0000 plus the level (ipc/logic/MessageLevel.h) and the text with
// its terminating zero.
#pragma once

#include <windows.h>

#include "diag/DebugOutput.h"
#include "framework/Export.h"

#define TARN_MSG_NOTIFY_FILE_SAVED "Tarn52.NotifyFileSaved"

// The levels of message lines; other values pass through to the receiver.
#define TARN_MESSAGE_WARNING 1
#define TARN_MESSAGE_ERROR 2

// Tells the project manager that filePath (at most 255 characters) was
// saved, with an info text of up to 6629 characters. TRUE when the project
// manager runs.
extern "C" TQM_CAPI BOOL WINAPI TQMNotifyFileSaved(const char* filePath, const char* info);

// Shows text in the project manager's message window and returns when it has
// taken it. A level of 0 or less is derived from the text: "Error " or
// "Fatal " at its start (case ignored) make it an error, "Warning" a warning.
// TRUE when the project manager runs.
extern "C" TQM_CAPI BOOL WINAPI TQMDisplayMessage(const char* text, int level);

// Does nothing: kept so that programs built for tracing link unchanged.
extern "C" TQM_CAPI void WINAPI TQMTRACE(const char* text);
