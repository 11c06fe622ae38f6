// FileRecordStore - a record file's bytes in a file: the system's side of
// the record file.
//
// Reads and writes name their offsets, so the system's file pointer plays no
// part. Under Wine such a write costs as much as a dozen plain ones; the
// record file's buffer (datafiles/logic/RecordStore.h) makes them few and
// large. Failures give the system's error code.
#pragma once

#include "datafiles/logic/RecordStore.h"

#include <windows.h>

namespace tqm {

class FileRecordStore : public RecordStore
{
public:
    // The handle stays the caller's.
    explicit FileRecordStore(HANDLE hFile) : m_hFile(hFile) {}

    uint32_t ReadAt(uint64_t pos, void* p, uint32_t n, uint32_t* pDone) override;
    uint32_t WriteAt(uint64_t pos, const void* p, uint32_t n) override;
    uint32_t Size(uint64_t* pSize) override;

private:
    HANDLE m_hFile;
};

}  // namespace tqm
