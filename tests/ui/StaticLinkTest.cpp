// The static link on real controls: colours by reflection, the underlined
// font, clicks that open the link, the cursor, and objects that delete
// themselves with their window.
#include "ui/StaticLink.h"

#include "support/BoxRecorder.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace tqmtest;

const RECT kLinkRect{10, 10, 210, 30};

// A program of the build that opens (runs) and ends at once.
std::string harmlessTarget()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string target(path);
    return target.substr(0, target.rfind('\\')) + "\\fixtures\\Quiet.exe";
}

class StaticLink : public testing::Test
{
protected:
    StaticLink() : dialog("TqmLinkDialog", RECT{100, 100, 400, 300}, WS_POPUP | WS_CAPTION | WS_VISIBLE)
    {
        parent.SubclassWindow(dialog.get());
    }
    ~StaticLink() override { dialog.destroy(); }

    // The parent's answer to the control's colour message, with what the
    // answer left in the device context.
    struct Paint
    {
        HBRUSH brush;
        COLORREF text;
        int bkMode;
        bool underlined;
    };
    Paint paint(CWnd& control, UINT message = WM_CTLCOLORSTATIC)
    {
        HDC hdc = GetDC(control.m_hWnd);
        Paint p;
        p.brush = reinterpret_cast<HBRUSH>(
            SendMessageA(dialog.get(), message, reinterpret_cast<WPARAM>(hdc), reinterpret_cast<LPARAM>(control.m_hWnd)));
        p.text = GetTextColor(hdc);
        p.bkMode = GetBkMode(hdc);
        LOGFONTA font = {};
        GetObjectA(GetCurrentObject(hdc, OBJ_FONT), sizeof(font), &font);
        p.underlined = font.lfUnderline != 0;
        ReleaseDC(control.m_hWnd, hdc);
        return p;
    }
    void click(CWnd& control) { SendMessageA(control.m_hWnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5)); }

    TestWindow dialog;
    CWnd parent;
};

TEST_F(StaticLink, TextIsUnderlinedInTheLinkColourByReflection)
{
    CStaticLink link("https://example.com");
    ASSERT_TRUE(link.Create("Example", SS_LEFT | WS_VISIBLE, kLinkRect, &parent, 100));
    const Paint p = paint(link);
    EXPECT_EQ(GetStockObject(HOLLOW_BRUSH), p.brush);
    EXPECT_EQ(RGB(0, 0, 255), p.text);
    EXPECT_EQ(TRANSPARENT, p.bkMode);
    EXPECT_TRUE(p.underlined);

    // A plain dialog procedure reflects by itself.
    HDC hdc = GetDC(link.m_hWnd);
    LRESULT brush = 0;
    EXPECT_TRUE(CWnd::ReflectChildMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(hdc),
                                          reinterpret_cast<LPARAM>(link.m_hWnd), &brush));
    EXPECT_EQ(reinterpret_cast<LRESULT>(GetStockObject(HOLLOW_BRUSH)), brush);
    ReleaseDC(link.m_hWnd, hdc);

    BoxRecorder boxes;
    paint(link, WM_CTLCOLOREDIT);
    EXPECT_TRUE(boxes.reported("nCtlColor == CTLCOLOR_STATIC", "StatLink"));
    EXPECT_NE(std::string::npos, boxes.last().text.find("75")) << boxes.last().text;
}

TEST_F(StaticLink, ClickOpensTheCaptionOnceAndTurnsVisited)
{
    const std::string target = harmlessTarget();
    CStaticLink link;
    ASSERT_TRUE(link.Create(target.c_str(), SS_LEFT | WS_VISIBLE, kLinkRect, &parent, 100));
    EXPECT_EQ(HTCLIENT, SendMessageA(link.m_hWnd, WM_NCHITTEST, 0, MAKELPARAM(20, 20)));

    click(link);
    EXPECT_STREQ(target.c_str(), link.m_link);
    EXPECT_EQ(RGB(128, 0, 128), link.m_color);
    EXPECT_EQ(RGB(128, 0, 128), paint(link).text);

    // The target stays what the first click found.
    link.SetWindowText("something else");
    click(link);
    EXPECT_STREQ(target.c_str(), link.m_link);
}

