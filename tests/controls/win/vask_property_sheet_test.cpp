// Property sheets and wizards: their buttons' texts, and pages that refuse.
#include <quorvel/controls/win/vask_property_page.h>
#include <quorvel/controls/win/vask_wizard.h>
#include <quorvel/controls/win/vask_wizard_page.h>

#include "controls/win/dialog_ids.h"
#include "support/test.h"
#include "support/win/dialog_driver.h"

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

TEST(VaskWizard, KeepsEvents) {
    CVaskWizard wizard(_T("Wizard"));
    CVaskEvent event;
    wizard.AddEvent(CVaskEvent(_T("a")));
    wizard.AppendEvents({CVaskEvent(_T("b")), CVaskEvent(_T("c"))});
    EXPECT_TRUE(wizard.UpdateEvent(1, CVaskEvent(_T("B"))));
    EXPECT_TRUE(wizard.DeleteEvent(0));
    EXPECT_FALSE(wizard.DeleteEvent(2));
    EXPECT_EQ(wizard.GetEventCount(), 2);
    EXPECT_TRUE(wizard.GetEvent(0, event));
    EXPECT_EQ(event.GetDescription(), _T("B"));
}

} // namespace
