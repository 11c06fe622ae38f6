// Record files and CRC-32: CRecFile against plain WriteFile/ReadFile of the
// same bytes, and the CRC-32's throughput, as ratios measured in one run.
//
// Writing: 100,000 records of 100 bytes with WriteRec, against the same
// bytes (header and data) written with one WriteFile per record - the
// strongest baseline that keeps CRecFile's promise that every record is in
// the file when WriteRec returns - and, for what that promise costs, in one
// pass of 64 KB blocks, the physical limit. Reading: FindNextRec and
// ReadRec with every checksum checked, against one ReadFile per record and
// against one pass of 64 KB blocks. Each figure is the best of several rounds.
#include "bench/BenchClock.h"
#include "datafiles/Crc.h"
#include "datafiles/RecFile.h"
#include "datafiles/logic/RecordChecksum.h"

#include <windows.h>

#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

using tqmbench::BestOf;

namespace {

constexpr DWORD kRecords = 100000;
constexpr DWORD kRecordSize = 100;
constexpr DWORD kHeaderSize = 20;
constexpr int kRounds = 5;
constexpr size_t kCrcBytes = 64u << 20;

std::vector<BYTE> recordData()
{
    std::vector<BYTE> data(size_t(kRecords) * kRecordSize);
    for (size_t i = 0; i < data.size(); ++i)
        data[i] = static_cast<BYTE>(i * 131 + (i >> 11));
    return data;
}

bool writeWithRecFile(const std::string& path, const std::vector<BYTE>& data)
{
    CRecFile file(FALSE);
    if (!file.Create(path.c_str(), 2, 1, "Benchmark"))
        return false;
    for (DWORD i = 0; i < kRecords; ++i) {
        if (!file.WriteRec(1, i, kRecordSize, &data[size_t(i) * kRecordSize]))
            return false;
    }
    return file.Close() != FALSE;
}

bool readWithRecFile(const std::string& path, std::vector<BYTE>& into)
{
    CRecFile file(FALSE);
    if (!file.Open(path.c_str(), 2, FALSE))
        return false;
    DWORD count = 0;
    for (;; ++count) {
        SetLastError(0);
        if (!file.FindNextRec(1))
            break;
        if (count >= kRecords || !file.ReadRec(&into[size_t(count) * kRecordSize], kRecordSize))
            return false;
    }
    return GetLastError() == 0 && file.Close() && count == kRecords;
}

// The same file image written as a plain program would: the head, then one
// WriteFile per record.
bool writePlain(const std::string& path, const std::string& image, size_t headSize)
{
    HANDLE h = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE)
        return false;
    DWORD n = 0;
    bool ok = WriteFile(h, image.data(), DWORD(headSize), &n, nullptr) != FALSE;
    for (size_t pos = headSize; ok && pos < image.size(); pos += kHeaderSize + kRecordSize)
        ok = WriteFile(h, image.data() + pos, kHeaderSize + kRecordSize, &n, nullptr) &&
             n == kHeaderSize + kRecordSize;
    return CloseHandle(h) && ok;
}

bool readPlain(const std::string& path, std::string& image, size_t headSize)
{
    HANDLE h = CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE)
        return false;
    DWORD n = 0;
    bool ok = ReadFile(h, &image[0], DWORD(headSize), &n, nullptr) != FALSE;
    for (size_t pos = headSize; ok && pos < image.size(); pos += kHeaderSize + kRecordSize)
        ok = ReadFile(h, &image[pos], kHeaderSize + kRecordSize, &n, nullptr) && n == kHeaderSize + kRecordSize;
    return CloseHandle(h) && ok;
}

constexpr DWORD kBlock = 64 * 1024;

// The same file image in one pass of 64 KB blocks.
bool writeBulk(const std::string& path, const std::string& image)
{
    HANDLE h = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE)
        return false;
    bool ok = true;
    for (size_t pos = 0; ok && pos < image.size(); pos += kBlock) {
        DWORD n = 0, want = DWORD(std::min<size_t>(kBlock, image.size() - pos));
        ok = WriteFile(h, image.data() + pos, want, &n, nullptr) && n == want;
    }
    return CloseHandle(h) && ok;
}

bool readBulk(const std::string& path, std::string& image)
{
    HANDLE h = CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (h == INVALID_HANDLE_VALUE)
        return false;
    bool ok = true;
    for (size_t pos = 0; ok && pos < image.size(); pos += kBlock) {
        DWORD n = 0, want = DWORD(std::min<size_t>(kBlock, image.size() - pos));
        ok = ReadFile(h, &image[pos], want, &n, nullptr) && n == want;
    }
    return CloseHandle(h) && ok;
}

