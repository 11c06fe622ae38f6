// The catalogue's file-system edge.
#include "libcatalog/CatalogueFiles.h"

#include <new>

namespace tqm {

bool IsExistingFile(const char* path)
{
    if (!path || !*path)
        return false;
    const DWORD attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

FileRead ReadWholeFile(const char* path, std::vector<uint8_t>& bytes)
{
    bytes.clear();
    UniqueFile file(CreateFileA(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file)
        return FileRead::CannotOpen;
    LARGE_INTEGER size;
    if (!GetFileSizeEx(file.get(), &size) || static_cast<uint64_t>(size.QuadPart) > kLargestReadFile)
        return FileRead::ReadError;
    try {
        bytes.resize(static_cast<size_t>(size.QuadPart));
    } catch (const std::bad_alloc&) {
        return FileRead::ReadError;
    }
    // The file may shrink while it is read: what arrived is what it holds.
    size_t done = 0;
    while (done < bytes.size()) {
        DWORD got = 0;
        if (!ReadFile(file.get(), bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &got, nullptr))
            return FileRead::ReadError;
        if (got == 0)
            break;
        done += got;
    }
    bytes.resize(done);
    return FileRead::Ok;
}

}  // namespace tqm
