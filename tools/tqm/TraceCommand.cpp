// tqm trace [--count N]
// tqm trace --send [--error | --warning] TEXT
//
// A console trace viewer: a window of the viewer's class that prints every
// trace message it is sent, so that a person can watch what any program of
// the suite reports.
#include "tools/tqm/Command.h"

#include "tools/tqm/ListenerWindow.h"

#include "diag/DebugOutput.h"

#include <windows.h>

#include <limits.h>
#include <stdio.h>

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

// Prints a trace message; quick, the sender waits until it returns.
void printTraceMessage(HWND sender, const COPYDATASTRUCT& data)
{
    std::string text = data.lpData ? PrintableText(static_cast<const char*>(data.lpData), data.cbData) : "";
    PrintStampedLine("%s  %s  %s", WindowText(sender).c_str(), tagText(data.dwData).c_str(), text.c_str());
}

int runViewer(long count)
{
    ListenerWindow viewer(TARN_TRACE_WINDOW_CLASS, "tqm trace");
    viewer.EndAfter(count);
    viewer.AddHandler([&viewer](HWND, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
        if (msg != WM_COPYDATA)
            return false;
        printTraceMessage(reinterpret_cast<HWND>(wParam), *reinterpret_cast<const COPYDATASTRUCT*>(lParam));
        viewer.CountEvent();
        result = TRUE;
        return true;
    });
    if (!viewer.Create())
        return kExitNegative;
    fprintf(stderr, "tqm trace: waiting for trace messages (window %s); Ctrl+C ends\n",
            WindowText(viewer.Window()).c_str());
    viewer.Run();
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
    long long count = 0;
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
            if (!ParseInteger(args[++i], 1, LONG_MAX, count))
                return UsageError("trace", "--count needs a positive number, not \"%s\"", args[i].c_str());
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
        return runViewer(static_cast<long>(count));
    }
    if (!haveText)
        return UsageError("trace", "--send needs the TEXT to send");
    if (count > 0)
        return UsageError("trace", "--count goes with the viewer, not with --send");
    return sendLine(flags, text);
}

}  // namespace

TQM_REGISTER_COMMAND({"trace", "watch the trace messages of the suite's programs, or send one", kUsage, runTrace});

}  // namespace tqmtool
