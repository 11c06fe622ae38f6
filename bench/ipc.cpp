// Cooperation between processes, as ratios measured in one run:
//
// - molecules: GlobalAddMolecule, GlobalGetMoleculeName and
//   GlobalDeleteMolecule of a 6,000-character string, against the least the
//   atom table must do for it - adding, reading and deleting its 24 pieces as
//   plain atoms;
// - ExchangeData round trips with a partner process (this program, started
//   with --partner) and replies of 1 KB and 100 KB, against a plain
//   WM_COPYDATA round trip of the same bytes with the same partner: the
//   request sent as copy-data, the reply sent back as copy-data before that
//   send returns, and copied into a heap block as ExchangeData copies it.
//   The partner answers exchanges as tqm pm does (tools/tqm/ExchangePartner.h):
//   it keeps a requester's sections open between exchanges, so that the
//   requester's next request finds its section instead of making one.
//
// Each figure is the best of several rounds.
#include "bench/BenchClock.h"
#include "ipc/DataExchange.h"
#include "ipc/Molecules.h"
#include "tools/tqm/ExchangePartner.h"

#include <windows.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <string>
#include <vector>

using tqmbench::BestOf;

namespace {

const char kPartnerClass[] = "TqmBenchIpcPartner";
const char kRequesterClass[] = "TqmBenchIpcRequester";
constexpr int kRounds = 7;
constexpr int kMoleculeLoops = 2000;
constexpr size_t kMoleculeLength = 6000;

// --- the partner process --------------------------------------------------

std::vector<char> g_replyBytes(100 * 1024, 'r');
tqmtool::ExchangePartner* g_partner = nullptr;

// Requests name the size of the reply they want, in decimal.
LRESULT CALLBACK partnerProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    if (msg == g_partner->RequestMessage()) {
        std::string section, request;
        g_partner->ReadRequest(reinterpret_cast<HWND>(wParam), static_cast<ATOM>(lParam), section, request);
        DWORD size = static_cast<DWORD>(strtoul(request.c_str(), nullptr, 10));
        DWORD error = 0;
        g_partner->Reply(reinterpret_cast<HWND>(wParam), g_replyBytes.data(), size, &error);
        return 0;
    }
    switch (msg) {
    case WM_COPYDATA: {
        const auto& request = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        COPYDATASTRUCT reply = {0, static_cast<DWORD>(request.dwData), g_replyBytes.data()};
        SendMessageA(reinterpret_cast<HWND>(wParam), WM_COPYDATA, reinterpret_cast<WPARAM>(hWnd),
                     reinterpret_cast<LPARAM>(&reply));
        return TRUE;
    }
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

int runPartner()
{
    tqmtool::ExchangePartner partner;
    g_partner = &partner;
    WNDCLASSA wc = {};
    wc.lpfnWndProc = partnerProc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.lpszClassName = kPartnerClass;
    RegisterClassA(&wc);
    if (!CreateWindowA(kPartnerClass, "", WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr, wc.hInstance, nullptr))
        return 1;
    MSG msg;
    while (GetMessageA(&msg, nullptr, 0, 0) > 0)
        DispatchMessageA(&msg);
    partner.WaitForReaders(5000);
    return 0;
}

// --- the requesting side --------------------------------------------------

// Where the plain round trip's reply lands: a heap block, as ExchangeData's.
void* g_copiedReply = nullptr;
DWORD g_copiedSize = 0;

LRESULT CALLBACK requesterProc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
{
    if (msg != WM_COPYDATA)
        return DefWindowProcA(hWnd, msg, wParam, lParam);
    const auto& reply = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    g_copiedReply = HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, reply.cbData + 1);
    memcpy(g_copiedReply, reply.lpData, reply.cbData);
    g_copiedSize = reply.cbData;
    return TRUE;
}

bool copyDataRoundTrip(HWND partner, HWND self, DWORD replySize)
{
    char request[16];
    snprintf(request, sizeof(request), "%lu", static_cast<unsigned long>(replySize));
    COPYDATASTRUCT data = {replySize, static_cast<DWORD>(strlen(request) + 1), request};
    SendMessageA(partner, WM_COPYDATA, reinterpret_cast<WPARAM>(self), reinterpret_cast<LPARAM>(&data));
    bool ok = g_copiedReply && g_copiedSize == replySize;
    HeapFree(GetProcessHeap(), 0, g_copiedReply);
    g_copiedReply = nullptr;
    return ok;
}

bool exchangeRoundTrip(HWND partner, HWND self, DWORD replySize)
{
    char request[16];
    snprintf(request, sizeof(request), "%lu", static_cast<unsigned long>(replySize));
    EXCHANGEDATA data = {};
    data.hWndPartner = partner;
    data.hWndOwner = self;
    data.pszSectionName = "TqmBenchIpc.Request";
    data.dwRequestSize = static_cast<DWORD>(strlen(request) + 1);
    data.pRequest = request;
    if (!ExchangeData(&data))
        return false;
    HeapFree(GetProcessHeap(), 0, data.pReply);
    return data.dwReplySize == replySize;
}

struct PartnerProcess
{
    PROCESS_INFORMATION info = {};
    HWND window = nullptr;

