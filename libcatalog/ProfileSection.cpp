// One pass over a profile file, collecting one section.
#include "libcatalog/ProfileSection.h"

#include "config/IniSystemFold.h"
#include "config/logic/IniLineGrammar.h"
#include "framework/StdioFile.h"
#include "libcatalog/logic/FoldedNameSet.h"
#include "libcatalog/logic/NumberedEntries.h"

#include <string.h>

#include <algorithm>
#include <new>

namespace tqm {
namespace {

// The name an entry line assigns to, p at its first non-blank character: the
// text before the first "=" without the blanks after it; empty when the line
// holds no "=". The profile lookup matches a key exactly when it is this name.
std::string entryName(const char* p)
{
    const char* equals = strchr(p, '=');
    if (!equals)
        return std::string();
    const char* end = equals;
    while (end > p && ini::IsBlank(end[-1]))
        --end;
    return std::string(p, end);
}

}  // namespace

bool ProfileSection::Read(const char* pszFile, const char* pszSection)
{
    m_entries.clear();
    m_firstByKey.clear();
    if (!pszFile || !pszSection)
        return false;
    try {
        CStdioFile file;
        if (!file.Open(pszFile, CStdioFile::modeRead | CStdioFile::typeText))
            return false;
        const ini::NameFold& fold = ini::SystemNameFold();
        char line[ini::kLineBufferSize];
        bool bInSection = false;
        while (file.ReadString(line, sizeof(line))) {
            char* p = ini::SkipBlanks(line);
            const ini::LineKind kind = ini::ClassifyLine(p, ini::Reader::Profile);
            if (kind == ini::LineKind::Header) {
                // Only the first section of the name counts, as for the lookup.
                if (bInSection)
                    break;
                bInSection = ini::HeaderNamesSection(p, pszSection, fold);
            } else if (kind == ini::LineKind::Entry && bInSection) {
                std::string name = entryName(p);
                if (name.empty())
                    continue;
                // The lookup's own test gives the value, cut exactly as it cuts it.
                if (const char* pszValue = ini::ValueForKey(p, name.c_str(), fold)) {
                    m_firstByKey.emplace(key(name.c_str()), m_entries.size());
                    m_entries.emplace_back(std::move(name), pszValue);
                }
            }
        }
        file.Abort();
        return true;
    } catch (CException* e) {
        e->Delete();
    } catch (const std::bad_alloc&) {
    }
    m_entries.clear();
    m_firstByKey.clear();
    return false;
}

const char* ProfileSection::Value(const char* pszKey, const char* pszDefault) const
{
    const auto found = m_firstByKey.find(key(pszKey));
    return found == m_firstByKey.end() ? pszDefault : m_entries[found->second].second.c_str();
}

std::vector<uint32_t> ProfileSection::NumberedKeys(const char* pszPrefix) const
{
    std::vector<uint32_t> numbers;
    for (const auto& entry : m_entries) {
        uint32_t n = 0;
        if (ParseNumberedName(entry.first.c_str(), pszPrefix, ini::SystemNameFold(), &n))
            numbers.push_back(n);
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

std::string ProfileSection::key(const char* pszName) const
{
    return FoldedKey(ini::SystemNameFold(), pszName ? pszName : "");
}

}  // namespace tqm
