#include "diag/ErrorReport.h"

#include "diag/MessageBoxHook.h"

#include "SystemText.h"
#include "framework/ModuleState.h"
#include "res/StringIds.h"
#include "support/BoxRecorder.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace {

using tqmtest::BoxRecorder;

const HWND kOwner = reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0x1234));

// The program's resource source is what it was before each report.
class ErrorReport : public testing::Test
{
protected:
    void SetUp() override
    {
        m_saved = AfxGetResourceHandle();
        AfxSetResourceHandle(GetModuleHandleA(nullptr));
    }
    void TearDown() override
    {
        EXPECT_EQ(GetModuleHandleA(nullptr), AfxGetResourceHandle());
        AfxSetResourceHandle(m_saved);
    }

private:
    HINSTANCE m_saved = nullptr;
};

TEST_F(ErrorReport, SystemErrorAndInfoFormatALibraryMessage)
{
    BoxRecorder boxes(IDCANCEL);
    EXPECT_EQ(IDCANCEL, SystemError(kOwner, IDS_CANNOT_OPEN_FILE, "x.dat", 0));
    ASSERT_EQ(1u, boxes.count());
    EXPECT_EQ("Cannot open file 'x.dat'.", boxes.last().text);
    EXPECT_EQ("System Error", boxes.last().caption);
    EXPECT_EQ(static_cast<UINT>(MB_OK | MB_ICONEXCLAMATION | MB_TASKMODAL), boxes.last().type);

    std::string path(3000, 'p');
    SystemError(nullptr, IDS_READ_ERROR, path.c_str(), 0);
    EXPECT_EQ(("Read error on file: " + path).substr(0, 1024), boxes.last().text);

    SystemInfo(kOwner, IDS_OUT_OF_MEMORY, 0, 0);
    EXPECT_EQ(kOwner, boxes.last().owner);
    EXPECT_EQ("System Info", boxes.last().caption);
    EXPECT_EQ(static_cast<UINT>(MB_OK | MB_ICONINFORMATION), boxes.last().type);
}

TEST_F(ErrorReport, LastErrorShowsTheSystemsTextForTheCode)
{
    BoxRecorder boxes;
    for (DWORD code : {DWORD(0), DWORD(ERROR_ACCESS_DENIED)}) {
        std::string expected = tqmtest::SystemText(code);
        ASSERT_FALSE(expected.empty()) << code;
        SetLastError(code);
        LastError(kOwner);
        EXPECT_EQ(expected, boxes.last().text) << code;
        EXPECT_EQ("System Error", boxes.last().caption);
    }
    SetLastError(0x2000ABCD);
    LastError(nullptr);
    EXPECT_EQ("Unknown Error", boxes.last().text);
}

TEST_F(ErrorReport, DllErrorNumbersTheMessageAndKeepsItsPlaceholders)
{
    BoxRecorder boxes;
    DllError(IDS_CANNOT_OPEN_FILE, "x.dat");
    ASSERT_EQ(1u, boxes.count());
    EXPECT_EQ("Error 136: Cannot open file 'x.dat'.", boxes.last().text);
    EXPECT_EQ("diag_test", boxes.last().caption);
    EXPECT_EQ(static_cast<UINT>(MB_OK), boxes.last().type);

    std::string name(1000, 'n');
    DllError(IDS_WRITE_ERROR, name.c_str());
    EXPECT_EQ(("Error 143: Write error on file: " + name).substr(0, 300), boxes.last().text);
}

// A window whose procedure reports with DllError while another thread waits
// in SendMessage: the sender must be let go before the box.
TEST_F(ErrorReport, DllErrorReleasesABlockedSender)
{
    static HANDLE s_senderDone;
    static bool s_senderWasFree;
    s_senderDone = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    s_senderWasFree = false;

    struct Hook
    {
        static int CALLBACK onBox(HWND, const char*, const char*, UINT, void*)
        {
            s_senderWasFree = WaitForSingleObject(s_senderDone, 5000) == WAIT_OBJECT_0;
            return IDOK;
        }
        static LRESULT CALLBACK proc(HWND hWnd, UINT msg, WPARAM wParam, LPARAM lParam)
        {
            if (msg == WM_APP) {
                DllError(IDS_OUT_OF_MEMORY);
                return 1;
            }
            return DefWindowProcA(hWnd, msg, wParam, lParam);
        }
    };
    WNDCLASSA wc = {};
    wc.lpfnWndProc = Hook::proc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.lpszClassName = "TqmDllErrorTest";
    RegisterClassA(&wc);
    HWND hWnd = CreateWindowA(wc.lpszClassName, "", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, wc.hInstance, nullptr);
    ASSERT_NE(nullptr, hWnd);

    TQMSetMessageBoxHook(Hook::onBox, nullptr);
    std::thread sender([&] {
        SendMessageA(hWnd, WM_APP, 0, 0);
        SetEvent(s_senderDone);
    });
    DWORD start = GetTickCount();
    MSG msg;
    while (WaitForSingleObject(s_senderDone, 0) == WAIT_TIMEOUT && GetTickCount() - start < 10000) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT | QS_SENDMESSAGE);
        while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&msg);
    }
    sender.join();
    tqmtest::InstallDefaultBoxHook();
    DestroyWindow(hWnd);
    UnregisterClassA(wc.lpszClassName, wc.hInstance);
    CloseHandle(s_senderDone);
    EXPECT_TRUE(s_senderWasFree);
}

}  // namespace
