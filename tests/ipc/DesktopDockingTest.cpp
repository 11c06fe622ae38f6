// Desktop docking between a manager and a client main window of one
// process: the conversation, sizing by keyboard, hit tests on real windows,
// and windows that disappear.
#include "support/DockingFixture.h"

#include "framework/WinApp.h"
#include "support/SuiteSettingsGuard.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

namespace {

using namespace tqmtest;

const int kSubscribe = 1, kUnsubscribe = 2, kMoved = 3, kPositionChanged = 4, kQuery = 5;

class DesktopDocking : public testing::Test
{
protected:
    DesktopDocking()
        : W(WorkArea()),
          managerWindow(manager, TARN_PROJECT_MANAGER_WINDOW_CLASS, RECT{200, 200, 500, 500}),
          clientWindow(client, "TqmDockClient", RECT{300, 300, 700, 600})
    {
    }

    void dock(int nDockPos)
    {
        ASSERT_TRUE(manager.Initialize(managerWindow.wnd(), nDockPos));
        ASSERT_TRUE(client.Subscribe(clientWindow.wnd()));
    }
    LRESULT sendToManager(int nCode, HWND hWnd)
    {
        return SendMessageA(managerWindow.get(), CDesktopDockingManager::m_DesktopDockingMsg, nCode,
                            reinterpret_cast<LPARAM>(hWnd));
    }
    LRESULT hitTest(HWND hWnd, int x, int y) { return SendMessageA(hWnd, WM_NCHITTEST, 0, MAKELPARAM(x, y)); }

