// The working record of a library's file set.
#include "libcatalog/LibraryFileSet.h"

#include "config/IniSystemFold.h"
#include "framework/CString.h"

namespace tqm {

LibraryFileSet::LibraryFileSet() : m_known(ini::SystemNameFold()), m_familyNames(ini::SystemNameFold()) {}

bool LibraryFileSet::AddFile(const std::string& path)
{
    if (!m_known.Insert(path))
        return false;
    m_files.push_back({path, false, false});
    return true;
}

bool LibraryFileSet::MarkDone(size_t i)
{
    if (m_files[i].done)
        return false;
    m_files[i].done = true;
    return true;
}

std::vector<std::string> LibraryFileSet::Files() const
{
    std::vector<std::string> files;
    for (const Entry& entry : m_files) {
        if (!entry.removed)
            files.push_back(entry.path);
    }
    return files;
}

void LibraryFileSet::Raise(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    CString message;
    message.FormatV(format, args);
    va_end(args);
    m_messages.emplace_back(message.GetString(), message.GetLength());
}

}  // namespace tqm
