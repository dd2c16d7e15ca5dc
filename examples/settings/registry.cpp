#include "registry.h"

#include <quorvel/frame/exception_text.h>
#include <quorvel/res/message_ids.h>

#include <algorithm>
#include <functional>
#include <memory>

using namespace quorvel::win32;

namespace {

struct Root {
    const WCHAR* shortName;
    const WCHAR* name;
    HKEY key;
};

const Root kRoots[] = {
    {_T("HKCR"), _T("HKEY_CLASSES_ROOT"), HKEY_CLASSES_ROOT},
    {_T("HKCU"), _T("HKEY_CURRENT_USER"), HKEY_CURRENT_USER},
    {_T("HKLM"), _T("HKEY_LOCAL_MACHINE"), HKEY_LOCAL_MACHINE},
    {_T("HKU"), _T("HKEY_USERS"), HKEY_USERS},
    {_T("HKCC"), _T("HKEY_CURRENT_CONFIG"), HKEY_CURRENT_CONFIG},
};

constexpr DWORD kLongestKeyName = 256; // with the terminator, as the next
constexpr DWORD kLongestValueName = 16384;

// The catalogue's text for the failure, on one line.
[[noreturn]] void Fail(UINT textId, LONG error, const CString& what) {
    const auto code = static_cast<DWORD>(error);
    CString reason;
    if (!AfxGetSystemErrorText(code, reason))
        reason.Format(_T("%u"), code);
    CString text;
    text.FormatMessage(textId, reason.GetString());
    text.Replace(_T("\r\n\r\n"), _T(" "));
    text.Replace(_T("\r\n"), _T(""));
    throw Failure{error == ERROR_FILE_NOT_FOUND ? kExitNotFound : kExitFailed,
                  what + _T(": ") + text};
}

void RequireRead(LONG error, const CString& what) {
    if (error != ERROR_SUCCESS)
        Fail(quorvel::kTextErrorReadingRegistry, error, what);
}

void RequireWritten(LONG error, const CString& what) {
    if (error != ERROR_SUCCESS)
        Fail(quorvel::kTextErrorWritingRegistry, error, what);
}

class Key {
public:
    Key() = default;
    Key(const Key&) = delete;
    ~Key() {
        if (m_key != nullptr)
            RegCloseKey(m_key);
    }
    HKEY Get() const { return m_key; }
    HKEY& Receive() { return m_key; }

private:
    HKEY m_key = nullptr;
};

CString Named(const CRegistryPath& path, const CString& valueName) {
    return TextOf(path) + _T(" \"") + valueName + _T("\"");
}

void OpenForReading(const CRegistryPath& path, Key& key) {
    RequireRead(RegOpenKeyExW(path.GetSectionKey(), path.GetSubKey(), 0, KEY_READ, &key.Receive()),
                TextOf(path));
}

LONG Query(HKEY key, const WCHAR* name, RegValue& value) {
    DWORD size = 0;
    LONG error = RegQueryValueExW(key, name, nullptr, &value.kind, nullptr, &size);
    do { // it may grow in between
        value.data.resize(size);
        if (error == ERROR_SUCCESS)
            error = RegQueryValueExW(key, name, nullptr, &value.kind,
                                     reinterpret_cast<BYTE*>(value.data.data()), &size);
    } while (error == ERROR_MORE_DATA);
    value.data.resize(std::min<std::size_t>(size, value.data.size()));
    value.name = name;
    return error;
}

// The value or key may have been removed already.
void AllowMissing(const std::function<void()>& removal) {
    try {
        removal();
    } catch (const Failure& failure) {
        if (failure.code != kExitNotFound)
            throw;
    }
}

void ApplyKey(const CRegistryPath& path, const RegKey& key) {
    if (key.isRemoval)
        return AllowMissing([&] { RemoveKey(path); });
    {
        Key created;
        RequireWritten(path.CreateSubKey(created.Receive()), TextOf(path));
    }
    for (const RegValue& value : key.values) {
        if (value.isRemoval)
            AllowMissing([&] { RemoveValue(path, value.name.c_str()); });
        else
            WriteValue(path, value);
    }
}

// A .reg text with it could not be read back: there are no escapes for line ends.
void RequireOneLine(const Wide& name, const CRegistryPath& path) {
    if (name.find_first_of(_T("\r\n")) != Wide::npos)
        throw Failure{kExitFailed, TextOf(path) + _T(": a name in it has more than one line")};
}

void RequireRemovable(const CRegistryPath& path) {
    if (path.GetSubKey().IsEmpty())
        throw Failure{kExitFailed, TextOf(path) + _T(" cannot be removed as a whole")};
}

bool IsBelow(const CString& text, const CString& path) {
    const int length = path.GetLength();
    return text.Left(length).CompareNoCase(path) == 0 &&
           (text.GetLength() == length || text[length] == '\\');
}

} // namespace

