// The per-thread slot behind TqmTakeDeferredException.
#include "framework/DeferredException.h"

namespace {

thread_local CException* t_pDeferred = nullptr;

// The first touch of a thread-local variable on a thread sets up its storage
// through calls that reset the thread's last-error code. Callers read that
// code right after the wrapper that looked for a parked exception, so the
// slot leaves it as it found it.
class LastErrorKeeper
{
public:
    LastErrorKeeper() : m_dwError(::GetLastError()) {}
    ~LastErrorKeeper() { ::SetLastError(m_dwError); }
    LastErrorKeeper(const LastErrorKeeper&) = delete;
    LastErrorKeeper& operator=(const LastErrorKeeper&) = delete;

private:
    DWORD m_dwError;
};

}  // namespace

CException* TqmTakeDeferredException()
{
    LastErrorKeeper keep;
    CException* e = t_pDeferred;
    t_pDeferred = nullptr;
    return e;
}

void tqm::DeferException(CException* e)
{
    LastErrorKeeper keep;
    if (t_pDeferred && t_pDeferred != e)
        t_pDeferred->Delete();
    t_pDeferred = e;
}
