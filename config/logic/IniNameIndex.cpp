// NamePositionIndex - an open-addressing table of name hashes by position.
#include "config/logic/IniNameIndex.h"

#include <algorithm>

namespace tqm {
namespace ini {

namespace {
const size_t kFirstSlots = 64;
}

void NamePositionIndex::Clear()
{
    // A small table is kept for the next names: a reader that indexes one
    // short section after another then allocates nothing.
    if (m_slots.size() <= kFirstSlots)
        std::fill(m_slots.begin(), m_slots.end(), Slot{0, -1});
    else
        std::vector<Slot>().swap(m_slots);
    m_nCount = 0;
}

void NamePositionIndex::Append(uint32_t hash)
{
    if (static_cast<size_t>(m_nCount + 1) * 2 > m_slots.size())
        grow();
    place(hash, m_nCount++);
}

void NamePositionIndex::place(uint32_t hash, int nPosition)
{
    size_t i = hash & mask();
    while (m_slots[i].nPosition >= 0)
        i = (i + 1) & mask();
    m_slots[i] = Slot{hash, nPosition};
}

void NamePositionIndex::grow()
{
    std::vector<Slot> old;
    old.swap(m_slots);
    m_slots.assign(old.empty() ? kFirstSlots : old.size() * 2, Slot{0, -1});
    for (const Slot& slot : old) {
        if (slot.nPosition >= 0)
            place(slot.hash, slot.nPosition);
    }
}

}  // namespace ini
}  // namespace tqm
