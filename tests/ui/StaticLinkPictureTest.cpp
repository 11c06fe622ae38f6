// The static link as a person sees it: drawn on a real display, read back
// from the screen before and after a click. Runs where scripts/picture-
// test.sh gives it an X display (Xvfb); skipped elsewhere.
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

// The screen's pixels in rect, as 0x00RRGGBB, row by row.
struct ScreenPixels
{
    int cx = 0, cy = 0;
    std::vector<COLORREF> rgb;

    int count(COLORREF colour) const { return static_cast<int>(std::count(rgb.begin(), rgb.end(), colour)); }
    // The longest run of colour along one row: an underline, not a letter.
    int longestRun(COLORREF colour) const
    {
        int best = 0;
        for (int y = 0; y < cy; ++y) {
            int run = 0;
            for (int x = 0; x < cx; ++x) {
                run = rgb[static_cast<size_t>(y) * cx + x] == colour ? run + 1 : 0;
                best = std::max(best, run);
            }
        }
        return best;
    }
};

ScreenPixels capture(const RECT& rect)
{
    ScreenPixels pixels;
    pixels.cx = rect.right - rect.left;
    pixels.cy = rect.bottom - rect.top;
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(info.bmiHeader), pixels.cx, -pixels.cy, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* pBits = nullptr;
    tqm::UniqueGdiObject bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pBits, nullptr, 0));
    HDC hScreen = GetDC(nullptr);
    HDC hdc = CreateCompatibleDC(hScreen);
    HGDIOBJ old = SelectObject(hdc, bitmap.get());
    BitBlt(hdc, 0, 0, pixels.cx, pixels.cy, hScreen, rect.left, rect.top, SRCCOPY);
    GdiFlush();
    const auto* bgra = static_cast<const DWORD*>(pBits);
    for (int i = 0; i < pixels.cx * pixels.cy; ++i) {
        const DWORD p = bgra[i];
        pixels.rgb.push_back(RGB((p >> 16) & 0xFF, (p >> 8) & 0xFF, p & 0xFF));
    }
    SelectObject(hdc, old);
    DeleteDC(hdc);
    ReleaseDC(nullptr, hScreen);
    return pixels;
}

// Lets the display catch up with what the windows drew.
void settle()
{
    for (int i = 0; i < 10; ++i) {
        PumpMessages();
        Sleep(50);
    }
}

void clickAt(POINT pt)
{
    SetCursorPos(pt.x, pt.y);
    INPUT input[2] = {};
    input[0].type = input[1].type = INPUT_MOUSE;
    input[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    input[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    SendInput(2, input, sizeof(INPUT));
}

TEST(StaticLinkPicture, LinkIsUnderlinedInBlueThenPurpleAfterAClick)
{
    if (!getenv("TQM_PICTURE_TEST"))
        GTEST_SKIP() << "needs a display: scripts/picture-test.sh runs it under Xvfb";

    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string target(path);
    target = target.substr(0, target.rfind('\\')) + "\\fixtures\\Quiet.exe";

    TestWindow dialog("TqmPictureDialog", RECT{100, 100, 500, 260}, WS_POPUP | WS_CAPTION | WS_VISIBLE);
    CWnd parent;
    ASSERT_TRUE(parent.SubclassWindow(dialog.get()));
    CStaticLink link(target.c_str());
    ASSERT_TRUE(link.Create("Tarn-Holmvik QM5 home page", SS_LEFT | WS_VISIBLE, RECT{20, 20, 380, 60}, &parent, 100));
    SetForegroundWindow(dialog.get());
    UpdateWindow(dialog.get());
    settle();

    RECT r;
    GetWindowRect(link.m_hWnd, &r);
    const COLORREF blue = RGB(0, 0, 255), purple = RGB(128, 0, 128);
    const ScreenPixels before = capture(r);
    EXPECT_GT(before.count(blue), 50) << "the text in the unvisited colour";
    EXPECT_GT(before.longestRun(blue), 60) << "an underline across the text";
    EXPECT_EQ(0, before.count(purple));

    clickAt(POINT{r.left + 10, (r.top + r.bottom) / 2});
    for (int i = 0; i < 60 && link.m_color != purple; ++i)
        settle();
    ASSERT_EQ(purple, link.m_color) << "the click opened the link";
    settle();
    const ScreenPixels after = capture(r);
    EXPECT_GT(after.longestRun(purple), 60) << "underlined in the visited colour";
    EXPECT_EQ(0, after.count(blue));
}

}  // namespace
