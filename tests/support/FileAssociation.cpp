#include "support/FileAssociation.h"

#include "support/FileUtil.h"
#include "support/FixtureFiles.h"

#include <windows.h>

namespace tqmtest {

namespace {

void setDefaultValue(const std::string& key, const std::string& value)
{
    HKEY hKey = nullptr;
    if (RegCreateKeyExA(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &hKey, nullptr) ==
        ERROR_SUCCESS) {
        RegSetValueExA(hKey, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>(value.size() + 1));
        RegCloseKey(hKey);
    }
}

}  // namespace

FileAssociation::FileAssociation(const std::string& ext, const std::string& command)
    : m_ext(ext), m_progId("TqmTest" + ext)
{
    setDefaultValue(m_ext, m_progId);
    setDefaultValue(m_progId + "\\shell\\open\\command", command);
}

FileAssociation::~FileAssociation()
{
    RegDeleteTreeA(HKEY_CLASSES_ROOT, m_progId.c_str());
    RegDeleteKeyA(HKEY_CLASSES_ROOT, m_ext.c_str());
}

std::string HelpViewerCommand(const std::string& log)
{
    return "\"" + FixturePath("helpviewer.exe") + "\" \"" + log + "\" \"%1\"";
}

std::string WaitForLine(const std::string& path, unsigned timeoutMs)
{
    for (unsigned waited = 0;; waited += 100) {
        const std::string text = ReadBytes(path);
        const size_t end = text.find_first_of("\r\n");
        if (end != std::string::npos)
            return text.substr(0, end);
        if (waited >= timeoutMs)
            return std::string();
        Sleep(100);
    }
}

}  // namespace tqmtest
