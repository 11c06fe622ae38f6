// CString - implementation. See CString.h for the memory layout.
#include "framework/CString.h"
#include "framework/Exceptions.h"

#include <ctype.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

namespace {

// The shared empty string: capacity 0 marks it as never to be freed.
struct EmptyString
{
    int nDataLength = 0;
    int nAllocLength = 0;
    char chNul = '\0';
};
EmptyString g_empty;

int lengthOf(const char* psz) { return psz ? static_cast<int>(strlen(psz)) : 0; }

bool isBlank(char ch) { return isspace(static_cast<unsigned char>(ch)) != 0; }

bool inSet(char ch, const char* pszSet) { return ch != '\0' && strchr(pszSet, ch) != nullptr; }

}  // namespace

// ---------------------------------------------------------------------------
// Memory

char* CString::emptyData() noexcept { return &g_empty.chNul; }

// GCC sees that the shared empty string can reach this function and cannot
// see that its capacity of 0 keeps it from being freed.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wfree-nonheap-object"
void CString::release(char* pszData) noexcept
{
    Header* pHeader = reinterpret_cast<Header*>(pszData) - 1;
    if (pHeader->nAllocLength != 0)
        free(pHeader);
}
#pragma GCC diagnostic pop

void CString::reserve(int nLength, bool bKeep)
{
    if (nLength < 0)
        AfxThrowInvalidArgException();
    Header* pOld = header();
    if (nLength <= pOld->nAllocLength)
        return;

    // Grow geometrically so that repeated appends stay linear.
    long long nAlloc = nLength;
    if (pOld->nAllocLength != 0 && nAlloc < pOld->nAllocLength + pOld->nAllocLength / 2LL)
        nAlloc = pOld->nAllocLength + pOld->nAllocLength / 2LL;
    if (nAlloc > INT_MAX - 64)
        AfxThrowMemoryException();

    auto* pNew = static_cast<Header*>(malloc(sizeof(Header) + static_cast<size_t>(nAlloc) + 1));
    if (!pNew)
        AfxThrowMemoryException();
    pNew->nAllocLength = static_cast<int>(nAlloc);
    pNew->nDataLength = bKeep ? pOld->nDataLength : 0;
    char* pszNew = reinterpret_cast<char*>(pNew + 1);
    if (bKeep)
        memcpy(pszNew, m_pszData, static_cast<size_t>(pOld->nDataLength) + 1);
    else
        pszNew[0] = '\0';
    release(m_pszData);
    m_pszData = pszNew;
}

void CString::setLength(int nLength)
{
    if (header()->nAllocLength == 0)  // the shared empty string stays as it is
        return;
    header()->nDataLength = nLength;
    m_pszData[nLength] = '\0';
}

void CString::assign(const char* pch, int nLength)
{
    if (nLength <= 0) {
        Empty();
        return;
    }
    // The source may lie inside this string's own buffer.
    if (pch >= m_pszData && pch <= m_pszData + GetLength()) {
        CString copy(pch, nLength);
        *this = static_cast<CString&&>(copy);
        return;
    }
    reserve(nLength, false);
    memcpy(m_pszData, pch, static_cast<size_t>(nLength));
    setLength(nLength);
}

// ---------------------------------------------------------------------------
// Construction

CString::CString() noexcept : m_pszData(emptyData()) {}

CString::CString(const CString& src) : m_pszData(emptyData()) { assign(src.m_pszData, src.GetLength()); }

CString::CString(CString&& src) noexcept : m_pszData(src.m_pszData) { src.m_pszData = emptyData(); }

CString::CString(const char* psz) : m_pszData(emptyData()) { assign(psz, lengthOf(psz)); }

CString::CString(const char* pch, int nLength) : m_pszData(emptyData())
{
    if (pch && nLength > 0)
        assign(pch, nLength);
}

CString::CString(char ch, int nRepeat) : m_pszData(emptyData())
{
    if (nRepeat <= 0)
        return;
    reserve(nRepeat, false);
    memset(m_pszData, ch, static_cast<size_t>(nRepeat));
    setLength(nRepeat);
}

