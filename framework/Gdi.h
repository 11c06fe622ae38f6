// CPoint, CGdiObject, CFont, CDC - the small GDI wrappers that the window
// classes' handlers take.
//
// CDC wraps a device context it does not own (the one a message hands over);
// CGdiObject owns its object and deletes it with itself.
#pragma once

#include <windows.h>

#include <utility>

// A point that builds from coordinates or from a mouse message's lParam.
class CPoint : public POINT
{
public:
    CPoint() : POINT{0, 0} {}
    CPoint(int nX, int nY) : POINT{nX, nY} {}
    // From the packed coordinates of a mouse message's lParam (signed words).
    explicit CPoint(LPARAM dwPoint)
        : POINT{static_cast<short>(LOWORD(dwPoint)), static_cast<short>(HIWORD(dwPoint))}
    {
    }
};

// The owner of one GDI object, deleted with it.
class CGdiObject
{
public:
    CGdiObject() = default;
    CGdiObject(const CGdiObject&) = delete;
    CGdiObject& operator=(const CGdiObject&) = delete;
    ~CGdiObject() { DeleteObject(); }

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    BOOL DeleteObject()
    {
        if (!m_hObject)
            return FALSE;
        return ::DeleteObject(std::exchange(m_hObject, nullptr));
    }

    HGDIOBJ m_hObject = nullptr;
};

// A font, owned and deleted with the object.
class CFont : public CGdiObject
{
public:
    BOOL CreateFontIndirect(const LOGFONTA* pLogFont)
    {
        DeleteObject();
        m_hObject = ::CreateFontIndirectA(pLogFont);
        return m_hObject != nullptr;
    }
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }
};

// A device context handed over by a message; not owned, not released.
class CDC
{
public:
    explicit CDC(HDC hDC) : m_hDC(hDC) {}

    HDC GetSafeHdc() const { return m_hDC; }
    // Selects the object; returns the one it replaced.
    HGDIOBJ SelectObject(CGdiObject* pObject) { return ::SelectObject(m_hDC, pObject->m_hObject); }
    COLORREF SetTextColor(COLORREF crColor) { return ::SetTextColor(m_hDC, crColor); }
    int SetBkMode(int nBkMode) { return ::SetBkMode(m_hDC, nBkMode); }

    HDC m_hDC;
};
