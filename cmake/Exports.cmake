# The library's plain exports.
#
# Each folder lists its plain functions in <topic>.exports files, one per line:
#   NAME@N            stdcall with N bytes of arguments on i686: exported undecorated
#   NAME              caller-pops: exported as it is
#   NAME@N decorated  stdcall exported on i686 under the name Microsoft's
#                     compiler gives it, _NAME@N: the name that programs
#                     built with that compiler import
#   ... c++           takes or returns the framework's C++ types (CString,
#                     CStringArray), so it is declared in its C++ header only;
#                     every other plain function is declared in the C header
#                     include/Tqmlib52.h as well (the "cheader" test checks it)
# From these lists the build writes the module-definition file. On i686 it
# also remakes the import library, so that programs calling NAME@N bind to the
# undecorated export. The same lists are the export check's contract.

function(tqm_read_export_lists out_entries)
  file(GLOB lists CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/*/*.exports)
  list(SORT lists)
  set(entries "")
  foreach(list_file IN LISTS lists)
    set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list_file})
    file(STRINGS ${list_file} lines)
    foreach(line IN LISTS lines)
      string(REGEX REPLACE "#.*" "" line "${line}")
      string(STRIP "${line}" line)
      if(line STREQUAL "")
        continue()
      endif()
      string(REGEX REPLACE "[ \t]+" ";" line "${line}")
      list(JOIN line ":" entry)
      list(APPEND entries "${entry}")
    endforeach()
  endforeach()
  set(${out_entries} "${entries}" PARENT_SCOPE)
endfunction()

function(tqm_attach_exports target)
  tqm_read_export_lists(entries)
  set(def "LIBRARY Tqmlib52.dll\nEXPORTS\n")
  foreach(entry IN LISTS entries)
    string(REPLACE ":" ";" fields "${entry}")
    list(GET fields 0 sym)
    string(REGEX REPLACE "@[0-9]+$" "" plain "${sym}")
    if(NOT TQM_ARCH STREQUAL "i686")
      string(APPEND def "    ${plain}\n")
    elseif("decorated" IN_LIST fields)
      string(APPEND def "    _${sym} = ${sym}\n")
    elseif(sym STREQUAL plain)
      string(APPEND def "    ${sym}\n")
    else()
      string(APPEND def "    ${plain} = ${sym}\n")
    endif()
  endforeach()
  set(def_file ${CMAKE_BINARY_DIR}/Tqmlib52.def)
  file(CONFIGURE OUTPUT ${def_file} CONTENT "${def}" @ONLY)
  target_sources(${target} PRIVATE ${def_file})

  if(TQM_ARCH STREQUAL "i686")
    set(exported_def ${CMAKE_BINARY_DIR}/Tqmlib52.exported.def)
    target_link_options(${target} PRIVATE "-Wl,--output-def,${exported_def}")
    add_custom_command(TARGET ${target} POST_BUILD
      COMMAND ${CMAKE_COMMAND} -DEXPORTED_DEF=${exported_def} -DIMPORT_DEF=${CMAKE_BINARY_DIR}/Tqmlib52.import.def
              -DDLLTOOL=${CMAKE_DLLTOOL} -DIMPORT_LIB=$<TARGET_LINKER_FILE:${target}>
              -P ${PROJECT_SOURCE_DIR}/cmake/MakeImportLib.cmake
      VERBATIM)
  endif()
endfunction()
