// The windows step of "tqm demo": a window's placement saved and restored,
// with an off-screen rectangle pulled back, and a client window docked
// beside a stand-in project manager; where a display shows them, a picture
// of the docked pair is saved beside the demo files.
#include "tools/tqm/Demo.h"

#include "framework/Handles.h"
#include "framework/WinApp.h"
#include "ipc/DesktopDocking.h"
#include "ui/WindowPlacement.h"

#include <windows.h>

#include <stdio.h>

#include <string>

namespace tqmtool {
namespace {

const char kDemoClass[] = "TqmDemoWindow";

// A plain top-level window of the demo's class; its messages go to pDocking
// (a manager or a client) when one is given.
template <typename Docking>
LRESULT CALLBACK dockedProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* pDocking = reinterpret_cast<Docking*>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    LRESULT result = 0;
    if (pDocking && pDocking->HandleWindowMessage(message, wParam, lParam, &result))
        return result;
    if (message == WM_PAINT) {
        // The title in the middle, so that the picture says which is which
        // even where no window frames are drawn.
        PAINTSTRUCT paint;
        HDC hdc = BeginPaint(hWnd, &paint);
        char title[64] = "";
        GetWindowTextA(hWnd, title, sizeof(title));
        RECT client;
        GetClientRect(hWnd, &client);
        DrawTextA(hdc, title, -1, &client, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        EndPaint(hWnd, &paint);
        return 0;
    }
    return DefWindowProcA(hWnd, message, wParam, lParam);
}

HWND makeWindow(const char* className, WNDPROC proc, const char* title, void* pDocking)
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = proc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    wc.lpszClassName = className;
    RegisterClassA(&wc);
    HWND hWnd = CreateWindowA(className, title, WS_OVERLAPPEDWINDOW, 100, 100, 600, 400, nullptr, nullptr,
                              wc.hInstance, nullptr);
    SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pDocking));
    ShowWindow(hWnd, SW_SHOWNORMAL);
    return hWnd;
}

std::string rectText(HWND hWnd)
{
    RECT r = {};
    GetWindowRect(hWnd, &r);
    char text[96];
    snprintf(text, sizeof(text), "%ld,%ld (%ld x %ld)", r.left, r.top, r.right - r.left, r.bottom - r.top);
    return text;
}

void showPlacement()
{
    HWND hWnd = makeWindow(kDemoClass, DefWindowProcA, "tqm demo", nullptr);
    CWnd wnd;
    wnd.Attach(hWnd);
    MoveWindow(hWnd, 120, 80, 600, 400, TRUE);
    SaveWindowPlacement(&wnd, "DemoWindow");
    printf("Saved placement of a window at %s: WindowPos/DemoWindow = %s\n", rectText(hWnd).c_str(),
           AfxGetApp()->GetProfileString("WindowPos", "DemoWindow").GetString());

    const char* offScreen = "0,4000,-900,4600,-500";
    AfxGetApp()->WriteProfileString("WindowPos", "DemoWindow", offScreen);
    RestoreWindowPlacement(&wnd, "DemoWindow");
    printf("An entry saved on a monitor that is gone (%s) reopens on the screen at %s\n", offScreen,
           rectText(hWnd).c_str());
    wnd.Detach();
    DestroyWindow(hWnd);
}

