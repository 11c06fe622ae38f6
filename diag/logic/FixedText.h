// FixedText - a text of bounded length in a buffer of its own, for reports
// that must be built even when memory is short.
//
// Everything that would run past the capacity is cut; the text is always
// terminated. The whole buffer starts zero-filled, so bytes past the text
// read as NUL.
#pragma once

#include <stdarg.h>

namespace tqm {

// Appends printf-formatted text to buf (which holds length characters and
// has room for capacity characters and a NUL) and updates length. False
// when the result was cut at the capacity.
bool AppendFormatBounded(char* buf, int capacity, int& length, const char* format, va_list args);
// Appends text the same way; false when it was cut.
bool AppendBounded(char* buf, int capacity, int& length, const char* text);

template <int Capacity>
class FixedText
{
public:
    static constexpr int kCapacity = Capacity;

    const char* c_str() const { return m_text; }
    int length() const { return m_length; }
    int room() const { return Capacity - m_length; }

    bool appendFormatV(const char* format, va_list args)
    {
        return AppendFormatBounded(m_text, Capacity, m_length, format, args);
    }
    bool appendFormat(const char* format, ...) __attribute__((format(printf, 2, 3)))
    {
        va_list args;
        va_start(args, format);
        bool whole = appendFormatV(format, args);
        va_end(args);
        return whole;
    }
    bool append(const char* text) { return AppendBounded(m_text, Capacity, m_length, text); }

private:
    char m_text[Capacity + 1] = {};
    int m_length = 0;
};

}  // namespace tqm
