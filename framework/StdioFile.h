// CStdioFile - the framework's buffered text file.
//
// Text mode follows the C runtime's rules, which the suite's files were
// written with: on reading, CR LF arrives as LF, a CR on its own stays, and a
// Ctrl+Z (0x1A) ends the file; on writing, every LF goes out as CR LF.
// Binary mode passes bytes through unchanged.
//
// Failures while reading, writing or closing throw CFileException* with the
// system's error code and the file name; Open reports through its pError
// argument instead. Abort closes without writing and without throwing.
#pragma once

#include "framework/CString.h"
#include "framework/Exceptions.h"
#include "framework/Handles.h"

#include <stddef.h>

#include <vector>

class CStdioFile
{
public:
    enum OpenFlags
    {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        // Ours: others may also rename or replace the file while it is open
        // (a reader that must not stop a document being saved over it).
        shareAllowDelete = 0x0100,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000,
        typeText = 0x4000,
        typeBinary = 0x8000
    };

    CStdioFile() = default;
    CStdioFile(const CStdioFile&) = delete;
    CStdioFile& operator=(const CStdioFile&) = delete;
    // Writes what is still buffered, as closing would, but never throws: a
    // caller that must know whether the data arrived calls Close().
    ~CStdioFile();

    // Opens the file; on failure fills *pError (when given) and returns FALSE.
    BOOL Open(const char* pszFileName, UINT nOpenFlags, CFileException* pError = nullptr);
    // Writes what is buffered and closes; throws when either fails.
    void Close();
    // Closes without writing buffered data and without throwing.
    void Abort() noexcept;
    bool IsOpen() const { return m_file.valid(); }
    const CString& GetFilePath() const { return m_strPath; }

    // Reads up to nMax - 1 characters, stopping after a line feed, which is
    // kept. Returns pszBuf, or NULL at the end of the file.
    char* ReadString(char* pszBuf, UINT nMax);
    // Reads one whole line without its line feed; FALSE at the end of the file.
    BOOL ReadString(CString& str);

    void WriteString(const char* psz);
    void Write(const void* pData, UINT nCount);
    void Flush();

private:
    size_t readLine(char* pszBuf, size_t nLimit);  // characters stored, no NUL added
    bool fill();                  // more bytes into the read buffer; false at the end
    int readChar();               // next character after translation, -1 at the end
    void flushWrites();
    [[noreturn]] void throwLastError();

    tqm::UniqueFile m_file;
    CString m_strPath;
    bool m_bText = true;
    bool m_bEof = false;          // the file has no more bytes (or a Ctrl+Z was seen)
    std::vector<char> m_in;       // read buffer: bytes [m_nPos, m_nEnd) are unread
    size_t m_nPos = 0;
    size_t m_nEnd = 0;
    std::vector<char> m_out;      // write buffer
};
