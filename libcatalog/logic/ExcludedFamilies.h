// IsExcludedFamilyName - the family names of the maker's own libraries, whose
// definition files the convertible-library scan never lists: those libraries
// are converted by their maker, not by the user.
#pragma once

namespace tqm {

// True when name (a ".def" file's name without extension) is one of the
// table's names, without regard to case.
bool IsExcludedFamilyName(const char* name);

}  // namespace tqm
