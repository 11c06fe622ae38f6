// TQMGetLibraryFiles on library folders made for each test: the four
// readers, the completion from families, languages, objects and sources, and
// damaged input.
#include "support/FileUtil.h"
#include "support/LibraryTree.h"
#include "support/UnixSide.h"

#include "libcatalog/LibraryFiles.h"
#include "libcatalog/logic/ObjectFileWriter.h"
#include "libcatalog/logic/SourceDirectives.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <chrono>

namespace {

using tqmtest::FileSetOf;
using tqmtest::LibraryTree;
using Strings = std::vector<std::string>;

Strings sorted(Strings list)
{
    std::sort(list.begin(), list.end());
    return list;
}

TEST(LibraryFiles, OlderDescription)
{
    LibraryTree tree;
    tree.put("Old\\Counters.lin",
             "[Library]\nType=hpak\n"
             "[Families]\nCount=0\n"
             "[Languages]\nCount=5\nLang0=Dutch\nLang1=Nederlands\nLang2=Hongrois\nLang3=Spanish\n"
             "[Files]\nCount=7\nFile0=Counters.src\nFile1=COUNTERS.SRC\nFile2=Readme.txt\nFile3=Gone.sxg\n"
             "File4=Gone.src\nFile5=..\\x.src\n"
             "[SheredFiles]\nA=..\\Shared\\Common.inc\nB=Missing.inc\nC=readme.txt\n"
             "[FileCheck]\nBitmaps\\Pic.b?p=1\nN*me.txt=1\nNotes.txt=1\n");
    tree.put("Old\\Counters.src", "");
    tree.put("Old\\Readme.txt", "");
    tree.put("Old\\Counters.dff", "[__Library]\nFile0=Up\nFile1=Down\nFile2=up\n");
    tree.put("Old\\Up.def", "[Definition]\n");
    tree.put("Old\\Down.def", "[Definition]\n");
    tree.put("Old\\Down.bak", "");
    tree.put("Shared\\Common.inc", "");
    tree.put("Old\\Bitmaps\\Pic.bmp", "");
    tree.put("Old\\Bitmaps\\Pic.bxp", "");
    tree.put("Old\\Name.txt", "");
    tree.put("Old\\Notes.txt", "");

    const tqmtest::FileSet set = FileSetOf(tree, "Old\\Counters.lin");
    // The description, [Files] (readme.txt skipped), [SheredFiles], [FileCheck]
    // (wildcards in the extension only), then the families' files.
    ASSERT_GE(set.files.size(), 6u);
    EXPECT_EQ((Strings{"Old\\Counters.lin", "Old\\Counters.src", "Shared\\Common.inc"}),
              Strings(set.files.begin(), set.files.begin() + 3));
    EXPECT_EQ(sorted({"Old\\Bitmaps\\Pic.bmp", "Old\\Bitmaps\\Pic.bxp"}), sorted({set.files[3], set.files[4]}));
    EXPECT_EQ("Old\\Notes.txt", set.files[5]);
    EXPECT_EQ(sorted({"Old\\Counters.lin", "Old\\Counters.src", "Shared\\Common.inc", "Old\\Bitmaps\\Pic.bmp",
                      "Old\\Bitmaps\\Pic.bxp", "Old\\Notes.txt", "Old\\Up.def", "Old\\Down.def"}),
              sorted(set.files));
    EXPECT_EQ((Strings{
                  "Warning: Unknown language (Spanish): <>\\Old\\Counters.lin",
                  "Warning: Missing [Languages] Lang4= entry: <>\\Old\\Counters.lin",
                  "Error: Library file '<>\\Old\\Gone.src' not found",
                  "Error: Invalid file name, [Files] File5=..\\x.src: ",
                  "Error: Missing file name, [Files] File6=: <>\\Old\\Counters.lin",
              }),
              set.messages);
}

TEST(LibraryFiles, OlderDescriptionDefaultsAndFailures)
{
    LibraryTree tree;
    // No languages: English, whose folder then holds the family's language files.
    tree.put("A\\Solo.lin", "[Library]\nType=Hpak\n");
    tree.put("A\\Solo.src", "");
    tree.put("A\\English\\Solo.txt", "");
    tree.put("A\\Deutsch\\Solo.txt", "");
    tqmtest::FileSet set = FileSetOf(tree, "A\\Solo.lin");
    EXPECT_EQ(sorted({"A\\Solo.lin", "A\\Solo.src", "A\\English\\Solo.txt"}), sorted(set.files));
    EXPECT_TRUE(set.messages.empty());

    tree.put("B\\Wrong.lin", "[Library]\nType=Other\n[Files]\nCount=1\nFile0=x.src\n");
    set = FileSetOf(tree, "B\\Wrong.lin");
    EXPECT_EQ(Strings{"B\\Wrong.lin"}, set.files);
    EXPECT_EQ(Strings{"Error: Not an HPAK library file (Type=Other): <>\\B\\Wrong.lin"}, set.messages);

    tree.put("C\\Broken.lin", "[Library]\nType=Hpak\nno equals sign\n");
    set = FileSetOf(tree, "C\\Broken.lin");
    EXPECT_EQ(Strings{"Error: Bad syntax in file (line 2): <>\\C\\Broken.lin"}, set.messages);
    set = FileSetOf(tree, "C\\Missing.lin");
    EXPECT_EQ(Strings{"C\\Missing.lin"}, set.files);
    EXPECT_EQ(Strings{"Error: Can't open file: <>\\C\\Missing.lin"}, set.messages);
}

TEST(LibraryFiles, CurrentDescription)
{
    LibraryTree tree;
    tree.put("Lib\\Motion.tarnlin",
             "[Files]\nCount=4\nFile0=Motion.src\nFile1=readme.txt\nFile2=Gone.sxg\nFile3=motion.SRC\n"
             "[Library]\nType=Hpak\n"
             "[Families]\nCount=2\nFam0=Axis\n"
             "[Languages]\nCount=2\nLang0=en\nLang1=de\n");
    tree.put("Lib\\Motion.src", "");
    tree.put("Lib\\readme.txt", "");
    tree.put("Lib\\Axis.src", "");
    tree.put("Lib\\Axis.bak", "");
    tree.put("Lib\\de\\Axis.lng", "");
    tree.put("Lib\\de\\Axis.dff", "[__Library]\nHelp=..\\Axis.hlp\n");
    tree.put("Lib\\en\\Axis.dff", "[__Library]\nHelp=Axis_en.hlp\n");
    tree.put("Lib\\en\\Axis_en.hlp", "");
    const tqmtest::FileSet set = FileSetOf(tree, "Lib\\Motion.tarnlin");
    EXPECT_EQ((Strings{"Lib\\Motion.tarnlin", "Lib\\Motion.src", "Lib\\readme.txt"}),
              Strings(set.files.begin(), set.files.begin() + 3));
    EXPECT_EQ(sorted({"Lib\\Motion.tarnlin", "Lib\\Motion.src", "Lib\\readme.txt", "Lib\\Axis.src",
                      "Lib\\en\\Axis_en.hlp", "Lib\\de\\Axis.lng"}),
              sorted(set.files));
    EXPECT_EQ((Strings{
                  "Error: Library file '<>\\Lib\\Gone.sxg' not found",
                  "Error: Missing [Families] Fam1= entry: <>\\Lib\\Motion.tarnlin",
                  "Warning: Invalid help file name (..\\Axis.hlp) in file: <>\\Lib\\de\\Axis.dff",
              }),
              set.messages);
}

TEST(LibraryFiles, OtherKindsOfDescription)
{
    LibraryTree tree;
    tree.put("Notes.txt", "[Library]\nType=Hpak\n");
    tqmtest::FileSet set = FileSetOf(tree, "Notes.txt");
    EXPECT_EQ(Strings{"Notes.txt"}, set.files);
    EXPECT_EQ(Strings{"Error: Invalid file type, expected .LIN .DFF or .DEF: <>\\Notes.txt"}, set.messages);

    // A definition file names one family, itself.
    tree.put("Valve.def", "[Definition]\n");
    tree.put("Valve.src", "");
    set = FileSetOf(tree, "Valve.def");
    EXPECT_EQ((Strings{"Valve.def", "Valve.src"}), sorted(set.files));
    tree.put("Bad.def", "[Definition\n");
    tree.put("Bad.src", "");
    set = FileSetOf(tree, "Bad.def");
    EXPECT_EQ(Strings{"Bad.def"}, set.files);  // the call ends at the failure
    EXPECT_EQ(Strings{"Error: Bad syntax in file (line 0): <>\\Bad.def"}, set.messages);

    // A family file is not one of the files, though its families' are; a
    // fault in its first line reads as "cannot open".
    tree.put("Valves.dff", "[__Library]\nFile0=Valve\n");
    set = FileSetOf(tree, "Valves.dff");
    EXPECT_EQ((Strings{"Valve.def", "Valve.src"}), sorted(set.files));
    tree.put("Empty.dff", "[__Library]\n");
    set = FileSetOf(tree, "Empty.dff");
    EXPECT_TRUE(set.nullFiles);
    EXPECT_TRUE(set.messages.empty());
    tree.put("Bad.dff", "[__Library\n");
    EXPECT_EQ(Strings{"Error: Can't open file: <>\\Bad.dff"}, FileSetOf(tree, "Bad.dff").messages);
    tree.put("Bad2.dff", "[__Library]\nFile0=Valve\nbroken\n");
    EXPECT_EQ(Strings{"Error: Bad syntax in .DFF file (line 2), Families unknown: <>\\Bad2.dff"},
              FileSetOf(tree, "Bad2.dff").messages);
}

TEST(LibraryFiles, FixedExtraFilesAreAddedUnseen)
{
    LibraryTree tree;
    tree.put("orva1.lin", "[Library]\nType=Hpak\n[Families]\nCount=1\nFam0=none\n");
    EXPECT_EQ((Strings{"orva1.lin", "Orvasect.txt"}), FileSetOf(tree, "orva1.lin").files);
    tree.put("LinkBase.LIN", "[Library]\nType=Hpak\n[Families]\nCount=1\nFam0=none\n");
    EXPECT_EQ((Strings{"LinkBase.LIN", "Link.lmi"}), FileSetOf(tree, "LinkBase.LIN").files);
}

TEST(LibraryFiles, ObjectFilesAddTheNamesTheyRecord)
{
    LibraryTree tree;
    tree.put("L\\Lib.tarnlin", "[Library]\nType=Hpak\n[Files]\nCount=4\nFile0=Motion.obj\nFile1=Old.obj\n"
                               "File2=Bad.obl\nFile3=Short.obj\n");
    tqm::ObjectFileLayout motion;
    motion.dependencies = {"Motion.src", "..\\Elsewhere.inc", "C:\\Abs.inc", "motion.SRC"};
    motion.references = {{"Cam", "Cam.dat"}};
    tree.put("L\\Motion.obj", tqm::WriteObjectFile(motion));
    tqm::ObjectFileLayout old;
    old.version = 205;
    tree.put("L\\Old.obj", tqm::WriteObjectFile(old));
    std::vector<uint8_t> bad = tqm::WriteObjectFile(motion);
    bad[bad.size() - 1] ^= 1;  // the reference list's check word
    tree.put("L\\Bad.obl", bad);
    tqm::ObjectFileLayout shortHeader = motion;
    shortHeader.shortHeader = true;
    shortHeader.dependencies = {"Short.src"};
    std::vector<uint8_t> cut = tqm::WriteObjectFile(shortHeader);
    tree.put("L\\Short.obj", cut);

    const tqmtest::FileSet set = FileSetOf(tree, "L\\Lib.tarnlin");
    EXPECT_EQ((Strings{"L\\Lib.tarnlin", "L\\Motion.obj", "L\\Old.obj", "L\\Bad.obl", "L\\Short.obj",
                       "L\\Motion.src", "L\\Cam.dat", "L\\Short.src"}),
              set.files);
    EXPECT_EQ((Strings{"Error: Unsupported object file version (205): <>\\L\\Old.obj",
                       "Error: Bad checksum in object file: <>\\L\\Bad.obl"}),
              set.messages);

    cut.resize(cut.size() - 3);
    tree.put("L\\Short.obj", cut);
    EXPECT_EQ("Error: Can't read file: <>\\L\\Short.obj", FileSetOf(tree, "L\\Lib.tarnlin").messages.back());
}

TEST(LibraryFiles, SourcesAddWhatTheirDirectivesName)
{
    LibraryTree tree;
    tree.put("L\\Lib.tarnlin", "[Library]\nType=Hpak\n[Files]\nCount=2\nFile0=Main.src\nFile1=Secret.srx\n");
    tree.put("L\\Main.src", "$INCLUDE A.inc\n$USE Axis\n$LIB \"Drives\"\n$LIB Missing\n$INCLUDE Main.src\n"
                            "$INCLUDE .\\Sub\\C.inc\n$INCLUDE Bad|Name.inc\n");
    tree.put("L\\A.inc", "$INCLUDE B.inc\n$include a.INC\n");
    tree.put("L\\B.inc", "$INCLUDE A.inc\n$INCLUDE Gone.inc\n");  // a cycle, and a file that is not there
    tree.put("L\\Sub\\C.inc", "$INCLUDE D.inc\n");                // relative to its own folder
    tree.put("L\\Sub\\D.inc", "");
    tree.put("L\\Axis.obj", tqm::WriteObjectFile(tqm::ObjectFileLayout()));
    tree.put("L\\Drives.obl", tqm::WriteObjectFile(tqm::ObjectFileLayout()));
    tree.put("L\\Secret.srx", "$INCLUDE NotRead.inc\n");
    const tqmtest::FileSet set = FileSetOf(tree, "L\\Lib.tarnlin");
    // Included files are scanned at once, before the rest of the including file.
    EXPECT_EQ((Strings{"L\\Lib.tarnlin", "L\\Main.src", "L\\Secret.srx", "L\\A.inc", "L\\B.inc", "L\\Gone.inc",
                       "L\\Axis.obj", "L\\Drives.obl", "L\\Sub\\C.inc", "L\\Sub\\D.inc"}),
              set.files);
    EXPECT_EQ(Strings{"Error: Invalid encrypted file signature: <>\\L\\Secret.srx"}, set.messages);

    const std::string signature(tqm::kEncipheredSignature, tqm::kEncipheredSignatureSize);
    tree.put("L\\Secret.srx", signature + "$INCLUDE NotRead.inc\n");
    EXPECT_TRUE(FileSetOf(tree, "L\\Lib.tarnlin").messages.empty());
}

TEST(LibraryFiles, IncludedFilesAreScannedWhateverTheirExtension)
{
    LibraryTree tree;
    tree.put("L\\Lib.tarnlin", "[Library]\nType=Hpak\n[Files]\nCount=2\nFile0=Main.src\nFile1=Notes.txt\n");
    tree.put("L\\Main.src", "$INCLUDE \"Defs.txt\"\n$INCLUDE Old.bak\n$INCLUDE Unit.obj\n$INCLUDE Pic.bmp\n");
    tree.put("L\\Defs.txt", "$INCLUDE More.inc\n");
    tree.put("L\\Old.bak", "$INCLUDE FromBackup.inc\n");
    tree.put("L\\Pic.bmp", "$INCLUDE FromPicture.inc\n");
    // An included object file is read as one, never scanned as text.
    tqm::ObjectFileLayout unit;
    unit.text1 = "\n$INCLUDE NotText.inc\n";
    unit.dependencies = {"Unit.src"};
    tree.put("L\\Unit.obj", tqm::WriteObjectFile(unit));
    // The walk itself still passes over help and data files.
    tree.put("L\\Notes.txt", "$INCLUDE NotFollowed.inc\n");
    const tqmtest::FileSet set = FileSetOf(tree, "L\\Lib.tarnlin");
    EXPECT_EQ((Strings{"L\\Lib.tarnlin", "L\\Main.src", "L\\Notes.txt", "L\\Defs.txt", "L\\More.inc",
                       "L\\Old.bak", "L\\FromBackup.inc", "L\\Unit.obj", "L\\Pic.bmp", "L\\FromPicture.inc",
                       "L\\Unit.src"}),
              set.files);
    EXPECT_TRUE(set.messages.empty()) << testing::PrintToString(set.messages);
}

// Object files and family searches take any name without a folder part;
// only $INCLUDE names must be valid path names.
TEST(LibraryFiles, RecordedNamesAndFamiliesAreNotHeldToNameRules)
{
    LibraryTree tree;
    tree.put("L\\Lib.tarnlin", "[Library]\nType=Hpak\n[Families]\nCount=1\nFam0=Motor{1}\n"
                               "[Files]\nCount=2\nFile0=Unit.obj\nFile1=Main.src\n");
    tree.put("L\\Motor{1}.src", "");
    tqm::ObjectFileLayout unit;
    unit.dependencies = {"a..b.src", "COM1.src", "Sub\\Deeper.src", ".\\Here.src"};
    unit.references = {{"Axis", "Axis{2}.dat"}};
    tree.put("L\\Unit.obj", tqm::WriteObjectFile(unit));
    tree.put("L\\Main.src", "$INCLUDE Motor{3}.inc\n$INCLUDE COM2.inc\n");
    const tqmtest::FileSet set = FileSetOf(tree, "L\\Lib.tarnlin");
    EXPECT_EQ((Strings{"L\\Lib.tarnlin", "L\\Unit.obj", "L\\Main.src", "L\\Motor{1}.src", "L\\a..b.src",
                       "L\\COM1.src", "L\\Axis{2}.dat"}),
              set.files);
}

// A description on a network path: its shared, checked and included files
// are full paths on that share.
TEST(LibraryFiles, DescriptionsOnANetworkPath)
{
    tqmtest::UncShare share;
    if (!share.made())
        GTEST_SKIP() << "no network path: the test needs Wine's unc folder";
    for (const char* folder : {"Lib", "Lib\\Sub", "Lib\\Pics", "Shared"})
        CreateDirectoryA(share.file(folder).c_str(), nullptr);
    const auto put = [&share](const char* relative, const std::string& content) {
        ASSERT_TRUE(tqmtest::WriteBytes(share.file(relative), content)) << relative;
    };
    put("Lib\\Old.lin", "[Library]\nType=Hpak\n[Files]\nCount=1\nFile0=Main.src\n"
                        "[SheredFiles]\nA=..\\Shared\\Common.inc\nB=.\\Sub\\Local.inc\n"
                        "[FileCheck]\nPics\\Pic.b?p=1\nNotes.txt=1\n");
    put("Lib\\Main.src", "$INCLUDE .\\Sub\\C.inc\n");
    put("Lib\\Sub\\C.inc", "$INCLUDE D.inc\n");
    put("Lib\\Sub\\D.inc", "");
    put("Lib\\Sub\\Local.inc", "");
    put("Lib\\Pics\\Pic.bmp", "");
    put("Lib\\Notes.txt", "");
    put("Shared\\Common.inc", "");
    HGLOBAL messages = nullptr;
    const Strings files = tqmtest::TakeBlock(TQMGetLibraryFiles(share.file("Lib\\Old.lin").c_str(), &messages));
    const std::string lib = share.file("Lib\\");
    EXPECT_EQ((Strings{lib + "Old.lin", lib + "Main.src", share.file("Shared\\Common.inc"), lib + "Sub\\Local.inc",
                       lib + "Pics\\Pic.bmp", lib + "Notes.txt", lib + "Sub\\C.inc", lib + "Sub\\D.inc"}),
              files);
    EXPECT_EQ(nullptr, messages) << testing::PrintToString(tqmtest::TakeBlock(messages));
}

// Writes pieces at their offsets; the rest of the file is a hole, so a
// large file takes little room on a file system with sparse files.
bool writeSparse(const std::string& path, const std::vector<std::pair<uint64_t, std::vector<uint8_t>>>& pieces)
{
    HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    bool ok = true;
    for (const auto& piece : pieces) {
        LARGE_INTEGER at;
        at.QuadPart = static_cast<LONGLONG>(piece.first);
        DWORD written = 0;
        ok = ok && SetFilePointerEx(file, at, nullptr, FILE_BEGIN) &&
             WriteFile(file, piece.second.data(), static_cast<DWORD>(piece.second.size()), &written, nullptr) &&
             written == piece.second.size();
    }
    CloseHandle(file);
    return ok;
}

std::vector<uint8_t> bytesOf(const std::string& text) { return std::vector<uint8_t>(text.begin(), text.end()); }

TEST(LibraryFiles, SourcesAndObjectFilesOfAnySize)
{
    LibraryTree tree;
    tree.put("L\\Lib.tarnlin", "[Library]\nType=Hpak\n[Files]\nCount=2\nFile0=Big.src\nFile1=Big.obj\n");
    const uint64_t beyond = (64u << 20) + 12345;
    ASSERT_TRUE(writeSparse(tree.path("L\\Big.src"), {{0, bytesOf("$INCLUDE First.inc\n")},
                                                       {beyond, bytesOf("\n  $INCLUDE Last.inc ; far out\n")}}));
    tqm::ObjectFileLayout big;
    big.codeSize = static_cast<uint32_t>(beyond);
    big.dependencies = {"Dependency.src"};
    big.references = {{"Far", "Reference.dat"}};
    const tqm::ObjectFileParts parts = tqm::WriteObjectFileParts(big);
    ASSERT_TRUE(writeSparse(tree.path("L\\Big.obj"), {{0, parts.head}, {parts.head.size() + beyond, parts.tail}}));

    const tqmtest::FileSet set = FileSetOf(tree, "L\\Lib.tarnlin");
    EXPECT_EQ((Strings{"L\\Lib.tarnlin", "L\\Big.src", "L\\Big.obj", "L\\First.inc", "L\\Last.inc",
                       "L\\Dependency.src", "L\\Reference.dat"}),
              set.files);
    EXPECT_TRUE(set.messages.empty()) << testing::PrintToString(set.messages);
}

TEST(LibraryFiles, DamagedDescriptionsEndQuicklyWithBoundedMessages)
{
    LibraryTree tree;
    tree.put("Huge.tarnlin", "[Library]\nType=Hpak\n[Files]\nCount=4000000000\nFile3=Huge.tarnlin\n"
                             "[Families]\nCount=4000000000\n[Languages]\nCount=4000000000\nLang0=en\n");
    const auto start = std::chrono::steady_clock::now();
    const tqmtest::FileSet set = FileSetOf(tree, "Huge.tarnlin");
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_LT(seconds, 1.0);
    // A description that lists itself is still listed once.
    EXPECT_EQ(Strings{"Huge.tarnlin"}, set.files);
    // The first 10,000 missing entries one by one, the rest in one line per list.
    ASSERT_EQ(3 * 10001u, set.messages.size());
    EXPECT_EQ("Error: Missing file name, [Files] File0=: <>\\Huge.tarnlin", set.messages[0]);
    EXPECT_EQ("Error: Missing file name, [Files] File10000=: <>\\Huge.tarnlin", set.messages[9999]);
    EXPECT_EQ("Error: 3999989999 more missing [Files] entries below Count=4000000000: <>\\Huge.tarnlin",
              set.messages[10000]);
    EXPECT_EQ("Error: 3999990000 more missing [Families] entries below Count=4000000000: <>\\Huge.tarnlin",
              set.messages[20001]);
    EXPECT_EQ("Warning: 3999989999 more missing [Languages] entries below Count=4000000000: <>\\Huge.tarnlin",
              set.messages.back());

    // Real descriptions never meet that bound: every missing entry is named.
    tree.put("Gaps.tarnlin", "[Library]\nType=Hpak\n[Files]\nCount=102\n");
    const Strings gaps = FileSetOf(tree, "Gaps.tarnlin").messages;
    ASSERT_EQ(102u, gaps.size());
    EXPECT_EQ("Error: Missing file name, [Files] File101=: <>\\Gaps.tarnlin", gaps.back());

    for (const std::string& content : {std::string(), std::string("\x01\x02\xff\0[Library]\n", 14),
                                       std::string(70000, '['), std::string("[Files]\nCount=1\nFile0=\xff\xfe\n")}) {
        tree.put("Odd.tarnlin", content);
        const tqmtest::FileSet odd = FileSetOf(tree, "Odd.tarnlin");
        EXPECT_EQ("Odd.tarnlin", odd.files.at(0));
        EXPECT_FALSE(odd.messages.empty());
    }
    EXPECT_EQ(nullptr, TQMGetLibraryFiles(nullptr, nullptr));
    EXPECT_EQ(nullptr, TQMGetLibraryFiles("", nullptr));
}

}  // namespace
