// TempDir - a fresh folder in the temporary directory for one test, removed
// with everything in it (read-only files included) when the test ends.
#pragma once

#include <string>

namespace tqmtest {

class TempDir
{
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    // The folder, without a trailing backslash.
    const std::string& path() const { return m_path; }
    // path() + "\" + name
    std::string file(const std::string& name) const { return m_path + "\\" + name; }

private:
    std::string m_path;
};

// Deletes a file or a whole tree; read-only attributes do not stop it. Links
// to folders in the tree are not followed.
void RemoveTree(const std::string& path);

}  // namespace tqmtest
