// tqm version FILE
#include "tools/tqm/Command.h"

#include "paths/logic/VersionCode.h"
#include "ui/VersionInfo.h"

#include <stdio.h>

namespace tqmtool {
namespace {

// The string-table entries a version resource usually holds.
const char* const kStringNames[] = {"FileDescription", "FileVersion",     "ProductName",    "ProductVersion",
                                    "CompanyName",     "LegalCopyright",  "LegalTrademarks", "InternalName",
                                    "OriginalFilename", "Comments",       "PrivateBuild",   "SpecialBuild"};

CString fourPartVersion(DWORD ms, DWORD ls)
{
    CString text;
    text.Format("%u.%u.%u.%u", HIWORD(ms), LOWORD(ms), HIWORD(ls), LOWORD(ls));
    return text;
}

// One object per entry: a missing entry leaves a version object empty for
// every later question.
CString stringEntry(const std::string& file, const char* name)
{
    CVersionInfo info;
    info.Init(file.c_str());
    return info.StringFileInfo(name);
}

int runVersion(const Args& args)
{
    if (args.size() != 1)
        return UsageError("version", args.empty() ? "a file is needed" : "one file only");
    const std::string& file = args[0];

    CVersionInfo info;
    if (!info.Init(file.c_str())) {
        if (file.find_first_of("\\/:") != std::string::npos &&
            GetFileAttributesA(file.c_str()) == INVALID_FILE_ATTRIBUTES)
            return Fail("%s: not found", file.c_str());
        return Fail("%s: no version resource", file.c_str());
    }
    const DWORD langCodePage = info.GetLangCodePage();
    const CString language = info.Language();
    const VS_FIXEDFILEINFO* pFixed = info.GetFixedFileInfo();
    if (!info.IsOk() || !pFixed)
        return Fail("%s: the version resource has no fixed version", file.c_str());

    printf("File:             %s\n", file.c_str());
    printf("File version:     %s\n", fourPartVersion(pFixed->dwFileVersionMS, pFixed->dwFileVersionLS).GetString());
    printf("Product version:  %s\n",
           fourPartVersion(pFixed->dwProductVersionMS, pFixed->dwProductVersionLS).GetString());
    printf("Language:         %s (%04x, code page %u)\n", language.IsEmpty() ? "unknown" : language.GetString(),
           HIWORD(langCodePage), LOWORD(langCodePage));
    printf("Version code:     %d\n", tqm::VersionCode(pFixed->dwFileVersionMS, pFixed->dwFileVersionLS));
    printf("String table %08lx:\n", static_cast<unsigned long>(langCodePage));
    for (const char* name : kStringNames) {
        const CString value = stringEntry(file, name);
        if (!value.IsEmpty())
            printf("  %-17s %s\n", name, value.GetString());
    }
    return kExitOk;
}

}  // namespace

TQM_REGISTER_COMMAND({"version", "the version resource of a program or library file",
                      "usage: tqm version FILE\n\n"
                      "Shows the version resource of FILE, any program or library: its fixed file\n"
                      "and product versions, the language of its string table, the suite's integer\n"
                      "version code (major * 10000 + minor * 1000 + build, so 2.0.110.7 gives 20110)\n"
                      "and the entries of the string table. A name without a folder is searched for\n"
                      "as Windows searches for modules.\n\n"
                      "Exit status: 0 shown, 1 the file is missing or has no version resource,\n"
                      "2 usage error.\n",
                      runVersion});

}  // namespace tqmtool
