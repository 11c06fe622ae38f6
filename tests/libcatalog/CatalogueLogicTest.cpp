// The catalogue's pure rules: version texts, language names, list blocks,
// counted entries, member kinds and the choice between duplicate libraries.
#include "libcatalog/logic/DuplicateLibraries.h"
#include "libcatalog/logic/ExcludedFamilies.h"
#include "libcatalog/logic/LanguageNames.h"
#include "libcatalog/logic/LibraryMembers.h"
#include "libcatalog/logic/LibraryVersion.h"
#include "libcatalog/logic/ListBlock.h"
#include "libcatalog/logic/NetworkPaths.h"
#include "libcatalog/logic/NumberedEntries.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(LibraryVersion, TextsAndTheirNumbers)
{
    const struct
    {
        const char* text;
        uint32_t value;
        bool wellFormed;
    } cases[] = {
        {"V2.1.30", 2001030, true},  {"2.1", 2001000, true},        {"V2", 2000000, false},
        {"2", 0, false},             {"2.1.30b", 2001030, false},   {"2.1000.0", 2999000, false},
        {"002001030", 2001030, true}, {"2001030", 0, false},        {"12345678x", 12345678, false},
        {"Version 3.0.7", 3000007, true}, {"v", 0, false},          {"", 0, false},
        {"1.2.3.4", 1002003, false}, {"99999999999.0", 999000000, false}, {"999999999", 999999999, true},
    };
    for (const auto& c : cases) {
        uint32_t value = 0xdeadbeef;
        EXPECT_EQ(c.wellFormed, tqm::ParseLibraryVersion(c.text, &value)) << c.text;
        EXPECT_EQ(c.value, value) << c.text;
    }
    uint32_t value = 0xdeadbeef;
    EXPECT_FALSE(tqm::ParseLibraryVersion(nullptr, &value));
    EXPECT_EQ(0u, value);
}

TEST(LanguageNames, FirstTwoLettersInOrder)
{
    const struct
    {
        const char* name;
        const char* code;
    } cases[] = {{"English", "en"}, {"FRANCAIS", "fr"}, {"German", "de"}, {"Deutsch", "de"},
                 {"italiano", "it"}, {"Hungarian", "hu"}, {"Hongrois", "hu"}, {"Nederlands", "nl"},
                 {"Dutch", "nl"}, {"Nihongo", "nl"}, {"Spanish", ""}, {"e", ""}, {"", ""}};
    for (const auto& c : cases)
        EXPECT_STREQ(c.code, tqm::LanguageCodeForName(c.name)) << c.name;
}

TEST(ListBlock, EncodesAndDecodes)
{
    EXPECT_EQ(std::string("\0\0", 2), tqm::EncodeListBlock({}));
    const std::string block = tqm::EncodeListBlock({"a", "bc"});
    EXPECT_EQ(std::string("a\0bc\0\0", 6), block);
    EXPECT_EQ((std::vector<std::string>{"a", "bc"}), tqm::DecodeListBlock(block.data(), block.size()));
    EXPECT_TRUE(tqm::DecodeListBlock("\0\0", 2).empty());
    // A block cut short gives its complete strings only.
    EXPECT_EQ(std::vector<std::string>{"a"}, tqm::DecodeListBlock("a\0bc", 4));
}

TEST(NumberedEntries, CountsAndNames)
{
    EXPECT_EQ(0u, tqm::ParseCount(nullptr));
    EXPECT_EQ(0u, tqm::ParseCount("x3"));
    EXPECT_EQ(0u, tqm::ParseCount("-1"));
    EXPECT_EQ(12u, tqm::ParseCount("12abc"));
    EXPECT_EQ(4000000000u, tqm::ParseCount("4000000000"));
    EXPECT_EQ(UINT32_MAX, tqm::ParseCount("99999999999"));

    const tqm::ini::NameFold fold;
    uint32_t n = 0;
    EXPECT_TRUE(tqm::ParseNumberedName("file12", "File", fold, &n));
    EXPECT_EQ(12u, n);
    EXPECT_TRUE(tqm::ParseNumberedName("FILE0", "File", fold, &n));
    EXPECT_EQ(0u, n);
    for (const char* name : {"File", "File012", "File1x", "Fil1", "File-1", "File4294967296"})
        EXPECT_FALSE(tqm::ParseNumberedName(name, "File", fold, &n)) << name;
}

