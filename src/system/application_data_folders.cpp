#include <quorvel/system/application_data_folders.h>

#include "platform/shell.h"

namespace {

BOOL SetName(CString& name, const WCHAR* text) {
    if (text == nullptr)
        return FALSE;
    name = text;
    return TRUE;
}

} // namespace

CApplicationDataFolders::CApplicationDataFolders()
    : CApplicationDataFolders(DEFAULT_COMPANY_NAME, DEFAULT_PRODUCT_NAME, DEFAULT_PRODUCT_VERSION) {
}

CApplicationDataFolders::CApplicationDataFolders(const WCHAR* companyName, const WCHAR* productName,
                                                 const WCHAR* productVersion)
    : m_companyName(companyName), m_productName(productName), m_productVersion(productVersion) {}

BOOL CApplicationDataFolders::operator==(const CApplicationDataFolders& other) const noexcept {
    return m_companyName == other.m_companyName && m_productName == other.m_productName &&
           m_productVersion == other.m_productVersion;
}

BOOL CApplicationDataFolders::SetCompanyName(const WCHAR* name) {
    return SetName(m_companyName, name);
}

BOOL CApplicationDataFolders::SetProductName(const WCHAR* name) {
    return SetName(m_productName, name);
}

BOOL CApplicationDataFolders::SetProductVersion(const WCHAR* version) {
    return SetName(m_productVersion, version);
}

BOOL CApplicationDataFolders::GetFolder(int root, applicationDataFolderTypes type, CString& path,
                                        int addBackslash) const {
    // Built in a copy: a failure must leave the caller's string unchanged.
    WCHAR folder[MAX_PATH + 1] = {}; // PathAddBackslashW may write past MAX_PATH
    const auto append = [&folder](const CString& name) {
        return name.IsEmpty() || PathAppendW(folder, name);
    };
    if (SUCCEEDED(SHGetFolderPathW(nullptr, root, nullptr, 0, folder)) && append(m_companyName) &&
        (type < productNameFolder || append(m_productName)) &&
        (type < productVersionFolder || append(m_productVersion)) &&
        (!addBackslash || PathAddBackslashW(folder) != nullptr) && folder[MAX_PATH - 1] == 0)
        path = folder;
    return TRUE;
}

BOOL CApplicationDataFolders::GetComputerApplicationDataFolder(applicationDataFolderTypes type,
                                                               CString& path,
                                                               int addBackslash) const {
    return GetFolder(CSIDL_COMMON_APPDATA, type, path, addBackslash);
}

BOOL CApplicationDataFolders::GetUserApplicationDataFolder(applicationDataFolderTypes type,
                                                           CString& path, int addBackslash) const {
    return GetFolder(CSIDL_APPDATA, type, path, addBackslash);
}

BOOL CApplicationDataFolders::GetUserLocalApplicationDataFolder(applicationDataFolderTypes type,
                                                                CString& path,
                                                                int addBackslash) const {
    return GetFolder(CSIDL_LOCAL_APPDATA, type, path, addBackslash);
}

#define QUORVEL_FOLDER(root, depth, type)                                                          \
    BOOL CApplicationDataFolders::Get##root##depth##Folder(CString& path, int addBackslash)        \
        const {                                                                                    \
        return Get##root##ApplicationDataFolder(type, path, addBackslash);                         \
    }
#define QUORVEL_FOLDERS(root)                                                                      \
    QUORVEL_FOLDER(root, CompanyName, companyNameFolder)                                           \
    QUORVEL_FOLDER(root, ProductName, productNameFolder)                                           \
    QUORVEL_FOLDER(root, ProductVersion, productVersionFolder)
QUORVEL_FOLDERS(Computer)
QUORVEL_FOLDERS(User)
QUORVEL_FOLDERS(UserLocal)
