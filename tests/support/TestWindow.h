// TestWindow - a real top-level window for tests of window code, with the
// messages it receives offered to the test first; PumpMessages and
// RunWhilePumping for code that waits on windows of other threads or
// processes.
#pragma once

#include "support/ChildProcess.h"

#include <windows.h>

#include <functional>
#include <vector>

namespace tqmtest {

// Handles a message and sets *pResult, or returns false for DefWindowProc.
using MessageHandler = std::function<bool(HWND, UINT, WPARAM, LPARAM, LRESULT*)>;

class TestWindow
{
public:
    // A window of className (registered on first use) at rect, owned by
    // this thread; handler sees its messages from WM_NCCREATE on.
    TestWindow(const char* className, const RECT& rect, DWORD dwStyle = WS_POPUP | WS_CAPTION | WS_VISIBLE,
               MessageHandler handler = MessageHandler(), HWND hParent = nullptr, DWORD dwExStyle = 0);
    ~TestWindow();
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    HWND get() const { return m_hWnd; }
    RECT rect() const;
    void destroy();

private:
    static LRESULT CALLBACK proc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

    HWND m_hWnd;
    MessageHandler m_handler;
};

// Handles every message waiting for this thread.
void PumpMessages();
// Sends hWnd (a window of this thread) the system command (SC_SIZE, SC_MOVE,
// with or without an edge), and once the system's move/size loop runs, types
// keys into it (arrow keys move 8 pixels) and Return. Waits until the loop is
// over, handling this thread's messages, so that a command the window posts
// again runs too. False when no loop started within a few seconds.
bool DriveMoveSizeLoop(HWND hWnd, WPARAM command, const std::vector<WPARAM>& keys);

// Runs work on another thread while this one handles its messages, so that
// a child process or thread may send messages to this thread's windows.
ProgramRun RunWhilePumping(const std::function<ProgramRun()>& work);

}  // namespace tqmtest
