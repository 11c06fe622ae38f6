// FileView, WriteFileBytes - a whole file to and from memory, for the
// documents that are parsed and formatted in memory.
#pragma once

#include "framework/Handles.h"

#include <stddef.h>

#include <string>

namespace tqm {

// A file's contents, mapped read-only into memory: no copy is made, and
// nothing is read that the caller does not look at. The file is shared for
// reading, writing and deleting; while it is mapped the system refuses to
// cut it shorter.
class FileView
{
public:
    FileView() = default;
    FileView(const FileView&) = delete;
    FileView& operator=(const FileView&) = delete;

    // Maps the file. False, with the system's code as the thread's last
    // error, when it cannot be opened or mapped.
    bool Open(const char* pszPath);
    const char* data() const { return static_cast<const char*>(m_view.get()); }
    size_t size() const { return m_size; }

private:
    UniqueView m_view;
    size_t m_size = 0;
};

// Creates (or truncates) the file and writes the bytes. False, with the
// system's code as the thread's last error, when that fails.
bool WriteFileBytes(const char* pszPath, const std::string& bytes);

}  // namespace tqm
