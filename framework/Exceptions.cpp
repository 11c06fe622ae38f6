// The framework's exception classes.
#include "framework/Exceptions.h"

#include <stdio.h>
#include <string.h>

namespace {

BOOL copyMessage(const char* pszText, char* pszError, UINT nMaxError)
{
    if (!pszError || nMaxError == 0)
        return FALSE;
    size_t n = strlen(pszText);
    if (n >= nMaxError)
        n = nMaxError - 1;
    memcpy(pszError, pszText, n);
    pszError[n] = '\0';
    return TRUE;
}

const char* const kCauseTexts[] = {
    "No error occurred while accessing %s.",
    "An unknown error occurred while accessing %s.",
    "%s was not found.",
    "%s contains an incorrect path.",
    "%s could not be opened because there are too many open files.",
    "Access to %s was denied.",
    "%s is not a valid file.",
    "%s could not be removed because it is the current directory or not empty.",
    "%s could not be created because the directory is full.",
    "Seek failed on %s.",
    "A hardware I/O error was reported while accessing %s.",
    "A sharing violation occurred while accessing %s.",
    "A locking violation occurred while accessing %s.",
    "The disk is full while accessing %s.",
    "An attempt was made to access %s past its end.",
};

}  // namespace

BOOL CException::GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext) const
{
    if (pnHelpContext)
        *pnHelpContext = 0;
    if (pszError && nMaxError)
        *pszError = '\0';
    return FALSE;
}

BOOL CMemoryException::GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext) const
{
    if (pnHelpContext)
        *pnHelpContext = 0;
    return copyMessage("Out of memory.", pszError, nMaxError);
}

BOOL CInvalidArgException::GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext) const
{
    if (pnHelpContext)
        *pnHelpContext = 0;
    return copyMessage("An invalid argument was encountered.", pszError, nMaxError);
}

CFileException::CFileException(int cause, LONG lOsError, const char* pszFileName)
    : m_cause(cause), m_lOsError(lOsError), m_strFileName(pszFileName)
{
}

BOOL CFileException::GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext) const
{
    if (pnHelpContext)
        *pnHelpContext = 0;
    int cause = (m_cause >= none && m_cause <= endOfFile) ? m_cause : genericException;
    const char* pszName = m_strFileName.IsEmpty() ? "an unnamed file" : m_strFileName.GetString();
    CString text;
    text.Format(kCauseTexts[cause], pszName);
    return copyMessage(text, pszError, nMaxError);
}

void AfxThrowMemoryException() { throw new CMemoryException; }

void AfxThrowInvalidArgException() { throw new CInvalidArgException; }

void AfxThrowFileException(int cause, LONG lOsError, const char* pszFileName)
{
    throw new CFileException(cause, lOsError, pszFileName);
}