CString::~CString() { release(m_pszData); }

CString& CString::operator=(const CString& src)
{
    if (this != &src)
        assign(src.m_pszData, src.GetLength());
    return *this;
}

CString& CString::operator=(CString&& src) noexcept
{
    if (this != &src) {
        release(m_pszData);
        m_pszData = src.m_pszData;
        src.m_pszData = emptyData();
    }
    return *this;
}

CString& CString::operator=(const char* psz)
{
    assign(psz, lengthOf(psz));
    return *this;
}

CString& CString::operator=(char ch)
{
    char sz[2] = {ch, '\0'};
    assign(sz, ch ? 1 : 0);
    return *this;
}

// ---------------------------------------------------------------------------
// Attributes

void CString::Empty() noexcept
{
    release(m_pszData);
    m_pszData = emptyData();
}

char CString::GetAt(int nIndex) const
{
    if (nIndex < 0 || nIndex >= GetLength())
        AfxThrowInvalidArgException();
    return m_pszData[nIndex];
}

void CString::SetAt(int nIndex, char ch)
{
    if (nIndex < 0 || nIndex >= GetLength())
        AfxThrowInvalidArgException();
    m_pszData[nIndex] = ch;
}

// ---------------------------------------------------------------------------
// Buffer access

char* CString::GetBuffer() { return GetBuffer(GetLength()); }

char* CString::GetBuffer(int nMinBufLength)
{
    if (nMinBufLength < GetLength())
        nMinBufLength = GetLength();
    // Even a request for 0 characters gets a private, writable buffer.
    reserve(nMinBufLength > 0 ? nMinBufLength : 1, true);
    return m_pszData;
}

char* CString::GetBufferSetLength(int nNewLength)
{
    GetBuffer(nNewLength);
    setLength(nNewLength);
    return m_pszData;
}

void CString::ReleaseBuffer(int nNewLength)
{
    if (header()->nAllocLength == 0)
        return;
    if (nNewLength < 0)
        nNewLength = static_cast<int>(strnlen(m_pszData, static_cast<size_t>(header()->nAllocLength)));
    if (nNewLength > header()->nAllocLength)
        nNewLength = header()->nAllocLength;
    setLength(nNewLength);
}

void CString::Preallocate(int nLength) { reserve(nLength, true); }

// ---------------------------------------------------------------------------
// Concatenation

void CString::Append(const char* pch, int nLength)
{
    if (!pch || nLength <= 0)
        return;
    int nOld = GetLength();
    if (pch >= m_pszData && pch <= m_pszData + nOld) {  // appending a part of ourselves
        CString copy(pch, nLength);
        Append(copy.m_pszData, nLength);
        return;
    }
    if (nLength > INT_MAX - 64 - nOld)
        AfxThrowMemoryException();
    reserve(nOld + nLength, true);
    memcpy(m_pszData + nOld, pch, static_cast<size_t>(nLength));
    setLength(nOld + nLength);
}

CString& CString::operator+=(const CString& str)
{
    Append(str.m_pszData, str.GetLength());
    return *this;
}

CString& CString::operator+=(const char* psz)
{
    Append(psz, lengthOf(psz));
    return *this;
}

CString& CString::operator+=(char ch)
{
    if (ch)
        Append(&ch, 1);
    return *this;
}

CString operator+(const CString& a, const CString& b)
{
    CString s(a);
    s += b;
    return s;
}

CString operator+(const CString& a, const char* b)
{
    CString s(a);
    s += b;
    return s;
}

CString operator+(const char* a, const CString& b)
{
    CString s(a);
    s += b;
    return s;
}

CString operator+(const CString& a, char b)
{
    CString s(a);
    s += b;
    return s;
}

CString operator+(char a, const CString& b)
{
    CString s(a, 1);
    s += b;
    return s;
}

// ---------------------------------------------------------------------------
// Formatting

void CString::Format(const char* pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    FormatV(pszFormat, args);
    va_end(args);
}

void CString::FormatV(const char* pszFormat, va_list args)
{
    // Formatted apart and moved in, so that an argument may be this string's own text.
    CString result;
    result.AppendFormatV(pszFormat, args);
    *this = static_cast<CString&&>(result);
}

