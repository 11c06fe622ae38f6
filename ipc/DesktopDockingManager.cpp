// The project manager's side of desktop docking.
#include "ipc/DesktopDocking.h"

#include "ipc/DockingWindows.h"
#include "ui/WindowPlacement.h"

using tqm::DockSide;

UINT CDesktopDockingManager::m_DesktopDockingMsg = 0;

namespace {

// True when a contains b with room on all four sides.
bool containsStrictly(const RECT& a, const RECT& b)
{
    return a.left < b.left && a.top < b.top && a.right > b.right && a.bottom > b.bottom;
}

}  // namespace

CDesktopDockingManager::CDesktopDockingManager()
    : m_pMainWnd(nullptr), m_hMainWnd(nullptr), m_nDockPos(-1), m_hCurrentClient(nullptr), m_rcWorkArea{}
{
}

CDesktopDockingManager::~CDesktopDockingManager() = default;

BOOL CDesktopDockingManager::Initialize(CWnd* pMainWnd, int nDockPos)
{
    m_DesktopDockingMsg = tqm::RegisterDockingMessage();
    m_pMainWnd = pMainWnd;
    m_hMainWnd = pMainWnd ? pMainWnd->m_hWnd : nullptr;
    // Stored first, so that start-up counts as no change of position.
    m_nDockPos = nDockPos;
    SetDockPos(nDockPos);
    return m_DesktopDockingMsg != 0;
}

void CDesktopDockingManager::Close()
{
    if (::IsWindow(m_hMainWnd))
        SaveWindowPlacement(m_pMainWnd, tqm::kMainWindowPlacement);
}

void CDesktopDockingManager::SetDockPos(int nDockPos)
{
    const bool bChanged = m_nDockPos != -1 && m_nDockPos != nDockPos;
    m_nDockPos = nDockPos;
    for (int i = 0; i < m_arrClientWnds.GetSize(); ++i) {
        HWND hClient = m_arrClientWnds[i];
        if (::IsWindow(hClient))
            ::SendMessageA(hClient, m_DesktopDockingMsg, tqm::kDockPositionChanged, nDockPos);
    }
    if (!::IsWindow(m_hMainWnd))
        return;

    if (!bChanged && RestoreWindowPlacement(m_pMainWnd, tqm::kMainWindowPlacement)) {
        OnSettingChange(SPI_SETWORKAREA, nullptr);
        return;
    }
    tqm::WindowBox box;
    if (!tqm::ManagerStartBox(nDockPos, refreshWorkArea(), box))
        return;
    ::ShowWindow(m_hMainWnd, SW_RESTORE);
    tqm::MoveWindowTo(m_hMainWnd, box);
}

LONG CDesktopDockingManager::OnMsgFromClient(UINT wParam, LONG lParam)
{
    m_hCurrentClient = nullptr;
    const UINT nCode = wParam & 0xFF;
    HWND hClient = tqm::WindowFromDockingParam(lParam);
    if (!::IsWindow(m_hMainWnd) || !::IsWindow(hClient) || nCode < tqm::kDockSubscribe ||
        nCode > tqm::kDockQueryPosition)
        return 0;

    switch (nCode) {
    case tqm::kDockSubscribe:
        if (findClientWndIndex(hClient) < 0)
            m_arrClientWnds.Add(hClient);
        m_hCurrentClient = hClient;
        return m_nDockPos;
    case tqm::kDockUnsubscribe: {
        const int nIndex = findClientWndIndex(hClient);
        if (nIndex >= 0)
            m_arrClientWnds.RemoveAt(nIndex);
        return 1;
    }
    case tqm::kDockClientMoved:
        return onClientMoved(hClient);
    case tqm::kDockQueryPosition:
        return m_nDockPos;
    default:  // tqm::kDockPositionChanged goes the other way
        return 0;
    }
}

LONG CDesktopDockingManager::onClientMoved(HWND hClient)
{
    const RECT R = tqm::WindowRect(hClient);
    const RECT& W = refreshWorkArea();
    if (findClientWndIndex(hClient) < 0)
        return 0;
    m_hCurrentClient = hClient;

    if (tqm::IsMinimizedOrMaximized(m_hMainWnd) || containsStrictly(R, W) || (R.left == -32000 && R.top == -32000) ||
        tqm::IsMinimizedOrMaximized(hClient))
        return 1;
    tqm::WindowBox box;
    if (!tqm::ManagerAgainstClientBox(m_nDockPos, W, R, box))
        return 1;

    const UINT nFlags = SWP_NOZORDER | SWP_NOACTIVATE;
    ::SetWindowPos(m_hMainWnd, nullptr, box.x, box.y, box.cx, box.cy, nFlags);
    for (int i = 0; i < m_arrClientWnds.GetSize(); ++i) {
        HWND hOther = m_arrClientWnds[i];
        if (hOther != hClient && ::IsWindow(hOther))
            ::SetWindowPos(hOther, nullptr, R.left, R.top, R.right - R.left, R.bottom - R.top, nFlags);
    }
    return 1;
}

