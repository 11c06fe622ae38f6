// tqm trace [--count N]
// tqm trace --send [--error | --warning] TEXT
//
// A console trace viewer: a window of the viewer's class that prints every
// trace message it is sent, so that a person can watch what any program of
// the suite reports.
#include "tools/tqm/Command.h"
#include "tools/tqm/Printable.h"

#include "diag/DebugOutput.h"

#include <windows.h>

#include <stdio.h>
#include <stdlib.h>

#include <atomic>
#include <string>

namespace tqmtool {
namespace {

const char kUsage[] =
    "usage: tqm trace [--count N]\n"
    "       tqm trace --send [--error | --warning] TEXT\n\n"
    "Without --send, runs a trace viewer: a window of class \"" TARN_TRACE_WINDOW_CLASS "\" that prints\n"
    "every trace message it receives (assertion reports, verbose lines, hex dumps\n"
    "of any program that uses the library), one per line:\n\n"
    "    TIME          WINDOW    TAG   TEXT\n"
    "    14:03:07.215  0001006C  twin  2236: Error: cannot open x.dat\n\n"
    "WINDOW is the sending program's main window (00000000 when it has none), TAG\n"
    "the message's data tag. A final line feed is dropped; other control\n"
    "characters show as \\n, \\r, \\t or \\xNN. Ctrl+C ends the viewer, and so does\n"
    "closing its window; --count N ends it after N messages. Only one viewer\n"
    "runs on a desktop: exit 1 when another one is already running.\n\n"
    "With --send, sends TEXT as one verbose line to the running viewer (with the\n"
    "thread number and an \"Error: \" or \"Warning: \" prefix as asked); exit 1 when\n"
    "no viewer runs.\n";

std::atomic<HWND> g_viewerWindow{nullptr};
long g_remaining = -1;  // messages left before the viewer ends; -1: no limit

// The tag as its four characters when they are printable, else in hex.
std::string tagText(ULONG_PTR tag)
{
    std::string text;
    for (int i = 0; i < 4; ++i) {
        unsigned char c = static_cast<unsigned char>(tag >> (8 * i));
        if (c < 0x20 || c >= 0x7F) {
            char hex[24];
            snprintf(hex, sizeof(hex), "%08lX", static_cast<unsigned long>(tag));
            return hex;
        }
        text += static_cast<char>(c);
    }
    return text;
}

// The message text on one line: up to its first NUL, without a final line
// feed, with control characters escaped.
std::string lineText(const char* data, DWORD count)
{
    DWORD n = 0;
    while (n < count && data[n])
        ++n;
    if (n > 0 && data[n - 1] == '\n')
        --n;
    if (n > 0 && data[n - 1] == '\r')
        --n;
    return Printable(data, n);
}

void printMessage(HWND sender, const COPYDATASTRUCT& data)
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    std::string text = data.lpData ? lineText(static_cast<const char*>(data.lpData), data.cbData) : std::string();
    printf("%02u:%02u:%02u.%03u  %08lX  %s  %s\n", now.wHour, now.wMinute, now.wSecond, now.wMilliseconds,
           static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(sender)), tagText(data.dwData).c_str(),
           text.c_str());
    fflush(stdout);
}

LRESULT CALLBACK viewerProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    switch (msg) {
    case WM_COPYDATA:
        // Quick: the sender waits until this returns.
        printMessage(reinterpret_cast<HWND>(wParam), *reinterpret_cast<const COPYDATASTRUCT*>(lParam));
        if (g_remaining > 0 && --g_remaining == 0)
            PostMessageA(hWnd, WM_CLOSE, 0, 0);
        return TRUE;
    case WM_CLOSE:
        DestroyWindow(hWnd);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcA(hWnd, msg, wParam, lParam);
    }
}

// Ctrl+C, Ctrl+Break or a closed console: the viewer's thread closes its
// window and ends in order (the handler runs on a thread of its own).
BOOL WINAPI onConsoleControl(DWORD)
{
    HWND hWnd = g_viewerWindow.load();
    if (!hWnd)
        return FALSE;
    PostMessageA(hWnd, WM_CLOSE, 0, 0);
    return TRUE;
}

int runViewer()
{
    HWND other = FindWindowA(TARN_TRACE_WINDOW_CLASS, nullptr);
    if (other)
        return Fail("a trace viewer is already running (window %08lX)",
                    static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(other)));
    HINSTANCE hInstance = GetModuleHandleA(nullptr);
    WNDCLASSA wc = {};
    wc.lpfnWndProc = viewerProc;
    wc.hInstance = hInstance;
    wc.lpszClassName = TARN_TRACE_WINDOW_CLASS;
    if (!RegisterClassA(&wc))
        return Fail("cannot register the window class (error %lu)", GetLastError());
    // A hidden top-level window: senders find it by its class, and a message-
    // only window would not be found.
    HWND hWnd = CreateWindowA(TARN_TRACE_WINDOW_CLASS, "tqm trace", WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr,
                              hInstance, nullptr);
    if (!hWnd) {
        UnregisterClassA(TARN_TRACE_WINDOW_CLASS, hInstance);
        return Fail("cannot create the viewer window (error %lu)", GetLastError());
    }
    g_viewerWindow.store(hWnd);
    SetConsoleCtrlHandler(onConsoleControl, TRUE);
    fprintf(stderr, "tqm trace: waiting for trace messages (window %08lX); Ctrl+C ends\n",
            static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(hWnd)));

    MSG msg;
    while (GetMessageA(&msg, nullptr, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
    g_viewerWindow.store(nullptr);
    SetConsoleCtrlHandler(onConsoleControl, FALSE);
    UnregisterClassA(TARN_TRACE_WINDOW_CLASS, hInstance);
    return kExitOk;
}

int sendLine(int flags, const std::string& text)
{
    if (!TarnVerbose(flags, "%s", text.c_str()))
        return Fail("no trace viewer is running");
    return kExitOk;
}

int runTrace(const Args& args)
{
    bool send = false;
    bool haveText = false;
    std::string text;
    int flags = 0;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--send") {
            send = true;
        } else if (arg == "--error") {
            flags = TARN_VERBOSE_ERROR;
        } else if (arg == "--warning") {
            flags = TARN_VERBOSE_WARNING;
        } else if (arg == "--count") {
            if (i + 1 >= args.size())
                return UsageError("trace", "--count needs a number");
            char* end = nullptr;
            long n = strtol(args[++i].c_str(), &end, 10);
            if (*end || n <= 0)
                return UsageError("trace", "--count needs a positive number, not \"%s\"", args[i].c_str());
            g_remaining = n;
        } else if (arg.size() > 1 && arg[0] == '-' && arg != "--") {
            return UsageError("trace", "unknown option %s", arg.c_str());
        } else if (!haveText) {
            text = arg == "--" && i + 1 < args.size() ? args[++i] : arg;
            haveText = true;
        } else {
            return UsageError("trace", "too many arguments");
        }
    }
    if (!send) {
        if (haveText || flags)
            return UsageError("trace", "a text and --error or --warning go with --send");
        return runViewer();
    }
    if (!haveText)
        return UsageError("trace", "--send needs the TEXT to send");
    if (g_remaining > 0)
        return UsageError("trace", "--count goes with the viewer, not with --send");
    return sendLine(flags, text);
}

}  // namespace

TQM_REGISTER_COMMAND({"trace", "watch the trace messages of the suite's programs, or send one", kUsage, runTrace});

}  // namespace tqmtool
