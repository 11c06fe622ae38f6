# The public headers: what a program of the suite includes to use the DLL.
# They go into the install tree and into the API reference; the rest is the
# library's own.
#
# The rule, applied to the headers of the library's folders (never logic/):
#  - a header that declares something the DLL exports (it uses TQM_CLASS,
#    TQM_CPPAPI or TQM_CAPI) is public;
#  - so is one that only gathers such headers (config/StringUtils.h) or wraps
#    them in macros (diag/TarnAssert.h): every header it includes is one;
#  - so are the resource identifiers and the version (res/), which callers
#    pass to the string-table functions and compare with;
#  - and every header of the tree that a public header includes comes along
#    (the framework types: CString, the collections, the exceptions).
# include/Tqmlib52.h, the C header, is public as well.
# A public header that includes a logic/ header is an error.

function(tqm_public_headers out_headers)
  set(root ${PROJECT_SOURCE_DIR})
  file(GLOB candidates RELATIVE ${root} CONFIGURE_DEPENDS ${root}/*/*.h)
  list(FILTER candidates EXCLUDE REGEX "^(build|tests|tools|bench|fuzz|examples|include)/")

  set(exporting "")
  foreach(header IN LISTS candidates)
    file(READ ${root}/${header} text)
    if(text MATCHES "TQM_(CLASS|CPPAPI|CAPI)[ \t]" AND NOT header STREQUAL "framework/Export.h")
      list(APPEND exporting ${header})
    endif()
    string(REGEX MATCHALL "#include \"[^\"]+\"" includes "${text}")
    string(REGEX REPLACE "#include \"([^\"]+)\"" "\\1" includes "${includes}")
    set(includes_of_${header} "${includes}")
  endforeach()

  set(public ${exporting})
  foreach(header IN LISTS candidates)
    set(includes "${includes_of_${header}}")
    if(header MATCHES "^res/")
      list(APPEND public ${header})
    elseif(includes AND NOT header IN_LIST exporting)
      set(gathers TRUE)
      foreach(included IN LISTS includes)
        if(NOT included IN_LIST exporting)
          set(gathers FALSE)
        endif()
      endforeach()
      if(gathers)
        list(APPEND public ${header})
      endif()
    endif()
  endforeach()

  # What the public headers include comes along.
  set(pending ${public})
  while(pending)
    list(POP_FRONT pending header)
    foreach(included IN LISTS includes_of_${header})
      if(included MATCHES "/logic/")
        message(FATAL_ERROR "public header ${header} includes the library's internal ${included}")
      endif()
      if(NOT included IN_LIST public)
        list(APPEND public ${included})
        list(APPEND pending ${included})
      endif()
    endforeach()
  endwhile()
  list(SORT public)
  set(${out_headers} ${public} PARENT_SCOPE)
endfunction()
