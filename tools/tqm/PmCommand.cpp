// tqm pm [--reply TEXT | --reply-file FILE] [--count N] [--dock POS]
//
// A stand-in for the suite's project manager: a window of its class that
// prints, one line each, what the suite's programs send it, and answers them
// where they wait for an answer; with --dock, also their desktop-docking
// manager. Anyone can test a program of the suite with it, without the real
// project manager; the cross-process tests use it as their partner.
#include "tools/tqm/Command.h"

#include "tools/tqm/ExchangePartner.h"
#include "tools/tqm/ListenerWindow.h"
#include "tools/tqm/PmLoadCheck.h"
#include "tools/tqm/PmDocking.h"
#include "tools/tqm/StreamInput.h"
#include "tools/tqm/SystemMessageText.h"

#include "diag/DebugOutput.h"
#include "ipc/AckMessages.h"
#include "ipc/Molecules.h"
#include "ipc/Notifications.h"
#include "ipc/logic/MessageLevel.h"

#include <windows.h>

#include <limits.h>
#include <stdio.h>
#include <string.h>

#include <memory>
#include <string>

namespace tqmtool {
namespace {

const char kUsage[] =
    "usage: tqm pm [--reply TEXT | --reply-file FILE | --check] [--count N] [--dock POS]\n\n"
    "Stands in for the project manager: runs a window of class \"" TARN_PROJECT_MANAGER_WINDOW_CLASS "\" and\n"
    "prints every message the suite's programs send it, one line each:\n\n"
    "    TIME          KIND      WHAT\n"
    "    14:03:07.215  saved     C:\\Projects\\Pump\\Main.st | compiled\n"
    "    14:03:07.216  message   2 | Error 12: unknown symbol\n"
    "    14:03:07.217  tarn      Error: build failed\n"
    "    14:03:07.218  exchange  Pump.Query | status? | 8 bytes replied\n"
    "    14:03:07.219  ack       8001 | from 0001006C | 42\n"
    "    14:03:07.220  dock      subscribe | from 000100A2 | 2\n\n"
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
    "copydata  another copy-data message, with its data word\n"
    "dock      with --dock, a desktop-docking message (subscribe, unsubscribe,\n"
    "          moved, query), its client window and the answer: the dock\n"
    "          position for subscribe and query; and each new position\n\n"
    "--dock POS makes the stand-in the desktop-docking manager as well: its\n"
    "window shows, docked at POS (1 not docked, 2 at the left edge of the work\n"
    "area, 3 right, 4 top, 5 bottom), and the suite's main windows (tqm dock\n"
    "client) subscribe with it and fill the rest of the work area beside it. The\n"
    "keys 1 to 5 in its window dock it at another position; its clients follow.\n"
    "It starts afresh each time (tqm keeps no window placement).\n\n"
    "Control characters in texts show as \\n, \\r, \\t or \\xNN. Ctrl+C ends it, and\n"
    "so does closing its window; --count N ends it after N messages. Exit 1 when\n"
    "a project manager (or another stand-in) already runs.\n\n"
    "--check is the partner of the load test (the stress test program): instead\n"
    "of a line per message, it checks each saved file, message line and request\n"
    "for the sender, sequence number and checksum it carries, answers each\n"
    "request with the reply of the size it asks for, and prints at the end, per\n"
    "kind, \"checked KIND: N whole, N damaged, N repeated\" (P the saved files'\n"
    "paths, I their infos, M message lines, Q requests).\n";

struct PmOptions
{
    bool fixedReply = false;
    bool check = false;
    std::string reply;
    long count = 0;
    int dockPos = 0;  // 0: no docking
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
    void Finish()
    {
        m_exchange.WaitForReaders(5000);
        if (m_options.check)
            m_check.PrintCounts();
    }

private:
    void printCopyData(const COPYDATASTRUCT& data)
    {
        int level = 0;
        if (m_options.check && tqm::ReadDisplayMessageWord(data.dwData, &level)) {
            const char* bytes = static_cast<const char*>(data.lpData);
            m_check.Message(bytes && data.cbData ? std::string(bytes, strnlen(bytes, data.cbData)) : std::string());
            return;
        }
        std::string text = data.lpData ? PrintableText(static_cast<const char*>(data.lpData), data.cbData) : "";
        if (data.dwData == TARN_TRACE_TAG_PROJECT_MANAGER)
            PrintStampedLine("tarn      %s", text.c_str());
        else if (tqm::ReadDisplayMessageWord(data.dwData, &level))
            PrintStampedLine("message   %d | %s", level, text.c_str());
        else
            PrintStampedLine("copydata  %08lX | %s", static_cast<unsigned long>(data.dwData), text.c_str());
    }

    // The receiver's part of a notification: both strings read, then deleted.
    void printSavedFile(ATOM info, ATOM path)
    {
        char pathName[256] = "";
        GlobalGetAtomNameA(path, pathName, sizeof(pathName));
        CString infoText = GlobalGetMoleculeName(info);
        GlobalDeleteAtom(path);
        GlobalDeleteMolecule(info);
        if (m_options.check) {
            m_check.Saved(pathName, std::string(infoText.GetString(), static_cast<size_t>(infoText.GetLength())));
            return;
        }
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
        if (m_options.check)
            m_checkReply = m_check.Request(request);
        const std::string& reply = m_options.check ? m_checkReply : m_options.fixedReply ? m_options.reply : request;
        DWORD error = 0;
        if (!m_exchange.Reply(requester, reply.data(), static_cast<DWORD>(reply.size()), &error)) {
            PrintStampedLine("exchange  %s | %s | no reply to window %s: %s", sectionName.c_str(),
                             PrintableText(request.data(), request.size()).c_str(), WindowText(requester).c_str(),
                             SystemMessage(error).c_str());
            return;
        }
        if (m_options.check)
            return;
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
    PmLoadCheck m_check;
    std::string m_checkReply;
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
        if ((arg == "--reply" || arg == "--reply-file" || arg == "--count" || arg == "--dock") && i + 1 >= args.size())
            return UsageError("pm", "%s needs a value", arg.c_str());
        if (arg == "--check") {
            if (options.fixedReply)
                return UsageError("pm", "--check makes its own replies");
            options.check = true;
        } else if (arg == "--reply" || arg == "--reply-file") {
            if (options.fixedReply || options.check)
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
        } else if (arg == "--dock") {
            long long dockPos = 0;
            if (!ParseInteger(args[++i], 1, 5, dockPos))
                return UsageError("pm", "--dock needs a dock position from 1 to 5, not \"%s\"", args[i].c_str());
            options.dockPos = static_cast<int>(dockPos);
        } else {
            return UsageError("pm", "unknown argument %s", arg.c_str());
        }
    }

    ListenerWindow window(TARN_PROJECT_MANAGER_WINDOW_CLASS, "tqm pm");
    window.EndAfter(options.count);
    ProjectManagerStandIn standIn(window, options);
    // Where the stand-in learns more: a module that gives the project
    // manager's window further duties (desktop docking) adds its own handler
    // here, with window.AddHandler. Handlers are asked in the order they
    // were added; the first that handles a message ends its handling.
    window.AddHandler([&standIn](HWND, UINT msg, WPARAM wParam, LPARAM lParam, LRESULT& result) {
        return standIn.Handle(msg, wParam, lParam, result);
    });
    std::unique_ptr<PmDocking> docking;
    if (options.dockPos)
        docking = std::make_unique<PmDocking>(window, options.dockPos);
    if (!(docking ? docking->Create() : window.Create()))
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
