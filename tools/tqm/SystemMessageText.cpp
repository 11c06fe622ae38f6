// The system's text for an error code, as the commands print it.
#include "tools/tqm/SystemMessageText.h"

#include "framework/Handles.h"

namespace tqmtool {

std::string SystemMessage(DWORD dwError)
{
    char* pszText = nullptr;
    DWORD dwLength = ::FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        dwError, 0, reinterpret_cast<char*>(&pszText), 0, nullptr);
    tqm::UniqueLocalMemory owner(pszText);
    std::string text = dwLength ? std::string(pszText, dwLength) : "error " + std::to_string(dwError);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == ' ' || text.back() == '.'))
        text.pop_back();
    return text;
}

}  // namespace tqmtool
