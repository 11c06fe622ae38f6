// CHyperlink - a link target: a string that opens itself with the shell.
//
//     CHyperlink link("https://example.com/help");
//     if (reinterpret_cast<INT_PTR>(link.Navigate()) <= 32) ... // failed
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"

// A link target (a web address, a file or a program) and the opening of it.
class TQM_CLASS CHyperlink
{
public:
    // Construction; a NULL target is empty.
    CHyperlink(const char* pszTarget = nullptr);
    CHyperlink(const CHyperlink& other);
    CHyperlink& operator=(const CHyperlink& other);
    const CHyperlink& operator=(const char* pszTarget);
    ~CHyperlink();

    // Attributes
    operator const char*() const { return m_strTarget; }

    // Operations
    // Opens the target with the shell ("open", shown normally). 0 for an
    // empty target; otherwise ShellExecute's result, above 32 on success.
    HINSTANCE Navigate();

protected:
    CString m_strTarget;
};
