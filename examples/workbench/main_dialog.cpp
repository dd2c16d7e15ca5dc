#include "main_dialog.h"

#include "options.h"
#include "resource.h"

#include <quorvel/framework/app.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/win/cmd_ui.h>
#include <quorvel/framework/win/menu.h>
#include <quorvel/xml/xml_file.h>

#include <commdlg.h>
#include <shellapi.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr UINT kOpenLater = WM_APP + 1;

CString TextOf(UINT id) {
    CString text;
    text.LoadString(id);
    return text;
}

template <class... Inserts>
CString TextOf(UINT id, const Inserts&... inserts) {
    CString text;
    text.FormatMessage(TextOf(id), inserts...);
    return text;
}

CString NumberText(int number) {
    CString text;
    text.Format(_T("%d"), number);
    return text;
}

CString NameOfFile(const CString& file) {
    return file.Mid(file.ReverseFind('\\') + 1);
}

// The list "Name|pattern|..." as the platform's file dialog takes it.
CString FileFilter() {
    CString filter = TextOf(TEXT_FILE_FILTER);
    for (int i = 0; i < filter.GetLength(); ++i)
        if (filter[i] == '|')
            filter.SetAt(i, 0);
    return filter;
}

BOOL AskForFile(CWnd& owner, bool isSaving, CString& file) {
    WCHAR path[MAX_PATH] = {};
    if (file.GetLength() < MAX_PATH)
        ::lstrcpynW(path, file, MAX_PATH);
    const CString filter = FileFilter();
    OPENFILENAMEW question = {};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner.m_hWnd;
    question.lpstrFilter = filter;
    question.lpstrFile = path;
    question.nMaxFile = MAX_PATH;
    question.lpstrDefExt = _T("xml");
    question.Flags = OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST |
                     (isSaving ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    if (!(isSaving ? ::GetSaveFileNameW(&question) : ::GetOpenFileNameW(&question)))
        return FALSE;
    file = path;
    return TRUE;
}

const ACCEL kAccelerators[] = {
    {FVIRTKEY | FCONTROL, 'O', COMMAND_OPEN},
    {FVIRTKEY | FCONTROL, 'S', COMMAND_SAVE},
    {FVIRTKEY | FCONTROL, 'F', COMMAND_FIND},
    {FVIRTKEY, VK_F3, COMMAND_FIND_NEXT},
    {FVIRTKEY | FCONTROL, 'L', COMMAND_FILTER},
    {FVIRTKEY | FCONTROL | FSHIFT, 'L', COMMAND_SHOW_ALL},
    {FVIRTKEY, VK_F7, COMMAND_CHECK},
    {FVIRTKEY | FCONTROL, VK_RETURN, COMMAND_APPLY},
};

} // namespace

// Long work: the window stays alive, takes no commands and has a button that stops the work.
class MainDialog::Work : public CLengthyOperationHandler {
public:
    Work(MainDialog& dialog, const CString& status) : m_dialog(dialog) {
        m_dialog.m_isStopped = false;
        m_dialog.SetBusy();
        m_dialog.ShowStatus(status);
        Show(TRUE);
    }
    ~Work() override {
        Show(FALSE);
        m_dialog.SetBusy(FALSE);
    }
    void PumpMessages() override {
        CLengthyOperationHandler::PumpMessages();
        if (m_dialog.m_isStopped)
            AfxThrowUserException();
    }

private:
    void Show(BOOL isWorking) {
        for (const int id :
             {CONTROL_FIND, CONTROL_FILTER, CONTROL_LIST, CONTROL_SOURCE, CONTROL_APPLY})
            m_dialog.GetDlgItem(id)->EnableWindow(!isWorking);
        for (const int id : {CONTROL_PROGRESS, CONTROL_STOP})
            m_dialog.GetDlgItem(id)->ShowWindow(isWorking ? SW_SHOW : SW_HIDE);
        m_dialog.GetDlgItem(CONTROL_PROGRESS)->SendMessage(PBM_SETMARQUEE, isWorking, 50);
        m_dialog.GetDlgItem(isWorking ? CONTROL_STOP : CONTROL_LIST)->SetFocus();
        m_dialog.UpdateWindow();
    }

