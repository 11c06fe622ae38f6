cmake_minimum_required(VERSION 3.20)
# Reads Tqmlib52.lib back and checks that every plain function of the export
# lists can be imported through it the way Microsoft's compiler refers to it
# (_NAME@N for stdcall and _NAME for caller-pops on i686, NAME on x86_64), and
# that the member resolves to the name the DLL really exports: the plain name,
# or Microsoft's decorated one (_NAME@N) for a function exported under it.
# The export name follows from the member's symbol and name type:
#   name        the symbol as it is
#   noprefix    without its leading ?, @ or _
#   undecorate  the same, cut at the first @
# Arguments: READOBJ, OBJDUMP, ARCH, DLL, LIB, ENTRIES (,-list of NAME[:flag]).
include(${CMAKE_CURRENT_LIST_DIR}/ExportTable.cmake)
tqm_read_export_table(${OBJDUMP} ${DLL} exported)

if(NOT EXISTS ${LIB})
  message(FATAL_ERROR "${LIB} was not made (llvm-dlltool, llvm-ar, llvm-lib and lld-link are needed: scripts/setup.sh)")
endif()
execute_process(COMMAND ${READOBJ} ${LIB} OUTPUT_VARIABLE dump RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "${READOBJ} cannot read ${LIB}")
endif()

# One block per import member: "Name type: T", "Symbol: __imp_S", "Symbol: S".
string(REGEX MATCHALL "Name type: [a-z]+\nSymbol: [^\n]+\nSymbol: [^\n]+" members "${dump}")
set(symbols "")
foreach(member IN LISTS members)
  string(REGEX MATCH "Name type: ([a-z]+)\nSymbol: [^\n]+\nSymbol: ([^\n]+)" _ "${member}")
  set(type "${CMAKE_MATCH_1}")
  set(symbol "${CMAKE_MATCH_2}")
  set(name "${symbol}")
  if((type STREQUAL "noprefix" OR type STREQUAL "undecorate") AND name MATCHES "^[?@_]")
    string(SUBSTRING "${name}" 1 -1 name)
  endif()
  if(type STREQUAL "undecorate")
    string(REGEX REPLACE "@.*" "" name "${name}")
  endif()
  list(APPEND symbols "${symbol}")
  set(imports_${symbol} "${name}")
endforeach()

string(REPLACE "," ";" entries "${ENTRIES}")
set(failures 0)
foreach(entry IN LISTS entries)
  string(REPLACE ":" ";" fields "${entry}")
  list(GET fields 0 sym)
  string(REGEX REPLACE "@[0-9]+$" "" plain "${sym}")
  if(ARCH STREQUAL "i686")
    set(symbol "_${sym}")
  else()
    set(symbol "${plain}")
  endif()
  if(NOT symbol IN_LIST symbols)
    message(SEND_ERROR "${LIB} has no member for ${symbol} (${sym})")
    math(EXPR failures "${failures} + 1")
    continue()
  endif()
  set(name "${imports_${symbol}}")
  if("decorated" IN_LIST fields AND ARCH STREQUAL "i686")
    set(wanted "^_${sym}$")
  else()
    set(wanted "^${plain}$")
  endif()
  if(NOT name MATCHES "${wanted}" OR NOT name IN_LIST exported)
    message(SEND_ERROR "${symbol} imports \"${name}\", which is not the DLL's export of ${sym}")
    math(EXPR failures "${failures} + 1")
  endif()
endforeach()

list(LENGTH entries n_entries)
if(failures GREATER 0)
  message(FATAL_ERROR "import library check failed (${failures} problems)")
endif()
message(STATUS "Tqmlib52.lib: all ${n_entries} plain functions import their export (${ARCH})")
