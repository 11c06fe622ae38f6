// CWnd - the framework's window object: a window handle, the few member
// functions the library's window classes call, and message handling by
// subclassing.
//
// A CWnd refers to a window in one of two ways:
//   - Attach(hWnd): the object stands for the window (to hand it to the
//     library's functions that take a CWnd*) and sees none of its messages;
//   - SubclassWindow(hWnd), SubclassDlgItem(nID, pParent), or Create in a
//     derived class: the window's messages pass through WindowProc first,
//     and what OnWndMsg does not handle goes on to the window's own procedure.
// Either way FromHandlePermanent(hWnd) finds the object again.
//
// A subclassed window lets go of its object when it is destroyed: after the
// last message (WM_NCDESTROY) m_hWnd is NULL and PostNcDestroy runs, where an
// object that lives on the heap for the window's sake may delete itself.
// Destroying the object first gives the window its own procedure back; the
// window itself stays.
//
// Control colours are reflected: a subclassed parent that receives
// WM_CTLCOLORxxx from a child passes it to the child's object first
// (OnChildNotify), and the child answers it as WM_REFLECT_BASE + WM_CTLCOLORxxx.
// A parent that is no CWnd (a plain dialog procedure) calls
// CWnd::ReflectChildMessage itself and returns the answer when it is TRUE.
//
// Handlers run inside the system's message dispatch, which no exception may
// cross: they must not throw.
#pragma once

#include <windows.h>

#include "framework/CString.h"
#include "framework/Export.h"
#include "framework/Object.h"

// Reflected messages: the child's object receives WM_REFLECT_BASE + message.
#define WM_REFLECT_BASE 0xBC00

// A window: the object stands for an HWND, attached or subclassed, and receives its messages.
class TQM_CLASS CWnd : public CObject
{
    DECLARE_DYNAMIC(CWnd)

public:
    // Construction
    CWnd();
    ~CWnd() override;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    // The object that stands for hWnd (attached or subclassed), or NULL.
    static CWnd* FromHandlePermanent(HWND hWnd);

    // Stands for hWnd without seeing its messages. FALSE when the object
    // already has a window or hWnd is not a window.
    BOOL Attach(HWND hWnd);
    // Lets go of the window (a subclassed one gets its own procedure back);
    // returns it.
    HWND Detach();
    // Routes hWnd's messages through this object. FALSE when the object
    // already has a window, hWnd is not a window of this process, or another
    // object has it.
    BOOL SubclassWindow(HWND hWnd);
    // The same for the control nID of the dialog pParent.
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    // Same as Detach; for symmetry with SubclassWindow.
    HWND UnsubclassWindow() { return Detach(); }
    BOOL DestroyWindow();

    // Attributes
    HWND GetSafeHwnd() const { return m_hWnd; }
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrA(m_hWnd, GWL_STYLE)); }
    void GetWindowRect(LPRECT pRect) const { ::GetWindowRect(m_hWnd, pRect); }
    BOOL GetWindowPlacement(WINDOWPLACEMENT* pPlacement) const;
    BOOL IsIconic() const { return ::IsIconic(m_hWnd); }
    BOOL IsZoomed() const { return ::IsZoomed(m_hWnd); }
    void GetWindowText(CString& text) const;
    void SetWindowText(const char* pszText) { ::SetWindowTextA(m_hWnd, pszText); }

    // Operations
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE)
    {
        ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
    }
    BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags)
    {
        return ::SetWindowPos(m_hWnd, pWndInsertAfter ? pWndInsertAfter->m_hWnd : nullptr, x, y, cx, cy, nFlags);
    }
    BOOL ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
    void Invalidate(BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, bErase); }
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return ::SendMessageA(m_hWnd, message, wParam, lParam);
    }

    // Offers a control-colour message of a parent to the child's object (the
    // child is lParam). TRUE when the child answered; *pResult is the brush.
    static BOOL ReflectChildMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

    HWND m_hWnd;

protected:
    // Every message of a subclassed window: OnWndMsg, else DefWindowProc.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // Handles the message and sets *pResult, or returns FALSE. The base class
    // reflects control colours to the children.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // The window's own procedure (the one subclassing replaced).
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // A message the parent reflects to this child; by default handled as
    // WM_REFLECT_BASE + message, which counts when the answer is not 0.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // After the window's last message; the object no longer has a window.
    virtual void PostNcDestroy();

    WNDPROC m_pfnSuper;  // the window's own procedure while subclassed

private:
    static LRESULT CALLBACK subclassProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
};
