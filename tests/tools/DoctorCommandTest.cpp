// tqm doctor on small installations with one fault each, run as a user runs
// it; the findings are read back from its JSON, the verdict from its exit code.
#include "config/QM5Profile.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include "support/FileUtil.h"
#include "support/LibraryTree.h"
#include "support/TqmProgram.h"
#include "support/UnixSide.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <windows.h>

namespace {

using tqmtest::Contains;
using tqmtest::RunTqm;
using tqmtest::TqmRun;

class TqmDoctor : public tqmtest::InstallationTest
{
protected:
    // A sound installation: the suite's folders made, one library with its
    // file and help file, and a project that names it by tag.
    TqmDoctor()
    {
        TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "TemplatesDir", tree.folder("Templates").c_str());
        RunTqm({"env", "create"});
        library("Std\\Timers\\Timers.tarnlin",
                "[Library]\nType=Hpak\nID=DEMO.TIMERS\nVersion=1.0.2\nInstallDir=Std\\Timers\n"
                "[Languages]\nCount=1\nLang0=en\n[Files]\nCount=1\nFile0=Timers.src\n[en]\nName=Timers\n"
                "HelpFile=Timers.chm\n");
        library("Std\\Timers\\Timers.src", "(* timers *)\n");
        library("Std\\Timers\\Timers.chm", "help");
        project("Plant", "Lib0=<$StdLibDir>\\Timers\\Timers.tarnlin;1;0;;\n");
    }

    std::string project(const std::string& name, const std::string& entries)
    {
        size_t count = 0;
        for (size_t at = entries.find("Lib"); at != std::string::npos; at = entries.find("\nLib", at + 1))
            ++count;
        return tree.put("Projects\\" + name + "\\" + name + ".tarn5pj",
                        "[LibraryFiles]\nNumberOfLibs=" + std::to_string(count) + "\n" + entries);
    }

    // The findings of a JSON run; the exit code goes to exitCode.
    nlohmann::json findings(int* exitCode = nullptr, const char* only = nullptr)
    {
        std::vector<std::string> args = {"doctor", "--json"};
        if (only) {
            args.push_back("--only");
            args.push_back(only);
        }
        const TqmRun r = RunTqm(args);
        if (exitCode)
            *exitCode = r.exitCode;
        EXPECT_EQ("", r.err);  // no progress line when stderr is not a terminal
        return nlohmann::json::parse(r.out)["findings"];
    }

    // The first finding of the group about subject whose reason holds part;
    // null when there is none.
    static nlohmann::json finding(const nlohmann::json& all, const char* group, const std::string& subject,
                                  const std::string& part = std::string())
    {
        for (const nlohmann::json& f : all) {
            if (f["group"] == group && f["subject"] == subject &&
                f["reason"].get<std::string>().find(part) != std::string::npos)
                return f;
        }
        return nullptr;
    }
};

TEST_F(TqmDoctor, SoundInstallationPassesAndUsageErrorsGiveTwo)
{
    TqmRun r = RunTqm({"doctor"});
    EXPECT_EQ(0, r.exitCode) << r.out;
    EXPECT_TRUE(Contains(r.out, "Installed libraries\n  (nothing found)\n")) << r.out;
    EXPECT_TRUE(Contains(r.out, "Projects\n  (nothing found)\n")) << r.out;
    EXPECT_TRUE(Contains(r.out, "0 errors, 0 warnings, ")) << r.out;

    r = RunTqm({"doctor", "--only", "projects"});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_EQ("No findings among the projects.\n", r.out);

    const nlohmann::json document = nlohmann::json::parse(RunTqm({"doctor", "--json", "--only", "libraries"}).out);
    EXPECT_EQ(nlohmann::json::array({"libraries"}), document["groups"]);
    EXPECT_EQ(0, document["summary"]["errors"]);

    EXPECT_EQ(2, RunTqm({"doctor", "--only", "everything"}).exitCode);
    EXPECT_EQ(2, RunTqm({"doctor", "--only"}).exitCode);
    EXPECT_EQ(2, RunTqm({"doctor", "extra"}).exitCode);
}

