// The listening window of tqm trace and tqm pm.
#include "tools/tqm/ListenerWindow.h"

#include "tools/tqm/Command.h"
#include "tools/tqm/Printable.h"

#include <stdarg.h>
#include <stdio.h>

#include <atomic>

namespace tqmtool {
namespace {

// The window Ctrl+C closes (one listener per process).
std::atomic<HWND> g_listening{nullptr};

// Runs on a thread of its own: the listener's thread closes its window and
// ends in order.
BOOL WINAPI onConsoleControl(DWORD)
{
    HWND hWnd = g_listening.load();
    if (!hWnd)
        return FALSE;
    PostMessageA(hWnd, WM_CLOSE, 0, 0);
    return TRUE;
}

}  // namespace

ListenerWindow::ListenerWindow(const char* className, const char* title) : m_className(className), m_title(title) {}

ListenerWindow::~ListenerWindow()
{
    if (m_hWnd)
        DestroyWindow(m_hWnd);
    if (m_registered)
        UnregisterClassA(m_className.c_str(), GetModuleHandleA(nullptr));
}

bool ListenerWindow::Create()
{
    HWND other = FindWindowA(m_className.c_str(), nullptr);
    if (other) {
        Fail("a window of class \"%s\" is already running (window %s)", m_className.c_str(),
             WindowText(other).c_str());
        return false;
    }
    HINSTANCE hInstance = GetModuleHandleA(nullptr);
    WNDCLASSA wc = {};
    wc.lpfnWndProc = windowProc;
    wc.hInstance = hInstance;
    wc.lpszClassName = m_className.c_str();
    if (!RegisterClassA(&wc)) {
        Fail("cannot register the window class (error %lu)", GetLastError());
        return false;
    }
    m_registered = true;
    m_hWnd = CreateWindowA(m_className.c_str(), m_title.c_str(), WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr,
                           hInstance, this);
    if (!m_hWnd) {
        Fail("cannot create the window (error %lu)", GetLastError());
        return false;
    }
    return true;
}

void ListenerWindow::Run()
{
    g_listening.store(m_hWnd);
    SetConsoleCtrlHandler(onConsoleControl, TRUE);
    MSG msg;
    while (GetMessageA(&msg, nullptr, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
    SetConsoleCtrlHandler(onConsoleControl, FALSE);
    g_listening.store(nullptr);
}

void ListenerWindow::Close() const
{
    if (m_hWnd)
        PostMessageA(m_hWnd, WM_CLOSE, 0, 0);
}

void ListenerWindow::CountEvent()
{
    if (m_remaining > 0 && --m_remaining == 0)
        Close();
}

LRESULT CALLBACK ListenerWindow::windowProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    if (msg == WM_NCCREATE) {
        auto* create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        SetWindowLongPtrA(hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<ListenerWindow*>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    if (self) {
        LRESULT result = 0;
        for (const Handler& handler : self->m_handlers) {
            if (handler(hWnd, msg, wParam, lParam, result))
                return result;
        }
    }
    switch (msg) {
    case WM_CLOSE:
        DestroyWindow(hWnd);
        return 0;
    case WM_DESTROY:
        if (self)
            self->m_hWnd = nullptr;
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcA(hWnd, msg, wParam, lParam);
    }
}

void PrintStampedLine(const char* format, ...)
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    printf("%02u:%02u:%02u.%03u  ", now.wHour, now.wMinute, now.wSecond, now.wMilliseconds);
    va_list args;
    va_start(args, format);
    vprintf(format, args);
    va_end(args);
    putchar('\n');
    fflush(stdout);
}

std::string PrintableText(const char* data, size_t count)
{
    size_t n = 0;
    while (n < count && data[n])
        ++n;
    if (n > 0 && data[n - 1] == '\n')
        --n;
    if (n > 0 && data[n - 1] == '\r')
        --n;
    return Printable(data, n);
}

std::string WindowText(HWND hWnd)
{
    char text[24];
    snprintf(text, sizeof(text), "%08lX", static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(hWnd)));
    return text;
}

}  // namespace tqmtool
