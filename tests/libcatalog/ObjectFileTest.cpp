// The object-file reader over bytes made by the fixture writer, and over
// every way the bytes can be damaged.
#include "libcatalog/logic/ObjectFile.h"
#include "libcatalog/logic/ObjectFileWriter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using tqm::ObjectFileFault;
using Names = std::vector<std::string>;

tqm::ObjectFileNames read(const std::vector<uint8_t>& bytes) { return tqm::ReadObjectFileNames(bytes.data(), bytes.size()); }

tqm::ObjectFileLayout sampleLayout(unsigned version)
{
    tqm::ObjectFileLayout layout;
    layout.version = version;
    layout.dependencies = {"Motion.src", "Types.inc"};
    layout.references = {{"CamTable", "CamData.bin"}, {"Ramp", "Ramp.tab"}};
    return layout;
}

TEST(ObjectFile, CheckWordRotatesLeftAfterEachByte)
{
    const uint8_t bytes[] = {0x01, 0x80, 0x00};
    // 0x0001 -> rotated 0x0002; ^0x80 = 0x0082 -> 0x0104; ^0 -> 0x0208
    EXPECT_EQ(0x0208, tqm::UpdateCheckWord(0, bytes, 3));
    const uint8_t high[] = {0x00};
    EXPECT_EQ(0x0001, tqm::UpdateCheckWord(0x8000, high, 1));  // the top bit comes round
}

TEST(ObjectFile, HeaderSizeGrowsWithTheVersion)
{
    const struct
    {
        unsigned version;
        unsigned words;
    } cases[] = {{206, 15}, {212, 15}, {213, 17}, {214, 19}, {215, 21}, {216, 23}, {217, 23},
                 {218, 25}, {219, 25}, {220, 33}, {255, 33}};
    for (const auto& c : cases)
        EXPECT_EQ(c.words, tqm::ObjectFileHeaderWords(c.version)) << c.version;
}

TEST(ObjectFile, ReadsDependenciesThenReferencesAtEveryVersion)
{
    for (unsigned version : {206u, 210u, 211u, 213u, 214u, 219u, 220u, 231u}) {
        const tqm::ObjectFileNames names = read(tqm::WriteObjectFile(sampleLayout(version)));
        EXPECT_EQ(ObjectFileFault::None, names.fault) << version;
        EXPECT_EQ(version, names.version);
        // Headers below 214 have no word 17, so no reference list.
        const Names expected = version >= 214 ? Names{"Motion.src", "Types.inc", "CamData.bin", "Ramp.tab"}
                                              : Names{"Motion.src", "Types.inc"};
        EXPECT_EQ(expected, names.names) << version;
    }
}

TEST(ObjectFile, WithoutTheDependencyFlagOnlyReferencesCount)
{
    tqm::ObjectFileLayout layout = sampleLayout(220);
    layout.dependencySection = false;
    const tqm::ObjectFileNames names = read(tqm::WriteObjectFile(layout));
    EXPECT_EQ(ObjectFileFault::None, names.fault);
    EXPECT_EQ((Names{"CamData.bin", "Ramp.tab"}), names.names);
}

TEST(ObjectFile, Version220WithTheOlderHeaderSizeIsReadThroughTheRetry)
{
    tqm::ObjectFileLayout layout = sampleLayout(220);
    layout.shortHeader = true;
    const tqm::ObjectFileNames names = read(tqm::WriteObjectFile(layout));
    EXPECT_EQ(ObjectFileFault::None, names.fault);
    EXPECT_EQ(4u, names.names.size());
}

TEST(ObjectFile, UnsupportedVersionAddsNothing)
{
    const tqm::ObjectFileNames names = read(tqm::WriteObjectFile(sampleLayout(205)));
    EXPECT_EQ(ObjectFileFault::UnsupportedVersion, names.fault);
    EXPECT_EQ(205u, names.version);
    EXPECT_TRUE(names.names.empty());
}

