// The static link as a person sees it: drawn on a real display and read
// back from the screen before and after a click. Runs where
// scripts/picture-test.sh gives it an X display (Xvfb); skipped elsewhere.
#include "ui/StaticLink.h"

#include "framework/Handles.h"
#include "support/TestWindow.h"

#include <gtest/gtest.h>

#include <stdlib.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace tqmtest;

// How many pixels of the screen in rect have the colour, and the longest
// run of them along a row: an underline, where letters make short runs.
struct ColourCount
{
    int pixels = 0;
    int longestRun = 0;
};

ColourCount countOnScreen(const RECT& rect, COLORREF colour)
{
    const int cx = rect.right - rect.left, cy = rect.bottom - rect.top;
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(info.bmiHeader), cx, -cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pBits = nullptr;
    tqm::UniqueGdiObject bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pBits, nullptr, 0));
    HDC hScreen = GetDC(nullptr);
    HDC hdc = CreateCompatibleDC(hScreen);
    HGDIOBJ old = SelectObject(hdc, bitmap.get());
    BitBlt(hdc, 0, 0, cx, cy, hScreen, rect.left, rect.top, SRCCOPY);
    GdiFlush();
    const DWORD bgr = (GetRValue(colour) << 16) | (GetGValue(colour) << 8) | GetBValue(colour);
    const auto* pixels = static_cast<const DWORD*>(pBits);
    ColourCount count;
    for (int y = 0; y < cy; ++y) {
        int run = 0;
        for (int x = 0; x < cx; ++x) {
            const bool bMatch = (pixels[y * cx + x] & 0xFFFFFF) == bgr;
            count.pixels += bMatch;
            run = bMatch ? run + 1 : 0;
            count.longestRun = std::max(count.longestRun, run);
        }
    }
    SelectObject(hdc, old);
    DeleteDC(hdc);
    ReleaseDC(nullptr, hScreen);
    return count;
}

// Lets the windows paint and the display catch up.
void settle()
{
    for (int i = 0; i < 10; ++i) {
        PumpMessages();
        Sleep(50);
    }
}

TEST(StaticLinkPicture, LinkIsUnderlinedInBlueThenPurpleAfterAClick)
{
    if (!getenv("TQM_PICTURE_TEST"))
        GTEST_SKIP() << "needs a display: scripts/picture-test.sh runs it under Xvfb";

    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string target(path);
    target = target.substr(0, target.rfind('\\')) + "\\fixtures\\Quiet.exe";  // opens without a window

    TestWindow dialog("TqmPictureDialog", RECT{100, 100, 500, 260}, WS_POPUP | WS_CAPTION | WS_VISIBLE);
    CWnd parent;
    ASSERT_TRUE(parent.SubclassWindow(dialog.get()));
    CStaticLink link(target.c_str());
    ASSERT_TRUE(link.Create("Tarn-Holmvik QM5 home page", SS_LEFT | WS_VISIBLE, RECT{20, 20, 380, 60}, &parent, 100));
    SetForegroundWindow(dialog.get());
    settle();

    RECT r;
    GetWindowRect(link.m_hWnd, &r);
    const COLORREF blue = RGB(0, 0, 255), purple = RGB(128, 0, 128);
    const ColourCount before = countOnScreen(r, blue);
    EXPECT_GT(before.pixels, 50) << "the text in the unvisited colour";
    EXPECT_GT(before.longestRun, 60) << "underlined";
    EXPECT_EQ(0, countOnScreen(r, purple).pixels);

    // A real click, through the system's input.
    SetCursorPos(r.left + 10, (r.top + r.bottom) / 2);
    INPUT input[2] = {};
    input[0].type = input[1].type = INPUT_MOUSE;
    input[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    input[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    SendInput(2, input, sizeof(INPUT));
    for (int i = 0; i < 60 && link.m_color != purple; ++i)
        settle();
    ASSERT_EQ(purple, link.m_color) << "the click opened the link";
    settle();
    EXPECT_GT(countOnScreen(r, purple).longestRun, 60) << "underlined in the visited colour";
    EXPECT_EQ(0, countOnScreen(r, blue).pixels);
}

}  // namespace
