// EncodeListBlock, DecodeListBlock - the bytes of a library list block.
//
// Every list the catalogue returns is one block of strings, each followed by
// a NUL, and one more NUL after the last: "a\0b\0\0". An empty list is two
// NULs. The block itself is global memory (libcatalog/LibraryListBlock.h).
#pragma once

#include <stddef.h>

#include <string>
#include <vector>

namespace tqm {

std::string EncodeListBlock(const std::vector<std::string>& items);

// The strings of a block of size bytes, up to the NUL that closes the list;
// a block without that NUL gives the strings that are complete.
std::vector<std::string> DecodeListBlock(const char* data, size_t size);

}  // namespace tqm
