// CRegistryPath: the place of a registry key, as a root and the path below it.
//
// Every setting of the library lies at such a path and is read and written with the profile
// functions (quorvel/system/profile.h). A value; one object for one thread at a time.
//
// HKEY, its roots and the operations on open keys (RegOpenKeyExW, RegCloseKey and their like) are
// the platform's: <quorvel/platform/platform.h>, which this header includes, has them. On Linux the
// operations are in namespace quorvel::win32; `using namespace quorvel::win32;` compiles on both
// systems.
#pragma once

#include <quorvel/framework/string.h>

class QUORVEL_API CRegistryPath {
public:
    CRegistryPath();
    // An invalid root is left out, its sub key is not.
    CRegistryPath(HKEY sectionKey, const WCHAR* subKey);
    // The parent with a further key; the parent alone when that is null or empty.
    CRegistryPath(const CRegistryPath& parent, const WCHAR* keyToAppend);
    CRegistryPath(const CRegistryPath& other);
    CRegistryPath& operator=(const CRegistryPath& other);

    // The sub keys are compared with regard to case, though the registry has none.
    bool operator==(const CRegistryPath& other) const;
    bool operator!=(const CRegistryPath& other) const;

    // HKEY_CLASSES_ROOT, _CURRENT_USER, _LOCAL_MACHINE, _USERS, _CURRENT_CONFIG, _PERFORMANCE_DATA,
    // _PERFORMANCE_TEXT and _PERFORMANCE_NLSTEXT.
    static BOOL IsValidSectionKey(HKEY sectionKey);

    // FALSE, and no change, for an invalid root or a null text.
    BOOL SetSectionKey(HKEY sectionKey);
    BOOL SetSubKey(const WCHAR* subKey);
    // FALSE, and no change, for an invalid root. With a null sub key it is FALSE as well, but the
    // new root is taken and the sub key stays.
    BOOL SetPath(HKEY sectionKey, const WCHAR* subKey);
    // Puts a backslash between the two where there is none at the end. FALSE for a null or empty
    // key.
    BOOL AppendKey(const WCHAR* key);

    void GetPath(HKEY& sectionKey, CString& subKey) const;
    HKEY GetSectionKey() const;
    CString GetSubKey() const;

    // Whether it has a root; without a sub key it addresses the root itself.
    virtual BOOL IsValid() const;
    virtual void Nullify();
    virtual ~CRegistryPath();

    // The key, opened for reading and writing; CreateSubKey makes what is missing. The result is
    // the system's error code, 0 for success; the caller then closes the key with RegCloseKey. On
    // failure `key` is null, as without a root (ERROR_INVALID_HANDLE).
    LONG CreateSubKey(HKEY& key) const;
    LONG OpenSubKey(HKEY& key) const;

private:
    HKEY m_hSectionKey; // null when unset
    CString m_strSubKey;
};