    MainDialog& m_dialog;
};

BEGIN_MESSAGE_MAP(MainDialog, CVaskDialog)
ON_WM_SIZE()
ON_WM_GETMINMAXINFO()
ON_WM_DROPFILES()
ON_WM_INITMENUPOPUP()
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
ON_COMMAND(COMMAND_ABOUT, &ThisClass::OnAbout)
ON_COMMAND(CONTROL_STOP, &ThisClass::OnStop)
ON_EN_CHANGE(CONTROL_SOURCE, &ThisClass::OnSourceChange)
ON_NOTIFY(LVN_ITEMCHANGED, CONTROL_LIST, &ThisClass::OnItemChanged)
ON_UPDATE_COMMAND_UI(COMMAND_SAVE, &ThisClass::OnUpdateNeedsDocument)
ON_UPDATE_COMMAND_UI(COMMAND_SAVE_AS, &ThisClass::OnUpdateNeedsDocument)
ON_UPDATE_COMMAND_UI(COMMAND_FIND_NEXT, &ThisClass::OnUpdateNeedsDocument)
ON_UPDATE_COMMAND_UI(COMMAND_FILTER, &ThisClass::OnUpdateNeedsDocument)
ON_UPDATE_COMMAND_UI(COMMAND_SHOW_ALL, &ThisClass::OnUpdateNeedsDocument)
ON_UPDATE_COMMAND_UI(COMMAND_CHECK, &ThisClass::OnUpdateNeedsDocument)
ON_UPDATE_COMMAND_UI(COMMAND_APPLY, &ThisClass::OnUpdateApply)
ON_UPDATE_COMMAND_UI(CONTROL_APPLY, &ThisClass::OnUpdateApply)
ON_MESSAGE(kOpenLater, &ThisClass::OnOpenLater)
END_MESSAGE_MAP()

MainDialog::MainDialog(const CString& file)
    : CVaskDialog(DIALOG_MAIN), m_settings(Settings::Load()) {
    m_accelerators =
        ::CreateAcceleratorTableW(const_cast<ACCEL*>(kAccelerators), std::size(kAccelerators));
    m_file = file;
}

MainDialog::~MainDialog() {
    ::DestroyAcceleratorTable(m_accelerators);
}

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
    CRect window;
    GetWindowRect(window);
    m_least = CSize(window.Width() / 2, window.Height() * 2 / 3);
    CRect client;
    GetClientRect(client);
    m_isLaidOut = true;
    OnSize(SIZE_RESTORED, client.Width(), client.Height());
    ShowStatus(TextOf(TEXT_READY));
    m_source.EnableWindow(FALSE);
    if (!m_file.IsEmpty())
        PostMessage(kOpenLater); // once the window is there
    return TRUE;
}

LRESULT MainDialog::OnOpenLater(WPARAM, LPARAM) {
    OpenFile(std::exchange(m_file, CString()));
    return 0;
}

void MainDialog::PreLoadStateControls() {
    Settings::Path().CreateSubKey(m_stateKey);
}

void MainDialog::PostLoadStateControls() {
    if (m_stateKey != nullptr)
        ::RegCloseKey(std::exchange(m_stateKey, nullptr));
}

void MainDialog::PreSaveStateControls() {
    PreLoadStateControls();
}

void MainDialog::PostSaveStateControls() {
    PostLoadStateControls();
}

void MainDialog::GetStateAutoCompleteEditCtrls(quorvel::EditKeys& edits, int) {
    edits.SetAt(&m_find, m_stateKey);
}