void CString::AppendFormat(const char* pszFormat, ...)
{
    va_list args;
    va_start(args, pszFormat);
    AppendFormatV(pszFormat, args);
    va_end(args);
}

void CString::AppendFormatV(const char* pszFormat, va_list args)
{
    if (!pszFormat)
        AfxThrowInvalidArgException();
    va_list sizing;
    va_copy(sizing, args);
    int nNeeded = vsnprintf(nullptr, 0, pszFormat, sizing);
    va_end(sizing);
    if (nNeeded <= 0)
        return;
    // The new text goes into a buffer of its own first: an argument may point
    // into this string, whose buffer the append may move or overwrite.
    CString piece;
    piece.reserve(nNeeded, false);
    vsnprintf(piece.m_pszData, static_cast<size_t>(nNeeded) + 1, pszFormat, args);
    piece.setLength(nNeeded);
    if (IsEmpty())
        *this = static_cast<CString&&>(piece);
    else
        Append(piece.m_pszData, nNeeded);
}

// ---------------------------------------------------------------------------
// Comparison

int CString::Compare(const char* psz) const { return strcmp(m_pszData, psz ? psz : ""); }


// ---------------------------------------------------------------------------
// Extraction

CString CString::Left(int nCount) const
{
    if (nCount < 0)
        nCount = 0;
    if (nCount >= GetLength())
        return *this;
    return CString(m_pszData, nCount);
}

CString CString::Mid(int nFirst) const { return Mid(nFirst, INT_MAX); }

CString CString::Mid(int nFirst, int nCount) const
{
    if (nFirst < 0)
        nFirst = 0;
    if (nCount < 0)
        nCount = 0;
    if (nFirst >= GetLength())
        return CString();
    if (nCount > GetLength() - nFirst)
        nCount = GetLength() - nFirst;
    return CString(m_pszData + nFirst, nCount);
}

CString CString::Right(int nCount) const
{
    if (nCount < 0)
        nCount = 0;
    if (nCount >= GetLength())
        return *this;
    return CString(m_pszData + GetLength() - nCount, nCount);
}

CString CString::SpanIncluding(const char* pszCharSet) const
{
    return Left(static_cast<int>(strspn(m_pszData, pszCharSet ? pszCharSet : "")));
}

CString CString::SpanExcluding(const char* pszCharSet) const
{
    return Left(static_cast<int>(strcspn(m_pszData, pszCharSet ? pszCharSet : "")));
}

// ---------------------------------------------------------------------------
// Searching

int CString::Find(char ch, int nStart) const
{
    if (nStart < 0 || nStart >= GetLength())
        return -1;
    const void* p = memchr(m_pszData + nStart, ch, static_cast<size_t>(GetLength() - nStart));
    return p ? static_cast<int>(static_cast<const char*>(p) - m_pszData) : -1;
}

int CString::Find(const char* pszSub, int nStart) const
{
    if (!pszSub || nStart < 0 || nStart > GetLength())
        return -1;
    const char* p = strstr(m_pszData + nStart, pszSub);
    return p ? static_cast<int>(p - m_pszData) : -1;
}

int CString::ReverseFind(char ch) const
{
    const char* p = strrchr(m_pszData, ch);
    return p ? static_cast<int>(p - m_pszData) : -1;
}

int CString::FindOneOf(const char* pszCharSet) const
{
    if (!pszCharSet)
        return -1;
    const char* p = strpbrk(m_pszData, pszCharSet);
    return p ? static_cast<int>(p - m_pszData) : -1;
}

// ---------------------------------------------------------------------------
// Modification

CString& CString::Trim() { return TrimRight().TrimLeft(); }
CString& CString::Trim(char chTarget) { return TrimRight(chTarget).TrimLeft(chTarget); }
CString& CString::Trim(const char* pszTargets) { return TrimRight(pszTargets).TrimLeft(pszTargets); }