std::string fileBytes(const std::string& path)
{
    std::string bytes;
    HANDLE h = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (h == INVALID_HANDLE_VALUE)
        return bytes;
    bytes.resize(GetFileSize(h, nullptr));
    DWORD n = 0;
    if (!ReadFile(h, &bytes[0], DWORD(bytes.size()), &n, nullptr) || n != bytes.size())
        bytes.clear();
    CloseHandle(h);
    return bytes;
}

int recordFiles()
{
    char temp[MAX_PATH];
    GetTempPathA(MAX_PATH, temp);
    std::string recPath = std::string(temp) + "bench_recfile.rec";
    std::string plainPath = std::string(temp) + "bench_recfile.bin";
    std::vector<BYTE> data = recordData();

    double writeRec = 0, writeBase = 0, readRec = 0, readBase = 0, writeBlocks = 0, readBlocks = 0;
    if (!BestOf(kRounds, [&] { return writeWithRecFile(recPath, data); }, &writeRec)) {
        printf("writing with CRecFile failed (error %lu)\n", GetLastError());
        return 1;
    }
    std::string image = fileBytes(recPath);
    size_t headSize = image.size() - size_t(kRecords) * (kHeaderSize + kRecordSize);
    if (!BestOf(kRounds, [&] { return writePlain(plainPath, image, headSize); }, &writeBase) || fileBytes(plainPath) != image) {
        printf("the plain writer failed\n");
        return 1;
    }
    std::vector<BYTE> readBack(data.size());
    if (!BestOf(kRounds, [&] { return readWithRecFile(recPath, readBack); }, &readRec) || readBack != data) {
        printf("reading with CRecFile failed (error %lu)\n", GetLastError());
        return 1;
    }
    std::string plainImage(image.size(), '\0');
    if (!BestOf(kRounds, [&] { return readPlain(plainPath, plainImage, headSize); }, &readBase) || plainImage != image) {
        printf("the plain reader failed\n");
        return 1;
    }
    if (!BestOf(kRounds, [&] { return writeBulk(plainPath, image); }, &writeBlocks) ||
        !BestOf(kRounds, [&] { return readBulk(plainPath, plainImage); }, &readBlocks) || plainImage != image) {
        printf("the block writer or reader failed\n");
        return 1;
    }
    DeleteFileA(recPath.c_str());
    DeleteFileA(plainPath.c_str());

    printf("%lu records of %lu bytes, file of %.1f MB; best of %d rounds\n", static_cast<unsigned long>(kRecords),
           static_cast<unsigned long>(kRecordSize), image.size() / 1e6, kRounds);
    printf("write: CRecFile %.3f s, WriteFile per record %.3f s: ratio %.2f (target at most 4)\n", writeRec,
           writeBase, writeRec / writeBase);
    printf("read:  CRecFile with checksums %.3f s, ReadFile per record %.3f s: ratio %.2f (target at most 3)\n",
           readRec, readBase, readRec / readBase);
    printf("against one pass of 64 KB blocks (write %.3f s, read %.3f s): read ratio %.2f (target at most 1.5)\n",
           writeBlocks, readBlocks, readRec / readBlocks);
    printf("       write ratio %.2f: the price of every record being in the file when WriteRec returns\n",
           writeRec / writeBlocks);
    return 0;
}

int crc32Throughput()
{
    std::vector<BYTE> block(kCrcBytes);
    uint32_t x = 2463534242u;  // xorshift: bytes without a pattern a sum could cancel
    for (BYTE& b : block) {
        x ^= x << 13;
        x ^= x >> 17;
        x ^= x << 5;
        b = static_cast<BYTE>(x);
    }
    std::vector<BYTE> copy(kCrcBytes);
    DWORD crc = 0;
    uint32_t sum = 0;
    double crcTime = 0, rotateTime = 0, copyTime = 0;
    BestOf(kRounds, [&] { return (crc = TQMCrc32(block.data(), UINT(block.size()))), true; }, &crcTime);
    BestOf(kRounds, [&] { return (sum = tqm::RecordChecksum(1, block.data(), block.size())), true; }, &rotateTime);
    BestOf(kRounds, [&] { return memcpy(copy.data(), block.data(), block.size()), copy[12345] == block[12345]; }, &copyTime);
    printf("crc32: 64 MB in %.3f s = %.0f MB/s (crc %08lx, old sum %08lx)\n", crcTime, kCrcBytes / 1048576.0 / crcTime,
           static_cast<unsigned long>(crc), static_cast<unsigned long>(sum));
    printf("       time ratio to the old rotate-xor sum %.2f, to memcpy %.1f\n", crcTime / rotateTime,
           crcTime / copyTime);
    return 0;
}

}  // namespace

int main()
{
    int rc = recordFiles();
    rc |= crc32Throughput();
    return rc;
}
