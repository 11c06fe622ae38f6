cmake_minimum_required(VERSION 3.20)
# Checks the C header include/Tqmlib52.h:
#  - it compiles as C89 and C99 with -Wall -Wextra -pedantic, warnings fatal;
#  - it declares every plain (not C++-mangled) function of the DLL's export
#    table except those marked c++ in the export lists, and nothing else;
#  - compiled as C++ together with every public C++ header (before and after
#    them), its declarations agree with theirs: the compiler refuses a C
#    function declared twice with other types or another calling convention;
#  - a C program that calls every declared function links against each
#    import library, so each declaration resolves to an export;
#  - the structures both headers define (each guarded, so a program sees
#    only one) have the same size and member offsets in C as in C++: the
#    DLL reads them as its C++ headers lay them out.
# Arguments: CC, CXX, OBJDUMP, OBJCOPY, DLL, INCLUDE_DIR, ROOT (the source tree),
# PUBLIC_HEADERS, IMPORT_LIBS and ENTRIES (,-lists), WORK (a scratch folder).
include(${CMAKE_CURRENT_LIST_DIR}/ExportTable.cmake)
set(header ${INCLUDE_DIR}/Tqmlib52.h)
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
set(failures 0)

function(compile what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT rc EQUAL 0)
    message(SEND_ERROR "${what}:\n${out}")
    math(EXPR failures "${failures} + 1")
    set(failures ${failures} PARENT_SCOPE)
  endif()
endfunction()

set(strict -Wall -Wextra -pedantic -Werror -fsyntax-only)
compile("Tqmlib52.h is not clean C99" ${CC} -std=c99 ${strict} -x c ${header})
compile("Tqmlib52.h is not clean C89" ${CC} -std=c89 ${strict} -aux-info ${WORK}/declared.txt -x c ${header})
if(failures GREATER 0)
  message(FATAL_ERROR "C header check failed")
endif()

# The functions the header declares, from the compiler's own list.
file(STRINGS ${WORK}/declared.txt prototypes REGEX "Tqmlib52\\.h:")
set(declared "")
foreach(prototype IN LISTS prototypes)
  if(prototype MATCHES "([A-Za-z_][A-Za-z0-9_]*) \\(")
    list(APPEND declared ${CMAKE_MATCH_1})
  endif()
endforeach()

# The plain functions the DLL exports, by their C names (a decorated export
# _NAME@N or NAME@N is NAME), less those the export lists mark c++.
string(REPLACE "," ";" entries "${ENTRIES}")
set(cxx_functions "")
foreach(entry IN LISTS entries)
  string(REPLACE ":" ";" fields "${entry}")
  list(GET fields 0 sym)
  string(REGEX REPLACE "@[0-9]+$" "" plain "${sym}")
  if("c++" IN_LIST fields)
    list(APPEND cxx_functions ${plain})
  endif()
endforeach()
tqm_read_export_table(${OBJDUMP} ${DLL} exported)
set(c_functions "")
foreach(name IN LISTS exported)
  if(name MATCHES "^_Z")
    continue()
  elseif(name MATCHES "^_?([A-Za-z_][A-Za-z0-9_]*)@[0-9]+$")
    set(name ${CMAKE_MATCH_1})
  endif()
  if(NOT name IN_LIST cxx_functions)
    list(APPEND c_functions ${name})
  endif()
endforeach()

foreach(name IN LISTS c_functions)
  if(NOT name IN_LIST declared)
    message(SEND_ERROR "exported by the DLL but not declared in include/Tqmlib52.h: ${name} "
                       "(declare it there, or mark it c++ in its .exports line if it takes or returns C++ types)")
    math(EXPR failures "${failures} + 1")
  endif()
endforeach()
foreach(name IN LISTS declared)
  if(name IN_LIST cxx_functions)
    message(SEND_ERROR "declared in include/Tqmlib52.h but marked c++ in its .exports file: ${name}")
    math(EXPR failures "${failures} + 1")
  elseif(NOT name IN_LIST c_functions)
    message(SEND_ERROR "declared in include/Tqmlib52.h but not exported by the DLL: ${name}")
    math(EXPR failures "${failures} + 1")
  endif()
endforeach()

# Both orders: the C header first, and after the C++ headers.
string(REPLACE "," ";" public_headers "${PUBLIC_HEADERS}")
set(includes "")
foreach(public IN LISTS public_headers)
  string(APPEND includes "#include \"${public}\"\n")
