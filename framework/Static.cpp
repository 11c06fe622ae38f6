// The static control.
#include "framework/Static.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)

BOOL CStatic::Create(const char* pszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    if (m_hWnd || !pParentWnd || !pParentWnd->m_hWnd)
        return FALSE;
    HWND hWnd = ::CreateWindowExA(0, "STATIC", pszText, dwStyle | WS_CHILD, rect.left, rect.top,
                                  rect.right - rect.left, rect.bottom - rect.top, pParentWnd->m_hWnd,
                                  reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)),
                                  reinterpret_cast<HINSTANCE>(::GetWindowLongPtrA(pParentWnd->m_hWnd, GWLP_HINSTANCE)),
                                  nullptr);
    if (!hWnd)
        return FALSE;
    if (!SubclassWindow(hWnd)) {
        ::DestroyWindow(hWnd);
        return FALSE;
    }
    return TRUE;
}
