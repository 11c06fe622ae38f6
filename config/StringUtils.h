// The string and token utilities in one include: the tokenizer, blank
// skipping and trimming, case folding and symbol order, quote-aware search
// and split, and the library's resource strings.
#pragma once

#include "config/QuotedText.h"
#include "config/ResourceStrings.h"
#include "config/SymbolCompare.h"
#include "config/TextEdit.h"
#include "config/Tokenizer.h"
