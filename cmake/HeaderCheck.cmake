# Every header of the tree compiles on its own, so that each one includes what
# it uses and none depends on the headers included before it. Each header gets
# a one-line source that includes only it; the sources form an object library
# that the build compiles in parallel, and again only when a header changes.
# One architecture is enough: the headers are the same for both.
function(tqm_add_header_check)
  file(GLOB headers RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS
       ${PROJECT_SOURCE_DIR}/*/*.h ${PROJECT_SOURCE_DIR}/*/logic/*.h ${PROJECT_SOURCE_DIR}/tools/*/*.h)
  list(FILTER headers EXCLUDE REGEX "^(build|tests|fuzz)/")
  set(sources "")
  foreach(header IN LISTS headers)
    string(MAKE_C_IDENTIFIER "${header}" stem)
    set(source ${CMAKE_BINARY_DIR}/header_check/${stem}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n")
    list(APPEND sources ${source})
  endforeach()
  add_library(header_check OBJECT ${sources})
  target_include_directories(header_check PRIVATE ${PROJECT_SOURCE_DIR})
  target_compile_definitions(header_check PRIVATE TQMLIB_BUILD)
  target_link_libraries(header_check PRIVATE tqm_warnings)
endfunction()