    bool start()
    {
        char path[MAX_PATH] = "";
        GetModuleFileNameA(nullptr, path, MAX_PATH);
        std::string commandLine = "\"" + std::string(path) + "\" --partner";
        STARTUPINFOA startup = {};
        startup.cb = sizeof(startup);
        if (!CreateProcessA(nullptr, &commandLine[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &info))
            return false;
        for (int waited = 0; waited < 30000 && !window; waited += 20) {
            Sleep(20);
            window = FindWindowA(kPartnerClass, nullptr);
        }
        return window != nullptr;
    }
    ~PartnerProcess()
    {
        if (!info.hProcess)
            return;
        if (window)
            PostMessageA(window, WM_CLOSE, 0, 0);
        if (WaitForSingleObject(info.hProcess, 10000) != WAIT_OBJECT_0)
            TerminateProcess(info.hProcess, 1);
        CloseHandle(info.hProcess);
        CloseHandle(info.hThread);
    }
};

// --- molecules ------------------------------------------------------------

bool moleculeRounds(const std::string& text)
{
    std::vector<char> buffer(text.size() + 1);
    for (int i = 0; i < kMoleculeLoops; ++i) {
        ATOM molecule = GlobalAddMolecule(text.c_str());
        int got = GlobalGetMoleculeName(molecule, buffer.data(), static_cast<int>(buffer.size()));
        if (!molecule || got != static_cast<int>(text.size()) || GlobalDeleteMolecule(molecule) != 0)
            return false;
    }
    return true;
}

bool plainAtomRounds(const std::string& text)
{
    const size_t pieces = text.size() / 255 + 1;
    std::vector<ATOM> atoms(pieces);
    char piece[256];
    for (int i = 0; i < kMoleculeLoops; ++i) {
        for (size_t p = 0; p < pieces; ++p) {
            const std::string slice = text.substr(p * 255, 255);
            atoms[p] = GlobalAddAtomA(slice.c_str());
        }
        for (size_t p = 0; p < pieces; ++p) {
            if (!GlobalGetAtomNameA(atoms[p], piece, sizeof(piece)))
                return false;
        }
        for (size_t p = 0; p < pieces; ++p)
            GlobalDeleteAtom(atoms[p]);
    }
    return true;
}

void benchMolecules()
{
    std::string text(kMoleculeLength, ' ');
    for (size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<char>('A' + (i * 7 + i / 255) % 26);
    double molecule = 0, plain = 0;
    if (!BestOf(kRounds, [&] { return moleculeRounds(text); }, &molecule) ||
        !BestOf(kRounds, [&] { return plainAtomRounds(text); }, &plain)) {
        printf("molecules: the atom table failed (error %lu)\n", GetLastError());
        return;
    }
    printf("molecules of %lu characters (%lu pieces): add, get and delete %.0f per second;\n"
           "  the same pieces as plain atoms %.0f per second: ratio %.2f\n",
           static_cast<unsigned long>(kMoleculeLength), static_cast<unsigned long>(kMoleculeLength / 255 + 1),
           kMoleculeLoops / molecule, kMoleculeLoops / plain, molecule / plain);
}

// --- data exchange --------------------------------------------------------

// Times trips round trips and keeps the fastest time in best; false when one fails.
template <typename RoundTrip>
bool timeTrips(int trips, double& best, RoundTrip roundTrip)
{
    double seconds = 0;
    bool ok = BestOf(1, [&] {
        for (int i = 0; i < trips; ++i) {
            if (!roundTrip())
                return false;
        }
        return true;
    }, &seconds);
    best = std::min(best, seconds);
    return ok;
}

void benchExchange()
{
    PartnerProcess partner;
    if (!partner.start()) {
        printf("exchange: the partner process did not start\n");
        return;
    }
    WNDCLASSA wc = {};
    wc.lpfnWndProc = requesterProc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.lpszClassName = kRequesterClass;
    RegisterClassA(&wc);
    HWND self = CreateWindowA(kRequesterClass, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, wc.hInstance, nullptr);

    struct Size { DWORD bytes; int trips; } sizes[] = {{1024, 200}, {100 * 1024, 100}};
    for (const Size& size : sizes) {
        // The two kinds take turns, so that both meet the machine's load alike.
        double exchange = 1e30, copyData = 1e30;
        bool ok = true;
        for (int round = 0; ok && round < kRounds; ++round) {
            ok = timeTrips(size.trips, exchange, [&] { return exchangeRoundTrip(partner.window, self, size.bytes); }) &&
                 timeTrips(size.trips, copyData, [&] { return copyDataRoundTrip(partner.window, self, size.bytes); });
        }
        if (!ok) {
            printf("exchange of %lu bytes failed\n", static_cast<unsigned long>(size.bytes));
            continue;
        }
        printf("round trips with %3lu KB replies: ExchangeData %.0f per second, WM_COPYDATA %.0f per second:\n"
               "  ratio %.2f (target at most 2)\n",
               static_cast<unsigned long>(size.bytes / 1024), size.trips / exchange, size.trips / copyData,
               exchange / copyData);
    }
    DestroyWindow(self);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc > 1 && strcmp(argv[1], "--partner") == 0)
        return runPartner();
    printf("best of %d rounds\n", kRounds);
    benchMolecules();
    benchExchange();
    return 0;
}
