// Whole files to and from memory.
#include "framework/FileBytes.h"

#include "framework/Handles.h"

#include <windows.h>

namespace tqm {
namespace {

// The system's calls move at most this much at once.
constexpr DWORD kMaxChunk = 1u << 30;

}  // namespace

bool ReadFileBytes(const char* pszPath, std::string& bytes)
{
    bytes.clear();
    UniqueFile file(::CreateFileA(pszPath, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size;
    if (!file || !::GetFileSizeEx(file.get(), &size))
        return false;
    if (static_cast<ULONGLONG>(size.QuadPart) >= bytes.max_size()) {
        ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
    bytes.resize(static_cast<size_t>(size.QuadPart));
    size_t done = 0;
    while (done < bytes.size()) {
        DWORD want = bytes.size() - done < kMaxChunk ? static_cast<DWORD>(bytes.size() - done) : kMaxChunk;
        DWORD got = 0;
        if (!::ReadFile(file.get(), &bytes[done], want, &got, nullptr))
            return false;
        if (got == 0)
            break;  // the file became shorter since its size was taken
        done += got;
    }
    bytes.resize(done);
    return true;
}

bool WriteFileBytes(const char* pszPath, const std::string& bytes)
{
    UniqueFile file(
        ::CreateFileA(pszPath, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return false;
    size_t done = 0;
    while (done < bytes.size()) {
        DWORD want = bytes.size() - done < kMaxChunk ? static_cast<DWORD>(bytes.size() - done) : kMaxChunk;
        DWORD written = 0;
        if (!::WriteFile(file.get(), bytes.data() + done, want, &written, nullptr))
            return false;
        done += written;
    }
    return ::CloseHandle(file.release()) != FALSE;
}

}  // namespace tqm
