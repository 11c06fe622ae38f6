// IsWindowOfClass, DestroyWindowsOfClass, UpdateChildWindows,
// GetWindowGrandParent, IsClassNameStackAtPt, CenterWnd, IsTopMost,
// TQMCenterWindow - finding, refreshing, destroying and placing windows by
// class name.
//
// Class names compare without regard to case, and only their first 19
// characters are read: a longer class name matches its first 19 characters
// and never its full name.
#pragma once

#include <windows.h>

#include "framework/Export.h"

// 1 when hWnd is a window of the class className, else 0.
extern "C" TQM_CAPI BOOL WINAPI IsWindowOfClass(HWND hWnd, const char* className);
// Destroys every descendant of hParent of the class className (every
// descendant when className is NULL); the child enumeration's result.
extern "C" TQM_CAPI BOOL WINAPI DestroyWindowsOfClass(HWND hParent, const char* className);
// Repaints at once every descendant of hParent of the class className; the
// child enumeration's result (FALSE without a class name).
extern "C" TQM_CAPI BOOL WINAPI UpdateChildWindows(HWND hParent, const char* className);
// The last window up the chain of parents (and owners) of hWnd; hWnd itself
// when it has none.
extern "C" TQM_CAPI HWND WINAPI GetWindowGrandParent(HWND hWnd);
// The topmost window of the class className whose window rectangle holds pt,
// searched from the window under pt downwards in the Z order; NULL if none.
extern "C" TQM_CAPI HWND WINAPI IsClassNameStackAtPt(POINT pt, const char* className);
// Centres hWnd on hRef, kept within the primary screen where it fits
// (SM_CXSCREEN, SM_CYSCREEN); the result of SetWindowPos.
extern "C" TQM_CAPI BOOL WINAPI CenterWnd(HWND hWnd, HWND hRef);
// 1 when hWnd is a topmost window, else 0.
extern "C" TQM_CAPI BOOL WINAPI IsTopMost(HWND hWnd);
// Centres hWnd on the desktop unless desktop docking is off (dock position
// 1), in which case the window stays where it is.
extern "C" TQM_CAPI void WINAPI TQMCenterWindow(HWND hWnd);
