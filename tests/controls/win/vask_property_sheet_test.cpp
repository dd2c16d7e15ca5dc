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

#include <optional>

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
    EXPECT_EQ(first.m_seen, "load states validate validate validate save states! ");
    EXPECT_EQ(second.m_seen, "") << "never shown";
}

TEST(VaskPropertySheet, AsksItsPagesBeforeItEnds) {
    struct Row {
        const char* label;
        bool loads, appliesOK;
        Step act; // after a click on OK
        INT_PTR result;
        const char* seen;
    };
    CVaskPropertyPage* page = nullptr;
    const Step none = [](HWND) {};
    const Row rows[] = {
        {"a page that is not loaded does not matter", false, true, none, IDOK, "load "},
        {"a page that keeps the sheet", true, false,
         [&](HWND) {
             EXPECT_FALSE(page->IsValidationErrorMessageShowing());
             EXPECT_TRUE(page->ClosePropertySheet());
         },
         IDCANCEL, "load states validate states! "},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.label);
        CVaskPropertySheet sheet;
        Page<CVaskPropertyPage> only(PAGE_FIRST);
        page = &only;
        only.m_isValid = row.loads; // a page that is not loaded is not validated
        only.m_loads = row.loads;
        only.m_appliesOK = row.appliesOK;
        EXPECT_FALSE(only.ClosePropertySheet()) << "in no sheet";
        sheet.AddPage(&only);
        DialogDriver driver({ClickOn(IDOK), row.act});
        EXPECT_EQ(sheet.DoModal(), row.result);
        EXPECT_EQ(only.m_seen, row.seen);
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

TEST(VaskPropertySheet, BringsThePageToTheFrontThatRefused) {
    CVaskPropertySheet sheet(_T("Options"));
    Page<CVaskPropertyPage> first(PAGE_FIRST), second(PAGE_SECOND);
    sheet.AddPage(&first);
    sheet.AddPage(&second);
    const Step refuse = [&](HWND) { first.m_isValid = false; };
    DialogDriver driver({[&](HWND) { EXPECT_TRUE(sheet.SetActivePage(1)); }, refuse, ClickOn(IDOK),
                         [&](HWND) {
                             EXPECT_EQ(sheet.GetActiveIndex(), 0);
                             EXPECT_TRUE(first.IsValidationErrorMessageShowing());
                         },
                         ClickOn(IDCANCEL)});
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
}

TEST(VaskPropertySheet, BalloonsOfItsPagesFollowIt) {
    CVaskPropertySheet sheet(_T("Options"));
    Page<CVaskPropertyPage> first(PAGE_FIRST), second(PAGE_SECOND);
    sheet.AddPage(&first);
    sheet.AddPage(&second);
    const auto show = [](CVaskPropertyPage& page) {
        EXPECT_TRUE(
            page.ShowValidationErrorMessage(TTI_INFO, _T("a"), _T("b"), CRect(300, 300, 309, 309)));
    };
    const auto placeOf = [](HWND window) {
        CRect rect;
        ::GetWindowRect(window, rect);
        return rect.TopLeft();
    };
    const std::pair<const char*, std::function<void(HWND sheet, HWND balloon)>> hiding[] = {
        {"a click on it", [](HWND, HWND balloon) { ::SetFocus(balloon); }},
        {"another program", [](HWND box, HWND) { ::SendMessageW(box, WM_ACTIVATEAPP, FALSE, 0); }},
        {"the sheet is hidden",
         [](HWND box, HWND) {
             ::ShowWindow(box, SW_HIDE);
             ::ShowWindow(box, SW_SHOW); // shown again for the next step
         }},
    };
    std::vector<Step> steps = {[&](HWND box) {
        show(first);
        const HWND balloon = BalloonProbe::ExpectOne(box);
        const CPoint before = placeOf(balloon);
        const CPoint sheetBefore = placeOf(box);
        ::SetWindowPos(box, nullptr, sheetBefore.x + 30, sheetBefore.y + 40, 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER);
        EXPECT_EQ(placeOf(balloon), CPoint(before.x + 30, before.y + 40));
    }};
    for (const auto& [label, act] : hiding) {
        steps.push_back([&, act = act](HWND box) { act(box, BalloonProbe::ExpectOne(box)); });
        steps.push_back([&, label = label](HWND) {
            EXPECT_FALSE(first.IsValidationErrorMessageShowing()) << label;
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
    EXPECT_EQ(first.GetWizardName(), _T("")) << "in no wizard yet";
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

// The texts of the sheet's own buttons, ordered by id.
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
         {_T("Cancel"), _T("Help"), _T("< &Back"), _T("&Next >"), _T("&Finish")}},
        {true,
         {_T("OK"), _T("Abbrechen"), _T("Hilfe"), _T("Ü&bernehmen")},
         {_T("Abbrechen"), _T("Hilfe"), _T("< &Zurück"), _T("&Weiter >"), _T("&Fertig stellen")}},
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
        CVaskPropertySheet wizard; // not a CVaskWizard
        wizard.SetWizardMode();
        Page<CVaskWizardPage> only(PAGE_FIRST);
        wizard.AddPage(&only);
        DialogDriver driver({close});
        EXPECT_EQ(wizard.DoModal(), IDCANCEL);
        EXPECT_EQ(buttons, row.wizard);
    }
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
