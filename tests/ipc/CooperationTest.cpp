// Notifications, message lines, acknowledged messages and data exchanges
// with a stand-in project manager (tqm pm) in a second process; the waiting
// loop's rules; and what happens without a project manager.
#include "ipc/AckMessages.h"
#include "ipc/DataExchange.h"
#include "ipc/Molecules.h"
#include "ipc/Notifications.h"

#include "support/BoxRecorder.h"
#include "support/FileUtil.h"
#include "support/ListenerProcess.h"
#include "support/TempDir.h"
#include "support/TqmProgram.h"

#include <gtest/gtest.h>

#include <stdio.h>

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace {

using tqmtest::Contains;

// Ends a wait of this thread that takes too long: after the time-out a quit
// message ends PostMessageAndWaitAck and ExchangeData alike. The waits have
// no time-out of their own, and a test must never hang on a partner.
class QuitAfter
{
public:
    explicit QuitAfter(DWORD timeoutMs) : m_thread(GetCurrentThreadId())
    {
        m_watchdog = std::thread([this, timeoutMs] {
            std::unique_lock<std::mutex> lock(m_mutex);
            if (!m_done.wait_for(lock, std::chrono::milliseconds(timeoutMs), [this] { return m_finished; })) {
                m_fired = true;
                PostThreadMessageA(m_thread, WM_QUIT, 0, 0);
            }
        });
    }
    ~QuitAfter()
    {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_finished = true;
        }
        m_done.notify_one();
        m_watchdog.join();
        MSG msg;
        while (PeekMessageA(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
        }
    }
    bool fired() const { return m_fired; }

private:
    DWORD m_thread;
    std::mutex m_mutex;
    std::condition_variable m_done;
    bool m_finished = false;
    bool m_fired = false;
    std::thread m_watchdog;
};

const DWORD kWaitMs = 30000;

// A window of the test process that records what reaches its procedure.
class OwnWindow
{
public:
    OwnWindow()
    {
        WNDCLASSA wc = {};
        wc.lpfnWndProc = proc;
        wc.hInstance = GetModuleHandleA(nullptr);
        wc.lpszClassName = "TqmIpcTestWindow";
        RegisterClassA(&wc);
        m_hWnd = CreateWindowA(wc.lpszClassName, "ipc test", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100,
                               nullptr, nullptr, wc.hInstance, nullptr);
        SetWindowLongPtrA(m_hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        UpdateWindow(m_hWnd);
    }
    ~OwnWindow()
    {
        DestroyWindow(m_hWnd);
        UnregisterClassA("TqmIpcTestWindow", GetModuleHandleA(nullptr));
    }
    HWND get() const { return m_hWnd; }
    // The messages of the recorded kinds that reached the procedure.
    std::vector<UINT> received;

private:
    static LRESULT CALLBACK proc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
    {
        auto* self = reinterpret_cast<OwnWindow*>(GetWindowLongPtrA(hWnd, GWLP_USERDATA));
        if (self && (msg == WM_PAINT || msg == WM_KEYDOWN || msg == WM_LBUTTONDOWN || msg == WM_COMMAND))
            self->received.push_back(msg);
        return DefWindowProcA(hWnd, msg, wParam, lParam);
    }
    HWND m_hWnd;
};

// A text no other run shares (the atom table is shared and ignores case).
std::string unique(const std::string& base, size_t length)
{
    static unsigned serial = 0;
    char stamp[48];
    snprintf(stamp, sizeof(stamp), "%s-%lu-%u-", base.c_str(), GetCurrentProcessId(), ++serial);
    std::string text = stamp;
    while (text.size() < length)
        text += static_cast<char>('a' + text.size() % 26);
    text.resize(length);
    return text;
}

// One printed line of tqm pm: its kind and what follows it.
struct PmLine { std::string kind, what; };

class WithProjectManager : public testing::Test
{
protected:
    void SetUp() override
    {
        if (FindWindowA(TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr))
            GTEST_SKIP() << "a project manager runs on this desktop";
    }
    bool startPm(std::vector<std::string> args = {})
    {
        args.insert(args.begin(), "pm");
        return m_pm.start(args);
    }
    std::vector<PmLine> pmLines()
    {
        std::vector<PmLine> lines;
        for (const std::string& line : m_pm.lines()) {
            if (line.size() > 24 && line[2] == ':')
                lines.push_back({line.substr(14, line.find(' ', 14) - 14), line.substr(24)});
        }
        return lines;
    }

    tqmtest::ListenerProcess m_pm{TARN_PROJECT_MANAGER_WINDOW_CLASS};
};

TEST_F(WithProjectManager, NotificationsArriveWholeAndTheirAtomsAreDeleted)
{
    ASSERT_TRUE(startPm({"--count", "2"}));
    const std::string shortPath = unique("C:\\p\\", 10), shortInfo = unique("i", 10);
    const std::string longPath = unique("C:\\Projects\\", 255), longInfo = unique("info", 6000);
    EXPECT_TRUE(TQMNotifyFileSaved(shortPath.c_str(), shortInfo.c_str()));
    EXPECT_TRUE(TQMNotifyFileSaved(longPath.c_str(), longInfo.c_str()));
    ASSERT_EQ(0, m_pm.wait()) << m_pm.errors();

    std::vector<PmLine> lines = pmLines();
    ASSERT_EQ(2u, lines.size()) << m_pm.output();
    EXPECT_EQ("saved", lines[0].kind);
    EXPECT_EQ(shortPath + " | " + shortInfo, lines[0].what);
    EXPECT_EQ(longPath + " | " + longInfo, lines[1].what);
    EXPECT_FALSE(Contains(m_pm.errors(), "tqm: [")) << m_pm.errors();  // no assertion report

    for (const std::string& text : {shortPath, shortInfo, longPath})
        EXPECT_EQ(0, GlobalFindAtomA(text.c_str())) << text;
    for (size_t at = 0; at < longInfo.size(); at += 255)
        EXPECT_EQ(0, GlobalFindAtomA(longInfo.substr(at, 255).c_str())) << at;
}

TEST_F(WithProjectManager, MessageLinesCarryTheirLevelsAndVerboseLinesArrive)
{
    ASSERT_TRUE(startPm({"--count", "7"}));
    struct Case { const char* text; int level; } cases[] = {
        {"error: x", 0},          // no blank after the word: stays 0
        {"ERROR x", 0},           // 2
        {"Fatal crash", -3},      // 2
        {"Warnings found", 0},    // 1
        {"Error x", 5},           // a positive level is kept
        {"Error", 0},             // the blank is part of the word: stays 0
    };
    for (const Case& c : cases)
        EXPECT_TRUE(TQMDisplayMessage(c.text, c.level)) << c.text;
    EXPECT_TRUE(TarnVerbose(TARN_VERBOSE_TO_VMX | TARN_VERBOSE_WARNING, "line %d", 7));
    ASSERT_EQ(0, m_pm.wait()) << m_pm.errors();

    std::vector<PmLine> lines = pmLines();
    ASSERT_EQ(7u, lines.size()) << m_pm.output();
    const char* expected[] = {"0 | error: x", "2 | ERROR x", "2 | Fatal crash", "1 | Warnings found", "5 | Error x",
                              "0 | Error"};
    for (size_t i = 0; i < 6; ++i) {
        EXPECT_EQ("message", lines[i].kind) << i;
        EXPECT_EQ(expected[i], lines[i].what) << i;
    }
    EXPECT_EQ("tarn", lines[6].kind);
    EXPECT_EQ("Warning: line 7", lines[6].what);
}

TEST_F(WithProjectManager, AcknowledgementsBringTheirValuesBack)
{
    ASSERT_TRUE(startPm());
    OwnWindow own;
    const LPARAM wide = sizeof(LPARAM) > 4 ? static_cast<LPARAM>(0x123456789LL) : 0x12345678;
    QuitAfter guard(kWaitMs);
    for (LPARAM value : {static_cast<LPARAM>(42), static_cast<LPARAM>(-1), static_cast<LPARAM>(0), wide})
        EXPECT_EQ(value, PostMessageAndWaitAck(m_pm.window(), WM_APP + 1, reinterpret_cast<WPARAM>(own.get()), value));
    EXPECT_FALSE(guard.fired());
    EXPECT_EQ(RegisterWindowMessageA("Tarn52.MsgAck"), RegisterQM4AckMessage());
}

TEST_F(WithProjectManager, PartnerClosedDuringTheWaitGivesFFFFFFFF)
{
    ASSERT_TRUE(startPm());
    // Something must reach the thread after the window went: a timer does.
    UINT_PTR timer = SetTimer(nullptr, 0, 20, nullptr);
    QuitAfter guard(kWaitMs);
    const LRESULT result = PostMessageAndWaitAck(m_pm.window(), WM_CLOSE, 0, 0);
    KillTimer(nullptr, timer);
    EXPECT_FALSE(guard.fired());
    EXPECT_EQ(TQM_ACK_PARTNER_GONE, result);
    EXPECT_EQ(0xFFFFFFFFull, static_cast<unsigned long long>(static_cast<ULONG_PTR>(result)));
    EXPECT_EQ(0, m_pm.wait());
}

// An exchange with the stand-in; the reply as a string, "<failed>" when
// ExchangeData failed. Checks the zero byte behind the reply and that the
// atoms of both section names are gone.
std::string exchange(HWND partner, const std::string& request)
{
    OwnWindow own;
    const std::string section = unique("TqmTest.Exchange", 30);
    EXCHANGEDATA data = {};
    data.hWndPartner = partner;
    data.hWndOwner = own.get();
    data.pszSectionName = section.c_str();
    data.dwRequestSize = static_cast<DWORD>(request.size());
    data.pRequest = request.data();
    QuitAfter guard(kWaitMs);
    if (!ExchangeData(&data) || guard.fired())
        return "<failed>";
    std::string reply(static_cast<const char*>(data.pReply), data.dwReplySize);
    EXPECT_EQ('\0', static_cast<const char*>(data.pReply)[data.dwReplySize]);
    HeapFree(GetProcessHeap(), 0, data.pReply);
    EXPECT_EQ(0, GlobalFindAtomA(section.c_str()));
    return reply;
}

TEST_F(WithProjectManager, ExchangesEchoRequestsOfEverySize)
{
    ASSERT_TRUE(startPm());
    for (size_t size : {0u, 1u, 10240u}) {
        const std::string request = size ? unique("r", size) : std::string();
        EXPECT_EQ(request, exchange(m_pm.window(), request)) << size;
    }
}

TEST_F(WithProjectManager, ExchangeBringsBackAReplyOf100000Bytes)
{
    tqmtest::TempDir dir;
    std::string big;
    for (int i = 0; big.size() < 100000; ++i)
        big += static_cast<char>(i % 251);  // every byte value but a few, zeros included
    big.resize(100000);
    tqmtest::WriteBytes(dir.file("reply.bin"), big);
    ASSERT_TRUE(startPm({"--reply-file", dir.file("reply.bin")}));
    EXPECT_TRUE(exchange(m_pm.window(), "give") == big);
}

int g_timerCalls = 0;
void CALLBACK countTimerCall(HWND, UINT, UINT_PTR, DWORD) { ++g_timerCalls; }

TEST(WaitingLoop, OwnWindowsTakeNoInputButWindowlessMessagesRun)
{
    OwnWindow own;
    g_timerCalls = 0;
    PostMessageA(own.get(), WM_KEYDOWN, 'A', 0);
    PostMessageA(own.get(), WM_LBUTTONDOWN, 0, 0);
    PostMessageA(own.get(), WM_COMMAND, 100, 0);
    InvalidateRect(own.get(), nullptr, TRUE);
    UINT_PTR timer = SetTimer(nullptr, 0, 1, countTimerCall);
    own.received.clear();
    // The acknowledgement may come from anyone: here from a thread of ours,
    // late enough for the timer and the paint to come up meanwhile. The
    // message itself goes to our own window, which drops it.
    std::thread acknowledger([&own] {
        Sleep(300);
        PostAckMessage(own.get(), 5);
    });
    {
        QuitAfter guard(kWaitMs);
        EXPECT_EQ(5, PostMessageAndWaitAck(own.get(), WM_COMMAND, 200, 0));
        EXPECT_FALSE(guard.fired());
    }
    acknowledger.join();
    KillTimer(nullptr, timer);
    EXPECT_EQ(std::vector<UINT>{}, own.received) << "input or paint reached the waiting program's window";
    EXPECT_FALSE(GetUpdateRect(own.get(), nullptr, FALSE)) << "the paint was not validated";
    EXPECT_GE(g_timerCalls, 1) << "a message without a window was not dispatched";
    MSG msg;
    EXPECT_FALSE(PeekMessageA(&msg, own.get(), WM_KEYDOWN, WM_COMMAND, PM_NOREMOVE)) << "input was kept, not dropped";
}

// A partner that FindWindow did not find: the wait ends at once, and the
// message goes nowhere (not to this thread's own queue).
TEST(WaitingLoop, NoPartnerWindowEndsTheWaitAtOnce)
{
    {
        QuitAfter guard(kWaitMs);
        EXPECT_EQ(TQM_ACK_PARTNER_GONE, PostMessageAndWaitAck(nullptr, WM_APP + 9, 0, 0));
        EXPECT_FALSE(guard.fired());
    }
    MSG msg;
    EXPECT_FALSE(PeekMessageA(&msg, reinterpret_cast<HWND>(-1), WM_APP + 9, WM_APP + 9, PM_REMOVE));

    // An exchange without a partner fails at once, with the system's reason.
    OwnWindow own;
    tqmtest::BoxRecorder boxes;
    const std::string section = unique("TqmTest.NoPartner", 20);
    EXCHANGEDATA data = {nullptr, own.get(), section.c_str(), 0, nullptr, 0, nullptr};
    {
        QuitAfter guard(kWaitMs);
        EXPECT_FALSE(ExchangeData(&data));
        EXPECT_FALSE(guard.fired());
    }
    EXPECT_EQ(1u, boxes.count());
    EXPECT_EQ(0, GlobalFindAtomA(section.c_str()));
}

TEST(WaitingLoop, QuitEndsEitherWaitAndIsPostedAgain)
{
    OwnWindow own;
    tqmtest::BoxRecorder boxes;
    MSG msg;

    // The partner is our own window: its request is dropped, never answered.
    PostQuitMessage(7);
    EXPECT_EQ(0, PostMessageAndWaitAck(own.get(), WM_APP, 0, 0));
    ASSERT_TRUE(PeekMessageA(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(7u, msg.wParam);

    PostQuitMessage(3);
    const std::string section = unique("TqmTest.Quit", 20);
    EXCHANGEDATA data = {own.get(), own.get(), section.c_str(), 0, nullptr, 0, nullptr};
    EXPECT_FALSE(ExchangeData(&data));
    EXPECT_EQ(nullptr, data.pReply);
    EXPECT_EQ(1u, boxes.count()) << "the failed opening is shown";
    ASSERT_TRUE(PeekMessageA(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(3u, msg.wParam);
    GlobalDeleteAtom(GlobalFindAtomA(section.c_str()));  // the partner's to delete, but there was none
}

TEST(WithoutProjectManager, NothingIsSentAndNoAtomIsMade)
{
    if (FindWindowA(TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr))
        GTEST_SKIP() << "a project manager runs on this desktop";
    const std::string path = unique("C:\\alone\\", 40), info = unique("alone", 40);
    EXPECT_FALSE(TQMNotifyFileSaved(path.c_str(), info.c_str()));
    EXPECT_FALSE(TQMDisplayMessage("Error x", 0));
    EXPECT_EQ(0, GlobalFindAtomA(path.c_str()));
    EXPECT_EQ(0, GlobalFindAtomA(info.c_str()));
    TQMTRACE("nothing happens");
}

}  // namespace
