// tqm pm [--reply TEXT | --reply-file FILE] [--count N]
//
// A stand-in for the suite's project manager: a window of its class that
// prints, one line each, what the suite's programs send it, and answers them
// where they wait for an answer. Anyone can test a program of the suite with
// it, without the real project manager; the cross-process tests use it as
// their partner.
#include "tools/tqm/Command.h"

#include "tools/tqm/ExchangePartner.h"
#include "tools/tqm/ListenerWindow.h"
#include "tools/tqm/StreamInput.h"

#include "diag/DebugOutput.h"
#include "ipc/AckMessages.h"
#include "ipc/Molecules.h"
#include "ipc/Notifications.h"
#include "ipc/logic/MessageLevel.h"

#include <windows.h>

#include <limits.h>
#include <stdio.h>

#include <string>

namespace tqmtool {
namespace {

const char kUsage[] =
    "usage: tqm pm [--reply TEXT | --reply-file FILE] [--count N]\n\n"
    "Stands in for the project manager: runs a window of class \"" TARN_PROJECT_MANAGER_WINDOW_CLASS "\" and\n"
    "prints every message the suite's programs send it, one line each:\n\n"
    "    TIME          KIND      WHAT\n"
    "    14:03:07.215  saved     C:\\Projects\\Pump\\Main.st | compiled\n"
    "    14:03:07.216  message   2 | Error 12: unknown symbol\n"
    "    14:03:07.217  tarn      Error: build failed\n"
    "    14:03:07.218  exchange  Pump.Query | status? | 8 bytes replied\n"
    "    14:03:07.219  ack       8001 | from 0001006C | 42\n\n"
    "saved     a saved file and its info (TQMNotifyFileSaved); the atom and the\n"
    "          molecule are read and deleted\n"
    "message   a line for the message window, with its level (TQMDisplayMessage)\n"
    "tarn      a verbose line sent to the project manager (TarnVerbose)\n"
    "exchange  a data-exchange request (ExchangeData): its section, the request\n"
    "          up to its first zero byte, and the reply's size. The reply echoes\n"
    "          the request; --reply TEXT or --reply-file FILE (\"-\": standard\n"
    "          input) give a fixed one. A reply not yet read when the stand-in\n"
    "          ends stays available up to 5 seconds, until its requester has gone\n"
    "ack       a message in the WM_APP range (8000 to BFFF hex) posted to the\n"
    "          window: acknowledged to the window in its wParam with its lParam\n"
    "          (PostAckMessage), as PostMessageAndWaitAck awaits\n"
    "copydata  another copy-data message, with its data word\n\n"
    "Control characters in texts show as \\n, \\r, \\t or \\xNN. Ctrl+C ends it, and\n"
    "so does closing its window; --count N ends it after N messages. Exit 1 when\n"
    "a project manager (or another stand-in) already runs.\n";

struct PmOptions
{
    bool fixedReply = false;
    std::string reply;
    long count = 0;
};

// The answers and lines of the stand-in; one per window.
class ProjectManagerStandIn
{
public:
    ProjectManagerStandIn(ListenerWindow& window, const PmOptions& options)
        : m_window(window), m_options(options),
          m_notifyMessage(RegisterWindowMessageA(TARN_MSG_NOTIFY_FILE_SAVED))
    {
    }

    bool Handle(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result)
    {
        if (msg == WM_COPYDATA) {
            printCopyData(*reinterpret_cast<const COPYDATASTRUCT*>(lParam));
            result = TRUE;
        } else if (msg == m_notifyMessage) {
            printSavedFile(static_cast<ATOM>(wParam), static_cast<ATOM>(lParam));
        } else if (msg == m_exchange.RequestMessage()) {
            answerExchange(reinterpret_cast<HWND>(wParam), static_cast<ATOM>(lParam));
        } else if (msg >= WM_APP && msg <= 0xBFFF) {
            acknowledge(msg, reinterpret_cast<HWND>(wParam), lParam);
        } else {
            return false;
        }
        m_window.CountEvent();
        return true;
    }

    // Replies not yet read stay available a while after the window closed.
    void Finish() { m_exchange.WaitForReaders(5000); }

private:
    void printCopyData(const COPYDATASTRUCT& data)
    {
        std::string text = data.lpData ? PrintableText(static_cast<const char*>(data.lpData), data.cbData) : "";
        int level = 0;
        if (data.dwData == TARN_TRACE_TAG_PROJECT_MANAGER)
            PrintStampedLine("tarn      %s", text.c_str());
        else if (tqm::ReadDisplayMessageWord(data.dwData, &level))
            PrintStampedLine("message   %d | %s", level, text.c_str());
        else
            PrintStampedLine("copydata  %08lX | %s", static_cast<unsigned long>(data.dwData), text.c_str());
    }

