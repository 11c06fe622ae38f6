// System-error and system-information boxes, the last system error, and the
// numbered error boxes of the library's string table.
//
// Every box is preceded by the system's hand beep. The library is the
// resource source while its own strings are loaded, and the caller's source
// is back before the function returns.
#include "diag/ErrorReport.h"

#include "config/ResourceStrings.h"
#include "diag/MessageBoxHook.h"
#include "diag/ProgramWindow.h"
#include "diag/logic/FixedText.h"
#include "framework/Handles.h"
#include "framework/ModuleState.h"
#include "res/StringIds.h"

#include <shlwapi.h>
#include <stdio.h>

namespace {

// Box texts of SystemError and SystemInfo hold this many characters.
const int kBoxTextSize = 1024;
// Message and caption texts from the string table.
const int kMessageSize = 512;
// DllError's text buffer, as the suite's programs have always had it.
const int kDllErrorCapacity = 300;

// A message of the library's table formatted with the system's routine
// (wsprintf rules), cut to the buffer.
void formatLibraryMessage(WORD nID, char* text, int size, ...)
{
    char format[kMessageSize];
    fSString(nID, format, sizeof(format));
    va_list args;
    va_start(args, size);
    ::wvnsprintfA(text, size, format, args);
    va_end(args);
    text[size - 1] = '\0';
}

}  // namespace

int WINAPI SystemError(HWND hWndOwner, WORD nID, const char* pszArg, int nArg)
{
    char text[kBoxTextSize + 1];
    char caption[kMessageSize];
    {
        tqm::LibraryResourceScope libraryStrings;
        formatLibraryMessage(nID, text, sizeof(text), pszArg, nArg);
        fSString(IDS_SYSTEM_ERROR_CAPTION, caption, sizeof(caption));
    }
    ::MessageBeep(MB_ICONHAND);
    return tqm::ShowMessageBox(hWndOwner, text, caption, MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL);
}

int WINAPI SystemInfo(HWND hWndOwner, WORD nID, DWORD dwArg, int nArg)
{
    char text[kBoxTextSize + 1];
    char caption[kMessageSize];
    {
        tqm::LibraryResourceScope libraryStrings;
        formatLibraryMessage(nID, text, sizeof(text), dwArg, nArg);
        fSString(IDS_SYSTEM_INFO_CAPTION, caption, sizeof(caption));
    }
    ::MessageBeep(MB_ICONHAND);
    return tqm::ShowMessageBox(hWndOwner, text, caption, MB_OK | MB_ICONINFORMATION);
}

void WINAPI LastError(HWND hWndOwner)
{
    DWORD dwError = ::GetLastError();  // before anything else can change it
    tqm::UniqueLocalMemory systemText;
    char* pszText = nullptr;
    DWORD n = ::FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                                   FORMAT_MESSAGE_IGNORE_INSERTS,
                               nullptr, dwError, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                               reinterpret_cast<char*>(&pszText), 0, nullptr);
    systemText.reset(pszText);
    char caption[kMessageSize];
    {
        tqm::LibraryResourceScope libraryStrings;
        fSString(IDS_SYSTEM_ERROR_CAPTION, caption, sizeof(caption));
    }
    ::MessageBeep(MB_ICONHAND);
    tqm::ShowMessageBox(hWndOwner, n && pszText ? pszText : "Unknown Error", caption,
                        MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL);
}

void __cdecl DllError(UINT nID, ...)
{
    tqm::LibraryResourceScope libraryStrings;
    char frame[kMessageSize];
    char message[kMessageSize];
    fSString(IDS_DLL_ERROR_FRAME, frame, sizeof(frame));
    fSString(static_cast<unsigned short>(nID), message, sizeof(message));
    // "Error %d: %s" filled with the number and the message, so that the
    // message's own placeholders become the format for the caller's arguments.
    char format[2 * kMessageSize];
    ::wnsprintfA(format, sizeof(format), frame, nID, message);

    tqm::FixedText<kDllErrorCapacity> text;
    va_list args;
    va_start(args, nID);
    text.appendFormatV(format, args);
    va_end(args);

    // A sender on another thread waits for our answer; let it go before the
    // box, which may stay up for a long time.
    if (::InSendMessage())
        ::ReplyMessage(0);
    ::MessageBeep(MB_ICONHAND);
    tqm::ShowProgramMessageBox(text.c_str(), MB_OK);
}
