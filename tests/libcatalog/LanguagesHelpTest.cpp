// Preferred and usable languages, help file paths, and the help shown in each
// kind of viewer - Windows Help, HTML Help and the shell's - with stand-ins
// the tests control, so no viewer ever opens.
#include "support/LibraryTree.h"

#include "libcatalog/LibraryLanguages.h"
#include "support/BoxRecorder.h"
#include "support/ChildProcess.h"
#include "support/FileAssociation.h"
#include "support/FixtureFiles.h"

#include <htmlhelp.h>
#include <tlhelp32.h>

#include <gtest/gtest.h>

namespace {

using tqmtest::BoxRecorder;

class Languages : public tqmtest::InstallationTest
{
protected:
    std::string describe(const std::string& languages)
    {
        return tree.put("Lib\\Motion.tarnlin", "[Library]\nType=Hpak\n" + languages);
    }
};

TEST_F(Languages, PreferredLanguagesFromTheOptionsFile)
{
    char code[3] = "xx";
    TQMGetLibLanguage(code);
    EXPECT_STREQ("en", code);  // no options file
    setLanguages("english", "Deutsch");
    TQMGetLibLanguage(code);
    EXPECT_STREQ("en", code);
    TQMGetAppLanguage(code);
    EXPECT_STREQ("De", code);  // the first two characters, as they stand
    setLanguages("", "f");
    TQMGetLibLanguage(code);
    EXPECT_STREQ("en", code);
    EXPECT_STREQ("f", TQMGetAppLanguage());
}

TEST_F(Languages, UsableLanguageTakesTheFirstListedOnlyAsTheFallback)
{
    const struct
    {
        const char* preferred;
        const char* languages;
        const char* code;
        BOOL found;
    } cases[] = {
        {"fr", "[Languages]\nCount=2\nLang0=en\nLang1=fr\n", "fr", TRUE},
        {"en", "[Languages]\nCount=2\nLang0=en\nLang1=fr\n", "en", FALSE},  // deliberate
        {"it", "[Languages]\nCount=2\nLang0=en\nLang1=fr\n", "en", FALSE},
        {"fr", "", "en", FALSE},
        {"english", "[Languages]\nCount=2\nLang0=fr\nLang1=EN\n", "en", TRUE},
        {"de", "[Languages]\nCount=3\nLang0=fr\nLang2=de\n", "de", TRUE},
        {"it", "[Languages]\nCount=1\nLang0=fr\nLang1=it\n", "fr", FALSE},         // beyond the count
        {"it", "[Languages]\nCount=2147483647\nLang0=hu\nLang9=it\n", "it", TRUE},
        {"it", "[Languages]\nCount=4000000000\nLang0=hu\nLang1=it\n", "en", FALSE},  // no number: none listed
        {"it", "[Languages]\nCount=2\nLang1=it\n", "it", TRUE},
        {"de", "[Languages]\nCount=2\nLang1=it\n", "en", FALSE},
    };
    for (const auto& c : cases) {
        setLanguages(c.preferred, nullptr);
        const std::string description = describe(c.languages);
        char code[3] = "xx";
        EXPECT_EQ(c.found, TQMGetUsableLibLanguage(description.c_str(), code)) << c.preferred << " " << c.languages;
        EXPECT_STREQ(c.code, code) << c.preferred << " " << c.languages;
    }
}

TEST_F(Languages, HelpFilePathInTheUsableLanguage)
{
    setLanguages("fr", nullptr);
    const std::string description =
        describe("[Languages]\nCount=2\nLang0=en\nLang1=fr\n[en]\nHelpFile=Motion.chm\n[fr]\nHelpFile=Help\\Motion_fr.hlp\n");
    char path[MAX_PATH];
    memset(path, 'x', sizeof(path));
    EXPECT_TRUE(TQMGetLibHelpFilePath(description.c_str(), path));
    EXPECT_EQ(tree.path("Lib\\Help\\Motion_fr.hlp"), path);
    setLanguages("it", nullptr);
    EXPECT_TRUE(TQMGetLibHelpFilePath(description.c_str(), path));
    EXPECT_EQ(tree.path("Lib\\Motion.chm"), path);

    const std::string none = describe("[Languages]\nCount=1\nLang0=de\n[en]\nHelpFile=Motion.chm\n");
    EXPECT_FALSE(TQMGetLibHelpFilePath(none.c_str(), path));
    EXPECT_STREQ("", path);
}

// A Windows Help viewer of the test's own: WinHelp hands its request to the
// window of class "MS_WINHELP" (as Wine's user32 does), so no viewer starts.
class WinHelpStandIn
{
public:
    WinHelpStandIn()
    {
        WNDCLASSA windowClass = {};
        windowClass.lpfnWndProc = onMessage;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = "MS_WINHELP";
        RegisterClassA(&windowClass);
        m_window = CreateWindowA("MS_WINHELP", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, windowClass.hInstance, nullptr);
        s_self = this;
    }
    ~WinHelpStandIn()
    {
        DestroyWindow(m_window);
        UnregisterClassA("MS_WINHELP", GetModuleHandleA(nullptr));
        s_self = nullptr;
    }
    bool ready() const { return m_window != nullptr; }

