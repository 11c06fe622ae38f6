cmake_minimum_required(VERSION 3.20)
# Checks the built DLL against the export lists:
#  - every listed plain function is in the export table, under the name its
#    calling convention gives it (undecorated stdcall, or where the list
#    says "decorated" the name Microsoft's compiler gives a stdcall function
#    on i686, _NAME@N, which the suite's programs import);
#  - no stdcall function leaks out under its decorated name by accident;
#  - the DLL and the programs import nothing but system DLLs.
# Arguments: OBJDUMP, ARCH, DLL, PROGRAMS (;-list), ENTRIES (,-list of NAME[:flag]).
include(${CMAKE_CURRENT_LIST_DIR}/ExportTable.cmake)
tqm_read_export_table(${OBJDUMP} ${DLL} exported)

string(REPLACE "," ";" entries "${ENTRIES}")
set(expected "")
set(failures 0)
foreach(entry IN LISTS entries)
  string(REPLACE ":" ";" fields "${entry}")
  list(GET fields 0 sym)
  string(REGEX REPLACE "@[0-9]+$" "" plain "${sym}")
  if(ARCH STREQUAL "i686" AND "decorated" IN_LIST fields)
    set(name "_${sym}")
  else()
    set(name "${plain}")
  endif()
  list(APPEND expected "${name}")
  if(NOT name IN_LIST exported)
    message(SEND_ERROR "missing export: ${name}")
    math(EXPR failures "${failures} + 1")
  endif()
endforeach()

foreach(name IN LISTS exported)
  if(name MATCHES "@" AND NOT name MATCHES "^_Z" AND NOT name IN_LIST expected)
    message(SEND_ERROR "unexpected decorated export: ${name}")
    math(EXPR failures "${failures} + 1")
  endif()
endforeach()

foreach(binary IN ITEMS ${DLL} ${PROGRAMS})
  execute_process(COMMAND ${OBJDUMP} -p ${binary} OUTPUT_VARIABLE bdump)
  string(REGEX MATCHALL "DLL Name: [^\n]+" imports "${bdump}")
  foreach(import IN LISTS imports)
    if(import MATCHES "(libgcc|libstdc|libwinpthread|libssp|libatomic)")
      message(SEND_ERROR "${binary} depends on a runtime DLL: ${import}")
      math(EXPR failures "${failures} + 1")
    endif()
  endforeach()
endforeach()

list(LENGTH expected n_expected)
list(LENGTH exported n_exported)
if(failures GREATER 0)
  message(FATAL_ERROR "export check failed (${failures} problems)")
endif()
message(STATUS "exports: all ${n_expected} listed plain functions present (${n_exported} exports in all, ${ARCH})")
