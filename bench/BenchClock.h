// Timing for the benchmarks: a monotonic clock in seconds and the best of
// several runs (the least disturbed one).
#pragma once

#include <windows.h>

#include <algorithm>

namespace tqmbench {

inline double Now()
{
    static const double s_ticksPerSecond = [] {
        LARGE_INTEGER f;
        QueryPerformanceFrequency(&f);
        return static_cast<double>(f.QuadPart);
    }();
    LARGE_INTEGER t;
    QueryPerformanceCounter(&t);
    return static_cast<double>(t.QuadPart) / s_ticksPerSecond;
}

// The fastest of runs calls of work(), in seconds.
template <typename Work>
double BestOf(int runs, Work work)
{
    double best = 1e30;
    for (int i = 0; i < runs; ++i) {
        double start = Now();
        work();
        best = std::min(best, Now() - start);
    }
    return best;
}

// The same for work that can fail: false as soon as one run returns false.
template <typename Work>
bool BestOf(int runs, Work work, double* pSeconds)
{
    *pSeconds = 1e30;
    for (int i = 0; i < runs; ++i) {
        double start = Now();
        if (!work())
            return false;
        *pSeconds = std::min(*pSeconds, Now() - start);
    }
    return true;
}

}  // namespace tqmbench
