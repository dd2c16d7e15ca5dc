#include <quorvel/system/profile.h>

#include "framework/scoped_key.h"
#include "system/profile_text.h"
#include "util/text/no_throw.h"

#include <cstring>
#include <memory>
#include <new>
#include <string>

using quorvel::ScopedKey;

namespace {

// Creates and opens the key of a path. The result is null when that fails.
ScopedKey Created(const CRegistryPath& path) {
    ScopedKey key;
    if (path.IsValid())
        path.CreateSubKey(key.Receive());
    return key;
}

ScopedKey Opened(const CRegistryPath& path) {
    ScopedKey key;
    if (path.IsValid())
        path.OpenSubKey(key.Receive());
    return key;
}

ScopedKey Created(HKEY parent, const WCHAR* subKey) {
    ScopedKey key;
    if (parent != nullptr && subKey != nullptr)
        RegCreateKeyExW(parent, subKey, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE,
                        nullptr, &key.Receive(), nullptr);
    return key;
}

ScopedKey Opened(HKEY parent, const WCHAR* subKey) {
    ScopedKey key;
    if (parent != nullptr && subKey != nullptr)
        RegOpenKeyExW(parent, subKey, 0, KEY_READ | KEY_WRITE, &key.Receive());
    return key;
}

BOOL Write(HKEY key, const WCHAR* name, DWORD kind, const void* data, std::size_t size) {
    return key != nullptr && name != nullptr &&
           RegSetValueExW(key, name, 0, kind, static_cast<const BYTE*>(data),
                          static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

template <class Number>
Number ReadNumber(HKEY key, const WCHAR* name, DWORD wantedKind, Number defaultValue) {
    Number value = 0;
    DWORD kind = REG_NONE;
    DWORD size = sizeof value;
    const bool isRead = key != nullptr && name != nullptr &&
                        RegQueryValueExW(key, name, nullptr, &kind, reinterpret_cast<BYTE*>(&value),
                                         &size) == ERROR_SUCCESS;
    return isRead && kind == wantedKind && size == sizeof value ? value : defaultValue;
}

// Returns an empty text when there is no memory for the copy.
CString CopyOf(const WCHAR* text) {
    CString copy;
    quorvel::WithoutException([&] {
        copy = text;
        return true;
    });
    return copy;
}

// The 12 bytes of a stored date: the object's own size in memory differs between systems.
struct StoredDate {
    static constexpr UINT kSize = sizeof(double) + sizeof(LONG);
    BYTE bytes[kSize];

    explicit StoredDate(const COleDateTime& date) {
        const LONG status = date.m_status;
        std::memcpy(bytes, &date.m_dt, sizeof date.m_dt);
        std::memcpy(bytes + sizeof date.m_dt, &status, sizeof status);
    }
    static COleDateTime DateOf(const BYTE* stored) {
        double days;
        LONG status;
        std::memcpy(&days, stored, sizeof days);
        std::memcpy(&status, stored + sizeof days, sizeof status);
        COleDateTime date;
        date.m_dt = days;
        date.SetStatus(static_cast<COleDateTime::DateTimeStatus>(status));
        return date;
    }
};

} // namespace

bool quorvel::ReadProfileText(HKEY key, const WCHAR* name, CString& text) {
    DWORD kind = REG_NONE;
    DWORD size = 0;
    if (RegQueryValueExW(key, name, nullptr, &kind, nullptr, &size) != ERROR_SUCCESS ||
        kind != REG_SZ)
        return false;
    const int units = static_cast<int>(size / sizeof(WCHAR)) + 1; // room for an odd byte
    WCHAR* const buffer = text.GetBuffer(units);
    size = static_cast<DWORD>(units * sizeof(WCHAR));
    const bool isRead = RegQueryValueExW(key, name, nullptr, &kind, reinterpret_cast<BYTE*>(buffer),
                                         &size) == ERROR_SUCCESS &&
                        kind == REG_SZ;
    buffer[isRead ? size / sizeof(WCHAR) : 0] = 0;
    text.ReleaseBuffer();
    return isRead;
}

BOOL AfxWriteProfileDWord(HKEY key, const WCHAR* name, DWORD value) {
    return Write(key, name, REG_DWORD, &value, sizeof value);
}

BOOL AfxWriteProfileDWord(const CRegistryPath& path, const WCHAR* name, DWORD value) {
    return name != nullptr && AfxWriteProfileDWord(Created(path).Get(), name, value);
}

BOOL AfxWriteProfileDWord(HKEY key, const WCHAR* subKey, const WCHAR* name, DWORD value) {
    return name != nullptr && AfxWriteProfileDWord(Created(key, subKey).Get(), name, value);
}

BOOL AfxWriteProfileDWord(const CRegistryPath& path, const WCHAR* subKey, const WCHAR* name,
                          DWORD value) {
    return subKey != nullptr && name != nullptr &&
           AfxWriteProfileDWord(Created(path).Get(), subKey, name, value);
}

DWORD AfxGetProfileDWord(HKEY key, const WCHAR* name, DWORD defaultValue) {
    return ReadNumber(key, name, REG_DWORD, defaultValue);
}

DWORD AfxGetProfileDWord(const CRegistryPath& path, const WCHAR* name, DWORD defaultValue) {
    return AfxGetProfileDWord(Opened(path).Get(), name, defaultValue);
}

DWORD AfxGetProfileDWord(HKEY key, const WCHAR* subKey, const WCHAR* name, DWORD defaultValue) {
    return AfxGetProfileDWord(Opened(key, subKey).Get(), name, defaultValue);
}

DWORD AfxGetProfileDWord(const CRegistryPath& path, const WCHAR* subKey, const WCHAR* name,
                         DWORD defaultValue) {
    return AfxGetProfileDWord(Opened(path).Get(), subKey, name, defaultValue);
}

BOOL AfxWriteProfileQWord(HKEY key, const WCHAR* name, ULONGLONG value) {
    return Write(key, name, REG_QWORD, &value, sizeof value);
}

BOOL AfxWriteProfileQWord(const CRegistryPath& path, const WCHAR* name, ULONGLONG value) {
    return name != nullptr && AfxWriteProfileQWord(Created(path).Get(), name, value);
}

BOOL AfxWriteProfileQWord(HKEY key, const WCHAR* subKey, const WCHAR* name, ULONGLONG value) {
    return name != nullptr && AfxWriteProfileQWord(Created(key, subKey).Get(), name, value);
}

BOOL AfxWriteProfileQWord(const CRegistryPath& path, const WCHAR* subKey, const WCHAR* name,
                          ULONGLONG value) {
    return subKey != nullptr && name != nullptr &&
           AfxWriteProfileQWord(Created(path).Get(), subKey, name, value);
}

ULONGLONG AfxGetProfileQWord(HKEY key, const WCHAR* name, ULONGLONG defaultValue) {
    return ReadNumber(key, name, REG_QWORD, defaultValue);
}

ULONGLONG AfxGetProfileQWord(const CRegistryPath& path, const WCHAR* name, ULONGLONG defaultValue) {
    return AfxGetProfileQWord(Opened(path).Get(), name, defaultValue);
}

ULONGLONG AfxGetProfileQWord(HKEY key, const WCHAR* subKey, const WCHAR* name,
                             ULONGLONG defaultValue) {
    return AfxGetProfileQWord(Opened(key, subKey).Get(), name, defaultValue);
}

ULONGLONG AfxGetProfileQWord(const CRegistryPath& path, const WCHAR* subKey, const WCHAR* name,
                             ULONGLONG defaultValue) {
    return AfxGetProfileQWord(Opened(path).Get(), subKey, name, defaultValue);
}

BOOL AfxWriteProfileString(HKEY key, const WCHAR* name, const WCHAR* value) {
    return value != nullptr && Write(key, name, REG_SZ, value,
                                     (std::char_traits<WCHAR>::length(value) + 1) * sizeof *value);
}

BOOL AfxWriteProfileString(const CRegistryPath& path, const WCHAR* name, const WCHAR* value) {
    return name != nullptr && value != nullptr &&
           AfxWriteProfileString(Created(path).Get(), name, value);
}

BOOL AfxWriteProfileString(HKEY key, const WCHAR* subKey, const WCHAR* name, const WCHAR* value) {
    return name != nullptr && value != nullptr &&
           AfxWriteProfileString(Created(key, subKey).Get(), name, value);
}

BOOL AfxWriteProfileString(const CRegistryPath& path, const WCHAR* subKey, const WCHAR* name,
                           const WCHAR* value) {
    return subKey != nullptr && name != nullptr && value != nullptr &&
           AfxWriteProfileString(Created(path).Get(), subKey, name, value);
}

CString AfxGetProfileString(HKEY key, const WCHAR* name, const WCHAR* defaultValue) {
    CString text;
    if (key == nullptr || name == nullptr || defaultValue == nullptr)
        return text;
    const auto read = [&] { return quorvel::ReadProfileText(key, name, text); };
    return quorvel::WithoutException(read) ? text : CopyOf(defaultValue);
}

CString AfxGetProfileString(const CRegistryPath& path, const WCHAR* name,
                            const WCHAR* defaultValue) {
    const ScopedKey key = Opened(path);
    return key.Get() != nullptr || name == nullptr
               ? AfxGetProfileString(key.Get(), name, defaultValue)
               : CopyOf(defaultValue);
}

// Deliberate: a sub key that cannot be opened gives an empty text, not the default
// (Profile.TextsFallBack...).
CString AfxGetProfileString(HKEY key, const WCHAR* subKey, const WCHAR* name,
                            const WCHAR* defaultValue) {
    return AfxGetProfileString(Opened(key, subKey).Get(), name, defaultValue);
}

CString AfxGetProfileString(const CRegistryPath& path, const WCHAR* subKey, const WCHAR* name,
                            const WCHAR* defaultValue) {
    const ScopedKey key = Opened(path);
    return key.Get() != nullptr || subKey == nullptr || name == nullptr
               ? AfxGetProfileString(key.Get(), subKey, name, defaultValue)
               : CopyOf(defaultValue);
}

BOOL AfxWriteProfileBinary(HKEY key, const WCHAR* name, BYTE* data, UINT length) {
    return data != nullptr && length != 0 && Write(key, name, REG_BINARY, data, length);
}

BOOL AfxWriteProfileBinary(const CRegistryPath& path, const WCHAR* name, BYTE* data, UINT length) {
    return name != nullptr && data != nullptr && length != 0 &&
           AfxWriteProfileBinary(Created(path).Get(), name, data, length);
}

BOOL AfxWriteProfileBinary(HKEY key, const WCHAR* subKey, const WCHAR* name, BYTE* data,
                           UINT length) {
    return name != nullptr && data != nullptr && length != 0 &&
           AfxWriteProfileBinary(Created(key, subKey).Get(), name, data, length);
}

BOOL AfxWriteProfileBinary(const CRegistryPath& path, const WCHAR* subKey, const WCHAR* name,
                           BYTE* data, UINT length) {
    return subKey != nullptr && name != nullptr && data != nullptr && length != 0 &&
           AfxWriteProfileBinary(Created(path).Get(), subKey, name, data, length);
}

BOOL AfxGetProfileBinary(HKEY key, const WCHAR* name, BYTE** data, UINT* length) {
    if (key == nullptr || name == nullptr || data == nullptr || length == nullptr)
        return FALSE;
    *data = nullptr;
    *length = 0;
    DWORD kind = REG_NONE;
    DWORD size = 0;
    if (RegQueryValueExW(key, name, nullptr, &kind, nullptr, &size) != ERROR_SUCCESS ||
        kind != REG_BINARY)
        return FALSE;
    std::unique_ptr<BYTE[]> buffer(new (std::nothrow) BYTE[size]);
    if (buffer == nullptr ||
        RegQueryValueExW(key, name, nullptr, &kind, buffer.get(), &size) != ERROR_SUCCESS ||
        kind != REG_BINARY)
        return FALSE;
    *data = buffer.release();
    *length = size;
    return TRUE;
}

BOOL AfxGetProfileBinary(const CRegistryPath& path, const WCHAR* name, BYTE** data, UINT* length) {
    return AfxGetProfileBinary(Opened(path).Get(), name, data, length);
}

BOOL AfxGetProfileBinary(HKEY key, const WCHAR* subKey, const WCHAR* name, BYTE** data,
                         UINT* length) {
    return AfxGetProfileBinary(Opened(key, subKey).Get(), name, data, length);
}

BOOL AfxGetProfileBinary(const CRegistryPath& path, const WCHAR* subKey, const WCHAR* name,
                         BYTE** data, UINT* length) {
    return AfxGetProfileBinary(Opened(path).Get(), subKey, name, data, length);
}

BOOL AfxWriteProfileOleDateTime(HKEY key, const WCHAR* name, const COleDateTime& value) {
    return Write(key, name, REG_BINARY, StoredDate(value).bytes, StoredDate::kSize);
}

BOOL AfxWriteProfileOleDateTime(const CRegistryPath& path, const WCHAR* name,
                                const COleDateTime& value) {
    return AfxWriteProfileBinary(path, name, StoredDate(value).bytes, StoredDate::kSize);
}

BOOL AfxWriteProfileOleDateTime(HKEY key, const WCHAR* subKey, const WCHAR* name,
                                const COleDateTime& value) {
    return AfxWriteProfileBinary(key, subKey, name, StoredDate(value).bytes, StoredDate::kSize);
}

BOOL AfxWriteProfileOleDateTime(const CRegistryPath& path, const WCHAR* subKey, const WCHAR* name,
                                const COleDateTime& value) {
    return AfxWriteProfileBinary(path, subKey, name, StoredDate(value).bytes, StoredDate::kSize);
}

COleDateTime AfxGetProfileOleDateTime(HKEY key, const WCHAR* name, COleDateTime defaultValue) {
    BYTE* data = nullptr;
    UINT length = 0;
    AfxGetProfileBinary(key, name, &data, &length);
    const std::unique_ptr<BYTE[]> owner(data);
    return length == StoredDate::kSize ? StoredDate::DateOf(data) : defaultValue;
}

COleDateTime AfxGetProfileOleDateTime(const CRegistryPath& path, const WCHAR* name,
                                      COleDateTime defaultValue) {
    return AfxGetProfileOleDateTime(Opened(path).Get(), name, defaultValue);
}

COleDateTime AfxGetProfileOleDateTime(HKEY key, const WCHAR* subKey, const WCHAR* name,
                                      COleDateTime defaultValue) {
    return AfxGetProfileOleDateTime(Opened(key, subKey).Get(), name, defaultValue);
}

COleDateTime AfxGetProfileOleDateTime(const CRegistryPath& path, const WCHAR* subKey,
                                      const WCHAR* name, COleDateTime defaultValue) {
    return AfxGetProfileOleDateTime(Opened(path).Get(), subKey, name, defaultValue);
}
