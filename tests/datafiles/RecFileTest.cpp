// CRecFile: writing, reading, seeking, the file's head and descriptor.
#include "RecFileSamples.h"

#include "support/FileUtil.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using rectest::kAny;
using rectest::Probe;
using rectest::Record;

namespace {

class RecFileTest : public rectest::RecFileFixture
{
protected:
    // Writes a file with WriteRec; the records after the descriptor.
    void writeFile(const std::string& file, DWORD type, const std::vector<Record>& records,
                   const char* desc = "Test file")
    {
        CRecFile rec(FALSE);
        ASSERT_TRUE(rec.Create(file.c_str(), type, 3, desc)) << GetLastError();
        for (const Record& r : records)
            ASSERT_TRUE(rec.WriteRec(r.type, r.param, static_cast<DWORD>(r.data.size()), r.data.data()));
        ASSERT_TRUE(rec.Close());
    }
};

std::vector<Record> sampleRecords()
{
    std::string big(200000, '\0');
    for (size_t i = 0; i < big.size(); ++i)
        big[i] = static_cast<char>(i * 31 + (i >> 9));
    return {{5, 100, "first"}, {6, 200, std::string("bin\0ary", 7)}, {5, 300, ""}, {9, 0xFFFFFFFF, big},
            {7, 1, "last"}};
}

TEST_F(RecFileTest, ReadsBackWhatWasWritten)
{
    std::vector<Record> records = sampleRecords();
    for (DWORD type : {DWORD(1), DWORD(4)}) {
        std::string file = path();
        {
            // Half of the records in pieces, the big one in pieces smaller and larger than any buffer.
            CRecFile rec(FALSE);
            ASSERT_TRUE(rec.Create(file.c_str(), type, 12, "Round trip"));
            for (size_t i = 0; i < records.size(); ++i) {
                const Record& r = records[i];
                if (i % 2 == 0) {
                    ASSERT_TRUE(rec.WriteRec(r.type, r.param, static_cast<DWORD>(r.data.size()), r.data.data()));
                    continue;
                }
                ASSERT_TRUE(rec.WriteRecBegin(r.type, r.param));
                for (size_t done = 0, piece = 1; done < r.data.size(); done += piece, piece = piece * 3 + 7) {
                    piece = std::min(piece, r.data.size() - done);
                    ASSERT_TRUE(rec.WriteRecData(r.data.data() + done, static_cast<DWORD>(piece)));
                }
                ASSERT_TRUE(rec.WriteRecEnd());
            }
            ASSERT_TRUE(rec.Close());
        }
        EXPECT_EQ(rectest::RawFile(type, tqmtest::ReadBytes(file).substr(24).c_str(), records),
                  tqmtest::ReadBytes(file));

        Probe rec(FALSE);
        ASSERT_TRUE(rec.Open(file.c_str(), type, FALSE));
        DWORD value = 0;
        EXPECT_TRUE(rec.GetVersion(value));
        EXPECT_EQ(12u, value);
        EXPECT_STREQ("Round trip", rec.GetDesc());
        EXPECT_EQ(nullptr, rec.GetRecHdr());

        // Open stands behind the descriptor: the data records come first.
        for (const Record& r : records) {
            ASSERT_TRUE(rec.FindNextRec(kAny));
            EXPECT_EQ(r.type, rec.GetRecType());
            CRecFile::tagRECHDR hdr;
            memset(&hdr, 0xCC, sizeof(hdr));
            ASSERT_TRUE(rec.ReadRecBegin(&hdr));
            EXPECT_EQ(r.param, hdr.dwRecParam);
            ASSERT_EQ(r.data.size(), hdr.dwDataLength);
            std::string data(r.data.size() + 1, '\x5A');
            DWORD half = hdr.dwDataLength / 2;
            ASSERT_TRUE(rec.ReadRecData(&data[0], half));
            EXPECT_EQ(hdr.dwDataLength ? 3 : 4, rec.state());
            if (hdr.dwDataLength) {
                ASSERT_TRUE(rec.ReadRecData(&data[half], hdr.dwDataLength - half));
            }
            EXPECT_EQ(4, rec.state());
            EXPECT_EQ('\x5A', data.back()) << "no byte beyond the record";
            data.pop_back();
            EXPECT_EQ(r.data, data);
            ASSERT_TRUE(rec.ReadRecEnd());
            EXPECT_EQ(1, rec.state());
        }
        EXPECT_FALSE(rec.FindNextRec(kAny));

        // Rewind: the descriptor record first.
        ASSERT_TRUE(rec.Rewind());
        ASSERT_TRUE(rec.FindNextRec(kAny));
        EXPECT_EQ(0u, rec.GetRecHdr()->dwRecType);
        EXPECT_EQ(1u, rec.GetRecHdr()->dwRecParam);
        EXPECT_EQ(4u, rec.firstRecPos());
        ASSERT_TRUE(rec.Close());
        EXPECT_EQ(0, rec.mode());
    }
}

TEST_F(RecFileTest, SeeksToNotedOffsetsAndFindsByType)
{
    std::vector<Record> records = sampleRecords();
    std::vector<DWORD> offsets;
    {
        CRecFile rec(FALSE);
        ASSERT_TRUE(rec.Create(path().c_str(), 2, 1, "Seeking"));
        for (const Record& r : records) {
            offsets.push_back(rec.GetRecFilePointer());
            ASSERT_TRUE(rec.WriteRec(r.type, r.param, static_cast<DWORD>(r.data.size()), r.data.data()));
        }
        DWORD end = rec.GetRecFilePointer();
        ASSERT_TRUE(rec.Close());
        EXPECT_EQ(tqmtest::ReadBytes(path()).size(), end);
    }

    CRecFile rec(FALSE);
    ASSERT_TRUE(rec.Open(path().c_str(), kAny, FALSE));
    for (size_t i = records.size(); i-- > 0;) {
        ASSERT_TRUE(rec.SeekToRecord(offsets[i]));
        EXPECT_EQ(records[i].param, rec.GetRecHdr()->dwRecParam);
        std::string data(records[i].data.size(), '\0');
        ASSERT_TRUE(rec.ReadRec(&data[0], static_cast<DWORD>(data.size())));
        EXPECT_EQ(records[i].data, data);
    }
    // From a noted record, the search goes on with the next one of a type,
    // over data left partly read.
    ASSERT_TRUE(rec.SeekToRecord(offsets[0]));
    char part[2];
    ASSERT_TRUE(rec.ReadRecBegin(nullptr));
    ASSERT_TRUE(rec.ReadRecData(part, 2));
    ASSERT_TRUE(rec.FindNextRec(5));
    EXPECT_EQ(records[2].param, rec.GetRecHdr()->dwRecParam);
    SetLastError(0);
    EXPECT_FALSE(rec.FindNextRec(5));
    EXPECT_TRUE(rec.Close());
}

TEST_F(RecFileTest, ManySmallRecordsAcrossBufferBoundaries)
{
    // Sizes that put record headers across every boundary of the writer's
    // and the reader's buffers sooner or later.
    std::vector<Record> records;
    for (DWORD i = 0; i < 6000; ++i)
        records.push_back({i % 3, i, std::string(i % 53, static_cast<char>('a' + i % 26))});
    writeFile(path(), 2, records);
    DWORD error = 0;
    std::vector<Record> read = rectest::ReadAll(path(), &error);
    ASSERT_EQ(0u, error);
    ASSERT_EQ(records.size() + 1, read.size());
    for (size_t i = 0; i < records.size(); ++i) {
        ASSERT_EQ(records[i].param, read[i + 1].param);
        ASSERT_EQ(records[i].data, read[i + 1].data);
    }
}

TEST_F(RecFileTest, OpenForWritingAppends)
{
    std::vector<Record> records = sampleRecords();
    writeFile(path(), 6, {records[0]});
    {
        CRecFile rec(FALSE);
        ASSERT_TRUE(rec.Open(path().c_str(), 6, TRUE));
        EXPECT_EQ(tqmtest::ReadBytes(path()).size(), 0u) << "the file is not shared";
        for (size_t i = 1; i < records.size(); ++i) {
            const Record& r = records[i];
            ASSERT_TRUE(rec.WriteRec(r.type, r.param, static_cast<DWORD>(r.data.size()), r.data.data()));
        }
        ASSERT_TRUE(rec.Close());
    }
    DWORD error = 0;
    std::vector<Record> read = rectest::ReadAll(path(), &error);
    EXPECT_EQ(0u, error);
    ASSERT_EQ(records.size() + 1, read.size());
    for (size_t i = 0; i < records.size(); ++i)
        EXPECT_EQ(records[i].data, read[i + 1].data);
}

TEST_F(RecFileTest, CreationTimeDescriptionAndTheirLimits)
{
    CRecFile rec(FALSE);
    DWORD value = 0;
    EXPECT_FALSE(rec.GetFileType(value));
    EXPECT_EQ(0xFFFFFFFFu, value) << "set before the failure";
    EXPECT_EQ(nullptr, rec.GetDesc());

    // A two-digit year counts from 2000; the text form writes four digits.
    ASSERT_TRUE(tqmtest::WriteBytes(path(), rectest::RawFile(1, "1\n2\n07/08/99 10:11:12\nTwo digits\n", {})));
    ASSERT_TRUE(rec.Open(path().c_str(), 1, FALSE));
    SYSTEMTIME t;
    memset(&t, 0xCC, sizeof(t));
    ASSERT_TRUE(rec.GetCreationTime(&t));
    EXPECT_EQ(2099, t.wYear);
    EXPECT_EQ(0, t.wDayOfWeek);
    CString str;
    ASSERT_TRUE(rec.GetCreationTime(str));
    EXPECT_STREQ("07/08/2099 10:11:12", str);
    EXPECT_STREQ("Two digits", rec.GetDesc());
    rec.Close();

    // 1024 characters are accepted when written, though the descriptor is
    // then longer than a reader takes.
    ASSERT_TRUE(rec.Create(path().c_str(), 2, 1, std::string(1024, 'd').c_str()));
    ASSERT_TRUE(rec.Close());
    SetLastError(0);
    EXPECT_FALSE(rec.Open(path().c_str(), kAny, FALSE));
    EXPECT_EQ(ERROR_BAD_FORMAT, GetLastError());
}

TEST_F(RecFileTest, DescriptorLengthBounds)
{
    // 16 bytes is the shortest descriptor: 15 characters and the zero.
    std::string shortest = "1\n2\n1/1/1 1:1:1";
    ASSERT_EQ(15u, shortest.size());
    struct Case { std::string text; bool opens; } cases[] = {
        {shortest, true},
        {shortest.substr(0, 14), false},
        {"1\n2\n1/1/1 1:1:10\n" + std::string(1023 - 17, 'x'), true},  // 1024 with the zero
        {"1\n2\n1/1/1 1:1:10\n" + std::string(1024 - 17, 'x'), false},
    };
    for (const Case& c : cases) {
        ASSERT_TRUE(tqmtest::WriteBytes(path(), rectest::RawFile(1, c.text, {{1, 2, "x"}})));
        Probe rec(FALSE);
        SetLastError(0);
        EXPECT_EQ(c.opens, rec.Open(path().c_str(), kAny, FALSE) != FALSE) << c.text.size();
        if (!c.opens) {
            EXPECT_EQ(ERROR_BAD_FORMAT, GetLastError());
            EXPECT_EQ(0, rec.mode()) << "a file that does not open leaves nothing to close";
        }
        rec.Close();
    }
}

TEST_F(RecFileTest, OpensOldFiles)
{
    std::vector<Record> records = {{3, 4, "old data"}, {5, 6, "more"}};
    std::string text = "2\n1\n01/02/1998 03:04:05\nOld file\n";
    for (bool eofMark : {false, true}) {
        ASSERT_TRUE(tqmtest::WriteBytes(path(), rectest::RawFile(2, text, records, rectest::LegacyHead(eofMark))));
        Probe rec(FALSE);
        ASSERT_TRUE(rec.Open(path().c_str(), 2, FALSE)) << GetLastError();
        EXPECT_EQ(eofMark ? 43u : 42u, rec.firstRecPos());
        EXPECT_STREQ("Old file", rec.GetDesc());
        ASSERT_TRUE(rec.FindNextRec(kAny));
        char data[8];
        ASSERT_TRUE(rec.ReadRec(data, 8));
        EXPECT_EQ(0, memcmp(data, "old data", 8));
        ASSERT_TRUE(rec.Rewind());
        ASSERT_TRUE(rec.FindNextRec(kAny));
        EXPECT_EQ(0u, rec.GetRecType());
        rec.Close();
    }
    // Anything else in the old line's place is no record file.
    std::string head = rectest::LegacyHead(false);
    std::vector<std::string> heads = {head.substr(0, 41) + "\x01", "tarn" + head.substr(4)};
    for (const std::string& bad : heads) {
        ASSERT_TRUE(tqmtest::WriteBytes(path(), rectest::RawFile(2, text, records, bad)));
        CRecFile rec(FALSE);
        EXPECT_FALSE(rec.Open(path().c_str(), kAny, FALSE));
        EXPECT_EQ(ERROR_BAD_FORMAT, GetLastError());
    }
}

TEST_F(RecFileTest, FileTypeSelectsFilesAndChecksums)
{
    writeFile(path(), 7, {{1, 1, "seven"}});
    CRecFile rec(FALSE);
    EXPECT_FALSE(rec.Open(path().c_str(), 8, FALSE));
    EXPECT_EQ(ERROR_BAD_FORMAT, GetLastError());
    EXPECT_TRUE(rec.Open(path().c_str(), 7, FALSE));
    rec.Close();

    // A file whose descriptor says type 1 but whose sums are CRC-32 is refused.
    std::string text = "1\n0\n01/01/2020 00:00:00\nmixed\n";
    std::string bytes = "TARN" + rectest::RawRecord(2, 0, 1, text + std::string(1, '\0'));
    ASSERT_TRUE(tqmtest::WriteBytes(path(), bytes));
    EXPECT_FALSE(rec.Open(path().c_str(), kAny, FALSE));
    EXPECT_EQ(ERROR_BAD_FORMAT, GetLastError());
}

TEST_F(RecFileTest, EveryWritingCallLeavesItsBytesInTheFile)
{
    // What a writer that is killed now leaves behind: after every call that
    // returned TRUE, the file holds exactly the bytes written so far.
    Probe rec(FALSE);
    ASSERT_TRUE(rec.Create(path().c_str(), 2, 1, "desc"));
    std::string expected = rec.onDisk();
    std::string desc = std::string(expected.size() < 24 ? "" : expected.substr(24));
    EXPECT_EQ("TARN" + rectest::RawRecord(2, 0, 1, desc), expected) << "the magic and the descriptor at once";
    EXPECT_EQ("\ndesc\n", desc.substr(desc.size() < 7 ? 0 : desc.size() - 7, 6));

    ASSERT_TRUE(rec.WriteRec(5, 0, 4, "abcd"));
    expected += rectest::RawRecord(2, 5, 0, "abcd");
    EXPECT_EQ(expected, rec.onDisk());

    ASSERT_TRUE(rec.WriteRecBegin(6, 7));
    std::string header = rectest::RawRecord(2, 6, 7, "").substr(0, 12) + std::string(8, '\0');
    EXPECT_EQ(expected + header, rec.onDisk()) << "the header, length and checksum 0";
    ASSERT_TRUE(rec.WriteRecData("xy", 2));
    EXPECT_EQ(expected + header + "xy", rec.onDisk());
    ASSERT_TRUE(rec.WriteRecData("z", 1));
    ASSERT_TRUE(rec.WriteRecEnd());
    expected += rectest::RawRecord(2, 6, 7, "xyz");
    EXPECT_EQ(expected, rec.onDisk());

    // Opened again for appending, the same holds.
    ASSERT_TRUE(rec.Close());
    ASSERT_TRUE(rec.Open(path().c_str(), kAny, TRUE));
    ASSERT_TRUE(rec.WriteRec(8, 9, 0, ""));
    expected += rectest::RawRecord(2, 8, 9, "");
    EXPECT_EQ(expected, rec.onDisk());
    ASSERT_TRUE(rec.Close());
    EXPECT_EQ(expected, tqmtest::ReadBytes(path()));
}

TEST_F(RecFileTest, UnfinishedRecordIsOnDiskAsWritten)
{
    // Closing, destroying or failing in the middle of a record leaves its
    // header (length and checksum 0) and the data written so far.
    for (int how = 0; how < 3; ++how) {
        {
            CRecFile rec(FALSE);
            ASSERT_TRUE(rec.Create(path().c_str(), 2, 1, "Unfinished"));
            ASSERT_TRUE(rec.WriteRecBegin(4, 5));
            ASSERT_TRUE(rec.WriteRecData("abc", 3));
            if (how == 0) {
                EXPECT_TRUE(rec.Close());
            }
            if (how == 1) {
                EXPECT_EQ(0xFFFFFFFFu, rec.GetRecFilePointer());  // a misuse closes the file
            }
        }
        std::string bytes = tqmtest::ReadBytes(path());
        ASSERT_GE(bytes.size(), 23u);
        std::string tail = bytes.substr(bytes.size() - 23);
        EXPECT_EQ(std::string("****\x04\0\0\0\x05\0\0\0\0\0\0\0\0\0\0\0abc", 23), tail) << how;
    }
}

}  // namespace
