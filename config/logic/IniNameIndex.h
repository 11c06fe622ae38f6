// NamePositionIndex - finds a name's position in an array of named records
// without walking the array.
//
// The index keeps, for positions 0 .. Count() - 1 of an array, the hash of the
// name at each position in an open-addressing table. It knows nothing of the
// records themselves: the caller hashes names (NameFold::Hash) and confirms a
// candidate position with its own comparison. Names may repeat; FindFirst
// gives the lowest position whose name matches, as a walk from the front would.
// Appending is cheap; a removal in the middle is handled by Clear() and
// indexing the array again.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include <vector>

namespace tqm {
namespace ini {

class NamePositionIndex
{
public:
    int Count() const { return m_nCount; }
    void Clear();
    // Indexes the name with this hash at position Count().
    void Append(uint32_t hash);

    // The lowest indexed position with this hash for which matches(position)
    // is true, or -1.
    template <typename Matches>
    int FindFirst(uint32_t hash, Matches matches) const
    {
        if (m_slots.empty())
            return -1;
        int nFound = -1;
        for (size_t i = hash & mask();; i = (i + 1) & mask()) {
            const Slot& slot = m_slots[i];
            if (slot.nPosition < 0)
                return nFound;
            if (slot.hash == hash && (nFound < 0 || slot.nPosition < nFound) && matches(slot.nPosition))
                nFound = slot.nPosition;
        }
    }

private:
    struct Slot
    {
        uint32_t hash;
        int nPosition;  // -1: free
    };

    size_t mask() const { return m_slots.size() - 1; }
    void place(uint32_t hash, int nPosition);
    void grow();

    std::vector<Slot> m_slots;  // a power of two in size, at most half full
    int m_nCount = 0;
};

}  // namespace ini
}  // namespace tqm
