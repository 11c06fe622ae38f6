// FileRecordStore - a record file's bytes in a file: the system's side of
// the record file.
//
// Each read and write first moves the file pointer to its offset: only the
// store moves it, the file being open without sharing. (Reads and writes
// that name their offset through an OVERLAPPED cost several times as much
// under Wine.) The record file's buffer (datafiles/logic/RecordStore.h) makes
// the reads few and large; every write comes here as it is made. Failures
// give the system's error code; reading leaves the thread's last-error code
// as it was.
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
