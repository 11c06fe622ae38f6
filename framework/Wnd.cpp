// The window object and its subclassing procedure.
#include "framework/Wnd.h"

namespace {

// The window properties that lead from a window to its object, and to the
// procedure that subclassing replaced.
const char kObjectProperty[] = "Tqmlib52.CWnd";
const char kSuperProperty[] = "Tqmlib52.CWnd.Super";

bool isControlColour(UINT message) { return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC; }

bool ownedByThisProcess(HWND hWnd)
{
    DWORD dwProcess = 0;
    ::GetWindowThreadProcessId(hWnd, &dwProcess);
    return dwProcess == ::GetCurrentProcessId();
}

}  // namespace

IMPLEMENT_DYNAMIC(CWnd, CObject)

CWnd::CWnd() : m_hWnd(nullptr), m_pfnSuper(nullptr) {}

CWnd::~CWnd()
{
    if (m_hWnd)
        Detach();
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd)
{
    return hWnd ? static_cast<CWnd*>(::GetPropA(hWnd, kObjectProperty)) : nullptr;
}

BOOL CWnd::Attach(HWND hWnd)
{
    if (m_hWnd || !::IsWindow(hWnd) || FromHandlePermanent(hWnd))
        return FALSE;
    // Another process's window carries no property of ours; the object still
    // stands for it.
    if (ownedByThisProcess(hWnd) && !::SetPropA(hWnd, kObjectProperty, this))
        return FALSE;
    m_hWnd = hWnd;
    return TRUE;
}

HWND CWnd::Detach()
{
    HWND hWnd = m_hWnd;
    if (!hWnd)
        return nullptr;
    if (m_pfnSuper) {
        // Someone who subclassed the window after us holds our procedure as
        // theirs; taking it back would cut them off. Then our procedure stays
        // and passes every message on to the window's own (kSuperProperty).
        if (reinterpret_cast<WNDPROC>(::GetWindowLongPtrA(hWnd, GWLP_WNDPROC)) == subclassProc) {
            ::SetWindowLongPtrA(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
            ::RemovePropA(hWnd, kSuperProperty);
        }
        m_pfnSuper = nullptr;
    }
    if (FromHandlePermanent(hWnd) == this)
        ::RemovePropA(hWnd, kObjectProperty);
    m_hWnd = nullptr;
    return hWnd;
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (m_hWnd || !::IsWindow(hWnd) || !ownedByThisProcess(hWnd) || FromHandlePermanent(hWnd))
        return FALSE;
    if (!::SetPropA(hWnd, kObjectProperty, this))
        return FALSE;
    m_hWnd = hWnd;
    m_pfnSuper = reinterpret_cast<WNDPROC>(::GetWindowLongPtrA(hWnd, GWLP_WNDPROC));
    ::SetPropA(hWnd, kSuperProperty, reinterpret_cast<HANDLE>(m_pfnSuper));
    ::SetWindowLongPtrA(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(subclassProc));
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent)
{
    if (!pParent || !pParent->m_hWnd)
        return FALSE;
    return SubclassWindow(::GetDlgItem(pParent->m_hWnd, static_cast<int>(nID)));
}

BOOL CWnd::DestroyWindow()
{
    if (!m_hWnd)
        return FALSE;
    HWND hWnd = m_hWnd;
    // An attached window sends its last message past the object, so the
    // object lets go itself; a subclassed one lets go in WM_NCDESTROY.
    if (!m_pfnSuper)
        Detach();
    return ::DestroyWindow(hWnd);
}

BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT* pPlacement) const
{
    pPlacement->length = sizeof(WINDOWPLACEMENT);
    return ::GetWindowPlacement(m_hWnd, pPlacement);
}

void CWnd::GetWindowText(CString& text) const
{
    const int nLength = ::GetWindowTextLengthA(m_hWnd);
    char* buffer = text.GetBuffer(nLength + 1);
    const int nCopied = ::GetWindowTextA(m_hWnd, buffer, nLength + 1);
    text.ReleaseBuffer(nCopied);
}

BOOL CWnd::ReflectChildMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (!isControlColour(message))
        return FALSE;
    CWnd* pChild = FromHandlePermanent(reinterpret_cast<HWND>(lParam));
    LRESULT result = 0;
    if (!pChild || !pChild->OnChildNotify(message, wParam, lParam, &result))
        return FALSE;
    if (pResult)
        *pResult = result;
    return TRUE;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (!OnWndMsg(message, wParam, lParam, &result))
        result = DefWindowProc(message, wParam, lParam);
    return result;
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ReflectChildMessage(message, wParam, lParam, pResult);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (m_pfnSuper)
        return ::CallWindowProcA(m_pfnSuper, m_hWnd, message, wParam, lParam);
    return ::DefWindowProcA(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT result = 0;
    if (!OnWndMsg(WM_REFLECT_BASE + message, wParam, lParam, &result) || !result)
        return FALSE;
    *pResult = result;
    return TRUE;
}

void CWnd::PostNcDestroy() {}

LRESULT CALLBACK CWnd::subclassProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* pWnd = FromHandlePermanent(hWnd);
    if (!pWnd || !pWnd->m_pfnSuper) {
        // The object let go while another procedure stood in front of ours.
        auto pfnSuper = reinterpret_cast<WNDPROC>(::GetPropA(hWnd, kSuperProperty));
        if (message == WM_NCDESTROY)
            ::RemovePropA(hWnd, kSuperProperty);
        return pfnSuper ? ::CallWindowProcA(pfnSuper, hWnd, message, wParam, lParam)
                        : ::DefWindowProcA(hWnd, message, wParam, lParam);
    }
    if (message != WM_NCDESTROY)
        return pWnd->WindowProc(message, wParam, lParam);

    const LRESULT result = pWnd->WindowProc(message, wParam, lParam);
    pWnd->Detach();
    pWnd->PostNcDestroy();
    return result;
}
