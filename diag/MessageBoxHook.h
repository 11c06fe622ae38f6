// TQMSetMessageBoxHook - lets a program without a user answer the library's
// message boxes.
//
// Every box the library would show (assertion reports, system errors, debug
// boxes, verification failures) goes to the hook instead when one is set: the
// hook gets the owner, text, caption and style and returns the button a user
// would have pressed (IDOK, IDIGNORE, IDABORT, ...). Without a hook the box is
// shown. The hook is process-wide; set it once at start-up. It is called on
// the thread that reports, and must not throw.
#pragma once

#include <windows.h>

#include "framework/Export.h"

typedef int(CALLBACK* TQMMESSAGEBOXHOOK)(HWND hWndOwner, const char* pszText, const char* pszCaption, UINT uType,
                                         void* pContext);

// Installs pfnHook with its context (NULL removes the hook).
extern "C" TQM_CAPI void WINAPI TQMSetMessageBoxHook(TQMMESSAGEBOXHOOK pfnHook, void* pContext);

// The answer a program without a user gives a box of this style: the one that
// goes on without deciding anything (OK, Ignore, No, Cancel or Continue).
inline int TqmNonInteractiveAnswer(UINT uType)
{
    switch (uType & MB_TYPEMASK) {
    case MB_OKCANCEL:
    case MB_YESNOCANCEL:
    case MB_RETRYCANCEL:
        return IDCANCEL;
    case MB_ABORTRETRYIGNORE:
        return IDIGNORE;
    case MB_YESNO:
        return IDNO;
    case MB_CANCELTRYCONTINUE:
        return IDCONTINUE;
    default:
        return IDOK;
    }
}

#ifdef TQMLIB_BUILD
namespace tqm {
// Shows a message box, or hands it to the hook; returns the button pressed.
int ShowMessageBox(HWND hWndOwner, const char* pszText, const char* pszCaption, UINT uType);
// True when a hook answers the boxes (nobody is there to see a window).
bool MessageBoxHookInstalled();
}  // namespace tqm
#endif
