// CheckPathName, SplitPath - the suite's rules for the names users type for
// projects, controllers and files, and the pieces of a path as the runtime's
// path split sees them.
//
// Pure text rules: nothing here touches the file system. Letters and digits
// are those of the system code page (IsCharAlpha, IsCharAlphaNumeric) unless
// a table of them is given.
#pragma once

#include "framework/CString.h"

namespace tqm {

// Why a name is not a valid path name.
enum class PathNameFault
{
    None,
    Empty,              // null or empty
    BadDriveLetter,     // something other than a letter before the colon
    DriveOnly,          // "C:" and nothing after it
    BadUncPrefix,       // "\\" followed by a backslash or by nothing
    BadLeadingDot,      // a leading dot that does not start ".\" or "..\"
    TooManyDots,        // three or more dots in a row
    DotAfterBackslash,  // a component that starts with a dot
    DoubleDotInName,    // ".." followed by something other than a backslash
    DoubleBackslash,    // an empty component
    WildcardNotAllowed, // ? or * where wildcards were not asked for
    BadCharacter,       // outside letters, digits and the allowed punctuation
    TrailingDoubleDot,  // ends with ".."
    TrailingBackslash,  // ends with a backslash
    DeviceName          // COM0..COM9, LPT0..LPT9 or AUX
};

struct PathNameVerdict
{
    PathNameFault fault;
    int position;  // index of the offending character; -1 when the name as a whole is at fault

    bool valid() const { return fault == PathNameFault::None; }
};

// Which bytes count as letters, and as letters or digits, in names.
class NameLetters
{
public:
    // The ASCII letters and digits alone.
    NameLetters();
    // The system code page's, as IsCharAlpha and IsCharAlphaNumeric tell.
    static const NameLetters& System();

    bool IsLetter(char ch) const { return (m_flags[static_cast<unsigned char>(ch)] & kLetter) != 0; }
    bool IsLetterOrDigit(char ch) const { return (m_flags[static_cast<unsigned char>(ch)] & kLetterOrDigit) != 0; }

private:
    enum : unsigned char
    {
        kLetter = 1,
        kLetterOrDigit = 2
    };
    unsigned char m_flags[256];
};

// Checks path by the suite's path-name rules (narrower than Windows' own).
// A fault's position is the index of a character of path, or -1.
PathNameVerdict CheckPathName(const char* path, bool allowWildcards,
                              const NameLetters& letters = NameLetters::System());

// A short English description of a fault, for tools and logs.
const char* DescribePathNameFault(PathNameFault fault);

// True for the punctuation allowed in names besides letters and digits:
// the space and $%'-_@~`!()^#&+,=[]
bool IsAllowedNamePunctuation(char ch);

// The four pieces of a path, split as the runtime's _splitpath does (drive
// "C:", directory with its trailing separator, name, extension from the last
// dot of the name on), without its fixed-size buffers.
struct PathParts
{
    CString drive;
    CString dir;
    CString name;
    CString ext;
};
PathParts SplitPath(const char* path);

}  // namespace tqm
