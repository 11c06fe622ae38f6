// Identifier tables.
//
// A NULL table is treated as an empty one whose default id is 0.
#include "config/Identifiers.h"

namespace {

// The first pair with this id, or the terminator when none has it.
const IDTABLE* findID(const IDTABLE* table, int id)
{
    const IDTABLE* p = table;
    while (p->pszName && p->nID != id)
        ++p;
    return p;
}

}  // namespace

int WINAPI StringToID(const IDTABLE* table, const char* name)
{
    if (!table)
        return 0;
    const IDTABLE* p = table;
    for (; p->pszName; ++p) {
        if (name && ::lstrcmpA(p->pszName, name) == 0)
            return p->nID;
    }
    return p->nID;
}

const char* WINAPI IDToString(const IDTABLE* table, int id)
{
    if (!table)
        return nullptr;
    const IDTABLE* p = findID(table, id);
    if (p->pszName)
        return p->pszName;
    // The default id itself, unlisted: no name to fall back on.
    if (p->nID == id)
        return nullptr;
    return findID(table, p->nID)->pszName;
}

int WINAPI DefaultID(const IDTABLE* table)
{
    if (!table)
        return 0;
    const IDTABLE* p = table;
    while (p->pszName)
        ++p;
    return p->nID;
}

const char* WINAPI DefaultString(const IDTABLE* table) { return IDToString(table, DefaultID(table)); }
