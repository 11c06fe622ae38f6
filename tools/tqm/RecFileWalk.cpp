// Reading a whole record file for "tqm rec" and the demo.
#include "tools/tqm/RecFileWalk.h"

#include "tools/tqm/SystemMessageText.h"

#include <algorithm>
#include <vector>

namespace tqmtool {
namespace {

constexpr DWORD kAnyType = 0xFFFFFFFF;
constexpr DWORD kHeaderSize = sizeof(CRecFile::tagRECHDR);
constexpr DWORD kPieceSize = 64 * 1024;

WalkResult failure(DWORD offset, DWORD dwError, const WalkResult& sofar)
{
    WalkResult result = sofar;
    result.ok = false;
    result.failOffset = offset;
    result.reason = RecFileFailureText(dwError);
    return result;
}

// Reads the current record's data in pieces; false when the checksum or a read failed.
bool readData(RecFileReader& file, DWORD length, const RecFileVisitor& visitor)
{
    std::vector<BYTE> piece(std::min(length, kPieceSize));
    if (!file.ReadRecBegin(nullptr))
        return false;
    for (DWORD done = 0; done < length;) {
        DWORD size = std::min(length - done, kPieceSize);
        if (!file.ReadRecData(piece.data(), size))
            return false;
        if (visitor.onData)
            visitor.onData(piece.data(), size, done);
        done += size;
    }
    if (length == 0 && !file.ReadRecData(nullptr, 0))
        return false;
    return file.ReadRecEnd() != FALSE;
}

}  // namespace

std::string RecFileFailureText(DWORD dwError)
{
    switch (dwError) {
    case ERROR_BAD_FORMAT:
        return "not a record file, or its head or descriptor is damaged";
    case ERROR_CRC:
        return "the data does not match its checksum";
    case ERROR_SEEK:
        return "bad record header: no record magic, or the record runs past the end of the file";
    case ERROR_INVALID_FUNCTION:
        return "the library refused the call in this state";
    default:
        return SystemMessage(dwError);
    }
}

std::string DescribeWalk(const std::string& name, const WalkResult& result)
{
    if (!result.ok)
        return name + ": damaged at offset " + std::to_string(result.failOffset) + ": " + result.reason;
    DWORD records = result.records - 1;
    return name + ": descriptor and " + std::to_string(records) + (records == 1 ? " record" : " records") +
           ", all checksums correct";
}

WalkResult WalkRecordFile(const std::string& path, const RecFileVisitor& visitor)
{
    WalkResult result;
    RecFileReader file;
    if (!file.Open(path.c_str(), kAnyType, FALSE)) {
        DWORD dwError = ::GetLastError();
        // A file that is there but no record file is damaged from its start.
        result.found = dwError == ERROR_BAD_FORMAT;
        return failure(0, dwError, result);
    }
    result.found = true;
    if (visitor.onOpen)
        visitor.onOpen(file);
    if (!file.Rewind())
        return failure(file.firstRecordOffset(), ::GetLastError(), result);

    DWORD next = file.firstRecordOffset();
    const DWORD fileSize = file.fileSize();
    for (;;) {
        // At the end of the file a pending last-error code would count as a failure.
        ::SetLastError(0);
        if (!file.FindNextRec(kAnyType)) {
            DWORD dwError = ::GetLastError();
            if (dwError)
                return failure(next, dwError, result);
            break;
        }
        RecordInfo info{next, next == file.firstRecordOffset(), *file.GetRecHdr()};
        next += kHeaderSize + info.header.dwDataLength;
        if (visitor.onRecord)
            visitor.onRecord(info);
        bool bOk = readData(file, info.header.dwDataLength, visitor);
        DWORD dwError = ::GetLastError();
        if (visitor.onEnd)
            visitor.onEnd(info, bOk);
        if (!bOk)
            return failure(info.offset, dwError, result);
        ++result.records;
    }
    file.Close();
    // The library takes a piece of a header at the end for the end of the
    // file; a whole file ends where its last record does.
    if (next != fileSize) {
        result = failure(next, 0, result);
        result.reason = std::to_string(fileSize - next) + " bytes after the last record are no complete record";
    }
    return result;
}

}  // namespace tqmtool
