#include "main_dialog.h"

#include "help.h"
#include "options.h"
#include "resource.h"
#include "texts.h"

#include <quorvel/controls/win/recent_files_menu.h>
#include <quorvel/framework/app.h>
#include <quorvel/framework/win/cmd_ui.h>
#include <quorvel/framework/win/file_dialog.h>
#include <quorvel/keyboard/win/menu_shortcuts.h>
#include <quorvel/xml/open_xml_file.h>
#include <quorvel/xml/xml_file.h>

#include <commdlg.h>
#include <shellapi.h>

#include <algorithm>
#include <utility>

namespace {

constexpr UINT kOpenLater = WM_APP + 1;
constexpr UINT kLookAtFile = WM_APP + 2;

CString NameOfFile(const CString& file) {
    return file.Mid(file.ReverseFind('\\') + 1);
}

// The time and size of a file; empty when it does not exist.
CString TimeOfFile(const CString& file) {
    CString text;
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (::GetFileAttributesExW(file, GetFileExInfoStandard, &data))
        text.Format(_T("%08x%08x %u"), data.ftLastWriteTime.dwHighDateTime,
                    data.ftLastWriteTime.dwLowDateTime, data.nFileSizeLow);
    return text;
}

// Asks for a file of the kinds in the catalogue.
BOOL AskForFile(CWnd& owner, BOOL opens, UINT kinds, const WCHAR* extension, CString& file) {
    CFileDialog dialog(opens, extension, file,
                       OFN_HIDEREADONLY | (opens ? OFN_FILEMUSTEXIST : OFN_OVERWRITEPROMPT),
                       TextOf(kinds), &owner);
    const BOOL isChosen = dialog.DoModal() == IDOK;
    file = dialog.GetPathName();
    return isChosen;
}

} // namespace

BEGIN_MESSAGE_MAP(MainDialog, CVaskDialog)
ON_WM_SIZE()
ON_WM_GETMINMAXINFO()
ON_WM_DROPFILES()
ON_WM_INITMENUPOPUP()
ON_WM_QUERYENDSESSION()
ON_MESSAGE(WM_ACTIVATEAPP, &ThisClass::OnActivateApp)
ON_COMMAND(COMMAND_OPEN, &ThisClass::OnOpen)
ON_COMMAND(COMMAND_SAVE, &ThisClass::OnSave)
ON_COMMAND(COMMAND_SAVE_AS, &ThisClass::OnSaveAs)
ON_COMMAND_RANGE(COMMAND_RECENT, COMMAND_RECENT + 8, &ThisClass::OnRecent)
ON_COMMAND(COMMAND_FIND, &ThisClass::OnFind)
ON_COMMAND(COMMAND_FIND_NEXT, &ThisClass::OnFindNext)
ON_COMMAND(COMMAND_FILTER, &ThisClass::OnFilter)
ON_COMMAND(CONTROL_FILTER, &ThisClass::OnFilter)
ON_COMMAND(COMMAND_SHOW_ALL, &ThisClass::OnShowAll)
ON_COMMAND(COMMAND_CHECK, &ThisClass::OnCheck)
ON_COMMAND(COMMAND_APPLY, &ThisClass::OnApply)
ON_COMMAND(CONTROL_APPLY, &ThisClass::OnApply)
ON_COMMAND(COMMAND_COLUMNS, &ThisClass::OnColumns)
ON_COMMAND(COMMAND_OPTIONS, &ThisClass::OnOptions)
ON_COMMAND(COMMAND_EXPORT, &ThisClass::OnExport)
ON_COMMAND_RANGE(COMMAND_UPDATES, COMMAND_ABOUT, &ThisClass::OnHelp)
ON_COMMAND(CONTROL_STOP, &ThisClass::OnStop)
ON_EN_CHANGE(CONTROL_SOURCE, &ThisClass::OnSourceChange)
ON_NOTIFY(LVN_ITEMCHANGED, CONTROL_LIST, &ThisClass::OnItemChanged)
ON_UPDATE_COMMAND_UI_RANGE(COMMAND_SAVE, COMMAND_SAVE_AS, &ThisClass::OnUpdateNeedsDocument)
ON_UPDATE_COMMAND_UI_RANGE(COMMAND_FIND_NEXT, COMMAND_CHECK, &ThisClass::OnUpdateNeedsDocument)
ON_UPDATE_COMMAND_UI(CONTROL_FILTER, &ThisClass::OnUpdateNeedsDocument)
ON_UPDATE_COMMAND_UI(COMMAND_APPLY, &ThisClass::OnUpdateApply)
ON_UPDATE_COMMAND_UI(CONTROL_APPLY, &ThisClass::OnUpdateApply)
ON_MESSAGE(kOpenLater, &ThisClass::OnOpenLater)
ON_MESSAGE(kLookAtFile, &ThisClass::OnLookAtFile)
END_MESSAGE_MAP()

