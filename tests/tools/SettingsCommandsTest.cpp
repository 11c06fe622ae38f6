// tqm dirs, tqm settings, tqm tags and tqm env, run as a user runs them; and
// a second process that sees what the first one wrote back.
#include "config/QM5Profile.h"
#include "paths/InstallDirs.h"

#include "support/FixtureFiles.h"
#include "support/SuiteSettingsGuard.h"
#include "support/TempDir.h"
#include "support/TqmProgram.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using tqmtest::Contains;
using tqmtest::RunTqm;
using tqmtest::TqmRun;

// What the line of "tqm dirs" for the directory says after its name.
std::string dirLine(const std::string& out, const std::string& name)
{
    const std::string text = "\n" + out;
    size_t at = text.find("\n" + name + " ");
    if (at == std::string::npos)
        return std::string();
    at = text.find_first_not_of(' ', at + 1 + name.size());
    return text.substr(at, text.find('\n', at) - at);
}

class TqmSettings : public testing::Test
{
protected:
    tqmtest::SuiteSettingsGuard guard;
};

TEST_F(TqmSettings, DirsShowsWhereEachDirectoryCameFromAcrossProcesses)
{
    // This process fixes the libraries' default; tqm sees it as the setting.
    const CString libs = TQMGetLibsDir();
    TqmRun r = RunTqm({"dirs"});
    ASSERT_EQ(0, r.exitCode) << r.err;
    EXPECT_EQ(std::string(libs.GetString()) + "  [setting]", dirLine(r.out, "LibsDir"));
    const std::string projects = std::string(TQMGetCommonDocumentsDir().GetString()) + "\\Projects";
    EXPECT_EQ(projects + "  [default, written back]", dirLine(r.out, "ProjectsDir"));
    EXPECT_EQ(std::string(TQMGetLocalDir().GetString()), dirLine(r.out, "LocalDir"));
    // ... and the default tqm wrote back is this process's setting now.
    EXPECT_STREQ(projects.c_str(), TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", ""));

    r = RunTqm({"dirs", "set", "templates", "D:\\Shared\\Templates"});
    EXPECT_EQ(0, r.exitCode) << r.err;
    EXPECT_STREQ("D:\\Shared\\Templates", TQMGetTemplatesDir());
    EXPECT_EQ("D:\\Shared\\Templates  [setting]", dirLine(RunTqm({"dirs"}).out, "TemplatesDir"));

    EXPECT_EQ(2, RunTqm({"dirs", "set", "UserDir", "D:\\x"}).exitCode);
}

TEST_F(TqmSettings, SettingsGetSetDelete)
{
    EXPECT_EQ(0, RunTqm({"settings", "set", "--user", "Editor", "Font", "Courier New"}).exitCode);
    EXPECT_EQ(0, RunTqm({"settings", "set", "--user", "--int", "Editor", "Tabs", "-4"}).exitCode);
    EXPECT_STREQ("Courier New", TQMGetQM5ProfileString(HKEY_CURRENT_USER, "Editor", "Font", ""));
    EXPECT_EQ(static_cast<UINT>(-4), TQMGetQM5ProfileInt(HKEY_CURRENT_USER, "Editor", "Tabs", 0));
    EXPECT_EQ("-4\n", RunTqm({"settings", "get", "--user", "--int", "Editor", "Tabs"}).out);
    TqmRun r = RunTqm({"settings", "get", "--user", "Editor"});
    EXPECT_TRUE(Contains(r.out, "Font=Courier New\n")) << r.out;
    EXPECT_TRUE(Contains(r.out, "Tabs=-4  (number)\n")) << r.out;

    // Machine-wide by default, mirrored and read back from the mirror.
    EXPECT_EQ(0, RunTqm({"settings", "set", "Global", "Vendor", "Tarn"}).exitCode);
    EXPECT_EQ("Vendor=Tarn\n", RunTqm({"settings", "get", "--machine", "Global"}).out);
    EXPECT_STREQ("Tarn", TQMGetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "Vendor", ""));

    EXPECT_EQ(0, RunTqm({"settings", "delete", "--user", "Editor", "Font"}).exitCode);
    r = RunTqm({"settings", "get", "--user", "Editor", "Font"});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_TRUE(Contains(r.err, "not set")) << r.err;
    EXPECT_EQ(0, RunTqm({"settings", "delete", "--user", "Editor"}).exitCode);
    EXPECT_EQ(1, RunTqm({"settings", "get", "--user", "--int", "Editor", "Tabs"}).exitCode);

    EXPECT_EQ(2, RunTqm({"settings", "set", "--int", "S", "E", "12abc"}).exitCode);
}

TEST_F(TqmSettings, TagsSubstAndUnsubst)
{
    const std::string libs = TQMGetLibsDir().GetString();
    TqmRun r = RunTqm({"tags", "subst", libs + "\\Std\\a.x"});
    EXPECT_EQ(0, r.exitCode) << r.err;
    EXPECT_EQ("<$LibsDir>\\Std\\a.x\n", r.out);
    EXPECT_EQ(libs + "\\Std\\a.x\n", RunTqm({"tags", "unsubst", "<$stdlibdir>\\a.x"}).out);
    EXPECT_EQ("<$DevDir>\\main.st\n",
              RunTqm({"tags", "subst", "D:\\P\\Cpu\\main.st", "--project", "D:\\P", "--device", "D:\\P\\Cpu"}).out);
    EXPECT_EQ("D:\\P\\plc.cfg\n", RunTqm({"tags", "unsubst", "<$ProjDir>\\plc.cfg", "--project", "D:\\P"}).out);
    EXPECT_TRUE(Contains(RunTqm({"tags", "list"}).out, "<$HpLibDir>      " + libs + "\\HP\n"));

    EXPECT_EQ(2, RunTqm({"tags", "unsubst", "a", "--project"}).exitCode);
}

TEST_F(TqmSettings, EnvCreateSaysWhatItMade)
{
    tqmtest::TempDir temp;
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", temp.file("Projects").c_str());
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "LibsDir", temp.file("Libs").c_str());
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "TemplatesDir", temp.file("Templates").c_str());
    TqmRun r = RunTqm({"env", "create"});
    EXPECT_EQ(0, r.exitCode) << r.err;
    EXPECT_TRUE(Contains(r.out, "ProjectsDir   " + temp.file("Projects") + "  [created]\n")) << r.out;
    EXPECT_TRUE(Contains(r.out, "AppsDir       " + tqmtest::ProgramDir() + "  [already there]\n")) << r.out;
    r = RunTqm({"env", "create"});
    EXPECT_TRUE(Contains(r.out, "ProjectsDir   " + temp.file("Projects") + "  [already there]\n")) << r.out;
    EXPECT_FALSE(Contains(r.out, "[created]"));

    r = RunTqm({"env", "copy", "NoSuch.ini"});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_EQ(std::string(TQMGetUserDir().GetString()) + "\\NoSuch.ini\n", r.out);
    EXPECT_EQ(2, RunTqm({"env", "copy", "sub\\x.ini"}).exitCode);
}

}  // namespace
