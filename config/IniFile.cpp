// CTQMIniFile - implementation.
//
// Nothing thrown inside leaves an exported member: a file error or running
// out of memory makes the operation fail (0, or nothing stored), and a copy
// that runs out of memory parks the exception for the inline wrapper.
#include "config/IniFile.h"

#include "config/FileReplacement.h"
#include "config/IniSystemFold.h"
#include "config/logic/IniLineGrammar.h"
#include "config/logic/IniNameIndex.h"
#include "framework/StdioFile.h"

#include <stdint.h>
#include <string.h>

#include <memory>
#include <new>
#include <unordered_map>

using tqm::ini::NamePositionIndex;
using tqm::ini::SystemNameFold;

struct CTQMIniFileNameIndexes
{
    NamePositionIndex sections;
    // Only sections with many entries have one, keyed by their record.
    std::unordered_map<const void*, NamePositionIndex> entries;
};

namespace {

// Shorter arrays are walked; from this size on a name is found by its hash.
const int kIndexFrom = 16;

// --- Records ----------------------------------------------------------------

CPtrArray*& entriesOf(void* pRec) { return *static_cast<CPtrArray**>(pRec); }
char* sectionNameOf(void* pRec) { return static_cast<char*>(pRec) + sizeof(CPtrArray*); }

unsigned entryNameSize(const void* pRec)
{
    uint16_t nSize;
    memcpy(&nSize, pRec, sizeof(nSize));
    return nSize;
}
char* entryNameOf(void* pRec) { return static_cast<char*>(pRec) + sizeof(uint16_t); }
char* entryValueOf(void* pRec) { return entryNameOf(pRec) + entryNameSize(pRec); }

struct RecordDeleter
{
    void operator()(char* p) const { delete[] p; }
};
using RecordPtr = std::unique_ptr<char, RecordDeleter>;

RecordPtr newSectionRecord(const char* pszName)
{
    size_t nName = strlen(pszName);
    std::unique_ptr<CPtrArray> entries(new CPtrArray);
    RecordPtr rec(new char[sizeof(CPtrArray*) + nName + 1]);
    memcpy(sectionNameOf(rec.get()), pszName, nName + 1);
    entriesOf(rec.get()) = entries.release();
    return rec;
}

// The caller has checked that the name fits the 16-bit count.
RecordPtr newEntryRecord(const char* pszName, size_t nName, const char* pszValue, size_t nValue)
{
    RecordPtr rec(new char[sizeof(uint16_t) + nName + 1 + nValue + 1]);
    uint16_t nSize = static_cast<uint16_t>(nName + 1);
    memcpy(rec.get(), &nSize, sizeof(nSize));
    memcpy(entryNameOf(rec.get()), pszName, nName);
    entryNameOf(rec.get())[nName] = '\0';
    memcpy(entryValueOf(rec.get()), pszValue, nValue);
    entryValueOf(rec.get())[nValue] = '\0';
    return rec;
}

void freeSectionRecord(void* pRec)
{
    CPtrArray* pEntries = entriesOf(pRec);
    for (int i = 0; i < pEntries->GetSize(); ++i)
        delete[] static_cast<char*>(pEntries->GetAt(i));
    delete pEntries;
    delete[] static_cast<char*>(pRec);
}

// Adds a record to an array without losing it if the array cannot grow.
int appendRecord(CPtrArray& array, RecordPtr rec)
{
    int n = array.Add(rec.get());
    rec.release();
    return n;
}

// --- Lookups by name ---------------------------------------------------------

// Brings an index up to the array's size (appends are indexed lazily).
template <typename NameOf>
void syncIndex(NamePositionIndex& index, const CPtrArray& array, NameOf nameOf)
{
    if (index.Count() > array.GetSize())
        index.Clear();
    const tqm::ini::NameFold& fold = SystemNameFold();
    for (int i = index.Count(); i < array.GetSize(); ++i)
        index.Append(fold.Hash(nameOf(array.GetData()[i])));
}

const char* sectionNameAtRecord(void* pRec) { return sectionNameOf(pRec); }
const char* entryNameAtRecord(void* pRec) { return entryNameOf(pRec); }

// Runs an operation whose only failure is an exception; the failure becomes
// the given result.
template <typename Result, typename Operation>
Result failSafe(Result failure, Operation operation)
{
    try {
        return operation();
    } catch (CException* e) {
        e->Delete();
    } catch (const std::bad_alloc&) {
    }
    return failure;
}

}  // namespace