void MainDialog::GetStateListCtrls(quorvel::ListPaths& lists, int) {
    lists.SetAt(&m_list, CRegistryPath(Settings::Path(), _T("Elements")));
}

BOOL MainDialog::PreTranslateMessage(MSG* message) {
    if (!IsBusy() && ::TranslateAcceleratorW(m_hWnd, m_accelerators, message))
        return TRUE;
    return CVaskDialog::PreTranslateMessage(message);
}

void MainDialog::OnSize(UINT type, int width, int height) {
    CVaskDialog::OnSize(type, width, height);
    if (!m_isLaidOut || type == SIZE_MINIMIZED)
        return;
    CRect unit(4, 8, 4, 8);
    MapDialogRect(unit);
    const int x = unit.left, y = unit.top / 2; // a dialog unit is a quarter and an eighth of these
    const auto place = [&](int id, int left, int top, int right, int bottom) {
        GetDlgItem(id)->SetWindowPos(nullptr, left, top, right - left, bottom - top,
                                     SWP_NOZORDER | SWP_NOACTIVATE);
    };
    const int row = y * 13 / 4, gap = y, button = x * 62 / 4;
    const int listTop = row + 2 * gap, statusTop = height - row;
    const int sourceHeight = (statusTop - listTop) / 3;
    const int labelTop = statusTop - sourceHeight - row - gap;
    CRect find;
    GetDlgItem(CONTROL_FIND)->GetWindowRect(find);
    ScreenToClient(find);
    place(CONTROL_FIND, find.left, gap, width - button - 2 * x, gap + row);
    place(CONTROL_FILTER, width - button - x, gap, width - x, gap + row);
    place(CONTROL_LIST, x, listTop, width - x, labelTop - gap);
    place(CONTROL_SOURCE_LABEL, x, labelTop + gap, width - button - 2 * x, labelTop + row);
    place(CONTROL_APPLY, width - button - x, labelTop, width - x, labelTop + row);
    place(CONTROL_SOURCE, x, labelTop + row + gap / 2, width - x, statusTop - gap);
    place(CONTROL_STATUS, x, statusTop, width - 2 * button - 3 * x, height - gap / 2);
    place(CONTROL_PROGRESS, width - 2 * button - 2 * x, statusTop, width - button - 2 * x,
          height - gap);
    place(CONTROL_STOP, width - button - x, statusTop, width - x, height - gap / 2);
    Invalidate();
}

void MainDialog::OnGetMinMaxInfo(MINMAXINFO* info) {
    if (m_least.cx > 0)
        info->ptMinTrackSize = {m_least.cx, m_least.cy};
}

void MainDialog::OnDropFiles(HDROP drop) {
    WCHAR path[MAX_PATH];
    const UINT length = ::DragQueryFileW(drop, 0, path, MAX_PATH);
    ::DragFinish(drop);
    if (length > 0 && !IsBusy() && MayLeaveDocument())
        OpenFile(path);
}

void MainDialog::OnInitMenuPopup(CMenu* menu, UINT index, BOOL systemMenu) {
    if (!systemMenu && menu->GetMenuItemID(0) == COMMAND_RECENT) {
        while (menu->GetMenuItemCount() > 0)
            menu->DeleteMenu(0, MF_BYPOSITION);
        for (std::size_t i = 0; i < m_settings.recentFiles.size(); ++i) {
            CString path = m_settings.recentFiles[i];
            path.Replace(_T("&"), _T("&&"));
            menu->AppendMenu(MF_STRING, COMMAND_RECENT + i,
                             _T("&") + NumberText(static_cast<int>(i) + 1) + _T(" ") + path);
        }
        if (m_settings.recentFiles.empty())
            menu->AppendMenu(MF_STRING | MF_GRAYED, COMMAND_RECENT, TextOf(TEXT_NO_RECENT));
    }
    CVaskDialog::OnInitMenuPopup(menu, index, systemMenu);
}

// The document

