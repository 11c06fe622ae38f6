// Printable - text from a file or another program made fit for a terminal.
#pragma once

#include <stddef.h>

#include <string>

namespace tqmtool {

// The characters of text with LF, CR and tab as \n, \r and \t and the other
// control characters and DEL as \xNN. After maxShown characters the rest is
// left out and counted: " ... (N characters more)".
std::string Printable(const char* text, size_t length, size_t maxShown = static_cast<size_t>(-1));

}  // namespace tqmtool
