#include "paths/logic/PathNameRules.h"

#include "config/logic/AsciiCase.h"

#include <string.h>

namespace tqm {
namespace {

bool isAsciiDigit(char ch) { return ch >= '0' && ch <= '9'; }

PathNameVerdict verdict(PathNameFault fault, int position) { return PathNameVerdict{fault, position}; }

// COM0..COM9 and LPT0..LPT9 as the name part, whatever the extension:
// COM1.txt is refused too. CON, PRN and NUL are accepted, as they always
// were by this check; names stored under them must stay valid.
bool isNumberedDevice(const CString& name)
{
    return name.GetLength() == 4 && (StartsWithNoCase(name, "COM") || StartsWithNoCase(name, "LPT")) &&
           isAsciiDigit(name[3]);
}

// The character scan over everything after the drive and UNC prefixes.
PathNameVerdict scanCharacters(const char* path, int start, bool allowWildcards, const NameLetters& letters)
{
    int dots = 0;
    bool afterBackslash = false;
    int i = start;
    for (; path[i]; ++i) {
        const char ch = path[i];
        if (ch == '.') {
            if (++dots > 2)
                return verdict(PathNameFault::TooManyDots, i);
            // Deliberately narrower than Windows: a component may not start
            // with a dot, so ..\..\x and a\.b are refused.
            if (afterBackslash)
                return verdict(PathNameFault::DotAfterBackslash, i);
            continue;
        }
        if (dots == 2 && ch != '\\')
            return verdict(PathNameFault::DoubleDotInName, i);
        dots = 0;
        if (ch == '\\') {
            if (afterBackslash)
                return verdict(PathNameFault::DoubleBackslash, i);
            afterBackslash = true;
            continue;
        }
        afterBackslash = false;
        if (ch == '?' || ch == '*') {
            if (!allowWildcards)
                return verdict(PathNameFault::WildcardNotAllowed, i);
            continue;
        }
        if (!letters.IsLetterOrDigit(ch) && !IsAllowedNamePunctuation(ch))
            return verdict(PathNameFault::BadCharacter, i);
    }
    if (dots == 2)
        return verdict(PathNameFault::TrailingDoubleDot, i - 1);
    if (afterBackslash)
        return verdict(PathNameFault::TrailingBackslash, i - 1);
    return verdict(PathNameFault::None, -1);
}

}  // namespace

NameLetters::NameLetters()
{
    for (int c = 0; c < 256; ++c) {
        bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        bool digit = c >= '0' && c <= '9';
        m_flags[c] = static_cast<unsigned char>((letter ? kLetter : 0) | (letter || digit ? kLetterOrDigit : 0));
    }
}

bool IsAllowedNamePunctuation(char ch) { return ch != '\0' && strchr(" $%'-_@~`!()^#&+,=[]", ch) != nullptr; }

PathNameVerdict CheckPathName(const char* path, bool allowWildcards, const NameLetters& letters)
{
    if (!path || !*path)
        return verdict(PathNameFault::Empty, -1);

    int rest = 0;
    if (path[1] == ':') {
        if (!letters.IsLetter(path[0]))
            return verdict(PathNameFault::BadDriveLetter, 0);
        rest = 2;
        if (!path[rest])
            return verdict(PathNameFault::DriveOnly, -1);
    }
    if (path[rest] == '\\' && path[rest + 1] == '\\') {
        rest += 2;
        if (!path[rest])
            return verdict(PathNameFault::BadUncPrefix, -1);  // nothing to point at
        if (path[rest] == '\\')
            return verdict(PathNameFault::BadUncPrefix, rest);
    }
    // A leading dot is checked here but not skipped: the scan sees it again.
    if (path[rest] == '.' && strncmp(path + rest, ".\\", 2) != 0 && strncmp(path + rest, "..\\", 3) != 0)
        return verdict(PathNameFault::BadLeadingDot, rest);

    PathNameVerdict scanned = scanCharacters(path, rest, allowWildcards, letters);
    if (!scanned.valid())
        return scanned;

    const CString name = SplitPath(path).name;
    if (isNumberedDevice(name))
        return verdict(PathNameFault::DeviceName, -1);
    // Only the bare name AUX is refused; AUX.txt and C:\AUX pass, as they
    // always have.
    if (name.GetLength() == 3 && EqualNoCase(path + rest, "AUX"))
        return verdict(PathNameFault::DeviceName, -1);
    return verdict(PathNameFault::None, -1);
}

const char* DescribePathNameFault(PathNameFault fault)
{
    switch (fault) {
    case PathNameFault::None: return "valid";
    case PathNameFault::Empty: return "empty name";
    case PathNameFault::BadDriveLetter: return "not a drive letter before the colon";
    case PathNameFault::DriveOnly: return "nothing after the drive";
    case PathNameFault::BadUncPrefix: return "no server name after the two leading backslashes";
    case PathNameFault::BadLeadingDot: return "a leading dot must begin .\\ or ..\\";
    case PathNameFault::TooManyDots: return "more than two dots in a row";
    case PathNameFault::DotAfterBackslash: return "a dot right after a backslash";
    case PathNameFault::DoubleDotInName: return "two dots inside a name";
    case PathNameFault::DoubleBackslash: return "two backslashes in a row";
    case PathNameFault::WildcardNotAllowed: return "wildcards are not allowed";
    case PathNameFault::BadCharacter: return "character not allowed in names";
    case PathNameFault::TrailingDoubleDot: return "ends with ..";
    case PathNameFault::TrailingBackslash: return "ends with a backslash";
    case PathNameFault::DeviceName: return "reserved device name";
    }
    return "invalid";
}

PathParts SplitPath(const char* path)
{
    PathParts parts;
    if (!path)
        return parts;
    if (path[0] && path[1] == ':') {
        parts.drive = CString(path, 2);
        path += 2;
    }
    const char* nameStart = path;
    for (const char* p = path; *p; ++p) {
        if (*p == '\\' || *p == '/')
            nameStart = p + 1;
    }
    parts.dir = CString(path, static_cast<int>(nameStart - path));
    const char* extStart = strrchr(nameStart, '.');
    if (!extStart)
        extStart = nameStart + strlen(nameStart);
    parts.name = CString(nameStart, static_cast<int>(extStart - nameStart));
    parts.ext = extStart;
    return parts;
}

}  // namespace tqm
