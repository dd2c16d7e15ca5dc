// Lists, dialogs, property sheets and wizards.
#include <quorvel/controls/win/auto_complete_edit.h>
#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/controls/win/vask_list_ctrl.h>
#include <quorvel/controls/win/vask_property_page.h>
#include <quorvel/controls/win/vask_wizard.h>
#include <quorvel/controls/win/vask_wizard_page.h>
#include <quorvel/framework/win/data_exchange.h>
#include <quorvel/res/message_ids.h>

#include "dialog_ids.h"
#include "gallery.h"
#include "take_box.h"

#include <iterator>
#include <optional>

namespace {

// This program's own texts.
struct OwnText {
    const WCHAR* english;
    const WCHAR* german;
};
constexpr OwnText kOwnTexts[] = {
    {_T("Books"), _T("Bücher")},
    {_T("Title"), _T("Titel")},
    {_T("Author"), _T("Autor")},
    {_T("Pages"), _T("Seiten")},
    {_T("Published"), _T("Erschienen")},
    {_T("There are no books that match your search."), _T("Zu Ihrer Suche gibt es keine Bücher.")},
    {_T("Connect to a server"), _T("Mit einem Server verbinden")},
    {_T("&Server:"), _T("&Server:")},
    {_T("&Port:"), _T("&Anschluss:")},
    {_T("Cancel"), _T("Abbrechen")},
    {_T("Options"), _T("Optionen")},
    {_T("View"), _T("Ansicht")},
    {_T("Backup"), _T("Sicherung")},
    {_T("Files and folders"), _T("Dateien und Ordner")},
    {_T("Show &hidden files"), _T("&Versteckte Dateien anzeigen")},
    {_T("Show &extensions of known types"), _T("&Endungen bekannter Dateitypen anzeigen")},
    {_T("&Start folder:"), _T("&Startordner:")},
    {_T("&Folder:"), _T("&Ordner:")},
    {_T("Import Wizard"), _T("Import-Assistent")},
    {_T("This wizard reads books from a file of another program and adds them to your collection."),
     _T("Dieser Assistent liest Bücher aus der Datei eines anderen Programms und fügt sie Ihrer "
        "Sammlung hinzu.")},
    {_T("To go on, click Next."), _T("Klicken Sie auf „Weiter“, um fortzufahren.")},
    {_T("Source"), _T("Quelle")},
    {_T("Which file are the books in?"), _T("In welcher Datei stehen die Bücher?")},
    {_T("&File:"), _T("&Datei:")},
    {_T("&Leave out books that are there already"), _T("Vorhandene Bücher &auslassen")},
    {_T("Read 27 books from books.csv"), _T("27 Bücher aus books.csv lesen")},
    {_T("Leave out 3 books that are there already"), _T("3 vorhandene Bücher auslassen")},
    {_T("To add the books, click Finish."),
     _T("Klicken Sie auf „Fertig stellen“, um die Bücher hinzuzufügen.")},
};

// A text of this program in the language in force; another text as it is.
CString Own(const CString& english) {
    if (German::IsInForce()) {
        for (const OwnText& text : kOwnTexts) {
            if (english == text.english)
                return text.german;
        }
    }
    return english;
}

void TranslateWindow(HWND window) {
    ::SetWindowTextW(window, Own(TextOf(window)));
    for (const HWND child : ChildrenOf(window))
        ::SetWindowTextW(child, Own(TextOf(child)));
}

// Lists

class BookList : public CVaskListCtrl {
public:
    // When the header's menu is open, writes its picture and closes it.
    const char* m_menuPath = nullptr;
    bool m_isMenuTaken = false;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_INITMENUPOPUP && m_menuPath != nullptr) {
            SetTimer(kMenuTimer, 200);
            PostMessage(WM_KEYDOWN, VK_DOWN, 1);
        } else if (message == WM_TIMER && wParam == kMenuTimer) {
            ::KillTimer(m_hWnd, kMenuTimer);
            m_isMenuTaken = SavePicture(::GetAncestor(m_hWnd, GA_ROOT), m_menuPath);
            ::EndMenu();
            return 0;
        }
        return CVaskListCtrl::WindowProc(message, wParam, lParam);
    }

private:
    static constexpr UINT_PTR kMenuTimer = 1;
    void SetTimer(UINT_PTR id, UINT milliseconds) { ::SetTimer(m_hWnd, id, milliseconds, nullptr); }
};

