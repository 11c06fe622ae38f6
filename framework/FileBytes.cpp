// Whole files to and from memory.
#include "framework/FileBytes.h"

#include "framework/Handles.h"

#include <windows.h>

namespace tqm {
namespace {

// The system's calls move at most this much at once.
constexpr DWORD kMaxChunk = 1u << 30;

}  // namespace

bool FileView::Open(const char* pszPath)
{
    m_view.reset();
    m_size = 0;
    // Shared as the C runtime shares a file it opens for reading: a file that
    // another program holds open for writing is read all the same.
    UniqueFile file(::CreateFileA(pszPath, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size;
    if (!file || !::GetFileSizeEx(file.get(), &size))
        return false;
    if (static_cast<ULONGLONG>(size.QuadPart) > static_cast<SIZE_T>(-1) / 2) {
        ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
    if (size.QuadPart == 0)
        return true;  // an empty file cannot be mapped, and needs no view
    UniqueHandle mapping(::CreateFileMappingA(file.get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
    if (!mapping)
        return false;
    m_view.reset(::MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0));
    if (!m_view)
        return false;
    m_size = static_cast<size_t>(size.QuadPart);
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
