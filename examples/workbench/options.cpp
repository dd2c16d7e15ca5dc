#include "options.h"

#include "resource.h"

#include <quorvel/controls/win/vask_property_page.h>
#include <quorvel/controls/win/vask_property_sheet.h>
#include <quorvel/frame/languages.h>
#include <quorvel/frame/module.h>
#include <quorvel/framework/extension_module.h>
#include <quorvel/framework/win/combo_box.h>
#include <quorvel/util/text/number.h>

namespace {

const WCHAR kLanguageFiles[] = _T("Workbench_%s.dll");
const WCHAR kLibraryLanguageFiles[] = _T("Quorvel_%s.dll");

CString ProgramFolder() {
    WCHAR path[MAX_PATH];
    const CString program(path, static_cast<int>(::GetModuleFileNameW(nullptr, path, MAX_PATH)));
    return program.Left(program.ReverseFind('\\'));
}

class ViewPage : public CVaskPropertyPage {
public:
    explicit ViewPage(Settings& settings)
        : CVaskPropertyPage(DIALOG_PAGE_VIEW), m_settings(settings) {}

protected:
    BOOL LoadData() override {
        SetDlgItemInt(CONTROL_SOURCE_LIMIT, m_settings.sourceLimit, FALSE);
        CheckDlgButton(CONTROL_CHECK_ON_OPEN, m_settings.checksOnOpen ? BST_CHECKED : 0);
        return TRUE;
    }
    BOOL ValidateData(UINT&, CString&, CString& text, CRect& rect) override {
        BOOL isNumber = FALSE;
        m_limit = GetDlgItemInt(CONTROL_SOURCE_LIMIT, &isNumber, FALSE);
        GetDlgItem(CONTROL_SOURCE_LIMIT)->GetWindowRect(rect);
        text.LoadString(TEXT_LIMIT_REFUSED);
        return isNumber && m_limit >= Settings::kLeastSourceLimit &&
               m_limit <= Settings::kMostSourceLimit;
    }
    BOOL SaveData() override {
        m_settings.sourceLimit = m_limit;
        m_settings.checksOnOpen = IsDlgButtonChecked(CONTROL_CHECK_ON_OPEN) == BST_CHECKED;
        return TRUE;
    }

private:
    Settings& m_settings;
    UINT m_limit = 0;
};

class LanguagePage : public CVaskPropertyPage {
public:
    explicit LanguagePage(Settings& settings)
        : CVaskPropertyPage(DIALOG_PAGE_LANGUAGE), m_settings(settings) {}

protected:
    void DoDataExchange(CDataExchange* exchange) override {
        CVaskPropertyPage::DoDataExchange(exchange);
        DDX_Control(exchange, CONTROL_LANGUAGE, m_list);
    }
    BOOL LoadData() override {
        CString name;
        name.LoadString(TEXT_SYSTEM_LANGUAGE);
        m_languages.assign(1, 0);
        m_list.AddString(name);
        std::vector<unsigned short> found;
        AfxEnumerateResourceDLLs(ProgramFolder(), kLanguageFiles, found);
        for (const unsigned short language : found) {
            // One library serves all the countries of its language: it is shown once.
            if (!AfxGetNativeLanguageName(PRIMARYLANGID(language), SUBLANG_DEFAULT, name) ||
                m_list.FindStringExact(-1, name) >= 0)
                continue;
            m_list.AddString(name);
            m_languages.push_back(language);
        }
        for (std::size_t i = 0; i < m_languages.size(); ++i)
            if (m_languages[i] == m_settings.language)
                m_list.SetCurSel(static_cast<int>(i));
        return TRUE;
    }
    BOOL SaveData() override {
        const int selected = m_list.GetCurSel();
        if (selected >= 0)
            m_settings.language = m_languages[static_cast<std::size_t>(selected)];
        return TRUE;
    }

private:
    Settings& m_settings;
    CComboBox m_list;
    std::vector<LANGID> m_languages;
};

} // namespace

BOOL EditOptions(CWnd& owner, Settings& settings) {
    Settings changed = settings;
    ViewPage view(changed);
    LanguagePage language(changed);
    CVaskPropertySheet sheet(TEXT_OPTIONS, &owner);
    sheet.m_psh.dwFlags |= PSH_NOAPPLYNOW;
    sheet.AddPage(&view);
    sheet.AddPage(&language);
    if (sheet.DoModal() != IDOK)
        return FALSE;
    settings = changed;
    return TRUE;
}

void InstallLanguage(LANGID language) {
    if (language == 0)
        language = ::GetUserDefaultUILanguage();
    CString own, library;
    if (!AfxGetResourceDLLPathName(ProgramFolder(), kLanguageFiles, language, own) ||
        !AfxGetResourceDLLPathName(ProgramFolder(), kLibraryLanguageFiles, language, library))
        return;
    // They stay loaded until the program ends.
    if (const HMODULE module = ::LoadLibraryExW(own, nullptr, LOAD_LIBRARY_AS_DATAFILE))
        AfxSetResourceHandle(module);
    if (const HMODULE module = ::LoadLibraryExW(library, nullptr, LOAD_LIBRARY_AS_DATAFILE))
        QuorvelSetResourceHandle(module);
}
