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

TEST(VaskPropertySheet, HelpsWithThePagesThatHaveATopic) {
    struct CHelpedPage : CVaskPropertyPage {
        explicit CHelpedPage(const WCHAR* topic)
            : CVaskPropertyPage(MAKEINTRESOURCEW(PAGE_FIRST)), m_topic(topic) {}
        CString GetHelpTopic() override { return m_topic; }
        const CString m_topic;
    };
    static std::vector<CString> s_opened;
    QuorvelSetOpenExternalLinkCallback([](const WCHAR* link) {
        s_opened.push_back(link);
        return 0; // opens nothing
    });
    CVaskPropertySheet sheet(_T("Options"));
    CHelpedPage first(_T("http://example.org/first")), second(_T(""));
    sheet.AddPage(&first);
    sheet.AddPage(&second);
    DialogDriver driver({ClickOn(IDHELP), [&](HWND) { EXPECT_TRUE(sheet.SetActivePage(1)); },
                         [](HWND box) {
                             EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(box, IDHELP)));
                             ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
                         }});
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    QuorvelSetOpenExternalLinkCallback(nullptr);
    EXPECT_EQ(s_opened, std::vector<CString>{_T("http://example.org/first")});
}

TEST(VaskPropertySheet, BalloonsOfItsPagesFollowIt) {
    Options options;
    auto& [sheet, first, second] = options;
    const auto show = [](CVaskPropertyPage& page) {
        EXPECT_TRUE(
            page.ShowValidationErrorMessage(TTI_INFO, _T("a"), _T("b"), CRect(300, 300, 309, 309)));
    };
    const std::function<void(HWND sheet, HWND balloon)> hiding[] = {
        [](HWND, HWND balloon) { ::SetFocus(balloon); }, // a click on it
        [](HWND box, HWND) { ::SendMessageW(box, WM_ACTIVATEAPP, FALSE, 0); },
        [](HWND box, HWND) {
            ::ShowWindow(box, SW_HIDE);
            ::ShowWindow(box, SW_SHOW); // shown again for the next step
        },
    };
    std::vector<Step> steps = {[&](HWND box) {
        show(first);
        const HWND balloon = BalloonProbe::ExpectOne(box);
        const auto offset = [&] {
            CRect place, sheetPlace;
            ::GetWindowRect(balloon, place);
            ::GetWindowRect(box, sheetPlace);
            return std::pair(place.left - sheetPlace.left, place.top - sheetPlace.top);
        };
        const auto before = offset();
        ::SetWindowPos(box, nullptr, 30, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        EXPECT_EQ(offset(), before);
    }};
    for (const auto& hide : hiding) {
        steps.push_back([&](HWND box) { hide(box, BalloonProbe::ExpectOne(box)); });
        steps.push_back([&](HWND) {
            EXPECT_FALSE(first.IsValidationErrorMessageShowing()) << &hide - hiding;
            show(first);
        });
    }
    steps.push_back([&](HWND box) {
        EXPECT_TRUE(sheet.SetActivePage(1));
        EXPECT_EQ(BalloonProbe::Find(box).size(), 2u);
        sheet.RemovePage(&second);
        EXPECT_EQ(BalloonProbe::Find(box).size(), 1u) << "goes with its page";
        sheet.EndDialog(7);
    });
    DialogDriver driver(steps);
    EXPECT_EQ(sheet.DoModal(), 7);
}

TEST(VaskWizard, GoesOnWhenItsPagesAcceptAndAlwaysBack) {
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
    DialogDriver driver(
        {[&](HWND) { EXPECT_EQ(first.GetWelcomeText(), _T("Welcome to the Wizard")); },
         press(PSBTN_NEXT),
         [&](HWND) {
             EXPECT_EQ(second.GetWelcomeText(), _T("Welcome to the Import"));
             second.SetDlgItemText(FIELD_NOTE, _T("typed"));
         },
         press(PSBTN_BACK),
         [&](HWND) {
             EXPECT_EQ(wizard.GetActiveIndex(), 0);
             EXPECT_EQ(second.m_note, _T("loaded")) << "not taken yet";
             first.m_isValid = true;
         },
         press(PSBTN_NEXT),
         [&](HWND) { EXPECT_EQ(TextOf(::GetDlgItem(second.m_hWnd, FIELD_NOTE)), _T("typed")); },
         press(PSBTN_FINISH),
         [&](HWND) {
             EXPECT_TRUE(second.IsValidationErrorMessageShowing());
             second.m_isValid = true;
         },
         press(PSBTN_FINISH)});
    EXPECT_EQ(wizard.DoModal(), ID_WIZFINISH);
    EXPECT_EQ(first.m_seen, "load states validate save validate save states! ");
    EXPECT_EQ(second.m_seen, "load states validate validate save states! ");
    EXPECT_EQ(second.m_note, _T("typed"));
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
        DialogDriver driver({[&](HWND box) {
            for (const int id :
                 {IDOK, IDCANCEL, IDHELP, 0x3021, ID_WIZBACK, ID_WIZNEXT, ID_WIZFINISH}) {
                if (const HWND button = ::GetDlgItem(box, id))
                    buttons += TextOf(button) + _T("|");
            }
            ::PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
        }});
        EXPECT_EQ(sheet.DoModal(), IDCANCEL);
        return buttons;
    };
    EXPECT_EQ(buttonsOf(false), _T("OK|Cancel|Help|&Apply|"));
    EXPECT_EQ(buttonsOf(true), _T("Cancel|Help|< &Back|&Next >|&Finish|"));
    const GermanTexts german;
    EXPECT_EQ(buttonsOf(false), _T("OK|Abbrechen|Hilfe|Ü&bernehmen|"));
    EXPECT_EQ(buttonsOf(true), _T("Abbrechen|Hilfe|< &Zurück|&Weiter >|&Fertig stellen|"));
}

