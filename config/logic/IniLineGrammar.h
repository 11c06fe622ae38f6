// The line grammar of INI files, shared by the document reader
// (CTQMIniFile::Read) and the single-value scanner (TQMGetProfileString).
//
// Both readers take a file line by line in text mode, at most
// kLineBufferSize - 1 characters at a time with the line feed kept, skip the
// leading blanks and classify what is left. They differ on purpose, and both
// differences are kept:
//  - "//" starts a comment only for the document; the scanner treats such a
//    line as an entry line that names no key it looks for;
//  - within a section the scanner returns the first entry of a name, while the
//    document replaces an entry by a later one of the same name.
//
// Functions that take a char* work in place: they cut the line with NULs.
#pragma once

#include "config/logic/IniNames.h"

namespace tqm {
namespace ini {

// The reading buffer of both readers; a longer line arrives in pieces.
constexpr int kLineBufferSize = 3072;
// The longest name plus value an entry of a document can hold.
constexpr int kMaxEntryText = 3072;

// A byte is blank when its value as a signed 8-bit number is at most 32: the
// controls, the space and every byte from 128 up. Deliberate: names and values
// never begin or end with bytes of 128 and above, which files rely on.
inline bool IsBlank(char ch) { return static_cast<signed char>(ch) <= 32; }

// The first character from p that is NUL or not blank.
char* SkipBlanks(char* p);
const char* SkipBlanks(const char* p);

// Cuts the blanks at the end of the text [start, end) by writing a NUL after
// its last non-blank character. False, with start cut to "", when nothing is
// left or end is not above start (a null end included).
bool TrimBlanks(char* start, char* end);

enum class LineKind
{
    Empty,    // nothing but blanks
    Comment,  // ";" or "#", and for documents "//"
    Header,   // "["
    Entry     // anything else
};

enum class Reader
{
    Document,
    Profile
};

// What a line is, from its first non-blank character p on.
LineKind ClassifyLine(const char* p, Reader reader);

// A document's section header, p at its "[": the name between the brackets
// with the blanks around it cut, or NULL when there is no "]" or no name.
// Text after the "]" is ignored.
char* ParseHeaderName(char* p);

enum class EntryParse
{
    Ok,
    NoEquals,   // the line holds no "="
    EmptyName   // nothing but blanks before the "="
};

// A document's entry line, p at its first non-blank character: the name is the
// text before the first "=", the value the text after it, both without the
// blanks around them (the line end included). The value may be empty.
EntryParse ParseEntryLine(char* p, char** ppName, char** ppValue);

// The scanner's header test, p at the "[": true when the name follows, with
// blanks allowed after "[" and before "]". [Name] and [ Name ] match Name,
// [NameX] does not; text after "]" does not matter.
bool HeaderNamesSection(const char* p, const char* section, const NameFold& fold);

// The scanner's entry test, p at the line's first non-blank character: when
// the line assigns to key (blanks allowed before "="), the value without the
// blanks around it, cut in place; otherwise NULL. Key=v and Key = v match Key,
// KeyX=v does not.
char* ValueForKey(char* p, const char* key, const NameFold& fold);

}  // namespace ini
}  // namespace tqm
