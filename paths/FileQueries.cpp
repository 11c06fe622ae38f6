// TQMFileExists, TQMIsOnRemovableDrive, TQMCompareFiles, TQMWildcardCompare,
// TQMFileProperties - questions about files and names.
#include "paths/FileOperations.h"

#include "framework/CString.h"
#include "framework/Handles.h"
#include "paths/logic/PathNameRules.h"
#include "paths/logic/WildcardMatch.h"

#include <shellapi.h>
#include <string.h>

namespace {

const DWORD kCompareBlock = 512;

// An open disk file for reading; devices and pipes (CON, \\.\pipe\x) are
// refused, since reading them could wait for ever.
tqm::UniqueFile openDiskFile(const char* path)
{
    tqm::UniqueFile file(CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                     FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (file && GetFileType(file.get()) != FILE_TYPE_DISK)
        file.reset();
    return file;
}

bool fileSize(const char* path, ULONGLONG& size)
{
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetFileAttributesExA(path, GetFileExInfoStandard, &data))
        return false;
    size = (static_cast<ULONGLONG>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    return true;
}

}  // namespace

BOOL WINAPI TQMFileExists(const char* path)
{
    return path && *path && GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES ? TRUE : FALSE;
}

BOOL WINAPI TQMIsOnRemovableDrive(const char* path)
{
    if (!path)
        return FALSE;
    // Without a drive letter the root is that of the current drive, as the
    // system takes a bare backslash.
    const CString root = tqm::SplitPath(path).drive + "\\";
    switch (GetDriveTypeA(root)) {
    case DRIVE_REMOVABLE:
    case DRIVE_CDROM:
    case DRIVE_RAMDISK:  // deliberately: a RAM disk is gone after a restart, like a removed medium
        return TRUE;
    default:
        return FALSE;
    }
}

BOOL WINAPI TQMCompareFiles(const char* path1, const char* path2)
{
    ULONGLONG size1 = 0, size2 = 0;
    if (!path1 || !path2 || !fileSize(path1, size1) || !fileSize(path2, size2) || size1 != size2)
        return FALSE;
    tqm::UniqueFile file1 = openDiskFile(path1);
    tqm::UniqueFile file2 = openDiskFile(path2);
    if (!file1 || !file2)
        return FALSE;
    char block1[kCompareBlock];
    char block2[kCompareBlock];
    for (;;) {
        DWORD got1 = 0, got2 = 0;
        if (!ReadFile(file1.get(), block1, kCompareBlock, &got1, nullptr) ||
            !ReadFile(file2.get(), block2, kCompareBlock, &got2, nullptr))
            return FALSE;
        if (got1 != got2 || memcmp(block1, block2, got1) != 0)
            return FALSE;
        if (got1 < kCompareBlock)
            return TRUE;
    }
}

BOOL WINAPI TQMWildcardCompare(const char* pattern, const char* name)
{
    return tqm::WildcardMatch(pattern, name) ? TRUE : FALSE;
}

void WINAPI TQMFileProperties(const char* path)
{
    if (!path || !*path)
        return;
    SHELLEXECUTEINFOA info = {};
    info.cbSize = sizeof(info);
    info.fMask = SEE_MASK_INVOKEIDLIST;
    info.hwnd = nullptr;
    info.lpVerb = "properties";
    info.lpFile = path;
    info.nShow = SW_SHOW;
    ShellExecuteExA(&info);
}
