// Library list block bytes.
#include "libcatalog/logic/ListBlock.h"

#include <string.h>

namespace tqm {

std::string EncodeListBlock(const std::vector<std::string>& items)
{
    if (items.empty())
        return std::string(2, '\0');
    size_t size = 1;
    for (const std::string& item : items)
        size += item.size() + 1;
    std::string block;
    block.reserve(size);
    for (const std::string& item : items) {
        block += item;
        block += '\0';
    }
    block += '\0';
    return block;
}

std::vector<std::string> DecodeListBlock(const char* data, size_t size)
{
    std::vector<std::string> items;
    const char* const end = data + size;
    for (const char* p = data; p < end && *p;) {
        const char* nul = static_cast<const char*>(memchr(p, '\0', end - p));
        if (!nul)
            break;
        items.emplace_back(p, nul);
        p = nul + 1;
    }
    return items;
}

}  // namespace tqm
