// The INI line grammar: blanks, line kinds, headers and entries.
#include "config/logic/IniLineGrammar.h"

#include <string.h>

namespace tqm {
namespace ini {

char* SkipBlanks(char* p)
{
    return const_cast<char*>(SkipBlanks(static_cast<const char*>(p)));
}

const char* SkipBlanks(const char* p)
{
    if (!p)
        return p;
    while (*p != '\0' && IsBlank(*p))
        ++p;
    return p;
}

bool TrimBlanks(char* start, char* end)
{
    if (!end || end - start <= 0) {
        *start = '\0';
        return false;
    }
    for (; end > start; --end) {
        if (!IsBlank(end[-1])) {
            *end = '\0';
            return true;
        }
    }
    *start = '\0';
    return false;
}

LineKind ClassifyLine(const char* p, Reader reader)
{
    switch (*p) {
    case '\0':
        return LineKind::Empty;
    case ';':
    case '#':
        return LineKind::Comment;
    case '[':
        return LineKind::Header;
    case '/':
        if (reader == Reader::Document && p[1] == '/')
            return LineKind::Comment;
        return LineKind::Entry;
    default:
        return LineKind::Entry;
    }
}

char* ParseHeaderName(char* p)
{
    char* name = SkipBlanks(p + 1);
    char* close = strchr(name, ']');
    if (!close || !TrimBlanks(name, close))
        return nullptr;
    return name;
}

EntryParse ParseEntryLine(char* p, char** ppName, char** ppValue)
{
    char* equals = strchr(p, '=');
    if (!equals)
        return EntryParse::NoEquals;
    char* value = SkipBlanks(equals + 1);
    if (!TrimBlanks(p, equals))  // writes its NUL at the "=" at the latest
        return EntryParse::EmptyName;
    TrimBlanks(value, value + strlen(value));
    *ppName = p;
    *ppValue = value;
    return EntryParse::Ok;
}

bool HeaderNamesSection(const char* p, const char* section, const NameFold& fold)
{
    const char* name = SkipBlanks(p + 1);
    size_t n = strlen(section);
    if (!fold.EqualPrefix(name, section, n))
        return false;
    return *SkipBlanks(name + n) == ']';
}

char* ValueForKey(char* p, const char* key, const NameFold& fold)
{
    size_t n = strlen(key);
    if (!fold.EqualPrefix(p, key, n))
        return nullptr;
    char* equals = SkipBlanks(p + n);
    if (*equals != '=')
        return nullptr;
    char* value = SkipBlanks(equals + 1);
    TrimBlanks(value, value + strlen(value));
    return value;
}

}  // namespace ini
}  // namespace tqm