TEST(NumberedEntries, WalkVisitsPresentOnesAndReportsTheFirstMissing)
{
    std::vector<std::pair<uint32_t, bool>> visited;
    auto record = [&](uint32_t n, bool present) { visited.push_back({n, present}); };

    uint32_t skipped = tqm::WalkNumberedEntries(4, {0, 2, 7}, record);
    EXPECT_EQ(0u, skipped);
    EXPECT_EQ((std::vector<std::pair<uint32_t, bool>>{{0, true}, {1, false}, {2, true}, {3, false}}), visited);

    // A count of four thousand million over three entries: quick, bounded.
    visited.clear();
    skipped = tqm::WalkNumberedEntries(4000000000u, {1, 3000000000u}, record);
    ASSERT_EQ(2 + tqm::kReportedMissingEntries, visited.size());
    EXPECT_EQ(std::make_pair(0u, false), visited[0]);
    EXPECT_EQ(std::make_pair(1u, true), visited[1]);
    EXPECT_EQ(std::make_pair(3000000000u, true), visited.back());
    EXPECT_EQ(4000000000u - 2 - tqm::kReportedMissingEntries, skipped);
}

TEST(NetworkPaths, NamesResolveWithinTheShare)
{
    const struct
    {
        const char* folder;
        const char* name;
        const char* full;
    } cases[] = {
        {"\\\\srv\\share\\Lib", "Sub\\C.inc", "\\\\srv\\share\\Lib\\Sub\\C.inc"},
        {"\\\\srv\\share\\Lib\\", ".\\Sub\\C.inc", "\\\\srv\\share\\Lib\\Sub\\C.inc"},
        {"\\\\srv\\share\\Lib\\Old", "..\\Shared\\x.inc", "\\\\srv\\share\\Lib\\Shared\\x.inc"},
        {"\\\\srv\\share\\Lib", "..\\..\\..\\x.inc", "\\\\srv\\share\\x.inc"},  // never above the share
        {"\\\\srv\\share\\Lib", "\\Top\\x.inc", "\\\\srv\\share\\Top\\x.inc"},
        {"\\\\srv\\share\\Lib", "D:\\x.inc", "D:\\x.inc"},
        {"\\\\srv\\share\\Lib", "\\\\other\\d\\x.inc", "\\\\other\\d\\x.inc"},
        {"\\\\srv\\share", ".\\", "\\\\srv\\share"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.full, tqm::ResolveInNetworkFolder(c.folder, c.name)) << c.folder << " + " << c.name;
    EXPECT_EQ("\\\\srv\\share", tqm::NetworkShareRoot("\\\\srv\\share\\a\\b"));
    EXPECT_TRUE(tqm::IsNetworkPath("\\\\srv"));
    EXPECT_FALSE(tqm::IsNetworkPath("\\srv"));
}

TEST(LibraryMembers, KindsByExtension)
{
    using K = tqm::LibraryMemberKind;
    const struct
    {
        const char* path;
        K kind;
    } cases[] = {
        {"C:\\L\\Axis.DFF", K::FamilyFile},      {"C:\\L\\v1.2\\Axis", K::DottedFolder},
        {"C:\\L\\a.obj", K::ObjectFile},         {"C:\\L\\a.OBL", K::ObjectFile},
        {"C:\\L\\a.bak", K::Backup},             {"C:\\L\\a.hlp", K::HelpOrData},
        {"C:\\L\\a.chm", K::HelpOrData},         {"C:\\L\\a.srx", K::Enciphered},
        {"C:\\L\\a.src", K::Source},             {"C:\\L\\Makefile", K::Source},
        {"C:\\L\\a.objx", K::Source},
    };
    for (const auto& c : cases)
        EXPECT_EQ(static_cast<int>(c.kind), static_cast<int>(tqm::ClassifyLibraryMember(c.path))) << c.path;
}

TEST(ExcludedFamilies, OneTableWithoutRegardToCase)
{
    EXPECT_TRUE(tqm::IsExcludedFamilyName("thsystem"));
    EXPECT_TRUE(tqm::IsExcludedFamilyName("THDiag"));
    EXPECT_FALSE(tqm::IsExcludedFamilyName("THSYSTEM2"));
    EXPECT_FALSE(tqm::IsExcludedFamilyName(nullptr));
}

// The paths of the entries that stay.
std::vector<std::string> kept(const std::vector<tqm::InstalledLibrary>& libraries)
{
    std::vector<std::string> paths;
    for (size_t i : tqm::ResolveDuplicateLibraries(libraries, tqm::ini::NameFold()))
        paths.push_back(libraries[i].path);
    return paths;
}

TEST(DuplicateLibraries, HigherVersionStaysWhateverTheOrder)
{
    const tqm::InstalledLibrary old{"L\\Old\\m.tarnlin", "MOTION", 1000000, "L\\Old"};
    const tqm::InstalledLibrary recent{"L\\New\\m.tarnlin", "motion", 1002000, "L\\New"};
    const tqm::InstalledLibrary other{"L\\T\\t.tarnlin", "TIMERS", 1000000, "L\\T"};
    EXPECT_EQ((std::vector<std::string>{"L\\New\\m.tarnlin", "L\\T\\t.tarnlin"}), kept({old, recent, other}));
    EXPECT_EQ((std::vector<std::string>{"L\\New\\m.tarnlin", "L\\T\\t.tarnlin"}), kept({recent, other, old}));
    // Three copies: each meets the next in its turn, and the highest stays.
    const tqm::InstalledLibrary newest{"L\\X\\m.tarnlin", "Motion", 2000000, "L\\X"};
    EXPECT_EQ(std::vector<std::string>{"L\\X\\m.tarnlin"}, kept({old, newest, recent}));
    EXPECT_EQ(std::vector<std::string>{"L\\X\\m.tarnlin"}, kept({newest, recent, old}));
}

TEST(DuplicateLibraries, EqualVersionsAreDecidedByTheInstallFolder)
{
    // Both name the folder L\Std\M; only the second lies in it.
    const tqm::InstalledLibrary stray{"L\\Copy\\m.tarnlin", "M", 1000000, "L\\Std\\M"};
    const tqm::InstalledLibrary home{"L\\STD\\M\\m.tarnlin", "M", 1000000, "L\\std\\m"};
    EXPECT_EQ(std::vector<std::string>{"L\\STD\\M\\m.tarnlin"}, kept({stray, home}));
    EXPECT_EQ(std::vector<std::string>{"L\\STD\\M\\m.tarnlin"}, kept({home, stray}));

    // Different folders, or neither copy in its folder: the first met stays.
    const tqm::InstalledLibrary a{"L\\A\\m.tarnlin", "M", 1000000, "L\\A"};
    const tqm::InstalledLibrary b{"L\\B\\m.tarnlin", "M", 1000000, "L\\B"};
    EXPECT_EQ(std::vector<std::string>{"L\\A\\m.tarnlin"}, kept({a, b}));
    EXPECT_EQ(std::vector<std::string>{"L\\B\\m.tarnlin"}, kept({b, a}));

    // Empty IDs are one library too.
    const tqm::InstalledLibrary noId1{"L\\1.tarnlin", "", 1, "L\\"};
    const tqm::InstalledLibrary noId2{"L\\2.tarnlin", "", 2, "L\\"};
    EXPECT_EQ(std::vector<std::string>{"L\\2.tarnlin"}, kept({noId1, noId2}));
}

}  // namespace
