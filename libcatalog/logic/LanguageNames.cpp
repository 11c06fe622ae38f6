// Language names to codes.
#include "libcatalog/logic/LanguageNames.h"

namespace tqm {
namespace {

struct LanguagePrefix
{
    char first;
    char second;
    const char* code;
};

const LanguagePrefix kLanguagePrefixes[] = {
    {'e', 'n', "en"}, {'f', 'r', "fr"}, {'g', 'e', "de"}, {'d', 'e', "de"}, {'i', 't', "it"},
    {'h', 'u', "hu"}, {'h', 'o', "hu"}, {'n', 'i', "nl"}, {'n', 'e', "nl"}, {'d', 'u', "nl"},
};

char asciiLower(char ch) { return (ch >= 'A' && ch <= 'Z') ? static_cast<char>(ch - 'A' + 'a') : ch; }

}  // namespace

const char* LanguageCodeForName(const char* name)
{
    if (!name || !name[0] || !name[1])
        return "";
    const char first = asciiLower(name[0]);
    const char second = asciiLower(name[1]);
    for (const LanguagePrefix& prefix : kLanguagePrefixes) {
        if (prefix.first == first && prefix.second == second)
            return prefix.code;
    }
    return "";
}

}  // namespace tqm
