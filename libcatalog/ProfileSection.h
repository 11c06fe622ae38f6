// ProfileSection - every entry of one section of a profile file, read in one
// pass.
//
// For callers that look up many keys of one section, or numbered keys up to a
// count the file may not keep: the values are those TQMGetProfileString
// (config/Profile.h) gives, with its grammar (the first section of the name,
// the first entry of a name), but the file is read once instead of once per
// key. Internal to the catalogue.
#pragma once

#include "config/logic/IniNames.h"

#include <stdint.h>

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tqm {

class ProfileSection
{
public:
    // Reads the section from the file; false when the file cannot be read (the
    // section is then empty). A missing section is empty too, and true.
    bool Read(const char* pszFile, const char* pszSection);

    // The value of key, as the profile lookup finds it; pszDefault when missing.
    const char* Value(const char* pszKey, const char* pszDefault) const;

    // The entries in file order, a repeated name included.
    const std::vector<std::pair<std::string, std::string>>& Entries() const { return m_entries; }

    // The numbers n, sorted, for which an entry named prefix + n (as "%u"
    // writes it) exists.
    std::vector<uint32_t> NumberedKeys(const char* pszPrefix) const;

private:
    std::string key(const char* pszName) const;

    std::vector<std::pair<std::string, std::string>> m_entries;
    std::unordered_map<std::string, size_t> m_firstByKey;  // folded name -> its first entry
};

}  // namespace tqm
