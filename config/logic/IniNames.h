// NameFold - how the INI code compares section and entry names.
//
// Names compare byte by byte after each byte is folded to upper case. The
// library folds with the system code page's upper-casing (IniSystemFold in
// the library); the default table folds only the ASCII letters. Folding byte
// by byte (rather than a linguistic comparison such as lstrcmpi) keeps
// "equal" a plain equivalence, so that a name can be hashed: the document
// looks names up through a hash index in big sections.
#pragma once

#include <stddef.h>
#include <stdint.h>

namespace tqm {
namespace ini {

class NameFold
{
public:
    // Folds a to z onto A to Z and leaves every other byte alone.
    NameFold();
    // upper[b] is the folded byte b; upper[0] must be 0 and no other byte may fold to 0.
    explicit NameFold(const unsigned char (&upper)[256]);

    unsigned char operator()(char ch) const { return m_upper[static_cast<unsigned char>(ch)]; }

    // True when the two names are equal after folding.
    bool Equal(const char* a, const char* b) const;
    // True when the first n characters agree after folding (fewer when both end
    // sooner), as _strnicmp(text, name, n) == 0.
    bool EqualPrefix(const char* text, const char* name, size_t n) const;
    // A hash of the folded name: equal names hash equally.
    uint32_t Hash(const char* name) const;

private:
    unsigned char m_upper[256];
};

}  // namespace ini
}  // namespace tqm
