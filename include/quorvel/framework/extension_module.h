// Extension modules and the chain of modules that resources are searched in.
//
// A library that is loaded by a program registers itself when it is attached: it initialises an
// AFX_EXTENSION_MODULE and creates a CDynLinkLibrary over it with new; AfxTermExtensionModule
// deletes it when the library is detached. From then on its resources are found by every
// AfxFind...Handle, behind the program's own. The chain may be used on any thread; a member of an
// entry is written by its owner at start-up or on the user-interface thread.
#pragma once

#include <quorvel/framework/object.h>

struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource; // where its resources are searched; the module itself at first
};

// FALSE, and the record unchanged, for a null module. A record that is initialised stays as it is.
QUORVEL_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);
// Deletes the chain's entries of this module, or all of them. Nothing for a record that was never
// initialised.
QUORVEL_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

// An entry of the resource chain from its construction, in front of all others, to its end.
class QUORVEL_API CDynLinkLibrary : public CCmdTarget {
    DECLARE_DYNAMIC(CDynLinkLibrary)
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system = FALSE);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource; // null: the entry is passed over
    BOOL m_bSystem;      // searched after all that are not
    CDynLinkLibrary* m_pNextDLL;
};

// The program's resource module: the one set, else the program itself.
QUORVEL_API HINSTANCE AfxGetResourceHandle();
QUORVEL_API void AfxSetResourceHandle(HINSTANCE resources);

// The first module that has the resource: the program's, then the chain's from the newest on, then
// its system entries. AfxGetResourceHandle() when none has it.
QUORVEL_API HINSTANCE AfxFindResourceHandle(const WCHAR* name, const WCHAR* type);
// The same for one string-table entry; null when none has it.
QUORVEL_API HINSTANCE AfxFindStringResourceHandle(UINT id);