    const RECT W;
    InspectableManager manager;
    CDesktopDockingClient client;
    DockedWindow<CDesktopDockingManager> managerWindow;
    DockedWindow<CDesktopDockingClient> clientWindow;
};

TEST_F(DesktopDocking, ClientSubscribesOnceBesideTheManagerAndKeepsTheSharedEdge)
{
    dock(2);
    const LONG quarter = W.left + (W.right - W.left + 1) / 4;
    EXPECT_RECT(W.left, W.top, quarter, W.bottom - 1, managerWindow.rect());
    EXPECT_EQ(2u, client.GetDockPos());
    const RECT C = clientWindow.rect();
    EXPECT_RECT(quarter, W.top, W.right, W.bottom - 1, C);

    EXPECT_EQ(2, sendToManager(kSubscribe, clientWindow.get()));
    EXPECT_EQ(1, manager.ClientCount());
    EXPECT_EQ(2, sendToManager(0x100 + kQuery, clientWindow.get())) << "only the low 8 bits are the code";
    EXPECT_EQ(0, sendToManager(kPositionChanged, clientWindow.get()));
    EXPECT_EQ(0, sendToManager(kQuery, reinterpret_cast<HWND>(0x1234))) << "lParam must be a window";

    // The client sizes at its left edge (its top-left corner too), the
    // manager at its right edge and at its grip.
    EXPECT_EQ(HTLEFT, hitTest(clientWindow.get(), C.left + 1, C.top + 1));
    EXPECT_EQ(HTNOWHERE, hitTest(clientWindow.get(), C.right - 1, C.top + 100));
    EXPECT_EQ(HTNOWHERE, hitTest(clientWindow.get(), C.right - 1, C.bottom - 1));
    const RECT M = managerWindow.rect();
    EXPECT_EQ(HTRIGHT, hitTest(managerWindow.get(), M.right - 1, M.top + 100));
    EXPECT_EQ(HTBOTTOMRIGHT, hitTest(managerWindow.get(), M.right - 1, M.bottom - 1));

    client.Unsubscribe();
    EXPECT_EQ(0, manager.ClientCount());
    EXPECT_EQ(1, sendToManager(kUnsubscribe, clientWindow.get())) << "unsubscribing twice is harmless";
}

TEST_F(DesktopDocking, ANewPositionReachesTheClientsBeforeTheManagerMoves)
{
    dock(2);
    RECT managerAtNotice = {};
    clientWindow.spy([&](UINT message, WPARAM wParam, LPARAM) {
        if (message == CDesktopDockingClient::m_DesktopDockingMsg && wParam == kPositionChanged)
            managerAtNotice = managerWindow.rect();
    });
    const RECT before = managerWindow.rect();
    SetForegroundWindow(managerWindow.get());
    manager.SetDockPos(3);

    EXPECT_TRUE(EqualRect(&before, &managerAtNotice));
    EXPECT_EQ(3u, client.GetDockPos());
    const LONG width = (W.right - W.left + 1) / 4;
    EXPECT_RECT(W.right - width, W.top, W.right, W.bottom - 1, managerWindow.rect());
    EXPECT_RECT(W.left, W.top, W.right - width, W.bottom - 1, clientWindow.rect());
}

TEST_F(DesktopDocking, AMovedClientDocksTheManagerAgainstIt)
{
    dock(2);
    SetForegroundWindow(clientWindow.get());
    const int edge = W.left + 300;
    MoveWindow(clientWindow.get(), edge, W.top + 40, W.right - edge - 10, 500, TRUE);
    EXPECT_RECT(W.left, W.top, edge, W.bottom - 1, managerWindow.rect());
    EXPECT_RECT(edge, W.top, W.right, W.bottom - 1, clientWindow.rect()) << "back into place beside the manager";
}

// A change of Z order alone, with the client in front, docks the manager and
// the other clients against it again, as a move would.
TEST_F(DesktopDocking, RaisingTheFrontClientDocksTheOthersAgainstIt)
{
    dock(2);
    CDesktopDockingClient second;
    DockedWindow<CDesktopDockingClient> secondWindow(second, "TqmDockClient2", RECT{300, 300, 700, 600});
    ASSERT_TRUE(second.Subscribe(secondWindow.wnd()));
    const RECT docked = clientWindow.rect();
    SetForegroundWindow(clientWindow.get());
    ASSERT_EQ(clientWindow.get(), GetForegroundWindow());
    // The second client, not in front, is moved aside and put above the first
    // without telling anyone.
    MoveWindow(secondWindow.get(), W.left + 500, W.top + 50, 300, 300, TRUE);
    SetWindowPos(secondWindow.get(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_RECT(W.left + 500, W.top + 50, W.left + 800, W.top + 350, secondWindow.rect());

    SetWindowPos(clientWindow.get(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_RECT(docked.left, docked.top, docked.right, docked.bottom, secondWindow.rect());
    second.Unsubscribe();
}

TEST_F(DesktopDocking, NothingMovesForMinimisedMaximisedCoveringOrUndockedWindows)
{
    dock(2);
    SetForegroundWindow(managerWindow.get());  // the client's own moves tell the manager nothing
    const RECT M = managerWindow.rect();
    auto expectNoMove = [&](const char* why) {
        EXPECT_EQ(1, sendToManager(kMoved, clientWindow.get())) << why;
        const RECT now = managerWindow.rect();
        EXPECT_TRUE(EqualRect(&M, &now)) << why << ": " << RectText(now);
    };
    MoveWindow(clientWindow.get(), W.left - 10, W.top - 10, W.right - W.left + 20, W.bottom - W.top + 20, TRUE);
    expectNoMove("covering the work area");
    ShowWindow(clientWindow.get(), SW_MINIMIZE);
    expectNoMove("minimised");
    ShowWindow(clientWindow.get(), SW_MAXIMIZE);
    expectNoMove("maximised");
    ShowWindow(clientWindow.get(), SW_RESTORE);

    TestWindow stranger("TqmDockStranger", RECT{400, 0, 900, 700});
    EXPECT_EQ(0, sendToManager(kMoved, stranger.get())) << "not a listed client";

    for (int nDockPos : {1, 6}) {
        manager.SetDockPos(nDockPos);
        MoveWindow(clientWindow.get(), W.left + 500, W.top, 300, 300, TRUE);
        expectNoMove(nDockPos == 1 ? "position 1" : "position 6");
        EXPECT_EQ(UINT(nDockPos), client.GetDockPos());
        EXPECT_RECT(W.left + 500, W.top, W.left + 800, W.top + 300, clientWindow.rect());
        EXPECT_EQ(HTRIGHT, hitTest(clientWindow.get(), W.left + 799, W.top + 150));
    }
}

TEST_F(DesktopDocking, KeyboardSizingMovesOnlyTheSharedEdgeAndThePartnerFollows)
{
    dock(2);
    // The client: Size from its system menu goes to its left edge.
    SetForegroundWindow(clientWindow.get());
    const RECT before = clientWindow.rect();
    ASSERT_TRUE(DriveMoveSizeLoop(clientWindow.get(), SC_SIZE, {VK_LEFT, VK_LEFT, VK_UP}));
    RECT C = clientWindow.rect();
    EXPECT_RECT(before.left - 16, before.top, before.right, before.bottom, C);
    EXPECT_EQ(C.left, managerWindow.rect().right) << "the manager followed";

    // Other edges, and moving, are refused at once.
    for (WPARAM command : {WPARAM(SC_SIZE | WMSZ_RIGHT), WPARAM(SC_SIZE | WMSZ_BOTTOM), WPARAM(SC_MOVE | HTCAPTION)}) {
        SendMessageA(clientWindow.get(), WM_SYSCOMMAND, command, 0);
        PumpMessages();
        const RECT now = clientWindow.rect();
        EXPECT_TRUE(EqualRect(&C, &now)) << std::hex << command;
    }

    // The manager: its grip sizes its right edge, and the client follows.
    SetForegroundWindow(managerWindow.get());
    const RECT M = managerWindow.rect();
    ASSERT_TRUE(DriveMoveSizeLoop(managerWindow.get(), SC_SIZE | WMSZ_BOTTOMRIGHT, {VK_RIGHT, VK_RIGHT, VK_DOWN}));
    EXPECT_RECT(M.left, M.top, M.right + 16, M.bottom, managerWindow.rect());
    EXPECT_RECT(M.right + 16, W.top, W.right, W.bottom - 1, clientWindow.rect());
}

TEST_F(DesktopDocking, WindowsThatDisappearMidConversationArePassedOver)
{
    dock(2);
    TestWindow other("TqmDockClient", RECT{0, 0, 200, 200});
    EXPECT_EQ(2, sendToManager(kSubscribe, other.get()));
    other.destroy();
    manager.SetDockPos(4);
    EXPECT_EQ(0, sendToManager(kMoved, other.get()));

    managerWindow.destroy();
    EXPECT_EQ(1, client.OnMsgFromManager(kPositionChanged, 5)) << "manager gone";
    EXPECT_EQ(4u, client.GetDockPos());
    EXPECT_EQ(0, client.OnMsgFromManager(kMoved, 5));
    SetForegroundWindow(clientWindow.get());
    MoveWindow(clientWindow.get(), 10, 10, 300, 300, TRUE);
    EXPECT_RECT(10, 10, 310, 310, clientWindow.rect()) << "no manager to dock to";
    EXPECT_EQ(HTRIGHT, hitTest(clientWindow.get(), 309, 150));
    client.Unsubscribe();
    EXPECT_EQ(0, manager.OnMsgFromClient(kQuery, static_cast<LONG>(reinterpret_cast<LONG_PTR>(clientWindow.get()))))
        << "the manager's own window is gone";
}

TEST_F(DesktopDocking, SavedPlacementOfTheManagerIsRestoredAndKeptDocked)
{
    TempDir dir;
    CWinApp app("Docking Test");
    app.SetProfileFile(dir.file("profile.ini").c_str());
    ASSERT_TRUE(app.WriteProfileString("WindowPos", "MainWindow", "0,50,60,350,500"));
    dock(2);
    // Restored 300 wide, then laid against the work area's edge.
    EXPECT_RECT(W.left, W.top, W.left + 300, W.bottom - 1, managerWindow.rect());
    EXPECT_RECT(W.left + 300, W.top, W.right, W.bottom - 1, clientWindow.rect());

    MoveWindow(managerWindow.get(), W.left, W.top, 280, 400, TRUE);
    manager.Close();
    EXPECT_EQ("0," + RectText(RECT{W.left, W.top, W.left + 280, W.top + 400}),
              app.GetProfileString("WindowPos", "MainWindow").GetString());
}

// Start-up does not undo how a program was started: a manager started
// maximised stays maximised; a client started minimised without a manager
// stays minimised and in the background.
TEST_F(DesktopDocking, StartingMaximisedOrMinimisedIsKept)
{
    TempDir dir;
    CWinApp app("Docking Test");
    app.SetProfileFile(dir.file("profile.ini").c_str());
    ASSERT_TRUE(app.WriteProfileString("WindowPos", "MainWindow", "0,50,60,350,500"));
    ShowWindow(managerWindow.get(), SW_SHOWMAXIMIZED);
    ASSERT_TRUE(manager.Initialize(managerWindow.wnd(), 2));
    EXPECT_TRUE(IsZoomed(managerWindow.get()));

    managerWindow.destroy();
    TestWindow front("TqmDockFront", RECT{0, 0, 100, 100});
    SetForegroundWindow(front.get());
    ShowWindow(clientWindow.get(), SW_SHOWMINNOACTIVE);
    EXPECT_FALSE(client.Subscribe(clientWindow.wnd()));
    EXPECT_TRUE(IsIconic(clientWindow.get()));
    EXPECT_NE(clientWindow.get(), GetForegroundWindow());
}

TEST_F(DesktopDocking, DialogsFitBesideTheManager)
{
    dock(4);  // the manager across the top
    const RECT M = managerWindow.rect();
    // Dialogs whose minimum height is the test's: one that fits, one that
    // reaches back over the manager by the difference, one that refuses.
    auto dialog = [](const char* name, LONG minHeight, LRESULT answer) {
        return std::make_unique<TestWindow>(name, RECT{0, 0, 100, 100}, WS_POPUP | WS_CAPTION | WS_VISIBLE,
                                            [=](HWND, UINT message, WPARAM, LPARAM lParam, LRESULT* pResult) {
                                                if (message != WM_GETMINMAXINFO)
                                                    return false;
                                                reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize.y = minHeight;
                                                *pResult = answer;
                                                return true;
                                            });
    };
    auto small = dialog("TqmDockDialog", 10, 0);
    ASSERT_TRUE(DesktopDocking_SizeWindowToManager(small->get()));
    EXPECT_RECT(W.left, M.bottom, W.right, W.bottom - 1, small->rect());
    auto tall = dialog("TqmDockTallDialog", W.bottom - M.bottom + 100, 0);
    ASSERT_TRUE(DesktopDocking_SizeWindowToManager(tall->get()));
    EXPECT_EQ(M.bottom - 101, tall->rect().top);
    EXPECT_FALSE(DesktopDocking_SizeWindowToManager(dialog("TqmDockRefusing", 10, 1)->get()));

    EXPECT_FALSE(DesktopDocking_SizeWindowToManager(nullptr));
    manager.SetDockPos(1);
    EXPECT_FALSE(DesktopDocking_SizeWindowToManager(small->get()));
    managerWindow.destroy();
    EXPECT_FALSE(DesktopDocking_SizeWindowToManager(small->get())) << "no manager";
}

TEST(DesktopDockingSettings, ComeFromTheUsersOptionsFile)
{
    SuiteSettingsGuard guard;
    struct Case
    {
        const char* pos;  // NULL: not in the file
        const char* dialogs;
        int nPos;
        BOOL bDialogs;
    };
    const Case cases[] = {
        {nullptr, nullptr, 2, TRUE}, {"4", "0", 4, FALSE}, {"1", "1", 1, FALSE}, {"9", nullptr, 9, TRUE}};
    for (const Case& c : cases) {
        WriteUserOption("DesktopDockPos", c.pos);
        WriteUserOption("DockDialogBoxes", c.dialogs);
        int nPos = -7;
        BOOL bDialogs = -7;
        DesktopDocking_GetSettings(&nPos, &bDialogs);
        EXPECT_EQ(c.nPos, nPos);
        EXPECT_EQ(c.bDialogs, bDialogs) << "position " << nPos;
    }
    DesktopDocking_GetSettings(nullptr, nullptr);
}

}  // namespace
