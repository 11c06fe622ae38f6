// Text made fit for a terminal.
#include "tools/tqm/Printable.h"

#include <stdio.h>

namespace tqmtool {

std::string Printable(const char* text, size_t length, size_t maxShown)
{
    std::string shown;
    size_t i = 0;
    for (; i < length && shown.size() < maxShown; ++i) {
        unsigned char c = static_cast<unsigned char>(text[i]);
        switch (c) {
        case '\n': shown += "\\n"; break;
        case '\r': shown += "\\r"; break;
        case '\t': shown += "\\t"; break;
        default:
            if (c < 0x20 || c == 0x7F) {
                char hex[8];
                snprintf(hex, sizeof(hex), "\\x%02X", c);
                shown += hex;
            } else {
                shown += static_cast<char>(c);
            }
        }
    }
    if (i < length)
        shown += " ... (" + std::to_string(length - i) + " characters more)";
    return shown;
}

}  // namespace tqmtool
