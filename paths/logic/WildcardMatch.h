// WildcardMatch - names against patterns with ? and *.
#pragma once

namespace tqm {

// True if name matches pattern: ? stands for any one character, * for any
// run of characters, none included. Letters compare after CharUpper, so the
// match ignores case in the system code page. Null on either side is no match.
bool WildcardMatch(const char* pattern, const char* name);

}  // namespace tqm