// Saves what the screen shows in area as a 24-bit bitmap file. False when
// there is nothing to see: no display (Wine's null driver, a service's
// desktop), where every pixel reads the same.
bool saveScreenPicture(const std::string& path, const RECT& area)
{
    const int cx = area.right - area.left, cy = area.bottom - area.top;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = cx;
    info.bmiHeader.biHeight = cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    void* pBits = nullptr;
    tqm::UniqueGdiObject bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pBits, nullptr, 0));
    HDC hScreen = GetDC(nullptr);
    HDC hdc = CreateCompatibleDC(hScreen);
    bool bCopied = false;
    if (bitmap && hdc) {
        HGDIOBJ old = SelectObject(hdc, bitmap.get());
        bCopied = BitBlt(hdc, 0, 0, cx, cy, hScreen, area.left, area.top, SRCCOPY) != FALSE;
        SelectObject(hdc, old);
    }
    if (hdc)
        DeleteDC(hdc);
    ReleaseDC(nullptr, hScreen);
    const DWORD dwStride = (static_cast<DWORD>(cx) * 3 + 3) & ~3u;
    const DWORD dwImage = dwStride * static_cast<DWORD>(cy);
    if (!bCopied)
        return false;
    const auto* bytes = static_cast<const BYTE*>(pBits);
    bool bUniform = true;
    for (DWORD i = 3; i < dwImage && bUniform; i += 3)
        bUniform = bytes[i] == bytes[0] && bytes[i + 1] == bytes[1] && bytes[i + 2] == bytes[2];
    if (bUniform)
        return false;

    BITMAPFILEHEADER file = {};
    file.bfType = 0x4D42;  // "BM"
    file.bfOffBits = sizeof(file) + sizeof(info.bmiHeader);
    file.bfSize = file.bfOffBits + dwImage;
    info.bmiHeader.biSizeImage = dwImage;
    tqm::UniqueFile out(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    DWORD dwWritten = 0;
    return out && WriteFile(out.get(), &file, sizeof(file), &dwWritten, nullptr) &&
           WriteFile(out.get(), &info.bmiHeader, sizeof(info.bmiHeader), &dwWritten, nullptr) &&
           WriteFile(out.get(), pBits, dwImage, &dwWritten, nullptr);
}

void showDocking(const std::string& demoDir)
{
    if (FindWindowA(TARN_PROJECT_MANAGER_CLASS, nullptr)) {
        printf("A project manager runs on this desktop; the docking part is left out so as not to disturb it.\n");
        return;
    }
    CDesktopDockingManager manager;
    CDesktopDockingClient client;
    HWND hManager = makeWindow(TARN_PROJECT_MANAGER_CLASS, dockedProc<CDesktopDockingManager>,
                               "Project manager (stand-in)", &manager);
    HWND hClient = makeWindow("TqmDemoClient", dockedProc<CDesktopDockingClient>, "Editor", &client);
    CWnd managerWnd, clientWnd;
    managerWnd.Attach(hManager);
    clientWnd.Attach(hClient);

    manager.Initialize(&managerWnd, 2);
    client.Subscribe(&clientWnd);
    printf("Docked at the left edge: manager at %s, client beside it at %s\n", rectText(hManager).c_str(),
           rectText(hClient).c_str());
    SetForegroundWindow(hManager);
    manager.SetDockPos(5);
    printf("Docked at the bottom edge: manager at %s, client above it at %s\n", rectText(hManager).c_str(),
           rectText(hClient).c_str());

    RECT area = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    UpdateWindow(hManager);
    UpdateWindow(hClient);
    const std::string picture = demoDir + "\\docked-pair.bmp";
    if (saveScreenPicture(picture, area))
        printf("Picture of the docked pair: %s\n", picture.c_str());
    else
        printf("No display here (windows are not drawn anywhere), so no picture of the docked pair.\n");

    client.Unsubscribe();
    manager.Close();
    managerWnd.Detach();
    clientWnd.Detach();
    DestroyWindow(hClient);
    DestroyWindow(hManager);
}

bool windowsStep(const std::string& demoDir)
{
    // The demo's own application profile, an INI file beside the demo files.
    CWinApp app("tqm demo");
    app.SetProfileFile((demoDir + "\\tqm-demo-windows.ini").c_str());
    showPlacement();
    showDocking(demoDir);
    return true;
}

}  // namespace

TQM_REGISTER_DEMO_STEP({70, "Windows", windowsStep});

}  // namespace tqmtool
