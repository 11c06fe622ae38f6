#include "support/TestWindow.h"

#include <future>

namespace tqmtest {

TestWindow::TestWindow(const char* className, const RECT& rect, DWORD dwStyle, MessageHandler handler, HWND hParent,
                       DWORD dwExStyle)
    : m_hWnd(nullptr), m_handler(std::move(handler))
{
    WNDCLASSA wc = {};
    if (!GetClassInfoA(GetModuleHandleA(nullptr), className, &wc)) {
        wc.lpfnWndProc = proc;
        wc.hInstance = GetModuleHandleA(nullptr);
        wc.hCursor = LoadCursorA(nullptr, IDC_ARROW);
        wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
        wc.lpszClassName = className;
        RegisterClassA(&wc);
    }
    m_hWnd = CreateWindowExA(dwExStyle, className, className, dwStyle, rect.left, rect.top, rect.right - rect.left,
                             rect.bottom - rect.top, hParent, nullptr, GetModuleHandleA(nullptr), this);
}

TestWindow::~TestWindow() { destroy(); }

RECT TestWindow::rect() const
{
    RECT r = {};
    GetWindowRect(m_hWnd, &r);
    return r;
}

void TestWindow::destroy()
{
    if (IsWindow(m_hWnd))
        DestroyWindow(m_hWnd);
    m_hWnd = nullptr;
}

LRESULT CALLBACK TestWindow::proc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        auto* create = reinterpret_cast<CREATESTRUCTA*>(lParam);
        SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<TestWindow*>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    LRESULT result = 0;
    if (self && self->m_handler && self->m_handler(hWnd, message, wParam, lParam, &result))
        return result;
    if (message == WM_NCDESTROY)
        SetWindowLongPtrA(hWnd, GWLP_USERDATA, 0);
    return DefWindowProcA(hWnd, message, wParam, lParam);
}

void PumpMessages()
{
    MSG msg;
    while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
}

namespace {

bool inMoveSizeLoop(DWORD dwThread)
{
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    return GetGUIThreadInfo(dwThread, &info) && (info.flags & GUI_INMOVESIZE);
}

}  // namespace

bool DriveMoveSizeLoop(HWND hWnd, WPARAM command, const std::vector<WPARAM>& keys)
{
    const DWORD dwThread = GetCurrentThreadId();
    // The loop reads its keys from the queue, one at a time, and moves the
    // window on the mouse move each key makes: the keys come from another
    // thread, with pauses, while this one is inside the loop.
    std::future<bool> typist = std::async(std::launch::async, [=] {
        for (int i = 0; i < 300 && !inMoveSizeLoop(dwThread); ++i)
            Sleep(10);
        if (!inMoveSizeLoop(dwThread))
            return false;
        for (WPARAM key : keys) {
            PostMessageA(hWnd, WM_KEYDOWN, key, 0);
            Sleep(60);
        }
        PostMessageA(hWnd, WM_KEYDOWN, VK_RETURN, 0);
        for (int i = 0; i < 300 && inMoveSizeLoop(dwThread); ++i)
            Sleep(10);
        return true;
    });
    // The keys move the cursor from where it is; from the middle of the
    // window it has room in every direction.
    RECT rect = {};
    GetWindowRect(hWnd, &rect);
    SetCursorPos((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    PumpMessages();
    SendMessageA(hWnd, WM_SYSCOMMAND, command, 0);
    while (typist.wait_for(std::chrono::milliseconds(0)) != std::future_status::ready) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        PumpMessages();
    }
    return typist.get();
}

ProgramRun RunWhilePumping(const std::function<ProgramRun()>& work)
{
    std::future<ProgramRun> done = std::async(std::launch::async, work);
    while (done.wait_for(std::chrono::milliseconds(0)) != std::future_status::ready) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        PumpMessages();
    }
    return done.get();
}

}  // namespace tqmtest
