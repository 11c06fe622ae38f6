// The catalogue as tqm shows it: list blocks taken apart, and libraries as
// table rows (shared by the catalogue's commands and the demo).
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tqmtool {

// The strings of a library list block; the block is freed. NULL gives none.
std::vector<std::string> TakeListBlock(HGLOBAL block);

struct LibraryRow
{
    std::string name;     // display name in the library's usable language
    std::string language; // that language's code, with "*" when it is the preferred one
    std::string id;
    std::string version;
    std::string distributor;
    std::string path;
};

LibraryRow DescribeLibrary(const std::string& descriptionFile);

// Prints the rows as a table with a heading; paths are shown relative to
// base when they lie below it (base may be empty).
void PrintLibraryTable(const std::vector<LibraryRow>& rows, const std::string& base);

}  // namespace tqmtool
