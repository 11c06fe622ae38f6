// The case folding the library's INI code compares names with.
#pragma once

#include "config/logic/IniNames.h"

namespace tqm {
namespace ini {

// Folds with the system code page's upper-casing (CharUpperBuffA), built on
// first use; so "ü" and "Ü" are the same name under code page 1252.
const NameFold& SystemNameFold();

}  // namespace ini
}  // namespace tqm
