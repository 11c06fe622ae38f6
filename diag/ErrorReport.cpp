// Error reports: first cut with the boxes only; the trace channel, the other
// report functions and the exact report texts come with the debug output.
#include "diag/ErrorReport.h"

#include "diag/MessageBoxHook.h"
#include "framework/ModuleState.h"
#include "res/StringIds.h"

#include <stdio.h>

int WINAPI SystemError(HWND hWndOwner, WORD nID, const char* pszArg, int nArg)
{
    char format[512] = "";
    char caption[128] = "";
    ::LoadStringA(tqm::LibraryInstance(), nID, format, sizeof(format));
    ::LoadStringA(tqm::LibraryInstance(), IDS_SYSTEM_ERROR_CAPTION, caption, sizeof(caption));
    char text[1024];
    wsprintfA(text, format, pszArg, nArg);
    ::MessageBeep(MB_ICONHAND);
    return tqm::ShowMessageBox(hWndOwner, text, caption, MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL);
}

static bool report(const char* pszMacro, const char* text)
{
    if (strncmp(pszMacro, "TARN", 4) == 0) {
        int answer = tqm::ShowMessageBox(nullptr, text, pszMacro, MB_ABORTRETRYIGNORE | MB_ICONHAND | MB_TASKMODAL);
        if (answer == IDABORT)
            ::ExitProcess(3);
    }
    return false;
}

bool WINAPI TarnDebug(const char* pszMacro, const char* pszExpr, const char* pszFile, int nLine)
{
    char text[640];
    snprintf(text, sizeof(text), "%s failed at line %d in %s:\n %s\n", pszMacro, nLine, pszFile, pszExpr);
    return report(pszMacro, text);
}

bool WINAPI TarnDebug(const char* pszMacro, const char* pszExpr, const char* pszFile, int nLine, DWORD dwError)
{
    char text[640];
    snprintf(text, sizeof(text), "%s failed at line %d in %s:\n%s\nCode: %lx\n", pszMacro, nLine, pszFile, pszExpr,
             dwError);
    return report(pszMacro, text);
}
