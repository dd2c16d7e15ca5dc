#include "controls/state_store.h"

#include <quorvel/framework/app.h>
#include <quorvel/system/profile.h>

#include "framework/scoped_key.h"
#include "system/profile_text.h"

namespace quorvel {

namespace {

class KeyGroup : public StateGroup {
public:
    KeyGroup(HKEY key, ScopedKey owner) : m_key(key), m_owner(std::move(owner)) {}

    bool WriteNumber(const WCHAR* name, int value) const override {
        return AfxWriteProfileDWord(m_key, name, static_cast<DWORD>(value));
    }
    bool WriteText(const WCHAR* name, const WCHAR* text) const override {
        return AfxWriteProfileString(m_key, name, text);
    }
    int ReadNumber(const WCHAR* name, int defaultValue) const override {
        return static_cast<int>(AfxGetProfileDWord(m_key, name, static_cast<DWORD>(defaultValue)));
    }
    bool ReadText(const WCHAR* name, CString& text) const override {
        return ReadProfileText(m_key, name, text);
    }
    StatePlace CreateGroup(const WCHAR* name) const override {
        ScopedKey key;
        RegCreateKeyExW(m_key, name, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE,
                        nullptr, &key.Receive(), nullptr);
        return Owned(std::move(key));
    }
    // Requests only read access, so that a read-only state can be loaded.
    StatePlace OpenGroup(const WCHAR* name) const override {
        ScopedKey key;
        RegOpenKeyExW(m_key, name, 0, KEY_READ, &key.Receive());
        return Owned(std::move(key));
    }

    static StatePlace Owned(ScopedKey key) {
        const HKEY handle = key.Get();
        return handle != nullptr ? std::make_unique<KeyGroup>(handle, std::move(key)) : nullptr;
    }

private:
    HKEY m_key;
    ScopedKey m_owner; // empty if the caller closes the key
};

class SectionGroup : public StateGroup {
public:
    SectionGroup(CWinApp& app, const CString& section) : m_app(app), m_section(section) {}

    bool WriteNumber(const WCHAR* name, int value) const override {
        return m_app.WriteProfileInt(m_section, name, value);
    }
    bool WriteText(const WCHAR* name, const WCHAR* text) const override {
        return m_app.WriteProfileString(m_section, name, text);
    }
    int ReadNumber(const WCHAR* name, int defaultValue) const override {
        return static_cast<int>(m_app.GetProfileInt(m_section, name, defaultValue));
    }
    bool ReadText(const WCHAR* name, CString& text) const override {
        text = m_app.GetProfileString(m_section, name, _T(""));
        return true;
    }
    StatePlace CreateGroup(const WCHAR* name) const override {
        const bool isClosed = m_section[m_section.GetLength() - 1] == '\\';
        return std::make_unique<SectionGroup>(m_app,
                                              m_section + (isClosed ? _T("") : _T("\\")) + name);
    }
    StatePlace OpenGroup(const WCHAR* name) const override { return CreateGroup(name); }

private:
    CWinApp& m_app;
    CString m_section; // never empty
};

} // namespace

StatePlace KeyState(HKEY key, bool closesKey) {
    ScopedKey owner(closesKey ? key : nullptr);
    return key != nullptr ? std::make_unique<KeyGroup>(key, std::move(owner)) : nullptr;
}

StatePlace CreatedPathState(const CRegistryPath& path) {
    ScopedKey key;
    if (path.IsValid())
        path.CreateSubKey(key.Receive());
    return KeyGroup::Owned(std::move(key));
}

StatePlace OpenedPathState(const CRegistryPath& path) {
    ScopedKey key;
    if (path.IsValid()) // OpenSubKey would also request write access
        RegOpenKeyExW(path.GetSectionKey(), path.GetSubKey(), 0, KEY_READ, &key.Receive());
    return KeyGroup::Owned(std::move(key));
}

StatePlace SectionState(const WCHAR* section) {
    CWinApp* const app = AfxGetApp();
    if (section == nullptr || *section == 0 || app == nullptr)
        return nullptr;
    return std::make_unique<SectionGroup>(*app, section);
}

} // namespace quorvel
