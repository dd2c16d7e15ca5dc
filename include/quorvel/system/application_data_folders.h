// CApplicationDataFolders: where an application keeps its data.
//
// Three names, of the company, the product and the version, become folders one below the other in
// each of three roots:
//
//     root       Windows                            Linux
//     Computer   ProgramData, for all users         /usr/local/share, or where $XDG_DATA_DIRS does
//                                                   not have it the first absolute folder there
//     User       AppData\Roaming, follows the user  $XDG_CONFIG_HOME, else .config in the home
//     UserLocal  AppData\Local, stays here          $XDG_DATA_HOME, else .local/share in the home
//
// Only the text is made: no folder is created, and on Linux none need exist. Parts are joined by
// the system's separator, "." and ".." in names are resolved, and an empty name adds nothing.
// Different objects may be used on different threads. Lack of memory throws CMemoryException.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

class QUORVEL_API CApplicationDataFolders {
public:
    static constexpr WCHAR DEFAULT_COMPANY_NAME[] = _T("");
    static constexpr WCHAR DEFAULT_PRODUCT_NAME[] = _T("");
    static constexpr WCHAR DEFAULT_PRODUCT_VERSION[] = _T("");

    // How many of the names a path has.
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

    // Letter case counts.
    BOOL operator==(const CApplicationDataFolders& other) const noexcept;
    BOOL operator!=(const CApplicationDataFolders& other) const noexcept {
        return !(*this == other);
    }

    // FALSE for null, and the name as it was.
    BOOL SetCompanyName(const WCHAR* name);
    BOOL SetProductName(const WCHAR* name);
    BOOL SetProductVersion(const WCHAR* version);
    CString GetCompanyName() const { return m_companyName; }
    CString GetProductName() const { return m_productName; }
    CString GetProductVersion() const { return m_productVersion; }

    // Non-zero `addBackslash` ends the path with a separator. Deliberate: the result is TRUE even
    // where the path keeps what it held: when the system has no such root for this user, and when
    // the result would pass 259 characters.
    BOOL GetComputerApplicationDataFolder(applicationDataFolderTypes type, CString& path,
                                          int addBackslash) const;
    BOOL GetUserApplicationDataFolder(applicationDataFolderTypes type, CString& path,
                                      int addBackslash) const;
    BOOL GetUserLocalApplicationDataFolder(applicationDataFolderTypes type, CString& path,
                                           int addBackslash) const;

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
