// Record files for the tests: made byte by byte, independently of CRecFile,
// and a CRecFile that shows its state.
#pragma once

#include "datafiles/RecFile.h"
#include "datafiles/logic/RecordChecksum.h"
#include "datafiles/logic/RecordHeader.h"
#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace rectest {

const DWORD kAny = 0xFFFFFFFF;  // any file or record type

// Record files in a fresh folder.
class RecFileFixture : public ::testing::Test
{
protected:
    std::string path(const char* name = "test.rec") const { return dir.file(name); }
    tqmtest::TempDir dir;
};

struct Record { DWORD type; DWORD param; std::string data; };

// A record: header with the checksum of the file type's scheme, then the data.
inline std::string RawRecord(DWORD fileType, DWORD type, DWORD param, const std::string& data)
{
    uint8_t header[tqm::kRecordHeaderSize];
    tqm::EncodeRecordHeader({tqm::kRecordMagic, type, param, static_cast<uint32_t>(data.size()),
                             tqm::RecordChecksum(fileType, data.data(), data.size())},
                            header);
    return std::string(reinterpret_cast<const char*>(header), sizeof(header)) + data;
}

// A whole file: head ("TARN" or an old text line), the descriptor record
// holding descText and its zero byte, the records.
inline std::string RawFile(DWORD fileType, const std::string& descText, const std::vector<Record>& records,
                           const std::string& head = "TARN")
{
    std::string bytes = head + RawRecord(fileType, 0, 1, descText + std::string(1, '\0'));
    for (const Record& r : records)
        bytes += RawRecord(fileType, r.type, r.param, r.data);
    return bytes;
}

// The old head: the text line and a zero byte (records from 42), or the
// line, 0x1A and one more byte (records from 43).
inline std::string LegacyHead(bool withEofMark)
{
    std::string line = tqm::kLegacyFileLine;
    return withEofMark ? line + "\x1A" + "?" : line + std::string(1, '\0');
}

// Gives the tests the state the object keeps.
class Probe : public CRecFile
{
public:
    using CRecFile::CRecFile;
    int mode() const { return m_nMode; }
    int state() const { return m_nRecState; }
    bool hasFile() const { return m_hFile != INVALID_HANDLE_VALUE; }
    bool throws() const { return m_bThrow != FALSE; }
    DWORD firstRecPos() const { return m_dwFirstRecPos; }
    // Writes bytes at an offset behind the object's back.
    bool poke(DWORD pos, const std::string& bytes)
    {
        OVERLAPPED ov = {};
        ov.Offset = pos;
        DWORD written = 0;
        return ::WriteFile(m_hFile, bytes.data(), static_cast<DWORD>(bytes.size()), &written, &ov) &&
               written == bytes.size();
    }
    // The file's bytes as they are on disk now, read behind the object's back.
    std::string onDisk()
    {
        LARGE_INTEGER size = {};
        if (!::GetFileSizeEx(m_hFile, &size))
            return "<no file>";
        std::string bytes(static_cast<size_t>(size.QuadPart), '\0');
        OVERLAPPED ov = {};
        DWORD read = 0;
        if (!bytes.empty() && !::ReadFile(m_hFile, &bytes[0], static_cast<DWORD>(bytes.size()), &read, &ov))
            return "<unreadable>";
        return bytes.substr(0, read);
    }
};

// Reads every record from the descriptor on, without throwing. Returns the
// records read; *pError gets the failure's code, 0 when the walk reached the
// end of the file cleanly.
inline std::vector<Record> ReadAll(const std::string& path, DWORD* pError, DWORD fileType = 0xFFFFFFFF)
{
    std::vector<Record> records;
    CRecFile file(FALSE);
    *pError = 0;
    if (!file.Open(path.c_str(), fileType, FALSE) || !file.Rewind()) {
        *pError = ::GetLastError();
        return records;
    }
    for (;;) {
        ::SetLastError(0);
        if (!file.FindNextRec(0xFFFFFFFF)) {
            *pError = ::GetLastError();
            break;
        }
        CRecFile::tagRECHDR* pHdr = file.GetRecHdr();
        std::string data(pHdr->dwDataLength, '\0');
        Record r{pHdr->dwRecType, pHdr->dwRecParam, ""};
        if (!file.ReadRec(&data[0], pHdr->dwDataLength)) {
            *pError = ::GetLastError();
            break;
        }
        r.data = data;
        records.push_back(r);
    }
    file.Close();
    return records;
}

}  // namespace rectest
