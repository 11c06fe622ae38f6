// CRecFileAccess - what a CRecFile holds while its file is open: the file as
// a store of bytes, and the record file's logic working on it.
#pragma once

#include "datafiles/RecFileStore.h"
#include "datafiles/logic/RecordFileCore.h"

#include <memory>
#include <new>

struct CRecFileAccess
{
    explicit CRecFileAccess(HANDLE hFile) : store(hFile) {}

    // NULL when there is no memory; the handle stays the caller's.
    static CRecFileAccess* Attach(HANDLE hFile)
    {
        CRecFileAccess* access = new (std::nothrow) CRecFileAccess(hFile);
        if (access)
            access->core = tqm::RecordFileCore::Attach(access->store);
        if (access && !access->core) {
            delete access;
            access = nullptr;
        }
        return access;
    }

    tqm::FileRecordStore store;
    std::unique_ptr<tqm::RecordFileCore> core;
};
