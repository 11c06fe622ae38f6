#include "TraceReceiver.h"

namespace tqmtest {

TraceReceiver::TraceReceiver(const char* className) : m_className(className)
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = windowProc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.lpszClassName = className;
    RegisterClassA(&wc);
    m_hWnd = CreateWindowA(className, "", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr, wc.hInstance, nullptr);
    SetWindowLongPtrA(m_hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

TraceReceiver::~TraceReceiver()
{
    DestroyWindow(m_hWnd);
    UnregisterClassA(m_className.c_str(), GetModuleHandleA(nullptr));
}

LRESULT CALLBACK TraceReceiver::windowProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    auto* self = reinterpret_cast<TraceReceiver*>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
    if (msg == WM_COPYDATA && self) {
        auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        std::string bytes;
        if (data->lpData && data->cbData)
            bytes.assign(static_cast<const char*>(data->lpData), data->cbData);
        self->m_messages.push_back({reinterpret_cast<HWND>(wParam), data->dwData, bytes});
        return TRUE;
    }
    return DefWindowProcA(hWnd, msg, wParam, lParam);
}

bool ForeignReceiverRuns(const char* className) { return FindWindowA(className, nullptr) != nullptr; }

}  // namespace tqmtest
