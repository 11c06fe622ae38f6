// Reading files and standard input for the commands.
#include "tools/tqm/StreamInput.h"

#include "framework/Handles.h"

#include <vector>

namespace tqmtool {
namespace {
constexpr DWORD kPieceSize = 64 * 1024;
}

bool ReadInPieces(const std::string& name, const std::function<void(const BYTE*, DWORD)>& onPiece, DWORD* pError)
{
    *pError = 0;
    tqm::UniqueFile owned;
    HANDLE hInput = ::GetStdHandle(STD_INPUT_HANDLE);
    if (name != "-") {
        owned.reset(::CreateFileA(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
        if (!owned) {
            *pError = ::GetLastError();
            return false;
        }
        hInput = owned.get();
    }
    std::vector<BYTE> piece(kPieceSize);
    for (;;) {
        DWORD dwRead = 0;
        if (!::ReadFile(hInput, piece.data(), kPieceSize, &dwRead, nullptr)) {
            DWORD dwError = ::GetLastError();
            if (dwError == ERROR_BROKEN_PIPE)  // the writer of a pipe is done
                return true;
            *pError = dwError;
            return false;
        }
        if (dwRead == 0)
            return true;
        onPiece(piece.data(), dwRead);
    }
}

StdinCopy::~StdinCopy()
{
    if (!m_path.empty())
        ::DeleteFileA(m_path.c_str());
}

bool StdinCopy::make(DWORD* pError)
{
    char dir[MAX_PATH] = "";
    char file[MAX_PATH] = "";
    if (!::GetTempPathA(MAX_PATH, dir) || !::GetTempFileNameA(dir, "tqm", 0, file)) {
        *pError = ::GetLastError();
        return false;
    }
    m_path = file;
    tqm::UniqueFile copy(::CreateFileA(file, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY,
                                       nullptr));
    if (!copy) {
        *pError = ::GetLastError();
        return false;
    }
    bool bWritten = true;
    bool bRead = ReadInPieces("-", [&](const BYTE* p, DWORD n) {
        DWORD dwWritten = 0;
        if (bWritten && !::WriteFile(copy.get(), p, n, &dwWritten, nullptr)) {
            bWritten = false;
            *pError = ::GetLastError();
        }
    }, pError);
    return bRead && bWritten;
}

}  // namespace tqmtool
