// CTQMIniFile - implementation.
//
// Nothing thrown inside leaves an exported member: a file error or running
// out of memory makes the operation fail (0, or nothing stored), and a copy
// that runs out of memory parks the exception for the inline wrapper.
#include "config/IniFile.h"

#include "framework/FileBytes.h"
#include "config/FileReplacement.h"
#include "config/IniSystemFold.h"
#include "config/logic/IniLineGrammar.h"
#include "config/logic/IniNameIndex.h"
#include "config/logic/IniText.h"

#include <stdint.h>
#include <string.h>

#include <memory>
#include <new>
#include <string>
#include <utility>

using tqm::ini::NamePositionIndex;
using tqm::ini::SystemNameFold;

// What the document keeps beside its documented members: the names of the
// section Read is filling, so that every entry line finds an entry of its
// name it replaces without walking the section. Only Read changes the
// section while it reads, so the index stays true; it is dropped when Read
// ends. Lookups after that walk the arrays, which a derived class may change
// as it likes.
struct CTQMIniFileStorage
{
    NamePositionIndex reading;
};

namespace {

// --- Records ----------------------------------------------------------------
// Every record is one block from new[], owned by the document and freed with
// delete[]; a derived class may do either itself.

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

// Entry arrays make room for this many entries at once: most sections then
// never have to grow theirs.
const int kEntriesAtOnce = 32;

char* newSectionRecord(const char* pszName)
{
    size_t nName = strlen(pszName);
    std::unique_ptr<char[]> pRec(new char[sizeof(CPtrArray*) + nName + 1]);
    memcpy(sectionNameOf(pRec.get()), pszName, nName + 1);
    std::unique_ptr<CPtrArray> pEntries(new CPtrArray);
    pEntries->SetSize(0, kEntriesAtOnce);
    entriesOf(pRec.get()) = pEntries.release();
    return pRec.release();
}

// The caller has checked that the name fits the 16-bit count.
char* newEntryRecord(const char* pszName, size_t nName, const char* pszValue, size_t nValue)
{
    char* pRec = new char[sizeof(uint16_t) + nName + 1 + nValue + 1];
    uint16_t nSize = static_cast<uint16_t>(nName + 1);
    memcpy(pRec, &nSize, sizeof(nSize));
    memcpy(entryNameOf(pRec), pszName, nName);
    entryNameOf(pRec)[nName] = '\0';
    memcpy(entryValueOf(pRec), pszValue, nValue);
    entryValueOf(pRec)[nValue] = '\0';
    return pRec;
}

void freeEntryRecord(void* pRec) { delete[] static_cast<char*>(pRec); }

void freeSectionRecord(void* pRec)
{
    CPtrArray* pEntries = entriesOf(pRec);
    for (int i = 0; i < pEntries->GetSize(); ++i)
        freeEntryRecord(pEntries->GetAt(i));
    delete pEntries;
    delete[] static_cast<char*>(pRec);
}

// Adds a record to an array; if the array cannot grow, the record goes.
int appendEntryRecord(CPtrArray& array, char* pRec)
{
    try {
        return array.Add(pRec);
    } catch (...) {
        freeEntryRecord(pRec);
        throw;
    }
}

// --- Lookups by name ---------------------------------------------------------

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
      m_pStorage(nullptr)
{
}

CTQMIniFile::~CTQMIniFile()
{
    RemoveAll();
    delete m_pStorage;
}

CTQMIniFileStorage& CTQMIniFile::storage()
{
    if (!m_pStorage)
        m_pStorage = new CTQMIniFileStorage;
    return *m_pStorage;
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
                    size_t nValue = strlen(pszValue);
                    size_t nName = entryNameSize(pSrcEntry) - 1;
                    appendEntryRecord(*m_pCurEntries, newEntryRecord(entryNameOf(pSrcEntry), nName, pszValue, nValue));
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
    if (m_pStorage)
        m_pStorage->reading.Clear();
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
    return failSafe(0, [&] {
        tqm::FileView text;
        if (!text.Open(pszPath))
            return 0;
        m_pSections = new CPtrArray;
        m_pCurEntries = nullptr;
        int nResult = readText(text.data(), text.size());
        finishReadSection();
        return nResult;
    });
}

int CTQMIniFile::readText(const char* pData, size_t nSize)
{
    // Takes what the text holds into the document.
    struct Builder : tqm::ini::IniTextHandler
    {
        explicit Builder(CTQMIniFile& doc) : doc(doc) {}
        void OnComment(const char* pszLine, size_t nLength) override
        {
            doc.m_strFileComment.Append(pszLine, static_cast<int>(nLength));
        }
        void OnSection(const char* pszName) override
        {
            doc.finishReadSection();
            doc.appendSection(pszName);
        }
        void OnEntry(const char* pszName, const char* pszValue) override { doc.storeReadEntry(pszName, pszValue); }
        CTQMIniFile& doc;
    } builder(*this);
    storage().reading.Clear();
    tqm::ini::IniTextResult result = tqm::ini::ParseIniText(pData, nSize, m_bTolerant != FALSE, builder);
    m_nLine = result.lastLine;
    return result.ok ? 1 : 0;
}

// --- Writing -----------------------------------------------------------------

int CTQMIniFile::Write(const char* pszPath)
{
    if (!pszPath || !*pszPath)
        return 0;
    return failSafe(0, [&] {
        tqm::ini::IniTextWriter text;
        text.Comment(m_strFileComment);
        int nSections = m_pSections ? m_pSections->GetSize() : 0;  // never filled: the comment alone
        for (int s = 0; s < nSections; ++s) {
            void* pSection = m_pSections->GetAt(s);
            text.Section(sectionNameOf(pSection));
            const CPtrArray& entries = *entriesOf(pSection);
            for (int e = 0; e < entries.GetSize(); ++e)
                text.Entry(entryNameOf(entries.GetAt(e)), entryValueOf(entries.GetAt(e)));
            text.EndSection();
        }
        tqm::FileReplacement target(pszPath);
        if (!target.Begin() || !tqm::WriteFileBytes(target.TempPath(), text.Bytes()))
            return 0;
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
    m_pSections->RemoveAt(nSection);
    freeSectionRecord(pRec);
    resetCursor();
    return 1;
}

int CTQMIniFile::RemoveEntry(const char* pszSection, const char* pszEntry)
{
    if (!findSection(pszSection) || !findEntry(pszEntry))
        return 0;
    m_pCurEntries->RemoveAt(m_nCurEntry);
    freeEntryRecord(m_pCurEntry);
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

// Only the upper bound is a "not found": a negative index reaches the array
// and is the caller's error.
int CTQMIniFile::selectSectionAt(int nIndex)
{
    if (!m_pSections || nIndex >= m_pSections->GetSize())
        return 0;
    if (nIndex < 0)
        return refuseIndex();
    char* pRec = static_cast<char*>(m_pSections->GetAt(nIndex));
    m_nCurSection = nIndex;
    m_pCurSection = pRec;
    m_pCurEntries = entriesOf(pRec);
    m_pszCurSection = sectionNameOf(pRec);
    return 1;
}

int CTQMIniFile::selectEntryAt(int nIndex)
{
    if (!m_pCurEntries || nIndex >= m_pCurEntries->GetSize())
        return 0;
    if (nIndex < 0)
        return refuseIndex();
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

int CTQMIniFile::refuseIndex()
{
    tqm::DeferException(new CInvalidArgException);
    return 0;
}

// --- Private helpers (they may throw; the members above catch) ----------------

int CTQMIniFile::positionOfSection(const char* pszName)
{
    const tqm::ini::NameFold& fold = SystemNameFold();
    void* const* pRecs = m_pSections->GetData();
    int nCount = m_pSections->GetSize();
    for (int i = 0; i < nCount; ++i) {
        if (fold.Equal(sectionNameOf(pRecs[i]), pszName))
            return i;
    }
    return -1;
}

int CTQMIniFile::positionOfEntry(const char* pszName)
{
    const tqm::ini::NameFold& fold = SystemNameFold();
    void* const* pRecs = m_pCurEntries->GetData();
    int nCount = m_pCurEntries->GetSize();
    // Byte-wise folding keeps lengths, so the stored name size rules most out.
    unsigned nSize = static_cast<unsigned>(strlen(pszName)) + 1;
    // Numbered names (File0, File1, ...) differ last: compare that character first.
    unsigned char last = nSize > 1 ? fold(pszName[nSize - 2]) : 0;
    for (int i = 0; i < nCount; ++i) {
        const char* pszStored = entryNameOf(pRecs[i]);
        if (entryNameSize(pRecs[i]) == nSize && (nSize < 2 || fold(pszStored[nSize - 2]) == last) &&
            fold.Equal(pszStored, pszName))
            return i;
    }
    return -1;
}

void CTQMIniFile::appendSection(const char* pszName)
{
    if (!m_pSections)
        m_pSections = new CPtrArray;
    char* pRec = newSectionRecord(pszName);
    try {
        m_pSections->Add(pRec);
    } catch (...) {
        freeSectionRecord(pRec);
        throw;
    }
    selectSectionAt(m_pSections->GetUpperBound());
}

void CTQMIniFile::storeEntry(const char* pszName, const char* pszValue)
{
    putEntry(positionOfEntry(pszName), pszName, pszValue);
}

int CTQMIniFile::putEntry(int nFound, const char* pszName, const char* pszValue)
{
    if (nFound >= 0)
        selectEntryAt(nFound);
    size_t nName = strlen(pszName);
    size_t nValue = strlen(pszValue);
    // Too long: nothing is stored, and an entry it would replace keeps its value.
    if (nName + nValue > static_cast<size_t>(tqm::ini::kMaxEntryText))
        return -1;
    if (nFound < 0) {
        int nAdded = appendEntryRecord(*m_pCurEntries, newEntryRecord(pszName, nName, pszValue, nValue));
        selectEntryAt(nAdded);
        return nAdded;
    }
    // A replacement keeps its place and the spelling of the name it replaces
    // (key=1 then KEY=2 leaves key=2). The new record is made before the old
    // one goes, as the new value may be a pointer into it.
    char* pOld = m_pCurEntry;
    m_pCurEntries->SetAt(nFound, newEntryRecord(m_pszCurEntry, nName, pszValue, nValue));
    freeEntryRecord(pOld);
    selectEntryAt(nFound);
    return nFound;
}

// Read adds entries only to the section it read last, so it keeps the names
// of that section in an index of its own as they come: every entry line looks
// its name up (a later entry replaces an earlier one), and a walk through a
// section of 100,000 entries would make reading it quadratic.
void CTQMIniFile::storeReadEntry(const char* pszName, const char* pszValue)
{
    const tqm::ini::NameFold& fold = SystemNameFold();
    NamePositionIndex& reading = storage().reading;
    void* const* pRecs = m_pCurEntries->GetData();
    unsigned nSize = static_cast<unsigned>(strlen(pszName)) + 1;
    uint32_t hash = fold.Hash(pszName);
    int nFound = reading.FindFirst(hash, [&](int n) {
        return entryNameSize(pRecs[n]) == nSize && fold.Equal(entryNameOf(pRecs[n]), pszName);
    });
    if (putEntry(nFound, pszName, pszValue) >= 0 && nFound < 0)
        reading.Append(hash);
}

// The section Read was filling is complete: its index goes.
void CTQMIniFile::finishReadSection()
{
    if (m_pStorage)
        m_pStorage->reading.Clear();
}
