# Running the Windows programs: every program of this build runs under Wine in
# a private prefix inside the build folder (made once, on first use, with the
# null graphics driver so that windows work without a display).
find_program(TQM_WINE wine)
set(TQM_WINE_PREFIX ${CMAKE_BINARY_DIR}/wineprefix)
set(TQM_WINE_RUN ${PROJECT_SOURCE_DIR}/scripts/wine-run.sh)

# 64-bit programs need wine64; 32-bit ones need the 32-bit loader (wine32).
if(TQM_ARCH STREQUAL "i686")
  set(_loader /usr/lib/wine/wine)
else()
  set(_loader /usr/lib/wine/wine64)
endif()
if(TQM_WINE AND EXISTS ${_loader})
  set(TQM_CAN_RUN ON)
else()
  set(TQM_CAN_RUN OFF)
  message(STATUS "Wine cannot run ${TQM_ARCH} programs here (${_loader} missing): tests are built, not registered")
endif()

set(CMAKE_CROSSCOMPILING_EMULATOR ${TQM_WINE_RUN};${TQM_WINE_PREFIX})