    // The receiver's part of a notification: both strings read, then deleted.
    static void printSavedFile(ATOM info, ATOM path)
    {
        char pathName[256] = "";
        GlobalGetAtomNameA(path, pathName, sizeof(pathName));
        CString infoText = GlobalGetMoleculeName(info);
        GlobalDeleteAtom(path);
        GlobalDeleteMolecule(info);
        PrintStampedLine("saved     %s | %s", PrintableText(pathName, sizeof(pathName)).c_str(),
                         PrintableText(infoText.GetString(), static_cast<size_t>(infoText.GetLength())).c_str());
    }

    void answerExchange(HWND requester, ATOM section)
    {
        std::string sectionName, request;
        if (!m_exchange.ReadRequest(requester, section, sectionName, request)) {
            PrintStampedLine("exchange  %s | cannot read the request section (error %lu); no reply",
                             sectionName.c_str(), GetLastError());
            return;
        }
        const std::string& reply = m_options.fixedReply ? m_options.reply : request;
        DWORD error = 0;
        if (!m_exchange.Reply(requester, reply.data(), static_cast<DWORD>(reply.size()), &error)) {
            PrintStampedLine("exchange  %s | %s | no reply to window %s: %s", sectionName.c_str(),
                             PrintableText(request.data(), request.size()).c_str(), WindowText(requester).c_str(),
                             SystemMessage(error).c_str());
            return;
        }
        PrintStampedLine("exchange  %s | %s | %lu bytes replied", sectionName.c_str(),
                         PrintableText(request.data(), request.size()).c_str(),
                         static_cast<unsigned long>(reply.size()));
    }

    static void acknowledge(UINT msg, HWND sender, LPARAM value)
    {
        PostAckMessage(sender, value);
        PrintStampedLine("ack       %04X | from %s | %lld", msg, WindowText(sender).c_str(),
                         static_cast<long long>(value));
    }

    ListenerWindow& m_window;
    const PmOptions& m_options;
    const UINT m_notifyMessage;
    ExchangePartner m_exchange;
};

int readReplyFile(const std::string& name, std::string& reply)
{
    DWORD error = 0;
    if (!ReadInPieces(name, [&](const BYTE* bytes, DWORD count) { reply.append(reinterpret_cast<const char*>(bytes), count); },
                      &error))
        return Fail("cannot read %s: %s", name.c_str(), SystemMessage(error).c_str());
    return kExitOk;
}

int runPm(const Args& args)
{
    PmOptions options;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if ((arg == "--reply" || arg == "--reply-file" || arg == "--count") && i + 1 >= args.size())
            return UsageError("pm", "%s needs a value", arg.c_str());
        if (arg == "--reply" || arg == "--reply-file") {
            if (options.fixedReply)
                return UsageError("pm", "one reply only");
            options.fixedReply = true;
            if (arg == "--reply")
                options.reply = args[++i];
            else if (int failed = readReplyFile(args[++i], options.reply))
                return failed;
        } else if (arg == "--count") {
            long long count = 0;
            if (!ParseInteger(args[++i], 1, LONG_MAX, count))
                return UsageError("pm", "--count needs a positive number, not \"%s\"", args[i].c_str());
            options.count = static_cast<long>(count);
        } else {
            return UsageError("pm", "unknown argument %s", arg.c_str());
        }
    }

    ListenerWindow window(TARN_PROJECT_MANAGER_WINDOW_CLASS, "tqm pm");
    window.EndAfter(options.count);
    ProjectManagerStandIn standIn(window, options);
    // Where the stand-in learns more: a module that gives the project
    // manager's window further duties (desktop docking, say) adds its own
    // handler here, with window.AddHandler. Handlers are asked in the order
    // they were added; the first that handles a message ends its handling.
    window.AddHandler([&standIn](HWND, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
        return standIn.Handle(msg, wParam, lParam, result);
    });
    if (!window.Create())
        return kExitNegative;
    fprintf(stderr, "tqm pm: standing in for the project manager (window %s); Ctrl+C ends\n",
            WindowText(window.Window()).c_str());
    window.Run();
    standIn.Finish();
    return kExitOk;
}

}  // namespace

TQM_REGISTER_COMMAND({"pm", "stand in for the project manager: print what the suite's programs send it", kUsage,
                      runPm});

}  // namespace tqmtool
