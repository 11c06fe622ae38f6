// The per-thread slot behind TqmTakeDeferredException.
#include "framework/DeferredException.h"

namespace {
thread_local CException* t_pDeferred = nullptr;
}

CException* TqmTakeDeferredException()
{
    CException* e = t_pDeferred;
    t_pDeferred = nullptr;
    return e;
}

void tqm::DeferException(CException* e)
{
    if (t_pDeferred && t_pDeferred != e)
        t_pDeferred->Delete();
    t_pDeferred = e;
}
