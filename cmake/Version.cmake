# The library's version, read from res/Version.h: the one place it is set.
# Sets TQM_VERSION (MAJOR.MINOR.BUILD) for project(), and stops when the
# header's version texts disagree with its numbers.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/../res/Version.h _version_defines REGEX "^#define TQM_")
foreach(_define IN LISTS _version_defines)
  if(_define MATCHES "^#define (TQM_[A-Z_]+)[ \t]+\"?([^\"]*)\"?[ \t]*$")
    set(${CMAKE_MATCH_1} "${CMAKE_MATCH_2}")
  endif()
endforeach()
foreach(_part MAJOR MINOR BUILD REVISION)
  if(NOT TQM_VERSION_${_part} MATCHES "^[0-9]+$")
    message(FATAL_ERROR "res/Version.h: TQM_VERSION_${_part} is not a number")
  endif()
endforeach()
set(TQM_VERSION ${TQM_VERSION_MAJOR}.${TQM_VERSION_MINOR}.${TQM_VERSION_BUILD})
if(NOT TQM_FILE_VERSION_TEXT STREQUAL "${TQM_VERSION}.${TQM_VERSION_REVISION}"
   OR NOT TQM_PRODUCT_VERSION_TEXT STREQUAL "${TQM_VERSION_MAJOR}.${TQM_VERSION_MINOR}")
  message(FATAL_ERROR "res/Version.h: the version texts do not match the version numbers")
endif()