// A window with a list of books.
class BookWindow : public CWnd {
public:
    BookWindow() {
        const auto scaled = [](int pixels) { return pixels * ResolutionOfScreen() / 96; };
        CreateEx(WS_EX_DLGMODALFRAME, _T("Static"), Own(_T("Books")),
                 WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, scaled(480), scaled(220), nullptr,
                 nullptr);
        CRect client;
        GetClientRect(client);
        m_list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS, client, this, 1);
        m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
        m_list.InsertVaskColumn(0, 0, TRUE, Own(_T("Title")), LVCFMT_LEFT, scaled(170));
        m_list.InsertVaskColumn(1, 1, TRUE, Own(_T("Author")), LVCFMT_LEFT, scaled(130));
        m_list.InsertVaskColumn(2, 2, TRUE, Own(_T("Pages")), LVCFMT_RIGHT, scaled(60));
        m_list.InsertVaskColumn(3, 3, TRUE, Own(_T("Published")), LVCFMT_RIGHT, scaled(80));
        m_list.SetFocus();
    }
    void AddBooks() {
        const WCHAR* const books[][4] = {
            {_T("Effi Briest"), _T("Theodor Fontane"), _T("352"), _T("1896")},
            {_T("Emma"), _T("Jane Austen"), _T("474"), _T("1815")},
            {_T("Germinal"), _T("Émile Zola"), _T("591"), _T("1885")},
            {_T("Middlemarch"), _T("George Eliot"), _T("880"), _T("1871")},
            {_T("The Way We Live Now"), _T("Anthony Trollope"), _T("792"), _T("1875")},
        };
        for (int row = 0; row < static_cast<int>(std::size(books)); ++row) {
            m_list.InsertItem(row, books[row][0]);
            for (int column = 1; column < 4; ++column)
                m_list.SetItemText(row, column, books[row][column]);
        }
        m_list.SelectItem(1);
    }
    bool Take(const char* path) { return SavePicture(m_hWnd, path); }

    BookList m_list;
};

bool TakeSortedUp(const char* path) {
    BookWindow window;
    window.AddBooks();
    window.m_list.SetRowsHighlighted();
    window.m_list.SetSortColumn(0);
    return window.Take(path);
}

bool TakeSortedDown(const char* path) {
    BookWindow window;
    window.AddBooks();
    window.m_list.SetSortColumn(2);
    window.m_list.SetSortAscending(FALSE);
    return window.Take(path);
}

bool TakeOwnArrow(const char* path) {
    BookWindow window;
    window.AddBooks();
    static_cast<CSortHeaderCtrl*>(window.m_list.GetHeaderCtrl())->SetOwnArrow(TRUE);
    window.m_list.SetSortColumn(1);
    return window.Take(path);
}

bool TakeHeaderFocus(const char* path) {
    BookWindow window;
    window.AddBooks();
    window.m_list.SetSortColumn(0);
    window.m_list.GetHeaderCtrl()->SetFocus();
    return window.Take(path);
}

bool TakeEmpty(const char* path) {
    BookWindow window;
    window.m_list.SetEmptyText(Own(_T("There are no books that match your search.")));
    window.m_list.SetEmptyTextAlignmentCenter();
    return window.Take(path);
}

bool TakeHeaderMenu(const char* path) {
    BookWindow window;
    window.AddBooks();
    window.m_list.SetSortColumn(0);
    window.m_list.ShowVaskColumn(3, FALSE);
    window.m_list.m_menuPath = path;
    CHeaderCtrl& header = *window.m_list.GetHeaderCtrl();
    CRect place;
    header.GetWindowRect(place);
    header.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(header.m_hWnd),
                       MAKELPARAM(place.left + 60, place.top + 12));
    return window.m_list.m_isMenuTaken;
}

bool TakeColumnsDialog(const char* path) {
    BookWindow window;
    window.m_list.ShowVaskColumn(3, FALSE);
    return TakeBoxAfter({Press(VK_DOWN)}, path, [&] { window.m_list.EditColumns(); });
}

// Dialogs

class ConnectionDlg : public CVaskDialog {
public:
    ConnectionDlg() : CVaskDialog(DIALOG_CONNECTION) {}

protected:
    void DoDataExchange(CDataExchange* exchange) override {
        CVaskDialog::DoDataExchange(exchange);
        DDX_Control(exchange, FIELD_SERVER, m_server);
    }
    BOOL LoadData() override {
        TranslateWindow(m_hWnd);
        for (const WCHAR* const server :
             {_T("mail.example.org"), _T("files.example.org"), _T("files.example.com")})
            m_server.AddMRUListEntry(server);
        SetDlgItemText(FIELD_PORT, _T("8080"));
        return TRUE;
    }
    BOOL ValidateData(UINT&, CString&, CString& text, CRect& rect) override {
        text.LoadString(quorvel::kTextFieldEmpty);
        m_server.GetWindowRect(rect);
        return FALSE;
    }

private:
    CAutoCompleteEdit m_server;
};

bool TakeBalloon(const char* path) {
    ConnectionDlg dialog;
    return TakeBoxAfter({Press(VK_RETURN)}, path, [&] { dialog.DoModal(); });
}