CString& CString::TrimLeft()
{
    int n = 0;
    while (n < GetLength() && isBlank(m_pszData[n]))
        ++n;
    return Delete(0, n), *this;
}

CString& CString::TrimLeft(char chTarget)
{
    int n = 0;
    while (n < GetLength() && m_pszData[n] == chTarget)
        ++n;
    return Delete(0, n), *this;
}

CString& CString::TrimLeft(const char* pszTargets)
{
    if (!pszTargets)
        return *this;
    int n = 0;
    while (n < GetLength() && inSet(m_pszData[n], pszTargets))
        ++n;
    return Delete(0, n), *this;
}

CString& CString::TrimRight()
{
    int n = GetLength();
    while (n > 0 && isBlank(m_pszData[n - 1]))
        --n;
    Truncate(n);
    return *this;
}

CString& CString::TrimRight(char chTarget)
{
    int n = GetLength();
    while (n > 0 && m_pszData[n - 1] == chTarget)
        --n;
    Truncate(n);
    return *this;
}

CString& CString::TrimRight(const char* pszTargets)
{
    if (!pszTargets)
        return *this;
    int n = GetLength();
    while (n > 0 && inSet(m_pszData[n - 1], pszTargets))
        --n;
    Truncate(n);
    return *this;
}



CString& CString::MakeReverse()
{
    if (GetLength() > 1) {
        char* p = GetBuffer();
        for (int i = 0, j = GetLength() - 1; i < j; ++i, --j) {
            char t = p[i];
            p[i] = p[j];
            p[j] = t;
        }
    }
    return *this;
}

int CString::Replace(char chOld, char chNew)
{
    int nCount = 0;
    for (int i = 0; i < GetLength(); ++i) {
        if (m_pszData[i] == chOld) {
            m_pszData[i] = chNew;
            ++nCount;
        }
    }
    return nCount;
}

int CString::Replace(const char* pszOld, const char* pszNew)
{
    int nOldLen = lengthOf(pszOld);
    if (nOldLen == 0)
        return 0;
    int nNewLen = lengthOf(pszNew);
    CString result;
    int nCount = 0;
    int nPos = 0;
    for (int nHit; (nHit = Find(pszOld, nPos)) >= 0; nPos = nHit + nOldLen) {
        result.Append(m_pszData + nPos, nHit - nPos);
        result.Append(pszNew, nNewLen);
        ++nCount;
    }
    if (nCount) {
        result.Append(m_pszData + nPos, GetLength() - nPos);
        *this = static_cast<CString&&>(result);
    }
    return nCount;
}

int CString::Remove(char ch)
{
    int nKept = 0;
    for (int i = 0; i < GetLength(); ++i) {
        if (m_pszData[i] != ch)
            m_pszData[nKept++] = m_pszData[i];
    }
    int nRemoved = GetLength() - nKept;
    if (nRemoved)
        setLength(nKept);
    return nRemoved;
}

int CString::Insert(int nIndex, char ch)
{
    char sz[2] = {ch, '\0'};
    return Insert(nIndex, sz);
}

int CString::Insert(int nIndex, const char* psz)
{
    if (nIndex < 0)
        nIndex = 0;
    if (nIndex > GetLength())
        nIndex = GetLength();
    int nInsLen = lengthOf(psz);
    if (nInsLen > 0) {
        CString tail = Mid(nIndex);
        CString ins(psz, nInsLen);  // psz may point into this string
        Truncate(nIndex);
        *this += ins;
        *this += tail;
    }
    return GetLength();
}

int CString::Delete(int nIndex, int nCount)
{
    if (nIndex < 0)
        nIndex = 0;
    if (nCount > GetLength() - nIndex)
        nCount = GetLength() - nIndex;
    if (nCount > 0) {
        memmove(m_pszData + nIndex, m_pszData + nIndex + nCount,
                static_cast<size_t>(GetLength() - nIndex - nCount) + 1);
        header()->nDataLength -= nCount;
    }
    return GetLength();
}

void CString::Truncate(int nNewLength)
{
    if (nNewLength < 0)
        nNewLength = 0;
    if (nNewLength < GetLength())
        setLength(nNewLength);
}

