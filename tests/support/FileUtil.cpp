#include "support/FileUtil.h"

#include "framework/Handles.h"

namespace tqmtest {

bool WriteBytes(const std::string& path, const std::string& bytes)
{
    tqm::UniqueFile file(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                                     nullptr));
    if (!file)
        return false;
    DWORD written = 0;
    return WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

std::string ReadBytes(const std::string& path)
{
    tqm::UniqueFile file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                     OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return std::string();
    std::string bytes;
    char buffer[65536];
    DWORD got = 0;
    while (ReadFile(file.get(), buffer, sizeof(buffer), &got, nullptr) && got > 0)
        bytes.append(buffer, got);
    return bytes;
}

bool PathExists(const std::string& path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

namespace {

void addTree(const std::string& dir, const std::string& prefix, std::map<std::string, std::string>& snapshot)
{
    WIN32_FIND_DATAA entry;
    HANDLE hFind = FindFirstFileA((dir + "\\*").c_str(), &entry);
    if (hFind == INVALID_HANDLE_VALUE)
        return;
    do {
        const std::string name = entry.cFileName;
        if (name == "." || name == "..")
            continue;
        const std::string path = dir + "\\" + name;
        const bool isDir = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        snapshot[prefix + name] = (isDir ? "dir" : ReadBytes(path)) +
                                  ((entry.dwFileAttributes & FILE_ATTRIBUTE_READONLY) ? " ro" : " rw");
        if (isDir)
            addTree(path, prefix + name + "\\", snapshot);
    } while (FindNextFileA(hFind, &entry));
    FindClose(hFind);
}

}  // namespace

std::map<std::string, std::string> SnapshotTree(const std::string& dir)
{
    std::map<std::string, std::string> snapshot;
    addTree(dir, "", snapshot);
    return snapshot;
}

}  // namespace tqmtest
