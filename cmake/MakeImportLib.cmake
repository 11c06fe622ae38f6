cmake_minimum_required(VERSION 3.20)
# Remakes the i686 import library from the names the linker exported.
# A stdcall function is exported undecorated ("NAME = NAME@N" in the linker's
# list), but callers' objects refer to NAME@N; the import library must map
# the one to the other ("NAME@N == NAME"), which ld's own does not. Other
# names pass through with their flags (DATA for vtables and the like).
file(STRINGS ${EXPORTED_DEF} lines)
set(out "LIBRARY \"Tqmlib52.dll\"\nEXPORTS\n")
foreach(line IN LISTS lines)
  if(NOT line MATCHES "^[ \t]+[^ \t]")
    continue()  # LIBRARY and EXPORTS headers
  endif()
  string(STRIP "${line}" line)
  string(REGEX REPLACE "[ \t]+@[0-9]+" "" line "${line}")  # the ordinal
  if(line MATCHES "^([^ \t=]+)[ \t]*=[ \t]*([^ \t]+)(.*)$")
    string(APPEND out "    ${CMAKE_MATCH_2} == ${CMAKE_MATCH_1}${CMAKE_MATCH_3}\n")
  else()
    string(APPEND out "    ${line}\n")
  endif()
endforeach()
file(WRITE ${IMPORT_DEF} "${out}")
execute_process(COMMAND ${DLLTOOL} -d ${IMPORT_DEF} -D Tqmlib52.dll -l ${IMPORT_LIB} RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "dlltool failed to make ${IMPORT_LIB}")
endif()
