// Loading the library's own resource strings.
#include "config/ResourceStrings.h"

#include "diag/MessageBoxHook.h"
#include "framework/ModuleState.h"

#include <stdio.h>

namespace {

// The status the system's fatal application exit ends a process with.
const UINT kFatalAppExitStatus = 0x40000015;

[[noreturn]] void endProcessForMissingString(unsigned short id)
{
    char text[64];
    snprintf(text, sizeof(text), "Fatal error ID#%d", id);
    if (tqm::MessageBoxHookInstalled()) {
        // Nobody would see the system's box (and it would wait for a click):
        // the program's hook gets the text, then the process ends.
        tqm::ShowMessageBox(nullptr, text, "Fatal Application Exit", MB_OK | MB_ICONSTOP | MB_TASKMODAL);
        ::ExitProcess(kFatalAppExitStatus);
    }
    ::FatalAppExitA(0, text);
    ::ExitProcess(kFatalAppExitStatus);  // not reached: the system ends the process
}

// True when the library's string table holds id. LoadStringW with no buffer
// reports the string's length without copying, so a one-character buffer
// (which receives nothing) is not mistaken for a missing string.
bool stringExists(unsigned short id)
{
    const wchar_t* text = nullptr;
    return ::LoadStringW(tqm::LibraryInstance(), id, reinterpret_cast<LPWSTR>(&text), 0) > 0;
}

char g_ring[2][255];
unsigned g_ringCalls = 0;

}  // namespace

char* WINAPI fSString(unsigned short id, char* buf, int size)
{
    if (!stringExists(id))
        endProcessForMissingString(id);
    if (buf && size > 0)
        ::LoadStringA(tqm::LibraryInstance(), id, buf, size);
    return buf;
}

const char* WINAPI _fString(unsigned short id)
{
    g_ringCalls %= 2;
    char* slot = g_ring[g_ringCalls];
    fSString(id, slot, sizeof(g_ring[0]));
    ++g_ringCalls;
    return slot;
}
