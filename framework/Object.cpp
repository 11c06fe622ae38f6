// Run-time class information.
#include "framework/Object.h"

const CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), nullptr};

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const
{
    for (const CRuntimeClass* pClass = this; pClass; pClass = pClass->m_pBaseClass) {
        if (pClass == pBaseClass)
            return TRUE;
    }
    return FALSE;
}

CObject::~CObject() = default;

const CRuntimeClass* CObject::GetRuntimeClass() const { return RUNTIME_CLASS(CObject); }

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const { return GetRuntimeClass()->IsDerivedFrom(pClass); }
