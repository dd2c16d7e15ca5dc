// The application's profile.
#include <quorvel/framework/app.h>

#include "framework/scoped_key.h"

#include <cstring>
#include <memory>
#include <string>

using quorvel::ScopedKey;

namespace {

bool IsEmpty(const WCHAR* text) {
    return text == nullptr || *text == 0;
}

ScopedKey CreatedBelow(HKEY parent, const WCHAR* path) {
    ScopedKey key;
    if (parent != nullptr && path != nullptr)
        RegCreateKeyExW(parent, path, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE,
                        nullptr, &key.Receive(), nullptr);
    return key;
}

// The path of the program's sections below HKEY_CURRENT_USER; empty without SetRegistryKey.
CString ProfilePath(const CWinApp& app) {
    if (IsEmpty(app.m_pszRegistryKey) || IsEmpty(app.m_pszProfileName))
        return CString();
    return CString(_T("Software\\")) + app.m_pszRegistryKey + _T("\\") + app.m_pszProfileName;
}

// Opens the key of a section. Creates nothing.
ScopedKey OpenedSection(const CWinApp& app, const WCHAR* section, REGSAM access) {
    ScopedKey key;
    const CString path = ProfilePath(app);
    if (!path.IsEmpty() && section != nullptr)
        RegOpenKeyExW(HKEY_CURRENT_USER, path + _T("\\") + section, 0, access, &key.Receive());
    return key;
}

LSTATUS RemoveTree(HKEY parent, const WCHAR* path) {
    ScopedKey key;
    if (const LSTATUS error = RegOpenKeyExW(parent, path, 0, KEY_READ | KEY_WRITE, &key.Receive()))
        return error;
    WCHAR name[256];
    DWORD size = 256;
    LSTATUS error;
    while ((error = RegEnumKeyExW(key.Get(), 0, name, &size, nullptr, nullptr, nullptr, nullptr)) ==
           ERROR_SUCCESS) {
        if ((error = RemoveTree(key.Get(), name)) != ERROR_SUCCESS)
            return error;
        size = 256;
    }
    return error == ERROR_NO_MORE_ITEMS ? RegDeleteKeyW(parent, path) : error;
}

BOOL RemoveSection(CWinApp& app, const WCHAR* section) {
    const ScopedKey key(app.GetAppRegistryKey());
    return key.Get() != nullptr && RemoveTree(key.Get(), section) == ERROR_SUCCESS;
}

BOOL RemoveEntry(const CWinApp& app, const WCHAR* section, const WCHAR* entry) {
    const ScopedKey key = OpenedSection(app, section, KEY_WRITE);
    return key.Get() != nullptr && RegDeleteValueW(key.Get(), entry) == ERROR_SUCCESS;
}

BOOL Write(CWinApp& app, const WCHAR* section, const WCHAR* entry, DWORD kind, const void* data,
           std::size_t size) {
    const ScopedKey key(app.GetSectionKey(section));
    return key.Get() != nullptr &&
           RegSetValueExW(key.Get(), entry, 0, kind, static_cast<const BYTE*>(data),
                          static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

// The data of an entry of this kind; null, with size 0, if there is no such entry.
std::unique_ptr<BYTE[]> Read(const CWinApp& app, const WCHAR* section, const WCHAR* entry,
                             DWORD wantedKind, DWORD& size) {
    const ScopedKey key = OpenedSection(app, section, KEY_READ);
    DWORD kind = REG_NONE;
    size = 0;
    if (key.Get() == nullptr || entry == nullptr ||
        RegQueryValueExW(key.Get(), entry, nullptr, &kind, nullptr, &size) != ERROR_SUCCESS ||
        kind != wantedKind) {
        size = 0;
        return nullptr;
    }
    std::unique_ptr<BYTE[]> data(new BYTE[size]);
    if (RegQueryValueExW(key.Get(), entry, nullptr, &kind, data.get(), &size) == ERROR_SUCCESS &&
        kind == wantedKind)
        return data;
    size = 0;
    return nullptr;
}

} // namespace

HKEY CWinApp::GetAppRegistryKey() {
    const CString path = ProfilePath(*this);
    return path.IsEmpty() ? nullptr : CreatedBelow(HKEY_CURRENT_USER, path).Release();
}

HKEY CWinApp::GetSectionKey(const WCHAR* section) {
    const ScopedKey key(section != nullptr ? GetAppRegistryKey() : nullptr);
    return CreatedBelow(key.Get(), section).Release();
}

BOOL CWinApp::WriteProfileInt(const WCHAR* section, const WCHAR* entry, int value) {
    const LONG stored = value;
    return entry != nullptr ? Write(*this, section, entry, REG_DWORD, &stored, sizeof stored)
                            : FALSE;
}

BOOL CWinApp::WriteProfileString(const WCHAR* section, const WCHAR* entry, const WCHAR* value) {
    if (section == nullptr)
        return FALSE;
    if (entry == nullptr)
        return RemoveSection(*this, section);
    if (value == nullptr)
        return RemoveEntry(*this, section, entry);
    const std::size_t length = std::char_traits<WCHAR>::length(value);
    return Write(*this, section, entry, REG_SZ, value, (length + 1) * sizeof *value);
}

BOOL CWinApp::WriteProfileBinary(const WCHAR* section, const WCHAR* entry, BYTE* data, UINT size) {
    return entry != nullptr && (data != nullptr || size == 0)
               ? Write(*this, section, entry, REG_BINARY, data, size)
               : FALSE;
}

UINT CWinApp::GetProfileInt(const WCHAR* section, const WCHAR* entry, int defaultValue) {
    DWORD size = 0;
    const auto data = Read(*this, section, entry, REG_DWORD, size);
    DWORD value = static_cast<DWORD>(defaultValue);
    if (size == sizeof value)
        std::memcpy(&value, data.get(), sizeof value);
    return value;
}

CString CWinApp::GetProfileString(const WCHAR* section, const WCHAR* entry,
                                  const WCHAR* defaultValue) {
    DWORD size = 0;
    const auto data = Read(*this, section, entry, REG_SZ, size);
    if (data == nullptr)
        return CString(defaultValue);
    CString text;
    const std::size_t units = size / sizeof(WCHAR); // the terminator may be missing
    WCHAR* const buffer = text.GetBuffer(static_cast<int>(units));
    std::memcpy(buffer, data.get(), units * sizeof(WCHAR));
    buffer[units] = 0;
    text.ReleaseBuffer();
    return text;
}

BOOL CWinApp::GetProfileBinary(const WCHAR* section, const WCHAR* entry, BYTE** data, UINT* size) {
    if (data == nullptr || size == nullptr)
        return FALSE;
    DWORD read = 0;
    *data = Read(*this, section, entry, REG_BINARY, read).release();
    *size = read;
    return *data != nullptr;
}
