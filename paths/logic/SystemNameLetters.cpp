// The system code page's letters and digits for names.
#include "paths/logic/PathNameRules.h"

#include <windows.h>

namespace tqm {

// The system's answers for every byte, asked once: they are a lookup in the
// code page's tables, which do not change while a program runs.
const NameLetters& NameLetters::System()
{
    static const NameLetters letters = [] {
        NameLetters table;
        for (int c = 0; c < 256; ++c) {
            char ch = static_cast<char>(c);
            bool letter = c != 0 && IsCharAlphaA(ch);
            bool letterOrDigit = c != 0 && IsCharAlphaNumericA(ch);
            table.m_flags[c] = static_cast<unsigned char>((letter ? kLetter : 0) | (letterOrDigit ? kLetterOrDigit : 0));
        }
        return table;
    }();
    return letters;
}

}  // namespace tqm
