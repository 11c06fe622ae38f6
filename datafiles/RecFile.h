// CRecFile - a typed, checksummed record file.
//
// The file holds the magic "TARN", a descriptor record (the file's type,
// format version, creation time and description, as text), then any number
// of binary records: a 20-byte header (tagRECHDR) and the data, whose
// checksum the header carries. Records are appended one after the other, and
// read one after the other or by seeking to an offset the writer noted with
// GetRecFilePointer.
//
//     Reading:  Open, FindNextRec (or SeekToRecord), ReadRec - or ReadRecBegin,
//               ReadRecData..., ReadRecEnd -, repeat, Close.
//     Writing:  Create (or Open with bWrite), per record WriteRec - or
//               WriteRecBegin, WriteRecData..., WriteRecEnd -, Close.
//
// Failures: every failure sets the thread's last-error code (1 for a call in
// the wrong mode or state, 11 for a file that is not a record file or is
// inconsistent, 23 for a data checksum that does not match, 25 for a bad
// record header or a record running past the end of the file, else the
// system's own code) and closes the file; the object must then be Closed
// before it opens or creates another. An object made with the throw flag (the
// default) also throws CFileException* with the cause mapped from that code,
// the code, and the file's full path.
//
// The exception is thrown in the caller's module, never inside the library:
// the library parks it for the calling thread and the inline member below
// throws it (framework/DeferredException.h). Each such member calls the
// library's lower-case counterpart, which reports by its result only; a
// derived class that calls those directly takes the parked exception itself
// with TqmTakeDeferredException.
//
// The record file's logic works on bytes (datafiles/logic/RecordFileCore.h);
// this class gives it the file. Each writing call writes its bytes to the
// file before it returns (WriteRec its header and data at once), so a writer
// that ends without Close - a crash, a kill - leaves every record it
// finished, and a write the disk refuses fails the call that made it.
//
// An object is used by one thread. The file is opened without sharing.
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/DeferredException.h"
#include "framework/Export.h"

struct CRecFileAccess;
namespace tqm {
class RecordFileCore;
}

// A typed, checksummed record file, written and read one record after the other.
class TQM_CLASS CRecFile
{
public:
    // The header in front of every record's data.
    struct tagRECHDR
    {
        DWORD dwMagic;       // "****"
        DWORD dwRecType;     // the caller's record type; 0 is the descriptor
        DWORD dwRecParam;    // a second value of the caller's; the descriptor stores 1
        DWORD dwDataLength;  // data bytes after the header
        DWORD dwChecksum;    // of the data only
    };

    // Construction
    CRecFile(BOOL bThrow = TRUE);
    // Closes a file still open, without checking anything.
    virtual ~CRecFile();
    CRecFile(const CRecFile&) = delete;
    CRecFile& operator=(const CRecFile&) = delete;

    // Operations on the file
    // Creates (or truncates) the file and writes the magic and the descriptor.
    // The description must be at most 1024 characters.
    BOOL Create(const char* pszPath, DWORD dwFileType, DWORD dwVersion, const char* pszDesc)
    {
        return TqmResultOrThrow(create(pszPath, dwFileType, dwVersion, pszDesc));
    }
    // Opens an existing file and checks its head and descriptor; dwFileType
    // 0xFFFFFFFF accepts any type. With bWrite, records are appended.
    BOOL Open(const char* pszPath, DWORD dwFileType, BOOL bWrite = FALSE)
    {
        return TqmResultOrThrow(open(pszPath, dwFileType, bWrite));
    }
    // FALSE when nothing was open or closing failed.
    BOOL Close() { return TqmResultOrThrow(close()); }
    // Reads every record of the file and checks its checksum; a failure is
    // shown in a "Verify Failed" box. Always TRUE; never throws.
    BOOL Verify(const char* pszPath, DWORD dwFileType);
    // Does nothing; FALSE.
    BOOL Dump(const char* pszPath, const char* pszOut);

    // Attributes of the open file. Without one, the out value is 0xFFFFFFFF
    // (or "") and the call fails as any call in the wrong state does.
    BOOL GetFileType(DWORD& dwType) { return TqmResultOrThrow(getFileType(dwType)); }
    BOOL GetVersion(DWORD& dwVersion) { return TqmResultOrThrow(getVersion(dwVersion)); }
    BOOL GetCreationTime(SYSTEMTIME* pTime) { return TqmResultOrThrow(getCreationTime(pTime)); }
    // As "DD/MM/YYYY hh:mm:ss".
    BOOL GetCreationTime(CString& str) { return TqmResultOrThrow(getCreationTime(str)); }
    // NULL when no file is open.
    const char* GetDesc();

    // Positioning for reading
    // Moves to the next record of that type (0xFFFFFFFF: of any type). FALSE
    // at the end of the file.
    BOOL FindNextRec(DWORD dwRecType) { return TqmResultOrThrow(findNextRec(dwRecType)); }
    // Back to the descriptor record, which the next FindNextRec finds first.
    // In any mode; without a file the system's code of the failed move.
    BOOL Rewind() { return TqmResultOrThrow(rewind()); }
    // Moves to the record whose header starts at dwPos and reads the header.
    BOOL SeekToRecord(DWORD dwPos) { return TqmResultOrThrow(seekToRecord(dwPos)); }
    // The current record's header, or NULL when there is none.
    tagRECHDR* GetRecHdr();
    // The current record's type, or 0xFFFFFFFF.
    DWORD GetRecType();