    BOOL answer = TRUE;
    int requests = 0;
    unsigned command = 0;
    std::string file;
    std::string keyword;

private:
    // Wine's request: size, command, data, reserved, then the offsets of
    // the file name and of the data, counted from the start.
    struct Request
    {
        WORD size;
        WORD command;
        LONG data;
        LONG reserved;
        WORD ofsFilename;
        WORD ofsData;
    };

    static LRESULT CALLBACK onMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (message != WM_COPYDATA || !s_self)
            return DefWindowProcA(window, message, wParam, lParam);
        const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        const auto* request = static_cast<const Request*>(data->lpData);
        const char* base = static_cast<const char*>(data->lpData);
        ++s_self->requests;
        s_self->command = request->command;
        s_self->file = request->ofsFilename ? base + request->ofsFilename : "";
        s_self->keyword = request->ofsData ? base + request->ofsData : "";
        return s_self->answer;
    }

    static WinHelpStandIn* s_self;
    HWND m_window = nullptr;
};
WinHelpStandIn* WinHelpStandIn::s_self = nullptr;

class Help : public Languages
{
protected:
    // A description whose English help file is name (created when content is given).
    std::string withHelp(const std::string& name, const char* content = "help")
    {
        if (content)
            tree.put("Lib\\" + name, content);
        return describe("[Languages]\nCount=1\nLang0=en\n[en]\nHelpFile=" + name + "\n");
    }
    const HWND owner = reinterpret_cast<HWND>(static_cast<LONG_PTR>(0x1234));
};

TEST_F(Help, ProblemsAreShownInBoxes)
{
    BoxRecorder boxes;
    const std::string noHelp = describe("[Languages]\nCount=1\nLang0=en\n");
    EXPECT_FALSE(TQMDisplayLibraryHelp(owner, noHelp.c_str(), nullptr));
    ASSERT_EQ(1u, boxes.count());
    EXPECT_EQ("Help file name not defined in TARNLIN file:\n" + noHelp, boxes.last().text);
    EXPECT_EQ("Library Help", boxes.last().caption);
    EXPECT_EQ(static_cast<UINT>(MB_ICONERROR), boxes.last().type);
    EXPECT_EQ(owner, boxes.last().owner);

    // A name without any dot gives FALSE, without a box.
    EXPECT_FALSE(TQMDisplayLibraryHelp(owner, withHelp("README").c_str(), nullptr));
    EXPECT_EQ(1u, boxes.count());

    EXPECT_FALSE(TQMDisplayLibraryHelp(owner, withHelp("Gone.hlp", nullptr).c_str(), "x"));
    EXPECT_EQ("Help file not found:\n" + tree.path("Lib\\Gone.hlp"), boxes.last().text);
}

