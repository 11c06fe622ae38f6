// CatalogueCall - the boundary of the catalogue's exported functions.
//
// Inside, the catalogue works with strings and lists that throw when memory
// runs out (std::bad_alloc, or the framework's CMemoryException*). No
// exception may leave the library, and the catalogue's functions report
// failure by their result: the call gives onFailure instead.
#pragma once

#include "framework/Exceptions.h"

#include <new>

namespace tqm {

template <typename Result, typename Work>
Result CatalogueCall(Result onFailure, Work work) noexcept
{
    try {
        return work();
    } catch (CException* e) {
        e->Delete();
    } catch (const std::bad_alloc&) {
    }
    return onFailure;
}

}  // namespace tqm
