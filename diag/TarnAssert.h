// TARN_ASSERT, TARN_VERIFY - the library's checks of its callers.
//
// A failed check reports through TarnDebug (diag/ErrorReport.h) and the code
// after it still runs: only the user's Abort stops anything. TARN_VERIFY
// evaluates its expression in every build and reports the thread's last
// system error with it.
//
// Reports name the source file without folder or extension. TARN_SOURCE is
// the name given; by default the file's own, cut from __FILE__ by the
// compiler (TarnDebug itself shows whatever name it is given). A file whose
// reports the suite's support staff know under another name sets it after
// the includes:
//
//     #undef TARN_SOURCE
//     #define TARN_SOURCE "Misc"
#pragma once

#include "diag/ErrorReport.h"

#include <stddef.h>

namespace tqm {

// A file name cut at compile time, held in a buffer as long as the path.
template <size_t N>
struct SourceName
{
    char text[N];
};

// The file name of path without its folder and its extension, made at
// compile time: "C:\src\config\Registry.cpp" gives "Registry". A name that
// begins with its only dot (".hidden") is kept whole.
template <size_t N>
constexpr SourceName<N> SourceFileName(const char (&path)[N])
{
    size_t start = 0;
    size_t end = 0;
    for (size_t i = 0; i < N && path[i]; ++i) {
        end = i + 1;
        if (path[i] == '\\' || path[i] == '/' || path[i] == ':')
            start = i + 1;
    }
    for (size_t i = end; i > start + 1; --i) {
        if (path[i - 1] == '.') {
            end = i - 1;
            break;
        }
    }
    SourceName<N> name{};
    for (size_t i = start; i < end; ++i)
        name.text[i - start] = path[i];
    return name;
}

}  // namespace tqm

#define TARN_SOURCE                                                              \
    ([]() -> const char* {                                                       \
        static constexpr ::tqm::SourceName<sizeof(__FILE__)> name = ::tqm::SourceFileName(__FILE__); \
        return name.text;                                                        \
    }())

#define TARN_ASSERT(expr) \
    ((expr) ? (void)0 : (void)TarnDebug("TARN_ASSERT", #expr, TARN_SOURCE, __LINE__))

#define TARN_VERIFY(expr) \
    ((expr) ? (void)0 : (void)TarnDebug("TARN_VERIFY", #expr, TARN_SOURCE, __LINE__, ::GetLastError()))