void CDesktopDockingManager::OnSettingChange(UINT uFlags, LPCSTR)
{
    if (uFlags != SPI_SETWORKAREA || !::IsWindow(m_hMainWnd) || tqm::IsMinimizedOrMaximized(m_hMainWnd))
        return;
    const RECT M = tqm::WindowRect(m_hMainWnd);
    tqm::WindowBox box;
    if (!tqm::ManagerInWorkAreaBox(m_nDockPos, refreshWorkArea(), M, box))
        return;
    tqm::MoveWindowTo(m_hMainWnd, box);
    resizeClients(box.x, box.y, box.cx, box.cy);
}

void CDesktopDockingManager::OnWindowPosChanged(WINDOWPOS* pPos)
{
    if (::GetForegroundWindow() != m_hMainWnd || !processWindowPos(pPos))
        return;
    WINDOWPOS adjusted = *pPos;
    OnWindowPosChanging(&adjusted);
    const RECT current = tqm::WindowRect(m_hMainWnd);
    RECT target = current;
    if (!(adjusted.flags & SWP_NOMOVE)) {
        target.left = adjusted.x;
        target.top = adjusted.y;
    }
    if (!(adjusted.flags & SWP_NOSIZE)) {
        target.right = target.left + adjusted.cx;
        target.bottom = target.top + adjusted.cy;
    }
    // Moving to where the window already is would only come back here.
    if (!::EqualRect(&target, &current))
        ::MoveWindow(m_hMainWnd, target.left, target.top, target.right - target.left, target.bottom - target.top,
                     TRUE);
    resizeClients(target.left, target.top, target.right - target.left, target.bottom - target.top);
}

void CDesktopDockingManager::OnWindowPosChanging(WINDOWPOS* pPos)
{
    if (isDockedNormal())
        tqm::HoldToSharedEdge(m_hMainWnd, m_nDockPos, DockSide::Manager, pPos);
}

void CDesktopDockingManager::OnMoving(UINT, RECT* pRect)
{
    if (isDockedNormal())
        tqm::HoldDragRect(m_hMainWnd, pRect);
}

LRESULT CDesktopDockingManager::OnNcHitTest(CPoint pt, LONG nHit)
{
    if (m_nDockPos == tqm::kDockNone || !::IsWindow(m_hMainWnd))
        return nHit;
    return tqm::DockedHitTest(m_hMainWnd, m_nDockPos, DockSide::Manager, pt, nHit);
}

BOOL CDesktopDockingManager::OnSysCommand(UINT nID, LONG lParam)
{
    if (!isDockedNormal())
        return FALSE;
    return tqm::DockedSysCommand(m_hMainWnd, m_nDockPos, DockSide::Manager, nID, lParam);
}

// Focus changes nothing in the layout; the handler is there for programs
// that forward every message the docking objects know.
void CDesktopDockingManager::OnSetFocus() {}

BOOL CDesktopDockingManager::HandleWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (m_DesktopDockingMsg && message == m_DesktopDockingMsg) {
        *pResult = OnMsgFromClient(static_cast<UINT>(wParam), static_cast<LONG>(lParam));
        return TRUE;
    }
    if (message == WM_SETTINGCHANGE)
        OnSettingChange(static_cast<UINT>(wParam), reinterpret_cast<LPCSTR>(lParam));
    else if (message == WM_SETFOCUS)
        OnSetFocus();
    return tqm::RouteWindowMessage(*this, m_hMainWnd, message, wParam, lParam, pResult);
}

int CDesktopDockingManager::findClientWndIndex(HWND hWnd)
{
    for (int i = 0; i < m_arrClientWnds.GetSize(); ++i) {
        if (m_arrClientWnds[i] == hWnd)
            return i;
    }
    return -1;
}

BOOL CDesktopDockingManager::processWindowPos(WINDOWPOS* pPos)
{
    if (!pPos || !isDockedNormal())
        return FALSE;
    return (pPos->flags & (SWP_NOMOVE | SWP_NOSIZE)) != (SWP_NOMOVE | SWP_NOSIZE);
}

void CDesktopDockingManager::resizeClients(int x, int y, int cx, int cy)
{
    const RECT manager{x, y, x + cx, y + cy};
    tqm::WindowBox box;
    if (!tqm::FreeAreaBox(m_nDockPos, refreshWorkArea(), manager, box))
        return;
    for (int i = 0; i < m_arrClientWnds.GetSize(); ++i) {
        HWND hClient = m_arrClientWnds[i];
        // A client the user maximised or minimised keeps that state.
        if (::IsWindow(hClient) && !tqm::IsMinimizedOrMaximized(hClient))
            ::SetWindowPos(hClient, nullptr, box.x, box.y, box.cx, box.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

bool CDesktopDockingManager::isDockedNormal()
{
    return tqm::IsDocked(m_nDockPos) && ::IsWindow(m_hMainWnd) && !tqm::IsMinimizedOrMaximized(m_hMainWnd);
}

const RECT& CDesktopDockingManager::refreshWorkArea()
{
    m_rcWorkArea = tqm::DesktopWorkArea();
    return m_rcWorkArea;
}
