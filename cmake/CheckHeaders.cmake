cmake_minimum_required(VERSION 3.20)
# Compiles every header of the tree by itself, so that each one includes what
# it uses and none depends on the headers included before it.
# Arguments: COMPILER, ROOT (the source tree), FLAGS (,-list of options),
# PATTERNS (,-list of globs below ROOT; by default every header).
string(REPLACE "," ";" FLAGS "${FLAGS}")
if(NOT PATTERNS)
  set(PATTERNS "*/*.h,*/logic/*.h,tools/*/*.h")
endif()
string(REPLACE "," ";" PATTERNS "${PATTERNS}")
list(TRANSFORM PATTERNS PREPEND ${ROOT}/)
file(GLOB headers RELATIVE ${ROOT} ${PATTERNS})
list(FILTER headers EXCLUDE REGEX "^(build|tests)/")
list(SORT headers)
set(failures 0)
foreach(header IN LISTS headers)
  execute_process(COMMAND ${COMPILER} ${FLAGS} -I${ROOT} -fsyntax-only -x c++ ${ROOT}/${header}
                  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT rc EQUAL 0)
    message(SEND_ERROR "${header} does not compile on its own:\n${out}")
    math(EXPR failures "${failures} + 1")
  endif()
endforeach()
list(LENGTH headers n_headers)
if(failures GREATER 0)
  message(FATAL_ERROR "header check failed: ${failures} of ${n_headers} headers")
endif()
message(STATUS "headers: all ${n_headers} compile on their own")