TEST_F(TqmDoctor, LibraryFaults)
{
    // A file the description lists is gone.
    DeleteFileA(tree.path("Libs\\Std\\Timers\\Timers.src").c_str());
    // An older copy of another library elsewhere, without a help file.
    library("Std\\Motion\\Motion.tarnlin",
            "[Library]\nType=Hpak\nID=DEMO.MOTION\nVersion=2.1.0\n[Languages]\nCount=1\nLang0=en\n"
            "[en]\nHelpFile=Motion.chm\n");
    library("Usr\\Motion\\Motion.tarnlin", "[Library]\nType=Hpak\nID=demo.motion\nVersion=1.9.4\n");
    // Two copies of one version: the one inside the install folder they both name stays.
    library("Aaa\\Valve.tarnlin", "[Library]\nType=Hpak\nID=VALVE\nVersion=1.0\nInstallDir=Zzz\n");
    library("Zzz\\Valve.tarnlin", "[Library]\nType=Hpak\nID=VALVE\nVersion=1.0\nInstallDir=Zzz\n");

    int exitCode = 0;
    const nlohmann::json all = findings(&exitCode, "libraries");
    EXPECT_EQ(1, exitCode);
    const std::string timers = tree.path("Libs\\Std\\Timers\\Timers.tarnlin");
    const nlohmann::json missing = finding(all, "libraries", timers, "not found");
    ASSERT_FALSE(missing.is_null()) << all.dump(1);
    EXPECT_EQ("error", missing["severity"]);
    EXPECT_EQ("Error: Library file '" + tree.path("Libs\\Std\\Timers\\Timers.src") + "' not found",
              missing["message"]);

    const std::string motion = tree.path("Libs\\Std\\Motion\\Motion.tarnlin");
    const nlohmann::json duplicate =
        finding(all, "libraries", tree.path("Libs\\Usr\\Motion\\Motion.tarnlin"), "set aside");
    ASSERT_FALSE(duplicate.is_null()) << all.dump(1);
    EXPECT_EQ("warning", duplicate["severity"]);
    EXPECT_TRUE(Contains(duplicate["reason"], "uses " + motion + " (version 2.1.0)")) << duplicate;
    EXPECT_TRUE(Contains(duplicate["reason"], "the higher version stays")) << duplicate;
    EXPECT_TRUE(duplicate["message"].is_null());
    const nlohmann::json sameVersion = finding(all, "libraries", tree.path("Libs\\Aaa\\Valve.tarnlin"), "set aside");
    EXPECT_TRUE(Contains(sameVersion["reason"], "in its own install folder (" + tree.path("Libs\\Zzz") + ")"))
        << all.dump(1);
    EXPECT_TRUE(finding(all, "libraries", tree.path("Libs\\Zzz\\Valve.tarnlin"), "set aside").is_null());

    const nlohmann::json help = finding(all, "libraries", motion, "help file");
    ASSERT_FALSE(help.is_null()) << all.dump(1);
    EXPECT_EQ("warning", help["severity"]);
    EXPECT_TRUE(Contains(help["reason"], tree.path("Libs\\Std\\Motion\\Motion.chm"))) << help;
}

TEST_F(TqmDoctor, HelpFileOfTheLanguageTheLibraryIsShownIn)
{
    // Preferred French: found after the first language, so French it is; a
    // library that lists French first is shown in it as its fallback; one
    // that lists no language is shown in English.
    setLanguages("fr", nullptr);
    library("A\\A.tarnlin", "[Library]\nType=Hpak\nID=A\n[Languages]\nCount=2\nLang0=en\nLang1=fr\n"
                            "[en]\nHelpFile=A.chm\n[fr]\nHelpFile=A_fr.chm\n");
    library("A\\A.chm", "help");
    library("B\\B.tarnlin",
            "[Library]\nType=Hpak\nID=B\n[Languages]\nCount=2\nLang0=fr\nLang1=en\n[fr]\nHelpFile=B_fr.chm\n");
    library("C\\C.tarnlin", "[Library]\nType=Hpak\nID=C\n[de]\nHelpFile=C.chm\n");
    const nlohmann::json all = findings(nullptr, "libraries");
    const std::string a = tree.path("Libs\\A\\A.tarnlin");
    const std::string aFrench = tree.path("Libs\\A\\A_fr.chm");
    EXPECT_TRUE(Contains(finding(all, "libraries", a, "help")["reason"], "(fr) is missing: " + aFrench)) << all.dump(1);
    EXPECT_TRUE(Contains(finding(all, "libraries", tree.path("Libs\\B\\B.tarnlin"), "help")["reason"], "(fr)"))
        << all.dump(1);
    const nlohmann::json none = finding(all, "libraries", tree.path("Libs\\C\\C.tarnlin"), "help");
    EXPECT_EQ("note", none["severity"]) << all.dump(1);
    EXPECT_TRUE(Contains(none["reason"], "(en)")) << none;
}

