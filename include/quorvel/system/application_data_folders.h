// CApplicationDataFolders: where an application keeps its data.
//
// The names of the company, the product and the version form a chain of nested folders. The chain
// starts in one of three roots:
//
//     root       Windows                            Linux
//     Computer   ProgramData, for all users         /usr/local/share; where $XDG_DATA_DIRS does
//                                                   not list it, the first absolute folder there
//     User       AppData\Roaming, follows the user  $XDG_CONFIG_HOME, or .config in the home
//     UserLocal  AppData\Local, stays here          $XDG_DATA_HOME, or .local/share in the home
//
// These functions only build the text of a path; they create no folder. Parts are joined by the
// system's separator, "." and ".." in names are resolved, and an empty name adds no folder.
// Different objects may be used on different threads. A failed allocation throws CMemoryException.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

class QUORVEL_API CApplicationDataFolders {
public:
    // The names of a new object.
    static constexpr WCHAR DEFAULT_COMPANY_NAME[] = _T("");
    static constexpr WCHAR DEFAULT_PRODUCT_NAME[] = _T("");
    static constexpr WCHAR DEFAULT_PRODUCT_VERSION[] = _T("");

    // Which of the names the path ends with; the names before it are included.
    enum applicationDataFolderTypes {
        companyNameFolder = 0,
        productNameFolder = 1,
        productVersionFolder = 2
    };

    CApplicationDataFolders();
    // Null counts as an empty name.
    CApplicationDataFolders(const WCHAR* companyName, const WCHAR* productName,
                            const WCHAR* productVersion);
    CApplicationDataFolders(const CApplicationDataFolders& other) = default;
    CApplicationDataFolders& operator=(const CApplicationDataFolders& other) = default;

    // Case-sensitive.
    BOOL operator==(const CApplicationDataFolders& other) const noexcept;
    BOOL operator!=(const CApplicationDataFolders& other) const noexcept {
        return !(*this == other);
    }

    // Returns FALSE for null and keeps the old name.
    BOOL SetCompanyName(const WCHAR* name);
    BOOL SetProductName(const WCHAR* name);
    BOOL SetProductVersion(const WCHAR* version);
    // As they were set.
    CString GetCompanyName() const { return m_companyName; }
    CString GetProductName() const { return m_productName; }
    CString GetProductVersion() const { return m_productVersion; }

    // A non-zero `addBackslash` ends the path with a separator. Deliberate: the result is TRUE even
    // in the two cases that leave `path` unchanged: the system has no such root for this user, or
    // the path would be longer than 259 characters.
    BOOL GetComputerApplicationDataFolder(applicationDataFolderTypes type, CString& path,
                                          int addBackslash) const;
    BOOL GetUserApplicationDataFolder(applicationDataFolderTypes type, CString& path,
                                      int addBackslash) const;
    BOOL GetUserLocalApplicationDataFolder(applicationDataFolderTypes type, CString& path,
                                           int addBackslash) const;
    // The same with the root and the type in the name.
    BOOL GetComputerCompanyNameFolder(CString& path, int addBackslash) const;
    BOOL GetComputerProductNameFolder(CString& path, int addBackslash) const;
    BOOL GetComputerProductVersionFolder(CString& path, int addBackslash) const;
    BOOL GetUserCompanyNameFolder(CString& path, int addBackslash) const;
    BOOL GetUserProductNameFolder(CString& path, int addBackslash) const;
    BOOL GetUserProductVersionFolder(CString& path, int addBackslash) const;
    BOOL GetUserLocalCompanyNameFolder(CString& path, int addBackslash) const;
    BOOL GetUserLocalProductNameFolder(CString& path, int addBackslash) const;
    BOOL GetUserLocalProductVersionFolder(CString& path, int addBackslash) const;

private:
    BOOL GetFolder(int root, applicationDataFolderTypes type, CString& path,
                   int addBackslash) const;

    CString m_companyName;
    CString m_productName;
    CString m_productVersion;
};
