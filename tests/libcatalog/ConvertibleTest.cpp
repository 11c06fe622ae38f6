// The scan for old libraries: what is listed and what not, folders skipped,
// and a stop from another thread at any moment.
#include "support/LibraryTree.h"
#include "support/UnixSide.h"

#include "framework/Handles.h"
#include "libcatalog/ConvertibleLibraries.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <thread>

namespace {

using Strings = std::vector<std::string>;

class Convertible : public tqmtest::InstallationTest
{
protected:
    Strings scan(const std::string& folders, BOOL recurse = TRUE)
    {
        Strings found = inTree(TQMGetConvertableLibraries(folders.c_str(), recurse));
        std::sort(found.begin(), found.end());
        return found;
    }
};

TEST_F(Convertible, OldDescriptionsFamiliesAndDefinitions)
{
    tree.put("Old\\a.lin", "[Library]\nType=HPAK\n");
    tree.put("Old\\a.tarnlin", "[Library]\nType=Hpak\n");   // converted: the .lin is listed all the same
    tree.put("Old\\NotLib.lin", "[Library]\nType=Other\n");
    tree.put("Old\\Velmo.lin", "[Library]\nType=Hpak\n");
    tree.put("Old\\b.dff", "[__Library]\nFile0=b1\n");
    tree.put("Old\\b1.def", "[Def]\n");
    tree.put("Old\\c.def", "[Def]\n");
    tree.put("Old\\a.def", "[Def]\n");                      // beside a.lin
    tree.put("Old\\Broken.def", "[Def\n");
    tree.put("Old\\thSystem.def", "[Def]\n");               // the maker's own
    tree.put("Old\\Done.def", "[Def]\n");
    tree.put("Old\\Done.tarnlin", "");
    tree.put("Old\\Both.dff", "[__Library]\n");
    tree.put("Old\\Both.lin", "[Library]\nType=Other\n");
    EXPECT_EQ((Strings{"<>\\Old\\a.lin", "<>\\Old\\b.dff", "<>\\Old\\c.def"}), scan(tree.path("Old\\\\")));
}

TEST_F(Convertible, LanguageFoldersAndLibrariesAreNotEntered)
{
    tree.put("Old\\x.lin", "[Library]\nType=Hpak\n[Languages]\nCount=1\nLang0=Nederlands\nLanguage=Suomi\n");
    for (const char* sub : {"German", "HP", "nederlands", "Suomi", "Deeper"})
        tree.put("Old\\" + std::string(sub) + "\\y.lin", "[Library]\nType=Hpak\n");
    EXPECT_EQ((Strings{"<>\\Old\\Deeper\\y.lin", "<>\\Old\\x.lin"}), scan(tree.path("Old")));
    EXPECT_EQ(Strings{"<>\\Old\\x.lin"}, scan(tree.path("Old"), FALSE));

    // Folders are separated by tabs; the list ends at an empty one; a folder
    // in the libraries directory is never scanned.
    tree.put("Libs\\Inside\\z.lin", "[Library]\nType=Hpak\n");
    tree.put("Other\\w.lin", "[Library]\nType=Hpak\n");
    EXPECT_EQ((Strings{"<>\\Other\\w.lin", "<>\\Other\\w.lin"}),
              scan(tree.path("Libs") + "\t" + tree.path("Other") + "\t" + tree.path("Libs\\Inside") + "\t" +
                   tree.path("Other") + "\t\t" + tree.path("Old"), FALSE));
    tqm::UniqueGlobal empty(TQMGetConvertableLibraries("", TRUE));
    ASSERT_TRUE(empty);
    EXPECT_EQ(2u, GlobalSize(empty.get()));
    EXPECT_TRUE(scan(tree.path("Gone")).empty());
}

TEST_F(Convertible, LinkedFoldersAreEnteredOnceAndCyclesEnd)
{
    tree.put("Old\\x.lin", "[Library]\nType=Hpak\n");
    tree.put("Disk2\\Lib\\y.lin", "[Library]\nType=Hpak\n");
    tqmtest::FolderLink moved(tree.path("Old\\Moved"), tree.path("Disk2"));
    tqmtest::FolderLink up(tree.path("Disk2\\Lib\\Up"), tree.path("Old"));
    if (!moved.made() || !up.made())
        GTEST_SKIP() << moved.why() << up.why();
    EXPECT_EQ((Strings{"<>\\Old\\Moved\\Lib\\y.lin", "<>\\Old\\x.lin"}), scan(tree.path("Old")));
}

TEST_F(Convertible, AStopFromAnotherThreadEndsTheScanWithNull)
{
    // A tree that takes a while: many folders, each with a candidate.
    for (int i = 0; i < 60; ++i)
        tree.put("Big\\F" + std::to_string(i) + "\\S\\lib.lin", "[Library]\nType=Hpak\n");
    const std::string big = tree.path("Big");

    // A stop before the scan starts is cleared by it.
    TQMStopGetConvertableLibraries();
    const DWORD start = GetTickCount();
    EXPECT_EQ(60u, tqmtest::TakeBlock(TQMGetConvertableLibraries(big.c_str(), TRUE)).size());
    const DWORD whole = GetTickCount() - start;

    // Stops from another thread from spread moments of the scan on (repeated,
    // so that one which comes before the scan has cleared the flag still
    // counts): the scan notices within moments and gives NULL, however much it
    // had found; only a scan that was over first gives its whole list.
    for (int step = 0; step < 6; ++step) {
        std::atomic<bool> done{false};
        std::atomic<DWORD> stopsBegan{0};
        std::thread stopper([&] {
            Sleep(whole * step / 10);
            stopsBegan = GetTickCount();
            while (!done)
                TQMStopGetConvertableLibraries();
        });
        HGLOBAL result = TQMGetConvertableLibraries(big.c_str(), TRUE);
        const DWORD ended = GetTickCount();
        done = true;
        stopper.join();
        const DWORD began = stopsBegan;
        const bool stopSeen = result == nullptr;
        const size_t found = tqmtest::TakeBlock(result).size();
        if (step == 0 || (began && static_cast<LONG>(ended - began) > 50)) {
            EXPECT_TRUE(stopSeen) << "stops from " << whole * step / 10 << " ms of " << whole;
        }
        if (stopSeen) {
            EXPECT_NE(0u, began);
        } else {
            EXPECT_EQ(60u, found);  // a list only from a scan that ended whole
        }
    }
}

}  // namespace
