// Property sheets and wizards: texts of their buttons, and pages that refuse.
#include <quorvel/controls/win/vask_property_page.h>
#include <quorvel/controls/win/vask_wizard.h>
#include <quorvel/controls/win/vask_wizard_page.h>
#include <quorvel/frame/module.h>

#include "controls/win/balloon_probe.h"
#include "controls/win/dialog_ids.h"
#include "support/german_texts.h"
#include "support/test.h"
#include "support/win/dialog_driver.h"

namespace {

template <class Base>
class Page : public Base {
public:
    using Base::Base;
    bool m_isValid = true;
    bool m_loads = true;
    bool m_appliesOK = true;
    bool m_saveSpoils = false; // after saving, the data is no longer valid
    CString m_note;
    CString m_topic; // of help
    std::string m_seen;

protected:
    void DoDataExchange(CDataExchange* exchange) override {
        Base::DoDataExchange(exchange);
        DDX_Text(exchange, FIELD_NOTE, m_note);
    }
    BOOL LoadData() override {
        m_seen += "load ";
        m_note = _T("loaded");
        return m_loads;
    }
    CString GetHelpTopic() override { return m_topic; }
    void PreLoadStateControls() override { m_seen += "states "; }
    void PreSaveStateControls() override { m_seen += "states! "; }
    BOOL IsApplyOK() override { return m_appliesOK; }
    BOOL ValidateData(UINT&, CString&, CString& text, CRect&) override {
        m_seen += "validate ";
        text = _T("Not this");
        return m_isValid;
    }
    BOOL SaveData() override {
        m_seen += "save ";
        m_isValid = !m_saveSpoils;
        return TRUE;
    }
};

typedef DialogDriver::Step Step;

// A sheet with two pages.
struct Options {
    Options() {
        sheet.AddPage(&first);
        sheet.AddPage(&second);
    }
    CVaskPropertySheet sheet{_T("Options")};
    Page<CVaskPropertyPage> first{PAGE_FIRST}, second{PAGE_SECOND};
};

TEST(VaskPropertySheet, EndsWhenItsPagesAccept) {
    Options options;
    auto& [sheet, first, second] = options;
    first.m_isValid = false;
    const auto activate = [&](int page) { return [&, page](HWND) { sheet.SetActivePage(page); }; };
    const auto expectRefusal = [&](HWND) {
        EXPECT_EQ(sheet.GetActiveIndex(), 0) << "the page that refused";
        EXPECT_TRUE(first.IsValidationErrorMessageShowing());
        first.m_isValid = true;
    };
    const auto spoil = [&](HWND) { first.m_isValid = false; };
    DialogDriver driver({activate(1), expectRefusal, activate(1), spoil, ClickOn(IDOK),
                         expectRefusal, ClickOn(IDOK)});
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(first.m_seen,
              "load states validate validate validate validate validate save states! ");
}

TEST(VaskPropertySheet, AsksItsPagesBeforeItEnds) {
    for (const bool loads : {false, true}) { // a page that is not loaded does not matter
        SCOPED_TRACE(loads);
        CVaskPropertySheet sheet;
        Page<CVaskPropertyPage> page(PAGE_FIRST);
        page.m_isValid = page.m_loads = loads;
        page.m_appliesOK = !loads;
        EXPECT_FALSE(page.ClosePropertySheet()) << "in no sheet";
        sheet.AddPage(&page);
        DialogDriver driver({ClickOn(IDOK), [&](HWND) {
                                 EXPECT_FALSE(page.IsValidationErrorMessageShowing());
                                 EXPECT_TRUE(page.ClosePropertySheet());
                             }});
        EXPECT_EQ(sheet.DoModal(), loads ? IDCANCEL : IDOK);
        EXPECT_EQ(page.m_seen, loads ? "load states validate states! " : "load ");
    }
}

TEST(VaskPropertySheet, OpensTheHelpOfPagesThatHaveATopic) {
    static CString s_opened;
    QuorvelSetOpenExternalLinkCallback([](const WCHAR* link) {
        s_opened += link;
        return 0; // opens nothing
    });
    Options options;
    options.first.m_topic = _T("http://example.org/first");
    DialogDriver driver(
        {ClickOn(IDHELP), [&](HWND) { options.sheet.SetActivePage(1); },
         [](HWND box) { EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(box, IDHELP))); },
         Press(VK_ESCAPE)});
    EXPECT_EQ(options.sheet.DoModal(), IDCANCEL);
    QuorvelSetOpenExternalLinkCallback(nullptr);
    EXPECT_EQ(s_opened, _T("http://example.org/first"));
}

