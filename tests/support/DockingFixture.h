// A docking manager and a client, each with a real main window of this
// thread that forwards its messages to its object.
#pragma once

#include "ipc/DesktopDocking.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <memory>

namespace tqmtest {

// The manager with its client list open to the tests.
class InspectableManager : public CDesktopDockingManager
{
public:
    int ClientCount() { return m_arrClientWnds.GetSize(); }
    bool Lists(HWND hWnd) { return findClientWndIndex(hWnd) >= 0; }
};

// A main window whose messages go to a docking object first (after the
// test's spy, when it has one).
template <typename Docking>
class DockedWindow
{
public:
    using Spy = std::function<void(UINT, WPARAM, LPARAM)>;

    DockedWindow(Docking& docking, const char* className, const RECT& rect)
        : m_window(className, rect, WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                   [this, &docking](HWND, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
                       if (m_spy)
                           m_spy(message, wParam, lParam);
                       return docking.HandleWindowMessage(message, wParam, lParam, pResult) != FALSE;
                   })
    {
        m_wnd.Attach(m_window.get());
    }
    ~DockedWindow() { m_wnd.Detach(); }

    void spy(Spy spy) { m_spy = std::move(spy); }
    HWND get() const { return m_window.get(); }
    CWnd* wnd() { return &m_wnd; }
    RECT rect() const { return m_window.rect(); }
    void destroy()
    {
        m_wnd.Detach();
        m_window.destroy();
    }

private:
    Spy m_spy;  // before m_window, which uses it from creation on
    TestWindow m_window;
    CWnd m_wnd;
};

inline RECT WorkArea()
{
    RECT rect = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &rect, 0);
    return rect;
}

inline std::string RectText(const RECT& r)
{
    return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) + "," +
           std::to_string(r.bottom);
}

#define EXPECT_RECT(l, t, r, b, actual) EXPECT_EQ(RectText(RECT{l, t, r, b}), RectText(actual))

}  // namespace tqmtest