BOOL MainDialog::OpenFile(const CString& file) {
    auto document = std::make_unique<Document>();
    CString error;
    try {
        Work work(*this, TextOf(TEXT_LOADING, NameOfFile(file)));
        if (!AfxLoadXMLFile(file, *document, error, &work)) {
            AfxMessageBox(error, MB_ICONERROR);
            ShowStatus(TextOf(TEXT_READY));
            return FALSE;
        }
        document->ListElements();
    } catch (CUserException* exception) {
        exception->Delete();
        ShowStatus(TextOf(TEXT_STOPPED));
        return FALSE;
    }
    m_list.Clear();
    m_document = std::move(document);
    m_file = file;
    m_fileTime = FileTime();
    m_isChanged = false;
    m_settings.AddRecentFile(file);
    m_settings.Save();
    ShowElements(nullptr);
    UpdateTitle();
    if (m_settings.checksOnOpen)
        CheckStrictly();
    return TRUE;
}

BOOL MainDialog::SaveFile(const CString& file) {
    if (file == m_file && FileTime() != m_fileTime &&
        AfxMessageBox(TextOf(TEXT_CHANGED_OUTSIDE, NameOfFile(file)), MB_YESNO | MB_ICONWARNING) !=
            IDYES)
        return FALSE;
    CString error;
    try {
        Work work(*this, CString());
        if (!AfxSaveXMLFile(*m_document, file, error, &work)) {
            AfxMessageBox(error, MB_ICONERROR);
            return FALSE;
        }
    } catch (CUserException* exception) {
        exception->Delete();
        ShowStatus(TextOf(TEXT_STOPPED));
        return FALSE;
    }
    m_file = file;
    m_fileTime = FileTime();
    m_isChanged = false;
    m_settings.AddRecentFile(file);
    m_settings.Save();
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
        OnApply();
        return !m_isSourceChanged && SaveFile(m_file);
    case IDNO:
        return TRUE;
    default:
        return FALSE;
    }
}

BOOL MainDialog::CheckStrictly() {
    CXMLFault fault;
    const BOOL isWellFormed = AfxCheckXML(m_document->GetDocConstRef(), fault);
    if (isWellFormed) {
        ShowStatus(TextOf(TEXT_WELL_FORMED));
    } else {
        ShowStatus(TextOf(TEXT_FAULT, NumberText(fault.nLine), NumberText(fault.nColumn),
                          fault.strMessage));
        int element = 0;
        while (element + 1 < m_document->ElementCount() &&
               m_document->PositionOf(element + 1) <= fault.nOffset)
            ++element;
        m_list.SelectElement(element);
    }
    return isWellFormed;
}

// What is on the screen

void MainDialog::ShowElements(const std::vector<int>* indexes) {
    m_shownSource = -1;
    m_list.Show(*m_document, indexes);
    ShowStatus(TextOf(TEXT_SHOWN, NumberText(m_list.GetItemCount()),
                      NumberText(m_document->ElementCount())));
    if (m_list.GetItemCount() > 0)
        m_list.SelectItem(0);
    ShowSource();
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
        text.Replace(_T("\r\n"), _T("\n"));
        text.Replace(_T("\n"), _T("\r\n"));
    }
    m_source.SetWindowText(text);
    m_source.SetReadOnly(!isWhole);
    m_source.EnableWindow(element >= 0);
    m_shownSource = element;
    m_isSourceChanged = false;
}

void MainDialog::ShowStatus(const CString& text) {
    SetDlgItemText(CONTROL_STATUS, text);
}

void MainDialog::UpdateTitle() {
    SetWindowText(
        TextOf(TEXT_TITLE_OF, m_isChanged ? CString(_T("*")) : CString(), NameOfFile(m_file)));
}

CString MainDialog::FileTime() const {
    CString text;
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (::GetFileAttributesExW(m_file, GetFileExInfoStandard, &data))
        text.Format(_T("%08x%08x %u"), data.ftLastWriteTime.dwHighDateTime,
                    data.ftLastWriteTime.dwLowDateTime, data.nFileSizeLow);
    return text;
}

