// The static link control.
#include "ui/StaticLink.h"

#include "diag/ErrorReport.h"
#include "framework/Handles.h"

IMPLEMENT_DYNAMIC(CStaticLink, CStatic)

COLORREF CStaticLink::g_colorUnvisited = RGB(0, 0, 255);
COLORREF CStaticLink::g_colorVisited = RGB(128, 0, 128);
HCURSOR CStaticLink::g_hCursorLink = nullptr;

namespace {

bool g_bCursorLoadTried = false;

// The hand cursor of the system's old help program (cursor 106 of
// winhlp32.exe in the Windows folder), copied so that it outlives the
// module; else the system's own hand. NULL when neither is there.
HCURSOR loadHandCursor()
{
    char path[MAX_PATH + 16] = "";
    const UINT nLength = ::GetWindowsDirectoryA(path, MAX_PATH);
    if (nLength > 0 && nLength < MAX_PATH) {
        lstrcatA(path, "\\winhlp32.exe");
        tqm::UniqueLibrary module(::LoadLibraryExA(path, nullptr, LOAD_LIBRARY_AS_DATAFILE));
        if (module) {
            if (HCURSOR hCursor = ::LoadCursorA(module.get(), MAKEINTRESOURCEA(106)))
                return static_cast<HCURSOR>(::CopyIcon(hCursor));
        }
    }
    return ::LoadCursorA(nullptr, IDC_HAND);
}

}  // namespace

CStaticLink::CStaticLink(const char* pszLink, BOOL bDeleteOnDestroy)
    : m_link(pszLink), m_color(g_colorUnvisited), m_bDeleteOnDestroy(bDeleteOnDestroy)
{
}

HBRUSH CStaticLink::CtlColor(CDC* pDC, UINT nCtlColor)
{
    // The report carries the place the suite's support staff know it by.
    if (nCtlColor != CTLCOLOR_STATIC)
        TarnDebug("TARN_ASSERT", "nCtlColor == CTLCOLOR_STATIC", "StatLink", 75);

    // Left, centred or right-aligned text; icons and bitmaps draw as usual.
    if ((GetStyle() & 0xFF) >= SS_ICON)
        return nullptr;

    if (!m_font.GetSafeHandle()) {
        auto hFont = reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
        if (!hFont)
            hFont = static_cast<HFONT>(::GetStockObject(SYSTEM_FONT));
        LOGFONTA logFont = {};
        ::GetObjectA(hFont, sizeof(logFont), &logFont);
        logFont.lfUnderline = TRUE;
        m_font.CreateFontIndirect(&logFont);
    }
    if (m_font.GetSafeHandle())
        pDC->SelectObject(&m_font);
    pDC->SetTextColor(m_color);
    pDC->SetBkMode(TRANSPARENT);
    return static_cast<HBRUSH>(::GetStockObject(HOLLOW_BRUSH));
}

LRESULT CStaticLink::OnNcHitTest(CPoint) { return HTCLIENT; }

void CStaticLink::OnLButtonDown(UINT, CPoint)
{
    if (CString(m_link).IsEmpty()) {
        CString text;
        GetWindowText(text);
        m_link = text;
        if (text.IsEmpty())
            return;
    }
    if (reinterpret_cast<INT_PTR>(m_link.Navigate()) > 32) {
        m_color = g_colorVisited;
        Invalidate();
    } else {
        ::MessageBeep(MB_ICONHAND);
    }
}

BOOL CStaticLink::OnSetCursor(CWnd*, UINT, UINT)
{
    if (!g_bCursorLoadTried) {
        g_bCursorLoadTried = true;
        g_hCursorLink = loadHandCursor();
    }
    if (!g_hCursorLink)
        return FALSE;
    ::SetCursor(g_hCursorLink);
    return TRUE;
}

BOOL CStaticLink::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message >= WM_REFLECT_BASE + WM_CTLCOLORMSGBOX && message <= WM_REFLECT_BASE + WM_CTLCOLORSTATIC) {
        CDC dc(reinterpret_cast<HDC>(wParam));
        *pResult = reinterpret_cast<LRESULT>(CtlColor(&dc, message - WM_REFLECT_BASE - WM_CTLCOLORMSGBOX));
        return TRUE;
    }
    switch (message) {
    case WM_NCHITTEST:
        *pResult = OnNcHitTest(CPoint(lParam));
        return TRUE;
    case WM_LBUTTONDOWN:
        OnLButtonDown(static_cast<UINT>(wParam), CPoint(lParam));
        *pResult = 0;
        return TRUE;
    case WM_SETCURSOR:
        if (OnSetCursor(FromHandlePermanent(reinterpret_cast<HWND>(wParam)), LOWORD(lParam), HIWORD(lParam))) {
            *pResult = TRUE;
            return TRUE;
        }
        break;
    }
    return CStatic::OnWndMsg(message, wParam, lParam, pResult);
}

void CStaticLink::PostNcDestroy()
{
    if (m_bDeleteOnDestroy)
        delete this;
}
