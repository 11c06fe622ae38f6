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

}  // namespace tqmtest
