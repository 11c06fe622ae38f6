// CStaticLink - a static text control of a dialog turned into a link.
//
// The text is drawn underlined in g_colorUnvisited; a click opens the link
// with the shell, after which the text stays in g_colorVisited. The cursor
// turns into a hand over the control.
//
//     m_linkHome.SubclassDlgItem(IDC_HOMEPAGE, this);        // member, link = caption
//     (new CStaticLink("mailto:support@example.com", TRUE))  // on the heap, deletes
//         ->SubclassDlgItem(IDC_MAIL, this);                 //   itself with its window
//
// The colour arrives by reflection: the dialog must pass WM_CTLCOLORSTATIC on
// to the control, which a subclassed CWnd parent does by itself and a plain
// dialog procedure does with CWnd::ReflectChildMessage. An icon or bitmap
// static keeps its look but still opens its link when clicked.
#pragma once

#include "framework/Gdi.h"
#include "framework/Static.h"
#include "ui/Hyperlink.h"

// A static control that shows a link and opens its target when clicked.
class TQM_CLASS CStaticLink : public CStatic
{
    DECLARE_DYNAMIC(CStaticLink)

public:
    // Construction: pszLink is the target (NULL or empty: the control's own
    // text at the first click); bDeleteOnDestroy makes the object delete
    // itself after its window is destroyed.
    CStaticLink(const char* pszLink = nullptr, BOOL bDeleteOnDestroy = FALSE);

    // Attributes
    CHyperlink m_link;  // the target
    COLORREF m_color;   // the text colour now

    static COLORREF g_colorUnvisited;  // before the first successful click: blue
    static COLORREF g_colorVisited;    // after it: purple
    static HCURSOR g_hCursorLink;      // the hand cursor, loaded once per process

protected:
    CFont m_font;               // the control's font, underlined; made at the first paint
    BOOL m_bDeleteOnDestroy;

    // Message handlers
    HBRUSH CtlColor(CDC* pDC, UINT nCtlColor);
    LRESULT OnNcHitTest(CPoint point);
    void OnLButtonDown(UINT nFlags, CPoint point);
    BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);

    // The message map: the four handlers above.
    BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    void PostNcDestroy() override;
};
