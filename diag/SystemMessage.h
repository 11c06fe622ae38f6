// SystemMessage - the system's text for an error code, in the neutral or
// default language, as long as the object lives.
#pragma once

#include <windows.h>

#include "framework/Handles.h"

namespace tqm {

class SystemMessage
{
public:
    explicit SystemMessage(DWORD dwCode)
    {
        char* pszText = nullptr;
        m_nLength = ::FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                                         FORMAT_MESSAGE_IGNORE_INSERTS,
                                     nullptr, dwCode, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                                     reinterpret_cast<char*>(&pszText), 0, nullptr);
        m_buffer.reset(pszText);
        if (!m_nLength)
            m_buffer.reset();
    }

    // The text, or NULL when the system has none for the code.
    const char* text() const { return static_cast<const char*>(m_buffer.get()); }
    // Its length as the system counted it (0 when there is none).
    DWORD length() const { return m_nLength; }
    // Frees the text early.
    void release() { m_buffer.reset(); }

private:
    UniqueLocalMemory m_buffer;  // the system allocates it; LocalFree frees it
    DWORD m_nLength = 0;
};

}  // namespace tqm
