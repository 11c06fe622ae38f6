// LanguageCodeForName - the two-letter code of a language name as older
// description files write it ("English", "Deutsch", "Nederlands").
#pragma once

namespace tqm {

// The code by the name's first two letters, without regard to case: en, fr,
// ge/de (de), it, hu/ho (hu, for Hongrois), ni/ne/du (nl); "" for any other
// name. Tested in that order.
const char* LanguageCodeForName(const char* name);

}  // namespace tqm
