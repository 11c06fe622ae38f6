cmake_minimum_required(VERSION 3.20)
# Judges Doxygen's warnings about the public headers: every one fails the
# reference except an undocumented member of a class or structure, macro,
# typedef, variable or enumerator, which the reference lists without a
# description (the framework types describe their members by section, as
# MFC's do). A function or a
# class without a comment of its own, and every malformed comment, fail.
# Arguments: LOG.
file(STRINGS ${LOG} warnings REGEX "warning:")
set(failing "")
foreach(warning IN LISTS warnings)
  if(warning MATCHES "Member .* of (class|struct) .* is not documented"
     OR warning MATCHES "\\((macro definition|typedef|variable|enumvalue|enumeration)\\) of file .* is not documented")
    continue()
  endif()
  string(APPEND failing "${warning}\n")
endforeach()
if(failing)
  message(FATAL_ERROR "the API reference has warnings:\n${failing}")
endif()
