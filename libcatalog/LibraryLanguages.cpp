// The preferred, application and usable languages, and the help file path.
#include "libcatalog/LibraryLanguages.h"

#include "config/Profile.h"
#include "libcatalog/CatalogueCall.h"
#include "libcatalog/ProfileSection.h"
#include "paths/InstallDirs.h"
#include "paths/PathNames.h"

#include <stdio.h>
#include <string.h>

namespace {

// The first two characters of text and a NUL into code.
void copyCode(const char* text, char* code)
{
    const size_t length = strnlen(text, 2);
    memcpy(code, text, length);
    code[length] = '\0';
}

// The option into code; "en" when it is missing or empty (an empty language
// is no language).
void readLanguageOption(const char* key, char* code)
{
    if (!code)
        return;
    char value[MAX_PATH] = "";
    TQMGetVMXOption(key, value, sizeof(value));
    copyCode(value[0] ? value : "en", code);
}

BOOL usableLanguage(const char* descriptionFile, char* code)
{
    char preferred[3];
    TQMGetLibLanguage(preferred);
    const int count = TQMGetProfileInt("Languages", "Count", 0, descriptionFile);
    tqm::ProfileSection languages;
    if (count > 0)
        languages.Read(descriptionFile, "Languages");
    std::string chosen = languages.Value("Lang0", "");
    BOOL found = FALSE;
    // The numbers present are enough: a missing entry is "", never a language.
    for (uint32_t n : languages.NumberedKeys("Lang")) {
        if (n >= static_cast<uint32_t>(count))
            break;
        char key[32];
        snprintf(key, sizeof(key), "Lang%u", n);
        if (n > 0 && !_stricmp(languages.Value(key, ""), preferred)) {
            chosen = preferred;
            found = TRUE;
            break;
        }
    }
    copyCode(chosen.empty() ? "en" : chosen.c_str(), code);
    return found;
}

BOOL helpFilePath(const char* descriptionFile, char* path)
{
    char code[3];
    TQMGetUsableLibLanguage(descriptionFile, code);
    const CString helpFile = TQMGetProfileString(code, "HelpFile", "", descriptionFile);
    if (helpFile.IsEmpty())
        return FALSE;
    CString full;
    full.Format("%s\\%s", TQMGetParentDir(descriptionFile).GetString(), helpFile.GetString());
    // Callers pass MAX_PATH bytes; a longer path is cut rather than overrun them.
    lstrcpynA(path, full, MAX_PATH);
    return TRUE;
}

}  // namespace

void WINAPI TQMGetLibLanguage(char* code) { readLanguageOption("LibLanguage", code); }

CString WINAPI TQMGetLibLanguage()
{
    char code[3];
    TQMGetLibLanguage(code);
    return CString(code);
}

void WINAPI TQMGetAppLanguage(char* code) { readLanguageOption("AppLanguage", code); }

CString WINAPI TQMGetAppLanguage()
{
    char code[3];
    TQMGetAppLanguage(code);
    return CString(code);
}

BOOL WINAPI TQMGetUsableLibLanguage(const char* descriptionFile, char* code)
{
    if (!code)
        return FALSE;
    copyCode("en", code);
    return tqm::CatalogueCall<BOOL>(FALSE, [&] { return usableLanguage(descriptionFile, code); });
}

BOOL WINAPI TQMGetLibHelpFilePath(const char* descriptionFile, char* path)
{
    if (!path)
        return FALSE;
    path[0] = '\0';
    if (!descriptionFile)
        return FALSE;
    return tqm::CatalogueCall<BOOL>(FALSE, [&] { return helpFilePath(descriptionFile, path); });
}