endforeach()
file(WRITE ${WORK}/c_first.cpp "#include <Tqmlib52.h>\n${includes}")
file(WRITE ${WORK}/c_last.cpp "${includes}#include <Tqmlib52.h>\n")
foreach(order c_first c_last)
  compile("Tqmlib52.h disagrees with the C++ headers (${order})"
          ${CXX} -std=c++17 -Wall -Wextra -Werror -fsyntax-only -I${INCLUDE_DIR} -I${ROOT} ${WORK}/${order}.cpp)
endforeach()

# Every declared function called once: the link needs each of them.
set(calls "")
foreach(name IN LISTS declared)
  string(APPEND calls "    used[n++] = (const void*)&${name};\n")
endforeach()
list(LENGTH declared n_declared)
file(WRITE ${WORK}/calls.c "#include <Tqmlib52.h>\n
int main(void)\n{\n    static const void* used[${n_declared} + 1];\n    int n = 0;\n${calls}    return used[0] == 0;\n}\n")
string(REPLACE "," ";" import_libs "${IMPORT_LIBS}")
foreach(import_lib IN LISTS import_libs)
  get_filename_component(lib_name ${import_lib} NAME)
  compile("a C program does not link against ${lib_name}"
          ${CC} -std=c99 -I${INCLUDE_DIR} ${WORK}/calls.c ${import_lib} -o ${WORK}/calls_${lib_name}.exe)
endforeach()

# The shared structures' layouts: sizes and offsets go into a section of
# their own in a C object (from Tqmlib52.h) and a C++ one (from the C++
# headers alone); the two sections' bytes must be equal.
set(layouts
    "IDTABLE:pszName,nID"
    "EXCHANGEDATA:hWndPartner,hWndOwner,pszSectionName,dwRequestSize,pRequest,dwReplySize,pReply"
    "EXECAPPINFO:hInstance,hWndMain,hProcess,hThread,dwProcessId,dwThreadId")
set(layout_values "")
foreach(layout IN LISTS layouts)
  string(REPLACE ":" ";" layout_fields "${layout}")
  list(GET layout_fields 0 type)
  list(GET layout_fields 1 members)
  string(APPEND layout_values "    sizeof(${type}),\n")
  string(REPLACE "," ";" members "${members}")
  foreach(member IN LISTS members)
    string(APPEND layout_values "    offsetof(${type}, ${member}),\n")
  endforeach()
endforeach()
set(layout_array "__attribute__((section(\".tqmlay\"), used))\nconst unsigned long tqm_layout[] = {\n${layout_values}};\n")
file(WRITE ${WORK}/layout_c.c "#include <stddef.h>\n#include <Tqmlib52.h>\n${layout_array}")
file(WRITE ${WORK}/layout_cpp.cpp "#include <stddef.h>\n#include \"config/Identifiers.h\"\n#include \"ipc/DataExchange.h\"\n#include \"ipc/Processes.h\"\nextern \"C\" ${layout_array}")
compile("the C layouts do not compile" ${CC} -std=c99 -c -I${INCLUDE_DIR} ${WORK}/layout_c.c -o ${WORK}/layout_c.o)
compile("the C++ layouts do not compile" ${CXX} -std=c++17 -c -I${ROOT} ${WORK}/layout_cpp.cpp -o ${WORK}/layout_cpp.o)
foreach(lang c cpp)
  execute_process(COMMAND ${OBJCOPY} -O binary -j .tqmlay ${WORK}/layout_${lang}.o ${WORK}/layout_${lang}.bin)
  file(READ ${WORK}/layout_${lang}.bin layout_${lang} HEX)
endforeach()
if(NOT layout_c OR NOT layout_c STREQUAL layout_cpp)
  message(SEND_ERROR "the structures of include/Tqmlib52.h are laid out otherwise than the C++ headers' "
                     "(sizes and offsets, ${layouts}):\n  C:   ${layout_c}\n  C++: ${layout_cpp}")
  math(EXPR failures "${failures} + 1")
endif()

if(failures GREATER 0)
  message(FATAL_ERROR "C header check failed (${failures} problems)")
endif()
message(STATUS "Tqmlib52.h: ${n_declared} plain functions declared, clean C89/C99/C++, linked through ${import_libs}")
