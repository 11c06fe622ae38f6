// FoldedNameSet - which names a list holds already, compared without regard
// to case, at a constant cost per name however long the list grows.
#pragma once

#include "config/logic/IniNames.h"

#include <string>
#include <unordered_set>

namespace tqm {

// The name with every byte folded: names equal without regard to case give
// equal keys.
inline std::string FoldedKey(const ini::NameFold& fold, const std::string& name)
{
    std::string folded(name);
    for (char& ch : folded)
        ch = static_cast<char>(fold(ch));
    return folded;
}

class FoldedNameSet
{
public:
    explicit FoldedNameSet(const ini::NameFold& fold) : m_fold(fold) {}

    // True when the name was not there before (it is now).
    bool Insert(const std::string& name) { return m_keys.insert(key(name)).second; }
    bool Contains(const std::string& name) const { return m_keys.count(key(name)) != 0; }

    std::string key(const std::string& name) const { return FoldedKey(m_fold, name); }

private:
    const ini::NameFold& m_fold;
    std::unordered_set<std::string> m_keys;
};

}  // namespace tqm
