// TraceReceiver - a hidden window of a receiver's class (the trace viewer's
// or the project manager's) in the test process, recording every copy-data
// message it is sent.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tqmtest {

struct TraceMessage
{
    HWND sender;        // wParam
    ULONG_PTR tag;      // dwData
    std::string data;   // exactly cbData bytes
};

class TraceReceiver
{
public:
    explicit TraceReceiver(const char* className);
    ~TraceReceiver();
    TraceReceiver(const TraceReceiver&) = delete;
    TraceReceiver& operator=(const TraceReceiver&) = delete;

    HWND window() const { return m_hWnd; }
    const std::vector<TraceMessage>& messages() const { return m_messages; }
    const TraceMessage& last() const { return m_messages.back(); }
    size_t count() const { return m_messages.size(); }
    void clear() { m_messages.clear(); }
    // Handles messages sent from other threads until count() reaches n or
    // timeoutMs has passed; true when it did.
    bool pumpUntil(size_t n, DWORD timeoutMs);

private:
    static LRESULT CALLBACK windowProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam);

    std::string m_className;
    HWND m_hWnd = nullptr;
    std::vector<TraceMessage> m_messages;
};

// True when some other window of the class exists (a viewer started by hand,
// or a test's leftover): tests that need to own the receiver skip then.
bool ForeignReceiverRuns(const char* className);

// A visible top-level window, which the library takes for the program's main window.
class VisibleMainWindow
{
public:
    VisibleMainWindow();
    ~VisibleMainWindow();
    HWND get() const { return m_hWnd; }

private:
    HWND m_hWnd = nullptr;
};

}  // namespace tqmtest
