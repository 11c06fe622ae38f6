// Installed and project libraries, identity clashes, and the version export,
// against an installation made for each test.
#include "support/LibraryTree.h"
#include "support/UnixSide.h"

#include "framework/Handles.h"
#include "libcatalog/LibraryLists.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using Strings = std::vector<std::string>;

std::string description(const char* id, const char* version, const char* installDir = "")
{
    return std::string("[Library]\nType=Hpak\nID=") + id + "\nVersion=" + version + "\nInstallDir=" + installDir +
           "\n";
}

Strings sorted(Strings list)
{
    std::sort(list.begin(), list.end());
    return list;
}

class Libraries : public tqmtest::InstallationTest
{
};

TEST_F(Libraries, NoLibraryGivesTheEmptyBlock)
{
    tqm::UniqueGlobal block(TQMGetInstalledLibraries(TRUE));
    ASSERT_TRUE(block);
    EXPECT_EQ(2u, GlobalSize(block.get()));
    tqm::GlobalLock lock(block.get());
    EXPECT_EQ(0, memcmp(lock.get(), "\0\0", 2));
    EXPECT_NE(static_cast<void*>(block.get()), lock.get());  // movable: a handle, not the memory
}

TEST_F(Libraries, InstalledDescriptionsDepthFirst)
{
    library("Top.tarnlin", description("TOP", "1.0.0"));
    library("Std\\Motion\\Motion.TARNLIN", description("MOTION", "1.0.0"));
    library("Std\\Motion\\Motion.lin", "[Library]\nType=Hpak\n");
    library("Std\\Motion\\Motion.tarnlinx", "");
    tree.folder("Libs\\Std\\Folder.tarnlin");
    const Strings all = inTree(TQMGetInstalledLibraries(FALSE));
    ASSERT_EQ(2u, all.size());
    EXPECT_EQ("<>\\Libs\\Top.tarnlin", all[0]);  // a folder's own descriptions before its subfolders'
    EXPECT_EQ("<>\\Libs\\Std\\Motion\\Motion.TARNLIN", all[1]);
}

// Real installations link folders in: a libraries folder moved to another
// disk and linked back. Links are entered; a folder met again, through a
// link up the tree or a second link to it, is not.
TEST_F(Libraries, LinkedFoldersAreEnteredOnceAndCyclesEnd)
{
    library("Std\\Motion.tarnlin", description("MOTION", "1.0.0"));
    tree.put("Moved\\Drives\\Drives.tarnlin", description("DRIVES", "1.0.0"));
    tqmtest::FolderLink moved(tree.path("Libs\\Drives"), tree.path("Moved"));
    tqmtest::FolderLink up(tree.path("Libs\\Std\\Up"), tree.path("Libs"));
    tqmtest::FolderLink again(tree.path("Libs\\Again"), tree.path("Libs\\Std"));
    for (const tqmtest::FolderLink* link : {&moved, &up, &again}) {
        if (!link->made())
            GTEST_SKIP() << link->why();
    }
    ASSERT_TRUE(GetFileAttributesA(tree.path("Libs\\Drives").c_str()) & FILE_ATTRIBUTE_REPARSE_POINT);

    const Strings all = inTree(TQMGetInstalledLibraries(FALSE));
    ASSERT_EQ(2u, all.size()) << testing::PrintToString(all);
    const auto motion = std::find_if(all.begin(), all.end(), [](const std::string& path) {
        return path == "<>\\Libs\\Std\\Motion.tarnlin" || path == "<>\\Libs\\Again\\Motion.tarnlin";
    });
    EXPECT_NE(all.end(), motion) << testing::PrintToString(all);
    EXPECT_NE(all.end(), std::find(all.begin(), all.end(), "<>\\Libs\\Drives\\Drives\\Drives.tarnlin"));
}

TEST_F(Libraries, OfTwoCopiesTheHigherVersionStays)
{
    library("A\\Motion.tarnlin", description("DEMO.MOTION", "1.0.0"));
    library("B\\Motion.tarnlin", description("demo.motion", "V1.2.0"));
    library("C\\Timers.tarnlin", description("TIMERS", "1.0.0"));
    EXPECT_EQ(3u, inTree(TQMGetInstalledLibraries(FALSE)).size());
    EXPECT_EQ(sorted({"<>\\Libs\\B\\Motion.tarnlin", "<>\\Libs\\C\\Timers.tarnlin"}),
              sorted(inTree(TQMGetInstalledLibraries(TRUE))));
    // The other way round.
    library("A\\Motion.tarnlin", description("DEMO.MOTION", "1.2.0"));
    library("B\\Motion.tarnlin", description("demo.motion", "1.0.0"));
    EXPECT_EQ(sorted({"<>\\Libs\\A\\Motion.tarnlin", "<>\\Libs\\C\\Timers.tarnlin"}),
              sorted(inTree(TQMGetInstalledLibraries(TRUE))));
    // Equal versions: the copy that lies in its install folder.
    library("A\\Motion.tarnlin", description("DEMO.MOTION", "1.2.0", "B"));
    library("B\\Motion.tarnlin", description("demo.motion", "1.2.0", "B"));
    EXPECT_EQ(sorted({"<>\\Libs\\B\\Motion.tarnlin", "<>\\Libs\\C\\Timers.tarnlin"}),
              sorted(inTree(TQMGetInstalledLibraries(TRUE))));
}

