// Walking a record file through CRecFile, as a program of the suite reads
// it: the descriptor, then every record with its data and checksum. Shared
// by "tqm rec" and the demo.
#pragma once

#include "datafiles/RecFile.h"

#include <functional>
#include <string>

namespace tqmtool {

// A reader that also tells where its records lie, as a writer notes them.
class RecFileReader : public CRecFile
{
public:
    RecFileReader() : CRecFile(FALSE) {}
    DWORD firstRecordOffset() const { return m_dwFirstRecPos; }
    DWORD fileSize() const { return m_dwFileSize; }
};

struct RecordInfo
{
    DWORD offset;     // of the record's header
    bool descriptor;  // the file's first record, which describes it
    CRecFile::tagRECHDR header;
};

struct RecFileVisitor
{
    std::function<void(RecFileReader&)> onOpen;                  // the file is open
    std::function<void(const RecordInfo&)> onRecord;             // a header was read
    std::function<void(const BYTE*, DWORD, DWORD)> onData;       // bytes, count, offset within the data
    std::function<void(const RecordInfo&, bool)> onEnd;          // the data was read: checksum correct?
};

struct WalkResult
{
    bool ok = true;            // the file reads cleanly to its very end
    bool found = false;        // false: the file could not be opened at all (see reason)
    DWORD records = 0;         // records read, the descriptor included
    DWORD failOffset = 0;      // where the first damage lies
    std::string reason;        // what is wrong there
};

// Opens the file, calls the visitor for every record from the descriptor on,
// and stops at the first failure.
WalkResult WalkRecordFile(const std::string& path, const RecFileVisitor& visitor);

// "NAME: descriptor and N records, all checksums correct", or
// "NAME: damaged at offset N: reason".
std::string DescribeWalk(const std::string& name, const WalkResult& result);

// What a record file's failure code means, in words.
std::string RecFileFailureText(DWORD dwError);

}  // namespace tqmtool