    // Reading the current record's data
    // The whole data; dwSize must be the record's data length.
    BOOL ReadRec(void* pData, DWORD dwSize) { return TqmResultOrThrow(readRec(pData, dwSize)); }
    // Starts reading; copies the header to pHdr when it is not NULL.
    BOOL ReadRecBegin(tagRECHDR* pHdr) { return TqmResultOrThrow(readRecBegin(pHdr)); }
    // The next dwSize bytes of the data.
    BOOL ReadRecData(void* pData, DWORD dwSize) { return TqmResultOrThrow(readRecData(pData, dwSize)); }
    // After all the data: checks the checksum.
    BOOL ReadRecEnd() { return TqmResultOrThrow(readRecEnd()); }

    // Writing records
    BOOL WriteRec(DWORD dwRecType, DWORD dwRecParam, DWORD dwSize, const void* pData)
    {
        return TqmResultOrThrow(writeRec(dwRecType, dwRecParam, dwSize, pData));
    }
    BOOL WriteRecBegin(DWORD dwRecType, DWORD dwRecParam)
    {
        return TqmResultOrThrow(writeRecBegin(dwRecType, dwRecParam));
    }
    BOOL WriteRecData(const void* pData, DWORD dwSize) { return TqmResultOrThrow(writeRecData(pData, dwSize)); }
    // Puts the data length and checksum into the record's header.
    BOOL WriteRecEnd() { return TqmResultOrThrow(writeRecEnd()); }
    // The offset at which the next record will be written (for SeekToRecord
    // when the file is read), or 0xFFFFFFFF.
    DWORD GetRecFilePointer() { return TqmResultOrThrow(getRecFilePointer()); }

protected:
    // The library's side of the operations above: the same work and results,
    // with the exception (when the throw flag asks for one) parked instead
    // of thrown.
    BOOL create(const char* pszPath, DWORD dwFileType, DWORD dwVersion, const char* pszDesc);
    BOOL open(const char* pszPath, DWORD dwFileType, BOOL bWrite);
    BOOL close();
    BOOL findNextRec(DWORD dwRecType);
    BOOL rewind();
    BOOL seekToRecord(DWORD dwPos);
    BOOL readRec(void* pData, DWORD dwSize);
    BOOL readRecBegin(tagRECHDR* pHdr);
    BOOL readRecData(void* pData, DWORD dwSize);
    BOOL readRecEnd();
    BOOL writeRec(DWORD dwRecType, DWORD dwRecParam, DWORD dwSize, const void* pData);
    BOOL writeRecBegin(DWORD dwRecType, DWORD dwRecParam);
    BOOL writeRecData(const void* pData, DWORD dwSize);
    BOOL writeRecEnd();
    DWORD getRecFilePointer();
    BOOL getFileType(DWORD& dwType);
    BOOL getVersion(DWORD& dwVersion);
    BOOL getCreationTime(SYSTEMTIME* pTime);
    BOOL getCreationTime(CString& str);

    // Implementation
    // Empties the object: no file, type and version unknown, no position.
    void clearData();
    // Forgets the current record: no position, no header.
    void resetSeek();
    // Reports a failure (see above); 0xFFFFFFFF keeps the system's last
    // error. Always FALSE.
    BOOL error(DWORD dwError);
    BOOL isOpen() const;
    BOOL isReading() const;
    BOOL isWriting() const;
    // The running checksum after the bytes, in the scheme of the file's type.
    DWORD checksum(DWORD dwSum, const void* p, UINT n) const;
    // Makes m_strPath the absolute name of pszPath.
    BOOL getFullPath(const char* pszPath);
    // Moves to an offset (FILE_BEGIN) or from the end (FILE_END), at a record boundary.
    BOOL seek(DWORD dwPos, DWORD dwMethod);

    BOOL m_bThrow;              // throw a file exception on every failure
    HANDLE m_hFile;             // INVALID_HANDLE_VALUE when closed
    CString m_strPath;          // full path name
    int m_nMode;                // 0 none, 1 reading, 2 writing
    int m_nRecState;            // 0 no position, 1 at a record boundary, 2 header read or
                                // written, 3 data partly read, 4 data completely read
    DWORD m_dwFirstRecPos;      // offset of the descriptor record
    DWORD m_dwNextRecPos;       // offset of the record after the current one
    DWORD m_dwFileSize;
    tagRECHDR m_RecHdr;         // header of the current record
    DWORD m_dwFileType;         // 0xFFFFFFFF when unknown
    DWORD m_dwVersion;          // 0xFFFFFFFF when unknown
    SYSTEMTIME m_CreationTime;
    CString m_strDesc;
    DWORD m_dwRunningSum;       // checksum of the current record's data so far
    DWORD m_dwDataDone;         // data bytes transferred in the current record
    DWORD m_dwRecStartPos;      // offset of the record being written, 0xFFFFFFFF when none
    // These members are the object's state: a derived class may read and
    // change them between calls, and the next call works from them.

private:
    BOOL attachFile(HANDLE hFile);
    BOOL releaseFile();
    // The record file's logic, set to the members' values for one step; NULL
    // when no file is open. mirror() takes its state back into the members.
    tqm::RecordFileCore* core();
    void mirror();
    // TRUE for code 0, else the failure reported; at the end of the records
    // FALSE, a failure only when the thread's last-error code is set.
    BOOL outcome(DWORD dwCode);

    CRecFileAccess* m_pAccess;  // the file's logic and its store while it is open
};
