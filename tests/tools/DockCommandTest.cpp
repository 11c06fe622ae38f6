// tqm dock: a client window in tqm's process docks beside a manager window
// of this one, follows a new position, and leaves the manager's list when it
// ends.
#include "support/DockingFixture.h"
#include "support/TqmProgram.h"

#include <gtest/gtest.h>

#include <future>

namespace {

using namespace tqmtest;

TEST(TqmDock, ClientDocksFollowsAndUnsubscribes)
{
    InspectableManager manager;
    DockedWindow<CDesktopDockingManager> window(manager, TARN_PROJECT_MANAGER_CLASS, RECT{50, 50, 300, 300});
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
    };
    for (const Case& c : cases) {
        const TqmRun run = RunTqm(c.args);
        EXPECT_EQ(c.nExit, run.exitCode) << c.args.back();
        EXPECT_TRUE(Contains(run.err, c.message)) << run.err;
    }
}

}  // namespace
