// The process-wide message-box hook.
#include "diag/MessageBoxHook.h"

namespace {

struct Hook
{
    TQMMESSAGEBOXHOOK pfn = nullptr;
    void* pContext = nullptr;
};

SRWLOCK g_lock = SRWLOCK_INIT;
Hook g_hook;

Hook currentHook()
{
    AcquireSRWLockShared(&g_lock);
    Hook hook = g_hook;
    ReleaseSRWLockShared(&g_lock);
    return hook;
}

}  // namespace

void WINAPI TQMSetMessageBoxHook(TQMMESSAGEBOXHOOK pfnHook, void* pContext)
{
    AcquireSRWLockExclusive(&g_lock);
    g_hook.pfn = pfnHook;
    g_hook.pContext = pfnHook ? pContext : nullptr;
    ReleaseSRWLockExclusive(&g_lock);
}

bool tqm::MessageBoxHookInstalled() { return currentHook().pfn != nullptr; }

int tqm::ShowMessageBox(HWND hWndOwner, const char* pszText, const char* pszCaption, UINT uType)
{
    Hook hook = currentHook();
    if (hook.pfn)
        return hook.pfn(hWndOwner, pszText ? pszText : "", pszCaption ? pszCaption : "", uType, hook.pContext);
    return ::MessageBoxA(hWndOwner, pszText, pszCaption, uType);
}
