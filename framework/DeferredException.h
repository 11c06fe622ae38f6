// Hand-over of exceptions from the library to its caller.
//
// An exception never unwinds out of Tqmlib52 into the calling program. On
// 32-bit Windows every module carries its own copy of the compiler's unwinder
// (the runtimes are linked in, so the DLL stands alone), and one copy cannot
// walk the other module's frames: an exception thrown in the DLL and caught
// in the program would end the process. So a library function that has to
// throw parks the exception for the calling thread and returns its failure
// value; the inline wrapper in the public header, which is compiled into the
// caller, throws it again there. Code inside the library throws and catches
// as usual; only the exported boundary defers.
#pragma once

#include "framework/Exceptions.h"
#include "framework/Export.h"

// Takes the exception parked for this thread, or NULL.
TQM_CPPAPI CException* TqmTakeDeferredException();

// Throws the parked exception, if any, with its own type so that a caller's
// catch (CFileException*) matches. Runs in the caller's module.
//
// The thread's last-error code is part of the report (a caller reads it in
// its catch), but the first throw in a module sets the runtime's exception
// machinery up through calls that clear that code. So the module's first
// throw is a private one here, and the code is put back before the real one.
inline void TqmThrowDeferred()
{
    CException* e = TqmTakeDeferredException();
    if (!e)
        return;
    DWORD dwError = ::GetLastError();
    static const bool s_bThrownOnce = [] {
        try {
            throw 0;
        } catch (int) {
        }
        return true;
    }();
    (void)s_bThrownOnce;
    ::SetLastError(dwError);
    if (auto* pFile = dynamic_cast<CFileException*>(e))
        throw pFile;
    if (auto* pArg = dynamic_cast<CInvalidArgException*>(e))
        throw pArg;
    if (auto* pMem = dynamic_cast<CMemoryException*>(e))
        throw pMem;
    throw e;
}

// Passes a result through after throwing a parked exception.
template <typename T>
inline T TqmResultOrThrow(T result)
{
    TqmThrowDeferred();
    return result;
}

// Throws CInvalidArgException for a negative index, in the caller's module.
inline void TqmCheckIndex(int nIndex)
{
    if (nIndex < 0)
        AfxThrowInvalidArgException();
}

#ifdef TQMLIB_BUILD
namespace tqm {
// Parks an exception for the caller (library side). Any exception parked
// before and not taken is deleted.
void DeferException(CException* e);
}  // namespace tqm
#endif