// --- Construction ------------------------------------------------------------

CTQMIniFile::CTQMIniFile()
    : m_pSections(nullptr),
      m_nLine(-1),
      m_nCurSection(0),
      m_pCurSection(nullptr),
      m_pCurEntries(nullptr),
      m_pszCurSection(nullptr),
      m_nCurEntry(0),
      m_pCurEntry(nullptr),
      m_nCurEntryNameLen(0),
      m_pszCurEntry(nullptr),
      m_pszCurValue(nullptr),
      m_bTolerant(FALSE),
      m_pNameIndexes(nullptr)
{
}

CTQMIniFile::~CTQMIniFile()
{
    RemoveAll();
    delete m_pNameIndexes;
}

BOOL CTQMIniFile::copyFrom(const CTQMIniFile& src)
{
    RemoveAll();
    try {
        m_strFileComment = src.m_strFileComment;
        if (src.m_pSections) {
            m_pSections = new CPtrArray;
            for (int s = 0; s < src.m_pSections->GetSize(); ++s) {
                void* pSrcSection = src.m_pSections->GetAt(s);
                appendSection(sectionNameOf(pSrcSection));
                const CPtrArray& srcEntries = *entriesOf(pSrcSection);
                for (int e = 0; e < srcEntries.GetSize(); ++e) {
                    void* pSrcEntry = srcEntries.GetAt(e);
                    const char* pszValue = entryValueOf(pSrcEntry);
                    appendRecord(*m_pCurEntries, newEntryRecord(entryNameOf(pSrcEntry), entryNameSize(pSrcEntry) - 1,
                                                                pszValue, strlen(pszValue)));
                }
            }
        }
        m_nLine = src.m_nLine;
        m_bTolerant = src.m_bTolerant;
        resetCursor();
        return TRUE;
    } catch (CException* e) {
        RemoveAll();
        tqm::DeferException(e);
    } catch (const std::bad_alloc&) {
        RemoveAll();
        tqm::DeferException(new CMemoryException);
    }
    return FALSE;
}

void CTQMIniFile::RemoveAll()
{
    m_strFileComment.Empty();
    m_nLine = -1;
    if (m_pSections) {
        for (int i = 0; i < m_pSections->GetSize(); ++i)
            freeSectionRecord(m_pSections->GetAt(i));
        delete m_pSections;
        m_pSections = nullptr;
    }
    delete m_pNameIndexes;
    m_pNameIndexes = nullptr;
    resetCursor();
}

void CTQMIniFile::resetCursor()
{
    m_nCurSection = 0;
    m_pCurSection = nullptr;
    m_pCurEntries = nullptr;
    m_pszCurSection = nullptr;
    m_nCurEntry = 0;
    m_pCurEntry = nullptr;
    m_nCurEntryNameLen = 0;
    m_pszCurEntry = nullptr;
    m_pszCurValue = nullptr;
}

// --- Reading -----------------------------------------------------------------

int CTQMIniFile::Read(const char* pszPath)
{
    RemoveAll();
    if (!pszPath)
        return 0;
    CStdioFile file;
    if (!file.Open(pszPath, CStdioFile::modeRead | CStdioFile::typeText))
        return 0;
    return failSafe(0, [&] {
        m_pSections = new CPtrArray;
        m_pCurEntries = nullptr;
        int nResult = readLines(file);
        file.Close();
        return nResult;
    });
}

