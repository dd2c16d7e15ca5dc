#include <quorvel/system/registry_path.h>

#include "platform/win32.h"

#include <algorithm>
#include <iterator>

CRegistryPath::CRegistryPath() : m_hSectionKey(nullptr) {}

CRegistryPath::CRegistryPath(HKEY sectionKey, const WCHAR* subKey) : m_hSectionKey(nullptr) {
    SetSectionKey(sectionKey);
    SetSubKey(subKey);
}

CRegistryPath::CRegistryPath(const CRegistryPath& parent, const WCHAR* keyToAppend)
    : CRegistryPath(parent) {
    AppendKey(keyToAppend);
}

CRegistryPath::CRegistryPath(const CRegistryPath& other) = default;
CRegistryPath& CRegistryPath::operator=(const CRegistryPath& other) = default;
CRegistryPath::~CRegistryPath() = default;

bool CRegistryPath::operator==(const CRegistryPath& other) const {
    return m_hSectionKey == other.m_hSectionKey && m_strSubKey == other.m_strSubKey;
}

bool CRegistryPath::operator!=(const CRegistryPath& other) const {
    return !(*this == other);
}

BOOL CRegistryPath::IsValidSectionKey(HKEY sectionKey) {
    static const HKEY kRoots[] = {
        HKEY_CLASSES_ROOT,     HKEY_CURRENT_USER,   HKEY_LOCAL_MACHINE,    HKEY_USERS,
        HKEY_PERFORMANCE_DATA, HKEY_CURRENT_CONFIG, HKEY_PERFORMANCE_TEXT, HKEY_PERFORMANCE_NLSTEXT,
    };
    return std::find(std::begin(kRoots), std::end(kRoots), sectionKey) != std::end(kRoots);
}

BOOL CRegistryPath::SetSectionKey(HKEY sectionKey) {
    if (!IsValidSectionKey(sectionKey))
        return FALSE;
    m_hSectionKey = sectionKey;
    return TRUE;
}

BOOL CRegistryPath::SetSubKey(const WCHAR* subKey) {
    if (subKey == nullptr)
        return FALSE;
    m_strSubKey = subKey;
    return TRUE;
}

// Deliberate: the root is set before the sub key is checked (RegistryPath.ARefusal...).
BOOL CRegistryPath::SetPath(HKEY sectionKey, const WCHAR* subKey) {
    return SetSectionKey(sectionKey) && SetSubKey(subKey);
}

BOOL CRegistryPath::AppendKey(const WCHAR* key) {
    if (key == nullptr || *key == 0)
        return FALSE;
    const CString appended(key); // `key` may be our own text
    if (!m_strSubKey.IsEmpty() && m_strSubKey[m_strSubKey.GetLength() - 1] != '\\')
        m_strSubKey += _T("\\");
    m_strSubKey += appended;
    return TRUE;
}

void CRegistryPath::GetPath(HKEY& sectionKey, CString& subKey) const {
    sectionKey = m_hSectionKey;
    subKey = m_strSubKey;
}

HKEY CRegistryPath::GetSectionKey() const {
    return m_hSectionKey;
}

CString CRegistryPath::GetSubKey() const {
    return m_strSubKey;
}

BOOL CRegistryPath::IsValid() const {
    return IsValidSectionKey(m_hSectionKey);
}

void CRegistryPath::Nullify() {
    m_hSectionKey = nullptr;
    m_strSubKey.Empty();
}

LONG CRegistryPath::CreateSubKey(HKEY& key) const {
    key = nullptr;
    return RegCreateKeyExW(m_hSectionKey, m_strSubKey, 0, nullptr, REG_OPTION_NON_VOLATILE,
                           KEY_READ | KEY_WRITE, nullptr, &key, nullptr);
}

LONG CRegistryPath::OpenSubKey(HKEY& key) const {
    key = nullptr;
    return RegOpenKeyExW(m_hSectionKey, m_strSubKey, 0, KEY_READ | KEY_WRITE, &key);
}
