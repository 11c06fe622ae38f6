// TarnMessageBox, TarnHexDump, TarnVerbose - developer-facing output: boxes,
// and lines for the trace viewer (window class "MfxTraceWindow") or the
// project manager's window.
//
// Trace lines travel as WM_COPYDATA messages, sent (the call waits until the
// receiver has taken the text) to the first top-level window of the
// receiver's class. wParam is the sending program's main window (0 when it
// has none); the data tag says which kind of receiver it was meant for; the
// data is the text without a terminator. Without a receiver the text is
// dropped and the functions return false.
#pragma once

#include <windows.h>

#include "framework/Export.h"

// The receivers' window classes. The suite's programs find the project
// manager's main window by its class for everything they tell it (trace
// lines, notifications, desktop docking).
#define TARN_TRACE_WINDOW_CLASS "MfxTraceWindow"
#define TARN_PROJECT_MANAGER_WINDOW_CLASS "Tarn52:VmxWClass"

// The data tags of the copy-data messages: the four ASCII bytes "twin" (trace
// viewer) and "tarn" (project manager) in memory order.
#define TARN_TRACE_TAG_VIEWER 0x6E697774UL
#define TARN_TRACE_TAG_PROJECT_MANAGER 0x6E726174UL

// Verbose flags: severity (top four bits) and destination (next four).
#define TARN_VERBOSE_ERROR 0x10000000     // prefix "Error: "
#define TARN_VERBOSE_WARNING 0x20000000   // prefix "Warning: "
#define TARN_VERBOSE_TO_VMX 0x01000000    // to the project manager, no thread number
#define TARN_VERBOSE_NO_THREAD 0x02000000 // to the trace viewer, no thread number
// Destination 0 sends to the trace viewer with the thread number ("1234: ").

// Formats at most 1024 characters and shows them in a box with OK.
extern "C" TQM_CAPI void __cdecl TarnMessageBox(const char* pszFormat, ...);
// The same with the format from the program's resources (AfxGetResourceHandle).
TQM_CPPAPI void __cdecl TarnMessageBox(UINT nFormatID, ...);

// Sends the bytes to the trace viewer as hex dump lines of 16 bytes; true
// when every line arrived (and for a length of 0 or less, which sends nothing).
extern "C" TQM_CAPI bool WINAPI TarnHexDump(const BYTE* pData, int nLength);

// Sends one formatted line (at most 640 characters, prefix included, with a
// line feed added when it has none and there is room) to its receiver; true
// when it arrived.
extern "C" TQM_CAPI bool __cdecl TarnVerbose(int nFlags, const char* pszFormat, ...);
// The same with the format from the program's resources; no line feed is added.
TQM_CPPAPI bool __cdecl TarnVerbose(int nFlags, UINT nFormatID, ...);
