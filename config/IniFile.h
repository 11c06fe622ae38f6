// CTQMIniFile - the library's INI document.
//
// A document is a list of sections, each a list of name=value entries, read
// from a sectioned text file, edited, queried and written back:
//
//     ; the comment block at the head of the file is kept
//     [Library]
//     Name = Motion
//     Version=2.1.0
//
// Sections and entries keep their file order. Names compare without regard
// to case (byte by byte, with the system code page's upper-casing). Only the
// comment block at the head of the file is kept; other comments are dropped
// on reading. A repeated header makes a second section of the same name, and
// lookups by name find the first; within a section a later entry of a name
// replaces the earlier one in its place.
//
// The getters return pointers into the document. They stay valid until that
// entry or section is changed or removed, or the document is cleared or read
// again. Every lookup moves the selection cursor (the m_nCur... members), so
// one object is used by one thread at a time.
//
// The members taking an index test only the upper bound: an index past the
// end, or any index while there is nothing to index (no section list, no
// selected section), is "not found"; a negative one that reaches an array is
// the caller's error and throws CInvalidArgException*. The exception is
// thrown in the caller's module, by the inline code here.
#pragma once

#include "framework/CString.h"
#include "framework/Collections.h"
#include "framework/DeferredException.h"
#include "framework/Export.h"

struct CTQMIniFileStorage;

// An INI document: sections of name=value entries, read, edited and written back.
class TQM_CLASS CTQMIniFile
{
public:
    // Construction -------------------------------------------------------
    // An empty document; GetErrLine() is -1.
    CTQMIniFile();
    // Copies are deep: each document owns its sections and entries, so either
    // may be changed or destroyed alone. A copy starts with nothing selected.
    // Running out of memory throws CMemoryException*.
    CTQMIniFile(const CTQMIniFile& src) : CTQMIniFile() { copyOrThrow(src); }
    CTQMIniFile& operator=(const CTQMIniFile& src)
    {
        if (this != &src)
            copyOrThrow(src);
        return *this;
    }
    ~CTQMIniFile();

    // The whole document -------------------------------------------------
    // Empties the document: no comment, no sections, line counter -1.
    void RemoveAll();
    // Replaces the document with the file's contents. 0 when the file cannot
    // be opened or a line is malformed (GetErrLine tells which); what was read
    // before that line stays in the document.
    int Read(const char* pszPath);
    // Writes the document to the file; 0 on failure. The file is replaced only
    // once the new contents are completely written: on any failure it stays
    // as it was and no partial file is left behind.
    int Write(const char* pszPath);
    // Sets the comment written at the head of the file: it must begin with "#"
    // or ";" and end with a line feed, else 0 and the comment is kept. NULL or
    // "" clears the comment and still returns 0.
    int SetFileComment(const char* pszText);
    // The comment, each line with its line feed; "" when there is none.
    const char* GetFileComment() const;
    // After a failed Read the zero-based number of the line that stopped it
    // (-1 when the file could not be opened); after a successful one the
    // number of lines read - 1.
    int GetErrLine() const;

    // Values -------------------------------------------------------------
    // The value, or pszDefault itself (the same pointer) when the section or
    // the entry is missing. The forms without a default give "".
    const char* GetEntryValue(const char* pszSection, const char* pszEntry);
    const char* GetEntryValue(const char* pszSection, const char* pszEntry, const char* pszDefault);
    const char* GetEntryValue(int nSection, int nEntry) { return GetEntryValue(nSection, nEntry, ""); }
    const char* GetEntryValue(int nSection, int nEntry, const char* pszDefault)
    {
        return TqmResultOrThrow(entryValueAt(nSection, nEntry, pszDefault));
    }
    const char* GetEntryValue(int nSection, const char* pszEntry)
    {
        return TqmResultOrThrow(entryValueIn(nSection, pszEntry));
    }
    // Adds or replaces an entry, adding the section when it is missing. 0 when
    // the section name holds one of = [ ] CR LF, or the entry name one of
    // = CR LF. The value is stored as it is. An entry whose name and value
    // together exceed 3072 characters is not stored (an entry it would
    // replace keeps its old value), and the result is still 1. A NULL entry
    // name only makes sure the section exists.
    int SetEntryValue(const char* pszSection, const char* pszEntry, const char* pszValue);
    // Removes the first section of the name with its entries; 0 when missing.
    int RemoveSection(const char* pszSection);
    // Removes the entry; 0 when the section or the entry is missing.
    int RemoveEntry(const char* pszSection, const char* pszEntry);

