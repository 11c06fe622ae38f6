// The source-directive scanner.
#include "libcatalog/logic/SourceDirectives.h"

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

char asciiUpper(char ch) { return (ch >= 'a' && ch <= 'z') ? static_cast<char>(ch - 'a' + 'A') : ch; }

// True when [p, end) begins with keyword, compared without regard to case.
bool startsWithKeyword(const char* p, const char* end, const char* keyword)
{
    for (; *keyword; ++p, ++keyword) {
        if (p == end || asciiUpper(*p) != *keyword)
            return false;
    }
    return true;
}

const char* skipBlanks(const char* p, const char* end)
{
    while (p != end && IsRuntimeSpace(static_cast<unsigned char>(*p)))
        ++p;
    return p;
}

// The argument of a directive in [p, end): quoted or bare; empty when none.
std::string argumentOf(const char* p, const char* end)
{
    p = skipBlanks(p, end);
    if (p != end && *p == '"') {
        p = skipBlanks(p + 1, end);
        const char* close = static_cast<const char*>(memchr(p, '"', end - p));
        return close ? std::string(p, close) : std::string();
    }
    const char* stop = p;
    while (stop != end && *stop != ';' && !IsRuntimeSpace(static_cast<unsigned char>(*stop)))
        ++stop;
    return std::string(p, stop);
}

// Adds the directive of the line [p, end), if it holds one with a name.
void scanLine(const char* p, const char* end, std::vector<SourceDirective>& directives)
{
    p = skipBlanks(p, end);
    if (p == end || *p != '$')
        return;
    for (const Keyword& keyword : kKeywords) {
        if (!startsWithKeyword(p, end, keyword.text))
            continue;
        std::string name = argumentOf(p + strlen(keyword.text), end);
        if (!name.empty())
            directives.push_back({keyword.kind, std::move(name)});
        return;
    }
}

}  // namespace

std::vector<SourceDirective> ScanSourceDirectives(const char* text, size_t size)
{
    std::vector<SourceDirective> directives;
    const char* const end = text + size;
    for (const char* line = text; line < end;) {
        const char* newline = static_cast<const char*>(memchr(line, '\n', end - line));
        const char* lineEnd = newline ? newline : end;
        const char* nul = static_cast<const char*>(memchr(line, '\0', lineEnd - line));
        scanLine(line, nul ? nul : lineEnd, directives);
        line = newline ? newline + 1 : end;
    }
    return directives;
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