TEST_F(Help, WindowsHelpAtTheKeywordOrItsContents)
{
    WinHelpStandIn viewer;
    ASSERT_TRUE(viewer.ready());
    BoxRecorder boxes;
    const std::string description = withHelp("Motion.HLP");
    EXPECT_TRUE(TQMDisplayLibraryHelp(owner, description.c_str(), "MC_Power"));
    EXPECT_EQ(1, viewer.requests);
    EXPECT_EQ(static_cast<unsigned>(HELP_KEY), viewer.command);
    EXPECT_EQ(tree.path("Lib\\Motion.HLP"), viewer.file);
    EXPECT_EQ("MC_Power", viewer.keyword);
    EXPECT_TRUE(TQMDisplayLibraryHelp(owner, description.c_str(), ""));
    EXPECT_EQ(static_cast<unsigned>(HELP_FINDER), viewer.command);
    EXPECT_EQ(0u, boxes.count());

    viewer.answer = FALSE;
    EXPECT_FALSE(TQMDisplayLibraryHelp(owner, description.c_str(), nullptr));
    ASSERT_EQ(1u, boxes.count());
    EXPECT_EQ("Failed to display help file:\n" + tree.path("Lib\\Motion.HLP"), boxes.last().text);
}

using HtmlHelpCall = LONG(__cdecl*)(HWND*, char*, UINT*, char*, int*, BOOL*);

// A library whose help is compiled HTML help; its description's path.
std::string withCompiledHelp(const tqmtest::LibraryTree& tree)
{
    tree.put("Lib\\Motion.chm", "help");
    return tree.put("Lib\\Motion.tarnlin", "[Languages]\nCount=1\nLang0=en\n[en]\nHelpFile=Motion.chm\n");
}

// The HTML Help path, run in a child process: the library loads hhctrl.ocx
// by name, and the stand-in's folder is searched first (SetDllDirectory).
// Wine prefers its own hhctrl.ocx to one found on the search path unless the
// program's load order says otherwise when it starts: the parent sets that
// for this program for the time of the test.
void showHtmlHelpInChild()
{
    ASSERT_TRUE(SetDllDirectoryA(tqmtest::FixturePath("htmlhelp").c_str()));
    tqmtest::LibraryTree tree;
    const std::string description = withCompiledHelp(tree);
    BoxRecorder boxes;
    EXPECT_TRUE(TQMDisplayLibraryHelp(nullptr, description.c_str(), "MC_Power"));
    HMODULE standIn = GetModuleHandleA("hhctrl.ocx");
    ASSERT_NE(nullptr, standIn);
    const auto lastCall =
        reinterpret_cast<HtmlHelpCall>(reinterpret_cast<void*>(GetProcAddress(standIn, "FixtureHtmlHelpCall")));
    ASSERT_NE(nullptr, lastCall) << "the system's HTML Help was loaded, not the stand-in";

    HWND caller;
    char file[MAX_PATH];
    UINT command;
    char keyword[MAX_PATH];
    int linkSize;
    BOOL indexOnFail;
    EXPECT_EQ(1, lastCall(&caller, file, &command, keyword, &linkSize, &indexOnFail));
    EXPECT_EQ(GetDesktopWindow(), caller);
    EXPECT_EQ(tree.path("Lib\\Motion.chm"), file);
    EXPECT_EQ(static_cast<UINT>(HH_KEYWORD_LOOKUP), command);
    EXPECT_STREQ("MC_Power", keyword);
    EXPECT_EQ(static_cast<int>(sizeof(HH_AKLINK)), linkSize);
    EXPECT_TRUE(indexOnFail);

    // Its contents. HTML Help returned NULL both times, and still TRUE.
    EXPECT_TRUE(TQMDisplayLibraryHelp(nullptr, description.c_str(), nullptr));
    EXPECT_EQ(2, lastCall(&caller, file, &command, keyword, &linkSize, &indexOnFail));
    EXPECT_EQ(static_cast<UINT>(HH_DISPLAY_TOC), command);
    EXPECT_EQ(0u, boxes.count());
}

