# Cross-compiling for i686 Windows.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(TQM_TRIPLET i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-mingw.cmake)
