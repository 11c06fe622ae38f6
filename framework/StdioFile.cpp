// CStdioFile - implementation.
#include "framework/StdioFile.h"

#include <string.h>

namespace {

const size_t kBufferSize = 64 * 1024;
const char kCtrlZ = 0x1A;

DWORD accessFor(UINT nFlags)
{
    switch (nFlags & 0x3) {
    case CStdioFile::modeWrite:
        return GENERIC_WRITE;
    case CStdioFile::modeReadWrite:
        return GENERIC_READ | GENERIC_WRITE;
    default:
        return GENERIC_READ;
    }
}

// Without a share flag the file is shared like a C runtime stream: other
// readers and writers are not locked out.
DWORD shareFor(UINT nFlags)
{
    const DWORD dwDelete = (nFlags & CStdioFile::shareAllowDelete) ? FILE_SHARE_DELETE : 0;
    switch (nFlags & 0x70) {
    case CStdioFile::shareExclusive:
        return dwDelete;
    case CStdioFile::shareDenyWrite:
        return FILE_SHARE_READ | dwDelete;
    case CStdioFile::shareDenyRead:
        return FILE_SHARE_WRITE | dwDelete;
    default:
        return FILE_SHARE_READ | FILE_SHARE_WRITE | dwDelete;
    }
}

DWORD dispositionFor(UINT nFlags)
{
    if (!(nFlags & CStdioFile::modeCreate))
        return OPEN_EXISTING;
    return (nFlags & CStdioFile::modeNoTruncate) ? OPEN_ALWAYS : CREATE_ALWAYS;
}

}  // namespace

