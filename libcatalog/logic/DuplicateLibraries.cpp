// The walk that removes duplicate libraries.
#include "libcatalog/logic/DuplicateLibraries.h"

#include "libcatalog/logic/FoldedNameSet.h"

#include <algorithm>
#include <unordered_map>

namespace tqm {
namespace {

enum class Loser
{
    A,
    B
};

// Which of the two copies goes.
Loser loserOf(const InstalledLibrary& a, const InstalledLibrary& b, const ini::NameFold& fold)
{
    if (a.version == b.version && fold.Equal(a.folder.c_str(), b.folder.c_str())) {
        const size_t length = a.folder.size();
        if (fold.EqualPrefix(a.path.c_str(), a.folder.c_str(), length))
            return Loser::B;
        if (fold.EqualPrefix(b.path.c_str(), b.folder.c_str(), length))
            return Loser::A;
    }
    return a.version < b.version ? Loser::A : Loser::B;
}

}  // namespace

std::vector<size_t> ResolveDuplicateLibraries(const std::vector<InstalledLibrary>& libraries,
                                              const ini::NameFold& fold)
{
    const size_t count = libraries.size();
    // The entries still in the list, per ID, in list order: the first other
    // entry of an ID is then found without a search of the whole list.
    std::unordered_map<std::string, std::vector<size_t>> byId;
    for (size_t i = 0; i < count; ++i)
        byId[FoldedKey(fold, libraries[i].id)].push_back(i);

    std::vector<bool> present(count, true);
    auto nextPresent = [&](size_t from) {
        while (from < count && !present[from])
            ++from;
        return from;
    };

    for (size_t cursor = nextPresent(0); cursor < count;) {
        const size_t a = cursor;
        cursor = nextPresent(a + 1);
        std::vector<size_t>& same = byId[FoldedKey(fold, libraries[a].id)];
        const auto other = std::find_if(same.begin(), same.end(), [a](size_t i) { return i != a; });
        if (other == same.end())
            continue;
        const size_t b = *other;
        const size_t loser = loserOf(libraries[a], libraries[b], fold) == Loser::A ? a : b;
        present[loser] = false;
        same.erase(std::find(same.begin(), same.end(), loser));
        if (loser == cursor)
            cursor = nextPresent(cursor + 1);
    }

    std::vector<size_t> kept;
    for (size_t i = 0; i < count; ++i) {
        if (present[i])
            kept.push_back(i);
    }
    return kept;
}

}  // namespace tqm
