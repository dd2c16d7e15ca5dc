// Property sheets and wizards: their buttons' texts, and pages that refuse.
#include <quorvel/controls/win/vask_property_page.h>
#include <quorvel/controls/win/vask_wizard.h>
#include <quorvel/controls/win/vask_wizard_page.h>

#include "controls/win/dialog_ids.h"
#include "support/german_texts.h"
#include "support/test.h"
#include "support/win/dialog_driver.h"

#include <algorithm>
#include <optional>

namespace {

template <class Base>
class Page : public Base {
public:
    using Base::Base;
    bool m_isValid = true;
    std::string m_seen;

protected:
    BOOL LoadData() override {
        m_seen += "load ";
        return TRUE;
    }
    BOOL ValidateData(UINT&, CString&, CString& text, CRect&) override {
        m_seen += "validate ";
        text = _T("Not this");
        return m_isValid;
    }
    BOOL SaveData() override {
        m_seen += "save ";
        return TRUE;
    }
};

TEST(VaskPropertySheet, AppliesWhatItsPagesAccept) {
    CVaskPropertySheet sheet(_T("Options"));
    Page<CVaskPropertyPage> first(PAGE_FIRST), second(PAGE_SECOND);
    sheet.AddPage(&first);
    sheet.AddPage(&second);
    first.m_isValid = false;
    DialogDriver driver({[](HWND box) {
                             EXPECT_EQ(TextOf(::GetDlgItem(box, IDCANCEL)), _T("Cancel"));
                             EXPECT_EQ(TextOf(::GetDlgItem(box, 0x3021)), _T("&Apply"));
                         },
                         [&](HWND) { sheet.SetActivePage(1); },
                         [&](HWND) {
                             EXPECT_EQ(sheet.GetActiveIndex(), 0) << "the page refused";
                             EXPECT_TRUE(first.IsValidationErrorMessageShowing());
                             first.m_isValid = true;
                         },
                         ClickOn(IDOK)});
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(first.m_seen, "load validate validate validate save ");
    EXPECT_EQ(second.m_seen, "") << "never shown";
}

TEST(VaskWizard, GoesOnWhenItsPagesAcceptAndAlwaysBack) {
    CVaskWizard wizard(_T("Wizard"));
    Page<CVaskWizardPage> first(PAGE_FIRST), second(PAGE_SECOND);
    wizard.AddPage(&first);
    wizard.AddPage(&second);
    EXPECT_TRUE(first.SetWizardName(_T("Import")));
    EXPECT_FALSE(first.SetWizardName(nullptr));
    EXPECT_EQ(first.GetWelcomeText(), _T("Welcome to the Import"));
    second.m_isValid = false;
    const auto press = [&](int button) {
        return [&wizard, button](HWND) { wizard.PressButton(button); };
    };
    DialogDriver driver(
        {[](HWND box) { EXPECT_EQ(TextOf(::GetDlgItem(box, ID_WIZNEXT)), _T("&Next >")); },
         press(PSBTN_NEXT), [&](HWND) { EXPECT_EQ(wizard.GetActiveIndex(), 1); }, press(PSBTN_BACK),
         [&](HWND) { EXPECT_EQ(wizard.GetActiveIndex(), 0); }, press(PSBTN_NEXT),
         press(PSBTN_FINISH),
         [&](HWND) {
             EXPECT_TRUE(second.IsValidationErrorMessageShowing());
             second.m_isValid = true;
         },
         press(PSBTN_FINISH)});
    EXPECT_EQ(wizard.DoModal(), ID_WIZFINISH);
    EXPECT_EQ(second.m_seen, "load validate validate save ");
}

// The texts of the sheet's own buttons, in the order of their ids.
std::vector<CString> ButtonsOf(HWND sheet) {
    std::vector<CString> texts;
    for (const int id : {IDOK, IDCANCEL, IDHELP, 0x3021, ID_WIZBACK, ID_WIZNEXT, ID_WIZFINISH}) {
        if (const HWND button = ::GetDlgItem(sheet, id))
            texts.push_back(TextOf(button));
    }
    return texts;
}

TEST(VaskPropertySheet, HasButtonsInTheLanguageInForce) {
    const struct {
        bool isGerman;
        std::vector<CString> sheet, wizard;
    } rows[] = {
        {false,
         {_T("OK"), _T("Cancel"), _T("Help"), _T("&Apply")},
         {_T("Cancel"), _T("< &Back"), _T("&Next >"), _T("&Finish")}},
        {true,
         {_T("OK"), _T("Abbrechen"), _T("Hilfe"), _T("Ü&bernehmen")},
         {_T("Abbrechen"), _T("< &Zurück"), _T("&Weiter >"), _T("&Fertig stellen")}},
    };
    for (const auto& row : rows) {
        std::optional<GermanTexts> german;
        if (row.isGerman)
            german.emplace();
        std::vector<CString> buttons;
        const auto close = [&](HWND box) {
            buttons = ButtonsOf(box);
            ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
        };
        CVaskPropertySheet sheet(_T("Options"));
        Page<CVaskPropertyPage> page(PAGE_FIRST);
        page.m_psp.dwFlags |= PSP_HASHELP;
        sheet.m_psh.dwFlags |= PSH_HASHELP;
        sheet.AddPage(&page);
        {
            DialogDriver driver({close});
            EXPECT_EQ(sheet.DoModal(), IDCANCEL);
        }
        EXPECT_EQ(buttons, row.sheet);
        CVaskWizard wizard(_T("Wizard"));
        Page<CVaskWizardPage> only(PAGE_FIRST);
        wizard.AddPage(&only);
        DialogDriver driver({close});
        EXPECT_EQ(wizard.DoModal(), IDCANCEL);
        buttons.erase(std::remove(buttons.begin(), buttons.end(), _T("Help")), buttons.end());
        EXPECT_EQ(buttons, row.wizard);
    }
}

TEST(VaskWizard, ShowsItsPagesTitles) {
    CVaskWizard wizard(_T("Import"));
    Page<CVaskWizardPage> untitled(PAGE_UNTITLED), second(PAGE_SECOND), third(PAGE_THIRD);
    EXPECT_FALSE(second.SetHeaderTitle(nullptr));
    EXPECT_TRUE(second.SetHeaderTitle(_T("Source")));
    EXPECT_TRUE(second.SetHeaderSubTitle(_T("Where from?")));
    third.m_strCaption = _T("Ready");
    for (CVaskWizardPage* const page : {&untitled, &second, &third})
        wizard.AddPage(page);
    std::vector<CString> titles;
    std::vector<int> tops; // of the pages: a header is above
    const auto note = [&](HWND box) {
        titles.push_back(TextOf(box));
        tops.push_back(static_cast<int>(PlaceOf(wizard.GetActivePage()->m_hWnd).top));
    };
    const auto next = [&](HWND) { wizard.PressButton(PSBTN_NEXT); };
    DialogDriver driver({note, next, note, next, note, Press(VK_ESCAPE)});
    EXPECT_EQ(wizard.DoModal(), IDCANCEL);
    EXPECT_EQ(titles, (std::vector<CString>{_T("Import"), _T("Second"), _T("Ready")}));
    ASSERT_EQ(tops.size(), 3u);
    EXPECT_EQ(tops[0], tops[2]);
    EXPECT_GT(tops[1], tops[0]);
}

} // namespace