TEST(VaskWizard, ShowsItsPagesTitles) {
    struct CWatchedWizard : CVaskWizard {
        using CVaskWizard::CVaskWizard;
        std::vector<CString> m_sent; // position of a page and its new title
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == PSM_SETHEADERTITLEW) {
                m_sent.emplace_back();
                m_sent.back().Format(_T("%d %s"), static_cast<int>(wParam),
                                     reinterpret_cast<const WCHAR*>(lParam));
            }
            return CVaskWizard::WindowProc(message, wParam, lParam);
        }
    };
    CWatchedWizard wizard(_T("Import"));
    Page<CVaskWizardPage> untitled(PAGE_UNTITLED), second(PAGE_SECOND), third(PAGE_THIRD);
    EXPECT_FALSE(second.SetHeaderTitle(nullptr));
    EXPECT_TRUE(second.SetHeaderTitle(_T("Source")));
    EXPECT_TRUE(second.SetHeaderSubTitle(_T("Where from?")));
    third.m_strCaption = _T("Ready");
    for (CVaskWizardPage* const page : {&untitled, &second, &third})
        wizard.AddPage(page);
    std::vector<CString> titles;
    std::vector<int> tops; // top edges of the pages; lower with a header
    const auto note = [&](HWND box) {
        titles.push_back(TextOf(box));
        tops.push_back(static_cast<int>(PlaceOf(wizard.GetActivePage()->m_hWnd).top));
    };
    const auto next = [&](HWND) { wizard.PressButton(PSBTN_NEXT); };
    const auto retitle = [&](HWND) { EXPECT_TRUE(second.SetHeaderTitle(_T("Target"))); };
    DialogDriver driver({note, next, note, retitle, next, note, Press(VK_ESCAPE)});
    EXPECT_EQ(wizard.DoModal(), IDCANCEL);
    EXPECT_EQ(wizard.m_sent, std::vector<CString>{_T("1 Target")});
    EXPECT_EQ(titles, (std::vector<CString>{_T("Import"), _T("Second"), _T("Ready")}));
    ASSERT_EQ(tops.size(), 3u);
    EXPECT_EQ(tops[0], tops[2]);
    EXPECT_GT(tops[1], tops[0]);
}

} // namespace
