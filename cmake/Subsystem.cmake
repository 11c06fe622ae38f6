# Sources of a library folder: <folder>/*.cpp go into the DLL, and
# <folder>/logic/*.cpp - parsing and formatting that makes no system call -
# into tqmlogic, which the tests link directly.
function(tqm_subsystem_sources)
  file(GLOB library_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.rc)
  file(GLOB logic_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/logic/*.cpp)
  if(library_sources)
    target_sources(Tqmlib52 PRIVATE ${library_sources})
  endif()
  if(logic_sources)
    target_sources(tqmlogic PRIVATE ${logic_sources})
  endif()
endfunction()
