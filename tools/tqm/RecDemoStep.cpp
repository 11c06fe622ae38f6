// "tqm demo": record files - writing, listing, a damaged copy caught, an old file.
#include "datafiles/Crc.h"
#include "datafiles/RecFile.h"
#include "datafiles/logic/RecordChecksum.h"
#include "datafiles/logic/RecordDescriptor.h"
#include "datafiles/logic/RecordHeader.h"
#include "tools/tqm/Demo.h"
#include "tools/tqm/RecFileWalk.h"

#include <stdio.h>
#include <string.h>

#include <string>

namespace tqmtool {
namespace {

struct DemoRecord
{
    DWORD type;
    DWORD param;
    const char* text;
};

const DemoRecord kRecords[] = {
    {1, 100, "Main program: 12 networks"},
    {2, 200, "Timer block TON_1, preset 500 ms"},
    {2, 201, "Timer block TON_2, preset 2 s"},
};

bool writeDemoFile(const std::string& path)
{
    CRecFile file(FALSE);
    if (!file.Create(path.c_str(), 7, 1, "Demo project symbols"))
        return false;
    for (const DemoRecord& r : kRecords) {
        if (!file.WriteRec(r.type, r.param, static_cast<DWORD>(strlen(r.text)), r.text))
            return false;
    }
    return file.Close() != FALSE;
}

void printListing(const std::string& path)
{
    RecFileVisitor visitor;
    visitor.onEnd = [](const RecordInfo& info, bool bOk) {
        printf("  offset %4lu  type %lu  param %3lu  %3lu bytes  checksum %s\n",
               static_cast<unsigned long>(info.offset), static_cast<unsigned long>(info.header.dwRecType),
               static_cast<unsigned long>(info.header.dwRecParam),
               static_cast<unsigned long>(info.header.dwDataLength), bOk ? "ok" : "BAD");
    };
    WalkRecordFile(path, visitor);
}

void printVerdict(const std::string& name, const WalkResult& result)
{
    printf("  %s\n", DescribeWalk(name, result).c_str());
}

bool copyWithFlippedByte(const std::string& from, const std::string& to, DWORD offset)
{
    if (!::CopyFileA(from.c_str(), to.c_str(), FALSE))
        return false;
    HANDLE h = ::CreateFileA(to.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (h == INVALID_HANDLE_VALUE)
        return false;
    OVERLAPPED at = {};
    at.Offset = offset;
    BYTE b = 0;
    DWORD n = 0;
    bool ok = ::ReadFile(h, &b, 1, &n, &at) && n == 1;
    b ^= 0x20;
    ok = ok && ::WriteFile(h, &b, 1, &n, &at) && n == 1;
    ::CloseHandle(h);
    return ok;
}

// A file as programs wrote them before the "TARN" magic: the company line,
// 0x1A and one byte, then the records (type 1: the old checksum).
bool writeOldFile(const std::string& path)
{
    tqm::RecordDescriptor descriptor;
    descriptor.fileType = 1;
    descriptor.version = 2;
    descriptor.day = 14;
    descriptor.month = 3;
    descriptor.year = 1998;
    descriptor.hour = 9;
    descriptor.minute = 30;
    descriptor.second = 0;
    descriptor.description = "Old symbol table";
    std::string text = tqm::FormatRecordDescriptor(descriptor) + std::string(1, '\0');
    std::string bytes = std::string(tqm::kLegacyFileLine) + '\x1A' + '\0';
    auto append = [&bytes](uint32_t type, uint32_t param, const std::string& data) {
        uint8_t header[tqm::kRecordHeaderSize];
        tqm::EncodeRecordHeader({tqm::kRecordMagic, type, param, static_cast<uint32_t>(data.size()),
                                 tqm::RecordChecksum(1, data.data(), data.size())},
                                header);
        bytes.append(reinterpret_cast<const char*>(header), sizeof(header));
        bytes += data;
    };
    append(0, 1, text);
    append(4, 1, "Input block I0.0");
    HANDLE h = ::CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (h == INVALID_HANDLE_VALUE)
        return false;
    DWORD n = 0;
    bool ok = ::WriteFile(h, bytes.data(), static_cast<DWORD>(bytes.size()), &n, nullptr) && n == bytes.size();
    ::CloseHandle(h);
    return ok;
}

bool recordFilesStep(const std::string& demoDir)
{
    std::string path = demoDir + "\\symbols.rec";
    if (!writeDemoFile(path)) {
        printf("cannot write %s (error %lu)\n", path.c_str(), static_cast<unsigned long>(::GetLastError()));
        return false;
    }
    printf("Wrote %s: type 7, version 1, \"Demo project symbols\", 3 records\n", path.c_str());
    printListing(path);
    printVerdict("symbols.rec", WalkRecordFile(path, RecFileVisitor()));

    // One flipped bit in the last record's data.
    std::string damaged = demoDir + "\\symbols-damaged.rec";
    HANDLE h = ::CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    DWORD size = h == INVALID_HANDLE_VALUE ? 0 : ::GetFileSize(h, nullptr);
    if (h != INVALID_HANDLE_VALUE)
        ::CloseHandle(h);
    if (size < 3 || !copyWithFlippedByte(path, damaged, size - 3))
        return false;
    printf("\nCopied it to symbols-damaged.rec with one bit flipped at offset %lu:\n",
           static_cast<unsigned long>(size - 3));
    WalkResult result = WalkRecordFile(damaged, RecFileVisitor());
    printVerdict("symbols-damaged.rec", result);

    std::string old = demoDir + "\\old.rec";
    if (!writeOldFile(old))
        return false;
    RecFileReader reader;
    if (!reader.Open(old.c_str(), 0xFFFFFFFF, FALSE)) {
        printf("old.rec does not open (error %lu)\n", static_cast<unsigned long>(::GetLastError()));
        return false;
    }
    CString created;
    reader.GetCreationTime(created);
    printf("\nAn old file without the magic, old.rec: \"%s\", made %s, records from offset %lu\n", reader.GetDesc(),
           created.GetString(), static_cast<unsigned long>(reader.firstRecordOffset()));
    reader.Close();
    printVerdict("old.rec", WalkRecordFile(old, RecFileVisitor()));
    return !result.ok;
}

TQM_REGISTER_DEMO_STEP({40, "Record files", recordFilesStep});

}  // namespace
}  // namespace tqmtool
