// Library members by extension.
#include "libcatalog/logic/LibraryMembers.h"

#include "config/logic/AsciiCase.h"

#include <string.h>

namespace tqm {
namespace {

const char* const kHelpAndDataExtensions[] = {".hlp", ".chm", ".cnt", ".pdf", ".doc", ".rtf", ".htm",
                                              ".html", ".txt", ".bmp", ".ico", ".gif", ".jpg", ".png",
                                              ".wav", ".zip", ".dll", ".exe", ".lmi"};

const char* const kEncipheredExtensions[] = {".srx", ".inx"};


template <size_t N>
bool isOneOf(const char* ext, const char* const (&list)[N])
{
    for (const char* candidate : list) {
        if (EqualNoCase(ext, candidate))
            return true;
    }
    return false;
}

}  // namespace

bool HasExtension(const char* path, const char* ext)
{
    const char* dot = path ? strrchr(path, '.') : nullptr;
    return dot && EqualNoCase(dot, ext);
}

LibraryMemberKind ClassifyLibraryMember(const char* path)
{
    const char* ext = path ? strrchr(path, '.') : nullptr;
    if (!ext)
        return LibraryMemberKind::Source;
    if (EqualNoCase(ext, ".dff"))
        return LibraryMemberKind::FamilyFile;
    if (strchr(ext, '\\'))
        return LibraryMemberKind::DottedFolder;
    if (EqualNoCase(ext, ".obj") || EqualNoCase(ext, ".obl"))
        return LibraryMemberKind::ObjectFile;
    if (EqualNoCase(ext, ".bak"))
        return LibraryMemberKind::Backup;
    if (isOneOf(ext, kHelpAndDataExtensions))
        return LibraryMemberKind::HelpOrData;
    if (isOneOf(ext, kEncipheredExtensions))
        return LibraryMemberKind::Enciphered;
    return LibraryMemberKind::Source;
}

}  // namespace tqm
