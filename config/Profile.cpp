// The profile scanner and the integer writers.
#include "config/Profile.h"

#include "config/IniSystemFold.h"
#include "config/logic/IniLineGrammar.h"
#include "framework/StdioFile.h"

#include <errno.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>

#include <new>

namespace {

// The value's text when found, else NULL. Throws what the file layer throws.
const char* scanForValue(CStdioFile& file, const char* pszSection, const char* pszKey, char* line, int nLine)
{
    using namespace tqm::ini;
    const NameFold& fold = SystemNameFold();
    bool bInSection = false;
    while (file.ReadString(line, static_cast<UINT>(nLine))) {
        char* p = SkipBlanks(line);
        switch (ClassifyLine(p, Reader::Profile)) {
        case LineKind::Empty:
        case LineKind::Comment:
            break;
        case LineKind::Header:
            // The wanted section ended without the key; later sections of the
            // same name are never looked at.
            if (bInSection)
                return nullptr;
            bInSection = HeaderNamesSection(p, pszSection, fold);
            break;
        case LineKind::Entry:
            if (bInSection) {
                if (const char* pszValue = ValueForKey(p, pszKey, fold))
                    return pszValue;
            }
            break;
        }
    }
    return nullptr;
}

}  // namespace

CString WINAPI TQMGetProfileString(const char* pszSection, const char* pszKey, const char* pszDefault,
                                   const char* pszFile)
{
    try {
        if (!pszSection || !pszKey || !pszFile)
            return CString(pszDefault);
        CStdioFile file;
        // Shared for replacing too: a program saving the document (through a
        // temporary file moved over it) must not fail because of a lookup.
        if (!file.Open(pszFile, CStdioFile::modeRead | CStdioFile::typeText | CStdioFile::shareAllowDelete))
            return CString(pszDefault);
        char line[tqm::ini::kLineBufferSize];
        const char* pszValue = scanForValue(file, pszSection, pszKey, line, sizeof(line));
        file.Abort();  // read only: nothing to write back
        return CString(pszValue ? pszValue : pszDefault);
    } catch (CException* e) {
        e->Delete();
    } catch (const std::bad_alloc&) {
    }
    // A read error in mid-file gives the default too.
    try {
        return CString(pszDefault);
    } catch (CException* e) {
        e->Delete();
    } catch (const std::bad_alloc&) {
    }
    return CString();
}

int WINAPI TQMGetProfileInt(const char* pszSection, const char* pszKey, int nDefault, const char* pszFile)
{
    CString value = TQMGetProfileString(pszSection, pszKey, "", pszFile);
    if (value.IsEmpty())
        return nDefault;
    // Deliberately strict: the whole text must be a decimal number within the
    // range of long (32 bits here), so "0x10", "12abc" and overflow give the default.
    char* pszEnd = nullptr;
    errno = 0;
    long n = strtol(value, &pszEnd, 10);
    if (errno != 0 || *pszEnd != '\0' || n < INT_MIN || n > INT_MAX)
        return nDefault;
    return static_cast<int>(n);
}

int WINAPI WritePrivateProfileInt(const char* pszSection, const char* pszKey, int nValue, const char* pszFile)
{
    char text[16];
    wsprintfA(text, "%d", nValue);
    return WritePrivateProfileStringA(pszSection, pszKey, text, pszFile);
}

int WINAPI TQMWritePrivateProfileInt(const char* pszSection, const char* pszKey, int nValue, const char* pszFile)
{
    char text[16];
    snprintf(text, sizeof(text), "%d", nValue);
    int nResult = WritePrivateProfileStringA(pszSection, pszKey, text, pszFile);
    // All three NULL: the system writes its cached copy of the file to disk.
    // Only this variant flushes; the difference is deliberate.
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, pszFile);
    return nResult;
}
