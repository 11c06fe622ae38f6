// tqm dock: a client window in tqm's process docks beside a manager window
// of this one, follows a new position, and leaves the manager's list when it
// ends; and beside tqm pm --dock, each in a process of its own, as a person
// runs them in two terminals.
#include "support/DockingFixture.h"
#include "support/ListenerProcess.h"
#include "support/TqmProgram.h"

#include <gtest/gtest.h>

#include <functional>
#include <future>

namespace {

using namespace tqmtest;

// Waits up to ten seconds for done(); whether it came.
bool waitFor(const std::function<bool()>& done)
{
    for (int i = 0; i < 500; ++i) {
        if (done())
            return true;
        Sleep(20);
    }
    return done();
}

std::string rectOf(HWND hWnd)
{
    RECT r = {};
    GetWindowRect(hWnd, &r);
    return RectText(r);
}

// A window handle as tqm pm prints it.
std::string handleText(HWND hWnd)
{
    char text[16];
    snprintf(text, sizeof(text), "%08lX", static_cast<unsigned long>(reinterpret_cast<ULONG_PTR>(hWnd)));
    return text;
}

TEST(TqmDock, ClientDocksFollowsAndUnsubscribes)
{
    InspectableManager manager;
    DockedWindow<CDesktopDockingManager> window(manager, TARN_PROJECT_MANAGER_WINDOW_CLASS, RECT{50, 50, 300, 300});
    ASSERT_TRUE(manager.Initialize(window.wnd(), 2));

    // While tqm runs, this thread keeps the manager's window answering, and
    // moves the manager to the right edge once the client is there.
    std::future<TqmRun> run =
        std::async(std::launch::async, [] { return RunTqm({"dock", "client", "--seconds", "3"}); });
    bool bMoved = false;
    while (run.wait_for(std::chrono::milliseconds(0)) != std::future_status::ready) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        PumpMessages();
        if (!bMoved && manager.ClientCount() == 1) {
            SetForegroundWindow(window.get());
            manager.SetDockPos(3);
            bMoved = true;
        }
    }
    const TqmRun result = run.get();
    ASSERT_EQ(0, result.exitCode) << result.err;
    EXPECT_TRUE(bMoved);
    EXPECT_TRUE(Contains(result.out, "docked at position 2 (manager at the left edge): window at ")) << result.out;
    const RECT M = window.rect();
    const RECT W = WorkArea();
    EXPECT_TRUE(Contains(result.out, "docked at position 3 (manager at the right edge): window at " +
                                         RectText(RECT{W.left, W.top, M.left, W.bottom - 1})))
        << result.out;
    EXPECT_EQ(0, manager.ClientCount());

    const TqmRun query = RunWhilePumping([] { return RunTqm({"dock", "query"}); });
    EXPECT_EQ(0, query.exitCode);
    EXPECT_EQ("3 (manager at the right edge)\n", query.out);
}

TEST(TqmDock, WithoutManagerOrWithBadArgumentsItSaysSo)
{
    struct Case
    {
        std::vector<std::string> args;
        int nExit;
        const char* message;
    };
    const Case cases[] = {
        {{"dock", "client"}, 1, "no project manager is running"},
        {{"dock", "server"}, 2, "unknown subcommand"},
        {{"dock", "client", "--seconds", "x"}, 2, "--seconds needs"},
        {{"pm", "--dock", "6"}, 2, "--dock needs a dock position from 1 to 5"},
        {{"pm", "--dock", "0"}, 2, "--dock needs a dock position from 1 to 5"},
        {{"pm", "--dock"}, 2, "--dock needs a value"},
    };
    for (const Case& c : cases) {
        const TqmRun run = RunTqm(c.args);
        EXPECT_EQ(c.nExit, run.exitCode) << c.args.back();
        EXPECT_TRUE(Contains(run.err, c.message)) << run.err;
    }
}

TEST(TqmDock, PmDocksTheClientAndBothFollowEachOther)
{
    if (FindWindowA(TARN_PROJECT_MANAGER_WINDOW_CLASS, nullptr))
        GTEST_SKIP() << "a project manager runs on this desktop";
    const RECT W = WorkArea();
    ListenerProcess pm(TARN_PROJECT_MANAGER_WINDOW_CLASS);
    ASSERT_TRUE(pm.start({"pm", "--dock", "2"})) << pm.errors();
    const HWND hManager = pm.window();
    RECT M = {};
    auto managerAt = [&](LONG right) {
        GetWindowRect(hManager, &M);
        return M.left == W.left && M.right == right;
    };
    ASSERT_TRUE(waitFor([&] { return managerAt(W.left + (W.right - W.left + 1) / 4); })) << RectText(M);

    std::future<TqmRun> run =
        std::async(std::launch::async, [] { return RunTqm({"dock", "client", "--seconds", "30"}); });
    HWND hClient = nullptr;
    ASSERT_TRUE(waitFor([&] { return (hClient = FindWindowA("TqmDockClient", nullptr)) != nullptr; }));
    // Subscribed, it fills the rest of the work area beside the manager.
    std::string expected = RectText(RECT{M.right, W.top, W.right, W.bottom - 1});
    EXPECT_TRUE(waitFor([&] { return rectOf(hClient) == expected; })) << rectOf(hClient) << ", not " << expected;

    // Key 3 in the manager's window docks it at the right edge, and the
    // client follows to its left.
    DWORD_PTR answer = 0;
    ASSERT_TRUE(SendMessageTimeoutA(hManager, WM_CHAR, '3', 0, SMTO_ABORTIFHUNG, 10000, &answer));
    GetWindowRect(hManager, &M);
    EXPECT_EQ(W.right, M.right) << RectText(M);
    expected = RectText(RECT{W.left, W.top, M.left, W.bottom - 1});
    EXPECT_TRUE(waitFor([&] { return rectOf(hClient) == expected; })) << rectOf(hClient) << ", not " << expected;

    // The client, narrowed in front, takes the manager's edge with it.
    SetForegroundWindow(hClient);
    MoveWindow(hClient, W.left, W.top, 600, W.bottom - 1 - W.top, TRUE);
    expected = RectText(RECT{W.left + 600, W.top, W.right, W.bottom - 1});
    EXPECT_TRUE(waitFor([&] { return rectOf(hManager) == expected; })) << rectOf(hManager) << ", not " << expected;

    PostMessageA(hClient, WM_CLOSE, 0, 0);
    const TqmRun client = run.get();
    EXPECT_EQ(0, client.exitCode) << client.err;
    // Its first line may already show position 3: the key can come while
    // the client, just placed, is still telling the manager about it.
    EXPECT_TRUE(Contains(client.out, "docked at position 3 (manager at the right edge)")) << client.out;
    ASSERT_EQ(0, pm.close()) << pm.errors();

    // What the manager printed: its positions, and the client's
    // subscription, move and farewell.
    const std::string from = " | from " + handleText(hClient) + " | ";
    const std::vector<std::string> lines = {
        "dock      position 2 | manager at the left edge", "dock      subscribe" + from + "2",
        "dock      position 3 | manager at the right edge", "dock      moved" + from + "1",
        "dock      unsubscribe" + from + "1"};
    for (const std::string& line : lines)
        EXPECT_TRUE(Contains(pm.output(), line)) << line << "\n" << pm.output();
}

}  // namespace
