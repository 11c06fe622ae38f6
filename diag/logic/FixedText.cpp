// Bounded formatting.
#include "diag/logic/FixedText.h"

#include <stdio.h>
#include <string.h>

namespace tqm {

bool AppendFormatBounded(char* buf, int capacity, int& length, const char* format, va_list args)
{
    if (!format || length >= capacity)
        return !format || !*format;
    size_t room = static_cast<size_t>(capacity - length);
    int written = vsnprintf(buf + length, room + 1, format, args);
    // Whatever the runtime's habit on overflow (a negative result, or no
    // terminator), the text ends within the buffer.
    buf[capacity] = '\0';
    if (written >= 0 && static_cast<size_t>(written) <= room) {
        length += written;
        return true;
    }
    length += static_cast<int>(strnlen(buf + length, room));
    return false;
}

bool AppendBounded(char* buf, int capacity, int& length, const char* text)
{
    if (!text)
        return true;
    size_t want = strlen(text);
    size_t room = static_cast<size_t>(capacity - length);
    size_t take = want < room ? want : room;
    memcpy(buf + length, text, take);
    length += static_cast<int>(take);
    buf[length] = '\0';
    return take == want;
}

}  // namespace tqm
