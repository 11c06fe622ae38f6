# Cross-compiling for x86_64 Windows.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(TQM_TRIPLET x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw.cmake)
