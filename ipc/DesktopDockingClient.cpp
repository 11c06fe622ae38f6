// The side of desktop docking in every program but the project manager.
#include "ipc/DesktopDocking.h"

#include "ipc/DockingWindows.h"
#include "ui/WindowPlacement.h"

using tqm::DockSide;

UINT CDesktopDockingClient::m_DesktopDockingMsg = 0;

CDesktopDockingClient::CDesktopDockingClient()
    : m_pMainWnd(nullptr), m_hMainWnd(nullptr), m_hManagerWnd(nullptr), m_nDockPos(tqm::kDockNone), m_bMinMax(FALSE)
{
}

CDesktopDockingClient::~CDesktopDockingClient() = default;

BOOL CDesktopDockingClient::Subscribe(CWnd* pMainWnd)
{
    m_pMainWnd = pMainWnd;
    m_hMainWnd = pMainWnd ? pMainWnd->m_hWnd : nullptr;
    m_DesktopDockingMsg = tqm::RegisterDockingMessage();

    m_hManagerWnd = tqm::FindProjectManager();
    if (!m_hManagerWnd) {
        RestoreWindowPlacement(m_pMainWnd, tqm::kMainWindowPlacement);
        return FALSE;
    }
    m_nDockPos = static_cast<UINT>(::SendMessageA(m_hManagerWnd, m_DesktopDockingMsg, tqm::kDockSubscribe,
                                                  tqm::DockingParamFromWindow(m_hMainWnd)));
    if (m_nDockPos != 0 && m_nDockPos != tqm::kDockNone && !tqm::IsMinimizedOrMaximized(m_hManagerWnd)) {
        resizeClientToManager();
        return TRUE;
    }
    RestoreWindowPlacement(m_pMainWnd, tqm::kMainWindowPlacement);
    return TRUE;
}

void CDesktopDockingClient::Unsubscribe()
{
    if (m_hManagerWnd && ::IsWindow(m_hManagerWnd))
        ::SendMessageA(m_hManagerWnd, m_DesktopDockingMsg, tqm::kDockUnsubscribe,
                       tqm::DockingParamFromWindow(m_hMainWnd));
    if (::IsWindow(m_hMainWnd))
        SaveWindowPlacement(m_pMainWnd, tqm::kMainWindowPlacement);
    m_pMainWnd = nullptr;
    m_hMainWnd = nullptr;
    m_hManagerWnd = nullptr;
}

LONG CDesktopDockingClient::OnMsgFromManager(UINT wParam, LONG lParam)
{
    if (wParam != tqm::kDockPositionChanged)
        return 0;
    if (!::IsWindow(m_hManagerWnd))
        return 1;
    m_nDockPos = static_cast<UINT>(lParam);
    resizeClientToManager();
    return 1;
}

// Every change counts, a change of Z order alone too: the client in front is
// the one the manager and the other clients dock against.
void CDesktopDockingClient::OnWindowPosChanged(WINDOWPOS*)
{
    if (!::IsWindow(m_hMainWnd) || !::IsWindow(m_hManagerWnd) || m_nDockPos == tqm::kDockNone ||
        ::GetForegroundWindow() != m_hMainWnd)
        return;
    if (tqm::IsMinimizedOrMaximized(m_hMainWnd)) {
        m_bMinMax = TRUE;
        return;
    }
    if (m_bMinMax) {
        // Back from maximised or minimised: into place beside the manager,
        // which has not moved meanwhile.
        m_bMinMax = FALSE;
        resizeClientToManager();
        return;
    }
    ::SendMessageA(m_hManagerWnd, m_DesktopDockingMsg, tqm::kDockClientMoved, tqm::DockingParamFromWindow(m_hMainWnd));
    resizeClientToManager();
}

void CDesktopDockingClient::OnWindowPosChanging(WINDOWPOS* pPos)
{
    if (isDockedNormal())
        tqm::HoldToSharedEdge(m_hMainWnd, static_cast<int>(m_nDockPos), DockSide::Client, pPos);
}

void CDesktopDockingClient::OnMoving(UINT, RECT* pRect)
{
    if (isDockedNormal())
        tqm::HoldDragRect(m_hMainWnd, pRect);
}

LRESULT CDesktopDockingClient::OnNcHitTest(CPoint pt, LONG nHit)
{
    if (m_nDockPos == tqm::kDockNone || !::IsWindow(m_hManagerWnd))
        return nHit;
    return tqm::DockedHitTest(m_hMainWnd, static_cast<int>(m_nDockPos), DockSide::Client, pt, nHit);
}

BOOL CDesktopDockingClient::OnSysCommand(UINT nID, LONG lParam)
{
    if (!isDockedNormal())
        return FALSE;
    return tqm::DockedSysCommand(m_hMainWnd, static_cast<int>(m_nDockPos), DockSide::Client, nID, lParam);
}

BOOL CDesktopDockingClient::HandleWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (m_DesktopDockingMsg && message == m_DesktopDockingMsg) {
        *pResult = OnMsgFromManager(static_cast<UINT>(wParam), static_cast<LONG>(lParam));
        return TRUE;
    }
    return tqm::RouteWindowMessage(*this, m_hMainWnd, message, wParam, lParam, pResult);
}

void CDesktopDockingClient::resizeClientToManager()
{
    if (!::IsWindow(m_hManagerWnd) || tqm::IsMinimizedOrMaximized(m_hManagerWnd))
        return;
    tqm::WindowBox box;
    if (tqm::ClientBesideManagerBox(static_cast<int>(m_nDockPos), tqm::DesktopWorkArea(),
                                    tqm::WindowRect(m_hManagerWnd), box))
        tqm::MoveWindowTo(m_hMainWnd, box);
}

bool CDesktopDockingClient::isDockedNormal()
{
    return tqm::IsDocked(static_cast<int>(m_nDockPos)) && ::IsWindow(m_hManagerWnd) && ::IsWindow(m_hMainWnd) &&
           !tqm::IsMinimizedOrMaximized(m_hMainWnd);
}
