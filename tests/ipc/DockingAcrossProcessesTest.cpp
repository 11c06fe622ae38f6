// Desktop docking between two processes: this program's manager window and
// a client main window in a second run of this program. The client drives:
// it asks the manager's process for its part through a test message, and
// checks what it sees; the manager's process checks its side afterwards.
#include "support/DockingFixture.h"

#include <gtest/gtest.h>

namespace {

using namespace tqmtest;

// Sent by the client to the manager's window: wParam an action, lParam its
// argument; the answer 1 when done.
const char kActionMessage[] = "TqmTest.DockingAction";
enum Action
{
    kSetDockPos = 1,      // the manager docks at lParam, in front
    kCloseManager = 2,    // the manager's window goes
};

UINT actionMessage() { return RegisterWindowMessageA(kActionMessage); }

// The manager's process: a manager window that also carries out the
// client's actions, while the client runs in a second process.
class ManagerProcess
{
public:
    ManagerProcess()
        : m_window(TARN_PROJECT_MANAGER_CLASS, RECT{100, 100, 400, 400}, WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                   [this](HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
                       if (message == actionMessage())
                           return act(hWnd, wParam, lParam, pResult);
                       return m_manager.HandleWindowMessage(message, wParam, lParam, pResult) != FALSE;
                   })
    {
        m_wnd.Attach(m_window.get());
        m_manager.Initialize(&m_wnd, 2);
    }
    ~ManagerProcess() { m_wnd.Detach(); }

    InspectableManager& manager() { return m_manager; }
    HWND window() const { return m_window.get(); }
    ProgramRun runClient(const char* scenario)
    {
        return RunWhilePumping([scenario] { return RunSelfAsChild("DockingAcrossProcesses.ClientSide", scenario); });
    }

private:
    bool act(HWND hWnd, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
    {
        // Done after this message returns: the client waits in SendMessage
        // and takes the manager's own messages meanwhile.
        if (wParam == kSetDockPos) {
            SetForegroundWindow(hWnd);
            m_manager.SetDockPos(static_cast<int>(lParam));
        } else if (wParam == kCloseManager) {
            m_wnd.Detach();
            m_window.destroy();
        }
        *pResult = 1;
        return true;
    }

    InspectableManager m_manager;
    TestWindow m_window;
    CWnd m_wnd;
};

// The client's process: the scenarios, run when this program is started as
// a child by the tests below.
TEST(DockingAcrossProcesses, ClientSide)
{
    const std::string scenario = ChildMode();
    if (scenario.empty())
        GTEST_SKIP() << "runs as the client of the tests below";

    const RECT W = WorkArea();
    HWND hManager = FindWindowA(TARN_PROJECT_MANAGER_CLASS, nullptr);
    ASSERT_TRUE(hManager);
    auto ask = [&](Action action, LPARAM lParam) { return SendMessageA(hManager, actionMessage(), action, lParam); };
    auto managerRect = [&] {
        RECT r = {};
        GetWindowRect(hManager, &r);
        return r;
    };

    CDesktopDockingClient client;
    DockedWindow<CDesktopDockingClient> window(client, "TqmDockClient", RECT{500, 300, 900, 600});
    ASSERT_TRUE(client.Subscribe(window.wnd()));
    ASSERT_EQ(2u, client.GetDockPos());
    RECT M = managerRect();
    EXPECT_RECT(M.right, W.top, W.right, W.bottom - 1, window.rect());

    if (scenario == "redock") {
        // The position changes: the client hears of it and ends beside the
        // manager's new place.
        ASSERT_EQ(1, ask(kSetDockPos, 3));
        PumpMessages();
        EXPECT_EQ(3u, client.GetDockPos());
        M = managerRect();
        EXPECT_EQ(W.right, M.right);
        EXPECT_RECT(W.left, W.top, M.left, W.bottom - 1, window.rect());

        // The client is narrowed from its own process: the manager docks
        // against it.
        SetForegroundWindow(window.get());
        MoveWindow(window.get(), W.left, W.top, 600, 500, TRUE);
        EXPECT_RECT(W.left + 600, W.top, W.right, W.bottom - 1, managerRect());
        EXPECT_RECT(W.left, W.top, W.left + 600, W.bottom - 1, window.rect());
        client.Unsubscribe();
    } else if (scenario == "manager-gone") {
        // The manager's window goes while the client is subscribed; the
        // client carries on undocked and leaves without trouble.
        ASSERT_EQ(1, ask(kCloseManager, 0));
        PumpMessages();
        EXPECT_FALSE(IsWindow(hManager));
        SetForegroundWindow(window.get());
        MoveWindow(window.get(), 20, 30, 400, 300, TRUE);
        EXPECT_RECT(20, 30, 420, 330, window.rect());
        client.Unsubscribe();
    }
}

TEST(DockingAcrossProcesses, ClientDocksAndFollowsANewPosition)
{
    if (!ChildMode().empty())
        GTEST_SKIP();
    ManagerProcess process;
    const ProgramRun run = process.runClient("redock");
    EXPECT_EQ(0, run.exitCode) << run.out << run.err;
    EXPECT_EQ(0, process.manager().ClientCount()) << "the client unsubscribed";
    EXPECT_EQ(3, process.manager().GetDockPos());
}

TEST(DockingAcrossProcesses, ClientCarriesOnWhenTheManagerGoes)
{
    if (!ChildMode().empty())
        GTEST_SKIP();
    ManagerProcess process;
    const ProgramRun run = process.runClient("manager-gone");
    EXPECT_EQ(0, run.exitCode) << run.out << run.err;
}

}  // namespace