int CTQMIniFile::readLines(CStdioFile& file)
{
    using namespace tqm::ini;
    bool bHeadComment = true;
    char line[kLineBufferSize];
    while (file.ReadString(line, sizeof(line))) {
        ++m_nLine;
        char* p = skipwhite(line);
        LineKind kind = ClassifyLine(p, Reader::Document);
        if (kind == LineKind::Comment) {
            if (bHeadComment)
                m_strFileComment += line;  // the raw line, leading blanks and line end included
            continue;
        }
        // The head comment ends at the first other line, an empty one included.
        bHeadComment = false;
        if (kind == LineKind::Empty)
            continue;

        if (kind == LineKind::Header) {
            if (char* pszName = ParseHeaderName(p))
                appendSection(pszName);
            else if (!m_bTolerant)
                return 0;
            continue;
        }

        char* pszName = nullptr;
        char* pszValue = nullptr;
        if (m_pCurEntries && ParseEntryLine(p, &pszName, &pszValue) == EntryParse::Ok)
            storeEntry(pszName, pszValue);
        else if (!m_bTolerant)
            return 0;  // an entry before the first header, without "=", or without a name
    }
    return 1;
}

// --- Writing -----------------------------------------------------------------

int CTQMIniFile::Write(const char* pszPath)
{
    if (!pszPath || !*pszPath)
        return 0;
    return failSafe(0, [&] {
        tqm::FileReplacement target(pszPath);
        if (!target.Begin())
            return 0;
        CStdioFile file;
        if (!file.Open(target.TempPath(), CStdioFile::modeCreate | CStdioFile::modeWrite | CStdioFile::typeText))
            return 0;

        if (!m_strFileComment.IsEmpty()) {
            file.WriteString(m_strFileComment);
            file.WriteString("\n");
        }
        // Each line is formatted by wsprintfA, whose output stops at 1024
        // characters with the NUL: a longer entry line is cut there and loses
        // its line end. The limit is kept deliberately; files written by the
        // suite have always had it.
        char line[1024];
        int nSections = m_pSections ? m_pSections->GetSize() : 0;  // never filled: the comment alone
        for (int s = 0; s < nSections; ++s) {
            void* pSection = m_pSections->GetAt(s);
            wsprintfA(line, "[%s]\n", sectionNameOf(pSection));
            line[sizeof(line) - 1] = '\0';
            file.WriteString(line);
            const CPtrArray& entries = *entriesOf(pSection);
            for (int e = 0; e < entries.GetSize(); ++e) {
                void* pEntry = entries.GetAt(e);
                wsprintfA(line, "%s=%s\n", entryNameOf(pEntry), entryValueOf(pEntry));
                line[sizeof(line) - 1] = '\0';
                file.WriteString(line);
            }
            file.WriteString("\n");
        }
        file.Close();
        return target.Commit() ? 1 : 0;
    });
}

// --- The comment ---------------------------------------------------------------

int CTQMIniFile::SetFileComment(const char* pszText)
{
    if (!pszText || !*pszText) {
        // The comment is cleared, yet the result is 0: callers rely on it.
        m_strFileComment.Empty();
        return 0;
    }
    // "//" is not accepted here although Read keeps such lines; only the first
    // and the last character are looked at.
    if (pszText[0] != '#' && pszText[0] != ';')
        return 0;
    if (pszText[strlen(pszText) - 1] != '\n')
        return 0;
    return failSafe(0, [&] {
        m_strFileComment = pszText;
        return 1;
    });
}

const char* CTQMIniFile::GetFileComment() const { return m_strFileComment; }

int CTQMIniFile::GetErrLine() const { return m_nLine; }

// --- Values ------------------------------------------------------------------

const char* CTQMIniFile::GetEntryValue(const char* pszSection, const char* pszEntry)
{
    return GetEntryValue(pszSection, pszEntry, "");
}

const char* CTQMIniFile::GetEntryValue(const char* pszSection, const char* pszEntry, const char* pszDefault)
{
    if (findSection(pszSection) && findEntry(pszEntry))
        return m_pszCurValue;
    return pszDefault;
}

const char* CTQMIniFile::entryValueAt(int nSection, int nEntry, const char* pszDefault)
{
    if (selectSectionAt(nSection) && selectEntryAt(nEntry))
        return m_pszCurValue;
    return pszDefault;
}

const char* CTQMIniFile::entryValueIn(int nSection, const char* pszEntry)
{
    if (selectSectionAt(nSection) && findEntry(pszEntry))
        return m_pszCurValue;
    return "";
}

