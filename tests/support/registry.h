// A private registry key for a test; the destructor removes it with all sub keys.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <random>
#include <string>

class TestKey {
public:
    TestKey() {
        using namespace quorvel::win32;
        m_path.Format(_T("Software\\Quorvel tests\\%08x"), std::random_device()());
        RegCreateKeyExW(HKEY_CURRENT_USER, m_path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_key,
                        nullptr);
    }
    TestKey(const TestKey&) = delete;
    TestKey& operator=(const TestKey&) = delete;
    ~TestKey() {
        using namespace quorvel::win32;
        RegCloseKey(m_key);
        RemoveTree(HKEY_CURRENT_USER, m_path);
    }

    HKEY Get() const { return m_key; }
    // A value of any type and bytes. Windows looks after a text for a terminator that was not
    // counted; here there is no terminator.
    static LSTATUS Set(HKEY key, const WCHAR* name, DWORD kind, const std::string& bytes) {
        const std::string followed = bytes + "????";
        using namespace quorvel::win32;
        return RegSetValueExW(key, name, 0, kind, reinterpret_cast<const BYTE*>(followed.data()),
                              static_cast<DWORD>(bytes.size()));
    }
    // Relative to HKEY_CURRENT_USER.
    const CString& Path() const { return m_path; }

    static void RemoveTree(HKEY parent, const WCHAR* path) {
        using namespace quorvel::win32;
        HKEY key = nullptr;
        if (RegOpenKeyExW(parent, path, 0, KEY_ENUMERATE_SUB_KEYS, &key) != 0)
            return;
        WCHAR name[256];
        for (DWORD size = 256;
             RegEnumKeyExW(key, 0, name, &size, nullptr, nullptr, nullptr, nullptr) == 0;
             size = 256)
            RemoveTree(key, name);
        RegCloseKey(key);
        RegDeleteKeyW(parent, path);
    }

private:
    CString m_path;
    HKEY m_key = nullptr;
};
