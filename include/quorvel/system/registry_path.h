// CRegistryPath: the path of a registry key: a root key and the sub key below it.
//
// The library reads and writes all of its settings at such paths with the profile functions
// (quorvel/system/profile.h). Copyable. One thread at a time may use an object.
//
// HKEY, the root keys and the operations on open keys (RegOpenKeyExW, RegCloseKey and so on)
// come from <quorvel/platform/platform.h>, which this header includes. On Linux these
// operations are in namespace quorvel::win32; `using namespace quorvel::win32;` compiles on
// both systems.
#pragma once

#include <quorvel/framework/string.h>

class QUORVEL_API CRegistryPath {
public:
    CRegistryPath();
    // With an invalid root the root stays unset; the sub key is stored.
    CRegistryPath(HKEY sectionKey, const WCHAR* subKey);
    // The parent's path followed by the key. A null or empty key copies the parent.
    CRegistryPath(const CRegistryPath& parent, const WCHAR* keyToAppend);
    CRegistryPath(const CRegistryPath& other);
    CRegistryPath& operator=(const CRegistryPath& other);

    // Compares sub keys case-sensitively, although the registry itself ignores case.
    bool operator==(const CRegistryPath& other) const;
    bool operator!=(const CRegistryPath& other) const;

    // Whether the key is one of HKEY_CLASSES_ROOT, _CURRENT_USER, _LOCAL_MACHINE, _USERS,
    // _CURRENT_CONFIG, _PERFORMANCE_DATA, _PERFORMANCE_TEXT and _PERFORMANCE_NLSTEXT.
    static BOOL IsValidSectionKey(HKEY sectionKey);

    // An invalid root or a null text returns FALSE and changes nothing.
    BOOL SetSectionKey(HKEY sectionKey);
    BOOL SetSubKey(const WCHAR* subKey);
    // An invalid root returns FALSE and changes nothing. Deliberate: a null sub key returns FALSE
    // too, but sets the root and keeps the old sub key.
    BOOL SetPath(HKEY sectionKey, const WCHAR* subKey);
    // Appends the key, after a backslash unless the sub key ends with one. Returns FALSE for a null
    // or empty key.
    BOOL AppendKey(const WCHAR* key);

    // The root, null when it is not set, and the sub key.
    void GetPath(HKEY& sectionKey, CString& subKey) const;
    HKEY GetSectionKey() const;
    CString GetSubKey() const;

    // Whether a root is set. Without a sub key the path is the root key itself.
    virtual BOOL IsValid() const;
    virtual void Nullify(); // unsets the root and the sub key
    virtual ~CRegistryPath();

    // Opens the key for reading and writing; CreateSubKey also creates missing keys. Returns the
    // system's error code, 0 for success; the caller then closes the key with RegCloseKey. On
    // failure `key` is null. Without a root the error is ERROR_INVALID_HANDLE.
    LONG CreateSubKey(HKEY& key) const;
    LONG OpenSubKey(HKEY& key) const;

private:
    HKEY m_hSectionKey; // null when unset
    CString m_strSubKey;
};
