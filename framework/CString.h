// CString - the framework's single-byte string.
//
// Behaves like the MFC string class for the members this library and the
// suite's programs use. Text is 8-bit in the system code page.
//
// Layout: one pointer to the characters; a small header (length, capacity)
// sits in front of them in the same heap block. The empty string is a shared
// static header with capacity 0, which is never freed. Because each module
// that links the framework has its own copy of that header, "is this the
// empty string" is decided by the capacity, never by address, so a string
// made in one module can be released in another. All blocks come from the C
// runtime's malloc, which every module of the process shares.
#pragma once

#include <windows.h>
#include <stdarg.h>
#include <stddef.h>

// A single-byte string in the system code page, as MFC's CString.
class CString
{
public:
    // Construction
    CString() noexcept;
    CString(const CString& src);
    CString(CString&& src) noexcept;
    CString(const char* psz);                 // NULL gives the empty string
    CString(const char* pch, int nLength);    // exactly nLength characters (NULs included)
    CString(char ch, int nRepeat = 1);
    ~CString();

    CString& operator=(const CString& src);
    CString& operator=(CString&& src) noexcept;
    CString& operator=(const char* psz);
    CString& operator=(char ch);

    // Attributes
    int GetLength() const noexcept { return header()->nDataLength; }
    bool IsEmpty() const noexcept { return GetLength() == 0; }
    void Empty() noexcept;
    const char* GetString() const noexcept { return m_pszData; }
    operator const char*() const noexcept { return m_pszData; }
    char GetAt(int nIndex) const;             // index must be within 0..length-1
    void SetAt(int nIndex, char ch);
    char operator[](int nIndex) const { return GetAt(nIndex); }

    // Buffer access
    char* GetBuffer();                         // current length
    char* GetBuffer(int nMinBufLength);        // room for at least nMinBufLength characters
    char* GetBufferSetLength(int nNewLength);
    void ReleaseBuffer(int nNewLength = -1);   // -1: take the length from the NUL
    void Preallocate(int nLength);

    // Concatenation
    CString& operator+=(const CString& str);
    CString& operator+=(const char* psz);
    CString& operator+=(char ch);
    void Append(const char* pch, int nLength);
    void AppendChar(char ch) { *this += ch; }

    // Formatting in printf style
    void Format(const char* pszFormat, ...);
    void FormatV(const char* pszFormat, va_list args);
    void AppendFormat(const char* pszFormat, ...);
    void AppendFormatV(const char* pszFormat, va_list args);

    // Comparison: Compare is strcmp, CompareNoCase is lstrcmpiA (the system's
    // case rules for the current code page).
    int Compare(const char* psz) const;
    int CompareNoCase(const char* psz) const;

    // Extraction
    CString Left(int nCount) const;
    CString Mid(int nFirst) const;
    CString Mid(int nFirst, int nCount) const;
    CString Right(int nCount) const;
    CString SpanIncluding(const char* pszCharSet) const;
    CString SpanExcluding(const char* pszCharSet) const;

    // Searching: results are indexes, -1 when not found
    int Find(char ch, int nStart = 0) const;
    int Find(const char* pszSub, int nStart = 0) const;
    int ReverseFind(char ch) const;
    int FindOneOf(const char* pszCharSet) const;

    // Modification
    CString& Trim();                          // blanks are isspace() characters
    CString& Trim(char chTarget);
    CString& Trim(const char* pszTargets);
    CString& TrimLeft();
    CString& TrimLeft(char chTarget);
    CString& TrimLeft(const char* pszTargets);
    CString& TrimRight();
    CString& TrimRight(char chTarget);
    CString& TrimRight(const char* pszTargets);
    CString& MakeUpper();                     // CharUpperBuffA: the system code page's rules
    CString& MakeLower();
    CString& MakeReverse();
    int Replace(char chOld, char chNew);
    int Replace(const char* pszOld, const char* pszNew);
    int Remove(char ch);
    int Insert(int nIndex, char ch);
    int Insert(int nIndex, const char* psz);
    int Delete(int nIndex, int nCount = 1);
    void Truncate(int nNewLength);

    // Resources
    BOOL LoadString(HINSTANCE hInstance, UINT nID);

private:
    struct Header
    {
        int nDataLength;
        int nAllocLength;  // 0 only for the shared empty string
    };

    Header* header() const noexcept { return reinterpret_cast<Header*>(m_pszData) - 1; }
    static char* emptyData() noexcept;
    static void release(char* pszData) noexcept;
    void reserve(int nLength, bool bKeep);    // capacity for nLength characters + NUL
    void setLength(int nLength);              // writes the NUL
    void assign(const char* pch, int nLength);

    char* m_pszData;
};

// Concatenation: a new string of both operands.
CString operator+(const CString& a, const CString& b);
CString operator+(const CString& a, const char* b);
CString operator+(const char* a, const CString& b);
CString operator+(const CString& a, char b);
CString operator+(char a, const CString& b);

// Comparison (case-sensitive, like strcmp)
inline bool operator==(const CString& a, const CString& b) { return a.Compare(b) == 0; }
inline bool operator==(const CString& a, const char* b) { return a.Compare(b) == 0; }
inline bool operator==(const char* a, const CString& b) { return b.Compare(a) == 0; }
inline bool operator!=(const CString& a, const CString& b) { return a.Compare(b) != 0; }
inline bool operator!=(const CString& a, const char* b) { return a.Compare(b) != 0; }
inline bool operator!=(const char* a, const CString& b) { return b.Compare(a) != 0; }
inline bool operator<(const CString& a, const CString& b) { return a.Compare(b) < 0; }
inline bool operator<(const CString& a, const char* b) { return a.Compare(b) < 0; }
inline bool operator>(const CString& a, const CString& b) { return a.Compare(b) > 0; }
inline bool operator>(const CString& a, const char* b) { return a.Compare(b) > 0; }
inline bool operator<=(const CString& a, const CString& b) { return a.Compare(b) <= 0; }
inline bool operator>=(const CString& a, const CString& b) { return a.Compare(b) >= 0; }
