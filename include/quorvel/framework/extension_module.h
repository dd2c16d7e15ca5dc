// Extension modules: a chain of modules that is searched for resources.
//
// A library that a program loads registers itself when it is attached: it initialises an
// AFX_EXTENSION_MODULE and creates a CDynLinkLibrary for it with new. AfxTermExtensionModule
// deletes that when the library is detached. In between, the AfxFind...Handle functions search the
// library's resources after the program's own. Any thread may use the chain; only its owner sets a
// member of an entry, at start-up or on the user-interface thread.
#pragma once

#include <quorvel/framework/object.h>

struct AFX_EXTENSION_MODULE { // a DLL in the resource chain
    BOOL bInitialized;        // AfxInitExtensionModule ran, AfxTermExtensionModule did not
    HMODULE hModule;          // the DLL itself
    HMODULE hResource;        // the module with its resources; initially hModule
};

// A null module returns FALSE and changes nothing. An initialised record stays as it is.
QUORVEL_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);
// Deletes the entries of this module, or the entries of all modules, from the chain. Does nothing
// for a record that was never initialised. A library with message maps must call it before it is
// unloaded, because the rows of these maps are cached.
QUORVEL_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

// An entry of the chain, from its construction to its destruction. The newest entry is first.
class QUORVEL_API CDynLinkLibrary : public CCmdTarget {
    DECLARE_DYNAMIC(CDynLinkLibrary)
public:
    // Copies the handles and adds the entry to the chain.
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL system = FALSE);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;           // the DLL that the entry is for
    HMODULE m_hResource;         // null: the entry is skipped
    BOOL m_bSystem;              // searched after all entries that are not
    CDynLinkLibrary* m_pNextDLL; // the next older entry; null for the oldest
};

// The program's resource module: the one set with AfxSetResourceHandle, or else the program itself.
QUORVEL_API HINSTANCE AfxGetResourceHandle();
QUORVEL_API void AfxSetResourceHandle(HINSTANCE resources);

// The first module that has the resource: the program's, then the chain's from the newest on, then
// its system entries. AfxGetResourceHandle() when no module has it.
QUORVEL_API HINSTANCE AfxFindResourceHandle(const WCHAR* name, const WCHAR* type);
// The same for one string-table entry; null when no module has it.
QUORVEL_API HINSTANCE AfxFindStringResourceHandle(UINT id);
