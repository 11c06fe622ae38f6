// ScanSourceDirectives, SourceDirectiveScanner, HasEncipheredSignature - the
// directives by which a library's source files name other files.
//
//   $INCLUDE name      the named file is part of this one (nested inclusion)
//   $LIB name          links the object library name (".obl" when it has no extension)
//   $USE name          uses the compiled unit name (".obj" when it has no extension)
//
// A directive is a line whose first non-blank character is "$"; the keyword
// is recognised by its first characters without regard to case ("$INCLUDE",
// or "$LIB" and "$USE"), so "$Include" and "$LIBRARY" count too. The
// argument follows after optional blanks, either quoted ("name", blanks after
// the opening quote skipped, no name without a closing quote) or bare, up to
// the first blank, ";" or the end of the line. Blanks are the runtime's
// isspace characters. A NUL byte ends its line's text, so binary files scan
// as text.
//
// The scan reads its text once, front to back, and keeps nothing of a line
// but the directive it is reading, so it can take a file block by block.
//
// Some sources are stored enciphered (see IsEncipheredSource): such a file
// begins with a signature; its directives are not readable.
//
// Pure code over a byte range: nothing here touches a file.
#pragma once

#include <stddef.h>

#include <string>
#include <vector>

namespace tqm {

enum class SourceDirectiveKind
{
    Include,
    Lib,
    Use
};

struct SourceDirective
{
    SourceDirectiveKind kind;
    std::string name;
};

// Every directive with a name, in the order of the lines.
std::vector<SourceDirective> ScanSourceDirectives(const char* text, size_t size);

// The longest name a directive can give: the longest path the system can
// open. A longer name names no file and is passed over.
constexpr size_t kLongestDirectiveName = 32767;

// The same scan over a text that arrives in pieces of any size, split
// anywhere (a file read block by block): the memory it needs does not grow
// with the file, only with the directives found.
class SourceDirectiveScanner
{
public:
    // Scans the next piece of the text.
    void Feed(const char* data, size_t size);
    // Ends the text (its last line needs no line end) and hands over the
    // directives found.
    std::vector<SourceDirective> Finish();

private:
    enum class State
    {
        LineStart,    // blanks before the first character of a line
        Keyword,      // after "$": matching the keyword's letters
        Argument,     // blanks before the argument
        QuoteStart,   // blanks after the opening quote
        Quoted,       // a quoted name, up to the closing quote
        Bare,         // a bare name, up to a blank or ";"
        RestOfLine    // nothing more on this line
    };

    // Takes one character that is neither a line feed nor a NUL.
    void step(char ch);
    // The line's text ends (line feed, NUL or the end of the text).
    void endLineText();
    void appendToName(char ch);
    void emit();

    State m_state = State::LineStart;
    const char* m_keyword = nullptr;  // the keyword being matched ("$INCLUDE")
    size_t m_matched = 0;             // its characters matched so far
    SourceDirectiveKind m_kind = SourceDirectiveKind::Include;
    std::string m_name;
    bool m_nameTooLong = false;
    std::vector<SourceDirective> m_directives;
};

// The eight bytes an enciphered source begins with.
constexpr char kEncipheredSignature[] = "TQM\x1A" "ENC1";
constexpr size_t kEncipheredSignatureSize = sizeof(kEncipheredSignature) - 1;

// True when the bytes begin with the signature.
bool HasEncipheredSignature(const char* data, size_t size);

// The extension a $LIB or $USE name gets when it has none: ".obl" or ".obj";
// NULL for $INCLUDE, whose names are taken as they stand.
const char* DefaultDirectiveExtension(SourceDirectiveKind kind);

}  // namespace tqm
