// CObject and its run-time classes; the validity tests of pointer arguments.
//
// A class derived from CObject names itself with DECLARE_DYNAMIC(name) in its body and
// IMPLEMENT_DYNAMIC(name, base) in one source file; RUNTIME_CLASS(name) is then its record and
// IsKindOf asks for it. The records are constant and may be used at any time, on any thread.
#pragma once

#include <quorvel/platform/platform.h>

class CArchive;

struct QUORVEL_API CRuntimeClass {
    const char* m_lpszClassName;
    CRuntimeClass* (*m_pfnGetBaseClass)(); // null for CObject

    BOOL IsDerivedFrom(const CRuntimeClass* base) const; // or the same class
};

class QUORVEL_API CObject {
public:
    static const CRuntimeClass classCObject;

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual ~CObject();

    virtual CRuntimeClass* GetRuntimeClass() const;
    BOOL IsKindOf(const CRuntimeClass* runtimeClass) const;
    // Stores into or loads from the archive; the base class has nothing to store.
    virtual void Serialize(CArchive& archive);

protected:
    CObject();
};

#define RUNTIME_CLASS(className) (const_cast<CRuntimeClass*>(&className::class##className))

#define DECLARE_DYNAMIC(className)                                                                 \
public:                                                                                            \
    static const CRuntimeClass class##className;                                                   \
    CRuntimeClass* GetRuntimeClass() const override;

// The base is reached through a function: the address of a record in another module is not a
// constant, and the derived class's record must be ready before any constructor runs.
#define IMPLEMENT_DYNAMIC(className, baseName)                                                     \
    const CRuntimeClass className::class##className = {#className,                                 \
                                                       [] { return RUNTIME_CLASS(baseName); }};    \
    CRuntimeClass* className::GetRuntimeClass() const {                                            \
        return RUNTIME_CLASS(className);                                                           \
    }

// The base of windows, threads and applications.
class QUORVEL_API CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)
public:
#if defined(_WIN32)
    // The hour-glass over the program's windows from the first Begin to the last End, which shows
    // the cursor again that was there before. Restore shows it again where a message box, which has
    // a cursor of its own, was between them. User-interface thread.
    void BeginWaitCursor();
    void EndWaitCursor();
    void RestoreWaitCursor();
#endif

protected:
    CCmdTarget();
};

// An argument is a valid string or address when it is not null. What lies behind it cannot be
// tested: a bad pointer is the caller's fault.
inline BOOL AfxIsValidString(const WCHAR* text) {
    return text != nullptr;
}
inline BOOL AfxIsValidAddress(const void* address, UINT_PTR, BOOL = TRUE) {
    return address != nullptr;
}