int CTQMIniFile::SetEntryValue(const char* pszSection, const char* pszEntry, const char* pszValue)
{
    if (!pszSection || strpbrk(pszSection, "=[]\n\r"))
        return 0;
    if (pszEntry && strpbrk(pszEntry, "=\n\r"))
        return 0;
    return failSafe(0, [&] {
        int nSection = m_pSections ? positionOfSection(pszSection) : -1;
        if (nSection >= 0)
            selectSectionAt(nSection);
        else
            appendSection(pszSection);
        if (pszEntry)
            storeEntry(pszEntry, pszValue ? pszValue : "");
        return 1;
    });
}

int CTQMIniFile::RemoveSection(const char* pszSection)
{
    if (!findSection(pszSection))
        return 0;
    int nSection = m_nCurSection;
    void* pRec = m_pCurSection;
    if (m_pNameIndexes) {
        m_pNameIndexes->sections.Clear();  // the positions behind the gap move
        m_pNameIndexes->entries.erase(pRec);
    }
    m_pSections->RemoveAt(nSection);
    freeSectionRecord(pRec);
    resetCursor();
    return 1;
}

int CTQMIniFile::RemoveEntry(const char* pszSection, const char* pszEntry)
{
    if (!findSection(pszSection) || !findEntry(pszEntry))
        return 0;
    if (m_pNameIndexes)
        m_pNameIndexes->entries.erase(m_pCurSection);
    m_pCurEntries->RemoveAt(m_nCurEntry);
    delete[] m_pCurEntry;
    resetCursor();
    return 1;
}

// --- Structure -----------------------------------------------------------------

int CTQMIniFile::GetNumSections() const { return m_pSections ? m_pSections->GetSize() : 0; }

int CTQMIniFile::GetNumEntries(const char* pszSection)
{
    return findSection(pszSection) ? m_pCurEntries->GetSize() : 0;
}

int CTQMIniFile::numEntriesAt(int nSection) { return selectSectionAt(nSection) ? m_pCurEntries->GetSize() : 0; }

const char* CTQMIniFile::sectionNameAt(int nSection) { return selectSectionAt(nSection) ? m_pszCurSection : ""; }

const char* CTQMIniFile::entryNameAt(int nSection, int nEntry)
{
    return selectSectionAt(nSection) && selectEntryAt(nEntry) ? m_pszCurEntry : "";
}

int CTQMIniFile::GetSectionIndex(const char* pszSection) { return findSection(pszSection) ? m_nCurSection : -1; }

int CTQMIniFile::entryIndexIn(int nSection, const char* pszEntry)
{
    return selectSectionAt(nSection) && findEntry(pszEntry) ? m_nCurEntry : -1;
}

int CTQMIniFile::GetEntryIndex(const char* pszSection, const char* pszEntry)
{
    return findSection(pszSection) && findEntry(pszEntry) ? m_nCurEntry : -1;
}

// --- Protected implementation --------------------------------------------------

char* CTQMIniFile::skipwhite(char* p) { return tqm::ini::SkipBlanks(p); }

int CTQMIniFile::trimwhite(char* start, char* end) { return tqm::ini::TrimBlanks(start, end) ? 1 : 0; }

int CTQMIniFile::findSection(const char* pszName)
{
    if (!pszName || !m_pSections)
        return 0;
    int n = failSafe(-1, [&] { return positionOfSection(pszName); });
    return n >= 0 ? selectSectionAt(n) : 0;
}

int CTQMIniFile::findEntry(const char* pszName)
{
    if (!pszName || !m_pCurEntries)
        return 0;
    int n = failSafe(-1, [&] { return positionOfEntry(pszName); });
    return n >= 0 ? selectEntryAt(n) : 0;
}

int CTQMIniFile::selectSectionAt(int nIndex)
{
    if (!m_pSections || nIndex < 0 || nIndex >= m_pSections->GetSize())
        return 0;
    char* pRec = static_cast<char*>(m_pSections->GetAt(nIndex));
    m_nCurSection = nIndex;
    m_pCurSection = pRec;
    m_pCurEntries = entriesOf(pRec);
    m_pszCurSection = sectionNameOf(pRec);
    return 1;
}

