// Reading a file or standard input in pieces - for the commands that read
// files.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace tqmtool {

// Calls onPiece with successive pieces of the file ("-": standard input)
// until its end. False, with the system's code in *pError, when the file
// cannot be opened or read.
bool ReadInPieces(const std::string& name, const std::function<void(const BYTE*, DWORD)>& onPiece, DWORD* pError);

// A copy of standard input in a temporary file, deleted with the object;
// for commands that need a file name.
class StdinCopy
{
public:
    StdinCopy() = default;
    ~StdinCopy();
    StdinCopy(const StdinCopy&) = delete;
    StdinCopy& operator=(const StdinCopy&) = delete;

    // Makes the copy; false, with the system's code in *pError, on failure.
    bool make(DWORD* pError);
    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

}  // namespace tqmtool
