// ReadFileBytes, WriteFileBytes - a whole file to and from memory, for the
// documents that are parsed and formatted in memory.
#pragma once

#include <string>

namespace tqm {

// The file's contents. False, with the system's code as the thread's last
// error, when it cannot be opened or read.
bool ReadFileBytes(const char* pszPath, std::string& bytes);

// Creates (or truncates) the file and writes the bytes. False, with the
// system's code as the thread's last error, when that fails.
bool WriteFileBytes(const char* pszPath, const std::string& bytes);

}  // namespace tqm
