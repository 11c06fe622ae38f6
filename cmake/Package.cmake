# The package a program of the suite builds against: the install tree, the
# import library for Microsoft's linker, the CMake package files, the API
# reference and the release archive.
#
#   bin/                      Tqmlib52.dll, tqm.exe
#   include/                  Tqmlib52.h and the public C++ headers (cmake/PublicHeaders.cmake)
#   lib/                      libTqmlib52.dll.a (MinGW), Tqmlib52.lib (Microsoft's linker),
#                             libtqmframework.a (the framework types, for C++ programs)
#   lib/cmake/Tqmlib52/       Tqmlib52Config.cmake, Tqmlib52ConfigVersion.cmake
#   share/doc/Tqmlib52/       README.md, reference/ (the "docs" target)
include(${PROJECT_SOURCE_DIR}/cmake/PublicHeaders.cmake)
tqm_public_headers(TQM_PUBLIC_HEADERS)

# Tqmlib52.lib, remade whenever the module-definition file changes.
set(TQM_MSVC_IMPORT_LIB ${CMAKE_BINARY_DIR}/lib/Tqmlib52.lib)
find_program(TQM_LLVM_DLLTOOL llvm-dlltool)
find_program(TQM_LLVM_AR llvm-ar)
find_program(TQM_LLVM_LIB llvm-lib)
find_program(TQM_LLD_LINK lld-link)
find_program(TQM_LLVM_READOBJ llvm-readobj)
if(TQM_LLVM_DLLTOOL AND TQM_LLVM_AR AND TQM_LLVM_LIB AND TQM_LLD_LINK)
  add_custom_command(OUTPUT ${TQM_MSVC_IMPORT_LIB}
    COMMAND ${CMAKE_COMMAND} -DDEF=${CMAKE_BINARY_DIR}/Tqmlib52.def -DLIB=${TQM_MSVC_IMPORT_LIB}
            -DARCH=${TQM_ARCH} -DWORK=${CMAKE_BINARY_DIR}/msvc-import-lib
            -DDLLTOOL=${TQM_LLVM_DLLTOOL} -DLLVM_AR=${TQM_LLVM_AR} -DLLVM_LIB=${TQM_LLVM_LIB}
            -DLLD_LINK=${TQM_LLD_LINK} -P ${PROJECT_SOURCE_DIR}/cmake/MakeMsvcImportLib.cmake
    DEPENDS ${CMAKE_BINARY_DIR}/Tqmlib52.def ${PROJECT_SOURCE_DIR}/cmake/MakeMsvcImportLib.cmake
    VERBATIM)
  add_custom_target(Tqmlib52_lib ALL DEPENDS ${TQM_MSVC_IMPORT_LIB})
else()
  message(WARNING "LLVM's tools (llvm-dlltool, llvm-ar, llvm-lib, lld-link) are missing: "
                  "no Tqmlib52.lib for Microsoft's linker (scripts/setup.sh installs them)")
endif()

# The install tree.
install(TARGETS Tqmlib52 tqm RUNTIME DESTINATION bin ARCHIVE DESTINATION lib)
install(TARGETS tqmframework ARCHIVE DESTINATION lib)
install(FILES ${TQM_MSVC_IMPORT_LIB} DESTINATION lib OPTIONAL)
install(FILES ${PROJECT_SOURCE_DIR}/include/Tqmlib52.h DESTINATION include)
foreach(header IN LISTS TQM_PUBLIC_HEADERS)
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION include/${folder})
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION share/doc/Tqmlib52)
install(DIRECTORY ${CMAKE_BINARY_DIR}/doc/html/ DESTINATION share/doc/Tqmlib52/reference OPTIONAL)

# The CMake package. The version file accepts any later release of the same
# major version, and only programs of the package's own architecture.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_BINARY_DIR}/package-config)
math(EXPR TQM_BITS "${CMAKE_SIZEOF_VOID_P} * 8")
configure_file(${PROJECT_SOURCE_DIR}/cmake/Tqmlib52Config.cmake.in ${package_dir}/Tqmlib52Config.cmake @ONLY)
write_basic_package_version_file(${package_dir}/version-rules.cmake
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
file(READ ${PROJECT_SOURCE_DIR}/cmake/Tqmlib52ArchCheck.cmake.in arch_check)
string(CONFIGURE "${arch_check}" arch_check @ONLY)
file(READ ${package_dir}/version-rules.cmake version_rules)
file(WRITE ${package_dir}/Tqmlib52ConfigVersion.cmake "${arch_check}\n${version_rules}")
install(FILES ${package_dir}/Tqmlib52Config.cmake ${package_dir}/Tqmlib52ConfigVersion.cmake
        DESTINATION lib/cmake/Tqmlib52)

# The API reference: Doxygen over the public headers ("docs" target, run by
# scripts/docs.sh). A warning about a missing or malformed comment fails it
# (cmake/CheckDoxygenLog.cmake).
find_program(TQM_DOXYGEN doxygen)
if(TQM_DOXYGEN)
  set(doc_inputs ${PROJECT_SOURCE_DIR}/docs/subsystems.dox
                 ${PROJECT_SOURCE_DIR}/include/Tqmlib52.h)
  foreach(header IN LISTS TQM_PUBLIC_HEADERS)
    list(APPEND doc_inputs ${PROJECT_SOURCE_DIR}/${header})
  endforeach()
  list(JOIN doc_inputs " \\\n    " TQM_DOC_INPUTS)
  configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${CMAKE_BINARY_DIR}/Doxyfile @ONLY)
  add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/doc/html/index.html
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${CMAKE_BINARY_DIR}/doc
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/doc
    COMMAND ${TQM_DOXYGEN} ${CMAKE_BINARY_DIR}/Doxyfile
    COMMAND ${CMAKE_COMMAND} -DLOG=${CMAKE_BINARY_DIR}/doc/warnings.log -P ${PROJECT_SOURCE_DIR}/cmake/CheckDoxygenLog.cmake
    DEPENDS ${doc_inputs} ${CMAKE_BINARY_DIR}/Doxyfile ${PROJECT_SOURCE_DIR}/scripts/doxygen-filter.sh
            ${PROJECT_SOURCE_DIR}/cmake/CheckDoxygenLog.cmake
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    VERBATIM)
  add_custom_target(docs DEPENDS ${CMAKE_BINARY_DIR}/doc/html/index.html)
endif()

# The release archive: Tqmlib52-<version>-win32.zip (i686) or -win64.zip.
if(TQM_ARCH STREQUAL "i686")
  set(CPACK_SYSTEM_NAME win32)
else()
  set(CPACK_SYSTEM_NAME win64)
endif()
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME Tqmlib52)
set(CPACK_PACKAGE_VENDOR "Tarn-Holmvik")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Shared support library of the QM5 suite")
set(CPACK_PACKAGE_FILE_NAME Tqmlib52-${PROJECT_VERSION}-${CPACK_SYSTEM_NAME})
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/dist)
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY ON)
set(CPACK_STRIP_FILES TRUE)  # the DLL and tqm.exe without debug information
set(CPACK_RESOURCE_FILE_README ${PROJECT_SOURCE_DIR}/README.md)
include(CPack)
