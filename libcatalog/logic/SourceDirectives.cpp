// The source-directive scanner.
#include "libcatalog/logic/SourceDirectives.h"

#include "config/logic/AsciiCase.h"
#include "config/logic/Blanks.h"

#include <string.h>

namespace tqm {
namespace {

struct Keyword
{
    const char* text;
    SourceDirectiveKind kind;
};

const Keyword kKeywords[] = {
    {"$INCLUDE", SourceDirectiveKind::Include},
    {"$LIB", SourceDirectiveKind::Lib},
    {"$USE", SourceDirectiveKind::Use},
};

bool isBlank(char ch) { return IsRuntimeSpace(static_cast<unsigned char>(ch)); }

}  // namespace

void SourceDirectiveScanner::Feed(const char* data, size_t size)
{
    const char* p = data;
    const char* const end = data + size;
    while (p != end) {
        if (m_state == State::RestOfLine) {
            // Most lines hold no directive: on to the next line in one step.
            const char* newline = static_cast<const char*>(memchr(p, '\n', end - p));
            if (!newline)
                return;
            p = newline + 1;
            m_state = State::LineStart;
            continue;
        }
        const char ch = *p++;
        if (ch == '\n') {
            endLineText();
            m_state = State::LineStart;
        } else if (ch == '\0') {
            endLineText();  // a NUL ends its line's text, so binary files scan as text
        } else {
            step(ch);
        }
    }
}

std::vector<SourceDirective> SourceDirectiveScanner::Finish()
{
    endLineText();
    m_state = State::LineStart;
    std::vector<SourceDirective> directives;
    directives.swap(m_directives);
    return directives;
}

void SourceDirectiveScanner::step(char ch)
{
    switch (m_state) {
    case State::LineStart:
        if (isBlank(ch))
            return;
        m_state = ch == '$' ? State::Keyword : State::RestOfLine;
        m_keyword = nullptr;
        m_matched = 1;
        return;
    case State::Keyword:
        if (!m_keyword) {
            // The keywords differ in their first letter after "$".
            for (const Keyword& keyword : kKeywords) {
                if (keyword.text[1] == AsciiUpper(ch)) {
                    m_keyword = keyword.text;
                    m_kind = keyword.kind;
                }
            }
            if (!m_keyword) {
                m_state = State::RestOfLine;
                return;
            }
        } else if (AsciiUpper(ch) != m_keyword[m_matched]) {
            m_state = State::RestOfLine;
            return;
        }
        if (!m_keyword[++m_matched]) {
            // Matched by its prefix: the argument may follow without a blank.
            m_state = State::Argument;
            m_name.clear();
            m_nameTooLong = false;
        }
        return;
    case State::Argument:
        if (isBlank(ch))
            return;
        if (ch == '"') {
            m_state = State::QuoteStart;
        } else if (ch == ';') {
            m_state = State::RestOfLine;
        } else {
            m_state = State::Bare;
            appendToName(ch);
        }
        return;
    case State::QuoteStart:
        if (isBlank(ch))
            return;
        if (ch == '"') {
            m_state = State::RestOfLine;  // an empty name
            return;
        }
        m_state = State::Quoted;
        appendToName(ch);
        return;
    case State::Quoted:
        if (ch == '"') {
            emit();
            m_state = State::RestOfLine;
            return;
        }
        appendToName(ch);
        return;
    case State::Bare:
        if (isBlank(ch) || ch == ';') {
            emit();
            m_state = State::RestOfLine;
            return;
        }
        appendToName(ch);
        return;
    case State::RestOfLine:
        return;
    }
}

void SourceDirectiveScanner::endLineText()
{
    // A bare name ends with its line; a quoted one without its closing quote is no name.
    if (m_state == State::Bare)
        emit();
    m_state = State::RestOfLine;
}

void SourceDirectiveScanner::appendToName(char ch)
{
    if (m_name.size() < kLongestDirectiveName)
        m_name.push_back(ch);
    else
        m_nameTooLong = true;
}

void SourceDirectiveScanner::emit()
{
    if (!m_name.empty() && !m_nameTooLong)
        m_directives.push_back({m_kind, m_name});
    m_name.clear();
}

std::vector<SourceDirective> ScanSourceDirectives(const char* text, size_t size)
{
    SourceDirectiveScanner scanner;
    scanner.Feed(text, size);
    return scanner.Finish();
}

bool HasEncipheredSignature(const char* data, size_t size)
{
    return size >= kEncipheredSignatureSize && memcmp(data, kEncipheredSignature, kEncipheredSignatureSize) == 0;
}

const char* DefaultDirectiveExtension(SourceDirectiveKind kind)
{
    switch (kind) {
    case SourceDirectiveKind::Lib:
        return ".obl";
    case SourceDirectiveKind::Use:
        return ".obj";
    default:
        return nullptr;
    }
}

}  // namespace tqm
