// CTQMTokenizer.
#include "config/Tokenizer.h"

#include "framework/Exceptions.h"

#include <string.h>

CTQMTokenizer::CTQMTokenizer() : m_pszPosition(nullptr), m_chSeparator(',') {}

const char* CTQMTokenizer::GetFirstToken(const char* text, char sep)
{
    m_pszPosition = nullptr;
    m_chSeparator = sep;
    try {
        m_strBuffer = text ? text : "";
        // A writable buffer of our own: tokens are cut off in place.
        m_pszPosition = m_strBuffer.GetBuffer();
    } catch (CException* e) {
        e->Delete();  // out of memory: the tokenizer is simply empty
    }
    return GetNextToken();
}

const char* CTQMTokenizer::GetNextToken()
{
    if (!m_pszPosition)
        return "";
    char* token = m_pszPosition;
    // A NUL separator would be found at the terminator: it never splits.
    char* sep = m_chSeparator ? strchr(token, m_chSeparator) : nullptr;
    if (sep) {
        *sep = '\0';
        m_pszPosition = sep + 1;
    } else {
        m_pszPosition = nullptr;
    }
    return token;
}

const char* CTQMTokenizer::GetRest() { return m_pszPosition ? m_pszPosition : ""; }

int CTQMTokenizer::HasMoreTokens() { return m_pszPosition ? 1 : 0; }
