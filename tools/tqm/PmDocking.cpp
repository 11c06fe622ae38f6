// The docking manager of tqm pm --dock.
#include "tools/tqm/PmDocking.h"

#include "tools/tqm/Command.h"
#include "tools/tqm/DockedWindow.h"

#include <string>

namespace tqmtool {
namespace {

// Where the window first shows; it stays there at position 1 (not docked).
const RECT kStartRect{100, 100, 500, 500};

// A docking message's code as the stand-in prints it.
std::string codeName(WPARAM wParam)
{
    // The manager reads only the low 8 bits of the code.
    switch (wParam & 0xFF) {
    case 1: return "subscribe";
    case 2: return "unsubscribe";
    case 3: return "moved";
    case 5: return "query";
    default: return "code " + std::to_string(static_cast<unsigned long long>(wParam));
    }
}

}  // namespace

PmDocking::PmDocking(ListenerWindow& window, int nDockPos) : m_window(window), m_nStartPos(nDockPos)
{
    m_window.AddHandler([this](HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
        return handle(hWnd, msg, wParam, lParam, result);
    });
}

PmDocking::~PmDocking() { m_wnd.Detach(); }

bool PmDocking::Create()
{
    if (!m_window.CreateMainWindow(kStartRect, true))
        return false;
    m_wnd.Attach(m_window.Window());
    if (!m_manager.Initialize(&m_wnd, m_nStartPos)) {
        Fail("cannot register the docking message (error %lu)", GetLastError());
        return false;
    }
    showDockPos();
    return true;
}

bool PmDocking::handle(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result)
{
    if (m_manager.HandleWindowMessage(msg, wParam, lParam, &result)) {
        if (msg == CDesktopDockingManager::m_DesktopDockingMsg) {
            printDockingMessage(wParam, lParam, result);
            m_window.CountEvent();
        }
        return true;
    }
    switch (msg) {
    case WM_CHAR:
        if (wParam >= '1' && wParam <= '5') {
            setDockPos(static_cast<int>(wParam - '0'));
            return true;
        }
        return false;
    case WM_PAINT:
        PaintTitle(hWnd);
        return true;
    case WM_DESTROY:
        // The placement goes to the application profile, which tqm does not
        // keep: the stand-in docks afresh at each start.
        m_manager.Close();
        return false;
    default:
        return false;
    }
}

void PmDocking::printDockingMessage(WPARAM wParam, LPARAM lParam, LRESULT result)
{
    PrintStampedLine("dock      %s | from %s | %ld", codeName(wParam).c_str(),
                     WindowText(reinterpret_cast<HWND>(lParam)).c_str(), static_cast<long>(result));
}

void PmDocking::setDockPos(int nDockPos)
{
    // The clients follow the manager's move while it is the foreground
    // window, as it is when the user presses the key in it; a key sent by
    // another program does not make it so.
    SetForegroundWindow(m_window.Window());
    m_manager.SetDockPos(nDockPos);
    showDockPos();
}

void PmDocking::showDockPos()
{
    const int nDockPos = m_manager.GetDockPos();
    const std::string title = std::string("tqm pm: ") + DockPositionName(nDockPos);
    SetWindowTextA(m_window.Window(), title.c_str());
    InvalidateRect(m_window.Window(), nullptr, TRUE);
    PrintStampedLine("dock      position %d | %s", nDockPos, DockPositionName(nDockPos));
}

}  // namespace tqmtool
