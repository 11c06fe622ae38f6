// Library members by extension.
#include "libcatalog/logic/LibraryMembers.h"

#include <string.h>

namespace tqm {
namespace {

const char* const kHelpAndDataExtensions[] = {".hlp", ".chm", ".cnt", ".pdf", ".doc", ".rtf", ".htm",
                                              ".html", ".txt", ".bmp", ".ico", ".gif", ".jpg", ".png",
                                              ".wav", ".zip", ".dll", ".exe", ".lmi"};

const char* const kEncipheredExtensions[] = {".srx", ".inx"};

bool equalNoCase(const char* a, const char* b)
{
    for (;; ++a, ++b) {
        const char ca = (*a >= 'A' && *a <= 'Z') ? static_cast<char>(*a - 'A' + 'a') : *a;
        const char cb = (*b >= 'A' && *b <= 'Z') ? static_cast<char>(*b - 'A' + 'a') : *b;
        if (ca != cb)
            return false;
        if (!ca)
            return true;
    }
}

template <size_t N>
bool isOneOf(const char* ext, const char* const (&list)[N])
{
    for (const char* candidate : list) {
        if (equalNoCase(ext, candidate))
            return true;
    }
    return false;
}

}  // namespace

bool HasExtension(const char* path, const char* ext)
{
    const char* dot = path ? strrchr(path, '.') : nullptr;
    return dot && equalNoCase(dot, ext);
}

LibraryMemberKind ClassifyLibraryMember(const char* path)
{
    const char* ext = path ? strrchr(path, '.') : nullptr;
    if (!ext)
        return LibraryMemberKind::Source;
    if (equalNoCase(ext, ".dff"))
        return LibraryMemberKind::FamilyFile;
    if (strchr(ext, '\\'))
        return LibraryMemberKind::DottedFolder;
    if (equalNoCase(ext, ".obj") || equalNoCase(ext, ".obl"))
        return LibraryMemberKind::ObjectFile;
    if (equalNoCase(ext, ".bak"))
        return LibraryMemberKind::Backup;
    if (isOneOf(ext, kHelpAndDataExtensions))
        return LibraryMemberKind::HelpOrData;
    if (isOneOf(ext, kEncipheredExtensions))
        return LibraryMemberKind::Enciphered;
    return LibraryMemberKind::Source;
}

}  // namespace tqm