MainDialog::MainDialog(const CString& file)
    : CVaskDialog(DIALOG_MAIN), m_settings(Settings::Load()), m_file(file) {}

void MainDialog::DoDataExchange(CDataExchange* exchange) {
    CVaskDialog::DoDataExchange(exchange);
    DDX_Control(exchange, CONTROL_LIST, m_list);
    DDX_Control(exchange, CONTROL_FIND, m_find);
    DDX_Control(exchange, CONTROL_SOURCE, m_source);
}

BOOL MainDialog::LoadData() {
    m_list.InsertColumns();
    m_list.SetEmptyText(TextOf(TEXT_EMPTY));
    m_source.SetLimitText(Settings::kMostSourceLimit);
    m_layout.Attach(*this, {{CONTROL_FIND, 0, 0, 100, 0},
                            {CONTROL_FILTER, 100, 0, 100, 0},
                            {CONTROL_LIST, 0, 0, 100, 65},
                            {CONTROL_SOURCE_LABEL, 0, 65, 100, 65},
                            {CONTROL_APPLY, 100, 65, 100, 65},
                            {CONTROL_SOURCE, 0, 65, 100, 100},
                            {CONTROL_STATUS, 0, 100, 100, 100},
                            {CONTROL_PROGRESS, 100, 100, 100, 100},
                            {CONTROL_STOP, 100, 100, 100, 100}});
    ApplyShortcuts();
    ShowStatus(TextOf(TEXT_READY));
    ShowSource();
    if (!m_file.IsEmpty())
        PostMessage(kOpenLater); // once the window is there
    return TRUE;
}

LRESULT MainDialog::OnOpenLater(WPARAM, LPARAM) {
    OpenFile(std::exchange(m_file, CString()));
    return 0;
}

void MainDialog::ApplyShortcuts() {
    m_accelerators.reset(m_settings.shortcuts.CreateAcceleratorTableW());
    AfxUpdateMenuShortcuts(*CMenu::FromHandle(::GetMenu(m_hWnd)), m_settings.shortcuts);
}

void MainDialog::GetStateAutoCompleteEditCtrls(quorvel::EditSections& edits, int) {
    edits.SetAt(&m_find, _T("Find"));
}

void MainDialog::GetStateListCtrls(quorvel::ListSections& lists, int) {
    lists.SetAt(&m_list, _T("Elements"));
}

BOOL MainDialog::PreTranslateMessage(MSG* message) {
    if (m_accelerators != nullptr &&
        (message->hwnd == m_hWnd || IsChild(CWnd::FromHandle(message->hwnd))) &&
        ::TranslateAcceleratorW(m_hWnd, m_accelerators.get(), message))
        return TRUE;
    return CVaskDialog::PreTranslateMessage(message);
}

void MainDialog::OnSize(UINT type, int width, int height) {
    CVaskDialog::OnSize(type, width, height);
    m_layout.OnSize(type);
}

