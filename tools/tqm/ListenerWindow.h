// ListenerWindow - the hidden top-level window of a console command that
// listens for other programs' messages (tqm trace, tqm pm), and the printing
// of what it receives.
//
// Senders find the window by its class, so it is a real top-level window (a
// message-only one would not be found), hidden. Ctrl+C, Ctrl+Break or a
// closed console close it; Run() pumps messages until it is destroyed.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace tqmtool {

class ListenerWindow
{
public:
    // Handles one message; true when it did, with the window procedure's
    // result in result. Handlers are asked in the order they were added,
    // before the window's own handling (WM_CLOSE destroys the window, and
    // its destruction ends Run).
    using Handler = std::function<bool(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result)>;

    ListenerWindow(const char* className, const char* title);
    ~ListenerWindow();
    ListenerWindow(const ListenerWindow&) = delete;
    ListenerWindow& operator=(const ListenerWindow&) = delete;

    void AddHandler(Handler handler) { m_handlers.push_back(std::move(handler)); }

    // Registers the class and creates the window; false after a message on
    // stderr (another window of the class runs, or the system refused).
    bool Create();
    HWND Window() const { return m_hWnd; }
    // Pumps this thread's messages until the window is destroyed.
    void Run();
    // Closes the window from any thread.
    void Close() const;
    // Ends the listener after count events (CountEvent calls); 0: never.
    void EndAfter(long count) { m_remaining = count; }
    // One more event has been handled.
    void CountEvent();

private:
    static LRESULT CALLBACK windowProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam);

    std::string m_className;
    std::string m_title;
    HWND m_hWnd = nullptr;
    bool m_registered = false;
    long m_remaining = 0;
    std::vector<Handler> m_handlers;
};

// Prints "HH:MM:SS.mmm  " and the formatted text as one line on stdout, at once.
void PrintStampedLine(const char* format, ...) __attribute__((format(printf, 1, 2)));

// count bytes of a received message as text on one line: up to the first
// zero byte, without a final line end, escaped as Printable does.
std::string PrintableText(const char* data, size_t count);

// A window handle as the listeners print it: eight hex digits.
std::string WindowText(HWND hWnd);

}  // namespace tqmtool
