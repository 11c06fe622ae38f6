// Small file helpers for tests: whole files in and out as bytes.
#pragma once

#include <map>
#include <string>

namespace tqmtest {

// Writes the bytes exactly as given (no line-end translation).
bool WriteBytes(const std::string& path, const std::string& bytes);
// The file's bytes; empty when it cannot be read.
std::string ReadBytes(const std::string& path);
bool PathExists(const std::string& path);
// Every entry below a folder, by its relative path, with its kind, read-only
// state and bytes: two snapshots differ when anything in the tree changed.
std::map<std::string, std::string> SnapshotTree(const std::string& dir);

}  // namespace tqmtest
