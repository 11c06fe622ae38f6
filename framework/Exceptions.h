// CException, CFileException, CInvalidArgException, CMemoryException -
// the framework's exception classes.
//
// As in MFC, exceptions are thrown as pointers to heap objects and the catcher
// disposes of them with Delete():
//
//     try { ... } catch (CFileException* e) { e->Delete(); }
#pragma once

#include "framework/CString.h"

// The base of the framework's exceptions; Delete() disposes of a caught one.
class CException
{
public:
    CException() = default;
    CException(const CException&) = delete;
    CException& operator=(const CException&) = delete;
    virtual ~CException() = default;

    // Frees the exception; the catcher's duty.
    void Delete() { delete this; }

    // The text for the user, at most nMaxError - 1 characters. FALSE when the
    // exception has no text.
    virtual BOOL GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const;
};

// Memory ran out.
class CMemoryException : public CException
{
public:
    BOOL GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;
};

// A caller passed an argument out of range (a negative index, for one).
class CInvalidArgException : public CException
{
public:
    BOOL GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;
};

// A file operation failed: the cause, the system's error code and the file.
class CFileException : public CException
{
public:
    enum
    {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    explicit CFileException(int cause = none, LONG lOsError = -1, const char* pszFileName = nullptr);

    // Maps a system error code to one of the causes above.
    static int OsErrorToException(LONG lOsError);
    // Throws a new file exception for a system error code.
    [[noreturn]] static void ThrowOsError(LONG lOsError, const char* pszFileName = nullptr);

    BOOL GetErrorMessage(char* pszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;

    int m_cause;
    LONG m_lOsError;
    CString m_strFileName;
};

// Throws a new CMemoryException.
[[noreturn]] void AfxThrowMemoryException();
// Throws a new CInvalidArgException.
[[noreturn]] void AfxThrowInvalidArgException();
// Throws a new CFileException with the cause, the system's error code and the file.
[[noreturn]] void AfxThrowFileException(int cause, LONG lOsError = -1, const char* pszFileName = nullptr);
