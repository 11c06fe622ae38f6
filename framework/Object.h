// CObject, CRuntimeClass - run-time class information for the framework's
// window classes.
//
// A class that declares DECLARE_DYNAMIC(CName) in its body and
// IMPLEMENT_DYNAMIC(CName, CBase) in its source file can be asked what it is:
//
//     if (pWnd->IsKindOf(RUNTIME_CLASS(CStaticLink))) ...
//
// Only the class name and the chain of base classes are kept: objects are not
// created from their class information.
#pragma once

#include <windows.h>

#include "framework/Export.h"

// The name, size and base of a class derived from CObject (DECLARE_DYNAMIC).
struct TQM_CLASS CRuntimeClass
{
    const char* m_lpszClassName;  // the class name as written
    int m_nObjectSize;            // sizeof the class
    const CRuntimeClass* m_pBaseClass;  // NULL for CObject

    // True when this class is pBaseClass or derives from it.
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name)                                      \
public:                                                                  \
    static const CRuntimeClass class##class_name;                        \
    const CRuntimeClass* GetRuntimeClass() const override;

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                           \
    const CRuntimeClass class_name::class##class_name = {#class_name, sizeof(class class_name), \
                                                         RUNTIME_CLASS(base_class_name)};        \
    const CRuntimeClass* class_name::GetRuntimeClass() const { return RUNTIME_CLASS(class_name); }

// The root of the window classes, with their run-time class information.
class TQM_CLASS CObject
{
public:
    virtual ~CObject();
    virtual const CRuntimeClass* GetRuntimeClass() const;
    // True when the object's class is pClass or derives from it.
    BOOL IsKindOf(const CRuntimeClass* pClass) const;

    static const CRuntimeClass classCObject;

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};
