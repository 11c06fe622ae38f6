// Desktop docking between a manager and a client main window of one
// process: the conversation, the layouts, sizing by keyboard, hit tests on
// real windows, and windows that disappear.
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
          managerWindow(manager, TARN_PROJECT_MANAGER_CLASS, RECT{200, 200, 500, 500}),
          clientWindow(client, "TqmDockClient", RECT{300, 300, 700, 600})
    {
    }
    ~DesktopDocking() override
    {
        clientWindow.destroy();
        managerWindow.destroy();
    }

    // Starts the manager at nDockPos and subscribes the client.
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
    // The manager's rectangle at the left quarter.
    RECT leftQuarter() const
    {
        return RECT{W.left, W.top, W.left + (W.right - W.left + 1) / 4, W.bottom - 1};
    }
    LRESULT hitTest(HWND hWnd, int x, int y) { return SendMessageA(hWnd, WM_NCHITTEST, 0, MAKELPARAM(x, y)); }

    const RECT W;
    InspectableManager manager;
    CDesktopDockingClient client;
    DockedWindow<CDesktopDockingManager> managerWindow;
    DockedWindow<CDesktopDockingClient> clientWindow;
};

TEST_F(DesktopDocking, ClientSubscribesOnceAndFillsTheRestBesideTheManager)
{
    dock(2);
    const RECT M = leftQuarter();
    EXPECT_RECT(M.left, M.top, M.right, M.bottom, managerWindow.rect());
    EXPECT_EQ(2u, client.GetDockPos());
    EXPECT_RECT(M.right, W.top, W.right, W.bottom - 1, clientWindow.rect());

    EXPECT_EQ(2, sendToManager(kSubscribe, clientWindow.get()));
    EXPECT_EQ(1, manager.ClientCount());
    EXPECT_EQ(2, sendToManager(kQuery, managerWindow.get()));
    EXPECT_EQ(0, sendToManager(kPositionChanged, clientWindow.get()));
    EXPECT_EQ(0, sendToManager(0x100 + 9, clientWindow.get()));
    EXPECT_EQ(2, sendToManager(0x100 + kQuery, clientWindow.get())) << "only the low 8 bits are the code";
    EXPECT_EQ(0, sendToManager(kQuery, reinterpret_cast<HWND>(0x1234))) << "lParam must be a window";

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
    SetForegroundWindow(managerWindow.get());
    manager.SetDockPos(3);

    const RECT before = leftQuarter();
    EXPECT_RECT(before.left, before.top, before.right, before.bottom, managerAtNotice);
    EXPECT_EQ(3u, client.GetDockPos());
    const int width = (W.right - W.left + 1) / 4;
    EXPECT_RECT(W.right - width, W.top, W.right, W.bottom - 1, managerWindow.rect());
    // The manager, in front, laid the client out beside its new place.
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

TEST_F(DesktopDocking, NothingMovesForMinimisedMaximisedOrCoveringWindows)
{
    dock(2);
    SetForegroundWindow(managerWindow.get());  // the client's own moves tell the manager nothing
    const RECT M = managerWindow.rect();
    auto managerUnmoved = [&](const char* why) {
        const RECT now = managerWindow.rect();
        EXPECT_TRUE(EqualRect(&M, &now)) << why << ": " << RectText(now);
    };

    MoveWindow(clientWindow.get(), W.left - 10, W.top - 10, W.right - W.left + 20, W.bottom - W.top + 20, TRUE);
    EXPECT_EQ(1, sendToManager(kMoved, clientWindow.get()));
    managerUnmoved("covering the work area");

    ShowWindow(clientWindow.get(), SW_MINIMIZE);
    EXPECT_EQ(1, sendToManager(kMoved, clientWindow.get()));
    managerUnmoved("minimised client");
    ShowWindow(clientWindow.get(), SW_MAXIMIZE);
    EXPECT_EQ(1, sendToManager(kMoved, clientWindow.get()));
    managerUnmoved("maximised client");
    ShowWindow(clientWindow.get(), SW_RESTORE);

    TestWindow stranger("TqmDockStranger", RECT{400, 0, 900, 700});
    EXPECT_EQ(0, sendToManager(kMoved, stranger.get())) << "not a listed client";
    managerUnmoved("stranger");

    manager.SetDockPos(1);
    MoveWindow(clientWindow.get(), W.left + 500, W.top, 300, 300, TRUE);
    EXPECT_EQ(1, sendToManager(kMoved, clientWindow.get()));
    managerUnmoved("position 1");
    EXPECT_EQ(HTRIGHT, hitTest(clientWindow.get(), clientWindow.rect().right - 1, W.top + 150));
}

TEST_F(DesktopDocking, HitTestsOnRealWindowsKeepTheSharedEdge)
{
    dock(2);
    const RECT C = clientWindow.rect();
    const int midY = (C.top + C.bottom) / 2;
    EXPECT_EQ(HTLEFT, hitTest(clientWindow.get(), C.left + 1, midY));
    EXPECT_EQ(HTLEFT, hitTest(clientWindow.get(), C.left + 1, C.top + 1)) << "top-left corner sizes the left edge";
    EXPECT_EQ(HTNOWHERE, hitTest(clientWindow.get(), C.right - 1, midY));
    EXPECT_EQ(HTNOWHERE, hitTest(clientWindow.get(), (C.left + C.right) / 2, C.top + 1));
    EXPECT_EQ(HTNOWHERE, hitTest(clientWindow.get(), C.right - 1, C.bottom - 1)) << "grip";
    EXPECT_EQ(HTCLIENT, hitTest(clientWindow.get(), (C.left + C.right) / 2, midY));

    const RECT M = managerWindow.rect();
    EXPECT_EQ(HTRIGHT, hitTest(managerWindow.get(), M.right - 1, (M.top + M.bottom) / 2));
    EXPECT_EQ(HTNOWHERE, hitTest(managerWindow.get(), M.left + 1, (M.top + M.bottom) / 2));
    EXPECT_EQ(HTBOTTOMRIGHT, hitTest(managerWindow.get(), M.right - 1, M.bottom - 1)) << "grip faces the client";
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
    for (WPARAM command : {WPARAM(SC_SIZE | WMSZ_RIGHT), WPARAM(SC_SIZE | WMSZ_BOTTOM), WPARAM(SC_MOVE),
                           WPARAM(SC_MOVE | HTCAPTION)}) {
        SendMessageA(clientWindow.get(), WM_SYSCOMMAND, command, 0);
        PumpMessages();
        const RECT now = clientWindow.rect();
        EXPECT_TRUE(EqualRect(&C, &now)) << std::hex << command;
    }

    // The manager: its right edge, with the client beside it.
    SetForegroundWindow(managerWindow.get());
    const RECT M = managerWindow.rect();
    ASSERT_TRUE(DriveMoveSizeLoop(managerWindow.get(), SC_SIZE | WMSZ_BOTTOMRIGHT, {VK_RIGHT, VK_RIGHT, VK_DOWN}));
    EXPECT_RECT(M.left, M.top, M.right + 16, M.bottom, managerWindow.rect());
    C = clientWindow.rect();
    EXPECT_RECT(M.right + 16, W.top, W.right, W.bottom - 1, C);
}

TEST_F(DesktopDocking, WindowsThatDisappearMidConversationAreSkipped)
{
    dock(2);
    TestWindow other("TqmDockClient", RECT{0, 0, 200, 200});
    EXPECT_EQ(2, sendToManager(kSubscribe, other.get()));
    other.destroy();
    manager.SetDockPos(4);  // a dead client in the list is passed over
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
    // Restored at 50,60 and 300 wide, then laid against the work area's edge.
    EXPECT_RECT(W.left, W.top, W.left + 300, W.bottom - 1, managerWindow.rect());
    EXPECT_RECT(W.left + 300, W.top, W.right, W.bottom - 1, clientWindow.rect());

    MoveWindow(managerWindow.get(), W.left, W.top, 280, 400, TRUE);
    manager.Close();
    const std::string saved = "0," + RectText(RECT{W.left, W.top, W.left + 280, W.top + 400});
    EXPECT_STREQ(saved.c_str(), app.GetProfileString("WindowPos", "MainWindow"));
}

TEST_F(DesktopDocking, DialogsFitBesideTheManager)
{
    dock(4);  // the manager across the top
    const RECT M = managerWindow.rect();
    TestWindow dialog("TqmDockDialog", RECT{0, 0, 100, 100}, WS_POPUP | WS_CAPTION | WS_VISIBLE);
    ASSERT_TRUE(DesktopDocking_SizeWindowToManager(dialog.get()));
    EXPECT_RECT(W.left, M.bottom, W.right, W.bottom - 1, dialog.rect());

    // A dialog whose minimum height exceeds the free part reaches back over
    // the manager by the difference.
    const LONG tall = W.bottom - M.bottom + 100;
    TestWindow big("TqmDockBigDialog", RECT{0, 0, 100, 100}, WS_POPUP | WS_CAPTION | WS_VISIBLE,
                   [tall](HWND, UINT message, WPARAM, LPARAM lParam, LRESULT* pResult) {
                       if (message != WM_GETMINMAXINFO)
                           return false;
                       reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize.y = tall;
                       *pResult = 0;
                       return true;
                   });
    ASSERT_TRUE(DesktopDocking_SizeWindowToManager(big.get()));
    EXPECT_EQ(M.bottom - 101, big.rect().top);

    TestWindow refusing("TqmDockRefusing", RECT{0, 0, 100, 100}, WS_POPUP | WS_VISIBLE,
                        [](HWND, UINT message, WPARAM, LPARAM, LRESULT* pResult) {
                            *pResult = 1;
                            return message == WM_GETMINMAXINFO;
                        });
    EXPECT_FALSE(DesktopDocking_SizeWindowToManager(refusing.get()));
    EXPECT_FALSE(DesktopDocking_SizeWindowToManager(nullptr));
    manager.SetDockPos(1);
    EXPECT_FALSE(DesktopDocking_SizeWindowToManager(dialog.get()));
    managerWindow.destroy();
    EXPECT_FALSE(DesktopDocking_SizeWindowToManager(dialog.get())) << "no manager";
}

}  // namespace

namespace {

TEST(DesktopDockingSettings, ComeFromTheUsersOptionsFile)
{
    tqmtest::SuiteSettingsGuard guard;
    struct Case
    {
        const char* pos;  // NULL: not in the file
        const char* dialogs;
        int nExpectedPos;
        BOOL bExpectedDialogs;
    };
    const Case cases[] = {
        {nullptr, nullptr, 2, TRUE},
        {"4", "0", 4, FALSE},
        {"1", "1", 1, FALSE},  // not docked: dialogs never are
        {"9", nullptr, 9, TRUE},
    };
    for (const Case& c : cases) {
        tqmtest::WriteUserOption("DesktopDockPos", c.pos);
        tqmtest::WriteUserOption("DockDialogBoxes", c.dialogs);
        int nPos = -7;
        BOOL bDialogs = -7;
        DesktopDocking_GetSettings(&nPos, &bDialogs);
        EXPECT_EQ(c.nExpectedPos, nPos);
        EXPECT_EQ(c.bExpectedDialogs, bDialogs) << "position " << nPos;
    }
    DesktopDocking_GetSettings(nullptr, nullptr);
}

}  // namespace
