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
#include "diag/SystemMessage.h"
#include "diag/logic/FixedText.h"
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

// The box of SystemError and SystemInfo: message nID of the library's table
// formatted with the system's routine (wsprintf rules, cut to the buffer)
// under caption captionID.
template <typename Arg>
int showLibraryMessage(HWND hWndOwner, WORD nID, WORD captionID, UINT type, Arg arg, int nArg)
{
    char text[kBoxTextSize + 1];
    char caption[kMessageSize];
    {
        tqm::LibraryResourceScope libraryStrings;
        char format[kMessageSize];
        fSString(nID, format, sizeof(format));
        ::wnsprintfA(text, sizeof(text), format, arg, nArg);
        text[kBoxTextSize] = '\0';
        fSString(captionID, caption, sizeof(caption));
    }
    ::MessageBeep(MB_ICONHAND);
    return tqm::ShowMessageBox(hWndOwner, text, caption, type);
}

}  // namespace

int WINAPI SystemError(HWND hWndOwner, WORD nID, const char* pszArg, int nArg)
{
    return showLibraryMessage(hWndOwner, nID, IDS_SYSTEM_ERROR_CAPTION, MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL,
                              pszArg, nArg);
}

int WINAPI SystemInfo(HWND hWndOwner, WORD nID, DWORD dwArg, int nArg)
{
    return showLibraryMessage(hWndOwner, nID, IDS_SYSTEM_INFO_CAPTION, MB_OK | MB_ICONINFORMATION, dwArg, nArg);
}

void WINAPI LastError(HWND hWndOwner)
{
    tqm::SystemMessage message(::GetLastError());  // before anything else can change it
    char caption[kMessageSize];
    {
        tqm::LibraryResourceScope libraryStrings;
        fSString(IDS_SYSTEM_ERROR_CAPTION, caption, sizeof(caption));
    }
    ::MessageBeep(MB_ICONHAND);
    tqm::ShowMessageBox(hWndOwner, message.text() ? message.text() : "Unknown Error", caption,
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
