#include <quorvel/framework/object.h>

const CRuntimeClass CObject::classCObject = {"CObject", nullptr};

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
    for (const CRuntimeClass* each = this; each != nullptr;
         each = each->m_pfnGetBaseClass != nullptr ? each->m_pfnGetBaseClass() : nullptr)
        if (each == base)
            return TRUE;
    return FALSE;
}

CObject::CObject() = default;
CObject::~CObject() = default;

CRuntimeClass* CObject::GetRuntimeClass() const {
    return RUNTIME_CLASS(CObject);
}

BOOL CObject::IsKindOf(const CRuntimeClass* runtimeClass) const {
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

void CObject::Serialize(CArchive&) {}

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

CCmdTarget::CCmdTarget() = default;
