// Library list blocks in global memory.
#include "libcatalog/LibraryListBlock.h"

#include "framework/Handles.h"
#include "libcatalog/CatalogueCall.h"
#include "libcatalog/logic/ListBlock.h"

#include <string.h>

namespace tqm {

HGLOBAL MakeLibraryListBlock(const std::vector<std::string>& items)
{
    return CatalogueCall<HGLOBAL>(nullptr, [&]() -> HGLOBAL {
        const std::string bytes = EncodeListBlock(items);
        UniqueGlobal block(GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes.size()));
        if (!block)
            return nullptr;
        {
            GlobalLock lock(block.get());
            if (!lock.get())
                return nullptr;
            memcpy(lock.get(), bytes.data(), bytes.size());
        }
        return block.release();
    });
}

}  // namespace tqm
