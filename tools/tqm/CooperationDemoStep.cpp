// The cooperation step of "tqm demo": a stand-in project manager ("tqm pm")
// started as a second process, what the library sends it, and what it
// received.
#include "tools/tqm/Demo.h"

#include "diag/DebugOutput.h"
#include "framework/Handles.h"
#include "ipc/DataExchange.h"
#include "ipc/Molecules.h"
#include "ipc/Notifications.h"
#include "ipc/logic/MessageLevel.h"

#include <windows.h>

#include <stdio.h>

#include <string>

namespace tqmtool {
namespace {

// The messages the demo sends; the stand-in ends after as many.
constexpr int kMessagesSent = 4;

// "tqm pm" in a child process whose output the demo reads afterwards.
class StandIn
{
public:
    bool start()
    {
        SECURITY_ATTRIBUTES inherit = {sizeof(inherit), nullptr, TRUE};
        HANDLE read = nullptr, write = nullptr;
        if (!CreatePipe(&read, &write, &inherit, 0))
            return false;
        m_output.reset(read);
        tqm::UniqueHandle childEnd(write);
        SetHandleInformation(read, HANDLE_FLAG_INHERIT, 0);

        char self[MAX_PATH] = "";
        GetModuleFileNameA(nullptr, self, MAX_PATH);
        std::string commandLine = "\"" + std::string(self) + "\" pm --count " + std::to_string(kMessagesSent) +
                                  " --reply \"pump 2: running, 3.2 bar\"";
        STARTUPINFOA startup = {};
        startup.cb = sizeof(startup);
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
        startup.hStdOutput = childEnd.get();
        startup.hStdError = nullptr;  // its note on stderr is not part of the show
        PROCESS_INFORMATION info = {};
        if (!CreateProcessA(nullptr, &commandLine[0], nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr,
                            &startup, &info))
            return false;
        m_process.reset(info.hProcess);
        CloseHandle(info.hThread);
        for (int waited = 0; waited < 30000 && !m_window; waited += 20) {
            Sleep(20);
            m_window = FindWindowA(TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr);
        }
        return m_window != nullptr;
    }
    HWND window() const { return m_window; }
    DWORD processId() const { return GetProcessId(m_process.get()); }

    // Everything it printed, once it has ended (stopped after 20 s).
    std::string finish()
    {
        if (WaitForSingleObject(m_process.get(), 20000) != WAIT_OBJECT_0)
            TerminateProcess(m_process.get(), 1);
        std::string text;
        char buffer[4096];
        DWORD got = 0;
        while (ReadFile(m_output.get(), buffer, sizeof(buffer), &got, nullptr) && got > 0)
            text.append(buffer, got);
        return text;
    }

private:
    tqm::UniqueHandle m_process;
    tqm::UniqueHandle m_output;
    HWND m_window = nullptr;
};

void sendToProjectManager(HWND pm, const std::string& demoDir)
{
    const std::string file = demoDir + "\\Projects\\Pump\\Main.st";
    printf("TQMNotifyFileSaved(\"%s\", \"compiled, 0 errors\"): %s\n", file.c_str(),
           TQMNotifyFileSaved(file.c_str(), "compiled, 0 errors") ? "TRUE" : "FALSE");
    const char* warning = "Warning: tank 3 below its minimum level";
    printf("TQMDisplayMessage(\"%s\", 0): %s, level %d as derived from the text\n", warning,
           TQMDisplayMessage(warning, 0) ? "TRUE" : "FALSE", tqm::DisplayMessageLevel(warning, 0));
    printf("TarnVerbose(TARN_VERBOSE_TO_VMX | TARN_VERBOSE_ERROR, \"build stopped\"): %s\n",
           TarnVerbose(TARN_VERBOSE_TO_VMX | TARN_VERBOSE_ERROR, "build stopped") ? "true" : "false");

    HWND owner = CreateWindowA("STATIC", "tqm demo", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, GetModuleHandleA(nullptr),
                               nullptr);
    const char request[] = "status of pump 2?";
    EXCHANGEDATA data = {pm, owner, "TqmDemo.PumpStatus", sizeof(request) - 1, request, 0, nullptr};
    if (ExchangeData(&data)) {
        printf("ExchangeData(\"%s\", \"%s\"): reply \"%s\" (%lu bytes)\n", data.pszSectionName, request,
               static_cast<const char*>(data.pReply), static_cast<unsigned long>(data.dwReplySize));
        HeapFree(GetProcessHeap(), 0, data.pReply);
    } else {
        printf("ExchangeData failed\n");
    }
    DestroyWindow(owner);
}

void showMolecule()
{
    std::string text;
    while (text.size() < 600)
        text += "C:\\Projects\\Pump\\Stations\\Station" + std::to_string(text.size() / 40) + ";";
    text.resize(600);
    ATOM molecule = GlobalAddMolecule(text.c_str());
    char head[256] = "";
    GlobalGetAtomNameA(molecule, head, sizeof(head));
    const bool whole = text == GlobalGetMoleculeName(molecule).GetString();
    const bool deleted = GlobalDeleteMolecule(molecule) == 0;
    printf("A molecule of %lu characters (three atoms of at most 255 and a head): %04X \"%s\";\n"
           "  read back %s, deleted: %s\n",
           static_cast<unsigned long>(text.size()), molecule, head, whole ? "whole" : "DAMAGED", deleted ? "yes" : "no");
}

bool cooperationStep(const std::string& demoDir)
{
    showMolecule();
    if (HWND running = FindWindowA(TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr)) {
        printf("A project manager already runs (window %08lX): what follows arrives there.\n",
               static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(running)));
        sendToProjectManager(running, demoDir);
        return true;
    }
    StandIn pm;
    if (!pm.start()) {
        printf("\"tqm pm\" did not start\n");
        return false;
    }
    printf("Started \"tqm pm\" as the project manager's stand-in (process %lu, window %08lX).\n", pm.processId(),
           static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(pm.window())));
    sendToProjectManager(pm.window(), demoDir);
    std::string received = pm.finish();
    printf("What \"tqm pm\" printed:\n");
    for (size_t at = 0; at < received.size();) {
        size_t end = received.find('\n', at);
        std::string line = received.substr(at, end == std::string::npos ? std::string::npos : end - at);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        printf("  %s\n", line.c_str());
        at = end == std::string::npos ? received.size() : end + 1;
    }
    return true;
}

}  // namespace

TQM_REGISTER_DEMO_STEP({60, "Cooperation between processes", cooperationStep});

}  // namespace tqmtool
