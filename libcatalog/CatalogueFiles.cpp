// The catalogue's file-system edge.
#include "libcatalog/CatalogueFiles.h"

#include "libcatalog/logic/NetworkPaths.h"
#include "paths/PathNames.h"

namespace tqm {

bool IsExistingFile(const char* path)
{
    if (!path || !*path)
        return false;
    const DWORD attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool CatalogueFile::Open(const char* path)
{
    m_file.reset(CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                             FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size;
    if (!m_file || !GetFileSizeEx(m_file.get(), &size)) {
        m_file.reset();
        return false;
    }
    m_size = static_cast<uint64_t>(size.QuadPart);
    return true;
}

bool CatalogueFile::Read(uint64_t offset, uint8_t* buffer, size_t size, size_t* got)
{
    *got = 0;
    LARGE_INTEGER at;
    at.QuadPart = static_cast<LONGLONG>(offset);
    if (!SetFilePointerEx(m_file.get(), at, nullptr, FILE_BEGIN))
        return false;
    // The file may shrink while it is read: what arrived is what it holds.
    while (*got < size) {
        const size_t left = size - *got;
        const DWORD piece = left < 0x10000000u ? static_cast<DWORD>(left) : 0x10000000u;
        DWORD read = 0;
        if (!ReadFile(m_file.get(), buffer + *got, piece, &read, nullptr))
            return false;
        if (read == 0)
            break;
        *got += read;
    }
    return true;
}

std::string FullPathInFolder(const std::string& folder, const std::string& name)
{
    // Tags and drive folders follow the suite's path rules; a network folder,
    // which those rules leave alone, is resolved here.
    if (IsNetworkPath(folder.c_str()) && name.compare(0, 2, "<$") != 0)
        return ResolveInNetworkFolder(folder, name);
    if (IsNetworkPath(name.c_str()))
        return name;
    return TQMGetFullPath(folder.c_str(), name.c_str()).GetString();
}

}  // namespace tqm
