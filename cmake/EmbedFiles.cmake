cmake_minimum_required(VERSION 3.20)
# Writes a C++ source that holds every file below ROOT as bytes, for a
# program that carries its own sample files:
#   const tqmtool::EmbeddedFile NAME[] = {{"dir\\file", "\x..", size}, ...};
#   const size_t NAME_COUNT;
# Arguments: ROOT, OUTPUT, NAME, HEADER (the header that declares them).
file(GLOB_RECURSE files RELATIVE ${ROOT} ${ROOT}/*)
list(SORT files)
set(body "")
foreach(relative IN LISTS files)
  file(READ ${ROOT}/${relative} hex HEX)
  string(LENGTH "${hex}" digits)
  math(EXPR size "${digits} / 2")
  string(REGEX REPLACE "([0-9a-f][0-9a-f])" "\\\\x\\1" bytes "${hex}")
  string(REPLACE "/" "\\\\" windows_path "${relative}")
  string(APPEND body "    {\"${windows_path}\", \"${bytes}\", ${size}},\n")
endforeach()
list(LENGTH files count)
string(CONCAT source "// Generated from ${ROOT} by cmake/EmbedFiles.cmake: edit the files there.\n"
           "#include \"${HEADER}\"\n\n"
           "namespace tqmtool {\n\n"
           "const EmbeddedFile ${NAME}[] = {\n${body}};\n"
           "const size_t ${NAME}Count = ${count};\n\n"
           "}  // namespace tqmtool\n")
# Rewritten only when it changes, so an unchanged tree builds nothing.
file(CONFIGURE OUTPUT ${OUTPUT} CONTENT "${source}" @ONLY)
