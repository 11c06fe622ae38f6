// ExecApp, IsAppRunning, ReadFileLine - starting the suite's programs from
// the applications directory, finding their main windows, asking whether
// they still run, and reading text files line by line through an old-style
// file handle.
#pragma once

#include <windows.h>

#include "framework/Export.h"

// Tqmlib52.h defines the structure too, for C programs: whichever comes
// first does.
#ifndef TQM_EXECAPPINFO_DEFINED
#define TQM_EXECAPPINFO_DEFINED
// What ExecApp found of the program it started. The handles are pointer-
// sized in both builds (32 bits each in the shipped 32-bit one), the ids 32
// bits.
typedef struct tagEXECAPPINFO
{
    HINSTANCE hInstance;  // the main window's instance (its GWLP_HINSTANCE), 0 if none
    HWND hWndMain;        // the program's main window, 0 if none was found
    HANDLE hProcess;      // already closed when ExecApp returns
    HANDLE hThread;       // already closed when ExecApp returns
    DWORD dwProcessId;
    DWORD dwThreadId;
} EXECAPPINFO;
#endif

// Starts pszApp from the applications directory (TQMGetAppsDir) - whatever
// folder the name carries; ".exe" is added to a name without a dot - with
// pszArgs and the show state nShow, waits up to 20 s until it is ready for
// input, and fills pInfo with its main window: the first top-level window of
// its primary thread (COM's and the clipboard's helper windows aside), else
// the first top-level window whose class name contains the program's name
// (case ignored). FALSE when the program could not be started; the wait
// cursor shown meanwhile then stays. hWndParent is not used.
extern "C" TQM_CAPI BOOL WINAPI ExecApp(HWND hWndParent, const char* pszApp, const char* pszArgs, EXECAPPINFO* pInfo,
                                        WORD nShow);

// TRUE while the program ExecApp found still runs: its main window exists
// and its process has not ended. Without a main window it asks the process
// handle, which ExecApp has closed, so the answer is then normally FALSE.
// Deliberately beyond the suite's old rule, the main window's process is
// opened for limited query access only, and that handle is closed again: a
// program of another user or with higher rights counts as running, and no
// handle leaks.
extern "C" TQM_CAPI BOOL WINAPI IsAppRunning(EXECAPPINFO* pInfo);

// Reads the next line (up to a line feed) of the file into pszLine, carriage
// returns removed, at most nSize - 1 bytes. A longer line comes in pieces and
// one byte between two pieces is lost (deliberate: callers size their buffers
// for their files). FALSE at the end of the file or on an error. hFile is
// widened to a handle with its sign, as the system's handles are.
extern "C" TQM_CAPI BOOL WINAPI ReadFileLine(HFILE hFile, char* pszLine, UINT nSize);
