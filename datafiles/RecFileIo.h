// RecFileIo - buffered access to the file behind a CRecFile.
//
// Record files are read in small pieces (20-byte headers, data of a few
// dozen bytes) and written the same way, a system call each would dominate
// the work. So the object keeps one buffer:
// - reading, it holds a window of the file: stepping from record to record
//   costs no system call until the window is used up;
// - writing, it gathers the bytes appended since the last flush and writes
//   them when the buffer is full, before any read or move, and when the file
//   is closed. A record's header stays in memory until its length and
//   checksum are known, unless the record is larger than the buffer.
// Reads and writes name their offsets (the system's file pointer plays no
// part); under Wine such a write costs as much as a dozen plain ones, so the
// writes are few and large.
// Positions are file offsets below 4 GiB, as record files use them. A
// failure returns false with the system's code as the thread's last error.
#pragma once

#include <windows.h>

#include <memory>

namespace tqm {

class RecFileIo
{
public:
    static constexpr DWORD kBufferSize = 64 * 1024;

    // Starts at offset 0 of the file. NULL when there is no memory for the
    // buffer. The handle stays the caller's.
    static RecFileIo* Attach(HANDLE hFile);

    RecFileIo(const RecFileIo&) = delete;
    RecFileIo& operator=(const RecFileIo&) = delete;

    // The offset of the next read or write.
    DWORD position() const { return m_pos; }
    // Moves the position (writing out pending bytes first).
    bool seek(DWORD pos);
    // Moves the position to the end of the file plus the (signed) distance.
    bool seekFromEnd(LONG distance);

    // Reads up to n bytes; *pDone tells how many arrived (fewer only at the
    // end of the file). False when the system failed.
    bool read(void* p, DWORD n, DWORD* pDone);
    // Writes n bytes at the position (gathered; see flush).
    bool write(const void* p, DWORD n);
    // Puts the gathered bytes on disk.
    bool flush();
    // Forgets the gathered bytes without writing them.
    void discard();

    // The gathered bytes at [pos, pos + n) when all of them are still in the
    // buffer, where they may be changed before they are written; else NULL.
    BYTE* pendingBytes(DWORD pos, DWORD n);

private:
    explicit RecFileIo(HANDLE hFile, std::unique_ptr<BYTE[]> buffer);

    bool readAt(ULONGLONG pos, void* p, DWORD n, DWORD* pDone);
    bool writeAt(ULONGLONG pos, const void* p, DWORD n);
    bool inWindow(DWORD pos) const;

    HANDLE m_hFile;
    std::unique_ptr<BYTE[]> m_buffer;
    DWORD m_pos = 0;            // the position for the next read or write
    DWORD m_bufStart = 0;       // file offset of m_buffer[0]
    DWORD m_bufLength = 0;      // bytes in the buffer
    bool m_pending = false;     // the buffer holds bytes to write, not a read window
};

}  // namespace tqm
