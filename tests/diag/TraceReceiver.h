// TraceReceiver - a hidden window of a receiver's class (the trace viewer's
// or the project manager's) in the test process, recording every copy-data
// message it is sent. Sends from the test's own thread arrive at once.
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

    const TraceMessage& last() const { return m_messages.back(); }
    size_t count() const { return m_messages.size(); }
    void clear() { m_messages.clear(); }

private:
    static LRESULT CALLBACK windowProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam);

    std::string m_className;
    HWND m_hWnd = nullptr;
    std::vector<TraceMessage> m_messages;
};

// True when some other window of the class exists (a viewer started by hand,
// or a test's leftover): tests that need to own the receiver skip then.
bool ForeignReceiverRuns(const char* className);

}  // namespace tqmtest