int CTQMIniFile::selectEntryAt(int nIndex)
{
    if (!m_pCurEntries || nIndex < 0 || nIndex >= m_pCurEntries->GetSize())
        return 0;
    char* pRec = static_cast<char*>(m_pCurEntries->GetAt(nIndex));
    m_nCurEntry = nIndex;
    m_pCurEntry = pRec;
    m_nCurEntryNameLen = static_cast<int>(entryNameSize(pRec));
    m_pszCurEntry = entryNameOf(pRec);
    m_pszCurValue = entryValueOf(pRec);
    return 1;
}

void CTQMIniFile::addSection(const char* pszName)
{
    if (pszName)
        failSafe(0, [&] {
            appendSection(pszName);
            return 0;
        });
}

void CTQMIniFile::addEntry(const char* pszName, const char* pszValue)
{
    if (pszName && m_pCurEntries)
        failSafe(0, [&] {
            storeEntry(pszName, pszValue ? pszValue : "");
            return 0;
        });
}

// --- Private helpers (they may throw; the members above catch) ----------------

int CTQMIniFile::positionOfSection(const char* pszName)
{
    const tqm::ini::NameFold& fold = SystemNameFold();
    const CPtrArray& sections = *m_pSections;
    void* const* pRecs = sections.GetData();
    int nCount = sections.GetSize();
    if (nCount < kIndexFrom) {
        for (int i = 0; i < nCount; ++i) {
            if (fold.Equal(sectionNameOf(pRecs[i]), pszName))
                return i;
        }
        return -1;
    }
    if (!m_pNameIndexes)
        m_pNameIndexes = new CTQMIniFileNameIndexes;
    NamePositionIndex& index = m_pNameIndexes->sections;
    syncIndex(index, sections, sectionNameAtRecord);
    return index.FindFirst(fold.Hash(pszName),
                           [&](int n) { return fold.Equal(sectionNameOf(pRecs[n]), pszName); });
}

int CTQMIniFile::positionOfEntry(const char* pszName)
{
    const tqm::ini::NameFold& fold = SystemNameFold();
    const CPtrArray& entries = *m_pCurEntries;
    void* const* pRecs = entries.GetData();
    int nCount = entries.GetSize();
    // Byte-wise folding keeps lengths, so the stored name size rules most out.
    unsigned nSize = static_cast<unsigned>(strlen(pszName)) + 1;
    auto matches = [&](int n) {
        return entryNameSize(pRecs[n]) == nSize && fold.Equal(entryNameOf(pRecs[n]), pszName);
    };
    if (nCount < kIndexFrom) {
        for (int i = 0; i < nCount; ++i) {
            if (matches(i))
                return i;
        }
        return -1;
    }
    if (!m_pNameIndexes)
        m_pNameIndexes = new CTQMIniFileNameIndexes;
    NamePositionIndex& index = m_pNameIndexes->entries[m_pCurSection];
    syncIndex(index, entries, entryNameAtRecord);
    return index.FindFirst(fold.Hash(pszName), matches);
}

void CTQMIniFile::appendSection(const char* pszName)
{
    if (!m_pSections)
        m_pSections = new CPtrArray;
    selectSectionAt(appendRecord(*m_pSections, newSectionRecord(pszName)));
}

void CTQMIniFile::storeEntry(const char* pszName, const char* pszValue)
{
    int nFound = positionOfEntry(pszName);
    if (nFound >= 0)
        selectEntryAt(nFound);
    size_t nName = strlen(pszName);
    size_t nValue = strlen(pszValue);
    // Too long: nothing is stored, and an entry it would replace keeps its value.
    if (nName + nValue > static_cast<size_t>(tqm::ini::kMaxEntryText))
        return;
    if (nFound < 0) {
        selectEntryAt(appendRecord(*m_pCurEntries, newEntryRecord(pszName, nName, pszValue, nValue)));
        return;
    }
    // A replacement keeps its place and the spelling of the name it replaces
    // (key=1 then KEY=2 leaves key=2). The new record is made before the old
    // one goes, as the new value may be a pointer into it.
    char* pOld = m_pCurEntry;
    RecordPtr rec = newEntryRecord(m_pszCurEntry, nName, pszValue, nValue);
    m_pCurEntries->SetAt(nFound, rec.release());
    delete[] pOld;
    selectEntryAt(nFound);
}
