// ParseIniText, IniTextWriter - an INI document's text, read from and written
// to bytes in memory. CTQMIniFile reads and writes its files through these;
// the file access itself stays with the class.
//
// The bytes are those of a file in text mode, as the suite has always read
// and written its documents with the C runtime: on reading, CR LF arrives as
// LF, a CR on its own stays, and a Ctrl+Z (0x1A) ends the text; on writing,
// every LF goes out as CR LF.
//
// Reading takes the text line by line into a buffer of kLineBufferSize
// characters, so a longer line arrives as several lines, each counted and
// each read on its own: the tail of a long comment line is whatever it looks
// like. A line ends for the grammar at its first NUL byte. The head comment
// keeps each of its lines up to a NUL byte, with exactly one line feed (none
// after a piece that fills the buffer, even at the end of the text), so that
// a written document reads back the same.
#pragma once

#include "config/logic/IniLineGrammar.h"

#include <stddef.h>

#include <string>

namespace tqm {
namespace ini {

// The lines of a text as text mode delivers them, each at most a buffer's
// length: the lines ParseIniText counts.
class IniTextLines
{
public:
    IniTextLines(const char* data, size_t size);
    // The next line, or the next limit characters of it, into buf (a CR LF
    // arrives as LF, which is kept); no NUL is added. The number of
    // characters; 0 at the end of the text.
    size_t Next(char* buf, size_t limit);

private:
    const char* m_p;
    const char* m_end;
};

// What reading finds, in file order.
class IniTextHandler
{
public:
    virtual ~IniTextHandler() = default;
    // One line of the comment block at the head of the text, with its leading
    // blanks and one line feed at its end.
    virtual void OnComment(const char* line, size_t length) = 0;
    // A section header's name, without the brackets and the blanks around it.
    virtual void OnSection(const char* name) = 0;
    // An entry of the section last announced.
    virtual void OnEntry(const char* name, const char* value) = 0;
};

struct IniTextResult
{
    bool ok;
    // The zero-based number of the last line taken: on failure the line that
    // stopped the reading, else the number of lines - 1 (-1 for no line).
    int lastLine;
};

// Reads a document's text. Fails at an entry before the first section
// header, an entry line without "=" or without a name, and a header without
// "]" or without a name; what was found before stays with the handler. With
// tolerant set, an entry before the first header and a line without "=" are
// skipped instead; the other faults still stop the reading.
IniTextResult ParseIniText(const char* data, size_t size, bool tolerant, IniTextHandler& handler);

// Writes a document's text: the head comment as it stands and an empty line,
// then each section's header and entries, and an empty line after each
// section. Header and entry lines are cut at kMaxWrittenLine characters
// (losing their line feed), as the system's formatting of the suite's
// writers always cut them: deliberate, and counted in LinesCut.
class IniTextWriter
{
public:
    void Comment(const char* text);
    void Section(const char* name);
    void Entry(const char* name, const char* value);
    void EndSection();

    // The text so far, in text mode (CR LF line ends).
    const std::string& Bytes() const { return m_bytes; }
    // Header and entry lines that were cut.
    int LinesCut() const { return m_nCut; }

private:
    void appendLine(const char* a, const char* b, const char* c);
    void appendText(const char* text, size_t length);

    std::string m_bytes;
    int m_nCut = 0;
};

// The longest header or entry line written, line feed included.
constexpr size_t kMaxWrittenLine = 1023;

}  // namespace ini
}  // namespace tqm