TEST_F(TqmDoctor, SettingsFaults)
{
    // A value the mirror file holds differently from the registry.
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "Units", "mm");
    const std::string mirror = tqmtest::MirrorFile();
    WritePrivateProfileStringA("Global", "Units", "inch", mirror.c_str());
    // A damaged options file: an entry before the first section.
    setLanguages("en", nullptr);
    const std::string options = TQMGetVMXOptionsFilePath().GetString();
    tqmtest::WriteBytes(options, "LibLanguage=fr\n[VMX]\n");

    int exitCode = 0;
    const nlohmann::json all = findings(&exitCode, "settings");
    EXPECT_EQ(1, exitCode);
    const nlohmann::json differs = finding(all, "settings", "Global\\Units");
    ASSERT_FALSE(differs.is_null()) << all.dump(1);
    EXPECT_EQ("warning", differs["severity"]);
    EXPECT_TRUE(Contains(differs["reason"], "\"mm\"") && Contains(differs["reason"], "\"inch\"")) << differs;

    const nlohmann::json damaged = finding(all, "settings", options, "line 1");
    ASSERT_FALSE(damaged.is_null()) << all.dump(1);
    EXPECT_EQ("error", damaged["severity"]);
    EXPECT_TRUE(Contains(damaged["reason"], "entry before the first section header")) << damaged;
    EXPECT_EQ(2u, all.size()) << all.dump(1);  // the directory settings agree on both sides
}

TEST_F(TqmDoctor, ProjectFaults)
{
    const std::string timers = tree.path("Libs\\Std\\Timers\\Timers.tarnlin");
    const std::string outside = tree.put("Elsewhere\\Mine.tarnlin", "[Library]\nType=Hpak\nID=MINE\n");
    tree.put("Projects\\Plant\\Copy.tarnlin", "[Library]\nType=Hpak\nID=demo.timers\nVersion=0.9\n");
    const std::string plant =
        project("Plant", "Lib0=" + timers + ";1;0;;\nLib1=<$StdLibDir>\\Gone\\Gone.tarnlin\nLib2=" + outside +
                             "\nLib3=<$NoSuchDir>\\x.tarnlin\nLib4=.\\Copy.tarnlin\n");

    int exitCode = 0;
    const nlohmann::json all = findings(&exitCode, "projects");
    EXPECT_EQ(1, exitCode);
    const nlohmann::json untagged = finding(all, "projects", plant, "Lib0=");
    ASSERT_FALSE(untagged.is_null()) << all.dump(1);
    EXPECT_EQ("warning", untagged["severity"]);
    EXPECT_TRUE(Contains(untagged["reason"], "store it as <$LibsDir>\\Std\\Timers\\Timers.tarnlin")) << untagged;

    const nlohmann::json gone = finding(all, "projects", plant, "Lib1=");
    ASSERT_FALSE(gone.is_null()) << all.dump(1);
    EXPECT_EQ("error", gone["severity"]);
    EXPECT_TRUE(Contains(gone["reason"], tree.path("Libs\\Std\\Gone\\Gone.tarnlin") + " does not exist")) << gone;

    EXPECT_EQ("note", finding(all, "projects", plant, "Lib2=")["severity"]) << all.dump(1);
    EXPECT_EQ("error", finding(all, "projects", plant, "Lib3=")["severity"]) << all.dump(1);
    const nlohmann::json clash = finding(all, "projects", plant, "Lib4=");
    EXPECT_EQ("warning", clash["severity"]) << all.dump(1);
    EXPECT_TRUE(Contains(clash["reason"], "also carried by the installed library " + timers)) << clash;
    EXPECT_EQ(5u, all.size()) << all.dump(1);
}

TEST_F(TqmDoctor, UnwritableDirectory)
{
    // The process's own /proc folder takes no new files, whoever asks (root
    // included, as the tests often run here); Wine shows it on drive Z:.
    const std::string folder = "Z:\\proc";
    const DWORD attributes = GetFileAttributesA(folder.c_str());
    const std::string probe = folder + "\\tqm-probe.tmp";
    HANDLE file = CreateFileA(probe.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        CloseHandle(file);
        DeleteFileA(probe.c_str());
    }
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY) ||
        file != INVALID_HANDLE_VALUE)
        GTEST_SKIP() << "no folder here that refuses new files (" << folder << " is missing or writable)";
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "TemplatesDir", folder.c_str());

    int exitCode = 0;
    const nlohmann::json all = findings(&exitCode, "directories");
    EXPECT_EQ(1, exitCode);
    const nlohmann::json unwritable = finding(all, "directories", folder, "cannot be written");
    ASSERT_FALSE(unwritable.is_null()) << all.dump(1);
    EXPECT_EQ("error", unwritable["severity"]);
    EXPECT_TRUE(Contains(unwritable["reason"], "TemplatesDir")) << unwritable;
}

