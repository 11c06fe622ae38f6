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
const COLORREF kBlue = RGB(0, 0, 255), kPurple = RGB(128, 0, 128);

class StaticLink : public testing::Test
{
protected:
    StaticLink() : dialog("TqmLinkDialog", RECT{100, 100, 400, 300}, WS_POPUP | WS_CAPTION | WS_VISIBLE)
    {
        parent.SubclassWindow(dialog.get());
    }

    // The parent's answer to the control's colour message, and what it left
    // in the device context.
    struct Paint
    {
        HBRUSH brush;
        COLORREF text;
        bool underlined;
    };
    Paint paint(CWnd& control, UINT message = WM_CTLCOLORSTATIC)
    {
        HDC hdc = GetDC(control.m_hWnd);
        Paint p;
        p.brush = reinterpret_cast<HBRUSH>(SendMessageA(dialog.get(), message, reinterpret_cast<WPARAM>(hdc),
                                                        reinterpret_cast<LPARAM>(control.m_hWnd)));
        p.text = GetTextColor(hdc);
        LOGFONTA font = {};
        GetObjectA(GetCurrentObject(hdc, OBJ_FONT), sizeof(font), &font);
        p.underlined = font.lfUnderline != 0 && GetBkMode(hdc) == TRANSPARENT;
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
    EXPECT_EQ(kBlue, p.text);
    EXPECT_TRUE(p.underlined);

    BoxRecorder boxes;
    paint(link, WM_CTLCOLOREDIT);
    EXPECT_TRUE(boxes.reported("nCtlColor == CTLCOLOR_STATIC", "StatLink"));
    EXPECT_NE(std::string::npos, boxes.last().text.find("75")) << boxes.last().text;
}

TEST_F(StaticLink, ClickOpensTheCaptionOnceAndTurnsVisited)
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string target(path);
    target = target.substr(0, target.rfind('\\')) + "\\fixtures\\Quiet.exe";  // opens and ends at once

    CStaticLink link;
    ASSERT_TRUE(link.Create(target.c_str(), SS_LEFT | WS_VISIBLE, kLinkRect, &parent, 100));
    EXPECT_EQ(HTCLIENT, SendMessageA(link.m_hWnd, WM_NCHITTEST, 0, MAKELPARAM(20, 20)));
    click(link);
    EXPECT_STREQ(target.c_str(), link.m_link);
    EXPECT_EQ(kPurple, paint(link).text);
    link.SetWindowText("something else");
    click(link);
    EXPECT_STREQ(target.c_str(), link.m_link) << "the target stays what the first click found";

    // An icon static keeps its own look, and still opens its link.
    CStaticLink icon(target.c_str());
    ASSERT_TRUE(icon.Create("", SS_ICON | WS_VISIBLE, RECT{10, 40, 50, 80}, &parent, 101));
    EXPECT_FALSE(paint(icon).underlined);
    click(icon);
    EXPECT_EQ(kPurple, icon.m_color);

    // A link that does not open, or an empty one, stays unvisited.
    CStaticLink missing("C:\\no such folder\\nothing.tqmx");
    ASSERT_TRUE(missing.Create("Missing", SS_CENTER | WS_VISIBLE, RECT{10, 90, 210, 110}, &parent, 102));
    click(missing);
    EXPECT_EQ(kBlue, missing.m_color);
    CStaticLink empty;
    ASSERT_TRUE(empty.Create("", SS_LEFT | WS_VISIBLE, RECT{10, 120, 210, 140}, &parent, 103));
    click(empty);
    EXPECT_EQ(kBlue, empty.m_color);
}

TEST_F(StaticLink, CursorIsAHandLoadedOncePerProcess)
{
    CStaticLink link("x");
    ASSERT_TRUE(link.Create("x", SS_LEFT | WS_VISIBLE, kLinkRect, &parent, 100));
    const LPARAM hit = MAKELPARAM(HTCLIENT, WM_MOUSEMOVE);
    EXPECT_EQ(TRUE, SendMessageA(link.m_hWnd, WM_SETCURSOR, reinterpret_cast<WPARAM>(link.m_hWnd), hit));
    const HCURSOR hCursor = CStaticLink::g_hCursorLink;
    ASSERT_NE(nullptr, hCursor);
    EXPECT_EQ(hCursor, GetCursor());
    SendMessageA(link.m_hWnd, WM_SETCURSOR, reinterpret_cast<WPARAM>(link.m_hWnd), hit);
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
    bool bDeleted = false, bKeptDeleted = false;
    ASSERT_TRUE((new CountedLink(&bDeleted, TRUE))->Create("x", SS_LEFT | WS_VISIBLE, kLinkRect, &parent, 100));
    CountedLink kept(&bKeptDeleted, FALSE);
    ASSERT_TRUE(kept.Create("y", SS_LEFT | WS_VISIBLE, RECT{10, 40, 210, 60}, &parent, 101));
    dialog.destroy();
    EXPECT_TRUE(bDeleted);
    EXPECT_FALSE(bKeptDeleted);
    EXPECT_EQ(nullptr, kept.m_hWnd);
    EXPECT_TRUE(kept.IsKindOf(RUNTIME_CLASS(CStatic)));
    EXPECT_STREQ("CStaticLink", kept.GetRuntimeClass()->m_lpszClassName);
}

}  // namespace
