// tqm notify FILE [INFO]
// tqm message [--level N] TEXT
// tqm exchange SECTION TEXT
//
// What a program of the suite sends the project manager (or tqm pm): a saved
// file, a line for the message window, a data-exchange request.
#include "tools/tqm/Command.h"

#include "diag/DebugOutput.h"
#include "ipc/DataExchange.h"
#include "ipc/Notifications.h"

#include <windows.h>

#include <limits.h>
#include <stdio.h>

#include <string>

namespace tqmtool {
namespace {

const char kNoProjectManager[] = "no project manager is running (start \"tqm pm\")";

int runNotify(const Args& args)
{
    if (args.empty() || args.size() > 2)
        return UsageError("notify", args.empty() ? "the FILE is missing" : "too many arguments");
    if (!TQMNotifyFileSaved(args[0].c_str(), args.size() > 1 ? args[1].c_str() : ""))
        return Fail("%s", kNoProjectManager);
    return kExitOk;
}

int runMessage(const Args& args)
{
    long long level = 0;
    const std::string* text = nullptr;
    for (size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--level") {
            if (i + 1 >= args.size() || !ParseInteger(args[++i], INT_MIN, INT_MAX, level))
                return UsageError("message", "--level needs a number");
        } else if (!text) {
            text = &args[i];
        } else {
            return UsageError("message", "too many arguments");
        }
    }
    if (!text)
        return UsageError("message", "the TEXT is missing");
    if (!TQMDisplayMessage(text->c_str(), static_cast<int>(level)))
        return Fail("%s", kNoProjectManager);
    return kExitOk;
}

int runExchange(const Args& args)
{
    if (args.size() != 2)
        return UsageError("exchange", "SECTION and TEXT are needed");
    const std::string& request = args[1];
    if (request.size() > TQM_EXCHANGE_REQUEST_SIZE)
        return UsageError("exchange", "the request holds at most %d bytes", TQM_EXCHANGE_REQUEST_SIZE);
    HWND partner = FindWindowA(TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr);
    if (!partner)
        return Fail("%s", kNoProjectManager);
    // The reply is posted to a window of ours; a message-only one will do.
    HWND owner = CreateWindowA("STATIC", "tqm exchange", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                               GetModuleHandleA(nullptr), nullptr);
    if (!owner)
        return Fail("cannot create a window (error %lu)", GetLastError());
    EXCHANGEDATA data = {};
    data.hWndPartner = partner;
    data.hWndOwner = owner;
    data.pszSectionName = args[0].c_str();
    data.dwRequestSize = static_cast<DWORD>(request.size());
    data.pRequest = request.data();
    const BOOL exchanged = ExchangeData(&data);
    DestroyWindow(owner);
    if (!exchanged)
        return Fail("the exchange failed");
    fwrite(data.pReply, 1, data.dwReplySize, stdout);
    putchar('\n');
    HeapFree(GetProcessHeap(), 0, data.pReply);
    return kExitOk;
}

}  // namespace

TQM_REGISTER_COMMAND({"notify", "tell the project manager that a file was saved",
                      "usage: tqm notify FILE [INFO]\n\n"
                      "Tells the project manager (or \"tqm pm\") that FILE was saved, with an INFO text\n"
                      "of up to 6629 characters (TQMNotifyFileSaved). FILE travels as a global atom,\n"
                      "so at most 255 characters of it arrive. Exit 1 when no project manager runs.\n",
                      runNotify});

TQM_REGISTER_COMMAND({"message", "send a line to the project manager's message window",
                      "usage: tqm message [--level N] TEXT\n\n"
                      "Sends TEXT to the project manager's message window (TQMDisplayMessage) and\n"
                      "waits until it has taken it. Level 1 is a warning, 2 an error; without\n"
                      "--level (or with 0 or less) a TEXT beginning \"Error \" or \"Fatal \" is an\n"
                      "error and one beginning \"Warning\" a warning. Exit 1 when no project manager\n"
                      "runs.\n",
                      runMessage});

TQM_REGISTER_COMMAND({"exchange", "send a data-exchange request to the project manager, print the reply",
                      "usage: tqm exchange SECTION TEXT\n\n"
                      "Hands TEXT (at most 10240 bytes) to the project manager (or \"tqm pm\") in a\n"
                      "shared-memory section named SECTION (ExchangeData), waits for the reply and\n"
                      "prints it. The wait has no time-out: a partner that never answers holds it\n"
                      "until Ctrl+C. Exit 1 when no project manager runs or the exchange fails.\n",
                      runExchange});

}  // namespace tqmtool
