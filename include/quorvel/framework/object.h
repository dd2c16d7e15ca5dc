// CObject, run-time class information, and validity tests for pointer arguments.
//
// A class derived from CObject uses DECLARE_DYNAMIC(name) in its body and IMPLEMENT_DYNAMIC(name,
// base) in one source file. RUNTIME_CLASS(name) is then its class record, which IsKindOf takes. The
// records are constant; any thread may use them at any time.
#pragma once

#include <quorvel/platform/platform.h>

class CArchive;

struct QUORVEL_API CRuntimeClass {         // the name and base class of a class
    const char* m_lpszClassName;           // as IMPLEMENT_DYNAMIC spells it
    CRuntimeClass* (*m_pfnGetBaseClass)(); // null for CObject

    BOOL IsDerivedFrom(const CRuntimeClass* base) const; // or the same class
};

class QUORVEL_API CObject { // the base of classes that know their name at run time
public:
    static const CRuntimeClass classCObject; // the record of this class

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual ~CObject();

    virtual CRuntimeClass* GetRuntimeClass() const;         // the record of the object's own class
    BOOL IsKindOf(const CRuntimeClass* runtimeClass) const; // TRUE also for a base class
    // Stores into, or loads from, the archive. The base class stores nothing.
    virtual void Serialize(CArchive& archive);

protected:
    CObject();
};

// The record of a class.
#define RUNTIME_CLASS(className) (const_cast<CRuntimeClass*>(&className::class##className))

// In the body of a class. Members that follow it are public.
#define DECLARE_DYNAMIC(className)                                                                 \
public:                                                                                            \
    static const CRuntimeClass class##className;                                                   \
    CRuntimeClass* GetRuntimeClass() const override;

// In one source file, for a class with DECLARE_DYNAMIC.
// The base record is reached through a function, because the address of a record in another module
// is not a constant and the derived record must be ready before any constructor runs.
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
    // Shows the hour-glass over the program's windows from the first Begin to the last End, which
    // restores the previous cursor. Call Restore after a message box, which changes the cursor.
    // User-interface thread.
    void BeginWaitCursor();
    void EndWaitCursor();
    void RestoreWaitCursor();
#endif

protected:
    CCmdTarget();
};

// A string or address is valid when it is not null. The memory behind it cannot be tested: the
// caller is responsible for it.
inline BOOL AfxIsValidString(const WCHAR* text) {
    return text != nullptr;
}
inline BOOL AfxIsValidAddress(const void* address, UINT_PTR, BOOL = TRUE) {
    return address != nullptr;
}