// Runs the test again in a child process whose load order for hhctrl.ocx is
// loadOrder (Wine's: "native" takes the one found on the search path, ""
// loads none). The child must pass.
void runWithHtmlHelpLoadOrder(const char* loadOrder, const char* testName, const char* mode)
{
    char program[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, program, MAX_PATH);
    const std::string key = std::string("Software\\Wine\\AppDefaults\\") + (strrchr(program, '\\') + 1);
    HKEY overrides = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExA(HKEY_CURRENT_USER, (key + "\\DllOverrides").c_str(), 0, nullptr, 0,
                                             KEY_WRITE, nullptr, &overrides, nullptr));
    RegSetValueExA(overrides, "hhctrl.ocx", 0, REG_SZ, reinterpret_cast<const BYTE*>(loadOrder),
                   static_cast<DWORD>(strlen(loadOrder) + 1));
    RegCloseKey(overrides);
    const tqmtest::ProgramRun child = tqmtest::RunSelfAsChild(testName, mode);
    RegDeleteTreeA(HKEY_CURRENT_USER, key.c_str());
    EXPECT_EQ(0, child.exitCode) << child.out << child.err;
    EXPECT_NE(std::string::npos, child.out.find("[  PASSED  ] 1 test")) << child.out;
}

TEST(HtmlHelpViewer, AtTheKeywordOrItsContents)
{
    if (tqmtest::ChildMode() == "html-help") {
        showHtmlHelpInChild();
        return;
    }
    runWithHtmlHelpLoadOrder("native", "HtmlHelpViewer.AtTheKeywordOrItsContents", "html-help");
}

// Compiled HTML help counts as shown even where HTML Help itself cannot be
// loaded: its outcome is never reported back.
TEST(HtmlHelpViewer, CountsAsShownWithoutHtmlHelp)
{
    if (tqmtest::ChildMode() != "no-html-help") {
        runWithHtmlHelpLoadOrder("", "HtmlHelpViewer.CountsAsShownWithoutHtmlHelp", "no-html-help");
        return;
    }
    if (HMODULE loaded = LoadLibraryA("hhctrl.ocx")) {
        FreeLibrary(loaded);
        GTEST_SKIP() << "HTML Help could not be taken away";
    }
    tqmtest::LibraryTree tree;
    const std::string description = withCompiledHelp(tree);
    BoxRecorder boxes;
    EXPECT_TRUE(TQMDisplayLibraryHelp(nullptr, description.c_str(), "MC_Power"));
    EXPECT_TRUE(TQMDisplayLibraryHelp(nullptr, description.c_str(), nullptr));
    EXPECT_EQ(0u, boxes.count()) << boxes.last().text;
}

// The processes this one started from a program's name, by their ids.
std::vector<DWORD> childrenNamed(const char* exe)
{
    std::vector<DWORD> ids;
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32 entry = {};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Process32First(snapshot, &entry); more; more = Process32Next(snapshot, &entry)) {
        if (entry.th32ParentProcessID == GetCurrentProcessId() && !_stricmp(entry.szExeFile, exe))
            ids.push_back(entry.th32ProcessID);
    }
    CloseHandle(snapshot);
    return ids;
}

TEST_F(Help, OtherKindsOpenWithTheAssociatedProgramOrTheShellsChoice)
{
    const std::string log = tree.path("viewer.log");
    tqmtest::FileAssociation association(".tqmhelp", tqmtest::HelpViewerCommand(log));
    BoxRecorder boxes;
    EXPECT_TRUE(TQMDisplayLibraryHelp(owner, withHelp("Motion.tqmhelp").c_str(), "ignored"));
    EXPECT_EQ(tree.path("Lib\\Motion.tqmhelp"), tqmtest::WaitForLine(log));

    // No program for the kind: the shell's "open with" choice, and TRUE.
    EXPECT_TRUE(TQMDisplayLibraryHelp(owner, withHelp("Motion.tqmnoassoc").c_str(), nullptr));
    EXPECT_EQ(0u, boxes.count());
    for (DWORD id : childrenNamed("rundll32.exe")) {
        HANDLE process = OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, id);
        if (process && WaitForSingleObject(process, 20000) == WAIT_TIMEOUT)
            TerminateProcess(process, 1);  // a choice nobody is there to make
        if (process)
            CloseHandle(process);
    }
}

}  // namespace
