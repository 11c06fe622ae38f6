#include "support/TempDir.h"

#include <windows.h>

#include <stdio.h>

namespace tqmtest {

TempDir::TempDir()
{
    char temp[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, temp);
    static unsigned s_counter = 0;
    for (;;) {
        char name[MAX_PATH];
        snprintf(name, sizeof(name), "%stqmtest-%lu-%u", temp, GetCurrentProcessId(), ++s_counter);
        if (CreateDirectoryA(name, nullptr)) {
            m_path = name;
            return;
        }
        if (GetLastError() != ERROR_ALREADY_EXISTS) {
            m_path = name;  // the test's own checks will fail on it
            return;
        }
    }
}

TempDir::~TempDir() { RemoveTree(m_path); }

void RemoveTree(const std::string& path)
{
    DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return;
    SetFileAttributesA(path.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) {
        DeleteFileA(path.c_str());
        return;
    }
    // A link to a folder is removed, never entered: what it leads to is
    // not the tree's, and a link up the tree would never end.
    if (attributes & FILE_ATTRIBUTE_REPARSE_POINT) {
        RemoveDirectoryA(path.c_str());
        return;
    }
    WIN32_FIND_DATAA data;
    HANDLE hFind = FindFirstFileA((path + "\\*").c_str(), &data);
    if (hFind != INVALID_HANDLE_VALUE) {
        do {
            std::string name = data.cFileName;
            if (name != "." && name != "..")
                RemoveTree(path + "\\" + name);
        } while (FindNextFileA(hFind, &data));
        FindClose(hFind);
    }
    RemoveDirectoryA(path.c_str());
}

}  // namespace tqmtest