CRegistryPath ParsePath(const CString& text) {
    const int separator = text.Find(_T('\\'));
    const CString first = separator < 0 ? text : text.Left(separator);
    CString rest = separator < 0 ? CString() : text.Mid(separator + 1);
    rest.TrimRight(_T('\\'));
    for (const Root& root : kRoots)
        if (rest.Left(1) != _T("\\") &&
            (first.CompareNoCase(root.shortName) == 0 || first.CompareNoCase(root.name) == 0))
            return CRegistryPath(root.key, rest);
    throw Failure{kExitFailed, _T("not a path as in HKCU\\Software\\Name: ") + text};
}

CString TextOf(const CRegistryPath& path) {
    CString text;
    for (const Root& root : kRoots)
        if (root.key == path.GetSectionKey())
            text = root.name;
    return path.GetSubKey().IsEmpty() ? text : text + _T("\\") + path.GetSubKey();
}

std::vector<Wide> ReadKeyNames(const CRegistryPath& path) {
    Key key;
    OpenForReading(path, key);
    std::vector<Wide> names;
    for (DWORD index = 0;; ++index) {
        WCHAR name[kLongestKeyName];
        DWORD size = kLongestKeyName;
        const LONG error =
            RegEnumKeyExW(key.Get(), index, name, &size, nullptr, nullptr, nullptr, nullptr);
        if (error == ERROR_NO_MORE_ITEMS)
            return names;
        RequireRead(error, TextOf(path));
        names.emplace_back(name, size);
    }
}

std::vector<RegValue> ReadValues(const CRegistryPath& path) {
    Key key;
    OpenForReading(path, key);
    const auto name = std::make_unique<WCHAR[]>(kLongestValueName);
    std::vector<RegValue> values;
    for (DWORD index = 0;; ++index) {
        DWORD size = kLongestValueName;
        LONG error =
            RegEnumValueW(key.Get(), index, name.get(), &size, nullptr, nullptr, nullptr, nullptr);
        if (error == ERROR_NO_MORE_ITEMS)
            return values;
        if (error == ERROR_SUCCESS)
            error = Query(key.Get(), name.get(), values.emplace_back());
        RequireRead(error, TextOf(path));
    }
}

RegValue ReadValue(const CRegistryPath& path, const CString& name) {
    Key key;
    OpenForReading(path, key);
    RegValue value;
    RequireRead(Query(key.Get(), name, value), Named(path, name));
    return value;
}

void ReadTree(const CRegistryPath& path, std::vector<RegKey>& keys) {
    RegKey key;
    key.path = Wide(TextOf(path));
    key.values = ReadValues(path);
    for (const RegValue& value : key.values)
        RequireOneLine(value.name, path);
    keys.push_back(std::move(key));
    for (const Wide& name : ReadKeyNames(path)) {
        RequireOneLine(name, path);
        ReadTree(CRegistryPath(path, name.c_str()), keys);
    }
}

void WriteValue(const CRegistryPath& path, const RegValue& value) {
    Key key;
    RequireWritten(path.CreateSubKey(key.Receive()), TextOf(path));
    RequireWritten(RegSetValueExW(key.Get(), value.name.c_str(), 0, value.kind,
                                  reinterpret_cast<const BYTE*>(value.data.data()),
                                  static_cast<DWORD>(value.data.size())),
                   Named(path, value.name.c_str()));
}

void RemoveValue(const CRegistryPath& path, const CString& name) {
    Key key;
    RequireWritten(path.OpenSubKey(key.Receive()), TextOf(path));
    RequireWritten(RegDeleteValueW(key.Get(), name), Named(path, name));
}

void RemoveKey(const CRegistryPath& path) {
    RequireRemovable(path);
    for (const Wide& name : ReadKeyNames(path))
        RemoveKey(CRegistryPath(path, name.c_str()));
    RequireWritten(RegDeleteKeyW(path.GetSectionKey(), path.GetSubKey()), TextOf(path));
}

void Apply(const CRegistryPath& path, const std::vector<RegKey>& keys) {
    for (const RegKey& key : keys) {
        const CRegistryPath target = ParsePath(key.path.c_str());
        if (!IsBelow(TextOf(target), TextOf(path)))
            throw Failure{kExitFailed,
                          CString(key.path.c_str()) + _T(" is not below ") + TextOf(path)};
        if (key.isRemoval)
            RequireRemovable(target);
    }
    for (const RegKey& key : keys)
        ApplyKey(ParsePath(key.path.c_str()), key);
}
