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
set(TQM_CAN_RUN OFF)
if(NOT TQM_WINE OR NOT EXISTS ${_loader})
  message(STATUS "Wine cannot run ${TQM_ARCH} programs here (${_loader} missing): tests are built, not registered")
elseif(TQM_ARCH STREQUAL "i686")
  # Some kernels and sandboxes refuse 32-bit programs even with wine32 installed.
  execute_process(COMMAND ${PROJECT_SOURCE_DIR}/scripts/can-run-i386.sh RESULT_VARIABLE _probe)
  if(_probe EQUAL 0)
    set(TQM_CAN_RUN ON)
  else()
    message(STATUS "This machine does not run 32-bit programs: i686 tests are built, not registered")
  endif()
else()
  set(TQM_CAN_RUN ON)
endif()

set(CMAKE_CROSSCOMPILING_EMULATOR ${TQM_WINE_RUN};${TQM_ARCH};${TQM_WINE_PREFIX})
