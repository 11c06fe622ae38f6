// CFileException: the causes of the system's error codes.
#include "framework/Exceptions.h"

namespace {

struct OsErrorCause
{
    LONG lOsError;
    int cause;
};

// System error codes that file operations report, by the cause a caller can act on.
const OsErrorCause kOsErrorCauses[] = {
    {ERROR_FILE_NOT_FOUND, CFileException::fileNotFound},
    {ERROR_MOD_NOT_FOUND, CFileException::fileNotFound},
    {ERROR_NO_MORE_FILES, CFileException::fileNotFound},
    {ERROR_INVALID_HANDLE, CFileException::invalidFile},
    {ERROR_PATH_NOT_FOUND, CFileException::badPath},
    {ERROR_INVALID_DRIVE, CFileException::badPath},
    {ERROR_NOT_SAME_DEVICE, CFileException::badPath},
    {ERROR_BAD_NETPATH, CFileException::badPath},
    {ERROR_BAD_NET_NAME, CFileException::badPath},
    {ERROR_INVALID_NAME, CFileException::badPath},
    {ERROR_BAD_PATHNAME, CFileException::badPath},
    {ERROR_FILENAME_EXCED_RANGE, CFileException::badPath},
    {ERROR_DIRECTORY, CFileException::badPath},
    {ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
    {ERROR_SHARING_BUFFER_EXCEEDED, CFileException::tooManyOpenFiles},
    {ERROR_ACCESS_DENIED, CFileException::accessDenied},
    {ERROR_INVALID_ACCESS, CFileException::accessDenied},
    {ERROR_WRITE_PROTECT, CFileException::accessDenied},
    {ERROR_FILE_EXISTS, CFileException::accessDenied},
    {ERROR_ALREADY_EXISTS, CFileException::accessDenied},
    {ERROR_CANNOT_MAKE, CFileException::accessDenied},
    {ERROR_NETWORK_ACCESS_DENIED, CFileException::accessDenied},
    {ERROR_BAD_FORMAT, CFileException::invalidFile},
    {ERROR_NOT_DOS_DISK, CFileException::invalidFile},
    {ERROR_BAD_EXE_FORMAT, CFileException::invalidFile},
    {ERROR_CURRENT_DIRECTORY, CFileException::removeCurrentDir},
    {ERROR_DIR_NOT_EMPTY, CFileException::removeCurrentDir},
    {ERROR_NO_SPOOL_SPACE, CFileException::directoryFull},
    {ERROR_SEEK, CFileException::badSeek},
    {ERROR_NEGATIVE_SEEK, CFileException::badSeek},
    {ERROR_SEEK_ON_DEVICE, CFileException::badSeek},
    {ERROR_SECTOR_NOT_FOUND, CFileException::badSeek},
    {ERROR_BAD_LENGTH, CFileException::badSeek},
    {ERROR_CRC, CFileException::hardIO},
    {ERROR_WRITE_FAULT, CFileException::hardIO},
    {ERROR_READ_FAULT, CFileException::hardIO},
    {ERROR_NOT_READY, CFileException::hardIO},
    {ERROR_BAD_UNIT, CFileException::hardIO},
    {ERROR_GEN_FAILURE, CFileException::hardIO},
    {ERROR_IO_DEVICE, CFileException::hardIO},
    {ERROR_OPERATION_ABORTED, CFileException::hardIO},
    {ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
    {ERROR_LOCK_VIOLATION, CFileException::lockViolation},
    {ERROR_LOCK_FAILED, CFileException::lockViolation},
    {ERROR_DRIVE_LOCKED, CFileException::lockViolation},
    {ERROR_DISK_FULL, CFileException::diskFull},
    {ERROR_HANDLE_DISK_FULL, CFileException::diskFull},
    {ERROR_HANDLE_EOF, CFileException::endOfFile},
};

// One sentence per cause; %s is the file name.
}  // namespace

int CFileException::OsErrorToException(LONG lOsError)
{
    if (lOsError == 0)
        return none;
    for (const OsErrorCause& entry : kOsErrorCauses) {
        if (entry.lOsError == lOsError)
            return entry.cause;
    }
    return genericException;
}

void CFileException::ThrowOsError(LONG lOsError, const char* pszFileName)
{
    if (lOsError == 0)
        lOsError = ERROR_GEN_FAILURE;  // an error without a code still is an error
    throw new CFileException(OsErrorToException(lOsError), lOsError, pszFileName);
}