    // Structure ----------------------------------------------------------
    int GetNumSections() const;
    // 0 when the section is missing.
    int GetNumEntries(const char* pszSection);
    int GetNumEntries(int nSection) { return TqmResultOrThrow(numEntriesAt(nSection)); }
    // "" when an index is out of range.
    const char* GetSectionName(int nSection) { return TqmResultOrThrow(sectionNameAt(nSection)); }
    const char* GetEntryName(int nSection, int nEntry) { return TqmResultOrThrow(entryNameAt(nSection, nEntry)); }
    // -1 when the section (or the entry) is missing.
    int GetSectionIndex(const char* pszSection);
    int GetEntryIndex(int nSection, const char* pszEntry)
    {
        return TqmResultOrThrow(entryIndexIn(nSection, pszEntry));
    }
    int GetEntryIndex(const char* pszSection, const char* pszEntry);

protected:
    // Implementation, for classes built on this one --------------------
    // The first character from p that is NUL or not blank. A byte is blank
    // when its value as a signed 8-bit number is at most 32, so bytes 128 to
    // 255 count as blanks too (deliberate: stored names rely on it).
    static char* skipwhite(char* p);
    // Cuts the blanks at the end of [start, end); 1 when something is left,
    // 0 (start cut to "") when not.
    static int trimwhite(char* start, char* end);
    // Select the first section of the name / the section at the index; 1 / 0.
    int findSection(const char* pszName);
    int findSection(int nIndex) { return TqmResultOrThrow(selectSectionAt(nIndex)); }
    // Select an entry of the selected section by name / by index; 1 / 0.
    int findEntry(const char* pszName);
    int findEntry(int nIndex) { return TqmResultOrThrow(selectEntryAt(nIndex)); }
    // Appends a section (whatever its name) and selects it.
    void addSection(const char* pszName);
    // Adds or replaces an entry of the selected section and selects it.
    void addEntry(const char* pszName, const char* pszValue);

    // Data: programs built against the class rely on these members and their order.
    CString m_strFileComment;      // the head comment, each line with its line feed
    CPtrArray* m_pSections;        // section records in file order; NULL until the first Read or section
    int m_nLine;                   // lines taken by Read - 1; -1 when empty
    int m_nCurSection;             // selection cursor: section index,
    char* m_pCurSection;           //   its record,
    CPtrArray* m_pCurEntries;      //   its entry records (NULL in Read before the first header),
    char* m_pszCurSection;         //   its name;
    int m_nCurEntry;               //   entry index,
    char* m_pCurEntry;             //   its record,
    int m_nCurEntryNameLen;        //   its name's length + 1,
    char* m_pszCurEntry;           //   its name,
    char* m_pszCurValue;           //   its value
    BOOL m_bTolerant;              // Read skips malformed lines instead of failing; never set by this class

    // Each record is one block from new[], owned by the document and freed
    // with delete[]. A section record is the pointer to its own entry array
    // (a CPtrArray from new, owned by the section) followed by the
    // NUL-terminated name. An entry record is a 16-bit count (name length +
    // 1), the NUL-terminated name, then the NUL-terminated value. A derived
    // class may make, free and reorder records in the arrays itself: lookups
    // by name walk the arrays as they are.

private:
    // Kept here after the members above (their layout is unchanged): what
    // Read needs while it fills a section.
    CTQMIniFileStorage* m_pStorage;

    // The index forms; a negative index that reaches an array parks the
    // exception the inline code above throws.
    int selectSectionAt(int nIndex);
    int selectEntryAt(int nIndex);
    const char* entryValueAt(int nSection, int nEntry, const char* pszDefault);
    const char* entryValueIn(int nSection, const char* pszEntry);
    int numEntriesAt(int nSection);
    const char* sectionNameAt(int nSection);
    const char* entryNameAt(int nSection, int nEntry);
    int entryIndexIn(int nSection, const char* pszEntry);
    // Parks CInvalidArgException for the inline caller; 0.
    int refuseIndex();

    CTQMIniFileStorage& storage();
    void resetCursor();
    int positionOfSection(const char* pszName);
    int positionOfEntry(const char* pszName);
    void appendSection(const char* pszName);
    void storeEntry(const char* pszName, const char* pszValue);
    int putEntry(int nFound, const char* pszName, const char* pszValue);
    void storeReadEntry(const char* pszName, const char* pszValue);
    void finishReadSection();
    int readText(const char* pData, size_t nSize);

    // Deep copy; FALSE with a parked exception when memory ran out.
    BOOL copyFrom(const CTQMIniFile& src);
    void copyOrThrow(const CTQMIniFile& src)
    {
        if (!copyFrom(src))
            TqmThrowDeferred();
    }
};