TEST_F(StaticLink, AFailedOpenKeepsTheColour)
{
    CStaticLink link("C:\\no such folder\\nothing.tqmx");
    ASSERT_TRUE(link.Create("Missing", SS_CENTER | WS_VISIBLE, kLinkRect, &parent, 100));
    click(link);
    EXPECT_EQ(RGB(0, 0, 255), link.m_color);

    CStaticLink empty;
    ASSERT_TRUE(empty.Create("", SS_LEFT | WS_VISIBLE, RECT{10, 40, 210, 60}, &parent, 101));
    click(empty);
    EXPECT_STREQ("", empty.m_link);
    EXPECT_EQ(RGB(0, 0, 255), empty.m_color);
}

TEST_F(StaticLink, AnIconStaticKeepsItsLookButStillOpens)
{
    CStaticLink icon(harmlessTarget().c_str());
    ASSERT_TRUE(icon.Create("", SS_ICON | WS_VISIBLE, kLinkRect, &parent, 100));
    const Paint p = paint(icon);
    EXPECT_NE(GetStockObject(HOLLOW_BRUSH), p.brush) << "the dialog's own colours";
    EXPECT_FALSE(p.underlined);
    click(icon);
    EXPECT_EQ(RGB(128, 0, 128), icon.m_color);
}

TEST_F(StaticLink, CursorIsAHandLoadedOncePerProcess)
{
    CStaticLink link("x");
    ASSERT_TRUE(link.Create("x", SS_LEFT | WS_VISIBLE, kLinkRect, &parent, 100));
    EXPECT_EQ(TRUE, SendMessageA(link.m_hWnd, WM_SETCURSOR, reinterpret_cast<WPARAM>(link.m_hWnd),
                                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)));
    const HCURSOR hCursor = CStaticLink::g_hCursorLink;
    ASSERT_NE(nullptr, hCursor);
    EXPECT_EQ(hCursor, GetCursor());
    SendMessageA(link.m_hWnd, WM_SETCURSOR, reinterpret_cast<WPARAM>(link.m_hWnd), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(hCursor, CStaticLink::g_hCursorLink);
}

struct CountedLink : CStaticLink
{
    CountedLink(bool* pDeleted, BOOL bDelete) : CStaticLink("x", bDelete), m_pDeleted(pDeleted) {}
    ~CountedLink() override { *m_pDeleted = true; }
    bool* m_pDeleted;
};

TEST_F(StaticLink, DeleteOnDestroyFreesTheObjectWithItsWindow)
{
    bool bDeleted = false;
    auto* heapLink = new CountedLink(&bDeleted, TRUE);
    ASSERT_TRUE(heapLink->Create("x", SS_LEFT | WS_VISIBLE, kLinkRect, &parent, 100));
    bool bKeptDeleted = false;
    CountedLink kept(&bKeptDeleted, FALSE);
    ASSERT_TRUE(kept.Create("y", SS_LEFT | WS_VISIBLE, RECT{10, 40, 210, 60}, &parent, 101));

    dialog.destroy();
    EXPECT_TRUE(bDeleted);
    EXPECT_FALSE(bKeptDeleted);
    EXPECT_EQ(nullptr, kept.m_hWnd);
}

TEST(StaticLinkClass, RunTimeClassNamesTheChain)
{
    CStaticLink link;
    CWnd wnd;
    EXPECT_STREQ("CStaticLink", link.GetRuntimeClass()->m_lpszClassName);
    EXPECT_TRUE(link.IsKindOf(RUNTIME_CLASS(CStatic)));
    EXPECT_TRUE(link.IsKindOf(RUNTIME_CLASS(CWnd)));
    EXPECT_TRUE(link.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(wnd.IsKindOf(RUNTIME_CLASS(CStatic)));
    EXPECT_STREQ("", CHyperlink());
    EXPECT_EQ(nullptr, CHyperlink(nullptr).Navigate());
    CHyperlink copy(CHyperlink("a"));
    copy = "b";
    EXPECT_STREQ("b", copy);
}

}  // namespace