void MainDialog::OnItemChanged(NMHDR*, LRESULT* result) {
    *result = 0;
    if (!m_isSourceChanged)
        ShowSource();
}

void MainDialog::OnSourceChange() {
    m_isSourceChanged = m_source.GetModify();
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
    if (MayLeaveDocument() && AskForFile(*this, false, file))
        OpenFile(file);
}

void MainDialog::OnSave() {
    if (m_document != nullptr)
        SaveFile(m_file);
}

void MainDialog::OnSaveAs() {
    CString file = m_file;
    if (m_document != nullptr && AskForFile(*this, true, file))
        SaveFile(file);
}

void MainDialog::OnRecent(UINT command) {
    const std::size_t index = command - COMMAND_RECENT;
    if (index < m_settings.recentFiles.size() && MayLeaveDocument())
        OpenFile(CString(m_settings.recentFiles[index]));
}

void MainDialog::OnFind() {
    m_find.SetFocus();
    m_find.SetSel(0, -1);
}

void MainDialog::OnFindNext() {
    if (m_document == nullptr)
        return;
    CString text;
    m_find.GetWindowText(text);
    m_find.AddActiveTextToMRUList();
    const std::vector<int> found = m_document->Find(Document::View(text.GetString()));
    const auto next = std::upper_bound(found.begin(), found.end(), SelectedElement());
    if (found.empty())
        ShowStatus(TextOf(TEXT_NOT_FOUND, text));
    else
        m_list.SelectElement(next != found.end() ? *next : found.front());
}

void MainDialog::OnFilter() {
    if (m_document == nullptr)
        return;
    CString text;
    m_find.GetWindowText(text);
    m_find.AddActiveTextToMRUList();
    if (text.IsEmpty())
        return OnShowAll();
    const std::vector<int> found = m_document->Find(Document::View(text.GetString()));
    ShowElements(&found);
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
    CString source;
    m_source.GetWindowText(source);
    source.Replace(_T("\r\n"), _T("\n"));
    const int element = m_shownSource;
    CXMLFault fault;
    m_list.Clear(); // its rows look at the document
    const bool isReplaced = m_document->ReplaceSource(element, source, fault);
    m_isChanged = m_isChanged || isReplaced;
    m_isSourceChanged = !isReplaced;
    m_list.Show(*m_document);
    m_list.SelectElement(element);
    if (isReplaced) {
        m_shownSource = -1;
        ShowSource();
        UpdateTitle();
        return;
    }
    CRect field;
    m_source.GetWindowRect(field);
    ShowValidationErrorMessage(
        TTI_WARNING, m_file.IsEmpty() ? _T("") : NameOfFile(m_file),
        TextOf(TEXT_FAULT, NumberText(fault.nLine), NumberText(fault.nColumn), fault.strMessage),
        field);
}

void MainDialog::OnColumns() {
    m_list.EditColumns();
}

void MainDialog::OnOptions() {
    if (EditOptions(*this, m_settings)) {
        m_settings.Save();
        m_shownSource = -1;
        ShowSource();
    }
}

void MainDialog::OnAbout() {
    AfxMessageBox(TextOf(TEXT_ABOUT), MB_ICONINFORMATION);
}

void MainDialog::OnStop() {
    m_isStopped = true;
}

void MainDialog::OnOK() {
    if (!IsBusy() && ::GetFocus() == m_find.m_hWnd)
        OnFindNext();
}

void MainDialog::OnCancel() {
    if (IsBusy())
        m_isStopped = true;
    else if (::GetFocus() == m_find.m_hWnd && ::GetKeyState(VK_ESCAPE) < 0)
        m_list.SetFocus();
    else if (MayLeaveDocument())
        CVaskDialog::OnCancel();
}
