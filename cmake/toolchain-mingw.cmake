# Shared part of the toolchain files: Debian's MinGW-w64 cross compilers
# (posix thread model) for the triplet TQM_TRIPLET.
set(CMAKE_SYSTEM_NAME Windows)

set(CMAKE_C_COMPILER   ${TQM_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TQM_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER  ${TQM_TRIPLET}-windres)
set(CMAKE_DLLTOOL      ${TQM_TRIPLET}-dlltool)
set(CMAKE_OBJDUMP      ${TQM_TRIPLET}-objdump)

set(CMAKE_FIND_ROOT_PATH /usr/${TQM_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
