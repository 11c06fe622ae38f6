// The record file under kills: a writer process appending records is killed
// at a random moment; every record whose write had returned TRUE reads back,
// and the damaged tail, if any, is named exactly where it starts.
#include "stress/Stress.h"

#include "support/TempDir.h"
#include "support/TqmProgram.h"

#include "datafiles/RecFile.h"

#include <gtest/gtest.h>

#include <stdio.h>

namespace tqmstress {
namespace {

// What the writer tells the test as it goes, in memory the two share: the
// offset of its first record, and how many writes have returned TRUE.
struct WriterProgress
{
    volatile LONG firstOffset;
    volatile LONG returned;
};

// Under Wine a killed process counts as ended before a write it was in the
// middle of has reached the file: the file is read once its size has stood
// still for a moment.
void waitUntilSettled(const std::string& path)
{
    ULONGLONG last = ~0ull;
    for (int still = 0, waited = 0; still < 3 && waited < 5000; waited += 50) {
        WIN32_FILE_ATTRIBUTE_DATA data = {};
        GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data);
        const ULONGLONG size = (static_cast<ULONGLONG>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
        still = size == last ? still + 1 : 0;
        last = size;
        Sleep(50);
    }
}

std::string recordData(LONG n)
{
    std::string bytes(50 + (static_cast<unsigned long>(n) * 2654435761ul) % 3000, '\0');
    for (size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(n * 13 + i * 7);
    return bytes;
}

}  // namespace

// Role "rec-writer": PATH SECTION. Creates the record file and appends records
// until it is killed, counting in the shared section those whose last call
// returned TRUE.
int RecWriterRole(const std::vector<std::string>& args)
{
    if (args.size() != 2)
        return 2;
    tqm::UniqueHandle section(OpenFileMappingA(FILE_MAP_WRITE, FALSE, args[1].c_str()));
    tqm::UniqueView view(section ? MapViewOfFile(section.get(), FILE_MAP_WRITE, 0, 0, sizeof(WriterProgress))
                                 : nullptr);
    if (!view)
        return 3;
    auto* progress = static_cast<WriterProgress*>(view.get());
    CRecFile file(FALSE);
    if (!file.Create(args[0].c_str(), 0x52, 1, "killed writer"))
        return 4;
    InterlockedExchange(&progress->firstOffset, static_cast<LONG>(file.GetRecFilePointer()));
    // By turns in one call and in pieces (begin, three pieces of data, end),
    // so that a kill also finds records half written.
    for (LONG n = 0;; ++n) {
        const std::string data = recordData(n);
        const DWORD size = static_cast<DWORD>(data.size());
        if (n % 2 == 0) {
            if (!file.WriteRec(9, static_cast<DWORD>(n), size, data.data()))
                return 5;
        } else {
            if (!file.WriteRecBegin(9, static_cast<DWORD>(n)) || !file.WriteRecData(data.data(), size / 3) ||
                !file.WriteRecData(data.data() + size / 3, size / 3) ||
                !file.WriteRecData(data.data() + 2 * (size / 3), size - 2 * (size / 3)) || !file.WriteRecEnd())
                return 5;
        }
        InterlockedExchange(&progress->returned, n + 1);
    }
}

namespace {

TEST(RecordFileUnderKills, EveryReturnedRecordReadsBackAndTheTailIsNamed)
{
    const int kills = Sized(100, 5);
    tqmtest::TempDir dir;
    const std::string path = dir.file("Killed.dat");
    char sectionName[64];
    snprintf(sectionName, sizeof(sectionName), "Tqm.Stress.RecWriter.%lu", GetCurrentProcessId());
    tqm::UniqueHandle section(
        CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(WriterProgress), sectionName));
    tqm::UniqueView view(MapViewOfFile(section.get(), FILE_MAP_WRITE, 0, 0, sizeof(WriterProgress)));
    ASSERT_TRUE(view);
    auto* progress = static_cast<WriterProgress*>(view.get());
    Random random(GetTickCount());
    int lost = 0, tails = 0, misnamed = 0, unfinished = 0;
    LONG records = 0;
    for (int k = 0; k < kills; ++k) {
        progress->firstOffset = 0;
        progress->returned = 0;
        Child writer;
        ASSERT_TRUE(writer.Start("rec-writer", {path, sectionName}));
        // Killed once it has written a while, at a moment of its own.
        for (int waited = 0; progress->returned == 0 && waited < 30000; waited += 10)
            Sleep(10);
        Sleep(static_cast<DWORD>(random.Between(0, 400)));
        writer.Kill();
        waitUntilSettled(path);
        const LONG returned = progress->returned;
        records += returned;

        // Every returned record reads back whole; where reading stops is the
        // end of the last whole record.
        CRecFile file(FALSE);
        ASSERT_TRUE(file.Open(path.c_str(), 0x52)) << "kill " << k + 1 << ": error " << GetLastError();
        LONG whole = 0;
        DWORD end = static_cast<DWORD>(progress->firstOffset);
        DWORD damageAt = 0;
        while (file.FindNextRec(9)) {
            const std::string expected = recordData(whole);
            std::string got(file.GetRecHdr()->dwDataLength, '\0');
            if (got.empty() && !expected.empty()) {
                // A record killed between its begin and its end: its header
                // was written with length 0 and checksum 0 (the length comes
                // at the end), so the file shows an empty record there, and
                // the damage the file itself can show starts behind it.
                ++unfinished;
                damageAt = end + 20;
                break;
            }
            if (got.size() != expected.size() || !file.ReadRec(&got[0], static_cast<DWORD>(got.size())) ||
                got != expected)
                break;
            end += static_cast<DWORD>(20 + got.size());
            ++whole;
        }
        file.Close();
        if (!damageAt)
            damageAt = end;
        if (whole < returned)
            ++lost;
        EXPECT_GE(whole, returned) << "kill " << k + 1;

        // The tool names the damaged tail at that end, or finds none.
        WIN32_FILE_ATTRIBUTE_DATA data = {};
        GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data);
        const tqmtest::TqmRun verify = tqmtest::RunTqm({"rec", "verify", path});
        if (data.nFileSizeLow == damageAt) {
            EXPECT_EQ(0, verify.exitCode) << verify.out << verify.err;
        } else {
            ++tails;
            const std::string named = "damaged at offset " + std::to_string(damageAt) + ":";
            if (verify.exitCode != 1 || !tqmtest::Contains(verify.out + verify.err, named))
                ++misnamed;
            EXPECT_TRUE(tqmtest::Contains(verify.out + verify.err, named))
                << "kill " << k + 1 << ", " << whole << " whole records (" << returned << " returned), file of "
                << data.nFileSizeLow << " bytes, expected \"" << named << "\": " << verify.out << verify.err;
        }
        DeleteFileA(path.c_str());
    }
    Figure("record file: %d kills, %ld records had returned TRUE; kills that lost one of them %d; kills in the "
           "middle of a record written in pieces %d (it reads as an empty record); damaged tails %d, named at the "
           "wrong offset %d",
           kills, records, lost, unfinished, tails, misnamed);
}

}  // namespace
}  // namespace tqmstress