TEST(VaskPropertySheet, BalloonsOfItsPagesFollowIt) {
    Options options;
    auto& [sheet, first, second] = options;
    const auto show = [&first = first] {
        EXPECT_TRUE(first.ShowValidationErrorMessage(TTI_INFO, _T("a"), _T("b"),
                                                     CRect(300, 300, 309, 309)));
    };
    const Step move = [&](HWND box) {
        show();
        const HWND balloon = BalloonProbe::ExpectOne(box);
        const CRect before = ScreenPlaceOf(balloon), sheetBefore = ScreenPlaceOf(box);
        ::SetWindowPos(box, nullptr, 30, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        const CRect after = ScreenPlaceOf(balloon), sheetAfter = ScreenPlaceOf(box);
        EXPECT_EQ(after.left - before.left, sheetAfter.left - sheetBefore.left);
        EXPECT_EQ(after.top - before.top, sheetAfter.top - sheetBefore.top);
    };
    const Step expectHidden = [&](HWND) {
        EXPECT_FALSE(first.IsValidationErrorMessageShowing());
        show();
    };
    const Step click = [](HWND box) { ::SetFocus(BalloonProbe::ExpectOne(box)); };
    const Step hide = [](HWND box) {
        ::ShowWindow(box, SW_HIDE);
        ::ShowWindow(box, SW_SHOW); // shown again for the next step
    };
    const Step remove = [&](HWND box) {
        EXPECT_TRUE(sheet.SetActivePage(1));
        EXPECT_EQ(BalloonProbe::Find(box).size(), 2u);
        sheet.RemovePage(&second);
        EXPECT_EQ(BalloonProbe::Find(box).size(), 1u) << "destroyed with its page";
        sheet.EndDialog(7);
    };
    DialogDriver driver({move, click, expectHidden, hide, expectHidden, remove});
    EXPECT_EQ(sheet.DoModal(), 7);
}

TEST(VaskWizard, MovesOnWhenItsPagesAcceptAndAlwaysBack) {
    CVaskWizard wizard(_T("Wizard"));
    Page<CVaskWizardPage> first(PAGE_FIRST), second(PAGE_SECOND);
    wizard.AddPage(&first);
    wizard.AddPage(&second);
    EXPECT_TRUE(wizard.SetWizardName(_T("Wizard")) && second.SetWizardName(_T("Import")));
    EXPECT_FALSE(wizard.SetWizardName(nullptr) || first.SetWizardName(nullptr));
    first.m_saveSpoils = true;
    second.m_isValid = false;
    const auto press = [&](int button) {
        return [&wizard, button](HWND) { wizard.PressButton(button); };
    };
    const Step type = [&](HWND) { second.SetDlgItemText(FIELD_NOTE, _T("typed")); };
    const Step expectBack = [&](HWND) {
        EXPECT_EQ(wizard.GetActiveIndex(), 0);
        EXPECT_EQ(first.GetWelcomeText(), _T("Welcome to the Wizard"));
        EXPECT_EQ(second.m_note, _T("loaded")) << "not taken yet";
        first.m_isValid = true;
    };
    const Step expectRefusal = [&](HWND) {
        EXPECT_TRUE(second.IsValidationErrorMessageShowing());
        second.m_isValid = true;
    };
    DialogDriver driver({press(PSBTN_NEXT), type, press(PSBTN_BACK), expectBack, press(PSBTN_NEXT),
                         press(PSBTN_FINISH), expectRefusal, press(PSBTN_FINISH)});
    EXPECT_EQ(wizard.DoModal(), ID_WIZFINISH);
    EXPECT_EQ(first.m_seen, "load states validate save validate save states! ");
    EXPECT_EQ(second.m_seen, "load states validate validate save states! ");
    EXPECT_EQ(second.m_note, _T("typed"));
    EXPECT_EQ(second.GetWelcomeText(), _T("Welcome to the Import"));
}

TEST(VaskPropertySheet, HasButtonsInTheLanguageInForce) {
    const auto buttonsOf = [](bool isWizard) {
        CVaskPropertySheet sheet; // not a CVaskWizard
        Page<CVaskPropertyPage> page(PAGE_FIRST);
        page.m_psp.dwFlags |= PSP_HASHELP;
        sheet.m_psh.dwFlags |= PSH_HASHELP;
        if (isWizard)
            sheet.SetWizardMode();
        sheet.AddPage(&page);
        CString buttons;
        const Step read = [&](HWND box) {
            for (const int id :
                 {IDOK, IDCANCEL, IDHELP, 0x3021, ID_WIZBACK, ID_WIZNEXT, ID_WIZFINISH}) {
                if (const HWND button = ::GetDlgItem(box, id))
                    buttons += TextOf(button) + _T("|");
            }
        };
        DialogDriver driver({read, Press(VK_ESCAPE)});
        EXPECT_EQ(sheet.DoModal(), IDCANCEL);
        return buttons;
    };
    EXPECT_EQ(buttonsOf(false), _T("OK|Cancel|Help|&Apply|"));
    const GermanTexts german;
    EXPECT_EQ(buttonsOf(false), _T("OK|Abbrechen|Hilfe|Ü&bernehmen|"));
    EXPECT_EQ(buttonsOf(true), _T("Abbrechen|Hilfe|< &Zurück|&Weiter >|&Fertig stellen|"));
}

TEST(VaskWizard, ShowsItsPagesTitles) {
    CVaskWizard wizard(_T("Import"));
    CString shown;
    Page<CVaskWizardPage> untitled(PAGE_UNTITLED), second(PAGE_SECOND), third(PAGE_THIRD);
    EXPECT_TRUE(second.SetHeaderTitle(_T("Source")) && second.SetHeaderSubTitle(_T("Where from?")));
    third.m_strCaption = _T("Ready");
    for (CVaskWizardPage* const page : {&untitled, &second, &third})
        wizard.AddPage(page);
    int plainTop = -1; // of a page without a header
    const auto note = [&](HWND box) {
        const int top = static_cast<int>(PlaceOf(wizard.GetActivePage()->m_hWnd).top);
        plainTop = plainTop < 0 ? top : plainTop;
        shown += TextOf(box) + (top > plainTop ? _T(" below a header, ") : _T(", "));
    };
    const auto next = [&](HWND) { wizard.PressButton(PSBTN_NEXT); };
    DialogDriver driver({note, next, note, next, note, Press(VK_ESCAPE)});
    EXPECT_EQ(wizard.DoModal(), IDCANCEL);
    EXPECT_EQ(shown, _T("Import, Second below a header, Ready, "));
}

} // namespace
