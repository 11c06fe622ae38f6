cmake_minimum_required(VERSION 3.21)
# Makes Tqmlib52.lib, the import library for Microsoft's linker, from the
# module-definition file the build links the DLL with.
#
# Programs built by Microsoft's compiler refer to a stdcall function by its
# decorated name (_NAME@N on i686) and to a caller-pops one as _NAME; each
# member of the library maps that symbol to the name the DLL exports:
#   "NAME = NAME@N"  undecorated stdcall export: llvm-dlltool -k gives the
#                    member the symbol _NAME@N and the name type "undecorate";
#   "NAME"           caller-pops (or any name on x86_64): the name as it is;
#   "_NAME@N = ..."  an export under Microsoft's decorated name: only
#                    lld-link's import-library mode gives the member the name
#                    type "name" (_NAME@N imports _NAME@N, as Microsoft's own
#                    tools make it); llvm-dlltool would add a second
#                    underscore. Those members are made on their own and
#                    merged in with llvm-lib.
# Arguments: DEF, LIB, ARCH, WORK (a scratch folder), DLLTOOL, LLVM_AR,
# LLVM_LIB, LLD_LINK.

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${ARGN} failed:\n${out}")
  endif()
endfunction()

# The import members of an import library that lld-link makes from def_text
# (those after the three descriptor members every import library starts
# with), as files in folder.
function(lld_import_members out_files folder def_text)
  file(REMOVE_RECURSE ${folder})
  file(MAKE_DIRECTORY ${folder})
  file(WRITE ${folder}/members.def "LIBRARY Tqmlib52.dll\nEXPORTS\n${def_text}")
  run(${LLD_LINK} /machine:${lld_machine} /def:${folder}/members.def /out:${folder}/Tqmlib52.dll
      /implib:${folder}/members.lib)
  string(REGEX MATCHALL "\n" lines "${def_text}")
  list(LENGTH lines count)
  set(files "")
  foreach(n RANGE 1 ${count})
    math(EXPR instance "${n} + 3")
    file(MAKE_DIRECTORY ${folder}/${n})
    execute_process(COMMAND ${LLVM_AR} xN ${instance} ${folder}/members.lib Tqmlib52.dll
                    WORKING_DIRECTORY ${folder}/${n} RESULT_VARIABLE rc)
    if(NOT rc EQUAL 0 OR NOT EXISTS ${folder}/${n}/Tqmlib52.dll)
      message(FATAL_ERROR "cannot take member ${instance} out of ${folder}/members.lib")
    endif()
    list(APPEND files ${folder}/${n}/Tqmlib52.dll)
  endforeach()
  set(${out_files} ${files} PARENT_SCOPE)
endfunction()

if(ARCH STREQUAL "i686")
  set(machine i386)
  set(lld_machine x86)
else()
  set(machine i386:x86-64)
  set(lld_machine x64)
endif()

file(STRINGS ${DEF} lines)
set(plain "")
set(decorated "")
foreach(line IN LISTS lines)
  if(NOT line MATCHES "^[ \t]+([^ \t=]+)([ \t]*=[ \t]*([^ \t]+))?")
    continue()  # LIBRARY and EXPORTS
  endif()
  set(export "${CMAKE_MATCH_1}")
  set(symbol "${CMAKE_MATCH_3}")
  if(NOT symbol)
    set(symbol "${export}")
  endif()
  if(ARCH STREQUAL "i686" AND export MATCHES "@")
    string(APPEND decorated "    ${export}\n")
  else()
    string(APPEND plain "    ${symbol}\n")
  endif()
endforeach()

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
file(WRITE ${WORK}/plain.def "LIBRARY Tqmlib52.dll\nEXPORTS\n${plain}")
run(${DLLTOOL} -m ${machine} -k -d ${WORK}/plain.def -l ${WORK}/plain.lib)

set(extra "")
if(decorated)
  lld_import_members(extra ${WORK}/decorated "${decorated}")
endif()
# Merged one by one inside one folder, so that every member keeps the name
# Tqmlib52.dll: GNU ld orders the import sections by member name, and a
# member of another name would fall out of the DLL's import table.
set(merge ${WORK}/merge)
file(MAKE_DIRECTORY ${merge})
file(COPY_FILE ${WORK}/plain.lib ${merge}/Tqmlib52.lib)
foreach(member IN LISTS extra)
  file(COPY_FILE ${member} ${merge}/Tqmlib52.dll)
  execute_process(COMMAND ${LLVM_LIB} /out:merged.lib Tqmlib52.lib Tqmlib52.dll
                  WORKING_DIRECTORY ${merge} RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "llvm-lib could not merge ${member}")
  endif()
  file(RENAME ${merge}/merged.lib ${merge}/Tqmlib52.lib)
endforeach()
file(COPY_FILE ${merge}/Tqmlib52.lib ${LIB})
