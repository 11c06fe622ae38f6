// The window object: subclassing, letting go, reflection of control colours.
#include "framework/Wnd.h"

#include "support/TestWindow.h"

#include <gtest/gtest.h>

namespace {

using namespace tqmtest;

const UINT kAsk = WM_APP + 1;

// Answers kAsk, and the reflected colour message with hReflectedBrush.
class Recorder : public CWnd
{
public:
    bool bPostNcDestroy = false;
    HBRUSH hReflectedBrush = nullptr;

protected:
    BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override
    {
        if (message == kAsk || message == WM_REFLECT_BASE + WM_CTLCOLORSTATIC) {
            *pResult = message == kAsk ? 42 : reinterpret_cast<LRESULT>(hReflectedBrush);
            return TRUE;
        }
        return CWnd::OnWndMsg(message, wParam, lParam, pResult);
    }
    void PostNcDestroy() override { bPostNcDestroy = true; }
};

// A procedure that subclasses a window after us and passes on to g_next.
WNDPROC g_next = nullptr;
LRESULT CALLBACK answer9(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    return message == kAsk + 1 ? 9 : CallWindowProcA(g_next, hWnd, message, wParam, lParam);
}

TEST(Wnd, SubclassingRoutesMessagesUntilTheWindowGoes)
{
    TestWindow window("TqmWndTest", RECT{0, 0, 100, 100});
    const LONG_PTR original = GetWindowLongPtrA(window.get(), GWLP_WNDPROC);
    Recorder wnd, other;
    ASSERT_TRUE(wnd.SubclassWindow(window.get()));
    EXPECT_EQ(&wnd, CWnd::FromHandlePermanent(window.get()));
    EXPECT_EQ(42, SendMessageA(window.get(), kAsk, 0, 0));
    EXPECT_EQ(10, SendMessageA(window.get(), WM_GETTEXTLENGTH, 0, 0)) << "the window's own procedure answers the rest";
    EXPECT_FALSE(other.SubclassWindow(window.get()));
    EXPECT_FALSE(other.Attach(window.get()));
    EXPECT_FALSE(other.SubclassWindow(nullptr));

    EXPECT_EQ(window.get(), wnd.UnsubclassWindow());
    EXPECT_EQ(original, GetWindowLongPtrA(window.get(), GWLP_WNDPROC));
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(window.get()));

    // Attached: found, but its messages pass it by, and so does its end.
    ASSERT_TRUE(wnd.Attach(window.get()));
    EXPECT_EQ(&wnd, CWnd::FromHandlePermanent(window.get()));
    EXPECT_EQ(0, SendMessageA(window.get(), kAsk, 0, 0));
    wnd.Detach();

    ASSERT_TRUE(other.SubclassWindow(window.get()));
    window.destroy();
    EXPECT_TRUE(other.bPostNcDestroy);
    EXPECT_EQ(nullptr, other.m_hWnd);
}

TEST(Wnd, LettingGoBehindAnotherSubclassKeepsTheChain)
{
    TestWindow window("TqmWndTest", RECT{0, 0, 100, 100});
    {
        Recorder wnd;
        ASSERT_TRUE(wnd.SubclassWindow(window.get()));
        g_next = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(window.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(answer9)));
    }
    EXPECT_EQ(9, SendMessageA(window.get(), kAsk + 1, 0, 0));
    EXPECT_EQ(10, SendMessageA(window.get(), WM_GETTEXTLENGTH, 0, 0)) << "the window's own procedure still answers";
    EXPECT_EQ(0, SendMessageA(window.get(), kAsk, 0, 0)) << "our object is gone";
}

TEST(Wnd, ControlColoursAreReflectedToTheChild)
{
    TestWindow dialog("TqmWndTest", RECT{0, 0, 200, 200}, WS_POPUP | WS_VISIBLE);
    CWnd parent;
    ASSERT_TRUE(parent.SubclassWindow(dialog.get()));
    TestWindow control("TqmWndTest", RECT{0, 0, 50, 20}, WS_CHILD | WS_VISIBLE, MessageHandler(), dialog.get());
    Recorder child;
    ASSERT_TRUE(child.SubclassWindow(control.get()));

    HDC hdc = GetDC(control.get());
    const auto wParam = reinterpret_cast<WPARAM>(hdc);
    const auto lParam = reinterpret_cast<LPARAM>(control.get());
    child.hReflectedBrush = static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH));
    EXPECT_EQ(reinterpret_cast<LRESULT>(child.hReflectedBrush),
              SendMessageA(dialog.get(), WM_CTLCOLORSTATIC, wParam, lParam));
    LRESULT result = 0;
    EXPECT_TRUE(CWnd::ReflectChildMessage(WM_CTLCOLORSTATIC, wParam, lParam, &result)) << "for a plain dialog";
    // A child without an answer leaves the parent's default.
    child.hReflectedBrush = nullptr;
    EXPECT_NE(0, SendMessageA(dialog.get(), WM_CTLCOLORSTATIC, wParam, lParam));
    EXPECT_FALSE(CWnd::ReflectChildMessage(WM_CTLCOLORSTATIC, wParam, lParam, &result));
    EXPECT_FALSE(CWnd::ReflectChildMessage(WM_COMMAND, 0, lParam, &result));
    ReleaseDC(control.get(), hdc);
}

}  // namespace