bool TakeDropDown(const char* path) {
    ConnectionDlg dialog;
    const auto type = [](HWND) { ::PostMessageW(::GetFocus(), WM_CHAR, 'f', 1); };
    return TakeBoxAfter({type, [](HWND) {}, Press(VK_DOWN)}, path, [&] { dialog.DoModal(); });
}

// Sheets and wizards

template <class Base>
class Page : public Base {
public:
    explicit Page(UINT templateId) : Base(templateId) {}

protected:
    void GetBoldControlIDs(std::vector<int>& ids) override { ids = {FIELD_HEADING}; }
    BOOL LoadData() override {
        TranslateWindow(this->m_hWnd);
        return TRUE;
    }
};

bool TakeSheet(const char* path) {
    CVaskPropertySheet sheet(Own(_T("Options")));
    Page<CVaskPropertyPage> view(PAGE_VIEW), files(PAGE_FILES);
    view.m_strCaption = Own(_T("View"));
    files.m_strCaption = Own(_T("Backup"));
    sheet.AddPage(&view);
    sheet.AddPage(&files);
    return TakeBoxAfter({[&](HWND) { view.SetModified(); }}, path, [&] { sheet.DoModal(); });
}

class ImportPage : public Page<CVaskWizardPage> {
public:
    ImportPage(UINT templateId, DWORD buttons)
        : Page<CVaskWizardPage>(templateId), m_buttons(buttons) {
        SetWizardName(Own(_T("Import Wizard")));
    }

    CString m_heading;

protected:
    BOOL LoadData() override {
        SetDlgItemText(FIELD_HEADING, m_heading);
        CString events;
        CVaskEvent event;
        for (int i = 0; GetEvent(i, event); ++i)
            events += _T("\x2022 ") + Own(event.GetDescription()) + _T("\r\n");
        SetDlgItemText(FIELD_EVENTS, events);
        return Page<CVaskWizardPage>::LoadData();
    }
    BOOL OnSetActive() override {
        GetParentSheet()->SetWizardButtons(m_buttons);
        return Page<CVaskWizardPage>::OnSetActive();
    }

private:
    const DWORD m_buttons;
};

bool TakeWizard(int page, const char* path) {
    CVaskWizard wizard(Own(_T("Import Wizard")));
    ImportPage welcome(PAGE_WELCOME, PSWIZB_NEXT), source(PAGE_SOURCE, PSWIZB_BACK | PSWIZB_NEXT),
        completing(PAGE_COMPLETING, PSWIZB_BACK | PSWIZB_FINISH);
    welcome.m_heading = welcome.GetWelcomeText();
    source.SetHeaderTitle(Own(_T("Source")));
    source.SetHeaderSubTitle(Own(_T("Which file are the books in?")));
    completing.m_heading = completing.GetCompletingText();
    completing.AppendEvents({CVaskEvent(_T("Read 27 books from books.csv")),
                             CVaskEvent(_T("Leave out 3 books that are there already"))});
    wizard.AddPage(&welcome);
    wizard.AddPage(&source);
    wizard.AddPage(&completing);
    std::vector<DialogDriver::Step> steps;
    for (int i = 0; i < page; ++i)
        steps.push_back([&](HWND) { wizard.PressButton(PSBTN_NEXT); });
    return TakeBoxAfter(std::move(steps), path, [&] { wizard.DoModal(); });
}

template <int page>
bool TakeWizardPage(const char* path) {
    return TakeWizard(page, path);
}

} // namespace

const std::vector<Picture> kWindowPictures = {
    {"list_sorted_up", TakeSortedUp, true},
    {"list_sorted_down", TakeSortedDown},
    {"list_own_arrow", TakeOwnArrow, true},
    {"list_header_focus", TakeHeaderFocus, true},
    {"list_empty", TakeEmpty, true},
    {"list_empty_german", InGerman<TakeEmpty>},
    {"list_header_menu", TakeHeaderMenu, true},
    {"list_header_menu_german", InGerman<TakeHeaderMenu>},
    {"columns_dialog", TakeColumnsDialog},
    {"columns_dialog_german", InGerman<TakeColumnsDialog>, true},
    {"validation_balloon", TakeBalloon},
    {"validation_balloon_german", InGerman<TakeBalloon>, true},
    {"auto_complete", TakeDropDown, true},
    {"auto_complete_german", InGerman<TakeDropDown>},
    {"property_sheet", TakeSheet},
    {"property_sheet_german", InGerman<TakeSheet>, true},
    {"wizard_first", TakeWizardPage<0>},
    {"wizard_first_german", InGerman<TakeWizardPage<0>>, true},
    {"wizard_middle", TakeWizardPage<1>},
    {"wizard_middle_german", InGerman<TakeWizardPage<1>>, true},
    {"wizard_last", TakeWizardPage<2>},
    {"wizard_last_german", InGerman<TakeWizardPage<2>>, true},
};