TEST_F(TqmDoctor, MovedDirectoryAndOldLibraries)
{
    // The projects directory set to a folder that is gone, while its default is there.
    const std::string gone = tree.path("Moved away");
    const std::string fallback = std::string(TQMGetCommonDocumentsDir().GetString()) + "\\Projects";
    TQMCreateDir(fallback.c_str());
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", gone.c_str());
    nlohmann::json all = findings(nullptr, "directories");
    const nlohmann::json moved = finding(all, "directories", gone, "default " + fallback);
    ASSERT_FALSE(moved.is_null()) << all.dump(1);
    EXPECT_EQ("error", moved["severity"]);

    // Old descriptions: one in a project waiting, one in the libraries directory unseen.
    TQMSetQM5ProfileString(HKEY_LOCAL_MACHINE, "Global", "ProjectsDir", tree.path("Projects").c_str());
    const std::string waiting = tree.put("Projects\\Plant\\Old\\Counters.lin", "[Library]\nType=Hpak\n");
    const std::string unseen = library("Old\\Valves.lin", "[Library]\nType=Hpak\n");
    all = findings(nullptr, "conversion");
    EXPECT_EQ("warning", finding(all, "conversion", waiting, "waiting for conversion")["severity"]) << all.dump(1);
    EXPECT_EQ("warning", finding(all, "conversion", unseen, "does not see")["severity"]) << all.dump(1);
    EXPECT_EQ(2u, all.size()) << all.dump(1);
}

// Projects and libraries kept on another disk and linked in are checked like
// any other, once each, however the links loop back.
TEST_F(TqmDoctor, LinkedFoldersAreWalkedOnce)
{
    tree.put("Elsewhere\\Site\\Line\\Line.tarn5pj",
             "[LibraryFiles]\nNumberOfLibs=1\nLib0=<$StdLibDir>\\Gone\\Gone.tarnlin\n");
    tree.put("Shelf\\Old\\Valves.lin", "[Library]\nType=Hpak\n");
    tqmtest::FolderLink site(tree.path("Projects\\Site"), tree.path("Elsewhere\\Site"));
    tqmtest::FolderLink back(tree.path("Elsewhere\\Site\\Back"), tree.path("Projects"));
    tqmtest::FolderLink shelf(tree.path("Libs\\Shelf"), tree.path("Shelf"));
    tqmtest::FolderLink loop(tree.path("Shelf\\Loop"), tree.path("Libs"));
    for (const tqmtest::FolderLink* link : {&site, &back, &shelf, &loop}) {
        if (!link->made())
            GTEST_SKIP() << link->why();
    }

    nlohmann::json all = findings(nullptr, "projects");
    const nlohmann::json gone = finding(all, "projects", tree.path("Projects\\Site\\Line\\Line.tarn5pj"), "Lib0=");
    ASSERT_FALSE(gone.is_null()) << all.dump(1);
    EXPECT_EQ("error", gone["severity"]);
    EXPECT_EQ(1u, all.size()) << all.dump(1);

    all = findings(nullptr, "conversion");
    const nlohmann::json unseen = finding(all, "conversion", tree.path("Libs\\Shelf\\Old\\Valves.lin"), "does not see");
    EXPECT_EQ("warning", unseen["severity"]) << all.dump(1);
    EXPECT_EQ(1u, all.size()) << all.dump(1);
}

TEST(TqmDoctorDemo, Chapter)
{
    tqmtest::SuiteSettingsGuard guard;
    tqmtest::TempDir dir;
    const TqmRun r = RunTqm({"demo", dir.path()});
    const size_t start = r.out.find("== The doctor ==");
    ASSERT_NE(std::string::npos, start) << r.out << r.err;
    const std::string step = r.out.substr(start, r.out.find("\n== ", start + 1) - start);
    EXPECT_FALSE(Contains(step, "(this step failed)")) << step;
    EXPECT_TRUE(Contains(step, "Timers.src' not found")) << step;
    EXPECT_TRUE(Contains(step, "Global\\DemoUnits: differs")) << step;
    EXPECT_TRUE(Contains(step, "Lib1 stored as <$LibsDir>\\Std\\Timers\\Timers.tarnlin")) << step;
}

}  // namespace
