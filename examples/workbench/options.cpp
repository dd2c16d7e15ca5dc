#include "options.h"

#include "resource.h"
#include "texts.h"

#include <quorvel/controls/win/vask_property_page.h>
#include <quorvel/controls/win/vask_property_sheet.h>
#include <quorvel/frame/win/program_language.h>
#include <quorvel/framework/win/combo_box.h>
#include <quorvel/keyboard/win/keyboard_shortcuts_page.h>

namespace {

const WCHAR kLanguageFiles[] = _T("Workbench_%s.dll");

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
        text = TextOf(TEXT_LIMIT_REFUSED);
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
        AfxGetProgramLanguages(kLanguageFiles, m_languages);
        m_languages.emplace(m_languages.begin(), LANGID{0}, TextOf(TEXT_SYSTEM_LANGUAGE));
        for (const auto& [language, name] : m_languages) {
            const int index = m_list.AddString(name);
            if (language == m_settings.language)
                m_list.SetCurSel(index);
        }
        return TRUE;
    }
    BOOL SaveData() override {
        const int selected = m_list.GetCurSel();
        if (selected >= 0)
            m_settings.language = m_languages[static_cast<std::size_t>(selected)].first;
        return TRUE;
    }

private:
    Settings& m_settings;
    CComboBox m_list;
    std::vector<std::pair<LANGID, CString>> m_languages;
};

} // namespace

BOOL EditOptions(CWnd& owner, Settings& settings) {
    Settings changed = settings;
    ViewPage view(changed);
    CKeyboardShortcutsPage shortcuts(DIALOG_PAGE_SHORTCUTS,
                                     {CONTROL_SHORTCUTS, CONTROL_SHORTCUT_FILTER, CONTROL_ASSIGN,
                                      CONTROL_CLEAR, CONTROL_RESET, CONTROL_RESET_ALL},
                                     changed.shortcuts);
    LanguagePage language(changed);
    CVaskPropertySheet sheet(TEXT_OPTIONS, &owner);
    sheet.m_psh.dwFlags |= PSH_NOAPPLYNOW;
    sheet.AddPage(&view);
    sheet.AddPage(&shortcuts);
    sheet.AddPage(&language);
    if (sheet.DoModal() != IDOK)
        return FALSE;
    settings = changed;
    return TRUE;
}

void InstallLanguage(LANGID language) {
    AfxInstallLanguage(kLanguageFiles, _T("Quorvel_%s.dll"), language);
}