TEST_F(Libraries, ProjectLibrariesFromAControllerFile)
{
    library("Std\\Motion\\Motion.tarnlin", description("MOTION", "1.0.0"));
    library("Std\\Motion\\Old.tarnlin", description("MOTION", "0.9.0"));
    tree.put("Projects\\Demo\\Demo.tarn5pj",
             "[LibraryFiles]\nNumberOfLibs=6\n"
             "Lib0=<$StdLibDir>\\Motion\\Motion.tarnlin;1;2;3;4\n"
             "Lib1=.\\Libs\\Own.tarnlin\n"
             "Lib2=;x\n"
             "Lib3=<$LIBSDIR>\\std\\motion\\MOTION.tarnlin;again\n"
             "Lib5=<$ProjDir>\\Libs\\Tagged.tarnlin\n"
             "Lib6=beyond the count\n");
    tree.put("Projects\\Demo\\Cpu1\\Plc.tarn5pc", "[Controller]\n");
    const Strings expected = {"<>\\Libs\\Std\\Motion\\Motion.tarnlin", "<>\\Projects\\Demo\\Libs\\Own.tarnlin",
                              "<>\\Projects\\Demo\\Libs\\Tagged.tarnlin"};
    EXPECT_EQ(expected, inTree(TQMGetProjectLibraries(tree.path("Projects\\Demo\\Cpu1\\Plc.tarn5pc").c_str())));
    EXPECT_EQ(expected, inTree(TQMGetProjectLibraries(tree.path("Projects\\Demo\\Demo.tarn5pj").c_str())));

    // Without NumberOfLibs: every installed library, duplicates removed.
    tree.put("Projects\\All\\All.tarn5pj", "[LibraryFiles]\nLib0=x.tarnlin\n");
    EXPECT_EQ(Strings{"<>\\Libs\\Std\\Motion\\Motion.tarnlin"},
              inTree(TQMGetProjectLibraries(tree.path("Projects\\All\\All.tarn5pj").c_str())));
    // NumberOfLibs=0: none, as the empty block; a huge count finds what is there.
    tree.put("Projects\\None\\None.tarn5pj", "[LibraryFiles]\nNumberOfLibs=0\nLib0=x.tarnlin\n");
    tqm::UniqueGlobal none(TQMGetProjectLibraries(tree.path("Projects\\None\\None.tarn5pj").c_str()));
    ASSERT_TRUE(none);
    EXPECT_EQ(2u, GlobalSize(none.get()));
    tree.put("Projects\\Huge\\Huge.tarn5pj", "[LibraryFiles]\nNumberOfLibs=2147483647\nLib7=.\\a.tarnlin\n");
    EXPECT_EQ(Strings{"<>\\Projects\\Huge\\a.tarnlin"},
              inTree(TQMGetProjectLibraries(tree.path("Projects\\Huge\\Huge.tarn5pj").c_str())));

    EXPECT_EQ(nullptr, TQMGetProjectLibraries(tree.path("Projects\\Gone\\Gone.tarn5pj").c_str()));
    EXPECT_EQ(nullptr, TQMGetProjectLibraries(tree.path("Projects\\Gone\\Cpu1\\x.tarn5pc").c_str()));
    EXPECT_EQ(nullptr, TQMGetProjectLibraries(nullptr));
}

TEST_F(Libraries, IdentityClashes)
{
    library("Std\\Motion\\Motion.tarnlin", description("DEMO.MOTION", "2.1.0") +
                                               "[Distributor]\nName=Tarn\n[Languages]\nCount=2\nLang0=en\nLang1=fr\n"
                                               "[en]\nName=Motion\n[fr]\nName=Mouvement\n");
    library("Usr\\Motion\\Motion.tarnlin", description("demo.motion", "1.0.0"));  // the caller's own name
    library("Usr\\Other\\Other.tarnlin", description("DEMO.MOTION", "0.1"));
    library("Usr\\Timers\\Timers.tarnlin", description("TIMERS", "1.0.0"));
    tree.put("Projects\\P\\P.tarn5pj", "[LibraryFiles]\nNumberOfLibs=2\nLib0=.\\Mine.tarnlin\n"
                                       "Lib1=<$LibsDir>\\Usr\\Other\\Other.tarnlin\n");
    tree.put("Projects\\P\\Mine.tarnlin", description("Demo.Motion", "3.0.0") + "[Languages]\nCount=1\nLang0=de\n"
                                                                                 "[de]\nName=Meine\n");
    setLanguages("fr", nullptr);

    const Strings installed = sorted(tqmtest::TakeBlock(TQMCheckLibraryID("DEMO.MOTION", "motion", nullptr)));
    EXPECT_EQ(Strings{"\tDEMO.MOTION\t0.1\t\t"}, installed);
    const Strings withProject =
        sorted(tqmtest::TakeBlock(TQMCheckLibraryID("DEMO.MOTION", "Other", tree.path("Projects\\P\\P.tarn5pj").c_str())));
    EXPECT_EQ(sorted({"Meine\tDEMO.MOTION\t3.0.0\t\t", "Mouvement\tDEMO.MOTION\t2.1.0\tTarn\t",
                      "\tDEMO.MOTION\t1.0.0\t\t"}),
              withProject);
    EXPECT_EQ(nullptr, TQMCheckLibraryID("NOBODY", "x", ""));
}

TEST(LibraryVersionExport, WritesTheValueAlways)
{
    DWORD value = 0xdeadbeef;
    EXPECT_TRUE(TQMParseLibraryVersion("V2.1.30", &value));
    EXPECT_EQ(2001030u, value);
    value = 0xdeadbeef;
    EXPECT_FALSE(TQMParseLibraryVersion("2.1000.0", &value));
    EXPECT_EQ(2999000u, value);
    EXPECT_TRUE(TQMParseLibraryVersion("2.1", nullptr));
}

}  // namespace