void MainDialog::OnGetMinMaxInfo(MINMAXINFO* info) {
    m_layout.OnGetMinMaxInfo(info);
}

void MainDialog::OnDropFiles(HDROP drop) {
    WCHAR path[MAX_PATH];
    const UINT length = ::DragQueryFileW(drop, 0, path, MAX_PATH);
    ::DragFinish(drop);
    if (length > 0 && !IsBusy() && MayLeaveDocument())
        OpenFile(path);
}

void MainDialog::OnInitMenuPopup(CMenu* menu, UINT index, BOOL systemMenu) {
    if (!systemMenu && menu->GetMenuItemID(0) == COMMAND_RECENT)
        AfxShowRecentFiles(*menu, m_settings.recentFiles, COMMAND_RECENT, TextOf(TEXT_NO_RECENT));
    CVaskDialog::OnInitMenuPopup(menu, index, systemMenu);
}

// The document

bool MainDialog::DoWork(const CString& status, const std::function<void(CLengthyWork&)>& act) {
    CLengthyWork work(*this, CONTROL_STOP, CONTROL_PROGRESS);
    struct Busy {
        MainDialog& dialog;
        ~Busy() {
            dialog.m_work = nullptr;
            dialog.SetBusy(FALSE);
        }
    } const busy{*this};
    m_work = &work;
    SetBusy();
    ShowStatus(status);
    if (work.Run([&] { act(work); }) && !work.IsCancelled())
        return true;
    ShowStatus(TextOf(TEXT_STOPPED));
    return false;
}

BOOL MainDialog::OpenFile(const CString& file) {
    auto document = std::make_unique<Document>();
    CString error;
    bool isLoaded = false;
    const CString time = TimeOfFile(file); // a later change is noticed
    if (!DoWork(TextOf(TEXT_LOADING, NameOfFile(file)), [&](CLengthyWork& work) {
            isLoaded = AfxOpenXMLFile(file, *document, error, &work) != FALSE;
            document->ListElements();
        }))
        return FALSE;
    if (!isLoaded) {
        ShowStatus(TextOf(TEXT_NOT_OPENED, NameOfFile(file), error));
        AfxMessageBox(TextOf(TEXT_NOT_OPENED, file, error), MB_ICONERROR);
        if (::GetFileAttributesW(file) == INVALID_FILE_ATTRIBUTES)
            m_settings.recentFiles.Remove(file);
        return FALSE;
    }
    m_list.Clear();
    m_document = std::move(document);
    m_file = file;
    m_seenTime = m_fileTime = time;
    m_isChanged = m_isSourceChanged = false;
    m_settings.recentFiles.Add(file);
    m_settings.recentFiles.SaveState(Settings::Path());
    ShowElements(nullptr);
    UpdateTitle();
    if (m_settings.checksOnOpen)
        CheckStrictly();
    return TRUE;
}

BOOL MainDialog::SaveFile(const CString& file) {
    OnApply();
    if (m_isSourceChanged) // it is not well-formed
        return FALSE;
    const CString time = TimeOfFile(m_file);
    if (file.CompareNoCase(m_file) == 0 && !time.IsEmpty() && time != m_fileTime &&
        AfxMessageBox(TextOf(TEXT_CHANGED_OUTSIDE, NameOfFile(file)), MB_YESNO | MB_ICONWARNING) !=
            IDYES)
        return FALSE;
    if (!AfxCanSaveXMLEncoding(*m_document)) {
        if (AfxMessageBox(TextOf(TEXT_SAVE_AS_UTF8, NameOfFile(file)),
                          MB_YESNO | MB_ICONQUESTION) != IDYES)
            return FALSE;
        m_document->SetXMLDeclaration(CMarkup().GetXMLDeclaration());
    }
    CString error;
    bool isSaved = false;
    const bool isDone = DoWork(TextOf(TEXT_SAVING, NameOfFile(file)), [&](CLengthyWork& work) {
        isSaved = AfxSaveXMLFile(*m_document, file, error, &work) != FALSE;
    });
    if (!isSaved) {
        if (isDone) {
            ShowStatus(TextOf(TEXT_NOT_SAVED, NameOfFile(file), error));
            AfxMessageBox(TextOf(TEXT_NOT_SAVED, file, error), MB_ICONERROR);
        }
        return FALSE;
    }
    m_file = file;
    m_seenTime = m_fileTime = TimeOfFile(file);
    m_isChanged = false;
    m_settings.recentFiles.Add(file);
    m_settings.recentFiles.SaveState(Settings::Path());
    UpdateTitle();
    ShowStatus(TextOf(TEXT_SAVED, file));
    return TRUE;
}

