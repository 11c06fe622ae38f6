// Cooperation under load: sender processes against one tqm pm --check, each
// interleaving saved-file notifications, message lines and data exchanges
// whose texts carry their sender, sequence number and checksum; then senders
// killed in the middle of their work.
#include "stress/Stress.h"

#include "support/TempDir.h"
#include "support/TqmProgram.h"
#include "tools/tqm/LoadPayload.h"

#include "ipc/DataExchange.h"
#include "ipc/Molecules.h"
#include "ipc/Notifications.h"

#include <gtest/gtest.h>

#include <psapi.h>
#include <stdio.h>
#include <stdlib.h>

#include <map>
#include <sstream>

namespace tqmstress {

using tqmtool::CheckLoadText;
using tqmtool::LoadHead;
using tqmtool::MakeLoadText;

namespace {

const unsigned long kMaxPath = 255;        // a plain atom's name
const unsigned long kMaxInfo = 6629;       // the longest molecule
const unsigned long kMaxMessage = 2000;    // a message line
const unsigned long kMaxReply = 100 * 1024;

// A random length of an info text. Lengths that are an exact multiple of 255
// (above 255) are left out: their molecule ends in an empty piece, which the
// system's atom table refuses, so GlobalAddMolecule returns 0 and leaves the
// pieces before it in the table, as the molecule's rules have it (the
// molecule tests show that case on its own).
unsigned long infoLength(Random& random)
{
    unsigned long length = random.Between(40, kMaxInfo);
    return length > 255 && length % 255 == 0 ? length - 1 : length;
}

struct SenderCounts
{
    unsigned long notes = 0;
    unsigned long messages = 0;
    unsigned long exchanges = 0;
    unsigned long matched = 0;
    unsigned long failed = 0;  // a call that returned FALSE
};

// One exchange; true when the reply is the answer to this very request.
bool exchangeOnce(HWND pm, HWND owner, const std::string& section, unsigned long sender, unsigned long seq,
                  Random& random)
{
    LoadHead head;
    head.kind = 'Q';
    head.sender = sender;
    head.seq = seq;
    head.extra = random.Between(40, kMaxReply);
    const std::string request = MakeLoadText(head, random.Between(40, TQM_EXCHANGE_REQUEST_SIZE));
    EXCHANGEDATA data = {};
    data.hWndPartner = pm;
    data.hWndOwner = owner;
    data.pszSectionName = section.c_str();
    data.dwRequestSize = static_cast<DWORD>(request.size());
    data.pRequest = request.data();
    if (!ExchangeData(&data))
        return false;
    LoadHead reply;
    const bool matched = data.dwReplySize == head.extra &&
                         CheckLoadText(static_cast<const char*>(data.pReply), data.dwReplySize, &reply) &&
                         reply.kind == 'R' && reply.sender == sender && reply.seq == seq && reply.extra == head.extra;
    HeapFree(GetProcessHeap(), 0, data.pReply);
    return matched;
}

}  // namespace

// Role "sender": ID NOTES MESSAGES EXCHANGES RESULT-FILE. Sends its texts in
// a random order and writes what it sent into RESULT-FILE.
int SenderRole(const std::vector<std::string>& args)
{
    if (args.size() != 5)
        return 2;
    const unsigned long id = strtoul(args[0].c_str(), nullptr, 10);
    unsigned long left[3] = {strtoul(args[1].c_str(), nullptr, 10), strtoul(args[2].c_str(), nullptr, 10),
                             strtoul(args[3].c_str(), nullptr, 10)};
    HWND pm = FindWindowA(TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr);
    HWND owner = CreateWindowExA(0, "STATIC", "sender", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    if (!pm || !owner)
        return 3;
    char section[64];
    snprintf(section, sizeof(section), "Tqm.Stress.Request.%lu", GetCurrentProcessId());
    Random random(id * 7919 + GetTickCount());
    SenderCounts counts;
    unsigned long seq = 0;
    while (left[0] + left[1] + left[2] > 0) {
        unsigned long pick = random.Between(0, left[0] + left[1] + left[2] - 1);
        LoadHead head;
        head.sender = id;
        head.seq = ++seq;
        if (pick < left[0]) {
            --left[0];
            head.kind = 'P';
            const std::string path = MakeLoadText(head, random.Between(40, kMaxPath));
            head.kind = 'I';
            const std::string info = MakeLoadText(head, infoLength(random));
            TQMNotifyFileSaved(path.c_str(), info.c_str()) ? ++counts.notes : ++counts.failed;
        } else if (pick < left[0] + left[1]) {
            --left[1];
            head.kind = 'M';
            const std::string text = MakeLoadText(head, random.Between(40, kMaxMessage));
            TQMDisplayMessage(text.c_str(), 0) ? ++counts.messages : ++counts.failed;
        } else {
            --left[2];
            ++counts.exchanges;
            if (exchangeOnce(pm, owner, section, id, seq, random))
                ++counts.matched;
        }
    }
    DestroyWindow(owner);
    FILE* result = fopen(args[4].c_str(), "w");
    if (!result)
        return 4;
    fprintf(result, "%lu %lu %lu %lu %lu\n", counts.notes, counts.messages, counts.exchanges, counts.matched,
            counts.failed);
    fclose(result);
    return 0;
}

namespace {

SenderCounts readCounts(const std::string& file)
{
    SenderCounts counts;
    std::istringstream in(ReadWhole(file));
    in >> counts.notes >> counts.messages >> counts.exchanges >> counts.matched >> counts.failed;
    return counts;
}

struct PmCounts
{
    std::map<char, unsigned long> whole, damaged, repeated;
};

// The "checked KIND: N whole, N damaged, N repeated" lines of tqm pm --check.
PmCounts readPmCounts(const std::string& output)
{
    PmCounts counts;
    std::istringstream in(output);
    std::string line;
    while (std::getline(in, line)) {
        char kind = 0;
        unsigned long whole = 0, damaged = 0, repeated = 0;
        if (sscanf(line.c_str(), "checked %c: %lu whole, %lu damaged, %lu repeated", &kind, &whole, &damaged,
                   &repeated) == 4) {
            counts.whole[kind] = whole;
            counts.damaged[kind] = damaged;
            counts.repeated[kind] = repeated;
        }
    }
    return counts;
}

struct ProcessResources
{
    DWORD handles = 0;
    DWORD user = 0;
    DWORD gdi = 0;
    DWORD windows = 0;
};

// The system's list of every open handle (SystemHandleInformation), where
// GetProcessHandleCount has no answer: Wine's says 0.
struct SystemHandle
{
    ULONG processId;
    UCHAR objectType;
    UCHAR flags;
    USHORT handle;
    PVOID object;
    ACCESS_MASK access;
};
struct SystemHandles
{
    ULONG count;
    SystemHandle handles[1];
};

DWORD handlesFromSystemList(DWORD processId)
{
    using QueryFunction = LONG(WINAPI*)(int, void*, ULONG, ULONG*);
    auto query = reinterpret_cast<QueryFunction>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation")));
    if (!query)
        return 0;
    std::vector<char> buffer(1 << 20);
    ULONG needed = 0;
    while (query(16, buffer.data(), static_cast<ULONG>(buffer.size()), &needed) == static_cast<LONG>(0xC0000004) &&
           buffer.size() < (64u << 20))
        buffer.resize(buffer.size() * 2);
    const auto* list = reinterpret_cast<const SystemHandles*>(buffer.data());
    DWORD count = 0;
    for (ULONG i = 0; i < list->count; ++i)
        count += list->handles[i].processId == processId;
    return count;
}

BOOL CALLBACK countWindow(HWND window, LPARAM context)
{
    auto* counted = reinterpret_cast<std::pair<DWORD, DWORD>*>(context);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    counted->second += owner == counted->first;
    return TRUE;
}

ProcessResources resourcesOf(HANDLE process)
{
    ProcessResources resources;
    GetProcessHandleCount(process, &resources.handles);
    if (resources.handles == 0)
        resources.handles = handlesFromSystemList(GetProcessId(process));
    resources.user = GetGuiResources(process, GR_USEROBJECTS);
    resources.gdi = GetGuiResources(process, GR_GDIOBJECTS);
    std::pair<DWORD, DWORD> counted(GetProcessId(process), 0);
    EnumWindows(countWindow, reinterpret_cast<LPARAM>(&counted));
    resources.windows = counted.second;
    return resources;
}

// tqm pm --check, started for one test and closed at its end.
class CheckingPm
{
public:
    explicit CheckingPm(const tqmtest::TempDir& dir) : m_output(dir.file("pm.txt")) {}

    bool Start()
    {
        if (!m_process.StartCommand(tqmtest::TqmCommandLine({"pm", "--check"}), m_output))
            return false;
        for (DWORD waited = 0; waited < 30000 && !m_window; waited += 20) {
            Sleep(20);
            m_window = FindWindowA(TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr);
        }
        return m_window != nullptr;
    }
    HWND Window() const { return m_window; }
    HANDLE Process() const { return m_process.Process(); }
    // Closes its window; what it printed.
    std::string Close()
    {
        PostMessageA(m_window, WM_CLOSE, 0, 0);
        m_process.Wait(60000);
        return ReadWhole(m_output);
    }

private:
    std::string m_output;
    Child m_process;
    HWND m_window = nullptr;
};

// Every message the senders use is registered once before the census, as the
// project manager's own are: registered names stay for the session.
void registerMessages()
{
    RegisterWindowMessageA(TARN_MSG_NOTIFY_FILE_SAVED);
    RegisterWindowMessageA(TARN_MSG_DATA_EXCHANGE);
    RegisterWindowMessageA(TARN_MSG_DATA_READY);
}

// The damaged texts tqm pm --check names, among the figures.
void printDamaged(const std::string& pmOutput)
{
    std::istringstream in(pmOutput);
    std::string line;
    while (std::getline(in, line))
        if (line.compare(0, 8, "damaged ") == 0)
            Figure("  %s", line.c_str());
}

// A last exchange from a sender of its own comes after every notification
// posted before it: once it is answered, the project manager has read them
// all.
void drainPm(const tqmtest::TempDir& dir)
{
    static int s_drains = 0;  // each its own sender, so that none repeats another's text
    Child last;
    ASSERT_TRUE(last.Start("sender", {std::to_string(900 + ++s_drains), "0", "0", "1", dir.file("last.txt")}));
    EXPECT_EQ(0, last.Wait(60000));
}

std::string joined(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text.empty() ? "none" : text;
}

TEST(CooperationUnderLoad, NothingLostNothingDamagedNothingLeaked)
{
    const int senders = 8;
    const int notes = Sized(1000, 40), messages = Sized(1000, 40), exchanges = Sized(300, 12);
    tqmtest::TempDir dir;
    registerMessages();
    CheckingPm pm(dir);
    ASSERT_TRUE(pm.Start()) << "tqm pm --check did not start";
    // One exchange first: the partner keeps the sections of its last
    // requester until it hears from another, before the census as after it.
    drainPm(dir);
    const std::vector<ATOM> atomsBefore = GlobalAtoms();
    const ProcessResources before = resourcesOf(pm.Process());

    const DWORD start = GetTickCount();
    std::vector<Child> children(senders);
    for (int i = 0; i < senders; ++i) {
        ASSERT_TRUE(children[i].Start("sender", {std::to_string(i + 1), std::to_string(notes), std::to_string(messages),
                                                 std::to_string(exchanges), dir.file("sender" + std::to_string(i) + ".txt")}));
    }
    SenderCounts sent;
    for (int i = 0; i < senders; ++i) {
        EXPECT_EQ(0, children[i].Wait(FullSize() ? 1800000 : 120000)) << "sender " << i + 1;
        const SenderCounts one = readCounts(dir.file("sender" + std::to_string(i) + ".txt"));
        sent.notes += one.notes;
        sent.messages += one.messages;
        sent.exchanges += one.exchanges;
        sent.matched += one.matched;
        sent.failed += one.failed;
    }
    const DWORD seconds = (GetTickCount() - start) / 1000;
    drainPm(dir);
    Sleep(200);
    const ProcessResources after = resourcesOf(pm.Process());
    const std::vector<ATOM> atomsAfter = GlobalAtoms();
    const std::string pmOutput = pm.Close();
    PmCounts got = readPmCounts(pmOutput);
    printDamaged(pmOutput);

    const unsigned long received = got.whole.count('P') ? got.whole.at('P') : 0;
    const unsigned long damaged = got.damaged['P'] + got.damaged['I'] + got.damaged['M'] + got.damaged['Q'];
    const unsigned long repeated = got.repeated['P'] + got.repeated['I'] + got.repeated['M'] + got.repeated['Q'];
    Figure("cooperation: %d senders, %lu s; notifications sent %lu, received %lu; message lines sent %lu, "
           "received %lu; exchanges %lu, received %lu, replies matched %lu; damaged %lu, repeated %lu, failed calls %lu",
           senders, seconds, sent.notes, received, sent.messages, got.whole['M'], sent.exchanges, got.whole['Q'] - 2,
           sent.matched, damaged, repeated, sent.failed);
    const std::vector<std::string> leftAtoms = NewAtoms(atomsBefore, atomsAfter);
    Figure("cooperation: global atoms before %lu, after %lu, left behind %lu (%s)",
           static_cast<unsigned long>(atomsBefore.size()), static_cast<unsigned long>(atomsAfter.size()),
           static_cast<unsigned long>(leftAtoms.size()), joined(leftAtoms).c_str());
    Figure("cooperation: tqm pm handles %lu -> %lu, top-level windows %lu -> %lu, USER objects %lu -> %lu, "
           "GDI objects %lu -> %lu%s",
           before.handles, after.handles, before.windows, after.windows, before.user, after.user, before.gdi, after.gdi,
           before.user + after.user + before.gdi + after.gdi == 0 ? " (GetGuiResources counts nothing under Wine)" : "");

    EXPECT_EQ(static_cast<unsigned long>(senders * notes), sent.notes);
    EXPECT_EQ(sent.notes, received);
    EXPECT_EQ(sent.notes, got.whole['I']);
    EXPECT_EQ(sent.messages, got.whole['M']);
    EXPECT_EQ(sent.exchanges + 2, got.whole['Q']);
    EXPECT_EQ(sent.exchanges, sent.matched);
    EXPECT_EQ(0u, damaged);
    EXPECT_EQ(0u, repeated);
    EXPECT_EQ(0u, sent.failed);
    EXPECT_TRUE(leftAtoms.empty()) << joined(leftAtoms);
    // Both censuses find the partner holding the two sections of one
    // requester's exchange; nothing else may have grown.
    EXPECT_LE(after.handles, before.handles);
    EXPECT_LE(after.windows, before.windows);
    EXPECT_LE(after.user, before.user);
    EXPECT_LE(after.gdi, before.gdi);
}

TEST(CooperationUnderLoad, KilledSenderLeavesThePartnerWorking)
{
    const int kills = Sized(20, 3);
    tqmtest::TempDir dir;
    registerMessages();
    CheckingPm pm(dir);
    ASSERT_TRUE(pm.Start()) << "tqm pm --check did not start";
    drainPm(dir);
    Random random(GetTickCount());
    size_t mostLeft = 0, totalLeft = 0;
    std::string leftNames;
    for (int k = 0; k < kills; ++k) {
        const std::vector<ATOM> before = GlobalAtoms();
        Child victim;
        ASSERT_TRUE(victim.Start("sender", {std::to_string(1000 + k), "100000", "100000", "100000",
                                            dir.file("victim.txt")}));
        Sleep(static_cast<DWORD>(random.Between(300, 1500)));
        victim.Kill();
        // The next requester is answered, and finds its replies its own.
        Child next;
        ASSERT_TRUE(next.Start("sender", {std::to_string(2000 + k), "5", "5", "3", dir.file("next.txt")}));
        EXPECT_EQ(0, next.Wait(60000)) << "the requester after kill " << k + 1;
        const SenderCounts counts = readCounts(dir.file("next.txt"));
        EXPECT_EQ(3u, counts.matched) << "the requester after kill " << k + 1;
        EXPECT_EQ(0u, counts.failed);
        drainPm(dir);
        const std::vector<std::string> left = NewAtoms(before, GlobalAtoms());
        // Never the partner's: a reply the killed requester did not read
        // goes with it.
        for (const std::string& name : left)
            EXPECT_NE(0u, name.find("Tqm.ExchangeReply.")) << "kill " << k + 1 << " left the partner's " << name;
        mostLeft = std::max(mostLeft, left.size());
        totalLeft += left.size();
        if (!left.empty() && leftNames.empty())
            leftNames = joined(left);
    }
    const std::string pmOutput = pm.Close();
    PmCounts got = readPmCounts(pmOutput);
    printDamaged(pmOutput);
    Figure("killed senders: %d kills; atoms left behind %lu in all, at most %lu by one kill (%s); damaged texts %lu",
           kills, static_cast<unsigned long>(totalLeft), static_cast<unsigned long>(mostLeft), leftNames.empty() ? "none" : leftNames.c_str(),
           got.damaged['P'] + got.damaged['I'] + got.damaged['M'] + got.damaged['Q']);
    // At most what one call was handing over: a path atom, and an info
    // molecule of up to 26 pieces and its head; or a request's atom.
    EXPECT_LE(mostLeft, 28u);
}

}  // namespace

}  // namespace tqmstress
