cmake_minimum_required(VERSION 3.21)
# Checks the package as a program of the suite meets it:
#  - installs the build into a fresh folder and checks the install tree (the
#    files a consumer needs, and no internal or logic/ header);
#  - configures and builds examples/ against that folder only, with the
#    package found by find_package, and runs both programs under Wine (where
#    this build's programs can run);
#  - configures examples/ for the other architecture against the same folder,
#    which the package's architecture check must refuse with its message.
# Arguments: SOURCE_DIR, BUILD_DIR, ARCH, OTHER_ARCH, RUN (ON/OFF), WINE_RUN,
# WINE_PREFIX, PUBLIC_HEADERS (,-list), WORK (a scratch folder).
file(REMOVE_RECURSE ${WORK})
set(stage ${WORK}/Tqmlib52)
set(failures 0)

function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${what} failed:\n${out}")
  endif()
  message(STATUS "${what}:\n${out}")
endfunction()

run("install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${stage})

# The install tree.
string(REPLACE "," ";" public_headers "${PUBLIC_HEADERS}")
list(TRANSFORM public_headers PREPEND include/)
set(expected bin/Tqmlib52.dll bin/tqm.exe include/Tqmlib52.h ${public_headers}
    lib/libTqmlib52.dll.a lib/Tqmlib52.lib lib/libtqmframework.a
    lib/cmake/Tqmlib52/Tqmlib52Config.cmake lib/cmake/Tqmlib52/Tqmlib52ConfigVersion.cmake
    share/doc/Tqmlib52/README.md)
foreach(file IN LISTS expected)
  if(NOT EXISTS ${stage}/${file})
    message(SEND_ERROR "the install tree lacks ${file}")
    math(EXPR failures "${failures} + 1")
  endif()
endforeach()
file(GLOB_RECURSE installed_headers RELATIVE ${stage} ${stage}/include/*)
foreach(file IN LISTS installed_headers)
  if(NOT file IN_LIST expected)
    message(SEND_ERROR "the install tree has a header that is not public: ${file}")
    math(EXPR failures "${failures} + 1")
  endif()
endforeach()
if(failures GREATER 0)
  message(FATAL_ERROR "install tree check failed (${failures} problems)")
endif()

# The examples against the install tree.
set(examples ${WORK}/examples)
run("configure examples (${ARCH})" ${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples -B ${examples} -G Ninja
    -DCMAKE_TOOLCHAIN_FILE=${SOURCE_DIR}/cmake/toolchain-${ARCH}.cmake -DCMAKE_PREFIX_PATH=${stage})
run("build examples" ${CMAKE_COMMAND} --build ${examples})
if(RUN)
  run("directories" ${WINE_RUN} ${ARCH} ${WINE_PREFIX} ${examples}/directories.exe)
  execute_process(COMMAND ${WINE_RUN} ${ARCH} ${WINE_PREFIX} ${examples}/settings_records.exe .
                  WORKING_DIRECTORY ${WORK} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "settings_records failed:\n${out}")
  endif()
  message(STATUS "settings_records:\n${out}")
else()
  message(STATUS "examples built; this machine does not run ${ARCH} programs")
endif()

# The other architecture's project must be refused by the package.
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples -B ${WORK}/wrong-arch -G Ninja
                -DCMAKE_TOOLCHAIN_FILE=${SOURCE_DIR}/cmake/toolchain-${OTHER_ARCH}.cmake
                -DCMAKE_PREFIX_PATH=${stage}
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
if(rc EQUAL 0 OR NOT out MATCHES "the ${ARCH} build for [0-9]+-bit programs")
  message(FATAL_ERROR "a ${OTHER_ARCH} project was not refused by the architecture check:\n${out}")
endif()
string(REGEX MATCH "version: [^\n]*" refusal "${out}")
message(STATUS "a ${OTHER_ARCH} project is refused: ${refusal}")
