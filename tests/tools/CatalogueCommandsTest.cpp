// The catalogue's commands run as a user runs them, against an installation
// made for each test, and the catalogue chapter of the demo.
#include "libcatalog/logic/ObjectFileWriter.h"

#include "support/FileAssociation.h"
#include "support/LibraryTree.h"
#include "support/TqmProgram.h"

#include <gtest/gtest.h>

namespace {

using tqmtest::Contains;
using tqmtest::RunTqm;
using tqmtest::TqmRun;

class TqmCatalogue : public tqmtest::InstallationTest
{
protected:
    TqmCatalogue()
    {
        library("Std\\Motion\\Motion.tarnlin",
                "[Library]\nType=Hpak\nID=DEMO.MOTION\nVersion=2.1.0\n[Distributor]\nName=Tarn\n"
                "[Languages]\nCount=2\nLang0=en\nLang1=fr\n[en]\nName=Motion control\n[fr]\nName=Mouvement\n"
                "[Files]\nCount=1\nFile0=Motion.src\n");
        library("Std\\Motion\\Motion.src", "$INCLUDE Types.inc\n");
        library("Std\\Motion\\Types.inc", "");
        library("Usr\\Motion\\Motion.tarnlin", "[Library]\nType=Hpak\nID=demo.motion\nVersion=1.9.4\n");
        tree.put("Projects\\Plant\\Plant.tarn5pj",
                 "[LibraryFiles]\nNumberOfLibs=2\nLib0=<$StdLibDir>\\Motion\\Motion.tarnlin;1\nLib1=.\\Mine.tarnlin\n");
        tree.put("Projects\\Plant\\Mine.tarnlin", "[Library]\nType=Hpak\nID=DEMO.MOTION\nVersion=0.1.0\n"
                                                  "[Languages]\nCount=1\nLang0=en\n[en]\nName=Mine\n");
        tree.put("Projects\\Plant\\Cpu1\\Cpu1.tarn5pc", "[Controller]\n");
    }
};

TEST_F(TqmCatalogue, LibsListsTheCopyInUseOrAll)
{
    TqmRun r = RunTqm({"libs"});
    ASSERT_EQ(0, r.exitCode) << r.err;
    EXPECT_TRUE(Contains(r.out, "NAME")) << r.out;
    EXPECT_TRUE(Contains(r.out, "Motion control  en    DEMO.MOTION  2.1.0    Tarn         Std\\Motion\\Motion.tarnlin"))
        << r.out;
    EXPECT_FALSE(Contains(r.out, "1.9.4")) << r.out;
    r = RunTqm({"libs", "--all"});
    EXPECT_TRUE(Contains(r.out, "1.9.4")) << r.out;
    EXPECT_EQ(2, RunTqm({"libs", "extra"}).exitCode);
}

TEST_F(TqmCatalogue, LibFilesPrintsTheSetThenTheMessages)
{
    TqmRun r = RunTqm({"libfiles", tree.path("Libs\\Std\\Motion\\Motion.tarnlin")});
    EXPECT_EQ(0, r.exitCode) << r.err;
    const std::string motion = tree.path("Libs\\Std\\Motion\\");
    EXPECT_EQ(motion + "Motion.tarnlin\n" + motion + "Motion.src\n" + motion + "Types.inc\n", r.out);

    library("Bad\\Bad.tarnlin", "[Library]\nType=Hpak\n[Files]\nCount=1\nFile0=Gone.src\n");
    r = RunTqm({"libfiles", tree.path("Libs\\Bad\\Bad.tarnlin")});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_EQ(tree.path("Libs\\Bad\\Bad.tarnlin") + "\nError: Library file '" + tree.path("Libs\\Bad\\Gone.src") +
                  "' not found\n",
              r.out);
    library("Warn\\Warn.tarnlin", "[Library]\nType=Hpak\n[Languages]\nCount=1\n");
    EXPECT_EQ(0, RunTqm({"libfiles", tree.path("Libs\\Warn\\Warn.tarnlin")}).exitCode);  // warnings only
    EXPECT_EQ(2, RunTqm({"libfiles"}).exitCode);
}

TEST_F(TqmCatalogue, ProjectLibsAndIdentityClashes)
{
    TqmRun r = RunTqm({"project-libs", tree.path("Projects\\Plant\\Cpu1\\Cpu1.tarn5pc")});
    EXPECT_EQ(0, r.exitCode) << r.err;
    EXPECT_EQ(tree.path("Libs\\Std\\Motion\\Motion.tarnlin") + "\n" + tree.path("Projects\\Plant\\Mine.tarnlin") + "\n",
              r.out);
    EXPECT_EQ(1, RunTqm({"project-libs", tree.path("Projects\\Gone.tarn5pj")}).exitCode);

    r = RunTqm({"check-id", "DEMO.MOTION", "Motion", tree.path("Projects\\Plant\\Plant.tarn5pj")});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_TRUE(Contains(r.out, "1 other library carries the ID DEMO.MOTION:\n  Mine  version 0.1.0  from (no distributor)\n"))
        << r.out;
    r = RunTqm({"check-id", "DEMO.TIMERS", "Timers"});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_EQ("No other library carries the ID DEMO.TIMERS\n", r.out);
    EXPECT_EQ(2, RunTqm({"check-id", "X"}).exitCode);
}

TEST(TqmLibVersion, NumbersAndVerdicts)
{
    TqmRun r = RunTqm({"libversion", "V2.1.30", "002001030"});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_EQ("V2.1.30            2001030  2.1.30  well-formed\n002001030          2001030  2.1.30  well-formed\n",
              r.out);
    r = RunTqm({"libversion", "2.1000.0"});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_EQ("2.1000.0           2999000  2.999.0  malformed\n", r.out);
    EXPECT_EQ(2, RunTqm({"libversion"}).exitCode);
}

TEST_F(TqmCatalogue, ConvertibleListsCandidatesWithProgressOnStderr)
{
    tree.put("Old\\A\\a.lin", "[Library]\nType=Hpak\n");
    tree.put("Old\\B\\b.dff", "[__Library]\n");
    TqmRun r = RunTqm({"convertible", tree.path("Old")});
    EXPECT_EQ(0, r.exitCode) << r.err;
    EXPECT_TRUE(Contains(r.out, tree.path("Old\\A\\a.lin") + "\n")) << r.out;
    EXPECT_TRUE(Contains(r.out, tree.path("Old\\B\\b.dff") + "\n")) << r.out;
    EXPECT_TRUE(Contains(r.err, "scanning " + tree.path("Old"))) << r.err;
    EXPECT_TRUE(Contains(r.err, "2 candidates")) << r.err;
    EXPECT_EQ("", RunTqm({"convertible", "--no-recurse", tree.path("Old")}).out);
    EXPECT_EQ(2, RunTqm({"convertible"}).exitCode);
    EXPECT_EQ(2, RunTqm({"convertible", "--deep", tree.path("Old")}).exitCode);
}

TEST_F(TqmCatalogue, HelpShowsCommandUsageOrALibrarysHelp)
{
    TqmRun r = RunTqm({"help", "libs"});
    EXPECT_EQ(0, r.exitCode);
    EXPECT_TRUE(Contains(r.out, "usage: tqm libs [--all]")) << r.out;
    EXPECT_TRUE(Contains(RunTqm({"help", "--help"}).out, "tqm help DESC [KEYWORD]"));

    const std::string motion = tree.path("Libs\\Std\\Motion\\Motion.tarnlin");
    r = RunTqm({"help", motion});
    EXPECT_EQ(1, r.exitCode);
    EXPECT_TRUE(Contains(r.err, "[Library Help] Help file name not defined in TARNLIN file:\n" + motion)) << r.err;

    const std::string log = tree.path("viewer.log");
    tqmtest::FileAssociation association(".tqmhelp", tqmtest::HelpViewerCommand(log));
    library("Help\\Help.tarnlin", "[Languages]\nCount=1\nLang0=en\n[en]\nHelpFile=Help.tqmhelp\n");
    library("Help\\Help.tqmhelp", "help");
    r = RunTqm({"help", tree.path("Libs\\Help\\Help.tarnlin"), "MC_Power"});
    EXPECT_EQ(0, r.exitCode) << r.err;
    EXPECT_EQ(tree.path("Libs\\Help\\Help.tqmhelp"), tqmtest::WaitForLine(log));
}

class TqmCatalogueDemo : public tqmtest::InstallationTest
{
};

TEST_F(TqmCatalogueDemo, Chapter)
{
    tqmtest::TempDir dir;
    const TqmRun r = RunTqm({"demo", dir.path()});
    const size_t start = r.out.find("== Library catalogue ==");
    ASSERT_NE(std::string::npos, start) << r.out << r.err;
    const std::string step = r.out.substr(start, r.out.find("\n== ", start + 1) - start);
    EXPECT_FALSE(Contains(step, "(this step failed)")) << step;
    EXPECT_TRUE(Contains(step, "set aside: Motion control 1.9.4")) << step;
    EXPECT_TRUE(Contains(step, "Plant motion tweaks|DEMO.MOTION|1.0.0|Plant engineering|")) << step;
    EXPECT_TRUE(Contains(step, "Warning: Missing [Languages] Lang2= entry")) << step;
    EXPECT_TRUE(Contains(step, "Valves\\Extra.def")) << step;
}

}  // namespace
