// ScanSourceDirectives, HasEncipheredSignature - the directives by which a
// library's source files name other files.
//
//   $INCLUDE name      the named file is part of this one (nested inclusion)
//   $LIB name          links the object library name (".obl" when it has no extension)
//   $USE name          uses the compiled unit name (".obj" when it has no extension)
//
// A directive is a line whose first non-blank character is "$"; the keyword
// is recognised by its first characters without regard to case ("$INCLUDE",
// or "$LIB" and "$USE"), so "$Include" and "$LIBRARY" count too. The
// argument follows after optional blanks, either quoted ("name", blanks after
// the opening quote skipped, no name without a closing quote) or bare, up to
// the first blank, ";" or the end of the line. Blanks are the runtime's
// isspace characters. A NUL byte ends its line's text, so binary files scan
// as text.
//
// Some sources are stored enciphered (see IsEncipheredSource): such a file
// begins with a signature; its directives are not readable.
//
// Pure code over a byte range: nothing here touches a file.
#pragma once

#include <stddef.h>

#include <string>
#include <vector>

namespace tqm {

enum class SourceDirectiveKind
{
    Include,
    Lib,
    Use
};

struct SourceDirective
{
    SourceDirectiveKind kind;
    std::string name;
};

// Every directive with a name, in the order of the lines.
std::vector<SourceDirective> ScanSourceDirectives(const char* text, size_t size);

// The eight bytes an enciphered source begins with.
constexpr char kEncipheredSignature[] = "TQM\x1A" "ENC1";
constexpr size_t kEncipheredSignatureSize = sizeof(kEncipheredSignature) - 1;

// True when the bytes begin with the signature.
bool HasEncipheredSignature(const char* data, size_t size);

// The extension a $LIB or $USE name gets when it has none: ".obl" or ".obj";
// NULL for $INCLUDE, whose names are taken as they stand.
const char* DefaultDirectiveExtension(SourceDirectiveKind kind);

}  // namespace tqm