BOOL CStdioFile::Open(const char* pszFileName, UINT nOpenFlags, CFileException* pError)
{
    Abort();
    if (!pszFileName || !*pszFileName) {
        if (pError) {
            pError->m_cause = CFileException::badPath;
            pError->m_lOsError = ERROR_INVALID_NAME;
            pError->m_strFileName = pszFileName;
        }
        return FALSE;
    }

    m_file.reset(::CreateFileA(pszFileName, accessFor(nOpenFlags), shareFor(nOpenFlags), nullptr,
                               dispositionFor(nOpenFlags), FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!m_file) {
        DWORD dwError = ::GetLastError();
        if (pError) {
            pError->m_cause = CFileException::OsErrorToException(static_cast<LONG>(dwError));
            pError->m_lOsError = static_cast<LONG>(dwError);
            pError->m_strFileName = pszFileName;
        }
        return FALSE;
    }

    m_strPath = pszFileName;
    m_bText = !(nOpenFlags & typeBinary);
    m_bEof = false;
    m_nPos = m_nEnd = 0;
    m_in.clear();
    m_out.clear();
    return TRUE;
}

void CStdioFile::Close()
{
    if (!m_file)
        return;
    try {
        flushWrites();
    } catch (...) {
        Abort();
        throw;
    }
    if (!::CloseHandle(m_file.release())) {
        DWORD dwError = ::GetLastError();
        CFileException::ThrowOsError(static_cast<LONG>(dwError), m_strPath);
    }
}

CStdioFile::~CStdioFile()
{
    try {
        flushWrites();
    } catch (CException* e) {
        e->Delete();
    }
    Abort();
}

void CStdioFile::Abort() noexcept
{
    m_file.reset();
    m_out.clear();
    m_nPos = m_nEnd = 0;
}

void CStdioFile::throwLastError()
{
    CFileException::ThrowOsError(static_cast<LONG>(::GetLastError()), m_strPath);
}

// ---------------------------------------------------------------------------
// Reading

bool CStdioFile::fill()
{
    if (m_in.size() < kBufferSize)
        m_in.resize(kBufferSize);
    if (m_nPos > 0) {  // keep what is still unread at the front
        memmove(m_in.data(), m_in.data() + m_nPos, m_nEnd - m_nPos);
        m_nEnd -= m_nPos;
        m_nPos = 0;
    }
    if (m_bEof || !m_file)
        return m_nEnd > m_nPos;

    DWORD dwRead = 0;
    if (!::ReadFile(m_file.get(), m_in.data() + m_nEnd, static_cast<DWORD>(m_in.size() - m_nEnd), &dwRead,
                    nullptr))
        throwLastError();
    if (dwRead == 0)
        m_bEof = true;

    if (m_bText) {
        // A Ctrl+Z ends a text file; nothing behind it is read.
        if (const void* pEnd = memchr(m_in.data() + m_nEnd, kCtrlZ, dwRead)) {
            dwRead = static_cast<DWORD>(static_cast<const char*>(pEnd) - (m_in.data() + m_nEnd));
            m_bEof = true;
        }
    }
    m_nEnd += dwRead;
    return m_nEnd > m_nPos;
}

char* CStdioFile::ReadString(char* pszBuf, UINT nMax)
{
    if (!pszBuf || nMax == 0)
        return nullptr;
    size_t n = readLine(pszBuf, nMax - 1);
    if (n == 0 && nMax > 1)
        return nullptr;
    pszBuf[n] = '\0';
    return pszBuf;
}

size_t CStdioFile::readLine(char* pszBuf, size_t nLimit)
{
    size_t n = 0;

    while (n < nLimit) {
        if (m_nPos == m_nEnd && !fill())
            break;
        const char* p = m_in.data() + m_nPos;
        size_t nAvail = m_nEnd - m_nPos;
        if (nAvail > nLimit - n)
            nAvail = nLimit - n;

        // Copy the run up to the next line end (or carriage return) in one go.
        size_t nRun = 0;
        if (m_bText) {
            while (nRun < nAvail && p[nRun] != '\n' && p[nRun] != '\r')
                ++nRun;
        } else {
            const void* pLf = memchr(p, '\n', nAvail);
            nRun = pLf ? static_cast<size_t>(static_cast<const char*>(pLf) - p) : nAvail;
        }
        memcpy(pszBuf + n, p, nRun);
        n += nRun;
        m_nPos += nRun;
        if (nRun == nAvail)
            continue;

        if (p[nRun] == '\n') {
            pszBuf[n++] = '\n';
            ++m_nPos;
            break;
        }
        // A carriage return: CR LF is one line end, a lone CR is text.
        if (m_nPos + 1 == m_nEnd)
            fill();
        if (m_nPos + 1 < m_nEnd && m_in[m_nPos + 1] == '\n') {
            pszBuf[n++] = '\n';
            m_nPos += 2;
            break;
        }
        pszBuf[n++] = '\r';
        ++m_nPos;
    }
    return n;
}

BOOL CStdioFile::ReadString(CString& str)
{
    str.Empty();
    char chunk[1024];
    bool bAny = false;
    while (size_t n = readLine(chunk, sizeof(chunk))) {
        bAny = true;
        if (chunk[n - 1] == '\n') {
            str.Append(chunk, static_cast<int>(n - 1));
            return TRUE;
        }
        str.Append(chunk, static_cast<int>(n));
    }
    return bAny;
}

// ---------------------------------------------------------------------------
// Writing

void CStdioFile::flushWrites()
{
    if (m_out.empty() || !m_file)
        return;
    const char* p = m_out.data();
    size_t nLeft = m_out.size();
    while (nLeft > 0) {
        DWORD dwWritten = 0;
        if (!::WriteFile(m_file.get(), p, static_cast<DWORD>(nLeft), &dwWritten, nullptr) || dwWritten == 0) {
            m_out.clear();
            throwLastError();
        }
        p += dwWritten;
        nLeft -= dwWritten;
    }
    m_out.clear();
}

void CStdioFile::Write(const void* pData, UINT nCount)
{
    if (!m_file)
        CFileException::ThrowOsError(ERROR_INVALID_HANDLE, m_strPath);
    const char* p = static_cast<const char*>(pData);
    const char* pEnd = p + nCount;
    while (p < pEnd) {
        const char* pLf = m_bText ? static_cast<const char*>(memchr(p, '\n', static_cast<size_t>(pEnd - p))) : nullptr;
        const char* pRunEnd = pLf ? pLf : pEnd;
        m_out.insert(m_out.end(), p, pRunEnd);
        if (pLf) {
            m_out.push_back('\r');
            m_out.push_back('\n');
            p = pLf + 1;
        } else {
            p = pEnd;
        }
        if (m_out.size() >= kBufferSize)
            flushWrites();
    }
}

void CStdioFile::WriteString(const char* psz)
{
    if (psz)
        Write(psz, static_cast<UINT>(strlen(psz)));
}

void CStdioFile::Flush() { flushWrites(); }