// Offsets of the parts in a file written from sampleLayout(220): the two
// texts, the version, 33 header words.
size_t headerStart(const tqm::ObjectFileLayout& layout) { return layout.text1.size() + 1 + layout.text2.size() + 1 + 1; }

TEST(ObjectFile, EachCheckWordGuardsItsPart)
{
    const tqm::ObjectFileLayout layout = sampleLayout(220);
    const std::vector<uint8_t> good = tqm::WriteObjectFile(layout);
    const std::string text(good.begin(), good.end());

    // A header word changed: no header size matches any more.
    std::vector<uint8_t> bytes = good;
    bytes[headerStart(layout) + 4] ^= 0x10;
    EXPECT_EQ(ObjectFileFault::BadChecksum, read(bytes).fault);
    EXPECT_TRUE(read(bytes).names.empty());

    // A name of the dependency list changed: the names read stay.
    bytes = good;
    bytes[text.find("Types.inc")] = 'X';
    tqm::ObjectFileNames names = read(bytes);
    EXPECT_EQ(ObjectFileFault::BadChecksum, names.fault);
    EXPECT_EQ((Names{"Motion.src", "Xypes.inc"}), names.names);

    // A reference changed: the dependencies and the references read stay.
    bytes = good;
    bytes[text.find("Ramp.tab")] = 'L';
    names = read(bytes);
    EXPECT_EQ(ObjectFileFault::BadChecksum, names.fault);
    EXPECT_EQ(4u, names.names.size());
}

TEST(ObjectFile, TruncationAtEveryOffsetEndsCleanly)
{
    const std::vector<uint8_t> good = tqm::WriteObjectFile(sampleLayout(220));
    const Names all = read(good).names;
    for (size_t size = 0; size < good.size(); ++size) {
        const tqm::ObjectFileNames names = tqm::ReadObjectFileNames(good.data(), size);
        EXPECT_NE(ObjectFileFault::None, names.fault) << size;
        // Whatever was read is a leading part of the whole list.
        ASSERT_LE(names.names.size(), all.size()) << size;
        EXPECT_TRUE(std::equal(names.names.begin(), names.names.end(), all.begin())) << size;
    }
}

TEST(ObjectFile, DamagedCountsOffsetsAndStringsAreRefused)
{
    const tqm::ObjectFileLayout layout = sampleLayout(220);
    const std::vector<uint8_t> good = tqm::WriteObjectFile(layout);
    const std::string text(good.begin(), good.end());

    // A name count far beyond the names present runs into the end of the file.
    std::vector<uint8_t> bytes = good;
    const size_t count = text.find("Motion.src") - 2;
    bytes[count] = 0xFF;
    bytes[count + 1] = 0xFF;
    EXPECT_NE(ObjectFileFault::None, read(bytes).fault);

    // A leading text without its NUL within 260 bytes.
    std::vector<uint8_t> noNul(300, 'A');
    EXPECT_EQ(ObjectFileFault::Unreadable, read(noNul).fault);

    // A name without a NUL before the end of the file.
    bytes.assign(good.begin(), good.begin() + text.find("Motion.src") + 6);
    EXPECT_EQ(ObjectFileFault::Unreadable, read(bytes).fault);

    // An offset past the end of the file (header check made to match).
    tqm::ObjectFileLayout far = layout;
    std::vector<uint8_t> farBytes = tqm::WriteObjectFile(far);
    const size_t word12 = headerStart(far) + 4 * tqm::kDependencySectionWord;
    farBytes[word12 + 3] = 0x7F;
    const uint16_t check = tqm::UpdateCheckWord(0, farBytes.data() + headerStart(far), 33 * 4);
    farBytes[headerStart(far) + 33 * 4] = static_cast<uint8_t>(check);
    farBytes[headerStart(far) + 33 * 4 + 1] = static_cast<uint8_t>(check >> 8);
    EXPECT_EQ(ObjectFileFault::Unreadable, read(farBytes).fault);

    EXPECT_EQ(ObjectFileFault::Unreadable, tqm::ReadObjectFileNames(nullptr, 0).fault);
}

}  // namespace
