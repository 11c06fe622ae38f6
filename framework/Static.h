// CStatic - a static control (text, icon or bitmap) as a window object.
//
// Either subclass a control of a dialog (SubclassDlgItem) or make one with
// Create; a class derived from CStatic then handles the control's messages
// in its OnWndMsg.
#pragma once

#include "framework/Wnd.h"

// A static control (text, icon or bitmap) as a window object.
class TQM_CLASS CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)

public:
    // Makes a static control with the text (an icon's or bitmap's resource
    // name for those styles) as a child of pParentWnd, and subclasses it.
    // WS_CHILD is added to dwStyle.
    BOOL Create(const char* pszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID = 0xffff);
};