BOOL MainDialog::MayLeaveDocument() {
    if (!m_isChanged && !m_isSourceChanged)
        return TRUE;
    switch (AfxMessageBox(TextOf(TEXT_SAVE_CHANGES, NameOfFile(m_file)),
                          MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return SaveFile(m_file);
    case IDNO:
        return TRUE;
    default:
        return FALSE;
    }
}

BOOL MainDialog::CheckStrictly() {
    CXMLFault fault;
    BOOL isWellFormed = FALSE;
    if (!DoWork(TextOf(TEXT_CHECKING), [&](CLengthyWork&) {
            isWellFormed = AfxCheckXML(m_document->GetDocConstRef(), fault);
        }))
        return FALSE;
    if (isWellFormed) {
        ShowStatus(TextOf(TEXT_WELL_FORMED));
    } else {
        ShowStatus(TextOf(TEXT_FAULT, NumberText(fault.nLine), NumberText(fault.nColumn),
                          fault.strMessage));
        SelectElement(std::max(m_document->LastBefore(fault.nOffset), 0));
    }
    return isWellFormed;
}

LRESULT MainDialog::OnActivateApp(WPARAM isActive, LPARAM thread) {
    if (isActive)
        PostMessage(kLookAtFile); // once the window is in front
    return CVaskDialog::OnActivateProgram(isActive, thread);
}

// Another program may have changed the file meanwhile.
LRESULT MainDialog::OnLookAtFile(WPARAM, LPARAM) {
    const CString time = TimeOfFile(m_file);
    if (m_document == nullptr || IsBusy() || !IsWindowEnabled() || time == m_seenTime)
        return 0;
    m_seenTime = time;
    m_isChanged = true; // what is here is not what is there
    UpdateTitle();
    if (time.IsEmpty())
        ShowStatus(TextOf(TEXT_DELETED_OUTSIDE, NameOfFile(m_file)));
    else if (AfxMessageBox(TextOf(TEXT_LOAD_AGAIN, NameOfFile(m_file)),
                           MB_YESNO | MB_ICONQUESTION) == IDYES)
        OpenFile(CString(m_file));
    return 0;
}

// What is on the screen

// A changed source stays in its field.
void MainDialog::ShowElements(const std::vector<int>* indexes) {
    if (!m_isSourceChanged)
        m_shownSource = -1;
    m_list.Show(*m_document, indexes);
    ShowStatus(TextOf(TEXT_SHOWN, NumberText(m_list.GetItemCount()),
                      NumberText(m_document->ElementCount())));
    if (m_list.GetItemCount() > 0)
        m_list.SelectItem(0);
    if (!m_isSourceChanged)
        ShowSource();
}

void MainDialog::SelectElement(int element) {
    if (m_list.SelectElement(element))
        return;
    ShowElements(nullptr); // a filter hides it
    m_list.SelectElement(element);
}

int MainDialog::SelectedElement() const {
    const auto* const item = static_cast<const ElementItem*>(m_list.GetSelectedItem());
    return item != nullptr ? item->GetIndex() : -1;
}

void MainDialog::ShowSource() {
    const int element = m_document != nullptr ? SelectedElement() : -1;
    if (element == m_shownSource && element >= 0)
        return;
    CString text;
    bool isWhole = element >= 0;
    if (isWhole) {
        const Document::View source = m_document->SourceOf(element);
        isWhole = source.size() <= m_settings.sourceLimit;
        text = isWhole ? CString(source)
                       : TextOf(TEXT_CUT, NumberText(static_cast<int>(source.size())));
        text.Replace(_T("\r\n"), _T("\n")); // the field has both
        text.Replace(_T("\n"), _T("\r\n"));
    }
    // Each of these would draw scroll bars, which an edit field's own WM_SETREDRAW does not
    // prevent.
    ::DefWindowProcW(m_source.m_hWnd, WM_SETREDRAW, FALSE, 0);
    m_source.SetWindowText(text);
    m_source.SetReadOnly(!isWhole);
    m_source.EnableWindow(element >= 0);
    ::DefWindowProcW(m_source.m_hWnd, WM_SETREDRAW, TRUE, 0);
    m_source.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    m_shownSource = element;
    m_isSourceChanged = true;
    m_source.SetModify(FALSE);
    OnSourceChange();
}

void MainDialog::ShowStatus(const CString& text) {
    SetDlgItemText(CONTROL_STATUS, text);
    Log(text);
}

void MainDialog::UpdateTitle() {
    SetWindowText(
        TextOf(TEXT_TITLE_OF, m_isChanged ? CString(_T("*")) : CString(), NameOfFile(m_file)));
}

void MainDialog::OnItemChanged(NMHDR*, LRESULT* result) {
    *result = 0;
    if (!m_isSourceChanged)
        ShowSource();
}

void MainDialog::OnSourceChange() {
    if (m_isSourceChanged == (m_source.GetModify() != FALSE))
        return;
    m_isSourceChanged = !m_isSourceChanged;
    SetDlgItemText(CONTROL_SOURCE_LABEL,
                   TextOf(m_isSourceChanged ? TEXT_SOURCE_CHANGED : TEXT_SOURCE));
}

void MainDialog::OnUpdateNeedsDocument(CCmdUI* ui) {
    ui->Enable(m_document != nullptr && !IsBusy());
}

void MainDialog::OnUpdateApply(CCmdUI* ui) {
    ui->Enable(m_isSourceChanged && !IsBusy());
}

// Commands

void MainDialog::OnOpen() {
    CString file = m_file;
    if (MayLeaveDocument() && AskForFile(*this, TRUE, TEXT_XML_FILES, _T("xml"), file))
        OpenFile(file);
}

void MainDialog::OnSave() {
    if (m_document != nullptr)
        SaveFile(m_file);
}

void MainDialog::OnSaveAs() {
    CString file = m_file;
    if (m_document != nullptr && AskForFile(*this, FALSE, TEXT_XML_FILES, _T("xml"), file))
        SaveFile(file);
}

void MainDialog::OnRecent(UINT command) {
    const CString file = m_settings.recentFiles.GetFile(static_cast<int>(command - COMMAND_RECENT));
    if (!file.IsEmpty() && MayLeaveDocument())
        OpenFile(file);
}

void MainDialog::OnFind() {
    m_find.SetFocus();
    m_find.SetSel(0, -1);
}

bool MainDialog::FindElements(CString& text, std::vector<int>& found) {
    m_find.GetWindowText(text);
    m_find.AddActiveTextToMRUList();
    return DoWork(TextOf(TEXT_SEARCHING), [&](CLengthyWork& work) {
        found = m_document->Find({text.GetString(), static_cast<std::size_t>(text.GetLength())},
                                 [&](int percent) {
                                     work.SetProgress(percent);
                                     work.PumpMessages();
                                 });
    });
}

void MainDialog::OnFindNext() {
    CString text;
    std::vector<int> found;
    if (m_document == nullptr || !FindElements(text, found))
        return;
    if (found.empty())
        return ShowStatus(TextOf(TEXT_NOT_FOUND, text));
    const auto next = std::upper_bound(found.begin(), found.end(), SelectedElement());
    const int element = next != found.end() ? *next : found.front();
    SelectElement(element);
    ShowStatus(
        TextOf(TEXT_FOUND,
               NumberText(static_cast<int>(std::lower_bound(found.begin(), found.end(), element) -
                                           found.begin() + 1)),
               NumberText(static_cast<int>(found.size()))));
}

void MainDialog::OnFilter() {
    CString text;
    std::vector<int> found;
    if (m_document == nullptr || !FindElements(text, found))
        return;
    ShowElements(text.IsEmpty() ? nullptr : &found);
}

void MainDialog::OnShowAll() {
    if (m_document != nullptr)
        ShowElements(nullptr);
}

void MainDialog::OnCheck() {
    if (m_document != nullptr)
        CheckStrictly();
}

void MainDialog::OnApply() {
    if (m_document == nullptr || !m_isSourceChanged || m_shownSource < 0)
        return;
    const int element = m_shownSource;
    CString source;
    m_source.GetWindowText(source);
    if (m_document->GetDocConstRef().Find(_T("\r\n")) < 0)
        source.Replace(_T("\r\n"), _T("\n"));
    CXMLFault fault;
    bool isReplaced = false;
    m_list.Clear(); // its rows look at the document
    DoWork(TextOf(TEXT_APPLYING),
           [&](CLengthyWork&) { isReplaced = m_document->ReplaceSource(element, source, fault); });
    m_list.Show(*m_document);
    m_list.SelectElement(element);
    if (isReplaced) {
        m_isChanged = true;
        m_source.SetModify(FALSE);
        m_shownSource = -1;
        ShowSource();
        UpdateTitle();
        ShowStatus(TextOf(TEXT_APPLIED));
        return;
    }
    const CString text =
        TextOf(TEXT_FAULT, NumberText(fault.nLine), NumberText(fault.nColumn), fault.strMessage);
    ShowStatus(text);
    m_source.SetFocus();
    CRect field;
    m_source.GetWindowRect(field);
    ShowValidationErrorMessage(TTI_WARNING, TextOf(TEXT_NOT_APPLIED), text, field);
}

void MainDialog::OnOptions() {
    const LANGID language = m_settings.language;
    if (!EditOptions(*this, m_settings))
        return;
    m_settings.Save();
    ApplyShortcuts();
    if (!m_isSourceChanged) {
        m_shownSource = -1;
        ShowSource();
    }
    if (m_settings.language != language && MayLeaveDocument())
        EndDialog(IDRETRY);
}

void MainDialog::OnExport() {
    CString file(_T("workbench.reg")), error;
    m_settings.Save();
    if (!AskForFile(*this, FALSE, TEXT_REG_FILES, _T("reg"), file))
        return;
    if (Settings::Export(file, error))
        ShowStatus(TextOf(TEXT_SAVED, file));
    else
        AfxMessageBox(TextOf(TEXT_NOT_SAVED, file, error), MB_ICONERROR);
}

void MainDialog::OnHelp(UINT command) {
    constexpr void (*kActions[])(CWnd&) = {CheckForUpdates, CheckForNewVersion, OpenWebPage,
                                           SendReport, ShowAbout};
    kActions[command - COMMAND_UPDATES](*this);
}

void MainDialog::OnStop() {
    if (m_work != nullptr)
        m_work->Cancel();
}

void MainDialog::OnOK() {
    if (!IsBusy() && ::GetFocus() == m_find.m_hWnd)
        OnFindNext();
}

void MainDialog::OnCancel() {
    if (IsBusy())
        return OnStop();
    if (::GetKeyState(VK_ESCAPE) <
        0) { // does not close: the source is as before, or the list active
        if (::GetFocus() == m_source.m_hWnd && m_isSourceChanged) {
            m_shownSource = -1;
            ShowSource();
        }
        return static_cast<void>(m_list.SetFocus());
    }
    if (MayLeaveDocument())
        CVaskDialog::OnCancel();
}
