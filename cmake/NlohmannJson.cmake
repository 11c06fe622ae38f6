# nlohmann/json, the header-only JSON library of Debian's nlohmann-json3-dev,
# as the imported target tqm_nlohmann_json.
#
# Debian puts it in /usr/include/nlohmann, and its headers include each other
# as <nlohmann/...>. The cross compilers must not search /usr/include itself,
# which holds the build machine's C library; so the build tree gets a folder
# of its own holding only a link to the package's folder, and that folder is
# the include path (a system one: the library's warnings are not ours).
set(TQM_NLOHMANN_DIR /usr/include/nlohmann)
if(NOT EXISTS ${TQM_NLOHMANN_DIR}/json.hpp)
  message(FATAL_ERROR "${TQM_NLOHMANN_DIR}/json.hpp is missing: install nlohmann-json3-dev (scripts/setup.sh does)")
endif()
set(_tqm_json_include ${CMAKE_BINARY_DIR}/third-party/include)
file(MAKE_DIRECTORY ${_tqm_json_include})
if(NOT EXISTS ${_tqm_json_include}/nlohmann/json.hpp)
  file(CREATE_LINK ${TQM_NLOHMANN_DIR} ${_tqm_json_include}/nlohmann SYMBOLIC)
endif()
add_library(tqm_nlohmann_json INTERFACE IMPORTED GLOBAL)
set_target_properties(tqm_nlohmann_json PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${_tqm_json_include})
