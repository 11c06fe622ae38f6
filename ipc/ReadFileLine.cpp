// Reading a text file line by line through an old-style file handle.
#include "ipc/Processes.h"

#include "ipc/logic/FileLine.h"

BOOL WINAPI ReadFileLine(HFILE hFile, char* pszLine, UINT nSize)
{
    if (!pszLine || nSize == 0)
        return FALSE;
    pszLine[0] = '\0';
    HANDLE handle = reinterpret_cast<HANDLE>(static_cast<INT_PTR>(hFile));
    DWORD got = 0;
    if (!::ReadFile(handle, pszLine, nSize - 1, &got, nullptr) || got == 0)
        return FALSE;
    pszLine[got] = '\0';
    ::SetFilePointer(handle, tqm::CutFileLine(pszLine, got), nullptr, FILE_CURRENT);
    return TRUE;
}
