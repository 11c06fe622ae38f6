// Reading and writing an INI document's text.
#include "config/logic/IniText.h"

#include <string.h>

#include <initializer_list>

namespace tqm {
namespace ini {
namespace {

const char kEndOfText = 0x1A;  // Ctrl+Z: text mode reads no further

// The characters of a line the grammar sees: those before its first NUL.
size_t visibleLength(const char* line, size_t n)
{
    const void* nul = memchr(line, '\0', n);
    return nul ? static_cast<size_t>(static_cast<const char*>(nul) - line) : n;
}

// A piece of the head comment as the document keeps it: up to a NUL byte,
// with one line feed at its end, so that a written document reads back the
// same. A piece that fills the buffer without a line feed gets none: the
// rest of its line follows as the next piece. That holds for the last line
// of the text too when it is exactly a buffer long, since written back with
// a line feed it reads as a full piece and then an empty line.
std::string headCommentPiece(const char* line, size_t n, size_t limit)
{
    size_t visible = visibleLength(line, n);
    std::string piece(line, visible);
    bool bCutForLength = visible == n && n == limit && line[n - 1] != '\n';
    if (!bCutForLength && (piece.empty() || piece.back() != '\n'))
        piece += '\n';
    return piece;
}

}  // namespace

IniTextLines::IniTextLines(const char* data, size_t size) : m_p(data), m_end(data + size)
{
    if (const void* stop = size ? memchr(data, kEndOfText, size) : nullptr)
        m_end = static_cast<const char*>(stop);
}

size_t IniTextLines::Next(char* buf, size_t limit)
{
    size_t n = 0;
    while (n < limit && m_p < m_end) {
        size_t avail = static_cast<size_t>(m_end - m_p);
        if (avail > limit - n)
            avail = limit - n;
        size_t run = 0;
        while (run < avail && m_p[run] != '\n' && m_p[run] != '\r')
            ++run;
        memcpy(buf + n, m_p, run);
        n += run;
        m_p += run;
        if (run == avail)
            continue;
        if (*m_p == '\n') {
            buf[n++] = '\n';
            ++m_p;
            break;
        }
        // A carriage return: CR LF is one line end, a lone CR is text.
        if (m_p + 1 < m_end && m_p[1] == '\n') {
            buf[n++] = '\n';
            m_p += 2;
            break;
        }
        buf[n++] = '\r';
        ++m_p;
    }
    return n;
}

IniTextResult ParseIniText(const char* data, size_t size, bool tolerant, IniTextHandler& handler)
{
    IniTextLines text(data, size);
    char line[kLineBufferSize];
    const size_t limit = kLineBufferSize - 1;
    int nLine = -1;
    bool bHeadComment = true;
    bool bInSection = false;
    std::string comment;
    while (size_t n = text.Next(line, limit)) {
        ++nLine;
        line[n] = '\0';
        char* p = SkipBlanks(line);
        LineKind kind = ClassifyLine(p, Reader::Document);
        if (kind == LineKind::Comment) {
            if (bHeadComment) {
                comment = headCommentPiece(line, n, limit);
                handler.OnComment(comment.data(), comment.size());
            }
            continue;
        }
        // The head comment ends at the first other line, an empty one included.
        bHeadComment = false;
        if (kind == LineKind::Empty)
            continue;

        if (kind == LineKind::Header) {
            char* name = ParseHeaderName(p);
            if (!name)
                return {false, nLine};
            handler.OnSection(name);
            bInSection = true;
            continue;
        }

        char* name = nullptr;
        char* value = nullptr;
        EntryParse parse = bInSection ? ParseEntryLine(p, &name, &value) : EntryParse::NoEquals;
        if (parse == EntryParse::Ok) {
            handler.OnEntry(name, value);
            continue;
        }
        // The tolerant reader skips an entry before the first header and a
        // line without "="; an entry without a name stops it as well.
        if (!tolerant || parse == EntryParse::EmptyName)
            return {false, nLine};
    }
    return {true, nLine};
}

// --- Writing -----------------------------------------------------------------

void IniTextWriter::Comment(const char* text)
{
    if (!text || !*text)
        return;
    appendText(text, strlen(text));
    appendText("\n", 1);
}

void IniTextWriter::Section(const char* name) { appendLine("[", name, "]"); }

void IniTextWriter::Entry(const char* name, const char* value) { appendLine(name, "=", value); }

void IniTextWriter::EndSection() { appendText("\n", 1); }

// a, b, c and a line feed, cut after kMaxWrittenLine characters.
void IniTextWriter::appendLine(const char* a, const char* b, const char* c)
{
    size_t room = kMaxWrittenLine;
    bool bCut = false;
    for (const char* part : {a, b, c, "\n"}) {
        size_t n = strlen(part);
        if (n > room) {
            n = room;
            bCut = true;
        }
        appendText(part, n);
        room -= n;
    }
    if (bCut)
        ++m_nCut;
}

void IniTextWriter::appendText(const char* text, size_t length)
{
    const char* end = text + length;
    while (text < end) {
        const void* lf = memchr(text, '\n', static_cast<size_t>(end - text));
        if (!lf) {
            m_bytes.append(text, end);
            return;
        }
        m_bytes.append(text, static_cast<const char*>(lf));
        m_bytes += "\r\n";
        text = static_cast<const char*>(lf) + 1;
    }
}

}  // namespace ini
}  // namespace tqm
