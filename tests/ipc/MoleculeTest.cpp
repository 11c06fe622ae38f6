// Global molecules: the head format, and strings through the system's atom
// table (the table is the same for every process, so one process suffices
// here; the notification tests cross a process boundary).
#include "ipc/Molecules.h"
#include "ipc/logic/MoleculeHead.h"

#include "support/BoxRecorder.h"

#include <gtest/gtest.h>

#include <stdio.h>
#include <string.h>

#include <string>
#include <vector>

namespace {

using tqm::MoleculeHead;
using tqm::ReadMoleculeHead;

// A text of length characters that no other test or run shares: the atom
// table is shared and ignores case, so equal pieces would share atoms.
std::string uniqueText(size_t length)
{
    static unsigned serial = 0;
    char stamp[64];
    snprintf(stamp, sizeof(stamp), "[%lu.%u.%lu]", GetCurrentProcessId(), ++serial, GetTickCount());
    std::string text;
    for (size_t i = 0; text.size() < length; ++i)
        text += i % 40 == 0 ? std::string(stamp) : std::string(1, static_cast<char>('a' + i % 26));
    text.resize(length);
    return text;
}

// The 255-character slices a molecule of text is made of.
std::vector<std::string> slicesOf(const std::string& text)
{
    std::vector<std::string> slices;
    for (size_t at = 0; at < text.size(); at += 255)
        slices.push_back(text.substr(at, 255));
    return slices;
}

std::string atomName(ATOM atom)
{
    char name[256] = "";
    GlobalGetAtomNameA(atom, name, sizeof(name));
    return name;
}

TEST(MoleculeHead, ReadsHeadsAndTellsPlainNames)
{
    struct Case { const char* name; bool head; unsigned count, length; std::vector<unsigned> pieces; } cases[] = {
        {"*02;0100;0000C001;0000C002;", true, 2, 0x100, {0xC001, 0xC002}},
        {"*01;0005;0000C123;", true, 1, 5, {0xC123}},
        // Fewer handles than stated, or one that does not convert: reading stops.
        {"*03;0300;0000C001;", true, 3, 0x300, {0xC001}},
        {"*02;0100;xyz;0000C002;", true, 2, 0x100, {}},
        // As lenient as the scanf formats: short numbers and blanks pass.
        {"*1;5;", true, 1, 5, {}},
        {"* 2; 10;0000C001;", true, 2, 0x10, {0xC001}},  // position 9 falls inside a handle
        // Plain names.
        {"hello", false, 0, 0, {}},
        {"*", false, 0, 0, {}},
        {"*02", false, 0, 0, {}},
        {"*zz;0005;", false, 0, 0, {}},
        {"x*02;0100;", false, 0, 0, {}},
        {"", false, 0, 0, {}},
    };
    for (const Case& c : cases) {
        MoleculeHead head;
        ASSERT_EQ(c.head, ReadMoleculeHead(c.name, head)) << c.name;
        if (!c.head)
            continue;
        EXPECT_EQ(c.count, head.pieceCount) << c.name;
        EXPECT_EQ(c.length, head.length) << c.name;
        EXPECT_EQ(c.pieces, std::vector<unsigned>(head.pieces, head.pieces + head.readPieces)) << c.name;
    }
}

TEST(MoleculeHead, ReadingStaysWithinTheNameAndThePieceTable)
{
    // A 255-character name stating 255 pieces, all of them well-formed.
    std::string name = "*FF;0000;";
    while (name.size() + 9 <= 255)
        name += "0000C0DE;";
    name += "C0D";
    MoleculeHead head;
    ASSERT_TRUE(ReadMoleculeHead(name.c_str(), head));
    EXPECT_EQ(tqm::kMoleculeReadablePieces, head.readPieces);
    EXPECT_EQ(0xC0Du, head.pieces[head.readPieces - 1]);
}

TEST(Molecules, StringsOfEveryLengthComeBackWholeAndLeaveNothingBehind)
{
    for (size_t length : {1u, 255u, 256u, 1000u, 6629u}) {
        const std::string text = uniqueText(length);
        ATOM molecule = GlobalAddMolecule(text.c_str());
        ASSERT_NE(0, molecule) << length;
        const std::string head = atomName(molecule);
        if (length <= 255)
            EXPECT_EQ(text, head);  // a plain atom
        else
            EXPECT_EQ(9 + 9 * (length / 255 + 1), head.size()) << length;
        if (length == 256) {
            char expected[32];
            snprintf(expected, sizeof(expected), "*02;0100;%08X;%08X;", GlobalFindAtomA(text.substr(0, 255).c_str()),
                     GlobalFindAtomA(text.substr(255).c_str()));
            EXPECT_EQ(expected, head);
        }

        tqmtest::BoxRecorder boxes;
        EXPECT_EQ(text, GlobalGetMoleculeName(molecule).GetString()) << length;
        std::vector<char> buffer(length + 8, '#');
        EXPECT_EQ(static_cast<int>(length), GlobalGetMoleculeName(molecule, buffer.data(), static_cast<int>(length) + 1));
        EXPECT_EQ(text, buffer.data());
        EXPECT_EQ('#', buffer[length + 1]);
        EXPECT_EQ(0u, boxes.count());

        EXPECT_EQ(0, GlobalDeleteMolecule(molecule)) << length;
        for (const std::string& slice : slicesOf(text))
            EXPECT_EQ(0, GlobalFindAtomA(slice.c_str())) << length;
        EXPECT_EQ(0, GlobalFindAtomA(head.c_str()));
    }
}

TEST(Molecules, TooLongAndEmptyLastPieceGiveZero)
{
    const std::string tooLong = uniqueText(6630);
    EXPECT_EQ(0, GlobalAddMolecule(tooLong.c_str()));
    EXPECT_EQ(0, GlobalFindAtomA(tooLong.substr(0, 255).c_str()));  // nothing was added

    // 510 characters make three pieces, the last one empty, and the system's
    // atom table refuses an empty name: the molecule fails, and the pieces
    // added before stay in the table.
    const std::string multiple = uniqueText(510);
    EXPECT_EQ(0, GlobalAddMolecule(multiple.c_str()));
    for (const std::string& slice : slicesOf(multiple)) {
        ATOM left = GlobalFindAtomA(slice.c_str());
        EXPECT_NE(0, left);
        GlobalDeleteAtom(left);
    }
}

TEST(Molecules, BufferFormCutsAndAlwaysTerminates)
{
    const std::string text = uniqueText(300);
    ATOM molecule = GlobalAddMolecule(text.c_str());
    char buffer[400];
    struct Case { int size; int copied; } cases[] = {{0, 0}, {1, 0}, {2, 1}, {300, 299}, {301, 300}, {400, 300}};
    for (const Case& c : cases) {
        memset(buffer, '#', sizeof(buffer));
        EXPECT_EQ(c.copied, GlobalGetMoleculeName(molecule, buffer, c.size)) << c.size;
        if (c.size == 0) {
            EXPECT_EQ('#', buffer[0]);
            continue;
        }
        EXPECT_EQ(text.substr(0, c.copied), std::string(buffer)) << c.size;
        EXPECT_EQ('#', buffer[c.copied + 1]) << c.size;
    }
    GlobalDeleteMolecule(molecule);
}

TEST(Molecules, LostPieceIsReportedAndThePartialStringReturned)
{
    const std::string text = uniqueText(600);
    ATOM molecule = GlobalAddMolecule(text.c_str());
    GlobalDeleteAtom(GlobalFindAtomA(text.substr(255, 255).c_str()));

    tqmtest::BoxRecorder boxes;
    EXPECT_EQ(text.substr(0, 255), GlobalGetMoleculeName(molecule).GetString());
    ASSERT_EQ(1u, boxes.count());
    EXPECT_TRUE(boxes.reported("nAtoms==0 && strString.GetLength()==len", "failed at line 116 in Molecule"))
        << boxes.last().text;

    GlobalDeleteMolecule(molecule);
    EXPECT_EQ(0, GlobalFindAtomA(text.substr(510).c_str()));
}

TEST(Molecules, PlainAtomThatReadsAsAHeadIsTakenForOne)
{
    const std::string word = uniqueText(12);
    ATOM piece = GlobalAddAtomA(word.c_str());
    char fake[64];
    snprintf(fake, sizeof(fake), "*01;%04X;%08X;", static_cast<unsigned>(word.size()), piece);
    ATOM plain = GlobalAddAtomA(fake);
    EXPECT_EQ(word, GlobalGetMoleculeName(plain).GetString());

    // Deleting it as a molecule deletes the atom it lists.
    EXPECT_EQ(0, GlobalDeleteMolecule(plain));
    EXPECT_EQ(0, GlobalFindAtomA(word.c_str()));
}

TEST(Molecules, EachAddNeedsItsOwnDelete)
{
    const std::string text = uniqueText(700);
    ATOM first = GlobalAddMolecule(text.c_str());
    ATOM second = GlobalAddMolecule(text.c_str());
    EXPECT_EQ(first, second);
    GlobalDeleteMolecule(first);
    tqmtest::BoxRecorder boxes;
    EXPECT_EQ(text, GlobalGetMoleculeName(second).GetString());
    GlobalDeleteMolecule(second);
    EXPECT_EQ(0, GlobalFindAtomA(text.substr(0, 255).c_str()));
    EXPECT_EQ(0u, boxes.count());
}

}  // namespace
